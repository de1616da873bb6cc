// Entries, and the two redistributions: free form dice and percentage dice.
#include "dice/MatrixEdit.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "dice/Matrix.h"

namespace rollwick {

namespace {

constexpr std::int32_t kWhole = 100'000;
constexpr std::size_t kTotalsRow = 1;
constexpr std::size_t kDie1Column = 12, kDie2Column = 13;

// Meant: shares are rounded each for itself, so that a full matrix is off by up to half a part a pair. Only
// what exceeds the whole by more than that is too much.
constexpr std::int32_t kRoundingSlack = 18;

std::size_t Index(std::int32_t number) {
  return static_cast<std::size_t>(number);
}

bool IsEntered(std::int32_t state) {
  return state != MatrixProduct && (state & MatrixEntered) != 0;
}

// To nearest, ties to even, and inside 0..100,000.
std::int32_t CellValue(double value) {
  return static_cast<std::int32_t>(std::clamp(std::nearbyint(value), 0.0, double{kWhole}));
}

// What each of `cells` gets of `rest`.
std::int32_t Share(std::int32_t rest, std::int32_t cells) {
  return CellValue(double(rest) / cells);
}

struct PairPlace {
  MatrixCell cell;
  std::size_t row1, row2;  // of its faces in the die columns
};

PairPlace PlaceOf(MatrixCell cell) {
  const MatrixPair pair =
      PairOfCell(static_cast<std::int32_t>(cell.row), static_cast<std::int32_t>(cell.column));
  return {cell, Index(pair.die1 + 1), Index(pair.die2 + 1)};
}

// A matrix being edited.
class Editor {
 public:
  explicit Editor(const MatrixTable& matrix) : matrix_(matrix) {}

  const MatrixTable& Matrix() const { return matrix_; }
  std::int32_t& State(std::size_t row, std::size_t column) { return matrix_[MatrixStates][row][column]; }
  std::int32_t& Value(std::size_t row, std::size_t column) { return matrix_[MatrixValues][row][column]; }
  std::int32_t& State(MatrixCell cell) { return State(cell.row, cell.column); }
  std::int32_t& Value(MatrixCell cell) { return Value(cell.row, cell.column); }

  void Enter(MatrixCell cell, std::int32_t value) {
    State(cell) = MatrixEntered;
    Value(cell) = value;
  }

  // Both give by how much the cells that stay exceed the whole: negative when they leave something.
  std::int32_t MakeFreeForm();
  std::int32_t MakePercentage(std::size_t dieColumn);

 private:
  void MarkCoveredPairs();
  void SpreadTotal(std::size_t column);
  void SumTotals();
  void SumFaces();

  MatrixTable matrix_;
};

void Editor::MarkCoveredPairs() {
  for (auto& row : matrix_[MatrixStates]) {
    for (std::int32_t& state : row) state = IsEntered(state) ? MatrixEntered : 0;
  }
  for (const MatrixCell cell : kPairCells) {
    const PairPlace place = PlaceOf(cell);
    if (IsEntered(State(kTotalsRow, cell.column))) State(cell) |= MatrixCoveredByTotal;
    if (IsEntered(State(place.row1, kDie1Column))) State(cell) |= MatrixCoveredByDie1;
    if (IsEntered(State(place.row2, kDie2Column))) State(cell) |= MatrixCoveredByDie2;
  }
}

// The pairs of an entered total share what its other fixed pairs leave of it.
void Editor::SpreadTotal(std::size_t column) {
  const auto isShared = [&](MatrixCell cell) {
    return cell.column == column && State(cell) == MatrixCoveredByTotal;
  };
  std::int32_t rest = Value(kTotalsRow, column), shared = 0;
  for (const MatrixCell cell : kPairCells) {
    if (isShared(cell)) {
      ++shared;
    } else if (cell.column == column) {
      rest -= Value(cell);
    }
  }
  for (const MatrixCell cell : kPairCells) {
    if (isShared(cell)) Value(cell) = Share(rest, shared);
  }
}

void Editor::SumTotals() {
  for (std::size_t column = 1; column <= 11; ++column) Value(kTotalsRow, column) = 0;
  for (const MatrixCell cell : kPairCells) Value(kTotalsRow, cell.column) += Value(cell);
}

void Editor::SumFaces() {
  for (std::size_t row = 2; row <= 7; ++row) Value(row, kDie1Column) = Value(row, kDie2Column) = 0;
  for (const MatrixCell cell : kPairCells) {
    const PairPlace place = PlaceOf(cell);
    Value(place.row1, kDie1Column) += Value(cell);
    Value(place.row2, kDie2Column) += Value(cell);
  }
}

std::int32_t Editor::MakeFreeForm() {
  MarkCoveredPairs();
  for (std::size_t column = 1; column <= 11; ++column) {
    if (IsEntered(State(kTotalsRow, column))) SpreadTotal(column);
  }
  std::int32_t rest = kWhole, free = 0;
  for (const MatrixCell cell : kPairCells) {
    if (State(cell) == 0) {
      ++free;
    } else {
      rest -= Value(cell);
    }
  }
  for (const MatrixCell cell : kPairCells) {
    if (State(cell) == 0) Value(cell) = Share(rest, free);
  }
  SumTotals();
  SumFaces();
  return -rest;
}

std::int32_t Editor::MakePercentage(std::size_t dieColumn) {
  std::int32_t rest = kWhole, free = 0;
  for (std::size_t row = 2; row <= 7; ++row) {
    if (IsEntered(State(row, dieColumn))) {
      rest -= Value(row, dieColumn);
    } else {
      ++free;
    }
  }
  for (std::size_t row = 2; row <= 7; ++row) {
    if (!IsEntered(State(row, dieColumn))) Value(row, dieColumn) = Share(rest, free);
  }
  for (const MatrixCell cell : kPairCells) {
    const PairPlace place = PlaceOf(cell);
    const double face1 = Value(place.row1, kDie1Column), face2 = Value(place.row2, kDie2Column);
    Value(cell) = CellValue(face1 * face2 * 0.00001);
    State(cell) = MatrixProduct;
  }
  // What was entered for a total is overwritten, and so no longer an entry.
  for (std::size_t column = 1; column <= 11; ++column) State(kTotalsRow, column) = 0;
  SumTotals();
  return -rest;
}

// Takes the edited matrix over, unless its dice could not fall at all.
bool Accept(Game& g, const MatrixTable& matrix) {
  if (!HasWeight(matrix)) return false;
  g.ProbabilityMatrix = matrix;
  g.ProbabilityDirty = true;
  return true;
}

bool IsRollsMode(const Game& g) {
  return g.ProbabilityDisplayMode == DisplayRolls || g.ProbabilityDisplayMode == DisplayRollsFromTrue;
}

bool IsFromTrueMode(const Game& g) {
  return g.ProbabilityDisplayMode == DisplayPercentFromTrue ||
         g.ProbabilityDisplayMode == DisplayRollsFromTrue;
}

}  // namespace

MatrixArea AreaOfCell(std::int32_t row, std::int32_t column) {
  if (row == 1) return column >= 1 && column <= 11 ? MatrixArea::Total : MatrixArea::None;
  if (row < 2 || row > 7) return MatrixArea::None;
  if (column == 12) return MatrixArea::Die1Face;
  if (column == 13) return MatrixArea::Die2Face;
  return column >= row - 1 && column <= 13 - row ? MatrixArea::Pair : MatrixArea::None;
}

double TrueCellValue(std::int32_t row, std::int32_t column) {
  switch (AreaOfCell(row, column)) {
    case MatrixArea::Pair:
      return 100'000.0 / 36;
    case MatrixArea::Total:
      return (6 - std::abs(7 - (column + 1))) * 100'000.0 / 36;
    default:
      return 600'000.0 / 36;
  }
}

double ShownCellValue(const Game& g, std::int32_t row, std::int32_t column) {
  double value = g.ProbabilityMatrix[MatrixValues][Index(row)][Index(column)];
  if (IsFromTrueMode(g)) value -= TrueCellValue(row, column);
  return IsRollsMode(g) ? value * g.ProbabilityRollsOutOf / kWhole : value / 1000;
}

bool EnterMatrixCell(Game& g, std::int32_t row, std::int32_t column, double number) {
  const MatrixArea area = AreaOfCell(row, column);
  if (area == MatrixArea::None || !std::isfinite(number)) return false;
  double wanted = number * 1000;
  if (IsRollsMode(g)) wanted = wanted * 100 / g.ProbabilityRollsOutOf;
  if (IsFromTrueMode(g)) wanted += TrueCellValue(row, column);

  const auto edited = [&](std::int32_t value, std::int32_t& excess) {
    Editor editor(g.ProbabilityMatrix);
    editor.Enter({Index(row), Index(column)}, value);
    const bool isFace = area == MatrixArea::Die1Face || area == MatrixArea::Die2Face;
    excess = isFace ? editor.MakePercentage(Index(column)) : editor.MakeFreeForm();
    return editor.Matrix();
  };
  const std::int32_t value = CellValue(wanted);
  std::int32_t excess = 0;
  MatrixTable matrix = edited(value, excess);
  if (excess > kRoundingSlack) matrix = edited(std::max(0, value - excess), excess);
  return Accept(g, matrix);
}

bool ComputeAboutAxis(Game& g, std::int32_t die, DieAxis axis, std::int32_t effectiveness) {
  const double shown = 1 - std::clamp(effectiveness, 0, 100) / 100.0;
  const std::int32_t value = CellValue(shown / 6 * kWhole);
  const std::size_t column = die == 1 ? kDie1Column : kDie2Column;
  const std::size_t lowRow = 2 + static_cast<std::size_t>(axis);  // opposite faces sum to 7
  Editor editor(g.ProbabilityMatrix);
  for (std::size_t row = 2; row <= 7; ++row) editor.State(row, column) = 0;
  editor.Enter({lowRow, column}, value);
  editor.Enter({9 - lowRow, column}, value);
  editor.MakePercentage(column);
  return Accept(g, editor.Matrix());
}

void UnlockAllCells(Game& g) {
  auto& states = g.ProbabilityMatrix[MatrixStates];
  if (states == MatrixTable::value_type{}) return;
  states = {};
  g.ProbabilityDirty = true;
}

void NewProbabilityMatrix(Game& g) {
  Editor editor(MatrixTable{});
  editor.MakeFreeForm();
  g.ProbabilityMatrix = editor.Matrix();
  g.ProbabilityName.clear();
  g.ProbabilityPath.clear();
  g.ProbabilityDirty = false;
}

bool SetProbabilityRollsOutOf(Game& g, double rolls) {
  if (!std::isfinite(rolls) || rolls <= 0) return false;
  g.ProbabilityRollsOutOf = rolls;
  return true;
}

std::string_view ProbabilityKindLabel(const Game& g) {
  const bool hasProduct = std::ranges::any_of(kPairCells, [&](MatrixCell cell) {
    return g.ProbabilityMatrix[MatrixStates][cell.row][cell.column] == MatrixProduct;
  });
  return hasProduct ? "Percentage Dice" : "Free Form Dice";
}

}  // namespace rollwick
