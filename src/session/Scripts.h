// Auto-Bet scripts brought to the table: read from a script file or from a text, switched on, run once before
// the dice.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "autobet/model/CheckStructure.h"
#include "autobet/model/ScriptText.h"
#include "engine/state/Game.h"

namespace rollwick {

// What a file says, proved as far as it can be without a game.
struct ScriptSource {
  std::vector<ScriptLine> lines;
  bool isScriptFile = false;            // else it is a text
  std::vector<int> sourceLines;         // of each line its line in the text; empty for a script file
  std::vector<ScriptTextError> errors;  // of a text
  std::optional<Message> refusal;       // the system's words, or why it is no script file
};

// Reads either form; a script file is known by how it begins, one that is broken by its name.
ScriptSource ReadScriptSource(const std::filesystem::path& path);

// The line of the file, as its reader counts, that script line `line` (from 1) comes from.
int SourceLine(const ScriptSource& source, int line);

// Makes the file the script of the game, under its name. A file of the sibling product is offered for
// conversion. False when it was refused, by a message shown or by the errors and refusal of the answer; the
// script is then as it was.
struct LoadedScript {
  bool isLoaded = false;
  ScriptSource source;
};
LoadedScript LoadScript(Game& g, const std::filesystem::path& path);

// Switches the script on, which is offered to be initialized before the next roll, or off.
void ActivateScript(Game& g, bool isOn);

// Runs the script once before the dice. Empty, or the error it was aborted by; a message has told it.
std::string RunInitializingScript(Game& g);

}  // namespace rollwick
