// The lines of the advantage table as a player reads them, in percent.
#pragma once

#include <array>
#include <string>

#include "stats/advantage/EvaluateBet.h"

namespace rollwick {

inline constexpr std::array<const char*, 5> kAdvantageHeadings = {"EV/Roll", "StDev/Roll", "EV/Dec",
                                                                  "StDev/Dec", "EV/Hour"};

// The bet's name; the bets on numbers name both ways to get there: "Pass/Come 4", "DP/DC 4 Odds".
std::string AdvantageName(BetId bet);

// By kAdvantageHeadings.
std::array<std::string, 5> AdvantageTexts(const Game& g, const BetFigures& figures);

// Rolls to a decision, decisions on a roll, time to a decision ("0:01:38.1"; empty with no rolls in an hour).
std::array<std::string, 3> MiscTexts(const Game& g, const BetFigures& figures);

// RollsPerHour as RollsPerTimeForm has it, with its unit: "120 Rolls / hr", ".5 Mins / roll".
std::string RollRateText(const Game& g);

}  // namespace rollwick
