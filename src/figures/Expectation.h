// How far a game's result lies from what the dice owe it.
#pragma once

#include "stats/advantage/EvaluateBet.h"

namespace rollwick {

struct Expectation {
  Money wagered, result;  // of all wagers decided
  double expected = 0;
  double deviation = 0;

  // Above 0: better than expected. 0 where nothing can deviate.
  double DeviationsAway() const { return deviation > 0 ? (result.ToDouble() - expected) / deviation : 0; }
};
Expectation ExpectationOf(const Game& g);

}  // namespace rollwick
