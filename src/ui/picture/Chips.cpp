#include "ui/picture/Chips.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "base/FormatNumber.h"
#include "ui/picture/Lines.h"
#include "ui/picture/Scheme.h"
#include "ui/picture/TablePicture.h"

namespace rollwick {
namespace {

constexpr int kMostInStack = 7;
constexpr double kStackStep = 1.7;   // a chip lies so much higher in the picture than the one below it
constexpr double kSpriteReach = 14;  // of a chip with its shadow, from its middle
constexpr int kEdgeSpots = 6;
constexpr double kEdgeSpotDegrees = 28;

// The house's colours, the lowest denomination first.
struct ChipColors {
  QColor body;
  QColor spots;
  QColor figure;
};
const ChipColors kColors[kChipCount] = {
    {QColor(0xE4, 0xE2, 0xDA), QColor(0x2C, 0x5C, 0xA8), QColor(0x1C, 0x35, 0x60)},
    {QColor(0xBE, 0x1E, 0x2A), QColor(0xF6, 0xF1, 0xE4), QColor(0x86, 0x0F, 0x18)},
    {QColor(0x16, 0x7E, 0x45), QColor(0xF6, 0xF1, 0xE4), QColor(0x0A, 0x50, 0x2A)},
    {QColor(0x25, 0x25, 0x2A), QColor(0xF0, 0xEC, 0xE0), QColor(0x10, 0x10, 0x12)},
    {QColor(0x63, 0x2C, 0x90), QColor(0xF2, 0xC4, 0x4C), QColor(0x45, 0x1C, 0x68)},
};
const QColor kInlay(0xFA, 0xF6, 0xEA);

QPainterPath EdgeSpots(QPointF middle, double inner, double outer) {
  QPainterPath spots;
  for (int spot = 0; spot < kEdgeSpots; ++spot) {
    const double from = 90 + 360.0 / kEdgeSpots * spot - kEdgeSpotDegrees / 2;
    QPainterPath part;
    part.arcMoveTo(Around(middle, outer), from);
    part.arcTo(Around(middle, outer), from, kEdgeSpotDegrees);
    part.arcTo(Around(middle, inner), from + kEdgeSpotDegrees, -kEdgeSpotDegrees);
    part.closeSubpath();
    spots.addPath(part);
  }
  return spots;
}

void PaintBody(QPainter& painter, const ChipColors& colors, QPointF middle, double radius) {
  // The thickness shows below the face.
  const QPointF below(middle.x(), middle.y() + 0.15 * radius);
  painter.setPen(QPen(Blend(colors.body, Qt::black, 0.6), 0.045 * radius));
  painter.setBrush(Blend(colors.body, Qt::black, 0.2));
  painter.drawEllipse(below, radius, radius);
  painter.fillPath(EdgeSpots(below, 0.8 * radius, 0.97 * radius), Blend(colors.spots, Qt::black, 0.18));
  QLinearGradient light(middle - QPointF(radius, radius), middle + QPointF(radius, radius));
  light.setColorAt(0, Blend(colors.body, Qt::white, 0.22));
  light.setColorAt(0.6, colors.body);
  light.setColorAt(1, Blend(colors.body, Qt::black, 0.18));
  painter.setBrush(light);
  painter.drawEllipse(middle, radius, radius);
  painter.fillPath(EdgeSpots(middle, 0.77 * radius, 0.975 * radius), colors.spots);
}

void PaintInlay(QPainter& painter, const ChipColors& colors, QPointF middle, double radius) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Blend(colors.body, Qt::white, 0.5), 0.05 * radius));
  painter.drawEllipse(middle, 0.745 * radius, 0.745 * radius);
  QRadialGradient paper(middle - QPointF(0.2, 0.2) * radius, 0.9 * radius);
  paper.setColorAt(0, kInlay);
  paper.setColorAt(1, Blend(kInlay, colors.body, 0.22));
  painter.setBrush(paper);
  painter.setPen(QPen(Blend(colors.body, Qt::black, 0.3), 0.06 * radius));
  painter.drawEllipse(middle, 0.66 * radius, 0.66 * radius);
}

void PaintShadow(QPainter& painter, QPointF chip) {
  const QPointF middle = chip + QPointF(1, 2.2);
  const double reach = kChipRadius + 2;
  QRadialGradient shadow(middle, reach);
  shadow.setColorAt(0.7, QColor(0, 0, 0, 130));
  shadow.setColorAt(1, Qt::transparent);
  painter.setPen(Qt::NoPen);
  painter.setBrush(shadow);
  painter.drawEllipse(middle, reach, reach);
}

void PaintFigure(QPainter& painter, Lettering& letters, const ChipFigure& figure, const QColor& ink,
                 QPointF middle, double radius) {
  const QString text = QString::fromStdString(figure.figure);
  const double high = (text.size() <= 2 ? 0.64 : 0.54) * radius;
  const double wide = 1.12 * radius;
  const QRectF box(middle.x() - wide / 2, middle.y() - high / 2, wide, high);
  if (!figure.hasHundreds) {
    painter.fillPath(letters.Fitted(text, Face::Sans, box, 0.6), ink);
    return;
  }
  const double number = text.size() == 2 ? 0.6 : 0.64;
  painter.fillPath(letters.Fitted(text, Face::Sans, box.adjusted(0, 0, -wide * (1 - number), 0), 0.6), ink);
  const QRectF hundreds(box.x() + wide * (number + 0.05), box.y(), wide * (0.95 - number), 0.6 * high);
  painter.fillPath(letters.Fitted("00", Face::Sans, hundreds, 0.6), ink);
}

}  // namespace

std::string ShortAmount(Money amount) {
  constexpr Money kMost = Money::FromUnits(std::numeric_limits<std::int64_t>::max());
  if (amount < Money()) return "-" + ShortAmount(-std::max(amount, -kMost));
  constexpr struct {
    std::int64_t dollars;
    char letter;
  } kSteps[] = {{1'000'000'000'000, 'T'}, {1'000'000'000, 'B'}, {1'000'000, 'M'}, {1'000, 'K'}};
  for (const auto& [dollars, letter] : kSteps) {
    if (amount < Dollars(dollars)) continue;
    // Cut, not rounded: nobody is shown more than there is.
    const Money tenths = FloorToChips(Money::FromUnits(amount.Units() / dollars), Money::FromUnits(1000));
    return PlainText(tenths < Dollars(100) ? tenths : WholeDollarsBelow(tenths)) + letter;
  }
  return PlainText(amount);
}

ChipFigure FigureOf(const GameTables& g, int chip) {
  const Money value = g.BetAmount[static_cast<std::size_t>(SlotChipDenom + chip)];
  if (value >= Dollars(100'000)) return {ShortAmount(value)};
  if (value >= Dollars(1000) && IsMultipleOf(value, Dollars(100)))
    return {PlainText(Quotient(value, Dollars(100))), true};
  if (value < Dollars(1) && g.UseCentsSymbol) return {PlainText(value.Times(100)) + "¢"};
  return {FormatNumber(value, value.IsWhole() ? "0" : "#.00##")};
}

std::array<int, kChipCount> ChipsFor(const GameTables& g, Money amount, int most) {
  std::array<std::int64_t, kChipCount> counts{};
  if (amount <= Money() || most <= 0) return {};
  Money rest = amount;
  for (int chip = kChipCount - 1; chip >= 0; --chip) {
    const Money value = g.BetAmount[static_cast<std::size_t>(SlotChipDenom + chip)];
    if (value <= Money()) continue;
    counts[static_cast<std::size_t>(chip)] = rest.Units() / value.Units();
    rest = Money::FromUnits(rest.Units() % value.Units());
  }
  if (std::ranges::all_of(counts, [](std::int64_t count) { return count == 0; })) counts[0] = 1;
  for (std::int64_t& count : counts) count = std::min<std::int64_t>(count, most);
  std::array<int, kChipCount> drawn{};
  while (std::accumulate(counts.begin(), counts.end(), std::int64_t{0}) > std::max(most, kChipCount))
    --*std::ranges::max_element(counts);
  std::ranges::transform(counts, drawn.begin(), [](std::int64_t count) { return static_cast<int>(count); });
  return drawn;
}

void PaintChip(QPainter& painter, const GameTables& g, Lettering& letters, int chip, QPointF middle,
               double radius) {
  if (chip < 0 || chip >= kChipCount) return;
  const ChipColors& colors = kColors[chip];
  painter.save();
  PaintBody(painter, colors, middle, radius);
  PaintInlay(painter, colors, middle, radius);
  PaintFigure(painter, letters, FigureOf(g, chip), colors.figure, middle, radius);
  painter.restore();
}

void PaintChip(QPainter& painter, const Game& g, int chip, QPointF middle, double radius) {
  Lettering letters;
  PaintChip(painter, g, letters, chip, middle, radius);
}

void ChipSprites::Rebuild(const GameTables& g, Lettering& letters, double deviceScale) {
  const int pixels = static_cast<int>(std::ceil(2 * kSpriteReach * deviceScale));
  const QPointF middle(kSpriteReach, kSpriteReach);
  const auto painted = [&](const auto& paint) {
    QPixmap sprite(pixels, pixels);
    sprite.fill(Qt::transparent);
    QPainter painter(&sprite);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(deviceScale, deviceScale);
    paint(painter);
    painter.end();
    sprite.setDevicePixelRatio(deviceScale);
    return sprite;
  };
  shadow_ = painted([&](QPainter& painter) { PaintShadow(painter, middle); });
  for (int chip = 0; chip < kChipCount; ++chip) {
    chips_[static_cast<std::size_t>(chip)] =
        painted([&](QPainter& painter) { PaintChip(painter, g, letters, chip, middle, kChipRadius); });
  }
}

void ChipSprites::DrawSprite(QPainter& painter, const QPixmap& sprite, QPointF middle) const {
  // On whole device pixels, so that the kept pixels stay sharp.
  const QTransform& toDevice = painter.deviceTransform();
  const QPointF corner = toDevice.map(middle - QPointF(kSpriteReach, kSpriteReach));
  painter.drawPixmap(toDevice.inverted().map(QPointF(std::round(corner.x()), std::round(corner.y()))),
                     sprite);
}

void ChipSprites::Draw(QPainter& painter, int chip, QPointF middle) const {
  if (chip < 0 || chip >= kChipCount) return;
  DrawSprite(painter, shadow_, middle);
  DrawSprite(painter, chips_[static_cast<std::size_t>(chip)], middle);
}

QPointF ChipSprites::DrawStack(QPainter& painter, const GameTables& g, Money amount, QPointF bottom) const {
  const std::array<int, kChipCount> chips = ChipsFor(g, amount, kMostInStack);
  const int count = std::accumulate(chips.begin(), chips.end(), 0);
  if (count == 0) return bottom;
  DrawSprite(painter, shadow_, bottom + QPointF(0.2, 0.1) * count);
  QPointF next = bottom;
  for (int chip = kChipCount - 1; chip >= 0; --chip) {
    for (int left = chips[static_cast<std::size_t>(chip)]; left > 0; --left) {
      DrawSprite(painter, chips_[static_cast<std::size_t>(chip)], next);
      next -= QPointF(0, kStackStep);
    }
  }
  return next + QPointF(0, kStackStep);
}

}  // namespace rollwick
