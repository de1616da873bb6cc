// The statistics screens as objects and as text for people: pages of `show`, and what a run came to.
#pragma once

#include "console/PlayCommands.h"

namespace rollwick {

// The figures of the summary screen by their controls, as the screen shows them, and "raw": plain values.
Json SummaryJson(Game& g);

// "$12.50", "-$3", to the cent.
std::string Cents(Money amount);

// What a game came to, for the report of a run: the bankroll's extremes, result and expected result, hands,
// then a line for every bet that was decided.
std::string StoryOfGame(Game& g);

Reply ShowSummary(Table& table, Arguments arguments);
Reply ShowTotals(Table& table, Arguments arguments);
Reply ShowFrequencies(Table& table, Arguments arguments);
Reply ShowResults(Table& table, Arguments arguments);
Reply ShowTrends(Table& table, Arguments arguments);
Reply ShowGraph(Table& table, Arguments arguments);

}  // namespace rollwick
