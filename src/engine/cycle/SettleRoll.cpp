// The dealer's calls carried out, for the bets that stand.
#include "engine/cycle/SettleRoll.h"

#include <cassert>

#include "engine/bets/Resolution.h"
#include "engine/cycle/LogChanges.h"
#include "engine/cycle/RollCalls.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

struct AutoStopItem {
  AutoStop any;
  AutoStop hard;  // the same item where the total cannot be hard
};

constexpr AutoStopItem kAutoStops[13] = {
    {},
    {},
    {StopOn2, StopOn2},
    {StopOn3, StopOn3},
    {StopOn4, StopOnHard4},
    {StopOn5, StopOn5},
    {StopOn6, StopOnHard6},
    {StopOn7, StopOn7},
    {StopOn8, StopOnHard8},
    {StopOn9, StopOn9},
    {StopOn10, StopOnHard10},
    {StopOn11, StopOn11},
    {StopOn12, StopOn12},
};

constexpr BetSet kCounts = [] {
  BetSet counts;
  for (const BetId turn : {TurnPass, TurnMiss, TurnBarPush, TurnNatural}) counts.Set(turn);
  return counts;
}();

// Places of calls.
using Places = IdSet<2>;
static_assert(kMostCalls <= 128);

// The calls that concern anybody: the counts, and bets that stand.
Places TurnsOf(const RollCalls& calls, const BetSet& standing) {
  Places turns;
  ((standing | kCounts) & calls.Called).ForEach([&](BetId id) {
    turns.Add(calls.Place[static_cast<std::size_t>(id)]);
  });
  return turns;
}

void Announce(Game& g, Sound call) {
  if (!g.HyperDriveActive) g.TheHost->Play(g, call);
}

void CarryOut(Game& g, const RollCall& call) {
  if (call.Result != 0) return ResolveBet(g, call.Result, call.Id);
  switch (call.Id) {
    case TurnPass:
      Announce(g, Sound::Pass);
      return CountPass(g);
    case TurnMiss:
      Announce(g, Sound::Miss);
      return CountMiss(g);
    case TurnBarPush:
      Announce(g, Sound::BarPush);
      return CountBarPush(g);
    case TurnNatural:
      return LogPoint(g, "      Pass (natural)");
    case Bet::DontCome:
      return MoveComeBet(g, Bet::DontCome, DontComeOn(g.DiceTotal));
    default:
      return MoveComeBet(g, Bet::Come, ComeOn(g.DiceTotal));
  }
}

}  // namespace

void SettleRoll(Game& g) {
  const RollCalls& calls = CallsOf(g.PointBeforeRoll, g.Die1, g.Die2, g.Rules.BarNumber);
  Places turns = TurnsOf(calls, g.BetsStanding);
  while (!turns.IsEmpty()) {
    const int place = turns.TakeLowest();
    // Bets that an earlier call has taken down have their turn too: nothing is left there to decide.
    CarryOut(g, calls.Calls[static_cast<std::size_t>(place)]);
    // What a call puts up is the bet it decided, or one on a number that had its turn before any bet moves.
    assert((TurnsOf(calls, g.BetsStanding) - Places::Range(0, place) - turns).IsEmpty());
  }
}

void StopAutoRollOnTotal(Game& g) {
  const int total = g.DiceTotal;
  if (g.HyperDriveActive || !g.AutoRoll || total > 12) return;
  const AutoStopItem item = kAutoStops[total];
  if (g.Die1 == g.Die2 && g.AutoStopOn[item.hard]) g.KeepRolling = false;
  if (g.AutoStopOn[item.any]) g.KeepRolling = false;
}

}  // namespace rollwick
