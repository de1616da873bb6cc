// The codes of the Auto-Bet language, and the slots that the codes of groups stand for. Left and right items,
// values and targets are three look-ups: the same number may mean different groups in them.
#pragma once

#include <cstdint>
#include <optional>

#include "engine/state/Bets.h"
#include "engine/state/ScriptTables.h"

namespace rollwick {

// What a condition tests (left) or compares with (right). The groups of bets are 1001..1008 for "any",
// 1101..1108 for "all", 1201..1208 for "total", the stacks 1020, 1120, 1220. 2001..2089 are the outcomes of
// the dice: the code less 2000 is the RollEvent.
namespace Item {
enum : std::int32_t {
  FirstAny = 1001,
  FirstAll = 1101,
  FirstTotal = 1201,
  AnyStack = 1020,
  AllStacks = 1120,
  TotalStacks = 1220,
  OnEachRoll = 1300,
  NextIsComeOut = 1301,
  LastWasComeOut = 1302,
  PointIsOn = 1303,
  PointMade = 1304,
  PointLost = 1305,
  PointIsNotOn = 1306,
  AnsweredYes = 1307,
  AnsweredNo = 1308,
  NextIsNotComeOut = 1309,
  LastWasNotComeOut = 1310,
  GameRolls = 1311,
  ShooterRolls = 1312,
  OnEachPass = 1313,
  GamePasses = 1314,
  ShooterPasses = 1315,
  OnEachMiss = 1316,
  GameMisses = 1317,
  ShooterMisses = 1318,
  PointDecided = 1322,
  LastShooterRolls = 1323,
  LastShooterPasses = 1324,
  LastShooterMisses = 1325,
  Bankroll = 1400,
  AverageBankroll = 1401,
  AvailableBankroll = 1410,
  SimulatedHours = 1405,
  Flag = 1500,
  AnyFlag = 1501,
  AllFlags = 1502,
  TrueFlags = 1503,
  FalseFlags = 1504,
  Stack = 1600,
  StackRef = 1601,
  PointLay = 1800,
  PointCome = 1803,
  PointComeOdds = 1804,
  PointPlace = 1805,
  PointBuy = 1806,
  FirstOutcome = 2000,
  LastOutcome = 2999,
  AllNumbers = 2001,
  BoxNumbers = 2017,  // also stands for all the numbers, when the text of its line says so
  Initializing = 9999,
};
}  // namespace Item

// How a condition compares.
namespace Compare {
enum : std::int32_t {
  HasWon = 1,
  HasWonMore = 2,
  HasLost = 3,
  HasLostMore = 4,
  HasRolled = 5,
  HasRolledMore = 6,
  HasNotRolled = 7,
  HasRolledLess = 8,
  RolledInLast = 9,
  NotRolledInLast = 10,
  EqualAmount = 11,
  NotEqualAmount = 12,
  GreaterAmount = 13,
  NotGreaterAmount = 14,
  LessAmount = 15,
  NotLessAmount = 16,
  EqualItem = 17,
  NotEqualItem = 18,
  GreaterItem = 19,
  NotGreaterItem = 20,
  LessItem = 21,
  NotLessItem = 22,
  CountIs = 23,
  CountMore = 24,
  CountLess = 25,
  IsNamed = 26,
  IsNotNamed = 27,
  AnyNumber = 31,  // 34..40 one number, which is the code less 30; 41..48 sets of numbers
  HasNotWon = 60,
  HasWonLess = 61,
  HasNotLost = 62,
  HasLostLess = 63,
};
}  // namespace Compare

// What an action does. 10..58 are five families of nine: the tens say what becomes of the bet, the last digit
// what the value is (0 an amount, 1 and 2 percent, 3 and 4 highest, 5 and 6 lowest, 7 and 8 average; the even
// ones of values as they stood at the throw).
namespace Verb {
enum : std::int32_t {
  Bet = 10,
  Add = 20,
  Subtract = 30,
  Multiply = 40,
  Divide = 50,
  LastOfFamilies = 58,
  BuyPlaceBet = 70,
  CallOff = 71,
  CallOn = 72,
  ResetWins = 73,
  ResetRolls = 74,
  StopRolling = 75,
  Gosub = 76,
  SetFlag = 77,
  SetAllFlags = 78,
  ShowMessage = 79,
  PlaySound = 80,
  ShowSteps = 81,
  Question = 82,
  GetInput = 83,
  ShowValue = 84,
  QuestionValue = 85,
  Return = 86,
  NameStack = 87,
  ClearNames = 88,
  NameStackRef = 89,
  HandleWins = 90,
  TakeFullOdds = 91,
  LayFullOdds = 92,
  Withdraw = 93,
  WithdrawPercent = 94,
  Deposit = 95,
  DepositPercent = 96,
  ActivateProbability = 97,
  DeactivateProbability = 98,
  OpenAppend = 99,
  OutputMessage = 100,
  OutputValue = 101,
  OutputNewLine = 102,
  SelectRng = 103,
  SelectRngByValue = 104,
  SeedByClock = 105,
  SeedByNumber = 106,
  SeedByValue = 107,
  OutputLastValue = 108,
  Round = 109,
  HandleLosses = 110,
  SelectRngByLast = 111,
  SeedByLast = 112,
  OpenClear = 113,
  CloseFile = 114,
  GoTo = 117,
  ResetKeepingStacks = 998,
  ResetTable = 999,
};
}  // namespace Verb

// Values behind "of". Below 100 a bet; 1000..1009 sums of groups; stacks and bets on the point as items.
namespace Value {
enum : std::int32_t {
  FirstGroup = 1000,
  LastGroup = 1009,
  RoundUp = 1100,  // modes of Round, no values
  RoundNearest = 1101,
  RoundDown = 1102,
  DiceTotal = 1300,
  Die1 = 1301,
  Die2 = 1302,
  HighestBankroll = 1402,
  LowestBankroll = 1403,
  AllStacks = 1602,
  DecidedWagers = 1700,
  DecidedAmount = 1701,
  CurrentWagers = 1702,
  CurrentAmount = 1703,
};
}  // namespace Value

// Targets: below 100 a bet, 1000..1009 groups numbered as values, stacks and bets on the point as items,
// 2001..2089 outcomes.
namespace Target {
enum : std::int32_t { AllPlace = 1006, InsidePlace = 1007, OutsidePlace = 1008, AllStacks = 1602 };
}  // namespace Target

// Slots first..last; the outside Place bets leave out 6 and 8.
struct SlotRange {
  BetId first = 0;
  BetId last = -1;
  bool withoutSixAndEight = false;
  constexpr bool Holds(BetId slot) const {
    return slot >= first && slot <= last &&
           !(withoutSixAndEight && (slot == Bet::Place6 || slot == Bet::Place8));
  }
};

// The bets of "any", "all" and "total" 1001..1208, or the stacks; nothing for other items.
std::optional<SlotRange> GroupOfItem(std::int32_t item);
// The bets of values and targets 1000..1009.
std::optional<SlotRange> GroupOfValue(std::int32_t value);

// Lay 4, Come 4 and so on for 1800, 1803..1806; 0 for other codes.
BetId FirstOfPointItem(std::int32_t item);

// Whether `number` (a box number, or 0) belongs to the number list's entry `code` (31, 34..48).
bool IsInNumberList(std::int32_t code, int number);

constexpr bool IsStartOfConditions(std::int32_t kind) {
  return kind >= KindWhen && kind <= KindXorWhile;
}
constexpr bool IsStartOfActions(std::int32_t kind) {
  return kind >= KindThen && kind <= KindDoThis;
}
// Whether the kind is one of the When kinds, which ask for something new.
constexpr bool AsksForNew(std::int32_t kind) {
  return kind <= KindXorWhen && kind % 2 == 1;
}
constexpr bool IsBetFamily(std::int32_t op) {
  return op >= Verb::Bet && op <= Verb::LastOfFamilies && op % 10 != 9;
}
constexpr bool IsComparisonWithItem(std::int32_t op) {
  return op >= Compare::EqualItem && op <= Compare::NotLessItem;
}

}  // namespace rollwick
