#include "console/Advantage.h"

#include <ostream>

#include "console/Columns.h"
#include "console/GameFiles.h"
#include "console/Words.h"
#include "files/GameFile.h"
#include "stats/advantage/AdvantageTexts.h"
#include "stats/advantage/Comps.h"

namespace rollwick {
namespace {

int Wrong(const Terminal& terminal, const std::string& wrong, int exitCode) {
  terminal.error << "rollwick: " << CleanUtf8(OneLine(wrong)) << "\n";
  return exitCode;
}

Json AdvantageJson(const Game& g) {
  Json bets = Json::array();
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const BetFigures figures = EvaluateBet(g, bet);
    bets.push_back({{"id", bet},
                    {"name", BetName(bet)},
                    {"ev_per_roll", FigureText(figures.EvPerRoll)},
                    {"ev_per_decision", FigureText(figures.EvPerDecision)},
                    {"rolls_per_decision", FigureText(figures.RollsPerDecision)},
                    {"sd_per_roll", FigureText(figures.StdDevPerRoll)},
                    {"sd_per_decision", FigureText(figures.StdDevPerDecision)}});
  }
  return {{"advantage", bets}};
}

// A line a bet.
std::string AdvantageForPeople(const Game& g) {
  std::vector<TextRow> rows = {{"Bet"}};
  rows[0].insert(rows[0].end(), kAdvantageHeadings.begin(), kAdvantageHeadings.end());
  rows[0].insert(rows[0].end(), {"Rolls/Dec", "Dec/Roll", "Time/Dec"});
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const BetFigures figures = EvaluateBet(g, bet);
    TextRow& row = rows.emplace_back(TextRow{AdvantageName(bet)});
    for (const std::string& text : AdvantageTexts(g, figures)) row.push_back(text);
    for (const std::string& text : MiscTexts(g, figures)) row.push_back(text);
  }
  return "All figures shown in percentage, at " + RollRateText(g) + ".\n" + InColumns(rows);
}

std::string TickedBets(const Game& g) {
  std::string text;
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    if (EarnsComps(g, bet)) text += (text.empty() ? "" : ", ") + BetName(bet);
  }
  return text.empty() ? "No bet earns comps." : "For " + text + ".";
}

}  // namespace

Reply ShowAdvantage(Table& table, Arguments) {
  Reply reply;
  reply.extra = AdvantageJson(table.g);
  reply.text = AdvantageForPeople(table.g);
  reply.text.pop_back();
  return reply;
}

Reply ShowComps(Table& table, Arguments) {
  const Game& g = table.g;
  const CompFigures comps = UpdateComps(g, CompTarget::ConfigureLabels);
  const auto texts = CompTexts(comps);
  const auto plain = [](double amount) { return PlainText(Money::FromDouble(amount)); };
  Json json;
  json["CompBetMask"] = g.CompBetMask;
  json["CompBase"] = g.CompBase;
  json["CompRate"] = PlainText(g.CompRate);
  json["CompsUseTrueProbs"] = g.CompsUseTrueProbs;
  json["RollsPerHour"] = PlainText(g.RollsPerHour);
  json["Action"] = PlainText(comps.Action);
  json["Decisions"] = comps.Decisions.Units() / Money::kUnitsPerDollar;
  json["HouseEv"] = plain(comps.HouseEv);
  json["ActionTime"] = PlainText(comps.ActionTime);
  json["Hours"] = plain(comps.Hours);
  json["Value"] = plain(comps.Value);
  json["lblCompdata"] = texts;
  Reply reply;
  reply.extra["comps"] = std::move(json);
  std::vector<TextRow> rows;
  for (std::size_t i = 0; i < texts.size(); ++i) rows.push_back({kCompCaptions[i], texts[i]});
  reply.text = TickedBets(g) + "\n" + InColumns(rows);
  reply.text.pop_back();
  return reply;
}

int RunAdvantage(const CommonOptions& options, bool countsZeroOutcomes, const Terminal& terminal) {
  Table table(options, terminal);
  if (!table.Error().empty()) return Wrong(terminal, table.Error(), ExitUsage);
  // Nothing is played: no dice are seeded and no game is begun, and the logs of the saved one stay as they
  // are.
  CommonOptions gameOnly = options;
  gameOnly.seed.clear();
  gameOnly.rulesFile.clear();
  std::string wrong = StartFromFiles(table, gameOnly);
  if (wrong.empty() && !options.rulesFile.empty()) {
    if (const auto refusal = LoadRules(table.g, options.rulesFile))
      wrong = Echo(options.rulesFile) + ": " + refusal->text;
  }
  if (wrong.empty()) wrong = PlayWithMatrix(table.g, options.matrixFile);
  if (!wrong.empty()) return Wrong(terminal, wrong, ExitFailure);
  if (countsZeroOutcomes) table.g.CountZeroOutcomes = true;
  terminal.error << SaidForPeople(table.host);  // what a game file had to say
  if (options.json) {
    terminal.out << AdvantageJson(table.g).dump() << "\n";
  } else {
    terminal.out << AdvantageForPeople(table.g);
  }
  terminal.out << std::flush;
  return terminal.out.good() ? ExitSuccess : ExitFailure;
}

}  // namespace rollwick
