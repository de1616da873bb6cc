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

// What may have its turn now: the counts, bets that stand, boxes with a bet to send on.
BetSet WithATurn(const Game& g) {
  BetSet turns = g.BetsStanding | kCounts;
  turns.Set(TurnDontComeMove, g.BetsStanding.Has(Bet::DontCome));
  turns.Set(TurnComeMove, g.BetsStanding.Has(Bet::Come));
  return turns;
}

// The first call from `from` on that concerns anybody; calls.Count when there is none. Asked anew after each
// call, which may have put up or taken down bets.
std::int32_t NextCall(const Game& g, const RollCalls& calls, std::int32_t from) {
  std::int32_t next = calls.Count;
  (WithATurn(g) & calls.Called).ForEach([&](BetId id) {
    const std::int32_t place = calls.Place[static_cast<std::size_t>(id)];
    if (place >= from && place < next) next = place;
  });
  return next;
}

void Announce(Game& g, Sound call) {
  if (!g.HyperDriveActive) g.TheHost->Play(g, call);
}

void CarryOut(Game& g, const RollCall& call) {
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
    case TurnDontComeMove:
      return MoveComeBet(g, Bet::DontCome, DontComeOn(g.DiceTotal));
    case TurnComeMove:
      return MoveComeBet(g, Bet::Come, ComeOn(g.DiceTotal));
    default:
      return ResolveBet(g, call.Result, call.Id);
  }
}

}  // namespace

void SettleRoll(Game& g) {
  const RollCalls& calls = CallsOf(g.PointBeforeRoll, g.Die1, g.Die2, g.Rules.BarNumber);
  for (std::int32_t place = NextCall(g, calls, 0); place < calls.Count;
       place = NextCall(g, calls, place + 1)) {
    CarryOut(g, calls.Calls[static_cast<std::size_t>(place)]);
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
