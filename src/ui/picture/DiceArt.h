// Dice: those that roll, with body, pips and shadow, and those printed on the felt.
#pragma once

#include <QPainter>

#include "ui/picture/DicePose.h"
#include "ui/picture/Scheme.h"

namespace rollwick {

// Two dice in the scheme's colours, shadows first.
void PaintDice(QPainter& painter, const Scheme& scheme, const DicePoses& dice);

// One face as print, `size` units wide.
void PaintPrintedDie(QPainter& painter, const Scheme& scheme, QPointF leftTop, double size, int face);
// Two of them beside each other, with their middle here.
void PaintPrintedPair(QPainter& painter, const Scheme& scheme, QPointF middle, double size, int face1,
                      int face2);

}  // namespace rollwick
