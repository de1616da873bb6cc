#include "figures/Expectation.h"

#include <algorithm>
#include <cmath>

namespace rollwick {
namespace {

constexpr double kManyDecisions = 1000;

}  // namespace

Expectation ExpectationOf(const Game& g) {
  Expectation all;
  double variance = 0, decisions = 0;
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const BetStatRow& wagers = g.BetWagers[ActualWagers][bet];
    if (wagers[TotalCount] <= Money()) continue;
    const double amount = wagers[TotalAmount].ToDouble(), count = wagers[TotalCount].ToDouble();
    const DecisionOdds odds = OddsOfDecision(g, bet);
    all.wagered += wagers[TotalAmount];
    all.result += g.BetWins[ActualWagers][bet][TotalAmount] - g.BetLosses[ActualWagers][bet][TotalAmount];
    decisions += count;
    all.expected += amount * odds.mean;
    variance += amount * amount / count * odds.deviation * odds.deviation;
  }
  // Bets lose together on a seven, and amounts follow what was won: only the rolls know how wide the results
  // spread. Short runs may not have seen a long shot win, and of a loaded game the rolls are not known.
  if (g.RollCount() > 0 && g.RollResults == g.RollCount()) {
    const double ofRolls = std::max(0.0, g.RollResultSquares - all.expected * all.expected / g.RollCount());
    variance = decisions < kManyDecisions ? std::max(variance, ofRolls) : ofRolls;
  }
  all.deviation = std::sqrt(variance);
  return all;
}

}  // namespace rollwick
