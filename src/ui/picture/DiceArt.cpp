#include "ui/picture/DiceArt.h"

#include <algorithm>
#include <array>

#include "ui/picture/DiceMotion.h"

namespace rollwick {
namespace {

constexpr double kPipReach = 0.27;

// Which places of a 3 x 3 grid, row by row from the left top, have a pip. By face; 0 is a blank.
constexpr std::array<const char*, 7> kPips = {
    ".........", "....o....", "o.......o", "o...o...o", "o.o...o.o", "o.o.o.o.o", "o.oo.oo.o",
};

// Around (0, 0).
void PaintPips(QPainter& painter, double size, double radius, int face) {
  const char* pips = kPips[static_cast<std::size_t>(std::clamp(face, 0, 6))];
  for (int place = 0; place < 9; ++place) {
    if (pips[place] != 'o') continue;
    painter.drawEllipse(QPointF((place % 3 - 1) * kPipReach * size, (place / 3 - 1) * kPipReach * size),
                        radius, radius);
  }
}

void PaintShadow(QPainter& painter, const DicePose& die) {
  painter.save();
  painter.translate(die.x + 2.5 + 0.45 * die.lift, die.y + 3.5 + 0.8 * die.lift);
  painter.rotate(die.angle);
  painter.setPen(Qt::NoPen);
  // A few layers make it soft; the higher the die, the wider and paler.
  for (double spread = 1.5; spread <= 5.5; spread += 1) {
    const double half = kDieSide / 2 - 2 + spread * (0.8 + 0.05 * die.lift);
    painter.setBrush(QColor(0, 0, 0, std::max(8, 30 - static_cast<int>(0.4 * die.lift))));
    painter.drawRoundedRect(QRectF(-half, -half, 2 * half, 2 * half), 5, 5);
  }
  painter.restore();
}

void PaintDie(QPainter& painter, const Scheme& scheme, const DicePose& die) {
  const QColor& body = scheme[DiceColor];
  const double size = kDieSide * (1 + 0.012 * die.lift);
  const QRectF cube(-size / 2, -size / 2, size, size);
  painter.save();
  painter.translate(die.x, die.y);
  painter.rotate(die.angle);
  QLinearGradient side(cube.topLeft(), cube.bottomRight());
  side.setColorAt(0, Blend(body, Qt::white, 0.35));
  side.setColorAt(1, Blend(body, Qt::black, 0.55));
  painter.setPen(QPen(Blend(body, Qt::black, 0.7), 0.6));
  painter.setBrush(side);
  painter.drawRoundedRect(cube, 4.5, 4.5);
  // The flat top inside the rounded edges.
  const QRectF top = cube.adjusted(1.7, 1.7, -1.7, -1.7);
  QLinearGradient face(top.topLeft(), top.bottomRight());
  face.setColorAt(0, Blend(body, Qt::white, 0.16));
  face.setColorAt(0.55, body);
  face.setColorAt(1, Blend(body, Qt::black, 0.16));
  painter.setPen(Qt::NoPen);
  painter.setBrush(face);
  painter.drawRoundedRect(top, 4.5, 4.5);
  painter.setBrush(scheme[PipColor]);
  PaintPips(painter, size, 0.098 * size, die.face);
  painter.restore();
}

}  // namespace

void PaintDice(QPainter& painter, const Scheme& scheme, const DicePoses& dice) {
  for (const DicePose& die : dice) PaintShadow(painter, die);
  for (const DicePose& die : dice) PaintDie(painter, scheme, die);
}

void PaintPrintedDie(QPainter& painter, const Scheme& scheme, QPointF leftTop, double size, int face) {
  const double half = size / 2;
  painter.save();
  painter.translate(leftTop + QPointF(half, half));
  // The edge keeps dice visible on a felt of their own colour.
  const QColor edge = Blend(scheme[PipColor], scheme[DiceColor], 0.35);
  painter.setPen(QPen(edge, 0.06 * size));
  painter.setBrush(scheme[DiceColor]);
  painter.drawRoundedRect(QRectF(-half, -half, size, size).adjusted(0.4, 0.4, -0.4, -0.4), 0.18 * size,
                          0.18 * size);
  painter.setPen(Qt::NoPen);
  painter.setBrush(scheme[PipColor]);
  PaintPips(painter, size, 0.105 * size, face);
  painter.restore();
}

void PaintPrintedPair(QPainter& painter, const Scheme& scheme, QPointF middle, double size, int face1,
                      int face2) {
  const double gap = 0.12 * size;
  PaintPrintedDie(painter, scheme, middle - QPointF(size + gap / 2, size / 2), size, face1);
  PaintPrintedDie(painter, scheme, middle + QPointF(gap / 2, -size / 2), size, face2);
}

}  // namespace rollwick
