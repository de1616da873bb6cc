// Which events a roll is, and their counters: marks by roll number while a run lasts, entered in the tables
// before they are read.
#include <algorithm>

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

// Every event of two dice, each once.
struct EventsOfDice {
  std::int32_t count = 0;
  std::array<RollEvent, 16> events{};

  constexpr void Add(RollEvent event) {
    if (event != 0) events[static_cast<std::size_t>(count++)] = event;
  }
};

constexpr EventsOfDice EventsOf(int die1, int die2) {
  EventsOfDice dice;
  const int total = die1 + die2;
  const PairEvents pair = kPairEvents[die1][die2];
  dice.Add(EventDie1 + die1);
  if (EventDie2 + die2 != EventDie1 + die1) dice.Add(EventDie2 + die2);  // a 7 on die 1 is a 1 on die 2
  dice.Add(pair.ordered);
  if (total >= 3 && total <= 11) dice.Add(total);
  dice.Add(pair.either);
  for (const RollEvent group : kGroups[total]) dice.Add(group);
  return dice;
}

constexpr auto kEventsOf = [] {
  std::array<std::array<EventsOfDice, 8>, 8> events{};
  for (int die1 = 1; die1 <= 7; ++die1) {
    for (int die2 = 1; die2 <= 7; ++die2) {
      events[static_cast<std::size_t>(die1)][static_cast<std::size_t>(die2)] = EventsOf(die1, die2);
    }
  }
  return events;
}();

void TallyEvent(StatisticsTables& g, EventMark& mark, RollEvent event, std::int32_t now) {
  const std::int32_t gap = now - mark.Hit;
  auto& histogram = g.RollGapHistogram[event];
  if (gap >= kGapCount - 1) {
    ++histogram[kGapCount - 1];
    histogram[0] += gap;
  } else {
    ++histogram[gap];
  }
  mark = {now, now, mark.Tracked, mark.Count + 1};
}

}  // namespace

void StartEventMarks(Game& g) {
  EventMarks& events = g.TheLedger.Events;
  const std::int32_t now = g.RollCount();
  events.Stage = RollStage::None;
  for (RollEvent event = 0; event < kRollEventCount; ++event) {
    const std::int32_t tracked = now - g.TrackedRollBase[event];
    events.Marks[event] = {now - g.RollsSinceEvent[event], tracked, tracked, g.RollEventCount[event]};
    events.TrackedOffset[event] = 0;
    events.TrackedOffset[event] = g.TrackedEventCount[event] - TrackedCount(g, event);
  }
}

void TallyRoll(Game& g) {
  EventMarks& events = g.TheLedger.Events;
  const std::int32_t now = ++g.RollCount();
  ++g.HandStats[HandRolls];
  if (g.PointBeforeRoll == 0) ++g.HandStats[ComeOutRolls];
  const EventsOfDice& dice = kEventsOf[static_cast<std::size_t>(g.Die1)][static_cast<std::size_t>(g.Die2)];
  for (std::int32_t i = 0; i < dice.count; ++i) {
    const RollEvent event = dice.events[static_cast<std::size_t>(i)];
    TallyEvent(g, events.Marks[event], event, now);
  }
  events.Stage = RollStage::Counted;
}

void EnterEvents(Game& g) {
  const EventMarks& events = g.TheLedger.Events;
  if (events.Stage == RollStage::None) return;
  for (RollEvent event = 0; event < kRollEventCount; ++event) {
    const TrackedEvent tracked = Tracked(g, event);
    g.TrackedEventCount[event] = tracked.Count;
    g.TrackedEventCountBefore[event] = tracked.CountBefore;
    g.TrackedRollBase[event] = tracked.RollsSince;
    g.TrackedRollBaseBefore[event] = tracked.RollsSinceBefore;
    g.RollsSinceEvent[event] = RollsSince(g, event);
    if (event != EventEveryRoll) g.RollEventCount[event] = events.Marks[event].Count;
  }
}

void CountPrevRolls(Game& g) {
  g.TheLedger.Events.Stage = RollStage::Begun;
}

void ResetTrackedEvent(Game& g, RollEvent event) {
  EventMarks& events = g.TheLedger.Events;
  EventMark& mark = events.Marks[event];
  mark.Tracked = mark.TrackedBefore = g.RollCount();
  events.TrackedOffset[event] = -mark.Count;
  g.TrackedEventCount[event] = g.TrackedEventCountBefore[event] = 0;
  g.TrackedRollBase[event] = g.TrackedRollBaseBefore[event] = 0;
}

}  // namespace rollwick
