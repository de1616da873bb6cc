// What a change on the table changes in the picture: only its own place, and the kept layers only if it is
// printed on them.
#include "ui/picture/TablePicture.h"

#include <gtest/gtest.h>

#include <functional>

#include "ui/picture/tests/PictureTestTable.h"

namespace rollwick {
namespace {

// The smallest rectangle around all pixels that differ.
QRect ChangedPart(const QImage& before, const QImage& after) {
  QRect part;
  for (int y = 0; y < before.height(); ++y)
    for (int x = 0; x < before.width(); ++x)
      if (before.pixel(x, y) != after.pixel(x, y)) part |= QRect(x, y, 1, 1);
  return part;
}

QRect AroundPoint(int x, int y, int reach) {
  return QRect(x - reach, y - reach, 2 * reach, 2 * reach);
}

std::string Text(const QRect& rect) {
  return std::to_string(rect.x()) + "," + std::to_string(rect.y()) + " " + std::to_string(rect.width()) +
         "x" + std::to_string(rect.height());
}

TEST(TablePicture, AChangeShowsInItsPlace) {
  const struct Row {
    const char* name;
    bool isKept;  // on the layers that are kept
    QRect place;
    std::function<void(PaintedTable&)> change;
  } rows[] = {
      {"Hard 6 pays 10 to 1",
       true,
       {575, 186, 60, 37},
       [](auto& t) { t.g.PayoffTable[Bet::Hard6].Ratio = Dollars(10); }},
      {"Seven pays 5 for 1",
       true,
       {512, 107, 123, 38},
       [](auto& t) { t.g.PayoffTable[Bet::Seven].IsToForm = false; }},
      {"Place 9 pays 3 to 2",
       true,
       {393, 153, 52, 24},
       [](auto& t) {
         t.g.PayoffTable[Bet::Place9] = {Dollars(3), true, Dollars(2)};
       }},
      {"Field pays 3 to 1 on 12",
       true,
       {400, 252, 40, 30},
       [](auto& t) { t.g.FieldPayoffTable[21].Ratio = Dollars(3); }},
      {"Field loses on 2",
       true,
       {150, 252, 40, 30},
       [](auto& t) { t.g.FieldPayoffTable[1].Ratio = Dollars(-1); }},
      {"bar 2", true, {102, 127, 315, 208}, [](auto& t) { t.g.Rules.BarNumber = 2; }},
      {"hop bets on view", true, {480, 96, 161, 282}, [](auto& t) { t.g.DisplayHopBets = true; }},
      {"a chip of 20",
       true,
       {646, 204, 119, 40},
       [](auto& t) { t.g.BetAmount[SlotChipDenom + 2] = Dollars(20); }},
      {"dice of another colour", true, {}, [](auto& t) { t.g.TableColors[6] = 0x00FF00; }},
      {"another texture", true, {48, 18, 593, 387}, [](auto& t) { t.g.TableTexture = 4; }},
      {"line odds of a new point", false, AroundPoint(311, 36, 16).united(AroundPoint(149, 36, 16)),
       [](auto& t) {
         t.g.Point = 6;
         SetLineOddsPayoffs(t.g);
       }},
      {"chips on the Pass Line", false, AroundPoint(354, 355, 20),
       [](auto& t) { t.g.BetAmount[Bet::PassLine] = Dollars(7); }},
      {"Come 6 odds lie beside the Come bet", false, AroundPoint(311, 131, 15),
       [](auto& t) { t.g.BetAmount[Bet::Come6Odds] = Dollars(5); }},
      {"a bought 8 lies right of a placed one", false, AroundPoint(377, 163, 17),
       [](auto& t) { t.g.BetAmount[Bet::Buy8] = Dollars(5); }},
      {"a bet of the other panel shows on the switch",
       false,
       {480, 180, 18, 50},
       [](auto& t) { t.g.BetAmount[Bet::Hop22] = Dollars(5); }},
      {"a bet below the lowest chip", false, AroundPoint(354, 297, 15),
       [](auto& t) { t.g.BetAmount[Bet::Field] = Money::FromUnits(1); }},
      {"a Chip-Stack at place 2",
       false,
       {4, 131, 27, 50},
       [](auto& t) { t.g.BetAmount[SlotChipStack + 2] = Dollars(40); }},
      {"a Chip-Stack that owes",
       false,
       {4, 131, 27, 50},
       [](auto& t) { t.g.BetAmount[SlotChipStack + 2] = Dollars(-40); }},
      {"another Chip-Stack at place 3",
       false,
       {4, 80, 24, 47},
       [](auto& t) { t.g.VisibleChipStack[2] = 77; }},
      {"a poorer player",
       false,
       {76, 409, 510, 28},
       [](auto& t) { t.g.BetAmount[SlotBankroll] = Dollars(123); }},
      {"a player in debt",
       false,
       {76, 409, 510, 28},
       [](auto& t) { t.g.BetAmount[SlotBankroll] = Dollars(-123); }},
      {"recording", false, {453, 376, 51, 26}, [](auto& t) { t.g.DiceFileMode = DiceFileRecording; }},
      {"playing back", false, {453, 376, 51, 26}, [](auto& t) { t.g.DiceFileMode = DiceFilePlayback; }},
      {"rolling", false, {608, 70, 156, 22}, [](auto& t) { t.view.isRolling = true; }},
      {"another chip in hand", false, {608, 161, 160, 279}, [](auto& t) { t.g.SelectedChip = 3; }},
      {"calling OFF", false, AroundPoint(555, 71, 21), [](auto& t) { t.view.clickMode = 2; }},
      {"taking down", false, {646, 354, 38, 20}, [](auto& t) { t.view.clickMode = 4; }},
      {"typing amounts", false, {726, 354, 38, 20}, [](auto& t) { t.g.KeyInBetAmounts = true; }},
      {"pointer over a chip", false, {646, 118, 119, 40}, [](auto& t) { t.view.hoverTool = Tool::Chip99; }},
      {"cursor on Come", false, {120, 176, 329, 70}, [](auto& t) { t.view.cursor = Bet::Come; }},
      {"cursor on a stack's place",
       false,
       {1, 26, 31, 54},
       [](auto& t) { t.view.cursor = SlotChipStack + 4; }},
      {"chips in hand", false, AroundPoint(280, 220, 30),
       [](auto& t) {
         t.view.carried = Dollars(30);
         t.view.pointer = {280, 220};
       }},
      {"dice on the felt", false, {608, 4, 156, 62}, [](auto& t) { t.view.dice[0].face = 6; }},
      {"a fallen chip", false, AroundPoint(300, 300, 15),
       [](auto& t) {
         t.view.fallen.push_back({43, 4, 300, 300});
       }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    PaintedTable table;
    table.g.DisplayBetAmounts = false;
    const QImage before = table.Shot();
    const int builds = table.picture.Builds();
    row.change(table);
    const QRect changed = ChangedPart(before, table.Shot());
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_TRUE(row.place.isEmpty() || row.place.contains(changed)) << Text(changed);
    EXPECT_EQ(table.picture.Builds() - builds, row.isKept ? 1 : 0);
  }
}

TEST(TablePicture, HiddenBetsHaveNoChips) {
  PaintedTable table;
  table.g.DisplayHopBets = true;
  const QImage before = table.Shot();
  for (BetId bet = Bet::Hard4; bet <= Bet::Craps; ++bet)
    table.g.BetAmount[static_cast<std::size_t>(bet)] = Dollars(5);
  const QRect changed = ChangedPart(before, table.Shot());
  EXPECT_TRUE(QRect(480, 180, 18, 50).contains(changed)) << Text(changed);
}

TEST(TablePicture, AnotherSizeIsBuiltAnew) {
  PaintedTable table;
  table.Shot(1);
  table.Shot(1, 2);
  table.Shot(2);
  EXPECT_EQ(table.picture.Builds(), 3);
}

TEST(TablePicture, ADenserScreenShowsTheSameAsALargerWindow) {
  PaintedTable table;
  MakeBusy(table);
  const QImage larger = table.Shot(1.5, 1), denser = table.Shot(1, 1.5);
  ASSERT_EQ(larger.size(), denser.size());
  int strange = 0;
  for (int y = 0; y < larger.height(); ++y)
    for (int x = 0; x < larger.width(); ++x)
      strange += std::abs(qGreen(larger.pixel(x, y)) - qGreen(denser.pixel(x, y))) > 8;
  EXPECT_LT(strange, 500);
}

// Amounts beyond anything, on every spot at once.
void MakeAbsurd(PaintedTable& table) {
  Game& g = table.g;
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    table.Put(bet, 9'999'999);
    SetBetWorking(g, bet, bet % 2 ? CalledOn : CalledOff);
  }
  g.BetAmount[SlotBankroll] = Dollars(-9'999'999);
  g.BetAmount[SlotChipStack + 1] = kMaxChipStack;
  g.BetAmount[SlotChipStack + 2] = -kMaxChipStack;
  g.BetAmount[SlotChipDenom] = Money::FromUnits(100);
  g.BetAmount[SlotChipDenom + 4] = Dollars(1'000'000);
  g.UseCentsSymbol = g.DisplayBetAmounts = true;
  g.Point = 4;
  for (PayoffRow& row : g.PayoffTable) row = {kBankLimit, false, Money::FromUnits(12'345)};
  table.view.fallen = {{1, 9, 300, 200}, {1, -1, 300, 200}, {1, 2, 770, 445}};
  table.view.carried = kMaxChipStack;
  table.view.pointer = {767, 439};
  table.view.dice = {DicePose{0, 0, 45, 90, 7}, DicePose{768, 440, -800, 0, -1}};
  table.view.cursor = Bet::Hop55;
}

TEST(TablePicture, NothingIsPaintedOutsideOfIt) {
  for (const bool hops : {false, true}) {
    PaintedTable table;
    MakeAbsurd(table);
    table.g.DisplayHopBets = hops;
    QImage image(1000, 600, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    const PictureFrame frame{37.5, 21.25, 1.2};
    table.picture.Paint(painter, table.g, table.view, frame, 1, 960, 570);
    painter.end();
    const QRect inside =
        QRectF(frame.left, frame.top, 1.2 * kPictureWidth, 1.2 * kPictureHeight).toAlignedRect();
    const QRgb room = image.pixel(0, 0);
    int strange = 0;
    for (int y = 0; y < 600; ++y)
      for (int x = 0; x < 1000; ++x) {
        const bool beyond = x >= 960 || y >= 570;
        if (!inside.contains(x, y)) strange += image.pixel(x, y) != (beyond ? qRgb(255, 0, 255) : room);
      }
    EXPECT_EQ(strange, 0);
  }
}

TEST(TablePicture, StaysInTheClipAndLeavesThePainterAsItWas) {
  PaintedTable table;
  QImage image(kPictureWidth, kPictureHeight, QImage::Format_RGB32);
  image.fill(Qt::magenta);
  QPainter painter(&image);
  painter.setClipRect(100, 100, 50, 50);
  table.picture.Paint(painter, table.g, table.view, {}, 1, kPictureWidth, kPictureHeight);
  EXPECT_EQ(image.pixel(99, 120), qRgb(255, 0, 255));
  EXPECT_EQ(painter.clipBoundingRect(), QRectF(100, 100, 50, 50));
  EXPECT_TRUE(painter.worldTransform().isIdentity());
}

}  // namespace
}  // namespace rollwick
