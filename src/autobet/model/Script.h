// The script of a game as a whole: emptied, replaced, added to.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

// No lines, no name, no flags, no output file's name.
void ClearScript(Game& g);

// Takes `lines` for the script, under this short name and path. Flags are found anew and are false; a script
// loaded for a hot key leaves name, flags and the state of change alone. A flag comes into being when a line
// names it. Names that differ in case only are one flag, under the name that came first. Meant: a run
// compares names exactly, so the other spelling finds no flag.
void ReplaceScript(Game& g, std::vector<ScriptLine> lines, std::string_view name, std::string_view path);

// Puts `lines` in at ScriptInsertLine, selected; all others are not. Flags they name are added.
void InsertLines(Game& g, std::vector<ScriptLine> lines);

// Whether the line names a flag.
bool NamesFlag(const ScriptLine& line);

// Without the blanks at the right; at both ends.
std::string_view TrimRight(std::string_view text);
std::string_view TrimBlanks(std::string_view text);
// Trimmed, in lower case: as labels and flag names are compared.
std::string LowerTrimmed(std::string_view text);

}  // namespace rollwick
