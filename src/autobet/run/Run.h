// What lives for one run of the script.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/model/Codes.h"
#include "autobet/model/Script.h"
#include "engine/state/Game.h"

namespace rollwick {

struct AutoBetRun : ScriptState {
  explicit AutoBetRun(Game& game) : g(game) {}

  Game& g;

  std::int32_t thrown = -1;    // which of all throws came before the run; -1 for none
  ScriptWays* ways = nullptr;  // that were walked on such a throw, by stop
  std::int32_t jumpTo = 0;     // asked for by an action: line of a label, -1 for one that is not there
  bool returnPending = false;  // asked for by an action
  std::vector<std::int32_t> returnLines;  // of Gosub lines, the last one called at the back

  // Of adjacent lines with the same verb and target that look for a highest, lowest or average.
  Money groupValue;
  std::int32_t groupCount = 0;
  Money groupBase;  // the bet as it stood before the first of them

  std::string message;          // gathered from adjacent message lines
  std::uint32_t startedAt = 0;  // of the clock; the pause for eyes counts from here
  std::string error;            // why the line cannot be carried out, with its number; ends the run
};

inline void Fail(AutoBetRun& run, std::string_view what, int number) {
  if (what.ends_with('.')) what.remove_suffix(1);
  run.error = std::string(what) + ", Error #" + std::to_string(number);
}
inline void FailOverflow(AutoBetRun& run) {
  Fail(run, "The amount is beyond all limits", 6);
}

// The slot of Chip-Stack `number`; a number that is no stack's fails the run, and gives slot 0.
BetId StackSlot(AutoBetRun& run, std::int32_t number);

enum class Moment { Now, AtThrow };

// The slot of the stack that stack `number` refers to by its value of that moment; 0 when that is no stack.
BetId ReferredSlot(AutoBetRun& run, Moment moment, std::int32_t number);

// The bet of this kind (Item::PointLay, ...) on the shooter's point; 0 on the come-out.
BetId BetOnPoint(const Game& g, std::int32_t item);

// The value of a code behind "of", as it is now or as it stood at the throw; 0 for a code that has none. For
// 1401 `index` is the rolls of the average, for stacks their number.
Money ValueOf(AutoBetRun& run, Moment moment, std::int32_t code, std::int32_t index);

// As many percent of that value as the line's amount says.
Money PercentOf(AutoBetRun& run, Moment moment, const ScriptStep& step);

// Sums beyond the range of Money fail the run.
class SafeSum {
 public:
  void Add(Money amount) { units_ += amount.Units(); }
  Money Total(AutoBetRun& run) const;

 private:
  __extension__ __int128 units_ = 0;
};

// `dollars` rounded once, ties to even; beyond the range it fails the run.
Money MoneyFrom(AutoBetRun& run, double dollars);

// Rebuilds g.ScriptProgram from the lines.
void DecodeScript(Game& g);

// What a condition tests, so that a run need not ask what its items are.
enum ConditionTest : std::int16_t {
  TestSlots,  // whatever stands in slots; the five below are those of it that are quickly told
  TestOneSlot,
  TestPointBet,
  TestStanding,
  TestDecided,
  TestBetCount,
  TestGame,
  TestThrow,
  TestOutcome,
  TestFlag,
  TestFlags,
  TestAvailable,
};
// What a run does at a stop: a ConditionTest, or one of these.
enum StopTest : std::int16_t { StopAtEnd = -1, StopAtBet = -2, StopAtAction = -3 };
ConditionTest TestOf(ScriptStep& step);

// Which of its slots an item means: just the one, any, all, or their sum.
enum ItemGroup : std::int16_t { NoGroup, AnyOf, AllOf, TotalOf };
ItemGroup GroupKindOf(std::int32_t item);

// In place of a slot: the moving average of the bankroll, and the available bankroll, which has no earlier
// value.
enum : BetId { SlotAverage = -1, SlotAvailable = -2 };

// Of a comparison of amounts the signs of left minus right for which it holds: bit 0 below, 1 equal, 2 above;
// 0 for other comparisons.
std::int16_t AcceptedSigns(std::int32_t op);

// The slots of an item of a condition that are the same in every roll, the bankroll's figures as slots below
// 0; nothing for other items.
std::optional<SlotRange> FixedRangeOf(std::int32_t code, std::int32_t index);

// What the step screen is told of the line at work; nothing unless steps are shown.
inline bool IsTraced(const Game& g) {
  return g.StepTraceOn && !g.HyperDriveActive;
}
void ShowStep(Game& g, std::string_view status);
inline void Trace(Game& g, std::string_view status) {
  if (IsTraced(g)) ShowStep(g, status);
}

// Whether a condition or an action, and those behind it up to the next line of another kind, are passed over.
bool IsPassedOver(const ScriptState& state, std::int32_t kind);

// A start line, or a label jumped to, takes over.
void DescribeStep(AutoBetRun& run, std::int32_t kind);

// What a line that is no condition and no action makes of the run's state.
void VisitLine(AutoBetRun& run, const ScriptStep& step);

// Finds the throw that came before the run, or none, and the ways that are known for it.
void FindThrow(AutoBetRun& run);

// The slots of an action's target that are the same in every roll and stand without a gap; nothing for
// others.
std::optional<SlotRange> FixedTargetsOf(std::int32_t code, std::int32_t index);
// Whether the bets of a target leave out the number that the line bet covers.
bool StaysOffTheLine(std::int32_t target);

// What comes of a condition line.
enum ConditionResult : std::int8_t { ConditionFalse, ConditionTrue, ConditionNew };
// `test` is the step's.
ConditionResult EvaluateCondition(AutoBetRun& run, const ScriptStep& step, std::int16_t test);

// Carries an action line out on each of its targets.
void ExecuteAction(AutoBetRun& run, const ScriptStep& step);

// What most actions are: a typed bet put up on slots that are always the same. Nothing can go wrong with it.
void PutUpTyped(Game& g, const ScriptStep& step);

// The verbs that change an amount: 10..58 and Round, on one slot.
void ChangeAmount(AutoBetRun& run, const ScriptStep& step, BetId slot);
void RoundAmount(AutoBetRun& run, const ScriptStep& step, BetId slot);

// Messages and questions, gathered from adjacent lines and shown behind the last of them.
void SayLine(AutoBetRun& run, const ScriptStep& step);
// What the player enters for Get input; nothing when the prompt was closed.
std::optional<Money> AskForInput(AutoBetRun& run);

// The output file.
void OpenOutput(AutoBetRun& run, bool append);
void CloseOutput(AutoBetRun& run);
void WriteOutput(AutoBetRun& run, std::string_view text);

// The line at work, and its name without blanks at the right.
inline const ScriptLine& LineOf(const AutoBetRun& run) {
  return run.g.ScriptLines[static_cast<std::size_t>(run.g.CurrentLine - 1)];
}
inline std::string_view NameOf(const AutoBetRun& run) {
  return TrimRight(LineOf(run).Name);
}

}  // namespace rollwick
