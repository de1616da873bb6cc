// Which actions of a script run, in which order, and what the step screen says of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>

#include "autobet/run/RunAutoBet.h"
#include "autobet/run/tests/ScriptBuilder.h"
#include "stats/tally/Tally.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

class WatchingHost : public ScriptedHost {
 public:
  std::vector<StepTrace> steps;
  std::vector<std::string> calls;
  std::function<void(Game&)> pump;

  void PumpEvents(Game& g) override {
    calls.emplace_back("pump");
    if (pump) pump(g);
  }
  void TableChanged(Game&) override { calls.emplace_back("table"); }
  void ShowStatus(Game&, std::string_view status) override { calls.emplace_back(status); }
  void ShowStep(Game&, const StepTrace& trace) override { steps.push_back(trace); }
  void WaitForEyes(Game& g, std::uint32_t since, std::uint32_t milliseconds) override {
    EXPECT_TRUE(g.AutoBetRunning || Pumps() > 0);
    calls.push_back("wait " + std::to_string(milliseconds) + " from " + std::to_string(since));
  }
  int Pumps() const { return static_cast<int>(std::count(calls.begin(), calls.end(), "pump")); }
};

struct WatchedTable : TestTable {
  WatchingHost eyes;
  WatchedTable() { g.TheHost = &eyes; }

  void Run(Script script) {
    for (std::size_t i = 0; i < script.size(); ++i) script[i].Text = "text " + std::to_string(i + 1);
    SetScript(g, std::move(script));
    RunAutoBet(g);
  }
  // Numbers of the lines whose action ran.
  std::string Path(Script script) {
    g.StepTraceOn = true;
    Run(std::move(script));
    std::string path;
    for (const StepTrace& step : eyes.steps) {
      if (step.status == "Status: Action taken.")
        path += (path.empty() ? "" : " ") + step.lineNumber.substr(6);
    }
    return path;
  }
};

const ScriptLine kTrue = If(Item::NextIsComeOut, 0);
const ScriptLine kFalse = If(Item::NextIsNotComeOut, 0);

// ---- Blocks of conditions.

// A start line with two conditions: f is false, n true and new, o true but not new.
struct Part {
  std::int32_t kind;
  std::string lines;
};

bool IsWhenKind(std::int32_t kind) {
  return kind == KindWhen || kind == KindAndWhen || kind == KindOrWhen || kind == KindXorWhen;
}
bool IsAndKind(std::int32_t kind) {
  return kind == KindAndWhen || kind == KindAndWhile;
}
bool IsXorKind(std::int32_t kind) {
  return kind == KindXorWhen || kind == KindXorWhile;
}

bool AllTrue(const Part& part) {
  return part.lines.find('f') == std::string::npos;
}
bool Holds(const Part& part) {
  return AllTrue(part) && (!IsWhenKind(part.kind) || part.lines.find('n') != std::string::npos);
}

// What the player is told the conditions mean. A block is a part and the `and` parts behind it, and is true
// if they all hold. The first true block decides, but one that stands before an `xor` waits to be compared
// with the block behind it.
bool Expected(const std::vector<Part>& parts) {
  bool previous = false;
  for (std::size_t begin = 0, end = 0; begin < parts.size(); begin = end) {
    for (end = begin + 1; end < parts.size() && IsAndKind(parts[end].kind);) ++end;
    bool isXor = IsXorKind(parts[begin].kind), holds = true;
    for (std::size_t i = begin; i < end && holds; ++i) {
      holds = Holds(parts[i]);
      const bool lacksNews = AllTrue(parts[i]) && !holds;
      // An `xor while` forgets the block before it when one of its `and when` parts lacks news.
      if (isXor && parts[begin].kind == KindXorWhile && lacksNews) previous = false;
      // An `and` behind a When part whose last line is old makes a plain block of an xor.
      if (holds && IsWhenKind(parts[i].kind) && parts[i].lines.back() == 'o' && i + 1 < end) isXor = false;
    }
    const bool result = isXor ? holds != previous : holds;
    const bool waits = !isXor && end < parts.size() && IsXorKind(parts[end].kind);
    if (result && !waits) return true;
    previous = result;
  }
  return false;
}

// Runs one arrangement of start lines with any truth of their lines.
class Blocks {
 public:
  explicit Blocks(const std::vector<std::int32_t>& kinds) {
    Script script;
    for (const std::int32_t kind : kinds) {
      script.push_back(Start(kind));
      for (int line = 0; line < 2; ++line)
        script.push_back(IfFlag("condition " + std::to_string(script.size())));
    }
    for (const auto& line :
         {Then(), SetFlag("then", true), Else(), SetFlag("else", true), DoThis(), SetFlag("do this", true)}) {
      script.push_back(line);
    }
    SetScript(t_.g, std::move(script));
    t_.g.HyperDriveActive = true;
  }

  // "then" or "else"; the actions behind Do this run in any case.
  std::string Run(const std::vector<Part>& parts) {
    auto flag = t_.g.ScriptFlags.begin();
    for (const Part& part : parts) {
      for (const char line : part.lines) {
        flag->Value = line != 'f';
        (flag++)->PrevValue = line == 'o' || line == 'f';
      }
    }
    for (auto result = flag; result != t_.g.ScriptFlags.end(); ++result) result->Value = 0;
    RunAutoBet(t_.g);
    std::string done;
    for (; flag != t_.g.ScriptFlags.end(); ++flag) {
      if (flag->Value != 0) done += (done.empty() ? "" : ", ") + flag->Name;
    }
    return done;
  }

 private:
  TestTable t_;
};

constexpr std::array<const char*, 9> kStates = {"ff", "fn", "fo", "nf", "nn", "no", "of", "on", "oo"};

void TryAllStates(const std::vector<std::int32_t>& kinds) {
  Blocks blocks(kinds);
  std::vector<Part> parts;
  for (const std::int32_t kind : kinds) parts.push_back({kind, ""});
  std::size_t states = 1;
  for (std::size_t i = 0; i < kinds.size(); ++i) states *= kStates.size();
  for (std::size_t state = 0; state < states; ++state) {
    std::string name;
    std::size_t rest = state;
    for (Part& part : parts) {
      part.lines = kStates[rest % kStates.size()];
      rest /= kStates.size();
      name += std::to_string(part.kind) + part.lines + " ";
    }
    ASSERT_EQ(blocks.Run(parts), Expected(parts) ? "then, do this" : "else, do this") << name;
  }
}

TEST(Blocks, MeanWhatThePlayerIsTold) {
  for (const std::int32_t first : {KindWhen, KindWhile}) {
    TryAllStates({first});
    for (std::int32_t second = KindAndWhen; second <= KindXorWhile; ++second) {
      TryAllStates({first, second});
      for (std::int32_t third = KindAndWhen; third <= KindXorWhile; ++third)
        TryAllStates({first, second, third});
    }
  }
}

TEST(Blocks, OddOnesThatAreMeant) {
  struct Row {
    const char* name;
    std::vector<Part> parts;
    bool result;
  };
  constexpr std::int32_t when = KindWhen, whileAll = KindWhile, orWhile = KindOrWhile, xorWhen = KindXorWhen,
                         xorWhile = KindXorWhile, andWhen = KindAndWhen, andWhile = KindAndWhile;
  // clang-format off
  const Row kRows[] = {
      {"a line that is new carries the When", {{when, "no"}}, true},
      {"nothing new", {{when, "oo"}}, false},
      {"each and when asks for its own", {{when, "on"}, {andWhen, "oo"}}, false},
      {"and while takes old ones", {{when, "on"}, {andWhile, "oo"}}, true},
      {"an old When fails at and while", {{when, "oo"}, {andWhile, "nn"}}, false},
      {"a or b xor c with a true", {{whileAll, "oo"}, {orWhile, "oo"}, {xorWhile, "oo"}}, true},
      {"three true ones are true by the third", {{whileAll, "oo"}, {xorWhile, "oo"}, {xorWhile, "oo"}}, true},
      {"a true xor decides before the next xor",
       {{whileAll, "oo"}, {xorWhile, "ff"}, {xorWhile, "oo"}}, true},
      {"xor when, true, the last old, is plain behind and",
       {{whileAll, "oo"}, {xorWhen, "no"}, {andWhile, "oo"}}, true},
      {"and compares when the last is new", {{whileAll, "oo"}, {xorWhen, "on"}, {andWhile, "oo"}}, false},
      {"the plain block has lost the one before",
       {{whileAll, "oo"}, {xorWhen, "no"}, {andWhile, "ff"}}, false},
      {"xor while forgets at and when", {{whileAll, "oo"}, {xorWhile, "oo"}, {andWhen, "oo"}}, false},
      {"xor when does not", {{whileAll, "oo"}, {xorWhen, "nn"}, {andWhen, "oo"}}, true},
  };
  // clang-format on
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    std::vector<std::int32_t> kinds;
    for (const Part& part : row.parts) kinds.push_back(part.kind);
    EXPECT_EQ(Blocks(kinds).Run(row.parts), row.result ? "then, do this" : "else, do this");
  }
}

// ---- Where the walk goes.

TEST(Walk, Paths) {
  const ScriptLine act = Mark(1), back = Do(Verb::Return), x = Label("x"), goX = GoTo("x");
  const ScriptLine end = Label("end"), goEnd = GoTo("end");
  struct Row {
    const char* name;
    Script script;
    const char* path;
  };
  const Row kRows[] = {
      {"actions under no start line", {act, Comment(), act}, "1 3"},
      {"conditions under no start line", {kTrue, Then(), act, Else(), act}, "5"},
      {"a new When starts afresh", {While(), kTrue, Then(), act, While(), kFalse, Then(), act}, "4"},
      {"Go to forward", {goX, act, x, act}, "1 4"},
      {"Go to backward until it is enough",
       {Label("top"), act, While(), If(Item::Stack, Compare::LessAmount, Dollars(3), 1), Then(), GoTo("top"),
        DoThis(), act},
       "2 6 2 6 2 8"},
      {"a label that is not there", {GoTo("nowhere"), act}, "1"},
      {"the first of two labels", {GoTo("b"), x, act, goEnd, Label("b"), goX, x, act, end}, "1 6 3 4"},
      {"case and blanks of labels", {GoTo(" MyLabel"), act, Label("mylaBEL  "), act}, "1 4"},
      {"case of accented letters", {GoTo("\xC3\x89t\xC3\x89"), act, Label("\xC3\xA9t\xC3\xA9"), act}, "1 4"},
      {"Go to without a name", {GoTo(""), GoTo("  "), act, Label("  ")}, "1 2 3"},
      {"nested Gosub",
       {Gosub("a"), act, goEnd, Label("a"), Gosub("b"), act, back, Label("b"), act, back, end},
       "1 5 9 10 6 7 2 3"},
      {"Gosub behind Gosub", {Gosub("a"), Gosub("a"), goEnd, Label("a"), act, back, end}, "1 5 6 2 5 6 3"},
      {"Gosub to a label that is not there", {Gosub("a"), act}, "1"},
      {"Return without Gosub", {back, act}, "2"},
      {"Gosub without a name", {Gosub(""), act, back}, "1 2 3 2"},
      {"Return behind comments", {Comment(), Gosub("a"), act, goEnd, Label("a"), back, end}, "2 6 3 4"},
      {"Return from a then block",
       {Gosub("s"), act, goEnd, Label("s"), While(), kTrue, Then(), back, end},
       "1 8 2 3"},
      {"Return from an else block skips what follows the Gosub",
       {Gosub("s"), act, DoThis(), act, goEnd, Label("s"), While(), kFalse, Then(), act, Else(), back, end},
       "1 12 4 5"},
      {"else behind a called block",
       {DoThis(), Gosub("s"), Else(), act, DoThis(), goEnd, Label("s"), back, end},
       "2 8 6"},
      {"Gosub in an else block goes on there",
       {While(), kFalse, Then(), act, Else(), Gosub("s"), act, goEnd, Label("s"), back, end},
       "6 10 7 8"},
      {"a jump keeps the decision", {While(), kTrue, Then(), goX, act, x, act, Else(), act}, "4 7"},
      {"a label met in a then block that runs", {While(), kTrue, Then(), act, x, act}, "4 6"},
      {"a label met in a then block that does not", {While(), kFalse, Then(), act, x, act}, ""},
      {"a jump into a then block", {goX, While(), kTrue, Then(), act, x, act, Else(), act}, "1 7 9"},
      {"a label between conditions", {While(), kTrue, x, kFalse, Then(), act}, ""},
      {"a kind nobody knows", {Start(55), act}, "2"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    WatchedTable t;
    EXPECT_EQ(t.Path(row.script), row.path);
    EXPECT_FALSE(t.g.AutoBetRunning);
    EXPECT_EQ(t.TakeMessage(), "");
  }
}

TEST(Walk, AnEndlessLoopLetsTheWorldAct) {
  struct Row {
    const char* name;
    Script script;
    int pumps;
    int marks;  // the 500th line in a row is visited, and not carried out
  };
  Script far = {Label("a"), Mark(1), GoTo("b")};
  far.resize(1497, Comment());
  far.push_back(Label("b"));
  far.push_back(GoTo("a"));
  const Row kRows[] = {{"three lines round and round", {Label("a"), Mark(1), GoTo("a")}, 1, 166},
                       {"three times as long", {Label("a"), Mark(1), GoTo("a")}, 3, 500},
                       {"lines searched for a label count", far, 1, 1}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    WatchedTable t;
    t.eyes.pump = [&](Game& g) {
      if (t.eyes.Pumps() == row.pumps) g.AutoBetRunning = false;
    };
    t.Run(row.script);
    EXPECT_EQ(t.Amount(SlotChipStack + 1), Dollars(row.marks));
    EXPECT_EQ(t.eyes.Pumps(), row.pumps);
    EXPECT_EQ(t.eyes.calls.back(), "table");
    EXPECT_EQ(t.eyes.messages.size(), 0U);
  }
}

TEST(Walk, TellsTheWorldWhatItIsDoing) {
  struct Row {
    const char* name;
    bool hotKey, steps, hyper;
    std::vector<std::string> calls;
  };
  const std::string wait = "wait 300 from 123456";
  const Row kRows[] = {{"a roll", false, false, false, {"Auto-Betting", wait, "table"}},
                       {"step by step", false, true, false, {wait, "table"}},
                       {"a hot key", true, true, false, {"Hot-Key", wait, "table"}},
                       {"Hyper-Drive", false, true, true, {}}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    WatchedTable t;
    t.g.HotKeyRunning = row.hotKey;
    t.g.StepTraceOn = row.steps;
    t.g.HyperDriveActive = row.hyper;
    t.g.LastAnswer = 6;
    t.Run({While(), If(Item::Initializing), Then(), SetFlag("hot", true), Do(Verb::ShowSteps)});
    EXPECT_EQ(t.eyes.calls, row.calls);
    EXPECT_EQ(t.eyes.steps.empty(), !row.steps || row.hyper);
    EXPECT_EQ(t.g.ScriptFlags[0].Value, row.hotKey ? 1 : 0);
    EXPECT_EQ(t.g.LastAnswer, 1);
  }
}

// ---- The step screen.

std::string AtLine(int line, const std::string& status) {
  return "Line #" + std::to_string(line) + "|text " + std::to_string(line) + "|Status: " + status;
}
std::string OfBlock(const std::string& status) {
  return "||Status: " + status;
}

TEST(Walk, WhatTheStepScreenSays) {
  const std::string asksNew =
      "This block of conditions will be true if each line is true and at least one has just occurred.";
  const std::string asksTrue = "This block of conditions will be true if each line is true.";
  const std::string xorTail = "The xor condition will be then be evaluated with it and the previous block. ";
  const std::string skipped = "Since some conditions are already false, this block will be skipped. ";
  const std::string isFalse = "Condition is false. ";
  const std::string isNew = "Condition is true (just now occurred). ";
  const std::string isOld = "Condition is true (not a new occurrence). ";
  const std::string noneNew =
      "All the conditions in the block were true, but none have just now occurred - so the block is false. ";
  const std::string allTrue = "All the conditions in the block were true. ";
  const std::string someFalse = "At least one condition was false, so the block is false. ";
  const std::string thenTaken = "Since the overall conditions were true, the next actions will be taken. ";
  const std::string thenSkipped =
      "Since the overall conditions were false, the next actions will be skipped. ";
  const std::string taken = "Action taken.";
  const std::string jumped = "A \"Go to\" or \"GoSub\" statement has caused a jump to this label. ";
  const ScriptLine fresh = IfFlag("fresh"), old = IfFlag("old"), unset = IfFlag("unset"), act = Mark(1);
  struct Row {
    const char* name;
    Script script;
    std::vector<std::string> steps;
  };
  const Row kRows[] = {
      {"true by the second block",
       {When(), fresh, Start(KindAndWhen), old, Start(KindOrWhile), old, Start(KindAndWhile), old, Then(),
        act, Else(), act, DoThis(), act},
       {AtLine(1, asksNew), AtLine(2, isNew), AtLine(3, asksNew), AtLine(4, isOld), OfBlock(noneNew),
        AtLine(5, asksTrue), AtLine(6, isOld), AtLine(7, asksTrue), AtLine(8, isOld), OfBlock(allTrue),
        AtLine(9, thenTaken), AtLine(10, taken),
        AtLine(11, "Since the previous actions were taken, the next actions will be skipped. "),
        AtLine(13, "This block of actions will be executed directly. "), AtLine(14, taken)}},
      {"false in both blocks",
       {While(), unset, old, Start(KindAndWhen), fresh, Start(KindAndWhile), fresh, Start(KindOrWhen), old,
        Then(), act, Else(), act},
       {AtLine(1, asksTrue), AtLine(2, isFalse), AtLine(4, skipped), AtLine(6, skipped), OfBlock(someFalse),
        AtLine(8, asksNew), AtLine(9, isOld), OfBlock(noneNew), AtLine(10, thenSkipped),
        AtLine(12, "Since the previous actions were skipped, the next actions will be taken. "),
        AtLine(13, taken)}},
      {"a When that fails at its and",
       {When(), old, Start(KindAndWhile), fresh, Then()},
       {AtLine(1, asksNew), AtLine(2, isOld), OfBlock(noneNew), AtLine(3, skipped), OfBlock(someFalse),
        AtLine(5, thenSkipped)}},
      {"decided at the or: the rest needs no words",
       {When(), fresh, Start(KindOrWhen), fresh, Start(KindXorWhile), fresh, Then(), act},
       {AtLine(1, asksNew), AtLine(2, isNew), OfBlock(allTrue), AtLine(7, thenTaken), AtLine(8, taken)}},
      {"xor of two true",
       {When(), fresh, Start(KindXorWhen), fresh, Then()},
       {AtLine(1, asksNew), AtLine(2, isNew), OfBlock(allTrue), AtLine(3, asksNew + "  " + xorTail),
        AtLine(4, isNew),
        OfBlock(allTrue +
                "However, the previous block was also true, therefore the xor condition is false. "),
        AtLine(5, thenSkipped)}},
      {"xor of false and true",
       {While(), unset, Start(KindXorWhile), old, Then()},
       {AtLine(1, asksTrue), AtLine(2, isFalse), OfBlock(someFalse), AtLine(3, asksTrue + " " + xorTail),
        AtLine(4, isOld),
        OfBlock(allTrue + "And since the previous block was false, the xor condition is also true. "),
        AtLine(5, thenTaken)}},
      {"xor of true and false",
       {While(), old, Start(KindXorWhile), unset, Then()},
       {AtLine(1, asksTrue), AtLine(2, isOld), OfBlock(allTrue), AtLine(3, asksTrue + " " + xorTail),
        AtLine(4, isFalse),
        OfBlock(someFalse + "However, the previous block was true, therefore the xor condition is true. "),
        AtLine(5, thenTaken)}},
      {"xor of false and nothing new",
       {While(), unset, Start(KindXorWhen), old, Then()},
       {AtLine(1, asksTrue), AtLine(2, isFalse), OfBlock(someFalse), AtLine(3, asksNew + "  " + xorTail),
        AtLine(4, isOld),
        OfBlock(noneNew + "And since the previous block was also false, the xor condition is false. "),
        AtLine(5, thenSkipped)}},
      {"jumps",
       {Gosub("sub"), Do(Verb::Return), GoTo("end"), Label("sub"), Label("passed"), Do(Verb::Return),
        Comment(), Label("end")},
       {AtLine(1, taken), AtLine(4, jumped), AtLine(5, "This label was encountered normally."),
        AtLine(6, taken),
        AtLine(1,
               "A \"Return\" statement has caused a jump back to this \"GoSub\" statement.  Processing will "
               "resume with the next line in order."),
        AtLine(2,
               "This statement will be ignored since it was not encountered as a result of a \"GoSub\" "
               "statement.  Processing will resume with the next line in order."),
        AtLine(3, taken), AtLine(8, jumped)}},
  };
  for (const Row& row : kRows) {
    for (const bool hyper : {false, true}) {
      SCOPED_TRACE(std::string(row.name) + (hyper ? ", in Hyper-Drive" : ""));
      WatchedTable t;
      t.g.ScriptFlags = {{"fresh", 1, 0}, {"old", 1, 1}, {"unset", 0, 1}};
      t.g.StepTraceOn = true;
      t.g.HyperDriveActive = hyper;
      t.Run(row.script);
      std::vector<std::string> steps;
      for (const StepTrace& s : t.eyes.steps) steps.push_back(s.lineNumber + "|" + s.step + "|" + s.status);
      EXPECT_EQ(steps, hyper ? std::vector<std::string>() : row.steps);
    }
  }
}

// ---- Runs that break off.

TEST(Abort, StopsTheScriptAndTheRolls) {
  const std::string noStack = "There is no Chip-Stack # 150: they are numbered from 0 to 99, Error #9";
  struct Row {
    const char* name;
    Script script;
    int line;
    std::string error;
  };
  const Row kRows[] = {
      {"an action", {Mark(1), Do(Verb::Add, Dollars(1), Item::Stack, 150), Mark(1)}, 2, noStack},
      {"a condition",
       {Mark(1), Comment(), When(), If(Item::Stack, 11, {}, 150), Then(), Mark(1), Else(), Mark(1)},
       4,
       noStack},
      {"the right side of a condition",
       {Mark(1), While(), IfItems(Item::GameRolls, 17, Item::Stack, 0, 150), Then(), Mark(1)},
       3,
       noStack},
      {"sums beyond all limits",
       {Mark(1), Do(Verb::Bet, kMaxChipStack, Target::AllStacks), While(), If(Item::TotalStacks, 11), Then(),
        Mark(1)},
       4,
       "The amount is beyond all limits, Error #6"},
      {"Gosub for ever",
       {Mark(1), GoTo("a"), Label("a"), Gosub("a")},
       4,
       "Gosub has been called a million times without a Return, Error #14"},
  };
  for (const Row& row : kRows) {
    for (const bool hyper : {false, true}) {
      SCOPED_TRACE(std::string(row.name) + (hyper ? ", in Hyper-Drive" : ""));
      WatchedTable t;
      t.g.Rules.NotifyFlags = 0;
      t.g.KeepRolling = true;
      t.g.HyperDriveActive = hyper;
      t.Run(row.script);
      ASSERT_EQ(t.eyes.messages.size(), 1U);
      EXPECT_EQ(t.eyes.messages[0].title, "Auto-Bet Abort");
      EXPECT_EQ(t.eyes.messages[0].text, "The following error has caused Auto-Betting to abort at line #" +
                                             std::to_string(row.line) + ":\r\r" + row.error +
                                             "\r\rPress help for more information.");
      EXPECT_EQ(t.g.LastErrorText, row.error + " occurred, at: Run Auto-Bet");
      EXPECT_EQ(t.g.StopMessage, hyper ? "Auto-Bet error." : "");
      EXPECT_FALSE(t.g.KeepRolling);
      EXPECT_FALSE(t.g.AutoBetRunning);
      if (row.error == noStack) {
        EXPECT_EQ(t.Amount(SlotChipStack + 1), Dollars(1)) << "what was done stays, the rest is not done";
      }
      EXPECT_EQ(t.eyes.calls.empty() || t.eyes.calls.back() != "table", hyper);
    }
  }
}

TEST(RunAutoBet, RunsNothingInsideARun) {
  WatchedTable t;
  t.eyes.pump = [&](Game& g) {
    RunAutoBet(g);
    g.AutoBetRunning = false;
  };
  t.Run({Label("a"), Mark(1), GoTo("a")});
  EXPECT_EQ(t.Amount(SlotChipStack + 1), Dollars(166));
}

// ---- Runs before the dice roll.

// A script run by hand, or by a hot key, after another game was loaded in place of the one that was rolled.
TEST(RunAutoBet, ReadsTheTablesOfTheGameThatLies) {
  TestTable t;
  const GameTables other = t.g;
  StartCounting(t.g);
  for (int roll = 0; roll < 4; ++roll) {
    CountPrevRolls(t.g);
    TallyRoll(t.g);  // the seven that lies there from the start
  }
  BringUpToDate(t.g);
  static_cast<GameTables&>(t.g) = other;
  SetScript(t.g, {While(), If(Item::FirstOutcome + 7, Compare::HasRolledMore, Dollars(2)), Then(),
                  Do(Verb::Bet, Dollars(5), Bet::Field)});
  RunAutoBet(t.g);
  EXPECT_EQ(t.Amount(Bet::Field), Money());
}

TEST(OfferInitialize, AsksAfterAChange) {
  struct Row {
    const char* name;
    bool changed;
    int active;
    bool hasLines;
    Answer answer;
    bool asks, runs;
  };
  constexpr Row kRows[] = {
      {"yes", true, 1, true, Answer::Yes, true, true},
      {"no", true, 1, true, Answer::No, true, false},
      {"nothing changed", false, 1, true, Answer::Yes, false, false},
      {"switched off", true, 0, true, Answer::Yes, false, false},
      {"a check box that is neither", true, -1, true, Answer::Yes, false, false},
      {"no lines", true, 1, false, Answer::Yes, false, false},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    WatchedTable t;
    t.eyes.answers = {row.answer};
    Script script;
    if (row.hasLines) {
      script = {When(), If(Item::Initializing), Then(), Mark(1, 7), SetFlag("set", true),
                When(), If(Item::OnEachRoll),   Then(), Mark(2)};
    }
    SetScript(t.g, script);
    t.g.RollCount() = t.g.RollsSinceEvent[0] = 9;
    t.g.AutoBetsActive = row.active;
    t.g.AutoBetsChanged = row.changed;
    OfferInitialize(t.g);
    EXPECT_FALSE(t.g.AutoBetsChanged);
    ASSERT_EQ(t.eyes.messages.size(), row.asks ? 1U : 0U);
    if (row.asks) {
      EXPECT_EQ(t.eyes.messages[0].title, "Auto-Bet");
      EXPECT_EQ(t.eyes.messages[0].text,
                "Your Auto-Bets have changed or been activated.\r\rYou have an opportunity now to run your "
                "Auto-Bet script for one cycle BEFORE the dice roll in order to check and set any initial "
                "conditions.\r\rWould you like to initialize your Auto-Bets?");
      EXPECT_NE(t.eyes.messages[0].flags & MessageYes, 0);
    }
    EXPECT_EQ(t.Amount(SlotChipStack + 1), Dollars(row.runs ? 7 : 0));
    EXPECT_EQ(t.g.BetAfterSettle[SlotChipStack + 1], Dollars(row.runs ? 7 : 0));
    EXPECT_EQ(t.Amount(SlotChipStack + 2), Money()) << "there was no roll since";
    if (row.hasLines) {
      EXPECT_EQ(t.g.ScriptFlags[0].Value, row.runs ? 1 : 0);
      EXPECT_EQ(t.g.ScriptFlags[0].PrevValue, row.runs ? 1 : 0);
    }
    EXPECT_EQ(t.eyes.Pumps(), row.runs ? 1 : 0);
  }
}

TEST(OfferInitialize, InitializingHoldsInThatRunOnly) {
  WatchedTable t;
  SetScript(t.g, {While(), If(Item::Initializing), Then(), Mark(1)});
  InitializeAutoBets(t.g);
  EXPECT_EQ(t.Amount(SlotChipStack + 1), Dollars(1));
  RunAutoBet(t.g);
  EXPECT_EQ(t.Amount(SlotChipStack + 1), Dollars(1));
}

}  // namespace
}  // namespace rollwick
