// How much odds a flat bet may carry, by the house's method, and the odds that follow by themselves.
#include "engine/bets/tests/BetsTestTable.h"

namespace rollwick {
namespace {

struct OddsRow {
  const char* name;
  OddsMethod method;
  Money multiple;
  int point;
  Money flat;
  Money most;
  Money chip = 1_d;
};

Money MostOdds(const OddsRow& row, BetId flat, BetId odds) {
  BetsTestTable table;
  table.SetOdds(row.multiple, row.method);
  table.g.BetAmount[SlotChipDenom] = row.chip;
  table.PutPointOn(row.point);
  table.Stand(flat, row.flat);
  MaxBetFor(table.g, odds);
  return table.g.BetMax;
}

TEST(Odds, AnAbsurdMultipleEndsAtTheCap) {
  for (const OddsMethod method :
       {OddsNoPush, OddsMinorPush, OddsColorPush, OddsFlatTimesSingle, OddsSingleTimesFlat}) {
    SCOPED_TRACE(method);
    const OddsRow row = {"", method, kBankLimit, 6, kBankLimit, 2000_d, 0.01_d};
    EXPECT_EQ(MostOdds(row, Bet::PassLine, Bet::PassLineOdds), 2000_d);
    EXPECT_EQ(MostOdds(row, Bet::DontPass, Bet::DontPassOdds), 2400_d);
  }
}

TEST(Odds, MostTheDoSideMayTake) {
  const OddsRow rows[] = {
      {"no push", OddsNoPush, 2_d, 4, 10_d, 20_d},
      {"no push, 2.5X", OddsNoPush, 2.5_d, 6, 10_d, 25_d},
      {"no push, 2.5X, half a chip cut", OddsNoPush, 2.5_d, 6, 5_d, 12_d},
      {"no push, 2.5X in quarters", OddsNoPush, 2.5_d, 6, 5_d, 12.5_d, 0.25_d},
      {"no push, 2.5X in fives", OddsNoPush, 2.5_d, 6, 5_d, 10_d, 5_d},
      {"no push, 1X", OddsNoPush, 1_d, 9, 7_d, 7_d},
      {"no push, 20X, the house's cap", OddsNoPush, 20_d, 8, 200_d, 2000_d},
      {"minor, whole already", OddsMinorPush, 2_d, 5, 7_d, 14_d},
      {"minor, 7 on a 6 to 10", OddsMinorPush, 1_d, 6, 7_d, 10_d},
      {"minor, 17.50 on a 6 to 20", OddsMinorPush, 2.5_d, 6, 7_d, 20_d},
      {"minor, 3 on a 5 to 4", OddsMinorPush, 1_d, 5, 3_d, 4_d},
      {"minor, 1 on a 6 has no room for 5", OddsMinorPush, 1_d, 6, 1_d, 1_d},
      {"minor, 3 on a 6 to 5", OddsMinorPush, 1_d, 6, 3_d, 5_d},
      {"minor, 9 on an 8 to 10", OddsMinorPush, 3_d, 8, 3_d, 10_d},
      {"minor, 12 on a 6 down, 15 is a whole flat bet more", OddsMinorPush, 4_d, 6, 3_d, 10_d},
      {"minor, 35 on a 9 to 36", OddsMinorPush, 5_d, 9, 7_d, 36_d},
      {"minor, 10X", OddsMinorPush, 10_d, 6, 3_d, 30_d},
      {"minor, 4 pays any chip", OddsMinorPush, 2_d, 4, 7_d, 14_d},
      {"minor in fives, 20 on a 6 to 25", OddsMinorPush, 2_d, 6, 10_d, 25_d, 5_d},
      {"color, 10 on a 5 stays", OddsColorPush, 2_d, 5, 5_d, 10_d},
      {"color, 25 on a 6 stays", OddsColorPush, 1_d, 6, 25_d, 25_d},
      {"color, 20 on a 6 to 25", OddsColorPush, 2_d, 6, 10_d, 25_d},
      {"color, 14 on a 6 to 15", OddsColorPush, 2_d, 6, 7_d, 15_d},
      {"color, 90 on a 4 to 100 for greens", OddsColorPush, 3_d, 4, 30_d, 100_d},
      {"color, 75 on a 4 stays below 100", OddsColorPush, 3_d, 4, 25_d, 75_d},
      {"color, 200 on a 10 to 250 for a 500 chip", OddsColorPush, 2_d, 10, 100_d, 250_d},
      {"color, 100 on a 5 stays", OddsColorPush, 2_d, 5, 50_d, 100_d},
      {"color, 2.5X", OddsColorPush, 2.5_d, 6, 5_d, 12_d},
      {"color, the lowest chip goes past the limit", OddsColorPush, 1_d, 6, 1_d, 5_d},
      {"flat times single, a red chip's single", OddsFlatTimesSingle, 1_d, 6, 5_d, 25_d},
      {"flat times single, 7 on a 5", OddsFlatTimesSingle, 1_d, 5, 7_d, 10_d},
      {"flat times single, 4 pays any chip", OddsFlatTimesSingle, 2_d, 4, 10_d, 20_d},
      {"flat times single, a green chip's single", OddsFlatTimesSingle, 1_d, 6, 30_d, 125_d},
      {"flat times single, 10X, a black chip's single", OddsFlatTimesSingle, 10_d, 5, 10_d, 200_d},
      {"single times flat, 2X", OddsSingleTimesFlat, 2_d, 6, 7_d, 50_d},
      {"single times flat, 3X", OddsSingleTimesFlat, 3_d, 5, 10_d, 30_d},
      {"single times flat, 2.5X cut", OddsSingleTimesFlat, 2.5_d, 6, 5_d, 62_d},
      {"single times flat, 20X", OddsSingleTimesFlat, 20_d, 8, 5_d, 500_d},
      {"single times flat, 20X, the house's cap", OddsSingleTimesFlat, 20_d, 8, 30_d, 2000_d},
      {"auto, 1X is flat times single", OddsAutoSelect, 1_d, 6, 5_d, 25_d},
      {"auto, 2X is color", OddsAutoSelect, 2_d, 6, 10_d, 25_d},
      {"auto, 3X is single times flat", OddsAutoSelect, 3_d, 6, 30_d, 375_d},
      {"auto, 5X is color", OddsAutoSelect, 5_d, 5, 3_d, 16_d},
      {"auto, 10X is color", OddsAutoSelect, 10_d, 6, 10_d, 100_d},
      {"auto, 20X is color", OddsAutoSelect, 20_d, 6, 7_d, 140_d},
      {"auto, 2.5X has no push", OddsAutoSelect, 2.5_d, 6, 10_d, 25_d},
      {"auto, 1.5X has no push", OddsAutoSelect, 1.5_d, 4, 10_d, 15_d},
  };
  for (const OddsRow& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(MostOdds(row, Bet::PassLine, Bet::PassLineOdds), row.most) << "Pass Line Odds";
    EXPECT_EQ(MostOdds(row, ComeOn(row.point), ComeOddsOn(row.point)), row.most) << "Come Odds";
  }
}

// As the do side, then what must be laid to win it.
TEST(Odds, MostTheDontSideMayLay) {
  const OddsRow rows[] = {
      {"no push on a 4", OddsNoPush, 2_d, 4, 10_d, 40_d},
      {"no push on a 5", OddsNoPush, 2_d, 5, 10_d, 30_d},
      {"no push on a 6", OddsNoPush, 2.5_d, 6, 10_d, 30_d},
      {"no push, half a chip cut", OddsNoPush, 1_d, 9, 7_d, 10_d},
      {"no push, 12.50 is cut before it is laid", OddsNoPush, 2.5_d, 6, 5_d, 14_d},
      {"no push, 20X, the cap is on the win", OddsNoPush, 20_d, 4, 200_d, 4000_d},
      {"minor, 7 on a 6 to 10", OddsMinorPush, 1_d, 6, 7_d, 12_d},
      {"minor on a 10", OddsMinorPush, 2_d, 10, 7_d, 28_d},
      {"minor, 35 on a 9 to 36", OddsMinorPush, 5_d, 9, 7_d, 54_d},
      {"color, 20 on an 8 to 25", OddsColorPush, 2_d, 8, 10_d, 30_d},
      {"color, 90 on a 4 to 100", OddsColorPush, 3_d, 4, 30_d, 200_d},
      {"flat times single", OddsFlatTimesSingle, 1_d, 6, 5_d, 30_d},
      {"single times flat", OddsSingleTimesFlat, 3_d, 5, 10_d, 45_d},
      {"auto, 10X is color", OddsAutoSelect, 10_d, 5, 10_d, 150_d},
      {"auto, 2.5X has no push", OddsAutoSelect, 2.5_d, 8, 10_d, 30_d},
  };
  for (const OddsRow& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(MostOdds(row, Bet::DontPass, Bet::DontPassOdds), row.most) << "Don't Pass Odds";
    EXPECT_EQ(MostOdds(row, DontComeOn(row.point), DontComeOddsOn(row.point)), row.most) << "Don't Come Odds";
  }
}

TEST(Odds, EachNumberHasItsMultiple) {
  for (const int number : kBoxNumbers) {
    SCOPED_TRACE(number);
    BetsTestTable table;
    Game& g = table.g;
    g.Rules.OddsCalcMethod = OddsNoPush;
    g.Rules.OddsAllowed410 = 3_d;
    g.Rules.OddsAllowed59 = 4_d;
    g.Rules.OddsAllowed68 = 5_d;
    table.PutPointOn(number);
    for (BetId flat : {Bet::PassLine + 0, ComeOn(number)}) table.Stand(flat, 10_d);
    const Money most = number % 6 == 4 ? 30_d : number % 2 != 0 ? 40_d : 50_d;
    MaxBetFor(g, Bet::PassLineOdds);
    EXPECT_EQ(g.BetMax, most);
    g.Point = g.Point == 6 ? 5 : 6;  // a Come bet keeps its own number's multiple
    MaxBetFor(g, ComeOddsOn(number));
    EXPECT_EQ(g.BetMax, most);
  }
}

TEST(Odds, ZeroRowsAndNoPoint) {
  BetsTestTable table;
  Game& g = table.g;
  table.SetOdds(2_d, OddsNoPush);
  table.Stand(Bet::PassLine, 10_d);
  table.Stand(Bet::DontPass, 10_d);
  table.Stand(Bet::DontCome4, 10_d);
  for (BetId odds : {Bet::PassLineOdds, Bet::DontPassOdds}) {
    MaxBetFor(g, odds);
    EXPECT_EQ(g.BetMax, 0_d) << BetName(odds);
  }
  for (const PayoffRow& zero : {PayoffRow{0_d, true, 2_d}, PayoffRow{1_d, true, 0_d}}) {
    for (const OddsMethod method : {OddsNoPush, OddsMinorPush, OddsColorPush, OddsFlatTimesSingle,
                                    OddsSingleTimesFlat, OddsAutoSelect}) {
      table.SetOdds(2_d, method);
      g.PayoffTable[Bet::DontCome4Odds] = zero;
      MaxBetFor(g, Bet::DontCome4Odds);
      EXPECT_EQ(g.BetMax, 20_d) << "method " << method;
    }
  }
}

TEST(Odds, ColorKeepsItsOldDenominations) {
  BetsTestTable table;
  Game& g = table.g;
  table.SetOdds(2_d, OddsColorPush);
  g.BetAmount[SlotChipDenom + 3] = 50_d;  // a 50 chip where the 100 was
  table.PutPointOn(4);
  table.Stand(Bet::PassLine, 35_d);
  MaxBetFor(g, Bet::PassLineOdds);
  // 75 would win three fifties, but the flat bet is no multiple of 25; it also wins six greens.
  EXPECT_EQ(g.BetMax, 75_d);
  g.BetAmount[SlotChipDenom + 2] = 20_d;
  MaxBetFor(g, Bet::PassLineOdds);
  // Seven twenties are won by 70, and fives too, but a color must be above 2X. The dollar is left.
  EXPECT_EQ(g.BetMax, 70_d);
  table.SetOdds(3_d, OddsColorPush);
  table.Stand(Bet::PassLine, 25_d);
  MaxBetFor(g, Bet::PassLineOdds);
  // 75 wins three fifties but is not above 3X; 80 wins eight twenties.
  EXPECT_EQ(g.BetMax, 80_d);
}

struct FollowRow {
  const char* name;
  BetId flat;
  Money before;
  Money odds;  // standing before
  Money change;
  bool automatic;
  Money oddsAfter;
};

TEST(Odds, FollowTheirFlatBet) {
  const FollowRow rows[] = {
      {"Pass Line put bet, automatic", Bet::PassLine, 10_d, 0_d, 10_d, true, 40_d},
      {"Pass Line put bet, by hand", Bet::PassLine, 10_d, 15_d, 10_d, false, 15_d},
      {"Pass Line refused, nothing follows", Bet::PassLine, 10_d, 0_d, -5_d, true, 0_d},
      {"Don't Pass reduced, odds above the most", Bet::DontPass, 20_d, 80_d, -15_d, false, 20_d},
      {"Don't Pass reduced, odds within the most", Bet::DontPass, 20_d, 10_d, -15_d, false, 10_d},
      {"Don't Pass reduced, automatic", Bet::DontPass, 20_d, 10_d, -10_d, true, 40_d},
      {"Come 4 put bet, automatic", Bet::Come4, 10_d, 0_d, 10_d, true, 40_d},
      {"Don't Come 4 reduced, automatic", Bet::DontCome4, 20_d, 0_d, -10_d, true, 40_d},
      {"Don't Come 4 reduced, odds above the most", Bet::DontCome4, 20_d, 80_d, -15_d, false, 20_d},
      {"a Place bet", Bet::Place4, 10_d, 0_d, 10_d, true, 0_d},
  };
  for (const FollowRow& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    table.SetOdds(2_d, OddsNoPush);
    g.Rules.AllowPutBets = true;
    g.AutoTakeFullOdds = g.AutoLayFullOdds = row.automatic;
    table.PutPointOn(4);
    const BetId odds = row.flat + (row.flat >= Bet::PassLine ? 1 : 6);
    table.Stand(row.flat, row.before);
    table.Stand(odds, row.odds);
    g.BetDelta = row.change;
    PlaceChips(g, row.flat);
    EXPECT_EQ(table.Amount(odds), row.oddsAfter);
    EXPECT_EQ(g.BetDeltaApplied, table.Amount(row.flat) - row.before);
    EXPECT_TRUE(TablesAgree(g));
  }
}

TEST(Odds, FullOddsOfOneSide) {
  BetsTestTable table;
  Game& g = table.g;
  g.BetAmount[SlotBankroll] = 10'000_d;
  table.SetOdds(2_d, OddsNoPush);
  table.PutPointOn(6);
  for (BetId flat : {Bet::PassLine, Bet::DontPass, Bet::Come5, Bet::Come10, Bet::DontCome4, Bet::DontCome9}) {
    table.Stand(flat, 10_d);
  }
  table.Stand(Bet::Come5Odds, 12_d);
  TakeAllDoOdds(g);
  EXPECT_EQ(table.Amount(Bet::PassLineOdds), 20_d);
  EXPECT_EQ(table.Amount(Bet::Come5Odds), 20_d);
  EXPECT_EQ(table.Amount(Bet::Come10Odds), 20_d);
  EXPECT_EQ(table.Amount(Bet::Come4Odds), 0_d);
  EXPECT_EQ(g.TotalBets, 120_d);
  LayAllDontOdds(g);
  EXPECT_EQ(table.Amount(Bet::DontPassOdds), 24_d);
  EXPECT_EQ(table.Amount(Bet::DontCome4Odds), 40_d);
  EXPECT_EQ(table.Amount(Bet::DontCome9Odds), 30_d);
  EXPECT_EQ(table.Amount(Bet::DontCome5Odds), 0_d);
  EXPECT_EQ(g.TotalBets, 214_d);
  EXPECT_TRUE(TablesAgree(g));
  EXPECT_EQ(table.TakeMessage(), "");
  EXPECT_EQ(g.Rules.NotifyFlags, 15);
}

TEST(Odds, FullOddsWithoutAPointOrMoney) {
  BetsTestTable table;
  Game& g = table.g;
  table.SetOdds(2_d, OddsNoPush);
  table.Stand(Bet::PassLine, 10_d);
  TakeAllDoOdds(g);
  EXPECT_EQ(table.Amount(Bet::PassLineOdds), 0_d);
  table.PutPointOn(6);
  g.BetAmount[SlotBankroll] = 17_d;
  TakeFullOdds(g, Bet::PassLineOdds);
  EXPECT_EQ(table.Amount(Bet::PassLineOdds), 7_d);
  EXPECT_EQ(table.TakeMessage(), "");
}

}  // namespace
}  // namespace rollwick
