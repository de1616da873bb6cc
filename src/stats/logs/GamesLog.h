// The Games Log on disk: a header record and one 256-byte record for every finished game. docs/games-file.md
// has the layout.
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "engine/state/Game.h"

namespace rollwick {

// The fields of a game's record, which are the columns an analysis looks at.
enum GameField : int {
  GameRolls,
  GameBetsDecided,
  GameBetsWon,
  GameBetsLost,
  GameBetsNet,
  GameHandle,
  GameAmountWon,
  GameAmountLost,
  GameNet,
  GameAdvantage,  // net in percent of the handle
  GameInvested,
  GameBankroll,
  GameChipStacks,  // the first of twenty
  kGameFieldCount = GameChipStacks + 20,
};
inline constexpr int kGameCountFields = GameBetsNet + 1;  // the fields below are counts, not amounts

using GameRecord = std::array<Money, kGameFieldCount>;  // counts are kept as Money too

// What the choice of columns calls a field: "# Rolls", "Chip-Stack #0".
std::string GameFieldCaption(int field);

// The game as it stands, as a record. Fills the work row of the bet statistics with all bets.
GameRecord RecordOfGame(Game& g);

// All of these give nothing on success, else the message that says why not. A file that is no Games Log is
// never written to.

// A log without games in place of whatever is at `path`.
std::optional<Message> CreateGamesLog(const std::filesystem::path& path);

// How many games the log holds.
std::optional<Message> CountGames(const std::filesystem::path& path, int& count);

// Adds games behind those the log has; a log that is not there is created. A kill at any point leaves the
// games that were there: the count in the header rises when the new ones are whole.
std::optional<Message> AppendGames(const std::filesystem::path& path, std::span<const GameRecord> games);

// Adds the game as it stands to g.GamesLogPath, whose folder is made when it is not there. Without a log, and
// for a game without a roll, does nothing.
std::optional<Message> AppendGameRecord(Game& g);

// Calls `onGame` with every game of the log, in order.
std::optional<Message> ReadGames(const std::filesystem::path& path,
                                 const std::function<void(const GameRecord&)>& onGame);

// Adds all games of `from` behind those of `into`.
std::optional<Message> MergeGames(const std::filesystem::path& into, const std::filesystem::path& from);

// Games first to last, counted from 1.
struct GameRange {
  int first = 0;
  int last = 0;
};
// "7" or "3-7", blanks allowed; nothing for other texts and for a range that is not within 1..count.
std::optional<GameRange> ParseGameRange(std::string_view text, int count);

// Takes these games out; those behind move up. A range beyond the log takes out what there is of it.
std::optional<Message> DeleteGames(const std::filesystem::path& path, GameRange range);

}  // namespace rollwick
