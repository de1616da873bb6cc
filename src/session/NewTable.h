// The player's own new game, with all that is asked before and after it.
#pragma once

#include "session/StartAndEnd.h"

namespace rollwick {

// Asks about unsaved work, begins the game, and asks what is to become of the Dice Roll File and the script.
// Anything but Done leaves all as it was. Not while the dice roll or a script runs: that counts as cancelled.
Closing BeginNewTable(Game& g, const std::filesystem::path& dataFolder, const ChooseFile& chooseFile);

}  // namespace rollwick
