// What each verb does to the table, what each value is worth, what each target takes in.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>

#include "autobet/run/tests/ScriptTable.h"

namespace rollwick {
namespace {

ScriptLine OnStack(std::int32_t verb, int from, int to, Money amount = {}) {
  return DoOf(verb, amount, Item::Stack, from, Item::Stack, to);
}

// Stack 2 holds 20; stack 1 holds 12, and held 6 at the throw. Typed are 5, and 50 percent.
TEST(Amounts, EveryFamilyInEveryForm) {
  struct Row {
    const char* name;
    std::int32_t verb;
    // typed, % now, % last, highest now, last, lowest now, last, average now, last
    std::array<const char*, 9> results;
  };
  // clang-format off
  const Row rows[] = {
    {"Bet", Verb::Bet, {"5", "6", "3", "12", "6", "12", "6", "12", "6"}},
    {"Add", Verb::Add, {"25", "26", "23", "32", "26", "32", "26", "32", "26"}},
    {"Subtract", Verb::Subtract, {"15", "14", "17", "8", "14", "8", "14", "8", "14"}},
    {"Multiply", Verb::Multiply, {"100", "120", "60", "240", "120", "240", "120", "240", "120"}},
    {"Divide", Verb::Divide, {"4", "3.3333", "6.6667", "1", "3", "1", "3", "1", "3"}},
  };
  // clang-format on
  for (const Row& row : rows) {
    for (int form = 0; form < 9; ++form) {
      SCOPED_TRACE(std::string(row.name) + ", form " + std::to_string(form));
      ScriptTable t;
      t.Stand({{StackOf(1), "12"}, {StackOf(2), "20"}});
      t.g.BetAtThrow[StackOf(1)] = Dollars(6);
      const auto before = t.g.BetAmount;
      t.Run({OnStack(row.verb + form, 1, 2, Dollars(form == 0 ? 5 : 50))});
      t.ExpectSlots(before, {{StackOf(2), row.results[static_cast<std::size_t>(form)]}});
    }
  }
}

TEST(Amounts, OnTheTable) {
  struct Row {
    const char* name;
    int point;
    Slots before;
    Script lines;
    Slots changed;
  };
  const auto on = [](std::int32_t verb, const char* amount, std::int32_t target, int index = 0) {
    return Do(verb, Of(amount), target, index);
  };
  constexpr std::int32_t kAllBets = 1000, kTotalPlace = 1006;
  // clang-format off
  const Row rows[] = {
    {"Bet $ 0 takes a bet down", 6, {{Bet::Place6, "12"}}, {on(10, "0", Bet::Place6)}, {{Bet::Place6, "0"}}},
    {"Bet replaces the bet", 6, {{Bet::Place6, "12"}}, {on(10, "30", Bet::Place6)}, {{Bet::Place6, "30"}}},
    {"vig is released", 6, {{Bet::Buy4, "40"}}, {on(10, "0", Bet::Buy4)}, {{Bet::Buy4, "0"}}},
    {"vig of a new amount", 6, {{Bet::Lay4, "40"}}, {on(10, "100", Bet::Lay4)}, {{Bet::Lay4, "100"}}},
    {"Pass Line comes back to its contract", 6, {{Bet::PassLine, "10"}}, {on(10, "0", Bet::PassLine)}, {}},
    {"Pass Line is not pressed", 6, {{Bet::PassLine, "10"}}, {on(10, "25", Bet::PassLine)}, {}},
    {"Pass Line before the point", 0, {{Bet::PassLine, "10"}}, {on(10, "25", 43)}, {{43, "25"}}},
    {"a Come bet on its number comes back", 6, {{Bet::Come8, "15"}}, {on(10, "5", Bet::Come8)}, {}},
    {"no Come bet before the point", 0, {}, {on(10, "5", Bet::Come)}, {}},
    {"no odds without a flat bet", 6, {}, {on(10, "5", Bet::PassLineOdds)}, {}},
    {"Bet $ 0 on all bets leaves contracts", 6, {{Bet::PassLine, "10"}, {Bet::PassLineOdds, "20"},
     {Bet::Come4, "5"}, {Bet::Buy5, "20"}, {83, "1"}}, {on(10, "0", kAllBets)}, {{Bet::PassLineOdds, "0"},
     {Bet::Buy5, "0"}, {83, "0"}}},
    {"Subtract takes no more than there is", 6, {{49, "10"}}, {on(30, "25", 49)}, {{49, "0"}}},
    {"Subtract of less than nothing adds", 6, {{49, "10"}}, {on(30, "-25", 49)}, {{49, "35"}}},
    {"Multiply in whole chips", 6, {{49, "5"}}, {on(40, "1.5", 49)}, {{49, "8"}}},
    {"Multiply an empty bet", 6, {}, {on(40, "3", 49)}, {}},
    {"Divide in whole chips", 6, {{49, "10"}}, {on(50, "3", 49)}, {{49, "3"}}},
    {"Divide by 0", 6, {{49, "10"}}, {on(50, "0", 49)}, {}},
    {"Divide a stack by less than nothing", 6, {{101, "10"}}, {on(50, "-4", 1600, 1)}, {{101, "-2.5"}}},
    {"Divide by a negative percentage", 6, {{101, "10"}}, {OnStack(51, 1, 1, Dollars(-10))}, {}},
    {"Divide by a percentage of nothing", 6, {{101, "10"}}, {OnStack(51, 2, 1, Dollars(10))}, {}},
    {"a percentage is rounded to four decimals, ties to even", 6, {{101, "0.0005"}}, {OnStack(11, 1, 2,
     Dollars(50)), OnStack(11, 1, 3, Dollars(70))}, {{102, "0.0002"}, {103, "0.0004"}}},
    {"a value is taken anew for each target", 0, {{Bet::Place4, "10"}, {Bet::Place5, "10"}}, {DoOf(11,
     Dollars(50), kTotalPlace, 0, Target::AllPlace)}, {{33, "10"}, {34, "15"}, {35, "23"}, {36, "34"}}},
    {"the value stands before its own target comes down", 0, {{49, "10"}}, {DoOf(11, Dollars(300), 49, 0,
     49)}, {{49, "30"}}},
    {"as much as the bankroll has", 0, {{49, "450"}}, {on(20, "100", Bet::Place6)}, {{Bet::Place6, "50"}}},
    {"a stack stops at its limit", 0, {{101, "99999999999990"}}, {on(20, "50", 1600, 1)}, {{101,
     "99999999999999.9999"}}},
    {"slot 0 and a bet on no point are nothing", 0, {}, {on(10, "5", 0), on(20, "5", Item::PointPlace),
     on(109, "5", 0), on(20, "5", 95)}, {}},
    {"a bet on the point", 9, {}, {on(20, "5", Item::PointPlace)}, {{Bet::Place9, "5"}}},
    {"all stacks reach one slot further", 0, {{100, "1"}, {150, "6"}}, {on(10, "0", 1602), on(20, "2", 1600,
     0), on(20, "3", 1600, 99)}, {{100, "2"}, {150, "0"}, {199, "3"}}},
    {"a ref leads to its stack", 0, {{105, "7"}}, {on(10, "4", 1601, 5)}, {{107, "4"}}},
    {"a ref is rounded, ties to even", 0, {{105, "7.5"}, {107, "1"}}, {on(10, "4", 1601, 5)}, {{108, "4"}}},
    {"a ref of -1", 0, {{105, "-1"}}, {on(10, "4", 1601, 5)}, {}},
    {"a ref beyond 99", 0, {{105, "99.5"}}, {on(10, "4", 1601, 5)}, {}},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptTable t;
    t.g.Point = row.point;
    SetLineOddsPayoffs(t.g);
    t.Stand(row.before);
    const auto before = t.g.BetAmount;
    t.Run(row.lines);
    EXPECT_EQ(t.files.messages.size(), 0u) << t.files.messages[0].text;
    t.ExpectSlots(before, row.changed);
  }
}

TEST(Amounts, AllStacksWriteTheSlotBehindThem) {
  ScriptTable t;
  t.Run({Do(Verb::Bet, Dollars(4), Target::AllStacks)});
  for (BetId slot = 100; slot <= 200; ++slot) EXPECT_EQ(t.Amount(slot), Dollars(4)) << slot;
  t.Run({DoOf(11, Dollars(100), Value::AllStacks, 0, Item::Stack, 1)});
  EXPECT_EQ(t.Amount(101), Dollars(400)) << "slot 200 is in no sum";
}

// Stack 1 holds 5, 2 holds 9, 3 holds 7, 4 nothing, 5 minus 3, 6 half a dollar, 8 holds 10.5.
TEST(Amounts, Groups) {
  struct Row {
    const char* name;
    Slots before;
    Script lines;
    Slots changed;
  };
  const auto add = [](int from, int to = 9) { return OnStack(23, from, to); };
  // clang-format off
  const Row rows[] = {
    {"only the highest is added", {{109, "10"}}, {add(1), add(2), add(3)}, {{109, "19"}}},
    {"only the lowest is subtracted", {{109, "10"}}, {OnStack(35, 2, 9), OnStack(35, 1, 9)}, {{109, "5"}}},
    {"the lowest counts no zero and no debt", {{109, "10"}}, {OnStack(15, 4, 9), OnStack(15, 5, 9),
     OnStack(15, 3, 9), OnStack(15, 2, 9)}, {{109, "7"}}},
    {"the highest of nothing leaves the bet", {{109, "10"}}, {OnStack(13, 4, 9), OnStack(13, 5, 9)}, {}},
    {"average of 5, 9 and 7", {{109, "1"}}, {OnStack(27, 1, 9), OnStack(27, 2, 9), OnStack(27, 3, 9)}, {{109,
     "8"}}},
    {"average in whole dollars: 5 and 7 and 9 and 10.5, not 0", {}, {OnStack(17, 1, 9), OnStack(17, 3, 9),
     OnStack(17, 4, 9), OnStack(17, 2, 9), OnStack(17, 8, 9)}, {{109, "8"}}},
    {"an average of 10.5 is 10", {}, {OnStack(17, 8, 9)}, {{109, "10"}}},
    {"multiplied by the average", {{109, "2"}}, {OnStack(47, 1, 9), OnStack(47, 2, 9)}, {{109, "14"}}},
    {"whole numbers divide", {{109, "100.9"}}, {OnStack(55, 8, 9)}, {{109, "10"}}},
    {"the lowest divisor of a run", {{109, "100"}}, {OnStack(55, 2, 9), OnStack(55, 1, 9)}, {{109, "20"}}},
    {"no division by half a dollar", {{109, "100"}}, {OnStack(53, 6, 9), OnStack(57, 6, 9)}, {}},
    {"division by the average of 0.5 and 10.5", {{109, "100"}}, {OnStack(57, 6, 9), OnStack(57, 8, 9)}, {{109,
     "20"}}},
    {"a comment parts two runs", {{109, "10"}}, {add(1), Comment(), add(2)}, {{109, "24"}}},
    {"a label parts two runs", {{109, "10"}}, {add(2), Label("x"), add(1)}, {{109, "24"}}},
    {"another stack parts two runs", {}, {add(1), add(2, 7), add(3)}, {{109, "12"}, {107, "9"}}},
    {"another verb parts two runs", {}, {add(2), OnStack(24, 1, 9), add(3)}, {{109, "21"}}},
    {"two runs of the same line", {{109, "10"}}, {add(2), DoThis(), add(2)}, {{109, "28"}}},
    {"of several targets the first alone is highest", {}, {DoOf(13, {}, Item::Stack, 2, Target::AllPlace)},
     {{Bet::Place4, "9"}}},
    {"an average counts each target", {}, {DoOf(17, {}, Item::Stack, 2, Target::InsidePlace)}, {{32, "9"},
     {33, "9"}, {34, "9"}, {35, "9"}}},
    {"a Buy bet and its vig go back to the base", {{Bet::Buy4, "20"}}, {DoOf(25, {}, Item::Stack, 2,
     Bet::Buy4), DoOf(25, {}, Item::Stack, 1, Bet::Buy4)}, {{Bet::Buy4, "25"}}},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptTable t;
    t.Stand({{101, "5"}, {102, "9"}, {103, "7"}, {105, "-3"}, {106, "0.5"}, {108, "10.5"}});
    t.Stand(row.before);
    t.g.BetAtThrow = t.g.BetAmount;
    const auto before = t.g.BetAmount;
    t.Run(row.lines);
    t.ExpectSlots(before, row.changed);
  }
}

TEST(Amounts, Round) {
  struct Row {
    const char *amount, *unit, *up, *nearest, *down;
  };
  // clang-format off
  const Row rows[] = {
    {"12", "5", "15", "10", "10"},
    {"12.5", "5", "15", "15", "10"},
    {"15", "5", "15", "15", "15"},
    {"-12", "5", "-10", "-10", "-15"},
    {"-12.5", "5", "-10", "-10", "-15"},
    {"-13", "5", "-10", "-15", "-15"},
    {"0", "5", "0", "0", "0"},
    {"12", "0", "12", "12", "12"},
    {"11", "2.5", "12.5", "10", "10"},
    {"10", "3", "12", "9", "9"},
    {"0.1", "0.25", "0.25", "0", "0"},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.amount) + " to " + row.unit);
    ScriptTable t;
    t.Stand({{101, row.amount}, {102, row.amount}, {103, row.amount}});
    const auto before = t.g.BetAmount;
    t.Run({DoOf(Verb::Round, Of(row.unit), Value::RoundUp, 0, Item::Stack, 1),
           DoOf(Verb::Round, Of(row.unit), Value::RoundNearest, 0, Item::Stack, 2),
           DoOf(Verb::Round, Of(row.unit), Value::RoundDown, 0, Item::Stack, 3)});
    t.ExpectSlots(before, {{101, row.up}, {102, row.nearest}, {103, row.down}});
  }
}

TEST(Targets, TakeInTheirSlots) {
  struct Row {
    const char* name;
    std::int32_t target;
    BetId first, last;
    BetId left1 = 0, left2 = 0;  // left out of the range
    bool come = false, removesPlace = true;
  };
  // clang-format off
  const Row rows[] = {
    {"all bets", 1000, 1, 83},
    {"Lay", 1001, 1, 6},
    {"Don't Come", 1002, 7, 12},
    {"Don't Come Odds", 1003, 13, 18},
    {"Come", 1004, 19, 24},
    {"Come Odds", 1005, 25, 30},
    {"Place, but for the point", 1006, 31, 36, 33},
    {"Place, with a Come bet there", 1006, 31, 36, 0, 0, true},
    {"Place, kept on the point", 1006, 31, 36, 0, 0, false, false},
    {"inside, but for the point", 1007, 32, 35, 33},
    {"outside", 1008, 31, 36, 33, 34},
    {"Buy", 1009, 37, 42},
    {"Lay on the point", 1800, 3, 3},
    {"Come on the point", 1803, 21, 21},
    {"Come Odds on the point", 1804, 27, 27},
    {"Place on the point", 1805, 33, 33},
    {"Buy on the point", 1806, 39, 39},
    {"one bet", 83, 83, 83},
    {"stacks have no record", 1602, 0, -1},
    {"the last stack", 1600, 0, -1},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptTable t;
    t.g.Point = 6;
    SetLineOddsPayoffs(t.g);
    t.Stand({{Bet::PassLine, "10"}});
    if (row.come) t.Stand({{Bet::Come6, "10"}});
    t.g.AutoRemovePlaceBets = row.removesPlace;
    t.g.BetStreak.fill({-2, 3});
    t.Run({Do(Verb::ResetWins, {}, row.target)});
    for (BetId bet = 0; bet <= 100; ++bet) {
      const bool isReset = bet >= row.first && bet <= row.last && bet != row.left1 && bet != row.left2;
      const std::array<std::int32_t, 2> expected{isReset ? 0 : -2, isReset ? 0 : 3};
      EXPECT_EQ(t.g.BetStreak[static_cast<std::size_t>(bet)], expected) << BetName(bet);
    }
  }
}

TEST(Values, NowAndAtTheThrow) {
  struct Row {
    const char* name;
    std::int32_t code;
    int index;
    const char *now, *last;
  };
  // clang-format off
  const Row rows[] = {
    {"bankroll by its slot", 0, 0, "510", "480"},
    {"a bet", Bet::PassLine, 0, "5", "10"},
    {"all bets", 1000, 0, "25590", "51180"},
    {"Lay", 1001, 0, "91", "182"},
    {"Don't Come", 1002, 0, "559", "1118"},
    {"Don't Come Odds", 1003, 0, "1459", "2918"},
    {"Come", 1004, 0, "2791", "5582"},
    {"Come Odds", 1005, 0, "4555", "9110"},
    {"Place", 1006, 0, "6751", "13502"},
    {"inside", 1007, 0, "4494", "8988"},
    {"outside", 1008, 0, "4506", "9012"},
    {"Buy", 1009, 0, "9379", "18758"},
    {"a mode of Round is no value", 1100, 0, "0", "0"},
    {"total of the dice", 1300, 0, "7", "10"},
    {"first die", 1301, 0, "2", "6"},
    {"second die", 1302, 0, "5", "4"},
    {"game rolls", 1311, 0, "40", "40"},
    {"shooter rolls", 1312, 0, "11", "12"},
    {"game passes", 1314, 0, "13", "13"},
    {"shooter passes", 1315, 0, "14", "15"},
    {"game misses", 1317, 0, "16", "16"},
    {"shooter misses", 1318, 0, "17", "18"},
    {"bankroll", 1400, 0, "510", "480"},
    {"average of all rolls", 1401, 0, "500", "499.2308"},
    {"average of two rolls", 1401, 2, "525", "500"},
    {"highest", 1402, 0, "510", "505"},
    {"lowest", 1403, 0, "510", "520"},
    {"available", 1410, 0, "-25490", "-25490"},
    {"a stack", 1600, 5, "17", "18"},
    {"stack 0", 1600, 0, "2", "0"},
    {"a ref", 1601, 6, "17", "71"},
    {"a ref to nowhere", 1601, 5, "0", "0"},
    {"all stacks", 1602, 0, "94", "97"},
    {"decided wagers", 1700, 0, "7", "7"},
    {"decided dollars", 1701, 0, "350.5", "350.5"},
    {"current wagers", 1702, 0, "43", "43"},
    {"current dollars", 1703, 0, "26000", "26000"},
    {"Lay on the point", 1800, 0, "25", "50"},
    {"Come on the point", 1803, 0, "529", "1058"},
    {"Come Odds on the point", 1804, 0, "841", "1682"},
    {"Place on the point", 1805, 0, "1225", "2450"},
    {"Buy on the point", 1806, 0, "1681", "3362"},
    {"a code of no list", 1999, 0, "0", "0"},
  };
  // clang-format on
  ScriptTable t;
  Game& g = t.g;
  for (BetId bet = 1; bet <= Bet::Buy10; ++bet) {
    g.BetAmount[bet] = Dollars(bet * bet);
    g.BetAtThrow[bet] = Dollars(bet * bet * 2);
  }
  const auto set = [&g](BetId slot, int now, int last) {
    g.BetAmount[slot] = Dollars(now);
    g.BetAtThrow[slot] = Dollars(last);
  };
  set(Bet::PassLine, 5, 10);
  set(SlotBankroll, 510, 480);
  set(StackOf(0), 2, 0);
  set(StackOf(5), 17, 100);
  g.BetAtThrow[StackOf(5)] = Dollars(18);
  set(StackOf(6), 5, 7);
  set(StackOf(7), 70, 71);
  set(StackOf(17), 0, 0);
  set(SlotLastChipStack, 0, 1);
  set(SlotBehindStacks, 1000, 1000);
  g.TotalBets = Dollars(26000);
  g.Point = 9;
  g.Die1 = 2, g.Die2 = 5, g.DiceTotal = 7, g.PrevDie1 = 6, g.PrevDie2 = 4;
  g.RollCount() = 40;
  g.HandStats[HandRolls] = 11, g.HandStats[PreviousHandRolls] = 12, g.HandStats[TotalPasses] = 13;
  g.HandStats[HandPasses] = 14, g.HandStats[PreviousHandPasses] = 15, g.HandStats[TotalMisses] = 16;
  g.HandStats[HandMisses] = 17, g.HandStats[PreviousHandMisses] = 18;
  g.BankrollRollSum = Dollars(20'000);
  g.BankrollHistory = {Dollars(1), Dollars(500), Dollars(480), Dollars(520), Dollars(530)};
  g.BankrollHistoryCount = 4;
  g.BankrollHigh = Dollars(505);
  g.BankrollLow = Dollars(520);
  g.BetWagers[ActualWagers][1][TotalCount] = Dollars(3);
  g.BetWagers[ActualWagers][83][TotalCount] = Dollars(4);
  g.BetWagers[ActualWagers][1][TotalAmount] = Dollars(100);
  g.BetWagers[ActualWagers][83][TotalAmount] = Of("250.5");
  g.BetWagers[PhantomWagers][2][TotalCount] = Dollars(9);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    t.Run({DoOf(Verb::Bet + 1, Dollars(100), row.code, row.index, Item::Stack, 8)});
    EXPECT_EQ(PlainText(t.Amount(StackOf(8))), row.now) << "now";
    t.g.BetAmount[StackOf(8)] = Money();
    t.Run({DoOf(Verb::Bet + 2, Dollars(100), row.code, row.index, Item::Stack, 8)});
    EXPECT_EQ(PlainText(t.Amount(StackOf(8))), row.last) << "at the throw";
    t.g.BetAmount[StackOf(8)] = Money();
  }
}

// The line that fails is the second one: what came before stays, what follows is not done.
TEST(Aborts, EndTheRunWithAMessage) {
  const ScriptLine tooMuch = OnStack(11, 1, 2, Dollars(2000));
  struct Row {
    const char* name;
    ScriptLine line;
    const char* error;
  };
  const char* overflow = "The amount is beyond all limits, Error #6";
  const char* noStack = "There is no Chip-Stack # 100: they are numbered from 0 to 99, Error #9";
  const char* noFile =
      "No file is open for output: open one with \"Open/clear file for output:\" first, Error #52";
  ScriptLine flag = SetFlag("A", true);
  flag.Amount = Dollars(32'768);
  // clang-format off
  const Row rows[] = {
    {"percentage", tooMuch, overflow},
    {"product", Do(40, Dollars(10), 1600, 1), overflow},
    {"product within, change beyond", Do(40, Of("-9.1"), 1600, 1), overflow},
    {"quotient", Do(50, Of("0.1"), 1600, 1), overflow},
    {"quotient within, change beyond", Do(50, Of("-0.11"), 1600, 1), overflow},
    {"sum of stacks", DoOf(11, Dollars(1), Value::AllStacks, 0, 1600, 90), overflow},
    {"sum for an average", DoOf(17, {}, 1600, 1, Target::AllStacks), overflow},
    {"percentage for the ATM", DoOf(93 + 1, Dollars(2000), 1600, 1), overflow},
    {"a flag holds 16 bits", flag, overflow},
    {"value of a stack", DoOf(11, Dollars(1), 1600, 100, 1600, 1), noStack},
    {"target stack", Do(10, Dollars(1), 1600, 100), noStack},
    {"name of a stack", DoOf(Verb::NameStack, {}, 0, 100), noStack},
    {"seed by a value", DoOf(Verb::SeedByValue, {}, 1600, 100), noStack},
    {"no output file", DoNamed(Verb::OutputMessage, "x"), noFile},
    {"no output file for a value", DoOf(Verb::OutputValue, {}, 1400), noFile},
    {"no output file for an old value", DoOf(Verb::OutputLastValue, {}, 1400), noFile},
    {"no output file for a line's end", Do(Verb::OutputNewLine), noFile},
    {"file out of reach", DoNamed(Verb::OpenClear, "/etc/x"), "No file outside the folder, Error #13"},
    {"missing folder", DoNamed(Verb::OpenAppend, "none/x.txt"),
     "none/x.txt: No such file or directory, Error #2"},
    {"folder for a file", DoNamed(Verb::OpenClear, "."), ".: Is a directory, Error #21"},
    {"missing probability file", DoNamed(Verb::ActivateProbability, "none.prb"),
     "No such file or directory, Error #2"},
    {"no true probability file", DoNamed(Verb::ActivateProbability, "bad.prb"), "bad.prb\ris either from an "
     "older version, has been corrupted, or is not a true Rollwick Probability File, Error #22"},
    {"probability file out of reach", DoNamed(Verb::ActivateProbability, "/none.prb"),
     "No file outside the folder, Error #13"},
    {"a seed too large for its generator", Do(Verb::SeedByNumber, Dollars(2'147'483'647)), overflow},
    {"a table that cannot be saved", Do(Verb::ResetTable), "No space left on device, Error #28"},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptTable t;
    Game& g = t.g;
    for (BetId slot = 101; slot <= 120; ++slot) g.BetAmount[slot] = Dollars(99'999'999'999'999);
    g.RngChoice = RngRan1;
    g.KeepRolling = true;
    std::ofstream(t.files.folder / "bad.prb") << "no matrix";
    t.files.saveFailure = "No space left on device, Error #28";
    t.Run({Mark(50), row.line, Mark(51)});
    EXPECT_EQ(t.files.messages.size(), 1u);
    if (t.files.messages.empty()) continue;
    EXPECT_EQ(t.files.messages[0].title, "Auto-Bet Abort");
    EXPECT_EQ(t.files.messages[0].text,
              "The following error has caused Auto-Betting to abort at line #3:\r\r" +
                  std::string(row.error) + "\r\rPress help for more information.");
    EXPECT_FALSE(g.KeepRolling || g.AutoBetRunning || g.UseProbabilityMatrix);
    EXPECT_EQ(t.Amount(StackOf(50)), Dollars(1));
    EXPECT_EQ(t.Amount(StackOf(51)), Money());
    EXPECT_EQ(t.Amount(SlotBankroll), Dollars(500));
  }
}

TEST(Verbs, DoWhatTheySay) {
  struct Row {
    const char* name;
    Script lines;
    std::function<bool(ScriptTable&)> holds;
  };
  using T = ScriptTable;
  const auto reset = [](std::int32_t outcome, std::string text = {}) {
    ScriptLine line = Do(Verb::ResetRolls, {}, outcome);
    line.Text = std::move(text);
    return line;
  };
  const auto countsLeft = [](Game& g) {
    return std::ranges::count(g.TrackedEventCount, 9) == std::ranges::count(g.TrackedRollBase, 9)
               ? std::ranges::count(g.TrackedEventCount, 9)
               : -1;
  };
  const auto named = [](std::int32_t verb, int index, std::string name) {
    ScriptLine line = DoOf(verb, {}, 0, index);
    line.Name = std::move(name);
    return line;
  };
  // clang-format off
  const Row rows[] = {
    {"a Place bet is bought", {Do(Verb::BuyPlaceBet, {}, Bet::Place6)}, [](T& t) {
     return t.Amount(Bet::Place6) == Money() && t.Amount(Bet::Buy6) == Dollars(12); }},
    {"all Place bets are bought, empty ones not", {Do(Verb::BuyPlaceBet, {}, Target::AllPlace)}, [](T& t) {
     return t.Amount(Bet::Buy6) == Dollars(12) && t.Amount(Bet::Buy4) == Money(); }},
    {"called off", {Do(Verb::CallOff, {}, Bet::Place6)}, [](T& t) { return t.g.BetWorking[33] == CalledOff;
     }},
    {"called on", {Do(Verb::CallOn, {}, Item::PointPlace)}, [](T& t) { return t.g.BetWorking[33] == CalledOn;
     }},
    {"both calls take the button away", {Do(Verb::CallOn, {}, 33), Do(Verb::CallOff, {}, 33)}, [](T& t) {
     return t.g.BetWorking[33] != CalledOn && t.g.BetWorking[33] != CalledOff; }},
    {"an empty bet is not called", {Do(Verb::CallOff, {}, Bet::Place4)}, [](T& t) {
     return t.g.BetWorking[31] != CalledOff; }},
    {"all the numbers", {reset(2001)}, [&](T& t) { return countsLeft(t.g) == 3; }},
    {"all the numbers by the words", {reset(2017, "          Reset rolls on all the numbers")}, [&](T& t) {
     return countsLeft(t.g) == 3; }},
    {"the box numbers alone", {reset(2017, "          Reset rolls on number group 4,5")}, [&](T& t) {
     return countsLeft(t.g) == 90 && t.g.TrackedEventCountBefore[17] == 0; }},
    {"one face", {reset(2089)}, [&](T& t) { return countsLeft(t.g) == 90 && t.g.TrackedRollBase[89] == 0; }},
    {"no outcome of the dice", {reset(2090), reset(2000)}, [&](T& t) { return countsLeft(t.g) == 91; }},
    {"Stop", {Do(Verb::StopRolling)}, [](T& t) { return !t.g.KeepRolling && t.g.StopMessage.empty(); }},
    {"a flag", {SetFlag("A", true)}, [](T& t) { return t.g.ScriptFlags[0].Value == 1; }},
    {"a flag written in another case is another", {SetFlag("A", false), SetFlag("a ", true)}, [](T& t) {
     return t.g.ScriptFlags.size() == 1 && t.g.ScriptFlags[0].Value == 0; }},
    {"all flags", {SetFlag("A", false), SetFlag("B", false), Do(Verb::SetAllFlags, Dollars(1))}, [](T& t) {
     return t.g.ScriptFlags[0].Value == 1 && t.g.ScriptFlags[1].Value == 1; }},
    {"names of stacks", {named(Verb::NameStack, 4, "four  "), named(Verb::NameStack, 0, "none"),
     named(Verb::NameStackRef, 3, "ref")}, [](T& t) { return t.g.ChipStackName[4] == "four" &&
     t.g.ChipStackName[0] == "none" && t.g.ChipStackName[8] == "ref"; }},
    {"a ref to nowhere names nothing", {Do(Verb::Bet, Dollars(-1), Item::Stack, 3), named(Verb::NameStackRef,
     3, "ref")}, [](T& t) { return std::ranges::all_of(t.g.ChipStackName, &std::string::empty); }},
    {"the name of stack 0 outlives the clearing", {named(Verb::NameStack, 0, "none"), named(Verb::NameStack,
     99, "last"), Do(Verb::ClearNames)}, [](T& t) { return t.g.ChipStackName[0] == "none" &&
     t.g.ChipStackName[99].empty(); }},
    {"sounds, a forbidden one in silence", {DoNamed(Verb::PlaySound, "  ring.wav "),
     DoNamed(Verb::PlaySound, "/etc/ring.wav")},
     [](T& t) { return t.files.played == std::vector<std::string>{"ring.wav"}; }},
    {"a matrix", {Do(Verb::DeactivateProbability), DoNamed(Verb::ActivateProbability, " true.prb ")},
     [](T& t) { return t.g.UseProbabilityMatrix && t.g.ProbabilityName == "true.prb"; }},
    {"no matrix", {Do(Verb::DeactivateProbability)}, [](T& t) { return !t.g.UseProbabilityMatrix; }},
    {"steps are shown", {Do(Verb::ShowSteps)}, [](T& t) { return t.g.StepTraceOn; }},
    {"handlers", {Do(Verb::HandleWins, {}, WinParlay), Do(Verb::HandleLosses, {}, LossDoubleBet)}, [](T& t) {
     return t.g.HandleWinningBets == WinParlay && t.g.HandleLosingBets == LossDoubleBet; }},
    {"full odds at once", {Do(Verb::TakeFullOdds, Dollars(1)), Do(Verb::LayFullOdds, Dollars(1))}, [](T& t) {
     return t.g.AutoTakeFullOdds && t.g.AutoLayFullOdds && t.Amount(Bet::PassLineOdds) > Dollars(10); }},
    {"odds no longer", {Do(Verb::TakeFullOdds, Dollars(1)), Do(Verb::TakeFullOdds), Do(Verb::LayFullOdds)},
     [](T& t) { return !t.g.AutoTakeFullOdds && !t.g.AutoLayFullOdds; }},
    {"the ATM, in and out", {Do(Verb::Withdraw, Dollars(70)), DoOf(Verb::WithdrawPercent, Dollars(10),
     Item::Stack, 3), Do(Verb::Deposit, Dollars(20)), DoOf(Verb::DepositPercent, Dollars(25), Item::Stack,
     3)}, [](T& t) { return t.Amount(SlotBankroll) == Of("548.8") && t.g.InvestedBankroll == Of("548.8"); }},
    {"a deposit leaves what covers the bets", {Do(Verb::Deposit, Dollars(1000)), Do(Verb::Withdraw,
     Dollars(-5))}, [](T& t) { return t.Amount(SlotBankroll) == t.g.TotalBets; }},
    {"generators, out of the list ignored", {Do(Verb::SelectRng, Of("3.9")), Do(Verb::SelectRng, Dollars(6)),
     Do(Verb::SelectRng, Of("0.9"))}, [](T& t) { return t.g.RngChoice == RngCongruential; }},
    {"a generator by a value", {DoOf(Verb::SelectRngByValue, {}, Value::Die2)}, [](T& t) {
     return t.g.RngChoice == 3; }},
    {"by the last one", {DoOf(Verb::SelectRngByLast, {}, Value::Die1)}, [](T& t) { return t.g.RngChoice == 4;
     }},
    {"a missing generator gives way", {Do(Verb::SelectRng, Dollars(2))}, [](T& t) {
     return t.g.RngChoice == RngRan2; }},
    {"a seed", {Do(Verb::SeedByNumber, Of("77.5"))}, [](T& t) { return t.g.LastSeed == 78; }},
    {"by a value", {DoOf(Verb::SeedByValue, {}, Item::Stack, 3)}, [](T& t) { return t.g.LastSeed == 8; }},
    {"by the last value", {DoOf(Verb::SeedByLast, {}, Value::Die1)}, [](T& t) { return t.g.LastSeed == 5; }},
    {"by the clock", {Do(Verb::SeedByClock)}, [](T& t) { return t.g.LastSeed == 123'456; }},
    {"by the clock for RNG #3", {Do(Verb::SelectRng, Dollars(3)), Do(Verb::SeedByClock)}, [](T& t) {
     return t.g.LastSeed == 1235; }},
    {"a seed out of limits", {Do(Verb::SeedByNumber, Dollars(0))}, [](T& t) {
     return t.TakeMessage().empty() && t.files.messages.size() == 1 &&
     t.files.messages[0].text == "Your seed value is out of limits." && t.g.KeepRolling; }},
    {"a reset", {SetFlag("A", true), Do(Verb::ResetTable), Mark(1)}, [](T& t) { return t.files.saves == 1 &&
     t.Amount(Bet::Place6) == Money() && t.Amount(StackOf(3)) == Money() &&
     t.Amount(StackOf(1)) == Dollars(1) && t.g.ScriptFlags[0].Value == 0 && t.g.KeepRolling &&
     t.Amount(SlotBankroll) == Dollars(500) && t.g.Point == 0; }},
    {"a reset that keeps the stacks", {Do(Verb::ResetKeepingStacks)}, [](T& t) {
     return t.Amount(StackOf(3)) == Dollars(8) && t.Amount(Bet::PassLine) == Money(); }},
    {"an unknown verb does nothing", {Do(60), Do(19, Dollars(1), 33), Do(59, Dollars(2), 33), Do(-1)},
     [](T& t) { return t.Amount(Bet::Place6) == Dollars(12) && t.g.KeepRolling; }},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptTable t;
    Game& g = t.g;
    g.Point = 6;
    SetLineOddsPayoffs(g);
    t.Stand({{Bet::PassLine, "10"}, {Bet::Place6, "12"}, {StackOf(3), "8"}});
    g.TrackedEventCount.fill(9), g.TrackedEventCountBefore.fill(9), g.TrackedRollBase.fill(9);
    g.Die2 = 4, g.PrevDie1 = 5;
    g.MissingGenerators = MissingSecondMersenne;
    g.KeepRolling = g.UseProbabilityMatrix = true;
    g.ReseedNewGames = false;
    std::ofstream(t.files.folder / "true.prb") << TrueDiceFile();
    t.Run(row.lines);
    EXPECT_TRUE(row.holds(t));
    EXPECT_TRUE(TablesAgree(g));
  }
}

// What is told, and with what it leaves the run.
TEST(Messages, GatheredFromAdjacentLines) {
  constexpr std::int32_t kMessage = Verb::ShowMessage, kQuestion = Verb::Question;
  const auto say = [](std::int32_t verb, std::string text) { return DoNamed(verb, std::move(text)); };
  const ScriptLine value = DoOf(Verb::ShowValue, {}, Item::Bankroll);
  const ScriptLine asked = DoOf(Verb::QuestionValue, {}, Item::Stack, 3);
  struct Row {
    const char* name;
    Script lines;
    std::vector<std::string> shown;
    std::int32_t flags = NotifyAutoBet;
    bool hyper = false;
    bool rollsOn = true;
    int answer = 1;
  };
  // clang-format off
  const Row rows[] = {
    {"one line", {say(kMessage, "Hello  ")}, {"Hello"}},
    {"two lines", {say(kMessage, "One"), say(kMessage, "Two")}, {"One\rTwo"}},
    {"a semicolon joins", {say(kMessage, "One;"), say(kMessage, "Two;")}, {"OneTwo"}},
    {"a value, then words behind one blank", {value, say(kMessage, "dollars")}, {"1,234.50 dollars"}},
    {"words, then a value", {say(kMessage, "You have ;"), value}, {"You have 1,234.50 "}},
    {"a comment parts messages", {say(kMessage, "One"), Comment(), say(kMessage, "Two")}, {"One", "Two"}},
    {"a question parts messages", {say(kMessage, "One"), say(kQuestion, "Two"), value}, {"One", "Two",
     "1,234.50 "}, NotifyAutoBet, false, true, 7},
    {"a question in two pieces", {asked, say(kQuestion, "or not")}, {"8 or not"}, 0, false, true, 7},
    {"not wanted", {say(kMessage, "One")}, {}, 31 - NotifyAutoBet},
    {"not wanted in Hyper-Drive", {say(kMessage, "One")}, {}, NotifyAutoBet, true},
    {"wanted in Hyper-Drive", {say(kMessage, "One")}, {"One"}, NotifyAutoBetHyper, true, false},
    {"a question in Hyper-Drive", {say(kQuestion, "One")}, {"One"}, 0, true, false, 7},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptTable t;
    t.Stand({{SlotBankroll, "1234.5"}, {StackOf(3), "8"}});
    t.g.Rules.NotifyFlags = row.flags;
    t.g.HyperDriveActive = row.hyper;
    t.g.KeepRolling = true;
    t.Run(row.lines);
    std::vector<std::string> shown;
    for (const Message& message : t.files.messages) shown.push_back(message.text);
    EXPECT_EQ(shown, row.shown);
    EXPECT_EQ(t.g.KeepRolling, row.rollsOn);
    EXPECT_EQ(t.g.LastAnswer, row.answer);
  }
}

TEST(Messages, AnswersAreForTheRun) {
  ScriptTable t;
  t.files.answers = {Answer::Yes, Answer::No};
  const Script script = {DoNamed(Verb::Question, "Well?"),
                         While(),
                         If(Item::AnsweredYes),
                         Then(),
                         Mark(1),
                         While(),
                         If(Item::AnsweredNo),
                         Then(),
                         Mark(2)};
  t.Run(script);
  EXPECT_EQ(t.Amount(StackOf(1)), Dollars(1));
  t.Run(script);
  EXPECT_EQ(t.Amount(StackOf(2)), Dollars(1));
  t.files.minimized = t.g.KeepRolling = true;
  t.Run(script);
  EXPECT_FALSE(t.g.KeepRolling || t.g.AutoBetRunning) << "nobody is there to answer";
  EXPECT_EQ(t.Amount(StackOf(1)) + t.Amount(StackOf(2)), Dollars(2));
}

TEST(Input, IsBetOnItsTargets) {
  struct Row {
    const char* name;
    std::deque<std::string> entries;
    bool hyper, told, minimized;
    const char* amount;  // on Place 5 and on stack 2, which held 3
    std::vector<std::string> prompts;
  };
  const std::string asks = "Please enter a value to bet on:  Place 5";
  const std::string again = "Please enter an amount, for example 12.50.\r\r" + asks;
  // clang-format off
  const Row rows[] = {
    {"an amount", {"25"}, false, false, false, "25", {asks}},
    {"the preset", {}, false, false, false, "0", {asks}},
    {"a refused entry", {"ten", "", "10"}, false, false, false, "10", {asks, again, again}},
    {"closed", {"ten"}, false, false, false, "3", {asks, again}},
    {"in Hyper-Drive", {"25"}, true, false, false, "25", {asks}},
    {"words told before", {"25"}, false, true, false, "25", {"How much?"}},
    {"minimised", {"25"}, false, false, true, "3", {}},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptTable t;
    t.Stand({{Bet::Place5, "3"}, {StackOf(2), "1"}});
    t.files.entries = row.entries;
    t.files.minimized = row.minimized;
    t.g.HyperDriveActive = row.hyper;
    t.g.KeepRolling = true;
    ScriptLine input = Do(Verb::GetInput, {}, Bet::Place5);
    input.Text = "          Get input and bet it on Place 5";
    Script lines = {input};
    if (row.told) lines.insert(lines.begin(), DoNamed(Verb::ShowMessage, "How much?"));
    lines.push_back(Mark(2));
    t.Run(lines);
    EXPECT_EQ(PlainText(t.Amount(Bet::Place5)), row.amount);
    EXPECT_EQ(t.g.KeepRolling, !row.hyper && !row.minimized);
    EXPECT_EQ(t.Amount(StackOf(2)), Dollars(row.minimized ? 1 : 2)) << "the run goes on, if anybody is there";
    std::vector<std::string> prompts;
    for (const Prompt& prompt : t.files.prompts) prompts.push_back(prompt.text);
    EXPECT_EQ(prompts, row.prompts);
    EXPECT_TRUE(TablesAgree(t.g));
  }
}

}  // namespace
}  // namespace rollwick
