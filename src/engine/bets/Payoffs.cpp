#include "engine/bets/Payoffs.h"

#include <array>

#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

// The row that pays a bet that wins, by the place of the line point. The line bets are paid by the Come and
// Don't Come boxes on the come-out, by the numbers with a point on.
constexpr auto kPayingRows = [] {
  std::array<std::array<std::int8_t, kBetCount + 1>, kPointPlaces> rows{};
  for (BetId bet = 0; bet <= kBetCount; ++bet) {
    for (auto& row : rows) row[static_cast<std::size_t>(bet)] = static_cast<std::int8_t>(bet);
  }
  rows[0][Bet::PassLine] = Bet::Come;
  rows[0][Bet::DontPass] = Bet::DontCome;
  for (const int point : kBoxNumbers) {
    auto& row = rows[static_cast<std::size_t>(PointPlace(point))];
    row[Bet::PassLine] = static_cast<std::int8_t>(ComeOn(point));
    row[Bet::DontPass] = static_cast<std::int8_t>(DontComeOn(point));
    row[Bet::PassLineOdds] = static_cast<std::int8_t>(ComeOddsOn(point));
    row[Bet::DontPassOdds] = static_cast<std::int8_t>(DontComeOddsOn(point));
  }
  return rows;
}();

const PayoffRow& PayingRow(const Game& g, BetId bet) {
  const auto& rows = kPayingRows[static_cast<std::size_t>(PointPlace(g.PointBeforeRoll))];
  return g.PayoffTable[static_cast<std::size_t>(rows[static_cast<std::size_t>(bet)])];
}

struct Split {
  int ways;    // parts of the stake, of which one wins
  BetId pays;  // the row that pays it
};

// The part of a split bet that the total wins; no ways for other bets.
Split WinningSplit(BetId bet, int total) {
  const bool isWorld = bet == Bet::World;
  if (bet == Bet::CAndE) return {2, total == 11 ? Bet::Eleven : Bet::Craps};
  if (bet != Bet::Horn && !isWorld) return {0, bet};
  const int ways = isWorld ? 5 : 4;
  switch (total) {
    case 2:
      return {ways, Bet::Two};
    case 3:
      return {ways, Bet::Three};
    case 11:
      return {ways, Bet::Eleven};
    case 7:
      return {ways, isWorld ? Bet::Seven : Bet::Twelve};
    default:
      return {ways, Bet::Twelve};
  }
}

Money Pays(Money stake, const PayoffRow& row) {
  return Quotient(Product(stake, row.Ratio), row.Base);
}

// The same, mostly the payment that the bet got before.
Money PaysAsBefore(KnownPayment& known, Money stake, const PayoffRow& row) {
  if (row.Base == Dollars(1)) return Pays(stake, row);
  if (known.Stake != stake || known.Ratio != row.Ratio || known.Base != row.Base)
    known = {stake, row.Ratio, row.Base, Pays(stake, row)};
  return known.Pays;
}

// The winning part pays, the others are lost; one expression, rounded once.
Money SplitPays(Money stake, int ways, const PayoffRow& row) {
  const double part = stake.ToDouble() / ways;
  const double lost = ways == 2 ? part : (ways - 1) * stake.ToDouble() / ways;
  return Money::FromDouble(part * row.Ratio.ToDouble() / row.Base.ToDouble() - lost);
}

Money ToWholeChips(Money exact, Money chip) {
  if (chip == Dollars(1)) return WholeDollarsBelow(exact);
  return Product(WholeDollarsBelow(Quotient(exact, chip)), chip);
}

Money RoundVig(Money vig, Money chip, std::int32_t rounding) {
  const Money down = FloorToChips(vig, chip);
  const Money rest = vig - down;
  switch (rounding) {
    case VigRoundedDown:
      return down;
    case VigRoundedUp:
      return rest == Money() ? down : down + chip;
    // Meant: a tie goes to the player.
    default:
      return rest + rest > chip ? down + chip : down;
  }
}

Money AtLeastOneChip(Money vig, Money amount, Money chip) {
  return amount > Money() && vig < chip ? chip : vig;
}

Money SumOf(const auto& vigs) {
  Money sum;
  for (const Money vig : vigs) sum += vig;
  return sum;
}

}  // namespace

void ComputePayoff(Game& g, bool useRealVig, BetId bet, int outcome, Money stake) {
  PayoffRow& used = g.PayoffTable[0];
  if (bet == Bet::Field) {
    // The Field is always called as a win; a Ratio of -1 makes the combination a losing one.
    used = g.FieldPayoffTable[FieldIndex(g.Die1, g.Die2)];
    g.PayoffExact = Pays(stake, used);
  } else if (outcome < 0) {
    used = {Dollars(-1), g.PayoffTable[bet].IsToForm, Dollars(1)};
    g.PayoffExact = -stake;
  } else if (const Split split = WinningSplit(bet, g.DiceTotal); split.ways > 0) {
    used = g.PayoffTable[split.pays];
    g.PayoffExact = SplitPays(stake, split.ways, used);
  } else {
    used = PayingRow(g, bet);
    g.PayoffExact = PaysAsBefore(g.TheLedger.Payments[static_cast<std::size_t>(bet)], stake, used);
  }
  g.PayoffExact -= VigOnDecision(g, useRealVig ? ActualWagers : PhantomWagers, bet, g.PayoffExact);
  g.PayoffNet = ToWholeChips(g.PayoffExact, LowestChip(g));
}

Money ComputeBuyVig(const Game& g, BetId bet, Money amount) {
  if (!IsBuy(bet) || g.Rules.BuyVigPct == Money()) return {};
  const Money chip = LowestChip(g);
  return AtLeastOneChip(RoundVig(Product(amount, g.Rules.BuyVigPct), chip, g.Rules.RoundBuyVig), amount,
                        chip);
}

Money ComputeLayVig(const Game& g, BetId bet, Money amount) {
  if (!IsLay(bet) || g.Rules.LayVigPct == Money()) return {};
  const PayoffRow& row = g.PayoffTable[bet];
  const Money chip = LowestChip(g);
  const double wouldWin = Product(amount, row.Ratio).ToDouble() / row.Base.ToDouble();
  const Money vig = Money::FromDouble(wouldWin * g.Rules.LayVigPct.ToDouble());
  if (vig < Money()) return {};
  return AtLeastOneChip(RoundVig(vig, chip, g.Rules.RoundLayVig), amount, chip);
}

void RefreshVigs(Game& g, VigCharged wereOnAll) {
  if (wereOnAll.layOnAll) g.TotalBets -= SumOf(g.LayVigAmount);
  if (wereOnAll.buyOnAll) g.TotalBets -= SumOf(g.BuyVigAmount);
  for (BetId bet = Bet::Lay4; bet <= Bet::Lay10; ++bet) {
    g.LayVigAmount[bet] = ComputeLayVig(g, bet, g.BetAmount[bet]);
  }
  for (BetId bet = Bet::Buy4; bet <= Bet::Buy10; ++bet) {
    g.BuyVigAmount[bet] = ComputeBuyVig(g, bet, g.BetAmount[bet]);
  }
  if (g.Rules.LayVigOnAll) g.TotalBets += SumOf(g.LayVigAmount);
  if (g.Rules.BuyVigOnAll) g.TotalBets += SumOf(g.BuyVigAmount);
}

std::string RatioText(const PayoffRow& row) {
  if (row.IsToForm) return PlainText(row.Ratio) + " to " + PlainText(row.Base);
  return PlainText(row.Ratio + row.Base) + " for " + PlainText(row.Base);
}

}  // namespace rollwick
