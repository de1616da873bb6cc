// Rolls that go into a Dice Roll File and come out of it, and rolls of crooked dice: the same game again, how
// a run ends, and what is on the disk at any moment.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "dice/DiceFile.h"
#include "dice/Draw.h"
#include "dice/Matrix.h"
#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "engine/game/NewGame.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

std::string Content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct DiceFileTable : TestTable {
  explicit DiceFileTable(std::int32_t seed = 1) {
    g.RngChoice = RngMersenne;
    g.SeedRequest = Dollars(seed);
    SeedGenerator(g, true);
    g.Rules.NotifyFlags = 0;
    g.Rules.AllowNegBankroll = true;
    g.HandleWinningBets = WinSameBet;
    g.HandleLosingBets = LossSameBet;
    for (const BetId bet : {Bet::PassLine, Bet::DontPass, Bet::Field, Bet::Place6, Bet::Hard8}) {
      g.BetDelta = Dollars(12);
      PlaceChips(g, bet);
    }
  }
  void Open(const std::filesystem::path& path, std::int32_t mode) {
    ASSERT_FALSE(OpenDiceFile(g, path, true));
    g.DiceFileMode = mode;
  }
  void RollFromPad(int die1, int die2) {
    g.ManualDie1 = die1;
    g.ManualDie2 = die2;
    g.ManualRollPending = true;
    RollDice(g);
  }
  void RollInHyperDrive(std::int32_t rolls) {
    g.AutoRollsSet = g.AutoRollsLeft = rolls;
    g.KeepRolling = false;
    ToggleHyperDrive(g);
  }
};

// A failure gives the place of the table in the list below, from 1.
void ExpectSameGame(const Game& a, const Game& b) {
  int place = 0;
  const auto sameTable = [&](auto table) {
    ++place;
    EXPECT_TRUE(a.*table == b.*table) << "table " << place;
  };
  const auto same = [&](auto... tables) { (sameTable(tables), ...); };
  same(&Game::BetAmount, &Game::BetAtThrow, &Game::BetAfterSettle, &Game::BetContract, &Game::BetWorking,
       &Game::PayoffTable, &Game::TotalBets, &Game::Die1, &Game::Die2, &Game::DiceTotal, &Game::PrevDie1,
       &Game::Point, &Game::PointBeforeRoll, &Game::PointBeforeLast, &Game::RollEventCount,
       &Game::RollsSinceEvent, &Game::RollGapHistogram, &Game::TrackedEventCountBefore, &Game::BetWagers,
       &Game::BetWins, &Game::BetLosses, &Game::BetStreak, &Game::HandStats, &Game::BankrollRollSum,
       &Game::BankrollHistory, &Game::DiceFileRecord, &Game::DiceLastRecord);
}

TEST(DiceFileRolls, PlayedBackTheyAreTheSameGame) {
  const struct Row {
    const char* name;
    int clicks, hyper;
    bool matrix, pad;
  } kRows[] = {
      {"rolls one by one", 400, 0, false, false},
      {"of crooked dice", 200, 0, true, false},
      {"with rolls from the pad between them", 200, 0, false, true},
      {"a hundred thousand in Hyper-Drive", 0, 100'000, false, false},
      {"one by one, then in Hyper-Drive", 7, 3'000, true, true},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const TemporaryFolder folder;
    DiceFileTable recorded(1), played(2);
    const int rolls = row.clicks * (row.pad ? 2 : 1) + row.hyper;

    recorded.Open(folder / "a.rol", DiceFileRecording);
    recorded.g.UseProbabilityMatrix = row.matrix;
    for (int roll = 0; roll < row.clicks; ++roll) {
      RollDice(recorded.g);
      if (row.pad) recorded.RollFromPad(roll % 6 + 1, roll % 5 + 1);
    }
    if (row.hyper > 0) recorded.RollInHyperDrive(row.hyper);
    EXPECT_EQ(recorded.g.DiceFileRecord, rolls + 1);
    CloseDiceFile(recorded.g);
    ASSERT_EQ(std::filesystem::file_size(folder / "a.rol"), static_cast<std::uintmax_t>(rolls));

    const auto generator = played.g.Mersenne;
    played.Open(folder / "a.rol", DiceFilePlayback);
    for (int roll = row.hyper; roll < rolls; ++roll) RollDice(played.g);
    if (row.hyper > 0) played.RollInHyperDrive(row.hyper);
    EXPECT_EQ(played.TakeMessage(), row.hyper > 0 ? "Stopped by roll count on Auto-Play screen." : "");
    EXPECT_EQ(played.g.Mersenne.next, generator.next) << "no dice were drawn";
    recorded.g.DiceFileRecord = rolls + 1;
    recorded.g.DiceLastRecord = rolls;
    ExpectSameGame(recorded.g, played.g);
  }
}

TEST(DiceFileRolls, AnAbandonedRollRunsUpToTheDraw) {
  const std::string rewind = "Playback stopped.\rRewind for playback?";
  const std::string outOfLimits =
      "A dice roll value has been found to be out of limits. \r\rPlayback of this Dice Roll File has ceased "
      "so "
      "that you can check the file or continue without it.";
  const std::string badValue = "Stopped due to Dice Roll File value out of limits.";
  const std::string ended(kDiceFileEnded);
  const struct Row {
    const char* name;
    const char* bytes;  // 2-2, then what abandons the next roll
    bool hyper, minimized;
    std::string messages, stopMessage;
    std::int32_t mode;
  } kRows[] = {
      {"the end", "\x48", false, false, rewind, "", DiceFilePlayback},
      {"the end in Hyper-Drive", "\x48", true, false, ended + " | " + rewind, "", DiceFilePlayback},
      {"the end while minimised", "\x48", false, true, "", ended, DiceFilePlayback},
      {"a face of 0", "\x48\x20", false, false, outOfLimits, "", DiceFileOff},
      {"a face of 7 in Hyper-Drive", "\x48\xfc", true, false, badValue, "", DiceFileOff},
      {"a face of 7 while minimised", "\x48\xfc", true, true, "", badValue, DiceFileOff},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const TemporaryFolder folder;
    std::ofstream(folder / "a.rol", std::ios::binary) << row.bytes;
    DiceFileTable t;
    t.Open(folder / "a.rol", DiceFilePlayback);
    t.host.minimized = row.minimized;
    t.host.answers = {Answer::Cancel};
    t.g.AutoRollsSet = t.g.AutoRollsLeft = 9;
    RollDice(t.g);
    ASSERT_EQ(t.g.Point, 4);
    t.g.BetDelta = Dollars(5);
    PlaceChips(t.g, Bet::Come);
    const auto amounts = t.g.BetAmount;
    t.g.RecordEventsActive = true;
    if (row.hyper) {
      ToggleHyperDrive(t.g);
    } else {
      RollDice(t.g);
    }
    EXPECT_EQ(t.TakeMessage(), row.messages);
    EXPECT_EQ(t.g.StopMessage, row.stopMessage);
    EXPECT_EQ(t.g.DiceFileMode, row.mode);
    EXPECT_EQ(t.g.DiceFileRecord, 2);
    EXPECT_EQ(t.g.DiceLastRecord, 1);
    EXPECT_EQ(t.g.RollCount(), 1);
    EXPECT_EQ(t.g.AutoRollsLeft, 8);
    EXPECT_EQ(t.g.BetAmount, amounts);
    EXPECT_EQ(t.g.BetAtThrow, amounts);
    EXPECT_EQ(t.g.PointBeforeRoll, 4);
    EXPECT_EQ(t.g.PrevDie1, 2);
    EXPECT_EQ(t.log.lines.size(), 1U);
    EXPECT_EQ(t.log.lines.at(0), "      $5 bet on Come");
    EXPECT_FALSE(t.g.KeepRolling);
    EXPECT_FALSE(t.g.RollInProgress);
  }
}

TEST(DiceFileRolls, AfterTheRewindQuestion) {
  const struct Row {
    const char* name;
    Answer answer;
    const char* source;  // of the next roll; empty: it ends at once again
  } kRows[] = {
      {"yes", Answer::Yes, "a.rol"}, {"no", Answer::No, " from RNG #1"}, {"cancel", Answer::Cancel, ""}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const TemporaryFolder folder;
    std::ofstream(folder / "a.rol") << "\x48\x48";
    DiceFileTable t;
    t.Open(folder / "a.rol", DiceFilePlayback);
    t.host.answers = {row.answer, Answer::Cancel};
    t.g.AutoRoll = t.g.KeepRolling = true;
    RollDice(t.g);
    EXPECT_EQ(t.g.RollCount(), 2);
    t.g.AutoRoll = false;
    t.g.RecordEventsActive = true;
    t.g.RecordBetChanges = false;
    RollDice(t.g);
    const bool rolls = *row.source != '\0';
    EXPECT_EQ(t.g.RollCount(), rolls ? 3 : 2);
    ASSERT_EQ(t.log.lines.empty(), !rolls);
    if (rolls) {
      EXPECT_TRUE(t.log.lines[0].ends_with(row.source)) << t.log.lines[0];
    }
  }
}

TEST(DiceFileRolls, TheRollLineNamesItsSource) {
  const TemporaryFolder folder;
  DiceFileTable t;
  t.Open(folder / "a.rol", DiceFileRecording);
  t.g.UseProbabilityMatrix = true;
  t.g.ProbabilityMatrix[MatrixValues] = {};
  t.g.ProbabilityMatrix[MatrixValues][6][5] = 100'000;  // 5-1
  t.g.RecordEventsActive = true;
  std::vector<std::string> rolls;
  const auto rollLine = [&] {
    for (const std::string& line : t.log.lines) {
      if (line.starts_with(" Roll")) rolls.push_back(line.substr(line.find(':')));
    }
    t.log.lines.clear();
  };
  RollDice(t.g);
  rollLine();
  t.g.ProbabilityName = "mine.prb";
  RollDice(t.g);
  rollLine();
  t.RollFromPad(3, 1);
  rollLine();
  t.g.DiceFileMode = DiceFilePlayback;
  t.g.DiceFileRecord = 2;
  t.RollFromPad(6, 2);  // the file waits
  rollLine();
  RollDice(t.g);
  RollDice(t.g);
  rollLine();
  const std::string path = (folder / "a.rol").string();
  EXPECT_EQ(rolls,
            (std::vector<std::string>{":  6 (5.1) from RNG #1 using untitled probability matrix",
                                      ":  6 (5.1) from RNG #1 using probability matrix: mine.prb",
                                      ":  4 (3.1) from manual roll pad", ":  8 (6.2) from manual roll pad",
                                      ":  6 (5.1) from " + path, ":  4 (3.1) from " + path}));
}

// A world that looks at the file whenever the table lets it.
struct WatchingHost : ScriptedHost {
  std::filesystem::path path;
  int looks = 0;
  void PumpEvents(Game& g) override {
    ++looks;
    EXPECT_EQ(std::filesystem::file_size(path), static_cast<std::uintmax_t>(g.RollCount()));
  }
};

TEST(DiceFileRolls, AKillLosesNoRollThatWasSeen) {
  const TemporaryFolder folder;
  DiceFileTable t;
  WatchingHost host;
  t.g.TheHost = &host;
  host.path = folder / "a.rol";
  t.Open(host.path, DiceFileRecording);
  RollDice(t.g);
  EXPECT_EQ(std::filesystem::file_size(host.path), 1U);
  t.g.AutoRollsSet = t.g.AutoRollsLeft = 3;
  t.g.AutoRoll = t.g.KeepRolling = true;
  RollDice(t.g);
  EXPECT_EQ(host.looks, 2) << "between the rolls";
  const std::string before = Content(host.path);
  t.RollInHyperDrive(40'000);
  EXPECT_GT(host.looks, 70);
  const std::string after = Content(host.path);
  EXPECT_EQ(after.size(), 40'004U);
  EXPECT_TRUE(after.starts_with(before));
}

TEST(DiceFileRolls, AFullDiskStopsHyperDriveAndIsToldOnce) {
  const TemporaryFolder folder;
  DiceFileTable t;
  t.Open(folder / "a.rol", DiceFileRecording);
  const FileSizeLimit full(1'000);
  t.RollInHyperDrive(0);
  ASSERT_EQ(t.host.messages.size(), 1U);
  EXPECT_EQ(t.host.messages[0].title, "Hyper-Drive Stopped");
  EXPECT_TRUE(t.TakeMessage().ends_with("\r\rFile too large, Error #27"));
  EXPECT_EQ(t.g.DiceFileMode, DiceFileOff);
  EXPECT_EQ(t.g.DiceFileRecord, 1'001);
  const std::int32_t rolls = t.g.RollCount();
  RollDice(t.g);
  EXPECT_EQ(t.g.RollCount(), rolls + 1);
  EXPECT_EQ(t.TakeMessage(), "");
}

TEST(DiceFileRolls, ANewGameStopsTheFileAndKeepsItOpen) {
  for (const std::int32_t mode : {DiceFileRecording, DiceFilePlayback}) {
    const TemporaryFolder folder;
    std::ofstream(folder / "a.rol") << "\x48\x48\x48";
    DiceFileTable t;
    t.Open(folder / "a.rol", mode);
    t.RollFromPad(6, 6);
    NewGame(t.g, false);
    EXPECT_EQ(t.g.DiceFileMode, DiceFileOff);
    EXPECT_EQ(t.g.DiceFileName, (folder / "a.rol").string());
    EXPECT_EQ(t.g.DiceFileRecord, mode == DiceFileRecording ? 2 : 1);
    RollDice(t.g);
    EXPECT_EQ(Content(folder / "a.rol"), mode == DiceFileRecording ? "\xd8\x48\x48" : "\x48\x48\x48");
  }
}

}  // namespace
}  // namespace rollwick
