// Whether a script is put together as a run expects it.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "engine/state/ScriptTables.h"

namespace rollwick {

inline constexpr const char* kScriptIsEmpty =
    "This feature checks to see that your Auto-Bet script is properly structured, but presently your script "
    "is "
    "empty.";
inline constexpr const char* kScriptIsGood = "Your script is properly structured.";

struct StructureFault {
  int line = 0;       // from 1
  std::string title;  // "Missing Start Condition"
  std::string text;   // lines end in a carriage return
};

// The first fault: of the structure in line order, then duplicate labels, then labels that are missing.
std::optional<StructureFault> CheckStructure(std::span<const ScriptLine> lines);

}  // namespace rollwick
