// The menu of one place on the layout: everything that can be done with the bets there.
#pragma once

#include <QMenu>
#include <functional>
#include <vector>

#include "session/TableHand.h"

namespace rollwick {

// The bets that answer at a spot. Two where a box holds money on both of its bets, and where the flat Don't
// Pass lies under its odds; none where no money can stand.
std::vector<BetId> BetsAt(const Game& g, int spot);

// What an entry does to its bet.
enum class BetEntry { Amount, TakeDown, CallOn, CallOff, Buy, FullOdds, ExplainPayoff };

// A menu for the bets, each with its entries; `choose` runs when one was chosen.
QMenu* MakeBetMenu(const Game& g, const std::vector<BetId>& bets, QWidget* parent,
                   const std::function<void(BetId, BetEntry)>& choose);

// What the bet earns in the long run, "loses $1.4141 a decision".
QString HouseShareText(const Game& g, BetId bet);

}  // namespace rollwick
