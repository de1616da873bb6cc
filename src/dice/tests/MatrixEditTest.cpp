// What is typed into the matrix, and what becomes of the other cells and of the dice.
#include "dice/MatrixEdit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>

#include "dice/Matrix.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

std::int32_t Value(const Game& g, std::size_t row, std::size_t column) {
  return g.ProbabilityMatrix[MatrixValues][row][column];
}
std::int32_t State(const Game& g, std::size_t row, std::size_t column) {
  return g.ProbabilityMatrix[MatrixStates][row][column];
}

struct Entry {
  std::int32_t row, column;
  double number;
};
struct Expected {
  std::size_t row, column;
  std::int32_t value, state;
};

TEST(MatrixEdit, WhatAnEntryMakesOfTheMatrix) {
  const struct Row {
    const char* name;
    std::int32_t mode;
    double outOf;
    std::vector<Entry> entries;
    std::vector<Expected> cells;
    const char* label = "Free Form Dice";
  } kRows[] = {
      // clang-format off
      {"a pair in percent, sums of all kinds", DisplayPercent, 36, {{2, 1, 10}}, {{2, 1, 10'000, 128},
       {3, 2, 2'571, 0}, {1, 1, 10'000, 0}, {1, 6, 15'426, 0}, {2, 12, 22'855, 0}, {2, 13, 22'855, 0},
       {7, 12, 15'426, 0}}},
      {"a total in percent", DisplayPercent, 36, {{1, 6, 40}}, {{2, 6, 6'667, 4}, {7, 6, 6'667, 4},
       {1, 6, 40'002, 128}, {2, 1, 2'000, 0}, {2, 12, 16'667, 0}}},
      {"a pair more than true percent", DisplayPercentFromTrue, 36, {{2, 1, 1}}, {{2, 1, 3'778, 128},
       {4, 4, 2'749, 0}}},
      {"a total less than true percent, shares at a tie", DisplayPercentFromTrue, 36, {{1, 6, -2}},
       {{4, 6, 2'444, 4}, {1, 6, 14'664, 128}, {2, 1, 2'845, 0}}},
      {"a pair of rolls", DisplayRolls, 36, {{2, 1, 2}}, {{2, 1, 5'556, 128}}},
      {"a total of a hundred rolls", DisplayRolls, 100, {{1, 11, 5}}, {{2, 11, 5'000, 4},
       {1, 11, 5'000, 128}}},
      {"a pair less than true rolls", DisplayRollsFromTrue, 36, {{2, 11, -.5}}, {{2, 11, 1'389, 128}}},
      {"below nothing", DisplayPercentFromTrue, 36, {{2, 1, -3}}, {{2, 1, 0, 128}, {2, 2, 2'857, 0}}},
      {"more than the whole", DisplayPercent, 36, {{2, 1, 150}}, {{2, 1, 100'000, 128}, {2, 2, 0, 0}}},
      {"the whole to one total, its shares rounded up", DisplayPercent, 36, {{1, 6, 100}}, {{3, 6, 16'667, 4},
       {1, 6, 100'002, 128}, {2, 1, 0, 0}}},
      {"a total around an entered pair", DisplayPercent, 36, {{2, 6, 10}, {1, 6, 40}}, {{2, 6, 10'000, 132},
       {3, 6, 6'000, 4}, {1, 6, 40'000, 128}, {2, 1, 2'000, 0}}},
      {"an entered pair inside a total", DisplayPercent, 36, {{1, 6, 40}, {2, 6, 10}}, {{2, 6, 10'000, 132},
       {3, 6, 6'000, 4}, {1, 6, 40'000, 128}}},
      {"a total below its entered pair", DisplayPercent, 36, {{2, 6, 30}, {1, 6, 10}}, {{2, 6, 30'000, 132},
       {3, 6, 0, 4}, {1, 6, 30'000, 128}, {2, 1, 2'333, 0}}},
      {"two pairs of more than the whole", DisplayPercent, 36, {{2, 1, 60}, {2, 2, 60}}, {{2, 1, 60'000, 128},
       {2, 2, 40'000, 128}, {2, 3, 0, 0}}},
      {"two totals of more than the whole", DisplayPercent, 36, {{1, 1, 70}, {1, 2, 70}}, {{2, 1, 70'000, 4},
       {2, 2, 15'000, 4}, {1, 2, 30'000, 128}, {2, 3, 0, 0}}},
      {"a face", DisplayPercent, 36, {{7, 12, 50}}, {{7, 12, 50'000, 128}, {2, 12, 10'000, 0},
       {2, 11, 8'334, -1}, {2, 1, 1'667, -1}, {1, 6, 16'669, 0}, {2, 13, 16'667, 0}}, "Percentage Dice"},
      {"a face of each die", DisplayPercent, 36, {{2, 12, 0}, {2, 13, 100}}, {{2, 1, 0, -1},
       {3, 2, 20'000, -1}, {7, 6, 20'000, -1}, {2, 2, 0, -1}, {1, 2, 20'000, 0}, {3, 13, 0, 0}},
       "Percentage Dice"},
      {"two faces of a die", DisplayPercent, 36, {{2, 12, 30}, {3, 12, 30}}, {{2, 12, 30'000, 128},
       {4, 12, 10'000, 0}}, "Percentage Dice"},
      {"a face more than true percent", DisplayPercentFromTrue, 36, {{4, 13, 5}}, {{4, 13, 21'667, 128},
       {2, 13, 15'667, 0}}, "Percentage Dice"},
      {"a face of rolls", DisplayRolls, 36, {{4, 13, 9}}, {{4, 13, 25'000, 128}, {2, 13, 15'000, 0}},
       "Percentage Dice"},
      {"two faces of more than the whole", DisplayPercent, 36, {{2, 12, 70}, {3, 12, 70}},
       {{3, 12, 30'000, 128}, {4, 12, 0, 0}}, "Percentage Dice"},
      {"a pair after a face, whose pairs stay", DisplayPercent, 36, {{2, 12, 10}, {2, 11, 20}},
       {{2, 1, 1'667, 1}, {2, 6, 1'667, 1}, {2, 11, 20'000, 128}, {3, 2, 2'414, 0}, {2, 12, 10'002, 128},
       {7, 12, 32'070, 0}}},
      {"a pair after a face of each die", DisplayPercent, 36, {{2, 12, 10}, {3, 13, 10}, {2, 11, 20}},
       {{2, 2, 1'000, 3}, {3, 3, 1'800, 2}, {2, 1, 1'800, 1}}},
      {"a face after a total, which is no entry any more", DisplayPercent, 36, {{1, 6, 40}, {2, 12, 10}},
       {{1, 6, 16'667, 0}, {2, 6, 1'667, -1}}, "Percentage Dice"},
      // clang-format on
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    t.g.ProbabilityDisplayMode = row.mode;
    ASSERT_TRUE(SetProbabilityRollsOutOf(t.g, row.outOf));
    for (const Entry& entry : row.entries) {
      EXPECT_TRUE(EnterMatrixCell(t.g, entry.row, entry.column, entry.number));
    }
    for (const Expected& cell : row.cells) {
      EXPECT_EQ(Value(t.g, cell.row, cell.column), cell.value) << cell.row << "," << cell.column;
      EXPECT_EQ(State(t.g, cell.row, cell.column), cell.state) << cell.row << "," << cell.column;
    }
    EXPECT_EQ(ProbabilityKindLabel(t.g), row.label);
    EXPECT_TRUE(t.g.ProbabilityDirty);
  }
}

TEST(MatrixEdit, WhatIsRefusedChangesNothing) {
  TestTable t;
  for (const MatrixCell cell : kPairCells) {
    if (cell.row == 7) continue;
    ASSERT_TRUE(
        EnterMatrixCell(t.g, static_cast<std::int32_t>(cell.row), static_cast<std::int32_t>(cell.column), 0));
  }
  ASSERT_EQ(Value(t.g, 7, 6), 100'000);
  t.g.ProbabilityDirty = false;
  const MatrixTable before = t.g.ProbabilityMatrix;
  const double kInfinity = std::numeric_limits<double>::infinity();
  const struct Row {
    const char* name;
    Entry entry;
  } kRows[] = {
      {"the last pair to nothing", {7, 6, 0}},
      {"its total to nothing, around nothing entered", {1, 6, 0}},
      {"left of the diamond", {4, 2, 5}},
      {"right of the diamond", {4, 10, 5}},
      {"no total", {1, 12, 5}},
      {"no row", {0, 1, 5}},
      {"beyond all rows", {8, 12, 5}},
      {"before all columns", {2, -1, 5}},
      {"beyond all columns", {2, 14, 5}},
      {"no number", {7, 6, std::nan("")}},
      {"infinite", {7, 6, kInfinity}},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_FALSE(EnterMatrixCell(t.g, row.entry.row, row.entry.column, row.entry.number));
    EXPECT_EQ(t.g.ProbabilityMatrix, before);
    EXPECT_FALSE(t.g.ProbabilityDirty);
  }
  for (const double rolls : {0.0, -36.0, std::nan(""), kInfinity}) {
    EXPECT_FALSE(SetProbabilityRollsOutOf(t.g, rolls));
    EXPECT_EQ(t.g.ProbabilityRollsOutOf, 36);
  }
}

TEST(MatrixEdit, DiceThrownAboutAnAxis) {
  const struct Row {
    const char* name;
    std::int32_t die;
    DieAxis axis;
    std::int32_t effectiveness;
    std::array<std::int32_t, 6> faces;
  } kRows[] = {
      {"no effect", 1, DieAxis::OneSix, 0, {16'667, 16'666, 16'666, 16'666, 16'666, 16'667}},
      {"half", 2, DieAxis::TwoFive, 50, {20'834, 8'333, 20'834, 20'834, 8'333, 20'834}},
      {"never", 1, DieAxis::ThreeFour, 100, {25'000, 25'000, 0, 0, 25'000, 25'000}},
      {"more than never", 2, DieAxis::OneSix, 101, {0, 25'000, 25'000, 25'000, 25'000, 0}},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    const std::size_t column = row.die == 1 ? 12 : 13;
    EnterMatrixCell(t.g, 4, static_cast<std::int32_t>(column), 30);  // lets go: the axis says all six faces
    ASSERT_TRUE(ComputeAboutAxis(t.g, row.die, row.axis, row.effectiveness));
    for (std::size_t face = 0; face < 6; ++face) {
      const bool isOnAxis =
          face == static_cast<std::size_t>(row.axis) || face == 5 - static_cast<std::size_t>(row.axis);
      EXPECT_EQ(Value(t.g, face + 2, column), row.faces[face]) << face + 1;
      EXPECT_EQ(State(t.g, face + 2, column), isOnAxis ? 128 : 0) << face + 1;
      EXPECT_EQ(Value(t.g, face + 2, 25 - column), 16'667) << "the other die";
    }
    EXPECT_EQ(ProbabilityKindLabel(t.g), "Percentage Dice");
    EXPECT_TRUE(t.g.ProbabilityDirty);
  }
  TestTable t;
  ComputeAboutAxis(t.g, 1, DieAxis::OneSix, 100);
  ComputeAboutAxis(t.g, 2, DieAxis::OneSix, 100);
  EXPECT_EQ(Value(t.g, 3, 3), 6'250) << "2-2";
  EXPECT_EQ(Value(t.g, 1, 6), 4 * 6'250) << "a seven only as 2-5 and 3-4";
  EXPECT_EQ(Value(t.g, 1, 1), 0);
}

TEST(MatrixEdit, UnlockedCellsAreFreeAgainAndANewMatrixIsEven) {
  TestTable t;
  UnlockAllCells(t.g);
  EXPECT_FALSE(t.g.ProbabilityDirty) << "nothing was locked";
  EnterMatrixCell(t.g, 2, 12, 40);
  t.g.ProbabilityDirty = false;
  const auto values = t.g.ProbabilityMatrix[MatrixValues];
  UnlockAllCells(t.g);
  EXPECT_EQ(t.g.ProbabilityMatrix[MatrixValues], values);
  EXPECT_EQ(t.g.ProbabilityMatrix[MatrixStates], MatrixTable::value_type{});
  EXPECT_TRUE(t.g.ProbabilityDirty);
  EnterMatrixCell(t.g, 7, 6, 0);
  EXPECT_EQ(Value(t.g, 2, 1), 2'857) << "the face holds its pairs no more";

  t.g.ProbabilityName = t.g.ProbabilityPath = "mine.prb";
  NewProbabilityMatrix(t.g);
  EXPECT_TRUE(t.g.ProbabilityName.empty() && t.g.ProbabilityPath.empty());
  EXPECT_FALSE(t.g.ProbabilityDirty);
  EXPECT_EQ(t.g.ProbabilityMatrix[MatrixStates], MatrixTable::value_type{});
  for (const MatrixCell cell : kPairCells) EXPECT_EQ(Value(t.g, cell.row, cell.column), 2'778);
  EXPECT_EQ(Value(t.g, 1, 3), 8'334) << "three pairs, rounded each for itself";
  EXPECT_EQ(Value(t.g, 2, 12), 16'668);
}

TEST(MatrixEdit, ACellShowsWhatWasTyped) {
  for (const std::int32_t mode :
       {DisplayPercent, DisplayPercentFromTrue, DisplayRolls, DisplayRollsFromTrue}) {
    for (const Entry& entry : {Entry{4, 5, 1.5}, Entry{1, 4, 3.25}, Entry{5, 12, .75}, Entry{5, 13, 1}}) {
      TestTable t;
      t.g.ProbabilityDisplayMode = mode;
      SetProbabilityRollsOutOf(t.g, 50);
      EnterMatrixCell(t.g, entry.row, entry.column, entry.number);
      // Half a part of 100,000 for each pair of the cell.
      EXPECT_NEAR(ShownCellValue(t.g, entry.row, entry.column), entry.number, .003)
          << mode << " " << entry.row;
    }
  }
  TestTable t;
  t.g.ProbabilityDisplayMode = DisplayRolls;
  EXPECT_DOUBLE_EQ(ShownCellValue(t.g, 1, 6), 16'667 * 36 / 100'000.0);
  t.g.ProbabilityDisplayMode = DisplayPercentFromTrue;
  EXPECT_DOUBLE_EQ(ShownCellValue(t.g, 2, 12), (16'667 - 600'000 / 36.0) / 1000);
}

std::int32_t PairSum(const Game& g) {
  std::int32_t sum = 0;
  for (const MatrixCell cell : kPairCells) sum += Value(g, cell.row, cell.column);
  return sum;
}

// Sums that must hold after any edit: by an independent count over the faces.
void ExpectConsistent(const Game& g) {
  std::array<std::int32_t, 13> totals{};
  std::array<std::int32_t, 7> first{}, second{};
  bool hasFree = false;
  for (const MatrixCell cell : kPairCells) {
    const auto pair = PairOfCell(static_cast<std::int32_t>(cell.row), static_cast<std::int32_t>(cell.column));
    const auto die1 = static_cast<std::size_t>(pair.die1), die2 = static_cast<std::size_t>(pair.die2);
    const std::int32_t value = Value(g, cell.row, cell.column);
    ASSERT_TRUE(value >= 0 && value <= 100'000) << value;
    totals[die1 + die2] += value;
    first[die1] += value;
    second[die2] += value;
    hasFree = hasFree || State(g, cell.row, cell.column) == 0;
  }
  for (std::size_t total = 2; total <= 12; ++total) ASSERT_EQ(Value(g, 1, total - 1), totals[total]) << total;
  if (ProbabilityKindLabel(g) == "Percentage Dice") return;
  for (std::size_t face = 1; face <= 6; ++face) {
    ASSERT_EQ(Value(g, face + 1, 12), first[face]);
    ASSERT_EQ(Value(g, face + 1, 13), second[face]);
  }
  ASSERT_LE(PairSum(g), 100'000 + 36);
  if (hasFree) {
    ASSERT_GE(PairSum(g), 100'000 - 18);
  }
}

TEST(MatrixEdit, RandomEditsKeepTheSums) {
  std::mt19937 random(11);
  const auto below = [&](std::uint32_t limit) { return static_cast<std::int32_t>(random() % limit); };
  int accepted = 0, refused = 0;
  for (int game = 0; game < 40; ++game) {
    TestTable t;
    NewProbabilityMatrix(t.g);
    for (int edit = 0; edit < 100; ++edit) {
      SCOPED_TRACE(std::to_string(game) + "," + std::to_string(edit));
      t.g.ProbabilityDisplayMode = below(4);
      SetProbabilityRollsOutOf(t.g, 1 + below(100));
      const MatrixTable before = t.g.ProbabilityMatrix;
      const double number = game % 2 == 0 ? below(400) / 100.0 - 1 : below(200) - 50;
      bool isAccepted = true;
      switch (below(20)) {
        case 0:
          isAccepted = ComputeAboutAxis(t.g, 1 + below(2), static_cast<DieAxis>(below(3)), below(130));
          break;
        case 1:
          UnlockAllCells(t.g);
          continue;
        default:
          // In some games faces are left alone, so that entries of pairs and totals pile up.
          isAccepted = EnterMatrixCell(t.g, below(9), below(game % 3 == 0 ? 15 : 12), number);
      }
      ++(isAccepted ? accepted : refused);
      if (!isAccepted) {
        ASSERT_EQ(t.g.ProbabilityMatrix, before);
      }
      ASSERT_TRUE(HasWeight(t.g.ProbabilityMatrix));
      if (isAccepted) ExpectConsistent(t.g);
      if (HasFatalFailure()) return;
    }
  }
  EXPECT_GT(accepted, 1'000);
  EXPECT_GT(refused, 100);
}

TEST(MatrixEdit, DiceFallByTheirWeights) {
  const struct Row {
    const char* name;
    void (*edit)(Game& g);
  } kRows[] = {
      {"true dice", [](Game&) {}},
      {"free form",
       [](Game& g) {
         EnterMatrixCell(g, 1, 6, 40);
         EnterMatrixCell(g, 2, 1, 12.345);
       }},
      {"one pair only", [](Game& g) { EnterMatrixCell(g, 5, 5, 100); }},
      {"percentage",
       [](Game& g) {
         EnterMatrixCell(g, 3, 12, 37);
         EnterMatrixCell(g, 7, 13, 1);
       }},
      {"about the axes",
       [](Game& g) {
         ComputeAboutAxis(g, 1, DieAxis::OneSix, 83);
         ComputeAboutAxis(g, 2, DieAxis::ThreeFour, 100);
       }},
      {"little more than nothing",
       [](Game& g) {
         for (std::int32_t row = 2; row <= 7; ++row) EnterMatrixCell(g, row, 12, row);
       }},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    row.edit(t.g);
    std::array<std::array<std::int32_t, 7>, 7> count{};
    std::int32_t retries = 0;
    for (std::int32_t value = 1; value <= 100'000; ++value) {
      const std::uint64_t plain = t.g.PlainRandomState;
      PickPairFromMatrix(t.g, value);
      if (t.g.PlainRandomState != plain) {
        ++retries;
      } else {
        ++count.at(static_cast<std::size_t>(t.g.Die1)).at(static_cast<std::size_t>(t.g.Die2));
      }
    }
    // What the weights exceed the whole by, the pairs that are walked last do not get.
    std::int32_t left = 100'000;
    for (const MatrixCell cell : kPairCells) {
      const auto pair =
          PairOfCell(static_cast<std::int32_t>(cell.row), static_cast<std::int32_t>(cell.column));
      const std::int32_t weight = std::min(left, Value(t.g, cell.row, cell.column));
      left -= weight;
      EXPECT_EQ(count[static_cast<std::size_t>(pair.die1)][static_cast<std::size_t>(pair.die2)], weight)
          << pair.die1 << "-" << pair.die2;
    }
    EXPECT_EQ(retries, left);
  }
}

}  // namespace
}  // namespace rollwick
