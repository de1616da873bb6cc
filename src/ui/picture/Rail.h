// The rail around the table: wood, the wells of the Chip-Stacks, the groove of the player's chips.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>

namespace rollwick {

inline constexpr QColor kBrass(0xD9, 0xB2, 0x5F);  // its strips, and print on wood and leather

// Wood with its edge, the four wells and the groove; no chips. `deviceScale` is how many device pixels a unit
// has.
void PaintRail(QPainter& painter, double deviceScale);

// A recess with rounded corners in wood or leather.
void PaintRecess(QPainter& painter, const QRectF& rect, double corner, const QColor& ground);

}  // namespace rollwick
