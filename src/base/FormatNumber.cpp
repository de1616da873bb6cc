// Numbers as decimal text, laid into the pictures that the screens and the terminal show them with.
#include "base/FormatNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace rollwick {

namespace {

// A number written out: `whole` without leading zeros, `fraction` as long as it is.
struct DecimalText {
  bool negative = false;
  std::string whole;
  std::string fraction;

  bool IsZero() const { return whole.empty() && fraction.find_first_not_of('0') == fraction.npos; }
};

// `digits` with the decimal point behind the first `pointAt` of them; pointAt may lie outside.
DecimalText PlacePoint(bool negative, std::string digits, int pointAt) {
  if (pointAt < 0) {
    digits.insert(0, static_cast<std::size_t>(-pointAt), '0');
    pointAt = 0;
  }
  const auto point = static_cast<std::size_t>(pointAt);
  if (digits.size() < point) digits.append(point - digits.size(), '0');
  DecimalText number{negative, digits.substr(0, point), digits.substr(point)};
  number.whole.erase(0, number.whole.find_first_not_of('0'));
  return number;
}

DecimalText ToDecimalText(Money money) {
  std::string digits = std::to_string(money.Units());
  const bool negative = digits.front() == '-';
  if (negative) digits.erase(0, 1);
  const int pointAt = static_cast<int>(digits.size()) - 4;
  return PlacePoint(negative, std::move(digits), pointAt);
}

// The 15 significant digits of a finite `value`: what a person would call the number, 2.675 and
// not 2.67499...
DecimalText ToDecimalText(double value) {
  char text[32];
  const auto written =
      std::to_chars(text, text + sizeof text, std::fabs(value), std::chars_format::scientific, 14);
  char* const mark = std::find(text, written.ptr, 'e');
  int exponent = 0;
  std::from_chars(mark + (mark[1] == '+' ? 2 : 1), written.ptr, exponent);
  std::string digits(text, mark);
  digits.erase(1, 1);  // the point behind the first digit
  return PlacePoint(std::signbit(value), std::move(digits), exponent + 1);
}

void TimesHundred(DecimalText& number) {
  const int pointAt = static_cast<int>(number.whole.size()) + 2;
  number = PlacePoint(number.negative, number.whole + number.fraction, pointAt);
}

// Half away from zero, to at most `decimals` digits behind the point.
void Round(DecimalText& number, std::size_t decimals) {
  if (number.fraction.size() <= decimals) return;
  const bool up = number.fraction[decimals] >= '5';
  number.fraction.resize(decimals);
  if (!up) return;
  std::string digits = '0' + number.whole + number.fraction;
  std::size_t place = digits.size() - 1;
  while (digits[place] == '9') digits[place--] = '0';
  ++digits[place];
  number = PlacePoint(number.negative, digits, static_cast<int>(number.whole.size()) + 1);
}

// One section of a pattern, taken apart.
struct Picture {
  std::string_view prefix;  // literals before the digits
  std::string_view suffix;  // literals behind them
  std::size_t leastWhole = 0;
  std::size_t leastDecimals = 0;
  std::size_t mostDecimals = 0;
  bool hasPoint = false;
  bool groups = false;  // a comma before the point; behind it a comma means nothing
  bool percent = false;
};

Picture ReadPicture(std::string_view section) {
  Picture picture;
  const auto first = std::min(section.find_first_of("0#.,"), section.size());
  const auto last = section.find_last_of("0#.,");
  const auto end = last == section.npos ? section.size() : last + 1;
  picture.prefix = section.substr(0, first);
  picture.suffix = section.substr(end);
  picture.percent = section.find('%') != section.npos;
  for (const char sign : section.substr(first, end - first)) {
    if (sign == '.') picture.hasPoint = true;
    if (sign == ',' && !picture.hasPoint) picture.groups = true;
    if (sign != '0' && sign != '#') continue;
    if (!picture.hasPoint) {
      if (sign == '0' || picture.leastWhole > 0) ++picture.leastWhole;
      continue;
    }
    ++picture.mostDecimals;
    if (sign == '0') picture.leastDecimals = picture.mostDecimals;
  }
  return picture;
}

DecimalText Fit(DecimalText number, const Picture& picture) {
  if (picture.percent) TimesHundred(number);
  Round(number, picture.mostDecimals);
  return number;
}

void GroupThousands(std::string& whole) {
  for (std::size_t place = whole.size(); place > 3;) whole.insert(place -= 3, 1, ',');
}

std::string Print(DecimalText number, const Picture& picture) {
  std::string& whole = number.whole;
  if (whole.size() < picture.leastWhole) whole.insert(0, picture.leastWhole - whole.size(), '0');
  if (picture.groups) GroupThousands(whole);
  std::string& fraction = number.fraction;
  while (fraction.size() > picture.leastDecimals && fraction.back() == '0') fraction.pop_back();
  if (fraction.size() < picture.leastDecimals) fraction.append(picture.leastDecimals - fraction.size(), '0');

  std::string text(picture.prefix);
  text += whole;
  if (picture.hasPoint) text += '.';
  text += fraction;
  text += picture.suffix;
  return text;
}

// Takes the text before the next ';' off `pattern`.
std::string_view TakeSection(std::string_view& pattern) {
  const auto end = std::min(pattern.find(';'), pattern.size());
  const std::string_view section = pattern.substr(0, end);
  pattern.remove_prefix(std::min(end + 1, pattern.size()));
  return section;
}

std::string Format(const DecimalText& number, std::string_view pattern) {
  if (pattern == "Standard") pattern = "#,##0.00";
  const std::string_view positive = TakeSection(pattern);
  const std::string_view negative = TakeSection(pattern);
  const std::string_view zero = TakeSection(pattern);
  const Picture picture = ReadPicture(number.negative && !negative.empty() ? negative : positive);
  const DecimalText rounded = Fit(number, picture);
  if (rounded.IsZero()) return Print({}, ReadPicture(zero.empty() ? positive : zero));
  const std::string text = Print(rounded, picture);
  return number.negative && negative.empty() ? '-' + text : text;
}

}  // namespace

std::string FormatNumber(Money value, std::string_view pattern) {
  return Format(ToDecimalText(value), pattern);
}

std::string FormatNumber(double value, std::string_view pattern) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  return Format(ToDecimalText(value), pattern);
}

std::string FormatMoney(Money value, std::string_view text) {
  const std::string_view pattern = value.IsWhole() ? "#,#;-#,#;0" : "#,#.00##;-#,#.00##;0.00";
  return std::string(text) + FormatNumber(value, pattern);
}

}  // namespace rollwick
