// Fitting a bet so that it pays whole chips: up or down to the next amount that does.
#include <algorithm>
#include <cmath>
#include <optional>

#include "base/FormatNumber.h"
#include "engine/bets/Bearings.h"
#include "engine/bets/Placement.h"

namespace rollwick {

namespace {

// The Base of the row that pays the bet.
Money PayingBase(const Game& g, BetId bet) {
  const int point = g.Point;
  const auto base = [&g](BetId row) { return g.PayoffTable[row].Base; };
  switch (bet) {
    case Bet::PassLine:
      return base(point == 0 ? static_cast<BetId>(Bet::Come) : ComeOn(point));
    case Bet::DontPass:
      return base(point == 0 ? static_cast<BetId>(Bet::DontCome) : DontComeOn(point));
    default:
      return base(bet);
  }
}

struct Fits {
  Money up;    // the change to the next amount that pays whole chips, at or above the one asked for
  Money down;  // at or below it
};

Fits FitTo(Money amount, Money change, Money unit) {
  if (unit != Money() && IsMultipleOf(amount + change, unit)) return {change, change};
  const double quotient = std::round((amount + change).ToDouble() / unit.ToDouble() * 1e9) / 1e9;
  const double whole = std::floor(quotient);
  if (quotient == whole) return {change, change};
  const Money below = Money::FromDouble(whole * unit.ToDouble());
  return {below + unit - amount, below - amount};
}

// The largest chip the change is made of whose unit the change holds.
std::optional<Money> ColorUnit(const Game& g, Money amount, Money change, Money base) {
  const Money chips = change == Money() ? amount : Abs(change);
  for (int color = kChipCount - 1; color >= 0; --color) {
    const Money chip = g.BetAmount[SlotChipDenom + color];
    const Money unit = Product(chip, base);
    if (IsMultipleOf(chips, chip) && unit <= chips) return unit;
  }
  return {};
}

Money Nearest(Money amount, Money change, Fits fits) {
  if (fits.up == fits.down) return fits.up;
  if (change != Money()) {
    if (IsMultipleOf(amount + fits.up, change)) return fits.up;
    if (IsMultipleOf(amount + fits.down, change)) return fits.down;
  }
  return Abs(fits.up - change) <= Abs(fits.down - change) ? fits.up : fits.down;
}

Money Decrease(Money amount, Money change, Fits fits) {
  const bool takesOffMore = change < Money() && fits.down < change;
  const bool removes = change >= Money() && amount + fits.down == Money();
  return takesOffMore || removes ? fits.up : fits.down;
}

Money Choose(const Game& g, BetId bet, Money change, Fits fits) {
  const Money amount = g.BetAmount[bet];
  const std::int32_t bias = BiasOf(g, bet);
  if (bias == BiasIncrease) return fits.up;
  if (bias == BiasDecrease) return Decrease(amount, change, fits);
  const bool contractBet = bet == Bet::PassLine || IsComeNumber(bet);
  if (contractBet && amount + change < g.BetContract[bet]) return fits.up;
  const bool dontBet = bet == Bet::DontPass || IsDontComeNumber(bet);
  if (dontBet && amount + fits.up > g.BetContract[bet]) return fits.down;
  const Money nearest = Nearest(amount, change, fits);
  // Whoever asks for a change gets one, if it can be had.
  if (nearest == Money() && change > Money()) return fits.up;
  if (nearest == Money() && change < Money()) return fits.down;
  return nearest;
}

// A request for more never ends with less, one for less never with more.
Money KeepDirection(Money change, Money choice, Fits fits) {
  if (change > Money() && choice < Money()) return fits.up;
  if (change < Money() && choice > Money()) return fits.down;
  return choice;
}

void TellUnable(Game& g) {
  if (g.HyperDriveActive) return;
  if (!g.BetMessage.empty()) g.BetMessage += '\r';
  g.BetMessage += "Unable to auto-adjust bet for proper odds payoff.";
}

void TellLimit(Game& g, Money amount, bool ranIntoMaximum) {
  if (g.HyperDriveActive) return;
  const auto holds = [&g](std::string_view word) { return g.BetMessage.find(word) != std::string::npos; };
  if (ranIntoMaximum || holds("Maximum")) {
    g.BetMessage = "Maximum bet for proper odds payoff here is: $" + FormatMoney(amount);
  } else if (holds("Minimum") && amount != Money()) {
    g.BetMessage = "Minimum bet for proper odds payoff here is: $" + FormatMoney(amount);
  }
}

}  // namespace

void AdjustForProperPayoff(Game& g, BetId bet) {
  const Money amount = g.BetAmount[bet];
  const Money change = g.BetDeltaApplied;
  if (amount + change == Money()) return;
  const Money base = PayingBase(g, bet);
  const bool oddsAtMaximum = IsOdds(bet) && amount + change == g.BetMax;
  const auto outOfReach = [&](Fits fits) {
    return amount + fits.up > g.BetMax && amount + fits.down < g.BetMin;
  };

  const Fits minor = FitTo(amount, change, Product(LowestChip(g), base));
  Fits fits = minor;
  if (g.AutoAdjustBetAmounts == AdjustColor && !oddsAtMaximum) {
    if (const auto unit = ColorUnit(g, amount, change, base)) fits = FitTo(amount, change, *unit);
    if (outOfReach(fits)) fits = minor;
  }
  if (outOfReach(fits)) {
    g.BetDeltaApplied = std::max(g.BetMax - amount, Money());
    TellUnable(g);
    return;
  }

  Money choice = KeepDirection(change, Choose(g, bet, change, fits), fits);
  bool ranIntoMaximum = false;
  if (choice == fits.down && amount + choice == Money() && change >= Money() &&
      amount + fits.up <= g.BetMax) {
    choice = fits.up;
  }
  if (amount + choice > g.BetMax) {
    choice = fits.down;
    ranIntoMaximum = true;
  } else if (amount + choice < g.BetMin) {
    const bool upIsMore = change < Money() && fits.up > Money();
    choice = upIsMore ? -amount : fits.up;
  }
  g.BetDeltaApplied = choice;
  TellLimit(g, amount + choice, ranIntoMaximum);
}

}  // namespace rollwick
