// What the window is made of and can be tried without it: the words behind the program, the list of recent
// games, the files a script may have.
#include <fstream>

#include "session/DataFolder.h"
#include "ui/CommandLine.h"
#include "ui/RecentGames.h"
#include "ui/tests/TestWindow.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;

struct CommandRow {
  const char* name;
  std::vector<std::string> words;
  std::optional<int> exitCode;
  const char* says;  // in what is written
};
const CommandRow kCommands[] = {
    {"nothing", {}, {}, ""},
    {"help", {"--help"}, 0, "--data DIR"},
    {"version", {"--version"}, 0, "rollwick-table "},
    {"unknown option", {"--dta", "x"}, 2, "unknown option --dta"},
    {"short unknown option", {"-x"}, 2, "unknown option -x"},
    {"data without folder", {"--data"}, 2, "--data needs a folder"},
    {"game without file", {"--game="}, 2, "--game needs a file"},
    {"two games", {"a.crp", "b.crp"}, 2, "more than one game"},
    {"all of them", {"--data=d", "--game", "g.crp"}, {}, ""},
    {"a game that looks like an option", {"--", "-g.crp"}, {}, ""},
};

TEST(CommandLine, IsProved) {
  for (const CommandRow& row : kCommands) {
    SCOPED_TRACE(row.name);
    const TableCommand command = ReadTableCommand(row.words);
    EXPECT_EQ(command.exitCode, row.exitCode);
    EXPECT_NE((command.output + command.error).find(row.says), std::string::npos) << command.error;
    EXPECT_EQ(command.error.empty(), command.exitCode.value_or(0) == 0);
  }
  const TableOptions options = ReadTableCommand({"--data", "d", "-g.crp"}).options;
  EXPECT_TRUE(options.game.empty());
  EXPECT_EQ(ReadTableCommand({"--data=d", "g.crp"}).options.dataFolder, fs::absolute("d"));
  EXPECT_EQ(ReadTableCommand({"--data=d", "g.crp"}).options.game, fs::absolute("g.crp"));
  EXPECT_EQ(ReadTableCommand({}).options.dataFolder, fs::absolute(UserDataFolder()));
}

TEST(RecentGames, KeepsTheNewestInItsFile) {
  const TemporaryFolder folder;
  const fs::path file = folder / "recent";
  RecentGames recent(file);
  for (int game = 1; game <= 10; ++game) recent.Add(folder / ("g" + std::to_string(game)));
  recent.Add(folder / "g5");
  recent.Forget(folder / "g9");
  std::string names;
  const RecentGames kept(file);
  for (const fs::path& game : kept.Games()) names += game.filename().string() + " ";
  EXPECT_EQ(names, "g5 g10 g8 g7 g6 g4 g3 ");
  std::ofstream(file) << "relative\n" << std::string(3, '\0') << "\n/there\n/there";
  EXPECT_EQ(RecentGames(file).Games(), std::vector<fs::path>{"/there"});
}

struct HouseShare : TestWindow {};

TEST_F(HouseShare, IsToldInDollars) {
  EXPECT_EQ(HouseShareText(g(), Bet::PassLine),
            "In the long run a bet of $100 loses $1.4141 a decision and $0.4189 a roll.");
  EXPECT_EQ(HouseShareText(g(), Bet::PassLineOdds),
            "In the long run a bet of $100 earns $0.00 a decision and $0.00 a roll.");
}

struct FilesOfScripts : TestWindow {};

TEST_F(FilesOfScripts, OutsideOfTheFolderThePlayerIsAskedOnce) {
  Host& host = *g().TheHost;
  EXPECT_EQ(host.GrantFile(g(), "out.txt", FileUse::Write).path, folder / "out.txt");
  EXPECT_NE(host.GrantFile(g(), "", FileUse::Write).refusal, "");
  EXPECT_EQ(Asked(), "");
  const std::string outside = (temporary / "other.txt").string();
  player.answers = {"No", "Yes", "No"};
  EXPECT_NE(host.GrantFile(g(), outside, FileUse::Write).refusal, "");
  EXPECT_NE(player.lastText.find(outside), std::string::npos);
  EXPECT_EQ(host.GrantFile(g(), "../other.txt", FileUse::Write).path, outside);
  EXPECT_EQ(host.GrantFile(g(), outside, FileUse::Write).refusal, "") << "asked again";
  EXPECT_NE(host.GrantFile(g(), outside, FileUse::Read).refusal, "") << "may write, not read";
  EXPECT_EQ(player.titles.size(), 3U);
  fs::create_symlink(temporary.Path(), folder / "link");
  EXPECT_NE(host.GrantFile(g(), "link/other2.txt", FileUse::Read).refusal, "") << "behind a link";
}

TEST_F(FilesOfScripts, AWaitEndsWithTheRun) {
  g().KeepRolling = true;
  Later(5, [this] { g().KeepRolling = false; });
  QElapsedTimer since;
  since.start();
  g().TheHost->Wait(g(), 3'600'000);
  EXPECT_FALSE(g().KeepRolling);
  EXPECT_LT(since.elapsed(), 3'600'000);
}

}  // namespace
}  // namespace rollwick
