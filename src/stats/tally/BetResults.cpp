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

// A bet's run of results as it stood before the roll.
void KeepStreak(StatisticsTables& g, std::size_t bet) {
  auto& [before, now] = g.BetStreak[bet];
  before = now;
}

// The results of the last roll stand only in the rows of the bets it decided.
void ClearRollResult(BetStatRow& row) {
  row[LastRollCount] = row[LastRollAmount] = Money();
}

void AddRow(BetStatRow& sum, const BetStatRow& row) {
  for (int field = 0; field < kBetStatFieldCount; ++field) sum[field] += row[field];
}

}  // namespace

Money VigOnLayOrBuy(const Game& g, BetStatKind kind, BetId bet, Money result) {
  const bool isReal = kind == ActualWagers;
  if (result <= Money() && !(IsLay(bet) ? g.Rules.LayVigOnAll : g.Rules.BuyVigOnAll)) return {};
  if (IsLay(bet)) return isReal ? g.LayVigAmount[bet] : PhantomLayVig(g, bet);
  return isReal ? g.BuyVigAmount[bet] : g.Rules.BuyVigPct;
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
  // Only streaks of bets decided in the last roll differ, but in a game from a file any may.
  if (g.TheLedger.Events.Stage == RollStage::None) {
    for (BetId bet = 0; bet < kBetRowCount; ++bet) KeepStreak(g, static_cast<std::size_t>(bet));
  }
  for (std::int32_t i = 0; i < g.DecidedCount; ++i) {
    const auto decided = static_cast<std::uint32_t>(g.DecidedBets[i]);
    const std::uint32_t kind = decided >> 8, bet = decided >> 1 & 127;
    KeepStreak(g, bet);
    ClearRollResult(g.BetWagers[kind][bet]);
    ClearRollResult(((decided & 1) != 0 ? g.BetLosses : g.BetWins)[kind][bet]);
  }
  g.DecidedCount = 0;
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
