// What begins programs and games.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// A new game: the finished one goes into the Games Log if that is on, then empty table, fresh statistics, the
// bankroll by BankrollInitType. keepChipStacks spares the stacks and their names. The script stays, its flags
// become false.
void NewGame(Game& g, bool keepChipStacks);

// Brings the program up: every default, every generator seeded from the clock, RNG #1 in force.
void StartUp(Game& g);

}  // namespace rollwick
