// The script's run: once in every roll, and once by itself to set initial conditions.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Walks the script once from top to bottom. The caller has looked that it is switched on and has lines.
// Runs nothing while a run is going on.
void RunAutoBet(Game& g);

// After a change of the script or its activation: asks whether to run it once before the dice roll. Whatever
// the answer, the question does not come again before the next change.
void OfferInitialize(Game& g);

// Runs the script once as such an initializing run, in which "Initializing Auto-Bet" holds, and takes the
// snapshots behind it.
void InitializeAutoBets(Game& g);

// Whether the script is switched on and has lines.
inline bool AutoBetsAreOn(const Game& g) {
  return g.AutoBetsActive == 1 && !g.ScriptLines.empty();
}

}  // namespace rollwick
