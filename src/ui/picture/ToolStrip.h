// The strip at the right of the table: dice, roll button, chips, tools.
#pragma once

#include <QPainter>

#include "engine/state/Game.h"
#include "ui/picture/TablePicture.h"

namespace rollwick {

// What stays: leather, frames, captions, the five chips.
void PaintToolStrip(QPainter& painter, const GameTables& g, Lettering& letters);

// What follows the game and the pointer: roll button, frame of the selected chip, lit tools.
void PaintToolStates(QPainter& painter, const GameTables& g, Lettering& letters, const TableView& view);

}  // namespace rollwick
