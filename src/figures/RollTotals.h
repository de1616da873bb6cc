// frmRollTotals: how often the dice showed what, against how often they should.
#pragma once

#include "engine/state/Game.h"
#include "figures/Figure.h"

namespace rollwick {

enum class TotalsSet : int { StandardNumbers, DistinguishableCombos, UniqueCombos, DiceFaces };
inline constexpr std::array<const char*, 4> kTotalsSets = {"11 Standard Numbers", "21 Distinguishable Combos",
                                                           "36 Unique Combos", "Dice Faces"};

struct RollTotalsRow {
  std::string number;  // "7", "1-2", "Die 1, face 3"
  RollEvent event = 0;
  Figure count;
  Figure actual;  // percents
  Figure probable;
  Figure rollsSince;
};

// By total, then low die, then high die. `skewed`: probable by the probability matrix instead of true dice.
std::vector<RollTotalsRow> RollTotals(const Game& g, TotalsSet set, bool skewed);

}  // namespace rollwick
