#include "base/Money.h"

#include <charconv>
#include <cmath>

namespace rollwick {

namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();

__extension__ using Wide = __int128;

Money Clamp(Wide units) {
  if (units > kMost) return Money::FromUnits(kMost);
  if (units < kLeast) return Money::FromUnits(kLeast);
  return Money::FromUnits(static_cast<std::int64_t>(units));
}

}  // namespace

Money Money::FromDouble(double dollars) {
  const double exact = dollars * kUnitsPerDollar;
  // Below 2^51 adding this rounds to a whole number, ties to even, without a call.
  constexpr double kRounder = 6755399441055744.0;  // 1.5 times 2^52
  if (std::fabs(exact) < 2251799813685248.0) {
    return FromUnits(static_cast<std::int64_t>(exact + kRounder - kRounder));
  }
  if (std::isnan(dollars)) return {};
  const double units = std::nearbyint(exact);
  // 2^63 is exact in a double; what is below it fits.
  if (units >= 9223372036854775808.0) return FromUnits(kMost);
  if (units < -9223372036854775808.0) return FromUnits(kLeast);
  return FromUnits(static_cast<std::int64_t>(units));
}

Money RoundedProduct(Money a, Money b) {
  const Wide exact = static_cast<Wide>(a.Units()) * b.Units();
  Wide quotient = exact / Money::kUnitsPerDollar;
  const Wide rest = exact % Money::kUnitsPerDollar;
  const Wide twice = 2 * (rest < 0 ? -rest : rest);
  if (twice > Money::kUnitsPerDollar || (twice == Money::kUnitsPerDollar && quotient % 2 != 0)) {
    quotient += exact < 0 ? -1 : 1;
  }
  return Clamp(quotient);
}

Money FloorToChips(Money amount, Money chip) {
  std::int64_t rest = amount.Units() % chip.Units();
  if (rest < 0) rest += chip.Units();
  return amount - Money::FromUnits(rest);
}

std::string PlainText(Money money) {
  const std::int64_t units = money.Units();
  const bool negative = units < 0;
  const std::uint64_t magnitude =
      negative ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
  std::string text = negative ? "-" : "";
  text += std::to_string(magnitude / Money::kUnitsPerDollar);
  std::uint64_t fraction = magnitude % Money::kUnitsPerDollar;
  if (fraction == 0) return text;
  std::string digits = std::to_string(Money::kUnitsPerDollar + static_cast<std::int64_t>(fraction));
  digits[0] = '.';
  digits.erase(digits.find_last_not_of('0') + 1);
  return text + digits;
}

std::optional<Money> ParseMoney(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const auto point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  const std::string_view decimals = point == text.npos ? std::string_view() : text.substr(point + 1);
  if (whole.empty() && decimals.empty()) return {};
  if (decimals.size() > 4) return {};
  std::string digits(whole);
  digits += decimals;
  digits.append(4 - decimals.size(), '0');
  std::uint64_t magnitude = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, magnitude);
  if (error != std::errc() || stop != end || magnitude > static_cast<std::uint64_t>(kMost)) return {};
  const auto units = static_cast<std::int64_t>(magnitude);
  return Money::FromUnits(negative ? -units : units);
}

}  // namespace rollwick
