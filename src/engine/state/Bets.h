// The betting spots and money slots of the table: their numbers, the arithmetic on them, their names.
#pragma once

#include <string>
#include <string_view>

namespace rollwick {

// A betting spot or another money slot, 0..200. Bets are 1..83.
using BetId = int;

inline constexpr int kBetCount = 83;
inline constexpr int kSlotCount = 201;

enum : BetId {
  SlotBankroll = 0,
  SlotRail = 93,
  SlotUnits = 93,       // slot 93 + a formula's unit (2..6) is the chip of that unit
  SlotChipDenom = 95,   // five denominations, lowest first; the lowest is the unit of all rounding
  SlotChipStack = 100,  // Chip-Stack n is slot 100 + n, n from 0 to 99
  SlotLastChipStack = 199,
  SlotBehindStacks = 200,  // written when a script changes all stacks, and counted nowhere
};

inline constexpr int kChipCount = 5;
inline constexpr int kChipStackCount = 100;

// clang-format off
namespace Bet {
enum : BetId {
  Lay4 = 1, Lay5, Lay6, Lay8, Lay9, Lay10,
  DontCome4, DontCome5, DontCome6, DontCome8, DontCome9, DontCome10,
  DontCome4Odds, DontCome5Odds, DontCome6Odds, DontCome8Odds, DontCome9Odds, DontCome10Odds,
  Come4, Come5, Come6, Come8, Come9, Come10,
  Come4Odds, Come5Odds, Come6Odds, Come8Odds, Come9Odds, Come10Odds,
  Place4, Place5, Place6, Place8, Place9, Place10,
  Buy4, Buy5, Buy6, Buy8, Buy9, Buy10,
  PassLine = 43, PassLineOdds, Come, DontPass, DontPassOdds, DontCome,
  Field = 49, Big6, Big8,
  Hard4 = 52, Hard6, Hard8, Hard10,
  Two = 56, Three, Seven, Eleven, Twelve,
  Craps = 61, CAndE, Horn, World, Over7, Under7,
  Hop13 = 67, Hop14, Hop15, Hop16, Hop22, Hop23, Hop24, Hop25, Hop26,
  Hop33, Hop34, Hop35, Hop36, Hop44, Hop45, Hop46, Hop55,
};
// clang-format on
}  // namespace Bet

constexpr bool IsBet(BetId bet) {
  return bet >= 1 && bet <= kBetCount;
}
constexpr bool IsChipStack(BetId bet) {
  return bet >= SlotChipStack && bet <= SlotLastChipStack;
}
constexpr bool IsLay(BetId bet) {
  return bet >= Bet::Lay4 && bet <= Bet::Lay10;
}
constexpr bool IsDontComeNumber(BetId bet) {
  return bet >= Bet::DontCome4 && bet <= Bet::DontCome10;
}
constexpr bool IsDontComeOdds(BetId bet) {
  return bet >= Bet::DontCome4Odds && bet <= Bet::DontCome10Odds;
}
constexpr bool IsComeNumber(BetId bet) {
  return bet >= Bet::Come4 && bet <= Bet::Come10;
}
constexpr bool IsComeOdds(BetId bet) {
  return bet >= Bet::Come4Odds && bet <= Bet::Come10Odds;
}
constexpr bool IsPlace(BetId bet) {
  return bet >= Bet::Place4 && bet <= Bet::Place10;
}
constexpr bool IsBuy(BetId bet) {
  return bet >= Bet::Buy4 && bet <= Bet::Buy10;
}
constexpr bool IsHop(BetId bet) {
  return bet >= Bet::Hop13 && bet <= Bet::Hop55;
}
constexpr bool IsDoOdds(BetId bet) {
  return bet == Bet::PassLineOdds || IsComeOdds(bet);
}
constexpr bool IsDontOdds(BetId bet) {
  return bet == Bet::DontPassOdds || IsDontComeOdds(bet);
}
constexpr bool IsOdds(BetId bet) {
  return IsDoOdds(bet) || IsDontOdds(bet);
}

constexpr bool IsBoxNumber(int total) {
  return total >= 4 && total <= 10 && total != 7;
}

// The box numbers in table order, and the place 0..5 of a box number among them.
inline constexpr int kBoxNumbers[6] = {4, 5, 6, 8, 9, 10};
constexpr int BoxPlace(int number) {
  return number < 7 ? number - 4 : number - 5;
}

// The place of a line point in tables: 0 of the come-out, then the six numbers.
constexpr int PointPlace(int point) {
  return point == 0 ? 0 : 1 + BoxPlace(point);
}

// The number of a bet 1..42; the six numbers repeat group by group.
constexpr int NumberOf(BetId bet) {
  return kBoxNumbers[(bet - 1) % 6];
}

// The bets of a box number.
constexpr BetId LayOn(int number) {
  return Bet::Lay4 + BoxPlace(number);
}
constexpr BetId DontComeOn(int number) {
  return Bet::DontCome4 + BoxPlace(number);
}
constexpr BetId DontComeOddsOn(int number) {
  return Bet::DontCome4Odds + BoxPlace(number);
}
constexpr BetId ComeOn(int number) {
  return Bet::Come4 + BoxPlace(number);
}
constexpr BetId ComeOddsOn(int number) {
  return Bet::Come4Odds + BoxPlace(number);
}
constexpr BetId PlaceOn(int number) {
  return Bet::Place4 + BoxPlace(number);
}
constexpr BetId BuyOn(int number) {
  return Bet::Buy4 + BoxPlace(number);
}

// An odds bet stands six ids above its flat bet on the numbers, one above it on the lines.
constexpr BetId FlatOf(BetId odds) {
  return odds <= Bet::Come10Odds ? odds - 6 : odds - 1;
}

// "Pass Line", "Don't Come 4 Odds", "Rail", "Chip-Stack # 1" (101..199), "" for slots without a name.
std::string BetName(BetId slot);

// "Chip-Stack #7": the title and log name of a stack, without the blank of its BetName.
std::string ChipStackTitle(BetId slot);

// The slot with this name, in any case, blanks or underscores: a bet 1..83 or a Chip-Stack; a plain number is
// the slot itself. 0 when no bet or stack is called so.
BetId FindBet(std::string_view name);

}  // namespace rollwick
