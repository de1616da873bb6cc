// What the slots of a condition's item come to: any, all or just one of them.
#pragma once

#include "autobet/run/Conditions.h"

namespace rollwick {

inline bool IsLossStreak(std::int32_t op) {
  return op == Compare::HasLost || op == Compare::HasLostMore || op == Compare::HasNotLost ||
         op == Compare::HasLostLess;
}

inline bool IsStreak(std::int32_t op) {
  return IsLossStreak(op) || op == Compare::HasWon || op == Compare::HasWonMore || op == Compare::HasNotWon ||
         op == Compare::HasWonLess;
}

inline bool AsksForCount(std::int32_t op) {
  return op >= Compare::CountIs && op <= Compare::CountLess;
}

struct Amounts {
  Money now;
  Money before;
};

inline Amounts TableAmounts(const Game& g, BetId slot) {
  return {g.BetAmount[slot], g.BetAfterSettle[slot]};
}

inline std::pair<bool, bool> CompareAmounts(const ScriptStep& step, const Amounts& left, Money right) {
  return {Accepts(step.Accepts, left.now, right), Accepts(step.Accepts, left.before, right)};
}

inline Verdict CompareCounts(const ScriptStep& step, Money amount, std::int32_t now, std::int32_t before) {
  const auto holds = [&](std::int32_t bets) {
    const Money count = Dollars(bets);
    return step.Op == Compare::CountIs     ? count == amount
           : step.Op == Compare::CountMore ? count > amount
                                           : count < amount;
  };
  return {holds(now), !holds(before)};
}

// A bit for each slot.
__extension__ using SlotBits = unsigned __int128;

template <class Bits>
struct SlotLook {
  Bits holds = 0;     // the condition does, there
  Bits fails = 0;     // it does not
  Bits held = 0;      // it did before this roll, where there was something
  Bits heldNot = 0;   // it did not
  Bits standing = 0;  // chips do, or it is the bankroll
};

// How an item goes over its slots.
struct Manner {
  bool isAll = false;
  // Meant: a While that asks for any looks no further than the first bet that stands for it; so what the
  // others were before is not seen.
  bool endsAtFirst = false;
  bool needsAmount = false;  // empty slots are left out
};

inline bool IsWhile(std::int32_t kind) {
  return IsStartOfConditions(kind) && !AsksForNew(kind);
}

inline Manner MannerOf(const AutoBetRun& run, const ScriptStep& step, Money amount) {
  const bool isAny = step.Group == AnyOf, isAll = step.Group == AllOf;
  return {isAll, isAny && IsWhile(run.blockKind), (isAny || isAll) && amount != Money()};
}

// Up to the first bit that is set; everything where none is.
template <class Bits>
Bits UpToFirst(Bits bits) {
  return bits ^ (bits - 1);
}

// An item of all looks no further than the first slot that fails.
template <class Bits>
Verdict Judge(const Game& g, const Manner& manner, const SlotLook<Bits>& look) {
  const Bits seen = UpToFirst<Bits>(manner.isAll         ? look.fails
                                    : manner.endsAtFirst ? look.holds & look.standing
                                                         : 0);
  const bool isTrue = look.holds != 0 && !(manner.isAll && look.fails != 0);
  const bool wasFalse = (look.held & seen) == 0 || (manner.isAll && (look.heldNot & seen) != 0);
  return {isTrue, wasFalse || g.RollCount() == 0};
}

// Goes over the slots as far as it must. `amountsOf` and `compare` say what stands in a slot, and whether the
// condition holds for it now and before. Newness looks back only at slots that had something: a bet that was
// empty is left out of the record.
template <class AmountsOfSlot, class CompareSlot>
inline Verdict Walk(const Game& g, const Manner& manner, const SlotRange& slots, AmountsOfSlot amountsOf,
                    CompareSlot compare) {
  SlotLook<SlotBits> look;
  SlotBits bit = 1;
  for (BetId slot = slots.first; slot <= slots.last; ++slot, bit <<= 1) {
    const Amounts amounts = amountsOf(slot);
    const auto [now, was] = compare(slot, amounts);
    if (!manner.needsAmount || amounts.before > Money()) (was ? look.held : look.heldNot) |= bit;
    if (manner.needsAmount && amounts.now == Money()) continue;
    const bool stands = amounts.now > Money() || slot == SlotBankroll;
    (now ? look.holds : look.fails) |= bit;
    if (stands) look.standing |= bit;
    if (now ? stands && manner.endsAtFirst : manner.isAll) break;
  }
  return Judge(g, manner, look);
}

}  // namespace rollwick
