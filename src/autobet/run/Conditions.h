// The tests that condition lines are made of.
#pragma once

#include <cstdint>

#include "autobet/run/Run.h"

namespace rollwick {

struct Verdict {
  bool isTrue = false;
  bool isNew = false;
};

// Whether a comparison that accepts these signs of left minus right (AcceptedSigns) holds.
inline bool Accepts(std::int32_t signs, Money left, Money right) {
  return ((signs >> (1 + (left > right ? 1 : 0) - (left < right ? 1 : 0))) & 1) != 0;
}

// Points, rolls, passes and misses, answers.
Verdict GameCondition(const Game& g, const ScriptStep& step, Money amount);
// Whether such a condition looks at nothing but the throw and the point before and after it.
bool IsAboutThrow(std::int32_t leftCode);
// Which of all such throws the last one was, 0..kThrows - 1; -1 for one that is not among them.
std::int32_t ThrowNow(const Game& g);

// What the dice have shown, and how often.
Verdict OutcomeCondition(const Game& g, const ScriptStep& step, Money amount);

// Bets, Chip-Stacks and the bankroll. The first takes every such condition; the others those of the
// ConditionTest they are called by, sooner.
Verdict SlotCondition(AutoBetRun& run, const ScriptStep& step, Money amount);
Verdict OneSlotCondition(const Game& g, const ScriptStep& step, BetId slot);
Verdict PointBetCondition(const Game& g, const ScriptStep& step);
Verdict StandingCondition(const AutoBetRun& run, const ScriptStep& step);
Verdict DecidedCondition(AutoBetRun& run, const ScriptStep& step);
Verdict BetCountCondition(const Game& g, const ScriptStep& step);
// What such a condition is tested by, with what that test asks of the step; its slots, amount and comparison
// are known.
ConditionTest SlotTestOf(ScriptStep& step);
// The bankroll less all bets.
Verdict AvailableBankrollCondition(const Game& g, const ScriptStep& step, Money amount);

}  // namespace rollwick
