#include "ui/picture/Rail.h"

#include "ui/picture/Felt.h"
#include "ui/picture/Lines.h"

namespace rollwick {
namespace {

const QColor kWood(0x6A, 0x30, 0x16);
const QColor kWell(0x1C, 0x0D, 0x07);

// The wood ends at the seam to the tools.
QPainterPath RailPath() {
  QPainterPath outer(QPointF(602, 0));
  outer.lineTo(28, 0);
  outer.arcTo(QRectF(0, 0, 57, 57), 90, 90);
  outer.lineTo(0, 411);
  outer.arcTo(QRectF(0, 383, 57, 57), 180, 90);
  outer.lineTo(602, 440);
  outer.closeSubpath();
  return outer.subtracted(FeltPath());
}

// The left arm of the frame, mitred at its corners.
QPainterPath LeftArm() {
  QPainterPath arm(QPointF(-10, -8));
  arm.lineTo(88, 58);
  arm.lineTo(108, 344);
  arm.lineTo(-10, 452);
  arm.closeSubpath();
  return arm;
}

QPen SoftPen(QColor color, int alpha, double width) {
  color.setAlpha(alpha);
  return QPen(color, width);
}

// The rail is rounded: dark along both edges, a gleam above the middle.
void PaintRoundness(QPainter& painter, const QPainterPath& rail) {
  painter.save();
  painter.setClipPath(rail);
  for (const double width : {14.0, 9.0, 5.0, 2.5}) painter.strokePath(rail, SoftPen(Qt::black, 44, width));
  QLinearGradient light(0, 0, 0, 440);
  light.setColorAt(0, QColor(255, 220, 180, 50));
  light.setColorAt(0.06, QColor(255, 220, 180, 0));
  light.setColorAt(0.92, QColor(0, 0, 0, 0));
  light.setColorAt(1, QColor(0, 0, 0, 90));
  painter.fillPath(rail, light);
  painter.restore();
}

// Leather and a brass strip where the rail meets the felt.
void PaintBumper(QPainter& painter, const QPainterPath& rail) {
  painter.save();
  painter.setClipPath(rail);
  const QPainterPath felt = FeltPath();
  painter.strokePath(felt, QPen(QColor(0x1A, 0x10, 0x0C), 8));
  painter.strokePath(felt, QPen(QColor(0x3A, 0x28, 0x20), 4.5));
  painter.strokePath(felt, QPen(QColor(0x15, 0x0C, 0x08), 1.6));
  QPainterPathStroker strip;
  strip.setWidth(9.5);
  painter.strokePath(strip.createStroke(felt).simplified(), QPen(kBrass, 0.9));
  painter.restore();
}

}  // namespace

void PaintRecess(QPainter& painter, const QRectF& rect, double corner, const QColor& ground) {
  QPainterPath path;
  path.addRoundedRect(rect, corner, corner);
  painter.fillPath(path, ground);
  painter.save();
  painter.setClipPath(path, Qt::IntersectClip);
  for (const double width : {9.0, 5.5, 2.5})
    painter.strokePath(path.translated(0.6, 1.4), QPen(QColor(0, 0, 0, 64), width));
  painter.restore();
  painter.strokePath(path, QPen(QColor(0, 0, 0, 150), 1));
  painter.strokePath(path.translated(0, 0.8), SoftPen(QColor(255, 226, 180), 40, 0.7));
}

void PaintRail(QPainter& painter, double deviceScale) {
  const QPainterPath rail = RailPath();
  painter.fillPath(rail, TextureBrush(kWoodTexture, kWood, deviceScale));
  painter.fillPath(rail.intersected(LeftArm()), TextureBrush(kWoodTexture, kWood, deviceScale, true));
  PaintRoundness(painter, rail);
  PaintBumper(painter, rail);
  for (const Region& region : TableRegions())
    if (region.spot >= SlotChipStack + 1 && region.spot <= SlotChipStack + 4)
      PaintRecess(painter, RectOf(region.rect).adjusted(0.5, 0.5, -0.5, -0.5), 4, kWell);
  PaintRecess(painter, QRectF(76, 411, 500, 23), 11.5, kWell);
}

}  // namespace rollwick
