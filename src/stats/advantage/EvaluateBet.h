// The exact price of a bet: what a dollar on it earns and how it swings, worked out without a roll. The
// recorded results of the phantom dollars are next door in stats/tally.
#pragma once

#include <string>

#include "engine/state/Game.h"

namespace rollwick {

// Of a dollar in the long run, each rounded to six decimals. 0 where no decision can come.
struct BetFigures {
  double EvPerRoll = 0;
  double EvPerDecision = 0;
  double RollsPerDecision = 0;  // of bets that any roll may decide: to two decimals
  double StdDevPerRoll = 0;
  double StdDevPerDecision = 0;
};

enum class DiceTaken {
  AtTheTable,  // crooked while the probability matrix is in force
  True,
};

// The figures of `bet` (1..83) under the payoffs, vigs, bar number, dice and CountZeroOutcomes in force.
BetFigures EvaluateBet(const Game& g, BetId bet, DiceTaken dice = DiceTaken::AtTheTable);

// Of a dollar, each time a decision is recorded on a bet; what returns the dollar records none.
struct DecisionOdds {
  double mean = 0;
  double deviation = 0;
};

// A Come or Don't Come bet is recorded on its box only while it stands there: its odds here are those of 2,
// 3, 7, 11 and 12, and what becomes of the bet on a number is for the rows of the numbers.
DecisionOdds OddsOfDecision(const Game& g, BetId bet);

// "-.006098", "4.", "0.000000".
std::string FigureText(double figure);

}  // namespace rollwick
