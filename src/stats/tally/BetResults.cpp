// What the wagers really made earned, bet by bet, and what the last roll decided.
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

void AddDecision(BetStatRow& row, Money amount) {
  row[TotalCount] += Dollars(1);
  row[TotalAmount] += amount;
  if (amount > row[HighAmount]) row[HighAmount] = amount;
  if (amount > Money() && (row[LowAmount] == Money() || amount < row[LowAmount])) row[LowAmount] = amount;
  row[LastAmount] = row[LastRollAmount] = amount;
  row[LastRollCount] = Dollars(1);
}

// A bet's run of results as it stood before the roll. Only bets decided in the last roll differ, but in a
// game from a file any may.
void KeepStreaks(Game& g) {
  if (g.TheLedger.Events.Stage == RollStage::None) {
    for (auto& [before, now] : g.BetStreak) before = now;
    return;
  }
  for (int i = 0; i < g.DecidedCount; ++i) {
    auto& [before, now] = g.BetStreak[static_cast<std::size_t>(g.DecidedBets[i] >> 1 & 127)];
    before = now;
  }
}

void ClearRollResult(BetStatRow& row) {
  row[LastRollCount] = row[LastRollAmount] = Money();
}

// The results of the last roll stand only in the rows of the bets it decided.
void ClearRollResults(StatisticsTables& g) {
  for (int i = 0; i < g.DecidedCount; ++i) {
    const auto decided = static_cast<std::uint32_t>(g.DecidedBets[i]);
    const std::uint32_t kind = decided >> 8, bet = decided >> 1 & 127;
    ClearRollResult(g.BetWagers[kind][bet]);
    ClearRollResult(((decided & 1) != 0 ? g.BetLosses : g.BetWins)[kind][bet]);
  }
  g.DecidedCount = 0;
}

void AddRow(BetStatRow& sum, const BetStatRow& row) {
  for (int field = 0; field < kBetStatFieldCount; ++field) sum[field] += row[field];
}

}  // namespace

Money VigOnDecision(const Game& g, BetStatKind kind, BetId bet, Money result) {
  const bool won = result > Money(), isReal = kind == ActualWagers;
  if (IsLay(bet) && (won || g.Rules.LayVigOnAll)) return isReal ? g.LayVigAmount[bet] : PhantomLayVig(g, bet);
  if (IsBuy(bet) && (won || g.Rules.BuyVigOnAll)) return isReal ? g.BuyVigAmount[bet] : g.Rules.BuyVigPct;
  return {};
}

void MarkDecided(StatisticsTables& g, BetStatKind kind, BetId bet, bool won) {
  g.DecidedBets[g.DecidedCount++] = kind << 8 | bet << 1 | (won ? 0 : 1);
}

void RecordBetDecision(Game& g, BetId bet, Money wager, Money result) {
  if (result == Money()) return;
  const bool won = result > Money();
  BetStatRow& results = (won ? g.BetWins : g.BetLosses)[ActualWagers][bet];
  if (results[LastRollCount] == Money()) MarkDecided(g, ActualWagers, bet, won);
  AddDecision(g.BetWagers[ActualWagers][bet], wager + VigOnDecision(g, ActualWagers, bet, result));
  AddDecision(results, Abs(result));
}

void StartRollResults(Game& g) {
  KeepStreaks(g);
  ClearRollResults(g);
  MovePhantoms(g);
}

void SumBetResults(Game& g, bool clearFirst, BetId firstBet, BetId lastBet) {
  for (BetStatTable* table : {&g.BetWagers, &g.BetWins, &g.BetLosses}) {
    auto& rows = (*table)[ActualWagers];
    if (clearFirst) rows[0] = {};
    for (BetId bet = firstBet; bet <= lastBet; ++bet) AddRow(rows[0], rows[bet]);
  }
}

}  // namespace rollwick
