// Scripts and Dice Roll Files from the command line.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "autobet/run/RunAutoBet.h"
#include "console/ConsoleHost.h"
#include "console/tests/Rollwick.h"
#include "engine/cycle/RollDice.h"
#include "session/Scripts.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

constexpr const char* kFlatBet = "    Do this . . .\n          Bet $ 10 on Pass Line\n";
constexpr const char* kEndless = "Again\n    Do this . . .\n          Go to \"Again\"\n";
constexpr const char* kWithoutFile = "    Do this . . .\n          Output to file. New line.\n";
const std::string kStopNow = "    Do this . . .\n          Stop Auto-Rolling / Hyper-Drive\n";

std::string Writes(const std::string& name) {
  return "    Do this . . .\n          Open/clear file for output: " + name +
         "\n          Output to file. Message: hello\n";
}

class ScriptCommands : public testing::Test {
 protected:
  TemporaryFolder folder;
  const std::string script = (folder / "script.txt").string();
  const std::string data = (folder / "data").string();

  std::string Put(const std::string& name, const std::string& text) const {
    std::ofstream(folder / name, std::ios::binary) << text;
    return (folder / name).string();
  }
  std::string At(const std::string& name) const { return (folder / name).string(); }
  Result Run(const std::string& text, std::vector<std::string> options = {}) const {
    std::vector<std::string> words = {"run", Put("script.txt", text), "--seed", "7", "--data", data};
    if (std::ranges::count(options, "--rolls") == 0) words.insert(words.end(), {"--rolls", "100"});
    words.insert(words.end(), options.begin(), options.end());
    return Rollwick(words);
  }
  nlohmann::ordered_json RunJson(const std::string& text, std::vector<std::string> options = {}) const {
    options.emplace_back("--json");
    const auto lines = Lines(Run(text, options).out);
    return lines.size() == 1 ? lines[0] : nlohmann::ordered_json();
  }
};

TEST_F(ScriptCommands, ExitCodesOfRunsAndWhatIsSaid) {
  struct Row {
    const char* name;
    std::string script;
    std::vector<std::string> options;
    int exitCode;
    std::string error;  // part of it; empty: nothing is said
  };
  const Row rows[] = {
      {"a run", kFlatBet, {}, 0, ""},
      {"stopped by the script", kStopNow, {}, 0, ""},
      {"a text with an error",
       "    Do this . . .\n          Bte $ 10 on Pass Line\n",
       {},
       1,
       "script.txt:2:11: "},
      {"an action without a start runs", "          Bet $ 10 on Pass Line\n", {}, 0, "script.txt:1: "},
      {"a fault behind a blank line", "\n    Do this . . .\n", {}, 0, "script.txt:2: Missing Action"},
      {"no lines", "\n\n", {}, 0, "empty"},
      {"half a script file", "Rollwick AutoBets, Data Format 5.0", {}, 1, "script.txt"},
      {"aborted", kWithoutFile, {}, 1, "Auto-Bet Abort: "},
      {"aborted at once", kWithoutFile, {"--init"}, 1, "Auto-Bet Abort: "},
      {"no rolls", kFlatBet, {"--rolls", "0"}, 2, "--rolls"},
      {"no setting", kFlatBet, {"--set", "Zebra=1"}, 2, "Zebra"},
      {"no value", kFlatBet, {"--set", "MinPlacardBet"}, 2, "NAME=VALUE"},
      {"no amount", kFlatBet, {"--bankroll", "1e3"}, 2, "--bankroll"},
      {"more than the bank", kFlatBet, {"--bankroll", "9999999.01"}, 2, "--bankroll"},
      {"no folder", kFlatBet, {"--output-dir", "/nowhere/at/all"}, 1, "/nowhere/at/all"},
      {"no dice", kFlatBet, {"--dice", "/nowhere/at/all.rol"}, 1, "Error #2"},
      {"no place to record", kFlatBet, {"--record", "/nowhere/at/all.rol"}, 1, "Error #2"},
      {"both", kFlatBet, {"--record", "a.rol", "--dice", "b.rol"}, 2, "--record and --dice"},
      {"a folder for a log", kFlatBet, {"--events", "/"}, 1, "folder"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = Run(row.script, row.options);
    EXPECT_EQ(result.exitCode, row.exitCode) << result.error;
    EXPECT_EQ(result.error.empty(), row.error.empty()) << result.error;
    EXPECT_NE(result.error.find(row.error), std::string::npos) << result.error;
  }
}

TEST_F(ScriptCommands, TheObjectOfARun) {
  const auto object = RunJson(
      "    Do this . . .\n          Bet $ 10 on Pass Line\n          Add $ 2 to Chip-Stack # 3\n"
      "          Set flag \"Tired\" to True\n",
      {"--rolls", "400", "--bankroll", "1000.5", "--set", "NotifyFlags=0"});
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  EXPECT_EQ(keys, (std::vector<std::string>{"rolls", "seed", "rng", "seconds", "rolls_per_second", "stopped",
                                            "notices", "questions", "bankroll", "summary", "stacks", "flags",
                                            "hand"}));
  EXPECT_EQ(object["rolls"], 400);
  EXPECT_EQ(object["seed"], 7);
  EXPECT_EQ(object["rng"], 1);
  EXPECT_EQ(object["stopped"], "Stopped by roll count on Auto-Play screen.");
  EXPECT_EQ(object["stacks"].dump(), R"({"3":"800"})");
  EXPECT_EQ(object["flags"].dump(), R"({"Tired":true})");
  const auto& summary = object["summary"]["raw"];
  const auto amount = [](const nlohmann::ordered_json& text) { return *ParseMoney(text.get<std::string>()); };
  EXPECT_EQ(amount(object["bankroll"]), Money::FromUnits(10'005'000) + amount(summary["AmountBetsNet"]));
  EXPECT_EQ(summary["TotalRolls"], 400);
  EXPECT_EQ(object["summary"]["TotalRolls"], "400");
  EXPECT_EQ(summary["NumBetsDecided"], summary["NumBetsWon"].get<int>() + summary["NumBetsLost"].get<int>());
  EXPECT_EQ(object["hand"].size(), 20U);
}

TEST_F(ScriptCommands, TheSameSeedIsTheSameRunInEitherForm) {
  const std::string file = At("flat.bet");
  const auto text = RunJson(kFlatBet);
  ASSERT_EQ(Rollwick({"script", "build", script, "-o", file}).exitCode, 0);
  const auto built =
      Lines(Rollwick({"run", file, "--seed", "7", "--rolls", "100", "--data", data, "--json"}).out);
  EXPECT_EQ(built.at(0)["summary"], text["summary"]);
  EXPECT_NE(RunJson(kFlatBet, {"--rng", "2"})["summary"], text["summary"]);
}

TEST_F(ScriptCommands, InitializingComesBeforeTheDice) {
  const std::string when =
      "When . . .\n          Initializing Auto-Bet\n    then . . .\n          Bet $ 5 on Chip-Stack # 1\n";
  EXPECT_EQ(RunJson(when)["stacks"].dump(), "{}");
  EXPECT_EQ(RunJson(when, {"--init"})["stacks"].dump(), R"({"1":"5"})");
}

TEST_F(ScriptCommands, RollsAreCountedThroughNewGames) {
  const std::string resets =
      "While . . .\n          The # of rolls in the game are greater than $ 30\n    then . . .\n"
      "          Reset table\n";
  const auto object = RunJson(resets, {"--rolls", "1000"});
  EXPECT_EQ(object["rolls"], 1000);
  EXPECT_LT(object["summary"]["raw"]["TotalRolls"], 40);
  // New games are seeded by a clock that a given seed fixes.
  EXPECT_EQ(RunJson(resets, {"--rolls", "1000"})["hand"], object["hand"]);
}

TEST_F(ScriptCommands, WhereAScriptMayWrite) {
  std::filesystem::create_directories(folder / "out/sub");
  std::filesystem::create_directories(folder / "outside");
  std::filesystem::create_directory_symlink(folder / "outside", folder / "out/link");
  std::filesystem::create_symlink(folder / "not-there.txt", folder / "out/dangling");
  struct Row {
    const char* name;
    std::string file;
    std::string lands;  // empty: refused
  };
  const Row rows[] = {
      {"a name", "a.txt", "out/a.txt"},
      {"in a folder of it", "sub/b.txt", "out/sub/b.txt"},
      {"there and back", "sub/../c.txt", "out/c.txt"},
      {"its own full name", At("out/d.txt"), "out/d.txt"},
      {"beside it", "../e.txt", ""},
      {"a full name", At("outside/f.txt"), ""},
      {"a name that begins alike", At("outside.txt"), ""},
      {"through a link", "link/g.txt", ""},
      {"through a link to nothing", "dangling", ""},
      {"the folder itself", ".", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const auto before = std::distance(std::filesystem::recursive_directory_iterator(folder.Path()), {});
    const Result result = Run(Writes(row.file), {"--output-dir", At("out"), "--rolls", "1"});
    EXPECT_EQ(result.exitCode, row.lands.empty() ? 1 : 0) << result.error;
    if (!row.lands.empty()) {
      EXPECT_EQ(WholeFile(At(row.lands)), "hello\t");
      continue;
    }
    EXPECT_NE(result.error.find("\"" + row.file + "\""), std::string::npos) << result.error;
    EXPECT_NE(result.error.find(At("out")), std::string::npos) << result.error;
    EXPECT_NE(result.error.find("--allow-write"), std::string::npos) << result.error;
    EXPECT_LE(std::distance(std::filesystem::recursive_directory_iterator(folder.Path()), {}), before + 1);
  }
  EXPECT_FALSE(std::filesystem::exists(folder / "not-there.txt"));
  EXPECT_EQ(Run(Writes("../e.txt"), {"--output-dir", At("out"), "--allow-write"}).exitCode, 0);
  EXPECT_EQ(WholeFile(At("e.txt")).substr(0, 5), "hello");
}

TEST_F(ScriptCommands, TheDataFolderIsMadeWhenItIsNeeded) {
  EXPECT_EQ(Run(kFlatBet).exitCode, 0);
  EXPECT_FALSE(std::filesystem::exists(data));
  EXPECT_EQ(Run(Writes("../x.txt")).exitCode, 1);
  EXPECT_FALSE(std::filesystem::exists(data));
  EXPECT_EQ(Run(Writes("x.txt")).exitCode, 0);
  EXPECT_EQ(WholeFile(data + "/x.txt").substr(0, 5), "hello");
}

TEST_F(ScriptCommands, ADiskThatRefusesFailsTheRun) {
  const std::string fills =
      "    Do this . . .\n          Open/append file for output: x.txt\n"
      "          Output to file. Message: " +
      std::string(70, 'x') + "\n";
  std::filesystem::create_directories(data);
  for (const std::vector<std::string>& options :
       {std::vector<std::string>{}, {"--record", At("full.rol")}, {"--events", At("full.txt")}}) {
    SCOPED_TRACE(options.empty() ? "output" : options[0]);
    Put("script.txt", options.empty() ? fills : kFlatBet);
    std::vector<std::string> words = {"run", script, "--rolls", "5000", "--data", data};
    words.insert(words.end(), options.begin(), options.end());
    const FileSizeLimit full(1000);
    const Result result = Rollwick(words);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.error.find("Error #27"), std::string::npos) << result.error;
  }
}

TEST_F(ScriptCommands, RecordedRollsPlayBackToTheSameGame) {
  const std::string dice = Put("run.rol", std::string(500, '\x6c'));  // what it held goes
  const auto recorded = RunJson(kFlatBet, {"--record", dice});
  EXPECT_EQ(std::filesystem::file_size(dice), 100U);
  const auto played = RunJson(kFlatBet, {"--dice", dice, "--rolls", "1000"});
  EXPECT_EQ(played["rolls"], 100);
  EXPECT_EQ(played["stopped"], "Stopped due to end of Dice Roll File reached.");
  EXPECT_EQ(played["summary"], recorded["summary"]);
  EXPECT_EQ(played["questions"][0]["answer"], "no");
}

TEST_F(ScriptCommands, TheEventsOfARun) {
  Run(kFlatBet, {"--events", At("events.txt"), "--rolls", "3"});
  EXPECT_NE(WholeFile(At("events.txt")).find(" Roll #3:"), std::string::npos);
}

// Presses Ctrl-C at one of its pumps.
class InterruptedHost : public ConsoleHost {
 public:
  InterruptedHost(std::atomic<bool>& interrupted, int pumps)
      : ConsoleHost(interrupted, nullptr), pressed_(interrupted), pumps_(pumps) {}
  void PumpEvents(Game& g) override {
    if (--pumps_ == 0) pressed_ = true;
    ConsoleHost::PumpEvents(g);
  }

 private:
  std::atomic<bool>& pressed_;
  int pumps_;
};

TEST_F(ScriptCommands, CtrlCStopsAScriptThatGoesRoundForEver) {
  for (const bool isHyper : {false, true}) {
    SCOPED_TRACE(isHyper);
    std::atomic<bool> interrupted = false;
    InterruptedHost host(interrupted, 5);
    const auto game = std::make_unique<Game>();
    SetStartUpDefaults(*game);
    game->TheHost = &host;
    ASSERT_TRUE(LoadScript(*game, Put("loop.txt", kEndless)).isLoaded);
    ActivateScript(*game, true);
    game->AutoBetsChanged = false;
    if (isHyper) {
      EXPECT_EQ(host.HyperDrive(*game, 100), 1);
    } else {
      host.Roll(*game, 100);
      EXPECT_EQ(game->RollCount(), 1);
    }
    EXPECT_FALSE(game->AutoBetRunning);
  }
}

TEST_F(ScriptCommands, TextToFileAndBack) {
  std::string text;
  for (int i = 0; i < 5; ++i) text += kFlatBet;
  Put("script.txt", "\n" + text);
  ASSERT_EQ(Rollwick({"script", "build", script, "-o", At("a.bet")}).exitCode, 0);
  EXPECT_EQ(WholeFile(At("a.bet")).size(), 11U * 256);
  EXPECT_EQ(Rollwick({"script", "show", At("a.bet"), "--plain"}).out, text);
  const std::string numbered = Rollwick({"script", "show", At("a.bet")}).out;
  EXPECT_EQ(numbered.substr(0, 23), " 1      Do this . . .\n ");
  EXPECT_NE(numbered.find("\n10            Bet $ 10 on Pass Line\n"), std::string::npos);
  EXPECT_EQ(Lines(Rollwick({"script", "show", script, "--json"}).out).at(1).dump(),
            R"({"line":2,"kind":30,"op":10,"name":"","amount":"10","left":[0,0],"right":[43,0],)"
            R"("text":"          Bet $ 10 on Pass Line"})");
  EXPECT_NE(Rollwick({"script", "statements"}).out.find("`Initializing Auto-Bet`"), std::string::npos);
}

TEST_F(ScriptCommands, ScriptsThatAreRefused) {
  const std::string longComment = "'" + std::string(128, 'x');
  struct Row {
    const char* name;
    std::vector<std::string> words;  // the file follows
    std::string text;
    int exitCode;
    const char* said;  // on either stream
  };
  const Row rows[] = {
      {"errors with their lines",
       {"build"},
       std::string(kFlatBet) + "nonsense is\n          nonsense\n",
       1,
       "script.txt:4:11: "},
      {"a line no file can keep", {"build"}, kFlatBet + longComment, 1, "script.txt:3:129: "},
      {"a letter no file can keep", {"build"}, "' \xE2\x98\xBA\n", 1, "script.txt:1:3: "},
      {"the check of an error", {"check"}, "          nonsense\n", 1, "script.txt:1:11: "},
      {"the check of a fault", {"check"}, "When . . .\n", 1, "script.txt:1: "},
      {"the check of nothing", {"check"}, "", 1, "presently your script is empty"},
      {"the check of a good one", {"check"}, kFlatBet, 0, "Your script is properly structured."},
      {"a damaged script file", {"show"}, "Rollwick AutoBets, Data Format 5.0", 1, "corrupted"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::vector<std::string> words = {"script"};
    words.insert(words.end(), row.words.begin(), row.words.end());
    words.push_back(Put("script.txt", row.text));
    if (row.words[0] == "build") words.insert(words.end(), {"-o", At("built.bet")});
    const Result result = Rollwick(words);
    EXPECT_EQ(result.exitCode, row.exitCode);
    EXPECT_NE((result.out + result.error).find(row.said), std::string::npos) << result.out << result.error;
    EXPECT_FALSE(std::filesystem::exists(folder / "built.bet")) << "nothing is written on error";
  }
  EXPECT_NE(Rollwick({"script", "show", At("none.bet")}).error.find("Error #2"), std::string::npos);
  for (const std::string& broken : {std::string(), std::string("Rollwick auto bets\0", 19)})
    EXPECT_NE(Rollwick({"script", "show", Put("broken.bet", broken)}).error.find("corrupted"),
              std::string::npos);
  EXPECT_NE(Rollwick({"script", "show", folder.Path().string()}).error.find("Error #21"), std::string::npos);
}

TEST_F(ScriptCommands, InTheGame) {
  const std::string file = Put("script.txt", kFlatBet);
  struct Row {
    std::string command;
    const char* error;  // nullptr: ok
    const char* extra;  // part of the answer
  };
  const Row rows[] = {
      {"script run", "no script is loaded", ""},
      {"script load /nowhere/at/all", "Error #2", ""},
      {"script load " + Put("bad.txt", "          nonsense\n"), "bad.txt:1:11: ", ""},
      {"script load " + Put("fault.txt", "When . . .\n"), nullptr, "\"fault\":\""},
      {"script load " + file, nullptr, ""},
      {"script run", nullptr, "\"bets\":{\"Pass Line\":\"10\"}"},
      {"remove all", nullptr, ""},
      {"roll 1 2", nullptr, "\"bets\":{}"},
      {"script on", nullptr, ""},
      {"show script", nullptr, "\"AutoBetsActive\":1"},
      {"answer yes", nullptr, ""},
      {"roll 1 2", nullptr, "Would you like to initialize your Auto-Bets?"},
      {"script off", nullptr, ""},
      {"script clear", nullptr, ""},
      {"show script", nullptr, "\"lines\":[]"},
      {"script load " + Put("abort.txt", kWithoutFile), nullptr, ""},
      {"script run", "the script was aborted", "Auto-Bet Abort"},
      {"script load " + Put("flag.txt", "    Do this . . .\n          Set flag \"A b\" to True\n"), nullptr,
       ""},
      {"script run", nullptr, ""},
      {"show flags", nullptr, "\"flags\":[{\"Name\":\"A b\",\"Value\":1,\"PrevValue\":1}]"},
      {"script dance", "script load FILE", ""},
      {"script on it", "no further words", ""},
      {"script load", "needs a file", ""},
  };
  std::string input;
  for (const Row& row : rows) input += row.command + "\n";
  const auto lines = Lines(Rollwick({"play", "--json", "--seed", "7", "--data", data}, input).out);
  ASSERT_EQ(lines.size(), std::size(rows));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    SCOPED_TRACE(rows[i].command);
    EXPECT_EQ(lines[i]["ok"], rows[i].error == nullptr) << lines[i].dump();
    const std::string error = lines[i].value("error", "");
    EXPECT_NE(error.find(rows[i].error == nullptr ? "" : rows[i].error), std::string::npos) << error;
    EXPECT_NE(lines[i].dump().find(rows[i].extra), std::string::npos) << lines[i].dump();
  }
}

TEST_F(ScriptCommands, DiceFilesInTheGame) {
  const std::string file = At("game.rol");
  const auto lines =
      Lines(Rollwick({"play", "--json"}, "dicefile rewind\nplayback " + file + "\nrecord " + file +
                                             "\nroll 3 4\nroll 1 2\ndicefile rewind\nroll\nroll\n"
                                             "roll\nrecord " +
                                             file + "\nroll 6 6\ndicefile close\n")
                .out);
  ASSERT_EQ(lines.size(), 12U);
  EXPECT_FALSE(lines[0]["ok"]);
  EXPECT_FALSE(lines[1]["ok"]) << "a playback makes no file";
  EXPECT_EQ(lines[6]["dice"].dump(), "[3,4]");
  EXPECT_EQ(lines[7]["dice"].dump(), "[1,2]");
  EXPECT_EQ(lines[8]["stopped"], "Stopped due to end of Dice Roll File reached.");
  EXPECT_EQ(Rollwick({"dice", "show", file}).out, "3 4\n1 2\n6 6\n") << "recorded behind what it held";
  const auto played = Lines(Rollwick({"play", "--json", "--dice", file}, "roll\n").out);
  EXPECT_EQ(played.at(0)["dice"].dump(), "[3,4]");
}

TEST_F(ScriptCommands, DiceFilesAsTexts) {
  const std::string text = Put("dice.txt", "# three rolls\n3 4\n\n(1,2)\r\n  [6]-[5] # the last\n");
  const std::string file = At("dice.rol");
  ASSERT_EQ(Rollwick({"dice", "make", text, "-o", file}).exitCode, 0);
  EXPECT_EQ(Rollwick({"dice", "show", file}).out, "3 4\n1 2\n6 5\n");
  EXPECT_EQ(Rollwick({"dice", "show", file, "--first", "2", "--count", "1", "--json"}).out,
            "{\"roll\":2,\"dice\":[1,2]}\n");
  struct Row {
    const char* name;
    std::vector<std::string> words;
    int exitCode;
    const char* error;
  };
  int texts = 0;
  const auto make = [&](const std::string& line) {
    return std::vector<std::string>{"dice", "make", Put("t" + std::to_string(++texts), "1 2\n" + line), "-o",
                                    At("bad.rol")};
  };
  const Row rows[] = {
      {"a face of 7", make("1 7"), 1, ":2:3: "},
      {"no number", make("  x"), 1, ":2:3: "},
      {"one die", make(" 4"), 1, ":2:2: "},
      {"three dice", make("1 2 3"), 1, ":2:5: "},
      {"dice without a gap", make("12"), 1, ":2:1: "},
      {"a long line", make("1 2" + std::string(5000, ' ')), 1, ":2:4097: "},
      {"no text", {"dice", "make", At("none"), "-o", file}, 1, "cannot be read"},
      {"no file", {"dice", "show", "/nowhere.rol"}, 1, "/nowhere.rol: No such file or directory, Error #2"},
      {"no dice file", {"dice", "show", text}, 1, "not a true Rollwick dice roll file"},
      {"beyond the end", {"dice", "show", file, "--first", "4"}, 1, "3 rolls"},
      {"roll 0", {"dice", "show", file, "--first", "0"}, 2, "--first"},
      {"a negative count", {"dice", "show", file, "--count", "-1"}, 2, "--count"},
      {"playing into a draw", {"dice", "draw", "--rolls", "1", "--dice", file}, 2, "--dice"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = Rollwick(row.words);
    EXPECT_EQ(result.exitCode, row.exitCode);
    EXPECT_NE(result.error.find(row.error), std::string::npos) << result.error;
  }
  EXPECT_FALSE(std::filesystem::exists(folder / "bad.rol"));
}

}  // namespace
}  // namespace rollwick
