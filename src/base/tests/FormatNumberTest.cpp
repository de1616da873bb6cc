// The pictures of numbers: golden rows, and the cases that the rows leave out.
#include "base/FormatNumber.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>

namespace rollwick {
namespace {

nlohmann::json GoldenRows() {
  std::ifstream file(ROLLWICK_TEST_DATA "/formats.json");
  return nlohmann::json::parse(file);
}

double ToDouble(const std::string& text) {
  double value = std::nan("");
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

TEST(FormatNumber, GoldenRows) {
  int rows = 0;
  const auto golden = GoldenRows();
  for (const auto& row : golden.at("cases")) {
    SCOPED_TRACE(row.dump());
    const auto pattern = row.at("pattern").get<std::string>();
    const auto expected = row.at("text").get<std::string>();
    ++rows;
    if (row.at("type") == "float64") {
      EXPECT_EQ(FormatNumber(row.at("value").get<double>(), pattern), expected);
      continue;
    }
    const auto text = row.at("value").get<std::string>();
    EXPECT_EQ(FormatNumber(ToDouble(text), pattern), expected);
    if (const auto money = ParseMoney(text)) {
      EXPECT_EQ(FormatNumber(*money, pattern), expected);
    }
  }
  EXPECT_EQ(rows, 70);
}

TEST(FormatMoney, GoldenRows) {
  int rows = 0;
  const auto golden = GoldenRows();
  for (const auto& row : golden.at("format_money")) {
    SCOPED_TRACE(row.dump());
    const auto money = ParseMoney(row.at("value").get<std::string>());
    ASSERT_TRUE(money);
    EXPECT_EQ(FormatMoney(*money), row.at("text").get<std::string>());
    EXPECT_EQ(FormatMoney(*money, "$"), "$" + row.at("text").get<std::string>());
    EXPECT_EQ(PlainText(*money), row.at("plain").get<std::string>());
    ++rows;
  }
  EXPECT_EQ(rows, 12);
}

TEST(FormatNumber, Doubles) {
  struct Row {
    const char* name;
    double value;
    const char* pattern;
    const char* text;
  };
  const double most = std::numeric_limits<double>::max();
  const double least = std::numeric_limits<double>::denorm_min();
  const Row rows[] = {
      {"half away from zero by 15 digits", 2.675, "0.00", "2.68"},
      {"the 16th digit does not count", 1.0000000000000004, "0.################", "1."},
      {"a carry through every nine", 999.995, "#,##0.00", "1,000.00"},
      {"a carry into an empty whole part", 0.999, "#.##", "1."},
      {"one section puts the minus in front", -5.5, "#.0", "-5.5"},
      {"no minus on a value that rounds to zero", -0.004, "0.00", "0.00"},
      {"minus zero", -0.0, "#.##", "."},
      {"two sections: zero takes the first", 0, "0.0;-0.00", "0.0"},
      {"comma behind the point: a ninth, forced decimal", -1.5, "0.########;-0.########,0", "-1.500000000"},
      {"percent rounds after multiplying", 0.005, "#,#.00%", ".50%"},
      {"percent keeps a tiny value from zero", 0.00005, "0.00%;-0.00%;none", "0.01%"},
      {"negatives without decimals on purpose", -14.6, "#,#.00;-#,#;0", "-15"},
      {"a digit placeholder as negative section", -14.6, "#,#.00;0;0", "15"},
      {"smallest number", least, "0.00;-0.00;zero", "zero"},
      {"groups of thousands", 1234567890123, "#,#", "1,234,567,890,123"},
      {"three digits need no comma", 999, "#,#", "999"},
      {"an empty pattern", 5, "", "5"},
      {"a pattern of semicolons", -5, ";;;;", "-5"},
      {"not a number", std::nan(""), "0.00", "NaN"},
      {"infinite", HUGE_VAL, "0.00", "Inf"},
      {"minus infinite", -HUGE_VAL, "0.00", "-Inf"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(FormatNumber(row.value, row.pattern), row.text);
  }
  EXPECT_EQ(FormatNumber(most, "0"), "179769313486232" + std::string(294, '0'));
  EXPECT_EQ(FormatNumber(-most, "0").front(), '-');
}

TEST(FormatNumber, MoneyKeepsEveryDigit) {
  const Money most = Money::FromUnits(std::numeric_limits<std::int64_t>::max());
  const Money least = Money::FromUnits(std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(FormatMoney(most), "922,337,203,685,477.5807");
  EXPECT_EQ(FormatMoney(least), "-922,337,203,685,477.5808");
  // "If fractional" looks at the value and not at the text.
  EXPECT_EQ(FormatNumber(Money::FromUnits(120004), "#,#.###"), "12.");
}

}  // namespace
}  // namespace rollwick
