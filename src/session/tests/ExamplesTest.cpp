// The scripts we hand out, in examples/, in docs/auto-bet.md and in the README: they read, they are properly
// structured, they stand as the editor writes them, and they play as their comments and the pages say.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "autobet/model/Script.h"
#include "autobet/model/Statements.h"
#include "autobet/run/Output.h"
#include "base/FormatNumber.h"
#include "dice/Draw.h"
#include "engine/cycle/RollDice.h"
#include "engine/game/NewGame.h"
#include "session/Scripts.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

const std::filesystem::path kHouse = std::filesystem::path(ROLLWICK_TEST_DATA) / "../..";

std::string Contents(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// Everything that a script of ours may not have: errors, faults, lines the editor would write otherwise.
void ExpectGoodScript(const std::string& text) {
  const ParsedScript script = ParseScriptText(text);
  for (const ScriptTextError& error : script.errors)
    ADD_FAILURE() << error.line << ":" << error.column << ": " << error.message;
  const auto fault = CheckStructure(script.lines);
  EXPECT_FALSE(fault) << "line " << fault->line << ": " << fault->title;
  std::string written;
  for (const ScriptLine& line : script.lines) {
    written += LineText(line) + "\n";
    EXPECT_LE(line.Text.size(), kLongestLineText) << "a script file would cut " << line.Text;
  }
  EXPECT_EQ(written, text);
}

class FolderHost : public ScriptedHost {
 public:
  TemporaryFolder folder;
  FileGrant GrantFile(Game&, std::string_view name, FileUse) override { return {folder / name, ""}; }
};

// A table with a script switched on and run once before the dice, as `rollwick run --init` has it.
struct ScriptTable : TestTable {
  FolderHost files;

  explicit ScriptTable(const std::string& script, int bankroll = 500) {
    g.TheHost = &files;
    g.SeedRequest = Dollars(1);
    SeedGenerator(g, true);
    g.Rules.BankrollInitAmount = Dollars(bankroll);
    g.ReseedNewGames = false;
    NewGame(g, false);
    ReplaceScript(g, ParseScriptText(script).lines, "script", "");
    ActivateScript(g, true);
    EXPECT_EQ(RunInitializingScript(g), "");
    g.AutoBetsChanged = false;
  }
  void RollInHyperDrive(int rolls) {
    g.AutoRollsSet = g.AutoRollsLeft = rolls;
    ToggleHyperDrive(g);
  }
  void Roll(int die1, int die2) {
    g.ManualDie1 = die1;
    g.ManualDie2 = die2;
    g.ManualRollPending = true;
    RollDice(g);
  }
  std::int64_t Decided() const {
    Money count;
    for (BetId bet = 1; bet <= kBetCount; ++bet)
      count += g.BetWagers[ActualWagers][static_cast<std::size_t>(bet)][TotalCount];
    return count.Units() / Money::kUnitsPerDollar;
  }
};

using Amounts = std::map<BetId, int>;  // dollars by bet or, from 100 on, Chip-Stack

void ExpectAmounts(const Game& g, const Amounts& amounts) {
  for (const auto& [slot, dollars] : amounts)
    EXPECT_EQ(PlainText(g.BetAmount[static_cast<std::size_t>(slot)]), std::to_string(dollars))
        << BetName(slot);
}

// 10,000 rolls of RNG #1 with the seed 1. The comments in the files name these results.
struct Example {
  const char* name;
  int bankroll;
  int bankrollAfter;
  int lowest;
  int decided;
  Amounts stacks = {};
};

const Example kExamples[] = {
    {"3-point-molly", 5000, 4975, 3315, 11447, {}},
    {"iron-cross", 5000, 2046, 1932, 13207, {}},
    {"dont-pass-full-lay", 5000, 2585, 2130, 4962, {}},
    {"hardway-press",
     10000,
     2050,
     1900,
     7760,
     {{SlotChipStack + 4, 5}, {SlotChipStack + 6, 5}, {SlotChipStack + 8, 5}, {SlotChipStack + 10, 25}}},
    {"martingale-pass-line", 5000, 6355, 3325, 3046, {{SlotChipStack + 1, 10}, {SlotChipStack + 2, 10}}},
    {"one-three-two-six-field", 8000, 3365, 3265, 10000, {{SlotChipStack + 1, 30}, {SlotChipStack + 2, 239}}},
    {"five-count",
     2000,
     2398,
     1830,
     2205,
     {{SlotChipStack + 1, 1169}, {SlotChipStack + 2, 586}, {SlotChipStack + 5, 4}}},
    {"place-6-8-regression", 3000, 1203, 501, 4276, {}},
    {"oscars-grind-pass-line",
     3000,
     4680,
     2875,
     3046,
     {{SlotChipStack + 1, 25}, {SlotChipStack + 2, -45}, {SlotChipStack + 5, 551}, {SlotChipStack + 6, 2}}},
    {"table-of-hands", 2500, 1205, 761, 8165, {{SlotChipStack + 3, 1169}}},
};

TEST(Examples, AllReadAndStandAsTheEditorWritesThem) {
  std::set<std::string> files, rows;
  for (const auto& entry : std::filesystem::directory_iterator(kHouse / "examples")) {
    SCOPED_TRACE(entry.path().filename());
    files.insert(entry.path().stem());
    ExpectGoodScript(Contents(entry.path()));
  }
  for (const Example& row : kExamples) rows.insert(row.name);
  EXPECT_EQ(files, rows) << "every file of examples/ has its row here";
  const std::string readme = Contents(kHouse / "README.md");
  for (const std::string& name : files) EXPECT_NE(readme.find(name + ".txt"), readme.npos) << name;
}

TEST(Examples, PlayTenThousandRollsAsTheirCommentsSay) {
  for (const Example& row : kExamples) {
    SCOPED_TRACE(row.name);
    const std::string text = Contents(kHouse / "examples" / (std::string(row.name) + ".txt"));
    ScriptTable table(text, row.bankroll);
    table.RollInHyperDrive(10'000);
    EXPECT_EQ(table.g.RollCount(), 10'000);
    EXPECT_EQ(table.g.LastStopMessage, "Stopped by roll count on Auto-Play screen.");
    EXPECT_EQ(PlainText(table.Amount(SlotBankroll)), std::to_string(row.bankrollAfter));
    EXPECT_EQ(PlainText(table.g.BankrollLow), std::to_string(row.lowest));
    EXPECT_EQ(table.Decided(), row.decided);
    ExpectAmounts(table.g, row.stacks);
    const std::string said = "seed 1: $" + FormatMoney(Dollars(row.bankrollAfter)) + " at the end, $" +
                             FormatMoney(Dollars(row.lowest)) + " at the lowest";
    EXPECT_NE(text.find(said), text.npos) << said;
  }
}

TEST(Examples, TableOfHandsIsWritten) {
  ScriptTable table(Contents(kHouse / "examples/table-of-hands.txt"));
  for (const auto& [die1, die2] : {std::pair{2, 3}, {4, 4}, {2, 3}, {6, 6}, {1, 5}, {3, 4}})
    table.Roll(die1, die2);
  FlushScriptOutput(table.g);
  EXPECT_EQ(Contents(table.files.folder / "hands.txt"),
            "Hand\tRolls\tPasses\tBankroll\tWon\r\n1\t6\t1\t492\t-8\t\r\n");
}

// The scripts of a page by their first line, a comment.
std::map<std::string, std::string> ScriptsOf(const char* page) {
  constexpr std::string_view kFence = "```autobet\n";
  const std::string text = Contents(kHouse / page);
  std::map<std::string, std::string> scripts;
  for (auto at = text.find(kFence); at != text.npos; at = text.find(kFence, at)) {
    at += kFence.size();
    const std::string script = text.substr(at, text.find("```", at) - at);
    EXPECT_TRUE(scripts.emplace(script.substr(0, script.find('\n')), script).second) << script;
  }
  return scripts;
}

TEST(Pages, ScriptsReadAndStandAsTheEditorWritesThem) {
  for (const char* page : {"docs/auto-bet.md", "README.md"}) {
    SCOPED_TRACE(page);
    const auto scripts = ScriptsOf(page);
    EXPECT_FALSE(scripts.empty());
    for (const auto& [name, script] : scripts) {
      SCOPED_TRACE(name);
      ExpectGoodScript(script);
    }
  }
}

struct Dice {
  int die1, die2;
};

// What the page says its scripts do, played on a table with $500: initialized, then these dice.
TEST(Pages, ScriptsDoWhatTheTextSays) {
  constexpr BetId kStack = SlotChipStack;
  struct Row {
    const char* script;
    std::vector<Dice> dice;
    Amounts amounts;
  };
  const Row rows[] = {
      {"A first script", {}, {{Bet::PassLine, 10}}},
      {"A first script", {{3, 4}}, {{Bet::PassLine, 10}, {SlotBankroll, 510}}},
      {"When and While", {{4, 2}, {1, 2}, {1, 3}}, {{kStack + 1, 1}, {kStack + 2, 3}}},
      {"Either pair", {{3, 3}, {1, 2}, {4, 4}, {5, 3}}, {{kStack + 1, 2}}},
      {"One part or two", {{1, 3}, {2, 3}, {3, 3}}, {{SlotBankroll, 495}, {kStack + 1, 1}, {kStack + 2, 0}}},
      {"One part or two", {{3, 3}}, {{SlotBankroll, 495}, {kStack + 1, 1}, {kStack + 2, 1}}},
      {"One six, not two", {{6, 6}, {6, 1}, {1, 6}, {2, 2}}, {{kStack + 1, 2}}},
      {"Field on the come-out, 6 and 8 with a point", {}, {{Bet::Field, 5}, {Bet::Place6, 0}}},
      {"Field on the come-out, 6 and 8 with a point",
       {{1, 3}, {3, 3}},
       {{Bet::Field, 0}, {Bet::Place6, 6}, {Bet::Place8, 6}, {SlotBankroll, 512}}},
      {"Double after a loss", {{1, 1}, {1, 2}}, {{Bet::PassLine, 20}, {SlotBankroll, 485}}},
      {"Double after a loss", {{1, 1}, {1, 2}, {5, 6}}, {{Bet::PassLine, 5}, {SlotBankroll, 505}}},
      {"Press the Hard 8 once", {{4, 4}}, {{Bet::Hard8, 25}, {SlotBankroll, 545}}},
      {"Press the Hard 8 once", {{4, 4}, {4, 4}}, {{Bet::Hard8, 5}, {SlotBankroll, 770}}},
      {"Passes of each shooter",
       {{3, 4}, {4, 2}, {3, 4}, {5, 6}},
       {{kStack + 9, 11}, {kStack + 10, 1}, {kStack + 11, 1}}},
      {"Rest after two seven-outs", {{1, 1}}, {{Bet::PassLine, 10}}},
      {"Rest after two seven-outs", {{1, 1}, {1, 2}, {3, 4}}, {{Bet::PassLine, 0}, {SlotBankroll, 480}}},
      {"Highest, lowest, average", {}, {{kStack + 4, 20}, {kStack + 5, 5}, {kStack + 6, 12}}},
      {"Count the sevens and the elevens",
       {{3, 4}, {5, 6}, {2, 4}, {5, 6}},
       {{kStack + 1, 3}, {kStack + 2, 2}}},
      {"Once", {{2, 2}}, {{kStack + 1, 5}}},
  };
  const auto scripts = ScriptsOf("docs/auto-bet.md");
  for (const Row& row : rows) {
    SCOPED_TRACE(row.script);
    const auto script = scripts.find(std::string("' ") + row.script);
    ASSERT_NE(script, scripts.end());
    ScriptTable table(script->second);
    for (const auto& [die1, die2] : row.dice) table.Roll(die1, die2);
    ExpectAmounts(table.g, row.amounts);
  }
}

TEST(Pages, TheScriptThatAsksIsAnswered) {
  ScriptTable table(ScriptsOf("docs/auto-bet.md").at("' Ask at each seven-out"));
  table.files.answers = {Answer::Yes};
  table.g.KeepRolling = true;
  table.Roll(2, 2);
  EXPECT_TRUE(table.g.KeepRolling);
  table.Roll(3, 4);
  EXPECT_FALSE(table.g.KeepRolling);
  ASSERT_EQ(table.files.messages.size(), 2u);
  EXPECT_EQ(table.files.messages[0].text.substr(0, 20), "Your bankroll is $50");
  EXPECT_EQ(table.files.messages[1].text, "Do you want to rest?");
}

TEST(Pages, TheScriptThatWritesAFileWrites) {
  ScriptTable table(ScriptsOf("docs/auto-bet.md").at("' The dice of a run"));
  for (const auto& [die1, die2] : {Dice{3, 4}, {4, 4}, {5, 6}, {2, 6}}) table.Roll(die1, die2);
  FlushScriptOutput(table.g);
  EXPECT_EQ(Contents(table.files.folder / "passes.txt"), "Roll\tPasses\r\n1\t1\t\r\n4\t2\t\r\n");
}

TEST(Pages, AllStatementsAreListed) {
  const std::string text = Contents(kHouse / "docs/auto-bet.md");
  const std::string begin = "<!-- statements: written by `rollwick script statements` -->\n";
  const auto from = text.find(begin), to = text.find("<!-- end of statements -->");
  ASSERT_NE(from, text.npos);
  ASSERT_NE(to, text.npos);
  const auto start = from + begin.size();
  EXPECT_TRUE(text.substr(start, to - start) == StatementList())
      << "docs/auto-bet.md is behind: put the output of `rollwick script statements` between its markers.";
}

}  // namespace
}  // namespace rollwick
