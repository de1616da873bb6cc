// Game files (*.crp): a whole game with its settings and statistics, and the names of the files it uses.
// GameFields.h and docs/game-file.md have the layout.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

inline constexpr std::string_view kWorkingGame = "default.crp";

// Whether the file is the working game, which keeps the places of the screens and its script and matrix even
// where they were never saved.
bool IsWorkingGame(const std::filesystem::path& file);

// Saves the game, which takes the file's path for its own. The script and the matrix of the working game go
// along into `dataFolder` when they are not in files of theirs. Empty on success, else the system's words:
// the file and the game are then as they were. Not while the dice roll, except the working game.
std::string SaveGameFile(Game& g, const std::filesystem::path& file, const std::filesystem::path& dataFolder);

enum class GameFileResult {
  Refused,   // nothing was changed
  CutShort,  // the file ends early: the game is what it held, and keeps its path
  Loaded,
};

struct LoadedGame {
  GameFileResult result = GameFileResult::Refused;
  // To be shown one by one: why the file was refused or where it ended, and companion files that are missing
  // or altered.
  std::vector<Message> notices;
};

// Loads the game with its script, dice and matrix. Whoever owns the Events Log lets it follow EventsLogPath.
// The generators go on as they are. What a script file itself has to say or ask is shown at once.
LoadedGame LoadGameFile(Game& g, const std::filesystem::path& file, const std::filesystem::path& dataFolder);

// Takes the rules of the house, the payoffs, the denominations and the Auto-Play settings of a game file, for
// a new game to be played by. Nothing on success, else the message that refuses it; nothing was changed then.
std::optional<Message> LoadRules(Game& g, const std::filesystem::path& file);

// Whether finished games go into the Games Log of the data folder, as when a game file names none.
bool IsDefaultGamesLog(const Game& g, const std::filesystem::path& dataFolder);

}  // namespace rollwick
