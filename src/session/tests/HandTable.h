// A table of 5 dollar chips with a player's hand over it.
#pragma once

#include <gtest/gtest.h>

#include "engine/cycle/RollDice.h"
#include "session/TableHand.h"
#include "support/ScriptedHost.h"

namespace rollwick {

struct HandTable : TestTable {
  TableHand hand{g};

  HandTable() {
    g.Rules.NotifyFlags = NotifyNotAllowed | NotifyLimits;
    g.AutoAdjustBetAmounts = AdjustManual;
    Take(5);
  }
  void Take(int dollars) {
    for (int chip = 0; chip < kChipCount; ++chip)
      if (g.BetAmount[SlotChipDenom + chip] == Dollars(dollars)) g.SelectedChip = chip;
  }
  void Bets(std::initializer_list<std::pair<BetId, int>> bets) {
    for (const auto& [bet, dollars] : bets) hand.EnterAmount(bet, Dollars(dollars));
  }
  void Throw(int die1, int die2) {
    hand.DiceAreOut();
    g.ManualRollPending = true;
    g.ManualDie1 = die1, g.ManualDie2 = die2;
    RollDice(g);
  }
};

// What undo has to bring back to the last bit.
inline void ExpectSameTables(const BetTables& a, const BetTables& b) {
  EXPECT_EQ(a.BetAmount, b.BetAmount);
  EXPECT_EQ(a.BetWorking, b.BetWorking);
  EXPECT_EQ(a.BetContract, b.BetContract);
  EXPECT_EQ(a.BuyVigAmount, b.BuyVigAmount);
  EXPECT_EQ(a.LayVigAmount, b.LayVigAmount);
  EXPECT_EQ(a.BetAtThrow, b.BetAtThrow);
  EXPECT_EQ(a.BetAfterSettle, b.BetAfterSettle);
  EXPECT_EQ(a.TotalBets, b.TotalBets);
  EXPECT_EQ(a.InvestedBankroll, b.InvestedBankroll);
  EXPECT_EQ(a.BetsStanding, b.BetsStanding);
  EXPECT_EQ(a.BetsInAction, b.BetsInAction);
  EXPECT_EQ(a.BetsCalled, b.BetsCalled);
  EXPECT_EQ(a.Rules, b.Rules);
}

}  // namespace rollwick
