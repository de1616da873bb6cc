// The bets a throw decides, settled.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Makes the dealer's calls on the dice in their order: counts passes and misses, decides what stands on the
// table, sends the Come and Don't Come boxes to their numbers.
void SettleRoll(Game& g);

// The auto-stops on totals.
void StopAutoRollOnTotal(Game& g);

}  // namespace rollwick
