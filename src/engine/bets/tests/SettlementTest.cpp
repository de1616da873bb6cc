// What becomes of decided bets: handlers, bets that must come down, odds returned, Come bets moved. The
// dialog is next door.
#include "base/FormatNumber.h"
#include "engine/bets/tests/BetsTestTable.h"

namespace rollwick {
namespace {

struct HandlerRow {
  const char* name;
  int outcome;
  int handler;
  Money after;
  const char* title;
  const char* text;
};

constexpr HandlerRow kHandlers[] = {
    {"won, take down", Wins, WinTakeDown, 0_d, "", ""},
    {"won, same bet", Wins, WinSameBet, 12_d, "", ""},
    {"won, press a unit", Wins, WinPressUnit, 18_d, "Press 1 Unit Place 6", "Bet increased by: $6"},
    {"won, press double", Wins, WinPressDouble, 24_d, "Press Double Place 6", "Bet increased by: $12"},
    {"won, parlay", Wins, WinParlay, 26_d, "Parlay Place 6", "Bet increased by: $14"},
    {"won, same bet with a formula", Wins, WinSameBetFormula, 15_d, "Place 6", "Bet increased by: $3"},
    {"won, bet of a formula", Wins, WinBetFormula, 30_d, "Place 6", "Bet increased by: $18"},
    {"lost, take down", Loses, LossTakeDown, 0_d, "", ""},
    {"lost, bet the remainder", Loses, LossBetRemainder, 0_d, "", ""},
    {"lost, same bet", Loses, LossSameBet, 12_d, "", ""},
    {"lost, one unit more", Loses, LossPressUnit, 18_d, "Press 1 Unit Place 6", "Bet increased by: $6"},
    {"lost, double bet", Loses, LossDoubleBet, 24_d, "Press Double Place 6", "Bet increased by: $12"},
    {"lost, same bet with a formula", Loses, LossSameBetFormula, 8_d, "Place 6", "Bet decreased by: $4"},
    {"lost, bet of a formula", Loses, LossBetFormula, 42_d, "Place 6", "Bet increased by: $30"},
};

void SetFormulas(Game& g) {
  g.ModifyAmount = {0_d, 0_d, 0_d, 0_d, 3_d, 4_d, 30_d, 7_d};
  g.ModifyOperator[LoserSameBet] = FormulaMinus;
  g.ModifyUnit[LoserBet] = 2;  // the dollar chip times 6
}

TEST(Settlement, Handlers) {
  for (const HandlerRow& row : kHandlers) {
    for (const std::int32_t flags : {15, 15 & ~NotifyCharges}) {
      SCOPED_TRACE(row.name);
      BetsTestTable table;
      Game& g = table.g;
      SetFormulas(g);
      g.Rules.NotifyFlags = flags;
      (row.outcome == Wins ? g.HandleWinningBets : g.HandleLosingBets) = row.handler;
      DecidePlace6(table, row.outcome);
      EXPECT_EQ(table.Amount(Bet::Place6), row.after);
      EXPECT_EQ(g.BetAmount[SlotBankroll], row.outcome == Wins ? 514_d : 488_d);
      EXPECT_TRUE(table.host.settled.empty());
      table.ExpectNotice(row.title, (flags & NotifyCharges) != 0 ? row.text : "");
    }
  }
}

TEST(Settlement, HyperDriveSaysNothingAndTakesManualBetsDown) {
  for (const HandlerRow& row : kHandlers) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    SetFormulas(g);
    g.HyperDriveActive = true;
    (row.outcome == Wins ? g.HandleWinningBets : g.HandleLosingBets) = row.handler;
    DecidePlace6(table, row.outcome);
    EXPECT_EQ(table.Amount(Bet::Place6), row.after);
    g.HandleWinningBets = g.HandleLosingBets = 0;
    DecidePlace6(table, row.outcome);
    EXPECT_EQ(table.Amount(Bet::Place6), 0_d);
    EXPECT_TRUE(table.host.settled.empty());
    EXPECT_TRUE(table.host.sounds.empty());
    EXPECT_EQ(table.TakeMessage(), "");
  }
}

TEST(Settlement, ParlayTakesTheBiasesDown) {
  BetsTestTable table;
  Game& g = table.g;
  g.AutoAdjustBetAmounts = AdjustColor;
  g.HandleWinningBets = WinParlay;
  DecidePlace6(table, Wins);
  EXPECT_EQ(table.Amount(Bet::Place6), 24_d);
  EXPECT_EQ(g.PlaceBias, BiasIncrease);
  EXPECT_EQ(g.LayBias, BiasNearest);
}

TEST(Settlement, Formulas) {
  struct Row {
    const char* name;
    FormulaOperator formulaOperator;
    int unit;
    Money amount;
    Money sameBet;  // of "Same Bet:" on Place 6 of 12
    Money bet;      // of "Bet:"
  };
  const Row rows[] = {
      {"plus dollars", FormulaPlus, 0, 5_d, 17_d, 5_d},
      {"plus percent", FormulaPlus, 1, 50_d, 18_d, 0_d},
      {"plus dollar units", FormulaPlus, 2, 2_d, 24_d, 12_d},
      {"plus red units", FormulaPlus, 3, 1_d, 42_d, 30_d},
      {"minus dollars", FormulaMinus, 0, 5_d, 7_d, 5_d},
      {"minus percent", FormulaMinus, 1, 50_d, 6_d, 0_d},
      {"minus units", FormulaMinus, 2, 1_d, 6_d, 6_d},
      {"minus more than stands", FormulaMinus, 0, 20_d, 0_d, 20_d},
      {"times dollars", FormulaTimes, 0, 3_d, 36_d, 3_d},
      {"times percent", FormulaTimes, 1, 150_d, 18_d, 0_d},
      {"times units", FormulaTimes, 2, 1_d, 72_d, 6_d},
      {"times nothing", FormulaTimes, 0, 0_d, 0_d, 0_d},
      {"by dollars", FormulaDivide, 0, 2_d, 6_d, 2_d},
      {"by percent", FormulaDivide, 1, 50_d, 24_d, 0_d},
      {"by units", FormulaDivide, 2, 1_d, 2_d, 6_d},
      {"by nothing", FormulaDivide, 0, 0_d, 12_d, 0_d},
      {"by less than nothing", FormulaDivide, 0, -2_d, 12_d, 0_d},
  };
  for (const Row& row : rows) {
    for (const bool won : {true, false}) {
      SCOPED_TRACE(std::string(row.name) + (won ? ", won" : ", lost"));
      for (const bool sameBet : {true, false}) {
        BetsTestTable table;
        Game& g = table.g;
        const int slot = won ? (sameBet ? WinnerSameBet : WinnerBet) : (sameBet ? LoserSameBet : LoserBet);
        g.ModifyOperator[slot] = row.formulaOperator;
        g.ModifyUnit[slot] = row.unit;
        g.ModifyAmount[slot] = row.amount;
        g.HandleWinningBets = sameBet ? WinSameBetFormula : WinBetFormula;
        g.HandleLosingBets = sameBet ? LossSameBetFormula : LossBetFormula;
        DecidePlace6(table, won ? Wins : Loses);
        const Money after = sameBet ? row.sameBet : row.bet;
        EXPECT_EQ(table.Amount(Bet::Place6), after) << (sameBet ? "Same Bet:" : "Bet:");
        EXPECT_EQ(table.TakeMessage(), after == 12_d  ? "No change in bet amount."
                                       : after > 12_d ? FormatMoney(after - 12_d, "Bet increased by: $")
                                                      : FormatMoney(12_d - after, "Bet decreased by: $"));
      }
    }
  }
}

TEST(Settlement, RemainderOfAHalfLoss) {
  for (const bool betIt : {false, true}) {
    BetsTestTable table;
    Game& g = table.g;
    table.Dice(3, 4);
    g.FieldPayoffTable[12] = {-1_d, true, 2_d};
    g.HandleLosingBets = betIt ? LossBetRemainder : LossTakeDown;
    table.Stand(Bet::Field, 10_d);
    ResolveBet(g, Wins, Bet::Field);
    EXPECT_EQ(table.Amount(Bet::Field), betIt ? 5_d : 0_d);
    EXPECT_EQ(g.BetAmount[SlotBankroll], 495_d);
    EXPECT_EQ(table.TakeMessage(), "");
  }
}

TEST(Settlement, VigsAreReleasedAndChargedAnew) {
  struct Row {
    const char* name;
    BetId bet;
    Money amount;
    int outcome;
    bool onAll;
    Money bankroll;
    Money totalTakenDown;
    Money totalSameBet;
  };
  const Row rows[] = {
      {"Buy 4 won, all", Bet::Buy4, 25_d, Wins, true, 549_d, 0_d, 26_d},
      {"Buy 4 lost, all", Bet::Buy4, 25_d, Loses, true, 474_d, 0_d, 26_d},
      {"Buy 4 won, winners", Bet::Buy4, 25_d, Wins, false, 549_d, 0_d, 25_d},
      {"Buy 4 lost, winners", Bet::Buy4, 25_d, Loses, false, 475_d, 0_d, 25_d},
      {"Lay 4 won, all", Bet::Lay4, 40_d, Wins, true, 519_d, 0_d, 41_d},
      {"Lay 4 lost, all", Bet::Lay4, 40_d, Loses, true, 459_d, 0_d, 41_d},
      {"Lay 4 lost, winners", Bet::Lay4, 40_d, Loses, false, 460_d, 0_d, 40_d},
  };
  for (const Row& row : rows) {
    for (const bool sameBet : {false, true}) {
      SCOPED_TRACE(row.name);
      BetsTestTable table;
      Game& g = table.g;
      g.Rules.BuyVigOnAll = g.Rules.LayVigOnAll = row.onAll;
      g.HandleWinningBets = sameBet ? WinSameBet : WinTakeDown;
      g.HandleLosingBets = sameBet ? LossSameBet : LossBetRemainder;
      table.Stand(row.bet, row.amount);
      ResolveBet(g, row.outcome, row.bet);
      EXPECT_EQ(g.BetAmount[SlotBankroll], row.bankroll);
      EXPECT_EQ(g.TotalBets, sameBet ? row.totalSameBet : row.totalTakenDown);
      EXPECT_TRUE(TablesAgree(g));
    }
  }
}

TEST(Settlement, ParlayAddsTheWinBeforeVig) {
  BetsTestTable table;
  table.g.HandleWinningBets = WinParlay;
  table.Stand(Bet::Buy4, 25_d);
  ResolveBet(table.g, Wins, Bet::Buy4);
  EXPECT_EQ(table.Amount(Bet::Buy4), 75_d);
  EXPECT_EQ(table.g.BetAmount[SlotBankroll], 549_d);
}

TEST(Settlement, AWonLayBetCanLose) {
  BetsTestTable table;
  Game& g = table.g;
  g.RecordEventsActive = true;
  g.BetStreak[Bet::Lay10][1] = 3;
  table.Stand(Bet::Lay10, 1_d);
  ResolveBet(g, Wins, Bet::Lay10);
  FlushEventsLog(g);
  EXPECT_EQ(table.log.lines, std::vector<std::string>{"      Lay 10 bet lost $1"});
  EXPECT_EQ(g.BetStreak[Bet::Lay10][1], -1);
  EXPECT_EQ(g.BetAmount[SlotBankroll], 499_d);
  EXPECT_EQ(table.Amount(Bet::Lay10), 0_d);
}

TEST(Settlement, LogAndStreak) {
  BetsTestTable table;
  Game& g = table.g;
  g.RecordEventsActive = true;
  g.HandleWinningBets = WinSameBet;
  g.HandleLosingBets = LossSameBet;
  table.PutPointOn(4);
  table.Stand(Bet::Place6, 10_d);
  ResolveBet(g, Wins, Bet::Place6);
  ResolveBet(g, Wins, Bet::Place6);
  EXPECT_EQ(g.BetStreak[Bet::Place6][1], 2);
  ResolveBet(g, Loses, Bet::Place6);
  ResolveBet(g, Loses, Bet::Place6);
  EXPECT_EQ(g.BetStreak[Bet::Place6][1], -2);
  g.RecordBetsWon = g.RecordBetsLost = false;
  ResolveBet(g, Wins, Bet::Place6);
  ResolveBet(g, Loses, Bet::Place6);
  FlushEventsLog(g);
  EXPECT_EQ(table.log.lines,
            (std::vector<std::string>{"      Place 6 bet won $11", "      Place 6 bet won $11",
                                      "      Place 6 bet lost $10", "      Place 6 bet lost $10"}));
  EXPECT_EQ(g.BetAmount[SlotBankroll], 503_d);
}

TEST(Settlement, PushAndDeadNumber) {
  BetsTestTable table;
  Game& g = table.g;
  g.RecordEventsActive = true;
  g.HandleWinningBets = WinTakeDown;
  table.Stand(Bet::World, 7_d);
  g.DiceTotal = 7;
  ResolveBet(g, Wins, Bet::World);
  EXPECT_EQ(table.Amount(Bet::World), 0_d) << "a push is settled like a win";
  g.PayoffTable[Bet::Hard6].Ratio = 0_d;
  table.Stand(Bet::Hard6, 5_d);
  ResolveBet(g, Wins, Bet::Hard6);
  EXPECT_EQ(table.Amount(Bet::Hard6), 5_d) << "a dead number touches nothing";
  FlushEventsLog(g);
  EXPECT_TRUE(table.log.lines.empty());
  EXPECT_EQ(g.BetStreak[Bet::World][1], 0);
  EXPECT_EQ(g.BetAmount[SlotBankroll], 500_d);
}

TEST(Settlement, SameBetWithAShortBankroll) {
  BetsTestTable table;
  Game& g = table.g;
  g.Rules.NotifyFlags = NotifyCharges;
  g.BetAmount[SlotBankroll] = 20_d;
  g.HandleLosingBets = LossSameBet;
  DecidePlace6(table, Loses);
  EXPECT_EQ(table.Amount(Bet::Place6), 8_d);
  table.ExpectNotice("Place 6", "Bet decreased by: $4");
}

TEST(Settlement, BetsThatMustComeDown) {
  struct Row {
    const char* name;
    BetId bet;
    int outcome;
    int total;
    bool puts;
    bool flatStands;
    bool stays;
  };
  const Row rows[] = {
      {"Come box wins on a 7", Bet::Come, Wins, 7, false, false, false},
      {"Come box wins on an 11", Bet::Come, Wins, 11, false, false, true},
      {"Come box loses on a 12", Bet::Come, Loses, 12, false, false, true},
      {"Don't Come box loses on a 7", Bet::DontCome, Loses, 7, true, false, false},
      {"Don't Come box wins on a 3", Bet::DontCome, Wins, 3, false, false, true},
      {"Pass Line", Bet::PassLine, Wins, 6, false, false, true},
      {"Pass Line Odds", Bet::PassLineOdds, OddsWin, 6, true, true, false},
      {"Don't Pass Odds", Bet::DontPassOdds, OddsWin, 7, true, true, false},
      {"Don't Come 9", Bet::DontCome9, Loses, 9, true, false, false},
      {"Don't Come 9 Odds", Bet::DontCome9Odds, OddsLose, 9, true, true, false},
      {"Come 9", Bet::Come9, Wins, 9, false, false, false},
      {"Come 9, put bets", Bet::Come9, Wins, 9, true, false, true},
      {"Come 9 Odds, the flat bet gone", Bet::Come9Odds, OddsWin, 9, true, false, false},
      {"Come 9 Odds, the flat bet stands", Bet::Come9Odds, OddsWin, 9, true, true, true},
      {"Place 9", Bet::Place9, Wins, 9, false, false, true},
  };
  for (const Row& row : rows) {
    for (const bool asked : {false, true}) {
      SCOPED_TRACE(std::string(row.name) + (asked ? ", asked" : ""));
      BetsTestTable table;
      Game& g = table.g;
      g.Rules.AllowPutBets = row.puts;
      table.PutPointOn(6);
      g.DiceTotal = row.total;
      if (row.flatStands) table.Stand(FlatOf(row.bet), 10_d);
      table.Stand(row.bet, 10_d);
      g.HandleWinningBets = asked ? static_cast<int>(WinManual) : WinSameBet;
      g.HandleLosingBets = asked ? static_cast<int>(LossManual) : LossSameBet;
      table.host.choices = {row.outcome > 0 ? 1 : 2};  // "Same Bet"
      ResolveBet(g, row.outcome, row.bet);
      EXPECT_EQ(table.Amount(row.bet), row.stays ? 10_d : 0_d);
      EXPECT_FALSE(g.BetMustComeDown);
      ASSERT_EQ(table.host.settled.size(), asked ? 1U : 0U);
      if (asked) {
        EXPECT_EQ(table.host.settled[0].mustComeDown, !row.stays);
      }
    }
  }
}

TEST(Settlement, OddsThatWereNotWorking) {
  struct Row {
    const char* name;
    BetId odds;
    std::int32_t working;
    bool puts;
    bool flatStands;
    bool stays;
  };
  const Row rows[] = {
      {"Come 6 Odds, the flat bet lost", Bet::Come6Odds, Off, false, false, false},
      {"Come 6 Odds, called OFF", Bet::Come6Odds, CalledOff, true, false, false},
      {"Come 6 Odds, no put bets", Bet::Come6Odds, Off, false, true, false},
      {"Come 6 Odds, the flat bet stands", Bet::Come6Odds, Off, true, true, true},
      {"Don't Come 6 Odds", Bet::DontCome6Odds, Off, true, false, false},
      {"Pass Line Odds even with put bets", Bet::PassLineOdds, CalledOff, true, true, false},
      {"Don't Pass Odds even with put bets", Bet::DontPassOdds, CalledOff, true, true, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.Rules.AllowPutBets = row.puts;
    g.HandleWinningBets = WinSameBet;
    table.PutPointOn(6);
    if (row.flatStands) table.Stand(FlatOf(row.odds), 10_d);
    table.Stand(row.odds, 20_d);
    g.BetWorking[row.odds] = row.working;
    ResolveBet(g, Loses, row.odds);
    EXPECT_EQ(table.Amount(row.odds), 20_d) << "a plain decision leaves them alone";
    ResolveBet(g, OddsLose, row.odds);
    EXPECT_EQ(table.Amount(row.odds), row.stays ? 20_d : 0_d);
    EXPECT_EQ(g.BetWorking[row.odds], On);
    EXPECT_EQ(g.PayoffNet, 0_d);
    EXPECT_EQ(g.BetAmount[SlotBankroll], 500_d);
    g.BetWorking[row.odds + 1] = Off;
    ResolveBet(g, OddsLose, row.odds + 1);
    EXPECT_EQ(g.BetWorking[row.odds + 1], Off) << "nothing to return";
  }
}

TEST(Settlement, AutoStopEndsTheRun) {
  for (const bool won : {true, false}) {
    for (const bool hyperDrive : {false, true}) {
      BetsTestTable table;
      Game& g = table.g;
      g.KeepRolling = g.AutoRoll = true;
      g.HyperDriveActive = hyperDrive;
      g.HandleWinningBets = WinTakeDown;
      g.AutoStopOn[won ? StopOnAnyLoss : StopOnAnyWin] = true;
      DecidePlace6(table, won ? Wins : Loses);
      EXPECT_TRUE(g.KeepRolling);
      g.AutoStopOn[won ? StopOnAnyWin : StopOnAnyLoss] = true;
      DecidePlace6(table, won ? Wins : Loses);
      EXPECT_EQ(g.KeepRolling, hyperDrive);
    }
  }
}

TEST(Settlement, BetUnit) {
  struct Row {
    const char* name;
    BetId bet;
    Money amount;
    Money unit;
  };
  const Row rows[] = {
      {"Pass Line 25", Bet::PassLine, 25_d, 5_d},     {"Pass Line 5", Bet::PassLine, 5_d, 1_d},
      {"Pass Line 1", Bet::PassLine, 1_d, 1_d},       {"Pass Line 7", Bet::PassLine, 7_d, 1_d},
      {"Pass Line 500", Bet::PassLine, 500_d, 100_d}, {"Field 25", Bet::Field, 25_d, 5_d},
      {"Place 6 of 12", Bet::Place6, 12_d, 6_d},      {"Place 6 of 60", Bet::Place6, 60_d, 30_d},
      {"Place 6 of 10", Bet::Place6, 10_d, 6_d},      {"Come 6 Odds of 25", Bet::Come6Odds, 25_d, 5_d},
      {"Horn of 40", Bet::Horn, 40_d, 20_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    table.Stand(row.bet, row.amount);
    BetUnit(table.g, row.bet);
    EXPECT_EQ(table.g.BetUnitAmount, row.unit);
  }
}

TEST(Settlement, ComeBetsTravel) {
  struct Row {
    const char* name;
    BetId box;
    BetId number;
    int point;
    bool odds;
    bool removes;
    Money placed;  // left on Place 5
    Money oddsAfter;
    const char* line;
  };
  const Row rows[] = {
      {"Come", Bet::Come, Bet::Come5, 6, false, false, 15_d, 0_d, "      $10 Come bet moved to Come 5"},
      {"Come, odds follow", Bet::Come, Bet::Come5, 6, true, false, 15_d, 20_d,
       "      $10 Come bet moved to Come 5"},
      {"Come on the roll that made the point", Bet::Come, Bet::Come5, 0, true, false, 15_d, 20_d,
       "      $10 Come bet moved to Come 5"},
      {"Come takes Place and Buy down", Bet::Come, Bet::Come5, 6, false, true, 0_d, 0_d,
       "      $10 Come bet moved to Come 5"},
      {"Don't Come takes nothing down", Bet::DontCome, Bet::DontCome5, 6, true, true, 15_d, 30_d,
       "      $10 Don't Come bet moved to Don't Come 5"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.RecordEventsActive = true;
    g.AutoTakeFullOdds = g.AutoLayFullOdds = row.odds;
    g.AutoRemovePlaceBets = row.removes;
    table.SetOdds(2_d, OddsNoPush);
    if (row.point != 0) table.PutPointOn(row.point);
    g.DiceTotal = 5;
    table.Stand(Bet::Place5, 15_d);
    table.Stand(Bet::Place6, 12_d);
    table.Stand(Bet::Buy5, 20_d);
    table.Stand(row.box, 10_d);
    MoveComeBet(g, row.box, row.number);
    EXPECT_EQ(table.Amount(row.box), 0_d);
    EXPECT_EQ(table.Amount(row.number), 10_d);
    EXPECT_EQ(g.BetContract[row.number], 10_d);
    EXPECT_EQ(table.Amount(row.number + 6), row.oddsAfter);
    EXPECT_EQ(table.Amount(Bet::Place5), row.placed);
    EXPECT_EQ(table.Amount(Bet::Buy5), row.placed == 0_d ? 0_d : 20_d);
    EXPECT_EQ(table.Amount(Bet::Place6), 12_d);
    EXPECT_TRUE(TablesAgree(g));
    EXPECT_FALSE(g.TravelPass);
    EXPECT_TRUE(table.host.sounds.empty()) << "the player has moved no chips";
    FlushEventsLog(g);
    EXPECT_EQ(table.log.lines, std::vector<std::string>{row.line});
    MoveComeBet(g, row.box, row.number);
    FlushEventsLog(g);
    EXPECT_EQ(table.log.lines.size(), 1U) << "an empty box moves nothing";
  }
}

}  // namespace
}  // namespace rollwick
