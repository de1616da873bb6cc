// The Settle Bet dialog: what one decided bet won or lost, and what is to become of it.
#pragma once

#include "ui/screens/Screen.h"

namespace rollwick {

SettleAnswer ShowSettleWindow(Game& g, const SettleQuestion& question, QWidget* owner);

}  // namespace rollwick
