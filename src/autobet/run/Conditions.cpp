// One condition line: whether it holds now, and whether that is new since the roll before.
#include "autobet/run/Conditions.h"

#include <optional>

#include "autobet/model/Codes.h"
#include "autobet/model/Script.h"

namespace rollwick {

namespace {

Verdict OneFlag(const Game& g, const ScriptStep& step) {
  if (step.Flag < 0) return {};
  const FlagEntry& flag = g.ScriptFlags[static_cast<std::size_t>(step.Flag)];
  return {(flag.Value != 0) == (step.Amount != Money()), flag.Value != flag.PrevValue};
}

// "Any" stops at the first flag that is as asked, "all" at the first that is not. Meant: the two counts walk
// all flags and say what the last one does.
Verdict ManyFlags(const Game& g, const ScriptStep& step) {
  Verdict verdict;
  for (const FlagEntry& flag : g.ScriptFlags) {
    verdict.isNew = verdict.isNew || flag.Value != flag.PrevValue;
    const bool isSet = flag.Value != 0;
    verdict.isTrue = step.LeftCode == Item::TrueFlags || step.LeftCode == Item::FalseFlags
                         ? Dollars(isSet ? 1 : 0) == step.Amount
                         : isSet == (step.Amount != Money());
    if (step.LeftCode == Item::AnyFlag && verdict.isTrue) break;
    if (step.LeftCode == Item::AllFlags && !verdict.isTrue) break;
  }
  return verdict;
}

// What the right item stands at; a comparison of names has no amount.
Money AmountOf(AutoBetRun& run, const ScriptStep& step) {
  if (!IsComparisonWithItem(step.Op)) return {};
  const auto group = GroupOfItem(step.RightCode);
  if (!group) return ValueOf(run, Moment::Now, step.RightCode, step.RightIndex);
  SafeSum sum;
  for (BetId slot = group->first; slot <= group->last; ++slot) sum.Add(run.g.BetAmount[slot]);
  return sum.Total(run);
}

// A bet on the point while there is none, or a stack that refers to no stack.
bool IsMissing(AutoBetRun& run, std::int32_t code, std::int32_t index) {
  if (code == Item::StackRef) return ReferredSlot(run, Moment::Now, index) == 0;
  return FirstOfPointItem(code) != 0 && run.g.Point == 0;
}

// A line with whatever it compares.
Verdict EvaluateInFull(AutoBetRun& run, const ScriptStep& step) {
  Money amount = step.Amount;
  if (!step.HasTypedAmount) {
    if (IsComparisonWithItem(step.Op) && IsMissing(run, step.RightCode, step.RightIndex)) return {};
    amount = AmountOf(run, step);
    if (!run.error.empty()) return {};
  }
  switch (step.Test) {
    case TestGame:
    case TestThrow:
      return GameCondition(run.g, step, amount);
    case TestOutcome:
      return OutcomeCondition(run.g, step, amount);
    case TestFlag:
      return OneFlag(run.g, step);
    case TestFlags:
      return ManyFlags(run.g, step);
    case TestAvailable:
      return AvailableBankrollCondition(run.g, step, amount);
    default:
      return SlotCondition(run, step, amount);
  }
}

ConditionResult ResultOf(const Verdict& verdict) {
  return !verdict.isTrue ? ConditionFalse : verdict.isNew ? ConditionNew : ConditionTrue;
}

}  // namespace

ConditionTest TestOf(ScriptStep& step) {
  const std::int32_t left = step.LeftCode;
  if (left >= Item::FirstOutcome && left <= Item::LastOutcome) return TestOutcome;
  if (left == Item::Flag) return TestFlag;
  if (left > Item::Flag && left <= Item::FalseFlags) return TestFlags;
  if (left == Item::AvailableBankroll) return TestAvailable;
  if (IsAboutThrow(left) && step.HasTypedAmount) return TestThrow;
  const bool isOfGame = (left >= Item::OnEachRoll && left < Item::Bankroll) || left == Item::SimulatedHours ||
                        left == Item::Initializing;
  return isOfGame ? TestGame : SlotTestOf(step);
}

std::int16_t AcceptedSigns(std::int32_t op) {
  constexpr std::int16_t kBelow = 1, kEqual = 2, kAbove = 4;
  switch (op) {
    case Compare::EqualAmount:
    case Compare::EqualItem:
      return kEqual;
    case Compare::NotEqualAmount:
    case Compare::NotEqualItem:
      return kBelow | kAbove;
    case Compare::GreaterAmount:
    case Compare::GreaterItem:
      return kAbove;
    case Compare::NotGreaterAmount:
    case Compare::NotGreaterItem:
      return kBelow | kEqual;
    case Compare::LessAmount:
    case Compare::LessItem:
      return kBelow;
    case Compare::NotLessAmount:
    case Compare::NotLessItem:
      return kEqual | kAbove;
    default:
      return 0;
  }
}

std::optional<SlotRange> FixedRangeOf(std::int32_t code, std::int32_t index) {
  if (const auto group = GroupOfItem(code)) return group;
  const auto only = [](BetId slot) { return SlotRange{slot, slot}; };
  if (code >= 0 && code < SlotChipStack) return only(code);
  switch (code) {
    case Item::Bankroll:
      return only(SlotBankroll);
    case Item::AverageBankroll:
      return only(SlotAverage);
    case Item::AvailableBankroll:
      return only(SlotAvailable);
    case Value::AllStacks:
      return SlotRange{SlotChipStack, kSlotCount - 1};
    case Item::Stack:
      if (index >= 0 && index < kChipStackCount) return only(SlotChipStack + index);
      return {};
    default:
      return {};
  }
}

ConditionResult EvaluateCondition(AutoBetRun& run, const ScriptStep& step, std::int16_t test) {
  switch (test) {
    case TestOneSlot:
      return ResultOf(OneSlotCondition(run.g, step, step.LeftFirst));
    case TestPointBet:
      return ResultOf(PointBetCondition(run.g, step));
    case TestStanding:
      return ResultOf(StandingCondition(run, step));
    case TestDecided:
      return ResultOf(DecidedCondition(run, step));
    case TestBetCount:
      return ResultOf(BetCountCondition(run.g, step));
    case TestOutcome:
      if (step.HasTypedAmount) return ResultOf(OutcomeCondition(run.g, step, step.Amount));
      return ResultOf(EvaluateInFull(run, step));
    default:
      return ResultOf(EvaluateInFull(run, step));
  }
}

}  // namespace rollwick
