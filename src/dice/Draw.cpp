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

std::int32_t MersenneFace(MersenneState& state) {
  return NextBelow(state, 6) + 1;
}

// Meant: without a clamp, so a value of exactly 1.0 from Ran1 is a face of 7.
std::int32_t Face(float value) {
  return static_cast<std::int32_t>(double{value} * 6) + 1;
}

// Meant: to nearest, ties to even, where the other generators round down; so 100,001 can come.
std::int32_t MatrixValue(float value) {
  return static_cast<std::int32_t>(std::nearbyint(double{value} * kMatrixRange)) + 1;
}

}  // namespace

void DrawDice(Game& g) {
  std::int32_t step = 1;
  switch (SourceOfRoll(g)) {
    case Source::Mersenne:
      g.Die1 = MersenneFace(g.Mersenne);
      g.Die2 = MersenneFace(g.Mersenne);
      break;
    case Source::MersenneSingleCall: {
      const std::int32_t pair = NextBelow(g.Mersenne, 36);
      g.Die1 = pair % 6 + 1;
      g.Die2 = pair / 6 + 1;
      break;
    }
    case Source::SecondMersenne:
      g.Die1 = MersenneFace(g.SecondMersenne);
      g.Die2 = MersenneFace(g.SecondMersenne);
      break;
    case Source::Congruential:
      g.Die1 = SeededRandomInt(g, 6);
      g.Die2 = SeededRandomInt(g, 6);
      break;
    case Source::Ran1:
      g.Die1 = Face(Ran1(g, step));
      g.Die2 = Face(Ran1(g, step));
      break;
    case Source::Ran2:
      g.Die1 = Face(Ran2(g, step));
      g.Die2 = Face(Ran2(g, step));
      break;
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
