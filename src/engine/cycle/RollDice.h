// The roll, and runs of rolls.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// One roll, or a run of rolls while KeepRolling holds with auto-roll or Hyper-Drive on. Returns at once
// inside a roll.
void RollDice(Game& g);

// Starts Hyper-Drive, or ends it when it runs.
void ToggleHyperDrive(Game& g);

}  // namespace rollwick
