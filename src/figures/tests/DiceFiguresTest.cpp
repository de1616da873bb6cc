// Totals and frequencies against a recount of every roll by the dice that each event is.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "base/FormatNumber.h"
#include "dice/MatrixEdit.h"
#include "figures/RollEventList.h"
#include "figures/RollFrequencies.h"
#include "figures/RollTotals.h"
#include "stats/tally/Tally.h"
#include "stats/tally/tests/EventDice.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

std::string_view DiceOf(RollEvent event) {
  return std::ranges::find(kEvents, event, &EventDice::event)->dice;
}

double PlainValue(const Figure& figure) {
  if (const auto* const count = std::get_if<std::int64_t>(&figure.plain)) return static_cast<double>(*count);
  return std::get<double>(figure.plain);
}

TEST(RollEventList, EveryEventOnceWithItsDice) {
  std::set<RollEvent> events;
  for (const RollEventItem& item : RollEventList()) {
    SCOPED_TRACE(item.text);
    events.insert(item.event);
    int ways = 0;
    for (int die1 = 1; die1 <= 6; ++die1)
      for (int die2 = 1; die2 <= 6; ++die2) ways += Happens(DiceOf(item.event), die1, die2) ? 1 : 0;
    EXPECT_DOUBLE_EQ(TruePercent(item.dice), ways * 100.0 / 36);
  }
  EXPECT_EQ(events.size(), 88u);
  EXPECT_EQ(*events.begin(), 2);
  EXPECT_EQ(*events.rbegin(), 89);
}

TEST(RollTotals, RowsGoByTotalThenLowDie) {
  TestTable t;
  const auto numbers = [&](TotalsSet set) {
    std::string all;
    for (const RollTotalsRow& row : RollTotals(t.g, set, false)) {
      EXPECT_EQ(ItemOfEvent(row.event).event, row.event);
      if (set != TotalsSet::DiceFaces) {
        EXPECT_TRUE(row.number.size() < 3 ||
                    Happens(DiceOf(row.event), row.number[0] - '0', row.number[2] - '0'));
      }
      all += row.number + " ";
    }
    return all;
  };
  EXPECT_EQ(numbers(TotalsSet::StandardNumbers), "2 3 4 5 6 7 8 9 10 11 12 ");
  EXPECT_EQ(numbers(TotalsSet::DistinguishableCombos),
            "1-1 1-2 1-3 2-2 1-4 2-3 1-5 2-4 3-3 1-6 2-5 3-4 2-6 3-5 4-4 3-6 4-5 4-6 5-5 5-6 6-6 ");
  EXPECT_TRUE(numbers(TotalsSet::UniqueCombos).starts_with("1-1 1-2 2-1 1-3 3-1 2-2 1-4 4-1 2-3 3-2 1-5 "));
  EXPECT_EQ(RollTotals(t.g, TotalsSet::UniqueCombos, false).size(), 36u);
  EXPECT_TRUE(numbers(TotalsSet::DiceFaces).starts_with("Die 1, face 1 Die 1, face 2 "));
}

TEST(RollFrequencies, AgreeWithARecount) {
  TestTable t;
  Game& g = t.g;
  std::mt19937 random(3);
  std::vector<std::pair<int, int>> rolls;
  for (int roll = 0; roll < 3000; ++roll) {
    g.Die1 = 1 + static_cast<int>(random() % 6);
    g.Die2 = 1 + static_cast<int>(random() % 6);
    g.DiceTotal = g.Die1 + g.Die2;
    TallyRoll(g);
    rolls.emplace_back(g.Die1, g.Die2);
  }
  BringUpToDate(g);
  bool sawLongGap = false;
  for (const RollEventItem& item : RollEventList()) {
    SCOPED_TRACE(item.text);
    std::array<int, 201> gaps{};
    int count = 0, since = 0, sum = 0;
    for (const auto& [die1, die2] : rolls) {
      ++since;
      if (!Happens(DiceOf(item.event), die1, die2)) continue;
      ++count;
      ++gaps[static_cast<std::size_t>(std::min(since, 200))];
      sum += since;
      sawLongGap = sawLongGap || since > 200;
      since = 0;
    }
    const RollFrequencies frequencies = FrequenciesOf(g, item.event, false);
    const double figures[] = {3000,         static_cast<double>(count), static_cast<double>(since),
                              count / 30.0, TruePercent(item.dice),     static_cast<double>(sum) / count};
    ASSERT_EQ(frequencies.figures.size(), std::size(figures));
    for (std::size_t i = 0; i < std::size(figures); ++i) {
      EXPECT_DOUBLE_EQ(PlainValue(frequencies.figures[i]), figures[i]) << frequencies.figures[i].name;
      EXPECT_EQ(frequencies.figures[i].text, FormatNumber(figures[i], i < 3 ? "#,#;-#,#;0" : "Standard"));
    }
    for (std::size_t gap = 1; gap <= 200; ++gap) EXPECT_EQ(frequencies.gaps[gap - 1].count, gaps[gap]) << gap;
    EXPECT_EQ(frequencies.gaps.back().gap, "200+");
    for (const TotalsSet set : {TotalsSet::StandardNumbers, TotalsSet::DistinguishableCombos,
                                TotalsSet::UniqueCombos, TotalsSet::DiceFaces}) {
      for (const RollTotalsRow& row : RollTotals(g, set, false)) {
        if (row.event != item.event) continue;
        EXPECT_DOUBLE_EQ(PlainValue(row.actual), count / 30.0);
        EXPECT_EQ(PlainValue(row.count), count);
        EXPECT_EQ(PlainValue(row.rollsSince), since);
      }
    }
  }
  EXPECT_TRUE(sawLongGap);
}

TEST(RollTotals, SkewedDiceMoveTheProbableOnly) {
  TestTable t;
  Game& g = t.g;
  struct Row {
    const char* name;
    RollEvent event;
    double untouched, skewed;  // percent
  };
  // Die 1 shows a six half of the time, its other faces 10 % each.
  const Row rows[] = {
      {"total 4, its own cell", 4, 8.333, 5},
      {"total 12", 12, 2.778, 8.333},
      {"1-6", 39, 2.778, 1.667},
      {"6-1", 40, 2.778, 8.333},
      {"4-6 or 6-4", 62, 5.556, 10},
      {"Hard 6", 14, 2.778, 1.667},
      {"die 1, face 6", 83, 16.667, 50},
      {"die 2, face 6", 89, 16.667, 16.667},
      {"numbers 2 and 12", 69, 5.556, 10},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const DiceOfEvent& dice = ItemOfEvent(row.event).dice;
    EXPECT_NEAR(SkewedPercent(DefaultProbabilityMatrix(), dice), row.untouched, 0.0005);
    NewProbabilityMatrix(g);
    ASSERT_TRUE(EnterMatrixCell(g, 7, 12, 50));
    EXPECT_NEAR(SkewedPercent(g.ProbabilityMatrix, dice), row.skewed, 0.004);
  }
  const auto probable = [&](bool skewed) {
    return RollTotals(g, TotalsSet::DiceFaces, skewed)[5].probable.text;
  };
  EXPECT_EQ(probable(false), "16.67");
  EXPECT_EQ(probable(true), "50.00");
  EXPECT_EQ(FrequenciesOf(g, 83, true).figures[4].label, "Skewed probable %:");
  EXPECT_EQ(FrequenciesOf(g, 83, true).figures[4].text, "50.00");
}

}  // namespace
}  // namespace rollwick
