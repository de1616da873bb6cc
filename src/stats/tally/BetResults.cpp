// What every bet earned: the wagers really made and the phantom dollar on every spot.
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
  if (g.BetWagers[PhantomWagers][bet][InPlay] != Money()) return false;
  if (IsDontComeNumber(bet) || IsDontComeOdds(bet)) return true;
  return (IsComeNumber(bet) || IsComeOdds(bet)) && !g.Rules.AllowPutBets;
}

// The results of the last roll stand only in the rows of the bets it decided.
void ClearRollResults(StatisticsTables& g) {
  for (int i = 0; i < g.DecidedCount; ++i) {
    const bool isActual = g.DecidedBets[i] >= kDecidedActual;
    const BetId bet = g.DecidedBets[i] % kDecidedActual;
    for (BetStatTable* table : {&g.BetWagers, &g.BetWins, &g.BetLosses}) {
      BetStatRow& row = (*table)[isActual ? ActualWagers : PhantomWagers][bet];
      row[LastRollCount] = row[LastRollAmount] = Money();
    }
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
  if (g.BetWagers[kind][bet][LastRollCount] == Money()) {
    g.DecidedBets[g.DecidedCount++] = kind == ActualWagers ? kDecidedActual + bet : bet;
  }
  AddDecision(g.BetWagers[kind][bet], wager + VigOnWager(g, kind, bet, result));
  AddDecision(result > Money() ? g.BetWins[kind][bet] : g.BetLosses[kind][bet], Abs(result));
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
