// Crooked dice: which value draws which pair.
#include "dice/Matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

std::int32_t& Cell(Game& g, std::size_t row, std::size_t column) {
  return g.ProbabilityMatrix[MatrixValues][row][column];
}

// Every pair without weight.
void ClearPairs(Game& g) {
  for (const auto [row, column] : kPairCells) Cell(g, row, column) = 0;
}

using DicePair = std::pair<std::int32_t, std::int32_t>;

DicePair Pick(Game& g, std::int32_t value) {
  PickPairFromMatrix(g, value);
  return {g.Die1, g.Die2};
}

TEST(Matrix, TheDiamondHoldsEveryPairInItsTotalsColumn) {
  std::set<DicePair> pairs;
  for (std::int32_t row = 2; row <= 7; ++row) {
    for (std::int32_t column = row - 1; column <= 13 - row; ++column) {
      const MatrixPair pair = PairOfCell(row, column);
      EXPECT_EQ(pair.die1 + pair.die2, column + 1) << row << "," << column;
      EXPECT_TRUE(pair.die1 >= 1 && pair.die1 <= 6 && pair.die2 >= 1 && pair.die2 <= 6);
      pairs.insert({pair.die1, pair.die2});
    }
  }
  EXPECT_EQ(pairs.size(), 36U);
}

TEST(Matrix, WhichPairAValueDraws) {
  const struct Row {
    const char* name;
    std::int32_t value;
    DicePair pair;
  } kRows[] = {
      {"the first", 1, {1, 1}},
      {"the first cell's last", 2'778, {1, 1}},
      {"the second cell's first", 2'779, {1, 2}},
      {"row 2 beyond the seven", 6 * 2'778 + 1, {2, 6}},
      {"the end of row 2", 11 * 2'778, {6, 6}},
      {"the start of row 3", 11 * 2'778 + 1, {2, 1}},
      {"the last", 100'000, {6, 1}},
      {"one above, as two generators draw it", 100'001, {6, 1}},
  };
  for (const Row& row : kRows) {
    TestTable t;
    EXPECT_EQ(Pick(t.g, row.value), row.pair) << row.name;
  }
}

TEST(Matrix, AValueOfNoPairIsDrawnAgainFromThePlainSource) {
  TestTable t;
  ClearPairs(t.g);
  Cell(t.g, 2, 1) = 25'000;  // 1-1
  Cell(t.g, 7, 6) = 25'000;  // 6-1
  EXPECT_EQ(Pick(t.g, 25'000), DicePair(1, 1));
  EXPECT_EQ(Pick(t.g, 25'001), DicePair(6, 1));
  EXPECT_EQ(t.g.PlainRandomState, 0U) << "no retry so far";
  const auto dice = t.g.Mersenne.next;
  std::map<DicePair, int> count;
  for (int draw = 0; draw < 10'000; ++draw) ++count[Pick(t.g, 50'001)];
  EXPECT_EQ(t.g.Mersenne.next, dice);
  EXPECT_EQ(count.size(), 2U);
  const int aces = count[DicePair(1, 1)];
  EXPECT_NEAR(aces, 5'000, 250);  // five standard deviations
}

TEST(Matrix, TheDefaultIsTrueDiceRounded) {
  TestTable t;
  for (std::int32_t total = 2; total <= 12; ++total) {
    const double ways = 6 - std::abs(7 - total);
    EXPECT_EQ(Cell(t.g, 1, static_cast<std::size_t>(total - 1)), std::lround(ways * 100'000 / 36)) << total;
  }
  for (std::size_t row = 2; row <= 7; ++row) {
    EXPECT_EQ(Cell(t.g, row, 12), 16'667);
    EXPECT_EQ(Cell(t.g, row, 13), 16'667);
  }
}

}  // namespace
}  // namespace rollwick
