// A save that meets an accident at any of its steps: each file is then the old one or the new one, whole,
// nothing is left beside them, and the player is told. The logs, which grow in place, lose no more than their
// last lines.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <map>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/ScriptText.h"
#include "base/AtomicFile.h"
#include "base/Record.h"
#include "dice/DiceFile.h"
#include "dice/ProbabilityFile.h"
#include "faults/Faults.h"
#include "files/GameFileLayout.h"
#include "files/HotKeys.h"
#include "files/tests/SavedTable.h"
#include "stats/logs/EventsLog.h"
#include "stats/logs/GamesLog.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;
using Action = std::function<std::string()>;  // gives what the player is told, empty on success

// Puts old files into the folder, and gives the save of new ones over them.
using Prepare = Action (*)(const TemporaryFolder& folder);

struct AccidentKind {
  const char* name;
  Accident kind;
  int error;
};
constexpr AccidentKind kAccidents[] = {
    {"a full disk", Accident::Fails, ENOSPC},
    {"a broken disk", Accident::Fails, EIO},
    {"an interruption", Accident::Fails, EINTR},
    {"a write in two pieces", Accident::CutShort, 0},
    {"a disk that fills", Accident::FullBehind, ENOSPC},
    {"a kill", Accident::Killed, 0},
    {"a kill half way", Accident::KilledHalf, 0},
};

struct Aftermath {
  const AccidentKind& accident;
  std::string told;
  bool isKilled = false;
  bool mustTell = false;
};

// Runs the action in a process of its own, which the accident may kill. Whether the step was reached.
bool ReachedByChild(const Action& action, const PlannedAccident& planned, bool& isKilled) {
  const pid_t child = fork();
  if (child == 0) {
    PlanAccident(planned);
    action();
    _exit(EndAccident().isReached ? 0 : 1);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  EXPECT_TRUE(isKilled || WIFEXITED(status)) << "died of " << WTERMSIG(status);
  return isKilled || WEXITSTATUS(status) == 0;
}

// Every accident at every step that the action has.
template <class Check>
void ForEachAccident(Prepare prepare, Check check) {
  std::vector<bool> isWrite = {false};  // of each step, from 1; the first kind of accident learns it
  for (const AccidentKind& accident : kAccidents) {
    const bool mayKill = accident.kind == Accident::Killed || accident.kind == Accident::KilledHalf;
    const bool needsWrite = accident.kind != Accident::Fails && accident.kind != Accident::Killed;
    std::size_t step = 1;
    for (bool isReached = true; isReached; ++step) {
      if (needsWrite && step < isWrite.size() && !isWrite[step]) continue;
      SCOPED_TRACE(std::string(accident.name) + " at step " + std::to_string(step));
      const TemporaryFolder folder;
      const Action action = prepare(folder);
      const PlannedAccident planned = {accident.kind, static_cast<int>(step), accident.error};
      Aftermath after{accident, {}};
      if (mayKill) {
        isReached = ReachedByChild(action, planned, after.isKilled);
      } else {
        PlanAccident(planned);
        after.told = action();
        const AccidentReport report = EndAccident();
        isReached = report.isReached;
        after.mustTell =
            report.concernsContent && accident.kind == Accident::Fails && accident.error != EINTR;
        if (&accident == &kAccidents[0]) isWrite.push_back(report.isWrite);
      }
      if (after.mustTell) {
        EXPECT_NE(after.told, "");
      }
      check(folder, after);
      if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(step, 3U) << "hardly a step of the save was seen";
  }
}

// A file's bytes, or what counts of them. Paths and dates in games are the test's own; behind the games that
// a log counts may lie the rest of one.
std::string WhatCounts(const fs::path& path) {
  std::string bytes = Contents(path);
  if (path.extension() == ".crp") {
    for (int record = HeaderScript; record <= HeaderEventsLog; ++record) {
      const std::size_t start = RecordOffset(record);
      if (bytes.size() < start + kRecordSize) return bytes;
      bytes.replace(start + kHeaderPath, kPathWidth, kPathWidth, '-');
      bytes.replace(start + kHeaderDate, kDateWidth, kDateWidth, '-');
    }
  }
  if (path.extension() != ".glg") return bytes;
  std::string games;
  const auto refusal = ReadGames(path, [&](const GameRecord& game) {
    for (const Money field : game) games += PlainText(field) + " ";
    games += "\n";
  });
  EXPECT_FALSE(refusal) << refusal->text;
  return games;
}

Files FilesIn(const TemporaryFolder& folder) {
  Files files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder.Path()))
    files[entry.path().filename()] = WhatCounts(entry.path());
  return files;
}

std::vector<ScriptLine> Script(int bets) {
  std::string text = "Do this . . .\n";
  for (int bet = 0; bet < bets; ++bet) text += "          Bet $ 10 on Place 6\n";
  return ParseScriptText(text).lines;
}

struct Row {
  const char* name;
  Prepare prepare;
};

const Row kRows[] = {
    {"a game",
     [](const TemporaryFolder& folder) -> Action {
       const auto table = std::make_shared<SavedTable>(folder);
       table->Save("one.crp");
       table->Bet(Bet::PassLine, 10);
       return [table, &folder] { return SaveGameFile(table->g, folder / "one.crp", folder.Path()); };
     }},
    {"a game saved for the first time",
     [](const TemporaryFolder& folder) -> Action {
       const auto table = std::make_shared<SavedTable>(folder);
       return [table, &folder] { return SaveGameFile(table->g, folder / "one.crp", folder.Path()); };
     }},
    {"the working game with its script and matrix",
     [](const TemporaryFolder& folder) -> Action {
       const auto table = std::make_shared<SavedTable>(folder);
       for (const int bets : {1, 40}) {
         table->g.ScriptLines = Script(bets);
         table->g.ProbabilityMatrix[MatrixValues][2][1] = bets;
         table->g.ScriptDirty = table->g.ProbabilityDirty = true;
         if (bets == 1) table->Save("default.crp");
       }
       return [table, &folder] { return SaveGameFile(table->g, folder / "default.crp", folder.Path()); };
     }},
    {"a script",
     [](const TemporaryFolder& folder) -> Action {
       const auto table = std::make_shared<SavedTable>(folder);
       table->g.ScriptLines = Script(1);
       EXPECT_EQ(WriteScript(table->g, folder / "one.bet", false), "");
       table->g.ScriptLines = Script(2);
       return [table, &folder] { return WriteScript(table->g, folder / "one.bet", false); };
     }},
    {"selected lines as a text",
     [](const TemporaryFolder& folder) -> Action {
       const auto table = std::make_shared<SavedTable>(folder);
       PutContents(folder / "lines.txt", "of old");
       table->g.ScriptLines = Script(2);
       table->g.ScriptLines[1].Selected = true;
       return [table, &folder] { return WriteSelectedLinesToText(table->g, folder / "lines.txt"); };
     }},
    {"a script of the sibling product, converted",
     [](const TemporaryFolder& folder) -> Action {
       const auto table = std::make_shared<SavedTable>(folder);
       std::string bytes = ScriptFileBytes(Script(2));
       RecordWriter(bytes).Text("Quillhaven AutoBets, Data Format 5.0", kLongestLineText);
       PutContents(folder / "mine.bet", bytes);
       PutContents(folder / "mine[zq].bet", "of old");
       table->host.answers = {Answer::Yes, Answer::Yes};
       return [table, &folder] {
         const bool isDone = ConvertQuillhavenFile(table->g, folder / "mine.bet").has_value();
         return isDone ? "" : table->host.messages.back().text;
       };
     }},
    {"a matrix",
     [](const TemporaryFolder& folder) -> Action {
       const auto table = std::make_shared<SavedTable>(folder);
       EXPECT_EQ(SaveProbabilityFile(table->g, folder / "one.prb"), "");
       table->g.ProbabilityMatrix[MatrixValues][2][1] = 4'711;
       return [table, &folder] { return SaveProbabilityFile(table->g, folder / "one.prb"); };
     }},
    {"hot keys",
     [](const TemporaryFolder& folder) -> Action {
       EXPECT_EQ(SaveHotKeys(folder / kHotKeysFile, {{"a", "one.bet", "old"}}), "");
       return [&folder] { return SaveHotKeys(folder / kHotKeysFile, {{"b", "two.bet", "new"}}); };
     }},
    {"a game more in the Games Log",
     [](const TemporaryFolder& folder) -> Action {
       const GameRecord game = {Dollars(7)};
       EXPECT_FALSE(AppendGames(folder / "one.glg", {&game, 1}));
       return [game, &folder] {
         const auto refusal = AppendGames(folder / "one.glg", {&game, 1});
         return refusal ? refusal->text : "";
       };
     }},
    {"a game taken out of the Games Log",
     [](const TemporaryFolder& folder) -> Action {
       const GameRecord games[] = {{Dollars(7)}, {Dollars(8)}, {Dollars(9)}};
       EXPECT_FALSE(AppendGames(folder / "one.glg", games));
       return [&folder] {
         const auto refusal = DeleteGames(folder / "one.glg", {2, 2});
         return refusal ? refusal->text : "";
       };
     }},
};

TEST(InterruptedSave, LeavesTheOldFileOrTheNewOne) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const TemporaryFolder calm;
    const Action action = row.prepare(calm);
    const Files before = FilesIn(calm);
    ASSERT_EQ(action(), "");
    const Files saved = FilesIn(calm);
    ASSERT_NE(saved, before);

    ForEachAccident(row.prepare, [&](const TemporaryFolder& folder, const Aftermath& after) {
      const Files files = FilesIn(folder);
      for (const auto& [name, bytes] : files) {
        const auto old = before.find(name), fresh = saved.find(name);
        const bool isOld = old != before.end() && bytes == old->second;
        const bool isNew = fresh != saved.end() && bytes == fresh->second;
        const bool isLeftOver = after.isKilled && name.starts_with(".rollwick-");
        EXPECT_TRUE(isOld || isNew || isLeftOver) << name << " of " << bytes.size() << " bytes";
      }
      for (const auto& [name, bytes] : before) EXPECT_TRUE(files.contains(name)) << name << " is gone";
      if (after.isKilled) return;
      if (after.told.empty()) {
        EXPECT_TRUE(files == saved) << "nothing was told, and not all was saved";
      } else {
        EXPECT_NE(after.told.find(SystemErrorText(after.accident.error)), after.told.npos) << after.told;
      }
    });
    if (HasFailure()) return;
  }
}

const std::string kOldLines = " New game started\n Roll #1:  7 (4.3) from RNG #1\n";
const std::string kNewLines = " Roll #2:  6 (2.4) from RNG #1\n      Point established\n";

std::string IndexOf(std::string_view text) {
  std::string index;
  for (std::size_t start = 0; start < text.size(); start = text.find('\n', start) + 1) {
    std::string offset(4, '\0');
    RecordWriter(offset).Int32(static_cast<std::int32_t>(start + 1));
    index += offset;
  }
  return index;
}

TEST(InterruptedSave, TheEventsLogIsMendedByItsNextLine) {
  const Prepare prepare = [](const TemporaryFolder& folder) -> Action {
    const auto table = std::make_shared<TestTable>();
    EXPECT_EQ(EventsLog(folder / "log.txt").Append(table->g, kOldLines), "");
    const auto log = std::make_shared<EventsLog>(folder / "log.txt");
    return [table, log] { return log->Append(table->g, kNewLines); };
  };
  ForEachAccident(prepare, [](const TemporaryFolder& folder, const Aftermath& after) {
    TestTable table;
    const std::string next = " Roll #3:  6 (2.4) from RNG #1\n";
    const std::string left = Contents(folder / "log.txt");
    if (!after.isKilled && after.told.empty()) {
      EXPECT_EQ(left, kOldLines + kNewLines);
    }
    EXPECT_TRUE((kOldLines + kNewLines).starts_with(left) && left.size() >= kOldLines.size()) << left;
    EventsLog log(folder / "log.txt");
    ASSERT_EQ(log.Append(table.g, next), "");
    const std::string text = Contents(folder / "log.txt");
    EXPECT_EQ(text, left + (left.ends_with('\n') ? "" : "\n") + next);
    EXPECT_EQ(Contents(folder / "log.ref"), IndexOf(text));
  });
}

TEST(InterruptedSave, TheRecorderLosesItsLastRollsAtMost) {
  const Prepare prepare = [](const TemporaryFolder& folder) -> Action {
    const auto table = std::make_shared<TestTable>();
    PutContents(folder / "one.rol", std::string(10, DiceByte(1, 1)));
    EXPECT_FALSE(OpenDiceFile(table->g, folder / "one.rol", false));
    table->g.DiceFileMode = DiceFileRecording;
    table->g.DiceFileRecord = 11;
    return [table] {
      for (table->g.Die1 = table->g.Die2 = 2; table->g.DiceFileRecord <= 20;) RecordDiceRoll(table->g);
      FlushDiceFile(table->g);
      CloseDiceFile(table->g);
      return table->TakeMessage();
    };
  };
  ForEachAccident(prepare, [](const TemporaryFolder& folder, const Aftermath& after) {
    const std::string all = std::string(10, DiceByte(1, 1)) + std::string(10, DiceByte(2, 2));
    const std::string left = Contents(folder / "one.rol");
    EXPECT_TRUE(all.starts_with(left) && left.size() >= 10) << left.size();
    if (!after.isKilled && after.told.empty()) {
      EXPECT_EQ(left, all);
    }
  });
}

}  // namespace
}  // namespace rollwick
