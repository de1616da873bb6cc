// What the Events Log tells about a roll.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// What the player did since the last roll: ATM, bets, buttons, Chip-Stacks. Reads BetAtThrow, the results of
// the last roll and its total, so it comes before any of them changes.
void LogPlayerChanges(Game& g);

void LogRoll(Game& g, std::string_view source);

// The point, before bets are settled.
void LogPoint(Game& g, std::string_view line);

// The bankroll against the throw, and the new shooter.
void LogRollResult(Game& g);

}  // namespace rollwick
