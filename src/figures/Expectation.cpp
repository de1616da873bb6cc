#include "figures/Expectation.h"

#include <cmath>
#include <utility>

#include "figures/RollEventList.h"
#include "stats/advantage/EvaluateBet.h"

namespace rollwick {
namespace {

double ChanceOfTotal(const Game& g, int total) {
  const DiceOfEvent& dice = ItemOfEvent(total).dice;
  return (g.UseProbabilityMatrix ? SkewedPercent(g.ProbabilityMatrix, dice) : TruePercent(dice)) / 100;
}

DecisionOdds OddsOnTheBox(const Game& g, BetId bet) {
  const PayoffRow& row = g.PayoffTable[bet];
  const double ratio = row.Ratio.ToDouble() / row.Base.ToDouble();
  double decided = 0, sum = 0, squares = 0;
  for (const int total : {2, 3, 7, 11, 12}) {
    if (bet == Bet::DontCome && total == g.Rules.BarNumber) continue;
    const bool isWon = (total == 7 || total == 11) == (bet == Bet::Come);
    const double result = isWon ? ratio : -1;
    if (result == 0) continue;  // nothing is recorded
    const double chance = ChanceOfTotal(g, total);
    decided += chance;
    sum += chance * result;
    squares += chance * result * result;
  }
  if (decided <= 0) return {};
  const double mean = sum / decided;
  return {mean, std::sqrt(std::max(0.0, squares / decided - mean * mean))};
}

}  // namespace

DecisionOdds OddsOfDecision(Game& g, BetId bet) {
  if (bet == Bet::Come || bet == Bet::DontCome) return OddsOnTheBox(g, bet);
  const bool countsTies = std::exchange(g.CountZeroOutcomes, false);
  const BetFigures figures = EvaluateBet(g, bet);
  g.CountZeroOutcomes = countsTies;
  return {figures.EvPerDecision, figures.StdDevPerDecision};
}

Expectation ExpectationOf(Game& g) {
  Expectation all;
  double variance = 0;
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const BetStatRow& wagers = g.BetWagers[ActualWagers][bet];
    if (wagers[TotalCount] <= Money()) continue;
    const double amount = wagers[TotalAmount].ToDouble(), count = wagers[TotalCount].ToDouble();
    const DecisionOdds odds = OddsOfDecision(g, bet);
    all.wagered += wagers[TotalAmount];
    all.result += g.BetWins[ActualWagers][bet][TotalAmount] - g.BetLosses[ActualWagers][bet][TotalAmount];
    all.expected += amount * odds.mean;
    variance += amount * amount / count * odds.deviation * odds.deviation;
  }
  all.deviation = std::sqrt(variance);
  return all;
}

}  // namespace rollwick
