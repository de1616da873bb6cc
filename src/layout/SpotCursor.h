// The keyboard's way over the table: which spot follows which.
#pragma once

#include "layout/Anchors.h"

namespace rollwick {

enum class CursorKey { Left, Right, Up, Down, Tab, BackTab };

// The spot the cursor stands on after a key. Tab walks the ids of all spots on view, round and round. Arrows
// step over the numbers (bets 1..42) row by row, where Buy is the row below Place in the same box, and stop
// at their ends; elsewhere they go to the nearest spot in their direction. From a spot that is not on view,
// or from none, an arrow begins on the Pass Line.
BetId NextSpot(const GameTables& g, int spot, CursorKey key);

}  // namespace rollwick
