// What a decided bet pays and what the house charges.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// What `bet` with `stake` wins (outcome above 0) or loses, by PointBeforeRoll and the dice: sets PayoffExact,
// PayoffNet (rounded down to whole lowest chips) and row 0 of PayoffTable. The real vig is the rounded one of
// the bet on the table; without useRealVig the unrounded vig of a one-dollar bet is taken.
void ComputePayoff(Game& g, bool useRealVig, BetId bet, int outcome, Money stake);

// The vig on `amount`, rounded to chips by the house's rule, at least one chip if anything is bet; 0 for
// other bets. A tie goes to the player: half a chip rounds down.
Money ComputeBuyVig(const Game& g, BetId bet, Money amount);
// The same, on what the Lay bet would win.
Money ComputeLayVig(const Game& g, BetId bet, Money amount);

// Works out the vig amounts of all Buy and Lay bets anew and brings TotalBets in line: after a change of a
// vig rule or of a Lay bet's payoff. `wereOnAll` tells what TotalBets held before the change.
struct VigCharged {
  bool buyOnAll;
  bool layOnAll;
};
void RefreshVigs(Game& g, VigCharged wereOnAll);

// "7 to 5", or "12 for 5" when the row is in "for" form.
std::string RatioText(const PayoffRow& row);

}  // namespace rollwick
