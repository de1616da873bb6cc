// The roll and what begins and ends games.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// One roll, or a run of rolls while KeepRolling holds with auto-roll or Hyper-Drive on. Returns at once
// inside a roll.
void RollDice(Game& g);

// Starts Hyper-Drive, or ends it when it runs.
void ToggleHyperDrive(Game& g);

// A new game: empty table, fresh statistics, the bankroll by BankrollInitType. keepChipStacks spares the
// stacks and their names.
void NewGame(Game& g, bool keepChipStacks);

// Brings the program up: every default, every generator seeded from the clock, RNG #1 in force.
void StartUp(Game& g);

}  // namespace rollwick
