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

struct DiceTables {
  std::int32_t RngChoice = RngMersenne;
  bool UserSeedMode = false;
  bool ReseedNewGames = true;
  std::int32_t CurrentSeed = 0;  // the last seed taken, and the running state of RNG #3
  std::int32_t LastSeed = 0;     // the last seed taken
  Money SeedRequest;
  std::int32_t MissingGenerators = 0;
  bool SeedPromptOpen = false;

  MersenneState Mersenne;
  MersenneState SecondMersenne;
  Ran1State Ran1Generator;
  Ran2State Ran2Generator;
};

}  // namespace rollwick
