// The roll as a player and a reader of the Events Log see it: every line to the letter, and what ends a run.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "engine/bets/Bankroll.h"
#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kSelectNew = "\r\rSelect \"New\" from the \"Game\" menu to reset the table.";

struct RollTable : TestTable {
  RollTable() {
    g.AutoAdjustBetAmounts = AdjustManual;
    g.HandleWinningBets = WinTakeDown;
    g.HandleLosingBets = LossTakeDown;
    g.Rules.NotifyFlags = 0;
  }
  void Put(BetId bet, int dollars) {
    g.BetDelta = Dollars(dollars);
    PlaceChips(g, bet);
    ASSERT_EQ(g.BetDeltaApplied, Dollars(dollars)) << BetName(bet);
  }
  void Roll(int die1, int die2) {
    g.ManualDie1 = die1;
    g.ManualDie2 = die2;
    g.ManualRollPending = true;
    RollDice(g);
  }
  Lines LinesOf(int die1, int die2) {
    g.RecordEventsActive = true;
    log.lines.clear();
    Roll(die1, die2);
    return log.lines;
  }
};

// A world that does something while the auto-roll delay runs or the dice fly.
struct BusyHost : ScriptedHost {
  std::function<void(Game&)> onWait = [](Game& g) { g.KeepRolling = false; };
  std::function<void(Game&)> onDice;
  std::vector<std::uint32_t> waits;
  bool commits = true;

  void Wait(Game& g, std::uint32_t milliseconds) override {
    waits.push_back(milliseconds);
    onWait(g);
  }
  void AnimateDice(Game& g) override {
    if (onDice) onDice(g);
  }
  bool CommitTypedBet(Game&) override { return commits; }
};

struct Put {
  BetId bet;
  int dollars;
};
struct Step {
  const char* name;
  std::vector<Put> puts;
  int die1, die2;
  Lines lines;
};

void PlayAndCompare(const std::vector<Step>& steps) {
  RollTable t;
  for (const Step& step : steps) {
    SCOPED_TRACE(step.name);
    for (const Put& put : step.puts) t.Put(put.bet, put.dollars);
    EXPECT_EQ(t.LinesOf(step.die1, step.die2), step.lines);
  }
}

TEST(EventsLogLines, LineBets) {
  PlayAndCompare({
      {"seven on the come-out",
       {{Bet::PassLine, 10}, {Bet::DontPass, 5}},
       3,
       4,
       {"      $10 bet on Pass Line", "      $5 bet on Don't Pass", " Roll #1:  7 (3.4) from manual roll pad",
        "      Pass (natural)", "      Don't Pass bet lost $5", "      Pass Line bet won $10",
        "      Bankroll increased to $505 ($5 gain)"}},
      {"a winner taken down is removed, a loser is not",
       {},
       1,
       1,
       {"      Pass Line bet removed", " Roll #2:  2 (1.1) from manual roll pad",
        "      Miss (craps natural)"}},
      {"the barred twelve",
       {{Bet::PassLine, 10}, {Bet::DontPass, 5}},
       6,
       6,
       {"      $10 bet on Pass Line", "      $5 bet on Don't Pass",
        " Roll #3:  12 (6.6) from manual roll pad", "      Miss (craps natural)",
        "      Pass Line bet lost $10", "      Bankroll decreased to $495 ($10 loss)"}},
      {"eleven: its pass comes with the bets; more than at the last throw",
       {{Bet::PassLine, 20}},
       5,
       6,
       {"      Pass Line bet increased to $20", " Roll #4:  11 (5.6) from manual roll pad",
        "      Pass (natural)", "      Pass Line bet won $20", "      Don't Pass bet lost $5",
        "      Bankroll increased to $510 ($15 gain)"}},
      {"a point; less than at the last throw, and the same again",
       {{Bet::PassLine, 10}, {Bet::DontPass, 5}},
       2,
       2,
       {"      Pass Line bet decreased to $10", " Roll #5:  4 (2.2) from manual roll pad",
        "      Point established"}},
      {"the point made",
       {{Bet::PassLineOdds, 10}, {Bet::Hard4, 1}},
       3,
       1,
       {"      $10 bet on Pass Line Odds", "      $1 bet on Hard 4",
        " Roll #6:  4 (3.1) from manual roll pad", "      Pass (point rolled)", "      Pass Line bet won $10",
        "      Pass Line Odds bet won $20", "      Don't Pass bet lost $5", "      Hard 4 bet lost $1",
        "      Bankroll increased to $534 ($24 gain)"}},
      {"a second point",
       {{Bet::PassLine, 10}},
       4,
       5,
       {"      Pass Line Odds bet removed", " Roll #7:  9 (4.5) from manual roll pad",
        "      Point established"}},
      {"neither", {}, 1, 2, {" Roll #8:  3 (1.2) from manual roll pad"}},
      {"the new shooter comes after the bankroll",
       {},
       3,
       4,
       {" Roll #9:  7 (3.4) from manual roll pad", "      Miss (seven-out)", "      Pass Line bet lost $10",
        "      Bankroll decreased to $524 ($10 loss)", "------New shooter coming out----------"}},
  });
}

TEST(EventsLogLines, TravellingBets) {
  PlayAndCompare({
      {"a point", {}, 3, 3, {" Roll #1:  6 (3.3) from manual roll pad", "      Point established"}},
      {"both boxes travel, the Don't Come first",
       {{Bet::Come, 10}, {Bet::DontCome, 10}},
       4,
       4,
       {"      $10 bet on Come", "      $10 bet on Don't Come", " Roll #2:  8 (4.4) from manual roll pad",
        "      $10 Don't Come bet moved to Don't Come 8", "      $10 Come bet moved to Come 8"}},
      {"only the Come number is told again",
       {},
       4,
       5,
       {"      $10 bet on Come 8", " Roll #3:  9 (4.5) from manual roll pad"}},
      {"one Come bet wins and the next takes its place",
       {{Bet::Come, 15}},
       6,
       2,
       {"      $15 bet on Come", " Roll #4:  8 (6.2) from manual roll pad", "      Don't Come 8 bet lost $10",
        "      Come 8 bet won $10", "      $15 Come bet moved to Come 8"}},
      {"increased by the one that travelled; a fresh one behind it",
       {{Bet::Come, 15}},
       5,
       3,
       {"      Come 8 bet increased to $15", "      $15 bet on Come",
        " Roll #5:  8 (5.3) from manual roll pad", "      Come 8 bet won $15",
        "      $15 Come bet moved to Come 8", "      Bankroll increased to $515 ($15 gain)"}},
      {"still the same amount",
       {{Bet::Come, 5}},
       5,
       3,
       {"      Come 8 bet still $15", "      $5 bet on Come", " Roll #6:  8 (5.3) from manual roll pad",
        "      Come 8 bet won $15", "      $5 Come bet moved to Come 8",
        "      Bankroll increased to $530 ($15 gain)"}},
      {"decreased by the one that travelled; a Don't Come goes to 5",
       {{Bet::DontCome, 10}},
       4,
       1,
       {"      Come 8 bet decreased to $5", "      $10 bet on Don't Come",
        " Roll #7:  5 (4.1) from manual roll pad", "      $10 Don't Come bet moved to Don't Come 5"}},
      {"a Don't Come number reduced right after its travel",
       {{Bet::DontCome5, -4}, {Bet::DontCome, 10}},
       6,
       3,
       {"      Don't Come 5 bet decreased to $6", "      $10 bet on Don't Come",
        " Roll #8:  9 (6.3) from manual roll pad", "      $10 Don't Come bet moved to Don't Come 9"}},
      {"a Don't Come number taken down right after its travel",
       {{Bet::DontCome9, -10}, {Bet::DontCome, 7}},
       6,
       6,
       {"      Don't Come 9 bet removed", "      $7 bet on Don't Come",
        " Roll #9:  12 (6.6) from manual roll pad"}},
      {"pushed by the barred twelve it is told again",
       {},
       5,
       6,
       {"      $7 bet on Don't Come", " Roll #10:  11 (5.6) from manual roll pad",
        "      Don't Come bet lost $7", "      Bankroll decreased to $523 ($7 loss)"}},
      {"a come-out seven is no seven-out: first the point",
       {},
       1,
       5,
       {" Roll #11:  6 (1.5) from manual roll pad", "      Pass (point rolled)"}},
      {"then the seven",
       {},
       3,
       4,
       {" Roll #12:  7 (3.4) from manual roll pad", "      Pass (natural)", "      Come 8 bet lost $5",
        "      Don't Come 5 bet won $6", "      Bankroll increased to $524 ($1 gain)"}},
  });
}

TEST(EventsLogLines, ButtonsStacksAndAtm) {
  RollTable t;
  t.Put(Bet::Place6, 12);
  t.Put(Bet::Hard8, 1);
  CallBet(t.g, Bet::Place6, false);
  EXPECT_EQ(t.LinesOf(2, 2),
            (Lines{"      $12 bet on Place 6", "      Place 6 bet called OFF", "      $1 bet on Hard 8",
                   " Roll #1:  4 (2.2) from manual roll pad", "      Point established"}));
  EXPECT_EQ(t.LinesOf(5, 4), (Lines{" Roll #2:  9 (5.4) from manual roll pad"})) << "a button is told once";
  CallBet(t.g, Bet::Place6, true);
  CallBet(t.g, Bet::Hard8, true);
  EXPECT_EQ(t.LinesOf(5, 4), (Lines{"      Place 6 bet, OFF button removed", "      Hard 8 bet called ON",
                                    " Roll #3:  9 (5.4) from manual roll pad"}));
  CallBet(t.g, Bet::Hard8, false);
  CallBet(t.g, Bet::Place6, false);
  EXPECT_EQ(t.LinesOf(5, 4), (Lines{"      Place 6 bet called OFF", "      Hard 8 bet, ON button removed",
                                    " Roll #4:  9 (5.4) from manual roll pad"}));

  t.Put(SlotChipStack, -40);
  t.Put(SlotChipStack + 7, 1234);
  t.g.BetDelta = Money::FromUnits(25'000);
  ChangeBet(t.g, SlotLastChipStack);
  AtmTransaction(t.g, AtmDirection::Withdraw, Dollars(1000));
  EXPECT_EQ(t.LinesOf(5, 4),
            (Lines{"      Bankroll increased to $1500 ($1000 ATM withdrawal)",
                   "      Chip-Stack #0 decreased to $-40", "      Chip-Stack #7 increased to $1234",
                   "      Chip-Stack #99 increased to $2.5", " Roll #5:  9 (5.4) from manual roll pad"}));
  AtmTransaction(t.g, AtmDirection::Deposit, Dollars(250));
  t.Put(Bet::Place6, -12);
  EXPECT_EQ(t.LinesOf(5, 4), (Lines{"      Bankroll decreased to $1250 ($250 ATM deposit)",
                                    "      Place 6 bet removed", " Roll #6:  9 (5.4) from manual roll pad"}));
}

TEST(EventsLogLines, EverySwitchSparesItsOwnLinesOnly) {
  struct Row {
    bool OptionTables::*owner;
    const char* line;
  };
  const Row kRows[] = {
      {&OptionTables::RecordBankrollChanges, "      Bankroll increased to $600 ($100 ATM withdrawal)"},
      {&OptionTables::RecordBetChanges, "      $1 bet on Field"},
      {&OptionTables::RecordBetChanges, "      $2 bet on Seven"},
      {&OptionTables::RecordChipStackChanges, "      Chip-Stack #1 increased to $5"},
      {&OptionTables::RecordRolls, " Roll #2:  7 (6.1) from manual roll pad"},
      {&OptionTables::RecordPassesMisses, "      Miss (seven-out)"},
      {&OptionTables::RecordBetsWon, "      Seven bet won $8"},
      {&OptionTables::RecordBetsLost, "      Field bet lost $1"},
      {&OptionTables::RecordBankrollChanges, "      Bankroll increased to $607 ($7 gain)"},
      {&OptionTables::RecordShooterChanges, "------New shooter coming out----------"},
  };
  const auto linesWithout = [](bool OptionTables::*off) {
    RollTable t;
    t.Roll(2, 2);
    AtmTransaction(t.g, AtmDirection::Withdraw, Dollars(100));
    t.Put(Bet::Field, 1);
    t.Put(Bet::Seven, 2);
    t.Put(SlotChipStack + 1, 5);
    t.g.*off = false;
    return t.LinesOf(6, 1);
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.line);
    Lines others;
    for (const Row& other : kRows) {
      if (other.owner != row.owner) others.emplace_back(other.line);
    }
    EXPECT_EQ(linesWithout(row.owner), others);
  }
}

TEST(EventsLogLines, NoneWithTheMasterSwitchOff) {
  RollTable t;
  t.Put(Bet::Field, 1);
  t.Roll(1, 1);
  EXPECT_TRUE(t.log.lines.empty());
}

TEST(EventsLogLines, ARollOfAGeneratorNamesIt) {
  RollTable t;
  t.g.RecordEventsActive = true;
  t.g.RngChoice = RngRan1;
  RollDice(t.g);
  const auto text = [](int number) { return std::to_string(number); };
  ASSERT_FALSE(t.log.lines.empty());
  EXPECT_EQ(t.log.lines[0], " Roll #1:  " + text(t.g.DiceTotal) + " (" + text(t.g.Die1) + "." +
                                text(t.g.Die2) + ") from RNG #5");
  t.g.RollCount() = 1'233'455;
  EXPECT_EQ(t.LinesOf(1, 1)[0], " Roll #1233456:  2 (1.1) from manual roll pad");
}

TEST(EventsLogLines, HyperDriveWritesThemToo) {
  RollTable t;
  t.g.RecordEventsActive = true;
  t.g.AutoRollsSet = t.g.AutoRollsLeft = 700;
  ToggleHyperDrive(t.g);
  const auto rolls = std::count_if(t.log.lines.begin(), t.log.lines.end(),
                                   [](const std::string& line) { return line.starts_with(" Roll #"); });
  EXPECT_EQ(rolls, 700);
}

TEST(RollLimit, TheNextRollIsRefusedAfterAHundredMillion) {
  const std::string limit = std::string("100,000,000 rolls.") + kSelectNew;
  RollTable t;
  t.g.RollCount() = 99'999'999;
  t.Roll(1, 1);
  EXPECT_EQ(t.g.RollCount(), 100'000'000);
  EXPECT_EQ(t.TakeMessage(), "");

  t.Put(Bet::Field, 1);
  t.g.KeepRolling = true;
  RollDice(t.g);
  ASSERT_EQ(t.host.messages.size(), 1u);
  EXPECT_EQ(t.host.messages[0].title, "Reached Maximum Roll Limit");
  EXPECT_EQ(t.TakeMessage(), "Sorry ... you've reached the maximum limit of " + limit);
  EXPECT_EQ(t.g.RollCount(), 100'000'000);
  EXPECT_EQ(t.Amount(Bet::Field), Dollars(1)) << "no bet is touched";
  EXPECT_FALSE(t.g.KeepRolling);

  t.g.RollCount() = 99'999'997;
  ToggleHyperDrive(t.g);
  EXPECT_EQ(t.g.RollCount(), 100'000'000);
  ASSERT_EQ(t.host.messages.size(), 1u);
  EXPECT_EQ(t.host.messages[0].title, "Hyper-Drive Stopped");
  EXPECT_EQ(t.TakeMessage(), "Stopped due to reaching the maximum limit of " + limit);
}

TEST(BankLimit, StopsBeforeAndAfterARoll) {
  struct Row {
    const char* name;
    int bankroll;
    BetId bet;  // a hundred on it
    int rolls;  // counted
    const char* message;
  };
  const std::string won =
      std::string("Congratulations!\r\rYou broke the bank limit of $9,999,999") + kSelectNew;
  const std::string lost =
      std::string(
          "Sorry ... this wasn't your lucky day.\r\rYou've exceeded the max loss limit of $9,999,999") +
      kSelectNew;
  const Row kRows[] = {
      {"at the limit", 9'999'999, 0, 1, ""},
      {"above it before the roll", 10'000'000, 0, 0, won.c_str()},
      {"brought to the limit by the roll", 9'999'899, Bet::PassLine, 1, ""},
      {"brought above it by the roll", 9'999'900, Bet::PassLine, 1, won.c_str()},
      {"at the loss limit", -9'999'999, 0, 1, ""},
      {"below it before the roll", -10'000'000, 0, 0, lost.c_str()},
      {"brought below it by the roll", -9'999'900, Bet::DontPass, 1, lost.c_str()},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    RollTable t;
    t.g.Rules.AllowNegBankroll = true;
    t.g.BetAmount[SlotBankroll] = t.g.BetAfterSettle[SlotBankroll] = Dollars(row.bankroll);
    if (row.bet != 0) t.Put(row.bet, 100);
    t.g.AutoRollsSet = t.g.AutoRollsLeft = 5;
    t.g.AutoRoll = t.g.KeepRolling = true;
    BusyHost host;
    t.g.TheHost = &host;
    t.Roll(3, 4);
    const bool stopped = *row.message != '\0';
    EXPECT_EQ(t.g.RollCount(), row.rolls);
    EXPECT_EQ(t.g.AutoRollsLeft, 5 - row.rolls) << "a roll that breaks the limit is complete";
    EXPECT_EQ(host.waits.size(), stopped ? 0u : 1u) << "no further roll is waited for";
    EXPECT_FALSE(t.g.KeepRolling);
    EXPECT_FALSE(t.g.RollInProgress);
    ASSERT_EQ(host.messages.size(), stopped ? 1u : 0u);
    if (stopped) {
      EXPECT_EQ(host.messages[0].text, row.message);
      EXPECT_EQ(host.messages[0].title, "Rollwick");
    }
  }
}

TEST(BankLimit, InHyperDriveItIsTheStopMessage) {
  struct Row {
    const char* name;
    int bankroll;
    BetId bet;
    const char* text;
  };
  constexpr Row kRows[] = {
      {"won", 9'999'950, Bet::PassLine, "Stopped by breaking the bank limit of $9,999,999"},
      {"lost", -9'999'950, Bet::DontPass, "Stopped by exceeding the max loss limit of $9,999,999"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    RollTable t;
    t.g.Rules.AllowNegBankroll = true;
    t.g.BetAmount[SlotBankroll] = Dollars(row.bankroll);
    t.Put(row.bet, 100);
    t.host.sounds.clear();
    t.g.ManualDie1 = 3;
    t.g.ManualDie2 = 4;
    t.g.ManualRollPending = true;
    ToggleHyperDrive(t.g);
    EXPECT_EQ(t.g.RollCount(), 1);
    ASSERT_EQ(t.host.messages.size(), 1u);
    EXPECT_EQ(t.host.messages[0].title, "Hyper-Drive Stopped");
    EXPECT_EQ(t.TakeMessage(), std::string(row.text) + kSelectNew);
    EXPECT_EQ(std::ranges::count(t.host.sounds, Sound::BrokeTheBank), 0);

    ToggleHyperDrive(t.g);
    EXPECT_EQ(t.g.RollCount(), 1);
    EXPECT_FALSE(t.g.HyperDriveActive);
    ASSERT_EQ(t.host.messages.size(), 1u);
    EXPECT_EQ(t.host.messages[0].title, "Rollwick") << "a further start is refused in a dialog";
  }
}

TEST(BankLimit, TheChipsRainOnce) {
  RollTable t;
  t.g.BetAmount[SlotBankroll] = Dollars(9'999'950);
  t.Put(Bet::PassLine, 100);
  t.Roll(3, 4);
  const auto rains = [&t] {
    return std::count(t.host.sounds.begin(), t.host.sounds.end(), Sound::BrokeTheBank);
  };
  EXPECT_EQ(rains(), 1);
  RollDice(t.g);
  EXPECT_EQ(rains(), 1);
  EXPECT_EQ(t.host.messages.size(), 2u);
}

TEST(RollDice, RefusesWhatComesAtTheWrongTime) {
  RollTable t;
  BusyHost host;
  t.g.TheHost = &host;
  host.onDice = [](Game& g) { RollDice(g); };
  t.Roll(1, 2);
  EXPECT_EQ(t.g.RollCount(), 1) << "a roll inside a roll is none";

  host.commits = false;
  t.g.KeepRolling = true;
  RollDice(t.g);
  EXPECT_EQ(t.g.RollCount(), 1) << "an amount that is typed wrong holds the dice";
  EXPECT_FALSE(t.g.KeepRolling);
}

TEST(RollDice, ShiftsWhatTheRollBeforeLeft) {
  RollTable t;
  struct Row {
    const char* name;
    int die1, die2, point, before, beforeLast, prev1, prev2;
  };
  constexpr Row kRows[] = {
      {"a point", 1, 3, 4, 0, 0, 3, 4},         {"no decision", 5, 1, 4, 4, 0, 1, 3},
      {"seven-out", 2, 5, 0, 4, 4, 5, 1},       {"come-out craps", 1, 1, 0, 0, 4, 2, 5},
      {"the next point", 6, 4, 10, 0, 0, 1, 1}, {"made", 5, 5, 0, 10, 0, 6, 4},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    t.Roll(row.die1, row.die2);
    EXPECT_EQ(t.g.Point, row.point);
    EXPECT_EQ(t.g.PointBeforeRoll, row.before);
    EXPECT_EQ(t.g.PointBeforeLast, row.beforeLast);
    EXPECT_EQ(t.g.PrevDie1, row.prev1);
    EXPECT_EQ(t.g.PrevDie2, row.prev2);
    EXPECT_EQ(t.g.DiceTotal, row.die1 + row.die2);
    EXPECT_FALSE(t.g.ManualRollPending);
    EXPECT_TRUE(t.g.TableDirty);
  }
}

TEST(AutoRoll, StopsOnTheDiceThatWereAskedFor) {
  struct Row {
    const char* name;
    AutoStop item;
    int total;
    bool hardOnly;
  };
  constexpr Row kRows[] = {
      {"2", StopOn2, 2, false},
      {"3", StopOn3, 3, false},
      {"any 4", StopOn4, 4, false},
      {"hard 4", StopOnHard4, 4, true},
      {"5", StopOn5, 5, false},
      {"any 6", StopOn6, 6, false},
      {"hard 6", StopOnHard6, 6, true},
      {"7", StopOn7, 7, false},
      {"any 8", StopOn8, 8, false},
      {"hard 8", StopOnHard8, 8, true},
      {"9", StopOn9, 9, false},
      {"any 10", StopOn10, 10, false},
      {"hard 10", StopOnHard10, 10, true},
      {"11", StopOn11, 11, false},
      {"12", StopOn12, 12, false},
  };
  static_assert(std::size(kRows) == kAutoStopCount - 2);
  RollTable t;
  BusyHost host;
  t.g.TheHost = &host;
  t.g.AutoRoll = true;
  t.g.AutoRollDelay = 7;
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    t.g.AutoStopOn.fill(false);
    t.g.AutoStopOn[row.item] = true;
    for (int pair = 0; pair < 36; ++pair) {
      const int die1 = pair / 6 + 1, die2 = pair % 6 + 1;
      host.waits.clear();
      t.g.KeepRolling = true;
      t.Roll(die1, die2);
      const bool stops = die1 + die2 == row.total && (!row.hardOnly || die1 == die2);
      EXPECT_EQ(host.waits, stops ? std::vector<std::uint32_t>{} : std::vector<std::uint32_t>{7000})
          << die1 << "-" << die2;
    }
  }
}

TEST(AutoRoll, StopsOnWinsAndLosses) {
  struct Row {
    const char* name;
    std::vector<Put> puts;
    int point;  // 0: none on
    int die1, die2;
    bool win, loss;
  };
  const Row kRows[] = {
      {"nothing on the table", {}, 0, 3, 4, false, false},
      {"a win", {{Bet::PassLine, 1}}, 0, 3, 4, true, false},
      {"a loss", {{Bet::DontPass, 1}}, 0, 3, 4, false, true},
      {"both", {{Bet::PassLine, 1}, {Bet::DontPass, 1}}, 0, 3, 4, true, true},
      {"a push counts as a win", {{Bet::World, 5}}, 0, 3, 4, true, false},
      {"a barred twelve is no decision", {{Bet::DontPass, 1}}, 0, 6, 6, false, false},
      {"a Place bet that is off", {{Bet::Place6, 6}}, 0, 3, 4, false, false},
      {"the same with a point on", {{Bet::Place6, 6}}, 5, 3, 4, false, true},
  };
  for (const Row& row : kRows) {
    for (const AutoStop item : {StopOnAnyWin, StopOnAnyLoss}) {
      SCOPED_TRACE(std::string(row.name) + (item == StopOnAnyWin ? ", any win" : ", any loss"));
      RollTable t;
      BusyHost host;
      t.g.TheHost = &host;
      if (row.point != 0) t.Roll(1, row.point - 1);
      for (const Put& put : row.puts) t.Put(put.bet, put.dollars);
      t.g.AutoRoll = t.g.KeepRolling = true;
      t.g.AutoStopOn[item] = true;
      host.waits.clear();
      t.Roll(row.die1, row.die2);
      EXPECT_EQ(host.waits.empty(), item == StopOnAnyWin ? row.win : row.loss);
    }
  }
}

TEST(AutoRoll, ReturnedOddsStopLikeAWin) {
  RollTable t;
  BusyHost host;
  t.g.TheHost = &host;
  t.Roll(2, 2);
  t.Put(Bet::Come, 10);
  t.Roll(3, 3);
  t.Put(Bet::Come6Odds, 10);
  t.Roll(2, 2);
  t.g.AutoRoll = t.g.KeepRolling = true;
  t.g.AutoStopOn[StopOnAnyWin] = true;
  t.Roll(3, 4);
  EXPECT_TRUE(host.waits.empty());
  EXPECT_EQ(t.Amount(SlotBankroll), Dollars(490)) << "the flat bet is lost, the odds come back";
  EXPECT_EQ(t.Amount(Bet::Come6Odds), Money());
}

TEST(AutoRoll, EndsWithItsCountAndLoadsItAgain) {
  RollTable t;
  BusyHost host;
  host.onWait = [](Game&) {};
  t.g.TheHost = &host;
  t.g.AutoRoll = t.g.KeepRolling = true;
  t.g.AutoRollsSet = t.g.AutoRollsLeft = 3;
  RollDice(t.g);
  EXPECT_EQ(t.g.RollCount(), 3);
  EXPECT_EQ(t.g.AutoRollsLeft, 3);
  EXPECT_EQ(host.waits.size(), 2u);

  t.g.AutoRoll = false;
  RollDice(t.g);
  EXPECT_EQ(t.g.AutoRollsLeft, 2) << "single rolls count as well";
}

TEST(HyperDrive, EndsWithItsCountAndSaysSo) {
  const std::string text = "Stopped by roll count on Auto-Play screen.";
  RollTable t;
  t.g.AutoRollsSet = t.g.AutoRollsLeft = 1500;
  t.g.AutoRoll = true;
  t.g.AutoStopOn.fill(true);  // none of them holds here
  ToggleHyperDrive(t.g);
  EXPECT_EQ(t.g.RollCount(), 1500);
  EXPECT_EQ(t.g.AutoRollsLeft, 1500);
  EXPECT_EQ(t.TakeMessage(), text);
  EXPECT_EQ(t.g.StopMessage, "") << "the reason was shown";
  EXPECT_EQ(t.g.LastStopMessage, text);
  EXPECT_FALSE(t.g.HyperDriveActive);

  t.host.minimized = true;
  ToggleHyperDrive(t.g);
  EXPECT_EQ(t.TakeMessage(), "");
  EXPECT_EQ(t.g.StopMessage, text) << "kept for when the table is seen again";
  t.host.minimized = false;
  RollDice(t.g);
  EXPECT_EQ(t.g.StopMessage, "");
}

TEST(HyperDrive, SettlesByTakingDownWhatWouldBeAsked) {
  RollTable t;
  t.g.HandleWinningBets = WinManual;
  t.g.HandleLosingBets = LossManual;
  t.Put(Bet::Seven, 1);
  t.Put(Bet::Field, 1);
  t.g.ManualDie1 = 3;
  t.g.ManualDie2 = 4;
  t.g.ManualRollPending = true;
  t.g.AutoRollsSet = t.g.AutoRollsLeft = 1;
  ToggleHyperDrive(t.g);
  EXPECT_TRUE(t.host.settled.empty());
  EXPECT_EQ(t.Amount(SlotBankroll), Dollars(503));
  EXPECT_EQ(t.g.TotalBets, Money());
}

// A rare draw of one generator shows a seven on a die.
TEST(ADieOfSeven, CountsByItsTotalOnly) {
  for (int other = 1; other <= 7; ++other) {
    for (const bool first : {true, false}) {
      SCOPED_TRACE("seven and " + std::to_string(other) + (first ? "" : ", second die"));
      RollTable t;
      t.Roll(2, 3);
      for (BetId bet = Bet::Place4; bet <= Bet::Place10; ++bet) t.Put(bet, 30);
      for (BetId bet = Bet::Field; bet <= Bet::Hop55; ++bet) t.Put(bet, bet == Bet::World ? 5 : 4);
      const int total = 7 + other;
      first ? t.Roll(7, other) : t.Roll(other, 7);
      EXPECT_EQ(t.g.DiceTotal, total);
      EXPECT_EQ(t.g.RollEventCount[84], first || other == 7 ? 1 : 0);
      EXPECT_EQ(t.g.RollEventCount[90], !first || other == 7 ? 1 : 0);
      EXPECT_EQ(t.g.RollEventCount[EventEveryRoll], 2);
      for (RollEvent pair = 12; pair <= 16; ++pair) EXPECT_EQ(t.g.RollEventCount[pair], 0) << pair;

      // Outcomes of the bets that the total alone decides; 0 stands for a bet left alone.
      const auto result = [&](BetId bet) {
        return t.g.BetWins[ActualWagers][bet][LastRollAmount] -
               t.g.BetLosses[ActualWagers][bet][LastRollAmount];
      };
      EXPECT_EQ(result(Bet::Field), Dollars(4)) << "even money on dice the layout does not know";
      EXPECT_EQ(result(Bet::Two), Dollars(-4));
      EXPECT_EQ(result(Bet::Eleven), Dollars(total == 11 ? 60 : -4));
      EXPECT_EQ(result(Bet::Twelve), Dollars(total == 12 ? 120 : -4));
      EXPECT_EQ(result(Bet::Over7), Dollars(total <= 12 ? 4 : 0));
      EXPECT_EQ(result(Bet::Under7), Dollars(total <= 12 ? -4 : 0));
      EXPECT_EQ(result(Bet::Craps), Dollars(total == 12 ? 28 : total <= 11 ? -4 : 0));
      EXPECT_EQ(result(Bet::Place8), Dollars(total == 8 ? 35 : 0));
      EXPECT_EQ(result(Bet::Place9), Dollars(total == 9 ? 42 : 0));
      EXPECT_EQ(result(Bet::Hard8), Dollars(total == 8 ? -4 : 0));
      EXPECT_EQ(result(Bet::Hard10), Dollars(total == 10 ? -4 : 0));
      for (BetId hop = Bet::Hop13; hop <= Bet::Hop55; ++hop) EXPECT_EQ(result(hop), Dollars(-4)) << hop;
      EXPECT_EQ(t.g.Point, 5);
    }
  }
}

TEST(ADieOfSeven, OnTheComeOut) {
  struct Row {
    const char* name;
    int other, point;
    Lines lines;
  };
  const Row kRows[] = {
      {"8 is a point", 1, 8, {" Roll #1:  8 (7.1) from manual roll pad", "      Point established"}},
      {"11 is a natural", 4, 0, {" Roll #1:  11 (7.4) from manual roll pad", "      Pass (natural)"}},
      {"12 is craps", 5, 0, {" Roll #1:  12 (7.5) from manual roll pad", "      Miss (craps natural)"}},
      {"13 is nothing", 6, 0, {" Roll #1:  13 (7.6) from manual roll pad"}},
      {"14 is nothing", 7, 0, {" Roll #1:  14 (7.7) from manual roll pad"}},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    RollTable t;
    t.g.AutoRoll = true;
    t.g.AutoStopOn.fill(true);
    EXPECT_EQ(t.LinesOf(7, row.other), row.lines);
    EXPECT_EQ(t.g.Point, row.point);
  }
}

TEST(RollDice, AMissingGeneratorGivesWayBeforeEveryRoll) {
  struct Row {
    const char* name;
    std::int32_t choice, missing;
    const char* source;
  };
  constexpr Row kRows[] = {
      {"RNG #1", RngMersenne, MissingMersenne, "#4"},
      {"RNG #2 stays while only #1 is missing", RngSecondMersenne, MissingMersenne, "#2"},
      {"RNG #2", RngSecondMersenne, MissingSecondMersenne, "#4"},
      {"RNG #3 needs none", RngCongruential, MissingMersenne | MissingSecondMersenne, "#3"},
      {"RNG #6", RngMersenneAndRan1, MissingMersenne, "#4"},
      {"RNG #7", RngSecondMersenneAndRan2, MissingSecondMersenne, "#4"},
      {"RNG #8", RngMersenneSingleCall, MissingMersenne, "#4"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    RollTable t;
    BusyHost host;
    t.g.TheHost = &host;
    t.g.RecordEventsActive = true;
    t.g.RecordPassesMisses = t.g.RecordShooterChanges = false;
    t.g.MissingGenerators = row.missing;
    t.g.RngChoice = row.choice;
    t.g.AutoRoll = t.g.KeepRolling = true;
    t.g.AutoRollsSet = t.g.AutoRollsLeft = 2;
    host.onWait = [&](Game& g) { g.RngChoice = row.choice; };  // chosen again inside the run
    RollDice(t.g);
    ASSERT_EQ(t.log.lines.size(), 2u);
    for (const std::string& line : t.log.lines)
      EXPECT_TRUE(line.ends_with(std::string("from RNG ") + row.source)) << line;
  }
}

}  // namespace
}  // namespace rollwick
