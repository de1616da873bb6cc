// What is printed on the felt: inside of its region, legible on every felt, textures without seams.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ui/picture/Felt.h"
#include "ui/picture/Inscriptions.h"
#include "ui/picture/Lines.h"
#include "ui/picture/tests/PictureTestTable.h"

namespace rollwick {
namespace {

constexpr QRect kPanelPlace(509, 98, 129, 277);

// Whether a point lies in a region of the spot. Names of the numbers stand across the rows of their box.
bool IsOnSpot(const ScreenTables& g, int spot, int x, int y) {
  const auto has = [&](std::span<const Region> regions, int wanted) {
    return std::ranges::any_of(
        regions, [&](const Region& region) { return region.spot == wanted && Covers(region, x, y); });
  };
  const std::span<const Region> panel = g.DisplayHopBets ? AlternatePanel() : StandardPanel();
  if (has(TableRegions(), spot) || has(panel, spot)) return true;
  if (!IsDontComeOdds(spot)) return false;
  const bool betweenRows = y == 114 || y == 115;
  return has(TableRegions(), spot + 12) || (betweenRows && IsOnSpot(g, spot, x, 113));
}

void ExpectInside(const ScreenTables& g, const Inscription& print) {
  ASSERT_FALSE(print.letters.isEmpty());
  for (const QPolygonF& outline : print.letters.toSubpathPolygons()) {
    for (const QPointF& point : outline) {
      const int x = static_cast<int>(std::floor(point.x())), y = static_cast<int>(std::floor(point.y()));
      ASSERT_TRUE(IsOnSpot(g, print.spot, x, y)) << print.spot << " at " << x << ", " << y;
    }
  }
}

TEST(Print, LiesInItsRegion) {
  const struct Row {
    const char* name;
    PayoffRow row;
  } rows[] = {
      {"as the house opens", {}},
      {"short", {Dollars(1), true, Dollars(1)}},
      {"long", {Money::FromUnits(99'999'999'999), false, Money::FromUnits(99'999'999)}},
      {"a loss", {Dollars(-1), true, Dollars(1)}},
  };
  Lettering letters;
  for (const Row& row : rows) {
    for (const bool hops : {false, true}) {
      SCOPED_TRACE(row.name + std::string(hops ? ", hop bets" : ""));
      PaintedTable table;
      table.g.DisplayHopBets = hops;
      if (row.row != PayoffRow{} || row.name == std::string("short")) {
        table.g.PayoffTable.fill(row.row);
        table.g.FieldPayoffTable.fill(row.row);
      }
      for (const Inscription& print : TableInscriptions(table.g, letters)) ExpectInside(table.g, print);
      for (const Inscription& print : PanelInscriptions(table.g, letters)) {
        ExpectInside(table.g, print);
        EXPECT_TRUE(QRectF(kPanelPlace).contains(print.letters.boundingRect()));
      }
    }
  }
}

// Else a rest of it would remain under the other panel.
TEST(Print, OfThePanelStaysInItsPlace) {
  for (const bool hops : {false, true}) {
    PaintedTable table;
    table.g.DisplayHopBets = hops;
    QImage image(kPictureWidth, kPictureHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintPanelFigures(painter, table.g, SchemeOf(table.g));
    painter.end();
    int outside = 0;
    for (int y = 0; y < kPictureHeight; ++y)
      for (int x = 0; x < kPictureWidth; ++x)
        outside += !kPanelPlace.contains(x, y) && image.pixel(x, y) != 0;
    EXPECT_EQ(outside, 0);
  }
}

TEST(Print, FollowsTheFormOfThePayoff) {
  EXPECT_EQ(PrintedRatio({Dollars(9), true, Dollars(1)}), "9 TO 1");
  EXPECT_EQ(PrintedRatio({Dollars(9), false, Dollars(1)}), "10 FOR 1");
}

// The outline of a spot has the pixels that answer to it, but for edges, which are smooth.
TEST(SpotOutline, CoversItsRegions) {
  PaintedTable table;
  const auto covers = [&](int spot, int x, int y) {
    const auto has = [&](const Region& region) { return region.spot == spot && Covers(region, x, y); };
    return std::ranges::any_of(TableRegions(), has) || std::ranges::any_of(StandardPanel(), has);
  };
  std::vector<Region> regions(TableRegions().begin(), TableRegions().end());
  regions.insert(regions.end(), StandardPanel().begin(), StandardPanel().end());
  for (const Region& region : regions) {
    if (region.spot == SlotRail || region.spot == SpotTools) continue;
    SCOPED_TRACE("spot " + std::to_string(region.spot));
    QImage image(kPictureWidth, kPictureHeight, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter(&image).fillPath(SpotOutline(table.g, region.spot), Qt::white);
    int wrong = 0;
    for (int y = 1; y < kPictureHeight - 1; ++y)
      for (int x = 1; x < kPictureWidth - 1; ++x) {
        const bool outlined = qRed(image.pixel(x, y)) != 0;
        bool isNear = false;
        for (int place = 0; place < 9 && !isNear; ++place)
          isNear = covers(region.spot, x + place % 3 - 1, y + place / 3 - 1) == outlined;
        wrong += !isNear;
      }
    EXPECT_EQ(wrong, 0);
  }
}

// Odds and bought numbers too, which have no region of their own.
TEST(SpotOutline, IsAroundEveryStopOfTheKeyboard) {
  for (const bool hops : {false, true}) {
    ScreenTables g;
    g.DisplayHopBets = hops;
    for (const BetId spot : SpotsOnView(g)) {
      const PicturePoint at = *HotPointOf(g, spot);
      EXPECT_TRUE(SpotOutline(g, spot).contains(QPointF(at.x + 0.5, at.y + 0.5))) << spot;
    }
  }
}

double BestContrast(const QImage& image, const QColor& felt) {
  double best = 1;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) best = std::max(best, Contrast(QColor(image.pixel(x, y)), felt));
  return best;
}

TEST(Scheme, EveryInkIsLegible) {
  Lettering letters;
  for (const NamedScheme& named : kSchemes) {
    PaintedTable table;
    table.g.TableColors = named.colors;
    const Scheme scheme = SchemeOf(table.g);
    for (const TableColor ink : {PassInk, DontInk, PlaceInk, FieldInk}) {
      for (const double height : {6.0, 20.0}) {
        SCOPED_TRACE(std::string(named.name) + ", ink " + std::to_string(ink) + ", " +
                     std::to_string(height));
        QImage image(200, 40, QImage::Format_RGB32);
        image.fill(scheme[FeltColor]);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        PaintInk(painter, scheme, ink, letters.Fitted("COME", Face::Serif, {10, 5, 180, height}));
        painter.end();
        EXPECT_GT(BestContrast(image, scheme[FeltColor]), 2.2);
      }
    }
  }
}

TEST(Scheme, ReadsColorsBlueFirst) {
  PaintedTable table;
  EXPECT_EQ(SchemeOf(table.g)[FeltColor], QColor(27, 120, 74));
}

TEST(Felt, TextureIsOneOfNine) {
  for (const auto& [value, texture] : {std::pair{-3.0f, 0},
                                       {0.4f, 0},
                                       {3.6f, 4},
                                       {99.0f, 8},
                                       {std::numeric_limits<float>::quiet_NaN(), 0}}) {
    ScreenTables g;
    g.TableTexture = value;
    EXPECT_EQ(SchemeOf(g).texture, texture) << value;
  }
}

// Over the seam the cloth changes no more than elsewhere, and no two textures are the same.
TEST(Felt, TilesContinueThemselves) {
  std::vector<QImage> tiles;
  for (int texture = 0; texture < 9; ++texture) {
    SCOPED_TRACE(texture);
    const int size = 56;
    const QImage tile = FeltTile(texture, QColor(100, 100, 100), size);
    const auto change = [&](int from, int to) {
      int sum = 0;
      for (int at = 0; at < size; ++at) {
        sum += std::abs(qRed(tile.pixel(from, at)) - qRed(tile.pixel(to, at)));
        sum += std::abs(qRed(tile.pixel(at, from)) - qRed(tile.pixel(at, to)));
      }
      return sum;
    };
    int most = 0;
    for (int at = 0; at + 1 < size; ++at) most = std::max(most, change(at, at + 1));
    EXPECT_LE(change(size - 1, 0), most * 5 / 4);
    EXPECT_EQ(std::ranges::count(tiles, tile), 0);
    tiles.push_back(tile);
  }
}

}  // namespace
}  // namespace rollwick
