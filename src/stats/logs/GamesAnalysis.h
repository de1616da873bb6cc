// The figures of one column over all games of a log, and their histogram.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "stats/logs/GamesLog.h"

namespace rollwick {

// A game as the analysis of one column sees it. The net says whether it was won, whichever column is on view.
struct GameValue {
  Money value;
  Money net;
};

// The column of every game of the log, in order.
std::optional<Message> ReadGamesColumn(const std::filesystem::path& path, int field,
                                       std::vector<GameValue>& column);

// Won above `high`, lost below `low`, even on the break-points and between them.
struct BreakPoints {
  Money low;
  Money high;
};
enum GameClass : int { WonGame, EvenGame, LostGame, kGameClassCount };
GameClass ClassOfGame(Money net, const BreakPoints& points);

struct GamesFigures {
  std::array<int, kGameClassCount> count{};  // of the games included
  std::vector<Money> values;                 // of the games included, lowest first
  Money sum;                                 // held at the ends of the range
  double mean = 0;
  Money median;
  bool isMedianBetween = false;  // of an even number of games: the mean of two that differ
  Money mode;                    // the most frequent value, the lowest of several
  Money high, mid, low, range;
  double variance = 0;  // these divide by the number of games
  double deviation = 0;
  double skew = 0;
  double kurtosis = 0;  // the plain fourth moment; this and the skew are 0 without a deviation

  int Total() const { return static_cast<int>(values.size()); }
};

// All figures are 0 when no game is included.
GamesFigures AnalyseGames(std::span<const GameValue> column, const BreakPoints& points,
                          const std::array<bool, kGameClassCount>& include);

// Games no further than `distance` from the mean.
int GamesWithin(const GamesFigures& figures, double distance);

enum class BarWidth { Fine, Medium, Wide, ExtraWide };

// The games from `low` up to, not including, `high`.
struct GamesBand {
  Money low, high;
  int games = 0;
};

// Bands of equal width, without a gap, from the lowest value to the highest; at most 96, 48, 24 or 12 by the
// bar width. The width is 1, 2 or 5 of some decimal place (of `field`: a count has no fractions, anything
// else no fractions of a cent), and the bands begin at its multiples. None without games.
std::vector<GamesBand> GamesHistogram(const GamesFigures& figures, int field, BarWidth barWidth);

// The next game of this value behind game `from` (0: from the first on) or, backwards, before it. Games are
// counted from 1; nothing when there is none.
std::optional<int> FindGame(std::span<const GameValue> column, Money value, int from, bool backwards);

}  // namespace rollwick
