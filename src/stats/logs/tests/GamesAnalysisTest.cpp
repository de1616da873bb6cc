// Figures of a column: small cases to the digit, random ones against a plain recount.
#include "stats/logs/GamesAnalysis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <random>

#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

constexpr std::array<bool, kGameClassCount> kAll = {true, true, true};
using Column = std::vector<GameValue>;

// Values that are nets as well.
Column Nets(std::initializer_list<const char*> values) {
  Column column;
  for (const char* value : values) column.push_back({*ParseMoney(value), *ParseMoney(value)});
  return column;
}

TEST(GamesAnalysis, SmallLogs) {
  struct Row {
    const char* name;
    Column column;
    const char *sum, *median, *mode, *high, *mid, *low, *range;
    bool isBetween;
    double mean, variance, deviation, skew, kurtosis;
  };
  const Row rows[] = {
      {"no game", {}, "0", "0", "0", "0", "0", "0", "0", false, 0, 0, 0, 0, 0},
      {"one game", Nets({"12.5"}), "12.5", "12.5", "12.5", "12.5", "12.5", "12.5", "0", false, 12.5, 0, 0, 0,
       0},
      {"all the same", Nets({"0.1", "0.1", "0.1"}), "0.3", "0.1", "0.1", "0.1", "0.1", "0.1", "0", false, 0.1,
       0, 0, 0, 0},
      {"two that differ", Nets({"1", "-2"}), "-1", "-0.5", "-2", "1", "-0.5", "-2", "3", true, -0.5, 2.25,
       1.5, 0, 1},
      {"the middle two the same", Nets({"5", "2", "9", "5"}), "21", "5", "5", "9", "5.5", "2", "7", false,
       5.25, 6.1875, std::sqrt(6.1875), 0.29846577544061453, 2.019895928986838},
      {"two modes", Nets({"3", "1", "3", "1", "2"}), "10", "2", "1", "3", "2", "1", "2", false, 2, 0.8,
       std::sqrt(0.8), 0, 1.25},
      {"skewed", Nets({"0", "0", "0", "4"}), "4", "0", "0", "4", "2", "0", "4", false, 1, 3, std::sqrt(3.0),
       2 / std::sqrt(3.0), 7.0 / 3},
      {"half a unit, ties to even", Nets({"0.0001", "0.0002"}), "0.0003", "0.0002", "0.0001", "0.0002",
       "0.0002", "0.0001", "0.0001", true, 0.00015, 2.5e-9, 0.00005, 0, 1},
      {"half a unit below 0", Nets({"-0.0001", "0"}), "-0.0001", "0", "-0.0001", "0", "0", "-0.0001",
       "0.0001", true, -0.00005, 2.5e-9, 0.00005, 0, 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const GamesFigures f = AnalyseGames(row.column, {}, kAll);
    EXPECT_EQ(f.Total(), std::ssize(row.column));
    const std::pair<Money, const char*> amounts[] = {
        {f.sum, row.sum}, {f.median, row.median}, {f.mode, row.mode},  {f.high, row.high},
        {f.mid, row.mid}, {f.low, row.low},       {f.range, row.range}};
    for (const auto& [found, expected] : amounts) EXPECT_EQ(PlainText(found), expected);
    EXPECT_EQ(f.isMedianBetween, row.isBetween);
    const std::pair<double, double> numbers[] = {{f.mean, row.mean},
                                                 {f.variance, row.variance},
                                                 {f.deviation, row.deviation},
                                                 {f.skew, row.skew},
                                                 {f.kurtosis, row.kurtosis}};
    for (const auto& [found, expected] : numbers)
      EXPECT_NEAR(found, expected, 1e-12 * std::fabs(expected)) << &found - &numbers[0].first;
  }
}

TEST(GamesAnalysis, ClassesComeFromTheNet) {
  const auto count = [](const BreakPoints& points, const std::array<bool, kGameClassCount>& include) {
    Column column = Nets({"-11", "-10", "0", "0.0001", "10", "11", "12"});
    for (GameValue& game : column) game.value = Dollars(100) - game.net;  // on view is something else
    return AnalyseGames(column, points, include);
  };
  using Counts = std::array<int, kGameClassCount>;
  EXPECT_EQ(count({}, kAll).count, (Counts{4, 1, 2}));
  EXPECT_EQ(count({Dollars(-10), Dollars(10)}, kAll).count, (Counts{2, 4, 1}));
  EXPECT_EQ(count({Dollars(11), Dollars(11)}, kAll).count, (Counts{1, 1, 5}));
  const GamesFigures won = count({Dollars(-10), Dollars(10)}, {true, false, false});
  EXPECT_EQ(won.count, (Counts{2, 0, 0}));
  EXPECT_EQ(PlainText(won.sum), "177");
  EXPECT_EQ(PlainText(won.high), "89");
  EXPECT_EQ(won.mean, 88.5);
  EXPECT_EQ(count({}, {false, false, false}).Total(), 0);
}

// What a player with a pencil would count.
void CompareWithRecount(const Column& column, const BreakPoints& points,
                        const std::array<bool, kGameClassCount>& include) {
  const GamesFigures f = AnalyseGames(column, points, include);
  std::map<Money, int> counts;
  long double sum = 0, squares = 0, cubes = 0, fourths = 0;
  int total = 0;
  const auto forEach = [&](const auto& act) {
    for (const GameValue& game : column) {
      const bool won = game.net > points.high, lost = !won && game.net < points.low;
      if (include[won ? 0U : lost ? 2U : 1U]) act(game.value);
    }
  };
  forEach([&](Money value) {
    ++counts[value];
    ++total;
    sum += value.Units();
  });
  ASSERT_EQ(f.Total(), total);
  if (total == 0) return;
  const long double mean = sum / total / 10'000;
  forEach([&](Money value) {
    const long double off = static_cast<long double>(value.Units()) / 10'000 - mean;
    squares += off * off;
    cubes += off * off * off;
    fourths += off * off * off * off;
  });
  const long double variance = squares / total, deviation = std::sqrt(variance);
  EXPECT_EQ(f.sum.Units(), static_cast<std::int64_t>(sum));
  EXPECT_EQ(f.low, counts.begin()->first);
  EXPECT_EQ(f.high, counts.rbegin()->first);
  for (const auto& [value, count] : counts) EXPECT_LE(count, counts[f.mode] - (value < f.mode ? 1 : 0));
  EXPECT_NEAR(f.mean, static_cast<double>(mean), 1e-9);
  EXPECT_NEAR(f.variance, static_cast<double>(variance), 1e-9 * f.variance);
  if (variance > 0) {
    EXPECT_NEAR(f.skew, static_cast<double>(cubes / total / (variance * deviation)), 1e-9);
    EXPECT_NEAR(f.kurtosis, static_cast<double>(fourths / total / (variance * variance)), 1e-9);
  }
  EXPECT_EQ(GamesWithin(f, f.range.ToDouble()), total);

  for (const BarWidth barWidth : {BarWidth::Fine, BarWidth::Medium, BarWidth::Wide, BarWidth::ExtraWide}) {
    const auto bands = GamesHistogram(f, GameNet, barWidth);
    ASSERT_LE(bands.size(), 96U >> static_cast<int>(barWidth));
    ASSERT_FALSE(bands.empty());
    EXPECT_GT(bands.front().games, 0);
    EXPECT_GT(bands.back().games, 0);
    int seen = 0;
    for (std::size_t i = 0; i < bands.size(); ++i) {
      int games = 0;
      for (const auto& [value, count] : counts)
        games += value >= bands[i].low && value < bands[i].high ? count : 0;
      EXPECT_EQ(bands[i].games, games);
      EXPECT_TRUE(i == 0 || bands[i].low == bands[i - 1].high) << "a gap";
      seen += games;
    }
    EXPECT_EQ(seen, total);
  }
}

TEST(GamesAnalysis, RandomLogs) {
  std::mt19937 random(20);
  for (int log = 0; log < 300; ++log) {
    SCOPED_TRACE(log);
    const int scale = 1 << random() % 24;
    const auto amount = [&] {
      return Money::FromUnits((static_cast<std::int64_t>(random() % 2'000) - 1'000) * scale);
    };
    Column column;
    for (std::size_t game = random() % 200; game > 0; --game) column.push_back({amount(), amount()});
    const Money one = amount(), other = amount();
    CompareWithRecount(column, {std::min(one, other), std::max(one, other)},
                       {random() % 4 != 0, random() % 4 != 0, random() % 4 != 0});
  }
}

TEST(GamesAnalysis, HistogramBands) {
  struct Row {
    const char* name;
    Column column;
    int field;
    BarWidth barWidth;
    std::vector<std::string> bands;
  };
  const Row rows[] = {
      {"no game", {}, GameNet, BarWidth::Fine, {}},
      {"one count", Nets({"7"}), GameRolls, BarWidth::Fine, {"7 to 8: 1"}},
      {"one amount", Nets({"7"}), GameNet, BarWidth::Fine, {"7 to 7.01: 1"}},
      {"counts have no fractions",
       Nets({"1", "3", "3"}),
       GameRolls,
       BarWidth::Fine,
       {"1 to 2: 1", "2 to 3: 0", "3 to 4: 2"}},
      {"twelve at most, below 0 too",
       Nets({"-15", "-10", "0", "99.9999", "100"}),
       GameNet,
       BarWidth::ExtraWide,
       {"-20 to 0: 2", "0 to 20: 1", "20 to 40: 0", "40 to 60: 0", "60 to 80: 0", "80 to 100: 1",
        "100 to 120: 1"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::vector<std::string> bands;
    for (const GamesBand& band : GamesHistogram(AnalyseGames(row.column, {}, kAll), row.field, row.barWidth))
      bands.push_back(PlainText(band.low) + " to " + PlainText(band.high) + ": " +
                      std::to_string(band.games));
    EXPECT_EQ(bands, row.bands);
  }
}

// A changed byte makes any number; nothing may overflow.
TEST(GamesAnalysis, TheEndsOfTheRange) {
  const Money least = Money::FromUnits(std::numeric_limits<std::int64_t>::min());
  const Money most = Money::FromUnits(std::numeric_limits<std::int64_t>::max());
  const GamesFigures f = AnalyseGames(Column{{least, least}, {most, most}, {most, most}}, {}, kAll);
  EXPECT_EQ(f.sum, Money::FromUnits(most.Units() - 1));
  EXPECT_EQ(f.mid, Money());
  EXPECT_EQ(f.range, most) << "held";
  EXPECT_NEAR(f.kurtosis, 1.5, 1e-12);
  const auto bands = GamesHistogram(f, GameNet, BarWidth::Fine);
  EXPECT_EQ(bands.front().games + bands.back().games, 3);
}

TEST(GamesAnalysis, FindAndWithin) {
  const Column column = Nets({"5", "1", "5", "5.0001", "9"});
  struct Row {
    const char* name;
    const char* value;
    int from;
    bool backwards;
    std::optional<int> game;
  };
  for (const Row& row : {Row{"the first", "5", 0, false, 1},
                         {"the next", "5", 1, false, 3},
                         {"none behind", "5", 3, false, {}},
                         {"the one before", "5", 3, true, 1},
                         {"none before", "5", 1, true, {}},
                         {"from the end", "9", 6, true, 5},
                         {"to the digit", "5.0001", 0, false, 4},
                         {"not there", "2", 0, false, {}},
                         {"from far behind", "5", 2'147'483'647, false, {}}}) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(FindGame(column, *ParseMoney(row.value), row.from, row.backwards), row.game);
  }
  const GamesFigures f = AnalyseGames(Nets({"1", "3", "5"}), {}, kAll);
  EXPECT_EQ(GamesWithin(f, 1.9), 1);
  EXPECT_EQ(GamesWithin(f, 2), 3);
}

TEST(GamesAnalysis, ReadsTheColumnAndTheNet) {
  const TemporaryFolder folder;
  GameRecord game{};
  game[GameBankroll] = Dollars(510);
  game[GameNet] = Dollars(10);
  game[31] = Dollars(7);
  ASSERT_FALSE(AppendGames(folder / "log", {&game, 1}));
  Column column = Nets({"1", "2"});
  ASSERT_FALSE(ReadGamesColumn(folder / "log", 31, column));
  ASSERT_EQ(column.size(), 1U);
  EXPECT_EQ(column[0].value, Dollars(7));
  EXPECT_EQ(column[0].net, Dollars(10));
  EXPECT_EQ(GameFieldCaption(31), "Chip-Stack #19");
}

}  // namespace
}  // namespace rollwick
