// The graph's page, the page before and the moving average against a list of every bankroll there was.
#include <gtest/gtest.h>

#include <random>

#include "figures/BankrollGraph.h"
#include "stats/tally/Tally.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

using Bankrolls = std::vector<Money>;

// The average as a player with pencil and paper takes it at the end of these rolls.
Money AverageOf(const Bankrolls& all, std::size_t period) {
  if (all.empty() || (period > 0 && all.size() == 1)) return {};
  const std::size_t count = period == 0 ? all.size() : std::min({period, all.size(), std::size_t{525}});
  Money sum;
  for (std::size_t back = 1; back <= count; ++back) sum += all[all.size() - back];
  return Quotient(sum, Dollars(static_cast<std::int64_t>(count)));
}

void AddRoll(Game& g, Money bankroll) {
  g.BetAmount[SlotBankroll] = bankroll;
  ++g.RollCount();
  TallyBankroll(g);
  AddBankrollPoint(g);
}

TEST(BankrollGraph, PagesAndAveragesOf2000Rolls) {
  TestTable t;
  Game& g = t.g;
  std::mt19937 random(11);
  const int periods[] = {0, 1, 2, 7, 100, 524, 525, 9999};
  std::array<Bankrolls, std::size(periods)> averages;
  Bankrolls all;
  for (std::size_t roll = 1; roll <= 2000; ++roll) {
    AddRoll(g, g.BetAmount[SlotBankroll] + Money::FromUnits(static_cast<int>(random() % 100'001) - 50'000));
    all.push_back(g.BetAmount[SlotBankroll]);
    const std::size_t first = (roll - 1) / 525 * 525;  // rolls of finished pages
    const auto page = [&](const Bankrolls& list, std::size_t from, std::size_t to) {
      return Bankrolls(list.begin() + static_cast<std::ptrdiff_t>(from),
                       list.begin() + static_cast<std::ptrdiff_t>(to));
    };
    SCOPED_TRACE(roll);
    for (std::size_t i = 0; i < std::size(periods); ++i) {
      averages[i].push_back(AverageOf(all, static_cast<std::size_t>(periods[i])));
      ASSERT_EQ(MovingAverage(g, 0, periods[i]), averages[i].back()) << periods[i];
      ASSERT_EQ(MovingAverageLine(g, periods[i]), page(averages[i], first, roll)) << periods[i];
    }
    const BankrollGraph graph = GraphOfBankroll(g);
    ASSERT_EQ(graph.firstRoll, static_cast<std::int64_t>(first) + 1);
    ASSERT_EQ(graph.points, page(all, first, roll));
    ASSERT_EQ(graph.pageBefore, first == 0 ? Bankrolls() : page(all, first - 525, first));
    // An expanding scale keeps the newest point in view.
    ASSERT_LE(graph.points.back(), graph.scale.front());
    ASSERT_GE(graph.points.back(), graph.scale.back());
  }
}

TEST(BankrollGraph, LabelsAndScale) {
  struct Row {
    const char* name;
    bool isOn;
    int period;
    const char* label;
  };
  const Row rows[] = {
      {"never set", false, 525, "525 Roll Moving Average"},
      {"switched on", true, 525, "525 roll moving average"},
      {"set", false, 20, "20 roll moving average"},
      {"all rolls", true, 0, "All rolls average"},
      {"more than a page", true, 9999, "525 roll moving average"},
  };
  TestTable t;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    t.g.MovingAverageOn = row.isOn;
    t.g.MovingAveragePeriod = row.period;
    EXPECT_EQ(MovingAverageLabel(t.g), row.label);
    EXPECT_EQ(GraphOfBankroll(t.g).average.size(), 0u);
  }
  AddRoll(t.g, Money::FromUnits(4'995'000));
  t.g.RollsPerHour = Dollars(100'000);
  t.g.AutoPrintGraph = true;
  const BankrollGraph graph = GraphOfBankroll(t.g);
  std::string texts;
  for (const Figure& figure : graph.figures) texts += figure.text + "|";
  EXPECT_EQ(texts,
            "1|526|600|550|500|450|400|350|300|525 roll moving average|1|100,000|< 0.0001|500|499.50|499.50|"
            "Auto-Print ON|");
  EXPECT_EQ(graph.average, Bankrolls{Money()});
}

}  // namespace
}  // namespace rollwick
