// From RngChoice to two faces, or to one number for the probability matrix.
#include "dice/Draw.h"

#include <cmath>

#include "dice/Generators.h"

namespace rollwick {

namespace {

constexpr std::uint32_t kMatrixRange = 100'000;

enum class Source { Mersenne, MersenneSingleCall, SecondMersenne, Congruential, Ran1, Ran2 };

bool IsMissing(const DiceTables& g, MissingGenerator generator) {
  return (g.MissingGenerators & generator) != 0;
}

// Where this roll comes from. An RngChoice outside the list is drawn as RNG #1.
Source SourceOfRoll(const Game& g) {
  const bool odd = g.RollCount() % 2 != 0;
  switch (g.RngChoice) {
    case RngSecondMersenne:
      return Source::SecondMersenne;
    case RngCongruential:
      return Source::Congruential;
    case RngRan2:
      return Source::Ran2;
    case RngRan1:
      return Source::Ran1;
    case RngMersenneAndRan1:
      return odd ? Source::Mersenne : Source::Ran1;
    case RngSecondMersenneAndRan2:
      return odd ? Source::SecondMersenne : Source::Ran2;
    case RngMersenneSingleCall:
      return Source::MersenneSingleCall;
    default:
      return Source::Mersenne;
  }
}

[[gnu::noinline]] void DrawAcrossBlocks(Game& g, MersenneState& state) {
  g.Die1 = NextBelow(state, 6) + 1;
  g.Die2 = NextBelow(state, 6) + 1;
}

void DrawMersenne(Game& g, MersenneState& state) {
  if (WordsLeft(state) < 2) return DrawAcrossBlocks(g, state);
  g.Die1 = WordBelow(NextWordOfBlock(state), 6) + 1;
  g.Die2 = WordBelow(NextWordOfBlock(state), 6) + 1;
}

// Meant: without a clamp, so a value of exactly 1.0 from Ran1 is a face of 7.
std::int32_t Face(float value) {
  return static_cast<std::int32_t>(double{value} * 6) + 1;
}

// Meant: to nearest, ties to even, where the other generators round down; so 100,001 can come.
std::int32_t MatrixValue(float value) {
  return static_cast<std::int32_t>(std::nearbyint(double{value} * kMatrixRange)) + 1;
}

// The rarer generators, apart from the dice of most rolls.
[[gnu::noinline]] void DrawOther(Game& g, Source source) {
  std::int32_t step = 1;
  if (source == Source::MersenneSingleCall) {
    const std::int32_t pair = NextBelow(g.Mersenne, 36);
    g.Die1 = pair % 6 + 1;
    g.Die2 = pair / 6 + 1;
  } else if (source == Source::Congruential) {
    g.Die1 = SeededRandomInt(g, 6);
    g.Die2 = SeededRandomInt(g, 6);
  } else {
    const auto next = source == Source::Ran1 ? Ran1 : Ran2;
    g.Die1 = Face(next(g, step));
    g.Die2 = Face(next(g, step));
  }
}

}  // namespace

void DrawDice(Game& g) {
  switch (const Source source = SourceOfRoll(g)) {
    case Source::Mersenne:
      return DrawMersenne(g, g.Mersenne);
    case Source::SecondMersenne:
      return DrawMersenne(g, g.SecondMersenne);
    default:
      return DrawOther(g, source);
  }
}

std::int32_t DrawMatrixValue(Game& g) {
  std::int32_t step = 1;
  switch (SourceOfRoll(g)) {
    case Source::SecondMersenne:
      return NextBelow(g.SecondMersenne, kMatrixRange) + 1;
    case Source::Congruential:
      return SeededRandomInt(g, kMatrixRange);
    case Source::Ran1:
      return MatrixValue(Ran1(g, step));
    case Source::Ran2:
      return MatrixValue(Ran2(g, step));
    default:
      return NextBelow(g.Mersenne, kMatrixRange) + 1;
  }
}

void FallBackFromMissingGenerator(DiceTables& g) {
  if (g.MissingGenerators == 0) return;
  switch (g.RngChoice) {
    case RngCongruential:
    case RngRan2:
    case RngRan1:
      return;
    case RngSecondMersenne:
    case RngSecondMersenneAndRan2:
      if (IsMissing(g, MissingSecondMersenne)) g.RngChoice = RngRan2;
      return;
    default:  // RNG #1, #6 and #8, and what is outside the list and drawn as RNG #1
      if (IsMissing(g, MissingMersenne)) g.RngChoice = RngRan2;
      return;
  }
}

}  // namespace rollwick
