// The one gate through which every amount on the table changes.
#include <algorithm>
#include <array>

#include "base/FormatNumber.h"
#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"

namespace rollwick {

namespace {

enum class Verdict { GoOn, Leave };

Verdict LeaveUnchanged(Game& g) {
  g.BetDeltaApplied = Money();
  return Verdict::Leave;
}

// A rule stopped the request at what the contract holds; when that leaves nothing to do, ChangeBet leaves.
Verdict BackToContract(Game& g, BetId bet) {
  g.BetDeltaApplied = g.BetContract[bet] - g.BetAmount[bet];
  return g.BetDeltaApplied == Money() ? Verdict::Leave : Verdict::GoOn;
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
Verdict IncreaseContractBet(Game& g, BetId bet, std::string_view stays, std::string_view noPut) {
  const Money target = g.BetAmount[bet] + g.BetDeltaApplied;
  const Money contract = g.BetContract[bet];
  if (target < contract) {
    TellNotAllowed(g, bet, stays);
    return BackToContract(g, bet);
  }
  if (g.Rules.AllowPutBets) return Verdict::GoOn;
  // A Come bet brought exactly back to its contract is no put bet; for the Pass Line the notice shows all the
  // same.
  if (IsComeNumber(bet) && target == contract) return Verdict::GoOn;
  TellNotAllowed(g, bet, noPut);
  return BackToContract(g, bet);
}

Verdict IncreaseDontBet(Game& g, BetId bet, std::string_view text) {
  if (g.BetAmount[bet] + g.BetDeltaApplied <= g.BetContract[bet]) return Verdict::GoOn;
  TellNotAllowed(g, bet, text);
  return BackToContract(g, bet);
}

Verdict RefuseUnless(Game& g, BetId bet, bool allowed, std::string_view text) {
  if (allowed) return Verdict::GoOn;
  TellNotAllowed(g, bet, text);
  return LeaveUnchanged(g);
}

Verdict RulesForIncrease(Game& g, BetId bet) {
  const bool pointOn = g.Point != 0;
  const auto stands = [&g](BetId flat) { return g.BetAmount[flat] > Money(); };
  switch (bet) {
    case Bet::PassLine:
      return pointOn ? IncreaseContractBet(g, bet, kPassLineStays, kNoPutPassLine) : Verdict::GoOn;
    case Bet::Come:
      return RefuseUnless(g, bet, pointOn, "You may not make a Come bet until \ra point is established.");
    case Bet::DontPass:
      if (!pointOn) return Verdict::GoOn;
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
    if (stands(FlatOf(bet))) return Verdict::GoOn;
    if (MayNotify(g, NotifyNotAllowed)) {
      TellNotAllowed(
          g, bet,
          "You may not make an odds bet here until \ryou've established a " + BetName(FlatOf(bet)) + " bet.");
    }
    return LeaveUnchanged(g);
  }
  if (g.TravelPass) return Verdict::GoOn;
  if (IsComeNumber(bet)) return IncreaseContractBet(g, bet, kComeStays, kNoPutCome);
  if (IsDontComeNumber(bet)) {
    return IncreaseDontBet(g, bet,
                           "You may not make or increase a Don't Come bet\rdirectly on a point number.");
  }
  return Verdict::GoOn;
}

// Pass Line with a point on, Come bets on their numbers: what is established stays until it is decided.
bool IsContractBet(const Game& g, BetId bet) {
  return (bet == Bet::PassLine && g.Point != 0) || (IsComeNumber(bet) && !g.TravelPass);
}

Verdict RulesForDecrease(Game& g, BetId bet) {
  if (!IsContractBet(g, bet)) return Verdict::GoOn;
  const Money contract = g.BetContract[bet];
  if (g.BetAmount[bet] == contract) {
    TellNotAllowed(g, bet, bet == Bet::PassLine ? kPassLineStays : kComeStays);
    return LeaveUnchanged(g);
  }
  if (g.BetAmount[bet] + g.BetDeltaApplied < contract) g.BetDeltaApplied = contract - g.BetAmount[bet];
  return Verdict::GoOn;
}

// The change that takes the bet off, as far as it may go.
Money ChangeToTakeOff(const Game& g, BetId bet) {
  return (IsContractBet(g, bet) ? g.BetContract[bet] : Money()) - g.BetAmount[bet];
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

Verdict HoldMaximum(Game& g, BetId bet) {
  MaxBetFor(g, bet);
  const Money amount = g.BetAmount[bet];
  if (amount + g.BetDelta <= g.BetMax || amount + g.BetDeltaApplied <= g.BetMax) return Verdict::GoOn;
  SetMessage(g, "Maximum bet here is $", g.BetMax);
  const bool contractBet = bet == Bet::PassLine || IsComeNumber(bet);
  if (!contractBet || g.BetContract[bet] <= g.BetMax) {
    g.BetDeltaApplied = g.BetMax - amount;
    return Verdict::GoOn;
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
  return g.BetDeltaApplied == Money() ? Verdict::Leave : Verdict::GoOn;
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

void HoldBankroll(Game& g, BetId bet, const std::string& messageBeforeAdjust) {
  if (g.Rules.AllowNegBankroll || !IsTooBig(g, bet, g.BetDeltaApplied)) return;
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

void MakeChange(Game& g, BetId bet) {
  g.TableDirty = true;
  SetAmount(g, bet, g.BetAmount[bet] + g.BetDeltaApplied);
  g.TotalBets += g.BetDeltaApplied;
  const Money amount = g.BetAmount[bet];
  if (amount == Money()) ResetBetWorking(g, bet);
  if (IsBuy(bet)) {
    RefreshVig(g, bet, g.BuyVigAmount[bet], ComputeBuyVig(g, bet, amount), g.Rules.BuyVigOnAll);
  } else if (IsLay(bet)) {
    RefreshVig(g, bet, g.LayVigAmount[bet], ComputeLayVig(g, bet, amount), g.Rules.LayVigOnAll);
  }
}

// What the rules make of BetDelta, before the bankroll is looked at: BetDeltaApplied, BetMin, BetMax.
Verdict FitToRules(Game& g, BetId bet, std::string& messageBeforeAdjust) {
  PutInWholeChips(g, bet);
  const Verdict verdict = g.BetDeltaApplied > Money() ? RulesForIncrease(g, bet) : RulesForDecrease(g, bet);
  if (verdict == Verdict::Leave) return verdict;
  g.BetMessage.clear();
  SetMinimum(g, bet);
  HoldMinimum(g, bet);
  if (HoldMaximum(g, bet) == Verdict::Leave) return Verdict::Leave;
  messageBeforeAdjust = g.BetMessage;
  AutoAdjustChange(g, bet);
  return Verdict::GoOn;
}

// What of the table bears on a request for a bet, beside the bet itself.
struct Bearing {
  bool hasContract = false;
  bool seesPoint = false;
  bool isFollowed = false;  // by odds or a vig
  BetId flat = 0;           // of odds
};

constexpr auto kBearings = [] {
  std::array<Bearing, kBetCount + 1> bearings{};
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    Bearing& bearing = bearings[static_cast<std::size_t>(bet)];
    bearing.hasContract =
        IsComeNumber(bet) || IsDontComeNumber(bet) || bet == Bet::PassLine || bet == Bet::DontPass;
    bearing.seesPoint = bet >= Bet::PassLine && bet <= Bet::DontCome;
    bearing.isFollowed = bearing.hasContract || IsBuy(bet) || IsLay(bet);
    if (IsOdds(bet)) bearing.flat = FlatOf(bet);
  }
  return bearings;
}();

const Bearing& BearingOn(BetId bet) {
  return kBearings[static_cast<std::size_t>(bet)];
}

ChangeRequest RequestOf(const Game& g, BetId bet) {
  const Bearing& bearing = BearingOn(bet);
  ChangeRequest request;
  request.Amount = g.BetAmount[bet];
  request.Delta = g.BetDelta;
  request.IsTravelling = g.TravelPass;
  request.Bias = BiasOf(g, bet);
  if (bearing.hasContract) request.Contract = g.BetContract[bet];
  if (bearing.flat != 0) request.Flat = g.BetAmount[bearing.flat];
  if (bearing.seesPoint) request.Point = g.Point;
  return request;
}

KnownChange& PlaceOf(Game& g, BetId bet, const ChangeRequest& request) {
  const auto bits = [](Money amount) { return static_cast<std::uint64_t>(amount.Units()); };
  const std::uint64_t mixed =
      (bits(request.Amount) * 3 + bits(request.Delta) * 5 + bits(request.Contract) * 7 +
       bits(request.Flat) * 11 + static_cast<std::uint64_t>(request.Point)) *
      0x9E3779B97F4A7C15u;
  return g.TheLedger.Changes[static_cast<std::size_t>(bet)][mixed >> kKnownChangesShift];
}

// FitToRules with nobody to be told anything: most requests of a long run have been made before.
Verdict FitAsBefore(Game& g, BetId bet) {
  const ChangeRequest request = RequestOf(g, bet);
  KnownChange& known = PlaceOf(g, bet, request);
  if (known.RulesNumber != g.TheLedger.RulesNumber || known.Request != request) {
    std::string message;
    const bool isRefused = FitToRules(g, bet, message) == Verdict::Leave;
    known = {g.TheLedger.RulesNumber, isRefused, request, g.BetDeltaApplied, g.BetMin, g.BetMax};
  }
  g.BetDeltaApplied = known.Applied;
  if (known.IsRefused) return Verdict::Leave;
  g.BetMin = known.BetMin;
  g.BetMax = known.BetMax;
  return Verdict::GoOn;
}

// Whether the rules are known to give just what stands for a request of `amount` on the empty spot.
bool StandsAsAsked(Game& g, BetId bet, Money amount) {
  ChangeRequest request = RequestOf(g, bet);
  request.Amount = Money();
  request.Delta = amount;
  const KnownChange& known = PlaceOf(g, bet, request);
  if (known.RulesNumber != g.TheLedger.RulesNumber || known.Request != request) return false;
  // Nothing put up on nothing is no idle request: the button of an empty spot goes.
  const Money stands = g.BetAmount[bet];
  return known.IsRefused ? stands == Money() : stands != Money() && stands == known.Applied;
}

}  // namespace

bool IsBetAsAsked(Game& g, BetId bet, Money amount) {
  if (!g.HyperDriveActive || !IsBet(bet)) return false;
  const Bearing& bearing = BearingOn(bet);
  const Money stands = g.BetAmount[bet];
  if (bearing.isFollowed) return false;
  if (stands != Money() && !g.Rules.AllowNegBankroll && g.TotalBets > g.BetAmount[SlotBankroll]) return false;
  AnsweredRequest& last = g.TheLedger.LastAnswers[static_cast<std::size_t>(bet)];
  const AnsweredRequest now = {g.TheLedger.RulesNumber,
                               amount,
                               stands,
                               bearing.flat != 0 ? g.BetAmount[bearing.flat] : Money(),
                               bearing.seesPoint ? g.Point : 0,
                               BiasOf(g, bet)};
  if (last == now) return true;
  if (!StandsAsAsked(g, bet, amount)) return false;
  last = now;
  return true;
}

void ChangeBet(Game& g, BetId bet) {
  // No request can reach further than from one end of a Chip-Stack to the other.
  g.BetDelta = std::clamp(g.BetDelta, -kMaxChipStack - kMaxChipStack, kMaxChipStack + kMaxChipStack);
  g.BetDeltaApplied = g.BetDelta;
  if (IsChipStack(bet) || bet == SlotBehindStacks) return ChangeChipStack(g, bet);
  if (!IsBet(bet)) {
    g.BetDeltaApplied = Money();
    return;
  }
  std::string messageBeforeAdjust;
  const Verdict verdict = g.HyperDriveActive ? FitAsBefore(g, bet) : FitToRules(g, bet, messageBeforeAdjust);
  if (verdict == Verdict::Leave) return;
  HoldBankroll(g, bet, messageBeforeAdjust);
  TellLimitReached(g, bet);
  MakeChange(g, bet);
}

}  // namespace rollwick
