// Auto-Bet files (*.bet): records of 256 bytes, the first a header, one line in each that follows.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

// A file proved whole before anything is made of it.
struct ScriptFileContent {
  std::vector<ScriptLine> lines;
  std::optional<Message> refusal;  // why the file is not taken
  bool isQuillhaven = false;       // of the sibling product: it can be converted
};
// The bytes of a file of this short name.
ScriptFileContent ReadScriptBytes(std::string_view bytes, const std::string& name);
ScriptFileContent ReadScriptFile(const std::filesystem::path& path);

// Loads the script, or with `paste` puts its lines in at ScriptInsertLine. Offers to convert a file of the
// sibling product. False when that was declined or the file refused, with the message shown; the script is
// then as it was.
bool ReadScript(Game& g, const std::filesystem::path& path, bool paste);

// Writes all lines, or the selected ones. The script takes the file's name and counts as saved, unless only
// the selected lines were written or a hot key runs. Empty on success, else the system's words.
std::string WriteScript(Game& g, const std::filesystem::path& path, bool selectedOnly);

// The lines as the bytes of a file. Texts are cut at 128 characters, names at 80; an index beyond 16 bits
// and a code no single holds go in as the nearest that fits. The working copy is saved from these, for it
// never names the script.
std::string ScriptFileBytes(const std::vector<ScriptLine>& lines);

// Converts the sibling product's file; asks before it overwrites one. The new file's path, or nothing when
// that was declined or failed (told by a message).
std::optional<std::filesystem::path> ConvertQuillhavenFile(Game& g, const std::filesystem::path& path);

// Each selected line's text and a carriage return. Empty on success, else the system's words.
std::string WriteSelectedLinesToText(const Game& g, const std::filesystem::path& path);

}  // namespace rollwick
