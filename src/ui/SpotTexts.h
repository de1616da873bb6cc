// What is said of a spot of the table picture: by the hover pop-up and by a screen reader.
#pragma once

#include <QString>

#include "engine/state/Game.h"
#include "layout/HotSpots.h"

namespace rollwick {

// "Place 6, $12, working": one line, for whoever cannot see the picture. Empty for spots that are none.
QString SpokenText(const Game& g, int spot);
// The same of a button of the tool strip.
QString SpokenText(const Game& g, Tool tool);

// The hover pop-up: name, bet, payoff, vig. Empty where there is nothing to tell.
QString QuickStatsText(const Game& g, int spot);

// The denomination, 0..4, that a button of the tool strip selects; -1 for others.
int ChipOf(Tool tool);

// What stands on the panel that is not on view.
Money HiddenBets(const Game& g);

}  // namespace rollwick
