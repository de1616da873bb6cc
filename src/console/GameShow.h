// `rollwick game show` and `rollwick game fields`: a game file field by field.
#pragma once

#include <string>

#include "console/Console.h"

namespace rollwick {

// Both return the exit code.
int RunGameShow(const std::string& file, bool isJson, const Terminal& terminal);
int RunGameFields(const Terminal& terminal);

}  // namespace rollwick
