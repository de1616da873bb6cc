// A new game and the opening of the house: what is cleared, what is kept, which bankroll it begins with.
#include <gtest/gtest.h>

#include <algorithm>

#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "engine/game/NewGame.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

using Lines = std::vector<std::string>;

void Put(Game& g, BetId bet, int dollars) {
  g.BetDelta = Dollars(dollars);
  PlaceChips(g, bet);
  ASSERT_EQ(g.BetDeltaApplied, Dollars(dollars)) << BetName(bet);
}

void Roll(Game& g, int die1, int die2) {
  g.ManualDie1 = die1;
  g.ManualDie2 = die2;
  g.ManualRollPending = true;
  RollDice(g);
}

struct NewGameTable : TestTable {
  NewGameTable() {
    g.AutoAdjustBetAmounts = AdjustManual;
    g.HandleWinningBets = WinTakeDown;
    g.Rules.NotifyFlags = 0;
  }
};

TEST(NewGame, TheBankrollItBeginsWith) {
  struct Row {
    const char* name;
    BankrollInit type;
    int remembered;
    std::deque<std::string> entries;  // what the player types into the prompt
    bool asked;
    const char* bankroll;
    const char* invested;
    const char* initAmount;
  };
  const Row kRows[] = {
      {"a set amount", StartWithAmount, 321, {"77"}, false, "800", "800", "800"},
      {"a set amount after the bank was broken", StartWithAmount, 10'000'000, {}, false, "800", "800", "800"},
      {"asked", StartByPrompt, 321, {"1234.5"}, true, "1234.5", "1234.5", "1234.5"},
      {"asked, just accepted", StartByPrompt, 321, {}, true, "800", "800", "800"},
      {"asked, no number", StartByPrompt, 321, {"ten"}, true, "800", "800", "800"},
      {"asked, above the limit", StartByPrompt, 321, {"10000000"}, true, "9999999", "9999999", "9999999"},
      {"asked, below it", StartByPrompt, 321, {"-10000000"}, true, "-9999999", "-9999999", "-9999999"},
      {"carried", CarryBankroll, 321, {"77"}, false, "321", "321", "800"},
      {"carried with its net", CarryBankrollAndNet, 321, {"77"}, false, "321", "450", "800"},
      {"carried at the limit", CarryBankroll, 9'999'999, {"77"}, false, "9999999", "9999999", "800"},
      {"too much to carry", CarryBankroll, 10'000'000, {"77"}, true, "77", "77", "77"},
      {"too much to carry with its net", CarryBankrollAndNet, 12'000'000, {"77"}, true, "77", "450", "77"},
      {"too great a loss to carry", CarryBankroll, -10'000'000, {"77"}, true, "77", "77", "77"},
      {"a loss carried at the limit",
       CarryBankroll,
       -9'999'999,
       {"77"},
       false,
       "-9999999",
       "-9999999",
       "800"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    NewGameTable t;
    t.g.Rules.BankrollInitType = row.type;
    t.g.Rules.BankrollInitAmount = Dollars(800);
    t.g.BetAmount[SlotBankroll] = Dollars(row.remembered);
    t.g.InvestedBankroll = Dollars(450);
    t.host.entries = row.entries;
    t.g.KeepRolling = t.g.AutoBetRunning = true;  // a script's reset
    NewGame(t.g, false);
    EXPECT_EQ(PlainText(t.Amount(SlotBankroll)), row.bankroll);
    EXPECT_EQ(PlainText(t.g.InvestedBankroll), row.invested);
    EXPECT_EQ(PlainText(t.g.Rules.BankrollInitAmount), row.initAmount);
    const Money bankroll = t.Amount(SlotBankroll);
    for (const Money same : {t.g.BetAtThrow[0], t.g.BetAfterSettle[0], t.g.BankrollHigh, t.g.BankrollLow,
                             t.g.GraphHigh, t.g.GraphLow}) {
      EXPECT_EQ(same, bankroll);
    }
    EXPECT_EQ(t.g.Rules.AllowNegBankroll, bankroll < Money()) << "the game could not go on";
    EXPECT_EQ(t.g.KeepRolling, !row.asked) << "a script rolls on, but not over a prompt";
    ASSERT_EQ(t.host.prompts.size(), row.asked ? 1u : 0u);
    if (!row.asked) continue;
    EXPECT_EQ(t.host.prompts[0].text, "Enter your beginning bankroll: ");
    EXPECT_EQ(t.host.prompts[0].title, "Set Beginning Bankroll");
    EXPECT_EQ(t.host.prompts[0].preset, "800");
  }
}

TEST(NewGame, APlayersNewGameEndsTheRun) {
  NewGameTable t;
  t.g.KeepRolling = true;
  NewGame(t.g, false);
  EXPECT_FALSE(t.g.KeepRolling);
}

TEST(NewGame, ClearsTheTable) {
  for (const bool keepStacks : {false, true}) {
    SCOPED_TRACE(keepStacks ? "stacks kept" : "stacks cleared");
    NewGameTable t;
    Game& g = t.g;
    Put(g, Bet::PassLine, 10);
    Put(g, Bet::Lay4, 40);
    Put(g, Bet::Buy10, 25);
    Roll(g, 3, 3);
    Put(g, Bet::Come, 10);
    Put(g, Bet::Place8, 12);
    Roll(g, 4, 1);
    CallBet(g, Bet::Place8, false);
    CallBet(g, Bet::Lay4, true);
    g.BetDelta = Dollars(-7);
    ChangeBet(g, SlotChipStack);
    g.BetDelta = Dollars(70);
    ChangeBet(g, SlotLastChipStack);
    g.ChipStackName[99] = "Reserve";
    Roll(g, 4, 5);
    g.AutoRollsSet = 9;
    g.AutoRollsLeft = 2;
    g.StopMessage = "old";
    g.BetAmount[SlotChipDenom] = Dollars(1);
    const auto stacksBefore = g.BetAmount;
    const auto workingDefault = g.BetWorkingDefault;

    NewGame(g, keepStacks);
    for (BetId bet = 1; bet <= kBetCount; ++bet) {
      EXPECT_EQ(g.BetAmount[bet], Money()) << bet;
      EXPECT_EQ(g.BetAtThrow[bet], Money()) << bet;
      EXPECT_EQ(g.BetAfterSettle[bet], Money()) << bet;
      EXPECT_EQ(g.BetWorking[bet], workingDefault[bet]) << BetName(bet);
      EXPECT_EQ(g.InActionAfterSettle.Has(bet), workingDefault[bet] == On) << BetName(bet);
      EXPECT_FALSE(g.CalledAfterSettle.Has(bet)) << BetName(bet);
    }
    for (const Money contract : g.BetContract) EXPECT_EQ(contract, Money());
    for (const Money vig : g.LayVigAmount) EXPECT_EQ(vig, Money());
    for (const Money vig : g.BuyVigAmount) EXPECT_EQ(vig, Money());
    EXPECT_EQ(g.TotalBets, Money());
    for (BetId stack = SlotChipStack; stack <= SlotLastChipStack; ++stack) {
      EXPECT_EQ(g.BetAmount[stack], keepStacks ? stacksBefore[stack] : Money()) << stack;
    }
    EXPECT_EQ(g.ChipStackName[99], keepStacks ? "Reserve" : "");
    for (int chip = SlotChipDenom; chip < SlotChipDenom + kChipCount; ++chip) {
      EXPECT_EQ(g.BetAmount[chip], stacksBefore[chip]) << "denominations stay";
    }
    EXPECT_EQ(g.Point, 0);
    EXPECT_EQ(g.PointBeforeRoll, 0);
    EXPECT_EQ(g.PointBeforeLast, 0);
    EXPECT_EQ(g.Die1, 4) << "the dice lie as they fell";
    EXPECT_EQ(g.Die2, 5);
    EXPECT_EQ(g.DiceTotal, 9);
    EXPECT_EQ(g.AutoRollsLeft, 9);
    EXPECT_EQ(g.StopMessage, "");
    EXPECT_FALSE(g.TableDirty);
  }
}

TEST(NewGame, ForgetsEverythingCounted) {
  NewGameTable t;
  Game& g = t.g;
  for (const auto& [die1, die2] : {std::pair{3, 3}, {1, 2}, {3, 4}, {2, 2}, {6, 1}, {5, 6}}) {
    Put(g, Bet::Field, 5);
    Roll(g, die1, die2);
  }
  g.GraphUnit = Dollars(10);
  g.GraphTop = Dollars(5000);
  NewGame(g, false);
  EXPECT_EQ(g.RollEventCount, StatisticsTables().RollEventCount);
  EXPECT_EQ(g.RollsSinceEvent, StatisticsTables().RollsSinceEvent);
  EXPECT_EQ(g.RollGapHistogram, StatisticsTables().RollGapHistogram);
  EXPECT_EQ(g.TrackedEventCount, StatisticsTables().TrackedEventCount);
  EXPECT_EQ(g.TrackedEventCountBefore, StatisticsTables().TrackedEventCountBefore);
  EXPECT_EQ(g.TrackedRollBase, StatisticsTables().TrackedRollBase);
  EXPECT_EQ(g.TrackedRollBaseBefore, StatisticsTables().TrackedRollBaseBefore);
  EXPECT_EQ(g.BetStreak, StatisticsTables().BetStreak);
  EXPECT_EQ(g.HandStats, StatisticsTables().HandStats);
  EXPECT_TRUE(g.BetWagers == BetStatTable{} && g.BetWins == BetStatTable{} && g.BetLosses == BetStatTable{});
  EXPECT_EQ(g.BankrollRollSum, Money());
  EXPECT_EQ(g.BankrollHistoryCount, 0);
  EXPECT_EQ(g.BankrollHistory[0], Dollars(1));
  EXPECT_EQ(g.GraphUnit, Dollars(1));
  EXPECT_EQ(g.GraphTop, Dollars(150));
}

TEST(NewGame, TheFirstRollTellsNothingOfTheOldTable) {
  NewGameTable t;
  Game& g = t.g;
  Put(g, Bet::PassLine, 10);
  Roll(g, 3, 3);
  Put(g, Bet::Come, 10);
  Put(g, Bet::DontCome, 10);
  g.Rules.BankrollInitAmount = Dollars(700);
  Roll(g, 4, 4);
  NewGame(g, false);
  g.RecordEventsActive = true;
  Roll(g, 6, 3);
  EXPECT_EQ(t.log.lines, (Lines{" Roll #1:  9 (6.3) from manual roll pad", "      Point established"}));
}

TEST(NewGame, WhatTheLogIsTold) {
  const std::string separator(38, '=');
  const std::string shooter = "------New shooter coming out----------";
  struct Row {
    const char* name;
    bool active, shooterChanges, reseed, clear, empty;
    Lines lines;  // after what the log held before
  };
  const Row kRows[] = {
      {"the first game",
       true,
       true,
       true,
       false,
       true,
       {" New game started", "      Beginning bankroll: $1500", "      RNG #1 seeded: 42", shooter}},
      {"a further game",
       true,
       true,
       true,
       false,
       false,
       {separator, " New game started", "      Beginning bankroll: $1500", "      RNG #1 seeded: 42",
        shooter}},
      {"cleared before",
       true,
       true,
       true,
       true,
       false,
       {" New game started", "      Beginning bankroll: $1500", "      RNG #1 seeded: 42", shooter}},
      {"the generator runs on",
       true,
       true,
       false,
       false,
       true,
       {" New game started", "      Beginning bankroll: $1500", shooter}},
      {"no shooters",
       true,
       false,
       false,
       false,
       true,
       {" New game started", "      Beginning bankroll: $1500"}},
      {"no log", false, true, true, false, true, {}},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    NewGameTable t;
    if (!row.empty) t.log.lines = {"an older line"};
    t.g.RecordEventsActive = row.active;
    t.g.RecordShooterChanges = row.shooterChanges;
    t.g.ReseedNewGames = row.reseed;
    t.g.LogClearOnNewGame = row.clear;
    t.g.CurrentSeed = 42;
    t.g.Rules.BankrollInitAmount = Dollars(1500);
    NewGame(t.g, false);
    Lines expected = row.lines;
    if (!row.empty && !row.clear) expected.insert(expected.begin(), "an older line");
    EXPECT_EQ(t.log.lines, expected);
  }
}

TEST(NewGame, SeedsTheGeneratorAnewIfAsked) {
  for (const bool reseed : {true, false}) {
    SCOPED_TRACE(reseed);
    NewGameTable t;
    t.host.clock = 987'654;
    t.g.CurrentSeed = t.g.LastSeed = 42;
    t.g.ReseedNewGames = reseed;
    NewGame(t.g, false);
    EXPECT_EQ(t.g.LastSeed, reseed ? 987'654 : 42);
  }
}

TEST(NewGame, AUserSeedIsAskedForBehindTheBankrollAndEndsTheRun) {
  NewGameTable t;
  t.g.UserSeedMode = true;
  t.g.Rules.BankrollInitType = StartByPrompt;
  t.g.KeepRolling = t.g.AutoBetRunning = true;
  t.host.entries = {"600", "31"};
  NewGame(t.g, true);
  ASSERT_EQ(t.host.prompts.size(), 2u);
  EXPECT_EQ(t.host.prompts[0].title, "Set Beginning Bankroll");
  EXPECT_EQ(t.host.prompts[1].title, "RNG Seed");
  EXPECT_EQ(t.g.LastSeed, 31);
  EXPECT_EQ(t.Amount(SlotBankroll), Dollars(600));
  EXPECT_FALSE(t.g.KeepRolling);
}

TEST(StartUp, OpensTheHouse) {
  TestTable t;
  Game& g = t.g;
  g.BetAmount[Bet::Field] = Dollars(1);
  g.Point = 6;
  StartUp(g);
  EXPECT_EQ(g.RngChoice, RngMersenne);
  EXPECT_EQ(g.Point, 0);
  EXPECT_EQ(g.BetAmount[Bet::Field], Money());
  for (const Money same : {g.BetAmount[0], g.BetAtThrow[0], g.BetAfterSettle[0], g.BankrollHigh,
                           g.BankrollLow, g.GraphHigh, g.GraphLow, g.InvestedBankroll}) {
    EXPECT_EQ(same, Dollars(500));
  }
  EXPECT_EQ(g.BankrollHistory[0], Dollars(1));
  EXPECT_EQ(g.GraphUnit, Dollars(1));
  EXPECT_EQ(g.GraphTop, Dollars(150));

  // Off on the come-out: Come odds, Place, Buy, line odds and the two boxes.
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const bool off = (bet >= 25 && bet <= 42) || bet == 44 || bet == 45 || bet == 47 || bet == 48;
    EXPECT_EQ(g.BetWorkingDefault[bet], off ? 0 : 1) << BetName(bet);
    EXPECT_EQ(g.BetWorking[bet], off ? 0 : 1) << BetName(bet);
  }

  g.RecordEventsActive = true;
  Roll(g, 1, 2);
  EXPECT_EQ(t.log.lines, (Lines{" Roll #1:  3 (1.2) from manual roll pad", "      Miss (craps natural)"}))
      << "no withdrawal nobody made";
  EXPECT_EQ(g.BankrollLow, Dollars(500));
}

}  // namespace
}  // namespace rollwick
