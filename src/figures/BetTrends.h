// frmBetTrends: the runs of wins and losses that bets are on.
#pragma once

#include "engine/state/Game.h"
#include "figures/Figure.h"

namespace rollwick {

inline constexpr const char* kNoTrends = "No bet has a run yet";

struct BetTrend {
  BetId bet = 0;
  Figure run;  // labelled with the bet's name: "+3" wins in a row, "-2" losses
};

// Of the bets with a run, by number.
std::vector<BetTrend> BetTrends(const Game& g);

}  // namespace rollwick
