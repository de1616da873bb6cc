// The golden streams of all generators, tests/data/dice.json, as the tests of the dice read them.
#pragma once

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "dice/Draw.h"
#include "engine/state/Game.h"

namespace rollwick {

inline const nlohmann::json& GoldenDice() {
  static const nlohmann::json golden =
      nlohmann::json::parse(std::ifstream(std::string(ROLLWICK_TEST_DATA) + "/dice.json"));
  return golden;
}

inline SeedResult Seed(Game& g, std::int32_t choice, Money seed) {
  g.RngChoice = choice;
  g.SeedRequest = seed;
  return SeedGenerator(g, true);
}

using DicePair = std::pair<std::int32_t, std::int32_t>;

// Draws one roll and counts it, as the table does.
inline DicePair NextRoll(Game& g) {
  DrawDice(g);
  ++g.RollCount();
  return {g.Die1, g.Die2};
}

inline std::int32_t NextMatrixValue(Game& g) {
  const std::int32_t value = DrawMatrixValue(g);
  ++g.RollCount();
  return value;
}

}  // namespace rollwick
