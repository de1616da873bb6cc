// The table between two starts: what it brings back, what it asks about unsaved work, and what it leaves.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/state/Game.h"
#include "files/GameFile.h"
#include "files/HotKeys.h"

namespace rollwick {

struct StartedTable {
  std::vector<HotKey> hotKeys;
  std::vector<Message> notices;  // to be shown one by one when the table has appeared
};

// Into a newly opened house: the hot keys, the working game if there is one, and the script that a crash
// left, which is newer than the game's. Whoever owns the Events Log then lets it follow EventsLogPath.
StartedTable StartTable(Game& g, const std::filesystem::path& dataFolder);

// Opens the game for the player, as LoadGameFile does, and begins the working copy of its script.
LoadedGame OpenGame(Game& g, const std::filesystem::path& file, const std::filesystem::path& dataFolder);

// Before a script resets the table: saves the working game as the player has it, so that neither its own
// file, nor its unsaved changes, nor a hot key's script come into it. Empty on success, else the system's
// words.
std::string SaveWorkingGame(Game& g, const std::filesystem::path& dataFolder);

// The file that something without a name is to be saved as: the answer of a file dialog, which nothing
// cancels.
enum class Unsaved { Game, Script, Matrix };
using ChooseFile = std::function<std::optional<std::filesystem::path>(Unsaved)>;

enum class Closing {
  Done,
  Cancelled,  // by the player, with everything as it was
  Failed,     // something could not be saved, which a message has told: as if cancelled
};

// Asks about a game, a script and a matrix that have changed since they were saved, one after the other, and
// saves what is to be saved. For the end of the table, and before another game.
Closing QueryUnsaved(Game& g, const std::filesystem::path& dataFolder, const ChooseFile& chooseFile);

// The end of the table: asks as above, saves the working game, deletes the work files and adds the game to
// the Games Log. Not while the dice roll or a script runs: that counts as cancelled. When it failed nothing
// was deleted, and the table stays open. A Games Log that refuses the game is told of, and keeps nobody.
Closing EndTable(Game& g, const std::filesystem::path& dataFolder, const ChooseFile& chooseFile);

}  // namespace rollwick
