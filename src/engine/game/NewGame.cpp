// A game begins: the table is cleared, the bankroll set, the counters start anew.
#include "engine/game/NewGame.h"

#include <algorithm>

#include "dice/DiceFile.h"
#include "dice/Draw.h"
#include "stats/logs/GamesLog.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

void ClearSlot(Game& g, BetId slot) {
  g.BetAmount[slot] = g.BetAtThrow[slot] = g.BetAfterSettle[slot] = Money();
}

void ClearTable(Game& g, bool keepChipStacks) {
  for (BetId bet = 1; bet <= kBetCount; ++bet) ClearSlot(g, bet);
  g.BetContract.fill(Money());
  g.BuyVigAmount.fill(Money());
  g.LayVigAmount.fill(Money());
  g.TotalBets = Money();
  g.BetWorking = g.BetWorkingDefault;
  RefreshBetSets(g);
  KeepWorkingAfterSettle(g);
  for (FlagEntry& flag : g.ScriptFlags) flag.Value = flag.PrevValue = 0;
  g.LoggedAutoBetName.clear();
  g.LoggedAutoBetEnabled = 0;
  if (keepChipStacks) return;
  for (BetId stack = SlotChipStack; stack <= SlotLastChipStack; ++stack) ClearSlot(g, stack);
  g.ChipStackName.fill({});
}

Money AskForBankroll(Game& g) {
  g.KeepRolling = false;
  FlushEventsLog(g);
  const auto entered =
      g.TheHost->Ask(g, {PromptKind::Money, "Enter your beginning bankroll: ", "Set Beginning Bankroll",
                         PlainText(g.Rules.BankrollInitAmount), 15});
  const auto amount = entered ? ParseMoney(*entered) : std::nullopt;
  if (amount) g.Rules.BankrollInitAmount = std::clamp(*amount, -kBankLimit, kBankLimit);
  return g.Rules.BankrollInitAmount;
}

Money BeginningBankroll(Game& g, Money remembered) {
  const std::int32_t type = g.Rules.BankrollInitType;
  if (type == StartWithAmount) return g.Rules.BankrollInitAmount;
  if (type == StartByPrompt || Abs(remembered) > kBankLimit) return AskForBankroll(g);
  return remembered;
}

void SetBankroll(Game& g) {
  const Money bankroll = BeginningBankroll(g, g.BetAmount[SlotBankroll]);
  g.BetAmount[SlotBankroll] = g.BetAtThrow[SlotBankroll] = g.BetAfterSettle[SlotBankroll] = bankroll;
  if (g.Rules.BankrollInitType != CarryBankrollAndNet) g.InvestedBankroll = bankroll;
  // The game could not go on otherwise.
  if (bankroll < Money()) g.Rules.AllowNegBankroll = true;
}

void LogNewGame(Game& g) {
  if (g.LogClearOnNewGame && g.TheLog != nullptr) {
    g.PendingLogLines.clear();
    g.TheLog->Clear(g);
  }
  if (!g.RecordEventsActive || g.TheLog == nullptr) return;
  if (!g.PendingLogLines.empty() || !g.TheLog->IsEmpty()) LogEvent(g, std::string(38, '='));
  LogEvent(g, " New game started");
  LogEvent(g, "      Beginning bankroll: $" + PlainText(g.BetAmount[SlotBankroll]));
}

// The finished game is not in its log. In Hyper-Drive no notice may open: the run stops, and tells at its
// end.
void TellGamesLogRefusal(Game& g, const Message& refusal) {
  if (g.HyperDriveActive) {
    g.KeepRolling = false;
    g.StopMessage = refusal.text;
  } else {
    ShowMessage(g, refusal.text, refusal.title, refusal.flags);
  }
}

}  // namespace

void NewGame(Game& g, bool keepChipStacks) {
  const std::optional<Message> refusal = AppendGameRecord(g);  // first: its counters begin anew below
  // A script's reset goes on rolling, so that one run can play thousands of games.
  if (!g.AutoBetRunning) g.KeepRolling = false;
  g.Point = g.PointBeforeRoll = g.PointBeforeLast = 0;
  ClearTable(g, keepChipStacks);
  SetBankroll(g);
  ResetStatistics(g);
  g.AutoRollsLeft = g.AutoRollsSet;
  g.StopMessage.clear();
  LogNewGame(g);
  if (g.ReseedNewGames) SeedGenerator(g, false);
  if (g.RecordEventsActive && g.RecordShooterChanges) LogEvent(g, kNewShooterLine);
  // The Dice Roll File stays open.
  g.DiceFileMode = DiceFileOff;
  if (!g.HyperDriveActive) {
    FlushEventsLog(g);
    FlushDiceFile(g);
    g.TheHost->TableChanged(g);
  }
  g.TableDirty = false;
  if (refusal) TellGamesLogRefusal(g, *refusal);
}

}  // namespace rollwick
