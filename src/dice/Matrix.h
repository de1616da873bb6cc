// Crooked dice: a weight for each of the 36 pairs of faces, and the draw by them.
#pragma once

#include <array>

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

struct MatrixCell {
  std::size_t row = 0, column = 0;
};

// The cells of the 36 pairs, row by row, as the draw walks them.
inline constexpr std::array<MatrixCell, 36> kPairCells = [] {
  std::array<MatrixCell, 36> cells;
  std::size_t next = 0;
  for (std::size_t row = 2; row <= 7; ++row) {
    for (std::size_t column = row - 1; column <= 13 - row; ++column) cells[next++] = {row, column};
  }
  return cells;
}();

// Whether any pair can come at all.
bool HasWeight(const MatrixTable& matrix);

// Sets Die1 and Die2 by `value`, a draw of 1..100,000 (see DrawMatrixValue). Weights that sum to less leave
// values that are no pair's: another one is then drawn from the plain source. The pairs may not all be 0.
void PickPairFromMatrix(Game& g, std::int32_t value);

}  // namespace rollwick
