// ran1, ran2 and the generator on CurrentSeed. Their constants are decimal literals on purpose: exact
// reciprocals would give another stream, and the die face of 7 would disappear.
#include <cmath>
#include <limits>

#include "dice/Generators.h"

namespace rollwick {

namespace {

constexpr std::int32_t kTable = 97;

// x -> (factor * x + addend) mod modulus. Every product of these generators fits 32 bits.
struct Congruence {
  std::int32_t modulus, factor, addend;
  double reciprocal = 0;  // only nearly 1 / modulus

  constexpr std::int32_t Step(std::int32_t x) const {
    return static_cast<std::int32_t>((std::int64_t{factor} * x + addend) % modulus);
  }
  float Step(float x) const { return static_cast<float>(Step(static_cast<std::int32_t>(x))); }
  // Where an initialisation starts; idum is minus the seed.
  constexpr std::int32_t Start(std::int32_t idum) const {
    return static_cast<std::int32_t>((std::int64_t{addend} - idum) % modulus);
  }
  // The table entry that x selects: 1..97 unless the state is damaged.
  constexpr std::int64_t Slot(std::int32_t x) const {
    return x < 0 ? 0 : 1 + std::int64_t{kTable} * x / modulus;
  }
};

constexpr Congruence kFirst{259200, 7141, 54773, 3.8580247e-06};
constexpr Congruence kSecond{134456, 8121, 28411, 7.4373773e-06};
constexpr Congruence kThird{243000, 4561, 51349};
constexpr Congruence kOnly{714025, 1366, 150889, 1.4005112e-06};

float Refill(const Ran1State& state) {
  return static_cast<float>((state.ix1 + state.ix2 * kSecond.reciprocal) * kFirst.reciprocal);
}

void Initialise(Ran1State& state, std::int32_t idum) {
  const std::int32_t start = kFirst.Step(kFirst.Start(idum));
  state.ix1 = static_cast<float>(start);
  state.ix2 = static_cast<float>(start % kSecond.modulus);
  state.ix1 = kFirst.Step(state.ix1);
  state.ix3 = static_cast<float>(static_cast<std::int32_t>(state.ix1) % kThird.modulus);
  for (std::size_t slot = 1; slot <= kTable; ++slot) {
    state.ix1 = kFirst.Step(state.ix1);
    state.ix2 = kSecond.Step(state.ix2);
    state.r[slot] = Refill(state);
  }
  state.initialised = true;
}

void Initialise(Ran2State& state, std::int32_t idum) {
  state.ix = kOnly.Start(idum);
  for (std::size_t slot = 1; slot <= kTable; ++slot) state.ir[slot] = state.ix = kOnly.Step(state.ix);
  state.iy = state.ix = kOnly.Step(state.ix);
  state.initialised = true;
}

}  // namespace

float Ran1(Game& g, std::int32_t& idum) {
  Ran1State& state = g.Ran1Generator;
  if (idum < 0 || !state.initialised) {
    Initialise(state, idum);
    idum = 1;
  }
  state.ix1 = kFirst.Step(state.ix1);
  state.ix2 = kSecond.Step(state.ix2);
  state.ix3 = kThird.Step(state.ix3);
  const std::int64_t slot = kThird.Slot(static_cast<std::int32_t>(state.ix3));
  if (slot < 1 || slot > kTable) {
    g.LastErrorText = "An error occurred in function Ran1\r";
    return 0;
  }
  float& entry = state.r[static_cast<std::size_t>(slot)];
  const float value = entry;
  entry = Refill(state);
  return value;
}

float Ran2(Game& g, std::int32_t& idum) {
  Ran2State& state = g.Ran2Generator;
  if (idum < 0 || !state.initialised) Initialise(state, idum);
  const std::int64_t slot = kOnly.Slot(state.iy);
  if (slot < 1 || slot > kTable) {
    g.LastErrorText = "An error occurred in function Ran2\r";
    return 0;
  }
  std::int32_t& entry = state.ir[static_cast<std::size_t>(slot)];
  state.iy = entry;
  state.ix = kOnly.Step(state.ix);
  entry = state.ix;
  return static_cast<float>(state.iy * kOnly.reciprocal);
}

std::int32_t SeededRandomInt(DiceTables& g, std::int32_t range) {
  using Limits = std::numeric_limits<std::int32_t>;
  std::int64_t product = 0, sum = 0;
  for (;;) {
    product = std::int64_t{g.CurrentSeed} * kOnly.factor;
    sum = product + kOnly.addend;
    if (product >= Limits::min() && sum <= Limits::max()) break;
    g.CurrentSeed = static_cast<std::int32_t>(std::nearbyint(g.CurrentSeed / 100.0));
  }
  std::int32_t seed = static_cast<std::int32_t>(sum % kOnly.modulus);
  if (seed < 0)
    seed += kOnly.modulus;  // a negative CurrentSeed comes only from a file; no face may be below 1
  g.CurrentSeed = seed;
  return static_cast<std::int32_t>(std::int64_t{range} * seed / kOnly.modulus) + 1;
}

}  // namespace rollwick
