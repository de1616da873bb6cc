// Money: every amount of the table, and the one place where it is rounded.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace rollwick {

// Dollars times 10,000 in 64 bits. Sums wrap at the end of the range instead of failing: the bank limit keeps
// every amount of the table far from it, and a request is clamped before it is added to anything.
class Money {
 public:
  static constexpr std::int64_t kUnitsPerDollar = 10'000;

  constexpr Money() = default;
  static constexpr Money FromUnits(std::int64_t units) {
    Money money;
    money.units_ = units;
    return money;
  }
  // The nearest amount to `dollars`, ties to even; beyond the range the nearest end, not-a-number gives 0.
  static Money FromDouble(double dollars);

  constexpr std::int64_t Units() const { return units_; }
  constexpr double ToDouble() const { return static_cast<double>(units_) / kUnitsPerDollar; }
  constexpr bool IsWhole() const { return units_ % kUnitsPerDollar == 0; }

  constexpr Money operator-() const { return Wrap(0 - Bits(*this)); }
  constexpr Money& operator+=(Money other) { return *this = Wrap(Bits(*this) + Bits(other)); }
  constexpr Money& operator-=(Money other) { return *this = Wrap(Bits(*this) - Bits(other)); }
  friend constexpr Money operator+(Money a, Money b) { return a += b; }
  friend constexpr Money operator-(Money a, Money b) { return a -= b; }
  // The sum of `count` of it.
  constexpr Money Times(std::int64_t count) const {
    return Wrap(Bits(*this) * static_cast<std::uint64_t>(count));
  }
  friend constexpr auto operator<=>(Money, Money) = default;
  friend constexpr bool operator==(Money, Money) = default;

 private:
  static constexpr std::uint64_t Bits(Money money) { return static_cast<std::uint64_t>(money.units_); }
  static constexpr Money Wrap(std::uint64_t bits) { return FromUnits(static_cast<std::int64_t>(bits)); }

  std::int64_t units_ = 0;
};

// A whole number of dollars.
constexpr Money Dollars(std::int64_t dollars) {
  return Money::FromUnits(dollars * Money::kUnitsPerDollar);
}

constexpr Money Abs(Money money) {
  return money < Money() ? -money : money;
}

// a times b, formed in 128 bits and rounded to four decimals, ties to even; beyond the range the nearest end.
Money RoundedProduct(Money a, Money b);
inline Money Product(Money a, Money b) {
  // Whole dollars, as most factors are, leave nothing to round.
  std::int64_t units = 0;
  if (b.IsWhole() && !__builtin_mul_overflow(a.Units(), b.Units() / Money::kUnitsPerDollar, &units)) {
    return Money::FromUnits(units);
  }
  return RoundedProduct(a, b);
}

// a over b, formed in double precision and rounded once, ties to even. b must not be 0.
inline Money Quotient(Money a, Money b) {
  return b == Dollars(1) ? a : Money::FromDouble(a.ToDouble() / b.ToDouble());
}

// a plus b, held at the ends of the range instead of wrapping.
inline Money SaturatingSum(Money a, Money b) {
  std::int64_t units = 0;
  if (!__builtin_add_overflow(a.Units(), b.Units(), &units)) return Money::FromUnits(units);
  return Money::FromUnits(a < Money() ? std::numeric_limits<std::int64_t>::min()
                                      : std::numeric_limits<std::int64_t>::max());
}

// The largest whole dollar amount not above `money`.
constexpr Money WholeDollarsBelow(Money money) {
  const std::int64_t rest = money.Units() % Money::kUnitsPerDollar;
  return money - Money::FromUnits(rest < 0 ? rest + Money::kUnitsPerDollar : rest);
}

// Whether `amount` is a whole number of `chip`. chip must not be 0.
constexpr bool IsMultipleOf(Money amount, Money chip) {
  return amount.Units() % chip.Units() == 0;
}

// Int(amount / chip) * chip: the largest multiple of `chip` not above `amount`. chip must be above 0.
Money FloorToChips(Money amount, Money chip);

// "1234.5", "-3", "0": no grouping, no trailing zeros.
std::string PlainText(Money money);

// Reads plain decimal text ("12", "-3.5", ".25", "5."), at most four decimals. Nothing for any other text,
// for more decimals than a Money holds and for amounts beyond its range.
std::optional<Money> ParseMoney(std::string_view text);

}  // namespace rollwick
