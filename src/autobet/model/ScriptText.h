// The text form of a script: each line as the editor shows it, and back.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/state/ScriptTables.h"

namespace rollwick {

// The line as the editor shows it, with its indent, from its coded fields. Codes that no list offers are
// written as their number in brackets, so that nothing is hidden.
std::string LineText(const ScriptLine& line);

// What is wrong with a text, at a line and column counted from 1 (columns in characters).
struct ScriptTextError {
  int line = 0;
  int column = 0;
  std::string message;
};

struct ParsedScript {
  std::vector<ScriptLine> lines;
  std::vector<int> sourceLines;  // of each script line its line in the text
  std::vector<ScriptTextError> errors;
};

// Reads a text of UTF-8. Blank lines are skipped. A line with errors is left out.
ParsedScript ParseScriptText(std::string_view text);

}  // namespace rollwick
