// One condition line: whether it holds now, and whether that is new since the roll before.
#include <optional>
#include <tuple>
#include <utility>

#include "autobet/model/Codes.h"
#include "autobet/model/Script.h"
#include "autobet/run/Run.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

bool Accepts(std::int32_t signs, Money left, Money right) {
  return ((signs >> (1 + (left > right ? 1 : 0) - (left < right ? 1 : 0))) & 1) != 0;
}

struct Verdict {
  bool isTrue = false;
  bool isNew = false;
};

Verdict Both(bool holds) {
  return {holds, holds};
}

bool IsAny(std::int32_t item) {
  return item >= 1000 && item < 1100;
}
bool IsAll(std::int32_t item) {
  return item >= 1100 && item < 1200;
}
bool IsTotal(std::int32_t item) {
  return item >= 1200 && item < 1300;
}

bool IsWhile(std::int32_t kind) {
  return IsStartOfConditions(kind) && !AsksForNew(kind);
}

// ---- Counters and events of the game.

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
  return Both(Accepts(step.Accepts, available, amount));
}

// ---- Flags.

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

// ---- Outcomes of the dice.

Verdict Outcome(const Game& g, const ScriptStep& step, Money amount) {
  const RollEvent event = step.LeftCode - Item::FirstOutcome;
  if (event >= kRollEventCount) return {};
  const TrackedEvent tracked = Tracked(g, event);
  const Money count = Dollars(tracked.Count), before = Dollars(tracked.CountBefore);
  const Money gap = Dollars(tracked.RollsSince), gapBefore = Dollars(tracked.RollsSinceBefore);
  const bool none = count == Money();
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
    case Compare::RolledInLast:
      return {gap < amount && !none, gapBefore >= amount || before == Money()};
    case Compare::NotRolledInLast:
      return {gap >= amount && Dollars(Tracked(g, EventEveryRoll).Count) >= amount, gap == amount};
    default:
      return {};
  }
}

// ---- Bets, stacks and the bankroll: what stands in slots.

constexpr BetId kAverage = -1;    // in place of a slot: the moving average of the bankroll
constexpr BetId kAvailable = -2;  // the available bankroll, which has no earlier value
constexpr BetId kTotalOfLeft = -3;

bool IsLossStreak(std::int32_t op) {
  return op == Compare::HasLost || op == Compare::HasLostMore || op == Compare::HasNotLost ||
         op == Compare::HasLostLess;
}

bool IsStreak(std::int32_t op) {
  return IsLossStreak(op) || op == Compare::HasWon || op == Compare::HasWonMore || op == Compare::HasNotWon ||
         op == Compare::HasWonLess;
}

struct Amounts {
  Money now;
  Money before;
};

struct Sums {
  Amounts amount;
  std::int32_t countNow = 0, countBefore = 0;
  std::int32_t wonRun = 0, lostRun = 0;
  bool sameStreaks = true;
};

class RangedCondition {
 public:
  RangedCondition(AutoBetRun& run, const ScriptStep& step, Money amount)
      : run_(run),
        g_(run.g),
        step_(step),
        amount_(amount),
        comparesItems_(!step.HasTypedAmount),
        isAny_(IsAny(step.LeftCode)),
        isAll_(IsAll(step.LeftCode)),
        asksForStreak_(IsStreak(step.Op)) {}

  Verdict Evaluate() {
    if (!FindRanges()) return {};
    return IsTotal(step_.LeftCode) ? Total() : Walk();
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
    if (slot == kAverage) return {MovingAverage(g_, 0, averageRolls), MovingAverage(g_, 1, averageRolls)};
    if (slot == kAvailable) return {AvailableBankroll(g_), AvailableBankroll(g_)};
    return TableAmounts(slot);
  }

  Amounts TableAmounts(BetId slot) const { return {g_.BetAmount[slot], g_.BetAfterSettle[slot]}; }

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

  bool AsksForCount() const { return step_.Op >= Compare::CountIs && step_.Op <= Compare::CountLess; }

  // How many bets of the group stand, which the most used totals ask for.
  Verdict Count() {
    std::int32_t now = 0, before = 0;
    for (BetId slot = left_.first; slot <= left_.last; ++slot) {
      now += g_.BetAmount[slot] > Money() ? 1 : 0;
      before += g_.BetAfterSettle[slot] > Money() ? 1 : 0;
    }
    const auto holds = [this](std::int32_t bets) {
      const Money count = Dollars(bets);
      return step_.Op == Compare::CountIs     ? count == amount_
             : step_.Op == Compare::CountMore ? count > amount_
                                              : count < amount_;
    };
    return {holds(now), !holds(before)};
  }

  Verdict Total() {
    if (AsksForCount()) return Count();
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

  // Newness looks back only at elements that had something: a bet that was empty is left out of the record.
  // `amountsOf` and `compare` say what stands in a slot, and whether the condition holds for it now and
  // before.
  template <class AmountsOfSlot, class CompareSlot>
  Verdict Walk(AmountsOfSlot amountsOf, CompareSlot compare) {
    const bool needsAmount = (isAny_ || isAll_) && amount_ != Money();
    bool holds = false, anyWasTrue = false, someWasFalse = false;
    for (BetId slot = left_.first; slot <= left_.last; ++slot) {
      const Amounts amounts = amountsOf(slot);
      const auto [now, was] = compare(slot, amounts);
      if (!needsAmount || amounts.before > Money()) (was ? anyWasTrue : someWasFalse) = true;
      if (needsAmount && amounts.now == Money()) continue;
      if (now) {
        holds = true;
        const bool stands = amounts.now > Money() || slot == SlotBankroll;
        if (isAny_ && stands && IsWhile(run_.blockKind)) break;
      } else if (isAll_) {
        holds = false;
        break;
      }
    }
    return {holds, !anyWasTrue || (isAll_ && someWasFalse) || g_.RollCount() == 0};
  }

  // A table of its own for each kind of slot and comparison that most conditions are about.
  Verdict Walk() {
    const auto inTable = [this](BetId slot) { return TableAmounts(slot); };
    if (asksForStreak_) {
      const bool isLoss = IsLossStreak(step_.Op);
      const std::int32_t opOfWins = isLoss ? step_.Op - 2 : step_.Op;  // the same comparison
      const auto streak = [this, opOfWins, sign = isLoss ? -1 : 1](BetId slot, const Amounts&) {
        return StreakOf(slot, opOfWins, sign);
      };
      if (left_.first >= 0) return Walk(inTable, streak);
      return Walk([this](BetId slot) { return AmountsOf(slot, step_.LeftIndex); }, streak);
    }
    if (left_.first >= 0 && step_.HasTypedAmount && step_.Accepts != 0)
      return Walk(inTable, [this](BetId, const Amounts& left) { return CompareTyped(left); });
    return Walk([this](BetId slot) { return AmountsOf(slot, step_.LeftIndex); },
                [this](BetId slot, const Amounts& left) { return CompareElement(slot, left); });
  }

  // Wins, or losses as a run with the sign turned. Slots that are no bets have no run.
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
    if (comparesItems_) return IsTotal(step_.RightCode) ? CompareWithTotal(left) : ComparePairs(slot, left);
    if (AsksForCount() && IsTotal(step_.RightCode)) return CompareWithCount(left);
    return CompareTyped(left);
  }

  std::pair<bool, bool> CompareTyped(const Amounts& left) const {
    return {Accepts(step_.Accepts, left.now, amount_), Accepts(step_.Accepts, left.before, amount_)};
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
    const bool isGroup = IsAny(code) || IsAll(code);
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
        if (IsAny(code) && IsWhile(run_.blockKind)) break;
      } else if (IsAll(code)) {
        holds = false;
        break;
      }
    }
    return {holds, anyWasTrue && !(IsAll(code) && someWasFalse)};
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
  bool isAny_, isAll_;  // of the left item
  bool asksForStreak_;
  SlotRange left_;
  SlotRange right_;
};

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

// Out of the way of the small tests.
[[gnu::noinline]] Verdict TestSlotsOf(AutoBetRun& run, const ScriptStep& step, Money amount) {
  return RangedCondition(run, step, amount).Evaluate();
}

Verdict Evaluate(AutoBetRun& run, const ScriptStep& step) {
  Money amount = step.Amount;
  if (!step.HasTypedAmount) {
    if (IsComparisonWithItem(step.Op) && IsMissing(run, step.RightCode, step.RightIndex)) return {};
    amount = AmountOf(run, step);
    if (!run.error.empty()) return {};
  }
  switch (step.Test) {
    case TestGame:
      return GameCondition(run.g, step, amount);
    case TestOutcome:
      return Outcome(run.g, step, amount);
    case TestFlag:
      return OneFlag(run.g, step);
    case TestFlags:
      return ManyFlags(run.g, step);
    case TestAvailable:
      return AvailableBankrollCondition(run.g, step, amount);
    default:
      return TestSlotsOf(run, step, amount);
  }
}

}  // namespace

ConditionTest TestOf(std::int32_t left) {
  if (left >= Item::FirstOutcome && left <= Item::LastOutcome) return TestOutcome;
  if (left == Item::Flag) return TestFlag;
  if (left > Item::Flag && left <= Item::FalseFlags) return TestFlags;
  if (left == Item::AvailableBankroll) return TestAvailable;
  const bool isOfGame = (left >= Item::OnEachRoll && left < Item::Bankroll) || left == Item::SimulatedHours ||
                        left == Item::Initializing;
  return isOfGame ? TestGame : TestSlots;
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
      return only(kAverage);
    case Item::AvailableBankroll:
      return only(kAvailable);
    case Value::AllStacks:
      return SlotRange{SlotChipStack, kSlotCount - 1};
    case Item::Stack:
      if (index >= 0 && index < kChipStackCount) return only(SlotChipStack + index);
      return {};
    default:
      return {};
  }
}

void EvaluateConditionLine(AutoBetRun& run, const ScriptStep& step) {
  const Verdict verdict = Evaluate(run, step);
  run.blockTrue = verdict.isTrue;
  run.lineOccurred = verdict.isTrue && verdict.isNew;
}

}  // namespace rollwick
