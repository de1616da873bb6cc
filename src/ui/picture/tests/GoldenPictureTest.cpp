// Whole pictures of the table against those in tests/data/pictures.
#include <gtest/gtest.h>

#include <functional>

#include "support/GoldenPicture.h"
#include "ui/picture/tests/PictureTestTable.h"

namespace rollwick {
namespace {

TEST(GoldenPictures, Tables) {
  const struct Row {
    const char* name;
    std::function<void(PaintedTable&)> setUp;
    double scale;
    double pixelRatio;
    QRect part;  // device pixels; none: all of it
  } rows[] = {
      {"empty", [](PaintedTable&) {}, 1, 1, {}},
      {"busy", MakeBusy, 1, 1, {}},
      {"busy-small-window", MakeBusy, 0.75, 1, {}},
      {"busy-at-200-percent", MakeBusy, 1, 2, {330, 60, 700, 420}},
      {"alternate-panel",
       [](PaintedTable& table) {
         MakeBusy(table);
         table.g.DisplayHopBets = true;
       },
       1,
       1,
       {440, 90, 328, 350}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    PaintedTable table;
    row.setUp(table);
    const QImage shot = table.Shot(row.scale, row.pixelRatio);
    ExpectLikeGolden(row.name, row.part.isEmpty() ? shot : shot.copy(row.part));
  }
}

TEST(GoldenPictures, Schemes) {
  for (const NamedScheme& scheme : kSchemes) {
    SCOPED_TRACE(scheme.name);
    PaintedTable table;
    table.g.TableColors = scheme.colors;
    table.g.TableTexture = scheme.texture;
    ExpectLikeGolden(scheme.name, table.Shot(0.5));
  }
}

// The comparison would notice one chip or button too few.
TEST(GoldenPictures, AMissingButtonIsNoticed) {
  PaintedTable table;
  MakeBusy(table);
  const QImage with = Coarse(table.Shot());
  SetBetWorking(table.g, Bet::Hard8, On);
  EXPECT_GT(Compare(with, Coarse(table.Shot())).strange, kMostStrangePixels);
}

}  // namespace
}  // namespace rollwick
