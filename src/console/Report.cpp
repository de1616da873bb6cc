// Keys of the table and its picture.
#include "console/Report.h"

#include <algorithm>

#include "base/FormatNumber.h"
#include "console/Columns.h"
#include "console/Words.h"
#include "engine/bets/Payoffs.h"

namespace rollwick {
namespace {

std::string Mark(const Game& g, BetId bet) {
  switch (g.BetWorking[static_cast<std::size_t>(bet)]) {
    case CalledOff:
      return "OFF (called)";
    case Off:
      return "off on the come-out";
    case CalledOn:
      return "ON (called)";
    default:
      return "working";
  }
}

std::string Puck(const Game& g) {
  return g.Point == 0 ? "OFF" : "ON " + std::to_string(g.Point);
}

std::string Dice(const Game& g) {
  return std::to_string(g.Die1) + "-" + std::to_string(g.Die2) + " = " + std::to_string(g.DiceTotal);
}

// A row as PayoffJson writes it.
bool IsPayoff(const Json& value) {
  return value.is_array() && value.size() == 3 && value[1].is_boolean();
}
std::string PayoffForPeople(const Json& row) {
  const auto amount = [](const Json& text) { return ParseMoney(text.get<std::string>()).value_or(Money()); };
  return RatioText({amount(row[0]), row[1].get<bool>(), amount(row[2])});
}

std::string ListForPeople(const Json& list) {
  constexpr std::size_t kRow = 12;
  std::string text;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list.size() > kRow && i % kRow == 0) text += "\n    [" + std::to_string(i) + "]";
    const Json& entry = list[i];
    text += (text.empty()                                 ? ""
             : list[0].is_array() && !text.ends_with(']') ? ", "
                                                          : " ") +
            ValueForPeople(entry);
  }
  return text;
}

}  // namespace

Json PayoffJson(const PayoffRow& row) {
  return Json::array({PlainText(row.Ratio), row.IsToForm, PlainText(row.Base)});
}

Json SettingJson(const SettingValue& value) {
  if (const Money* const amount = std::get_if<Money>(&value)) return PlainText(*amount);
  if (const bool* const flag = std::get_if<bool>(&value)) return *flag;
  return std::get<std::int32_t>(value);
}

Json StacksJson(const Game& g) {
  Json stacks = Json::object();
  for (int stack = 0; stack < kChipStackCount; ++stack) {
    const Money amount = g.BetAmount[static_cast<std::size_t>(SlotChipStack + stack)];
    if (amount != Money()) stacks[std::to_string(stack)] = PlainText(amount);
  }
  return stacks;
}

Json NoticesJson(const ConsoleHost& host) {
  Json notices = Json::array();
  for (const Message& notice : host.notices) {
    notices.push_back(
        {{"title", CleanUtf8(notice.title)}, {"text", CleanUtf8(notice.text)}, {"flags", notice.flags}});
  }
  return notices;
}

Json QuestionsJson(const ConsoleHost& host) {
  Json questions = Json::array();
  for (const AnsweredQuestion& question : host.questions) {
    questions.push_back({{"title", CleanUtf8(question.title)},
                         {"text", CleanUtf8(question.text)},
                         {"answer", CleanUtf8(question.answer)}});
  }
  return questions;
}

std::string SaidForPeople(const ConsoleHost& host, std::string_view exceptTitle) {
  std::string text;
  for (const Message& notice : host.notices) {
    if (notice.title != exceptTitle) text += notice.title + ": " + WithNewLines(notice.text) + "\n";
  }
  for (const AnsweredQuestion& question : host.questions) {
    const std::string& answer = question.meaning.empty() ? question.answer : question.meaning;
    text += question.title + ": " + WithNewLines(question.text) + " -> " + answer + "\n";
  }
  return text;
}

void AddTable(Json& object, const Game& g) {
  object["roll"] = g.RollCount();
  object["dice"] = {g.Die1, g.Die2};
  object["total"] = g.DiceTotal;
  object["point"] = g.Point;
  object["bankroll"] = PlainText(g.BetAmount[SlotBankroll]);
  object["invested"] = PlainText(g.InvestedBankroll);
  object["total_bets"] = PlainText(g.TotalBets);
  object["available"] = PlainText(AvailableBankroll(g));
  Json bets = Json::object();
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const Money amount = g.BetAmount[static_cast<std::size_t>(bet)];
    if (amount != Money()) bets[BetName(bet)] = PlainText(amount);
  }
  object["bets"] = std::move(bets);
  if (Json stacks = StacksJson(g); !stacks.empty()) object["stacks"] = std::move(stacks);
  object["stopped"] = CleanUtf8(g.LastStopMessage);
}

std::string TableLine(const Game& g) {
  return "Roll " + std::to_string(g.RollCount()) + ": " + Dice(g) + ", point " + Puck(g) +
         FormatMoney(g.BetAmount[SlotBankroll], ", bankroll $") +
         FormatMoney(g.TotalBets, ", on the table $");
}

std::string TablePicture(const Game& g) {
  constexpr std::size_t kNameWidth = 20;
  std::string text = "+-- " + PadRight("Point " + Puck(g), 12) + " -- Roll " + std::to_string(g.RollCount()) +
                     " -- Dice " + Dice(g) + " --\n";
  for (BetId slot = 1; slot < kSlotCount; ++slot) {
    const Money amount = g.BetAmount[static_cast<std::size_t>(slot)];
    if ((!IsBet(slot) && !IsChipStack(slot)) || amount == Money()) continue;
    const std::string name = IsBet(slot) ? BetName(slot) : ChipStackTitle(slot);
    text += "|  " + PadRight(name, kNameWidth) + PadRight(FormatMoney(amount, "$"), 12);
    text += (IsBet(slot) ? Mark(g, slot) : "") + "\n";
  }
  return text + FormatMoney(g.BetAmount[SlotBankroll], "+-- Bankroll $") +
         FormatMoney(g.TotalBets, ", on the table $") + FormatMoney(AvailableBankroll(g), ", available $");
}

std::string ValueForPeople(const Json& value) {
  if (IsPayoff(value)) return PayoffForPeople(value);
  if (value.is_boolean()) return value.get<bool>() ? "on" : "off";
  if (!value.is_string()) return value.dump();
  const auto& text = value.get_ref<const std::string&>();
  const auto amount = ParseMoney(text);
  return amount ? FormatMoney(*amount) : text;
}

std::string ForPeople(const Json& object) {
  std::string text;
  for (const auto& [key, value] : object.items()) {
    if (!text.empty()) text += "\n";
    if (value.is_object()) {
      text += key + ":\n" + ForPeople(value);
    } else if (key == "log") {
      for (const Json& line : value) text += line.get<std::string>() + "\n";
      if (text.ends_with('\n')) text.pop_back();
    } else {
      text +=
          key + ": " + (value.is_array() && !IsPayoff(value) ? ListForPeople(value) : ValueForPeople(value));
    }
  }
  return text;
}

std::string WithNewLines(std::string text) {
  std::ranges::replace(text, '\r', '\n');
  return text;
}

std::string OneLine(std::string text) {
  std::erase(text, '\n');
  std::ranges::replace(text, '\r', ' ');
  return text;
}

}  // namespace rollwick
