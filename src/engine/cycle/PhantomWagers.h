// The imaginary dollar that lies on every bet all the time.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Counts what the dice, known and tallied, decide for the phantom dollars.
void CountPhantoms(Game& g);

// Whether the prices kept for these dice are what the rules give now; a change of rules in mid-run that did
// not come through BringUpToDate and StartCounting would leave them wrong.
bool PhantomPricesAgree(Game& g);

}  // namespace rollwick
