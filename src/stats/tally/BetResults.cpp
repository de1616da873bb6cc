// What every bet earned: the wagers really made and the phantom dollar on every spot.
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

inline void AddDecision(BetStatRow& row, Money amount) {
  row[TotalCount] += Dollars(1);
  row[TotalAmount] += amount;
  if (amount > row[HighAmount]) row[HighAmount] = amount;
  if (amount > Money() && (row[LowAmount] == Money() || amount < row[LowAmount])) row[LowAmount] = amount;
  row[LastAmount] = row[LastRollAmount] = amount;
  row[LastRollCount] = Dollars(1);
}

inline void AddDecision(Game& g, BetStatKind kind, BetId bet, bool won, Money wager, Money result) {
  BetStatRow& results = won ? g.BetWins[kind][bet] : g.BetLosses[kind][bet];
  if (results[LastRollCount] == Money()) {
    g.DecidedBets[g.DecidedCount++] = kind << 8 | bet << 1 | (won ? 0 : 1);
  }
  AddDecision(g.BetWagers[kind][bet], wager);
  AddDecision(results, result);
}

// What the decision adds to the wager: the vig, if this kind of vig is charged on this result.
Money VigOnWager(const Game& g, BetStatKind kind, BetId bet, Money result) {
  const bool won = result > Money();
  if (IsLay(bet) && (won || g.Rules.LayVigOnAll)) {
    return kind == ActualWagers ? g.LayVigAmount[bet] : PhantomLayVig(g, bet);
  }
  if (IsBuy(bet) && (won || g.Rules.BuyVigOnAll)) {
    return kind == ActualWagers ? g.BuyVigAmount[bet] : g.Rules.BuyVigPct;
  }
  return {};
}

// A phantom bet on a number is there only after it has travelled; a house with put bets lets a Come bet start
// there.
bool PhantomIsAbsent(const Game& g, BetId bet) {
  if (bet < Bet::DontCome4 || bet > Bet::Come10Odds) return false;
  if (g.BetWagers[PhantomWagers][bet][InPlay] != Money()) return false;
  return bet < Bet::Come4 || !g.Rules.AllowPutBets;
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

void SetPhantomPresence(Game& g, int number, Money present) {
  for (const BetId bet : {DontComeOn(number), DontComeOddsOn(number), ComeOn(number), ComeOddsOn(number)}) {
    g.BetWagers[PhantomWagers][bet][InPlay] = present;
  }
}

void AddRow(BetStatRow& sum, const BetStatRow& row) {
  for (int field = 0; field < kBetStatFieldCount; ++field) sum[field] += row[field];
}

}  // namespace

Money PhantomLayVig(const Game& g, BetId bet) {
  const PayoffRow& row = g.PayoffTable[bet];
  return Money::FromDouble(row.Ratio.ToDouble() / row.Base.ToDouble() * g.Rules.LayVigPct.ToDouble());
}

void RecordBetDecision(Game& g, BetStatKind kind, BetId bet, Money wager, Money result) {
  if (result == Money()) return;
  if (kind == PhantomWagers && PhantomIsAbsent(g, bet)) return;
  AddDecision(g, kind, bet, result > Money(), wager + VigOnWager(g, kind, bet, result), Abs(result));
}

void RecordPhantomLoss(Game& g, BetId bet) {
  if (!PhantomIsAbsent(g, bet)) AddDecision(g, PhantomWagers, bet, false, Dollars(1), Dollars(1));
}

void StartRollResults(Game& g) {
  for (auto& [before, now] : g.BetStreak) before = now;
  ClearRollResults(g);
  if (g.DiceTotal == 7) {
    for (auto& row : g.BetWagers[PhantomWagers]) row[InPlay] = Money();
  } else if (IsBoxNumber(g.DiceTotal)) {
    SetPhantomPresence(g, g.DiceTotal, Dollars(g.PointBeforeRoll > 0 ? 1 : 0));
  }
}

void SumBetResults(Game& g, bool clearFirst, BetId firstBet, BetId lastBet) {
  for (BetStatTable* table : {&g.BetWagers, &g.BetWins, &g.BetLosses}) {
    auto& rows = (*table)[ActualWagers];
    if (clearFirst) rows[0] = {};
    for (BetId bet = firstBet; bet <= lastBet; ++bet) AddRow(rows[0], rows[bet]);
  }
}

}  // namespace rollwick
