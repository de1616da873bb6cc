// roll, rolls, hyper: the dice.
#include "console/PlayCommands.h"
#include "console/Words.h"

namespace rollwick {
namespace {

Reply Rolled(Table& table) {
  Reply reply;
  reply.text = TableLine(table.g);
  if (!table.g.LastStopMessage.empty() && table.host.notices.empty())
    reply.text += "\n" + table.g.LastStopMessage;
  reply.showsTable = true;
  return reply;
}

}  // namespace

Reply RunRoll(Table& table, Arguments arguments) {
  if (arguments.size() == 1) return Failure("roll takes no dice or both: roll, or roll 3 4.");
  if (arguments.size() == 2) {
    const auto die1 = ParseWhole(arguments[0], 1, 6);
    const auto die2 = ParseWhole(arguments[1], 1, 6);
    if (!die1 || !die2) return Failure("a die shows 1 to 6.");
    table.g.ManualDie1 = static_cast<std::int32_t>(*die1);
    table.g.ManualDie2 = static_cast<std::int32_t>(*die2);
    table.g.ManualRollPending = true;
  }
  table.host.Roll(table.g, 1);
  table.g.ManualRollPending = false;  // the dice are not kept for later when no roll took place
  return Rolled(table);
}

Reply RunRolls(Table& table, Arguments arguments) {
  const auto rolls = ParseWhole(arguments[0], 1, kMaxRollCount);
  if (!rolls) return Failure("the number of rolls is from 1 to 100,000,000.");
  table.host.Roll(table.g, static_cast<std::int32_t>(*rolls));
  return Rolled(table);
}

Reply RunHyper(Table& table, Arguments arguments) {
  const auto rolls = ParseWhole(arguments[0], 0, kMaxRollCount);
  if (!rolls) return Failure("the number of rolls is from 0, which is no count, to 100,000,000.");
  const std::int64_t made = table.host.HyperDrive(table.g, static_cast<std::int32_t>(*rolls));
  Reply reply = Rolled(table);
  reply.extra["rolls"] = made;
  return reply;
}

}  // namespace rollwick
