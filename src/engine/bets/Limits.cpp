// The most that may stand on a bet, and the six ways a house reckons the odds it allows.
#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/bets/Placement.h"

namespace rollwick {

namespace {

__extension__ using Wide = unsigned __int128;

Money InWholeChips(const Game& g, Money amount) {
  return FloorToChips(amount, LowestChip(g));
}

// The smallest multiple of `unit` not below `amount`.
Money RoundedUpTo(Money amount, Money unit) {
  const Money down = FloorToChips(amount, unit);
  return down == amount ? down : down + unit;
}

// Int(amount / chip), as a number in Money.
Money WholeChipsIn(Money amount, Money chip) {
  return Dollars(FloorToChips(amount, chip).Units() / chip.Units());
}

double HighestPay(const Game& g, std::initializer_list<BetId> rows) {
  double highest = 0;
  for (const BetId row : rows) {
    highest = std::max(highest, g.PayoffTable[row].Ratio.ToDouble() / g.PayoffTable[row].Base.ToDouble());
  }
  return highest;
}

// A proposition is capped through what one dollar of it nets; a bet that nets nothing keeps the table
// maximum.
void CapByPayoff(Game& g, double netPerDollar) {
  if (netPerDollar > 0 && std::isfinite(netPerDollar))
    g.BetMax = Money::FromDouble(g.Rules.MaxPropBetPayoff.ToDouble() / netPerDollar);
}

int OddsNumber(const Game& g, BetId bet) {
  return bet <= Bet::Come10Odds ? NumberOf(bet) : g.Point;
}

Money AllowedMultiple(const Game& g, int number) {
  if (number == 4 || number == 10) return g.Rules.OddsAllowed410;
  if (number == 5 || number == 9) return g.Rules.OddsAllowed59;
  return g.Rules.OddsAllowed68;
}

// "Auto select": the multiple decides; nothing fits a multiple with a fraction.
std::int32_t SelectMethod(Money multiple) {
  if (!multiple.IsWhole()) return OddsNoPush;
  if (multiple == Dollars(1)) return OddsFlatTimesSingle;
  if (multiple == Dollars(2)) return OddsColorPush;
  if (multiple == Dollars(3)) return OddsSingleTimesFlat;
  return multiple > Dollars(3) ? OddsColorPush : OddsNoPush;
}

struct OddsQuestion {
  Money flat;      // F
  Money multiple;  // X
  Money full;      // X times F
  Money beyond;    // (X + 1) times F: a push must stay below it
  Money ratioA;
  Money ratioB;
};

Money MinorPush(const Game& g, const OddsQuestion& odds) {
  const Money unit = Product(LowestChip(g), odds.ratioB);
  if (unit == Money()) return odds.full;
  Money most = FloorToChips(odds.full, unit);
  if (most < odds.full && most + unit < odds.beyond) most += unit;
  return most == Money() ? odds.full : most;
}

// The first of full, full + $1, full + $2 ... whose win at A to B is whole in `chip`; nothing if none is
// below `limit`. Only multiples of one step win whole chips, so at most 10,000 of them are looked at before
// the cents repeat.
Money FirstPaidIn(const OddsQuestion& odds, Money chip, Money limit) {
  const auto units = [](Money money) { return static_cast<std::uint64_t>(money.Units()); };
  const Wide whole = static_cast<Wide>(units(odds.ratioB)) * units(chip);
  Wide a = units(odds.ratioA);
  Wide b = whole;
  while (b != 0) a = std::exchange(b, a % b);
  const Wide step = whole / a;
  const Wide full = units(odds.full);
  Wide amount = (full + step - 1) / step * step;
  for (std::int64_t tries = 0; tries <= Money::kUnitsPerDollar && amount < units(limit);
       ++tries, amount += step) {
    if ((amount - full) % Money::kUnitsPerDollar == 0)
      return Money::FromUnits(static_cast<std::int64_t>(amount));
  }
  return {};
}

Money ColorPush(const Game& g, const OddsQuestion& odds) {
  if (odds.flat <= Money()) return odds.full;
  // Meant: the flat bets stay these even where the house has other denominations.
  constexpr Money kFlatInColor[kChipCount] = {Money::FromUnits(1), Money::FromUnits(1), Dollars(5),
                                              Dollars(25), Dollars(100)};
  for (int color = kChipCount - 1; color > 0; --color) {
    const Money found = FirstPaidIn(odds, g.BetAmount[SlotChipDenom + color], odds.beyond);
    if (found > odds.full && IsMultipleOf(odds.flat, kFlatInColor[color])) return found;
  }
  // The lowest chip may go on past the push, but only in whole dollars. What lies beyond the cap ends there
  // anyway.
  const bool wholeDollars = odds.full.IsWhole();
  const Money limit = wholeDollars ? std::max(odds.beyond, g.Rules.MaxOddsBet + Dollars(2)) : odds.beyond;
  const Money found = FirstPaidIn(odds, LowestChip(g), limit);
  if (found != Money()) return found;
  return wholeDollars ? limit : odds.full;
}

// Single odds in every color: the largest. X times the flat bet in chips for one method, chips of the flat
// bet times X for the other.
Money SingleOdds(const Game& g, const OddsQuestion& odds, bool multiplyAfter) {
  Money largest = odds.full;
  if (odds.ratioB == Money()) return largest;
  for (int color = 0; color < kChipCount; ++color) {
    const Money chip = g.BetAmount[SlotChipDenom + color];
    const Money chips = RoundedUpTo(WholeChipsIn(multiplyAfter ? odds.flat : odds.full, chip), odds.ratioB);
    const Money amount = Product(chips, chip);
    largest = std::max(largest, multiplyAfter ? Product(amount, odds.multiple) : amount);
  }
  return largest;
}

Money OddsByMethod(const Game& g, const OddsQuestion& odds) {
  std::int32_t method = g.Rules.OddsCalcMethod;
  if (method == OddsAutoSelect) method = SelectMethod(odds.multiple);
  switch (method) {
    case OddsMinorPush:
      return MinorPush(g, odds);
    case OddsColorPush:
      return ColorPush(g, odds);
    case OddsFlatTimesSingle:
      return SingleOdds(g, odds, false);
    case OddsSingleTimesFlat:
      return SingleOdds(g, odds, true);
    default:
      return odds.full;
  }
}

// Lay odds are limited by what they win: the odds reckoned the right way up, turned into the stake.
void MaxDontOdds(Game& g, BetId bet) {
  const PayoffRow row = g.PayoffTable[bet];
  MaxOddsBetFor(g, bet, FlatOf(bet), row.Base, row.Ratio);
  if (row.Ratio != Money() && row.Base != Money())
    g.BetMax = Quotient(Product(g.BetMax, row.Base), row.Ratio);
}

}  // namespace

void MaxOddsBetFor(Game& g, BetId bet, BetId flat, Money ratioA, Money ratioB) {
  g.BetMax = Money();
  const int number = OddsNumber(g, bet);
  if (number == 0) return;
  g.OddsMultiple = AllowedMultiple(g, number);
  const Money flatBet = g.BetAmount[flat];
  // More than any house takes is cut to its cap below, whatever the method.
  const Money full = std::min(Product(g.OddsMultiple, flatBet), kBankLimit + kBankLimit);
  const OddsQuestion odds = {flatBet, g.OddsMultiple, full, full + flatBet, ratioA, ratioB};
  const bool payable = ratioA > Money() && ratioB > Money();
  g.BetMax = payable ? OddsByMethod(g, odds) : full;
  g.BetMax = InWholeChips(g, std::min(g.BetMax, InWholeChips(g, g.Rules.MaxOddsBet)));
}

void MaxBetFor(Game& g, BetId bet) {
  const PayoffRow& row = g.PayoffTable[bet];
  g.BetMax = InWholeChips(g, g.Rules.MaxPlacardBet);
  if (IsDoOdds(bet)) {
    MaxOddsBetFor(g, bet, FlatOf(bet), row.Ratio, row.Base);
  } else if (IsDontOdds(bet)) {
    MaxDontOdds(g, bet);
  } else if (bet == Bet::CAndE) {
    CapByPayoff(g, HighestPay(g, {Bet::Craps, Bet::Eleven}) / 2 - 0.5);
  } else if (bet == Bet::Horn) {
    CapByPayoff(g, HighestPay(g, {Bet::Two, Bet::Three, Bet::Eleven, Bet::Twelve}) / 4 - 0.75);
  } else if (bet == Bet::World) {
    CapByPayoff(g, HighestPay(g, {Bet::Two, Bet::Three, Bet::Seven, Bet::Eleven, Bet::Twelve}) / 5 - 0.8);
  } else if (bet >= Bet::Hard4) {
    CapByPayoff(g, row.Ratio.ToDouble() / row.Base.ToDouble());
  }
  g.BetMax = std::max(InWholeChips(g, g.BetMax), Money());  // whatever payoffs a file may hold
}

}  // namespace rollwick
