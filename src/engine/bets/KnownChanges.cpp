// Changes in Hyper-Drive: the answers of the rules are remembered by request.
#include "engine/bets/Bearings.h"
#include "engine/bets/ChangeSteps.h"
#include "engine/bets/Placement.h"

namespace rollwick {

namespace {

// Beside amounts the rules bear on a request, on some bets the point, and which way the bet is fitted.
[[gnu::always_inline]] inline ChangeRequest RequestOf(const Game& g, BetId bet, Money amount, Money delta) {
  const std::uint32_t ways = (g.TravelPass ? 1U : 0U) | (g.TheLedger.IsParlay ? 2U : 0U);
  const std::uint64_t circumstances = std::uint64_t{g.TheLedger.RulesNumber} << 32 | ways;
  const Bearing& bearing = BearingOn(bet);
  if (bearing.isPlain) return {circumstances, amount, delta, Money()};
  const Money tie = bearing.hasContract ? g.BetContract[bet]
                    : bearing.flat != 0 ? g.BetAmount[bearing.flat]
                                        : Money();
  const auto point = static_cast<std::uint64_t>(bearing.seesPoint ? g.Point : 0);
  return {circumstances | point << 2, amount, delta, tie};
}

// Where answers to requests with this hash stand: of the two places there the second is left to what was
// asked before.
std::array<KnownChange, 2>& PlacesOf(Game& g, BetId bet, const ChangeRequest& request) {
  const auto bits = [](Money amount) { return static_cast<std::uint64_t>(amount.Units()); };
  const std::uint64_t mixed =
      (bits(request.Amount) * 3 + bits(request.Delta) * 5 + bits(request.Tie) * 7 + request.Circumstances) *
      0x9E3779B97F4A7C15u;
  return g.TheLedger.Changes[static_cast<std::size_t>(bet)][mixed >> kKnownChangesShift];
}

[[gnu::noinline]] const KnownChange& Reckon(Game& g, BetId bet, ChangeRequest request) {
  auto& [first, second] = PlacesOf(g, bet, request);
  second = first;
  std::string message;
  const bool isRefused = FitToRules(g, bet, message) == Ruling::Leave;
  first = {request, isRefused, g.BetDeltaApplied, g.BetMin, g.BetMax};
  return first;
}

// The answer to the request, if it is known.
[[gnu::always_inline]] inline const KnownChange* Find(Game& g, BetId bet, const ChangeRequest& request) {
  const auto& [first, second] = PlacesOf(g, bet, request);
  return first.Request == request ? &first : second.Request == request ? &second : nullptr;
}

// Makes a change by the answer of the rules.
[[gnu::always_inline]] inline void Carry(Game& g, BetId bet, const KnownChange& answer) {
  g.BetDeltaApplied = answer.Applied;
  if (answer.IsRefused) return;
  if (IsBeyondBankroll(g, bet)) {
    g.BetMin = answer.BetMin;
    g.BetMax = answer.BetMax;
    HoldBankroll(g, bet, {});
  }
  MakeChange(g, bet);
}

// Whether the rules answer a request on the empty spot, as is known, with just what stands.
bool StandsAsAsked(const Game& g, BetId bet, const KnownChange& known) {
  const Money stands = g.BetAmount[bet];
  // Nothing put up on nothing is no idle request: the button of an empty spot goes.
  if (stands == Money()) return known.IsRefused;
  return BetsAreCovered(g) && !known.IsRefused && stands == known.Applied;
}

}  // namespace

void ChangeAsKnown(Game& g, BetId bet) {
  const ChangeRequest request = RequestOf(g, bet, g.BetAmount[bet], g.BetDelta);
  const KnownChange* known = Find(g, bet, request);
  Carry(g, bet, known != nullptr ? *known : Reckon(g, bet, request));
}

bool PutUpAsKnown(Game& g, BetId bet, Money asked) {
  const Money amount = WithinReach(asked);
  const ChangeRequest request = RequestOf(g, bet, Money(), amount);
  const KnownChange* known = Find(g, bet, request);
  if (known != nullptr && StandsAsAsked(g, bet, *known) && !BearingOn(bet).isFollowed) {
    g.Asked[static_cast<std::size_t>(bet)] = amount;
    return false;
  }
  if (g.BetAmount[bet] != Money()) OverwriteAmount(g, bet, Money());
  g.BetDelta = g.BetDeltaApplied = amount;
  Carry(g, bet, known != nullptr ? *known : Reckon(g, bet, request));
  return true;
}

void ForgetAnswersOnPoint(Game& g) {
  for (BetId bet = Bet::PassLine; bet <= Bet::DontCome; ++bet)
    g.Asked[static_cast<std::size_t>(bet)] = kNotAsked;
}

}  // namespace rollwick
