#include "ui/picture/ToolStrip.h"

#include <QPainterPath>

#include "base/FormatNumber.h"
#include "layout/Regions.h"
#include "ui/picture/Chips.h"
#include "ui/picture/Lines.h"
#include "ui/picture/Rail.h"
#include "ui/picture/Scheme.h"

namespace rollwick {
namespace {

const QColor kLeather(0x24, 0x1C, 0x18);
const QColor kIvory(0xF4, 0xEC, 0xD8);
const QColor kRollRed(0xA8, 0x1C, 0x22);
const QColor kStopAmber(0xC9, 0x7A, 0x12);
constexpr double kToolChipRadius = 16;
constexpr int kRemoveMode = 4;  // the ClickMode of TAKE

QRectF RectOfTool(Tool tool) {
  for (const ToolRegion& region : kTools)
    if (region.tool == tool) return RectOf(region.rect);
  return {};
}

// The tool of a denomination 0..4, and the reverse.
Tool ToolOfChip(int chip) {
  return static_cast<Tool>(static_cast<int>(Tool::Chip95) - chip);
}

QPainterPath Rounded(const QRectF& rect, double corner) {
  QPainterPath path;
  path.addRoundedRect(rect, corner, corner);
  return path;
}

// A key that stands out of the strip; `lit` while its mode is on, lighter under the pointer.
void PaintKey(QPainter& painter, Lettering& letters, const QRectF& rect, const QString& caption, QColor color,
              bool lit, bool hover) {
  if (lit) color = kBrass;
  if (hover) color = Blend(color, Qt::white, 0.18);
  const QPainterPath key = Rounded(rect.adjusted(1, 1, -1, -1.5), 4);
  painter.fillPath(key.translated(0, 1.5), QColor(0, 0, 0, 140));
  QLinearGradient light(rect.topLeft(), rect.bottomLeft());
  light.setColorAt(0, Blend(color, Qt::white, 0.28));
  light.setColorAt(0.5, color);
  light.setColorAt(1, Blend(color, Qt::black, 0.3));
  painter.fillPath(key, light);
  painter.strokePath(key, QPen(lit ? kIvory : Blend(color, Qt::black, 0.55), 0.8));
  const QRectF box(rect.x() + 4, rect.center().y() - 0.2 * rect.height(), rect.width() - 8,
                   0.38 * rect.height());
  painter.fillPath(letters.Fitted(caption, Face::Sans, box, 0.85), lit ? QColor(0x2A, 0x16, 0x04) : kIvory);
}

QString AmountText(const GameTables& g, int chip) {
  const Money value = g.BetAmount[static_cast<std::size_t>(SlotChipDenom + chip)];
  return QString::fromStdString(FormatMoney(value, "$"));
}

void PaintCaption(QPainter& painter, Lettering& letters, const QString& caption, const QRectF& box) {
  painter.fillPath(letters.Fitted(caption, Face::Sans, box), kBrass);
}

void PaintFrameOfChip(QPainter& painter, const QRectF& row, QColor color, double width) {
  painter.strokePath(Rounded(row.adjusted(1.5, 1, -1.5, -1), 6), QPen(color, width));
}

}  // namespace

void PaintToolStrip(QPainter& painter, const GameTables& g, Lettering& letters) {
  QPainterPath strip;
  for (const Region& region : TableRegions())
    if (region.spot == SpotTools) strip.addRect(RectOf(region.rect));
  strip.addRect(QRectF(602, 0, 2, 96));
  strip.addRect(QRectF(602, 378, 2, 62));
  strip = strip.simplified();
  painter.save();
  painter.setClipPath(strip);
  QLinearGradient light(604, 0, 768, 0);
  light.setColorAt(0, Blend(kLeather, Qt::white, 0.07));
  light.setColorAt(1, Blend(kLeather, Qt::black, 0.25));
  painter.fillPath(strip, light);
  painter.strokePath(strip, QPen(QColor(0, 0, 0, 130), 5));
  painter.restore();
  painter.strokePath(strip, QPen(Blend(kBrass, Qt::black, 0.35), 0.9));

  PaintRecess(painter, RectOfTool(Tool::Dice).adjusted(1, 1, -1, -1), 8, QColor(0x4A, 0x12, 0x16));
  PaintCaption(painter, letters, "CHIPS", {676, 103.5, 59, 8.5});
  PaintCaption(painter, letters, "TOOLS", {650, 341.5, 44, 8});
  for (int chip = 0; chip < kChipCount; ++chip) {
    const QRectF row = RectOfTool(ToolOfChip(chip));
    PaintRecess(painter, row.adjusted(1.5, 1, -1.5, -1), 6, Blend(kLeather, Qt::black, 0.35));
    PaintChip(painter, g, letters, chip, QPointF(row.x() + 24, row.center().y() - 1), kToolChipRadius);
  }
  PaintRecess(painter, RectOfTool(Tool::Selected).adjusted(1, 1, -1, -1), 8,
              Blend(kLeather, Qt::black, 0.35));
}

void PaintToolStates(QPainter& painter, const GameTables& g, Lettering& letters, const TableView& view) {
  const auto key = [&](Tool tool, const char* caption, const QColor& color, bool lit) {
    PaintKey(painter, letters, RectOfTool(tool), QString::fromLatin1(caption), color, lit,
             view.hoverTool == tool);
  };
  const QColor plain(0x4E, 0x3E, 0x34);
  key(Tool::Roll, view.isRolling ? "STOP" : "ROLL DICE", view.isRolling ? kStopAmber : kRollRed, false);
  key(Tool::Remove, "TAKE", plain, view.clickMode == kRemoveMode);
  key(Tool::Down, "DOWN", plain, false);
  key(Tool::KeyIn, "TYPE", plain, g.KeyInBetAmounts);
  const QColor faint(kBrass.red(), kBrass.green(), kBrass.blue(), 130);
  if (view.hoverTool == Tool::Dice) PaintFrameOfChip(painter, RectOfTool(Tool::Dice), faint, 1.4);
  for (int chip = 0; chip < kChipCount; ++chip) {
    const QRectF row = RectOfTool(ToolOfChip(chip));
    const bool selected = chip == g.SelectedChip;
    const QRectF box(row.x() + 47, row.center().y() - (selected ? 6.5 : 5.5), 66, selected ? 13 : 11);
    const QColor ink = selected ? kIvory : Blend(kLeather, kIvory, 0.62);
    painter.fillPath(letters.Fitted(AmountText(g, chip), Face::Sans, box), ink);
    if (selected) PaintFrameOfChip(painter, row, kBrass, 2);
    if (!selected && view.hoverTool == ToolOfChip(chip)) PaintFrameOfChip(painter, row, faint, 1.4);
  }
  const QRectF box = RectOfTool(Tool::Selected);
  PaintChip(painter, g, letters, g.SelectedChip, QPointF(box.x() + 32, box.center().y() - 1.5), 21);
  PaintCaption(painter, letters, "CHIP IN HAND", {box.x() + 64, box.y() + 9, 82, 7});
  painter.fillPath(
      letters.Fitted(AmountText(g, g.SelectedChip), Face::Sans, {box.x() + 62, box.y() + 22, 86, 18}),
      kIvory);
  if (view.hoverTool == Tool::Selected) PaintFrameOfChip(painter, box, faint, 1.4);
}

}  // namespace rollwick
