// A Games Log of any bytes: refused and never written to, or read, analysed, added to and cut.
#include <string>

#include "FuzzTable.h"
#include "stats/logs/GamesAnalysis.h"
#include "stats/logs/GamesLog.h"

namespace rollwick {
namespace {

int Count(const std::filesystem::path& log) {
  int count = -1;
  Demand(!CountGames(log, count), "a log that was taken and goes on being one");
  return count;
}

void Analyse(const std::filesystem::path& log, int field, int games) {
  std::vector<GameValue> column;
  Demand(!ReadGamesColumn(log, field, column), "a column of a log that was taken");
  Demand(static_cast<int>(column.size()) == games, "a value for every game");
  const GamesFigures figures = AnalyseGames(column, {Dollars(-1), Dollars(1)}, {true, true, true});
  Demand(figures.Total() == games, "every game among the figures");
  for (const BarWidth width : {BarWidth::Fine, BarWidth::Medium, BarWidth::Wide, BarWidth::ExtraWide}) {
    int inBands = 0;
    for (const GamesBand& band : GamesHistogram(figures, field, width)) inBands += band.games;
    Demand(inBands == games, "every game in a band");
  }
  if (!column.empty())
    Demand(FindGame(column, column[0].value, 0, false) == 1, "the first game found by its value");
}

void Try(const std::filesystem::path& log, int field) {
  const std::string before = FileBytes(log);
  GameRecord game{};
  game[GameRolls] = Dollars(7);
  int games = 0;
  if (CountGames(log, games)) {
    Demand(AppendGames(log, {&game, 1}).has_value() && DeleteGames(log, {1, 1}).has_value(),
           "a refusal each time");
    Demand(FileBytes(log) == before, "a refused log that nobody writes to");
    return;
  }
  Analyse(log, field, games);
  Demand(!AppendGames(log, {&game, 1}) && Count(log) == games + 1, "one game more");
  GameRecord last{};
  Demand(!ReadGames(log, [&](const GameRecord& read) { last = read; }) && last == game,
         "the added game as the last");
  Demand(!MergeGames(log, log) && Count(log) == 2 * (games + 1), "twice the games after a merge with itself");
  Demand(!DeleteGames(log, {2, games + 1}) && Count(log) == games + 2, "fewer games by those taken out");
}

}  // namespace
}  // namespace rollwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rollwick;
  static const TemporaryFolder folder;
  ParseGameRange(InputText(data, size), 100);
  PutFile(folder / "input.glg", InputText(data, size));
  Try(folder / "input.glg", static_cast<int>(size % kGameFieldCount));
  return 0;
}
