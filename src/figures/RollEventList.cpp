#include "figures/RollEventList.h"

#include <algorithm>

#include "dice/Matrix.h"

namespace rollwick {
namespace {

constexpr DiceOfEvent Pair(int die1, int die2) {
  return {DiceOfEvent::OrderedPair, die1, die2, 0};
}
constexpr DiceOfEvent Either(int die1, int die2) {
  return {DiceOfEvent::EitherOrder, die1, die2, 0};
}
constexpr DiceOfEvent Face(int die, int face) {
  return {DiceOfEvent::OneFace, die, face, 0};
}
template <class... Numbers>
constexpr DiceOfEvent Totals(Numbers... totals) {
  return {DiceOfEvent::AnyOfTotals, 0, 0, ((1U << totals) | ...)};
}

// clang-format off
constexpr std::array<RollEventItem, kRollEventItems> kItems = {{
    {"Number 2 (1-1)", 2, Pair(1, 1)},
    {"Number 3 (1-2)", 22, Pair(1, 2)},
    {"Number 3 (2-1)", 23, Pair(2, 1)},
    {"Number 3 (1-2) or (2-1)", 3, Either(1, 2)},
    {"Number 4 (1-3)", 24, Pair(1, 3)},
    {"Number 4 (3-1)", 25, Pair(3, 1)},
    {"Hard 4 (2-2)", 13, Pair(2, 2)},
    {"Number 4 (1-3) or (3-1)", 26, Either(1, 3)},
    {"Any 4", 4, Totals(4)},
    {"Number 5 (1-4)", 27, Pair(1, 4)},
    {"Number 5 (4-1)", 28, Pair(4, 1)},
    {"Number 5 (2-3)", 29, Pair(2, 3)},
    {"Number 5 (3-2)", 30, Pair(3, 2)},
    {"Number 5 (1-4) or (4-1)", 31, Either(1, 4)},
    {"Number 5 (2-3) or (3-2)", 32, Either(2, 3)},
    {"Any 5", 5, Totals(5)},
    {"Number 6 (1-5)", 33, Pair(1, 5)},
    {"Number 6 (5-1)", 34, Pair(5, 1)},
    {"Number 6 (2-4)", 35, Pair(2, 4)},
    {"Number 6 (4-2)", 36, Pair(4, 2)},
    {"Hard 6 (3-3)", 14, Pair(3, 3)},
    {"Number 6 (1-5) or (5-1)", 37, Either(1, 5)},
    {"Number 6 (2-4) or (4-2)", 38, Either(2, 4)},
    {"Any 6", 6, Totals(6)},
    {"Number 7 (1-6)", 39, Pair(1, 6)},
    {"Number 7 (6-1)", 40, Pair(6, 1)},
    {"Number 7 (2-5)", 41, Pair(2, 5)},
    {"Number 7 (5-2)", 42, Pair(5, 2)},
    {"Number 7 (3-4)", 43, Pair(3, 4)},
    {"Number 7 (4-3)", 44, Pair(4, 3)},
    {"Number 7 (1-6) or (6-1)", 45, Either(1, 6)},
    {"Number 7 (2-5) or (5-2)", 46, Either(2, 5)},
    {"Number 7 (3-4) or (4-3)", 47, Either(3, 4)},
    {"Any 7", 7, Totals(7)},
    {"Number 8 (2-6)", 48, Pair(2, 6)},
    {"Number 8 (6-2)", 49, Pair(6, 2)},
    {"Number 8 (3-5)", 50, Pair(3, 5)},
    {"Number 8 (5-3)", 51, Pair(5, 3)},
    {"Hard 8 (4-4)", 15, Pair(4, 4)},
    {"Number 8 (2-6) or (6-2)", 52, Either(2, 6)},
    {"Number 8 (3-5) or (5-3)", 53, Either(3, 5)},
    {"Any 8", 8, Totals(8)},
    {"Number 9 (3-6)", 54, Pair(3, 6)},
    {"Number 9 (6-3)", 55, Pair(6, 3)},
    {"Number 9 (4-5)", 56, Pair(4, 5)},
    {"Number 9 (5-4)", 57, Pair(5, 4)},
    {"Number 9 (3-6) or (6-3)", 58, Either(3, 6)},
    {"Number 9 (4-5) or (5-4)", 59, Either(4, 5)},
    {"Any 9", 9, Totals(9)},
    {"Number 10 (4-6)", 60, Pair(4, 6)},
    {"Number 10 (6-4)", 61, Pair(6, 4)},
    {"Hard 10 (5-5)", 16, Pair(5, 5)},
    {"Number 10 (4-6) or (6-4)", 62, Either(4, 6)},
    {"Any 10", 10, Totals(10)},
    {"Number 11 (5-6)", 63, Pair(5, 6)},
    {"Number 11 (6-5)", 64, Pair(6, 5)},
    {"Number 11 (5-6) or (6-5)", 11, Either(5, 6)},
    {"Number 12 (6-6)", 12, Pair(6, 6)},
    {"Numbers 2,3,4,9,10,11,12", 21, Totals(2, 3, 4, 9, 10, 11, 12)},
    {"Numbers 4,5,6,8,9,10", 17, Totals(4, 5, 6, 8, 9, 10)},
    {"Numbers 2,3,7,11,12", 65, Totals(2, 3, 7, 11, 12)},
    {"Numbers 2,3,11,12", 66, Totals(2, 3, 11, 12)},
    {"Numbers 5,6,8,9", 18, Totals(5, 6, 8, 9)},
    {"Numbers 4,5,9,10", 19, Totals(4, 5, 9, 10)},
    {"Numbers 2,3,12", 20, Totals(2, 3, 12)},
    {"Numbers 4,5,6", 67, Totals(4, 5, 6)},
    {"Numbers 8,9,10", 68, Totals(8, 9, 10)},
    {"Numbers 2,12", 69, Totals(2, 12)},
    {"Numbers 3,11", 70, Totals(3, 11)},
    {"Numbers 4,10", 71, Totals(4, 10)},
    {"Numbers 5,9", 72, Totals(5, 9)},
    {"Numbers 6,8", 73, Totals(6, 8)},
    {"Numbers 2,3", 74, Totals(2, 3)},
    {"Numbers 3,12", 75, Totals(3, 12)},
    {"Numbers 7,11", 76, Totals(7, 11)},
    {"Numbers 11,12", 77, Totals(11, 12)},
    {"Die 1, face 1", 78, Face(1, 1)},
    {"Die 1, face 2", 79, Face(1, 2)},
    {"Die 1, face 3", 80, Face(1, 3)},
    {"Die 1, face 4", 81, Face(1, 4)},
    {"Die 1, face 5", 82, Face(1, 5)},
    {"Die 1, face 6", 83, Face(1, 6)},
    {"Die 2, face 1", 84, Face(2, 1)},
    {"Die 2, face 2", 85, Face(2, 2)},
    {"Die 2, face 3", 86, Face(2, 3)},
    {"Die 2, face 4", 87, Face(2, 4)},
    {"Die 2, face 5", 88, Face(2, 5)},
    {"Die 2, face 6", 89, Face(2, 6)},
}};
// clang-format on

bool Happens(const DiceOfEvent& dice, int die1, int die2) {
  switch (dice.kind) {
    case DiceOfEvent::OrderedPair:
      return die1 == dice.a && die2 == dice.b;
    case DiceOfEvent::EitherOrder:
      return (die1 == dice.a && die2 == dice.b) || (die1 == dice.b && die2 == dice.a);
    case DiceOfEvent::OneFace:
      return (dice.a == 1 ? die1 : die2) == dice.b;
    case DiceOfEvent::AnyOfTotals:
      return (dice.totals >> (die1 + die2) & 1) != 0;
  }
  return false;
}

std::int32_t PairWeight(const MatrixTable& matrix, int die1, int die2) {
  const auto cell = std::ranges::find_if(kPairCells, [&](const MatrixCell& c) {
    const MatrixPair pair = PairOfCell(static_cast<std::int32_t>(c.row), static_cast<std::int32_t>(c.column));
    return pair.die1 == die1 && pair.die2 == die2;
  });
  return matrix[MatrixValues][cell->row][cell->column];
}

// In parts of 100,000.
std::int32_t Weight(const MatrixTable& matrix, const DiceOfEvent& dice) {
  constexpr std::size_t kTotalsRow = 1, kFirstDieColumn = 12;
  switch (dice.kind) {
    case DiceOfEvent::OrderedPair:
      return PairWeight(matrix, dice.a, dice.b);
    case DiceOfEvent::EitherOrder:
      return PairWeight(matrix, dice.a, dice.b) + PairWeight(matrix, dice.b, dice.a);
    case DiceOfEvent::OneFace:
      return matrix[MatrixValues][static_cast<std::size_t>(dice.b) + 1]
                   [kFirstDieColumn + static_cast<std::size_t>(dice.a) - 1];
    case DiceOfEvent::AnyOfTotals:
      break;
  }
  std::int32_t weight = 0;
  for (std::size_t total = 2; total <= 12; ++total) {
    if ((dice.totals >> total & 1) != 0) weight += matrix[MatrixValues][kTotalsRow][total - 1];
  }
  return weight;
}

}  // namespace

std::span<const RollEventItem> RollEventList() {
  return kItems;
}

const RollEventItem& ItemOfEvent(RollEvent event) {
  return *std::ranges::find(kItems, event, &RollEventItem::event);
}

RollEvent EventOfPair(int die1, int die2, bool eitherOrder) {
  const DiceOfEvent dice = eitherOrder && die1 != die2 ? Either(die1, die2) : Pair(die1, die2);
  return std::ranges::find(kItems, dice, &RollEventItem::dice)->event;
}

double TruePercent(const DiceOfEvent& dice) {
  int ways = 0;
  for (int die1 = 1; die1 <= 6; ++die1) {
    for (int die2 = 1; die2 <= 6; ++die2) ways += Happens(dice, die1, die2) ? 1 : 0;
  }
  return ways * 100.0 / 36;
}

double SkewedPercent(const MatrixTable& matrix, const DiceOfEvent& dice) {
  return Weight(matrix, dice) / 1000.0;
}

double ActualPercent(const StatisticsTables& g, RollEvent event) {
  return g.RollCount() > 0 ? g.RollEventCount[event] * 100.0 / g.RollCount() : 0;
}

}  // namespace rollwick
