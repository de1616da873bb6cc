// Every action of the player goes through the gate of the bets and becomes one step of undo.
#include "session/TableHand.h"

#include <algorithm>
#include <utility>

#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"
#include "layout/HotSpots.h"
#include "session/HostRelay.h"

namespace rollwick {
namespace {

bool HoldsMoney(BetId spot) {
  return IsBet(spot) || IsChipStack(spot);
}

// Hears whether a request was refused or cut, and the player was told so.
class Ear : public HostRelay {
 public:
  using HostRelay::HostRelay;
  bool heardRefusal = false;

  Answer Show(Game& g, const Message& message) override {
    if ((message.flags & (MessageClassNotAllowed | MessageClassLimits)) != 0) heardRefusal = true;
    return HostRelay::Show(g, message);
  }
};

void Place(Game& g, BetId spot, Money change) {
  g.BetDelta = change;
  PlaceChips(g, spot);
}

// ChangeBet with the chips redrawn; what was done.
Money Change(Game& g, BetId spot, Money change) {
  g.BetDelta = change;
  ChangeBet(g, spot);
  g.TheHost->ChipsChanged(g, spot);
  return g.BetDeltaApplied;
}

// The odds bet behind a flat one, or the odds bet itself; 0 when the bet takes none.
BetId OddsOf(BetId bet) {
  if (IsOdds(bet)) return bet;
  if (bet == Bet::PassLine || bet == Bet::DontPass) return bet + 1;
  return IsComeNumber(bet) || IsDontComeNumber(bet) ? bet + 6 : 0;
}

}  // namespace

void TableHand::ChooseMode(ClickMode mode) {
  PutBack();
  mode_ = mode == mode_ ? ClickMode::Bet : mode;
}

void TableHand::Click(BetId spot) {
  switch (mode_) {
    case ClickMode::Bet: {
      const auto chip = SlotChipDenom + std::clamp(g_.SelectedChip, 0, kChipCount - 1);
      if (HoldsMoney(spot)) Act([&] { Place(g_, spot, g_.BetAmount[chip]); });
      break;
    }
    case ClickMode::CallOn:
    case ClickMode::CallOff:
      Call(spot, mode_ == ClickMode::CallOn);
      break;
    case ClickMode::Buy:
      Buy(spot);
      break;
    case ClickMode::Remove:
      Remove(spot);
      break;
  }
}

bool TableHand::TakeUp(BetId spot) {
  PutBack();
  const BetId from = SpotToTakeDown(g_, spot);
  if (IsBusy() || !HoldsMoney(from) || g_.BetAmount[from] <= Money()) return false;
  carried_ = {from, g_.BetAmount[from]};
  return true;
}

void TableHand::PutDown(BetId target) {
  if (!carried_) return;
  const BetId from = carried_->from;
  PutBack();
  // The box they came from may answer as its odds meanwhile.
  if (HoldsMoney(target) && SpotToTakeDown(g_, target) != from) Act([&] { MoveChips(from, target); });
}

void TableHand::MoveChips(BetId from, BetId to) {
  const Money stood = g_.BetAmount[from];
  const std::int32_t button = IsBet(from) ? g_.BetWorking[from] : On;
  const Money moved = -Change(g_, from, -stood);
  if (moved <= Money()) return;
  const Money taken = Change(g_, to, moved);
  // Back where they lay they are no new bet, whatever the table would ask of one now.
  if (taken == Money()) return WriteBack({from, stood, g_.BetAmount[from], button, button}, true);
  g_.TheHost->Play(g_, Sound::Chips);
  if (taken < moved) Change(g_, from, moved - std::max(taken, Money()));
  if (IsBet(from) && g_.BetAmount[from] != Money()) SetBetWorking(g_, from, button);
  OddsFollow(g_, from);
  OddsFollow(g_, to);
}

bool TableHand::EnterAmount(BetId spot, Money amount) {
  if (IsBusy() || !HoldsMoney(spot)) return true;
  Ear ear(g_);
  Act([&] { Place(g_, spot, SaturatingSum(amount, -g_.BetAmount[spot])); });
  return !ear.heardRefusal;
}

void TableHand::Step(BetId bet, int formulaOperator) {
  Act([&] {
    const Money stood = g_.BetAmount[bet];
    AdjustBet(g_, bet, formulaOperator);
    if (g_.BetAmount[bet] != stood) OddsFollow(g_, bet);
  });
}

void TableHand::Remove(BetId spot) {
  const BetId from = SpotToTakeDown(g_, spot);
  if (!HoldsMoney(from) || g_.BetAmount[from] == Money()) return;
  Act([&] { Place(g_, from, -g_.BetAmount[from]); });
}

void TableHand::Buy(BetId bet) {
  Act([&] { BuyBet(g_, bet); });
}

void TableHand::Call(BetId bet, bool on) {
  Act([&] { CallBet(g_, bet, on); });
}

void TableHand::CallAll(bool on) {
  Act([&] { CallAllBets(g_, on); });
}

void TableHand::RemoveAll() {
  Act([&] { RemoveAllBets(g_); });
}

void TableHand::FullOdds(BetId bet) {
  if (const BetId odds = OddsOf(bet); odds != 0) Act([&] { TakeFullOdds(g_, odds); });
}

void TableHand::TakeAllOdds() {
  Act([&] { TakeAllDoOdds(g_); });
}

void TableHand::LayAllOdds() {
  Act([&] { LayAllDontOdds(g_); });
}

void TableHand::SameBetsAsLastHand() {
  // Flat bets come before their odds. What is refused is seen at the end, not told bet by bet.
  Act([&] {
    const std::int32_t notices = std::exchange(g_.Rules.NotifyFlags, 0);
    for (BetId bet = 1; bet <= kBetCount; ++bet) {
      const Money missing = lastBets_[static_cast<std::size_t>(bet)] - g_.BetAmount[bet];
      if (missing > Money()) Place(g_, bet, missing);
    }
    g_.Rules.NotifyFlags = notices;
  });
}

bool TableHand::HasLastHand() const {
  return lastBetsHand_ >= 0;
}

bool TableHand::LastHandStands() const {
  for (BetId bet = 1; bet <= kBetCount; ++bet)
    if (g_.BetAmount[bet] < lastBets_[static_cast<std::size_t>(bet)]) return false;
  return true;
}

// ---- Undo

bool TableHand::IsBusy() const {
  return isActing_ || g_.RollInProgress || g_.HyperDriveActive || g_.AutoBetRunning;
}

TableHand::Stand TableHand::StandNow() const {
  Stand stand{g_.BetAmount, g_.BetWorking, g_.TotalBets, g_.Rules, g_.Point, g_.RollCount()};
  stand.rules.NotifyFlags = 0;
  return stand;
}

void TableHand::ForgetSteps() {
  steps_.clear();
  done_ = 0;
}

// While a notice is up the player cannot do the next thing.
void TableHand::Act(const std::function<void()>& change) {
  if (IsBusy()) return;
  PutBack();
  isActing_ = true;
  const Stand before = StandNow();
  change();
  isActing_ = false;
  AddStep(before);
}

void TableHand::AddStep(const Stand& before) {
  Action step;
  for (BetId slot = 1; slot <= SlotLastChipStack; ++slot) {
    const auto at = static_cast<std::size_t>(slot);
    SlotChange change{slot, before.amounts[at], g_.BetAmount[at]};
    if (IsBet(slot)) change.workingBefore = before.working[at], change.workingAfter = g_.BetWorking[at];
    if (change.before != change.after || change.workingBefore != change.workingAfter) step.push_back(change);
  }
  if (step.empty()) return;
  if (before != left_) ForgetSteps();
  steps_.resize(done_);
  steps_.push_back(std::move(step));
  ++done_;
  left_ = StandNow();
}

void TableHand::WriteBack(const SlotChange& change, bool isUndo) {
  const BetId slot = change.slot;
  const Money amount = isUndo ? change.before : change.after;
  if (IsBet(slot)) {
    g_.TotalBets += amount - g_.BetAmount[slot];
    SetBetWorking(g_, slot, isUndo ? change.workingBefore : change.workingAfter);
  }
  SetAmount(g_, slot, amount);
  const auto refreshVig = [&](Money& vig, Money now, bool isOnAll) {
    if (isOnAll) g_.TotalBets += now - vig;
    vig = now;
  };
  if (IsBuy(slot)) refreshVig(g_.BuyVigAmount[slot], ComputeBuyVig(g_, slot, amount), g_.Rules.BuyVigOnAll);
  if (IsLay(slot)) refreshVig(g_.LayVigAmount[slot], ComputeLayVig(g_, slot, amount), g_.Rules.LayVigOnAll);
  g_.TheHost->ChipsChanged(g_, slot);
}

bool TableHand::CanUndo() const {
  return done_ > 0 && !IsBusy() && StandNow() == left_;
}

bool TableHand::CanRedo() const {
  return done_ < steps_.size() && !IsBusy() && StandNow() == left_;
}

void TableHand::Undo() {
  if (!CanUndo()) return;
  PutBack();
  for (const SlotChange& change : steps_[--done_]) WriteBack(change, true);
  g_.TableDirty = true;
  left_ = StandNow();
}

void TableHand::Redo() {
  if (!CanRedo()) return;
  PutBack();
  for (const SlotChange& change : steps_[done_++]) WriteBack(change, false);
  g_.TableDirty = true;
  left_ = StandNow();
}

void TableHand::DiceAreOut() {
  PutBack();
  ForgetSteps();
  const std::int32_t hand = g_.HandStats[HandsCompleted];
  if (hand == lastBetsHand_ || g_.BetsStanding.IsEmpty()) return;
  lastBetsHand_ = hand;
  std::copy_n(g_.BetAmount.begin(), lastBets_.size(), lastBets_.begin());
}

void TableHand::Forget() {
  PutBack();
  LeaveMode();
  ForgetSteps();
  lastBets_ = {};
  lastBetsHand_ = -1;
}

}  // namespace rollwick
