#include "autobet/model/Codes.h"

#include <array>

namespace rollwick {

namespace {

constexpr std::int32_t kKinds[] = {Item::FirstAny, Item::FirstAll, Item::FirstTotal};

constexpr SlotRange kEveryBet = {1, kBetCount};
constexpr SlotRange kLay = {Bet::Lay4, Bet::Lay10};
constexpr SlotRange kDontCome = {Bet::DontCome4, Bet::DontCome10};
constexpr SlotRange kDontComeOdds = {Bet::DontCome4Odds, Bet::DontCome10Odds};
constexpr SlotRange kCome = {Bet::Come4, Bet::Come10};
constexpr SlotRange kComeOdds = {Bet::Come4Odds, Bet::Come10Odds};
constexpr SlotRange kPlace = {Bet::Place4, Bet::Place10};
constexpr SlotRange kInsidePlace = {Bet::Place5, Bet::Place9};
constexpr SlotRange kOutsidePlace = {Bet::Place4, Bet::Place10, true};
constexpr SlotRange kBuy = {Bet::Buy4, Bet::Buy10};

constexpr std::array kItemGroups = {kEveryBet, kLay,      kDontCome, kDontComeOdds,
                                    kCome,     kComeOdds, kPlace,    kBuy};
constexpr std::array kValueGroups = {kEveryBet, kLay,   kDontCome,    kDontComeOdds, kCome,
                                     kComeOdds, kPlace, kInsidePlace, kOutsidePlace, kBuy};

// Box numbers of 41..48.
constexpr std::array<std::array<int, 4>, 8> kNumberSets = {{
    {5, 6, 8, 9},
    {4, 5, 9, 10},
    {4, 6, 8, 10},
    {4, 5, 6},
    {8, 9, 10},
    {4, 10},
    {5, 9},
    {6, 8},
}};

}  // namespace

std::optional<SlotRange> GroupOfItem(std::int32_t item) {
  if (item == Item::AnyStack || item == Item::AllStacks || item == Item::TotalStacks) {
    return SlotRange{SlotChipStack, SlotLastChipStack};
  }
  for (const std::int32_t first : kKinds) {
    if (item >= first && item < first + static_cast<std::int32_t>(kItemGroups.size())) {
      return kItemGroups[static_cast<std::size_t>(item - first)];
    }
  }
  return {};
}

std::optional<SlotRange> GroupOfValue(std::int32_t value) {
  if (value < Value::FirstGroup || value > Value::LastGroup) return {};
  return kValueGroups[static_cast<std::size_t>(value - Value::FirstGroup)];
}

BetId FirstOfPointItem(std::int32_t item) {
  switch (item) {
    case Item::PointLay:
      return Bet::Lay4;
    case Item::PointCome:
      return Bet::Come4;
    case Item::PointComeOdds:
      return Bet::Come4Odds;
    case Item::PointPlace:
      return Bet::Place4;
    case Item::PointBuy:
      return Bet::Buy4;
    default:
      return 0;
  }
}

bool IsInNumberList(std::int32_t code, int number) {
  if (number == 0) return false;
  if (code == Compare::AnyNumber) return true;
  if (code >= 34 && code <= 40) return code == number + 30;
  if (code < 41 || code > 48) return false;
  for (const int member : kNumberSets[static_cast<std::size_t>(code - 41)]) {
    if (member == number) return true;
  }
  return false;
}

}  // namespace rollwick
