#include "figures/Figure.h"

#include <array>
#include <charconv>
#include <cmath>

#include "base/FormatNumber.h"

namespace rollwick {

std::string PlainText(double value) {
  if (value == 0) return "0";  // and not "-0"
  std::array<char, 400> digits;
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed).ptr;
  return {digits.data(), end};
}

std::string FormatBySize(double value, std::string_view whole, std::string_view fractional) {
  return FormatNumber(value, value == std::floor(value) ? whole : fractional);
}
std::string FormatBySize(Money value, std::string_view whole, std::string_view fractional) {
  return FormatNumber(value, value.IsWhole() ? whole : fractional);
}

Tone ToneOf(Money value) {
  return value < Money() ? Tone::Loss : Tone::Gain;
}

Figure CountFigure(std::string name, std::string label, std::int64_t count) {
  return {std::move(name), std::move(label), FormatNumber(Dollars(count), kWholeFormat), count};
}

Figure WholeAmountFigure(std::string name, std::string label, Money amount, bool isToned) {
  return {std::move(name), std::move(label), FormatNumber(amount, kWholeFormat), amount,
          isToned ? ToneOf(amount) : Tone::Plain};
}

Figure RateFigure(std::string name, std::string label, double value) {
  return {std::move(name), std::move(label), FormatBySize(value, kWholeFormat, kRateFormat), value};
}

PlainNumber Share(Money part, Money whole) {
  if (whole == Money()) return {};
  return part.ToDouble() / whole.ToDouble();
}

double SimulatedHours(std::int64_t rolls, Money rollsPerHour) {
  return rollsPerHour > Money() ? static_cast<double>(rolls) / rollsPerHour.ToDouble() : 0;
}

}  // namespace rollwick
