// The statements of the Auto-Bet language for a reader.
#pragma once

#include <string>

namespace rollwick {

// Every statement in Markdown: start lines, conditions and comparisons, actions, values, targets. In the
// patterns words in capitals stand for what the player fills in.
std::string StatementList();

}  // namespace rollwick
