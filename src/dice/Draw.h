// From a generator to two faces, and how generators are seeded.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Draws Die1 and Die2 from RngChoice; RNG #6 and #7 alternate by RollCount. A face of 7 is possible from
// Ran1. Needs no table: a game without a host will do, and whoever draws many counts RollCount() up.
void DrawDice(Game& g);

// The one draw of 1..100,000 (100,001 from Ran1 and Ran2) that picks a pair from a probability matrix.
std::int32_t DrawMatrixValue(Game& g);

// A generator whose library is missing gives way to RNG #4.
void FallBackFromMissingGenerator(DiceTables& g);

enum class SeedResult { Seeded, OutOfLimits, Overflow };

// Seeds RngChoice: with SeedRequest as it stands when the seed is given, else by asking (UserSeedMode) or
// from the clock. A value out of limits, or a prompt closed for good, changes nothing. Overflow: the seed is
// too large for the first step of ran1 or ran2, which keep their state, while CurrentSeed and LastSeed hold
// the new seed.
SeedResult SeedGenerator(Game& g, bool seedIsGiven);

// SeedRequest from the clock, in reach of RngChoice.
void TakeSeedFromClock(Game& g);

// The largest seed RngChoice takes.
std::int32_t SeedLimit(const DiceTables& g);

}  // namespace rollwick
