// Money: rounding, reading, the ends of the range.
#include "base/Money.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace rollwick {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

Money Units(std::int64_t units) {
  return Money::FromUnits(units);
}

TEST(Money, ParseMoney) {
  struct Row {
    const char* text;
    std::int64_t units;
  };
  const Row rows[] = {
      {"0", 0},
      {"12", 120000},
      {"-3.5", -35000},
      {".25", 2500},
      {"5.", 50000},
      {"-.0001", -1},
      {"007", 70000},
      {"9999999.9999", 99999999999},
      {"-0", 0},
      {"0.10", 1000},
      {"922337203685477.5807", kMost},
      {"-922337203685477.5807", -kMost},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    const auto money = ParseMoney(row.text);
    ASSERT_TRUE(money);
    EXPECT_EQ(money->Units(), row.units);
  }
}

TEST(Money, ParseMoneyRefuses) {
  const char* const texts[] = {"",
                               "-",
                               ".",
                               "-.",
                               "1e300",
                               "NaN",
                               "inf",
                               "9999999.99999",
                               "--1",
                               "+1",
                               " 1",
                               "1 ",
                               "1.2.3",
                               "1,000",
                               "$5",
                               "1.-5",
                               "0x10",
                               "-+1",
                               ".-5",
                               "5-",
                               "1.+5",
                               "\xD9\xA1",
                               "9223372036854775808",
                               "922337203685477.5808",
                               "-922337203685477.5809",
                               "99999999999999999999999999"};
  for (const char* text : texts) {
    EXPECT_FALSE(ParseMoney(text)) << '"' << text << '"';
  }
  EXPECT_FALSE(ParseMoney(std::string_view("5\0", 2)));
}

TEST(Money, ProductRoundsTiesToEven) {
  struct Row {
    const char* name;
    std::int64_t a, b, product;
  };
  const Row rows[] = {
      {"tie above an even digit stays", 1, 5000, 0},
      {"tie above an odd digit goes up", 3, 5000, 2},
      {"tie above an even digit stays, higher", 5, 5000, 2},
      {"negative tie to even", -1, 5000, 0},
      {"negative tie away from odd", -3, 5000, -2},
      {"both negative", -3, -5000, 2},
      {"just above the tie", 1, 5001, 1},
      {"just below the tie", 1, 4999, 0},
      {"just above the tie, negative", -1, 5001, -1},
      {"held at the top", kMost, kMost, kMost},
      {"held at the bottom", kMost, kLeast, kLeast},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Product(Units(row.a), Units(row.b)).Units(), row.product);
    EXPECT_EQ(Product(Units(row.b), Units(row.a)).Units(), row.product);
  }
}

TEST(Money, Quotient) {
  struct Row {
    const char* name;
    std::int64_t a, b, quotient;
  };
  const Row rows[] = {
      {"a third", 10000, 30000, 3333},       {"two thirds", 20000, 30000, 6667},
      {"negative", -20000, 30000, -6667},    {"both negative", -20000, -30000, 6667},
      {"tie to even", 625, 20000, 312},      {"tie to even, upwards", 1875, 20000, 938},
      {"beyond the range", kMost, 1, kMost}, {"beyond the range, negative", kMost, -1, kLeast},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Quotient(Units(row.a), Units(row.b)).Units(), row.quotient);
  }
}

TEST(Money, FloorToChips) {
  struct Row {
    const char* name;
    std::int64_t amount, chip, floor;
  };
  const Row rows[] = {
      {"between chips", 13'0000, 5'0000, 10'0000},
      {"on a chip", 15'0000, 5'0000, 15'0000},
      {"less than a chip", 4'9999, 5'0000, 0},
      {"negative goes down, not towards zero", -1, 5'0000, -5'0000},
      {"negative on a chip", -10'0000, 5'0000, -10'0000},
      {"quarter chips", 1'3000, 2500, 1'2500},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(FloorToChips(Units(row.amount), Units(row.chip)).Units(), row.floor);
  }
  EXPECT_EQ(WholeDollarsBelow(Units(-5000)), Dollars(-1));
  EXPECT_EQ(WholeDollarsBelow(Units(7'9999)), Dollars(7));
}

TEST(Money, FromDouble) {
  struct Row {
    const char* name;
    double dollars;
    std::int64_t units;
  };
  const Row rows[] = {
      {"cents", 0.29, 2900},         {"tie to even", 0.00005, 0},           {"not a number", std::nan(""), 0},
      {"infinite", HUGE_VAL, kMost}, {"minus infinite", -HUGE_VAL, kLeast}, {"too large", 1e300, kMost},
      {"too small", -1e300, kLeast},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Money::FromDouble(row.dollars).Units(), row.units);
  }
}

TEST(Money, SaturatingSumHoldsAtTheEnds) {
  EXPECT_EQ(SaturatingSum(Units(kMost), Units(1)).Units(), kMost);
  EXPECT_EQ(SaturatingSum(Units(kLeast), Units(-1)).Units(), kLeast);
  EXPECT_EQ(SaturatingSum(Units(kLeast), Units(kMost)).Units(), -1);
}

TEST(Money, PlainTextOfTheEnds) {
  EXPECT_EQ(PlainText(Units(kMost)), "922337203685477.5807");
  EXPECT_EQ(PlainText(Units(kLeast)), "-922337203685477.5808");
  EXPECT_EQ(PlainText(Units(-1)), "-0.0001");
  EXPECT_EQ(PlainText(Dollars(-10)), "-10");
}

}  // namespace
}  // namespace rollwick
