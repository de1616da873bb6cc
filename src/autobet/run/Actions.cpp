// One action line, carried out on each of its targets.
#include <cerrno>
#include <cmath>

#include "autobet/model/Codes.h"
#include "autobet/run/Run.h"
#include "dice/Draw.h"
#include "dice/ProbabilityFile.h"
#include "engine/bets/Bankroll.h"
#include "engine/bets/Placement.h"
#include "engine/game/NewGame.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

constexpr std::size_t kDeepestGosub = 1'000'000;
constexpr std::uint32_t kSoundMilliseconds = 600;

// The slots of a target; nothing when it has none now.
std::optional<SlotRange> TargetsOf(AutoBetRun& run, const ScriptStep& step) {
  if (step.RightFirst <= step.RightLast) return SlotRange{step.RightFirst, step.RightLast};
  const std::int32_t code = step.RightCode;
  const auto only = [](BetId slot) {
    return slot == 0 ? std::nullopt : std::optional<SlotRange>({slot, slot});
  };
  if (const auto group = GroupOfValue(code)) return group;
  switch (code) {
    case Item::Stack:
      return only(StackSlot(run, step.RightIndex));
    case Item::StackRef:
      return only(ReferredSlot(run, Moment::Now, step.RightIndex));
    case Target::AllStacks:
      // Meant: one slot more than a sum of all stacks takes in.
      return SlotRange{SlotChipStack, SlotBehindStacks};
    default:
      return only(BetOnPoint(run.g, code));
  }
}

// Place bets stay off the number the line bet already covers, unless a Come bet has travelled there too.
bool IsCoveredByLine(const Game& g, const ScriptStep& step, BetId slot) {
  if (!step.StaysOffTheLine || !g.AutoRemovePlaceBets || g.BetAmount[Bet::PassLine] <= Money()) return false;
  return NumberOf(slot) == g.Point && g.BetAmount[ComeOn(g.Point)] <= Money();
}

template <class Act>
void OnEachTarget(AutoBetRun& run, const ScriptStep& step, Act act) {
  const auto targets = TargetsOf(run, step);
  if (!targets) return;
  for (BetId slot = targets->first; slot <= targets->last && run.error.empty(); ++slot) {
    if (targets->Holds(slot) && !IsCoveredByLine(run.g, step, slot)) act(slot);
  }
}

void ResetRolls(Game& g, const ScriptStep& step) {
  if (step.AllNumbers) {
    for (RollEvent event = 2; event < kRollEventCount - 1; ++event) ResetTrackedEvent(g, event);
    return;
  }
  const RollEvent event = step.RightCode - Item::FirstOutcome;
  if (event >= 2 && event < kRollEventCount - 1) ResetTrackedEvent(g, event);
}

void ResetWins(Game& g, BetId slot) {
  if (IsBet(slot)) g.BetStreak[slot] = {};
}

void CallSubroutine(AutoBetRun& run, const ScriptStep& step) {
  if (run.returnLines.size() >= kDeepestGosub) {
    return Fail(run, "Gosub has been called a million times without a Return", 14);
  }
  run.returnLines.push_back(run.g.CurrentLine);
  run.jumpTo = step.Jump;
}

void ReturnFromSubroutine(AutoBetRun& run) {
  if (run.returnLines.empty()) return;
  run.returnPending = run.decided = true;
}

// A flag holds 16 bits.
std::optional<std::int16_t> FlagValue(AutoBetRun& run, Money amount) {
  const double value = std::nearbyint(amount.ToDouble());
  if (value >= -32768 && value <= 32767) return static_cast<std::int16_t>(value);
  FailOverflow(run);
  return {};
}

void SetFlags(AutoBetRun& run, const ScriptStep& step) {
  const auto value = FlagValue(run, step.Amount);
  if (!value) return;
  auto& flags = run.g.ScriptFlags;
  if (step.Op == Verb::SetAllFlags) {
    for (FlagEntry& flag : flags) flag.Value = *value;
  } else if (step.Flag >= 0) {
    flags[static_cast<std::size_t>(step.Flag)].Value = *value;
  }
}

void NameStack(AutoBetRun& run, const ScriptStep& step) {
  const BetId slot = step.Op == Verb::NameStack ? StackSlot(run, step.LeftIndex)
                                                : ReferredSlot(run, Moment::Now, step.LeftIndex);
  if (slot != 0) run.g.ChipStackName[static_cast<std::size_t>(slot - SlotChipStack)] = NameOf(run);
}

// Meant: Chip-Stack 0 keeps its name.
void ClearNames(Game& g) {
  for (std::size_t stack = 1; stack < g.ChipStackName.size(); ++stack) g.ChipStackName[stack].clear();
}

void PlaySound(AutoBetRun& run) {
  Game& g = run.g;
  if (g.HyperDriveActive) return;
  const FileGrant grant = g.TheHost->GrantFile(g, TrimBlanks(NameOf(run)), FileUse::Read);
  if (grant.refusal.empty()) g.TheHost->PlayFile(g, grant.path);
  run.startedAt = g.TheHost->Milliseconds(g) - kSoundMilliseconds;
}

void ActivateProbability(AutoBetRun& run) {
  Game& g = run.g;
  const FileGrant grant = g.TheHost->GrantFile(g, TrimBlanks(NameOf(run)), FileUse::Read);
  if (!grant.refusal.empty()) return Fail(run, grant.refusal, EACCES);
  const std::optional<Message> refusal = LoadProbabilityFile(g, grant.path);
  if (!refusal) {
    g.UseProbabilityMatrix = true;
  } else if (refusal->text.find(", Error #") != std::string::npos) {
    run.error = refusal->text;
  } else {
    Fail(run, refusal->text, EINVAL);
  }
}

// Handlers 6 and 7, the formulas of the screens, are not offered to scripts but stand in the same list.
void SetHandler(AutoBetRun& run, std::int32_t& handler, std::int32_t choice) {
  if (choice < WinManual || choice > WinBetFormula) {
    return Fail(run, "There is no choice " + std::to_string(choice) + " of what becomes of bets", 5);
  }
  handler = choice;
}

// Scripts reach the first five generators.
void SelectRng(Game& g, Money number) {
  const Money whole = WholeDollarsBelow(number);
  if (whole < Dollars(1) || whole > Dollars(5)) return;
  g.RngChoice = static_cast<std::int32_t>(whole.Units() / Money::kUnitsPerDollar) - 1;
  FallBackFromMissingGenerator(g);
}

void Seed(AutoBetRun& run) {
  Game& g = run.g;
  switch (SeedGenerator(g, true)) {
    case SeedResult::Seeded:
      return;
    case SeedResult::OutOfLimits:
      if (!g.HyperDriveActive) ShowMessage(g, "Your seed value is out of limits.", "Auto-Bet");
      return;
    case SeedResult::Overflow:
      return FailOverflow(run);
  }
}

void SeedWith(AutoBetRun& run, Money seed) {
  if (!run.error.empty()) return;
  run.g.SeedRequest = seed;
  Seed(run);
}

void Transact(AutoBetRun& run, AtmDirection direction, Money amount) {
  if (run.error.empty()) AtmTransaction(run.g, direction, amount);
}

void StartNewGame(AutoBetRun& run, bool keepChipStacks) {
  BringUpToDate(run.g);
  run.error = run.g.TheHost->SaveWorkingGame(run.g);
  if (!run.error.empty()) return;
  NewGame(run.g, keepChipStacks);
  FindThrow(run);
}

void StopRolling(Game& g) {
  g.KeepRolling = false;
  if (g.HyperDriveActive) g.StopMessage = "Stopped by Auto-Bet command.";
}

void PutMessage(AutoBetRun& run) {
  std::string_view text = NameOf(run);
  const bool goesOn = text.ends_with(';');
  if (goesOn) text.remove_suffix(1);
  WriteOutput(run, text);
  if (!goesOn) WriteOutput(run, "\t");
}

void BetInput(AutoBetRun& run, const ScriptStep& step) {
  const auto targets = TargetsOf(run, step);
  if (!targets) return;
  const std::optional<Money> entered = AskForInput(run);
  if (!entered) return;
  run.groupValue = *entered;
  OnEachTarget(run, step, [&](BetId slot) { PutUp(run.g, slot, *entered); });
}

// Mostly all bets of a group stand as asked, which is told without a branch for each.
bool AllAreAsAsked(const Game& g, const ScriptStep& step) {
  if (step.RightFirst == step.RightLast || step.Amount < Money() || !BetsAreCovered(g)) return false;
  bool areAll = true;
  for (BetId slot = step.RightFirst; slot <= step.RightLast; ++slot)
    areAll &= g.Asked[static_cast<std::size_t>(slot)] == step.Amount;
  return areAll;
}

}  // namespace

bool StaysOffTheLine(std::int32_t target) {
  return target == Target::AllPlace || target == Target::InsidePlace || target == Target::OutsidePlace;
}

std::optional<SlotRange> FixedTargetsOf(std::int32_t code, std::int32_t index) {
  if (IsBet(code)) return SlotRange{code, code};
  if (code == Item::Stack && index >= 0 && index < kChipStackCount)
    return SlotRange{SlotChipStack + index, SlotChipStack + index};
  const auto group = GroupOfValue(code);
  return group && !group->withoutSixAndEight ? group : std::nullopt;
}

void PutUpTyped(Game& g, const ScriptStep& step) {
  const Money amount = step.Amount;
  const BetId last = step.RightLast;
  if (AllAreAsAsked(g, step)) return;
  const bool mayBeCovered = step.StaysOffTheLine && g.AutoRemovePlaceBets;
  for (BetId slot = step.RightFirst; slot <= last; ++slot) {
    if (!mayBeCovered || !IsCoveredByLine(g, step, slot)) PutUp(g, slot, amount);
  }
}

void ExecuteAction(AutoBetRun& run, const ScriptStep& step) {
  Game& g = run.g;
  if (step.IsTypedBet) return PutUpTyped(g, step);
  const auto value = [&](Moment moment) { return ValueOf(run, moment, step.LeftCode, step.LeftIndex); };
  if (IsBetFamily(step.Op)) {
    return OnEachTarget(run, step, [&](BetId slot) { ChangeAmount(run, step, slot); });
  }
  switch (step.Op) {
    case Verb::BuyPlaceBet:
      return OnEachTarget(run, step, [&](BetId slot) { BuyBet(g, slot); });
    case Verb::CallOff:
      return OnEachTarget(run, step, [&](BetId slot) { CallBet(g, slot, false); });
    case Verb::CallOn:
      return OnEachTarget(run, step, [&](BetId slot) { CallBet(g, slot, true); });
    case Verb::ResetWins:
      return OnEachTarget(run, step, [&](BetId slot) { ResetWins(g, slot); });
    case Verb::Round:
      return OnEachTarget(run, step, [&](BetId slot) { RoundAmount(run, step, slot); });
    case Verb::GetInput:
      return BetInput(run, step);
    case Verb::ResetRolls:
      return ResetRolls(g, step);
    case Verb::StopRolling:
      return StopRolling(g);
    case Verb::GoTo:
      run.jumpTo = step.Jump;
      return;
    case Verb::Gosub:
      return CallSubroutine(run, step);
    case Verb::Return:
      return ReturnFromSubroutine(run);
    case Verb::SetFlag:
    case Verb::SetAllFlags:
      return SetFlags(run, step);
    case Verb::ShowMessage:
    case Verb::ShowValue:
    case Verb::Question:
    case Verb::QuestionValue:
      return SayLine(run, step);
    case Verb::NameStack:
    case Verb::NameStackRef:
      return NameStack(run, step);
    case Verb::ClearNames:
      return ClearNames(g);
    case Verb::PlaySound:
      return PlaySound(run);
    case Verb::ActivateProbability:
      return ActivateProbability(run);
    case Verb::DeactivateProbability:
      g.UseProbabilityMatrix = false;
      return;
    case Verb::ShowSteps:
      g.StepTraceOn = true;
      return;
    case Verb::HandleWins:
      return SetHandler(run, g.HandleWinningBets, step.RightCode);
    case Verb::HandleLosses:
      return SetHandler(run, g.HandleLosingBets, step.RightCode);
    case Verb::TakeFullOdds:
      g.AutoTakeFullOdds = std::nearbyint(step.Amount.ToDouble()) != 0;
      if (g.AutoTakeFullOdds) TakeAllDoOdds(g);
      return;
    case Verb::LayFullOdds:
      g.AutoLayFullOdds = std::nearbyint(step.Amount.ToDouble()) != 0;
      if (g.AutoLayFullOdds) LayAllDontOdds(g);
      return;
    case Verb::Withdraw:
      return Transact(run, AtmDirection::Withdraw, step.Amount);
    case Verb::WithdrawPercent:
      return Transact(run, AtmDirection::Withdraw, PercentOf(run, Moment::Now, step));
    case Verb::Deposit:
      return Transact(run, AtmDirection::Deposit, step.Amount);
    case Verb::DepositPercent:
      return Transact(run, AtmDirection::Deposit, PercentOf(run, Moment::Now, step));
    case Verb::SelectRng:
      return SelectRng(g, step.Amount);
    case Verb::SelectRngByValue:
      return SelectRng(g, value(Moment::Now));
    case Verb::SelectRngByLast:
      return SelectRng(g, value(Moment::AtThrow));
    case Verb::SeedByClock:
      TakeSeedFromClock(g);
      return Seed(run);
    case Verb::SeedByNumber:
      return SeedWith(run, step.Amount);
    case Verb::SeedByValue:
      return SeedWith(run, value(Moment::Now));
    case Verb::SeedByLast:
      return SeedWith(run, value(Moment::AtThrow));
    case Verb::OpenClear:
      return OpenOutput(run, false);
    case Verb::OpenAppend:
      return OpenOutput(run, true);
    case Verb::CloseFile:
      return CloseOutput(run);
    case Verb::OutputMessage:
      return PutMessage(run);
    case Verb::OutputValue:
      return WriteOutput(run, PlainText(value(Moment::Now)) + "\t");
    case Verb::OutputLastValue:
      return WriteOutput(run, PlainText(value(Moment::AtThrow)) + "\t");
    case Verb::OutputNewLine:
      return WriteOutput(run, "\r\n");
    case Verb::ResetTable:
      return StartNewGame(run, false);
    case Verb::ResetKeepingStacks:
      return StartNewGame(run, true);
    default:
      return;
  }
}

}  // namespace rollwick
