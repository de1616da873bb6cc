// The one window for notices, questions and inputs.
#pragma once

#include "ui/screens/Screen.h"

namespace rollwick {

// Shows the message, modal to `owner`, and gives its answer. A class bit brings the check box that clears the
// bit of NotifyFlags. Escape and the close box give the least harmful answer: Cancel, else No, else Ok.
Answer ShowMessageWindow(Game& g, const Message& message, QWidget* owner);

// Asks for an entry; nothing when the player closes it. An entry that is no amount, or no number a seed can
// be, is not taken, and the reason is shown.
std::optional<std::string> AskInWindow(Game& g, const Prompt& prompt, QWidget* owner);

}  // namespace rollwick
