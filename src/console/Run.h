// `rollwick run`: a betting system at full speed.
#pragma once

#include <string>
#include <vector>

#include "console/Console.h"

namespace rollwick {

// The words behind `run`, as typed; empty where nothing was given.
struct RunOptions {
  std::string script;
  std::string rolls;
  std::string bankroll;
  bool initializes = false;
  std::vector<std::string> settings;  // NAME=VALUE
  std::string eventsFile;
  std::string recordFile;
  std::string saveFile;
  std::string outputFolder;
};

// Loads the script, runs it, reports. Returns the exit code.
int RunBettingSystem(const CommonOptions& options, const RunOptions& run, const Terminal& terminal);

}  // namespace rollwick
