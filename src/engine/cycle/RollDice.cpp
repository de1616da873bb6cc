// The roll: what happens in it, in the order it happens. Click, auto-roll and Hyper-Drive are this one
// procedure.
#include "engine/cycle/RollDice.h"

#include <cassert>

#include "autobet/run/Output.h"
#include "autobet/run/RunAutoBet.h"
#include "dice/DiceFile.h"
#include "dice/Draw.h"
#include "dice/Matrix.h"
#include "engine/bets/Bankroll.h"
#include "engine/bets/Placement.h"
#include "engine/cycle/LogChanges.h"
#include "engine/cycle/PhantomWagers.h"
#include "engine/cycle/SettleRoll.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

constexpr std::int32_t kRollsPerPump = 64;    // some microseconds at full speed
constexpr std::int32_t kRollsPerFlush = 512;  // a kill loses no more of the log and the recording

bool RollLimitReached(Game& g) {
  if (g.RollCount() < kMaxRollCount) return false;
  g.KeepRolling = false;
  const std::string limit = "100,000,000 rolls.\r\rSelect \"New\" from the \"Game\" menu to reset the table.";
  if (g.HyperDriveActive) {
    g.StopMessage = "Stopped due to reaching the maximum limit of " + limit;
  } else {
    ShowMessage(g, "Sorry ... you've reached the maximum limit of " + limit, "Reached Maximum Roll Limit");
  }
  return true;
}

// What later steps compare with: amounts, streaks, counters and contracts as they stand at the throw.
void TakeThrowSnapshots(Game& g) {
  g.ChangedSinceThrow.ForEach([&](BetId slot) {
    g.BetAtThrow[slot] = g.BetAmount[slot];
    if (slot >= 1 && slot <= Bet::DontPass) g.BetContract[slot] = g.BetAmount[slot];
  });
  g.ChangedSinceThrow = {};
  g.BetsAtThrow = g.BetsStanding;
  assert(g.BetAtThrow == g.BetAmount);
  StartRollResults(g);
  CountPrevRolls(g);
  g.PointBeforeLast = g.PointBeforeRoll;
  g.PointBeforeRoll = g.Point;
  g.PrevDie1 = g.Die1;
  g.PrevDie2 = g.Die2;
}

std::string GeneratorText(const Game& g) {
  const std::string text = " from RNG #" + std::to_string(g.RngChoice + 1);
  if (!g.UseProbabilityMatrix) return text;
  if (g.ProbabilityName.empty()) return text + " using untitled probability matrix";
  return text + " using probability matrix: " + g.ProbabilityName;
}

// False when the Dice Roll File has no roll to give: this one is then abandoned.
bool ThrowDice(Game& g) {
  if (g.ManualRollPending) {
    g.ManualRollPending = false;
    g.Die1 = g.ManualDie1;
    g.Die2 = g.ManualDie2;
    LogRoll(g, " from manual roll pad");
  } else if (g.DiceFileMode == DiceFilePlayback) {
    if (!PlayBackDiceRoll(g)) return false;
    if (g.RecordEventsActive) LogRoll(g, " from " + g.DiceFileName);
  } else {
    if (g.UseProbabilityMatrix) {
      PickPairFromMatrix(g, DrawMatrixValue(g));
    } else {
      DrawDice(g);
    }
    if (g.RecordEventsActive) LogRoll(g, GeneratorText(g));
  }
  return true;
}

void MovePoint(Game& g) {
  const int total = g.DiceTotal;
  if (total == 7) {
    LogPoint(g, g.PointBeforeRoll == 0 ? "      Pass (natural)" : "      Miss (seven-out)");
    g.Point = 0;
  } else if ((total < 4 || total == 12) && g.Point == 0) {
    LogPoint(g, "      Miss (craps natural)");
  } else if (total >= 4 && total <= 10 && g.Point == 0) {
    g.Point = total;
    ++g.HandStats[PointsEstablished];
    LogPoint(g, "      Point established");
  } else if (total == g.Point) {
    g.Point = 0;
    LogPoint(g, "      Pass (point rolled)");
  }
}

// A bet taken down by the dealer without a word to the player.
void TakeDown(Game& g, BetId bet) {
  g.BetDelta = -g.BetAmount[bet];
  if (g.BetDelta == Money()) return;
  ChangeBet(g, bet);
  if (!g.HyperDriveActive) g.TheHost->ChipsChanged(g, bet);
}

void FollowThePoint(Game& g) {
  if (g.Point == g.PointBeforeRoll) return;
  ApplyComeOutWorking(g);
  if (g.Point == 0) return;
  SetLineOddsPayoffs(g);
  const bool passLine = g.BetAmount[Bet::PassLine] != Money();
  if (passLine && g.AutoTakeFullOdds) TakeFullOdds(g, Bet::PassLineOdds);
  if (g.BetAmount[Bet::DontPass] != Money() && g.AutoLayFullOdds) TakeFullOdds(g, Bet::DontPassOdds);
  if (passLine && g.AutoRemovePlaceBets) TakeDown(g, PlaceOn(g.Point));
}

void TakeEndSnapshots(Game& g) {
  g.RollsSinceEvent[EventEveryRoll] = g.RollCount();
  g.ChangedSinceEnd.ForEach([&](BetId slot) { g.BetAfterSettle[slot] = g.BetAmount[slot]; });
  g.ChangedSinceEnd = {};
  g.BetsAtEnd = g.BetsStanding;
  assert(g.BetAfterSettle == g.BetAmount);
  KeepWorkingAfterSettle(g);
  for (FlagEntry& flag : g.ScriptFlags) flag.PrevValue = flag.Value;
  g.LoggedAutoBetEnabled = g.AutoBetsActive;
  if (g.LoggedAutoBetName != g.ScriptFileName) g.LoggedAutoBetName = g.ScriptFileName;
}

void StopByCount(Game& g) {
  g.KeepRolling = false;
  if (g.HyperDriveActive && g.StopMessage.empty())
    g.StopMessage = "Stopped by roll count on Auto-Play screen.";
}

void CountAutoRoll(Game& g) {
  if (++g.RollsInRun == g.RollsInRunSet) StopByCount(g);
  if (g.AutoRollsLeft <= 0 || --g.AutoRollsLeft > 0) return;
  StopByCount(g);
  g.AutoRollsLeft = g.AutoRollsSet;
}

// One roll from the player's last changes to the snapshots at its end. Nothing happens at the roll limit.
void OneRoll(Game& g) {
  if (!g.HyperDriveActive) StartCounting(g);  // the player was here
  FallBackFromMissingGenerator(g);
  if (RollLimitReached(g)) return;
  LogPlayerChanges(g);
  TakeThrowSnapshots(g);

  // Dice: from the pad's hand, from the file being played back, or from the generator, straight or through
  // the probability matrix.
  if (!ThrowDice(g)) return;
  if (!g.HyperDriveActive) g.TheHost->AnimateDice(g);
  if (g.DiceFileMode == DiceFileRecording) RecordDiceRoll(g);
  g.DiceTotal = g.Die1 + g.Die2;
  if (!g.HyperDriveActive) g.TheHost->Play(g, Sound::NumberCall);

  MovePoint(g);
  TallyRoll(g);
  CountPhantoms(g);
  assert(PhantomPricesAgree(g));
  SettleRoll(g);
  StopAutoRollOnTotal(g);
  FollowThePoint(g);
  if (!g.HyperDriveActive) BringUpToDate(g);
  if (!g.HyperDriveActive) g.TheHost->TableChanged(g);

  TallyBankroll(g);
  if (IsBeyondBankLimit(g)) BankLimitStop(g);
  LogRollResult(g);
  AddBankrollPoint(g);

  // What the script places is the player's change at the next roll.
  if (AutoBetsAreOn(g)) RunAutoBet(g);

  TakeEndSnapshots(g);
  CountAutoRoll(g);
  assert(TablesAgree(g) && BetSetsAgree(g));
}

// What the log, the recorder and the script wrote is on its way to the disk before anybody looks up.
void FlushFiles(Game& g) {
  FlushEventsLog(g);
  FlushDiceFile(g);
  FlushScriptOutput(g);
}

void EndHyperDrive(Game& g) {
  BringUpToDate(g);
  FlushFiles(g);
  g.HyperDriveActive = false;
  if (!g.StopMessage.empty()) ShowMessage(g, g.StopMessage, "Hyper-Drive Stopped");
  g.TheHost->TableChanged(g);
}

// Whoever looks in finds everything counted, and may change what he likes.
void LetTheWorldIn(Game& g) {
  BringUpToDate(g);
  FlushFiles(g);
  g.TheHost->PumpEvents(g);
  if (g.HyperThrottle > 0) {
    const auto throttle = static_cast<std::uint32_t>(g.HyperThrottle);
    g.TheHost->Wait(g, throttle * throttle * 10);
  }
  StartCounting(g);
}

void ServeEvents(Game& g) {
  if (g.RollsInRun % kRollsPerFlush == 0) FlushFiles(g);
  const bool isTime = g.RollsInRun % kRollsPerPump == 0 && g.TheHost->EventsAreDue();
  if (isTime || g.HyperThrottle > 0) LetTheWorldIn(g);
}

// Whether another roll follows by itself: at once in Hyper-Drive, after the delay in auto-roll.
bool RollsOn(Game& g) {
  if (g.HyperDriveActive) {
    ServeEvents(g);
    if (g.KeepRolling) return true;
    EndHyperDrive(g);
    return false;
  }
  FlushFiles(g);
  if (!g.AutoRoll || !g.KeepRolling) return false;
  g.TheHost->Wait(g, static_cast<std::uint32_t>(g.AutoRollDelay) * 1000);
  if (!g.KeepRolling) return false;
  if (g.Point == 0) g.TheHost->Play(g, Sound::ComingOut);
  return true;
}

bool MayRoll(Game& g) {
  if (!g.TheHost->CommitTypedBet(g)) return false;
  if (!IsBeyondBankLimit(g)) return true;
  BankLimitStop(g);
  return false;
}

}  // namespace

void RollDice(Game& g) {
  if (g.RollInProgress) return;
  FallBackFromMissingGenerator(g);
  if (!MayRoll(g)) {
    g.KeepRolling = false;
    return;
  }
  StartCounting(g);
  OfferInitialize(g);
  g.TableDirty = true;
  g.StopMessage.clear();
  g.RollInProgress = true;
  g.RollsInRun = 0;
  do {
    OneRoll(g);
  } while (RollsOn(g));
  BringUpToDate(g);  // also of a throw that was abandoned
  g.LastStopMessage = g.StopMessage;
  // Kept only while the table cannot show it.
  if (!g.TheHost->IsMinimized()) {
    if (g.StopMessage == kDiceFileEnded) RewindDicePrompt(g, DiceFilePlayback);
    g.StopMessage.clear();
  }
  if (g.Point == 0) g.TheHost->Play(g, Sound::ComingOut);
  g.RollInProgress = false;
}

void ToggleHyperDrive(Game& g) {
  if (g.KeepRolling) {
    g.KeepRolling = false;
    return;
  }
  if (g.RollInProgress) return;
  if (IsBeyondBankLimit(g)) return BankLimitStop(g);
  g.HyperDriveActive = g.KeepRolling = true;
  RollDice(g);
  g.HyperDriveActive = false;
}

}  // namespace rollwick
