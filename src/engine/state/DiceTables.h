// The dice sources: which generator is in force, how it is seeded, and the state of every base generator.
#pragma once

#include <array>
#include <cstdint>

#include "base/Money.h"

namespace rollwick {

// RngChoice: the index in the list of generators; the number a user sees is one higher.
enum Rng : std::int32_t {
  RngMersenne,
  RngSecondMersenne,
  RngCongruential,
  RngRan2,
  RngRan1,
  RngMersenneAndRan1,
  RngSecondMersenneAndRan2,
  RngMersenneSingleCall,
  kRngCount,
};

// Bits of MissingGenerators.
enum MissingGenerator : std::int32_t { MissingMersenne = 1, MissingSecondMersenne = 2 };

// MT19937, drawn 624 words at a time.
struct MersenneState {
  std::array<std::uint32_t, 624> words{};
  std::int32_t next = 624;  // 624: the block is used up
};

// Single precision on purpose: all values stay below 2^24 and are exact, and the table is what the screens'
// streams were always made of.
struct Ran1State {
  bool initialised = false;
  float ix1 = 0, ix2 = 0, ix3 = 0;
  std::array<float, 98> r{};  // 1..97
};

struct Ran2State {
  bool initialised = false;
  std::int32_t ix = 0, iy = 0;
  std::array<std::int32_t, 98> ir{};  // 1..97
};

enum DiceFileModes : std::int32_t { DiceFileOff, DiceFileRecording, DiceFilePlayback };

// The probability matrix: field 0 states, field 1 values (parts of 100,000); rows 0..7, columns 0..13. The
// 36 pairs are a diamond: rows 2..7, in row r the columns r - 1 to 13 - r, where column c is the total c + 1.
// Columns 12 and 13 of rows 2..7 are face r - 1 of the first and the second die. Row 1 holds the totals in
// columns 1..11.
using MatrixTable = std::array<std::array<std::array<std::int32_t, 14>, 8>, 2>;
enum MatrixField : std::size_t { MatrixStates, MatrixValues };

// ProbabilityDisplayMode: how the matrix is shown and takes entries.
enum ProbabilityDisplayModes : std::int32_t {
  DisplayPercent,
  DisplayPercentFromTrue,  // more or less than true dice have
  DisplayRolls,            // so many out of ProbabilityRollsOutOf
  DisplayRollsFromTrue,
};

// True dice, each cell rounded for itself, so that the pairs sum to 100,008; all states 0.
MatrixTable DefaultProbabilityMatrix();

struct DiceTables {
  std::int32_t RngChoice = RngMersenne;
  bool UserSeedMode = false;
  bool ReseedNewGames = true;
  std::int32_t CurrentSeed = 0;  // the last seed taken, and the running state of RNG #3
  std::int32_t LastSeed = 0;     // the last seed taken
  Money SeedRequest;
  std::int32_t MissingGenerators = 0;
  bool SeedPromptOpen = false;

  bool UseProbabilityMatrix = false;
  MatrixTable ProbabilityMatrix = DefaultProbabilityMatrix();
  bool ProbabilityDirty = false;       // the matrix was edited since it was last saved
  std::uint64_t PlainRandomState = 0;  // of the plain source, apart from the eight generators

  std::int32_t DiceFileMode = DiceFileOff;
  std::int32_t DiceFileRecord = 1;  // next to read or write, from 1
  std::int32_t DiceLastRecord = 0;  // last one read or written

  MersenneState Mersenne;
  MersenneState SecondMersenne;
  Ran1State Ran1Generator;
  Ran2State Ran2Generator;
};

}  // namespace rollwick
