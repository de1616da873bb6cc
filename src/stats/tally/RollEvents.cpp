// Which events a roll is, and their counters: marks by roll number while a run lasts, entered in the tables
// before they are read.
#include <algorithm>
#include <span>

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
  std::uint32_t count = 0;
  std::array<std::uint8_t, 12> events{};

  constexpr void Add(RollEvent event) {
    if (event != 0) events[count++] = static_cast<std::uint8_t>(event);
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

void TallyEvent(Game& g, std::size_t event, std::int32_t now) {
  EventMarks& marks = g.TheLedger.Events;
  const std::int32_t hit = marks.Hit[event];
  const std::size_t gap = static_cast<std::uint32_t>(now - hit);
  auto& histogram = g.RollGapHistogram[event];
  if (gap < kGapCount - 1) {
    ++histogram[gap];
  } else {
    ++histogram[kGapCount - 1];
    histogram[0] += now - hit;
  }
  marks.Hit[event] = now;
  marks.HitBefore[event] = hit;
  ++marks.Count[event];
}

// The last tracked hit when the event had come `count` times, the last time at `hit`.
std::int32_t TrackedHit(const TrackedStart& start, std::int32_t count, std::int32_t hit) {
  return count <= start.Count ? start.Roll : hit;
}

}  // namespace

void StartEventMarks(Game& g) {
  EventMarks& events = g.TheLedger.Events;
  const std::int32_t now = g.RollCount();
  events.Stage = RollStage::None;
  for (RollEvent event = 0; event < kRollEventCount; ++event) {
    const std::int32_t hit = now - g.RollsSinceEvent[event], count = g.RollEventCount[event];
    events.Hit[event] = events.HitBefore[event] = hit;
    events.Count[event] = count;
    events.TrackedStarts[event] = {now - g.TrackedRollBase[event], count, 0};
    events.TrackedStarts[event].Offset = g.TrackedEventCount[event] - CountOf(g, event);
  }
}

void TallyRoll(Game& g) {
  EventMarks& events = g.TheLedger.Events;
  const std::int32_t now = ++g.RollCount();
  ++g.HandStats[HandRolls];
  if (g.PointBeforeRoll == 0) ++g.HandStats[ComeOutRolls];
  const EventsOfDice& dice = kEventsOf[static_cast<std::size_t>(g.Die1)][static_cast<std::size_t>(g.Die2)];
  for (const std::uint8_t event : std::span(dice.events).first(dice.count)) TallyEvent(g, event, now);
  events.Stage = RollStage::Counted;
}

std::int32_t RollsSince(const Game& g, RollEvent event) {
  const EventMarks& events = g.TheLedger.Events;
  const bool isMarked = events.Stage != RollStage::None && event != EventEveryRoll;
  return isMarked ? g.RollCount() - events.Hit[event] : g.RollsSinceEvent[event];
}

TrackedEvent Tracked(const Game& g, RollEvent event) {
  const EventMarks& events = g.TheLedger.Events;
  const EventCounts counts = TrackedCounts(g, event);
  if (events.Stage == RollStage::None)
    return {counts, g.TrackedRollBase[event], g.TrackedRollBaseBefore[event]};
  const TrackedStart& start = events.TrackedStarts[event];
  const std::int32_t now = g.RollCount();
  const std::int32_t last = TrackedHit(start, events.Count[event], events.Hit[event]);
  // The rolls-since counter of the event that is every roll is not used.
  const std::int32_t rolls = event == EventEveryRoll ? g.TrackedRollBase[event] : now - last;
  if (events.Stage == RollStage::Begun || event == EventEveryRoll) return {counts, rolls, rolls};
  const std::int32_t lastBefore =
      events.Hit[event] == now ? TrackedHit(start, events.Count[event] - 1, events.HitBefore[event]) : last;
  // Reset in this very roll, both stand at 0.
  return {counts, rolls, std::max(now - 1 - lastBefore, 0)};
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
    if (event != EventEveryRoll) g.RollEventCount[event] = events.Count[event];
  }
}

void CountPrevRolls(Game& g) {
  g.TheLedger.Events.Stage = RollStage::Begun;
}

void ResetTrackedEvent(Game& g, RollEvent event) {
  EventMarks& events = g.TheLedger.Events;
  const std::int32_t count = events.Count[event];
  events.TrackedStarts[event] = {g.RollCount(), count, -count};
  g.TrackedEventCount[event] = g.TrackedEventCountBefore[event] = 0;
  g.TrackedRollBase[event] = g.TrackedRollBaseBefore[event] = 0;
}

}  // namespace rollwick
