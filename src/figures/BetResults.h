// frmBetResults: what some bets earned together, beside what they should have.
#pragma once

#include <array>
#include <span>

#include "engine/state/Game.h"
#include "figures/Figure.h"

namespace rollwick {

// Results by bet: of a game, or added up over several games.
struct BetRows {
  std::span<const BetStatRow, kBetRowCount> wagers, wins, losses;
};
BetRows RowsOf(const Game& g, BetStatKind kind);

struct BetResultsLine {
  std::string label;            // "Total $"
  Figure wagers, wins, losses;  // empty in the line of the expected value
  Figure net, netShare;
};
inline constexpr int kBetResultsLines = 11;  // ten of results, then the expected value

struct BetResults {
  std::array<BetResultsLine, kBetResultsLines> lines;
  std::vector<Figure> figures;  // below the table: bets chosen, on the table now, at the last roll, hours
};

// Of these bets, each 1..83.
BetResults BetResultsOf(const Game& g, const BetRows& rows, std::span<const BetId> bets);

}  // namespace rollwick
