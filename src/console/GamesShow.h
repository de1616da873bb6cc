// `rollwick games show`: what a Games Log says of one column.
#pragma once

#include <string>

#include "console/Console.h"

namespace rollwick {

struct GamesShowOptions {
  std::string file;
  std::string view = "0";                 // a column by its number or its caption
  std::string include = "won,even,lost";  // classes of games
  std::string breakPoints = "0:0";        // LOW:HIGH
};

// Returns the exit code.
int RunGamesShow(const GamesShowOptions& options, bool isJson, const Terminal& terminal);

}  // namespace rollwick
