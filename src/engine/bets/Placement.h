// How bets get on and off the table. ChangeBet is the one gate.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Changes the amount on a bet or Chip-Stack by BetDelta as far as chips, rules, limits, proper payoffs and
// bankroll allow; BetDeltaApplied tells what was done. Other slots are left alone. Keeps TotalBets, vigs and
// BetWorking.
void ChangeBet(Game& g, BetId bet);

// The click: ChangeBet, then the odds that follow a line or Come bet by themselves. BetDeltaApplied is the
// bet's own.
void PlaceChips(Game& g, BetId bet);

// Whether the bankroll covers all bets, as far as the house asks for that.
inline bool BetsAreCovered(const BetTables& g) {
  return g.Rules.AllowNegBankroll || AvailableBankroll(g) >= Money();
}

// The slot as it is said to be, without a word to the rules.
void OverwriteAmount(Game& g, BetId slot, Money amount);

// Empties the slot so and asks the rules for `amount` on it, and for the odds that follow.
void PutUpAfresh(Game& g, BetId slot, Money amount);
// The same, but what is known to stand just as it would then is left alone.
inline void PutUp(Game& g, BetId slot, Money amount) {
  const bool isKnown = amount >= Money() && g.Asked[static_cast<std::size_t>(slot)] == amount;
  if (!isKnown || !BetsAreCovered(g)) PutUpAfresh(g, slot, amount);
}

// The point has moved: what is known of bets that depend on it holds no more.
void ForgetAnswersOnPoint(Game& g);

// After a change of a line or Come bet: odds that ride along with it, or stand too high behind what is left.
void OddsFollow(Game& g, BetId bet);

// Sets BetMax, the most that may stand on `bet` now.
void MaxBetFor(Game& g, BetId bet);

// Sets BetMax to the most odds behind `flat`; ratioA to ratioB is the odds payoff the right way up for taking
// odds.
void MaxOddsBetFor(Game& g, BetId bet, BetId flat, Money ratioA, Money ratioB);

// Moves BetDeltaApplied, the change about to be made on `bet`, so that the bet pays whole chips.
void AdjustForProperPayoff(Game& g, BetId bet);

// Sets an odds bet to its maximum, without notices.
void TakeFullOdds(Game& g, BetId bet);
void TakeAllDoOdds(Game& g);
void LayAllDontOdds(Game& g);

// Takes everything down that the rules let go, without notices.
void RemoveAllBets(Game& g);

// Turns a Place bet into the Buy bet on its number.
void BuyBet(Game& g, BetId bet);

// Calls a bet ON or OFF; a second call of the other kind takes the button away.
void CallBet(Game& g, BetId bet, bool on);
void CallAllBets(Game& g, bool on);

// One step of the hot keys: the present amount plus or minus a unit, doubled or halved (a FormulaOperator),
// put up afresh.
void AdjustBet(Game& g, BetId bet, int choice);

// Fits every bet on the table to proper payoffs anew, without notices: after the adjust mode was changed.
void RefitAllBets(Game& g);

}  // namespace rollwick
