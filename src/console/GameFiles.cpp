#include "console/GameFiles.h"

#include <utility>

#include "console/PlayCommands.h"
#include "console/Words.h"
#include "dice/Draw.h"
#include "engine/game/NewGame.h"
#include "files/GameFile.h"

namespace rollwick {
namespace {

std::string Named(const std::string& file, const std::string& wrong) {
  return Echo(file) + ": " + CleanUtf8(OneLine(wrong));
}

// Empty, or why the file was refused. Other notices are shown.
std::string LoadFrom(Table& table, const std::filesystem::path& file) {
  Game& g = table.g;
  const std::string gamesLog = g.GamesLogPath;
  const LoadedGame loaded = LoadGameFile(g, file, table.DataFolder());
  if (loaded.result == GameFileResult::Refused) return Named(file.string(), loaded.notices.front().text);
  for (const Message& notice : loaded.notices) ShowMessage(g, notice.text, notice.title, notice.flags);
  table.log.Reopen(g.EventsLogPath);
  // Finished games go into a log only where one was named.
  if (IsDefaultGamesLog(g, table.DataFolder())) g.GamesLogPath = gamesLog;
  return {};
}

// The dice stay seeded as they are.
void BeginAnew(Game& g) {
  const bool reseeds = std::exchange(g.ReseedNewGames, false);
  NewGame(g, false);
  g.ReseedNewGames = reseeds;
}

}  // namespace

std::string StartFromFiles(Table& table, const CommonOptions& options) {
  Game& g = table.g;
  if (!options.gameFile.empty()) {
    const bool isWorkingGame = options.gameFile == "default";
    const std::filesystem::path file =
        isWorkingGame ? table.DataFolder() / kWorkingGame : std::filesystem::path(options.gameFile);
    if (std::string wrong = LoadFrom(table, file); !wrong.empty()) return wrong;
    if (isWorkingGame) table.host.workingGameFolder = table.DataFolder();
    if (options.rngIsGiven) g.RngChoice = options.rng - 1;
    FallBackFromMissingGenerator(g);
    if (!options.seed.empty()) {
      if (std::string wrong = SeedWith(g, options.seed); !wrong.empty()) return wrong;
    }
  }
  if (options.rulesFile.empty()) return {};
  if (const auto refusal = LoadRules(g, options.rulesFile)) return Named(options.rulesFile, refusal->text);
  BeginAnew(g);
  return {};
}

std::string SaveInto(Table& table, const std::string& file) {
  const std::string wrong = SaveGameFile(table.g, file, table.DataFolder());
  return wrong.empty() ? "" : Named(file, wrong);
}

Reply RunSave(Table& table, Arguments arguments) {
  if (const std::string wrong = SaveInto(table, arguments[0]); !wrong.empty()) return Failure(wrong);
  Reply reply;
  reply.text = "The game is saved in " + Echo(arguments[0]) + ".";
  return reply;
}

Reply RunLoad(Table& table, Arguments arguments) {
  if (const std::string wrong = LoadFrom(table, arguments[0]); !wrong.empty()) return Failure(wrong);
  Reply reply;
  reply.text = TableLine(table.g);
  reply.showsTable = true;
  return reply;
}

}  // namespace rollwick
