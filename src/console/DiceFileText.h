// `rollwick dice show`, `rollwick dice make`: a Dice Roll File as text, and back.
#pragma once

#include <string>

#include "console/Console.h"

namespace rollwick {

// Prints `count` rolls (empty: all) from roll `first` (empty: 1) on. Returns the exit code.
int RunDiceShow(const std::string& file, const std::string& first, const std::string& count, bool isJson,
                const Terminal& terminal);

// Makes a Dice Roll File of two faces a line. Returns the exit code.
int RunDiceMake(const std::string& text, const std::string& output, const Terminal& terminal);

}  // namespace rollwick
