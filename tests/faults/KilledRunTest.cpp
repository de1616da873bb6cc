// `rollwick play` with every log on, killed at any time: what was written stays, nothing false is added, and
// the next start goes on behind it. ROLLWICK_KILLS says how many kills; 40 when it is not set.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <random>
#include <thread>

#include "base/Record.h"
#include "dice/DiceFile.h"
#include "files/tests/SavedTable.h"
#include "stats/logs/EventsLog.h"
#include "stats/logs/GamesLog.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr int kKillsInAFolder = 20;  // so that the logs stay short
constexpr int kGameRolls = 300;
constexpr std::size_t kRollsPerFlush = 512;

constexpr const char* kScript = R"(While . . .
          Next roll is a come-out roll
    then . . .
          Bet $ 10 on Pass Line
While . . .
          Next roll is NOT a come-out roll
    then . . .
          Bet $ 6 on Place 6
          Bet $ 10 on Come
          Add $ 1 to Chip-Stack # 1
)";
// The same, and the script itself begins a new game after so many rolls, in the middle of Hyper-Drive.
constexpr const char* kReset = R"(While . . .
          The # of rolls in the game are equal to $ 300
    then . . .
          Reset table
)";

struct Row {
  const char* name;
  bool scriptResets;
  bool recordsAll;  // a new game ends a recording until the next command
};
constexpr Row kRows[] = {{"a game and a save for each command", false, true},
                         {"games without end in one Hyper-Drive", true, false}};

std::string Commands(const Row& row) {
  std::string text =
      "log on\ngameslog games.glg\nrecord rolls.rol\nset ReseedNewGames on\n"
      "script load system.txt\nscript on\n";
  if (row.scriptResets) return text + "hyper 0\n";
  for (int game = 0; game < 10'000; ++game) text += "hyper 300\nsave game.crp\nnew\nrecord rolls.rol\n";
  return text;
}

// `rollwick play` in a folder, from its start to its kill.
class Run {
 public:
  Run(const fs::path& folder, const char* commands) {
    process_ = fork();
    if (process_ != 0) return;
    const int nowhere = open("/dev/null", O_RDWR);
    if (chdir(folder.c_str()) != 0 || dup2(nowhere, 0) < 0 || dup2(nowhere, 1) < 0) _exit(3);
    execl(ROLLWICK_PROGRAM, "rollwick", "play", "--data", folder.c_str(), commands, nullptr);
    _exit(4);
  }
  void Kill() {
    kill(process_, SIGKILL);
    const int status = Wait();
    EXPECT_TRUE(WIFSIGNALED(status)) << "it ended by itself, with " << WEXITSTATUS(status);
  }
  int Wait() {
    int status = 0;
    EXPECT_EQ(waitpid(process_, &status, 0), process_);
    return status;
  }

 private:
  pid_t process_ = 0;
};

std::string IndexOf(std::string_view text) {
  std::string index(static_cast<std::size_t>(std::ranges::count(text, '\n')) * 4, '\0');
  RecordWriter writer(index);
  for (std::size_t start = 0; start < text.size(); start = text.find('\n', start) + 1)
    writer.Int32(static_cast<std::int32_t>(start + 1));
  EXPECT_FALSE(writer.Failed());
  return index;
}

// A roll's number and dice, from its line; number 0 for other lines.
struct LoggedRoll {
  int number = 0;
  unsigned char dice = 0;
};
LoggedRoll RollOfLine(std::string_view line) {
  constexpr std::string_view kStart = " Roll #";
  LoggedRoll roll;
  const std::size_t dice = line.find(" (");
  if (!line.starts_with(kStart) || dice == line.npos || line.size() < dice + 6) return roll;
  std::from_chars(line.data() + kStart.size(), line.data() + line.size(), roll.number);
  roll.dice = DiceByte(line[dice + 2] - '0', line[dice + 4] - '0');
  return roll;
}

// What a run added to the Events Log.
struct Diary {
  std::string dice;  // as bytes of a Dice Roll File
  int newGames = 0;
};

class Folder {
 public:
  explicit Folder(const Row& row) : row_(row) {
    PutContents(folder_ / "system.txt", std::string(kScript) + (row.scriptResets ? kReset : ""));
    PutContents(folder_ / "commands", Commands(row));
    PutContents(folder_ / "last commands", "log on\nrolls 3\n");
  }

  void RunAndKill(std::mt19937& random) {
    Run run(folder_.Path(), "commands");
    const auto kFuse = milliseconds(5 + random() % 56);
    const bool isEarly = random() % 5 == 0;  // while it starts
    for (int wait = 0; !isEarly && wait < 10'000 && LogLength() <= text_.size(); ++wait)
      std::this_thread::sleep_for(milliseconds(1));
    std::this_thread::sleep_for(kFuse);
    run.Kill();
    if (!isEarly) {
      EXPECT_GT(LogLength(), text_.size()) << "nothing was played";
    }
  }

  void Check(bool mends) {
    const Diary diary = ReadDiary();
    CheckRecording(diary);
    CheckGames(diary);
    CheckSavedGame();
    if (mends) Mend();
  }

  // A start that nobody interrupts, behind all that happened.
  void EndWell() {
    const int status = Run(folder_.Path(), "last commands").Wait();
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    const std::string text = Contents(log_);
    EXPECT_TRUE(text.starts_with(text_) && text.size() > text_.size());
    EXPECT_TRUE(Contents(index_) == IndexOf(text)) << "the index after a whole run";
  }

  std::size_t rolls = 0, games = 0, leftOvers = 0;

 private:
  std::size_t LogLength() const {
    std::error_code missing;
    const auto length = fs::file_size(log_, missing);
    return missing ? 0 : static_cast<std::size_t>(length);
  }
  Diary ReadDiary();
  void CheckRecording(const Diary& diary);
  void CheckGames(const Diary& diary);
  void CheckSavedGame();
  void Mend();

  const Row& row_;
  TemporaryFolder folder_;
  const fs::path log_ = folder_ / "Events Log.txt", index_ = folder_ / "Events Log.ref";
  std::string text_, recording_;  // as the last check left them
  int games_ = 0;
};

// In every game the rolls count up from 1 without a gap. Only the last line may be unfinished.
Diary Folder::ReadDiary() {
  const std::string before = std::move(text_);
  text_ = Contents(log_);
  Diary diary;
  EXPECT_TRUE(text_.starts_with(before)) << "the log has lost or changed lines";
  std::size_t start = before.size();
  // The half line of the run before was ended first.
  if (!before.empty() && !before.ends_with('\n') && text_.size() > start) {
    EXPECT_EQ(text_[start++], '\n');
  }
  int last = 0;
  for (std::size_t end; (end = text_.find('\n', start)) != text_.npos; start = end + 1) {
    const std::string_view line = std::string_view(text_).substr(start, end - start);
    if (line == " New game started") {
      ++diary.newGames;
      last = 0;
    } else if (line.starts_with(" Roll #")) {
      const LoggedRoll roll = RollOfLine(line);
      EXPECT_EQ(roll.number, last + 1) << line;
      last = roll.number;
      diary.dice += static_cast<char>(roll.dice);
      if (testing::Test::HasFailure()) break;
    }
  }
  rolls += diary.dice.size();
  return diary;
}

// The same rolls as in the diary; log and recorder are flushed together, so neither is far ahead.
void Folder::CheckRecording(const Diary& diary) {
  const std::string before = std::move(recording_);
  recording_ = Contents(folder_ / "rolls.rol");
  ASSERT_TRUE(recording_.starts_with(before)) << "the recording has lost or changed rolls";
  const std::string dice = recording_.substr(before.size());
  for (const char byte : dice) {
    const DiceFaces faces = FacesOfByte(static_cast<unsigned char>(byte));
    ASSERT_TRUE(faces.die1 >= 1 && faces.die1 <= 6 && faces.die2 >= 1 && faces.die2 <= 6);
  }
  const std::size_t both = std::min(dice.size(), diary.dice.size());
  EXPECT_TRUE(dice.substr(0, both) == diary.dice.substr(0, both)) << "other rolls than in the Events Log";
  if (row_.recordsAll) {
    EXPECT_LE(std::max(dice.size(), diary.dice.size()) - both, kRollsPerFlush);
  }
}

void Folder::CheckGames(const Diary& diary) {
  if (!fs::exists(folder_ / "games.glg")) return;
  int count = 0;
  const auto refusal = ReadGames(folder_ / "games.glg", [&](const GameRecord& game) {
    EXPECT_EQ(PlainText(game[GameRolls]), std::to_string(kGameRolls));
    EXPECT_EQ(game[GameBetsDecided], game[GameBetsWon] + game[GameBetsLost]);
    ++count;
  });
  ASSERT_FALSE(refusal) << refusal->text;
  const auto room = fs::file_size(folder_ / "games.glg") / kRecordSize;
  EXPECT_GE(room, static_cast<std::uintmax_t>(count) + 1);
  EXPECT_LE(room, static_cast<std::uintmax_t>(count) + 2) << "at most one game behind the count";
  const int added = count - games_;
  EXPECT_GE(added, diary.newGames);
  EXPECT_LE(added, diary.newGames + static_cast<int>(kRollsPerFlush) / kGameRolls + 2);
  games += static_cast<std::size_t>(added);
  games_ = count;
}

void Folder::CheckSavedGame() {
  leftOvers = 0;
  for (const auto& entry : fs::directory_iterator(folder_.Path())) {
    if (entry.path().filename().string().starts_with(".rollwick-")) ++leftOvers;
  }
  if (!fs::exists(folder_ / "game.crp")) return;
  TestTable table;
  const LoadedGame loaded = LoadGameFile(table.g, folder_ / "game.crp", folder_.Path());
  EXPECT_EQ(loaded.result, GameFileResult::Loaded);
  EXPECT_FALSE(table.g.TableDirty) << "a saved game that needed repair";
  CloseDiceFile(table.g);
}

// The next line mends text and index.
void Folder::Mend() {
  TestTable table;
  const std::string line = "      Checked\n";
  ASSERT_EQ(EventsLog(log_).Append(table.g, line), "");
  const std::string mended = Contents(log_);
  EXPECT_TRUE(mended == text_ + (text_.empty() || text_.ends_with('\n') ? "" : "\n") + line);
  EXPECT_TRUE(Contents(index_) == IndexOf(mended)) << "an index that does not fit after mending";
  text_ = mended;
}

TEST(KilledRun, LosesNothingThatWasWritten) {
  const char* const wanted = std::getenv("ROLLWICK_KILLS");
  const int kills = wanted == nullptr ? 40 : std::atoi(wanted);
  std::mt19937 random(std::random_device{}());
  std::size_t rolls = 0, games = 0, leftOvers = 0;
  for (int kill = 0; kill < kills;) {
    const Row& row = kRows[static_cast<std::size_t>(kill / kKillsInAFolder) % std::size(kRows)];
    Folder folder(row);
    for (int i = 0; i < kKillsInAFolder && kill < kills; ++i, ++kill) {
      SCOPED_TRACE(std::string(row.name) + ", kill " + std::to_string(kill + 1));
      folder.RunAndKill(random);
      folder.Check(random() % 2 == 0);
      if (HasFailure()) return;
    }
    folder.EndWell();
    rolls += folder.rolls;
    games += folder.games;
    leftOvers += folder.leftOvers;
  }
  EXPECT_GT(games, 0U);
  std::cout << kills << " kills: " << rolls << " rolls in the Events Logs, " << games
            << " games in the Games Logs, " << leftOvers << " temporary files left behind\n";
}

}  // namespace
}  // namespace rollwick
