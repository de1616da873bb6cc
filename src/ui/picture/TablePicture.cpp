#include "ui/picture/TablePicture.h"

#include <QDataStream>
#include <QIODevice>
#include <algorithm>
#include <cmath>

#include "base/FormatNumber.h"
#include "layout/Anchors.h"
#include "ui/picture/DiceArt.h"
#include "ui/picture/Felt.h"
#include "ui/picture/Inscriptions.h"
#include "ui/picture/Lines.h"
#include "ui/picture/Marks.h"
#include "ui/picture/Rail.h"
#include "ui/picture/Scheme.h"
#include "ui/picture/ToolStrip.h"

namespace rollwick {
namespace {

const QColor kRoom(0x14, 0x11, 0x0F);  // around the picture
constexpr double kOddsHeel = 14;       // odds lie to the right of their flat bet
constexpr double kBuyStep = 26;        // and Buy chips of the Place chips
constexpr double kAmountBelow = 9.5;   // the middle of a plate, from that of the lowest chip
constexpr int kMostInRail = 40;
constexpr double kRailStep = 3.2;

// All that the kept layers show. Line odds are left out: they follow the point, and are not printed.
QByteArray StateOfLayers(const Game& g, const PictureFrame& frame, double pixelRatio, double width,
                         double height) {
  QByteArray state;
  QDataStream out(&state, QIODevice::WriteOnly);
  out << frame.left << frame.top << frame.scale << pixelRatio << width << height;
  for (const std::int32_t color : g.TableColors) out << color;
  out << g.TableTexture << g.Rules.BarNumber << g.DisplayHopBets << g.UseCentsSymbol;
  const auto addRow = [&out](const PayoffRow& row) {
    out << qint64{row.Ratio.Units()} << row.IsToForm << qint64{row.Base.Units()};
  };
  for (std::size_t bet = 1; bet <= kBetCount; ++bet)
    if (bet != Bet::PassLineOdds && bet != Bet::DontPassOdds) addRow(g.PayoffTable[bet]);
  for (const PayoffRow& row : g.FieldPayoffTable) addRow(row);
  for (std::size_t chip = 0; chip < kChipCount; ++chip)
    out << qint64{g.BetAmount[SlotChipDenom + chip].Units()};
  return state;
}

void ToUnits(QPainter& painter, const PictureFrame& frame) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(frame.left, frame.top);
  painter.scale(frame.scale, frame.scale);
  painter.setClipRect(QRectF(0, 0, kPictureWidth, kPictureHeight), Qt::IntersectClip);
}

void PaintLayers(QPainter& painter, const Game& g, Lettering& letters, double deviceScale) {
  const Scheme scheme = SchemeOf(g);
  PaintFelt(painter, scheme, deviceScale);
  PaintTableLines(painter, scheme);
  PaintTableFigures(painter, g, scheme);
  PaintPanelFigures(painter, g, scheme);
  for (const Inscription& word : TableInscriptions(g, letters))
    PaintInk(painter, scheme, word.ink, word.letters);
  for (const Inscription& word : PanelInscriptions(g, letters))
    PaintInk(painter, scheme, word.ink, word.letters);
  PaintRail(painter, deviceScale);
  PaintToolStrip(painter, g, letters);
}

// Where the chips of a bet or stack lie.
QPointF ChipPlace(const ScreenTables& g, BetId spot) {
  const auto anchor = AnchorOf(g, spot);
  if (!anchor) return {};
  double right = 0;
  if (IsComeOdds(spot) || IsDontComeOdds(spot)) right = kOddsHeel;
  if (IsBuy(spot)) right = kBuyStep;
  return QPointF(anchor->x + right, anchor->y);
}

void PaintButtonsOf(QPainter& painter, const Game& g, Lettering& letters, BetId bet, QPointF place) {
  if (IsBuy(bet)) PaintButton(painter, letters, Button::Buy, place + QPointF(8, -8));
  const std::int32_t working = g.BetWorking[static_cast<std::size_t>(bet)];
  if (working != CalledOn && working != CalledOff) return;
  // Beside the BUY button there is room on the other side only.
  PaintButton(painter, letters, working == CalledOn ? Button::On : Button::Off,
              place + QPointF(IsBuy(bet) ? -8 : 8, -8));
}

void PaintStackNumbers(QPainter& painter, const Game& g, Lettering& letters) {
  for (int place = 1; place <= kStackPlaces; ++place) {
    const PicturePoint at = PlaceAnchor(place);
    const QString number = QString::number(StackAtPlace(g, place) - SlotChipStack);
    painter.fillPath(letters.Fitted(number, Face::Sans, QRectF(at.x - 9, at.y - 33, 18, 5.5)), kBrass);
  }
}

}  // namespace

void TablePicture::Keep(const Game& g, const PictureFrame& frame, double pixelRatio, double width,
                        double height) {
  QByteArray state = StateOfLayers(g, frame, pixelRatio, width, height);
  if (state == keptFor_) return;
  keptFor_ = std::move(state);
  ++builds_;
  const auto pixels = [pixelRatio](double size) {
    return std::max(1, static_cast<int>(std::ceil(size * pixelRatio)));
  };
  kept_ = QPixmap(pixels(width), pixels(height));
  kept_.setDevicePixelRatio(pixelRatio);
  kept_.fill(kRoom);
  QPainter painter(&kept_);
  ToUnits(painter, frame);
  PaintLayers(painter, g, letters_, frame.scale * pixelRatio);
  chips_.Rebuild(g, letters_, frame.scale * pixelRatio);
}

void TablePicture::Paint(QPainter& painter, const Game& g, const TableView& view, const PictureFrame& frame,
                         double pixelRatio, double width, double height) {
  Keep(g, frame, pixelRatio, width, height);
  painter.save();
  painter.drawPixmap(QPointF(), kept_);
  ToUnits(painter, frame);
  PaintStackNumbers(painter, g, letters_);
  PaintToolStates(painter, g, letters_, view);
  PaintLammers(painter, letters_, view.clickMode);
  PaintPuck(painter, letters_, g.Point);
  PaintDiceFile(painter, g, letters_);
  PaintHiddenBets(painter, g, letters_);
  PaintRailBankroll(painter, g);
  PaintBets(painter, g);
  for (const TableChip& chip : view.fallen) chips_.Draw(painter, chip.Chip, QPointF(chip.X, chip.Y));
  PaintDice(painter, SchemeOf(g), view.dice);
  PaintCursor(painter, g, view.cursor);
  PaintCarried(painter, g, view);
  painter.restore();
}

void TablePicture::PaintBets(QPainter& painter, const Game& g) {
  std::vector<BetId> spots = SpotsOnView(g);
  std::erase_if(spots, [&g](BetId spot) { return g.BetAmount[static_cast<std::size_t>(spot)] == Money(); });
  // From the far side to the near one, so that a stack covers what lies behind it.
  std::ranges::stable_sort(spots, {}, [&g](BetId spot) { return ChipPlace(g, spot).y(); });
  for (const BetId spot : spots)
    chips_.DrawStack(painter, g, g.BetAmount[static_cast<std::size_t>(spot)], ChipPlace(g, spot));
  AmountPlates plates(letters_);
  for (const BetId spot : spots) {
    const QPointF place = ChipPlace(g, spot);
    const Money amount = g.BetAmount[static_cast<std::size_t>(spot)];
    if (IsBet(spot)) PaintButtonsOf(painter, g, letters_, spot, place);
    // Wells show their amounts always, above the chips: there is no room below.
    if (IsChipStack(spot))
      plates.Add(amount, place - QPointF(0, 22), 24);
    else if (g.DisplayBetAmounts)
      plates.Add(amount, place + QPointF(0, kAmountBelow), 48);
  }
  plates.Paint(painter);
}

void TablePicture::PaintRailBankroll(QPainter& painter, const Game& g) {
  const Money available = AvailableBankroll(g);
  const auto chips = ChipsFor(g, available, kMostInRail);
  const auto anchor = *AnchorOf(g, SlotRail);
  double width = 0;
  for (const int count : chips) width += count > 0 ? 2 * kChipRadius + (count - 1) * kRailStep + 4 : 0;
  double x = anchor.x - width / 2;
  for (int chip = kChipCount - 1; chip >= 0; --chip) {
    const int count = chips[static_cast<std::size_t>(chip)];
    for (int drawn = 0; drawn < count; ++drawn)
      chips_.Draw(painter, chip, QPointF(x + kChipRadius + drawn * kRailStep, anchor.y));
    if (count > 0) x += 2 * kChipRadius + (count - 1) * kRailStep + 4;
  }
  const QString text = QString::fromStdString(FormatMoney(Abs(available), available < Money() ? "-$" : "$"));
  const QPainterPath letters = letters_.Amount(text, QPointF(), 11, 150);
  painter.fillPath(letters.translated(x + 4 - letters.boundingRect().left(), anchor.y),
                   available < Money() ? QColor(0xFF, 0x7A, 0x6A) : QColor(0xFF, 0xE9, 0xB0));
}

void TablePicture::PaintCarried(QPainter& painter, const Game& g, const TableView& view) {
  if (view.carried == Money()) return;
  const QPointF at(view.pointer.x, view.pointer.y);
  chips_.DrawStack(painter, g, view.carried, at);
  AmountPlates plate(letters_);
  plate.Add(view.carried, at + QPointF(0, kAmountBelow + 4), 60);
  plate.Paint(painter);
}

}  // namespace rollwick
