// The steps of a change, and the changes that are known from before.
#pragma once

#include <algorithm>
#include <string>

#include "engine/bets/Bearings.h"
#include "engine/state/Game.h"

namespace rollwick {

// No request reaches further than from one end of a Chip-Stack to the other.
inline Money WithinReach(Money delta) {
  return std::clamp(delta, -kMaxChipStack - kMaxChipStack, kMaxChipStack + kMaxChipStack);
}

enum class Ruling { GoOn, Leave };

// What the rules make of BetDelta, before the bankroll is looked at: BetDeltaApplied, BetMin, BetMax.
Ruling FitToRules(Game& g, BetId bet, std::string& messageBeforeAdjust);

// Whether the change that is about to be made is more than the bankroll covers; then cuts it.
bool IsBeyondBankroll(const Game& g, BetId bet);
void HoldBankroll(Game& g, BetId bet, const std::string& messageBeforeAdjust);

// The vig of the amount that now stands on a Buy or Lay bet.
void RefreshVigOf(Game& g, BetId bet);

// Makes the change: amount, TotalBets, button and vig.
[[gnu::always_inline]] inline void MakeChange(Game& g, BetId bet) {
  g.TableDirty = true;
  const bool hasVig = BearingOn(bet).hasVig;
  if (g.BetDeltaApplied == Money() && g.BetAmount[bet] != Money() && !hasVig) return;
  SetAmount(g, bet, g.BetAmount[bet] + g.BetDeltaApplied);
  g.TotalBets += g.BetDeltaApplied;
  if (g.BetAmount[bet] == Money()) ResetBetWorking(g, bet);
  if (hasVig) RefreshVigOf(g, bet);
}

// All of these in Hyper-Drive, with nobody to be told anything: most requests have been made before, and what
// the rules made of them is remembered.
void ChangeAsKnown(Game& g, BetId bet);
// The same for `amount` on the spot of `bet`, which is emptied first without a word to the rules. False when
// that would have left things just as they are.
bool PutUpAsKnown(Game& g, BetId bet, Money amount);

}  // namespace rollwick
