// The base sources of random numbers. Each keeps its state in DiceTables and nowhere else.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// MT19937 (Matsumoto and Nishimura, 1998), seeded as its reference init_genrand, drawn a block of 624 words at a time.
void SeedMersenne(MersenneState& state, std::uint32_t seed);
std::uint32_t NextWord(MersenneState& state);
// A word over 2^32, in [0, 1).
double NextUniform(MersenneState& state);

// ran1 and ran2 of Numerical Recipes, first edition, with their tables and results in single precision. A negative
// idum, or the first call ever, initialises; every call steps once and returns a value. Ran1 sets idum to 1 after an
// initialisation, Ran2 leaves it. The caller has made sure that a seeding does not overflow (RanSeedLimit).
float Ran1(Game& g, std::int32_t& idum);
float Ran2(Game& g, std::int32_t& idum);
inline constexpr std::int32_t kRan1LargestSeed = 2'147'428'874;
inline constexpr std::int32_t kRan2LargestSeed = 2'147'332'758;

// The congruential generator on CurrentSeed, 1..range. Where the step overflows 32 bits CurrentSeed is divided by 100,
// ties to even, and tried again.
std::int32_t SeededRandomInt(DiceTables& g, std::int32_t range);

}  // namespace rollwick
