// The lines between conditions and actions: which blocks hold, which actions are passed over, and what the
// step screen is told of it.
#include "autobet/model/Codes.h"
#include "autobet/run/Run.h"

namespace rollwick {

namespace {

// ---- What the step screen is told.

constexpr std::string_view kAskForNew =
    "This block of conditions will be true if each line is true and at least one has just occurred.";
constexpr std::string_view kAskForTrue = "This block of conditions will be true if each line is true.";
constexpr std::string_view kAlreadyFalse =
    "Since some conditions are already false, this block will be skipped. ";
constexpr std::string_view kXorWhen =
    "This block of conditions will be true if each line is true and at least one has just occurred.  The xor "
    "condition will be then be evaluated with it and the previous block. ";
constexpr std::string_view kXorWhile =
    "This block of conditions will be true if each line is true. The xor condition will be then be evaluated "
    "with it and the previous block. ";
constexpr std::string_view kThenTaken =
    "Since the overall conditions were true, the next actions will be taken. ";
constexpr std::string_view kThenSkipped =
    "Since the overall conditions were false, the next actions will be skipped. ";
constexpr std::string_view kElseSkipped =
    "Since the previous actions were taken, the next actions will be skipped. ";
constexpr std::string_view kElseTaken =
    "Since the previous actions were skipped, the next actions will be taken. ";
constexpr std::string_view kDoThis = "This block of actions will be executed directly. ";
constexpr std::string_view kJumpedTo = "A \"Go to\" or \"GoSub\" statement has caused a jump to this label. ";
constexpr std::string_view kLabelPassed = "This label was encountered normally.";
constexpr std::string_view kNoneNew =
    "All the conditions in the block were true, but none have just now occurred - so the block is false. ";
constexpr std::string_view kAllTrue = "All the conditions in the block were true. ";
constexpr std::string_view kSomeFalse = "At least one condition was false, so the block is false. ";
constexpr std::string_view kXorTrueByPrevious =
    "However, the previous block was true, therefore the xor condition is true. ";
constexpr std::string_view kXorBothFalse =
    "And since the previous block was also false, the xor condition is false. ";
constexpr std::string_view kXorBothTrue =
    "However, the previous block was also true, therefore the xor condition is false. ";
constexpr std::string_view kXorTrue =
    "And since the previous block was false, the xor condition is also true. ";

void TraceBlock(Game& g, std::string_view status, std::string_view more) {
  if (!IsTraced(g)) return;
  StepTrace trace;
  trace.status = "Status: " + std::string(status) + std::string(more);
  g.TheHost->ShowStep(g, trace);
}

std::string_view StartText(const AutoBetRun& run, std::int32_t kind) {
  switch (kind) {
    case KindWhen:
    case KindOrWhen:
      return kAskForNew;
    case KindWhile:
    case KindOrWhile:
      return kAskForTrue;
    case KindAndWhen:
      return run.blockTrue ? kAskForNew : kAlreadyFalse;
    case KindAndWhile:
      return run.blockTrue ? kAskForTrue : kAlreadyFalse;
    case KindXorWhen:
      return kXorWhen;
    case KindXorWhile:
      return kXorWhile;
    case KindThen:
      return run.decided ? kThenTaken : kThenSkipped;
    case KindElse:
      return run.decided ? kElseSkipped : kElseTaken;
    case KindDoThis:
      return kDoThis;
    default:
      return kJumpedTo;
  }
}

// ---- Blocks.

// The block of conditions above a line of this kind ends there: its result meets the one before it. The line
// itself tells an `and` that goes on from an `or` or a `then`; before an `xor` the result is kept.
void CloseBlock(AutoBetRun& run, std::int32_t kind) {
  const bool isAnd = kind == KindAndWhen || kind == KindAndWhile;
  const bool isXor = kind == KindXorWhen || kind == KindXorWhile;
  const bool wasXor = run.xorMode != 0;
  const bool previous = run.prevBlockTrue;
  std::string_view words = kSomeFalse, xorWords;
  if (run.blockTrue && !run.blockOccurred && AsksForNew(run.blockKind)) {
    run.blockTrue = false;
    // Meant: after an `xor while` the block before is forgotten here.
    if (run.xorMode == KindXorWhen) {
      if (previous) run.decided = true;
    } else {
      run.prevBlockTrue = false;
    }
    words = kNoneNew;
    if (wasXor) xorWords = previous ? kXorTrueByPrevious : kXorBothFalse;
  } else if (run.blockTrue) {
    if (!wasXor) {
      run.prevBlockTrue = true;
    } else if (!isAnd && previous) {
      run.prevBlockTrue = false;
    } else if (!isAnd) {
      run.decided = true;
    }
    words = kAllTrue;
    if (wasXor) xorWords = previous ? kXorBothTrue : kXorTrue;
  } else {
    if (wasXor && previous) {
      run.decided = true;
    } else {
      run.prevBlockTrue = false;
    }
    if (wasXor) xorWords = previous ? kXorTrueByPrevious : kXorBothFalse;
  }
  run.xorMode = 0;
  if (run.prevBlockTrue && !isAnd && !isXor) run.decided = true;
  if (run.decided && kind != KindThen) return;
  TraceBlock(run.g, words, xorWords);
  DescribeStep(run, kind);
}

}  // namespace

void ShowStep(Game& g, std::string_view status) {
  StepTrace trace;
  trace.lineNumber = "Line #" + std::to_string(g.CurrentLine);
  trace.step = g.ScriptLines[static_cast<std::size_t>(g.CurrentLine - 1)].Text;
  trace.status = "Status: " + std::string(status);
  g.TheHost->ShowStep(g, trace);
}

void DescribeStep(AutoBetRun& run, std::int32_t kind) {
  run.blockKind = static_cast<std::int16_t>(kind);
  run.blockOccurred = false;
  if (kind == KindXorWhen || kind == KindXorWhile) run.xorMode = run.blockKind;
  if (IsTraced(run.g)) Trace(run.g, StartText(run, kind));
}

bool IsPassedOver(const ScriptState& state, std::int32_t kind) {
  if (kind == KindCondition) return state.decided || !state.blockTrue;
  return kind == KindAction &&
         ((state.blockKind == KindThen && !state.decided) || (state.blockKind == KindElse && state.decided));
}

void VisitLine(AutoBetRun& run, const ScriptStep& step) {
  switch (step.Kind) {
    case KindWhen:
    case KindWhile:
      run.decided = run.prevBlockTrue = false;
      run.blockTrue = true;
      return DescribeStep(run, step.Kind);
    case KindAndWhen:
    case KindAndWhile:
      if (run.blockTrue && !run.lineOccurred && AsksForNew(run.blockKind)) return CloseBlock(run, step.Kind);
      return DescribeStep(run, step.Kind);
    case KindOrWhen:
    case KindOrWhile:
    case KindXorWhen:
    case KindXorWhile:
      if (run.decided) return;
      CloseBlock(run, step.Kind);
      run.blockTrue = true;
      return;
    case KindThen:
      return CloseBlock(run, step.Kind);
    case KindElse:
    case KindDoThis:
      return DescribeStep(run, step.Kind);
    case KindLabel:
      return Trace(run.g, kLabelPassed);
    default:
      return;
  }
}

}  // namespace rollwick
