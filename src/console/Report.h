// A game as an object of JSON keys and as text for people.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "console/ConsoleHost.h"
#include "engine/state/Game.h"
#include "session/Settings.h"

namespace rollwick {

using Json = nlohmann::ordered_json;

// Amounts in arrays: JSON strings of plain decimals.
template <class Amounts>
Json MoneyList(const Amounts& amounts) {
  Json list = Json::array();
  for (const Money amount : amounts) list.push_back(PlainText(amount));
  return list;
}

// [ratio, is_to, base]
Json PayoffJson(const PayoffRow& row);

// A setting's value: a boolean, a count, or an amount.
Json SettingJson(const SettingValue& value);

// The Chip-Stacks that are not zero, by number.
Json StacksJson(const Game& g);

// What was said and asked, as objects; for people a line each, without the notices of one title.
Json NoticesJson(const ConsoleHost& host);
Json QuestionsJson(const ConsoleHost& host);
std::string SaidForPeople(const ConsoleHost& host, std::string_view exceptTitle = {});

// roll, dice, total, point, bankroll, invested, total_bets, available, bets, stacks, stopped.
void AddTable(Json& object, const Game& g);

// One line: "Roll 3: 4-3 = 7, point off, bankroll $510, bets $10".
std::string TableLine(const Game& g);

// The table in some lines: point, dice, every bet with its amount and its button, the money.
std::string TablePicture(const Game& g);

// An amount as people read it, a flag as on or off, anything else as it is.
std::string ValueForPeople(const Json& value);

// Any object for people: a line a key, long lists broken into rows.
std::string ForPeople(const Json& object);

// Carriage returns of the system's texts as new lines.
std::string WithNewLines(std::string text);
// Line ends of any kind as blanks.
std::string OneLine(std::string text);

}  // namespace rollwick
