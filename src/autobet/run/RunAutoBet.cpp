// The walk over the script: from each condition and action to the next one.
#include "autobet/run/RunAutoBet.h"

#include <algorithm>

#include "autobet/model/Codes.h"
#include "autobet/run/Conditions.h"
#include "autobet/run/Output.h"
#include "autobet/run/Run.h"
#include "engine/bets/Placement.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

constexpr std::int32_t kLinesPerPump = 500;
constexpr std::uint32_t kPauseMilliseconds = 300;

// ---- What the step screen is told.

constexpr std::string_view kReturned =
    "A \"Return\" statement has caused a jump back to this \"GoSub\" statement.  Processing will resume with "
    "the next line in order.";
constexpr std::string_view kReturnIgnored =
    "This statement will be ignored since it was not encountered as a result of a \"GoSub\" statement.  "
    "Processing will resume with the next line in order.";
constexpr std::string_view kFalse = "Condition is false. ";
constexpr std::string_view kTrueAndNew = "Condition is true (just now occurred). ";
constexpr std::string_view kTrueNotNew = "Condition is true (not a new occurrence). ";

void TakeAction(AutoBetRun& run, const ScriptStep& step) {
  if (step.StartsGroup) {
    run.groupCount = 0;
    run.groupValue = Money();
  }
  const bool isIgnored = step.Op == Verb::Return && run.returnLines.empty();
  ExecuteAction(run, step);
  if (IsTraced(run.g) && run.error.empty()) ShowStep(run.g, isIgnored ? kReturnIgnored : "Action taken.");
}

// ---- The walk.

// Lets the world act every so many lines, the only guard against a script that goes round for ever. False
// when that stopped the run.
[[gnu::noinline]] bool LetTheWorldAct(Game& g) {
  if (!g.TheHost->EventsAreDue()) return true;
  BringUpToDate(g);
  g.TheHost->PumpEvents(g);
  StartCounting(g);
  return g.AutoBetRunning;
}

const ScriptStep& StepAt(const Game& g, std::int32_t line) {
  return g.ScriptProgram[static_cast<std::size_t>(line - 1)];
}

ScriptStop& StopAt(Game& g, std::int32_t stop) {
  return g.ScriptStops[static_cast<std::size_t>(stop)];
}

// A condition's result in the run's state.
void TakeResult(AutoBetRun& run, ConditionResult result) {
  run.blockTrue = result != ConditionFalse;
  run.lineOccurred = result == ConditionNew;
  if (run.lineOccurred) run.blockOccurred = true;
}

// Whether the run has to stop at a line that is not passed over.
bool IsStop(const AutoBetRun& run, const ScriptStep& step) {
  return step.Kind == KindAction ||
         (step.Kind == KindCondition && (step.Test != TestThrow || run.thrown < 0));
}

// From `line` to the next one that is a condition to be tested or an action to be taken.
std::int32_t WalkToStop(AutoBetRun& run, std::int32_t line) {
  Game& g = run.g;
  while (line <= std::ssize(g.ScriptProgram)) {
    const ScriptStep& step = StepAt(g, line);
    const bool isPassed = IsPassedOver(run, step.Kind);
    if (!isPassed && IsStop(run, step)) return line;
    g.CurrentLine = line;
    if (!isPassed && step.Kind == KindCondition) TakeResult(run, EvaluateCondition(run, step, step.Test));
    if (!isPassed) VisitLine(run, step);
    line = isPassed ? step.Past : step.Next;
  }
  return line;
}

std::int16_t TestAtStop(const Game& g, std::int32_t line) {
  if (line > std::ssize(g.ScriptProgram)) return StopAtEnd;
  const ScriptStep& step = StepAt(g, line);
  if (step.Kind == KindCondition) return step.Test;
  return step.IsTypedBet ? StopAtBet : StopAtAction;
}

// The stop at this line in the run's state.
std::int32_t FindStop(AutoBetRun& run, std::int32_t line) {
  Game& g = run.g;
  std::uint64_t key = static_cast<std::uint64_t>(line);
  for (const bool bit : {run.blockTrue, run.lineOccurred, run.blockOccurred, run.prevBlockTrue, run.decided})
    key = key * 2 + (bit ? 1 : 0);
  key = key * 128 + static_cast<std::uint64_t>(run.blockKind);
  key = key * 128 + static_cast<std::uint64_t>(run.xorMode);
  const auto [place, isNew] =
      g.ScriptStopPlaces.try_emplace(key, static_cast<std::int32_t>(g.ScriptStops.size()));
  if (isNew) g.ScriptStops.push_back({line, run});
  return place->second;
}

// Walks from a stop at `line` (0 is the start) that the run has dealt with to the next one: straight on, or
// where a jump or a return was asked for.
ScriptWay FindWay(AutoBetRun& run, std::int32_t line) {
  Game& g = run.g;
  const auto end = static_cast<std::int32_t>(g.ScriptProgram.size()) + 1;
  std::int32_t from = line == 0 ? 1 : StepAt(g, line).Next;
  std::int32_t lines = 0;
  if (run.jumpTo < 0) {  // to a label that is not there
    lines = end - 1;
    from = end;
  } else if (run.jumpTo > 0) {  // the label was looked for from the top of the script
    lines = run.jumpTo;
    g.CurrentLine = run.jumpTo;
    DescribeStep(run, KindLabel);
    from = StepAt(g, run.jumpTo).Next;
  } else if (run.returnPending) {
    g.CurrentLine = run.returnLines.back();
    run.returnLines.pop_back();
    Trace(g, kReturned);
    from = StepAt(g, g.CurrentLine).Next;
  }
  const std::int32_t stopLine = WalkToStop(run, from);
  const std::int32_t behind = stopLine < end ? StepAt(g, stopLine).Next : end;
  lines = std::min(lines + behind - from, kLinesPerPump);  // more would let the world in no sooner
  return {FindStop(run, stopLine), static_cast<std::int16_t>(lines), TestAtStop(g, stopLine)};
}

ScriptWay KnownWay(const AutoBetRun& run, std::int32_t stop, std::size_t outcome) {
  return run.ways[static_cast<std::size_t>(stop)][outcome];
}

// The ways on the run's throw, with a place for every stop.
ScriptWays* WaysOnThrow(AutoBetRun& run) {
  auto& ways = run.g.WaysOfThrow[static_cast<std::size_t>(run.thrown + 1)];
  if (ways.size() < run.g.ScriptStops.size()) ways.resize(run.g.ScriptStops.size());
  return ways.data();
}

// The way on from a stop, remembered but for returns, which go where the call came from.
[[gnu::noinline]] ScriptWay TakeNewWay(AutoBetRun& run, std::int32_t stop, std::size_t outcome) {
  const ScriptWay way = FindWay(run, StopAt(run.g, stop).Line);
  run.ways = WaysOnThrow(run);
  if (!run.returnPending) run.ways[static_cast<std::size_t>(stop)][outcome] = way;
  run.returnPending = false;
  return way;
}

// What comes of a condition, told to the run and to who looks on, when its way is not known.
[[gnu::noinline]] ScriptWay GoOnAnew(AutoBetRun& run, std::int32_t stop, ConditionResult result) {
  TakeResult(run, result);
  if (!run.error.empty()) return {};
  Trace(run.g, !run.blockTrue ? kFalse : run.lineOccurred ? kTrueAndNew : kTrueNotNew);
  return TakeNewWay(run, stop, static_cast<std::size_t>(result));
}

// The way on with this result by branches that stay branches, so that the processor goes on by its guess
// while it still tests the condition: a walk waits for nothing then.
ScriptWay WayByGuess(const ScriptWays& ways, ConditionResult result) {
  if (result == ConditionFalse) {
    ScriptWay way = ways[ConditionFalse];
    asm volatile("" : "+r"(way.Stop));
    return way;
  }
  if (result == ConditionTrue) {
    ScriptWay way = ways[ConditionTrue];
    asm volatile("" : "+r"(way.Stop));
    return way;
  }
  return ways[ConditionNew];
}

ScriptWay PassCondition(AutoBetRun& run, std::int32_t stop, const ScriptStep& step, std::int16_t test) {
  const ConditionResult result = EvaluateCondition(run, step, test);
  const ScriptWay way = WayByGuess(run.ways[stop], result);
  if (way.Stop < 0 || IsTraced(run.g) || !run.error.empty()) return GoOnAnew(run, stop, result);
  return way;
}

ScriptWay PassBet(AutoBetRun& run, std::int32_t stop, const ScriptStep& step) {
  PutUpTyped(run.g, step);
  const ScriptWay way = KnownWay(run, stop, 0);
  return way.Stop >= 0 ? way : TakeNewWay(run, stop, 0);
}

ScriptWay PassAction(AutoBetRun& run, std::int32_t stop, const ScriptStep& step) {
  TakeAction(run, step);
  if (!run.error.empty() || !run.g.AutoBetRunning) return {};
  const std::size_t outcome = run.jumpTo != 0 ? 1 : 0;
  ScriptWay way = KnownWay(run, stop, outcome);
  if (way.Stop < 0 || run.returnPending || IsTraced(run.g)) way = TakeNewWay(run, stop, outcome);
  run.jumpTo = 0;
  return way;
}

// What comes of the stop that a way leads to, and the way on from there.
ScriptWay PassStop(AutoBetRun& run, const ScriptWay& way) {
  Game& g = run.g;
  const ScriptStop& stop = StopAt(g, way.Stop);
  static_cast<ScriptState&>(run) = stop.State;
  g.CurrentLine = stop.Line;
  const ScriptStep& step = StepAt(g, stop.Line);
  if (way.Test >= 0) return PassCondition(run, way.Stop, step, way.Test);
  // In Hyper-Drive nobody can interfere with a typed bet.
  if (way.Test == StopAtBet && g.HyperDriveActive) return PassBet(run, way.Stop, step);
  return PassAction(run, way.Stop, step);
}

// Every line is visited anew while the steps are shown.
void Walk(AutoBetRun& run) {
  Game& g = run.g;
  ScriptWay way = KnownWay(run, 0, 0);
  if (way.Stop < 0 || IsTraced(g)) way = TakeNewWay(run, 0, 0);
  std::int32_t lines = 0;
  while (way.Stop >= 0) {
    lines += way.Lines;
    if (lines >= kLinesPerPump) {
      lines = 0;
      if (!LetTheWorldAct(g)) return;
    }
    if (way.Test == StopAtEnd) return;
    way = PassStop(run, way);
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

void FindThrow(AutoBetRun& run) {
  constexpr std::size_t kMostStops = 1'000;  // of a longer script the ways would fill the memory
  const bool mayRemember = run.g.HyperDriveActive && run.g.ScriptStops.size() <= kMostStops;
  run.thrown = mayRemember ? ThrowNow(run.g) : -1;
  run.ways = WaysOnThrow(run);
}

void RunAutoBet(Game& g) {
  if (g.AutoBetRunning) return;
  if (!g.ScriptIsDecoded) DecodeScript(g);
  if (!g.RollInProgress) StartCounting(g);  // the table may have been changed, or be another one
  if (g.Point != g.PointBeforeRoll) ForgetAnswersOnPoint(g);
  AutoBetRun run(g);
  FindThrow(run);
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
