// `rollwick dice draw`: dice from a generator alone, without a table.
#pragma once

#include "console/Console.h"

namespace rollwick {

// Draws `rolls` rolls: as lines, or into a Dice Roll File when one is named. Returns the exit code.
int RunDiceDraw(const CommonOptions& options, const std::string& rolls, const std::string& file,
                const Terminal& terminal);

}  // namespace rollwick
