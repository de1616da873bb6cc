// Everything counted: rolls, bets, hands, bankroll. Screens, files and scripts only read these.
#pragma once

#include <array>
#include <cstdint>

#include "base/Money.h"
#include "engine/state/Bets.h"

namespace rollwick {

// Countable outcomes of a roll, 0..90. Event 0 is every roll; 77 + face is die 1, 83 + face is die 2.
using RollEvent = int;
inline constexpr int kRollEventCount = 91;
inline constexpr int kGapCount = 201;  // gaps 1..199; 200 counts 200 and more; 0 is the sum of those
enum : RollEvent {
  EventEveryRoll = 0,
  EventTrackedRolls = 1,
  EventHard4 = 13,
  EventHard6 = 14,
  EventHard8 = 15,
  EventHard10 = 16,
  EventDie1 = 77,
  EventDie2 = 83,
};

enum BetStatKind : int { PhantomWagers, ActualWagers, kBetStatKindCount };
enum BetStatField : int {
  InPlay,  // phantom wagers only: a phantom Come or Don't Come bet stands on its number
  TotalCount,
  TotalAmount,
  HighAmount,
  LowAmount,  // smallest above 0
  LastAmount,
  LastRollCount,
  LastRollAmount,
  kBetStatFieldCount,
};

using BetStatRow = std::array<Money, kBetStatFieldCount>;  // counts are kept as Money too
inline constexpr int kBetRowCount = 101;
using BetStatTable = std::array<std::array<BetStatRow, kBetRowCount>,
                                kBetStatKindCount>;  // by kind, bet 0..100; 0 is a work row

enum HandStat : int {
  HandRolls,
  HandPasses,
  HandsCompleted,
  LongestHandRolls,
  MostHandPasses,
  CompletedHandRolls,
  CompletedHandPasses,
  PointsEstablished,
  PassesByPoint,
  PassesOnComeOut,
  TotalPasses,
  MissesBySevenOut,
  MissesOnComeOut,
  TotalMisses,
  ComeOutRolls,
  HandMisses,
  MostHandMisses,
  PreviousHandRolls,
  PreviousHandPasses,
  PreviousHandMisses,
  kHandStatCount,
};

inline constexpr int kGraphPage = 525;  // points of a page of the bankroll graph

struct StatisticsTables {
  std::array<std::int32_t, kRollEventCount> RollEventCount{};  // entry 0 is the roll count
  std::array<std::int32_t, kRollEventCount> RollsSinceEvent{};
  std::array<std::array<std::int32_t, kGapCount>, kRollEventCount> RollGapHistogram{};
  // As the two above, but a script may zero one event. The "Before" tables hold them as they stood before the
  // roll.
  std::array<std::int32_t, kRollEventCount> TrackedEventCount{};
  std::array<std::int32_t, kRollEventCount> TrackedEventCountBefore{};
  std::array<std::int32_t, kRollEventCount> TrackedRollBase{};
  std::array<std::int32_t, kRollEventCount> TrackedRollBaseBefore{};

  BetStatTable BetWagers{};
  BetStatTable BetWins{};
  BetStatTable BetLosses{};
  // What was decided in the current roll, the first DecidedCount entries, a bet once for each kind and
  // result: the kind in bit 8, the bet in bits 1 to 7, bit 0 for a loss.
  std::array<std::int32_t, 4 * (kBetCount + 1)> DecidedBets{};
  std::int32_t DecidedCount = 0;
  // Runs of wins (above 0) or losses (below 0): column 0 as before the current roll, column 1 now.
  std::array<std::array<std::int32_t, 2>, 101> BetStreak{};
  // The longest run of losses of one bet, and which bet; of a game from a file, since it was loaded.
  std::int32_t LongestLosingRun = 0;
  BetId LongestLosingBet = 0;

  std::array<std::int32_t, kHandStatCount> HandStats{};

  Money BankrollHigh;
  Money BankrollLow;
  Money BankrollRollSum;  // of the bankroll after each roll; stays at the largest value it can hold
  // What the rolls of this session won or lost, squared and added up, and how many rolls these are.
  double RollResultSquares = 0;
  std::int32_t RollResults = 0;
  // 1..525 the current page, 526..1050 the page before; entry 0 the roll number (as Money) at which this page
  // began.
  std::array<Money, 2 * kGraphPage + 1> BankrollHistory{};
  std::int32_t BankrollHistoryCount = 0;  // points filled on the current page
  Money GraphHigh;
  Money GraphLow;
  Money GraphUnit = Dollars(1);
  Money GraphTop = Dollars(150);
  std::int32_t GraphAdjustType = 1;    // 0 manual, 1 expanding scale, 2 snap-back scale
  Money GraphManualUnit = Dollars(1);  // the last scale set by hand, for the snap-back
  Money GraphManualTop = Dollars(150);

  Money RollsPerHour = Dollars(120);

  std::int32_t& RollCount() { return RollEventCount[EventEveryRoll]; }
  std::int32_t RollCount() const { return RollEventCount[EventEveryRoll]; }
};

// The bet of DecidedBets' entry `place`.
inline BetId DecidedBet(const StatisticsTables& g, std::int32_t place) {
  return g.DecidedBets[static_cast<std::size_t>(place)] >> 1 & 127;
}

}  // namespace rollwick
