// What the dealer calls on a throw: every bet it decides and every count it makes, in the order of settling.
#pragma once

#include <array>
#include <cstdint>

#include "engine/bets/Resolution.h"
#include "engine/state/BetSet.h"

namespace rollwick {

// Turns among the bets that are no decisions. They have ids behind the bets.
enum RollTurn : BetId {
  TurnPass = kBetCount + 1,
  TurnMiss,
  TurnBarPush,
  TurnNatural,  // the come-out eleven's line of the log, behind the Don't Come bet's
};

struct RollCall {
  std::int8_t Id = 0;      // a bet or a RollTurn
  std::int8_t Result = 0;  // Outcome of a bet; 0 of a bet that moves from its box to the number
};

inline constexpr int kMostCalls = 96;

struct RollCalls {
  BetSet Called;
  std::int32_t Count = 0;
  std::array<RollCall, kMostCalls> Calls{};
  std::array<std::int8_t, 128> Place{};  // in Calls, by id of Called
};

// The calls on these dice (faces 1..7) with this point (0 on the come-out) at a table with this bar number.
const RollCalls& CallsOf(int point, int die1, int die2, int barNumber);

}  // namespace rollwick
