// What becomes of a decided bet: the Auto-Play choices and the Settle Bet dialog.
#include <utility>

#include "base/FormatNumber.h"
#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"
#include "engine/bets/Resolution.h"
#include "engine/bets/SettleAccount.h"

namespace rollwick {

namespace {

void Change(Game& g, Money by) {
  g.BetDelta = by;
  ChangeBet(g, g.CurrentBetId);
  if (!g.HyperDriveActive) g.TheHost->ChipsChanged(g, g.CurrentBetId);
}

void ChangeAndTell(Game& g, Money by, const char* titlePrefix) {
  Change(g, by);
  TellBetChange(g, g.CurrentBetId, titlePrefix);
}

// Takes the bet's vig out of what the table holds and forgets it. Returns what it was.
Money ReleaseVig(Game& g) {
  const BetId bet = g.CurrentBetId;
  if (!IsLay(bet) && !IsBuy(bet)) return {};
  const Money vig = std::exchange(IsLay(bet) ? g.LayVigAmount[bet] : g.BuyVigAmount[bet], Money());
  if (IsLay(bet) ? g.Rules.LayVigOnAll : g.Rules.BuyVigOnAll) g.TotalBets -= vig;
  return vig;
}

// The chip of a formula's unit times the Base of the bet.
Money ChipUnit(const Game& g, int slot) {
  return Product(g.BetAmount[SlotUnits + g.ModifyUnit[slot]], g.PayoffTable[g.CurrentBetId].Base);
}

void TakeSettleAnswer(Game& g, const SettleQuestion& question, const SettleAnswer& answer) {
  (question.won ? g.LastWonChoice : g.LastLostChoice) = answer.choice;
  if (!answer.formulas) return;
  int slot = question.won ? DialogWonSameBet : DialogLostSameBet;
  for (const SettleFormula& formula : *answer.formulas) {
    g.ModifyOperator[slot] = formula.formulaOperator;
    g.ModifyAmount[slot] = formula.amount;
    g.ModifyUnit[slot] = formula.unit;
    ++slot;
  }
}

// Shows the dialog and gives the choice: 0 to 6, 0 whenever the bet must come down.
int AskSettlement(Game& g, SettleQuestion question) {
  question.mustComeDown = g.BetMustComeDown;
  question.remembered = question.mustComeDown ? 0 : question.won ? g.LastWonChoice : g.LastLostChoice;
  FlushEventsLog(g);
  SettleAnswer answer = g.TheHost->Settle(g, question);
  if (question.mustComeDown || answer.choice < 0 || answer.choice >= kSettleChoices) answer.choice = 0;
  TakeSettleAnswer(g, question, answer);
  return answer.choice;
}

void SettleWonByChoice(Game& g, int choice) {
  switch (choice) {
    case 1:
      return RestoreSameBet(g);
    case 2:
      return PressOneUnit(g);
    case 3:
      return PressDouble(g);
    case 4:
      return ParlayBet(g);
    case 5:
      return ApplySameBetFormula(g, DialogWonSameBet);
    case 6:
      return ApplyBetFormula(g, DialogWonBet);
    default:
      return RemoveResolvedBet(g);
  }
}

void SettleLostByChoice(Game& g, int choice) {
  switch (choice) {
    case 1:
      return BetRemainder(g);
    case 2:
      return RestoreSameBet(g);
    case 3:
      return PressOneUnit(g);
    case 4:
      return PressDouble(g);
    case 5:
      return ApplySameBetFormula(g, DialogLostSameBet);
    case 6:
      return ApplyBetFormula(g, DialogLostBet);
    default:
      return RemoveResolvedBet(g);
  }
}

void SettleWonByHandler(Game& g) {
  if (g.BetMustComeDown) return RemoveResolvedBet(g);
  switch (g.HandleWinningBets) {
    case WinSameBet:
      return RestoreSameBet(g);
    case WinPressUnit:
      return PressOneUnit(g);
    case WinPressDouble:
      return PressDouble(g);
    case WinParlay:
      return ParlayBet(g);
    case WinSameBetFormula:
      return ApplySameBetFormula(g, WinnerSameBet);
    case WinBetFormula:
      return ApplyBetFormula(g, WinnerBet);
    default:
      return RemoveResolvedBet(g);
  }
}

void SettleLostByHandler(Game& g) {
  if (g.BetMustComeDown) return RemoveResolvedBet(g);
  switch (g.HandleLosingBets) {
    case LossBetRemainder:
      return BetRemainder(g);
    case LossSameBet:
      return RestoreSameBet(g);
    case LossPressUnit:
      return PressOneUnit(g);
    case LossDoubleBet:
      return PressDouble(g);
    case LossSameBetFormula:
      return ApplySameBetFormula(g, LoserSameBet);
    case LossBetFormula:
      return ApplyBetFormula(g, LoserBet);
    default:
      return RemoveResolvedBet(g);
  }
}

void LetTheTableSee(Game& g, AutoStop stop) {
  if (g.HyperDriveActive) return;
  g.TheHost->ReturnDice(g);
  if (g.AutoRoll && g.AutoStopOn[stop]) g.KeepRolling = false;
}

void AskAboutLoss(Game& g) {
  SettleQuestion question = AccountOfLoss(g);
  ReleaseVig(g);
  BetUnit(g, g.CurrentBetId);
  question.choices[3] = PressUnitCaption(g);
  SettleLostByChoice(g, AskSettlement(g, std::move(question)));
}

// The bankroll has paid the vig; what the choices call winnings are the net before it.
void ReleaseVigToWinnings(Game& g) {
  g.PayoffNet += ReleaseVig(g);
}

void AskAboutWin(Game& g, std::string_view caption) {
  BetUnit(g, g.CurrentBetId);
  SettleQuestion question = AccountOfWin(g, caption);
  ReleaseVigToWinnings(g);
  SettleWonByChoice(g, AskSettlement(g, std::move(question)));
}

}  // namespace

void SettleLostBet(Game& g) {
  LetTheTableSee(g, StopOnAnyLoss);
  if (!g.HyperDriveActive && g.HandleLosingBets == LossManual && g.BetAtThrow[g.CurrentBetId] > Money()) {
    return AskAboutLoss(g);
  }
  ReleaseVig(g);
  SettleLostByHandler(g);
}

void SettleWonBet(Game& g, std::string_view caption) {
  LetTheTableSee(g, StopOnAnyWin);
  if (!g.HyperDriveActive) g.TheHost->Play(g, Sound::Win);
  if (!g.HyperDriveActive && g.HandleWinningBets == WinManual) return AskAboutWin(g, caption);
  ReleaseVigToWinnings(g);
  SettleWonByHandler(g);
}

void TellBetChange(Game& g, BetId bet, const char* titlePrefix) {
  if (!MayNotify(g, NotifyCharges)) return;
  const Money change = g.BetAmount[bet] - g.BetAtThrow[bet];
  std::string text = "No change in bet amount.";
  if (change > Money()) text = FormatMoney(change, "Bet increased by: $");
  if (change < Money()) text = FormatMoney(-change, "Bet decreased by: $");
  ShowNotice(g, NotifyCharges, text, titlePrefix + BetName(bet));
}

void RemoveResolvedBet(Game& g) {
  Change(g, -g.BetAmount[g.CurrentBetId]);
  g.BetMustComeDown = false;
}

void BetRemainder(Game& g) {
  const Money remainder = g.PayoffNet + g.BetAtThrow[g.CurrentBetId];
  RemoveResolvedBet(g);
  Change(g, remainder);
}

void RestoreSameBet(Game& g) {
  const BetId bet = g.CurrentBetId;
  Change(g, Money());
  if (g.BetAmount[bet] != g.BetAtThrow[bet]) TellBetChange(g, bet);
}

void PressOneUnit(Game& g) {
  BetUnit(g, g.CurrentBetId);
  ChangeAndTell(g, g.BetUnitAmount, "Press 1 Unit ");
}

void PressDouble(Game& g) {
  ChangeAndTell(g, g.BetAmount[g.CurrentBetId], "Press Double ");
}

void ParlayBet(Game& g) {
  const AutoPlayTables kept = g;
  g.LayBias = g.PlaceBias = g.DoBias = g.DontBias = BiasDecrease;
  g.TheLedger.IsParlay = true;
  Change(g, g.PayoffNet);
  g.TheLedger.IsParlay = false;
  g.LayBias = kept.LayBias;
  g.PlaceBias = kept.PlaceBias;
  g.DoBias = kept.DoBias;
  g.DontBias = kept.DontBias;
  TellBetChange(g, g.CurrentBetId, "Parlay ");
}

void ApplySameBetFormula(Game& g, int slot) {
  const Money before = g.BetAtThrow[g.CurrentBetId];
  const Money amount = g.ModifyAmount[slot];
  const bool percent = g.ModifyUnit[slot] == 1;
  const Money unit = g.ModifyUnit[slot] > 1 ? ChipUnit(g, slot) : Dollars(1);
  const Money share = percent ? Quotient(before, Dollars(100)) : unit;
  const double factor = percent ? 0.01 : unit.ToDouble();
  Money change;
  switch (g.ModifyOperator[slot]) {
    case FormulaPlus:
      change = Product(amount, share);
      break;
    case FormulaMinus:
      change = -Product(amount, share);
      break;
    case FormulaTimes:
      change = Money::FromDouble(Product(before, amount).ToDouble() * factor) - before;
      break;
    default:
      if (amount > Money()) {
        change = Money::FromDouble(before.ToDouble() / (amount.ToDouble() * factor)) - before;
      }
      break;
  }
  ChangeAndTell(g, change, "");
}

void ApplyBetFormula(Game& g, int slot) {
  RemoveResolvedBet(g);
  // Meant: every unit above 0 is a slot, so "%" reads slot 94, which is always 0, and the bet stays down.
  const Money unit = g.ModifyUnit[slot] > 0 ? ChipUnit(g, slot) : Dollars(1);
  ChangeAndTell(g, Product(g.ModifyAmount[slot], unit), "");
}

}  // namespace rollwick
