// frmGames: one column over all games of a log, as the figures and the histogram of the screen.
#pragma once

#include <array>

#include "figures/Figure.h"
#include "stats/logs/GamesAnalysis.h"

namespace rollwick {

// Games of one class, or of all, and their share of 100; "0%" of no games.
struct GamesClassRow {
  Figure games;
  Figure share;
};
// Won, broke-even, lost, total.
std::array<GamesClassRow, kGameClassCount + 1> GamesClassRows(const GamesFigures& figures);

// Sum, mean, median ... kurtosis. The median's label bears a star when it lies between two values.
std::vector<Figure> GamesRows(const GamesFigures& figures);

// A band of the histogram, of `total` games.
struct GamesBandTexts {
  std::string low, high;  // " to " stands between them
  std::string games;      // "1 game", "12 games"
  std::string share;      // "8.33 %"
};
GamesBandTexts TextsOfBand(const GamesBand& band, int total);

}  // namespace rollwick
