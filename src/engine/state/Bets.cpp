#include "engine/state/Bets.h"

#include <array>
#include <charconv>

namespace rollwick {

namespace {

// clang-format off
constexpr std::string_view kNames[kBetCount + 1] = {
    "",
    "Lay 4", "Lay 5", "Lay 6", "Lay 8", "Lay 9", "Lay 10",
    "Don't Come 4", "Don't Come 5", "Don't Come 6", "Don't Come 8", "Don't Come 9", "Don't Come 10",
    "Don't Come 4 Odds", "Don't Come 5 Odds", "Don't Come 6 Odds", "Don't Come 8 Odds", "Don't Come 9 Odds",
    "Don't Come 10 Odds",
    "Come 4", "Come 5", "Come 6", "Come 8", "Come 9", "Come 10",
    "Come 4 Odds", "Come 5 Odds", "Come 6 Odds", "Come 8 Odds", "Come 9 Odds", "Come 10 Odds",
    "Place 4", "Place 5", "Place 6", "Place 8", "Place 9", "Place 10",
    "Buy 4", "Buy 5", "Buy 6", "Buy 8", "Buy 9", "Buy 10",
    "Pass Line", "Pass Line Odds", "Come", "Don't Pass", "Don't Pass Odds", "Don't Come",
    "Field", "Big 6", "Big 8",
    "Hard 4", "Hard 6", "Hard 8", "Hard 10",
    "Two", "Three", "Seven", "Eleven", "Twelve",
    "Craps", "C and E", "Horn", "World", "Over 7", "Under 7",
    "Hop 1-3", "Hop 1-4", "Hop 1-5", "Hop 1-6", "Hop 2-2", "Hop 2-3", "Hop 2-4", "Hop 2-5", "Hop 2-6",
    "Hop 3-3", "Hop 3-4", "Hop 3-5", "Hop 3-6", "Hop 4-4", "Hop 4-5", "Hop 4-6", "Hop 5-5",
};
// clang-format on

constexpr std::string_view kChipStackWord = "chip-stack #";

// Lower case, underscores as blanks, and no blank behind the "#" of a Chip-Stack.
std::string Folded(std::string_view name) {
  std::string folded;
  for (char c : name) {
    if (c == '_') c = ' ';
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if (c == ' ' && folded.ends_with('#')) continue;
    folded += c;
  }
  return folded;
}

// A plain whole number, or -1.
int WholeNumber(std::string_view text) {
  int number = -1;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end && number >= 0 ? number : -1;
}

}  // namespace

std::string BetName(BetId slot) {
  if (IsBet(slot)) return std::string(kNames[slot]);
  if (slot == SlotRail) return "Rail";
  if (IsChipStack(slot)) return "Chip-Stack # " + std::to_string(slot - SlotChipStack);
  return {};
}

std::string ChipStackTitle(BetId slot) {
  return "Chip-Stack #" + std::to_string(slot - SlotChipStack);
}

BetId FindBet(std::string_view name) {
  const int number = WholeNumber(name);
  if (IsBet(number) || IsChipStack(number)) return number;
  const std::string wanted = Folded(name);
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    if (Folded(kNames[bet]) == wanted) return bet;
  }
  if (!wanted.starts_with(kChipStackWord)) return 0;
  const int stack = WholeNumber(std::string_view(wanted).substr(kChipStackWord.size()));
  return stack >= 0 && stack < kChipStackCount ? SlotChipStack + stack : 0;
}

}  // namespace rollwick
