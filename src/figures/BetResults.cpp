#include "figures/BetResults.h"

#include <algorithm>

#include "base/FormatNumber.h"
#include "stats/advantage/EvaluateBet.h"

namespace rollwick {
namespace {

enum Line : std::size_t {
  TotalNumberLine,
  TotalDollarsLine,
  HighLine,
  LowLine,
  AverageLine,
  LastLine,
  LastRollNumberLine,
  LastRollDollarsLine,
  NumberPerHourLine,
  DollarsPerHourLine,
  ExpectedLine,
};
constexpr std::array<const char*, kBetResultsLines> kLabels = {
    "Total #",     "Total $",     "High $",        "Low $",         "Average $",     "Last $",
    "Last roll #", "Last roll $", "Avg. # / hour", "Avg. $ / hour", "Expctd value $"};

using Column = std::array<Money, kBetResultsLines>;

void AddBet(Column& column, const BetStatRow& row) {
  column[TotalNumberLine] += row[TotalCount];
  column[TotalDollarsLine] += row[TotalAmount];
  column[HighLine] = std::max(column[HighLine], row[HighAmount]);
  Money& low = column[LowLine];  // of a bet without decisions it is 0 and no amount
  if (row[LowAmount] != Money() && (low == Money() || row[LowAmount] < low)) low = row[LowAmount];
  column[LastLine] += row[LastAmount];
  column[LastRollNumberLine] += row[LastRollCount];
  column[LastRollDollarsLine] += row[LastRollAmount];
}

Column SumOf(std::span<const BetStatRow, kBetRowCount> rows, std::span<const BetId> bets, double hours) {
  Column column{};
  for (const BetId bet : bets) AddBet(column, rows[static_cast<std::size_t>(bet)]);
  const Money number = column[TotalNumberLine], dollars = column[TotalDollarsLine];
  if (number > Money()) column[AverageLine] = Quotient(dollars, number);
  if (hours > 0) {
    column[NumberPerHourLine] = Money::FromDouble(number.ToDouble() / hours);
    column[DollarsPerHourLine] = Money::FromDouble(dollars.ToDouble() / hours);
  }
  return column;
}

Figure NetFigure(Money net) {
  return {"lblNet", "Net", FormatBySize(net, kWholeFormat, "#,#.###;-#,#.###;0"), net, ToneOf(net)};
}

Figure NetShareFigure(Money net, Money wagers, std::string_view format) {
  Figure figure{"lblNetPct", "Net %", "0 %", Share(net, wagers), ToneOf(net)};
  if (const double* const share = std::get_if<double>(&figure.plain))
    figure.text = FormatNumber(*share, format);
  return figure;
}

BetResultsLine ResultsLine(std::size_t line, const Column& wagers, const Column& wins, const Column& losses) {
  const bool counts = line == TotalNumberLine || line == LastRollNumberLine;
  const auto amount = [&](const char* name, const char* label, const Column& column) {
    const std::int64_t count = column[line].Units() / Money::kUnitsPerDollar;
    return Figure{name, label, PlainText(column[line]),
                  counts ? PlainNumber(count) : PlainNumber(column[line])};
  };
  const Money net = wins[line] - losses[line];
  return {kLabels[line],
          amount("lblWagers", " Wagers", wagers),
          amount("lblWins", " Wins", wins),
          amount("lblLosses", " Losses", losses),
          NetFigure(net),
          NetShareFigure(net, wagers[line], "#,#.00 %;-#,#.00 %;0 %")};
}

Money ExpectedValue(const Game& g, const BetRows& rows, std::span<const BetId> bets) {
  double expected = 0;
  for (const BetId bet : bets) {
    const Money wagered = rows.wagers[static_cast<std::size_t>(bet)][TotalAmount];
    if (wagered != Money()) expected += wagered.ToDouble() * EvaluateBet(g, bet).EvPerDecision;
  }
  return Money::FromDouble(expected);
}

Money SumOfAmounts(const std::array<Money, kSlotCount>& amounts, std::span<const BetId> bets) {
  Money sum;
  for (const BetId bet : bets) sum += amounts[static_cast<std::size_t>(bet)];
  return sum;
}

}  // namespace

BetRows RowsOf(const Game& g, BetStatKind kind) {
  return {g.BetWagers[kind], g.BetWins[kind], g.BetLosses[kind]};
}

BetResults BetResultsOf(const Game& g, const BetRows& rows, std::span<const BetId> bets) {
  const double hours = SimulatedHours(g.RollCount(), g.RollsPerHour);
  const Column wagers = SumOf(rows.wagers, bets, hours);
  const Column wins = SumOf(rows.wins, bets, hours);
  const Column losses = SumOf(rows.losses, bets, hours);
  BetResults results;
  for (std::size_t line = 0; line < ExpectedLine; ++line)
    results.lines[line] = ResultsLine(line, wagers, wins, losses);
  const Money expected = ExpectedValue(g, rows, bets);
  BetResultsLine& last = results.lines[ExpectedLine];
  last.label = kLabels[ExpectedLine];
  last.net = NetFigure(expected);
  last.netShare = NetShareFigure(expected, wagers[TotalDollarsLine], "0.0# %;-0.0# %;0 %");

  const auto amount = [&](const char* name, const char* label, Money value) {
    results.figures.push_back({name, label, FormatMoney(value), value});
  };
  results.figures.push_back(CountFigure("lblNumBets", " # of bets selected for display:", std::ssize(bets)));
  amount("lblCurrent", " Current $ wagered", SumOfAmounts(g.BetAmount, bets));
  amount("lblLastRollAmount", " $ wagered on last roll", SumOfAmounts(g.BetAtThrow, bets));
  results.figures.push_back(CountFigure("lblNumRolls", "Total rolls:", g.RollCount()));
  results.figures.push_back(RateFigure("lblRollsPerHour", "Rolls per hour:", g.RollsPerHour.ToDouble()));
  results.figures.push_back(RateFigure("lblHours", "Simulated hours:", hours));
  return results;
}

}  // namespace rollwick
