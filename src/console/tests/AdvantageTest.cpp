// The exact figures and the comps from the command line.
#include <gtest/gtest.h>

#include "console/tests/Rollwick.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

struct Advantage : testing::Test {
  TemporaryFolder folder;

  Result Run(std::vector<std::string> words, const std::string& input = "") const {
    words.insert(words.end(), {"--data", folder.Path().string(), "--seed", "7"});
    return Rollwick(words, input);
  }
  std::string File(const char* name) const { return (folder / name).string(); }
};

TEST_F(Advantage, UnderTheRulesOfTheOptions) {
  Run({"play"},
      "set BarNumber 2\npayoff Pass_Line 2 1\npayoff Field 2 1\npayoff field 1 3 1\nset LayVigOnAll off\n"
      "set RecordEventsActive on\nroll 1 1\nroll 3 4\nmatrix cell 2 1 100\nmatrix save \"" +
          File("aces.prb") + "\"\nmatrix on\nsave \"" + File("aces.crp") + "\"\n");
  const std::string log = WholeFile(File("Events Log.txt"));
  EXPECT_NE(log, "");
  const struct Row {
    const char* name;
    std::vector<std::string> options;
    std::string lay4, dontPass, field;  // EV of a decision
  } rows[] = {
      {"a new house", {}, "-.02439", "-.014026", "-.055556"},
      {"pushes counted", {"--count-zero-outcomes"}, "-.006098", "-.013636", "-.055556"},
      {"always aces", {"--matrix", File("aces.prb")}, "0.000000", "1.", "2."},
      {"a game with its dice", {"--game", File("aces.crp")}, "0.000000", "0.000000", "3."},
      {"its rules alone", {"--rules", File("aces.crp")}, "-.016667", "-.014026", "-.027778"},
      {"a game under its own rules",
       {"--game", File("aces.crp"), "--rules", File("aces.crp")},
       "0.000000",
       "0.000000",
       "3."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::vector<std::string> words = {"advantage", "--json"};
    words.insert(words.end(), row.options.begin(), row.options.end());
    const Result result = Run(words);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    const auto bets = Lines(result.out).at(0)["advantage"];
    ASSERT_EQ(bets.size(), 83U);
    EXPECT_EQ(bets[0]["ev_per_decision"], row.lay4);
    EXPECT_EQ(bets[45]["ev_per_decision"], row.dontPass);
    EXPECT_EQ(bets[48]["ev_per_decision"], row.field);
  }
  EXPECT_EQ(WholeFile(File("Events Log.txt")), log) << "looking writes nothing";
}

TEST_F(Advantage, AsATableAndInAGame) {
  const std::string text = Run({"advantage"}).out;
  for (const char* line : {"All figures shown in percentage, at 120 Rolls / hr.\n",
                           "\nPlace 6              -0.46       59.64   -1.52     107.88    -55.56       3.27 "
                           "     0.31   0:01:38.1\n",
                           "\nDP/DC 10 Odds "}) {
    EXPECT_NE(text.find(line), std::string::npos) << line << text;
  }
  EXPECT_EQ(Run({"play"}, "show advantage\n").out, text);

  const auto lines = Lines(Run({"play", "--json"}, "payoff Hop_3-4 17 1\nshow advantage\n").out);
  EXPECT_EQ(lines[1]["advantage"][78].dump(),
            R"({"id":79,"name":"Hop 3-6","ev_per_roll":"-.111111","ev_per_decision":"-.111111",)"
            R"("rolls_per_decision":"1.","sd_per_roll":"3.664983","sd_per_decision":"3.664983"})");
}

// Three come-out sevens with ten on the Pass Line, two of them with one on Any Seven as well.
TEST_F(Advantage, CompsOfAGame) {
  const std::string game =
      "set CompRate 50\nset RollsPerHour 60\nbet Pass_Line 10\nbet Seven 1\nroll 3 4\nbet Pass_Line 10\n"
      "bet Seven 1\nroll 2 5\nbet Pass_Line 10\nroll 1 6\n";
  const struct Row {
    const char* name;
    std::string settings, action, value, text;
  } rows[] = {
      {"no bet", "", "0", "0", "No bet earns comps.\n"},
      {"Pass Line: half of 30 times 1.4141 %", "set CompBetMask[1] 2048\n", "30", "0.2121",
       "For Pass Line.\n"},
      {"half of the action", "set CompBetMask[1] 2048\nset CompBase 1\n", "30", "15",
       "Total comp value $         15.00\n"},
      {"half of 6.4 times three minutes", "set CompBetMask[1] 67110912\nset CompBase 2\n", "32", "0.16",
       "For Pass Line, Seven.\n"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string input = game + row.settings + "show comps\n";
    const auto comps = Lines(Run({"play", "--json"}, input).out).back()["comps"];
    EXPECT_EQ(comps["Action"], row.action);
    EXPECT_EQ(comps["Value"], row.value);
    EXPECT_EQ(comps["Hours"], "0.05");
    EXPECT_EQ(comps["lblCompdata"].size(), 7U);
    EXPECT_NE(Run({"play"}, input).out.find(row.text), std::string::npos);
  }
}

TEST_F(Advantage, WhatIsRefused) {
  const struct Row {
    const char* name;
    std::vector<std::string> words;
    int exitCode;
    const char* error;
  } rows[] = {
      {"a slip", {"advantge"}, 2, "Did you mean advantage?"},
      {"a further word", {"advantage", "all"}, 2, "all"},
      {"no matrix", {"advantage", "--matrix", "/no.prb"}, 1, "/no.prb: No such file or directory, Error #2"},
      {"no rules", {"advantage", "--rules", "/no.crp"}, 1, "/no.crp: No such file or directory, Error #2"},
      {"no game", {"advantage", "--game", "/no.crp"}, 1, "No such file or directory, Error #2"},
      {"dice", {"advantage", "--dice", "x.rol"}, 2, "--dice is for play and run."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = Run(row.words);
    EXPECT_EQ(result.exitCode, row.exitCode);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.error.find(row.error), std::string::npos) << result.error;
  }
}

}  // namespace
}  // namespace rollwick
