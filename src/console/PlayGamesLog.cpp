// gameslog: where finished games are added.
#include <filesystem>

#include "base/Nearest.h"
#include "console/PlayCommands.h"
#include "console/Words.h"
#include "stats/logs/GamesLog.h"

namespace rollwick {

Reply RunGamesLog(Table& table, Arguments arguments) {
  const std::string& word = arguments[0];
  Reply reply;
  if (SameWord(word, "off")) {
    table.g.GamesLogPath.clear();
    reply.text = "The Games Log is off.";
    return reply;
  }
  if (word.empty()) return Failure("the Games Log needs the name of a file.");
  // Made at once: better told now than when a game is finished and cannot be kept.
  std::error_code unknown;
  const bool isThere = std::filesystem::exists(word, unknown);
  int games = 0;
  if (const auto refusal = isThere ? CountGames(word, games) : CreateGamesLog(word))
    return Failure(CleanUtf8(OneLine(refusal->text)));
  table.g.GamesLogPath = word;
  reply.text =
      "Finished games are added to " + Echo(word) + ", behind the " + std::to_string(games) + " it holds.";
  return reply;
}

}  // namespace rollwick
