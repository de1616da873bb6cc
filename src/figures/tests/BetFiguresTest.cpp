// Bet results, trends and expectations by hand, and every screen with nothing to divide by.
#include <gtest/gtest.h>

#include <cmath>

#include "figures/BankrollGraph.h"
#include "figures/BetResults.h"
#include "figures/BetTrends.h"
#include "figures/Expectation.h"
#include "figures/Games.h"
#include "figures/RollFrequencies.h"
#include "figures/RollTotals.h"
#include "figures/Summary.h"
#include "stats/tally/Tally.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

std::string TextOf(const BetResultsLine& line) {
  return line.label + ": " + line.wagers.text + " " + line.wins.text + " " + line.losses.text + " | " +
         line.net.text + " | " + line.netShare.text;
}

void AddDollar(BetStatRow& row) {
  for (const BetStatField field : {TotalCount, TotalAmount}) row[field] += Dollars(1);
  for (const BetStatField field : {HighAmount, LowAmount, LastAmount, LastRollCount, LastRollAmount})
    row[field] = Dollars(1);
}

void Decide(Game& g, BetId bet, Money wager, Money result) {
  RecordBetDecision(g, bet, wager, result);
  const bool won = result > Money();
  MarkDecided(g, PhantomWagers, bet, won);
  AddDollar(g.BetWagers[PhantomWagers][bet]);
  AddDollar((won ? g.BetWins : g.BetLosses)[PhantomWagers][bet]);
}

TEST(BetResults, TableByHand) {
  TestTable t;
  Game& g = t.g;
  g.RollCount() = 30;  // a quarter of an hour
  Decide(g, Bet::PassLine, Dollars(10), Dollars(10));
  Decide(g, Bet::PassLine, Dollars(20), -Dollars(20));
  StartRollResults(g);
  Decide(g, Bet::Place6, Dollars(6), Money::FromUnits(72'500));
  g.BetAmount[Bet::Place6] = Dollars(12);
  g.BetAtThrow[Bet::Place6] = Dollars(6);
  // Hard 4 is chosen too, and was never decided.
  const BetId bets[] = {Bet::PassLine, Bet::Place6, Bet::Hard4};
  const BetResults results = BetResultsOf(g, RowsOf(g, ActualWagers), bets);
  const char* const lines[] = {
      "Total #: 3 2 1 | 1 | 33.33 %",
      "Total $: 36 17.25 20 | -2.75 | -7.64 %",
      "High $: 20 10 20 | -10 | -50.00 %",
      "Low $: 6 7.25 20 | -12.75 | -212.50 %",
      "Average $: 12 8.625 20 | -11.375 | -94.79 %",
      "Last $: 26 17.25 20 | -2.75 | -10.58 %",
      "Last roll #: 1 1 0 | 1 | 100.00 %",
      "Last roll $: 6 7.25 0 | 7.25 | 120.83 %",
      "Avg. # / hour: 12 8 4 | 4 | 33.33 %",
      "Avg. $ / hour: 144 69 80 | -11 | -7.64 %",
      "Expctd value $:    | -.515 | -1.43 %",  // 30 * -0.014141 + 6 * -0.015152
  };
  for (std::size_t i = 0; i < std::size(lines); ++i) EXPECT_EQ(TextOf(results.lines[i]), lines[i]);
  EXPECT_EQ(results.lines[0].net.tone, Tone::Gain);
  EXPECT_EQ(results.lines[1].net.tone, Tone::Loss);
  std::string below;
  for (const Figure& figure : results.figures) below += figure.text + " ";
  EXPECT_EQ(below, "3 12 6 30 120 .25 ");
  const BetResults phantom = BetResultsOf(g, RowsOf(g, PhantomWagers), bets);
  EXPECT_EQ(TextOf(phantom.lines[1]), "Total $: 3 2 1 | 1 | 33.33 %");
  EXPECT_EQ(TextOf(BetResultsOf(g, RowsOf(g, ActualWagers), {}).lines[10]), "Expctd value $:    | 0 | 0 %");
}

TEST(BetTrends, OnlyBetsOnARun) {
  TestTable t;
  EXPECT_TRUE(BetTrends(t.g).empty());
  t.g.BetStreak[Bet::Lay4][1] = -2;
  t.g.BetStreak[Bet::Field][0] = 4;  // before this roll
  t.g.BetStreak[Bet::Hop55][1] = 3;
  const auto trends = BetTrends(t.g);
  ASSERT_EQ(trends.size(), 2u);
  EXPECT_EQ(trends[0].run.label + trends[0].run.text, "Lay 4-2");
  EXPECT_EQ(trends[1].run.label + trends[1].run.text, "Hop 5-5+3");
  EXPECT_EQ(trends[0].run.tone, Tone::Loss);
}

TEST(Expectation, OfAMixedTable) {
  TestTable t;
  Game& g = t.g;
  EXPECT_EQ(ExpectationOf(g).DeviationsAway(), 0);
  struct Row {
    const char* name;
    BetId bet;
    double mean, deviation;
  };
  const Row rows[] = {
      {"Any Seven", Bet::Seven, -1.0 / 6, std::sqrt(125.0 / 36)},
      {"Come on its box: 8 ways up, 4 down", Bet::Come, 1.0 / 3, std::sqrt(8.0 / 9)},
      {"Don't Come with 12 barred: 3 up, 8 down", Bet::DontCome, -5.0 / 11, std::sqrt(1 - 25.0 / 121)},
      {"Place 6", Bet::Place6, -1.0 / 66, 13.0 / 6 * std::sqrt(30) / 11},
  };
  double expected = 0, variance = 0;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const DecisionOdds odds = OddsOfDecision(g, row.bet);
    EXPECT_NEAR(odds.mean, row.mean, 1e-6);
    EXPECT_NEAR(odds.deviation, row.deviation, 1e-6);
    Decide(g, row.bet, Dollars(6), -Dollars(6));
    Decide(g, row.bet, Dollars(18), -Dollars(18));
    expected += 24 * row.mean;
    variance += 2 * 12 * 12 * row.deviation * row.deviation;
  }
  const Expectation all = ExpectationOf(g);
  EXPECT_EQ(all.wagered, Dollars(96));
  EXPECT_EQ(all.result, Dollars(-96));
  EXPECT_NEAR(all.expected, expected, 1e-4);
  EXPECT_NEAR(all.deviation, std::sqrt(variance), 1e-4);
  EXPECT_LT(all.DeviationsAway(), -2);
  g.CountZeroOutcomes = true;
  EXPECT_NEAR(OddsOfDecision(g, Bet::Place6).mean, -1.0 / 66, 1e-6);
  EXPECT_TRUE(g.CountZeroOutcomes);
}

TEST(GamesRows, TextsOfTheScreen) {
  const auto figures = [](std::vector<GameValue> games) {
    return AnalyseGames(games, {}, {true, true, true});
  };
  const auto texts = [](const GamesFigures& games) {
    std::string all;
    for (const GamesClassRow& row : GamesClassRows(games)) all += row.games.text + " " + row.share.text + "|";
    for (const Figure& figure : GamesRows(games)) all += figure.label + " " + figure.text + "|";
    return all;
  };
  EXPECT_EQ(texts(figures({})),
            "0 0%|0 0%|0 0%|0 0%|Sum 0|Mean 0|Median 0|Mode 0|High 0|Mid 0|Low 0|Range 0|Variance 0|"
            "Standard deviation 0|Skew 0.|Kurtosis 0.|");
  const std::vector<GameValue> three = {{Dollars(-1500), Dollars(-1500)},
                                        {Dollars(10), Dollars(10)},
                                        {Dollars(20), Dollars(20)},
                                        {Dollars(20), Money()}};
  EXPECT_EQ(texts(figures(three)),
            "2 50.0|1 25.0|1 25.0|4 100|Sum -1,450.0|Mean -362.5|   Median * 15.0|Mode 20.0|High 20.0|"
            "Mid -740.0|Low -1,500.0|Range 1,520.0|Variance 431,318.75|Standard deviation 656.75|"
            "Skew -1.154566879|Kurtosis 2.33322984|");
  const GamesBandTexts band = TextsOfBand({Dollars(1000), Dollars(2000), 1}, 3);
  EXPECT_EQ(band.low + "|" + band.high + "|" + band.games + "|" + band.share,
            "1,000.0|2,000.0|1 game|33.33 %");
  EXPECT_EQ(TextsOfBand({}, 0).share, "0 %");
}

// Texts of every screen.
std::vector<Figure> EveryFigure(Game& g) {
  std::vector<Figure> all = SummaryFigures(g);
  const auto add = [&](const std::vector<Figure>& more) { all.insert(all.end(), more.begin(), more.end()); };
  add(GraphOfBankroll(g).figures);
  const BetId bets[] = {Bet::PassLine, Bet::Lay4};
  for (const bool skewed : {false, true}) {
    for (const int set : {0, 1, 2, 3}) {
      for (const RollTotalsRow& row : RollTotals(g, TotalsSet{set}, skewed))
        add({row.count, row.actual, row.probable, row.rollsSince});
    }
    add(FrequenciesOf(g, 7, skewed).figures);
    const BetResults results = BetResultsOf(g, RowsOf(g, skewed ? PhantomWagers : ActualWagers), bets);
    add(results.figures);
    for (const BetResultsLine& line : results.lines)
      add({line.wagers, line.wins, line.losses, line.net, line.netShare});
  }
  return all;
}

TEST(EveryScreen, DividesByNothing) {
  struct Row {
    const char* name;
    void (*prepare)(Game& g);
  };
  const Row rows[] = {
      {"a new game", [](Game&) {}},
      {"no pace", [](Game& g) { g.RollsPerHour = Money(); }},
      {"a pace below 0", [](Game& g) { g.RollsPerHour = Dollars(-1); }},
      {"one roll, no wager",
       [](Game& g) {
         g.Die1 = 3, g.Die2 = 4, g.DiceTotal = 7;
         TallyRoll(g);
         TallyBankroll(g);
         AddBankrollPoint(g);
       }},
      {"a count without an amount",
       [](Game& g) { g.BetWagers[ActualWagers][Bet::PassLine][TotalCount] = Dollars(1); }},
      {"comps of no loss",
       [](Game& g) {
         g.CompBetMask = {-1, -1, -1};
         g.CompRate = Dollars(30);
       }},
      {"a matrix of nothing", [](Game& g) { g.ProbabilityMatrix = {}; }},
      {"the average of no point", [](Game& g) { g.MovingAverageOn = true; }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    row.prepare(t.g);
    for (const Figure& figure : EveryFigure(t.g)) {
      std::string text = figure.text;
      if (const double* const value = std::get_if<double>(&figure.plain)) text += " " + PlainText(*value);
      for (const char* bad : {"nan", "inf", "-0"})
        EXPECT_EQ(text.find(bad), std::string::npos) << figure.name << ": " << text;
    }
    EXPECT_EQ(ExpectationOf(t.g).DeviationsAway(), 0);
  }
}

}  // namespace
}  // namespace rollwick
