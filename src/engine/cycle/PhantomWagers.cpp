// A roll entered under its kinds, and the decisions of a kind worked out once by the rules of the table.
#include "engine/cycle/PhantomWagers.h"

#include <algorithm>

#include "engine/bets/Payoffs.h"
#include "engine/cycle/RollCalls.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

constexpr bool HasToTravel(BetId bet) {
  return bet >= Bet::DontCome4 && bet <= Bet::Come10Odds;
}

// A phantom bet on a number is there only after it has travelled; a house with put bets lets a Come bet start
// there. The bits of a presence are the groups of six bets in their order.
bool IsThere(const Game& g, BetId bet, int presence) {
  if (bet >= Bet::Come4 && g.Rules.AllowPutBets) return true;
  return (presence >> (bet - Bet::DontCome4) / 6 & 1) != 0;
}

const RollCalls& CallsOnDice(const Game& g) {
  return CallsOf(g.PointBeforeRoll, g.Die1, g.Die2, g.Rules.BarNumber);
}

// Works out the decisions of a cell: of the calls on these dice, those of the bets that `isMeant` tells.
template <class IsMeant>
void Price(Game& g, CellDecisions& cell, IsMeant isMeant) {
  const RollCalls& calls = CallsOnDice(g);
  const PayoffRow used =
      g.PayoffTable[0];  // of the last real bet: what a game file keeps does not hang on us
  cell.Count = 0;
  for (std::int32_t i = 0; i < calls.Count; ++i) {
    const auto [bet, result] = calls.Calls[static_cast<std::size_t>(i)];
    if (result == 0 || !isMeant(bet)) continue;
    ComputePayoff(g, false, bet, result, Dollars(1));
    AddDecision(g, cell, bet, g.PayoffExact);
  }
  g.PayoffTable[0] = used;
}

bool IsOnLine(BetId bet) {
  return !HasToTravel(bet);
}

// The first roll in a cell puts it on the list, and finds its decisions if they are not known.
template <class IsMeant>
void Start(Game& g, const ActionCells& action, int cell, IsMeant isMeant) {
  TouchCell(g, action, cell);
  CellDecisions& decisions = DecisionsOf(g, cell);
  if (decisions.Count == kNotPriced) Price(g, decisions, isMeant);
}

[[gnu::cold]] void StartLine(Game& g, const ActionCells& action, int cell) {
  Start(g, action, cell, IsOnLine);
}

[[gnu::cold]] void StartTravelled(Game& g, const ActionCells& action, int cell, int number, int presence) {
  Start(g, action, cell,
        [&](BetId bet) { return HasToTravel(bet) && NumberOf(bet) == number && IsThere(g, bet, presence); });
}

int LineCellOfDice(const Game& g) {
  return LineCell(g.PointBeforeRoll, g.Die1, g.Die2);
}

void CountOnLine(Game& g, ActionCells& action) {
  const int cell = LineCellOfDice(g);
  if (CountRollIn(g, action, cell)) StartLine(g, action, cell);
}

void CountTravelled(Game& g, ActionCells& action, int number, bool onSeven) {
  const int place = BoxPlace(number);
  const int presence = g.TheLedger.Phantoms.Presence[static_cast<std::size_t>(place)];
  const int cell = TravelCell(place, presence, onSeven);
  if (CountRollIn(g, action, cell)) StartTravelled(g, action, cell, number, presence);
}

}  // namespace

void CountPhantoms(Game& g) {
  ActionCells& action = CellsInAction(g);
  CountOnLine(g, action);
  if (g.DiceTotal == 7) {
    for (const int number : kBoxNumbers) CountTravelled(g, action, number, true);
  } else if (IsBoxNumber(g.DiceTotal)) {
    CountTravelled(g, action, g.DiceTotal, false);
  }
}

bool PhantomPricesAgree(Game& g) {
  const CellDecisions& kept = DecisionsOf(g, LineCellOfDice(g));
  CellDecisions now;
  Price(g, now, IsOnLine);
  return std::equal(now.Prices.begin(), now.Prices.begin() + now.Count, kept.Prices.begin(),
                    kept.Prices.begin() + kept.Count);
}

}  // namespace rollwick
