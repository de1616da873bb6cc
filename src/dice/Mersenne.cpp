// The Mersenne Twister MT19937 behind RNG #1 and RNG #2: seeding, and the recurrence a block of 624 words at
// a time. Draw by draw it is inline in Generators.h.
#include <algorithm>

#include "dice/Generators.h"

namespace rollwick {

namespace {

constexpr std::size_t kWords = 624;
constexpr std::size_t kMiddle = 397;
constexpr std::uint32_t kUnseeded = 5489;

// The upper bit of one word with the rest of the next, multiplied by the twister's matrix.
constexpr std::uint32_t Twist(std::uint32_t word, std::uint32_t following) {
  const std::uint32_t mixed = (word & 0x80000000U) | (following & 0x7fffffffU);
  return mixed >> 1 ^ ((0U - (following & 1U)) & 0x9908b0dfU);
}

}  // namespace

void SeedMersenne(MersenneState& state, std::uint32_t seed) {
  std::uint32_t word = seed;
  for (std::uint32_t i = 0; i < kWords; ++i) {
    if (i > 0) word = 1812433253U * (word ^ word >> 30) + i;
    state.words[i] = word;
  }
  state.next = kWords;
}

void SeedSecondMersenne(MersenneState& state, std::uint32_t seed) {
  std::uint32_t word = seed | 1U;
  for (std::uint32_t& entry : state.words) {
    entry = word;
    word *= 69069U;
  }
  state.next = kWords;
}

void RefillMersenne(MersenneState& state) {
  auto& words = state.words;
  // All zero is the one state that would stay so for ever; no seed leads to it.
  if (std::ranges::all_of(words, [](std::uint32_t word) { return word == 0; }))
    SeedMersenne(state, kUnseeded);
  std::uint32_t* const block = words.data();
  // Two loops without a branch, so that the compiler can do several words at a time.
  for (std::size_t i = 0; i < kWords - kMiddle; ++i)
    block[i] = block[i + kMiddle] ^ Twist(block[i], block[i + 1]);
  for (std::size_t i = kWords - kMiddle; i < kWords - 1; ++i)
    block[i] = block[i + kMiddle - kWords] ^ Twist(block[i], block[i + 1]);
  block[kWords - 1] = block[kMiddle - 1] ^ Twist(block[kWords - 1], block[0]);
  state.next = 0;
}

}  // namespace rollwick
