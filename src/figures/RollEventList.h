// The roll events as players choose them from a list, and how often each should come.
#pragma once

#include <array>
#include <span>

#include "engine/state/DiceTables.h"
#include "engine/state/StatisticsTables.h"

namespace rollwick {

// The dice that are an event: one pair (a on die 1, b on die 2), the same in either order, face b on die a,
// or any of some totals (bit n for total n).
struct DiceOfEvent {
  enum Kind { OrderedPair, EitherOrder, OneFace, AnyOfTotals };
  Kind kind;
  int a, b;
  unsigned totals;
  friend constexpr bool operator==(const DiceOfEvent&, const DiceOfEvent&) = default;
};

struct RollEventItem {
  const char* text;
  RollEvent event;
  DiceOfEvent dice;
};
inline constexpr int kRollEventItems = 88;

// Events 2..89, each once, in the order of the list.
std::span<const RollEventItem> RollEventList();

// `event` must be 2..89.
const RollEventItem& ItemOfEvent(RollEvent event);

// Faces 1..6; in either order the smaller one first. A pair of equal faces has one event.
RollEvent EventOfPair(int die1, int die2, bool eitherOrder);

// How often it should come, of 100 rolls: with true dice, and by the probability matrix.
double TruePercent(const DiceOfEvent& dice);
double SkewedPercent(const MatrixTable& matrix, const DiceOfEvent& dice);

// How often it came, of 100 rolls; 0 before the first roll.
double ActualPercent(const StatisticsTables& g, RollEvent event);

}  // namespace rollwick
