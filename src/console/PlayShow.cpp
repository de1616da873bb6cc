// show: every table of the game by its names.
#include <algorithm>
#include <iterator>

#include "base/Nearest.h"
#include "console/Advantage.h"
#include "console/FiguresShow.h"
#include "console/PlayCommands.h"
#include "console/ScriptCommands.h"
#include "console/Words.h"
#include "session/Settings.h"

namespace rollwick {
namespace {

Reply Shown(Json extra) {
  Reply reply;
  reply.extra = std::move(extra);
  return reply;
}

Reply ShowTable(Table& table, Arguments) {
  Reply reply;
  reply.text = TablePicture(table.g);
  return reply;
}

// An entry of a table that holds only a part of the slots; 0 beyond it.
template <class Amounts>
Money EntryOr0(const Amounts& amounts, BetId bet) {
  const auto index = static_cast<std::size_t>(bet);
  return index < amounts.size() ? amounts[index] : Money();
}

Json Results(const Game& g, BetStatKind kind, BetId bet) {
  const auto row = [&](const BetStatTable& results) {
    return MoneyList(results[kind][static_cast<std::size_t>(bet)]);
  };
  return {{"wagers", row(g.BetWagers)}, {"wins", row(g.BetWins)}, {"losses", row(g.BetLosses)}};
}

Reply ShowBet(Table& table, Arguments arguments) {
  if (arguments.empty()) return Failure("show bet needs the name of a bet.");
  const NamedSlot named = FindSlot(arguments[0], true);
  if (!named.error.empty()) return Failure(named.error);
  const Game& g = table.g;
  const BetId bet = named.slot;
  const auto slot = static_cast<std::size_t>(bet);
  Json json;
  json["id"] = bet;
  json["name"] = BetName(bet);
  json["amount"] = PlainText(g.BetAmount[slot]);
  json["at_throw"] = PlainText(g.BetAtThrow[slot]);
  json["after_settle"] = PlainText(g.BetAfterSettle[slot]);
  json["contract"] = PlainText(EntryOr0(g.BetContract, bet));
  json["working"] = g.BetWorking[slot];
  json["streak"] = {g.BetStreak[slot][0], g.BetStreak[slot][1]};
  json["vig"] = PlainText(EntryOr0(g.LayVigAmount, bet) + EntryOr0(g.BuyVigAmount, bet));
  json["payoff"] = PayoffJson(g.PayoffTable[slot]);
  json["actual"] = Results(g, ActualWagers, bet);
  json["phantom"] = Results(g, PhantomWagers, bet);
  return Shown({{"bet", json}});
}

Reply ShowSlots(Table& table, Arguments) {
  const Game& g = table.g;
  Json json;
  json["BetAmount"] = MoneyList(g.BetAmount);
  json["BetAtThrow"] = MoneyList(g.BetAtThrow);
  json["BetAfterSettle"] = MoneyList(g.BetAfterSettle);
  json["BetWorking"] = g.BetWorking;
  json["BetContract"] = MoneyList(g.BetContract);
  return Shown(json);
}

Reply ShowEvents(Table& table, Arguments) {
  const Game& g = table.g;
  Json json;
  json["RollEventCount"] = g.RollEventCount;
  json["RollsSinceEvent"] = g.RollsSinceEvent;
  json["TrackedEventCount"] = g.TrackedEventCount;
  json["TrackedEventCountBefore"] = g.TrackedEventCountBefore;
  json["TrackedRollBase"] = g.TrackedRollBase;
  json["TrackedRollBaseBefore"] = g.TrackedRollBaseBefore;
  return Shown(json);
}

Reply ShowGaps(Table& table, Arguments arguments) {
  const auto event = arguments.empty() ? std::nullopt : ParseWhole(arguments[0], 0, kRollEventCount - 1);
  if (!event) return Failure("show gaps needs the number of a roll event, from 0 to 90.");
  return Shown({{"RollGapHistogram", table.g.RollGapHistogram[static_cast<std::size_t>(*event)]}});
}

Reply ShowHand(Table& table, Arguments) {
  return Shown({{"HandStats", table.g.HandStats}});
}

Reply ShowBankroll(Table& table, Arguments) {
  const Game& g = table.g;
  const auto filled = static_cast<std::size_t>(g.BankrollHistoryCount) + 1;
  Json json;
  json["BankrollHigh"] = PlainText(g.BankrollHigh);
  json["BankrollLow"] = PlainText(g.BankrollLow);
  json["BankrollRollSum"] = PlainText(g.BankrollRollSum);
  json["BankrollHistory"] = MoneyList(std::span(g.BankrollHistory).first(filled));
  json["GraphHigh"] = PlainText(g.GraphHigh);
  json["GraphLow"] = PlainText(g.GraphLow);
  json["GraphUnit"] = PlainText(g.GraphUnit);
  json["GraphTop"] = PlainText(g.GraphTop);
  return Shown(json);
}

Json GroupJson(const Game& g, SettingGroup group) {
  Json json = Json::object();
  for (const SettingEntry& entry : ListSettings(g)) {
    if (entry.group != group) continue;
    Json values = Json::array();
    for (const SettingValue& value : entry.values) values.push_back(SettingJson(value));
    json[entry.name] = entry.isArray ? values : values[0];
  }
  return json;
}

// The same with the indexes of arrays: "BetAmount[95..99]", long ones in rows.
std::string GroupForPeople(const Game& g, SettingGroup group) {
  constexpr std::size_t kRow = 12;
  Json rows = Json::object();
  for (const SettingEntry& entry : ListSettings(g)) {
    if (entry.group != group) continue;
    if (!entry.isArray) rows[entry.name] = SettingJson(entry.values[0]);
    for (std::size_t from = 0; entry.isArray && from < entry.values.size(); from += kRow) {
      const std::size_t end = std::min(from + kRow, entry.values.size());
      const auto index = [&](std::size_t place) {
        return std::to_string(entry.firstIndex + static_cast<int>(place));
      };
      Json& row = rows[entry.name + "[" + index(from) + ".." + index(end - 1) + "]"];
      for (std::size_t place = from; place < end; ++place) row.push_back(SettingJson(entry.values[place]));
    }
  }
  return ForPeople(rows);
}

Reply ShowGroup(const Game& g, const char* key, SettingGroup group) {
  Reply reply = Shown({{key, GroupJson(g, group)}});
  reply.text = GroupForPeople(g, group);
  return reply;
}

Reply ShowRules(Table& table, Arguments) {
  return ShowGroup(table.g, "rules", SettingGroup::Rules);
}
Reply ShowSettings(Table& table, Arguments) {
  return ShowGroup(table.g, "settings", SettingGroup::Settings);
}

Reply ShowPayoffs(Table& table, Arguments) {
  Json bets = Json::array(), field = Json::array();
  for (const PayoffRow& row : table.g.PayoffTable) bets.push_back(PayoffJson(row));
  for (const PayoffRow& row : table.g.FieldPayoffTable) field.push_back(PayoffJson(row));
  return Shown({{"payoffs", {{"PayoffTable", bets}, {"FieldPayoffTable", field}}}});
}

Reply ShowSeeds(Table& table, Arguments) {
  const Game& g = table.g;
  Json json;
  json["RngChoice"] = g.RngChoice;
  json["UserSeedMode"] = g.UserSeedMode;
  json["ReseedNewGames"] = g.ReseedNewGames;
  json["CurrentSeed"] = g.CurrentSeed;
  json["LastSeed"] = g.LastSeed;
  return Shown({{"seeds", json}});
}

Reply ShowLog(Table& table, Arguments arguments) {
  constexpr std::int64_t kUsual = 20, kMost = 1'000'000;
  const auto count = arguments.empty() ? kUsual : ParseWhole(arguments[0], 0, kMost);
  if (!count) return Failure("show log takes a number of lines, from 0 to 1,000,000.");
  FlushEventsLog(table.g);
  Json lines = Json::array();
  for (const std::string& line : table.log.LastLines(static_cast<int>(*count)))
    lines.push_back(CleanUtf8(line));
  return Shown({{"log", lines}});
}

Reply ShowScript(Table& table, Arguments) {
  const Game& g = table.g;
  Json lines = Json::array();
  std::string text = ScriptForPeople(g.ScriptLines);
  for (std::size_t i = 0; i < g.ScriptLines.size(); ++i)
    lines.push_back(ScriptLineJson(g.ScriptLines[i], static_cast<int>(i) + 1));
  Json json;
  json["ScriptFileName"] = CleanUtf8(g.ScriptFileName);
  json["AutoBetsActive"] = g.AutoBetsActive;
  json["AutoBetsChanged"] = g.AutoBetsChanged;
  json["lines"] = std::move(lines);
  Reply reply = Shown({{"script", json}});
  if (text.empty()) text = "There is no script.\n";
  text.pop_back();
  reply.text = std::move(text);
  return reply;
}

Reply ShowFlags(Table& table, Arguments) {
  Json flags = Json::array();
  std::string text;
  for (const FlagEntry& flag : table.g.ScriptFlags) {
    flags.push_back({{"Name", CleanUtf8(flag.Name)}, {"Value", flag.Value}, {"PrevValue", flag.PrevValue}});
    text += (text.empty() ? "" : "\n") + flag.Name + ": " + (flag.Value != 0 ? "True" : "False");
  }
  Reply reply = Shown({{"flags", flags}});
  reply.text = text.empty() ? "There are no flags." : text;
  return reply;
}

struct ShowPage {
  std::string_view name;
  std::size_t most;  // words behind the name
  Reply (*show)(Table& table, Arguments arguments);
};
constexpr ShowPage kPages[] = {
    {"table", 0, ShowTable},
    {"bet", 1, ShowBet},
    {"slots", 0, ShowSlots},
    {"events", 0, ShowEvents},
    {"gaps", 1, ShowGaps},
    {"hand", 0, ShowHand},
    {"bankroll", 0, ShowBankroll},
    {"rules", 0, ShowRules},
    {"settings", 0, ShowSettings},
    {"payoffs", 0, ShowPayoffs},
    {"seeds", 0, ShowSeeds},
    {"matrix", 0, ShowMatrix},
    {"summary", 0, ShowSummary},
    {"totals", 1, ShowTotals},
    {"frequencies", 1, ShowFrequencies},
    {"results", 1 + kBetCount, ShowResults},
    {"trends", 0, ShowTrends},
    {"graph", 0, ShowGraph},
    {"script", 0, ShowScript},
    {"flags", 0, ShowFlags},
    {"log", 1, ShowLog},
    {"advantage", 0, ShowAdvantage},
    {"comps", 0, ShowComps},
};

}  // namespace

std::vector<std::string> ShowWords() {
  std::vector<std::string> words;
  for (const ShowPage& page : kPages) words.emplace_back(page.name);
  return words;
}

Reply RunShow(Table& table, Arguments arguments) {
  if (arguments.empty()) return ShowTable(table, {});
  const auto page =
      std::ranges::find_if(kPages, [&](const ShowPage& p) { return SameWord(p.name, arguments[0]); });
  if (page == std::end(kPages)) {
    return Failure("there is no \"" + Echo(arguments[0]) + "\" to show." +
                   DidYouMean(arguments[0], ShowWords()));
  }
  if (arguments.size() - 1 > page->most) {
    return Failure("show " + std::string(page->name) + " takes no further words.");
  }
  return page->show(table, arguments.subspan(1));
}

}  // namespace rollwick
