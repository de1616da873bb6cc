// Games saved, loaded and shown from outside.
#include <gtest/gtest.h>

#include "console/tests/Rollwick.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

struct GameFiles : testing::Test {
  TemporaryFolder folder;
  std::string file = (folder / "my.crp").string();

  Result Play(const std::string& input, std::vector<std::string> options = {}) const {
    options.insert(options.begin(), {"play", "--json", "--seed", "7", "--data", folder.Path().string()});
    return Rollwick(options, input);
  }
};

TEST_F(GameFiles, GoOnWhereTheyWereSaved) {
  const std::string start = "set MinPlacardBet 5\nbet 43 10\nroll 4 4\n";
  const auto saved = Lines(Play(start + "save " + file + "\nroll 3 4\nload " + file + "\nroll 4 4\n").out);
  ASSERT_EQ(saved.size(), 7u);
  EXPECT_EQ(saved[4]["bankroll"], "490") << "lost";
  EXPECT_EQ(saved[5]["bankroll"], "500");
  EXPECT_EQ(saved[5]["point"], 8);
  EXPECT_EQ(saved[6]["bankroll"], "510");

  const auto later = Lines(Play("roll 4 4\n", {"--game", file}).out);
  EXPECT_EQ(later[0]["bankroll"], "510");
  const auto anew = Lines(Play("set ReseedNewGames off\nshow rules\n", {"--rules", file}).out);
  EXPECT_EQ(anew[0]["point"], 0);
  EXPECT_EQ(anew[0]["roll"], 0);
  EXPECT_NE(anew[1].dump().find("\"MinPlacardBet\":\"5\""), std::string::npos) << anew[1];

  std::filesystem::rename(file, folder / "default.crp");
  EXPECT_EQ(Lines(Play("roll 4 4\n", {"--game", "default"}).out)[0]["bankroll"], "510");
  EXPECT_FALSE(std::filesystem::exists(folder / "default.glg")) << "nobody named a Games Log";
}

TEST_F(GameFiles, ARunIsSaved) {
  const std::string script = (folder / "s.txt").string();
  std::ofstream(script) << "While . . .\n          Next roll is a come-out roll\n    then . . .\n"
                           "          Bet $ 10 on Pass Line\n";
  const auto run = [&](std::vector<std::string> options) {
    options.insert(options.begin(), {"run", script, "--rolls", "100", "--seed", "1", "--json"});
    return Rollwick(options);
  };
  const Result first = run({"--save", file});
  EXPECT_EQ(first.exitCode, 0) << first.error;
  const auto second = nlohmann::ordered_json::parse(run({"--game", file}).out);
  EXPECT_EQ(second["summary"]["raw"]["TotalRolls"], 200);
  EXPECT_EQ(run({"--save", (folder / "none" / "x.crp").string()}).exitCode, 1);
}

TEST_F(GameFiles, AScriptThatResetsTheTableSavesTheWorkingGame) {
  const std::string script = (folder / "s.txt").string();
  std::ofstream(script)
      << "While . . .\n          The # of rolls in the game are equal to $ 2\n    then . . .\n"
         "          Reset table\n";
  const std::string workingGame = (folder / "default.crp").string();
  const std::string play = "script load " + script + "\nscript on\nroll 4 4\nroll 4 6\n";
  Play("bet 43 10\nsave " + workingGame + "\n");
  const std::string before = WholeFile(workingGame);
  EXPECT_EQ(Lines(Play("load " + workingGame + "\n" + play).out)[4]["roll"], 0);
  EXPECT_EQ(WholeFile(workingGame), before) << "nobody asked for it";

  EXPECT_EQ(Lines(Play(play, {"--game", "default"}).out)[3]["roll"], 0);
  const auto saved = Lines(Play("show\n", {"--game", "default"}).out);
  EXPECT_EQ(saved[0]["roll"], 2) << "as the game stood before";
  EXPECT_EQ(saved[0]["point"], 8);
  EXPECT_FALSE(std::filesystem::exists(folder / "active.tmp"));
}

TEST_F(GameFiles, AreShownFieldByField) {
  Play("bet 43 10\nroll 4 4\nsave " + file + "\n");
  const std::string text = Rollwick({"game", "show", file}).out;
  for (const char* part : {"BetAmount[43] = 10\n", "Point = 8\n", "Die1, Die2 = 44\n",
                           "ReseedNewGames = -1\n", "BetAmount[0] = 500\n", "ChipCount = 0\n"})
    EXPECT_NE(text.find(part), std::string::npos) << part;
  const auto json = nlohmann::ordered_json::parse(Rollwick({"game", "show", file, "--json"}).out);
  EXPECT_EQ(json["RollEventCount[0]"], "1");
}

TEST_F(GameFiles, WhatIsRefused) {
  std::ofstream(file) << "a letter";
  const std::string none = (folder / "none.crp").string();
  struct Row {
    const char* name;
    std::vector<std::string> words;
    int exitCode;
    const char* error;
  };
  const Row rows[] = {
      {"no game file", {"game", "show", file}, 1, "is not a true Rollwick game file."},
      {"not there", {"play", "--game", none}, 1, "No such file or directory, Error #2"},
      {"no rules", {"play", "--rules", file}, 1, "is not a true Rollwick game file."},
      {"no dice of a game", {"dice", "draw", "--rolls", "1", "--game", file}, 2, "--game and --rules"},
      {"half a command", {"game"}, 2, "game needs one of these words: show, fields."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = Rollwick(row.words);
    EXPECT_EQ(result.exitCode, row.exitCode);
    EXPECT_NE(result.error.find(row.error), std::string::npos) << result.error;
  }
  const auto loaded = Lines(Play("bet 43 10\nload " + file + "\nshow\n").out);
  EXPECT_EQ(loaded[1]["ok"], false);
  EXPECT_EQ(loaded[2]["bets"]["Pass Line"], "10");
}

}  // namespace
}  // namespace rollwick
