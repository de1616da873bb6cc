#include "ui/picture/Marks.h"

#include <algorithm>

#include "base/FormatNumber.h"
#include "ui/picture/Lines.h"
#include "ui/picture/Scheme.h"

namespace rollwick {
namespace {

const QColor kIvory(0xFB, 0xF8, 0xEE);
const QColor kInk(0x16, 0x14, 0x12);
const QColor kYellow(0xFF, 0xD0, 0x22);
const QColor kGold(0xFF, 0xDD, 0x55);
constexpr double kPuckRadius = 11;
constexpr double kButtonRadius = 6;
constexpr double kPlateHeight = 8.5;
constexpr double kFigureHeight = 5.6;
constexpr double kWidePlate = 40;  // on a narrower one amounts beyond this are shortened
constexpr Money kLongest = Dollars(99'999);

// The lammers in the order of their modes, 1 to 3.
struct Lammer {
  int spot;
  const char* text;
};
constexpr Lammer kLammers[] = {{SpotOn, "ON"}, {SpotOff, "OFF"}, {SpotBuy, "BUY"}};

struct DiscColors {
  QColor body;
  QColor ink;
};
DiscColors ColorsOf(Button button) {
  if (button == Button::On) return {kIvory, kInk};
  if (button == Button::Off) return {kInk, kIvory};
  return {kYellow, kInk};
}

void PaintDisc(QPainter& painter, Lettering& letters, const DiscColors& colors, const char* text,
               QPointF middle, double radius) {
  painter.save();
  painter.setPen(Qt::NoPen);
  for (const double spread : {0.2, 1.0, 1.8}) {
    painter.setBrush(QColor(0, 0, 0, 45));
    painter.drawEllipse(middle + QPointF(0.8, 1.5), radius + spread, radius + spread);
  }
  QLinearGradient light(middle - QPointF(0, radius), middle + QPointF(0, radius));
  light.setColorAt(0, Blend(colors.body, Qt::white, 0.3));
  light.setColorAt(1, Blend(colors.body, Qt::black, 0.2));
  painter.setBrush(light);
  painter.setPen(QPen(Blend(colors.body, colors.ink, 0.45), 0.07 * radius));
  painter.drawEllipse(middle, radius, radius);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Blend(colors.body, colors.ink, 0.35), 0.06 * radius));
  if (radius > 8) painter.drawEllipse(middle, 0.82 * radius, 0.82 * radius);
  const QSizeF size(1.36 * radius, 0.62 * radius);
  const QRectF box(middle - QPointF(size.width() / 2, size.height() / 2), size);
  painter.fillPath(letters.Fitted(QString::fromLatin1(text), Face::Sans, box, 0.8), colors.ink);
  painter.restore();
}

QPointF MiddleOf(int spot) {
  for (const Region& region : TableRegions())
    if (region.spot == spot) return OutlineOf(region).boundingRect().center();
  return {};
}

}  // namespace

void PaintPuck(QPainter& painter, Lettering& letters, int point) {
  const PicturePoint at = PuckAnchor(point);
  const bool isOn = IsBoxNumber(point);
  PaintDisc(painter, letters, ColorsOf(isOn ? Button::On : Button::Off), isOn ? "ON" : "OFF",
            QPointF(at.x, at.y), kPuckRadius);
}

void PaintLammers(QPainter& painter, Lettering& letters, int clickMode) {
  for (int mode = 1; mode <= 3; ++mode) {
    const Lammer& lammer = kLammers[mode - 1];
    const QPointF middle = MiddleOf(lammer.spot);
    if (mode == clickMode) {
      QRadialGradient glow(middle, 20);
      glow.setColorAt(0.6, QColor(255, 221, 85, 230));
      glow.setColorAt(1, QColor(255, 221, 85, 0));
      painter.setPen(Qt::NoPen);
      painter.setBrush(glow);
      painter.drawEllipse(middle, 20, 20);
    }
    PaintDisc(painter, letters, ColorsOf(static_cast<Button>(mode - 1)), lammer.text, middle, 12);
  }
}

void PaintButton(QPainter& painter, Lettering& letters, Button button, QPointF middle) {
  const char* const texts[] = {"ON", "OFF", "BUY"};
  PaintDisc(painter, letters, ColorsOf(button), texts[static_cast<int>(button)], middle, kButtonRadius);
}

void PaintDiceFile(QPainter& painter, const GameTables& g, Lettering& letters) {
  const bool records = g.DiceFileMode == DiceFileRecording;
  if (!records && g.DiceFileMode != DiceFilePlayback) return;
  const QRectF rect = RectOf(kDiceFileRect);
  QPainterPath plate;
  plate.addRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  painter.fillPath(plate, QColor(20, 18, 16, 235));
  painter.strokePath(plate, QPen(records ? QColor(0xE8, 0x3A, 0x3A) : QColor(0x52, 0xC0, 0x6A), 1));
  const QPointF sign(rect.x() + 9, rect.y() + 8);
  QPainterPath shape;
  if (records) {
    shape.addEllipse(sign, 3.4, 3.4);
  } else {
    shape.addPolygon(QPolygonF({sign + QPointF(-3, -3.6), sign + QPointF(4, 0), sign + QPointF(-3, 3.6)}));
  }
  painter.fillPath(shape, records ? QColor(0xE8, 0x3A, 0x3A) : QColor(0x52, 0xC0, 0x6A));
  painter.fillPath(letters.Amount(records ? "REC" : "PLAY", rect.topLeft() + QPointF(30, 8), 6.5, 30),
                   kIvory);
  const QString next = QString::number(g.DiceFileRecord);
  painter.fillPath(letters.Amount("#" + next, rect.topLeft() + QPointF(25.5, 18.5), 6.5, 45), kGold);
}

void PaintCursor(QPainter& painter, const GameTables& g, int spot) {
  QPainterPath ring = SpotOutline(g, spot);
  if (ring.isEmpty()) return;
  // Place and Buy share a box: a second ring is around the place of the chips.
  if (IsBuy(spot)) {
    const PicturePoint at = *AnchorOf(g, spot);
    ring.addEllipse(QPointF(at.x + 26, at.y), 11.5, 11.5);
  }
  const auto pen = [](const QColor& color, double width) {
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  };
  // Yellow between black, and a shine within: seen on every felt and beside lines of every colour.
  painter.fillPath(ring, QColor(255, 225, 90, 38));
  painter.strokePath(ring, pen(QColor(0, 0, 0, 225), 4.4));
  painter.strokePath(ring, pen(QColor(0xFF, 0xC4, 0x18), 2.2));
}

Money HiddenBets(const GameTables& g) {
  Money sum;
  for (BetId bet = 1; bet <= kBetCount; ++bet)
    if (!IsOnView(g, bet)) sum += g.BetAmount[static_cast<std::size_t>(bet)];
  return sum;
}

void PaintHiddenBets(QPainter& painter, const GameTables& g, Lettering& letters) {
  const Money sum = HiddenBets(g);
  if (sum == Money()) return;
  const QRectF plate(482, 188.5, 14, 37);  // below the amount of a bought 10
  QPainterPath path;
  path.addRoundedRect(plate, 3, 3);
  painter.fillPath(path, QColor(16, 12, 8, 225));
  painter.strokePath(path, QPen(kGold, 0.8));
  QTransform upright;
  upright.translate(plate.center().x(), plate.center().y());
  upright.rotate(-90);
  const QString text = QString::fromStdString(FormatMoney(sum, "$"));
  painter.fillPath(upright.map(letters.Amount(text, {0, 0}, 7.2, plate.height() - 4)), kGold);
}

void AmountPlates::Add(Money amount, QPointF middle, double widest) {
  const bool fits = amount <= kLongest && amount >= -kLongest;
  const QString text =
      QString::fromStdString(fits || widest > kWidePlate ? FormatMoney(amount) : ShortAmount(amount));
  const QPainterPath letters = letters_.Amount(text, QPointF(), kFigureHeight, widest - 4);
  const double half = letters.boundingRect().width() / 2 + 2.8;
  QRectF rect(-half, -kPlateHeight / 2, 2 * half, kPlateHeight);
  middle.setX(std::clamp(middle.x(), 1 - rect.left(), kPictureWidth - 1 - rect.right()));
  rect.translate(middle);
  const auto meets = [&rect](const Plate& other) { return other.rect.intersects(rect); };
  for (auto taken = std::ranges::find_if(plates_, meets); taken != plates_.end();
       taken = std::ranges::find_if(plates_, meets))
    rect.moveTop(taken->rect.bottom() + 0.4);
  plates_.push_back({rect, letters.translated(rect.center()), amount < Money()});
}

void AmountPlates::Paint(QPainter& painter) {
  for (const Plate& plate : plates_) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(12, 10, 8, 215));
    painter.drawRoundedRect(plate.rect, kPlateHeight / 2, kPlateHeight / 2);
    painter.fillPath(plate.letters, plate.isNegative ? QColor(0xFF, 0x7A, 0x6A) : QColor(0xFF, 0xF4, 0xC8));
  }
}

}  // namespace rollwick
