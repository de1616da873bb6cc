// Money in and out of the game, and the limit it may not pass.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

enum class AtmDirection { Withdraw, Deposit };

// A withdrawal brings money into the game, a deposit takes it out, each cut to what the limits allow (never
// below 0). `alwaysTell` shows a cut whatever the notice switches say. Returns the amount moved.
Money AtmTransaction(Game& g, AtmDirection direction, Money amount, bool alwaysTell = false);

// The bankroll is beyond the limit in one direction or the other: says so and ends the run.
void BankLimitStop(Game& g);

inline bool IsBeyondBankLimit(const Game& g) {
  return Abs(g.BetAmount[SlotBankroll]) > kBankLimit;
}

}  // namespace rollwick
