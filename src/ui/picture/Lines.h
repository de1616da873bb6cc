// The printed lines of the layout and the outlines of its spots.
#pragma once

#include <QPainter>
#include <QPainterPath>

#include "engine/state/ScreenTables.h"
#include "layout/Regions.h"
#include "ui/picture/Scheme.h"

namespace rollwick {

// The middle of the turn of the lines, between its pixel's edges.
inline constexpr QPointF kTurnMiddle{kTurnCentre.x + 0.5, kTurnCentre.y + 0.5};

inline QRectF RectOf(const PictureRect& rect) {
  return QRectF(rect.x, rect.y, rect.width, rect.height);
}

// The square of a circle.
inline QRectF Around(QPointF middle, double radius) {
  return QRectF(middle.x() - radius, middle.y() - radius, 2 * radius, 2 * radius);
}

// The smooth outline of a region, along its outermost pixels.
QPainterPath OutlineOf(const Region& region);
// All regions of a spot on view together; a Buy bet has those of its Place bet. Empty when it has none.
QPainterPath SpotOutline(const ScreenTables& g, int spot);

// The lines of the table, without the panel's.
void PaintTableLines(QPainter& painter, const Scheme& scheme);

}  // namespace rollwick
