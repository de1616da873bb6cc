// A table for tests of bets: typed amounts stay as typed, points go on and bets stand without a roll. The
// dice themselves live next door in engine/cycle.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "engine/bets/Bankroll.h"
#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"
#include "engine/bets/Resolution.h"
#include "support/ScriptedHost.h"

namespace rollwick {

consteval Money operator""_d(unsigned long long dollars) {
  return Dollars(static_cast<std::int64_t>(dollars));
}
consteval Money operator""_d(long double dollars) {
  return Money::FromUnits(static_cast<std::int64_t>(dollars * Money::kUnitsPerDollar + 0.5L));
}

inline void PrintTo(const Money& money, std::ostream* out) {
  *out << '$' << PlainText(money);
}

struct BetsTestTable : TestTable {
  BetsTestTable() { g.AutoAdjustBetAmounts = AdjustManual; }

  void PutPointOn(int point) {
    g.Point = g.DiceTotal = g.PointBeforeRoll = point;
    SetLineOddsPayoffs(g);
    ApplyComeOutWorking(g);
  }

  void Dice(int die1, int die2) {
    g.Die1 = die1;
    g.Die2 = die2;
    g.DiceTotal = die1 + die2;
  }

  // Puts a bet up as it stood at the last throw, past every rule; its vig with it.
  void Stand(BetId bet, Money amount) {
    g.TotalBets += amount - g.BetAmount[bet];
    g.BetAmount[bet] = g.BetAtThrow[bet] = amount;
    if (bet <= Bet::DontPass) g.BetContract[bet] = amount;
    g.BetWorking[bet] = On;
    if (IsLay(bet)) SetVig(g.LayVigAmount[bet], ComputeLayVig(g, bet, amount), g.Rules.LayVigOnAll);
    if (IsBuy(bet)) SetVig(g.BuyVigAmount[bet], ComputeBuyVig(g, bet, amount), g.Rules.BuyVigOnAll);
  }

  // Asks for a change and gives what was done.
  Money Change(BetId bet, Money by) {
    g.BetDelta = by;
    ChangeBet(g, bet);
    EXPECT_TRUE(TablesAgree(g));
    return g.BetDeltaApplied;
  }

  void SetOdds(Money multiple, OddsMethod method) {
    g.Rules.OddsAllowed410 = g.Rules.OddsAllowed59 = g.Rules.OddsAllowed68 = multiple;
    g.Rules.OddsCalcMethod = method;
  }

  // The notices since the last look, joined by " | ", all under one title.
  void ExpectNotice(std::string_view title, std::string_view text) {
    for (const Message& message : host.messages) EXPECT_EQ(message.title, title);
    EXPECT_EQ(TakeMessage(), text);
  }

 private:
  void SetVig(Money& vig, Money now, bool onAll) {
    if (onAll) g.TotalBets += now - vig;
    vig = now;
  }
};

// Place 6 of $12 decided by a roll: wins 14 or loses 12; one unit is $6.
inline void DecidePlace6(BetsTestTable& table, int outcome) {
  table.PutPointOn(4);
  table.Stand(Bet::Place6, 12_d);
  ResolveBet(table.g, outcome, Bet::Place6);
  EXPECT_TRUE(TablesAgree(table.g));
}

}  // namespace rollwick
