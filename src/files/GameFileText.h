// A game file for people: its map as a page, and what a file holds.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "engine/state/Host.h"

namespace rollwick {

// The rows of docs/game-file.md.
std::string GameFieldPage();

struct GameFileEntry {
  std::string name;  // "Rules.MinPlacardBet", "BetAmount[43]"
  std::string value;
};

// Every field of the file as it stands there, in its order; fields that are cut off are left out. Nothing
// else is opened or changed.
struct GameFileContent {
  std::optional<Message> refusal;
  std::vector<GameFileEntry> entries;
};
GameFileContent ListGameFile(const std::filesystem::path& file);

}  // namespace rollwick
