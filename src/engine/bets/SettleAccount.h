// The account of one settled bet, as the Settle Bet dialog shows it.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Both read the result of CurrentBetId before its vig is released. The account of a loss with its vig charged
// adds the vig back to PayoffNet: what is left of the stake is reckoned without it.
SettleQuestion AccountOfWin(const Game& g, std::string_view caption);
SettleQuestion AccountOfLoss(Game& g);

std::string PressUnitCaption(const Game& g);

}  // namespace rollwick
