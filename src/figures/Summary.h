// frmSummary: one page of the game's totals.
#pragma once

#include "engine/state/Game.h"
#include "figures/Figure.h"

namespace rollwick {

// The figures in the order of the screen; those of one line bear the same label. Sums the bets into the work
// row, as showing the screen does.
std::vector<Figure> SummaryFigures(Game& g);

}  // namespace rollwick
