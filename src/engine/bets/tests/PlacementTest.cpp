// The gate of every bet: rules of the game, chips, limits, bankroll, and what the player is told.
#include <limits>

#include "engine/bets/tests/BetsTestTable.h"

namespace rollwick {
namespace {

constexpr const char* kPassLineStays =
    "You may not decrease or remove your Pass Line bet \rwhile a point is established.";
constexpr const char* kNoPutPassLine =
    "You may not make or increase a Pass Line bet\rwhile a point is established.\r\r(Unless you check "
    "\"Allow Put Bets\" on\rthe Configuration screen.)";
constexpr const char* kComeStays =
    "You may not decrease or remove a Come bet \rwhich is established on a point.";
constexpr const char* kNoPutCome =
    "You may not make or increase a Come bet\rdirectly on a point number.\r\r(Unless you check "
    "\"Allow Put Bets\" on\rthe Configuration screen.)";
constexpr const char* kNoDontPass =
    "You may not make or increase a Don't Pass bet\rwhile a point is established.";
constexpr const char* kNoDontCome =
    "You may not make or increase a Don't Come bet\rdirectly on a point number.";
constexpr const char* kNoPassLineOdds =
    "You may not make a Pass Line Odds Bet unless \ryou also have a Pass Line bet and \ra point is "
    "established.";
constexpr const char* kNoDontPassOdds =
    "You may not make a Don't Pass Odds bet unless \ryou also have a Don't Pass bet and \ra point is "
    "established.";
constexpr const char* kShortBankroll =
    "You don't have enough bankroll remaining to bet the full amount requested.\r\rYour options are: \r";
constexpr const char* kShortEnding =
    "      - Make a withdrawal from the ATM.\r      - Allow negative bankroll amounts.";

// Asked for less than the contract, the least that may stand: both notices come.
constexpr const char* kPassLineStaysAtLeast =
    "You may not decrease or remove your Pass Line bet \rwhile a point is established. | "
    "Minimum bet here is $10\r\rwhich is being bet.";
constexpr const char* kComeStaysAtLeast =
    "You may not decrease or remove a Come bet \rwhich is established on a point. | "
    "Minimum bet here is $10\r\rwhich is being bet.";

enum With { NoPuts, Puts, Travels };

struct RuleRow {
  const char* name;
  int point;
  BetId bet;
  Money amount;
  Money contract;
  Money delta;
  Money applied;
  const char* text;
  With with = NoPuts;
  BetId flat = 0;  // stands with $10
};

constexpr RuleRow kRules[] = {
    {"Pass Line on the come-out", 0, Bet::PassLine, 0_d, 0_d, 10_d, 10_d, ""},
    {"Pass Line taken off on the come-out", 0, Bet::PassLine, 10_d, 0_d, -10_d, -10_d, ""},
    {"Pass Line put up after the point", 6, Bet::PassLine, 0_d, 0_d, 5_d, 0_d, kNoPutPassLine},
    {"Pass Line increased after the point", 6, Bet::PassLine, 10_d, 10_d, 5_d, 0_d, kNoPutPassLine},
    {"Pass Line put bet", 6, Bet::PassLine, 10_d, 10_d, 5_d, 5_d, "", Puts},
    {"Pass Line short of its contract", 6, Bet::PassLine, 5_d, 10_d, 3_d, 5_d, kPassLineStaysAtLeast},
    {"Pass Line short of its contract, put bets", 6, Bet::PassLine, 5_d, 10_d, 3_d, 5_d,
     kPassLineStaysAtLeast, Puts},
    {"Pass Line brought exactly to its contract", 6, Bet::PassLine, 5_d, 10_d, 5_d, 5_d, kNoPutPassLine},
    {"Pass Line past its contract", 6, Bet::PassLine, 5_d, 10_d, 8_d, 5_d, kNoPutPassLine},
    {"Pass Line decreased at its contract", 6, Bet::PassLine, 10_d, 10_d, -5_d, 0_d, kPassLineStays},
    {"Pass Line unchanged at its contract", 6, Bet::PassLine, 10_d, 10_d, 0_d, 0_d, kPassLineStays},
    {"Pass Line put bet decreased", 6, Bet::PassLine, 15_d, 10_d, -3_d, -3_d, ""},
    {"Pass Line decreased below its contract", 6, Bet::PassLine, 15_d, 10_d, -8_d, -5_d, ""},
    {"Pass Line removed over its contract", 6, Bet::PassLine, 15_d, 10_d, -15_d, -5_d, ""},
    {"Come box without a point", 0, Bet::Come, 0_d, 0_d, 5_d, 0_d,
     "You may not make a Come bet until \ra point is established."},
    {"Come box", 4, Bet::Come, 0_d, 0_d, 5_d, 5_d, ""},
    {"Come box decreased", 4, Bet::Come, 5_d, 0_d, -5_d, -5_d, ""},
    {"Don't Pass on the come-out", 0, Bet::DontPass, 0_d, 0_d, 10_d, 10_d, ""},
    {"Don't Pass made after the point", 9, Bet::DontPass, 0_d, 0_d, 5_d, 0_d, kNoDontPass},
    {"Don't Pass increased after the point", 9, Bet::DontPass, 10_d, 10_d, 5_d, 0_d, kNoDontPass},
    {"Don't Pass put back in part", 9, Bet::DontPass, 6_d, 10_d, 2_d, 2_d, ""},
    {"Don't Pass put back", 9, Bet::DontPass, 0_d, 10_d, 10_d, 10_d, ""},
    {"Don't Pass put back and more", 9, Bet::DontPass, 6_d, 10_d, 10_d, 4_d, kNoDontPass},
    {"Don't Pass asked for more than the maximum", 9, Bet::DontPass, 6_d, 10_d, 5000_d, 4_d, kNoDontPass},
    {"Don't Pass removed", 9, Bet::DontPass, 10_d, 10_d, -10_d, -10_d, ""},
    {"Don't Come box without a point", 0, Bet::DontCome, 0_d, 0_d, 5_d, 0_d,
     "You may not make a Don't Come bet until\ra point is established."},
    {"Don't Come box", 4, Bet::DontCome, 0_d, 0_d, 5_d, 5_d, ""},
    {"Pass Line Odds without a Pass Line", 6, Bet::PassLineOdds, 0_d, 0_d, 5_d, 0_d, kNoPassLineOdds},
    {"Pass Line Odds without a point", 0, Bet::PassLineOdds, 0_d, 0_d, 5_d, 0_d, kNoPassLineOdds, NoPuts,
     Bet::PassLine},
    {"Pass Line Odds", 6, Bet::PassLineOdds, 0_d, 0_d, 5_d, 5_d, "", NoPuts, Bet::PassLine},
    {"Pass Line Odds decreased", 6, Bet::PassLineOdds, 10_d, 0_d, -4_d, -4_d, "", NoPuts, Bet::PassLine},
    {"Don't Pass Odds without a Don't Pass", 6, Bet::DontPassOdds, 0_d, 0_d, 6_d, 0_d, kNoDontPassOdds,
     NoPuts, Bet::PassLine},
    {"Don't Pass Odds without a point", 0, Bet::DontPassOdds, 0_d, 0_d, 6_d, 0_d, kNoDontPassOdds, NoPuts,
     Bet::DontPass},
    {"Don't Pass Odds", 6, Bet::DontPassOdds, 0_d, 0_d, 6_d, 6_d, "", NoPuts, Bet::DontPass},
    {"Come 6 from nothing", 4, Bet::Come6, 0_d, 0_d, 5_d, 0_d, kNoPutCome},
    {"Come 6 put bet", 4, Bet::Come6, 0_d, 0_d, 5_d, 5_d, "", Puts},
    {"Come 6 from the box", 4, Bet::Come6, 0_d, 0_d, 5_d, 5_d, "", Travels},
    {"Come 6 increased", 4, Bet::Come6, 10_d, 10_d, 5_d, 0_d, kNoPutCome},
    {"Come 6 short of its contract", 4, Bet::Come6, 5_d, 10_d, 3_d, 5_d, kComeStaysAtLeast},
    {"Come 6 brought exactly to its contract", 4, Bet::Come6, 5_d, 10_d, 5_d, 5_d, ""},
    {"Come 6 past its contract", 4, Bet::Come6, 5_d, 10_d, 9_d, 5_d, kNoPutCome},
    {"Come 6 decreased at its contract", 4, Bet::Come6, 10_d, 10_d, -5_d, 0_d, kComeStays},
    {"Come 6 decreased on the come-out", 0, Bet::Come6, 10_d, 10_d, -5_d, 0_d, kComeStays},
    {"Come 6 decreased below its contract", 4, Bet::Come6, 15_d, 10_d, -8_d, -5_d, ""},
    {"Come 6 empty and unchanged", 4, Bet::Come6, 0_d, 0_d, 0_d, 0_d, kComeStays},
    {"Come 9 Odds without a Come 9", 4, Bet::Come9Odds, 0_d, 0_d, 5_d, 0_d,
     "You may not make an odds bet here until \ryou've established a Come 9 bet.", NoPuts, Bet::Come8},
    {"Come 9 Odds", 0, Bet::Come9Odds, 0_d, 0_d, 5_d, 5_d, "", NoPuts, Bet::Come9},
    {"Don't Come 10 Odds without a Don't Come 10", 4, Bet::DontCome10Odds, 0_d, 0_d, 5_d, 0_d,
     "You may not make an odds bet here until \ryou've established a Don't Come 10 bet."},
    {"Don't Come 10 Odds", 4, Bet::DontCome10Odds, 0_d, 0_d, 5_d, 5_d, "", NoPuts, Bet::DontCome10},
    {"Don't Come 5 from nothing", 4, Bet::DontCome5, 0_d, 0_d, 5_d, 0_d, kNoDontCome},
    {"Don't Come 5 from nothing, put bets", 4, Bet::DontCome5, 0_d, 0_d, 5_d, 0_d, kNoDontCome, Puts},
    {"Don't Come 5 from the box", 4, Bet::DontCome5, 0_d, 0_d, 5_d, 5_d, "", Travels},
    {"Don't Come 5 put back in part", 4, Bet::DontCome5, 6_d, 10_d, 2_d, 2_d, ""},
    {"Don't Come 5 put back and more", 4, Bet::DontCome5, 6_d, 10_d, 8_d, 4_d, kNoDontCome},
    {"Don't Come 5 removed", 4, Bet::DontCome5, 10_d, 10_d, -10_d, -10_d, ""},
    {"Place 6 removed", 0, Bet::Place6, 12_d, 0_d, -12_d, -12_d, ""},
    {"Big 8 decreased", 6, Bet::Big8, 12_d, 0_d, -2_d, -2_d, ""},
};

void PutUp(BetsTestTable& table, const RuleRow& row) {
  Game& g = table.g;
  g.BetAmount[SlotBankroll] = 100'000_d;
  if (row.point != 0) table.PutPointOn(row.point);
  if (row.flat != 0) table.Stand(row.flat, 10_d);
  table.Stand(row.bet, row.amount);
  if (row.bet <= Bet::DontPass) g.BetContract[row.bet] = row.contract;
  g.Rules.AllowPutBets = row.with == Puts;
  g.TravelPass = row.with == Travels;
}

TEST(Placement, RulesOfTheGame) {
  for (const RuleRow& row : kRules) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    PutUp(table, row);
    EXPECT_EQ(table.Change(row.bet, row.delta), row.applied);
    EXPECT_EQ(table.Amount(row.bet), row.amount + row.applied);
    table.ExpectNotice(BetName(row.bet) + " Bet", row.text);
  }
}

TEST(Placement, NoticesOffChangeNoAmount) {
  for (const RuleRow& row : kRules) {
    for (const bool hyperDrive : {false, true}) {
      SCOPED_TRACE(row.name);
      BetsTestTable table;
      PutUp(table, row);
      table.g.HyperDriveActive = hyperDrive;
      if (!hyperDrive) table.g.Rules.NotifyFlags = NotifyCharges;
      EXPECT_EQ(table.Change(row.bet, row.delta), row.applied);
      EXPECT_EQ(table.TakeMessage(), "");
    }
  }
}

struct AmountRow {
  const char* name;
  BetId bet;
  Money amount;
  Money delta;
  Money applied;
  const char* text;
  Money least = 1_d;  // the placard
  Money chip = 1_d;
  int point = 0;
};

constexpr AmountRow kAmounts[] = {
    {"half a chip up", Bet::Place6, 10_d, 2.5_d, 3_d, ""},
    {"half a chip down", Bet::Place6, 10_d, -2.5_d, -3_d, ""},
    {"a quarter taken off", Bet::Place6, 10_d, -0.25_d, -1_d, ""},
    {"fives", Bet::Place6, 10_d, 12_d, 15_d, "", 1_d, 5_d},
    {"fives, already whole", Bet::Place6, 10_d, 15_d, 15_d, "", 1_d, 5_d},
    {"quarters", Bet::Field, 0_d, 1.3_d, 1.5_d, "", 1_d, 0.25_d},
    {"more off than stands", Bet::Field, 10_d, -50_d, -10_d, ""},
    {"half a chip on Hard 6, the least is a chip", Bet::Hard6, 0_d, 0.5_d, 1_d,
     "Minimum bet here is $1\r\rwhich is being bet."},
    {"Hard 6 knows no placard", Bet::Hard6, 0_d, 1_d, 1_d, "", 5_d},
    {"Hop 5-5 knows no placard", Bet::Hop55, 0_d, 1_d, 1_d, "", 5_d},
    {"below the least", Bet::Place6, 0_d, 3_d, 5_d, "Minimum bet here is $5\r\rwhich is being bet.", 5_d},
    {"the Field below the least", Bet::Field, 0_d, 3_d, 5_d, "Minimum bet here is $5\r\rwhich is being bet.",
     5_d},
    {"increased, still below the least", Bet::Place6, 2_d, 1_d, 3_d,
     "Minimum bet here is $5\r\rwhich is being bet.", 5_d},
    {"decreased below the least comes off", Bet::Place6, 10_d, -7_d, -10_d, "", 5_d},
    {"unchanged below the least comes off", Bet::Place6, 3_d, 0_d, -3_d, "", 5_d},
    {"decreased to the least", Bet::Place6, 10_d, -5_d, -5_d, "", 5_d},
    {"above the most", Bet::Place6, 0_d, 1500_d, 1000_d, "Maximum bet here is $1,000\r\rwhich is being bet."},
    {"at the most", Bet::Place6, 1000_d, 5_d, 0_d, "Maximum bet here is $1,000\r\rwhich is already bet."},
    {"exactly the most", Bet::Place6, 900_d, 100_d, 100_d, ""},
    {"standing above the most, unchanged", Bet::Place6, 1200_d, 0_d, -200_d,
     "Maximum bet here is $1,000\r\rwhich is being bet."},
    {"prop payoff cap", Bet::Two, 0_d, 200_d, 100_d, "Maximum bet here is $100\r\rwhich is being bet."},
    {"odds cap", Bet::Come4Odds, 0_d, 100_d, 25_d, "Maximum bet here is $25\r\rwhich is being bet."},
    {"largest request", Bet::Place6, 10_d, Money::FromUnits(std::numeric_limits<std::int64_t>::max()), 990_d,
     "Maximum bet here is $1,000\r\rwhich is being bet."},
    {"smallest request", Bet::Place6, 10_d, Money::FromUnits(std::numeric_limits<std::int64_t>::min()), -10_d,
     ""},
    {"largest request on a Pass Line", Bet::PassLine, 10_d,
     Money::FromUnits(std::numeric_limits<std::int64_t>::max()), 0_d, kNoPutPassLine, 1_d, 1_d, 6},
    {"smallest request on a Pass Line", Bet::PassLine, 10_d,
     Money::FromUnits(std::numeric_limits<std::int64_t>::min()), 0_d, kPassLineStays, 1_d, 1_d, 6},
};

TEST(Placement, ChipsAndLimits) {
  for (const AmountRow& row : kAmounts) {
    for (const bool quiet : {false, true}) {
      SCOPED_TRACE(row.name);
      BetsTestTable table;
      Game& g = table.g;
      g.BetAmount[SlotBankroll] = 100'000_d;
      g.BetAmount[SlotChipDenom] = row.chip;
      g.Rules.MinPlacardBet = row.least;
      g.HyperDriveActive = quiet;
      if (row.point != 0) table.PutPointOn(row.point);
      if (IsOdds(row.bet)) table.Stand(FlatOf(row.bet), 10_d);
      table.Stand(row.bet, row.amount);
      EXPECT_EQ(table.Change(row.bet, row.delta), row.applied);
      EXPECT_EQ(table.Amount(row.bet), row.amount + row.applied);
      table.ExpectNotice(BetName(row.bet) + " Bet", quiet ? "" : row.text);
    }
  }
}

TEST(Placement, LimitNoticesHaveTheirOwnSwitch) {
  BetsTestTable table;
  table.g.Rules.NotifyFlags &= ~NotifyLimits;
  EXPECT_EQ(table.Change(Bet::Place6, 1500_d), 500_d);
  EXPECT_EQ(table.TakeMessage(), "");
  EXPECT_EQ(table.Change(Bet::Come, 5_d), 0_d);
  EXPECT_NE(table.TakeMessage(), "");
}

TEST(Placement, MostThatMayStand) {
  struct Row {
    const char* name;
    BetId bet;
    Money most;
    Money chip = 1_d;
    Money placard = 1000_d;
  };
  const Row rows[] = {
      {"Place", Bet::Place4, 1000_d},
      {"Place in fives", Bet::Place4, 520_d, 5_d, 523_d},
      {"Field", Bet::Field, 1000_d},
      {"Hard 6", Bet::Hard6, 333_d},
      {"Hard 6 in fives", Bet::Hard6, 330_d, 5_d},
      {"Hard 4 in quarters", Bet::Hard4, 428.5_d, 0.25_d},
      {"Twelve", Bet::Twelve, 100_d},
      {"Eleven", Bet::Eleven, 200_d},
      {"Seven", Bet::Seven, 750_d},
      {"Craps", Bet::Craps, 428_d},
      {"C and E nets 7", Bet::CAndE, 428_d},
      {"Horn nets 6.75", Bet::Horn, 444_d},
      {"World nets 5.20", Bet::World, 576_d},
      {"Under 7, above the placard", Bet::Under7, 3000_d},
      {"Hop 1-3", Bet::Hop13, 200_d},
      {"Hop 4-4", Bet::Hop44, 100_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    table.g.BetAmount[SlotChipDenom] = row.chip;
    table.g.Rules.MaxPlacardBet = row.placard;
    MaxBetFor(table.g, row.bet);
    EXPECT_EQ(table.g.BetMax, row.most);
  }
}

TEST(Placement, PayoffsWithoutAWinLeaveThePlacard) {
  BetsTestTable table;
  Game& g = table.g;
  for (BetId bet = Bet::Two; bet <= Bet::Craps; ++bet) g.PayoffTable[bet] = {0_d, true, 1_d};
  for (BetId bet : {Bet::Two, Bet::CAndE, Bet::Horn, Bet::World}) {
    SCOPED_TRACE(BetName(bet));
    MaxBetFor(g, bet);
    EXPECT_EQ(g.BetMax, 1000_d);
  }
  g.PayoffTable[Bet::Three].Base = 0_d;
  g.PayoffTable[Bet::Three].Ratio = 15_d;
  MaxBetFor(g, Bet::Three);
  EXPECT_EQ(g.BetMax, 1000_d);
  g.PayoffTable[Bet::Craps] = g.PayoffTable[Bet::Eleven] = {1_d, true, 1_d};  // nets nothing
  MaxBetFor(g, Bet::CAndE);
  EXPECT_EQ(g.BetMax, 1000_d);
}

TEST(Placement, ContractBetAboveALoweredMaximum) {
  struct Row {
    const char* name;
    BetId bet;
    Money amount;
    Money applied;
  };
  const Row rows[] = {
      {"Pass Line", Bet::PassLine, 1500_d, 0_d},
      {"Pass Line below its contract", Bet::PassLine, 1400_d, 100_d},
      {"Come 6", Bet::Come6, 1500_d, 0_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.BetAmount[SlotBankroll] = 100'000_d;
    g.Rules.AllowPutBets = true;
    table.PutPointOn(4);
    table.Stand(row.bet, row.amount);
    g.BetContract[row.bet] = 1500_d;
    EXPECT_EQ(table.Change(row.bet, 200_d), row.applied);
    table.ExpectNotice(BetName(row.bet) + " Bet",
                       "Maximum bet here is $1,000\r\rHowever, because the " + BetName(row.bet) +
                           " is a contract bet and it was established at $1,500 before the maximum allowed "
                           "was lowered on the Configuration screen, it must remain unchanged until it "
                           "resolves.");
  }
}

struct BankrollRow {
  const char* name;
  Money bankroll;
  BetId other;  // stands with otherAmount
  Money otherAmount;
  BetId bet;
  Money amount;
  Money delta;
  Money applied;
  std::string text;
  Money least = 1_d;
};

TEST(Placement, ShortBankroll) {
  const std::string alone = std::string(kShortBankroll) + kShortEnding;
  const std::string besides =
      std::string(kShortBankroll) + "      - Bet less on other bets.\r" + kShortEnding;
  const BankrollRow rows[] = {
      {"all of it", 500_d, 0, 0_d, Bet::Place6, 0_d, 500_d, 500_d, ""},
      {"more than all", 500_d, 0, 0_d, Bet::Place6, 0_d, 600_d, 500_d, alone},
      {"beside another bet", 500_d, Bet::Field, 20_d, Bet::Place6, 0_d, 600_d, 480_d, besides},
      {"maximum and bankroll", 500_d, 0, 0_d, Bet::Place6, 0_d, 1500_d, 500_d,
       "Maximum bet here is $1,000\r\r" + alone},
      {"what is left is below the least", 3_d, 0, 0_d, Bet::Place6, 0_d, 10_d, 0_d,
       "Minimum bet here is $5\r\r" + alone, 5_d},
      {"short through other bets, the bet comes off", 500_d, Bet::Field, 600_d, Bet::Place6, 12_d, 6_d, -12_d,
       besides},
      {"half a dollar is no chip", 10.5_d, 0, 0_d, Bet::Field, 0_d, 20_d, 10_d, alone},
      {"Buy 4, the vig counts", 31_d, 0, 0_d, Bet::Buy4, 0_d, 30_d, 30_d, "Total \"Vig\" charge $1"},
      {"Buy 4, the vig is too much", 30_d, 0, 0_d, Bet::Buy4, 0_d, 30_d, 29_d,
       alone + " | Total \"Vig\" charge $1"},
      {"Buy 4, the old vig counts too", 42_d, 0, 0_d, Bet::Buy4, 20_d, 20_d, 19_d,
       besides + " | \"Vig\" increased by $1\r\rTotal \"Vig\" charge $2"},
      {"Lay 4, the vig is too much", 40_d, 0, 0_d, Bet::Lay4, 0_d, 40_d, 39_d,
       alone + " | Total \"Vig\" charge $1"},
  };
  for (const BankrollRow& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.BetAmount[SlotBankroll] = row.bankroll;
    g.Rules.MinPlacardBet = row.least;
    if (row.other != 0) table.Stand(row.other, row.otherAmount);
    table.Stand(row.bet, row.amount);
    EXPECT_EQ(table.Change(row.bet, row.delta), row.applied);
    table.ExpectNotice(BetName(row.bet) + " Bet", row.text);
    EXPECT_EQ(g.BetAmount[SlotBankroll], row.bankroll);
  }
}

// However the cut is found, it is the one of a dealer who takes off one lowest chip after another.
TEST(Placement, ShortBankrollTakesOffChipByChip) {
  for (const BetId bet : {Bet::Field + 0, Bet::Buy5 + 0, Bet::Lay6 + 0}) {
    for (const VigRounding rounding : {VigRoundedNormally, VigRoundedDown, VigRoundedUp}) {
      for (int bankroll = 0; bankroll <= 90; bankroll += 3) {
        SCOPED_TRACE(BetName(bet) + ", bankroll " + std::to_string(bankroll));
        BetsTestTable table;
        Game& g = table.g;
        g.Rules.RoundBuyVig = g.Rules.RoundLayVig = rounding;
        g.Rules.BuyVigPct = g.Rules.LayVigPct = 0.35_d;
        g.Rules.NotifyFlags = 0;
        g.BetAmount[SlotChipDenom] = 0.5_d;
        g.BetAmount[SlotBankroll] = Dollars(bankroll) + 0.25_d;
        table.Stand(Bet::Big6, 7_d);
        table.Stand(bet, 10_d);
        const auto tooBig = [&](Money change) {
          const Money amount = 10_d + change;
          return g.TotalBets + change + ComputeBuyVig(g, bet, amount) + ComputeLayVig(g, bet, amount) >
                 g.BetAmount[SlotBankroll];
        };
        Money change = 60_d;
        while (change > -10_d && tooBig(change)) change -= 0.5_d;
        if (10_d + change < 1_d) change = -10_d;  // below the least
        EXPECT_EQ(table.Change(bet, 60_d), change);
      }
    }
  }
}

TEST(Placement, ShortBankrollAdjustsAnew) {
  BetsTestTable table;
  table.g.AutoAdjustBetAmounts = AdjustColor;
  table.g.BetAmount[SlotBankroll] = 100_d;
  // 100 is raised to 120, cut to the bankroll and fitted to thirties below it.
  EXPECT_EQ(table.Change(Bet::Place6, 100_d), 90_d);
  table.ExpectNotice("Place 6 Bet", std::string("Maximum bet for proper odds payoff here is: $90\r\r") +
                                        kShortBankroll + kShortEnding);
}

TEST(Placement, ShortBankrollTellsOnceThatNothingFits) {
  BetsTestTable table;
  table.g.AutoAdjustBetAmounts = AdjustMinor;
  table.g.Rules.MaxPlacardBet = 5_d;
  table.g.BetAmount[SlotBankroll] = 4_d;
  EXPECT_EQ(table.Change(Bet::Place6, 5_d), 4_d);
  table.ExpectNotice("Place 6 Bet", std::string("Unable to auto-adjust bet for proper odds payoff.\r\r") +
                                        kShortBankroll + kShortEnding);
}

TEST(Placement, NegativeBankrollMayBeAllowed) {
  BetsTestTable table;
  table.g.Rules.AllowNegBankroll = true;
  EXPECT_EQ(table.Change(Bet::Place6, 600_d), 600_d);
  EXPECT_EQ(AvailableBankroll(table.g), -100_d);
  EXPECT_EQ(table.TakeMessage(), "");
}

TEST(Placement, VigNotices) {
  struct Row {
    const char* name;
    BetId bet;
    Money before;
    Money after;
    bool onAll;
    const char* text;
    Money chip = 1_d;
  };
  const Row rows[] = {
      {"new, all", Bet::Buy4, 0_d, 30_d, true, "Total \"Vig\" charge $1"},
      {"new, winners", Bet::Buy4, 0_d, 30_d, false, "If you win, the \"Vig\" charge will be $1"},
      {"increased, all", Bet::Buy4, 20_d, 60_d, true, "\"Vig\" increased by $2\r\rTotal \"Vig\" charge $3"},
      {"increased, winners", Bet::Buy4, 20_d, 60_d, false,
       "\"Vig\" increased by $2\r\rIf you win, the \"Vig\" charge will be $3"},
      {"decreased, all", Bet::Buy4, 40_d, 20_d, true, "\"Vig\" decreased by $1\r\rTotal \"Vig\" charge $1"},
      {"returned, all", Bet::Buy4, 40_d, 0_d, true, "\"Vig\" charge returned $2"},
      {"returned, winners", Bet::Buy4, 40_d, 0_d, false, ""},
      {"unchanged", Bet::Buy4, 20_d, 25_d, true, ""},
      {"in quarters", Bet::Buy4, 0_d, 25_d, true, "Total \"Vig\" charge $1.25", 0.25_d},
      {"Lay, new", Bet::Lay10, 0_d, 100_d, true, "Total \"Vig\" charge $2"},
      {"Lay, increased, winners", Bet::Lay10, 40_d, 100_d, false,
       "\"Vig\" increased by $1\r\rIf you win, the \"Vig\" charge will be $2"},
      {"Lay, returned", Bet::Lay10, 100_d, 0_d, true, "\"Vig\" charge returned $2"},
  };
  for (const Row& row : rows) {
    for (const bool told : {true, false}) {
      SCOPED_TRACE(row.name);
      BetsTestTable table;
      Game& g = table.g;
      g.BetAmount[SlotChipDenom] = row.chip;
      g.Rules.BuyVigOnAll = g.Rules.LayVigOnAll = row.onAll;
      if (!told) g.Rules.NotifyFlags &= ~NotifyCharges;
      table.Stand(row.bet, row.before);
      table.Change(row.bet, row.after - row.before);
      table.ExpectNotice(BetName(row.bet) + " Bet", told ? row.text : "");
    }
  }
}

TEST(Placement, ChipStacks) {
  struct Row {
    const char* name;
    BetId stack;
    Money amount;
    Money delta;
    Money after;
    const char* title;
    const char* text;
  };
  const Row rows[] = {
      {"in cents", 101, 0_d, 0.3_d, 0.3_d, "", ""},
      {"below nothing", 100, 5_d, -12_d, -7_d, "", ""},
      {"above the most", 107, 1_d, kMaxChipStack, kMaxChipStack, "Chip-Stack #7",
       "Maximum Chip-Stack value is: $99,999,999,999,999.9999\r\rwhich is being stacked."},
      {"at the most", 100, kMaxChipStack, 1_d, kMaxChipStack, "Chip-Stack #0",
       "Maximum Chip-Stack value is: $99,999,999,999,999.9999\r\rwhich is already stacked."},
      {"below the least", 199, -1_d, -kMaxChipStack, -kMaxChipStack, "Chip-Stack #99",
       "Minimum Chip-Stack value is: $-99,999,999,999,999.9999\r\rwhich is being stacked."},
      {"largest request", 199, 1_d, Money::FromUnits(std::numeric_limits<std::int64_t>::max()), kMaxChipStack,
       "Chip-Stack #99", "Maximum Chip-Stack value is: $99,999,999,999,999.9999\r\rwhich is being stacked."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    table.g.BetAmount[row.stack] = row.amount;
    EXPECT_EQ(table.Change(row.stack, row.delta), row.after - row.amount);
    EXPECT_EQ(table.Amount(row.stack), row.after);
    EXPECT_EQ(table.g.TotalBets, 0_d);
    table.ExpectNotice(row.title, row.text);
  }
}

TEST(Placement, OtherSlotsAreLeftAlone) {
  for (BetId slot : {SlotBankroll + 0, 84, 92, SlotRail + 0, 94, SlotChipDenom + 0, 99, 201, -1}) {
    SCOPED_TRACE(slot);
    BetsTestTable table;
    const auto before = table.g.BetAmount;
    EXPECT_EQ(table.Change(slot, 5_d), 0_d);
    EXPECT_EQ(table.g.BetAmount, before);
    EXPECT_EQ(table.g.TotalBets, 0_d);
    EXPECT_EQ(table.TakeMessage(), "");
  }
}

TEST(Placement, ABetThatGoesLosesItsButton) {
  struct Row {
    const char* name;
    int point;
    std::int32_t working;
    Money delta;
    std::int32_t after;
  };
  const Row rows[] = {
      {"removed on the come-out, ON", 0, CalledOn, -12_d, Off},
      {"removed on a point, OFF", 5, CalledOff, -12_d, On},
      {"reduced, ON", 0, CalledOn, -6_d, CalledOn},
      {"increased, OFF", 5, CalledOff, 6_d, CalledOff},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    if (row.point != 0) table.PutPointOn(row.point);
    table.Stand(Bet::Place6, 12_d);
    table.g.BetWorking[Bet::Place6] = row.working;
    table.Change(Bet::Place6, row.delta);
    EXPECT_EQ(table.g.BetWorking[Bet::Place6], row.after);
  }
}

}  // namespace
}  // namespace rollwick
