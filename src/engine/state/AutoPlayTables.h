// Auto-Play: what happens to settled bets by itself, odds that follow, and dice that roll by themselves.
#pragma once

#include <array>
#include <cstdint>

#include "base/Money.h"

namespace rollwick {

enum AutoAdjust : std::int32_t { AdjustManual, AdjustMinor, AdjustColor };
enum Bias : std::int32_t { BiasNearest, BiasIncrease, BiasDecrease };

enum WinHandler : std::int32_t {
  WinManual,
  WinTakeDown,
  WinSameBet,
  WinPressUnit,
  WinPressDouble,
  WinParlay,
  WinSameBetFormula,
  WinBetFormula,
};
enum LossHandler : std::int32_t {
  LossManual,
  LossTakeDown,
  LossBetRemainder,
  LossSameBet,
  LossPressUnit,
  LossDoubleBet,
  LossSameBetFormula,
  LossBetFormula,
};

enum FormulaOperator : std::int32_t { FormulaPlus, FormulaMinus, FormulaTimes, FormulaDivide };

// Entries of the three formula arrays.
enum FormulaSlot : int {
  DialogWonSameBet,
  DialogWonBet,
  DialogLostSameBet,
  DialogLostBet,
  WinnerSameBet,
  LoserSameBet,
  WinnerBet,
  LoserBet,
  kFormulaCount,
};

// Entries of AutoStopOn.
enum AutoStop : int {
  StopOnAnyWin,
  StopOnAnyLoss,
  StopOn2,
  StopOn3,
  StopOn4,
  StopOnHard4,
  StopOn5,
  StopOn6,
  StopOnHard6,
  StopOn7,
  StopOn8,
  StopOnHard8,
  StopOn9,
  StopOn10,
  StopOnHard10,
  StopOn11,
  StopOn12,
  kAutoStopCount,
};

struct AutoPlayTables {
  std::int32_t HandleWinningBets = WinManual;
  std::int32_t HandleLosingBets = LossTakeDown;
  std::array<std::int32_t, kFormulaCount> ModifyOperator{};  // FormulaOperator
  std::array<Money, kFormulaCount> ModifyAmount{};
  std::array<std::int32_t, kFormulaCount>
      ModifyUnit{};                // 0 dollars, 1 percent, 2..6 units of the chip in slot 93 + it
  std::int32_t LastWonChoice = 0;  // of the Settle Bet dialog, 0..6
  std::int32_t LastLostChoice = 0;

  std::int32_t AutoAdjustBetAmounts = AdjustColor;
  std::int32_t LayBias = BiasNearest;
  std::int32_t PlaceBias = BiasIncrease;
  std::int32_t DoBias = BiasNearest;
  std::int32_t DontBias = BiasNearest;
  bool AutoArrangeChips = false;
  bool AutoTakeFullOdds = false;
  bool AutoLayFullOdds = false;
  bool AutoRemovePlaceBets = false;

  bool AutoRoll = false;
  std::int32_t AutoRollsSet = 0;  // 0 is no count
  std::int32_t AutoRollsLeft = 0;
  std::int32_t AutoRollDelay = 0;  // seconds, 0..99
  std::array<bool, kAutoStopCount> AutoStopOn{};
  std::int32_t HyperThrottle = 0;  // 0..10; 0 is full speed

  std::int64_t RollsInRun = 0;     // made since RollDice was called, through all games a script began
  std::int64_t RollsInRunSet = 0;  // where Hyper-Drive ends whatever games were begun; 0 is no count

  bool KeepRolling = false;  // cleared to end the run after the current roll
  bool RollInProgress = false;
  bool HyperDriveActive = false;
  bool ManualRollPending = false;  // the dice already lie as somebody put them
  bool AutoBetRunning = false;
};

}  // namespace rollwick
