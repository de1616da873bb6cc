// Closing the table and opening it again, a crash between, and disks that refuse.
#include "session/StartAndEnd.h"

#include <gtest/gtest.h>

#include <fstream>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "dice/DiceClipboard.h"
#include "session/ActiveScript.h"
#include "stats/logs/GamesLog.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;

std::vector<ScriptLine> BetLines(int dollars) {
  return ParseScriptText("    Do this . . .\n          Bet $ " + std::to_string(dollars) + " on Pass Line\n")
      .lines;
}

struct House : TestTable {
  fs::path folder;
  std::vector<Unsaved> asked;
  std::optional<fs::path> chosen;

  explicit House(const fs::path& where) : folder(where) {}

  Closing End() {
    return EndTable(g, folder, [this](Unsaved what) {
      asked.push_back(what);
      return chosen;
    });
  }
  void PlaySomething() {
    g.BetAmount[SlotBankroll] = Dollars(321);
    g.RollEventCount[EventEveryRoll] = 5;
    g.TableDirty = true;
  }
  std::string Titles() const {
    std::string titles;
    for (const Message& message : host.messages) titles += message.title + ";";
    return titles;
  }
};

struct StartAndEnd : testing::Test {
  TemporaryFolder temporary;
  fs::path folder = temporary / "new" / "data";  // made by the first start
  fs::path workingGame = folder / "default.crp";
  fs::path activeScript = folder / "active.tmp";

  void SetUp() override { fs::create_directories(folder); }
  void LeaveAGame(std::vector<ScriptLine> lines) const {
    House house(folder);
    house.PlaySomething();
    house.g.TableDirty = false;
    if (!lines.empty()) ReplaceScript(house.g, std::move(lines), "mine.bet", (folder / "mine.bet").string());
    if (!house.g.ScriptLines.empty()) WriteScript(house.g, folder / "mine.bet", false);
    ASSERT_EQ(house.End(), Closing::Done);
  }
};

TEST_F(StartAndEnd, TheFirstStartOfAllFindsNothing) {
  fs::remove_all(folder);
  House house(folder);
  const StartedTable started = StartTable(house.g, folder);
  EXPECT_TRUE(started.hotKeys.empty());
  EXPECT_TRUE(started.notices.empty());
  EXPECT_EQ(house.g.BetAmount[SlotBankroll], Dollars(500));
  EXPECT_EQ(house.End(), Closing::Done);
  EXPECT_EQ(house.Titles(), "") << "nothing was played";
  EXPECT_TRUE(fs::exists(workingGame));
}

TEST_F(StartAndEnd, WhatWasLeftIsBack) {
  LeaveAGame(BetLines(10));
  ASSERT_EQ(SaveHotKeys(folder / "HotKeys.dta", {{"b", "x.bet", "bets"}}), "");
  EXPECT_FALSE(fs::exists(activeScript)) << "a clean end";
  House house(folder);
  const StartedTable started = StartTable(house.g, folder);
  EXPECT_EQ(started.hotKeys.size(), 1U);
  EXPECT_EQ(house.g.BetAmount[SlotBankroll], Dollars(321));
  EXPECT_EQ(house.g.ScriptFileName, "mine.bet");
  EXPECT_FALSE(house.g.ScriptDirty);
  EXPECT_TRUE(fs::exists(activeScript)) << "for a crash to come";
  EXPECT_TRUE(started.notices.empty());
}

TEST_F(StartAndEnd, ACrashLeavesTheNewestScript) {
  struct Row {
    const char* name;
    std::vector<ScriptLine> saved;
    std::string active;  // its bytes; empty: none
    std::vector<ScriptLine> script;
    bool isChanged;
  };
  const Row rows[] = {
      {"another one", BetLines(10), ScriptFileBytes(BetLines(20)), BetLines(20), true},
      {"the same", BetLines(10), ScriptFileBytes(BetLines(10)), BetLines(10), false},
      {"one that never had a game", {}, ScriptFileBytes(BetLines(20)), BetLines(20), true},
      {"no script file", BetLines(10), "a letter", BetLines(10), false},
      {"cut short", BetLines(10), ScriptFileBytes(BetLines(20)).substr(0, 600), BetLines(10), false},
      {"none", BetLines(10), "", BetLines(10), false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    fs::remove_all(folder);
    fs::create_directories(folder);
    LeaveAGame(row.saved);
    if (!row.active.empty()) std::ofstream(activeScript, std::ios::binary) << row.active;
    House house(folder);
    EXPECT_TRUE(StartTable(house.g, folder).notices.empty());
    EXPECT_EQ(ScriptFileBytes(house.g.ScriptLines), ScriptFileBytes(row.script));
    EXPECT_EQ(house.g.ScriptDirty, row.isChanged);
    EXPECT_EQ(house.g.ScriptFileName, row.saved.empty() ? "" : "mine.bet");
    EXPECT_EQ(house.Titles(), "");
    const auto copy = ReadActiveScript(folder);
    ASSERT_TRUE(copy);
    EXPECT_EQ(ScriptFileBytes(*copy), ScriptFileBytes(row.script));
  }
}

TEST_F(StartAndEnd, NoticesWaitForTheTable) {
  LeaveAGame(BetLines(10));
  std::ofstream(folder / "mine.bet") << '\0';
  fs::create_directory(folder / "HotKeys.dta");
  House house(folder);
  std::string titles;
  for (const Message& notice : StartTable(house.g, folder).notices) titles += notice.title + ";";
  EXPECT_EQ(titles, "Hot-Key;Unable to Open Auto-Bet File;Missing Auto-Bet File;");
  EXPECT_EQ(house.Titles(), "");
  EXPECT_EQ(house.g.TheHost, &house.host);
  EXPECT_FALSE(fs::exists(activeScript)) << "of a script without lines";

  std::ofstream(workingGame) << "a letter";
  House second(folder);
  EXPECT_EQ(StartTable(second.g, folder).notices.back().title, "Unable to Open Rollwick Game File");
}

TEST_F(StartAndEnd, OpeningAGameBeginsItsWorkingCopy) {
  LeaveAGame(BetLines(10));
  House house(folder);
  EXPECT_EQ(OpenGame(house.g, folder / "none.crp", folder).result, GameFileResult::Refused);
  EXPECT_FALSE(fs::exists(activeScript));
  EXPECT_EQ(OpenGame(house.g, workingGame, folder).result, GameFileResult::Loaded);
  EXPECT_EQ(ScriptFileBytes(*ReadActiveScript(folder)), ScriptFileBytes(BetLines(10)));
}

TEST_F(StartAndEnd, QuestionsAboutUnsavedWork) {
  constexpr Answer Y = Answer::Yes, N = Answer::No, C = Answer::Cancel;
  struct Row {
    const char* name;
    std::deque<Answer> answers;
    const char* chosen;  // in the file dialog; null cancels it
    Closing closing;
    std::size_t questions;
    std::vector<Unsaved> asked;  // for a file
  };
  const Row rows[] = {
      {"nothing is wanted", {N, N, N}, nullptr, Closing::Done, 3, {}},
      {"the game is kept back", {C}, nullptr, Closing::Cancelled, 1, {}},
      {"the script", {N, C}, nullptr, Closing::Cancelled, 2, {}},
      {"the matrix", {N, N, C}, nullptr, Closing::Cancelled, 3, {}},
      {"no file was chosen", {Y}, nullptr, Closing::Cancelled, 1, {Unsaved::Game}},
      {"the game is saved", {Y, N, N}, "a.crp", Closing::Done, 3, {Unsaved::Game}},
      {"the script", {N, Y, N}, "a.bet", Closing::Done, 3, {Unsaved::Script}},
      {"the matrix", {N, N, Y}, "a.prb", Closing::Done, 3, {Unsaved::Matrix}},
      {"in a folder that is not there", {N, Y}, "none/a.bet", Closing::Failed, 3, {Unsaved::Script}},
  };
  const char* const texts[] = {
      "Your current game has not been saved.\rDo you want to save it now?",
      "Your current logged Auto-Bets\rhave not been saved.\rDo you want to save them now?",
      "Your current probabilities (listed on the\rconfiguration screen) have not been saved.\rDo you want to "
      "save them now?",
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    fs::remove_all(folder);
    fs::create_directories(folder);
    House house(folder);
    Game& g = house.g;
    house.PlaySomething();
    ReplaceScript(g, BetLines(10), "", "");
    g.ScriptDirty = g.ProbabilityDirty = true;
    std::ofstream(activeScript) << "x";
    std::ofstream(DiceClipboard(folder)) << "x";
    house.host.answers = row.answers;
    if (row.chosen != nullptr) house.chosen = folder / row.chosen;
    EXPECT_EQ(house.End(), row.closing);
    EXPECT_EQ(house.asked, row.asked);
    ASSERT_EQ(house.host.messages.size(), row.questions);
    for (std::size_t i = 0; i < row.questions; ++i) {
      if (house.host.messages[i].flags & MessageYes) {
        EXPECT_EQ(house.host.messages[i].text, texts[i]);
      } else {
        EXPECT_EQ(house.host.messages[i].text, "No such file or directory, Error #2");
      }
    }
    const bool isDone = row.closing == Closing::Done;
    EXPECT_EQ(fs::exists(workingGame), isDone);
    EXPECT_EQ(fs::exists(activeScript), !isDone);
    EXPECT_EQ(fs::exists(DiceClipboard(folder)), !isDone);
    EXPECT_EQ(house.chosen && fs::exists(*house.chosen), row.chosen != nullptr && isDone);
    EXPECT_TRUE(isDone || (g.TableDirty && g.ScriptDirty && g.ProbabilityDirty));
  }
}

TEST_F(StartAndEnd, NamedWorkIsSavedUnderItsName) {
  House house(folder);
  Game& g = house.g;
  house.PlaySomething();
  ReplaceScript(g, BetLines(10), "s.bet", (folder / "s.bet").string());
  g.GamePath = (folder / "g.crp").string();
  g.ProbabilityPath = (folder / "p.prb").string();
  g.ScriptDirty = g.ProbabilityDirty = true;
  house.host.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
  EXPECT_EQ(house.End(), Closing::Done);
  EXPECT_TRUE(house.asked.empty());
  EXPECT_EQ(house.Titles(), "Save Game?;Save Auto-Bets?;Save Probabilities?;");
  for (const char* name : {"g.crp", "s.bet", "p.prb", "default.crp"}) EXPECT_TRUE(fs::exists(folder / name));
}

TEST_F(StartAndEnd, AFullDiskKeepsTheTableOpen) {
  House house(folder);
  house.PlaySomething();
  ReplaceScript(house.g, BetLines(10), "", "");
  ASSERT_EQ(SaveActiveScript(house.g, folder), "");
  {
    const FileSizeLimit full(1000);
    EXPECT_EQ(house.End(), Closing::Failed);
  }
  EXPECT_EQ(house.Titles(), "Save Game?;Save Game;");
  EXPECT_EQ(house.host.messages[1].text, "File too large, Error #27");
  EXPECT_TRUE(house.g.TableDirty);
  EXPECT_TRUE(fs::exists(activeScript)) << "the newest script is still on disk";
  EXPECT_EQ(house.End(), Closing::Done) << "there is room again";
}

TEST_F(StartAndEnd, TheEndAddsTheGameToTheGamesLog) {
  for (const int rolls : {0, 5}) {
    SCOPED_TRACE(rolls);
    House house(folder);
    house.g.RollEventCount[EventEveryRoll] = rolls;
    house.g.GamesLogPath = (folder / "default.glg").string();
    EXPECT_EQ(house.End(), Closing::Done);
    int games = 0;
    CountGames(house.g.GamesLogPath, games);
    EXPECT_EQ(games, rolls == 0 ? 0 : 1);
  }
  House house(folder);
  house.g.RollInProgress = true;
  EXPECT_EQ(house.End(), Closing::Cancelled);
}

TEST_F(StartAndEnd, AScriptThatResetsTheTableSavesTheWorkingGame) {
  House house(folder);
  Game& g = house.g;
  house.PlaySomething();
  g.GamePath = "/home/x/mine.crp";
  ReplaceScript(g, BetLines(10), "", "");
  g.ScriptDirty = true;
  ASSERT_EQ(SaveActiveScript(g, folder), "");
  // In the middle of a hot key's roll.
  g.RollInProgress = g.HotKeyRunning = true;
  g.ScriptLines = BetLines(20);
  EXPECT_EQ(SaveWorkingGame(g, folder), "");
  EXPECT_EQ(g.ScriptLines, BetLines(20));
  EXPECT_EQ(g.GamePath, "/home/x/mine.crp");
  EXPECT_TRUE(g.TableDirty);

  fs::remove(activeScript);
  House next(folder);
  StartTable(next.g, folder);
  EXPECT_EQ(next.g.BetAmount[SlotBankroll], Dollars(321));
  EXPECT_EQ(ScriptFileBytes(next.g.ScriptLines), ScriptFileBytes(BetLines(10)));
  const FileSizeLimit full(1000);
  EXPECT_EQ(SaveWorkingGame(next.g, folder), "File too large, Error #27");
}

}  // namespace
}  // namespace rollwick
