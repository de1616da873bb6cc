// Games saved and loaded: nothing is lost, and a loaded game goes on as if it had never been put away.
#include "files/GameFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>
#include <ctime>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "dice/DiceFile.h"
#include "dice/ProbabilityFile.h"
#include "files/Companions.h"
#include "files/GameFileLayout.h"
#include "files/tests/SavedTable.h"
#include "stats/logs/EventsLog.h"

namespace rollwick {
namespace {

void OpenDice(SavedTable& t) {
  PutContents(t.folder / "rolls.rol", std::string(50, static_cast<char>(DiceByte(3, 4))));
  EXPECT_FALSE(OpenDiceFile(t.g, t.folder / "rolls.rol", false));
}

void UseScript(SavedTable& t, const char* text) {
  const ParsedScript script = ParseScriptText(text);
  ASSERT_TRUE(script.errors.empty() && !script.lines.empty());
  ReplaceScript(t.g, script.lines, "", "");
  ASSERT_EQ(WriteScript(t.g, t.folder / "system.bet", false), "");
  t.g.AutoBetsActive = 1;
}

constexpr const char* kScript = R"(While . . .
          Flag "resting" is False
          Next roll is a come-out roll
    then . . .
          Bet $ 10 on Pass Line
When . . .
          On each miss
    then . . .
          Add $ 1 to Chip-Stack # 1
          Set flag "resting" to True
When . . .
          On each pass
    then . . .
          Set flag "resting" to False
)";
constexpr const char* kFlags = R"(When . . .
          On each pass
    then . . .
          Set flag "A" to True
          Set flag "B" to True
          Set flag "C" to True
)";

struct State {
  const char* name;
  void (*make)(SavedTable& t);
};

const State kStates[] = {
    {"newly opened", [](SavedTable&) {}},
    {"in the middle of a hand",
     [](SavedTable& t) {
       t.Bet(Bet::PassLine, 10);
       t.Roll(4, 4);
       t.Bet(Bet::PassLineOdds, 20);
       t.Bet(Bet::Lay10, 40);
     }},
    {"Come bets on their way",
     [](SavedTable& t) {
       t.Bet(Bet::PassLine, 10);
       t.Roll(4, 4);
       t.Bet(Bet::Come, 10);
       t.Roll(2, 3);
       t.Bet(Bet::Come, 5);
       t.Bet(Bet::DontCome, 5);
       t.Roll(1, 3);
       t.Bet(Bet::DontCome, 5);
     }},
    {"a script active", [](SavedTable& t) { UseScript(t, kScript); }},
    {"a Dice Roll File playing",
     [](SavedTable& t) {
       OpenDice(t);
       t.g.DiceFileMode = DiceFilePlayback;
       RollDice(t.g);
       RollDice(t.g);
     }},
    {"a full page of the graph",
     [](SavedTable& t) {
       PadDice dice;
       t.Play(kGraphPage, dice);
     }},
    {"a page turned",
     [](SavedTable& t) {
       PadDice dice;
       t.Play(kGraphPage + 1, dice);
     }},
    {"below zero",
     [](SavedTable& t) {
       t.g.Rules.AllowNegBankroll = true;
       t.Bet(Bet::Hard4, 300);
       t.Bet(Bet::Field, 400);
       t.Roll(3, 4);
     }},
    {"chips, buttons and odd rules",
     [](SavedTable& t) {
       t.g.TableChips = {{1, 0, 10, -20}, {Bet::Hop55, 4, 767, 439}, {SlotLastChipStack, 2, 0, 0}};
       t.g.TableChips.resize(33, {100, 1, 5, 5});
       t.g.GameFileReserved = -123'456'789;
       t.g.RecordEventsActive = true;
       t.Bet(Bet::Place6, 12);
       CallBet(t.g, Bet::Place6, false);
       t.g.PayoffTable[Bet::Hard4] = {Money::FromUnits(71'234), false, Money::FromUnits(9'999)};
     }},
};

TEST(GameFile, SavesTheSameBytesAgain) {
  for (const State& state : kStates) {
    SCOPED_TRACE(state.name);
    TemporaryFolder folder;
    SavedTable table(folder), loaded(folder);
    state.make(table);
    table.g.TableDirty = true;
    const std::string bytes = table.Save("one.crp");
    EXPECT_FALSE(table.g.TableDirty);
    EXPECT_EQ(bytes.size(),
              256 * (575 + (table.g.TableChips.size() + 31) / 32 + (table.g.ScriptLines.size() + 63) / 64));
    const LoadedGame result = loaded.Load("one.crp");
    EXPECT_EQ(result.result, GameFileResult::Loaded);
    EXPECT_EQ(NoticesOf(result), "");
    EXPECT_FALSE(loaded.g.TableDirty) << "something was mended";
    EXPECT_EQ(loaded.g.GamePath, (folder / "one.crp").string());
    EXPECT_EQ(loaded.g.TableChips, table.g.TableChips);
    const std::string again = loaded.Save("two.crp");
    for (const Field& field : GameFields()) {
      for (int k = 0; k < field.count; ++k) {
        const std::size_t at = OffsetOf(field, k), width = WidthOf(field.type);
        ASSERT_EQ(bytes.substr(at, width), again.substr(at, width)) << field.name << " " << field.first + k;
      }
    }
    EXPECT_TRUE(bytes == again);
  }
}

TEST(GameFile, GoesOnAsIfNeverPutAway) {
  for (const State& state : kStates) {
    SCOPED_TRACE(state.name);
    TemporaryFolder folder;
    SavedTable table(folder), loaded(folder);
    state.make(table);
    table.Save("one.crp");
    ASSERT_EQ(loaded.Load("one.crp").result, GameFileResult::Loaded);
    PadDice dice, sameDice;
    for (int part = 0; part < 10; ++part) {
      table.Play(100, dice);
      loaded.Play(100, sameDice);
      ASSERT_EQ(table.g.BetAmount, loaded.g.BetAmount);
    }
    EXPECT_TRUE(table.Save("one.crp") == loaded.Save("two.crp"));
    EXPECT_EQ(table.g.GraphHigh, loaded.g.GraphHigh);
    EXPECT_EQ(table.g.GraphLow, loaded.g.GraphLow);
  }
}

TEST(GameFile, AButtonThatLayThereIsNoNews) {
  TemporaryFolder folder;
  SavedTable table(folder), loaded(folder);
  table.Bet(Bet::Place6, 12);
  CallBet(table.g, Bet::Place6, false);
  table.Roll(2, 2);
  table.Save("one.crp");
  ASSERT_EQ(loaded.Load("one.crp").result, GameFileResult::Loaded);
  ASSERT_EQ(loaded.g.BetWorking[Bet::Place6], CalledOff);
  loaded.g.RecordEventsActive = loaded.g.RecordBetChanges = true;
  const auto newLines = [&] {
    loaded.log.lines.clear();
    loaded.Roll(5, 4);
    std::string text;
    for (const std::string& line : loaded.log.lines) text += line + "\n";
    return text;
  };
  EXPECT_EQ(newLines().find("called OFF"), std::string::npos);
  CallBet(loaded.g, Bet::Place6, true);
  EXPECT_NE(newLines().find("OFF button removed"), std::string::npos);
}

TEST(GameFile, KeepsFlagsAndTheLooksOfLines) {
  TemporaryFolder folder;
  SavedTable table(folder), loaded(folder);
  UseScript(table, kFlags);
  Game& g = table.g;
  ASSERT_EQ(g.ScriptFlags.size(), 3u);
  g.ScriptFlags[0] = {"A", 1, 0};
  g.ScriptFlags[1] = {"B", -1, 1};
  g.ScriptFlags[2] = {"C", 7, -1};
  g.ScriptLines[1].Selected = true;
  g.ScriptLines[2].Band = 3;
  table.Save("one.crp");
  loaded.Load("one.crp");
  ASSERT_EQ(loaded.g.ScriptFlags.size(), 3u);
  const std::pair<int, int> kept[] = {{1, 0}, {-1, 1}, {1, -1}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(loaded.g.ScriptFlags[i].Value, kept[i].first);
    EXPECT_EQ(loaded.g.ScriptFlags[i].PrevValue, kept[i].second);
  }
  EXPECT_EQ(loaded.g.ScriptLines, g.ScriptLines);
  EXPECT_TRUE(loaded.g.AutoBetsActive == 1 && !loaded.g.ScriptDirty);

  // Another script in that place gets neither.
  UseScript(table, kScript);
  loaded.Load("one.crp");
  EXPECT_EQ(loaded.g.ScriptFlags[0].Value, 0);
  EXPECT_FALSE(loaded.g.ScriptLines[1].Selected);
}

TEST(GameFile, WorkingGameKeepsScreensScriptAndMatrix) {
  TemporaryFolder folder;
  SavedTable table(folder), loaded(folder);
  Game& g = table.g;
  ReplaceScript(g, ParseScriptText(kScript).lines, "mine.bet", "/nowhere/mine.bet");
  g.ScriptDirty = true;
  g.ProbabilityMatrix[MatrixValues][2][1] = 99'999;
  g.ProbabilityDirty = true;
  g.Screens[ScreenBankroll] = {true, -7.5F, 12, 0, 0};
  table.Save("Default.CRP");
  EXPECT_EQ(g.GamePath, "");
  EXPECT_EQ(g.ScriptFileName, "mine.bet");
  EXPECT_TRUE(g.ScriptDirty && g.ProbabilityDirty);
  table.Save("other.crp");

  EXPECT_EQ(NoticesOf(loaded.Load("other.crp")), "");
  EXPECT_FALSE(loaded.g.Screens[ScreenBankroll].Open) << "only the working game places the screens";
  EXPECT_TRUE(loaded.g.ScriptLines.empty());
  EXPECT_EQ(NoticesOf(loaded.Load("Default.CRP")), "");
  EXPECT_EQ(loaded.g.GamePath, "");
  EXPECT_EQ(loaded.g.ScriptLines.size(), g.ScriptLines.size());
  EXPECT_EQ(loaded.g.ScriptFileName, "default.bet");
  EXPECT_EQ(loaded.g.ProbabilityMatrix, g.ProbabilityMatrix);
  EXPECT_TRUE(loaded.g.Screens[ScreenBankroll].Open);
  EXPECT_EQ(loaded.g.Screens[ScreenBankroll].Top, -7.5F);
}

TEST(GameFile, KeepsAScriptThatIsAText) {
  TemporaryFolder folder;
  SavedTable table(folder), loaded(folder);
  PutContents(folder / "system.txt", kScript);
  ReplaceScript(table.g, ParseScriptText(kScript).lines, "system.txt", (folder / "system.txt").string());
  table.Save("one.crp");
  EXPECT_EQ(NoticesOf(loaded.Load("one.crp")), "");
  EXPECT_EQ(loaded.g.ScriptLines, table.g.ScriptLines);
  EXPECT_EQ(loaded.g.ScriptFileName, "system.txt");
  PutContents(folder / "system.txt", "          Bet $ x on Pass Line");
  const LoadedGame refused = loaded.Load("one.crp");
  EXPECT_EQ(loaded.TakeMessage().substr(0, 10), "system.txt");
  EXPECT_EQ(refused.notices.at(0).title, "Missing Auto-Bet File");
  EXPECT_TRUE(loaded.g.ScriptLines.empty());
}

TEST(GameFile, NamesStacksThatHaveNone) {
  TemporaryFolder folder;
  SavedTable table(folder);
  table.g.ChipStackName[7].clear();
  table.g.ChipStackName[8] = " \u20acuro";
  table.Save("one.crp");
  table.Load("one.crp");
  EXPECT_EQ(table.g.ChipStackName[7], "Chip-Stack #7");
  EXPECT_EQ(table.g.ChipStackName[8], " \u20acuro");
  table.Save("two.crp");
  std::string bytes;
  ASSERT_EQ(ReadWhole(folder / "two.crp", 1 << 20, bytes), "");
  EXPECT_EQ(bytes.substr(NameOffset(7), 14), "Chip-Stack #7 ") << "and is saved under it";
}

TEST(GameFile, RefusesWithoutChangingAnything) {
  TemporaryFolder folder;
  SavedTable table(folder);
  table.Bet(Bet::PassLine, 10);
  const std::string good = table.Save("good.crp");
  const auto withSignature = [&](const char* words) {
    std::string bytes = good;
    std::string field = words;
    field.resize(kSignatureWidth, ' ');
    return bytes.replace(0, kSignatureWidth, field);
  };
  constexpr const char* kRefusal =
      "This file is either from a different version, has been corrupted, or is not a true Rollwick game "
      "file.";
  struct Row {
    const char* name;
    std::string bytes;
    bool isTaken;
  };
  const Row rows[] = {
      {"empty", "", false},
      {"a byte short of a record", good.substr(0, 255), false},
      {"an older format", withSignature("Rollwick Game File, Data Format 5.0"), false},
      {"small letters", withSignature("Rollwick Game File, data format 5.1"), false},
      {"behind the signature", std::string(kSignatureWidth, ' ') + good.substr(0, 2 * 256), false},
      {"another word before", withSignature("Other Game File, Data Format 5.1"), true},
      {"a digit more", withSignature("Rollwick Game File, Data Format 5.10"), true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    table.g.BetAmount[Bet::Field] = Dollars(77);
    const LoadedGame loaded = table.LoadBytes(row.bytes);
    EXPECT_EQ(loaded.result, row.isTaken ? GameFileResult::Loaded : GameFileResult::Refused);
    EXPECT_EQ(table.g.BetAmount[Bet::Field], Dollars(row.isTaken ? 0 : 77));
    if (row.isTaken) continue;
    ASSERT_EQ(loaded.notices.size(), 1u);
    EXPECT_EQ(loaded.notices[0].text, kRefusal);
    EXPECT_EQ(loaded.notices[0].title, "Unable to Open Rollwick Game File");
    EXPECT_EQ(table.g.GamePath, (folder / "good.crp").string());
  }
  EXPECT_EQ(NoticesOf(table.Load("not there.crp")),
            "Unable to Open Rollwick Game File: No such file or directory, Error #2\n");
  table.g.RollInProgress = true;
  EXPECT_EQ(table.Load("good.crp").result, GameFileResult::Refused);
  EXPECT_NE(SaveGameFile(table.g, folder / "good.crp", folder.Path()), "");
  EXPECT_EQ(SaveGameFile(table.g, folder / "default.crp", folder.Path()), "");
}

TEST(GameFile, ADiskThatRefusesLeavesTheOldGame) {
  TemporaryFolder folder;
  SavedTable table(folder);
  const std::string old = table.Save("one.crp");
  table.g.TableDirty = true;
  table.Bet(Bet::PassLine, 10);
  {
    FileSizeLimit full(100'000);
    EXPECT_NE(SaveGameFile(table.g, folder / "one.crp", folder.Path()), "");
  }
  EXPECT_TRUE(table.g.TableDirty);
  EXPECT_TRUE(Contents(folder / "one.crp") == old);
  EXPECT_NE(SaveGameFile(table.g, folder / "none" / "one.crp", folder.Path()), "");
}

void ChangeDate(const std::filesystem::path& path) {
  const timespec times[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}

// A game with every companion in the folder, one of which then comes to harm.
TEST(GameFile, TellsOfCompanionsMissingOrAltered) {
  struct Row {
    const char* file;
    bool isRemoved;
    const char* title;
    const char* text;  // %: the path
  };
  const Row rows[] = {
      {"system.bet", true, "Missing Auto-Bet File",
       "The following Auto-Bet file (that was in use when this game was saved) was not found:\r\r%"},
      {"system.bet", false, "Altered Auto-Bet File",
       "The following Auto-Bet file (that was in use when this game was saved) has been changed:\r\r%"},
      {"rolls.rol", true, "Missing Dice Roll File",
       "The following Dice Roll file (that was in use when this game was saved) was not found:\r\r%"},
      {"rolls.rol", false, "Altered Dice Roll File",
       "The following Dice Roll file (that was in use when this game was saved) has been changed:\r\r%"},
      {"crooked.prb", true, "Missing Probability File",
       "The following Probability file (that was in use when this game was saved) was not found:\r\r%"},
      {"crooked.prb", false, "Altered Probability File",
       "The following Probability file (that was in use when this game was saved) has been changed:\r\r%"},
      {"games.glg", true, "Missing Games Log",
       "The following Games Log (that was in use when this game was saved) was not found:\r\r%\r\rThe "
       "following "
       "Games Log will be opened instead:\r\r@"},
      {"events.txt", true, "Missing Events Log",
       "The Events Log that was open when this game\rwas saved, was not found."},
      {"events.txt", false, "Changed Events Log",
       "The following Events Log (that was in use when this game was saved) has been changed:\r\r%"},
      {"events.ref", true, "Changed Events Log",
       "The following Events Log (that was in use when this game was saved) has been changed:\r\r%"},
      {"games.glg", false, "", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.file) + (row.isRemoved ? " removed" : " touched"));
    TemporaryFolder folder;
    SavedTable table(folder), loaded(folder);
    Game& g = table.g;
    UseScript(table, kScript);
    OpenDice(table);
    g.DiceFileMode = DiceFilePlayback;
    g.DiceFileRecord = 5;
    g.ProbabilityMatrix[MatrixValues][2][1] = 99'999;
    EXPECT_EQ(SaveProbabilityFile(g, folder / "crooked.prb"), "");
    g.GamesLogPath = (folder / "games.glg").string();
    PutContents(g.GamesLogPath, "log");
    EventsLog log(folder / "events.txt");
    EXPECT_EQ(log.Append(g, "a line\nanother\n"), "");
    g.EventsLogPath = log.Path().string();
    table.Save("one.crp");

    if (row.isRemoved) {
      std::filesystem::remove(folder / row.file);
    } else {
      ChangeDate(folder / row.file);
    }
    const std::string file = row.file;
    const bool isEvents = file.starts_with("events");
    const LoadedGame result = loaded.Load("one.crp");
    EXPECT_EQ(result.result, GameFileResult::Loaded);
    std::string text = row.text;
    const std::string named = (folder / (isEvents ? "events.txt" : row.file)).string();
    if (const auto at = text.find('%'); at != text.npos) text.replace(at, 1, named);
    if (const auto at = text.find('@'); at != text.npos)
      text.replace(at, 1, (folder / "default.glg").string());
    EXPECT_EQ(NoticesOf(result), text.empty() ? "" : std::string(row.title) + ": " + text + "\n");

    const auto isGone = [&](const char* name) { return row.isRemoved && file == name; };
    EXPECT_EQ(loaded.g.ScriptLines.empty(), isGone("system.bet"));
    EXPECT_EQ(loaded.g.DiceFile.IsOpen(), !isGone("rolls.rol"));
    EXPECT_EQ(loaded.g.DiceFileMode, isGone("rolls.rol") ? DiceFileOff : DiceFilePlayback);
    EXPECT_EQ(loaded.g.DiceFileRecord, isGone("rolls.rol") ? 1 : 5);
    EXPECT_EQ(loaded.g.ProbabilityMatrix == DefaultProbabilityMatrix(), isGone("crooked.prb"));
    EXPECT_EQ(loaded.g.EventsLogPath, (folder / (isEvents ? "Events Log.txt" : "events.txt")).string());
    EXPECT_EQ(loaded.g.GamesLogPath, (folder / (isGone("games.glg") ? "default.glg" : "games.glg")).string());
  }
}

TEST(GameFile, NextGameInheritsNoCompanions) {
  TemporaryFolder folder;
  SavedTable plain(folder), table(folder);
  plain.Save("plain.crp");
  UseScript(table, kScript);
  OpenDice(table);
  table.g.ProbabilityMatrix[MatrixValues][2][1] = 99'999;
  table.g.OutputIsToReopen = true;
  EXPECT_EQ(NoticesOf(table.Load("plain.crp")), "");
  EXPECT_TRUE(table.g.ScriptLines.empty() && !table.g.DiceFile.IsOpen() && !table.g.OutputIsToReopen);
  EXPECT_EQ(table.g.ProbabilityMatrix, DefaultProbabilityMatrix());
}

TEST(GameFile, FindsCompanionsInOtherLettersAndBesideIt) {
  TemporaryFolder folder;
  std::filesystem::create_directory(folder / "sub");
  PutContents(folder / "sub" / "Rolls.ROL", "x");
  const auto found = FindCompanion("sub/rolls.rol", folder.Path());
  ASSERT_TRUE(found);
  EXPECT_EQ(*found, folder / "sub" / "Rolls.ROL");
  EXPECT_FALSE(FindCompanion("sub", folder.Path())) << "a folder is no companion";
  EXPECT_FALSE(FindCompanion("none/rolls.rol", folder.Path()));

  const std::string deep(90, 'd');
  bool isCut = false;
  EXPECT_EQ(StoredPath(std::filesystem::path("/") / deep / "a.bet", "/" + deep, isCut).size(), 97u);
  EXPECT_EQ(StoredPath(std::filesystem::path("/") / deep / "longer.bet", "/" + deep, isCut), "longer.bet");
  EXPECT_FALSE(isCut);
  EXPECT_EQ(StoredPath(std::filesystem::path("/") / (deep + deep), "/", isCut).size(), kPathWidth);
  EXPECT_TRUE(isCut);
  EXPECT_EQ(ShownPath("a\r\x80\n"), "a?\u20ac?");
}

TEST(GameFile, WritesDatesByTheClockOfTheWall) {
  TemporaryFolder folder;
  const std::filesystem::path path = folder / "file";
  PutContents(path, "");
  const char* const zone = getenv("TZ");
  const std::string before = zone == nullptr ? "" : zone;
  setenv("TZ", "UTC0", 1);
  tzset();
  const std::pair<time_t, const char*> rows[] = {
      {946'684'800, "1/1/2000"},
      {946'684'801, "1/1/2000 12:00:01 AM"},
      {946'728'000, "1/1/2000 12:00:00 PM"},
      {1'762'783'509, "11/10/2025 2:05:09 PM"},
      {1'762'740'309, "11/10/2025 2:05:09 AM"},
  };
  for (const auto& [seconds, text] : rows) {
    const timespec times[2] = {{seconds, 999'999'999}, {seconds, 999'999'999}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_EQ(FileDateText(path), text);
  }
  EXPECT_EQ(FileDateText(folder / "none"), "");
  zone == nullptr ? unsetenv("TZ") : setenv("TZ", before.c_str(), 1);
  tzset();
}

}  // namespace
}  // namespace rollwick
