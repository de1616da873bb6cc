// The file a script writes, seen from the roll.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Sends what the script wrote on its way to the disk. A disk that refuses it ends the run and says so.
void FlushScriptOutput(Game& g);

}  // namespace rollwick
