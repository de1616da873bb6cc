// The commands of `rollwick play`.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "console/Report.h"
#include "console/Table.h"

namespace rollwick {

// What a command answers beside the state of the table.
struct Reply {
  std::string error;             // not understood or failed; nothing was changed
  std::optional<Money> applied;  // the change made, of bet, add and remove
  Json extra = Json::object();   // further keys
  std::string text;              // for people: what happened, when the table alone does not say it
  bool showsTable = false;       // for people: the table may have changed all over
  bool ends = false;             // the end of the game
};

inline Reply Failure(std::string error) {
  Reply reply;
  reply.error = std::move(error);
  return reply;
}

using Arguments = std::span<const std::string>;

struct PlayCommand {
  std::string_view name;
  std::string_view usage;  // the words behind the name
  std::string_view help;
  std::size_t fewest;  // words behind the name
  std::size_t most;
  Reply (*run)(Table& table, Arguments arguments);
};

// In the order in which a newcomer meets them.
std::span<const PlayCommand> PlayCommands();
const PlayCommand* FindPlayCommand(std::string_view name);
std::vector<std::string> PlayCommandNames();
// Usage and help of all commands.
std::string PlayHelp();

// The bet or Chip-Stack of this name (isBetOnly: a bet), or what is wrong.
struct NamedSlot {
  BetId slot = 0;
  std::string error;
};
NamedSlot FindSlot(std::string_view name, bool isBetOnly);
// Names of bets, as one word each.
std::vector<std::string> BetWords();

Reply RunBet(Table& table, Arguments arguments);
Reply RunAdd(Table& table, Arguments arguments);
Reply RunRemove(Table& table, Arguments arguments);
Reply RunBuy(Table& table, Arguments arguments);
Reply RunCall(Table& table, Arguments arguments);
Reply RunOdds(Table& table, Arguments arguments);
Reply RunRoll(Table& table, Arguments arguments);
Reply RunRolls(Table& table, Arguments arguments);
Reply RunHyper(Table& table, Arguments arguments);
Reply RunSet(Table& table, Arguments arguments);
Reply RunPayoff(Table& table, Arguments arguments);
Reply RunRng(Table& table, Arguments arguments);
Reply RunSeed(Table& table, Arguments arguments);
Reply RunAtm(Table& table, Arguments arguments);
Reply RunNew(Table& table, Arguments arguments);
Reply RunScript(Table& table, Arguments arguments);
Reply RunSave(Table& table, Arguments arguments);
Reply RunLoad(Table& table, Arguments arguments);
Reply RunRecord(Table& table, Arguments arguments);
Reply RunPlayback(Table& table, Arguments arguments);
Reply RunDiceFile(Table& table, Arguments arguments);
Reply RunMatrix(Table& table, Arguments arguments);
Reply RunLog(Table& table, Arguments arguments);
Reply RunGamesLog(Table& table, Arguments arguments);
Reply RunAnswer(Table& table, Arguments arguments);
Reply RunShow(Table& table, Arguments arguments);
Reply ShowMatrix(Table& table, Arguments arguments);

// What show can show.
std::vector<std::string> ShowWords();

}  // namespace rollwick
