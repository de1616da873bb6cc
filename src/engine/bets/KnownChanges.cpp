// Changes in Hyper-Drive: the answers of the rules are remembered by request.
#include "engine/bets/Bearings.h"
#include "engine/bets/ChangeSteps.h"
#include "engine/bets/Placement.h"

namespace rollwick {

namespace {

// Beside amounts the rules bear on a request, on some bets the point, and which way the bet is fitted.
ChangeRequest RequestOf(const Game& g, BetId bet, Money amount, Money delta) {
  const std::uint32_t ways = (g.TravelPass ? 1U : 0U) | (g.TheLedger.IsParlay ? 2U : 0U);
  ChangeRequest request = {std::uint64_t{g.TheLedger.RulesNumber} << 32 | ways, amount, delta, Money()};
  const Bearing& bearing = BearingOn(bet);
  if (bearing.isPlain) return request;
  if (bearing.seesPoint) request.Circumstances |= static_cast<std::uint64_t>(g.Point) << 2;
  if (bearing.hasContract) request.Tie = g.BetContract[bet];
  if (bearing.flat != 0) request.Tie = g.BetAmount[bearing.flat];
  return request;
}

// Where the answer to the request stands, or is to stand: of the two places its hash chooses, the second one
// is left to what was asked before.
[[gnu::always_inline]] inline KnownChange& PlaceOf(Game& g, BetId bet, const ChangeRequest& request) {
  const auto bits = [](Money amount) { return static_cast<std::uint64_t>(amount.Units()); };
  const std::uint64_t mixed =
      (bits(request.Amount) * 3 + bits(request.Delta) * 5 + bits(request.Tie) * 7 + request.Circumstances) *
      0x9E3779B97F4A7C15u;
  auto& [first, second] = g.TheLedger.Changes[static_cast<std::size_t>(bet)][mixed >> kKnownChangesShift];
  if (first.Request == request) return first;
  if (second.Request == request) return second;
  second = first;
  return first;
}

[[gnu::noinline]] void Reckon(Game& g, BetId bet, const ChangeRequest& request, KnownChange& known) {
  std::string message;
  const bool isRefused = FitToRules(g, bet, message) == Ruling::Leave;
  known = {request, isRefused, g.BetDeltaApplied, g.BetMin, g.BetMax};
}

// Makes the change that is known, or is to be reckoned first.
[[gnu::always_inline]] inline void Carry(Game& g, BetId bet, const ChangeRequest& request,
                                         KnownChange& known) {
  if (known.Request != request) Reckon(g, bet, request, known);
  g.BetDeltaApplied = known.Applied;
  if (known.IsRefused) return;
  g.BetMin = known.BetMin;
  g.BetMax = known.BetMax;
  if (IsBeyondBankroll(g, bet)) HoldBankroll(g, bet, {});
  MakeChange(g, bet);
}

// Whether the rules answer a request on the empty spot, as is known, with just what stands.
bool StandsAsAsked(const Game& g, BetId bet, const KnownChange& known) {
  const Money stands = g.BetAmount[bet];
  // Nothing put up on nothing is no idle request: the button of an empty spot goes.
  if (stands == Money()) return known.IsRefused;
  const bool isCovered = g.Rules.AllowNegBankroll || AvailableBankroll(g) >= Money();
  return isCovered && !known.IsRefused && stands == known.Applied;
}

}  // namespace

void ChangeAsKnown(Game& g, BetId bet) {
  const ChangeRequest request = RequestOf(g, bet, g.BetAmount[bet], g.BetDelta);
  Carry(g, bet, request, PlaceOf(g, bet, request));
}

bool PutUpAsKnown(Game& g, BetId bet, Money asked) {
  const Money amount = WithinReach(asked);
  const ChangeRequest request = RequestOf(g, bet, Money(), amount);
  KnownChange& known = PlaceOf(g, bet, request);
  const bool isIdle = known.Request == request && StandsAsAsked(g, bet, known) && !BearingOn(bet).isFollowed;
  if (isIdle) {
    g.Asked[static_cast<std::size_t>(bet)] = amount;
    return false;
  }
  if (g.BetAmount[bet] != Money()) OverwriteAmount(g, bet, Money());
  g.BetDelta = g.BetDeltaApplied = amount;
  Carry(g, bet, request, known);
  return true;
}

void ForgetAnswersOnPoint(Game& g) {
  for (BetId bet = Bet::PassLine; bet <= Bet::DontCome; ++bet)
    g.Asked[static_cast<std::size_t>(bet)] = kNotAsked;
}

}  // namespace rollwick
