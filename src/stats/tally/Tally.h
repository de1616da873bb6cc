// Counters of rolls, bets, hands and the bankroll: every update is an increment or a copy.
#pragma once

#include <algorithm>

#include "engine/state/Game.h"

namespace rollwick {

// While a run lasts its rolls stand in the ledger, and the tables of roll events and of phantom wagers lag
// behind. StartCounting begins a run at the tables as they stand, sets of bets included; BringUpToDate enters
// in them what the ledger holds, and comes before anybody reads them or rules change. Between runs they are
// up to date.
void StartCounting(Game& g);
void BringUpToDate(Game& g);

// Counts the roll itself and every event the dice are: faces, pair, total, groups. A face of 7 is counted as
// a face and within the totals 8 to 11, but belongs to no pair.
void TallyRoll(Game& g);

// RollsSinceEvent of `event` (0..90), up to date in a run too.
std::int32_t RollsSince(const Game& g, RollEvent event);

// How often `event` (0..90) has come by the tracked counters, now and before this roll, up to date in a run
// too.
struct EventCounts {
  std::int32_t Count = 0;
  std::int32_t CountBefore = 0;
};
// Events 0 and 1 are counted by every roll.
inline std::int32_t CountOf(const Game& g, RollEvent event) {
  return event <= EventTrackedRolls ? g.RollCount() : g.TheLedger.Events.Count[event];
}
inline EventCounts TrackedCounts(const Game& g, RollEvent event) {
  const EventMarks& events = g.TheLedger.Events;
  if (events.Stage == RollStage::None) return {g.TrackedEventCount[event], g.TrackedEventCountBefore[event]};
  const std::int32_t count = CountOf(g, event) + events.TrackedStarts[event].Offset;
  if (events.Stage == RollStage::Begun) return {count, count};
  const bool isHit = event <= EventTrackedRolls || events.Hit[event] == g.RollCount();
  return {count, std::max(count - (isHit ? 1 : 0), 0)};
}

// All tracked counters of `event`.
struct TrackedEvent : EventCounts {
  std::int32_t RollsSince = 0;
  std::int32_t RollsSinceBefore = 0;
};
TrackedEvent Tracked(const Game& g, RollEvent event);

// One decision of chips on `bet`. `result` is the signed net, 0 records nothing; `wager` is the stake, to
// which the vig is added when the decision charges it.
void RecordBetDecision(Game& g, BetId bet, Money wager, Money result);

// Puts a decision of this roll, the first of its kind, bet and result, on the list of what the next roll
// clears.
void MarkDecided(StatisticsTables& g, BetStatKind kind, BetId bet, bool won);

// The vig that a decision of this kind costs: of Lay and Buy bets, on wins, or on all where the house charges
// it so. The phantom dollar's is unrounded.
Money VigOnLayOrBuy(const Game& g, BetStatKind kind, BetId bet, Money result);
inline Money VigOnDecision(const Game& g, BetStatKind kind, BetId bet, Money result) {
  return IsLay(bet) || IsBuy(bet) ? VigOnLayOrBuy(g, kind, bet, result) : Money();
}

// The vig on a phantom Lay bet of one dollar: of what it would win, unrounded.
Money PhantomLayVig(const Game& g, BetId bet);

void CountPass(Game& g);
void CountMiss(Game& g);
// The barred number on the come-out. Counts exactly as a come-out miss; only the call differs.
void CountBarPush(Game& g);

// At the start of a roll, before new dice exist: results of the last roll are cleared, streaks kept as
// "before", and the phantom Come and Don't Come bets of the last total travel, by the last DiceTotal and
// PointBeforeRoll.
void StartRollResults(Game& g);

// From here on the tracked counters as they stand are those "before this roll".
void CountPrevRolls(Game& g);

// At the end of a settled roll: sum, high and low of the bankroll.
void TallyBankroll(Game& g);

// The bankroll as the next point of the graph, turning the page and moving the scale when it is time.
void AddBankrollPoint(Game& g);

// The average of the bankroll over the last `period` points of its graph, at most 525, as it stands now
// (rollsBack 0) or as it stood a roll before (1). Period 0 takes all rolls of the game. At the first point of
// a game, and with no rolls, it is 0.
Money MovingAverage(const Game& g, int rollsBack, int period);

// Forgets everything counted and starts the bankroll record at the present bankroll.
void ResetStatistics(Game& g);

// Zeroes the tracked counters of one event, now and before.
void ResetTrackedEvent(Game& g, RollEvent event);

// ---- The phantom wagers in the ledger.

// The cell of a throw with this line point (0 on the come-out) and these faces (1..7).
constexpr int LineCell(int point, int die1, int die2) {
  return (PointPlace(point) * kFaces + die1 - 1) * kFaces + die2 - 1;
}
// The cell of the phantom Come and Don't Come bets of the number in place 0..5, of which `presence` tells as
// the ledger does which are there, when the number or a seven is rolled.
constexpr int TravelCell(int place, int presence, bool onSeven) {
  return kLineCells + (place * kPresences + presence) * 2 + (onSeven ? 1 : 0);
}
// Where the decisions of a cell are to be written when they are not known yet; they are kept until rules
// change.
CellDecisions& DecisionsOf(Game& g, int cell);
// Adds the decision of a phantom dollar on `bet` by `result` (0 adds none) to a cell's.
void AddDecision(Game& g, CellDecisions& cell, BetId bet, Money result);
// The cells of the bets now in action; of other bets than at the last roll.
ActionCells& CellsOfOtherAction(Game& g);
inline ActionCells& CellsInAction(Game& g) {
  PhantomLedger& phantoms = g.TheLedger.Phantoms;
  ActionCells& current = phantoms.Actions[static_cast<std::size_t>(phantoms.Current)];
  return phantoms.Current < phantoms.ActionCount && current.InAction == g.BetsInAction
             ? current
             : CellsOfOtherAction(g);
}
// Counts this roll under the cell. True when it is the first one there: then the cell is to be touched.
inline bool CountRollIn(const Game& g, ActionCells& action, int cell) {
  RollCell& rolls = action.Cells[static_cast<std::size_t>(cell)];
  rolls.LastRoll = g.RollCount();
  return ++rolls.Count == 1;
}
// Puts a cell on the list of those with rolls in them.
void TouchCell(Game& g, const ActionCells& action, int cell);
// Used by the procedures above.
void StartEventMarks(Game& g);
void EnterEvents(Game& g);
void MovePhantoms(Game& g);

// Sums rows firstBet..lastBet (1..83) of the actual kind into the work row (actual, bet 0), zeroed first if
// told so.
void SumBetResults(Game& g, bool clearFirst, BetId firstBet, BetId lastBet);

}  // namespace rollwick
