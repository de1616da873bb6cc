// Conditions about what stands in slots, in full: totals, averages, items compared with items.
#include <optional>
#include <tuple>
#include <utility>

#include "autobet/run/SlotLook.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

constexpr BetId kTotalOfLeft = -3;  // in place of a slot

struct Sums {
  Amounts amount;
  std::int32_t countNow = 0, countBefore = 0;
  std::int32_t wonRun = 0, lostRun = 0;
  bool sameStreaks = true;
};

class RangedCondition {
 public:
  RangedCondition(AutoBetRun& run, const ScriptStep& step, Money amount)
      : run_(run), g_(run.g), step_(step), amount_(amount), comparesItems_(!step.HasTypedAmount) {}

  Verdict Evaluate() {
    if (!FindRanges()) return {};
    return step_.Group == TotalOf ? Total() : WalkLeft();
  }

 private:
  // Slots that the table of the moment gives an item; nothing when there are none now.
  std::optional<SlotRange> RangeNow(std::int32_t code, std::int32_t index) {
    BetId slot = BetOnPoint(g_, code);
    if (code == Item::Stack) slot = StackSlot(run_, index);
    if (code == Item::StackRef) slot = ReferredSlot(run_, Moment::Now, index);
    if (slot == 0) return {};
    return SlotRange{slot, slot};
  }

  bool FindRange(SlotRange& range, std::int32_t fixedFirst, std::int32_t fixedLast, std::int32_t code,
                 std::int32_t index) {
    range = {fixedFirst, fixedLast};
    if (fixedFirst <= fixedLast) return true;
    const auto now = RangeNow(code, index);
    if (now) range = *now;
    return now.has_value();
  }

  bool FindRanges() {
    // Left codes below 1000 are no items; on the right they are single bets.
    if (step_.LeftCode < Item::FirstAny) return false;
    if (!FindRange(left_, step_.LeftFirst, step_.LeftLast, step_.LeftCode, step_.LeftIndex)) return false;
    return !comparesItems_ ||
           FindRange(right_, step_.RightFirst, step_.RightLast, step_.RightCode, step_.RightIndex);
  }

  Amounts AmountsOf(BetId slot, std::int32_t averageRolls) const {
    if (slot == SlotAverage) return {MovingAverage(g_, 0, averageRolls), MovingAverage(g_, 1, averageRolls)};
    if (slot == SlotAvailable) return {AvailableBankroll(g_), AvailableBankroll(g_)};
    return TableAmounts(g_, slot);
  }

  Sums SumsOf(const SlotRange& range) {
    SafeSum now, before;
    Sums sums;
    for (BetId slot = range.first; slot <= range.last; ++slot) {
      now.Add(g_.BetAmount[slot]);
      before.Add(g_.BetAfterSettle[slot]);
      if (g_.BetAmount[slot] > Money()) ++sums.countNow;
      if (g_.BetAfterSettle[slot] > Money()) ++sums.countBefore;
      if (!IsBet(slot)) continue;
      const auto [streakBefore, streak] = g_.BetStreak[slot];
      (streak > 0 ? sums.wonRun : sums.lostRun) += streak;
      if (streak != streakBefore) sums.sameStreaks = false;
    }
    sums.amount = {now.Total(run_), before.Total(run_)};
    return sums;
  }

  // How many bets of the group stand.
  Verdict Count() const {
    std::int32_t now = 0, before = 0;
    for (BetId slot = left_.first; slot <= left_.last; ++slot) {
      now += g_.BetAmount[slot] > Money() ? 1 : 0;
      before += g_.BetAfterSettle[slot] > Money() ? 1 : 0;
    }
    return CompareCounts(step_, amount_, now, before);
  }

  Verdict Total() {
    if (AsksForCount(step_.Op)) return Count();
    const Sums sums = SumsOf(left_);
    const Money won = Dollars(sums.wonRun), lost = Dollars(-sums.lostRun);
    bool now = false, was = false;
    switch (step_.Op) {
      case Compare::HasWon:
        now = won == amount_, was = sums.sameStreaks;
        break;
      case Compare::HasWonMore:
        now = won > amount_, was = sums.sameStreaks;
        break;
      case Compare::HasLost:
        now = lost == amount_ && (amount_ != Money() || lost != Money()), was = sums.sameStreaks;
        break;
      case Compare::HasLostMore:
        now = lost > amount_, was = sums.sameStreaks;
        break;
      default:
        std::tie(now, was) = CompareElement(kTotalOfLeft, sums.amount);
    }
    return {now, !was};
  }

  Verdict WalkLeft() {
    const Manner manner = MannerOf(run_, step_, amount_);
    const auto amounts = [this](BetId slot) { return AmountsOf(slot, step_.LeftIndex); };
    if (!IsStreak(step_.Op)) {
      return Walk(g_, manner, left_, amounts,
                  [this](BetId slot, const Amounts& left) { return CompareElement(slot, left); });
    }
    const bool isLoss = IsLossStreak(step_.Op);
    const std::int32_t opOfWins = isLoss ? step_.Op - 2 : step_.Op;  // the same comparison
    return Walk(g_, manner, left_, amounts,
                [this, opOfWins, sign = isLoss ? -1 : 1](BetId slot, const Amounts&) {
                  return StreakOf(slot, opOfWins, sign);
                });
  }

  std::pair<bool, bool> StreakOf(BetId slot, std::int32_t opOfWins, std::int32_t sign) const {
    if (!IsBet(slot)) return Streak(opOfWins, 0, 0);
    return Streak(opOfWins, sign * g_.BetStreak[slot][1], sign * g_.BetStreak[slot][0]);
  }

  std::pair<bool, bool> Streak(std::int32_t opOfWins, std::int32_t streak, std::int32_t before) const {
    const Money run = Dollars(streak), runBefore = Dollars(before);
    const bool wonThisRoll = streak > 0 && streak > before;
    const bool each = amount_ == Money();
    switch (opOfWins) {
      case Compare::HasWon:
        return each ? std::pair(wonThisRoll, false) : std::pair(run == amount_, runBefore == amount_);
      case Compare::HasNotWon:
        return each ? std::pair(!wonThisRoll, false) : std::pair(run != amount_, runBefore != amount_);
      case Compare::HasWonMore:
        return std::pair(run > amount_, runBefore > amount_);
      default:
        return std::pair(run < amount_, runBefore < amount_);
    }
  }

  std::pair<bool, bool> CompareElement(BetId slot, const Amounts& left) {
    if (comparesItems_)
      return GroupKindOf(step_.RightCode) == TotalOf ? CompareWithTotal(left) : ComparePairs(slot, left);
    if (AsksForCount(step_.Op) && GroupKindOf(step_.RightCode) == TotalOf) return CompareWithCount(left);
    return CompareAmounts(step_, left, amount_);
  }

  // Meant: a total that takes in the left item is no comparison at all.
  std::pair<bool, bool> CompareWithTotal(const Amounts& left) {
    if (left_.first <= right_.last && right_.first <= left_.last) return {false, false};
    const Sums right = SumsOf(right_);
    return {Accepts(step_.Accepts, left.now, right.amount.now),
            Accepts(step_.Accepts, left.before, right.amount.before)};
  }

  // Only a file can ask for this.
  std::pair<bool, bool> CompareWithCount(const Amounts& left) {
    const auto group = GroupOfItem(step_.RightCode);
    if (!group) return {false, false};
    const Sums right = SumsOf(*group);
    const std::int32_t op = step_.Op == Compare::CountIs     ? Compare::EqualAmount
                            : step_.Op == Compare::CountMore ? Compare::GreaterAmount
                                                             : Compare::LessAmount;
    const std::int32_t signs = AcceptedSigns(op);
    return {Accepts(signs, left.now, Dollars(right.countNow)),
            Accepts(signs, left.before, Dollars(right.countBefore))};
  }

  std::pair<bool, bool> ComparePairs(BetId slot, const Amounts& left) {
    const std::int32_t code = step_.RightCode;
    const bool isGroup = GroupKindOf(code) == AnyOf || GroupKindOf(code) == AllOf;
    const bool needsAmount = isGroup && amount_ != Money();
    bool holds = false, anyWasTrue = false, someWasFalse = false;
    for (BetId other = right_.first; other <= right_.last; ++other) {
      if (other == slot && other >= 0) continue;  // a bet is not compared with itself
      const Amounts right = AmountsOf(other, step_.RightIndex);
      const auto [now, was] = Pair(other, left, right);
      if (!run_.error.empty()) return {false, false};
      if (!needsAmount || (left.before > Money() && right.before > Money()))
        (was ? anyWasTrue : someWasFalse) = true;
      if (needsAmount && (left.now == Money() || right.now == Money())) continue;
      if (now) {
        holds = true;
        if (GroupKindOf(code) == AnyOf && IsWhile(run_.blockKind)) break;
      } else if (GroupKindOf(code) == AllOf) {
        holds = false;
        break;
      }
    }
    return {holds, anyWasTrue && !(GroupKindOf(code) == AllOf && someWasFalse)};
  }

  // No earlier names are kept, so a name is always new.
  std::pair<bool, bool> Pair(BetId other, const Amounts& left, const Amounts& right) {
    if (IsComparisonWithItem(step_.Op)) {
      return {Accepts(step_.Accepts, left.now, right.now), Accepts(step_.Accepts, left.before, right.before)};
    }
    // Meant: without a right item this is the name of Chip-Stack 1, whatever stands on the left.
    const BetId stack = other + 1;
    if (stack < 0 || stack >= kChipStackCount) {
      StackSlot(run_, stack);
      return {false, false};
    }
    const bool same =
        TrimBlanks(g_.ChipStackName[static_cast<std::size_t>(stack)]) == TrimBlanks(LineOf(run_).Name);
    return {same == (step_.Op == Compare::IsNamed), false};
  }

  AutoBetRun& run_;
  const Game& g_;
  const ScriptStep& step_;
  Money amount_;
  bool comparesItems_;
  SlotRange left_;
  SlotRange right_;
};

}  // namespace

Verdict SlotCondition(AutoBetRun& run, const ScriptStep& step, Money amount) {
  return RangedCondition(run, step, amount).Evaluate();
}

}  // namespace rollwick
