// What the casino gives back: comps for the wagers a player really made, by the ticked bets.
#pragma once

#include <array>
#include <string>

#include "engine/state/Game.h"

namespace rollwick {

// Where the figures are to go. CompsUseTrueProbs makes the dice true for the two labels only.
enum class CompTarget : int { ConfigureLabels = 1, SummaryLabel = 2, DiceAtTheTable = 3 };

// CompBase: what comps are a share of.
enum CompBases : std::int32_t { CompsOfTheoreticalVig, CompsOfAction, CompsOfActionAndTime };

// Of the actual wagers decided on the bets in CompBetMask.
struct CompFigures {
  Money Action;
  Money Decisions;
  double HouseEv = 0;  // what the player may expect: below 0 when the house earns
  Money ActionTime;    // average action times hours
  double Hours = 0;    // simulated; 0 with no rolls in an hour
  double Value = 0;
};

// Whether `bet` (1..83) is ticked.
bool EarnsComps(const Game& g, BetId bet);

CompFigures UpdateComps(const Game& g, CompTarget target);

// The labels of the comps panel, lblCompdata 0..6, and lblCompValue of the summary.
inline constexpr std::array<const char*, 7> kCompCaptions = {
    "Total comp action $",       "Total comp decisions", "Average comp action $", "Theoretical house vig $",
    "Avg. comp action x time $", "Total comp value $",   "Simulated hours"};
std::array<std::string, 7> CompTexts(const CompFigures& comps);
std::string CompValueText(const CompFigures& comps);

}  // namespace rollwick
