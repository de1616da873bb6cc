// Conditions about the game: its point, rolls and hands, and what the dice have shown.
#include <algorithm>
#include <array>

#include "autobet/run/Conditions.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

Verdict Both(bool holds) {
  return {holds, holds};
}

Verdict Counter(const ScriptStep& step, Money amount, std::int32_t count, bool mayBeNew) {
  return {Accepts(step.Accepts, Dollars(count), amount),
          mayBeNew && !Accepts(step.Accepts, Dollars(count - 1), amount)};
}

Verdict LastShooterCounter(const Game& g, const ScriptStep& step, Money amount, HandStat stat) {
  return {Accepts(step.Accepts, Dollars(g.HandStats[stat]), amount),
          g.HandStats[HandRolls] == 0 && g.HandStats[HandsCompleted] > 0};
}

Verdict Hours(const Game& g, const ScriptStep& step, Money amount) {
  if (g.RollsPerHour == Money()) return {};
  const auto holds = [&](std::int32_t rolls) {
    return Accepts(step.Accepts, Quotient(Dollars(rolls), g.RollsPerHour), amount);
  };
  return {holds(g.RollCount()), !holds(g.RollCount() - 1)};
}

Verdict PassThisRoll(const Game& g) {
  const auto isNow = [&g](RollEvent total) { return RollsSince(g, total) == 0; };
  const bool sevenOut = isNow(7) && g.PointBeforeRoll > 0;
  return Both(g.Point == 0 && !isNow(2) && !isNow(3) && !isNow(12) && !sevenOut);
}

Verdict MissThisRoll(const Game& g) {
  const int total = g.DiceTotal;
  const bool craps = total == 2 || total == 3 || total == 12;
  return Both(g.RollCount() > 0 && g.Point == 0 && (craps || (total == 7 && g.PointBeforeRoll > 0)));
}

// By point 0..10: 0 on the come-out, 1..6 for the six numbers, 7 for what is no point.
constexpr std::array<std::int8_t, 11> kPlaceOfPoint = {0, 7, 7, 7, 1, 2, 3, 7, 4, 5, 6};

Verdict GapCondition(const Game& g, const ScriptStep& step, RollEvent event, Money amount) {
  const TrackedEvent tracked = Tracked(g, event);
  const Money gap = Dollars(tracked.RollsSince), gapBefore = Dollars(tracked.RollsSinceBefore);
  if (step.Op == Compare::RolledInLast)
    return {gap < amount && tracked.Count != 0, gapBefore >= amount || tracked.CountBefore == 0};
  return {gap >= amount && Dollars(TrackedCounts(g, EventEveryRoll).Count) >= amount, gap == amount};
}

}  // namespace

bool IsAboutThrow(std::int32_t leftCode) {
  switch (leftCode) {
    case Item::NextIsComeOut:
    case Item::NextIsNotComeOut:
    case Item::LastWasComeOut:
    case Item::LastWasNotComeOut:
    case Item::PointIsOn:
    case Item::PointIsNotOn:
    case Item::PointMade:
    case Item::PointLost:
    case Item::PointDecided:
    case Item::OnEachPass:
    case Item::OnEachMiss:
      return true;
    default:
      return false;
  }
}

std::int32_t ThrowNow(const Game& g) {
  const auto point = static_cast<std::uint32_t>(g.Point),
             before = static_cast<std::uint32_t>(g.PointBeforeRoll);
  const auto total = static_cast<std::uint32_t>(g.DiceTotal - 2);
  const bool isThrow = g.TheLedger.Events.Stage == RollStage::Counted && total < kTotals;
  if (!isThrow || std::max(point, before) >= kPlaceOfPoint.size()) return -1;
  const int points = kPlaceOfPoint[point] * kPointsOfThrow + kPlaceOfPoint[before];
  return (points * static_cast<int>(kTotals) + static_cast<int>(total)) * 2 + (g.PointBeforeLast > 0 ? 1 : 0);
}

Verdict GameCondition(const Game& g, const ScriptStep& step, Money amount) {
  const auto inSet = [&](int number) { return IsInNumberList(step.Op, number); };
  const auto hand = [&](HandStat stat, bool mayBeNew) {
    return Counter(step, amount, g.HandStats[stat], mayBeNew);
  };
  const bool comeOut = g.Point == 0;
  const bool pointWasOn = g.PointBeforeRoll > 0;
  switch (step.LeftCode) {
    case Item::Initializing:
      return Both(g.AutoBetsChanged || g.HotKeyRunning);
    case Item::OnEachRoll:
      return Both(g.RollsSinceEvent[EventEveryRoll] != g.RollCount());
    case Item::NextIsComeOut:
      return {comeOut, pointWasOn || g.RollCount() == 0};
    case Item::NextIsNotComeOut:
      return {!comeOut, !pointWasOn};
    case Item::LastWasComeOut:
      return {g.RollCount() > 0 && !pointWasOn, g.PointBeforeLast > 0};
    case Item::LastWasNotComeOut:
      return {pointWasOn, g.PointBeforeLast == 0};
    case Item::PointIsOn:
      return {inSet(g.Point), !pointWasOn};
    case Item::PointIsNotOn:
      return {!inSet(g.Point), inSet(g.PointBeforeRoll)};
    case Item::PointMade:
      return {g.DiceTotal != 7 && comeOut && inSet(g.PointBeforeRoll), pointWasOn};
    case Item::PointLost:
      return {g.DiceTotal == 7 && comeOut && inSet(g.PointBeforeRoll), pointWasOn};
    case Item::PointDecided:
      return {comeOut && inSet(g.PointBeforeRoll), pointWasOn};
    case Item::AnsweredYes:
      return Both(g.LastAnswer == static_cast<int>(Answer::Yes));
    case Item::AnsweredNo:
      return Both(g.LastAnswer == static_cast<int>(Answer::No));
    case Item::GameRolls:
      return Counter(step, amount, g.RollCount(), true);
    case Item::ShooterRolls:
      return hand(HandRolls, true);
    case Item::LastShooterRolls:
      return LastShooterCounter(g, step, amount, PreviousHandRolls);
    // Meant: in a come-out state these are new again without a change of the count.
    case Item::GamePasses:
      return hand(TotalPasses, comeOut);
    case Item::ShooterPasses:
      return hand(HandPasses, comeOut);
    case Item::GameMisses:
      return hand(TotalMisses, comeOut);
    case Item::ShooterMisses:
      return hand(HandMisses, comeOut);
    case Item::LastShooterPasses:
      return LastShooterCounter(g, step, amount, PreviousHandPasses);
    case Item::LastShooterMisses:
      return LastShooterCounter(g, step, amount, PreviousHandMisses);
    case Item::OnEachPass:
      return PassThisRoll(g);
    case Item::OnEachMiss:
      return MissThisRoll(g);
    case Item::SimulatedHours:
      return Hours(g, step, amount);
    default:
      return {};
  }
}

Verdict AvailableBankrollCondition(const Game& g, const ScriptStep& step, Money amount) {
  const Money available = g.Rules.AllowNegBankroll ? g.BetAmount[SlotBankroll] : AvailableBankroll(g);
  const bool holds = Accepts(step.Accepts, available, amount);
  return {holds, holds};
}

Verdict OutcomeCondition(const Game& g, const ScriptStep& step, Money amount) {
  const RollEvent event = step.LeftCode - Item::FirstOutcome;
  if (event >= kRollEventCount) return {};
  if (step.Op == Compare::RolledInLast || step.Op == Compare::NotRolledInLast)
    return GapCondition(g, step, event, amount);
  const EventCounts counts = TrackedCounts(g, event);
  const Money count = Dollars(counts.Count), before = Dollars(counts.CountBefore);
  const bool none = counts.Count == 0;
  switch (step.Op) {
    case Compare::HasRolled:
      if (amount == Money()) return {count > before, true};
      return {count == amount, before != amount || none};
    case Compare::HasRolledMore:
      return {count > amount, before <= amount || none};
    case Compare::HasNotRolled:
      if (amount == Money()) return {count == before, true};
      return {count != amount, before == amount || none};
    case Compare::HasRolledLess:
      return {count < amount, before >= amount || none};
    default:
      return {};
  }
}

}  // namespace rollwick
