// frmBankroll: a page of the bankroll's graph, its scale, its moving average, the figures beside it.
#pragma once

#include <array>

#include "engine/state/Game.h"
#include "figures/Figure.h"

namespace rollwick {

inline constexpr int kScaleLines = 7;

struct BankrollGraph {
  std::int64_t firstRoll = 1;              // at the left of the page
  std::vector<Money> points;               // the bankroll after roll firstRoll, firstRoll + 1 ..., up to 525
  std::vector<Money> average;              // at each of them; empty while the moving average is switched off
  std::vector<Money> pageBefore;           // of the 525 rolls before; empty on the first page of a game
  std::array<Money, kScaleLines> scale{};  // from the top of the graph to its foot
  std::vector<Figure> figures;  // rolls left and right, the scale, the average's label, then the side figures
};

BankrollGraph GraphOfBankroll(const Game& g);

// The moving average at every point of the current page, each as it was when the point was added. Period as
// in MovingAverage.
std::vector<Money> MovingAverageLine(const Game& g, int period);

// "525 Roll Moving Average" until the average was switched on or its period set.
std::string MovingAverageLabel(const Game& g);

}  // namespace rollwick
