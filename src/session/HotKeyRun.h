// Running a hot key.
#pragma once

#include <filesystem>

#include "engine/state/Game.h"
#include "files/HotKeys.h"

namespace rollwick {

// Runs the hot key's Auto-Bet file once, whether or not the player's script is switched on. That script, its
// flags and its insert line are afterwards as they were, also when the run was aborted; in a new game that
// the run began all flags are false. False when nothing ran: while the dice roll or a script runs, without a
// message; when the working copy of the player's script could not be written, or the file is not there or is
// refused, with one.
bool RunHotKey(Game& g, const HotKey& hotKey, const std::filesystem::path& dataFolder);

}  // namespace rollwick
