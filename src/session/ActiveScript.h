// The working copy of the player's script, "active.tmp" in the data folder: what a crash leaves of it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

inline constexpr std::string_view kActiveScript = "active.tmp";

// Writes the script as it stands, without a word about its name or its changes; without lines the copy is
// deleted. To be called when a game was loaded, when the editor closes, and before a hot key runs. Empty on
// success, else the system's words.
std::string SaveActiveScript(const Game& g, const std::filesystem::path& dataFolder);

// Its lines; nothing when there is none, or none that can be read.
std::optional<std::vector<ScriptLine>> ReadActiveScript(const std::filesystem::path& dataFolder);

// Makes the lines the script when they are another one. It keeps its name and counts as changed.
void RecoverScript(Game& g, std::vector<ScriptLine> lines);

// Empty on success, also when there is none.
std::string DeleteActiveScript(const std::filesystem::path& dataFolder);

}  // namespace rollwick
