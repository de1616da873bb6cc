// The conditions most rules are made of: one slot and an amount, bets that stand or have just won, their
// number.
#include "autobet/run/SlotLook.h"

namespace rollwick {

namespace {

// Nearly all groups lie within one word of a set of bets.
bool IsInOneWord(const ScriptStep& step) {
  return step.LeftLast < 64;
}

template <class Bits>
Bits BitsOf(const BetSet& bets) {
  if constexpr (sizeof(Bits) == 8) return bets.WordAt(0);
  return static_cast<Bits>(SlotBits{bets.WordAt(1)} << 64 | bets.WordAt(0));
}

std::int32_t CountOf(const BetSet& bets) {
  std::int32_t count = 0;
  bets.ForEach([&count](BetId) { ++count; });
  return count;
}

// Comparisons that come out the same for all amounts above $0.
bool AsksForChips(const ScriptStep& step) {
  return step.Amount == Money() && (step.Accepts == AcceptedSigns(Compare::GreaterAmount) ||
                                    step.Accepts == AcceptedSigns(Compare::NotGreaterAmount));
}

bool AsksForOthers(const ScriptStep& step) {
  return step.Op == Compare::HasNotWon || step.Op == Compare::HasNotLost ||
         step.Accepts == AcceptedSigns(Compare::NotGreaterAmount);
}

bool AsksForLastDecision(const ScriptStep& step) {
  return step.Amount == Money() && (step.Op == Compare::HasWon || step.Op == Compare::HasNotWon ||
                                    step.Op == Compare::HasLost || step.Op == Compare::HasNotLost);
}

// Bets with a longer run of wins, or of losses, than before the throw. Only those it decided are looked at.
BetSet BetsJustDecided(const Game& g, bool lost) {
  BetSet bets;
  for (std::int32_t i = 0; i < g.DecidedCount; ++i) {
    const BetId bet = DecidedBet(g, i);
    const auto [before, now] = g.BetStreak[static_cast<std::size_t>(bet)];
    if (lost ? now < 0 && now < before : now > 0 && now > before) bets.Set(bet);
  }
  return bets;
}

// Bets of the item for which the condition holds, of the `bets` it is about; a negated one turns it about.
template <class Bits>
Bits HoldsOn(const ScriptStep& step, const BetSet& bets) {
  const Bits item = BitsOf<Bits>(step.LeftBets), found = BitsOf<Bits>(bets) & item;
  return step.IsNegated ? found ^ item : found;
}

template <class Bits>
Verdict JudgeStanding(const AutoBetRun& run, const ScriptStep& step) {
  const Bits item = BitsOf<Bits>(step.LeftBets);
  const Bits holds = HoldsOn<Bits>(step, run.g.BetsStanding), held = HoldsOn<Bits>(step, run.g.BetsAtEnd);
  return Judge<Bits>(run.g, MannerOf(run, step, step.Amount),
                     {holds, item & ~holds, held, item & ~held, BitsOf<Bits>(run.g.BetsStanding)});
}

[[gnu::noinline]] Verdict JudgeStandingOfAll(const AutoBetRun& run, const ScriptStep& step) {
  return JudgeStanding<SlotBits>(run, step);
}

// That a bet was decided is always new.
template <class Bits>
Verdict JudgeDecided(const Game& g, const ScriptStep& step) {
  const Bits holds = HoldsOn<Bits>(step, BetsJustDecided(g, IsLossStreak(step.Op)));
  const bool isTrue = step.Group == AllOf ? holds == BitsOf<Bits>(step.LeftBets) : holds != 0;
  return {isTrue, true};
}

}  // namespace

ItemGroup GroupKindOf(std::int32_t item) {
  if (item < 1000 || item >= 1300) return NoGroup;
  return item < 1100 ? AnyOf : item < 1200 ? AllOf : TotalOf;
}

ConditionTest SlotTestOf(ScriptStep& step) {
  const bool isOfBets = step.LeftFirst >= 1 && step.LeftLast <= kBetCount && step.LeftFirst <= step.LeftLast;
  if (isOfBets) step.LeftBets = BetSet::Range(step.LeftFirst, step.LeftLast);
  step.IsNegated = AsksForOthers(step);
  const std::int32_t code = step.LeftCode;
  if (!step.HasTypedAmount || code < Item::FirstAny) return TestSlots;
  if (isOfBets && step.Group == TotalOf) return AsksForCount(step.Op) ? TestBetCount : TestSlots;
  if (isOfBets && AsksForChips(step)) return TestStanding;
  if (isOfBets && AsksForLastDecision(step)) return TestDecided;
  if (step.Accepts == 0 || step.Group != NoGroup) return TestSlots;
  if (FirstOfPointItem(code) != 0) return TestPointBet;
  return step.LeftFirst == step.LeftLast && step.LeftFirst >= 0 ? TestOneSlot : TestSlots;
}

Verdict OneSlotCondition(const Game& g, const ScriptStep& step, BetId slot) {
  const auto [now, was] = CompareAmounts(step, TableAmounts(g, slot), step.Amount);
  return {now, !was || g.RollCount() == 0};
}

Verdict PointBetCondition(const Game& g, const ScriptStep& step) {
  const BetId bet = BetOnPoint(g, step.LeftCode);
  return bet == 0 ? Verdict() : OneSlotCondition(g, step, bet);
}

Verdict StandingCondition(const AutoBetRun& run, const ScriptStep& step) {
  return IsInOneWord(step) ? JudgeStanding<std::uint64_t>(run, step) : JudgeStandingOfAll(run, step);
}

Verdict DecidedCondition(AutoBetRun& run, const ScriptStep& step) {
  // Before the first throw of a run the results may be those of a file.
  if (run.g.TheLedger.Events.Stage != RollStage::Counted) return SlotCondition(run, step, step.Amount);
  return IsInOneWord(step) ? JudgeDecided<std::uint64_t>(run.g, step) : JudgeDecided<SlotBits>(run.g, step);
}

[[gnu::noinline]] Verdict BetCountCondition(const Game& g, const ScriptStep& step) {
  return CompareCounts(step, step.Amount, CountOf(g.BetsStanding & step.LeftBets),
                       CountOf(g.BetsAtEnd & step.LeftBets));
}

}  // namespace rollwick
