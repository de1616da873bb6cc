// After a load: what follows from other data is worked out, and what fits nothing is mended.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Brings the tables of a loaded game in line with each other. True when a value had to be mended.
bool RepairGame(Game& g);

}  // namespace rollwick
