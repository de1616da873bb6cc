// The statistics screens through the command line, and the page that a run ends with.
#include <gtest/gtest.h>

#include "console/tests/Rollwick.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

using Json = nlohmann::ordered_json;

// The answer to the last of the commands.
Json Last(const std::string& commands) {
  const Result result = Rollwick({"play", "--json", "--seed", "7"}, commands);
  EXPECT_EQ(result.error, "");
  return Lines(result.out).back();
}

constexpr const char* kGame =
    "bet Pass_Line 10\nroll 3 4\nbet Pass_Line 10\nbet Field 5\nroll 2 2\nroll 6 1\n";

TEST(ShowFigures, SummaryAndItsPlainValues) {
  const Json shown = Last(std::string(kGame) + "show summary\n");
  const Json& summary = shown["summary"];
  EXPECT_EQ(summary["TotalRolls"], "3");
  EXPECT_EQ(summary["Hours"], ".025");
  EXPECT_EQ(summary["AmountBetsNetPercentage"], "20.00%");
  EXPECT_EQ(summary["NetAmount"], "Net win:");
  EXPECT_EQ(summary["BankrollHigh"], "515");
  EXPECT_EQ(summary["raw"].size() + 1, summary.size());
  EXPECT_EQ(summary["raw"], shown["raw"]);
  EXPECT_EQ(summary["raw"]["TotalRolls"], 3);
  EXPECT_EQ(summary["raw"]["NumBetsNet"], 1);
  EXPECT_EQ(summary["raw"]["AmountBetsMade"], "25");
  EXPECT_EQ(summary["raw"]["Hours"], "0.025");
  EXPECT_TRUE(Last("show summary\n")["raw"]["HandAverageRolls"].is_null());
}

TEST(ShowFigures, EveryScreenHasItsObject) {
  const std::string game = kGame;
  const Json totals = Last(game + "show totals 36\n")["totals"];
  EXPECT_EQ(totals["Display"], "36 Unique Combos");
  EXPECT_EQ(totals["rows"].size(), 36U);
  EXPECT_EQ(
      totals["rows"][5].dump(),
      R"({"number":"2-2","event":13,"count":1,"actual":"33.33","true":"2.78","skewed":"2.78","rolls_since":1})");
  const Json any7 = Last(game + "show frequencies any_7\n")["frequencies"];
  EXPECT_EQ(any7["event"], 7);
  EXPECT_EQ(any7["Average"], "1.50");
  EXPECT_EQ(any7["raw"]["TotalRolls"], 2);
  EXPECT_EQ(any7["gaps"].size(), 200U);
  EXPECT_EQ(any7["gaps"][1], 1);
  EXPECT_EQ(any7, Last(game + "show frequencies 7\n")["frequencies"]);
  const Json results = Last(game + "show results Field Pass_Line field\n")["results"];
  EXPECT_EQ(results["NumBets"], "2");
  ASSERT_EQ(results["lines"].size(), 11U);
  EXPECT_EQ(results["lines"][1].dump(),
            R"({"label":"Total $","Wagers":"25","Wins":"15","Losses":"10","Net":"5","NetPct":"20.00 %",)"
            R"("raw":{"Wagers":"25","Wins":"15","Losses":"10","Net":"5","NetPct":"0.2"}})");
  EXPECT_EQ(Last(game + "show results phantom 49\n")["results"]["lines"][0]["Wagers"], "3");
  EXPECT_EQ(Last(game + "show results\n")["results"]["NumBets"], "83");
  EXPECT_EQ(Last(game + "show trends\n")["trends"].dump(), R"({"Pass Line":-1,"Field":1})");
  const Json graph = Last(game + "set MovingAverageOn on\nshow graph\n")["graph"];
  EXPECT_EQ(graph["points"].dump(), R"(["510","515","505"])");
}

TEST(ShowFigures, WhatIsNotUnderstood) {
  struct Row {
    const char* command;
    const char* error;
  };
  const Row rows[] = {
      {"show summary all", "no further words"},      {"show totals 12", "takes 11, 21, 36 or dice"},
      {"show totals 11 21", "no further words"},     {"show frequencies", "needs a roll event"},
      {"show frequencies 90", "needs a roll event"}, {"show frequencies Any_77", "Did you mean Any 7"},
      {"show results Pas_Line", "Did you mean"},     {"show results actual Chip-Stack_#_1", "bet"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.command);
    const Json answer = Last(std::string(row.command) + "\n");
    EXPECT_EQ(answer["ok"], false);
    EXPECT_NE(answer.value("error", "").find(row.error), std::string::npos) << answer;
  }
}

TEST(ShowFigures, PagesForPeople) {
  struct Row {
    const char* command;
    const char* part;
  };
  const Row rows[] = {
      {"show summary", "Current hand                           0 rolls, 0 passes\n"},
      {"show summary", "Bankroll: high, current, average, low  515, 505, 510, 500\n"},
      {"show totals dice", "Die 2, face 4      1     33.33   16.67     16.67            2\n"},
      {"show frequencies 7", "Rolls between and how often\n1:  1    2:  1\n"},
      {"show results 43", "Total $             20    10      10      0        0 %\n"},
      {"show trends", "Pass Line  -1\n"},
      {"show graph", "       500 +*\n"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.command);
    const std::string out = Rollwick({"play"}, std::string(kGame) + row.command + "\n").out;
    EXPECT_NE(out.find(row.part), std::string::npos) << out;
  }
}

TEST(RunReport, ResultBesideWhatTheDiceOwe) {
  const TemporaryFolder folder;
  const std::string script = (folder / "s.txt").string(), dice = (folder / "d.txt").string();
  const std::string roll = (folder / "d.rol").string();
  std::ofstream(script) << "    Do this . . .\n          Bet $ 10 on Seven\n";
  std::ofstream(dice) << "1 2\n3 4\n1 2\n1 2\n2 2\n";
  ASSERT_EQ(Rollwick({"dice", "make", dice, "-o", roll}).exitCode, 0);
  const auto run = [&](const char* rolls) {
    return Rollwick({"run", script, "--rolls", rolls, "--dice", roll, "--data", (folder / "data").string()})
        .out;
  };
  const std::string out = run("5");
  for (const char* part :
       {"Bankroll    $500 at the start, $510 at the end\n            $540 high, $500 low, $520 average\n",
        "Result      $10, 25.00 % of $40 wagered\n",
        "Expected    -$6.67, -16.67 %, give or take $43.49\n"
        "            The result is 0.38 standard deviations better than that\n",
        "Losing run  3 decisions at the longest, of Seven\n",
        "Hands       0 completed\n            1 pass, 1 in one hand at the most; 3 misses\n",
        "Bet    Wagers  Amount  Won  Lost  Net    Net %   Exact %\n"
        "Seven       4     $40  $40   $30  $10  25.00 %  -16.67 %\n"})
    EXPECT_NE(out.find(part), std::string::npos) << part << "\n" << out;
  const std::string unplayed = run("1");  // the script bets behind the roll
  EXPECT_NE(unplayed.find("Result      $0, 0 % of $0 wagered\nHands"), std::string::npos) << unplayed;
}

}  // namespace
}  // namespace rollwick
