// `rollwick dice draw`: dice from a generator alone, without a table.
#pragma once

#include <cstdint>
#include <iosfwd>

#include "console/Console.h"

namespace rollwick {

// Draws `rolls` rolls: as lines, or into a Dice Roll File when one is named. Returns the exit code.
int RunDiceDraw(const CommonOptions& options, const std::string& rolls, const std::string& file,
                const Terminal& terminal);

// "3 4", or {"roll":1,"dice":[3,4]}.
void PrintRoll(std::ostream& out, bool isJson, std::int64_t roll, std::int32_t die1, std::int32_t die2);

}  // namespace rollwick
