// `rollwick advantage`, and what show advantage and show comps tell in a game.
#pragma once

#include "console/Console.h"
#include "console/PlayCommands.h"

namespace rollwick {

// The exact figures of all bets, by the rules, payoffs and dice of the options. Returns the exit code.
int RunAdvantage(const CommonOptions& options, bool countsZeroOutcomes, const Terminal& terminal);

Reply ShowAdvantage(Table& table, Arguments arguments);
Reply ShowComps(Table& table, Arguments arguments);

}  // namespace rollwick
