// A walk over the lines that keeps what was started and what was built, then a look at the labels.
#include "autobet/model/CheckStructure.h"

#include <unordered_set>

#include "autobet/model/Codes.h"
#include "autobet/model/Script.h"

namespace rollwick {

namespace {

constexpr const char* kNotAllowed =
    "\r\rThis is not allowed and must be resolved before you can run this auto-betting script.";

StructureFault Fault(int line, const char* title, const std::string& text) {
  return {line, title, text + kNotAllowed};
}

StructureFault OrphanCondition(int line) {
  return Fault(line, "Missing Start Condition",
               "The Condition line shown at the top of the screen is not associated with a Start Condition.");
}
StructureFault NoConditionAfter(int line) {
  return Fault(
      line, "Missing Condition Lines",
      "The Start Condition line shown at the top of the screen is not followed by a Condition line.");
}
StructureFault NoConditionBefore(int line) {
  return Fault(
      line, "Missing Condition Lines",
      "The Start Condition line shown at the top of the screen is not preceded by a Condition line.");
}
StructureFault OrphanAction(int line) {
  return Fault(line, "Missing Start Action",
               "The Action line shown at the top of the screen is not associated with a Start Action.");
}
StructureFault NoActionAfter(int line) {
  return Fault(line, "Missing Action Lines",
               "The Start Action line shown at the top of the screen is not followed by an Action line.");
}
StructureFault NoConditionBlockBefore(int line) {
  return Fault(line, "Missing Action Lines",
               "The Action block shown at the top of the screen is not immediately preceded by a Condition "
               "block.");
}
StructureFault NoActionBlock(int line) {
  return Fault(line, "Missing Action Lines",
               "The Condition block shown at the top of the screen has no Action block to go with it.");
}
StructureFault ElseWithoutThen(int line) {
  return Fault(line, "Missing Action Lines",
               "The else Start Action line shown at the top of the screen must be immediately preceded by a "
               "then block of action lines.");
}
StructureFault MisplacedLabel(int line) {
  return Fault(line, "Label Position",
               "The Label shown at the top of the screen appears between Condition Lines.");
}
StructureFault DuplicateLabel(int line) {
  return Fault(line, "Duplicate Label",
               "The Label shown at the top of the screen appears more than once in your list.");
}
StructureFault MissingLabel(int line, bool isGosub) {
  return Fault(line, "Missing Label",
               std::string("The ") + (isGosub ? "Gosub" : "Go to") +
                   " statement shown at the top of the screen references a Label that does not appear in "
                   "your list.");
}

class StructureWalk {
 public:
  // What is wrong once `line`, of this kind, follows the lines before it.
  std::optional<StructureFault> Take(std::int32_t kind, int line);
  std::optional<StructureFault> End() const;

 private:
  enum class State {
    Nothing,
    ConditionStarted,
    ConditionBuilt,
    ThenStarted,
    ThenBuilt,
    OtherStarted,  // else, Do this
    OtherBuilt,
  };

  std::optional<StructureFault> TakeStartOfConditions(std::int32_t kind, int line);
  std::optional<StructureFault> TakeCondition(int line);
  std::optional<StructureFault> TakeStartOfActions(std::int32_t kind, int line);
  std::optional<StructureFault> TakeAction(int line);

  // The start line before is still without its lines.
  std::optional<StructureFault> Unfinished() const {
    if (state_ == State::ConditionStarted) return NoConditionAfter(start_);
    if (state_ == State::ThenStarted || state_ == State::OtherStarted) return NoActionAfter(start_);
    return {};
  }
  bool IsInConditions() const { return state_ == State::ConditionStarted || state_ == State::ConditionBuilt; }

  State state_ = State::Nothing;
  int start_ = 0;  // line of the last start
  int group_ = 0;  // line of the last When or While
  int label_ = 0;  // line of a label among these conditions, in case another follows it
};

std::optional<StructureFault> StructureWalk::Take(std::int32_t kind, int line) {
  if (IsStartOfConditions(kind)) return TakeStartOfConditions(kind, line);
  if (IsStartOfActions(kind)) return TakeStartOfActions(kind, line);
  if (kind == KindCondition) return TakeCondition(line);
  if (kind == KindAction) return TakeAction(line);
  if (kind == KindLabel && IsInConditions() && label_ == 0) label_ = line;
  return {};
}

std::optional<StructureFault> StructureWalk::TakeStartOfConditions(std::int32_t kind, int line) {
  if (auto fault = Unfinished()) return fault;
  const bool goesOn = kind >= KindAndWhen;
  if (goesOn && state_ != State::ConditionBuilt) return NoConditionBefore(line);
  if (goesOn && label_ != 0) return MisplacedLabel(label_);
  if (!goesOn && state_ == State::ConditionBuilt) return NoActionBlock(group_);
  state_ = State::ConditionStarted;
  start_ = line;
  if (!goesOn) group_ = line;
  label_ = 0;
  return {};
}

std::optional<StructureFault> StructureWalk::TakeCondition(int line) {
  if (!IsInConditions()) {
    if (auto fault = Unfinished()) return fault;
    return OrphanCondition(line);
  }
  if (label_ != 0) return MisplacedLabel(label_);
  state_ = State::ConditionBuilt;
  return {};
}

std::optional<StructureFault> StructureWalk::TakeStartOfActions(std::int32_t kind, int line) {
  if (auto fault = Unfinished()) return fault;
  if (kind == KindThen && state_ != State::ConditionBuilt) return NoConditionBlockBefore(line);
  if (kind == KindElse && state_ != State::ThenBuilt) return ElseWithoutThen(line);
  if (kind == KindDoThis && state_ == State::ConditionBuilt) return NoActionBlock(group_);
  state_ = kind == KindThen ? State::ThenStarted : State::OtherStarted;
  start_ = line;
  label_ = 0;
  return {};
}

std::optional<StructureFault> StructureWalk::TakeAction(int line) {
  if (state_ == State::ConditionStarted) return NoConditionAfter(start_);
  if (state_ == State::Nothing || state_ == State::ConditionBuilt) return OrphanAction(line);
  if (state_ == State::ThenStarted) state_ = State::ThenBuilt;
  if (state_ == State::OtherStarted) state_ = State::OtherBuilt;
  return {};
}

std::optional<StructureFault> StructureWalk::End() const {
  if (auto fault = Unfinished()) return fault;
  if (state_ == State::ConditionBuilt) return NoActionBlock(group_);
  return {};
}

std::optional<StructureFault> CheckBlocks(std::span<const ScriptLine> lines) {
  StructureWalk walk;
  int number = 0;
  for (const ScriptLine& line : lines) {
    if (auto fault = walk.Take(line.Kind, ++number)) return fault;
  }
  return walk.End();
}

std::optional<StructureFault> CheckLabels(std::span<const ScriptLine> lines) {
  std::unordered_set<std::string> labels;
  int number = 0;
  for (const ScriptLine& line : lines) {
    ++number;
    if (line.Kind == KindLabel && !labels.insert(LowerTrimmed(line.Name)).second) {
      return DuplicateLabel(number);
    }
  }
  number = 0;
  for (const ScriptLine& line : lines) {
    ++number;
    const bool isJump = line.Kind == KindAction && (line.Op == Verb::GoTo || line.Op == Verb::Gosub);
    if (isJump && !labels.contains(LowerTrimmed(line.Name))) {
      return MissingLabel(number, line.Op == Verb::Gosub);
    }
  }
  return {};
}

}  // namespace

std::optional<StructureFault> CheckStructure(std::span<const ScriptLine> lines) {
  if (auto fault = CheckBlocks(lines)) return fault;
  return CheckLabels(lines);
}

}  // namespace rollwick
