// Values that conditions compare and actions reckon with.
#include <algorithm>
#include <cmath>
#include <span>

#include "autobet/model/Codes.h"
#include "autobet/run/Run.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

using Slots = std::span<const Money, kSlotCount>;

Slots SlotsAt(const Game& g, Moment moment) {
  return moment == Moment::Now ? Slots(g.BetAmount) : Slots(g.BetAtThrow);
}

Money SumOf(AutoBetRun& run, Slots slots, const SlotRange& range) {
  SafeSum sum;
  for (BetId slot = range.first; slot <= range.last; ++slot) {
    if (range.Holds(slot)) sum.Add(slots[static_cast<std::size_t>(slot)]);
  }
  return sum.Total(run);
}

Money SumOfWagers(AutoBetRun& run, BetStatField field) {
  SafeSum sum;
  for (BetId bet = 1; bet <= kBetCount; ++bet) sum.Add(run.g.BetWagers[ActualWagers][bet][field]);
  return sum.Total(run);
}

Money CountOfWagers(const Game& g) {
  const auto begin = g.BetAmount.begin();
  return Dollars(std::count_if(begin + 1, begin + kBetCount + 1, [](Money bet) { return bet > Money(); }));
}

}  // namespace

Money SafeSum::Total(AutoBetRun& run) const {
  if (units_ == static_cast<std::int64_t>(units_)) return Money::FromUnits(static_cast<std::int64_t>(units_));
  FailOverflow(run);
  return {};
}

Money MoneyFrom(AutoBetRun& run, double dollars) {
  constexpr double kMost = 9.2e14;  // a little inside the range of Money
  if (dollars < kMost && dollars > -kMost) return Money::FromDouble(dollars);
  FailOverflow(run);
  return {};
}

BetId StackSlot(AutoBetRun& run, std::int32_t number) {
  if (number >= 0 && number < kChipStackCount) return SlotChipStack + number;
  Fail(run, "There is no Chip-Stack # " + std::to_string(number) + ": they are numbered from 0 to 99", 9);
  return 0;
}

BetId ReferredSlot(AutoBetRun& run, Moment moment, std::int32_t number) {
  const BetId holder = StackSlot(run, number);
  if (holder == 0) return 0;
  const Money value = SlotsAt(run.g, moment)[static_cast<std::size_t>(holder)];
  if (value < Money() || value > Dollars(kChipStackCount - 1)) return 0;
  return SlotChipStack + static_cast<BetId>(std::nearbyint(value.ToDouble()));
}

BetId BetOnPoint(const Game& g, std::int32_t item) {
  const BetId first = FirstOfPointItem(item);
  return g.Point == 0 || first == 0 ? 0 : first + BoxPlace(g.Point);
}

Money ValueOf(AutoBetRun& run, Moment moment, std::int32_t code, std::int32_t index) {
  const Game& g = run.g;
  const Slots slots = SlotsAt(g, moment);
  const bool now = moment == Moment::Now;
  const auto slot = [&](BetId id) { return id == 0 ? Money() : slots[static_cast<std::size_t>(id)]; };
  const auto hand = [&](HandStat stat) { return Dollars(g.HandStats[stat]); };
  if (code >= 0 && code < SlotChipStack) return slots[static_cast<std::size_t>(code)];
  if (const auto group = GroupOfValue(code)) return SumOf(run, slots, *group);
  switch (code) {
    case Value::DiceTotal:
      return Dollars(now ? g.DiceTotal : g.PrevDie1 + g.PrevDie2);
    case Value::Die1:
      return Dollars(now ? g.Die1 : g.PrevDie1);
    case Value::Die2:
      return Dollars(now ? g.Die2 : g.PrevDie2);
    case Item::GameRolls:
      return Dollars(g.RollCount());
    case Item::ShooterRolls:
      return hand(now ? HandRolls : PreviousHandRolls);
    case Item::GamePasses:
      return hand(TotalPasses);
    case Item::ShooterPasses:
      return hand(now ? HandPasses : PreviousHandPasses);
    case Item::GameMisses:
      return hand(TotalMisses);
    case Item::ShooterMisses:
      return hand(now ? HandMisses : PreviousHandMisses);
    case Item::Bankroll:
      return slots[SlotBankroll];
    case Item::AverageBankroll:
      return MovingAverage(g, now ? 0 : 1, index);
    case Value::HighestBankroll:
      return now ? std::max(g.BankrollHigh, g.BetAmount[SlotBankroll]) : g.BankrollHigh;
    case Value::LowestBankroll:
      return now ? std::min(g.BankrollLow, g.BetAmount[SlotBankroll]) : g.BankrollLow;
    case Item::AvailableBankroll:
      return AvailableBankroll(g);
    case Item::Stack:
      return slot(StackSlot(run, index));
    case Item::StackRef:
      return slot(ReferredSlot(run, moment, index));
    case Value::AllStacks:
      return SumOf(run, slots, {SlotChipStack, SlotLastChipStack});
    case Value::DecidedWagers:
      return SumOfWagers(run, TotalCount);
    case Value::DecidedAmount:
      return SumOfWagers(run, TotalAmount);
    case Value::CurrentWagers:
      return CountOfWagers(g);
    case Value::CurrentAmount:
      return g.TotalBets;
    default:
      return slot(BetOnPoint(g, code));
  }
}

Money PercentOf(AutoBetRun& run, Moment moment, const ScriptStep& step) {
  const Money value = ValueOf(run, moment, step.LeftCode, step.LeftIndex);
  if (!run.error.empty()) return {};
  return MoneyFrom(run, value.ToDouble() * step.Amount.ToDouble() / 100);
}

}  // namespace rollwick
