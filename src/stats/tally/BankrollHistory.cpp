// The bankroll over the rolls: extremes, sum, and the pages and scale of its graph.
#include <algorithm>

#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

constexpr int kStepUnits = 50;    // one step of the scale
constexpr int kGraphUnits = 300;  // from the top of the graph to its foot
constexpr int kRangeUnits = 250;  // a page wider than this needs a larger unit

Money Units(const Game& g, int count) {
  return Product(g.GraphUnit, Dollars(count));
}

// 1, 2, 4, 10, 20, 40, 100 ...
Money NextGraphUnit(Money unit) {
  std::int64_t leading = unit.Units();
  while (leading % 10 == 0) leading /= 10;
  return leading == 4 ? Money::FromUnits(unit.Units() / 2 * 5) : unit + unit;
}

void CentreGraph(Game& g) {
  const Money step = Units(g, kStepUnits);
  g.GraphTop = FloorToChips(g.BetAmount[SlotBankroll], step) + Product(step, Dollars(3));
}

bool GrowGraphUnit(Game& g) {
  bool grown = false;
  while (g.GraphHigh - g.GraphLow > Units(g, kRangeUnits)) {
    g.GraphUnit = NextGraphUnit(g.GraphUnit);
    grown = true;
  }
  return grown;
}

bool LeavesGraph(const Game& g, Money point) {
  return point > g.GraphTop || point < g.GraphTop - Units(g, kGraphUnits);
}

void TurnPage(Game& g) {
  const Money bankroll = g.BetAmount[SlotBankroll];
  auto& history = g.BankrollHistory;
  g.BankrollHistoryCount = 0;
  history[0] = Dollars(g.RollCount());
  g.GraphHigh = g.GraphLow = bankroll;
  std::copy_n(history.begin() + 1, kGraphPage, history.begin() + 1 + kGraphPage);
  if (g.GraphAdjustType == 0) return;
  if (g.GraphAdjustType == 2) {
    g.GraphUnit = g.GraphManualUnit;
    g.GraphTop = g.GraphManualTop;
  }
  CentreGraph(g);
}

}  // namespace

void TallyBankroll(Game& g) {
  const Money bankroll = g.BetAmount[SlotBankroll];
  g.BankrollRollSum = SaturatingSum(g.BankrollRollSum, bankroll);
  const double result = (bankroll - g.BetAtThrow[SlotBankroll]).ToDouble();
  g.RollResultSquares += result * result;
  ++g.RollResults;
  g.BankrollHigh = std::max(g.BankrollHigh, bankroll);
  g.BankrollLow = std::min(g.BankrollLow, bankroll);
}

void AddBankrollPoint(Game& g) {
  const Money bankroll = g.BetAmount[SlotBankroll];
  g.GraphHigh = std::max(g.GraphHigh, bankroll);
  g.GraphLow = std::min(g.GraphLow, bankroll);
  if (g.BankrollHistoryCount == kGraphPage) TurnPage(g);
  g.BankrollHistory[++g.BankrollHistoryCount] = bankroll;
  if (g.GraphAdjustType == 0) return;
  if (GrowGraphUnit(g) || LeavesGraph(g, bankroll)) CentreGraph(g);
}

Money MovingAverage(const Game& g, int rollsBack, int period) {
  const auto& history = g.BankrollHistory;
  const int last = g.BankrollHistoryCount - rollsBack;
  if (period <= 0) {
    const std::int32_t rolls = g.RollCount() - rollsBack;
    if (rolls <= 0) return {};
    const Money sum = rollsBack == 0 ? g.BankrollRollSum : g.BankrollRollSum - history[last + 1];
    return Quotient(sum, Dollars(rolls));
  }
  const bool hasPageBefore = history[0] > Dollars(1);
  const int wanted = std::min(period, kGraphPage);
  const int found = hasPageBefore ? wanted : std::min(wanted, last);
  if (!hasPageBefore && last <= 1) return {};
  Money sum;
  for (int back = 0; back < found; ++back) {
    const int point = last - back;
    sum += history[point > 0 ? point : point + 2 * kGraphPage];
  }
  return Quotient(sum, Dollars(found));
}

void ResetStatistics(Game& g) {
  BringUpToDate(g);  // which leaves nothing in the ledger
  g.RollEventCount.fill(0);
  g.RollsSinceEvent.fill(0);
  for (auto& gaps : g.RollGapHistogram) gaps.fill(0);
  g.TrackedEventCount.fill(0);
  g.TrackedEventCountBefore.fill(0);
  g.TrackedRollBase.fill(0);
  g.TrackedRollBaseBefore.fill(0);
  g.BetWagers = {};
  g.BetWins = {};
  g.BetLosses = {};
  g.DecidedCount = 0;
  g.BetStreak = {};
  g.LongestLosingRun = g.LongestLosingBet = 0;
  g.HandStats.fill(0);
  const Money bankroll = g.BetAmount[SlotBankroll];
  g.BankrollHigh = g.BankrollLow = g.GraphHigh = g.GraphLow = bankroll;
  g.BankrollRollSum = Money();
  g.RollResultSquares = 0;
  g.RollResults = 0;
  g.BankrollHistory = {};
  g.BankrollHistory[0] = Dollars(1);
  g.BankrollHistoryCount = 0;
  g.GraphUnit = Dollars(1);
  g.GraphTop = Dollars(150);
  StartCounting(g);
}

}  // namespace rollwick
