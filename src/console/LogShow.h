// `rollwick log show`: an Events Log through its index.
#pragma once

#include <string>

#include "console/Console.h"

namespace rollwick {

struct LogShowOptions {
  std::string file;
  std::string from;   // the first line; empty: 1
  std::string count;  // of lines; empty: all
  std::string find;   // only lines with this text in them
  bool finds = false;
};

// Returns the exit code.
int RunLogShow(const LogShowOptions& options, bool isJson, const Terminal& terminal);

}  // namespace rollwick
