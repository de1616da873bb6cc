#include "console/FiguresShow.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/FormatNumber.h"
#include "base/Nearest.h"
#include "console/Columns.h"
#include "console/Words.h"
#include "figures/BankrollGraph.h"
#include "figures/BetResults.h"
#include "figures/BetTrends.h"
#include "figures/Expectation.h"
#include "figures/RollEventList.h"
#include "figures/RollFrequencies.h"
#include "figures/RollTotals.h"
#include "figures/Summary.h"

namespace rollwick {
std::string Cents(Money amount) {
  return FormatNumber(amount, amount.IsWhole() ? "$#,##0;-$#,##0;$0" : "$#,##0.00;-$#,##0.00;$0");
}

namespace {

Reply Page(const char* key, Json json, std::string text) {
  Reply reply;
  reply.extra[key] = std::move(json);
  while (text.ends_with('\n')) text.pop_back();
  reply.text = std::move(text);
  return reply;
}

Json PlainJson(const PlainNumber& number) {
  if (const auto* const count = std::get_if<std::int64_t>(&number)) return *count;
  if (const auto* const amount = std::get_if<Money>(&number)) return PlainText(*amount);
  if (const auto* const value = std::get_if<double>(&number)) return PlainText(*value);
  return nullptr;
}

// A control's name without its "lbl".
std::string KeyOf(const Figure& figure) {
  return figure.name.substr(3);
}

void AddFigure(Json& json, const Figure& figure) {
  json[KeyOf(figure)] = figure.text;
  json["raw"][KeyOf(figure)] = PlainJson(figure.plain);
}

Json FiguresJson(std::span<const Figure> figures) {
  Json json;
  for (const Figure& figure : figures) json[KeyOf(figure)] = figure.text;
  for (const Figure& figure : figures) json["raw"][KeyOf(figure)] = PlainJson(figure.plain);
  return json;
}

bool HasNumber(const Figure& figure) {
  return !std::holds_alternative<std::monostate>(figure.plain);
}

// A line for each label; figures of one label stand side by side.
std::string FiguresForPeople(std::span<const Figure> figures) {
  std::vector<TextRow> rows;
  for (const Figure& figure : figures) {
    if (figure.label.empty() || !HasNumber(figure)) continue;
    std::string text = figure.text;
    if (figure.label.ends_with(" hand")) {
      const bool isRolls = figure.name.ends_with("Rolls");
      text += text == "1" ? (isRolls ? " roll" : " pass") : (isRolls ? " rolls" : " passes");
    }
    if (!rows.empty() && rows.back()[0] == figure.label) {
      rows.back()[1] += ", " + text;
    } else {
      rows.push_back({figure.label, text});
    }
  }
  std::size_t width = 0;
  for (const TextRow& row : rows) width = std::max(width, row[0].size());
  std::string text;
  for (const TextRow& row : rows) text += PadRight(row[0], width + 2) + row[1] + "\n";
  return text;
}

// A percentage of the dice, of a sum of money: "-1.41 %".
std::string PercentOf(double part, double whole) {
  return FormatNumber(whole == 0 ? 0.0 : part / whole, "0.00 %;-0.00 %;0 %");
}

std::string Count(std::int64_t count) {
  return FormatMoney(Dollars(count));
}

// To the cent, as far as expectations go.
std::string Cents(double dollars) {
  return FormatNumber(dollars, "$#,##0.00;-$#,##0.00;$0");
}

// The index of the word among `names`, its beginning being enough ("11", "dice").
std::optional<int> FindSet(const std::string& word) {
  for (std::size_t set = 0; set < kTotalsSets.size(); ++set) {
    const std::string_view name = kTotalsSets[set];
    if (!word.empty() && SameWord(name.substr(0, word.size()), word)) return static_cast<int>(set);
  }
  return {};
}

// 0 when there is no such event.
RollEvent FindEvent(std::string name) {
  std::ranges::replace(name, '_', ' ');
  if (const auto number = ParseWhole(name, 2, EventDie2 + 6)) return static_cast<RollEvent>(*number);
  for (const RollEventItem& item : RollEventList()) {
    if (SameWord(item.text, name)) return item.event;
  }
  return 0;
}

// How often the event came back after 1, 2, 3 ... rolls, five to a line; gaps that never were are left out.
std::string GapsForPeople(const RollFrequencies& frequencies) {
  constexpr std::size_t kPerLine = 5;
  std::vector<TextRow> rows;
  for (const GapCell& cell : frequencies.gaps) {
    if (cell.count == 0) continue;
    if (rows.empty() || rows.back().size() == 2 * kPerLine) rows.emplace_back();
    rows.back().push_back((rows.back().empty() ? "" : "  ") + cell.gap + ":");
    rows.back().push_back(Count(cell.count));
  }
  return rows.empty() ? "" : "\nRolls between and how often\n" + InColumns(rows);
}

Json ResultsLineJson(const BetResultsLine& line) {
  Json json = {{"label", line.label}};
  const bool hasWagers = HasNumber(line.wagers);
  for (const Figure* const figure : {&line.wagers, &line.wins, &line.losses}) {
    if (hasWagers) AddFigure(json, *figure);
  }
  AddFigure(json, line.net);
  AddFigure(json, line.netShare);
  Json raw = std::move(json["raw"]);
  json.erase("raw");
  json["raw"] = std::move(raw);
  return json;
}

// The row of a graph of `rows` rows that an amount belongs to; nothing beyond its edges.
std::optional<std::size_t> GraphRow(const BankrollGraph& graph, Money amount, std::size_t rows) {
  const double top = graph.scale.front().ToDouble(), foot = graph.scale.back().ToDouble();
  const double row = std::round((top - amount.ToDouble()) / (top - foot) * static_cast<double>(rows - 1));
  if (!(row >= 0 && row < static_cast<double>(rows))) return {};
  return static_cast<std::size_t>(row);
}

// The page as marks: the bankroll as *, its moving average as a dot, seven rolls to a column.
// Points that lie beyond the scale are told, not drawn.
std::string GraphForPeople(const BankrollGraph& graph) {
  constexpr std::size_t kRollsPerColumn = 7, kRowsPerLine = 3, kRows = (kScaleLines - 1) * kRowsPerLine + 1;
  std::vector<std::string> rows(kRows, std::string(kGraphPage / kRollsPerColumn, ' '));
  std::int64_t beyond = 0;
  const auto draw = [&](const std::vector<Money>& points, char mark) {
    beyond = 0;
    for (std::size_t point = 0; point < points.size(); ++point) {
      if (const auto row = GraphRow(graph, points[point], kRows)) {
        rows[*row][std::min(point / kRollsPerColumn, rows[*row].size() - 1)] = mark;
      } else {
        ++beyond;
      }
    }
  };
  draw(graph.average, '.');
  draw(graph.points, '*');
  std::string text;
  for (std::size_t row = 0; row < kRows; ++row) {
    const bool isLine = row % kRowsPerLine == 0;
    text += PadLeft(isLine ? FormatMoney(graph.scale[row / kRowsPerLine]) : "", 10) + (isLine ? " +" : " |");
    text += rows[row].substr(0, rows[row].find_last_not_of(' ') + 1) + "\n";
  }
  if (beyond > 0)
    text += Count(beyond) + (beyond == 1 ? " roll lies" : " rolls lie") + " above or below this.\n";
  return text;
}

// A bet's decided wagers: how many, how much, and what they earned beside what they should.
TextRow BetRow(Game& g, BetId bet) {
  const BetStatRow& wagers = g.BetWagers[ActualWagers][bet];
  const Money won = g.BetWins[ActualWagers][bet][TotalAmount];
  const Money lost = g.BetLosses[ActualWagers][bet][TotalAmount];
  return {BetName(bet),
          FormatMoney(wagers[TotalCount]),
          Cents(wagers[TotalAmount]),
          Cents(won),
          Cents(lost),
          Cents(won - lost),
          PercentOf((won - lost).ToDouble(), wagers[TotalAmount].ToDouble()),
          PercentOf(OddsOfDecision(g, bet).mean, 1)};
}

std::string BetsForPeople(Game& g) {
  std::vector<TextRow> rows = {{"Bet", "Wagers", "Amount", "Won", "Lost", "Net", "Net %", "Exact %"}};
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    if (g.BetWagers[ActualWagers][bet][TotalCount] > Money()) rows.push_back(BetRow(g, bet));
  }
  return rows.size() > 1 ? "\n" + InColumns(rows) : "";
}

std::string ExpectationForPeople(Game& g) {
  const Expectation odds = ExpectationOf(g);
  const double wagered = odds.wagered.ToDouble(), away = odds.DeviationsAway();
  std::string text =
      StoryLine("Result", Cents(odds.result) + ", " + PercentOf(odds.result.ToDouble(), wagered) + " of " +
                              Cents(odds.wagered) + " wagered");
  if (odds.wagered == Money()) return text;
  text += StoryLine("Expected", Cents(odds.expected) + ", " + PercentOf(odds.expected, wagered) +
                                    ", give or take " + Cents(odds.deviation));
  if (odds.deviation > 0) {
    text += StoryLine("", "The result is " + FormatNumber(std::abs(away), "0.00") + " standard deviations " +
                              (away < 0 ? "worse" : "better") + " than that");
  }
  return text;
}

std::string Counted(std::int64_t count, const char* one, const char* many) {
  return Count(count) + (count == 1 ? one : many);
}

std::string HandsForPeople(const Game& g) {
  const auto& hands = g.HandStats;
  const std::int32_t completed = hands[HandsCompleted];
  std::string text = Count(completed) + " completed";
  if (completed > 0) {
    text += ", " + FormatNumber(static_cast<double>(hands[CompletedHandRolls]) / completed, "0.00") +
            " rolls on average, the longest of " + Count(std::max(hands[LongestHandRolls], hands[HandRolls]));
  }
  const std::int32_t most = std::max(hands[MostHandPasses], hands[HandPasses]);
  return StoryLine("Hands", text) +
         StoryLine("", Counted(hands[TotalPasses], " pass, ", " passes, ") + Count(most) +
                           " in one hand at the most; " + Counted(hands[TotalMisses], " miss", " misses"));
}

std::string LosingRunForPeople(const Game& g) {
  if (g.LongestLosingRun == 0) return {};
  return StoryLine("Losing run", Counted(g.LongestLosingRun, " decision", " decisions") +
                                     " at the longest, of " + BetName(g.LongestLosingBet));
}

}  // namespace

Json SummaryJson(Game& g) {
  return FiguresJson(SummaryFigures(g));
}

std::string StoryOfGame(Game& g) {
  const std::int32_t rolls = g.RollCount();
  const Money average = rolls > 0 ? Quotient(g.BankrollRollSum, Dollars(rolls)) : g.BetAmount[SlotBankroll];
  return StoryLine("", Cents(g.BankrollHigh) + " high, " + Cents(g.BankrollLow) + " low, " + Cents(average) +
                           " average") +
         ExpectationForPeople(g) + LosingRunForPeople(g) + HandsForPeople(g) + BetsForPeople(g);
}

Reply ShowSummary(Table& table, Arguments) {
  const std::vector<Figure> figures = SummaryFigures(table.g);
  Reply reply = Page("summary", FiguresJson(figures), FiguresForPeople(figures));
  reply.extra["raw"] = reply.extra["summary"]["raw"];
  return reply;
}

Reply ShowTotals(Table& table, Arguments arguments) {
  const auto set = arguments.empty() ? 0 : FindSet(arguments[0]);
  if (!set) return Failure("show totals takes 11, 21, 36 or dice: the numbers, the combos or the faces.");
  const Game& g = table.g;
  const auto rows = RollTotals(g, TotalsSet{*set}, false), skewedRows = RollTotals(g, TotalsSet{*set}, true);
  Json json = {{"Display", kTotalsSets[static_cast<std::size_t>(*set)]}, {"TotalRolls", g.RollCount()}};
  json["rows"] = Json::array();
  std::vector<TextRow> lines = {{"Number", "Count", "Actual %", "True %", "Skewed %", "Rolls since"}};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RollTotalsRow& row = rows[i];
    const Figure& skewed = skewedRows[i].probable;
    json["rows"].push_back({{"number", row.number},
                            {"event", row.event},
                            {"count", PlainJson(row.count.plain)},
                            {"actual", row.actual.text},
                            {"true", row.probable.text},
                            {"skewed", skewed.text},
                            {"rolls_since", PlainJson(row.rollsSince.plain)}});
    lines.push_back(
        {row.number, row.count.text, row.actual.text, row.probable.text, skewed.text, row.rollsSince.text});
  }
  return Page("totals", std::move(json), "Total rolls: " + Count(g.RollCount()) + "\n" + InColumns(lines));
}

Reply ShowFrequencies(Table& table, Arguments arguments) {
  const RollEvent event = arguments.empty() ? 0 : FindEvent(arguments[0]);
  if (event == 0) {
    std::vector<std::string> names;
    for (const RollEventItem& item : RollEventList()) names.emplace_back(item.text);
    return Failure(
        "show frequencies needs a roll event, by its number from 2 to 89 or its name, as \"Any 7\"." +
        (arguments.empty() ? "" : DidYouMean(arguments[0], names)));
  }
  const RollFrequencies frequencies = FrequenciesOf(table.g, event, table.g.FreqSkewed);
  Json json = {{"event", event}, {"text", frequencies.text}};
  json.update(FiguresJson(frequencies.figures));
  json["gaps"] = Json::array();
  for (const GapCell& cell : frequencies.gaps) json["gaps"].push_back(cell.count);
  return Page("frequencies", std::move(json),
              frequencies.text + "\n" + FiguresForPeople(frequencies.figures) + GapsForPeople(frequencies));
}

Reply ShowResults(Table& table, Arguments arguments) {
  const bool isPhantom = !arguments.empty() && SameWord(arguments[0], "phantom");
  if (isPhantom || (!arguments.empty() && SameWord(arguments[0], "actual"))) arguments = arguments.subspan(1);
  std::vector<BetId> bets;
  for (const std::string& name : arguments) {
    const NamedSlot named = FindSlot(name, true);
    if (!named.error.empty()) return Failure(named.error);
    if (std::ranges::find(bets, named.slot) == bets.end()) bets.push_back(named.slot);
  }
  if (bets.empty()) {
    bets.resize(kBetCount);
    std::iota(bets.begin(), bets.end(), 1);
  }
  const Game& g = table.g;
  const BetResults results = BetResultsOf(g, RowsOf(g, isPhantom ? PhantomWagers : ActualWagers), bets);
  Json json = {{"kind", isPhantom ? "phantom" : "actual"}, {"lines", Json::array()}};
  json.update(FiguresJson(results.figures));
  std::vector<TextRow> rows = {{"", "Wagers", "Wins", "Losses", "Net", "Net %"}};
  for (const BetResultsLine& line : results.lines) {
    json["lines"].push_back(ResultsLineJson(line));
    rows.push_back(
        {line.label, line.wagers.text, line.wins.text, line.losses.text, line.net.text, line.netShare.text});
  }
  return Page("results", std::move(json), InColumns(rows) + "\n" + FiguresForPeople(results.figures));
}

Reply ShowTrends(Table& table, Arguments) {
  Json json = Json::object();
  std::vector<TextRow> rows;
  for (const BetTrend& trend : BetTrends(table.g)) {
    json[trend.run.label] = PlainJson(trend.run.plain);
    rows.push_back({trend.run.label, trend.run.text});
  }
  return Page("trends", std::move(json), rows.empty() ? kNoTrends : InColumns(rows));
}

Reply ShowGraph(Table& table, Arguments) {
  const BankrollGraph graph = GraphOfBankroll(table.g);
  Json json = {{"first_roll", graph.firstRoll},
               {"points", MoneyList(graph.points)},
               {"average", MoneyList(graph.average)},
               {"page_before", MoneyList(graph.pageBefore)},
               {"scale", MoneyList(graph.scale)}};
  json.update(FiguresJson(graph.figures));
  const std::string average =
      graph.average.empty() ? "" : "* bankroll   . " + MovingAverageLabel(table.g) + "\n";
  return Page("graph", std::move(json), GraphForPeople(graph) + average + FiguresForPeople(graph.figures));
}

}  // namespace rollwick
