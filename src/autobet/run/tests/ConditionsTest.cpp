// Condition lines: whether they hold, and whether that is new.
#include <gtest/gtest.h>

#include "autobet/model/Catalogue.h"
#include "autobet/run/Run.h"
#include "autobet/run/RunAutoBet.h"
#include "autobet/run/tests/ScriptBuilder.h"
#include "stats/tally/Tally.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

using namespace Compare;

std::string Text(bool holds, bool isNew) {
  return !holds ? "false" : isNew ? "new" : "old";
}
std::string Text(ConditionResult result) {
  return Text(result != ConditionFalse, result == ConditionNew);
}

// "false", "old" (true, but not new), "new", or the error.
std::string Judge(Game& g, const ScriptLine& line, std::int32_t startKind = KindWhen) {
  SetScript(g, {line});
  DecodeScript(g);
  AutoBetRun run(g);
  run.blockKind = static_cast<std::int16_t>(startKind);
  g.CurrentLine = 1;
  RefreshBetSets(g);
  const ConditionResult result = EvaluateCondition(run, g.ScriptProgram[0], g.ScriptProgram[0].Test);
  return run.error.empty() ? Text(result) : run.error;
}

struct Comparison {
  const char* name;
  std::int32_t amountOp, itemOp;
  bool (*holds)(double);  // against 5
};
constexpr Comparison kComparisons[] = {
    {"equal", 11, 17, [](double v) { return v == 5; }},
    {"not equal", 12, 18, [](double v) { return v != 5; }},
    {"greater", 13, 19, [](double v) { return v > 5; }},
    {"not greater", 14, 20, [](double v) { return v <= 5; }},
    {"less", 15, 21, [](double v) { return v < 5; }},
    {"not less", 16, 22, [](double v) { return v >= 5; }},
};

void Stand(Game& g, BetId slot, double now, double before) {
  g.BetAmount[slot] = Money::FromDouble(now);
  g.BetAfterSettle[slot] = Money::FromDouble(before);
}

// One slot against 5, typed and as an item, for what it is now and what it was.
TEST(Ranged, EveryItemWithEveryComparison) {
  struct Row {
    const char* name;
    std::int32_t left, index;
    BetId slot;
  };
  std::vector<Row> rows = {{"bankroll", 1400, 0, 0},
                           {"stack 0", 1600, 0, 100},
                           {"stack 99", 1600, 99, 199},
                           {"stack ref", 1601, 4, 103},
                           {"Lay on the 8", 1800, 0, 4},
                           {"Come on the 8", 1803, 0, 22},
                           {"Come Odds on the 8", 1804, 0, 28},
                           {"Place on the 8", 1805, 0, 34},
                           {"Buy on the 8", 1806, 0, 40}};
  constexpr struct {
    std::int32_t any;
    BetId first, last;
  } kGroups[] = {{1001, 1, 83},  {1002, 1, 6},   {1003, 7, 12},  {1004, 13, 18},  {1005, 19, 24},
                 {1006, 25, 30}, {1007, 31, 36}, {1008, 37, 42}, {1020, 100, 199}};
  for (const auto& group : kGroups) {
    for (const std::int32_t kind : {0, 100, 200}) {
      rows.push_back({"first of group", group.any + kind, 0, group.first});
      rows.push_back({"last of group", group.any + kind, 0, group.last});
    }
  }
  for (const Row& row : rows) {
    for (const Comparison& comparison : kComparisons) {
      for (const double now : {4.9999, 5.0, 6.0}) {
        for (const double before : {4.0, 5.0, 5.0001}) {
          TestTable t;
          t.g.Point = 8;
          t.g.RollCount() = 3;
          const bool isStack = row.left == 1020 || row.left == 1120 || row.left == 1220;
          const bool isBankroll = row.slot == 0;
          Stand(t.g, isBankroll ? 150 : 0, 5, 5);
          if (row.left == 1601) Stand(t.g, 104, 3, 77);
          Stand(t.g, row.slot, now, before);
          const std::string expected = Text(comparison.holds(now), !comparison.holds(before));
          const auto right = isBankroll ? IfItems(1400, comparison.itemOp, 1600, 0, 50)
                                        : IfItems(row.left, comparison.itemOp, 1400, row.index);
          const auto typed = If(row.left, comparison.amountOp, Dollars(5), row.index);
          const std::string name = std::string(row.name) + " " + std::to_string(row.left) + " " +
                                   comparison.name + " " + std::to_string(now) + " " + std::to_string(before);
          ASSERT_EQ(Judge(t.g, typed), expected) << name;
          ASSERT_EQ(Judge(t.g, right), expected) << name;
          ASSERT_EQ(Judge(t.g, typed, KindWhile), expected) << name;
          if (isStack) continue;
          t.g.RollCount() = 0;
          ASSERT_EQ(Judge(t.g, typed),
                    row.left >= 1200 && row.left < 1300 ? expected : Text(comparison.holds(now), true))
              << "before the first roll: " << name;
        }
      }
    }
  }
}

TEST(Counters, EveryCounterWithEveryComparison) {
  enum Newness { ByCount, ByCountOnComeOut, BehindAHand, Always };
  struct Row {
    const char* name;
    std::int32_t left;
    void (*set)(Game&, int);
    Newness newness;
    int perUnit = 1;
  };
  constexpr Row kRows[] = {
      {"rolls in the game", 1311, [](Game& g, int n) { g.RollCount() = n; }, ByCount},
      {"rolls of the shooter", 1312, [](Game& g, int n) { g.HandStats[0] = n; }, ByCount},
      {"rolls of the last shooter", 1323, [](Game& g, int n) { g.HandStats[17] = n; }, BehindAHand},
      {"passes in the game", 1314, [](Game& g, int n) { g.HandStats[10] = n; }, ByCountOnComeOut},
      {"passes of the shooter", 1315, [](Game& g, int n) { g.HandStats[1] = n; }, ByCountOnComeOut},
      {"passes of the last shooter", 1324, [](Game& g, int n) { g.HandStats[18] = n; }, BehindAHand},
      {"misses in the game", 1317, [](Game& g, int n) { g.HandStats[13] = n; }, ByCountOnComeOut},
      {"misses of the shooter", 1318, [](Game& g, int n) { g.HandStats[15] = n; }, ByCountOnComeOut},
      {"misses of the last shooter", 1325, [](Game& g, int n) { g.HandStats[19] = n; }, BehindAHand},
      {"hours", 1405, [](Game& g, int n) { g.RollCount() = n; }, ByCount, 4},
      {"available bankroll", 1410,
       [](Game& g, int n) {
         g.BetAmount[0] = Dollars(100 + n);
         g.TotalBets = Dollars(100);
       },
       Always},
      {"full bankroll", 1410,
       [](Game& g, int n) {
         g.BetAmount[0] = Dollars(n);
         g.TotalBets = Dollars(100);
         g.Rules.AllowNegBankroll = true;
       },
       Always},
  };
  for (const Row& row : kRows) {
    for (const Comparison& comparison : kComparisons) {
      for (int count = 4 * row.perUnit; count <= 6 * row.perUnit; ++count) {
        for (const int point : {0, 6}) {
          for (const int handRolls : {0, 1}) {
            for (const int hands : {0, 1}) {
              TestTable t;
              t.g.RollsPerHour = Dollars(4);
              t.g.HandStats[HandRolls] = handRolls;
              t.g.HandStats[HandsCompleted] = hands;
              t.g.Point = point;
              Stand(t.g, 150, 5, 5);
              row.set(t.g, count);
              const bool beforeFailed = !comparison.holds((count - 1.0) / row.perUnit);
              const bool isNew = row.newness == Always        ? true
                                 : row.newness == BehindAHand ? handRolls == 0 && hands == 1
                                 : row.newness == ByCount     ? beforeFailed
                                                              : beforeFailed && point == 0;
              const std::string expected = Text(comparison.holds(1.0 * count / row.perUnit), isNew);
              ASSERT_EQ(Judge(t.g, If(row.left, comparison.amountOp, Dollars(5))), expected)
                  << row.name << " " << comparison.name << " " << count << " point " << point;
              ASSERT_EQ(Judge(t.g, IfItems(row.left, comparison.itemOp, 1600, 0, 50)), expected)
                  << row.name << " " << comparison.name << " " << count << " point " << point;
              ASSERT_EQ(Judge(t.g, IfNamed(row.left, IsNamed, "")), "false");
            }
          }
        }
      }
    }
  }
  TestTable t;
  t.g.RollCount() = 7;
  t.g.RollsPerHour = Money();
  for (const Comparison& comparison : kComparisons)
    EXPECT_EQ(Judge(t.g, If(Item::SimulatedHours, comparison.amountOp)), "false");
  t.g.RollsPerHour = Dollars(3);
  EXPECT_EQ(Judge(t.g, If(Item::SimulatedHours, EqualAmount, Money::FromDouble(2.3333))), "new");
}

TEST(Events, OfTheRollAndThePoint) {
  struct Row {
    const char* name;
    std::int32_t left, op;
    int rolls, beforeLast, before, point, total;
    const char* result;
  };
  constexpr Row kRows[] = {
      {"next is a come-out: before the first roll", 1301, 0, 0, 0, 0, 0, 7, "new"},
      {"next is a come-out: craps on the come-out", 1301, 0, 3, 0, 0, 0, 2, "old"},
      {"next is a come-out: a decision", 1301, 0, 3, 4, 6, 0, 6, "new"},
      {"next is a come-out: point on", 1301, 0, 3, 0, 0, 6, 6, "false"},
      {"next is not a come-out: point just on", 1309, 0, 3, 0, 0, 6, 6, "new"},
      {"next is not a come-out: point still on", 1309, 0, 3, 0, 6, 6, 8, "old"},
      {"next is not a come-out: come-out", 1309, 0, 3, 0, 6, 0, 7, "false"},
      {"last was a come-out: no roll yet", 1302, 0, 0, 0, 0, 0, 7, "false"},
      {"last was a come-out: first roll", 1302, 0, 1, 0, 0, 6, 6, "old"},
      {"last was a come-out: behind a decision", 1302, 0, 5, 6, 0, 6, 6, "new"},
      {"last was a come-out: it was not", 1302, 0, 5, 0, 6, 6, 5, "false"},
      {"last was not a come-out: the first behind one", 1310, 0, 5, 0, 6, 6, 5, "new"},
      {"last was not a come-out: a later one", 1310, 0, 5, 6, 6, 6, 5, "old"},
      {"last was not a come-out: it was", 1310, 0, 5, 6, 0, 6, 5, "false"},
      {"point on any, just now", 1303, 31, 5, 0, 0, 4, 4, "new"},
      {"point on any, since long", 1303, 31, 5, 0, 4, 4, 5, "old"},
      {"point on any, none", 1303, 31, 5, 0, 0, 0, 2, "false"},
      {"point on 9", 1303, 39, 5, 0, 0, 9, 9, "new"},
      {"point on another", 1303, 39, 5, 0, 0, 10, 10, "false"},
      {"point not on any", 1306, 31, 5, 0, 4, 0, 7, "new"},
      {"point not on any, before neither", 1306, 31, 5, 0, 0, 0, 7, "old"},
      {"point not on any, one is", 1306, 31, 5, 0, 0, 5, 5, "false"},
      {"point not on 6 or 8, another was", 1306, 48, 5, 0, 5, 0, 7, "old"},
      {"point not on 6 or 8, one was", 1306, 48, 5, 0, 8, 0, 7, "new"},
      {"point not on 6 or 8, one is", 1306, 48, 5, 0, 0, 6, 6, "false"},
      {"made", 1304, 31, 5, 0, 5, 0, 5, "new"},
      {"made, another number asked", 1304, 36, 5, 0, 5, 0, 5, "false"},
      {"made: a seven-out", 1304, 31, 5, 0, 5, 0, 7, "false"},
      {"made: natural", 1304, 31, 5, 0, 0, 0, 11, "false"},
      {"made: not yet", 1304, 31, 5, 0, 5, 5, 8, "false"},
      {"lost", 1305, 47, 5, 0, 5, 0, 7, "new"},
      {"lost: made", 1305, 31, 5, 0, 5, 0, 5, "false"},
      {"lost: seven on the come-out", 1305, 31, 5, 0, 0, 0, 7, "false"},
      {"decided by itself", 1322, 35, 5, 0, 5, 0, 5, "new"},
      {"decided by a seven", 1322, 31, 5, 0, 5, 0, 7, "new"},
      {"decided: still on", 1322, 31, 5, 0, 5, 5, 8, "false"},
      {"decided: natural", 1322, 31, 5, 0, 0, 0, 7, "false"},
      {"pass: point made", 1313, 0, 5, 0, 5, 0, 5, "new"},
      {"pass: natural seven", 1313, 0, 5, 0, 0, 0, 7, "new"},
      {"pass: eleven", 1313, 0, 5, 0, 0, 0, 11, "new"},
      {"pass: seven-out", 1313, 0, 5, 0, 5, 0, 7, "false"},
      {"pass: craps", 1313, 0, 5, 0, 0, 0, 3, "false"},
      {"pass: point on", 1313, 0, 5, 0, 0, 5, 5, "false"},
      {"pass: eleven with a point", 1313, 0, 5, 0, 5, 5, 11, "false"},
      {"miss: aces", 1316, 0, 5, 0, 0, 0, 2, "new"},
      {"miss: twelve", 1316, 0, 5, 0, 0, 0, 12, "new"},
      {"miss: seven-out", 1316, 0, 5, 0, 5, 0, 7, "new"},
      {"miss: natural", 1316, 0, 5, 0, 0, 0, 7, "false"},
      {"miss: craps with a point", 1316, 0, 5, 0, 5, 5, 12, "false"},
      {"miss: no roll yet", 1316, 0, 0, 0, 0, 0, 2, "false"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    t.g.RollCount() = row.rolls;
    t.g.PointBeforeLast = row.beforeLast;
    t.g.PointBeforeRoll = row.before;
    t.g.Point = row.point;
    t.g.DiceTotal = row.total;
    t.g.RollsSinceEvent.fill(4);
    t.g.RollsSinceEvent[row.total] = 0;
    EXPECT_EQ(Judge(t.g, If(row.left, row.op)), row.result);
  }
  constexpr std::pair<std::int32_t, std::string_view> kSets[] = {{31, "4 5 6 8 9 10"},
                                                                 {34, "4"},
                                                                 {35, "5"},
                                                                 {36, "6"},
                                                                 {38, "8"},
                                                                 {39, "9"},
                                                                 {40, "10"},
                                                                 {41, "5 6 8 9"},
                                                                 {42, "4 5 9 10"},
                                                                 {43, "4 6 8 10"},
                                                                 {44, "4 5 6"},
                                                                 {45, "8 9 10"},
                                                                 {46, "4 10"},
                                                                 {47, "5 9"},
                                                                 {48, "6 8"}};
  for (const auto& [op, numbers] : kSets) {
    for (const int point : {4, 5, 6, 8, 9, 10}) {
      TestTable t;
      t.g.Point = point;
      const bool isIn =
          (" " + std::string(numbers) + " ").find(" " + std::to_string(point) + " ") != std::string::npos;
      EXPECT_EQ(Judge(t.g, If(Item::PointIsOn, op)), isIn ? "new" : "false") << op << " on " << point;
      EXPECT_EQ(Judge(t.g, If(Item::PointIsNotOn, op)), isIn ? "false" : "old") << op << " on " << point;
    }
  }
}

TEST(Events, OfTheRun) {
  struct Row {
    const char* name;
    std::int32_t left;
    void (*set)(Game&);
    const char* result;
  };
  constexpr Row kRows[] = {
      {"initializing", 9999, [](Game& g) { g.AutoBetsChanged = true; }, "new"},
      {"by hot key", 9999, [](Game& g) { g.HotKeyRunning = true; }, "new"},
      {"in a roll", 9999, [](Game&) {}, "false"},
      {"a roll since", 1300, [](Game& g) { g.RollCount() = 1; }, "new"},
      {"no roll since", 1300, [](Game& g) { g.RollCount() = g.RollsSinceEvent[0] = 4; }, "false"},
      {"yes", 1307, [](Game& g) { g.LastAnswer = 6; }, "new"},
      {"yes: no", 1307, [](Game& g) { g.LastAnswer = 7; }, "false"},
      {"no", 1308, [](Game& g) { g.LastAnswer = 7; }, "new"},
      {"no: nobody asked", 1308, [](Game& g) { g.LastAnswer = 1; }, "false"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    SetScript(t.g, {If(row.left)});
    DecodeScript(t.g);
    row.set(t.g);
    AutoBetRun run(t.g);
    EXPECT_EQ(Text(EvaluateCondition(run, t.g.ScriptProgram[0], t.g.ScriptProgram[0].Test)), row.result);
  }
}

TEST(Flags, OneAnyAllAndTheirCounts) {
  using Flags = std::vector<FlagEntry>;
  const Flags none, set = {{"a", 1, 1}}, justSet = {{"a", -1, 0}}, reset = {{"a", 0, 1}};
  const Flags two = {{"a", 0, 0}, {"b", 1, 1}}, twoNew = {{"a", 0, 1}, {"b", 1, 1}};
  const Flags lateNews = {{"a", 1, 1}, {"b", 1, 0}};
  const auto many = [](std::int32_t left, int amount, std::int32_t op = 0) {
    return If(left, op, Dollars(amount));
  };
  struct Row {
    const char* name;
    Flags flags;
    ScriptLine line;
    const char* result;
  };
  // clang-format off
  const Row kRows[] = {
      {"is true", set, IfFlag("a"), "old"},
      {"is true, just set to -1", justSet, IfFlag(" a "), "new"},
      {"is true: it is not", reset, IfFlag("a"), "false"},
      {"is false, just reset", reset, IfFlag("a", false), "new"},
      {"is false: it is not", set, IfFlag("a", false), "false"},
      {"another value is a change", {{"a", 1, -1}}, IfFlag("a"), "new"},
      {"true by any amount",
       set, [] { auto line = IfFlag("a"); line.Amount = Dollars(-1); return line; }(), "old"},
      {"another case is no flag", set, IfFlag("A"), "false"},
      {"another case is no flag, nor false", reset, IfFlag("A", false), "false"},
      {"any true", two, many(1501, 1), "old"},
      {"any true, one passed has changed", twoNew, many(1501, 1), "new"},
      {"any true, stops before the change", lateNews, many(1501, 1), "old"},
      {"any false", lateNews, many(1501, 0), "false"},
      {"all true", lateNews, many(1502, 1), "new"},
      {"all true: one is not", two, many(1502, 1), "false"},
      {"all false", {{"a", 0, 0}, {"b", 0, 0}}, many(1502, 0), "old"},
      {"the counts look at the last: set", two, many(1503, 1, CountIs), "old"},
      {"the counts look at the last: set, whatever the operator", two, many(1504, 1, CountMore), "old"},
      {"the counts look at the last: not 0", two, many(1503, 0, CountLess), "false"},
      {"the counts look at the last: reset", reset, many(1504, 0, CountIs), "new"},
      {"the counts never reach 2", lateNews, many(1503, 2, CountIs), "false"},
      {"the counts see every change", twoNew, many(1503, 1, CountIs), "new"},
      {"no flags: any", none, many(1501, 0), "false"},
      {"no flags: all", none, many(1502, 0), "false"},
      {"no flags: true ones", none, many(1503, 0, CountIs), "false"},
      {"no flags: false ones", none, many(1504, 0, CountIs), "false"},
  };
  // clang-format on
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    t.g.ScriptFlags = row.flags;
    EXPECT_EQ(Judge(t.g, row.line), row.result);
  }
}

TEST(Outcomes, HaveRolled) {
  struct Row {
    const char* name;
    std::int32_t op;
    int amount, count, before, gap, gapBefore;
    const char* result;
    int tracked = 50;
  };
  constexpr Row kRows[] = {
      {"each time: now", HasRolled, 0, 3, 2, 0, 4, "new"},
      {"each time: not now", HasRolled, 0, 3, 3, 4, 3, "false"},
      {"3 times: reached", HasRolled, 3, 3, 2, 0, 4, "new"},
      {"3 times: still", HasRolled, 3, 3, 3, 1, 0, "old"},
      {"3 times: over", HasRolled, 3, 4, 3, 0, 9, "false"},
      {"more than 2: reached", HasRolledMore, 2, 3, 2, 0, 4, "new"},
      {"more than 2: since", HasRolledMore, 2, 4, 3, 0, 4, "old"},
      {"more than 2: not yet", HasRolledMore, 2, 2, 1, 0, 4, "false"},
      {"not this time", HasNotRolled, 0, 3, 3, 4, 3, "new"},
      {"not this time: it has", HasNotRolled, 0, 3, 2, 0, 4, "false"},
      {"not 3 times: just past", HasNotRolled, 3, 4, 3, 0, 4, "new"},
      {"not 3 times: since", HasNotRolled, 3, 5, 4, 0, 4, "old"},
      {"not 3 times: it is", HasNotRolled, 3, 3, 2, 0, 4, "false"},
      {"not 3 times: always new while never", HasNotRolled, 3, 0, 0, 9, 8, "new"},
      {"less than 3", HasRolledLess, 3, 2, 1, 0, 4, "old"},
      {"less than 3: always new while never", HasRolledLess, 3, 0, 0, 9, 8, "new"},
      {"less than 3: no more", HasRolledLess, 3, 3, 2, 0, 4, "false"},
      {"in the last 5: again", RolledInLast, 5, 3, 2, 0, 5, "new"},
      {"in the last 5: for the first time", RolledInLast, 5, 1, 0, 0, 2, "new"},
      {"in the last 5: since", RolledInLast, 5, 3, 3, 4, 3, "old"},
      {"in the last 5: too long ago", RolledInLast, 5, 3, 3, 5, 4, "false"},
      {"in the last 5: never", RolledInLast, 5, 0, 0, 2, 1, "false"},
      {"not in the last 10: exactly", NotRolledInLast, 10, 3, 3, 10, 9, "new"},
      {"not in the last 10: since", NotRolledInLast, 10, 3, 3, 11, 10, "old"},
      {"not in the last 10: it has", NotRolledInLast, 10, 3, 3, 9, 8, "false"},
      {"not in the last 10: the game is too young", NotRolledInLast, 10, 0, 0, 10, 9, "false", 9},
      {"not in the last 10: just old enough", NotRolledInLast, 10, 0, 0, 10, 9, "new", 10},
      {"no comparison of outcomes", EqualAmount, 3, 3, 2, 0, 0, "false"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    for (const int event : {2, 7, 89}) {
      TestTable t;
      t.g.TrackedEventCount[0] = row.tracked;
      t.g.TrackedEventCount[event] = row.count;
      t.g.TrackedEventCountBefore[event] = row.before;
      t.g.TrackedRollBase[event] = row.gap;
      t.g.TrackedRollBaseBefore[event] = row.gapBefore;
      EXPECT_EQ(Judge(t.g, If(2000 + event, row.op, Dollars(row.amount))), row.result) << event;
    }
  }
}

// What stands in a slot now and stood there before, and its streak now and before.
struct Standing {
  BetId slot;
  double now, before;
  int streak = 0, streakBefore = 0;
};

struct RangedRow {
  const char* name;
  ScriptLine line;
  std::vector<Standing> standing;
  const char* result;
  int rolls = 9, point = 6;
};

void TryRows(std::span<const RangedRow> rows) {
  for (const RangedRow& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    Stand(t.g, SlotBankroll, 500, 500);
    t.g.RollCount() = row.rolls;
    t.g.Point = row.point;
    for (const Standing& s : row.standing) {
      Stand(t.g, s.slot, s.now, s.before);
      if (IsBet(s.slot)) t.g.BetStreak[s.slot] = {s.streakBefore, s.streak};
    }
    EXPECT_EQ(Judge(t.g, row.line), row.result);
    EXPECT_EQ(Judge(t.g, row.line, KindWhile) == "false", row.result == std::string("false"));
  }
}

TEST(Ranged, Streaks) {
  const auto has = [](std::int32_t left, std::int32_t op, int amount = 0) {
    return If(left, op, Dollars(amount));
  };
  // clang-format off
  const RangedRow kRows[] = {
      {"any has won: two winners", has(1007, HasWon), {{33, 6, 6, 1, 0}, {34, 6, 6, 4, 3}}, "new"},
      {"any has won: taken down meanwhile", has(1007, HasWon), {{33, 0, 6, 1, 0}}, "new"},
      {"any has won: earlier", has(1007, HasWon), {{33, 6, 6, 2, 2}}, "false"},
      {"any has won: lost", has(1007, HasWon), {{33, 6, 6, -1, -2}}, "false"},
      {"any has won 2: now", has(1007, HasWon, 2), {{33, 6, 6, 2, 1}}, "new"},
      {"any has won 2: still", has(1007, HasWon, 2), {{33, 6, 6, 2, 2}}, "old"},
      {"any has won 2: taken down", has(1007, HasWon, 2), {{33, 0, 6, 2, 1}}, "false"},
      {"any has won 2: two of them, one new",
       has(1007, HasWon, 2), {{33, 6, 6, 2, 1}, {34, 6, 6, 2, 2}}, "old"},
      {"any has won more", has(1007, HasWonMore, 2), {{33, 6, 6, 3, 2}}, "new"},
      {"any has won more: no", has(1007, HasWonMore, 2), {{33, 6, 6, 2, 1}}, "false"},
      {"any has won less", has(1007, HasWonLess, 2), {{33, 6, 6, 1, 2}}, "new"},
      {"any has won less: losing is less", has(1007, HasWonLess, 2), {{33, 6, 6, -1, -1}}, "old"},
      {"any has not won: this time", has(1805, HasNotWon), {{33, 6, 6, 2, 2}}, "new"},
      {"any has not won: it has", has(1805, HasNotWon), {{33, 6, 6, 2, 1}}, "false"},
      {"any has not won 2", has(1007, HasNotWon, 2), {{33, 6, 6, 3, 2}}, "new"},
      {"any has not won 2: it has", has(1007, HasNotWon, 2), {{33, 6, 6, 2, 1}}, "false"},
      {"any has lost", has(1001, HasLost), {{83, 0, 1, -1, 3}}, "new"},
      {"any has lost: earlier", has(1001, HasLost), {{83, 0, 1, -1, -1}}, "false"},
      {"any has lost 3", has(1001, HasLost, 3), {{83, 1, 1, -3, -2}}, "new"},
      {"any has lost 3: still", has(1001, HasLost, 3), {{83, 1, 1, -3, -3}}, "old"},
      {"any has lost 3: won 3", has(1001, HasLost, 3), {{83, 1, 1, 3, 2}}, "false"},
      {"any has lost more", has(1001, HasLostMore, 2), {{83, 1, 1, -3, -2}}, "new"},
      {"any has lost more: no", has(1001, HasLostMore, 3), {{83, 1, 1, -3, -2}}, "false"},
      {"any has lost less", has(1805, HasLostLess, 2), {{33, 1, 1, -1, -2}}, "new"},
      {"any has lost less: no", has(1805, HasLostLess, 2), {{33, 1, 1, -2, -1}}, "false"},
      {"any has not lost", has(1805, HasNotLost), {{33, 1, 1, -2, -2}}, "new"},
      {"any has not lost: it has", has(1805, HasNotLost), {{33, 1, 1, -2, -1}}, "false"},
      {"any has not lost 2", has(1805, HasNotLost, 2), {{33, 1, 1, -1, -2}}, "new"},
      {"all have won 2", has(1107, HasWon, 2), {{31, 1, 1, 2, 2}, {36, 1, 1, 2, 1}}, "new"},
      {"all have won 2: one has not", has(1107, HasWon, 2), {{31, 1, 1, 2, 2}, {36, 1, 1, 1, 1}}, "false"},
      {"all have won: empty spots have not", has(1107, HasWon), {{31, 1, 1, 2, 1}}, "false"},
      {"all have lost more", has(1107, HasLostMore, 1), {{31, 1, 1, -2, -2}}, "old"},
      {"total have won 5",
       has(1207, HasWon, 5), {{31, 0, 0, 2, 1}, {32, 0, 0, 3, 3}, {33, 0, 0, -9, -9}}, "new"},
      {"total have won 5: nothing moved", has(1207, HasWon, 5), {{31, 0, 0, 2, 2}, {32, 0, 0, 3, 3}}, "old"},
      {"total have won more: no", has(1207, HasWonMore, 5), {{31, 0, 0, 5, 4}}, "false"},
      {"total have won 0", has(1207, HasWon), {}, "old"},
      {"total have lost 4", has(1207, HasLost, 4), {{31, 0, 0, -4, -3}, {32, 0, 0, 3, 3}}, "new"},
      {"total have lost 0", has(1207, HasLost), {}, "false"},
      {"total have lost more", has(1207, HasLostMore, 3), {{31, 0, 0, -4, -4}}, "old"},
      {"total have not won is no comparison", has(1207, HasNotWon), {{31, 0, 0, -4, -4}}, "false"},
      {"on the point: none is on", has(1805, HasNotWon), {{33, 6, 6, 2, 2}}, "false", 9, 0},
  };
  // clang-format on
  TryRows(kRows);
}

TEST(Ranged, EmptyBetsTotalsPairsAndReferences) {
  const auto is = [](std::int32_t left, std::int32_t op, int amount, int index = 0) {
    return If(left, op, Dollars(amount), index);
  };
  // clang-format off
  const RangedRow kRows[] = {
      {"all are 10: empty spots are passed over", is(1107, 11, 10), {{33, 10, 10}, {34, 10, 5}}, "new"},
      {"all are 10: one is not", is(1107, 11, 10), {{33, 10, 10}, {34, 5, 5}}, "false"},
      {"all are 10: none there", is(1107, 11, 10), {}, "false"},
      {"all are 0: empty spots count", is(1107, 11, 0), {}, "old"},
      {"all are 0: one is not", is(1107, 11, 0), {{36, 5, 0}}, "false"},
      {"any is 0 sees empty spots", is(1007, 11, 0), {{33, 10, 10}}, "old"},
      {"any is less than 5 does not", is(1007, 15, 5), {{33, 10, 10}}, "false"},
      {"any is 10: one of them before too", is(1007, 11, 10), {{33, 10, 10}, {34, 10, 5}}, "old"},
      {"any is less than 10: the empty one before is no record", is(1007, 15, 10), {{33, 5, 0}}, "new"},
      {"any stack below 0 now and before", is(1020, 15, 1), {{103, -5, -5}}, "new"},
      {"a stack may be empty", is(1600, 15, 10, 5), {}, "old"},
      {"an empty bet on the point", is(1806, 11, 0), {}, "old"},
      {"on the point: none is on", is(1806, 11, 0), {}, "false", 9, 0},
      {"against a bet on no point", IfItems(1400, 19, 1805), {}, "false", 9, 0},
      {"count is", is(1201, CountIs, 2), {{1, 5, 5}, {83, 5, 0}, {93, 5, 5}}, "new"},
      {"count is: since", is(1201, CountIs, 2), {{1, 5, 5}, {83, 5, 5}}, "old"},
      {"count is: no", is(1207, CountIs, 2), {{30, 5, 5}, {31, 5, 0}}, "false"},
      {"count more", is(1207, CountMore, 1), {{31, 5, 0}, {36, 5, 5}}, "new"},
      {"count more: no", is(1207, CountMore, 1), {{31, 5, 0}, {37, 5, 5}}, "false"},
      {"count less", is(1207, CountLess, 1), {{31, 0, 5}}, "new"},
      {"count less: since", is(1207, CountLess, 1), {}, "old"},
      {"totals add up", is(1206, 11, 30), {{25, 10, 10}, {30, 20, 10}}, "new"},
      {"totals before the first roll", is(1206, 11, 10), {{25, 10, 10}}, "old", 0},
      {"all stacks leave out the slot behind", is(1220, 11, 3), {{199, 3, 3}, {200, 9, 9}}, "old"},
      {"a ref to stack 0", is(1601, 11, 0, 0), {}, "old"},
      {"a ref to stack 99", is(1601, 11, 7, 1), {{101, 99, 0}, {199, 7, 6}}, "new"},
      {"a ref beyond", is(1601, 12, 7, 1), {{101, 99.0001, 0}}, "false"},
      {"a ref below", is(1601, 12, 7, 1), {{101, -0.0001, 0}}, "false"},
      {"a ref rounds to even", is(1601, 11, 7, 1), {{101, 2.5, 0}, {102, 7, 7}}, "old"},
      {"against a ref beyond", IfItems(1400, 18, 1601, 0, 1), {{101, 100, 0}}, "false"},
      {"a counter against a ref beyond", IfItems(1311, 18, 1601, 0, 1), {{101, 100, 0}}, "false"},
      {"a ref against its stack is itself",
       IfItems(1601, 17, 1600, 1, 2), {{101, 2, 2}, {102, 7, 7}}, "false"},
      {"any Come against any Come: two alike", IfItems(1005, 17, 1005), {{19, 5, 5}, {24, 5, 6}}, "new"},
      {"any Come against any Come: one alone", IfItems(1005, 17, 1005), {{19, 5, 5}}, "false"},
      {"any Come against any Come: since", IfItems(1005, 17, 1005), {{19, 5, 5}, {24, 5, 5}}, "old"},
      {"any against all: above each other",
       IfItems(1005, 19, 1105), {{19, 9, 9}, {20, 5, 5}, {24, 6, 9}}, "new"},
      {"any against all: not above each",
       IfItems(1005, 19, 1105), {{19, 9, 9}, {20, 9, 5}, {24, 6, 6}}, "false"},
      {"all against any", IfItems(1107, 17, 1008), {{31, 5, 5}, {32, 6, 6}, {37, 5, 5}, {42, 6, 6}}, "old"},
      {"all against any: one has none",
       IfItems(1107, 17, 1008), {{31, 5, 5}, {32, 7, 6}, {37, 5, 5}}, "false"},
      {"an empty stack against any", IfItems(1600, 21, 1007), {{31, 5, 5}}, "false"},
      {"any Come against any Come: nothing to be above", IfItems(1005, 19, 1005), {{19, 5, 5}}, "false"},
      {"against a total", IfItems(1007, 19, 1202), {{31, 9, 9}, {1, 4, 4}, {6, 4, 5}}, "new"},
      {"against a total: since", IfItems(1400, 19, 1201), {{31, 9, 9}}, "old"},
      {"a total against a total", IfItems(1207, 17, 1208), {{31, 4, 4}, {32, 5, 5}, {42, 9, 8}}, "new"},
      {"a total that takes in the left", IfItems(1207, 21, 1201), {{31, 4, 4}, {1, 5, 5}}, "false"},
      {"a bet against its own total", IfItems(1805, 14, 1207), {{33, 4, 4}}, "false"},
      {"a total against a single",
       IfItems(1207, 19, 1600, 0, 5), {{31, 4, 4}, {32, 5, 5}, {105, 8, 9}}, "new"},
      {"a total against any", IfItems(1207, 17, 1008), {{31, 4, 4}, {32, 5, 5}, {37, 9, 9}}, "old"},
      {"a total against any of its own", IfItems(1207, 17, 1007), {{31, 4, 4}}, "old"},
      {"a total against all", IfItems(1207, 19, 1108), {{31, 9, 9}, {37, 8, 8}, {38, 7, 9}}, "new"},
      {"a total against all: one is more",
       IfItems(1207, 19, 1108), {{31, 9, 9}, {37, 8, 8}, {38, 10, 9}}, "false"},
      {"a total against available", IfItems(1220, 17, 1410), {{101, 500, 499}}, "new"},
      {"bankroll against available", IfItems(1400, 22, 1410), {{0, 500, 400}}, "new"},
      {"bankroll against itself", IfItems(1400, 17, 1400), {}, "false"},
  };
  // clang-format on
  TryRows(kRows);

  TestTable t;
  t.g.RollCount() = 9;
  Stand(t.g, Bet::Place6, 10, 5);
  Stand(t.g, Bet::Place8, 10, 10);
  EXPECT_EQ(Judge(t.g, If(1007, EqualAmount, Dollars(10)), KindWhen), "old");
  EXPECT_EQ(Judge(t.g, If(1007, EqualAmount, Dollars(10)), KindWhile), "new") << "a While looks no further";
}

TEST(Ranged, EveryItemReadsTheNameOfStack1) {
  for (const LeftItem& item : LeftItems()) {
    bool isOffered = false;
    for (const Operator& op : OperatorsOf(item.operators)) isOffered = isOffered || op.code == IsNamed;
    if (!isOffered) continue;
    SCOPED_TRACE(item.caption);
    TestTable t;
    t.g.Point = 6;
    t.g.RollCount() = 9;
    t.g.ChipStackName[1] = "Tom ";
    const bool reads = item.code == 1401 || (item.code >= 1600 && item.code < 1900) ||
                       (item.code >= 1000 && item.code < 1300);
    EXPECT_EQ(Judge(t.g, IfNamed(item.code, IsNamed, " Tom")), reads ? "new" : "false");
    EXPECT_EQ(Judge(t.g, IfNamed(item.code, IsNamed, "tom")), "false");
    EXPECT_EQ(Judge(t.g, IfNamed(item.code, IsNotNamed, "tom")), reads ? "new" : "false");
    EXPECT_EQ(Judge(t.g, IfNamed(item.code, IsNotNamed, "Tom")), "false");
  }
  TestTable t;
  EXPECT_NE(Judge(t.g,
                  [] {
                    auto line = IfNamed(1600, IsNamed, "Tom");
                    line.RightCode = 1020;
                    return line;
                  }()),
            "false")
      << "only a file brings a right item with a name: there is no name behind 99";
}

TEST(Ranged, AverageBankroll) {
  TestTable t;
  ResetStatistics(t.g);
  for (int roll = 1; roll <= 527; ++roll) {
    t.g.RollCount() = roll;
    t.g.BetAmount[SlotBankroll] = Dollars(roll);
    TallyBankroll(t.g);
    AddBankrollPoint(t.g);
  }
  Stand(t.g, 101, 525.5, 524.5);
  struct Row {
    const char* name;
    ScriptLine line;
    const char* result;
  };
  const Row kRows[] = {
      {"over 4 rolls", If(1401, EqualAmount, Money::FromDouble(525.5), 4), "new"},
      {"over 4 rolls, before", If(1401, EqualAmount, Money::FromDouble(524.5), 4), "false"},
      {"over all rolls", If(1401, EqualAmount, Dollars(264), 0), "new"},
      {"over more than there are", If(1401, EqualAmount, Dollars(265), 9999), "new"},
      {"above since long", If(1401, GreaterAmount, Dollars(200), 500), "old"},
      {"against a stack that goes along", IfItems(1401, EqualItem, 1600, 4, 1), "old"},
      {"a stack against it", IfItems(1600, EqualItem, 1401, 1, 4), "old"},
      {"against another of its kind", IfItems(1401, GreaterItem, 1401, 4, 100), "old"},
      {"against bankroll", IfItems(1401, LessItem, 1400, 4), "new"},
  };
  for (const Row& row : kRows) EXPECT_EQ(Judge(t.g, row.line), row.result) << row.name;
}

// Nothing that can be picked, and nothing that a file can bring in its place, ends a run or hangs it.
TEST(Conditions, WhateverIsAskedHasAnAnswer) {
  TestTable t;
  t.g.RollCount() = 3;
  for (std::int32_t left = -5; left < 2200; ++left) {
    for (const std::int32_t op : {0, 1, 3, 5, 9, 11, 17, 23, 26, 31, 48, 60, 63, -7}) {
      for (const std::int32_t right : {0, 83, 99, 1007, 1107, 1207, 1220, 1401, 1410, 1601, 1805, -3}) {
        ScriptLine line = IfItems(left, op, right);
        const std::string result = Judge(t.g, line);
        ASSERT_TRUE(result == "false" || result == "old" || result == "new" || result.ends_with("Error #9"))
            << left << " " << op << " " << right << " " << result;
      }
    }
  }
}

}  // namespace
}  // namespace rollwick
