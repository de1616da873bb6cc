// How far a game's result lies from what the dice owe it.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Of a dollar, each time a decision is recorded on a bet.
struct DecisionOdds {
  double mean = 0;
  double deviation = 0;
};

// EvaluateBet's figures of a decision, ties left out. A Come or Don't Come bet is recorded on its box only
// while it stands there: its odds here are those of 2, 3, 7, 11 and 12, and what becomes of the bet on a
// number is for the rows of the numbers.
DecisionOdds OddsOfDecision(Game& g, BetId bet);

struct Expectation {
  Money wagered, result;  // of all wagers decided
  double expected = 0;
  double deviation = 0;  // as if every bet had its own dice and always its average amount

  // Above 0: better than expected. 0 where nothing can deviate.
  double DeviationsAway() const { return deviation > 0 ? (result.ToDouble() - expected) / deviation : 0; }
};
Expectation ExpectationOf(Game& g);

}  // namespace rollwick
