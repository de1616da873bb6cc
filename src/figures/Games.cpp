#include "figures/Games.h"

#include "base/FormatNumber.h"

namespace rollwick {
namespace {

constexpr std::string_view kMoneyFormat = "#,##0.0###;-#,##0.0###;0";
constexpr std::string_view kDerivedFormat = "#,##0.0#;-#,##0.0#;0";
// Meant: two sections. Its comma prints nothing and the 0 behind it is a ninth, forced decimal.
constexpr std::string_view kMomentFormat = "0.########;-0.########,0";
constexpr std::array<const char*, kGameClassCount + 1> kClassLabels = {"Won", "Broke-even", "Lost", "Total"};

Figure ShareOfGames(int games, int total) {
  Figure figure{"lblGamesPct", "", "0%", {}};
  if (total == 0) return figure;
  const double share = 100.0 * games / total;
  figure.text = FormatNumber(share, "0.0#;-0.0#;0");
  figure.plain = share;
  return figure;
}

}  // namespace

std::array<GamesClassRow, kGameClassCount + 1> GamesClassRows(const GamesFigures& figures) {
  std::array<GamesClassRow, kGameClassCount + 1> rows;
  const int total = figures.Total();
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const int games = row < figures.count.size() ? figures.count[row] : total;
    rows[row] = {CountFigure("lblGames", kClassLabels[row], games), ShareOfGames(games, total)};
  }
  if (total > 0) rows.back().share.text = "100";
  return rows;
}

std::vector<Figure> GamesRows(const GamesFigures& figures) {
  std::vector<Figure> rows;
  const auto add = [&](const char* label, auto value, std::string_view format) {
    rows.push_back({"lblCurrent", label, FormatNumber(value, format), value});
  };
  add("Sum", figures.sum, kMoneyFormat);
  add("Mean", figures.mean, kDerivedFormat);
  add(figures.isMedianBetween ? "   Median *" : "Median", figures.median, kMoneyFormat);
  add("Mode", figures.mode, kMoneyFormat);
  add("High", figures.high, kMoneyFormat);
  add("Mid", figures.mid, kMoneyFormat);
  add("Low", figures.low, kMoneyFormat);
  add("Range", figures.range, kMoneyFormat);
  add("Variance", figures.variance, kDerivedFormat);
  add("Standard deviation", figures.deviation, kDerivedFormat);
  add("Skew", figures.skew, kMomentFormat);
  add("Kurtosis", figures.kurtosis, kMomentFormat);
  return rows;
}

GamesBandTexts TextsOfBand(const GamesBand& band, int total) {
  const double share = total > 0 ? static_cast<double>(band.games) / total : 0;
  return {FormatNumber(band.low, kMoneyFormat), FormatNumber(band.high, kMoneyFormat),
          FormatNumber(Dollars(band.games), kWholeFormat) + (band.games == 1 ? " game" : " games"),
          FormatNumber(share, "#,##0.0# %;-#,##0.0# %;0 %")};
}

}  // namespace rollwick
