// frmRollFreqs: how long one roll event took to come back, each time.
#pragma once

#include <array>

#include "engine/state/Game.h"
#include "figures/Figure.h"

namespace rollwick {

inline constexpr int kGapRows = 25;  // of the grid, which is filled column by column
inline constexpr int kGapColumns = 8;

struct GapCell {
  std::string gap;         // "1" to "199", "200+"
  std::int32_t count = 0;  // shown only above 0
};

struct RollFrequencies {
  RollEvent event = 0;
  std::string text;  // as in the list of events
  std::vector<Figure> figures;
  std::array<GapCell, kGapRows * kGapColumns> gaps;  // by gap, the first is 1
};

// `event` must be 2..89. `skewed`: the probable percent by the probability matrix instead of true dice.
RollFrequencies FrequenciesOf(const Game& g, RollEvent event, bool skewed);

}  // namespace rollwick
