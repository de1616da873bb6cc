// The walk over the script: which blocks hold, which actions run, where it goes on.
#include "autobet/run/RunAutoBet.h"

#include "autobet/model/Codes.h"
#include "autobet/run/Output.h"
#include "autobet/run/Run.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

constexpr std::int32_t kLinesPerPump = 500;
constexpr std::uint32_t kPauseMilliseconds = 300;

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
constexpr std::string_view kReturned =
    "A \"Return\" statement has caused a jump back to this \"GoSub\" statement.  Processing will resume with "
    "the "
    "next line in order.";
constexpr std::string_view kReturnIgnored =
    "This statement will be ignored since it was not encountered as a result of a \"GoSub\" statement.  "
    "Processing will resume with the next line in order.";
constexpr std::string_view kFalse = "Condition is false. ";
constexpr std::string_view kTrueAndNew = "Condition is true (just now occurred). ";
constexpr std::string_view kTrueNotNew = "Condition is true (not a new occurrence). ";
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

void ShowStep(Game& g, std::string_view status, std::string_view more, bool isOfLine) {
  StepTrace trace;
  if (isOfLine) {
    trace.lineNumber = "Line #" + std::to_string(g.CurrentLine);
    trace.step = g.ScriptLines[static_cast<std::size_t>(g.CurrentLine - 1)].Text;
  }
  trace.status = "Status: " + std::string(status) + std::string(more);
  g.TheHost->ShowStep(g, trace);
}

bool IsTraced(const Game& g) {
  return g.StepTraceOn && !g.HyperDriveActive;
}
void Trace(Game& g, std::string_view status) {
  if (IsTraced(g)) ShowStep(g, status, {}, true);
}
void TraceBlock(Game& g, std::string_view status, std::string_view more) {
  if (IsTraced(g)) ShowStep(g, status, more, false);
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

// A start line, or a label jumped to, takes over.
void DescribeStep(AutoBetRun& run, std::int32_t kind) {
  run.blockKind = kind;
  run.blockOccurred = false;
  if (kind == KindXorWhen || kind == KindXorWhile) run.xorMode = kind;
  if (IsTraced(run.g)) Trace(run.g, StartText(run, kind));
}

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

void TestCondition(AutoBetRun& run, const ScriptStep& step) {
  EvaluateConditionLine(run, step);
  if (run.lineOccurred) run.blockOccurred = true;
  if (!run.error.empty()) return;
  Trace(run.g, !run.blockTrue ? kFalse : run.lineOccurred ? kTrueAndNew : kTrueNotNew);
}

void TakeAction(AutoBetRun& run, const ScriptStep& step) {
  if (step.StartsGroup) {
    run.groupCount = 0;
    run.groupValue = Money();
  }
  const bool isIgnored = step.Op == Verb::Return && run.returnLines.empty();
  ExecuteAction(run, step);
  if (run.error.empty()) Trace(run.g, isIgnored ? kReturnIgnored : "Action taken.");
}

// Whether a condition or an action, and those behind it up to the next line of another kind, are passed over.
bool IsPassedOver(const AutoBetRun& run, std::int32_t kind) {
  if (kind == KindCondition) return run.decided || !run.blockTrue;
  return kind == KindAction &&
         ((run.blockKind == KindThen && !run.decided) || (run.blockKind == KindElse && run.decided));
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
    case KindCondition:
      return TestCondition(run, step);
    case KindThen:
      return CloseBlock(run, step.Kind);
    case KindElse:
    case KindDoThis:
      return DescribeStep(run, step.Kind);
    case KindAction:
      return TakeAction(run, step);
    case KindLabel:
      return Trace(run.g, kLabelPassed);
    default:
      return;
  }
}

// ---- The walk.

// Counts lines visited; lets the world act every so often, the only guard against a script that goes round
// for ever. False when that stopped the run.
bool CountLines(AutoBetRun& run, std::int32_t lines) {
  run.linesSincePump += lines;
  if (run.linesSincePump < kLinesPerPump) return true;
  run.linesSincePump = 0;
  if (!run.g.TheHost->EventsAreDue()) return true;
  BringUpToDate(run.g);
  run.g.TheHost->PumpEvents(run.g);
  StartCounting(run.g);
  return run.g.AutoBetRunning;
}

// The line behind the label, found from the top of the script; behind the last line when it is not there.
std::int32_t Jump(AutoBetRun& run) {
  Game& g = run.g;
  const auto lines = static_cast<std::int32_t>(g.ScriptProgram.size());
  const std::int32_t label = run.jumpTo;
  run.jumpTo = 0;
  if (!CountLines(run, label < 0 ? lines : label) || label < 0) return lines + 1;
  g.CurrentLine = label;
  DescribeStep(run, KindLabel);
  return g.ScriptProgram[static_cast<std::size_t>(label - 1)].Next;
}

std::int32_t JumpBack(AutoBetRun& run) {
  Game& g = run.g;
  run.returnPending = false;
  g.CurrentLine = run.returnLines.back();
  run.returnLines.pop_back();
  Trace(g, kReturned);
  return g.ScriptProgram[static_cast<std::size_t>(g.CurrentLine - 1)].Next;
}

void Walk(AutoBetRun& run) {
  Game& g = run.g;
  const auto lines = static_cast<std::int32_t>(g.ScriptProgram.size());
  std::int32_t line = 1;
  while (line <= lines) {
    const ScriptStep& step = g.ScriptProgram[static_cast<std::size_t>(line - 1)];
    const bool isPassed = IsPassedOver(run, step.Kind);
    const std::int32_t next = isPassed ? step.Past : step.Next;
    g.CurrentLine = line;
    if (!CountLines(run, next - line)) return;
    line = next;
    if (isPassed) continue;
    VisitLine(run, step);
    if (!g.AutoBetRunning) return;
    if (step.Kind != KindAction && step.Kind != KindCondition) continue;
    if (run.jumpTo != 0) line = Jump(run);
    if (run.returnPending) line = JumpBack(run);
    if (!run.error.empty() || !g.AutoBetRunning) return;
  }
}

void Abort(Game& g, const std::string& error) {
  g.KeepRolling = false;
  if (g.HyperDriveActive) g.StopMessage = "Auto-Bet error.";
  g.LastErrorText = error + " occurred, at: Run Auto-Bet";
  ShowMessage(g,
              "The following error has caused Auto-Betting to abort at line #" +
                  std::to_string(g.CurrentLine) + ":\r\r" + error + "\r\rPress help for more information.",
              "Auto-Bet Abort");
}

void TakeSnapshots(Game& g) {
  g.BetAfterSettle = g.BetAmount;
  for (FlagEntry& flag : g.ScriptFlags) flag.PrevValue = flag.Value;
}

}  // namespace

void RunAutoBet(Game& g) {
  if (g.AutoBetRunning) return;
  if (!g.ScriptIsDecoded) DecodeScript(g);
  AutoBetRun run(g);
  g.AutoBetRunning = true;
  g.LastAnswer = 1;
  const bool isWatched = !g.HyperDriveActive;
  if (isWatched) {
    if (g.HotKeyRunning || !g.StepTraceOn)
      g.TheHost->ShowStatus(g, g.HotKeyRunning ? "Hot-Key" : "Auto-Betting");
    run.startedAt = g.TheHost->Milliseconds(g);
  }
  Walk(run);
  if (!run.error.empty()) Abort(g, run.error);
  if (isWatched) {
    FlushScriptOutput(g);
    g.TheHost->WaitForEyes(g, run.startedAt, kPauseMilliseconds);
  }
  g.AutoBetRunning = false;
  if (isWatched) g.TheHost->TableChanged(g);
}

void InitializeAutoBets(Game& g) {
  g.AutoBetsChanged = true;
  RunAutoBet(g);
  TakeSnapshots(g);
  g.AutoBetsChanged = false;
}

void OfferInitialize(Game& g) {
  if (!g.AutoBetsChanged) return;
  if (AutoBetsAreOn(g) &&
      AskYesNo(
          g,
          "Your Auto-Bets have changed or been activated.\r\rYou have an opportunity now to run your "
          "Auto-Bet "
          "script for one cycle BEFORE the dice roll in order to check and set any initial conditions.\r\r"
          "Would you like to initialize your Auto-Bets?",
          "Auto-Bet")) {
    InitializeAutoBets(g);
    g.TheHost->PumpEvents(g);
    StartCounting(g);
  }
  g.AutoBetsChanged = false;
}

}  // namespace rollwick
