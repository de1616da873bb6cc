// What a player does with a bet beyond changing its amount: odds, buying, calling, clearing.
#include "engine/bets/Placement.h"

#include "engine/bets/Bearings.h"
#include "engine/bets/ChangeSteps.h"
#include "engine/bets/Resolution.h"

namespace rollwick {

namespace {

constexpr Money kAsMuchAsAllowed = Dollars(9'999'999);

// Switches all notices off for the length of a batch.
class NoticesOff {
 public:
  explicit NoticesOff(Game& g) : flags_(g.Rules.NotifyFlags), kept_(flags_) { flags_ = 0; }
  ~NoticesOff() { flags_ = kept_; }
  NoticesOff(const NoticesOff&) = delete;
  NoticesOff& operator=(const NoticesOff&) = delete;

 private:
  std::int32_t& flags_;
  std::int32_t kept_;
};

void Change(Game& g, BetId bet, Money by) {
  g.BetDelta = by;
  ChangeBet(g, bet);
  if (!g.HyperDriveActive) g.TheHost->ChipsChanged(g, bet);
}

KnownMaximum& MaximumBehind(Game& g, BetId odds, Money flat, int point) {
  const int place = flat == Money() ? 0 : point == 0 ? 1 : 2 + BoxPlace(point);
  return g.TheLedger.Maxima[static_cast<std::size_t>(odds)][static_cast<std::size_t>(place)];
}

// MaxBetFor of odds, in Hyper-Drive remembered from before.
void FindMaximum(Game& g, BetId odds) {
  if (!g.HyperDriveActive) return MaxBetFor(g, odds);
  const Money flat = g.BetAmount[FlatOf(odds)];
  const int point = BearingOn(odds).seesPoint ? g.Point : 0;
  KnownMaximum& known = MaximumBehind(g, odds, flat, point);
  if (known.RulesNumber != g.TheLedger.RulesNumber || known.Flat != flat) {
    MaxBetFor(g, odds);
    known = {g.TheLedger.RulesNumber, flat, g.BetMax, g.OddsMultiple};
  }
  g.BetMax = known.BetMax;
  g.OddsMultiple = known.OddsMultiple;
}

void FollowWithOdds(Game& g, BetId odds, bool always) {
  FindMaximum(g, odds);
  if (always || g.BetAmount[odds] > g.BetMax) TakeFullOdds(g, odds);
}

// Odds behind a bet that has changed; BetDeltaApplied stays the bet's own.
void FollowChange(Game& g, BetId bet) {
  const Money applied = g.BetDeltaApplied;
  if (applied == Money()) return;
  OddsFollow(g, bet);
  g.BetDeltaApplied = applied;
}

void FullOddsBehind(Game& g, BetId flat, BetId odds) {
  if (g.BetAmount[flat] > Money()) TakeFullOdds(g, odds);
}

std::string NoticeTitle(BetId slot) {
  return IsChipStack(slot) ? ChipStackTitle(slot) : BetName(slot) + " Bet";
}

void TellNotAllowed(Game& g, BetId slot, std::string_view text) {
  if (MayNotify(g, NotifyNotAllowed)) ShowNotice(g, NotifyNotAllowed, text, NoticeTitle(slot));
}

// Flat line and come bets work by the rules of the game alone.
bool MayBeCalled(BetId bet) {
  return bet != Bet::PassLine && bet != Bet::DontPass && bet != Bet::Come && bet != Bet::DontCome &&
         !IsComeNumber(bet) && !IsDontComeNumber(bet);
}

void Call(Game& g, BetId bet, bool on) {
  const std::int32_t otherButton = on ? CalledOff : CalledOn;
  if (g.BetWorking[bet] == otherButton) {
    ResetBetWorking(g, bet);
  } else {
    SetBetWorking(g, bet, on ? CalledOn : CalledOff);
  }
  g.TableDirty = true;
}

Money AdjustedAmount(Game& g, BetId bet, int choice) {
  const Money amount = g.BetAmount[bet];
  BetUnit(g, bet);
  switch (choice) {
    case FormulaPlus:
      return amount + g.BetUnitAmount;
    case FormulaMinus:
      return amount - g.BetUnitAmount;
    case FormulaTimes:
      return amount + amount;
    default:
      return Quotient(amount, Dollars(2));
  }
}

}  // namespace

void OddsFollow(Game& g, BetId bet) {
  if (!IsBet(bet) || !BearingOn(bet).isFollowed) return;
  if (bet == Bet::PassLine && g.Point != 0) FollowWithOdds(g, Bet::PassLineOdds, g.AutoTakeFullOdds);
  if (bet == Bet::DontPass && g.Point != 0) FollowWithOdds(g, Bet::DontPassOdds, g.AutoLayFullOdds);
  if (IsComeNumber(bet)) FollowWithOdds(g, bet + 6, g.AutoTakeFullOdds);
  if (IsDontComeNumber(bet)) FollowWithOdds(g, bet + 6, g.AutoLayFullOdds);
}

void PlaceChips(Game& g, BetId bet) {
  Change(g, bet, g.BetDelta);
  // The dealer moves a travelling Come bet; only the player's chips are heard.
  const bool isHeard = g.BetDeltaApplied != Money() && !g.TravelPass;
  if (isHeard && !g.HyperDriveActive) g.TheHost->Play(g, Sound::Chips);
  FollowChange(g, bet);
}

void OverwriteAmount(Game& g, BetId slot, Money amount) {
  if (IsBet(slot)) g.TotalBets += amount - g.BetAmount[slot];
  SetAmount(g, slot, amount);
}

void PutUpAfresh(Game& g, BetId slot, Money amount) {
  if (g.HyperDriveActive && IsBet(slot)) {
    if (!PutUpAsKnown(g, slot, amount)) return;
    FollowChange(g, slot);
  } else {
    OverwriteAmount(g, slot, Money());
    g.BetDelta = amount;
    PlaceChips(g, slot);
  }
  // A bet that stays down went down without a word; its odds may not stand alone.
  if (amount == Money() && g.BetAmount[slot] == Money()) OddsFollow(g, slot);
}

void TakeFullOdds(Game& g, BetId bet) {
  const NoticesOff off(g);
  Change(g, bet, -g.BetAmount[bet]);
  Change(g, bet, kAsMuchAsAllowed);
}

void TakeAllDoOdds(Game& g) {
  if (g.Point != 0) FullOddsBehind(g, Bet::PassLine, Bet::PassLineOdds);
  for (BetId flat = Bet::Come4; flat <= Bet::Come10; ++flat) FullOddsBehind(g, flat, flat + 6);
}

void LayAllDontOdds(Game& g) {
  if (g.Point != 0) FullOddsBehind(g, Bet::DontPass, Bet::DontPassOdds);
  for (BetId flat = Bet::DontCome4; flat <= Bet::DontCome10; ++flat) FullOddsBehind(g, flat, flat + 6);
}

void RemoveAllBets(Game& g) {
  const NoticesOff off(g);
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    if (g.BetAmount[bet] != Money()) Change(g, bet, -g.BetAmount[bet]);
  }
}

void RefitAllBets(Game& g) {
  const NoticesOff off(g);
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    if (g.BetAmount[bet] != Money()) Change(g, bet, Money());
  }
}

void BuyBet(Game& g, BetId bet) {
  if (!IsBet(bet) && !IsChipStack(bet)) return;
  const Money amount = g.BetAmount[bet];
  if (amount == Money() || IsBuy(bet)) return;
  if (!IsPlace(bet)) {
    TellNotAllowed(g, bet, IsChipStack(bet) ? "You may not buy Chip-Stacks." : "You may not buy this bet.");
    return;
  }
  const BetId buy = bet + 6;
  const std::int32_t working = g.BetWorking[bet];
  if (working == CalledOn || working == CalledOff) SetBetWorking(g, buy, working);
  Change(g, bet, -amount);
  g.BetDelta = amount - g.BetAmount[bet];
  PlaceChips(g, buy);
}

void CallBet(Game& g, BetId bet, bool on) {
  if ((!IsBet(bet) && !IsChipStack(bet)) || g.BetAmount[bet] == Money()) return;
  if (IsChipStack(bet)) {
    TellNotAllowed(g, bet, "You may not call Chip-Stacks ON or OFF.");
  } else if (!MayBeCalled(bet)) {
    TellNotAllowed(g, bet, "You may not call this bet ON or OFF.");
  } else {
    Call(g, bet, on);
    if (!g.HyperDriveActive) g.TheHost->ChipsChanged(g, bet);
  }
}

void CallAllBets(Game& g, bool on) {
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    if (g.BetAmount[bet] != Money() && MayBeCalled(bet)) CallBet(g, bet, on);
  }
}

void AdjustBet(Game& g, BetId bet, int choice) {
  if (!IsBet(bet)) return;
  const Money target = AdjustedAmount(g, bet, choice);
  Change(g, bet, -g.BetAmount[bet]);
  Change(g, bet, target - g.BetAmount[bet]);
  TellBetChange(g, bet);
}

}  // namespace rollwick
