// The list of commands a game understands.
#include "console/PlayCommands.h"

#include <algorithm>
#include <iterator>

#include "base/Nearest.h"
#include "console/Words.h"

namespace rollwick {
namespace {

std::string UsageLine(const PlayCommand& command) {
  std::string usage = "  " + std::string(command.name) + " " + std::string(command.usage);
  constexpr std::size_t kColumn = 38;
  usage.append(usage.size() < kColumn ? kColumn - usage.size() : 1, ' ');
  return usage + std::string(command.help) + "\n";
}

Reply RunHelp(Table&, Arguments arguments) {
  Reply reply;
  if (arguments.empty()) {
    reply.text = PlayHelp();
  } else if (const PlayCommand* const command = FindPlayCommand(arguments[0])) {
    reply.text = UsageLine(*command);
  } else {
    return Failure("there is no command \"" + Echo(arguments[0]) + "\"." +
                   DidYouMean(arguments[0], PlayCommandNames()));
  }
  reply.text.pop_back();  // the last line end
  reply.extra["help"] = reply.text;
  return reply;
}

Reply RunQuit(Table&, Arguments) {
  Reply reply;
  reply.ends = true;
  return reply;
}

constexpr PlayCommand kCommands[] = {
    {"bet", "NAME AMOUNT", "puts the bet at AMOUNT: bet Pass_Line 10", 2, 2, RunBet},
    {"add", "NAME AMOUNT", "adds AMOUNT to the bet; a negative one takes it off", 2, 2, RunAdd},
    {"remove", "NAME|all", "takes the bet down, or all that may come down", 1, 1, RunRemove},
    {"odds", "take|lay", "full odds behind the line and Come bets, or the Don't bets", 1, 1, RunOdds},
    {"buy", "NAME", "turns a Place bet into a Buy bet", 1, 1, RunBuy},
    {"call", "NAME|all on|off", "calls a bet on or off", 2, 2, RunCall},
    {"roll", "[D1 D2]", "rolls the dice, or lays them as you say", 0, 2, RunRoll},
    {"rolls", "N", "rolls N times", 1, 1, RunRolls},
    {"hyper", "N", "Hyper-Drive for N rolls; 0 is no count", 1, 1, RunHyper},
    {"show", "[WHAT]",
     "the table, or: bet NAME, slots, events, gaps EVENT, hand, bankroll, rules,\n"
     "                                      settings, payoffs, seeds, matrix, script, flags, log [N],\n"
     "                                      summary, graph, totals, frequencies EVENT, results [BET ...],\n"
     "                                      trends, advantage, comps",
     0, 100, RunShow},
    {"set", "NAME VALUE", "changes a setting; show rules and show settings list them", 2, 2, RunSet},
    {"payoff", "NAME RATIO BASE [to|for]", "what a bet pays; payoff field INDEX RATIO BASE; payoff restore",
     1, 5, RunPayoff},
    {"rng", "K", "selects the generator 1 to 8", 1, 1, RunRng},
    {"seed", "N", "seeds the selected generator", 1, 1, RunSeed},
    {"atm", "withdraw|deposit AMOUNT", "brings money into the game, or takes it out", 2, 2, RunAtm},
    {"new", "[keep]", "starts a new game; keep keeps the Chip-Stacks", 0, 1, RunNew},
    {"script", "load FILE|on|off|run|clear", "the Auto-Bet script: loads it, switches it, runs it once", 1, 2,
     RunScript},
    {"save", "FILE", "saves the game", 1, 1, RunSave},
    {"load", "FILE", "goes on with a saved game", 1, 1, RunLoad},
    {"record", "FILE", "records the rolls in a Dice Roll File, behind those it holds", 1, 1, RunRecord},
    {"playback", "FILE", "plays the rolls of a Dice Roll File", 1, 1, RunPlayback},
    {"dicefile", "close|rewind", "closes the Dice Roll File, or plays it from its start", 1, 1, RunDiceFile},
    {"matrix", "load|save FILE, on|off",
     "crooked dice: the probability matrix, its file, its switch;\n"
     "                                      matrix cell ROW COLUMN VALUE;\n"
     "                                      matrix axis DIE 16|25|34 PERCENT",
     1, 4, RunMatrix},
    {"log", "FILE|on|off", "the Events Log: its file, its master switch", 1, 1, RunLog},
    {"gameslog", "FILE|off", "the Games Log that finished games are added to", 1, 1, RunGamesLog},
    {"answer", "TEXT", "one more answer for a question to come", 1, 1, RunAnswer},
    {"help", "[COMMAND]", "this list, or one command", 0, 1, RunHelp},
    {"quit", "", "ends the game", 0, 0, RunQuit},
};

}  // namespace

std::span<const PlayCommand> PlayCommands() {
  return kCommands;
}

const PlayCommand* FindPlayCommand(std::string_view name) {
  const auto found =
      std::ranges::find_if(kCommands, [&](const PlayCommand& c) { return SameWord(c.name, name); });
  return found == std::end(kCommands) ? nullptr : found;
}

std::vector<std::string> PlayCommandNames() {
  std::vector<std::string> names;
  for (const PlayCommand& command : kCommands) names.emplace_back(command.name);
  return names;
}

std::string PlayHelp() {
  std::string text;
  for (const PlayCommand& command : kCommands) text += UsageLine(command);
  return text;
}

}  // namespace rollwick
