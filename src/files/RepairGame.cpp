#include "files/RepairGame.h"

#include <algorithm>
#include <set>

namespace rollwick {

namespace {

template <class Value>
bool Mend(Value& value, Value right) {
  if (value == right) return false;
  value = right;
  return true;
}

bool MendCounts(BetStatTable& table) {
  bool mended = false;
  for (auto& kind : table) {
    for (BetStatRow& row : kind) {
      for (const BetStatField count : {InPlay, TotalCount, LastRollCount})
        mended |= Mend(row[count], std::max(row[count], Money()));
    }
  }
  return mended;
}

// The next roll clears what the last one decided: each row with a result of it stands in the list once. A
// wager that neither won nor lost is listed with the losses.
void ListDecidedBets(Game& g) {
  g.DecidedCount = 0;
  for (int kind = 0; kind < kBetStatKindCount; ++kind) {
    for (BetId bet = 1; bet <= kBetCount; ++bet) {
      const auto has = [&](const BetStatTable& table) {
        return table[kind][bet][LastRollCount] != Money() || table[kind][bet][LastRollAmount] != Money();
      };
      const bool won = has(g.BetWins), lost = has(g.BetLosses);
      if (won) g.DecidedBets[g.DecidedCount++] = kind << 8 | bet << 1;
      if (lost || (!won && has(g.BetWagers))) g.DecidedBets[g.DecidedCount++] = kind << 8 | bet << 1 | 1;
    }
  }
}

// Bets and vigs that together no amount could hold are taken off.
bool MendBets(Game& g) {
  Money room = kMaxChipStack;
  bool mended = false;
  const auto fit = [&](Money& part) {
    if (part > room || part < -room) mended |= Mend(part, Money());
    room -= Abs(part);
  };
  for (BetId bet = 1; bet <= kBetCount; ++bet) fit(g.BetAmount[bet]);
  for (Money& vig : g.LayVigAmount) fit(vig);
  for (Money& vig : g.BuyVigAmount) fit(vig);
  return mended;
}

Money SumOfBets(const Game& g) {
  Money sum;
  for (BetId bet = 1; bet <= kBetCount; ++bet) sum += g.BetAmount[bet];
  for (const Money vig : g.LayVigAmount) sum += g.Rules.LayVigOnAll ? vig : Money();
  for (const Money vig : g.BuyVigAmount) sum += g.Rules.BuyVigOnAll ? vig : Money();
  return sum;
}

// The page of the graph: its first roll, its points, and their extremes.
bool MendGraph(Game& g) {
  const Money points = Dollars(g.RollCount()) - g.BankrollHistory[0] + Dollars(1);
  bool mended = false;
  if (points >= Money() && points <= Dollars(kGraphPage) && points.IsWhole()) {
    mended = Mend(g.BankrollHistoryCount, static_cast<std::int32_t>(points.Units() / Money::kUnitsPerDollar));
  } else {
    g.BankrollHistoryCount = std::min(g.BankrollHistoryCount, g.RollCount());
    mended = Mend(g.BankrollHistory[0], Dollars(g.RollCount() - g.BankrollHistoryCount + 1));
  }
  if (g.BankrollHistory[0] == Dollars(1)) {
    g.GraphHigh = g.BankrollHigh;
    g.GraphLow = g.BankrollLow;
    return mended;
  }
  const auto begin = g.BankrollHistory.begin() + 1;
  const auto [low, high] = std::minmax_element(begin, begin + std::max(g.BankrollHistoryCount, 1));
  g.GraphHigh = *high;
  g.GraphLow = *low;
  return mended;
}

bool MendVisibleStacks(Game& g) {
  auto& stacks = g.VisibleChipStack;
  const std::set<std::int32_t> different(stacks.begin(), stacks.end());
  if (different.size() == stacks.size() && !different.contains(-1)) return false;
  stacks = {1, 2, 3, 4};
  return true;
}

// Without an open file there is nothing to record or to play back. A place behind the end would make a hole.
bool MendDiceFile(Game& g) {
  if (!g.DiceFile.IsOpen()) {
    g.DiceFileMode = DiceFileOff;
    g.DiceFileRecord = 1;
    g.DiceLastRecord = 0;
    return false;
  }
  const auto behind = static_cast<std::int32_t>(std::min<std::int64_t>(g.DiceFile.Length() + 1, INT32_MAX));
  return Mend(g.DiceFileRecord, std::min(g.DiceFileRecord, behind));
}

}  // namespace

bool RepairGame(Game& g) {
  bool mended = false;
  for (BetStatTable* table : {&g.BetWagers, &g.BetWins, &g.BetLosses}) {
    for (auto& kind : *table) kind[0] = {};
    mended |= MendCounts(*table);
  }
  ListDecidedBets(g);
  mended |= MendBets(g);
  mended |= Mend(g.TotalBets, SumOfBets(g));
  mended |= MendGraph(g);
  mended |= MendVisibleStacks(g);
  mended |= MendDiceFile(g);

  g.DiceTotal = g.Die1 + g.Die2;
  g.RollsSinceEvent[EventEveryRoll] = g.RollCount();
  SetLineOddsPayoffs(g);
  RefreshBetSets(g);
  KeepWorkingAfterSettle(g);
  g.LoggedAutoBetName.clear();
  g.LoggedAutoBetEnabled = 0;
  g.LongestLosingRun = g.LongestLosingBet = 0;
  g.RollResultSquares = 0;
  g.RollResults = 0;
  g.StopMessage.clear();
  RefreshBetSets(g);
  g.KeepRolling = g.RollInProgress = g.HyperDriveActive = g.AutoBetRunning = g.ManualRollPending = false;
  return mended;
}

}  // namespace rollwick
