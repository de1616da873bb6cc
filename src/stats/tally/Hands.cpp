// Passes, misses and hands.
#include <algorithm>

#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

void EndHand(Game& g) {
  auto& hand = g.HandStats;
  ++hand[MissesBySevenOut];
  ++hand[HandsCompleted];
  hand[LongestHandRolls] = std::max(hand[LongestHandRolls], hand[HandRolls]);
  hand[MostHandPasses] = std::max(hand[MostHandPasses], hand[HandPasses]);
  hand[MostHandMisses] = std::max(hand[MostHandMisses], hand[HandMisses]);
  hand[CompletedHandRolls] += hand[HandRolls];
  hand[CompletedHandPasses] += hand[HandPasses];
  hand[PreviousHandRolls] = hand[HandRolls];
  hand[PreviousHandPasses] = hand[HandPasses];
  hand[PreviousHandMisses] = hand[HandMisses];
  hand[HandRolls] = hand[HandPasses] = hand[HandMisses] = 0;
}

}  // namespace

void CountPass(Game& g) {
  ++g.HandStats[HandPasses];
  ++g.HandStats[TotalPasses];
  ++g.HandStats[g.PointBeforeRoll > 0 ? PassesByPoint : PassesOnComeOut];
}

void CountMiss(Game& g) {
  ++g.HandStats[HandMisses];
  ++g.HandStats[TotalMisses];
  if (g.PointBeforeRoll > 0) {
    EndHand(g);
  } else {
    ++g.HandStats[MissesOnComeOut];
  }
}

void CountBarPush(Game& g) {
  CountMiss(g);
}

}  // namespace rollwick
