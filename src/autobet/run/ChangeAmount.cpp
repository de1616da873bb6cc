// The verbs that reckon: Bet, Add, Subtract, Multiply by, Divide by and Round.
#include <cmath>

#include "autobet/model/Codes.h"
#include "autobet/run/Run.h"
#include "engine/bets/Placement.h"

namespace rollwick {

namespace {

enum Form {
  Typed,
  Percent,
  PercentOfLast,
  Highest,
  HighestOfLast,
  Lowest,
  LowestOfLast,
  Average,
  AverageOfLast
};

Money ValueOfLine(AutoBetRun& run, const ScriptStep& step) {
  const std::int32_t form = step.Op % 10;
  if (form == Typed) return step.Amount;
  const Moment moment = form % 2 == 1 ? Moment::Now : Moment::AtThrow;
  return form <= PercentOfLast ? PercentOf(run, moment, step)
                               : ValueOf(run, moment, step.LeftCode, step.LeftIndex);
}

void Change(Game& g, BetId slot, Money by) {
  g.BetDelta = by;
  PlaceChips(g, slot);
}

// Reckons the verb with one value.
void Apply(AutoBetRun& run, const ScriptStep& step, BetId slot, Money value) {
  Game& g = run.g;
  const Money amount = g.BetAmount[slot];
  const auto become = [&](Money result) {
    SafeSum change;
    change.Add(result);
    change.Add(-amount);
    const Money by = change.Total(run);
    if (run.error.empty()) Change(g, slot, by);
  };
  switch (step.Op / 10 * 10) {
    case Verb::Bet:
      return PutUp(g, slot, value);
    case Verb::Add:
      return Change(g, slot, value);
    case Verb::Subtract:
      return Change(g, slot, -value);
    case Verb::Multiply:
      MoneyFrom(run, amount.ToDouble() * value.ToDouble());
      return become(Product(amount, value));
    default:
      if (value == Money() || (step.Op != Verb::Divide && value < Money())) return;
      return become(MoneyFrom(run, amount.ToDouble() / value.ToDouble()));
  }
}

// What the run of adjacent lines has come to with this line's value; nothing when the line changes nothing.
std::optional<Money> BestOfGroup(AutoBetRun& run, std::int32_t form, Money value) {
  switch (form) {
    case Highest:
    case HighestOfLast:
      if (value <= run.groupValue) return {};
      return run.groupValue = value;
    case Lowest:
    case LowestOfLast:
      if (value <= Money() || (run.groupValue != Money() && value >= run.groupValue)) return {};
      return run.groupValue = value;
    default: {
      if (value <= Money()) return {};
      MoneyFrom(run, run.groupValue.ToDouble() + value.ToDouble());
      run.groupValue += value;
      ++run.groupCount;
      const auto whole = static_cast<std::int64_t>(std::nearbyint(run.groupValue.ToDouble()));
      return Dollars(whole / run.groupCount);  // the average is in whole dollars
    }
  }
}

// Only the best value of the run has effect: what an earlier line made of the bet is undone first.
void ApplyToGroup(AutoBetRun& run, const ScriptStep& step, BetId slot, Money value) {
  Game& g = run.g;
  const std::int32_t form = step.Op % 10;
  const bool divides = step.Op / 10 * 10 == Verb::Divide;
  // In an average a divisor below one dollar counts all the same.
  if (divides && form < Average && WholeDollarsBelow(value) == Money()) return;
  const bool isFirst = form >= Average ? run.groupCount == 0 : run.groupValue == Money();
  const std::optional<Money> best = BestOfGroup(run, form, value);
  if (!best || !run.error.empty()) return;
  if (step.Op / 10 * 10 == Verb::Bet) return PutUp(g, slot, *best);
  if (isFirst) run.groupBase = g.BetAmount[slot];
  OverwriteAmount(g, slot, run.groupBase);
  if (!divides) return Apply(run, step, slot, *best);
  const std::int64_t divisor = WholeDollarsBelow(*best).Units() / Money::kUnitsPerDollar;
  if (divisor == 0) return;
  const std::int64_t base = WholeDollarsBelow(run.groupBase).Units() / Money::kUnitsPerDollar;
  Change(g, slot, Dollars(base / divisor) - run.groupBase);
}

}  // namespace

void ChangeAmount(AutoBetRun& run, const ScriptStep& step, BetId slot) {
  const Money value = ValueOfLine(run, step);
  if (!run.error.empty()) return;
  if (step.Op % 10 <= PercentOfLast) {
    Apply(run, step, slot, value);
  } else {
    ApplyToGroup(run, step, slot, value);
  }
}

void RoundAmount(AutoBetRun& run, const ScriptStep& step, BetId slot) {
  if (step.Amount == Money()) return;
  const Money amount = run.g.BetAmount[slot];
  const Money quotient = MoneyFrom(run, amount.ToDouble() / step.Amount.ToDouble());
  if (!run.error.empty() || quotient.IsWhole()) return;
  const Money down = Product(WholeDollarsBelow(quotient), step.Amount) - amount;
  const Money up = down + step.Amount;
  const bool upIsNearer = Abs(up) <= Abs(down);
  const bool goesUp = step.LeftCode == Value::RoundUp || (step.LeftCode == Value::RoundNearest && upIsNearer);
  Change(run.g, slot, goesUp ? up : down);
}

}  // namespace rollwick
