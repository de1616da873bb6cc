// What every bet pays and costs, and the vig of Buy and Lay bets.
#include "engine/bets/tests/BetsTestTable.h"

namespace rollwick {
namespace {

void ExpectPayoff(BetsTestTable& table, Money exact, Money net) {
  EXPECT_EQ(table.g.PayoffExact, exact) << "PayoffExact";
  EXPECT_EQ(table.g.PayoffNet, net) << "PayoffNet";
}

TEST(Payoffs, EveryBetWonOnADollarChip) {
  struct Row {
    const char* name;
    BetId bet;
    Money stake;
    Money exact;
    Money net;
    int point = 0;
    int total = 7;
  };
  const Row rows[] = {
      {"Lay 4, vig 1", Bet::Lay4, 40_d, 19_d, 19_d},
      {"Lay 5, vig 1", Bet::Lay5, 31_d, 19.6667_d, 19_d},
      {"Lay 6, vig 1", Bet::Lay6, 25_d, 19.8333_d, 19_d},
      {"Lay 8, vig 1", Bet::Lay8, 24_d, 19_d, 19_d},
      {"Lay 9, vig 1", Bet::Lay9, 30_d, 19_d, 19_d},
      {"Lay 10 of a dollar costs more than it wins", Bet::Lay10, 1_d, -0.5_d, -1_d},
      {"Don't Come 4", Bet::DontCome4, 7_d, 7_d, 7_d},
      {"Don't Come 9", Bet::DontCome9, 7_d, 7_d, 7_d},
      {"Don't Come 4 Odds", Bet::DontCome4Odds, 41_d, 20.5_d, 20_d},
      {"Don't Come 5 Odds", Bet::DontCome5Odds, 31_d, 20.6667_d, 20_d},
      {"Don't Come 6 Odds", Bet::DontCome6Odds, 25_d, 20.8333_d, 20_d},
      {"Don't Come 8 Odds", Bet::DontCome8Odds, 24_d, 20_d, 20_d},
      {"Don't Come 9 Odds", Bet::DontCome9Odds, 32_d, 21.3333_d, 21_d},
      {"Don't Come 10 Odds", Bet::DontCome10Odds, 1_d, 0.5_d, 0_d},
      {"Come 4", Bet::Come4, 7_d, 7_d, 7_d},
      {"Come 10", Bet::Come10, 7_d, 7_d, 7_d},
      {"Come 4 Odds", Bet::Come4Odds, 7_d, 14_d, 14_d},
      {"Come 5 Odds", Bet::Come5Odds, 7_d, 10.5_d, 10_d},
      {"Come 6 Odds", Bet::Come6Odds, 7_d, 8.4_d, 8_d},
      {"Come 8 Odds", Bet::Come8Odds, 9_d, 10.8_d, 10_d},
      {"Come 9 Odds", Bet::Come9Odds, 1_d, 1.5_d, 1_d},
      {"Come 10 Odds", Bet::Come10Odds, 7_d, 14_d, 14_d},
      {"Place 4", Bet::Place4, 11_d, 19.8_d, 19_d},
      {"Place 5", Bet::Place5, 11_d, 15.4_d, 15_d},
      {"Place 6 in sixes", Bet::Place6, 12_d, 14_d, 14_d},
      {"Place 6 in tens", Bet::Place6, 10_d, 11.6667_d, 11_d},
      {"Place 8", Bet::Place8, 5_d, 5.8333_d, 5_d},
      {"Place 9", Bet::Place9, 3_d, 4.2_d, 4_d},
      {"Place 10", Bet::Place10, 4_d, 7.2_d, 7_d},
      {"Buy 4, vig 1", Bet::Buy4, 25_d, 49_d, 49_d},
      {"Buy 5, vig 1", Bet::Buy5, 25_d, 36.5_d, 36_d},
      {"Buy 6, vig 1", Bet::Buy6, 26_d, 30.2_d, 30_d},
      {"Buy 8, vig 1", Bet::Buy8, 25_d, 29_d, 29_d},
      {"Buy 9, vig 2", Bet::Buy9, 41_d, 59.5_d, 59_d},
      {"Buy 10, vig 2", Bet::Buy10, 40_d, 78_d, 78_d},
      {"Pass Line, come-out", Bet::PassLine, 7_d, 7_d, 7_d},
      {"Pass Line, point", Bet::PassLine, 7_d, 7_d, 7_d, 9, 9},
      {"Pass Line Odds on 4", Bet::PassLineOdds, 7_d, 14_d, 14_d, 4, 4},
      {"Pass Line Odds on 5", Bet::PassLineOdds, 7_d, 10.5_d, 10_d, 5, 5},
      {"Pass Line Odds on 8", Bet::PassLineOdds, 7_d, 8.4_d, 8_d, 8, 8},
      {"Come box", Bet::Come, 7_d, 7_d, 7_d, 6, 11},
      {"Don't Pass, come-out", Bet::DontPass, 7_d, 7_d, 7_d, 0, 3},
      {"Don't Pass, point", Bet::DontPass, 7_d, 7_d, 7_d, 10},
      {"Don't Pass Odds on 10", Bet::DontPassOdds, 7_d, 3.5_d, 3_d, 10},
      {"Don't Pass Odds on 9", Bet::DontPassOdds, 7_d, 4.6667_d, 4_d, 9},
      {"Don't Pass Odds on 6", Bet::DontPassOdds, 7_d, 5.8333_d, 5_d, 6},
      {"Don't Come box", Bet::DontCome, 7_d, 7_d, 7_d, 6, 2},
      {"Big 6", Bet::Big6, 3_d, 3_d, 3_d, 0, 6},
      {"Big 8", Bet::Big8, 3_d, 3_d, 3_d, 0, 8},
      {"Hard 4", Bet::Hard4, 3_d, 21_d, 21_d, 0, 4},
      {"Hard 6", Bet::Hard6, 3_d, 27_d, 27_d, 0, 6},
      {"Hard 8", Bet::Hard8, 3_d, 27_d, 27_d, 0, 8},
      {"Hard 10", Bet::Hard10, 3_d, 21_d, 21_d, 0, 10},
      {"Two", Bet::Two, 3_d, 90_d, 90_d, 0, 2},
      {"Three", Bet::Three, 3_d, 45_d, 45_d, 0, 3},
      {"Seven", Bet::Seven, 3_d, 12_d, 12_d},
      {"Eleven", Bet::Eleven, 3_d, 45_d, 45_d, 0, 11},
      {"Twelve", Bet::Twelve, 3_d, 90_d, 90_d, 0, 12},
      {"Craps", Bet::Craps, 3_d, 21_d, 21_d, 0, 3},
      {"C and E on 2", Bet::CAndE, 5_d, 15_d, 15_d, 0, 2},
      {"C and E on 3", Bet::CAndE, 3_d, 9_d, 9_d, 0, 3},
      {"C and E on 11", Bet::CAndE, 2_d, 14_d, 14_d, 0, 11},
      {"C and E on 12", Bet::CAndE, 1_d, 3_d, 3_d, 0, 12},
      {"Horn on 2", Bet::Horn, 5_d, 33.75_d, 33_d, 0, 2},
      {"Horn on 3", Bet::Horn, 5_d, 15_d, 15_d, 0, 3},
      {"Horn on 11", Bet::Horn, 6_d, 18_d, 18_d, 0, 11},
      {"Horn on 12", Bet::Horn, 6_d, 40.5_d, 40_d, 0, 12},
      {"World on 2", Bet::World, 7_d, 36.4_d, 36_d, 0, 2},
      {"World on 3", Bet::World, 7_d, 15.4_d, 15_d, 0, 3},
      {"World on 7 is a push", Bet::World, 7_d, 0_d, 0_d, 0, 7},
      {"World on 11", Bet::World, 4_d, 8.8_d, 8_d, 0, 11},
      {"World on 12", Bet::World, 4_d, 20.8_d, 20_d, 0, 12},
      {"Over 7", Bet::Over7, 3_d, 3_d, 3_d, 0, 8},
      {"Under 7", Bet::Under7, 3_d, 3_d, 3_d, 0, 6},
      {"Hop 1-3", Bet::Hop13, 3_d, 45_d, 45_d, 0, 4},
      {"Hop 2-2", Bet::Hop22, 3_d, 90_d, 90_d, 0, 4},
      {"Hop 4-6", Bet::Hop46, 3_d, 45_d, 45_d, 0, 10},
      {"Hop 5-5", Bet::Hop55, 3_d, 90_d, 90_d, 0, 10},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    if (row.point != 0) table.PutPointOn(row.point);
    table.g.DiceTotal = row.total;
    table.Stand(row.bet, row.stake);
    ComputePayoff(table.g, true, row.bet, Wins, row.stake);
    ExpectPayoff(table, row.exact, row.net);
  }
}

TEST(Payoffs, EveryBetLostCostsItsStakeRoundedUpToChips) {
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    if (IsLay(bet) || IsBuy(bet) || bet == Bet::Field) continue;
    SCOPED_TRACE(BetName(bet));
    BetsTestTable table;
    ComputePayoff(table.g, true, bet, Loses, 10.5_d);
    ExpectPayoff(table, -10.5_d, -11_d);
    EXPECT_EQ(table.g.PayoffTable[0], (PayoffRow{-1_d, true, 1_d}));
  }
}

TEST(Payoffs, FieldByCombination) {
  for (int die1 = 1; die1 <= 6; ++die1) {
    for (int die2 = 1; die2 <= 6; ++die2) {
      SCOPED_TRACE(std::to_string(die1) + "-" + std::to_string(die2));
      const int total = die1 + die2;
      const Money pays = total == 2 || total == 12 ? 14_d : total >= 5 && total <= 8 ? -7_d : 7_d;
      BetsTestTable table;
      table.Dice(die1, die2);
      ComputePayoff(table.g, true, Bet::Field, Wins, 7_d);
      ExpectPayoff(table, pays, pays);
    }
  }
}

TEST(Payoffs, FieldFollowsTheRowOfItsOwnCombination) {
  int index = 0;
  for (int low = 1; low <= 6; ++low) {
    for (int high = low; high <= 6; ++high) {
      SCOPED_TRACE(std::to_string(low) + "-" + std::to_string(high));
      // Combinations are counted by total, then by the smaller die.
      static constexpr int kPlace[] = {1, 2,  3,  5,  7,  10, 4,  6,  8,  11, 13,
                                       9, 12, 14, 16, 15, 17, 18, 19, 20, 21};
      BetsTestTable table;
      table.g.FieldPayoffTable[kPlace[index++]] = {11_d, false, 3_d};
      table.Dice(high, low);
      ComputePayoff(table.g, true, Bet::Field, Wins, 5_d);
      ExpectPayoff(table, 18.3333_d, 18_d);
      EXPECT_FALSE(table.g.PayoffTable[0].IsToForm);
    }
  }
  EXPECT_EQ(index, 21);
}

TEST(Payoffs, FaceOfSevenPaysTheFieldEvenMoney) {
  BetsTestTable table;
  table.Dice(7, 1);
  ComputePayoff(table.g, true, Bet::Field, Wins, 5_d);
  ExpectPayoff(table, 5_d, 5_d);
}

TEST(Payoffs, NetGoesDownToWholeLowestChips) {
  struct Row {
    const char* name;
    Money chip;
    int outcome;
    Money stake;
    Money net;
  };
  const Row rows[] = {
      {"win in quarters", 0.25_d, Wins, 10_d, 11.5_d},
      {"win in fives", 5_d, Wins, 10_d, 10_d},
      {"loss in quarters", 0.25_d, Loses, 10.5_d, -10.5_d},
      {"loss in fives", 5_d, Loses, 12_d, -15_d},
      {"win below a chip", 5_d, Wins, 4_d, 0_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    table.g.BetAmount[SlotChipDenom] = row.chip;
    ComputePayoff(table.g, true, Bet::Place6, row.outcome, row.stake);
    EXPECT_EQ(table.g.PayoffNet, row.net);
  }
}

TEST(Payoffs, ChangedPayoffsAreReadFromTheRowThatPays) {
  struct Row {
    const char* name;
    BetId changed;
    BetId bet;
    int point;
    int total;
    Money exact;  // of $10; the changed row pays 5 to 2
  };
  const Row rows[] = {
      {"a bet's own row", Bet::Place6, Bet::Place6, 0, 6, 25_d},
      {"Pass Line on the come-out, the Come row", Bet::Come, Bet::PassLine, 0, 7, 25_d},
      {"Pass Line on the come-out, not its own row", Bet::PassLine, Bet::PassLine, 0, 7, 10_d},
      {"Pass Line on a point, the Come row of the point", Bet::Come9, Bet::PassLine, 9, 9, 25_d},
      {"Pass Line on a point, not the Come row", Bet::Come, Bet::PassLine, 9, 9, 10_d},
      {"Pass Line Odds, the Come Odds row", Bet::Come4Odds, Bet::PassLineOdds, 4, 4, 25_d},
      {"Don't Pass on the come-out, the Don't Come row", Bet::DontCome, Bet::DontPass, 0, 3, 25_d},
      {"Don't Pass on a point", Bet::DontCome8, Bet::DontPass, 8, 7, 25_d},
      {"Don't Pass on a point, not its own row", Bet::DontPass, Bet::DontPass, 8, 7, 10_d},
      {"Don't Pass Odds", Bet::DontCome5Odds, Bet::DontPassOdds, 5, 7, 25_d},
      {"C and E on 11, half pays", Bet::Eleven, Bet::CAndE, 0, 11, 7.5_d},
      {"C and E on 12, the Craps row", Bet::Craps, Bet::CAndE, 0, 12, 7.5_d},
      {"C and E on 12, not the Twelve row", Bet::Twelve, Bet::CAndE, 0, 12, 30_d},
      {"Horn on 3, a quarter pays", Bet::Three, Bet::Horn, 0, 3, -1.25_d},
      {"World on 7, a fifth pays", Bet::Seven, Bet::World, 0, 7, -3_d},
      {"World on 2", Bet::Two, Bet::World, 0, 2, -3_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    if (row.point != 0) table.PutPointOn(row.point);
    table.g.DiceTotal = row.total;
    table.g.PayoffTable[row.changed] = {5_d, false, 2_d};
    ComputePayoff(table.g, true, row.bet, Wins, 10_d);
    EXPECT_EQ(table.g.PayoffExact, row.exact);
  }
}

TEST(Payoffs, ScratchRowHoldsWhatPaid) {
  BetsTestTable table;
  Game& g = table.g;
  g.DiceTotal = 12;
  ComputePayoff(g, true, Bet::Horn, Wins, 4_d);
  EXPECT_EQ(g.PayoffTable[0], g.PayoffTable[Bet::Twelve]);
  EXPECT_EQ(RatioText(g.PayoffTable[0]), "30 to 1");
  g.PayoffTable[Bet::Place4].IsToForm = false;
  EXPECT_EQ(RatioText(g.PayoffTable[Bet::Place4]), "14 for 5");
  ComputePayoff(g, true, Bet::Place4, Loses, 5_d);
  EXPECT_FALSE(g.PayoffTable[0].IsToForm);
}

TEST(Payoffs, OneDollarModel) {
  struct Row {
    const char* name;
    BetId bet;
    int outcome;
    bool vigOnAll;
    Money exact;
  };
  const Row rows[] = {
      {"Place 6", Bet::Place6, Wins, true, 1.1667_d},
      {"Don't Come 5 Odds", Bet::DontCome5Odds, Wins, true, 0.6667_d},
      {"Don't Come 6 Odds", Bet::DontCome6Odds, Wins, true, 0.8333_d},
      {"Lay 4 wins", Bet::Lay4, Wins, true, 0.475_d},
      {"Lay 5 wins", Bet::Lay5, Wins, true, 0.6334_d},
      {"Lay 6 wins", Bet::Lay6, Wins, false, 0.7916_d},
      {"Lay 4 loses, all charged", Bet::Lay4, Loses, true, -1.025_d},
      {"Lay 5 loses, all charged", Bet::Lay5, Loses, true, -1.0333_d},
      {"Lay 6 loses, all charged", Bet::Lay6, Loses, true, -1.0417_d},
      {"Lay 4 loses, winners charged", Bet::Lay4, Loses, false, -1_d},
      {"Buy 4 wins", Bet::Buy4, Wins, false, 1.95_d},
      {"Buy 6 wins", Bet::Buy6, Wins, true, 1.15_d},
      {"Buy 4 loses, all charged", Bet::Buy4, Loses, true, -1.05_d},
      {"Buy 4 loses, winners charged", Bet::Buy4, Loses, false, -1_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    table.g.Rules.BuyVigOnAll = table.g.Rules.LayVigOnAll = row.vigOnAll;
    ComputePayoff(table.g, false, row.bet, row.outcome, 1_d);
    EXPECT_EQ(table.g.PayoffExact, row.exact);
  }
}

TEST(Vig, RoundedToChips) {
  struct Row {
    const char* name;
    BetId bet;
    VigRounding rounding;
    Money amount;
    Money vig;
    Money chip = 1_d;
  };
  const Row rows[] = {
      {"nothing bet", Bet::Buy4, VigRoundedUp, 0_d, 0_d},
      {"0.50, a tie, then the least of a chip", Bet::Buy4, VigRoundedNormally, 10_d, 1_d},
      {"1.25", Bet::Buy4, VigRoundedNormally, 25_d, 1_d},
      {"1.50, a tie", Bet::Buy5, VigRoundedNormally, 30_d, 1_d},
      {"1.55", Bet::Buy5, VigRoundedNormally, 31_d, 2_d},
      {"2.50, a tie", Bet::Buy6, VigRoundedNormally, 50_d, 2_d},
      {"3.50, a tie", Bet::Buy6, VigRoundedNormally, 70_d, 3_d},
      {"1.95 down", Bet::Buy8, VigRoundedDown, 39_d, 1_d},
      {"2.00 down", Bet::Buy8, VigRoundedDown, 40_d, 2_d},
      {"0.50 down, the least of a chip", Bet::Buy8, VigRoundedDown, 10_d, 1_d},
      {"1.05 up", Bet::Buy9, VigRoundedUp, 21_d, 2_d},
      {"2.00 up", Bet::Buy9, VigRoundedUp, 40_d, 2_d},
      {"0.05 up", Bet::Buy10, VigRoundedUp, 1_d, 1_d},
      {"1.25 in quarters", Bet::Buy4, VigRoundedNormally, 25_d, 1.25_d, 0.25_d},
      {"1.30 in quarters", Bet::Buy4, VigRoundedNormally, 26_d, 1.25_d, 0.25_d},
      {"1.30 in quarters, up", Bet::Buy4, VigRoundedUp, 26_d, 1.5_d, 0.25_d},
      {"0.05 in quarters", Bet::Buy4, VigRoundedNormally, 1_d, 0.25_d, 0.25_d},
      {"7.50 in fives, a tie", Bet::Buy4, VigRoundedNormally, 150_d, 5_d, 5_d},
      {"7.55 in fives", Bet::Buy4, VigRoundedNormally, 151_d, 10_d, 5_d},
      {"Lay 4 wins 10: 0.50", Bet::Lay4, VigRoundedNormally, 20_d, 1_d},
      {"Lay 4 wins 30: 1.50", Bet::Lay4, VigRoundedNormally, 60_d, 1_d},
      {"Lay 10 wins 50: 2.50", Bet::Lay10, VigRoundedNormally, 100_d, 2_d},
      {"Lay 10 wins 50: 2.50 up", Bet::Lay10, VigRoundedUp, 100_d, 3_d},
      {"Lay 5 wins 20.67: 1.03 up", Bet::Lay5, VigRoundedUp, 31_d, 2_d},
      {"Lay 8 wins 39.17: 1.96 down", Bet::Lay8, VigRoundedDown, 47_d, 1_d},
      {"a Place bet", Bet::Place4, VigRoundedUp, 100_d, 0_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    table.g.BetAmount[SlotChipDenom] = row.chip;
    table.g.Rules.RoundBuyVig = table.g.Rules.RoundLayVig = row.rounding;
    EXPECT_EQ(ComputeBuyVig(table.g, row.bet, row.amount), IsBuy(row.bet) ? row.vig : 0_d);
    EXPECT_EQ(ComputeLayVig(table.g, row.bet, row.amount), IsLay(row.bet) ? row.vig : 0_d);
  }
}

TEST(Vig, NoneWithoutARateOrAWin) {
  BetsTestTable table;
  Game& g = table.g;
  g.PayoffTable[Bet::Lay4].Ratio = -1_d;
  EXPECT_EQ(ComputeLayVig(g, Bet::Lay4, 100_d), 0_d);
  g.Rules.BuyVigPct = g.Rules.LayVigPct = 0_d;
  EXPECT_EQ(ComputeBuyVig(g, Bet::Buy4, 100_d), 0_d);
  EXPECT_EQ(ComputeLayVig(g, Bet::Lay5, 100_d), 0_d);
}

// Buy 4 of $30 wins 60, Lay 4 of $60 wins 30; the vig of each is 1.50 before rounding.
TEST(Vig, ChargedOnAllOrOnWinners) {
  struct Row {
    const char* name;
    VigRounding rounding;
    bool onAll;
    int outcome;
    Money buy;
    Money lay;
  };
  const Row rows[] = {
      {"normally, all, won", VigRoundedNormally, true, Wins, 59_d, 29_d},
      {"normally, all, lost", VigRoundedNormally, true, Loses, -31_d, -61_d},
      {"normally, winners, won", VigRoundedNormally, false, Wins, 59_d, 29_d},
      {"normally, winners, lost", VigRoundedNormally, false, Loses, -30_d, -60_d},
      {"down, all, won", VigRoundedDown, true, Wins, 59_d, 29_d},
      {"down, all, lost", VigRoundedDown, true, Loses, -31_d, -61_d},
      {"down, winners, won", VigRoundedDown, false, Wins, 59_d, 29_d},
      {"down, winners, lost", VigRoundedDown, false, Loses, -30_d, -60_d},
      {"up, all, won", VigRoundedUp, true, Wins, 58_d, 28_d},
      {"up, all, lost", VigRoundedUp, true, Loses, -32_d, -62_d},
      {"up, winners, won", VigRoundedUp, false, Wins, 58_d, 28_d},
      {"up, winners, lost", VigRoundedUp, false, Loses, -30_d, -60_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.Rules.BuyVigOnAll = g.Rules.LayVigOnAll = row.onAll;
    g.Rules.RoundBuyVig = g.Rules.RoundLayVig = row.rounding;
    table.Change(Bet::Buy4, 30_d);
    table.Change(Bet::Lay4, 60_d);
    const Money vigs = row.rounding == VigRoundedUp ? 4_d : 2_d;
    EXPECT_EQ(g.TotalBets, row.onAll ? 90_d + vigs : 90_d);
    ComputePayoff(g, true, Bet::Buy4, row.outcome, 30_d);
    EXPECT_EQ(g.PayoffNet, row.buy);
    ComputePayoff(g, true, Bet::Lay4, row.outcome, 60_d);
    EXPECT_EQ(g.PayoffNet, row.lay);
  }
}

TEST(Vig, ChangedRulesBringTheTotalInLine) {
  BetsTestTable table;
  Game& g = table.g;
  table.Change(Bet::Buy4, 30_d);
  table.Change(Bet::Lay4, 60_d);
  ASSERT_EQ(g.TotalBets, 92_d);
  g.Rules.RoundBuyVig = VigRoundedUp;
  RefreshVigs(g, {true, true});
  EXPECT_EQ(g.TotalBets, 93_d);
  g.Rules.BuyVigOnAll = false;
  RefreshVigs(g, {true, true});
  EXPECT_EQ(g.TotalBets, 91_d);
  EXPECT_EQ(g.BuyVigAmount[Bet::Buy4], 2_d);
  g.PayoffTable[Bet::Lay4] = {2_d, true, 1_d};  // now wins 120: vig 6
  g.Rules.BuyVigOnAll = true;
  RefreshVigs(g, {false, true});
  EXPECT_EQ(g.TotalBets, 98_d);
  EXPECT_TRUE(TablesAgree(g));
}

}  // namespace
}  // namespace rollwick
