// The base sources of random numbers. Each keeps its state in DiceTables and nowhere else.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// MT19937 (Matsumoto and Nishimura, 1998), seeded as its reference init_genrand.
void SeedMersenne(MersenneState& state, std::uint32_t seed);

// The seeding of the twister behind RNG #2: the multiples of an odd seed by powers of 69069, so that an even
// seed and the odd one above it give the same stream.
void SeedSecondMersenne(MersenneState& state, std::uint32_t seed);

// Makes the next 624 words of the state. A state that was never seeded starts as if seeded with 5489.
void RefillMersenne(MersenneState& state);

inline std::int32_t WordsLeft(const MersenneState& state) {
  return static_cast<std::int32_t>(state.words.size()) - state.next;
}

// The next 32 random bits of a block that has some left.
inline std::uint32_t NextWordOfBlock(MersenneState& state) {
  std::uint32_t word = state.words[static_cast<std::size_t>(state.next++)];
  word ^= word >> 11;
  word ^= word << 7 & 0x9d2c5680U;
  word ^= word << 15 & 0xefc60000U;
  return word ^ word >> 18;
}

// The next 32 random bits.
inline std::uint32_t NextWord(MersenneState& state) {
  if (WordsLeft(state) <= 0) RefillMersenne(state);
  return NextWordOfBlock(state);
}

// floor(u * range), exactly, with u the word over 2^32: 0..range - 1.
inline std::int32_t WordBelow(std::uint32_t word, std::uint32_t range) {
  return static_cast<std::int32_t>(std::uint64_t{word} * range >> 32);
}
inline std::int32_t NextBelow(MersenneState& state, std::uint32_t range) {
  return WordBelow(NextWord(state), range);
}

// ran1 and ran2 of Numerical Recipes, first edition, with their tables and results in single precision. A
// negative idum, or the first call ever, initialises; every call steps once and returns a value. Ran1 sets
// idum to 1 after an initialisation, Ran2 leaves it. The caller sees to it that idum is not below minus the
// largest seed.
float Ran1(Game& g, std::int32_t& idum);
float Ran2(Game& g, std::int32_t& idum);

// Above these the first congruential step of an initialisation overflows 32 bits.
inline constexpr std::int32_t kRan1LargestSeed = 2'147'428'874;
inline constexpr std::int32_t kRan2LargestSeed = 2'147'332'758;

// The congruential generator on CurrentSeed, 1..range. Where the step overflows 32 bits CurrentSeed is
// divided by 100, ties to even, and tried again.
std::int32_t SeededRandomInt(DiceTables& g, std::int32_t range);

// The plain source (splitmix64 on PlainRandomState), 0..range - 1: for what is no dice of the table.
inline std::int32_t PlainRandomBelow(DiceTables& g, std::uint32_t range) {
  std::uint64_t word = g.PlainRandomState += 0x9e3779b97f4a7c15;
  word = (word ^ word >> 30) * 0xbf58476d1ce4e5b9;
  word = (word ^ word >> 27) * 0x94d049bb133111eb;
  word ^= word >> 31;
  return static_cast<std::int32_t>((word >> 32) * range >> 32);
}

}  // namespace rollwick
