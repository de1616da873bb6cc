// The draw by the matrix.
#include "dice/Matrix.h"

#include <algorithm>
#include <cassert>

#include "dice/Generators.h"

namespace rollwick {

bool HasWeight(const MatrixTable& matrix) {
  return std::ranges::any_of(
      kPairCells, [&](MatrixCell cell) { return matrix[MatrixValues][cell.row][cell.column] > 0; });
}

void PickPairFromMatrix(Game& g, std::int32_t value) {
  assert(HasWeight(g.ProbabilityMatrix));
  constexpr std::int32_t kWhole = 100'000;
  for (;; value = PlainRandomBelow(g, kWhole) + 1) {
    std::int32_t sum = 0;
    for (const auto [row, column] : kPairCells) {
      sum += g.ProbabilityMatrix[MatrixValues][row][column];
      if (value > sum) continue;
      const MatrixPair pair = PairOfCell(static_cast<std::int32_t>(row), static_cast<std::int32_t>(column));
      g.Die1 = pair.die1;
      g.Die2 = pair.die2;
      return;
    }
  }
}

}  // namespace rollwick
