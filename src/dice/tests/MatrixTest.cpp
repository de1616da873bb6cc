// Crooked dice: which value draws which pair, and which probability files are taken.
#include "dice/Matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <set>

#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

std::int32_t& Cell(Game& g, std::size_t row, std::size_t column) {
  return g.ProbabilityMatrix[MatrixValues][row][column];
}

// Every pair without weight.
void ClearPairs(Game& g) {
  for (std::size_t row = 2; row <= 7; ++row) {
    for (std::size_t column = row - 1; column <= 13 - row; ++column) Cell(g, row, column) = 0;
  }
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

std::string FileOf(const MatrixTable& matrix) {
  std::string bytes = "Rollwick Probability File, Data Format 4.6";
  bytes.resize(256, ' ');
  for (const auto& field : matrix) {
    for (const auto& row : field) {
      for (const std::int32_t cell : row) {
        for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(cell >> shift & 0xFF);
      }
    }
  }
  bytes.resize(1280);
  return bytes;
}

struct PrbTable : TestTable {
  TemporaryFolder folder;
  std::string Load(const std::string& bytes) {
    std::ofstream(folder / "mine.prb", std::ios::binary) << bytes;
    const auto refusal = LoadProbabilityFile(g, folder / "mine.prb");
    if (!refusal) return {};
    EXPECT_EQ(refusal->title, "Unable to Open Rollwick Probability File");
    return refusal->text;
  }
};

TEST(ProbabilityFile, EveryCellComesToItsPlaceWithinItsRange) {
  MatrixTable matrix{};
  std::int32_t next = 1;
  for (auto& row : matrix[MatrixValues]) {
    for (std::int32_t& cell : row) cell = 300 * next++;
  }
  const struct Row {
    std::int32_t stateInFile, state, valueInFile, value;
  } kRows[] = {
      {-1, -1, -1, 0},         {0, 0, 0, 0},     {135, 135, 100'000, 100'000},
      {128, 128, 500, 500},    {5, 5, 2, 2},     {8, 0, 100'001, 100'000},
      {-2, 0, -500, 0},        {256, 0, 77, 77}, {-2'147'483'647, 0, 2'147'483'647, 100'000},
      {64, 0, 65'536, 65'536},
  };
  MatrixTable expected = matrix;
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    matrix[MatrixStates][7][i] = kRows[i].stateInFile;
    expected[MatrixStates][7][i] = kRows[i].state;
    matrix[MatrixValues][0][i] = kRows[i].valueInFile;
    expected[MatrixValues][0][i] = kRows[i].value;
  }
  PrbTable t;
  ASSERT_EQ(t.Load(FileOf(matrix)), "");
  EXPECT_EQ(t.g.ProbabilityMatrix, expected);
  EXPECT_EQ(t.g.ProbabilityName, "mine.prb");
  EXPECT_FALSE(t.g.UseProbabilityMatrix);
}

TEST(ProbabilityFile, WhatIsRefusedChangesNothing) {
  const std::string good = FileOf(DefaultProbabilityMatrix());
  const auto with = [&](std::size_t place, const std::string& text) {
    return std::string(good).replace(place, text.size(), text);
  };
  MatrixTable noPair = DefaultProbabilityMatrix();
  for (std::size_t row = 2; row <= 7; ++row) {
    for (std::size_t column = row - 1; column <= 13 - row; ++column) {
      noPair[MatrixValues][row][column] = row == 5 ? -7 : 0;
    }
  }
  const struct Row {
    const char* name;
    std::string bytes;
    bool taken;
  } kRows[] = {
      {"a good one", good, true},
      {"all values and not a byte more", good.substr(0, 1152), true},
      {"the signature with blanks in front, NULs behind",
       " Rollwick Probability File, Data Format 4.6" + std::string(213, '\0') + good.substr(256), true},
      {"a byte short", good.substr(0, 1151), false},
      {"a header alone", good.substr(0, 256), false},
      {"nothing", "", false},
      {"another format", with(40, "5"), false},
      {"more behind the signature", with(43, "x"), false},
      {"no pair with any weight", FileOf(noPair), false},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    PrbTable t;
    t.g.ProbabilityMatrix[MatrixValues][2][1] = 4'711;
    const MatrixTable before = t.g.ProbabilityMatrix;
    EXPECT_EQ(t.Load(row.bytes),
              row.taken ? ""
                        : "mine.prb\ris either from an older version, has been corrupted, or is not a true "
                          "Rollwick Probability File.");
    EXPECT_EQ(t.g.ProbabilityMatrix == before, !row.taken);
    EXPECT_EQ(t.g.ProbabilityName, row.taken ? "mine.prb" : "");
  }
  PrbTable t;
  EXPECT_EQ(LoadProbabilityFile(t.g, t.folder / "missing.prb")->text, "No such file or directory, Error #2");
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
