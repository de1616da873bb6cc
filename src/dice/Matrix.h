// Crooked dice: a weight for each of the 36 pairs of faces, and the draw by them.
#pragma once

#include <filesystem>
#include <optional>

#include "engine/state/Game.h"

namespace rollwick {

struct MatrixPair {
  std::int32_t die1 = 0, die2 = 0;
};

// The pair that a cell of the diamond (rows 2..7, columns row - 1 to 13 - row) stands for.
constexpr MatrixPair PairOfCell(std::int32_t row, std::int32_t column) {
  if (column < 7) return {row - 1, column - row + 2};
  return {row + column - 7, 8 - row};
}

// Sets Die1 and Die2 by `value`, a draw of 1..100,000 (see DrawMatrixValue). Weights that sum to less leave
// values that are no pair's: another one is then drawn from the plain source. The pairs may not all be 0.
void PickPairFromMatrix(Game& g, std::int32_t value);

// Reads a probability file (*.prb) into ProbabilityMatrix and sets ProbabilityName to its short name. Whether
// the table uses the matrix is not touched. Nothing on success, else the message that refuses the file (for
// one the system does not give, the system's words); the matrix is then as it was.
std::optional<Message> LoadProbabilityFile(Game& g, const std::filesystem::path& path);

}  // namespace rollwick
