// What chips an amount is made of, and what stands on them.
#include "ui/picture/Chips.h"

#include <gtest/gtest.h>

#include <numeric>

#include "ui/picture/Marks.h"
#include "ui/picture/tests/PictureTestTable.h"

namespace rollwick {
namespace {

TEST(Chips, FigureOnAChip) {
  const struct Row {
    const char* name;
    std::int64_t units;
    bool cents;
    const char* figure;
    bool hundreds;
  } rows[] = {
      {"a dollar", 10'000, false, "1", false},
      {"2.50", 25'000, false, "2.50", false},
      {"a quarter", 2'500, false, ".25", false},
      {"a quarter with the sign", 2'500, true, "25¢", false},
      {"a cent", 100, true, "1¢", false},
      {"half a cent", 50, true, "0.5¢", false},
      {"the sign is for less than a dollar", 10'000, true, "1", false},
      {"500", 5'000'000, false, "500", false},
      {"1,000", 10'000'000, false, "10", true},
      {"25,000", 250'000'000, false, "250", true},
      {"1,250 is no number of hundreds", 12'500'000, false, "1250", false},
      {"100,000", 1'000'000'000, false, "100K", false},
      {"a million", 10'000'000'000, false, "1M", false},
      {"1,250,000 cut", 12'500'000'000, false, "1.2M", false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    PaintedTable table;
    table.g.BetAmount[SlotChipDenom + 1] = Money::FromUnits(row.units);
    table.g.UseCentsSymbol = row.cents;
    const ChipFigure figure = FigureOf(table.g, 1);
    EXPECT_EQ(figure.figure, row.figure);
    EXPECT_EQ(figure.hasHundreds, row.hundreds);
  }
}

TEST(Chips, OfAnAmount) {
  using Counts = std::array<int, kChipCount>;
  const struct Row {
    const char* name;
    Money amount;
    int most;
    Counts chips;
  } rows[] = {
      {"nothing", Money(), 7, {}},
      {"less than nothing", Dollars(-5), 7, {}},
      {"less than a chip is still a chip", Money::FromUnits(1), 7, {1}},
      {"the fewest that make it up", Dollars(636), 9, {1, 2, 1, 1, 1}},
      {"a rest below the lowest chip is not drawn", Money::FromUnits(65'000), 7, {1, 1}},
      {"too many of one", Dollars(20'000), 7, {0, 0, 0, 0, 7}},
      {"every denomination is seen", Dollars(9'999), 7, {1, 1, 1, 2, 2}},
      {"more than 64 bits of chips would hold", kMaxChipStack, 5, {1, 1, 1, 1, 1}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    PaintedTable table;
    EXPECT_EQ(ChipsFor(table.g, row.amount, row.most), row.chips);
  }
}

TEST(Chips, DenominationsOfNothingAreLeftOut) {
  PaintedTable table;
  for (std::size_t chip = 1; chip < kChipCount; ++chip) table.g.BetAmount[SlotChipDenom + chip] = Money();
  EXPECT_EQ(ChipsFor(table.g, Dollars(3), 7), (std::array<int, kChipCount>{3}));
}

TEST(Chips, ShortAmounts) {
  EXPECT_EQ(ShortAmount(Dollars(999)), "999");
  EXPECT_EQ(ShortAmount(Dollars(1'999)), "1.9K");
  EXPECT_EQ(ShortAmount(Dollars(-123'456'789)), "-123M");
  EXPECT_EQ(ShortAmount(kMaxChipStack), "99.9T");
  EXPECT_EQ(ShortAmount(Money::FromUnits(std::numeric_limits<std::int64_t>::min())), "-922T");
}

// All bets stand at nine million and more: each amount is there, whole, large enough and on free ground.
TEST(AmountPlates, DoNotCoverEachOther) {
  Lettering letters;
  AmountPlates plates(letters);
  PaintedTable table;
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const auto anchor = *AnchorOf(table.g, bet);
    plates.Add(Dollars(9'999'999), QPointF(anchor.x, anchor.y), 48);
  }
  ASSERT_EQ(plates.All().size(), static_cast<std::size_t>(kBetCount));
  for (std::size_t one = 0; one < plates.All().size(); ++one) {
    const AmountPlates::Plate& plate = plates.All()[one];
    EXPECT_TRUE(plate.rect.contains(plate.letters.boundingRect())) << one;
    EXPECT_GE(plate.letters.boundingRect().height(), 5.5) << one;
    EXPECT_TRUE(QRectF(0, 0, kPictureWidth, kPictureHeight).contains(plate.rect)) << one;
    for (std::size_t other = 0; other < one; ++other)
      EXPECT_FALSE(plate.rect.intersects(plates.All()[other].rect)) << one << " and " << other;
  }
}

}  // namespace
}  // namespace rollwick
