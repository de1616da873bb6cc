// The rail around the table: wood, the wells of the Chip-Stacks, the groove of the player's chips.
#pragma once

#include <QPainter>
#include <QPainterPath>

namespace rollwick {

// Wood with its edge, the four wells and the groove; no chips. `deviceScale` is how many device pixels a unit
// has.
void PaintRail(QPainter& painter, double deviceScale);

// A recess with rounded corners in wood or leather.
void PaintRecess(QPainter& painter, const QRectF& rect, double corner, const QColor& ground);

}  // namespace rollwick
