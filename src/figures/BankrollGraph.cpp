#include "figures/BankrollGraph.h"

#include <algorithm>
#include <numeric>

#include "base/FormatNumber.h"

namespace rollwick {
namespace {

constexpr int kStepUnits = 50;  // from one line of the scale to the next

std::int64_t FirstRoll(const Game& g) {
  return g.BankrollHistory[0].Units() / Money::kUnitsPerDollar;
}

bool HasPageBefore(const Game& g) {
  return FirstRoll(g) > 1;
}

// A point of the current page, 1..525, or of the page before, 0 being its last one.
Money PointAt(const Game& g, int point) {
  return g.BankrollHistory[point > 0 ? point : point + 2 * kGraphPage];
}

std::vector<Money> AllRollsLine(const Game& g) {
  std::vector<Money> line(static_cast<std::size_t>(g.BankrollHistoryCount));
  Money sum = g.BankrollRollSum;
  std::int32_t rolls = g.RollCount();
  for (int point = g.BankrollHistoryCount; point > 0; --point, --rolls) {
    if (rolls > 0) line[static_cast<std::size_t>(point - 1)] = Quotient(sum, Dollars(rolls));
    sum -= PointAt(g, point);
  }
  return line;
}

Figure BankrollFigure(const char* name, const char* label, Money amount) {
  return {name, label, FormatBySize(amount, kWholeFormat, "#,#.00;-#,#.00;0.00"), amount, ToneOf(amount)};
}

std::vector<Figure> GraphFigures(const Game& g, const BankrollGraph& graph) {
  const std::int32_t rolls = g.RollCount();
  std::vector<Figure> figures;
  figures.push_back(CountFigure("lblRollsLeft", "", graph.firstRoll));
  figures.push_back(CountFigure("lblRollsRight", "", graph.firstRoll + kGraphPage));
  for (std::size_t line = 0; line < graph.scale.size(); ++line) {
    figures.push_back(
        {"lblScale_" + std::to_string(line), "", FormatMoney(graph.scale[line]), graph.scale[line]});
  }
  figures.push_back({"lblAverage", "", MovingAverageLabel(g), {}});
  Figure total = CountFigure("lblTotalRolls", "Total rolls:", rolls);
  total.text = FormatNumber(Dollars(rolls), "#,#;0;0");
  figures.push_back(std::move(total));
  figures.push_back(RateFigure("lblRollsPerHour", "Rolls per hour:", g.RollsPerHour.ToDouble()));
  const double time = SimulatedHours(rolls, g.RollsPerHour);
  Figure hours = RateFigure("lblHours", "Simulated hours:", time);
  if (time > 0 && time < 0.0001) hours.text = "< 0.0001";
  figures.push_back(std::move(hours));
  figures.push_back(BankrollFigure("lblBankrollHigh", "High:", g.BankrollHigh));
  figures.push_back(BankrollFigure("lblBankrollLow", "Low:", g.BankrollLow));
  figures.push_back(BankrollFigure("lblBankrollCurrent", "Current:", g.BetAmount[SlotBankroll]));
  if (g.AutoPrintGraph) figures.push_back({"lblAutoPrint", "", "Auto-Print ON", {}});
  return figures;
}

}  // namespace

std::vector<Money> MovingAverageLine(const Game& g, int period) {
  if (period <= 0) return AllRollsLine(g);
  const bool hasPageBefore = HasPageBefore(g);
  const int wanted = std::min(period, kGraphPage);
  std::vector<Money> line;
  Money sum;  // of the points found, up to `wanted`, before the one at hand
  if (hasPageBefore) {
    for (int back = 0; back < wanted; ++back) sum += PointAt(g, -back);
  }
  for (int point = 1; point <= g.BankrollHistoryCount; ++point) {
    sum += PointAt(g, point);
    if (hasPageBefore || point > wanted) sum -= PointAt(g, point - wanted);
    const int found = hasPageBefore ? wanted : std::min(wanted, point);
    // The first point of a game stands at 0.
    line.push_back(!hasPageBefore && point == 1 ? Money() : Quotient(sum, Dollars(found)));
  }
  return line;
}

std::string MovingAverageLabel(const Game& g) {
  const int period = std::min(g.MovingAveragePeriod, kGraphPage);
  if (period <= 0) return "All rolls average";
  if (!g.MovingAverageOn && period == kGraphPage) return "525 Roll Moving Average";
  return std::to_string(period) + " roll moving average";
}

BankrollGraph GraphOfBankroll(const Game& g) {
  BankrollGraph graph;
  const auto& history = g.BankrollHistory;
  graph.firstRoll = FirstRoll(g);
  graph.points.assign(history.begin() + 1, history.begin() + 1 + g.BankrollHistoryCount);
  if (g.MovingAverageOn) graph.average = MovingAverageLine(g, g.MovingAveragePeriod);
  if (HasPageBefore(g)) graph.pageBefore.assign(history.begin() + 1 + kGraphPage, history.end());
  Money line = g.GraphTop;
  for (Money& amount : graph.scale) {
    amount = line;
    line -= Product(g.GraphUnit, Dollars(kStepUnits));
  }
  graph.figures = GraphFigures(g, graph);
  return graph;
}

}  // namespace rollwick
