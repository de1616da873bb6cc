// The bets a throw decides.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// The line bets, when the point was rolled.
void ResolvePointMade(Game& g);

// Everything the total decides, the Come and Don't Come boxes sent to their numbers, and the auto-stops on
// totals.
void ResolveTotal(Game& g);

// One-roll bets the total did not decide: the Field, the propositions, the hops.
void ResolveOneRollBets(Game& g);

}  // namespace rollwick
