// gameslog and games show from outside.
#include <gtest/gtest.h>

#include "console/tests/Rollwick.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

struct GamesCommands : testing::Test {
  TemporaryFolder folder;
  std::string log = (folder / "my.glg").string();

  std::vector<nlohmann::ordered_json> Play(const std::string& input) const {
    return Lines(Rollwick({"play", "--json", "--seed", "7"}, input).out);
  }
  nlohmann::ordered_json Show(std::vector<std::string> options = {}) const {
    options.insert(options.begin(), {"games", "show", log, "--json"});
    const Result result = Rollwick(options);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    return nlohmann::ordered_json::parse(result.out);
  }
};

TEST_F(GamesCommands, PlayedAndShown) {
  Play("gameslog " + log + "\nnew\n");
  EXPECT_EQ(Show()["games"], 0) << "a log without games";
  // Two games ended by `new`, one by the end of the input, one while the log is off.
  Play("gameslog " + log + "\nbet 43 10\nroll 3 4\nnew\nbet 43 10\nroll 1 1\nroll 2 3\nnew\nnew\n" +
       "gameslog off\nroll 3 4\nnew\ngameslog " + log + "\nbet 43 20\nroll 3 4\n");
  const auto net = Show({"--view", "8"});
  EXPECT_EQ(net["caption"], "$ Bets Won/Lost (Net)");
  EXPECT_EQ(net["games"], 3);
  EXPECT_EQ(net["won"], 2);
  EXPECT_EQ(net["lost"], 1);
  EXPECT_EQ(net["sum"], "20");
  EXPECT_EQ(net["median"], "10");
  EXPECT_EQ(net["low"], "-10");
  EXPECT_EQ(Show({"--view", "8", "--break", "-10:10"})["even"], 2);
  const auto won = Show({"--view", "# ROLLS", "--include", "won"});
  EXPECT_EQ(won["total"], 2);
  EXPECT_EQ(won["games"], 3);
  EXPECT_EQ(won["sum"], "2");
  const std::string people = Rollwick({"games", "show", log}).out;
  for (const char* part : {"# Rolls, 3 games", "66.67%", "Median                             1.0\n",
                           "1.0 to 2.0                    2 games  66.67 %"})
    EXPECT_NE(people.find(part), std::string::npos) << part << people;
}

TEST_F(GamesCommands, WhatIsRefused) {
  const std::string text = (folder / "text").string();
  std::ofstream(text) << "a letter";
  Play("gameslog " + log);
  struct Row {
    const char* name;
    std::vector<std::string> words;
    int exitCode;
    const char* error;
  };
  const Row rows[] = {
      {"no command", {"games"}, 2, "games needs one of these words: show."},
      {"no file", {"games", "show"}, 2, "FILE.glg"},
      {"not there",
       {"games", "show", "/nowhere.glg"},
       1,
       "/nowhere.glg: No such file or directory, Error #2"},
      {"no log", {"games", "show", text}, 1, "text is either from an older version"},
      {"no such column", {"games", "show", log, "--view", "32"}, 2, "--view"},
      {"a slip", {"games", "show", log, "--view", "# Rools"}, 2, "Did you mean # Rolls"},
      {"no such class", {"games", "show", log, "--include", "won,tied"}, 2, "--include"},
      {"no class", {"games", "show", log, "--include", ""}, 2, "--include"},
      {"a class and nothing", {"games", "show", log, "--include", "won,"}, 2, "--include"},
      {"one break-point", {"games", "show", log, "--break", "5"}, 2, "--break"},
      {"the higher one first", {"games", "show", log, "--break", "5:-5"}, 2, "--break"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = Rollwick(row.words);
    EXPECT_EQ(result.exitCode, row.exitCode);
    EXPECT_NE(result.error.find(row.error), std::string::npos) << result.error;
  }
  for (const std::string& line :
       {"gameslog " + text, std::string("gameslog /nowhere/x"), std::string("gameslog /")})
    EXPECT_EQ(Play(line + "\nroll\n")[0]["ok"], false) << line;
  const FileSizeLimit full(400);
  const Result fullDisk = Rollwick({"play", "--quiet"}, "gameslog " + log + "\nroll 3 4\n");
  EXPECT_EQ(fullDisk.exitCode, 1);
  EXPECT_NE(fullDisk.error.find("Error #27"), std::string::npos);
}

}  // namespace
}  // namespace rollwick
