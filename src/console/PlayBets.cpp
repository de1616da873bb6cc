// bet, add, remove, buy, call, odds: chips on and off the table.
#include "base/FormatNumber.h"
#include "base/Nearest.h"
#include "console/PlayCommands.h"
#include "console/Words.h"
#include "engine/bets/Placement.h"

namespace rollwick {
namespace {

Money& AmountOf(Table& table, BetId slot) {
  return table.g.BetAmount[static_cast<std::size_t>(slot)];
}

std::string NoAmount(std::string_view text) {
  return "\"" + Echo(text) + "\" is no amount: dollars with at most four decimals, such as 10 or 2.5.";
}

Reply Request(Table& table, BetId slot, Money change) {
  table.g.BetDelta = change;
  PlaceChips(table.g, slot);
  Reply reply;
  reply.applied = table.g.BetDeltaApplied;
  const std::string name = IsBet(slot) ? BetName(slot) : ChipStackTitle(slot);
  reply.text = FormatMoney(AmountOf(table, slot), name + ": $") +
               FormatMoney(*reply.applied, *reply.applied < Money() ? " (" : " (+") + ")";
  return reply;
}

// After a change of many bets people look at the table.
Reply TableReply(const Table& table) {
  Reply reply;
  reply.text = TableLine(table.g);
  reply.showsTable = true;
  return reply;
}

}  // namespace

std::vector<std::string> BetWords() {
  std::vector<std::string> names;
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    names.push_back(BetName(bet));
    for (char& letter : names.back()) letter = letter == ' ' ? '_' : letter;
  }
  return names;
}

NamedSlot FindSlot(std::string_view name, bool isBetOnly) {
  const BetId slot = FindBet(name);
  if (IsBet(slot) || (IsChipStack(slot) && !isBetOnly)) return {slot, {}};
  if (slot != 0) return {0, "\"" + Echo(name) + "\" is no bet" + (isBetOnly ? "." : " and no Chip-Stack.")};
  return {0, "there is no bet \"" + Echo(name) + "\"." + DidYouMean(name, BetWords())};
}

Reply RunBet(Table& table, Arguments arguments) {
  const NamedSlot named = FindSlot(arguments[0], false);
  if (!named.error.empty()) return Failure(named.error);
  const auto amount = ParseMoney(arguments[1]);
  if (!amount) return Failure(NoAmount(arguments[1]));
  return Request(table, named.slot, SaturatingSum(*amount, -AmountOf(table, named.slot)));
}

Reply RunAdd(Table& table, Arguments arguments) {
  const NamedSlot named = FindSlot(arguments[0], false);
  if (!named.error.empty()) return Failure(named.error);
  const auto amount = ParseMoney(arguments[1]);
  if (!amount) return Failure(NoAmount(arguments[1]));
  return Request(table, named.slot, *amount);
}

Reply RunRemove(Table& table, Arguments arguments) {
  if (SameWord(arguments[0], "all")) {
    RemoveAllBets(table.g);
    return TableReply(table);
  }
  const NamedSlot named = FindSlot(arguments[0], false);
  if (!named.error.empty()) return Failure(named.error);
  return Request(table, named.slot, -AmountOf(table, named.slot));
}

Reply RunBuy(Table& table, Arguments arguments) {
  const NamedSlot named = FindSlot(arguments[0], true);
  if (!named.error.empty()) return Failure(named.error);
  BuyBet(table.g, named.slot);
  return TableReply(table);
}

Reply RunCall(Table& table, Arguments arguments) {
  const bool isOn = SameWord(arguments[1], "on");
  if (!isOn && !SameWord(arguments[1], "off")) return Failure("a bet is called on or off.");
  if (SameWord(arguments[0], "all")) {
    CallAllBets(table.g, isOn);
    return TableReply(table);
  }
  const NamedSlot named = FindSlot(arguments[0], true);
  if (!named.error.empty()) return Failure(named.error);
  CallBet(table.g, named.slot, isOn);
  return TableReply(table);
}

Reply RunOdds(Table& table, Arguments arguments) {
  if (SameWord(arguments[0], "take")) {
    TakeAllDoOdds(table.g);
  } else if (SameWord(arguments[0], "lay")) {
    LayAllDontOdds(table.g);
  } else {
    return Failure("odds are taken or laid: odds take, odds lay.");
  }
  return TableReply(table);
}

}  // namespace rollwick
