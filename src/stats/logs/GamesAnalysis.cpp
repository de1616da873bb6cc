#include "stats/logs/GamesAnalysis.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace rollwick {

namespace {

// Sums and differences of any two or two billion amounts.
__extension__ using Wide = __int128;

Money Held(Wide units) {
  const Wide most = std::numeric_limits<std::int64_t>::max();
  const Wide least = std::numeric_limits<std::int64_t>::min();
  return Money::FromUnits(static_cast<std::int64_t>(std::clamp(units, least, most)));
}

Wide FloorOfRatio(Wide a, Wide b) {
  return a / b - (a % b < 0 ? 1 : 0);
}

Money Halfway(Money a, Money b) {
  const Wide sum = Wide{a.Units()} + b.Units();
  Wide half = FloorOfRatio(sum, 2);
  if (sum % 2 != 0 && half % 2 != 0) ++half;  // ties to even
  return Held(half);
}

Money MostFrequent(std::span<const Money> sorted) {
  Money mode;
  std::ptrdiff_t most = 0;
  for (auto run = sorted.begin(); run != sorted.end();) {
    const auto end = std::find_if(run, sorted.end(), [&](Money value) { return value != *run; });
    if (end - run > most) {
      most = end - run;
      mode = *run;
    }
    run = end;
  }
  return mode;
}

void FindMedian(GamesFigures& figures) {
  const std::size_t middle = figures.values.size() / 2;
  figures.median = figures.values[middle];
  if (figures.values.size() % 2 != 0) return;
  const Money below = figures.values[middle - 1];
  figures.isMedianBetween = below != figures.median;
  figures.median = Halfway(below, figures.median);
}

void AddUp(GamesFigures& figures, Wide sum) {
  const auto count = static_cast<double>(figures.values.size());
  // Deviations are taken from the whole part of the mean, then from the rest of it: equal values have none.
  const Wide whole = FloorOfRatio(sum, static_cast<Wide>(figures.values.size()));
  const double rest = static_cast<double>(sum - whole * static_cast<Wide>(figures.values.size())) / count;
  figures.sum = Held(sum);
  figures.mean = (static_cast<double>(whole) + rest) / Money::kUnitsPerDollar;
  const auto deviation = [&](Money value) {
    return (static_cast<double>(value.Units() - whole) - rest) / Money::kUnitsPerDollar;
  };
  for (const Money value : figures.values) figures.variance += deviation(value) * deviation(value);
  figures.variance /= count;
  figures.deviation = std::sqrt(figures.variance);
  if (figures.deviation == 0) return;
  for (const Money value : figures.values) {
    const double standard = deviation(value) / figures.deviation;
    figures.skew += standard * standard * standard;
    figures.kurtosis += standard * standard * standard * standard;
  }
  figures.skew /= count;
  figures.kurtosis /= count;
}

// The narrowest width of 1, 2 or 5 of a decimal place, not below `least`, that takes no more bands than
// `most`.
Wide BandWidth(Money low, Money high, Wide least, Wide most) {
  Wide width = least;
  for (int step = 0;; ++step) {
    if (FloorOfRatio(high.Units(), width) - FloorOfRatio(low.Units(), width) < most) return width;
    width = step % 3 == 1 ? width / 2 * 5 : width * 2;  // 1, 2, 5, 10
  }
}

}  // namespace

std::optional<Message> ReadGamesColumn(const std::filesystem::path& path, int field,
                                       std::vector<GameValue>& column) {
  column.clear();
  const auto index = static_cast<std::size_t>(field);
  return ReadGames(path, [&](const GameRecord& game) { column.push_back({game[index], game[GameNet]}); });
}

GameClass ClassOfGame(Money net, const BreakPoints& points) {
  if (net > points.high) return WonGame;
  return net < points.low ? LostGame : EvenGame;
}

GamesFigures AnalyseGames(std::span<const GameValue> column, const BreakPoints& points,
                          const std::array<bool, kGameClassCount>& include) {
  GamesFigures figures;
  Wide sum = 0;
  for (const GameValue& game : column) {
    const auto result = static_cast<std::size_t>(ClassOfGame(game.net, points));
    if (!include[result]) continue;
    ++figures.count[result];
    figures.values.push_back(game.value);
    sum += game.value.Units();
  }
  if (figures.values.empty()) return figures;
  std::ranges::sort(figures.values);
  figures.low = figures.values.front();
  figures.high = figures.values.back();
  figures.mid = Halfway(figures.low, figures.high);
  figures.range = Held(Wide{figures.high.Units()} - figures.low.Units());
  figures.mode = MostFrequent(figures.values);
  FindMedian(figures);
  AddUp(figures, sum);
  return figures;
}

int GamesWithin(const GamesFigures& figures, double distance) {
  return static_cast<int>(std::ranges::count_if(
      figures.values, [&](Money value) { return std::fabs(value.ToDouble() - figures.mean) <= distance; }));
}

std::vector<GamesBand> GamesHistogram(const GamesFigures& figures, int field, BarWidth barWidth) {
  std::vector<GamesBand> bands;
  if (figures.values.empty()) return bands;
  const Wide least = field < kGameCountFields ? Money::kUnitsPerDollar : Money::kUnitsPerDollar / 100;
  const Wide width = BandWidth(figures.low, figures.high, least, 96 >> static_cast<int>(barWidth));
  auto value = figures.values.begin();
  for (Wide band = FloorOfRatio(figures.low.Units(), width); value != figures.values.end(); ++band) {
    const Wide end = (band + 1) * width;
    const auto behind =
        std::find_if(value, figures.values.end(), [&](Money next) { return Wide{next.Units()} >= end; });
    bands.push_back({Held(band * width), Held(end), static_cast<int>(behind - value)});
    value = behind;
  }
  return bands;
}

std::optional<int> FindGame(std::span<const GameValue> column, Money value, int from, bool backwards) {
  const int step = backwards ? -1 : 1;
  const auto count = static_cast<std::int64_t>(column.size());
  for (std::int64_t game = std::int64_t{from} + step; game >= 1 && game <= count; game += step) {
    if (column[static_cast<std::size_t>(game - 1)].value == value) return static_cast<int>(game);
  }
  return {};
}

}  // namespace rollwick
