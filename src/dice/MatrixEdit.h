// Editing the probability matrix: what is typed into a cell, and what becomes of the other cells.
#pragma once

#include <string_view>

#include "engine/state/Game.h"

namespace rollwick {

// States of a cell. Entered and covered cells keep their value when the rest is spread anew.
enum MatrixState : std::int32_t {
  MatrixProduct = -1,  // a pair that percentage dice made; every other state is a set of the bits below
  MatrixCoveredByDie1 = 1,
  MatrixCoveredByDie2 = 2,
  MatrixCoveredByTotal = 4,
  MatrixEntered = 128,
};

enum class MatrixArea { None, Pair, Total, Die1Face, Die2Face };
MatrixArea AreaOfCell(std::int32_t row, std::int32_t column);

// What true dice have in the cell, unrounded, in parts of 100,000. The cell is of an area.
double TrueCellValue(std::int32_t row, std::int32_t column);

// The cell as ProbabilityDisplayMode shows it.
double ShownCellValue(const Game& g, std::int32_t row, std::int32_t column);

// Types `number`, in the display mode in force, into a cell. A pair or a total makes free form dice: what
// entered and covered pairs leave of the whole is spread evenly over the others. A face makes percentage
// dice: the die's other faces share what is left, and every pair is the product of its faces. An entry is
// held to what the other entered cells leave. False, and nothing changed, for a cell of no area, for what is
// no number, and when no pair would have any weight left.
bool EnterMatrixCell(Game& g, std::int32_t row, std::int32_t column, double number);

// The two faces a shooter keeps from showing by spinning the die about them.
enum class DieAxis { OneSix, TwoFive, ThreeFour };

// Makes die 1 or 2 one that is thrown about the axis: at an effectiveness of 0 percent it is fair, at 100
// (and above) the axis faces never show. False, and nothing changed, when no pair would have any weight left.
bool ComputeAboutAxis(Game& g, std::int32_t die, DieAxis axis, std::int32_t effectiveness);

// Sets every cell free; values stay.
void UnlockAllCells(Game& g);

// An untitled matrix of 36 even pairs, nothing entered.
void NewProbabilityMatrix(Game& g);

// False, and nothing changed, unless the number is above 0.
bool SetProbabilityRollsOutOf(Game& g, double rolls);

// "Percentage Dice" while the pairs are the products of their faces, else "Free Form Dice".
std::string_view ProbabilityKindLabel(const Game& g);

}  // namespace rollwick
