// set, payoff, rng, seed, atm, new, log, answer: the house, the dice source, the bank and the game itself.
#include <system_error>

#include "base/FormatNumber.h"
#include "base/Nearest.h"
#include "console/PlayCommands.h"
#include "console/Words.h"
#include "dice/Draw.h"
#include "engine/bets/Bankroll.h"
#include "engine/bets/Payoffs.h"
#include "engine/game/NewGame.h"
#include "session/Settings.h"

namespace rollwick {
namespace {

Reply Done(std::string text) {
  Reply reply;
  reply.text = std::move(text);
  return reply;
}

Reply RestorePayoffs(Table& table) {
  RestoreDefaultPayoffs(table.g);
  RefreshVigs(table.g, {table.g.Rules.BuyVigOnAll, table.g.Rules.LayVigOnAll});
  table.g.TableDirty = true;
  return Done("The default payoffs are restored.");
}

}  // namespace

Reply RunSet(Table& table, Arguments arguments) {
  if (std::string wrong = ChangeSetting(table.g, arguments[0], arguments[1]); !wrong.empty())
    return Failure(wrong);
  return Done(arguments[0] + ": " + ValueForPeople(SettingJson(*ReadSetting(table.g, arguments[0]))));
}

Reply RunPayoff(Table& table, Arguments arguments) {
  if (arguments.size() == 1 && SameWord(arguments[0], "restore")) return RestorePayoffs(table);
  const bool isField = SameWord(arguments[0], "field") && arguments.size() >= 4;
  if (isField) arguments = arguments.subspan(1);
  if (arguments.size() < 3 || arguments.size() > 4) {
    return Failure(
        "payoff NAME RATIO BASE [to|for], payoff field INDEX RATIO BASE [to|for], or payoff restore.");
  }
  int index = 0;
  if (isField) {
    index = static_cast<int>(ParseWhole(arguments[0], 1, 21).value_or(0));
  } else {
    const NamedSlot named = FindSlot(arguments[0], true);
    if (!named.error.empty()) return Failure(named.error);
    index = named.slot;
  }
  const auto ratio = ParseMoney(arguments[1]);
  const auto base = ParseMoney(arguments[2]);
  if (!ratio || !base)
    return Failure("ratio and base are numbers of at most four decimals, such as 7 and 5.");
  const bool isFor = arguments.size() == 4 && SameWord(arguments[3], "for");
  if (arguments.size() == 4 && !isFor && !SameWord(arguments[3], "to")) {
    return Failure("a payoff is written to or for.");
  }
  if (std::string wrong = ChangePayoff(table.g, isField, index, *ratio, *base, !isFor); !wrong.empty()) {
    return Failure(wrong);
  }
  const auto row = static_cast<std::size_t>(index);
  return Done("Pays " + RatioText(isField ? table.g.FieldPayoffTable[row] : table.g.PayoffTable[row]) + ".");
}

Reply RunRng(Table& table, Arguments arguments) {
  const auto number = ParseWhole(arguments[0], 1, kRngCount);
  if (!number) return Failure("the generators are 1 to 8.");
  table.g.RngChoice = static_cast<std::int32_t>(*number - 1);
  FallBackFromMissingGenerator(table.g);
  table.g.TableDirty = true;
  return Done("RNG #" + std::to_string(table.g.RngChoice + 1) + " draws the dice.");
}

Reply RunSeed(Table& table, Arguments arguments) {
  if (std::string wrong = SeedWith(table.g, arguments[0]); !wrong.empty()) return Failure(wrong);
  return Done("RNG #" + std::to_string(table.g.RngChoice + 1) + " is seeded with " + arguments[0] + ".");
}

Reply RunAtm(Table& table, Arguments arguments) {
  const bool isWithdrawal = SameWord(arguments[0], "withdraw");
  if (!isWithdrawal && !SameWord(arguments[0], "deposit"))
    return Failure("atm withdraw AMOUNT or atm deposit AMOUNT.");
  const auto amount = ParseMoney(arguments[1]);
  if (!amount || *amount < Money()) {
    return Failure("\"" + Echo(arguments[1]) + "\" is no amount for the ATM.");
  }
  AtmTransaction(table.g, isWithdrawal ? AtmDirection::Withdraw : AtmDirection::Deposit, *amount);
  return Done(FormatMoney(table.g.BetAmount[SlotBankroll], "Bankroll: $"));
}

Reply RunNew(Table& table, Arguments arguments) {
  const bool keepsStacks = !arguments.empty();
  if (keepsStacks && !SameWord(arguments[0], "keep"))
    return Failure("new, or new keep to keep the Chip-Stacks.");
  NewGame(table.g, keepsStacks);
  return Done(FormatMoney(table.g.BetAmount[SlotBankroll], "A new game with a bankroll of $"));
}

Reply RunLog(Table& table, Arguments arguments) {
  const std::string& word = arguments[0];
  if (SameWord(word, "on") || SameWord(word, "off")) {
    ChangeSetting(table.g, "RecordEventsActive", word);
    return Done("The Events Log is " + std::string(table.g.RecordEventsActive ? "on" : "off") + ".");
  }
  std::error_code unknown;
  if (word.empty() || std::filesystem::is_directory(word, unknown))
    return Failure("the Events Log needs the name of a file.");
  if (std::string wrong = LogTo(table, word); !wrong.empty()) return Failure(wrong);
  return Done("The Events Log goes to " + Echo(word));
}

Reply RunAnswer(Table& table, Arguments arguments) {
  table.host.answers.push_back(arguments[0]);
  return Done("Answers to come: " + std::to_string(table.host.answers.size()));
}

}  // namespace rollwick
