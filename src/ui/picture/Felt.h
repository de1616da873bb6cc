// The cloth of the table.
#pragma once

#include <QImage>
#include <QPainter>

#include "ui/picture/Scheme.h"

namespace rollwick {

// Where the felt lies, with its round inner corners and the part beside the panel.
QPainterPath FeltPath();

inline constexpr int kWoodTexture = 6;

// One tile of a texture, tinted; it continues itself in both directions.
QImage FeltTile(int texture, const QColor& felt, int pixels);

// Fills with a texture at the device's pixels; `upright` turns its grain. `deviceScale` is how many device
// pixels a unit has.
QBrush TextureBrush(int texture, const QColor& color, double deviceScale, bool upright = false);

// Cloth, light and the shadow of the rail.
void PaintFelt(QPainter& painter, const Scheme& scheme, double deviceScale);

}  // namespace rollwick
