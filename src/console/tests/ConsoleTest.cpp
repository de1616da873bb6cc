// The command line from outside: words in, objects and exit codes out.
#include "console/Console.h"

#include <gtest/gtest.h>

#include "console/LineEditor.h"
#include "console/tests/Rollwick.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

using Json = nlohmann::ordered_json;

std::vector<Json> Play(const std::string& input, std::vector<std::string> options = {}) {
  std::vector<std::string> words = {"play", "--json", "--seed", "7"};
  words.insert(words.end(), options.begin(), options.end());
  const Result result = Rollwick(words, input);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.error, "");
  return Lines(result.out);
}

std::vector<std::string> Keys(const Json& object) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  return keys;
}

TEST(CommandLine, ExitCodesAndOneLineOfError) {
  struct Row {
    const char* name;
    std::vector<std::string> words;
    int exitCode;
    const char* error;  // part of it
  };
  const Row rows[] = {
      {"version", {"--version"}, 0, ""},
      {"help", {"--help"}, 0, ""},
      {"help of a command", {"play", "--help"}, 0, ""},
      {"help of a command's command", {"dice", "draw", "--help"}, 0, ""},
      {"no words", {}, 2, ""},
      {"unknown command", {"plai"}, 2, "Did you mean play?"},
      {"unknown option", {"play", "--sed", "3"}, 2, "--sed"},
      {"missing value", {"play", "--rng"}, 2, "--rng"},
      {"no such generator", {"play", "--rng", "9"}, 2, "1 to 8"},
      {"generator that is no number", {"play", "--rng", "two"}, 2, "1 to 8"},
      {"seed 0", {"play", "--seed", "0"}, 2, "seed"},
      {"seed beyond RNG #3", {"play", "--rng", "3", "--seed", "2147483648"}, 2, "seed"},
      {"dice without a command", {"dice"}, 2, "dice needs one of these words: draw, show, make."},
      {"unknown command of dice", {"dice", "shw"}, 2, "no command \"dice shw\". Did you mean show?"},
      {"unknown command of script", {"script", "chek", "x"}, 2, "\"script chek\". Did you mean check?"},
      {"no number of rolls", {"dice", "draw"}, 2, "--rolls"},
      {"too many rolls", {"dice", "draw", "--rolls", "100000001"}, 2, "--rolls"},
      {"a file that is not there", {"play", "/nowhere/at/all"}, 1, "cannot be read"},
      {"a folder for a file", {"play", "/"}, 1, "cannot be read"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = Rollwick(row.words);
    EXPECT_EQ(result.exitCode, row.exitCode);
    EXPECT_NE(result.error.find(row.error), std::string::npos) << result.error;
    EXPECT_EQ(std::ranges::count(result.error, '\n'), *row.error == '\0' ? 0 : 1) << result.error;
  }
}

TEST(CommandLine, OptionsStandBeforeOrBehindTheCommand) {
  const Result before = Rollwick({"--json", "--seed", "9", "play"}, "roll\n");
  const Result behind = Rollwick({"play", "--seed", "9", "--json"}, "roll\n");
  EXPECT_EQ(before.out, behind.out);
  EXPECT_EQ(Lines(before.out).size(), 1U);
}

TEST(PlayJson, KeysStandInTheirOrder) {
  const auto lines = Play("bet Pass_Line 10\nbet 103 5\nhyper 2\nfoo\n");
  ASSERT_EQ(lines.size(), 4U);
  using List = std::vector<std::string>;
  EXPECT_EQ(Keys(lines[0]),
            (List{"command", "ok", "applied", "notices", "questions", "roll", "dice", "total", "point",
                  "bankroll", "invested", "total_bets", "available", "bets", "stopped"}));
  EXPECT_EQ(Keys(lines[2]),
            (List{"command", "ok", "notices", "questions", "roll", "dice", "total", "point", "bankroll",
                  "invested", "total_bets", "available", "bets", "stacks", "stopped", "rolls"}));
  EXPECT_EQ(Keys(lines[3])[2], "error");
  EXPECT_EQ(lines[1]["stacks"].dump(), R"({"3":"5"})");
  EXPECT_EQ(lines[2]["rolls"], 2);
  EXPECT_EQ(lines[2]["stopped"], "Stopped by roll count on Auto-Play screen.");
}

TEST(PlayJson, ShownTablesHaveTheirShape) {
  const auto lines = Play(
      "show bet Don't_Come_4_Odds\nshow slots\nshow events\nshow gaps 90\nshow hand\nshow bankroll\nshow "
      "rules\n"
      "show settings\nshow payoffs\nshow seeds\n");
  ASSERT_EQ(lines.size(), 10U);
  using List = std::vector<std::string>;
  EXPECT_EQ(Keys(lines[0]["bet"]), (List{"id", "name", "amount", "at_throw", "after_settle", "contract",
                                         "working", "streak", "vig", "payoff", "actual", "phantom"}));
  EXPECT_EQ(lines[0]["bet"]["name"], "Don't Come 4 Odds");
  EXPECT_EQ(lines[0]["bet"]["payoff"].dump(), R"(["1",true,"2"])");
  EXPECT_EQ(lines[0]["bet"]["actual"]["wins"].size(), 8U);
  EXPECT_EQ(lines[1]["BetAmount"].size(), 201U);
  EXPECT_EQ(lines[1]["BetWorking"].size(), 84U);
  EXPECT_EQ(lines[1]["BetContract"].size(), 47U);
  EXPECT_EQ(lines[2]["TrackedRollBaseBefore"].size(), 91U);
  EXPECT_EQ(lines[3]["RollGapHistogram"].size(), 201U);
  EXPECT_EQ(lines[4]["HandStats"].size(), 20U);
  EXPECT_EQ(lines[5]["BankrollHistory"].dump(), R"(["1"])");
  EXPECT_EQ(lines[6]["rules"].size(), 21U);
  EXPECT_EQ(lines[6]["rules"]["OddsAllowed68"], "2.5");
  EXPECT_EQ(lines[6]["rules"]["BuyVigOnAll"], true);
  EXPECT_EQ(lines[7]["settings"]["BetWorkingDefault"].size(), 83U);
  EXPECT_EQ(lines[7]["settings"]["BetAmount"].dump(), R"(["1","5","25","100","500"])");
  EXPECT_EQ(lines[8]["payoffs"]["PayoffTable"].size(), 84U);
  EXPECT_EQ(lines[8]["payoffs"]["FieldPayoffTable"].size(), 22U);
  EXPECT_EQ(lines[9]["seeds"]["LastSeed"], 7);
}

TEST(Play, AGameToTheCent) {
  struct Row {
    const char* command;
    const char* bankroll;
    const char* totalBets;
    int point;
  };
  const Row rows[] = {
      {"bet Pass_Line 10", "500", "10", 0},
      {"roll 4 2", "500", "10", 6},
      {"odds take", "500", "35", 6},
      {"bet \"place 8\" 12", "500", "47", 6},
      {"roll 4 4", "514", "47", 6},  // Place 8: 7 to 6; Same Bet by the answer below
      {"add 34 -12", "514", "35", 6},
      {"bet Field 5", "514", "40", 6},
      {"roll 1 1", "524", "40", 6},  // the Field pays double on a 2
      {"remove Field", "524", "35", 6},
      {"roll 3 3", "564", "0", 0},  // 10 on the line and 30 on 25 of odds
  };
  std::string input;
  for (const Row& row : rows) input += std::string(row.command) + "\n";
  const auto lines = Play(input, {"--answer", "1", "--answer", "1", "--answer", "0", "--answer", "0"});
  ASSERT_EQ(lines.size(), std::size(rows));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    SCOPED_TRACE(rows[i].command);
    EXPECT_TRUE(lines[i]["ok"]) << lines[i].dump();
    EXPECT_EQ(lines[i]["bankroll"], rows[i].bankroll);
    EXPECT_EQ(lines[i]["total_bets"], rows[i].totalBets);
    EXPECT_EQ(lines[i]["point"], rows[i].point);
  }
  EXPECT_EQ(lines[5]["applied"], "-12");
  ASSERT_EQ(lines[4]["questions"].size(), 1U);
  EXPECT_EQ(lines[4]["questions"][0]["answer"], "1");
  EXPECT_EQ(lines[9]["questions"].size(), 2U);
}

TEST(Play, TheSameSeedIsTheSameGame) {
  const std::string input =
      "bet Pass_Line 10\nrolls 50\nbet Place_6 12\nset HandleWinningBets 3\nhyper 500\nshow slots\n";
  const auto game = Play(input, {"--rng", "6"});
  EXPECT_EQ(game, Play(input, {"--rng", "6"}));
  EXPECT_EQ(game[4]["roll"], 550);
  EXPECT_NE(game, Play(input, {"--rng", "7"}));
}

TEST(Play, RunsOfRolls) {
  struct Row {
    const char* name;
    const char* before;
    const char* run;
    int rolls;  // made by it
  };
  const Row rows[] = {
      {"one roll with auto-roll on", "set AutoRoll on\n", "roll", 1},
      {"many with auto-roll on", "set AutoRoll on\n", "rolls 30", 30},
      {"the count of auto-roll ends the run", "set AutoRollsSet 4\nset AutoRoll on\n", "rolls 30", 4},
      {"and without auto-roll too", "set AutoRollsSet 4\n", "rolls 30", 4},
      {"a delay is not waited for", "set AutoRoll on\nset AutoRollDelay 99\n", "rolls 3", 3},
      {"nobody throttles Hyper-Drive", "set HyperThrottle 10\n", "hyper 100", 100},
      {"hand-thrown dice count once", "", "roll 3 4", 1},
      {"a stop on any 7", "set AutoRoll on\nset AutoStopOn[9] on\n", "roll 3 4", 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const auto lines = Play(std::string(row.before) + row.run + "\nroll 1 2\n");
    EXPECT_EQ(lines[lines.size() - 2]["roll"], row.rolls);
    EXPECT_EQ(lines.back()["roll"], row.rolls + 1);
    EXPECT_EQ(lines.back()["dice"].dump(), "[1,2]");
  }
}

TEST(Play, BadInputIsToldAndChangesNothing) {
  struct Row {
    const char* name;
    std::string line;
    const char* error;
  };
  const Row rows[] = {
      {"unknown command", "bte Pass_Line 5", "Did you mean bet"},
      {"a folder that is not there", "save /none/game.crp", "No such file"},
      {"missing amount", "bet Pass_Line", "missing"},
      {"a word too many", "bet Pass Line 5", "too many"},
      {"unknown bet", "bet Pas_Line 5", "Did you mean Pass_Line"},
      {"the rail", "bet 93 5", "no bet"},
      {"the bankroll", "bet 0 5", "no bet"},
      {"a denomination", "bet 95 5", "no bet"},
      {"slot 200", "add 200 5", "no bet"},
      {"an empty name", "bet \"\" 5", "no bet"},
      {"an exponent", "bet Pass_Line 1e300", "no amount"},
      {"an empty amount", "bet Pass_Line \"\"", "no amount"},
      {"a lone sign", "bet Pass_Line -", "no amount"},
      {"not a number", "bet Pass_Line NaN", "no amount"},
      {"five decimals", "bet Pass_Line 9999999.99999", "no amount"},
      {"call half", "call Pass_Line maybe", "on or off"},
      {"one die", "roll 3", "both"},
      {"a die of 7", "roll 7 1", "1 to 6"},
      {"a die with a fraction", "roll 1.5 2", "1 to 6"},
      {"no rolls", "rolls 0", "1 to 100,000,000"},
      {"too many rolls", "rolls 100000001", "1 to 100,000,000"},
      {"rolls below zero", "hyper -1", "100,000,000"},
      {"unknown setting", "set Zebra on", "no setting"},
      {"payoff of a Chip-Stack", "payoff 101 1 1", "no bet"},
      {"payoff of line odds", "payoff Pass_Line_Odds 1 1", "Come"},
      {"a base of 0", "payoff Place_4 1 0", "base"},
      {"payoff with a third form", "payoff Place_4 9 5 from", "to or for"},
      {"combination 22", "payoff field 22 1 1", "1 to 21"},
      {"generator 0", "rng 0", "1 to 8"},
      {"seed 0", "seed 0", "seed"},
      {"seed beyond all", "seed 99999999999", "seed"},
      {"atm with a minus", "atm withdraw -5", "no amount"},
      {"atm sideways", "atm borrow 5", "atm"},
      {"new but what", "new game", "keep"},
      {"show what", "show tabel", "Did you mean table"},
      {"show no event", "show gaps 91", "0 to 90"},
      {"an open quote", "bet \"Pass Line 5", "quote"},
      {"a long line", "bet Pass_Line " + std::string(5000, '1'), "longer"},
      {"a byte 0", std::string("bet Pass_Line 5\0", 16), "byte 0"},
      {"no UTF-8", "bet \xC0\xAF 5", "UTF-8"},
      {"half a character", "bet \xE2\x82", "UTF-8"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const auto lines = Play("show seeds\n" + row.line + "\nshow seeds\nbet Pass_Line 5\n");
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[1]["ok"], false);
    EXPECT_NE(lines[1]["error"].get<std::string>().find(row.error), std::string::npos) << lines[1]["error"];
    EXPECT_EQ(lines[0], lines[2]);
    EXPECT_EQ(lines[3]["applied"], "5") << "the game goes on";
  }
}

TEST(Play, AMegabyteIsNotEchoed) {
  const auto lines = Play(std::string(1 << 20, 'x') + "\nshow\n");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0]["command"], std::string(200, 'x') + "...");
}

TEST(Play, BlankLinesCommentsAndLineEnds) {
  const auto lines = Play("\n  # a comment\r\n\t\r\n  bet 43   10\r\nshow");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0]["command"], "bet 43   10");
  EXPECT_EQ(lines[0]["applied"], "10");
}

TEST(Play, QuitEndsTheGame) {
  EXPECT_EQ(Play("quit\nroll\n").size(), 1U);
}

TEST(Play, AnswersServeInTheirOrder) {
  const auto lines = Play(
      "set BankrollInitType 1\nanswer 250\nnew\nnew\nset AutoTakeFullOdds on\nanswer yes\nset "
      "AutoLayFullOdds on\n");
  EXPECT_EQ(lines[2]["bankroll"], "250");
  EXPECT_EQ(lines[2]["questions"][0]["answer"], "250");
  EXPECT_EQ(lines[3]["questions"][0]["answer"], "250") << "the preset, when no answer is left";
  EXPECT_EQ(lines[4]["questions"][0]["answer"], "no");
  EXPECT_EQ(lines[6]["questions"][0]["answer"], "yes");
}

TEST(Play, ARefusedSettingIsOkWithItsNotice) {
  const auto lines = Play("set HyperThrottle 11\nshow settings\n");
  EXPECT_EQ(lines[0]["ok"], true);
  ASSERT_EQ(lines[0]["notices"].size(), 1U);
  EXPECT_EQ(lines[0]["notices"][0]["title"], "HyperThrottle");
  EXPECT_EQ(lines[1]["settings"]["HyperThrottle"], 0);
}

// Ctrl-C pressed as soon as the first line has been read.
class InterruptingInput : public std::streambuf {
 public:
  InterruptingInput(std::string text, std::atomic<bool>& interrupted)
      : text_(std::move(text)), interrupted_(interrupted) {}

 protected:
  int_type underflow() override {
    if (interrupted_.exchange(true)) return traits_type::eof();
    setg(text_.data(), text_.data(), text_.data() + text_.size());
    return traits_type::to_int_type(text_[0]);
  }

 private:
  std::string text_;
  std::atomic<bool>& interrupted_;
};

TEST(Play, CtrlCEndsTheRunAtTheEndOfARoll) {
  for (const char* const run : {"hyper 0", "rolls 100000000"}) {
    SCOPED_TRACE(run);
    std::atomic<bool> interrupted = false;
    InterruptingInput bytes(std::string(run) + "\nroll\n", interrupted);
    std::istream in(&bytes);
    std::ostringstream out, error;
    EXPECT_EQ(RunConsole({"play", "--json", "--seed", "7"}, {in, out, error, interrupted}), ExitInterrupted);
    const auto lines = Lines(out.str());
    ASSERT_EQ(lines.size(), 1U) << "the run reports, nothing follows it";
    EXPECT_EQ(lines[0]["ok"], true);
    EXPECT_LT(lines[0]["roll"], 1000);
  }
}

TEST(Play, TheLogLiesWhereItIsPut) {
  const TemporaryFolder folder;
  const std::string data = (folder / "data").string(), other = (folder / "other.txt").string();
  EXPECT_TRUE(Play("roll\n", {"--data", data}).back()["ok"]);
  EXPECT_FALSE(std::filesystem::exists(data)) << "nothing to write, no folder";
  const auto lines =
      Play("log on\nroll 3 4\nshow log 3\nlog " + other + "\nroll 1 2\nshow log 1\n", {"--data", data});
  EXPECT_TRUE(std::filesystem::exists(data + "/Events Log.txt"));
  EXPECT_EQ(lines[2]["log"][0], " Roll #1:  7 (3.4) from manual roll pad");
  EXPECT_TRUE(std::filesystem::exists(other));
  EXPECT_EQ(lines[5]["log"].size(), 1U);
}

TEST(Play, ALogThatCannotBeWrittenIsTurnedOff) {
  const TemporaryFolder folder;
  std::ofstream(folder / "file") << "no folder";
  const std::string below = (folder / "file/log.txt").string();
  const auto lines =
      Play("log " + std::string(400, 'x') + "\nlog " + below + "\nlog on\nroll 3 4\nroll 3 4\n");
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_NE(lines[0]["error"].get<std::string>().find("File name too long, Error #36"), std::string::npos);
  ASSERT_EQ(lines[3]["notices"].size(), 1U);
  EXPECT_NE(lines[3]["notices"][0]["text"].get<std::string>().find("Not a directory, Error #20"),
            std::string::npos);
  EXPECT_EQ(lines[4]["notices"].size(), 0U);
  EXPECT_EQ(lines[4]["roll"], 2);
}

TEST(Play, ALogThatIsNoneIsLeftAlone) {
  const TemporaryFolder folder;
  const std::string game = (folder / "game.crp").string();
  const auto lines =
      Play("save " + game + "\nlog " + game + "\nlog on\nroll 3 4\n", {"--data", (folder / "d").string()});
  EXPECT_FALSE(lines[1]["ok"]);
  EXPECT_EQ(std::filesystem::file_size(game), 147'200U);
}

TEST(Play, ForPeopleALineACommand) {
  const Result result =
      Rollwick({"play", "--seed", "7"}, "bet Pass_Line 10\nroll 4 2\nnonsense\nset AutoRollDelay 100\n");
  EXPECT_EQ(result.out,
            "Pass Line: $10 (+10)\n"
            "Roll 1: 4-2 = 6, point ON 6, bankroll $500, on the table $10\n"
            "AutoRollDelay: 99\n");
  EXPECT_EQ(result.error, "rollwick: there is no command \"nonsense\".\n");
}

TEST(DiceDraw, LinesObjectsAndRecordsAgree) {
  const TemporaryFolder folder;
  const std::string file = (folder / "dice.rol").string();
  for (const char* const rng : {"1", "6"}) {
    SCOPED_TRACE(rng);
    const std::vector<std::string> words = {"dice", "draw", "--rolls", "200", "--seed", "5", "--rng", rng};
    std::istringstream text(Rollwick(words).out);
    auto withJson = words, withFile = words;
    withJson.emplace_back("--json");
    withFile.insert(withFile.end(), {"-o", file});
    const auto objects = Lines(Rollwick(withJson).out);
    EXPECT_EQ(Rollwick(withFile).exitCode, 0);
    std::ifstream records(file, std::ios::binary);
    ASSERT_EQ(objects.size(), 200U);
    for (int i = 0; i < 200; ++i) {
      int die1 = 0, die2 = 0;
      text >> die1 >> die2;
      EXPECT_EQ(objects[static_cast<std::size_t>(i)].dump(),
                (Json{{"roll", i + 1}, {"dice", {die1, die2}}}).dump());
      EXPECT_EQ(records.get(), die1 * 4 + die2 * 32);
    }
    EXPECT_EQ(records.get(), std::ifstream::traits_type::eof());
  }
}

TEST(DiceDraw, AreTheDiceOfTheTable) {
  std::istringstream text(Rollwick({"dice", "draw", "--rolls", "20", "--seed", "7", "--rng", "7"}).out);
  std::string input;
  for (int i = 0; i < 20; ++i) input += "roll\n";
  for (const Json& line : Play(input, {"--rng", "7"})) {
    int die1 = 0, die2 = 0;
    text >> die1 >> die2;
    EXPECT_EQ(line["dice"], (Json{die1, die2}));
  }
}

TEST(DiceDraw, AFileThatCannotBeWritten) {
  const Result result = Rollwick({"dice", "draw", "--rolls", "2", "-o", "/nowhere/at/all.rol"});
  EXPECT_EQ(result.exitCode, ExitFailure);
  EXPECT_EQ(result.error, "rollwick: /nowhere/at/all.rol: No such file or directory, Error #2\n");
}

TEST(Completion, OffersWhatMayFollow) {
  struct Row {
    const char* name;
    const char* line;
    std::vector<std::string> words;
  };
  const Row rows[] = {
      {"commands", "ro", {"roll", "rolls"}},
      {"bets in any case", "bet pass", {"Pass_Line", "Pass_Line_Odds"}},
      {"settings", "set MinP", {"MinPlacardBet"}},
      {"pages", "show se", {"settings", "seeds"}},
      {"bets to show", "show bet Don't_Pass", {"Don't_Pass", "Don't_Pass_Odds"}},
      {"nothing behind an amount", "bet Pass_Line 10 ", {}},
      {"nothing behind an open quote", "bet \"Pass Li", {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Completions(row.line), row.words);
  }
}

}  // namespace
}  // namespace rollwick
