// Probability files: which are taken, what they bring, and what is written.
#include "dice/ProbabilityFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "dice/Matrix.h"
#include "dice/MatrixEdit.h"
#include "support/DamagedFile.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

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
  RewrittenFile file{folder / "mine.prb"};
  std::string Load(const std::string& bytes) {
    file.Put(bytes);
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
  for (const auto [row, column] : kPairCells) noPair[MatrixValues][row][column] = row == 5 ? -7 : 0;
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

std::string WholeFile(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

TEST(ProbabilityFile, WhatIsWrittenByteForByte) {
  PrbTable t;
  EnterMatrixCell(t.g, 7, 13, 25);
  ASSERT_TRUE(t.g.ProbabilityDirty);
  t.g.ProbabilityName = "old.prb";
  EXPECT_EQ(SaveProbabilityFile(t.g, "/nowhere/at/all.prb"), "No such file or directory, Error #2");
  EXPECT_TRUE(t.g.ProbabilityDirty);
  EXPECT_EQ(t.g.ProbabilityName, "old.prb");

  const auto path = t.folder / "mine.prb";
  ASSERT_EQ(SaveProbabilityFile(t.g, path), "");
  std::string expected = FileOf(t.g.ProbabilityMatrix);
  // Reserved and unused fields of the header.
  for (const auto& [place, size] : {std::pair(92, 8), std::pair(200, 8), std::pair(248, 8)}) {
    for (int i = 0; i < size; ++i) expected[static_cast<std::size_t>(place + i)] = '\0';
  }
  EXPECT_EQ(WholeFile(path), expected);
  EXPECT_FALSE(t.g.ProbabilityDirty);
  EXPECT_EQ(t.g.ProbabilityName, "mine.prb");
  EXPECT_EQ(t.g.ProbabilityPath, path.string());

  TestTable other;
  other.g.ProbabilityDirty = true;
  ASSERT_FALSE(LoadProbabilityFile(other.g, path));
  EXPECT_EQ(other.g.ProbabilityMatrix, t.g.ProbabilityMatrix);
  EXPECT_EQ(ProbabilityKindLabel(other.g), "Percentage Dice");
  EXPECT_FALSE(other.g.ProbabilityDirty);
  EXPECT_EQ(other.g.ProbabilityPath, path.string());
}

// Whatever was accepted can be thrown, edited and saved.
void ExpectSound(const Game& g) {
  EXPECT_TRUE(HasWeight(g.ProbabilityMatrix));
  for (const auto& row : g.ProbabilityMatrix[MatrixValues]) {
    for (const std::int32_t value : row) EXPECT_TRUE(value >= 0 && value <= 100'000) << value;
  }
  for (const auto& row : g.ProbabilityMatrix[MatrixStates]) {
    for (const std::int32_t state : row) EXPECT_TRUE(state >= -1 && state <= 135) << state;
  }
}

constexpr std::size_t kSignatureEnd = 92, kFirstValue = 256, kLastValueEnd = 1152;

TEST(ProbabilityFile, EveryTruncationIsTakenOrRefused) {
  PrbTable t;
  const std::string good = FileOf(t.g.ProbabilityMatrix);
  t.g.ProbabilityMatrix[MatrixValues][2][1] = 4'711;
  const MatrixTable before = t.g.ProbabilityMatrix;
  ForEachLength(good, [&](const std::string& bytes) {
    const bool isTaken = t.Load(bytes).empty();
    ASSERT_EQ(isTaken, bytes.size() >= kLastValueEnd);
    ASSERT_EQ(t.g.ProbabilityMatrix == before, !isTaken);
  });
}

TEST(ProbabilityFile, EveryChangedByteIsTakenOrRefused) {
  PrbTable t;
  EnterMatrixCell(t.g, 2, 1, 10);  // a state and values of many kinds
  const MatrixTable saved = t.g.ProbabilityMatrix;
  const MatrixTable before = DefaultProbabilityMatrix();
  const std::string good = FileOf(saved);
  ForEachChange(good, [&](const std::string& bytes, std::size_t place) {
    t.g.ProbabilityMatrix = before;
    const bool isTaken = t.Load(bytes).empty();
    // A blank and a NUL are the same.
    const bool isSame = good[place] == ' ' && bytes[place] == '\0';
    ASSERT_EQ(isTaken, place >= kSignatureEnd || isSame);
    if (!isTaken) {
      ASSERT_EQ(t.g.ProbabilityMatrix, before);
      return;
    }
    if (place < kFirstValue || place >= kLastValueEnd) {
      ASSERT_EQ(t.g.ProbabilityMatrix, saved);
    }
    ExpectSound(t.g);
  });
}

}  // namespace
}  // namespace rollwick
