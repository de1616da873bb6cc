// The dealer's calls carried out, for the bets that stand.
#include "engine/cycle/SettleRoll.h"

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

// The calls from place `from` on that concern anybody: the counts, and bets that stand.
Places TurnsFrom(const RollCalls& calls, const BetSet& standing, int from) {
  Places turns;
  ((standing | kCounts) & calls.Called).ForEach([&](BetId id) {
    const int place = calls.Place[static_cast<std::size_t>(id)];
    if (place >= from) turns.Add(place);
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
  int next = 0;
  BetSet standing;
  do {
    standing = g.BetsStanding;
    Places turns = TurnsFrom(calls, standing, next);
    // A call may put up or take down bets whose turn is still to come.
    while (!turns.IsEmpty() && g.BetsStanding == standing) {
      const int place = turns.TakeLowest();
      CarryOut(g, calls.Calls[static_cast<std::size_t>(place)]);
      next = place + 1;
    }
  } while (g.BetsStanding != standing);
}

void StopAutoRollOnTotal(Game& g) {
  const int total = g.DiceTotal;
  if (g.HyperDriveActive || !g.AutoRoll || total > 12) return;
  const AutoStopItem item = kAutoStops[total];
  if (g.Die1 == g.Die2 && g.AutoStopOn[item.hard]) g.KeepRolling = false;
  if (g.AutoStopOn[item.any]) g.KeepRolling = false;
}

}  // namespace rollwick
