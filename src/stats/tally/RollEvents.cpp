// Which events a roll is, and their counters.
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

struct PairEvents {
  RollEvent ordered;  // this die first, that die second
  RollEvent either;   // the pair in either order; 0 when no event of its own is kept
};

// Rows: die 1, columns: die 2. A face of 7 belongs to no pair. 1-2 and 5-6 in either order are the totals 3
// and 11.
constexpr PairEvents kPairEvents[8][8] = {
    {},
    {{}, {2, 0}, {22, 0}, {24, 26}, {27, 31}, {33, 37}, {39, 45}},
    {{}, {23, 0}, {13, 0}, {29, 32}, {35, 38}, {41, 46}, {48, 52}},
    {{}, {25, 26}, {30, 32}, {14, 0}, {43, 47}, {50, 53}, {54, 58}},
    {{}, {28, 31}, {36, 38}, {44, 47}, {15, 0}, {56, 59}, {60, 62}},
    {{}, {34, 37}, {42, 46}, {51, 53}, {57, 59}, {16, 0}, {63, 0}},
    {{}, {40, 45}, {49, 52}, {55, 58}, {61, 62}, {64, 0}, {12, 0}},
    {},
};

// The groups of totals that hold each total, in the order they are tallied. Totals 13 and 14 stand in none.
constexpr RollEvent kGroups[15][7] = {
    {},
    {},
    {21, 65, 66, 20, 69, 74},      // 2
    {21, 65, 66, 20, 70, 74, 75},  // 3
    {21, 17, 19, 67, 71},          // 4
    {17, 18, 19, 67, 72},          // 5
    {17, 18, 67, 73},              // 6
    {65, 76},                      // 7
    {17, 18, 68, 73},              // 8
    {21, 17, 18, 19, 68, 72},      // 9
    {21, 17, 19, 68, 71},          // 10
    {21, 65, 66, 70, 76, 77},      // 11
    {21, 65, 66, 20, 69, 75, 77},  // 12
    {},
    {},
};

void TallyIfAny(StatisticsTables& g, RollEvent event) {
  if (event != 0) TallyRollEvent(g, event);
}

}  // namespace

void TallyRollEvent(StatisticsTables& g, RollEvent event) {
  ++g.RollEventCount[event];
  ++g.TrackedEventCount[event];
  const std::int32_t gap = g.RollsSinceEvent[event];
  auto& histogram = g.RollGapHistogram[event];
  if (gap >= kGapCount - 1) {
    ++histogram[kGapCount - 1];
    histogram[0] += gap;
  } else {
    ++histogram[gap];
  }
  g.RollsSinceEvent[event] = 0;
  g.TrackedRollBase[event] = 0;
}

void TallyRoll(Game& g) {
  ++g.RollCount();
  ++g.HandStats[HandRolls];
  if (g.PointBeforeRoll == 0) ++g.HandStats[ComeOutRolls];
  ++g.TrackedEventCount[EventEveryRoll];
  ++g.TrackedEventCount[EventTrackedRolls];
  for (RollEvent event = 1; event < kRollEventCount; ++event) {
    ++g.RollsSinceEvent[event];
    ++g.TrackedRollBase[event];
  }
  const int total = g.DiceTotal;
  const PairEvents pair = kPairEvents[g.Die1][g.Die2];
  const RollEvent die1 = EventDie1 + g.Die1;
  const RollEvent die2 = EventDie2 + g.Die2;
  TallyRollEvent(g, die1);
  if (die2 != die1) TallyRollEvent(g, die2);  // a 7 on die 1 shares its event with a 1 on die 2
  TallyIfAny(g, pair.ordered);
  if (total >= 3 && total <= 11) TallyRollEvent(g, total);
  TallyIfAny(g, pair.either);
  for (const RollEvent group : kGroups[total]) TallyIfAny(g, group);
}

void CountPrevRolls(Game& g) {
  g.TrackedEventCountBefore = g.TrackedEventCount;
  g.TrackedRollBaseBefore = g.TrackedRollBase;
}

void ResetTrackedEvent(Game& g, RollEvent event) {
  g.TrackedEventCount[event] = g.TrackedEventCountBefore[event] = 0;
  g.TrackedRollBase[event] = g.TrackedRollBaseBefore[event] = 0;
}

}  // namespace rollwick
