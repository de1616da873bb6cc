// What a choice of the Settle Bet dialog would make of the bet.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// The bet's amount when the dialog that asks about CurrentBetId is answered so: found by settling it on a
// copy of the table, with nobody told.
Money BetAfterAnswer(const Game& g, const SettleQuestion& question, const SettleAnswer& answer);

}  // namespace rollwick
