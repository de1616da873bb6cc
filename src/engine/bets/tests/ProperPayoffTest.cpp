// Bets fitted so that they pay whole chips: every bias, the colors, and what the limits leave.
#include "engine/bets/tests/BetsTestTable.h"

namespace rollwick {
namespace {

struct FitRow {
  const char* name;
  BetId bet;
  AutoAdjust mode;
  Bias bias;  // of the bet's own kind, the others are nearest
  Money amount;
  Money delta;
  Money after;
  const char* text = "";
  Money least = 1_d;
  Money most = 1000_d;
};

void ExpectFit(const FitRow& row) {
  SCOPED_TRACE(row.name);
  BetsTestTable table;
  Game& g = table.g;
  g.BetAmount[SlotBankroll] = 100'000_d;
  g.Rules.NotifyFlags = NotifyLimits;
  g.Rules.MinPlacardBet = row.least;
  g.Rules.MaxPlacardBet = row.most;
  g.AutoAdjustBetAmounts = row.mode;
  g.LayBias = g.PlaceBias = g.DoBias = g.DontBias = BiasNearest;
  if (IsLay(row.bet)) g.LayBias = row.bias;
  if (IsPlace(row.bet)) g.PlaceBias = row.bias;
  if (IsDoOdds(row.bet)) g.DoBias = row.bias;
  if (IsDontOdds(row.bet)) g.DontBias = row.bias;
  table.SetOdds(10_d, OddsNoPush);
  if (IsOdds(row.bet)) {
    table.PutPointOn(6);
    table.Stand(FlatOf(row.bet), 20_d);
  }
  table.Stand(row.bet, row.amount);
  table.Change(row.bet, row.delta);
  EXPECT_EQ(table.Amount(row.bet), row.after);
  table.ExpectNotice(BetName(row.bet) + " Bet", row.text);
}

TEST(ProperPayoff, EverydayAmountsAtTheHousesDefaults) {
  struct Row {
    const char* name;
    BetId bet;
    Money amount;
    Money delta;
    Money after;
  };
  const Row rows[] = {
      {"Horn of 5", Bet::Horn, 0_d, 5_d, 4_d},
      {"C and E of 5", Bet::CAndE, 0_d, 5_d, 6_d},
      {"World of 5", Bet::World, 0_d, 5_d, 5_d},
      {"Place 6 of 50", Bet::Place6, 0_d, 50_d, 60_d},
      {"Place 6 of 12", Bet::Place6, 0_d, 12_d, 12_d},
      {"Place 6 of 5 and a dollar", Bet::Place6, 5_d, 1_d, 6_d},
      {"Place 6 above the maximum", Bet::Place6, 0_d, 2000_d, 600_d},
      {"Place 5 of 26", Bet::Place5, 0_d, 26_d, 30_d},
      {"Lay 4 of 25", Bet::Lay4, 0_d, 25_d, 30_d},
      {"Field of 7", Bet::Field, 0_d, 7_d, 7_d},
      {"Hard 8 of 3", Bet::Hard8, 0_d, 3_d, 3_d},
      {"Place 6 of 50, unchanged", Bet::Place6, 50_d, 0_d, 60_d},
      {"Place 6 removed", Bet::Place6, 50_d, -50_d, 0_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    table.g.BetAmount[SlotBankroll] = 100'000_d;
    table.g.AutoAdjustBetAmounts = AdjustColor;
    table.Stand(row.bet, row.amount);
    table.Change(row.bet, row.delta);
    EXPECT_EQ(table.Amount(row.bet), row.after);
  }
}

TEST(ProperPayoff, BiasInBothDirections) {
  const FitRow rows[] = {
      {"Place 6 of 10, increase", Bet::Place6, AdjustMinor, BiasIncrease, 0_d, 10_d, 12_d},
      {"Place 6 of 10, decrease", Bet::Place6, AdjustMinor, BiasDecrease, 0_d, 10_d, 6_d},
      {"Place 6 of 10, nearest", Bet::Place6, AdjustMinor, BiasNearest, 0_d, 10_d, 12_d},
      {"Place 5 of 12, nearest", Bet::Place5, AdjustMinor, BiasNearest, 0_d, 12_d, 10_d},
      {"Place 6 of 3, decrease would remove", Bet::Place6, AdjustMinor, BiasDecrease, 0_d, 3_d, 6_d},
      {"Place 6 of 15, a tie", Bet::Place6, AdjustMinor, BiasNearest, 0_d, 15_d, 18_d},
      {"Lay 5 of 10, increase", Bet::Lay5, AdjustMinor, BiasIncrease, 0_d, 10_d, 12_d},
      {"Lay 5 of 11, decrease", Bet::Lay5, AdjustMinor, BiasDecrease, 0_d, 11_d, 9_d},
      {"Lay 5 of 10, nearest", Bet::Lay5, AdjustMinor, BiasNearest, 0_d, 10_d, 9_d},
      {"Come 6 Odds of 12, increase", Bet::Come6Odds, AdjustMinor, BiasIncrease, 0_d, 12_d, 15_d},
      {"Come 6 Odds of 14, decrease", Bet::Come6Odds, AdjustMinor, BiasDecrease, 0_d, 14_d, 10_d},
      {"Pass Line Odds of 12, nearest", Bet::PassLineOdds, AdjustMinor, BiasNearest, 0_d, 12_d, 10_d},
      {"Pass Line Odds of 12, increase", Bet::PassLineOdds, AdjustMinor, BiasIncrease, 0_d, 12_d, 15_d},
      {"Don't Pass Odds of 20, increase", Bet::DontPassOdds, AdjustMinor, BiasIncrease, 0_d, 20_d, 24_d},
      {"Don't Come 6 Odds of 23, decrease", Bet::DontCome6Odds, AdjustMinor, BiasDecrease, 0_d, 23_d, 18_d},
      {"Buy 5 of 7, nearest takes up", Bet::Buy5, AdjustMinor, BiasDecrease, 0_d, 7_d, 8_d},
      {"Place 6 of 24 less 5, increase stays", Bet::Place6, AdjustMinor, BiasIncrease, 24_d, -5_d, 24_d},
      {"Place 6 of 24 less 5, decrease would take off more", Bet::Place6, AdjustMinor, BiasDecrease, 24_d,
       -5_d, 24_d},
      {"Place 6 of 24 less 5, nearest", Bet::Place6, AdjustMinor, BiasNearest, 24_d, -5_d, 18_d},
      {"Place 6 of 24 less 2, nearest avoids no change", Bet::Place6, AdjustMinor, BiasNearest, 24_d, -2_d,
       18_d},
      {"Place 6 of 24 less 8, decrease", Bet::Place6, AdjustMinor, BiasDecrease, 24_d, -8_d, 18_d},
      {"Place 5 of 10 and 2, nearest avoids no change", Bet::Place5, AdjustMinor, BiasNearest, 10_d, 2_d,
       15_d},
      {"Place 6 of 10 and 1, a decrease bias never takes down", Bet::Place6, AdjustMinor, BiasDecrease, 10_d,
       1_d, 12_d},
      {"Place 6 of 14 less 1, an increase bias never takes up", Bet::Place6, AdjustMinor, BiasIncrease, 14_d,
       -1_d, 12_d},
  };
  for (const FitRow& row : rows) ExpectFit(row);
}

// Nearest looks first for an amount that is a whole number of the change asked for.
TEST(ProperPayoff, NearestPrefersWholeSteps) {
  const FitRow rows[] = {
      {"12 and 9: 18 is two nines", Bet::Place6, AdjustMinor, BiasNearest, 12_d, 9_d, 18_d},
      {"30 and 7: 42 is six sevens", Bet::Place6, AdjustMinor, BiasNearest, 30_d, 7_d, 42_d},
      {"6 and 8: neither, the nearer", Bet::Place6, AdjustMinor, BiasNearest, 6_d, 8_d, 12_d},
  };
  for (const FitRow& row : rows) ExpectFit(row);
}

TEST(ProperPayoff, Colors) {
  const FitRow rows[] = {
      {"Place 6 of 70 by thirties", Bet::Place6, AdjustColor, BiasDecrease, 0_d, 70_d, 60_d},
      {"Place 6 of 27 has only dollars", Bet::Place6, AdjustColor, BiasNearest, 0_d, 27_d, 30_d},
      {"Place 5 of 150 by one and a quarter", Bet::Place5, AdjustColor, BiasIncrease, 0_d, 150_d, 250_d},
      {"the chip is that of the change", Bet::Place5, AdjustColor, BiasIncrease, 150_d, 6_d, 160_d},
      {"Lay 4 of 45 by tens", Bet::Lay4, AdjustColor, BiasDecrease, 0_d, 45_d, 40_d},
      {"Don't Come 6 Odds of 40 by thirties", Bet::DontCome6Odds, AdjustColor, BiasNearest, 0_d, 40_d, 30_d},
  };
  for (const FitRow& row : rows) ExpectFit(row);
}

TEST(ProperPayoff, Limits) {
  const FitRow rows[] = {
      {"above the maximum", Bet::Place6, AdjustColor, BiasIncrease, 0_d, 2000_d, 600_d,
       "Maximum bet for proper odds payoff here is: $600\r\rwhich is being bet."},
      {"above the maximum, minor", Bet::Place6, AdjustMinor, BiasIncrease, 0_d, 2000_d, 996_d,
       "Maximum bet for proper odds payoff here is: $996\r\rwhich is being bet."},
      {"the increase runs into the maximum", Bet::Place6, AdjustMinor, BiasIncrease, 0_d, 998_d, 996_d,
       "Maximum bet for proper odds payoff here is: $996\r\rwhich is being bet."},
      {"below the minimum", Bet::Place6, AdjustColor, BiasIncrease, 0_d, 3_d, 6_d,
       "Minimum bet for proper odds payoff here is: $6\r\rwhich is being bet.", 5_d},
      {"the decrease runs below the minimum", Bet::Place6, AdjustMinor, BiasDecrease, 0_d, 11_d, 12_d, "",
       10_d},
      {"a minimum that is proper already", Bet::Place6, AdjustMinor, BiasIncrease, 0_d, 3_d, 6_d,
       "Minimum bet for proper odds payoff here is: $6\r\rwhich is being bet.", 6_d},
      {"no proper bet, raised to what may stand", Bet::Place6, AdjustMinor, BiasIncrease, 0_d, 4_d, 5_d,
       "Unable to auto-adjust bet for proper odds payoff.\r\rwhich is being bet.", 1_d, 5_d},
      {"no proper bet below the maximum", Bet::Place6, AdjustMinor, BiasIncrease, 0_d, 10_d, 5_d,
       "Maximum bet here is $5\rUnable to auto-adjust bet for proper odds payoff.\r\rwhich is being bet.",
       1_d, 5_d},
      {"no proper bet, nothing changes", Bet::Place6, AdjustMinor, BiasIncrease, 5_d, 0_d, 5_d,
       "Unable to auto-adjust bet for proper odds payoff.", 1_d, 5_d},
      {"no room by colors, dollars fit", Bet::Place6, AdjustColor, BiasIncrease, 50_d, -30_d, 24_d, "", 1_d,
       25_d},
  };
  for (const FitRow& row : rows) ExpectFit(row);
}

// Odds of 35 on a flat 14 at 2.5X are the most: by colors they would drop to 25.
TEST(ProperPayoff, MostOddsAreFittedByTheLowestChip) {
  BetsTestTable table;
  Game& g = table.g;
  g.AutoAdjustBetAmounts = AdjustColor;
  table.SetOdds(2.5_d, OddsNoPush);
  table.PutPointOn(6);
  table.Stand(Bet::PassLine, 14_d);
  table.Change(Bet::PassLineOdds, 9999_d);
  EXPECT_EQ(table.Amount(Bet::PassLineOdds), 35_d);
  table.Change(Bet::PassLineOdds, -35_d);
  g.DoBias = BiasDecrease;
  table.Change(Bet::PassLineOdds, 30_d);
  EXPECT_EQ(table.Amount(Bet::PassLineOdds), 25_d);
}

TEST(ProperPayoff, LineBetsFollowTheRowThatPays) {
  struct Row {
    const char* name;
    BetId bet;
    BetId paying;
    int point;
  };
  const Row rows[] = {
      {"Pass Line on the come-out", Bet::PassLine, Bet::Come, 0},
      {"Pass Line put bet on a point", Bet::PassLine, Bet::Come9, 9},
      {"Don't Pass on the come-out", Bet::DontPass, Bet::DontCome, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.AutoAdjustBetAmounts = AdjustMinor;
    g.Rules.AllowPutBets = true;
    if (row.point != 0) table.PutPointOn(row.point);
    table.Change(row.bet, 11_d);
    EXPECT_EQ(table.Amount(row.bet), 11_d);
    table.Change(row.bet, -11_d);
    g.PayoffTable[row.paying] = {7_d, true, 5_d};
    table.Change(row.bet, 11_d);
    EXPECT_EQ(table.Amount(row.bet), 10_d);
  }
}

TEST(ProperPayoff, ContractsBoundTheChoice) {
  struct Row {
    const char* name;
    BetId bet;
    Money amount;
    Money contract;
    Money delta;
    Money after;
  };
  const Row rows[] = {
      {"Don't Pass put back, up is within the contract", Bet::DontPass, 4_d, 10_d, 4_d, 10_d},
      {"Don't Pass put back, up is above the contract", Bet::DontPass, 4_d, 9_d, 4_d, 5_d},
      {"Don't Come 9 put back, up is above the contract", Bet::DontCome9, 4_d, 9_d, 4_d, 5_d},
      {"Pass Line reduced, down is below the contract", Bet::PassLine, 20_d, 12_d, -8_d, 15_d},
      {"Pass Line reduced, no proper amount in between", Bet::PassLine, 13_d, 12_d, -1_d, 12_d},
      {"Come 9 reduced, down is below the contract", Bet::Come9, 20_d, 12_d, -8_d, 15_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.AutoAdjustBetAmounts = AdjustMinor;
    g.PayoffTable[Bet::Come9] = g.PayoffTable[Bet::DontCome9] = {7_d, true, 5_d};
    table.PutPointOn(9);
    table.Stand(row.bet, row.amount);
    g.BetContract[row.bet] = row.contract;
    table.Change(row.bet, row.delta);
    EXPECT_EQ(table.Amount(row.bet), row.after);
  }
}

TEST(ProperPayoff, RefitAllBets) {
  BetsTestTable table;
  Game& g = table.g;
  table.PutPointOn(4);
  table.Stand(Bet::Place6, 50_d);
  table.Stand(Bet::Horn, 5_d);
  table.Stand(Bet::PassLine, 10_d);
  table.Stand(Bet::Field, 7_d);
  g.AutoAdjustBetAmounts = AdjustColor;
  RefitAllBets(g);
  EXPECT_EQ(table.Amount(Bet::Place6), 60_d);
  EXPECT_EQ(table.Amount(Bet::Horn), 4_d);
  EXPECT_EQ(table.Amount(Bet::PassLine), 10_d);
  EXPECT_EQ(table.Amount(Bet::Field), 7_d);
  EXPECT_EQ(g.TotalBets, 81_d);
  EXPECT_EQ(table.TakeMessage(), "");
}

}  // namespace
}  // namespace rollwick
