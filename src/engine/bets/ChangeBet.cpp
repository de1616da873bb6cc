// The one gate through which every amount on the table changes.
#include <algorithm>
#include <array>

#include "base/FormatNumber.h"
#include "engine/bets/ChangeSteps.h"
#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"

namespace rollwick {

namespace {

Ruling LeaveUnchanged(Game& g) {
  g.BetDeltaApplied = Money();
  return Ruling::Leave;
}

// A rule stopped the request at what the contract holds; when that leaves nothing to do, ChangeBet leaves.
Ruling BackToContract(Game& g, BetId bet) {
  g.BetDeltaApplied = g.BetContract[bet] - g.BetAmount[bet];
  return g.BetDeltaApplied == Money() ? Ruling::Leave : Ruling::GoOn;
}

void TellNotAllowed(Game& g, BetId bet, std::string_view text) {
  if (MayNotify(g, NotifyNotAllowed)) ShowNotice(g, NotifyNotAllowed, text, BetName(bet) + " Bet");
}

constexpr std::string_view kPassLineStays =
    "You may not decrease or remove your Pass Line bet \rwhile a point is established.";
constexpr std::string_view kComeStays =
    "You may not decrease or remove a Come bet \rwhich is established on a point.";
constexpr std::string_view kNoPutPassLine =
    "You may not make or increase a Pass Line bet\rwhile a point is established.\r\r"
    "(Unless you check \"Allow Put Bets\" on\rthe Configuration screen.)";
constexpr std::string_view kNoPutCome =
    "You may not make or increase a Come bet\rdirectly on a point number.\r\r"
    "(Unless you check \"Allow Put Bets\" on\rthe Configuration screen.)";

// Pass Line with a point on, or a Come bet on its number, asked for more.
Ruling IncreaseContractBet(Game& g, BetId bet, std::string_view stays, std::string_view noPut) {
  const Money target = g.BetAmount[bet] + g.BetDeltaApplied;
  const Money contract = g.BetContract[bet];
  if (target < contract) {
    TellNotAllowed(g, bet, stays);
    return BackToContract(g, bet);
  }
  if (g.Rules.AllowPutBets) return Ruling::GoOn;
  // A Come bet brought exactly back to its contract is no put bet; for the Pass Line the notice shows all the
  // same.
  if (IsComeNumber(bet) && target == contract) return Ruling::GoOn;
  TellNotAllowed(g, bet, noPut);
  return BackToContract(g, bet);
}

Ruling IncreaseDontBet(Game& g, BetId bet, std::string_view text) {
  if (g.BetAmount[bet] + g.BetDeltaApplied <= g.BetContract[bet]) return Ruling::GoOn;
  TellNotAllowed(g, bet, text);
  return BackToContract(g, bet);
}

Ruling RefuseUnless(Game& g, BetId bet, bool allowed, std::string_view text) {
  if (allowed) return Ruling::GoOn;
  TellNotAllowed(g, bet, text);
  return LeaveUnchanged(g);
}

Ruling RulesForIncrease(Game& g, BetId bet) {
  const bool pointOn = g.Point != 0;
  const auto stands = [&g](BetId flat) { return g.BetAmount[flat] > Money(); };
  switch (bet) {
    case Bet::PassLine:
      return pointOn ? IncreaseContractBet(g, bet, kPassLineStays, kNoPutPassLine) : Ruling::GoOn;
    case Bet::Come:
      return RefuseUnless(g, bet, pointOn, "You may not make a Come bet until \ra point is established.");
    case Bet::DontPass:
      if (!pointOn) return Ruling::GoOn;
      return IncreaseDontBet(g, bet,
                             "You may not make or increase a Don't Pass bet\rwhile a point is established.");
    case Bet::DontCome:
      return RefuseUnless(g, bet, pointOn,
                          "You may not make a Don't Come bet until\ra point is established.");
    case Bet::PassLineOdds:
      return RefuseUnless(
          g, bet, pointOn && stands(Bet::PassLine),
          "You may not make a Pass Line Odds Bet unless \ryou also have a Pass Line bet and \r"
          "a point is established.");
    case Bet::DontPassOdds:
      return RefuseUnless(
          g, bet, pointOn && stands(Bet::DontPass),
          "You may not make a Don't Pass Odds bet unless \ryou also have a Don't Pass bet and \r"
          "a point is established.");
    default:
      break;
  }
  if (IsComeOdds(bet) || IsDontComeOdds(bet)) {
    if (stands(FlatOf(bet))) return Ruling::GoOn;
    if (MayNotify(g, NotifyNotAllowed)) {
      TellNotAllowed(
          g, bet,
          "You may not make an odds bet here until \ryou've established a " + BetName(FlatOf(bet)) + " bet.");
    }
    return LeaveUnchanged(g);
  }
  if (g.TravelPass) return Ruling::GoOn;
  if (IsComeNumber(bet)) return IncreaseContractBet(g, bet, kComeStays, kNoPutCome);
  if (IsDontComeNumber(bet)) {
    return IncreaseDontBet(g, bet,
                           "You may not make or increase a Don't Come bet\rdirectly on a point number.");
  }
  return Ruling::GoOn;
}

// Pass Line with a point on, Come bets on their numbers: what is established stays until it is decided.
bool IsContractBet(const Game& g, BetId bet) {
  return (bet == Bet::PassLine && g.Point != 0) || (IsComeNumber(bet) && !g.TravelPass);
}

Ruling RulesForDecrease(Game& g, BetId bet) {
  if (!IsContractBet(g, bet)) return Ruling::GoOn;
  const Money contract = g.BetContract[bet];
  if (g.BetAmount[bet] == contract) {
    TellNotAllowed(g, bet, bet == Bet::PassLine ? kPassLineStays : kComeStays);
    return LeaveUnchanged(g);
  }
  if (g.BetAmount[bet] + g.BetDeltaApplied < contract) g.BetDeltaApplied = contract - g.BetAmount[bet];
  return Ruling::GoOn;
}

// The change that takes the bet off, as far as it may go.
Money ChangeToTakeOff(const Game& g, BetId bet) {
  return (IsContractBet(g, bet) ? g.BetContract[bet] : Money()) - g.BetAmount[bet];
}

// What no contract holds may come off whole, whatever the house's limits are.
bool IsTakenOffWhole(const Game& g, BetId bet) {
  return g.BetDelta < Money() && g.BetDelta == -g.BetAmount[bet] && g.BetDelta == ChangeToTakeOff(g, bet);
}

void SetMessage(Game& g, std::string_view text, Money limit) {
  if (!g.HyperDriveActive) g.BetMessage = FormatMoney(limit, text);
}

void PutInWholeChips(Game& g, BetId bet) {
  const Money chip = LowestChip(g);
  const Money down = FloorToChips(g.BetDelta, chip);
  g.BetDeltaApplied = down;
  if (g.BetDelta > Money() && down != g.BetDelta) g.BetDeltaApplied += chip;
  g.BetDeltaApplied = std::max(g.BetDeltaApplied, -g.BetAmount[bet]);
}

void SetMinimum(Game& g, BetId bet) {
  const Money chip = LowestChip(g);
  g.BetMin = chip;
  if (bet >= Bet::Hard4) return;
  const Money whole = FloorToChips(g.Rules.MinPlacardBet, chip);
  g.BetMin = whole == g.Rules.MinPlacardBet ? whole : whole + chip;
  if (bet == Bet::PassLine || IsComeNumber(bet)) g.BetMin = std::max(g.BetMin, g.BetContract[bet]);
}

// Meant: the minimum looks at the request, not at what the rules have made of it.
void HoldMinimum(Game& g, BetId bet) {
  const Money requested = g.BetAmount[bet] + g.BetDelta;
  if (requested <= Money() || requested >= g.BetMin) return;
  if (g.BetDeltaApplied > Money()) {
    g.BetDeltaApplied = g.BetMin - g.BetAmount[bet];
    SetMessage(g, "Minimum bet here is $", g.BetMin);
  } else {
    g.BetDeltaApplied = ChangeToTakeOff(g, bet);
  }
}

Ruling HoldMaximum(Game& g, BetId bet) {
  MaxBetFor(g, bet);
  const Money amount = g.BetAmount[bet];
  if (amount + g.BetDelta <= g.BetMax || amount + g.BetDeltaApplied <= g.BetMax) return Ruling::GoOn;
  SetMessage(g, "Maximum bet here is $", g.BetMax);
  const bool contractBet = bet == Bet::PassLine || IsComeNumber(bet);
  if (!contractBet || g.BetContract[bet] <= g.BetMax) {
    g.BetDeltaApplied = g.BetMax - amount;
    return Ruling::GoOn;
  }
  // The house lowered its maximum below a bet that may not move.
  g.BetDeltaApplied = g.BetContract[bet] - amount;
  if (MayNotify(g, NotifyNotAllowed | NotifyLimits)) {
    ShowNotice(g, NotifyLimits,
               g.BetMessage + "\r\rHowever, because the " + BetName(bet) +
                   " is a contract bet and it was established at " + FormatMoney(g.BetContract[bet], "$") +
                   " before the maximum allowed was lowered on the Configuration screen, it must remain "
                   "unchanged until it resolves.",
               BetName(bet) + " Bet");
  }
  g.BetMessage.clear();
  return g.BetDeltaApplied == Money() ? Ruling::Leave : Ruling::GoOn;
}

void AutoAdjustChange(Game& g, BetId bet) {
  if (g.AutoAdjustBetAmounts == AdjustManual) return;
  AdjustForProperPayoff(g, bet);
  if (IsContractBet(g, bet)) g.BetDeltaApplied = std::max(g.BetDeltaApplied, ChangeToTakeOff(g, bet));
}

// Meant: the vig that TotalBets already holds for this bet is counted beside the new one.
bool IsTooBig(const Game& g, BetId bet, Money change) {
  const Money amount = g.BetAmount[bet] + change;
  Money total = g.TotalBets + change;
  if (g.Rules.BuyVigOnAll) total += ComputeBuyVig(g, bet, amount);
  if (g.Rules.LayVigOnAll) total += ComputeLayVig(g, bet, amount);
  return total > g.BetAmount[SlotBankroll];
}

// Takes off the fewest lowest chips that make the bet fit the bankroll, down to nothing (or the contract).
// Bet and vig grow together, so the number of chips is found by halving.
void CutToBankroll(Game& g, BetId bet) {
  const Money chip = LowestChip(g);
  const Money most = g.BetDeltaApplied;
  const Money least = std::min(ChangeToTakeOff(g, bet), most);
  std::int64_t enough = (most - least).Units() / chip.Units() + 1;
  std::int64_t tooFew = 0;
  const auto less = [&](std::int64_t chips) {
    return std::max(least, most - Money::FromUnits(chips * chip.Units()));
  };
  while (enough - tooFew > 1) {
    const std::int64_t middle = tooFew + (enough - tooFew) / 2;
    (IsTooBig(g, bet, less(middle)) ? tooFew : enough) = middle;
  }
  g.BetDeltaApplied = less(enough);
}

void TellShortBankroll(Game& g, BetId bet) {
  if (!MayNotify(g, NotifyLimits)) return;
  std::string text = g.BetMessage;
  if (!text.empty()) text += "\r\r";
  text +=
      "You don't have enough bankroll remaining to bet the full amount requested.\r\rYour options are: \r";
  if (g.TotalBets - g.BetAmount[bet] > Money()) text += "      - Bet less on other bets.\r";
  text += "      - Make a withdrawal from the ATM.\r      - Allow negative bankroll amounts.";
  ShowNotice(g, NotifyLimits, text, BetName(bet) + " Bet");
}

void TellLimitReached(Game& g, BetId slot) {
  if (g.BetMessage.empty() || !MayNotify(g, NotifyLimits)) return;
  const bool stack = slot >= SlotChipStack;
  std::string text = g.BetMessage;
  if (g.BetDeltaApplied != Money()) {
    text += stack ? "\r\rwhich is being stacked." : "\r\rwhich is being bet.";
  } else if (stack || text.find("Unable") == text.npos) {
    text += stack ? "\r\rwhich is already stacked." : "\r\rwhich is already bet.";
  }
  ShowNotice(g, NotifyLimits, text, stack ? ChipStackTitle(slot) : BetName(slot) + " Bet");
}

void ChangeChipStack(Game& g, BetId stack) {
  const Money amount = g.BetAmount[stack];
  g.BetMessage.clear();
  if (amount + g.BetDelta < -kMaxChipStack) {
    g.BetDeltaApplied = -kMaxChipStack - amount;
    SetMessage(g, "Minimum Chip-Stack value is: $", -kMaxChipStack);
  } else if (amount + g.BetDelta > kMaxChipStack) {
    g.BetDeltaApplied = kMaxChipStack - amount;
    SetMessage(g, "Maximum Chip-Stack value is: $", kMaxChipStack);
  }
  TellLimitReached(g, stack);
  g.TableDirty = true;
  SetAmount(g, stack, g.BetAmount[stack] + g.BetDeltaApplied);
}

void TellVig(Game& g, BetId bet, Money before, Money now, bool onAll) {
  if (before == now || !MayNotify(g, NotifyCharges)) return;
  std::string text;
  if (now == Money()) {
    if (!onAll) return;
    text = FormatMoney(before, "\"Vig\" charge returned $");
  } else {
    if (before > Money()) {
      text =
          FormatMoney(Abs(now - before), now > before ? "\"Vig\" increased by $" : "\"Vig\" decreased by $");
      text += "\r\r";
    }
    text += FormatMoney(now, onAll ? "Total \"Vig\" charge $" : "If you win, the \"Vig\" charge will be $");
  }
  ShowNotice(g, NotifyCharges, text, BetName(bet) + " Bet");
}

void RefreshVig(Game& g, BetId bet, Money& vig, Money now, bool onAll) {
  const Money before = vig;
  vig = now;
  if (onAll) g.TotalBets += now - before;
  TellVig(g, bet, before, now, onAll);
}

}  // namespace

Ruling FitToRules(Game& g, BetId bet, std::string& messageBeforeAdjust) {
  PutInWholeChips(g, bet);
  const Ruling verdict = g.BetDeltaApplied > Money() ? RulesForIncrease(g, bet) : RulesForDecrease(g, bet);
  if (verdict == Ruling::Leave) return verdict;
  g.BetMessage.clear();
  SetMinimum(g, bet);
  HoldMinimum(g, bet);
  if (HoldMaximum(g, bet) == Ruling::Leave) return Ruling::Leave;
  messageBeforeAdjust = g.BetMessage;
  AutoAdjustChange(g, bet);
  return Ruling::GoOn;
}

bool IsBeyondBankroll(const Game& g, BetId bet) {
  return !g.Rules.AllowNegBankroll && IsTooBig(g, bet, g.BetDeltaApplied);
}

void HoldBankroll(Game& g, BetId bet, const std::string& messageBeforeAdjust) {
  const Money before = g.BetDeltaApplied;
  CutToBankroll(g, bet);
  if (g.BetDeltaApplied == before) return;
  g.BetMax = g.BetAmount[bet] + g.BetDeltaApplied;
  g.BetMessage = messageBeforeAdjust;
  AutoAdjustChange(g, bet);
  const Money result = g.BetAmount[bet] + g.BetDeltaApplied;
  if (result > Money() && result < g.BetMin) {
    SetMessage(g, "Minimum bet here is $", g.BetMin);
    g.BetDeltaApplied = ChangeToTakeOff(g, bet);
  }
  TellShortBankroll(g, bet);
  g.BetMessage.clear();
}

void RefreshVigOf(Game& g, BetId bet) {
  const Money amount = g.BetAmount[bet];
  if (IsBuy(bet)) {
    RefreshVig(g, bet, g.BuyVigAmount[bet], ComputeBuyVig(g, bet, amount), g.Rules.BuyVigOnAll);
  } else {
    RefreshVig(g, bet, g.LayVigAmount[bet], ComputeLayVig(g, bet, amount), g.Rules.LayVigOnAll);
  }
}

void ChangeBet(Game& g, BetId bet) {
  g.BetDelta = g.BetDeltaApplied = WithinReach(g.BetDelta);
  if (IsChipStack(bet) || bet == SlotBehindStacks) return ChangeChipStack(g, bet);
  if (!IsBet(bet)) {
    g.BetDeltaApplied = Money();
    return;
  }
  if (IsTakenOffWhole(g, bet)) return MakeChange(g, bet);
  if (g.HyperDriveActive) return ChangeAsKnown(g, bet);
  std::string messageBeforeAdjust;
  if (FitToRules(g, bet, messageBeforeAdjust) == Ruling::Leave) return;
  if (IsBeyondBankroll(g, bet)) HoldBankroll(g, bet, messageBeforeAdjust);
  TellLimitReached(g, bet);
  MakeChange(g, bet);
}

}  // namespace rollwick
