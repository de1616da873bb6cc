// Figures of every bet against the golden ones of tests/data/advantage.txt, and under rules that leave
// nothing to decide. src/session/tests/ExactFiguresTest.cpp plays the same bets out at the table.
#include "stats/advantage/EvaluateBet.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <sstream>

#include "dice/Matrix.h"
#include "stats/advantage/AdvantageTexts.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

std::array<std::string, 5> Texts(const BetFigures& figures) {
  return {FigureText(figures.EvPerRoll), FigureText(figures.EvPerDecision),
          FigureText(figures.RollsPerDecision), FigureText(figures.StdDevPerRoll),
          FigureText(figures.StdDevPerDecision)};
}

// Takes a line of the golden file that changes the rules.
void ApplyLine(Game& g, const std::string& kind, std::istream& line) {
  if (kind == "set") {
    SetStartUpDefaults(g);
    line >> g.Rules.BuyVigOnAll >> g.Rules.LayVigOnAll >> g.Rules.BarNumber >> g.CountZeroOutcomes;
  } else if (kind == "pairs") {
    g.UseProbabilityMatrix = true;
    for (int pair = 0, weight = 0; line >> weight; ++pair) {
      for (const auto [row, column] : kPairCells) {
        const auto [die1, die2] = PairOfCell(static_cast<int>(row), static_cast<int>(column));
        if (die1 == pair / 6 + 1 && die2 == pair % 6 + 1)
          g.ProbabilityMatrix[MatrixValues][row][column] = weight;
      }
    }
  } else if (kind == "totals") {
    for (std::size_t column = 1; column <= 11; ++column) line >> g.ProbabilityMatrix[MatrixValues][1][column];
  }
}

TEST(EvaluateBet, GoldenFigures) {
  TestTable table;
  std::ifstream file(std::string(ROLLWICK_TEST_DATA) + "/advantage.txt");
  std::string text, set;
  int bets = 0;
  while (std::getline(file, text)) {
    std::istringstream line(text);
    std::string kind;
    line >> kind;
    ApplyLine(table.g, kind, line);
    if (kind == "set") set = text;
    if (kind != "bet") continue;
    BetId bet = 0;
    std::array<std::string, 5> expected;
    line >> bet;
    for (std::string& figure : expected) line >> figure;
    EXPECT_EQ(Texts(EvaluateBet(table.g, bet)), expected) << set << ": " << BetName(bet);
    ++bets;
  }
  EXPECT_EQ(bets, 5 * kBetCount);
}

TEST(EvaluateBet, AsThePlayerReadsThem) {
  const struct Row {
    const char* name;
    BetId bet;
    std::array<std::string, 5> percent;
    std::array<std::string, 3> misc;
  } rows[] = {
      {"Lay 4", Bet::Lay4, {"-0.61", "34.51", "-2.44", "68.99", "-73.18"}, {"4.00", "0.25", "0:02:00.0"}},
      {"DP/DC 10",
       Bet::DontCome10,
       {"8.33", "49.30", "33.33", "94.28", "1000.00"},
       {"4.00", "0.25", "0:02:00.0"}},
      {"Place 6",
       Bet::Place6,
       {"-0.46", "59.64", "-1.52", "107.88", "-55.56"},
       {"3.27", "0.31", "0:01:38.1"}},
      {"Pass/Come 5 Odds",
       Bet::Come5Odds,
       {"0.00", "64.55", "0.00", "122.47", "0.00"},
       {"3.60", "0.28", "0:01:48.0"}},
      {"Buy 5", Bet::Buy5, {"-1.32", "61.51", "-4.76", "116.64", "-158.74"}, {"3.60", "0.28", "0:01:48.0"}},
      {"Pass Line",
       Bet::PassLine,
       {"-0.42", "54.42", "-1.41", "99.99", "-50.27"},
       {"3.38", "0.30", "0:01:41.27"}},
      {"Don't Pass",
       Bet::DontPass,
       {"-0.40", "53.66", "-1.40", "98.59", "-48.47"},
       {"3.47", "0.29", "0:01:44.17"}},
      {"Field", Bet::Field, {"-5.56", "107.87", "-5.56", "107.87", "-666.67"}, {"1.00", "1.00", "0:00:30.0"}},
      {"Two", Bet::Two, {"-13.89", "509.44", "-13.89", "509.44", "-1666.67"}, {"1.00", "1.00", "0:00:30.0"}},
      {"World",
       Bet::World,
       {"-13.33", "163.98", "-16.00", "179.51", "-1600.00"},
       {"1.20", "0.83", "0:00:36.0"}},
  };
  const TestTable table;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(AdvantageName(row.bet), row.name);
    EXPECT_EQ(AdvantageTexts(table.g, EvaluateBet(table.g, row.bet)), row.percent);
    EXPECT_EQ(MiscTexts(table.g, EvaluateBet(table.g, row.bet)), row.misc);
  }
}

TEST(EvaluateBet, TimesAndRates) {
  const struct Row {
    const char* name;
    std::int64_t hourlyUnits;
    double rolls;
    std::string time;
    std::int32_t form;
    std::string rate;
  } rows[] = {
      {"no rolls in an hour", 0, 4, "", 4, "<.0001 Mins / roll"},
      {"seconds that round up to a minute", 12'000'000, 39.9999, "0:02:00.0", 0, "1200 Rolls / hr"},
      {"many hours", 10'000, 1234.5, "1234:30:00.0", 1, ".0167 Rolls / min"},
      {"nothing to wait for", 1'200'000, 0, "0:00:00.0", 2, ".0333 Rolls / sec"},
      {"hundredths", 36'000'000, 1.05, "0:00:01.05", 3, ".0003 Hrs / roll"},
      {"minutes", 1'200'000, 1, "0:00:30.0", 4, ".5 Mins / roll"},
      {"seconds", 1'200'000, 1, "0:00:30.0", 5, "30 Secs / roll"},
      {"slower than shown", 1'000, 1, "10:00:00.0", 2, "<.0001 Rolls / sec"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable table;
    table.g.RollsPerHour = Money::FromUnits(row.hourlyUnits);
    table.g.RollsPerTimeForm = row.form;
    BetFigures figures;
    figures.RollsPerDecision = row.rolls;
    EXPECT_EQ(MiscTexts(table.g, figures)[2], row.time);
    EXPECT_EQ(RollRateText(table.g), row.rate);
  }
}

// Dice that always fall as one pair; the untouched matrix when there is none.
void LoadDice(Game& g, int die1, int die2) {
  g.UseProbabilityMatrix = true;
  for (auto& row : g.ProbabilityMatrix[MatrixValues]) row.fill(0);
  for (const auto [row, column] : kPairCells) {
    const auto pair = PairOfCell(static_cast<int>(row), static_cast<int>(column));
    if (pair.die1 == die1 && pair.die2 == die2) g.ProbabilityMatrix[MatrixValues][row][column] = 100'000;
  }
  if (die1 != 0) g.ProbabilityMatrix[MatrixValues][1][static_cast<std::size_t>(die1 + die2 - 1)] = 100'000;
}

TEST(EvaluateBet, NothingToDivideBy) {
  struct Row {
    std::string name;
    std::function<void(Game&)> change;
  };
  std::vector<Row> rows = {
      {"dice of no weight", [](Game& g) { LoadDice(g, 0, 0); }},
      {"bases of 0",
       [](Game& g) {
         for (auto& row : g.PayoffTable) row.Base = Money();
         g.FieldPayoffTable.fill({Dollars(1), true, Money()});
       }},
      {"payoffs of 0",
       [](Game& g) {
         for (auto& row : g.PayoffTable) row.Ratio = Money();
         g.FieldPayoffTable.fill({Money(), true, Dollars(1)});
       }},
      {"the largest payoffs",
       [](Game& g) {
         for (auto& row : g.PayoffTable) row.Ratio = Money::FromUnits(INT64_MAX);
       }},
      {"a vig of nothing", [](Game& g) { g.Rules.BuyVigPct = g.Rules.LayVigPct = Money(); }},
      {"no rolls in an hour", [](Game& g) { g.RollsPerHour = Money(); }},
  };
  for (int pair = 0; pair < 36; ++pair) {
    rows.push_back({"always " + std::to_string(pair / 6 + 1) + "-" + std::to_string(pair % 6 + 1),
                    [pair](Game& g) { LoadDice(g, pair / 6 + 1, pair % 6 + 1); }});
  }
  for (const Row& row : rows) {
    for (const bool countsZero : {false, true}) {
      TestTable table;
      row.change(table.g);
      table.g.CountZeroOutcomes = countsZero;
      for (BetId bet = 1; bet <= kBetCount; ++bet) {
        SCOPED_TRACE(row.name + ": " + BetName(bet));
        const BetFigures figures = EvaluateBet(table.g, bet);
        std::string texts;
        for (const std::string& text : Texts(figures)) texts += " " + text;
        for (const std::string& text : AdvantageTexts(table.g, figures)) texts += " " + text;
        for (const std::string& text : MiscTexts(table.g, figures)) texts += " " + text;
        EXPECT_EQ(texts.find_first_not_of(" -.:0123456789"), std::string::npos) << texts;
        EXPECT_EQ((texts + " ").find("-0.00 "), std::string::npos) << texts;
        EXPECT_GE(figures.StdDevPerRoll, 0);
      }
    }
  }
}

TEST(EvaluateBet, BetsThatNothingDecides) {
  using Figures = std::array<std::string, 5>;
  const std::string zero = "0.000000";
  const Figures nothing = {zero, zero, zero, zero, zero};
  const struct Row {
    const char* name;
    BetId bet;
    std::function<void(Game&)> change;
    Figures figures, countingZero;
  } rows[] = {
      {"a Field that returns every dollar", Bet::Field,
       [](Game& g) {
         g.FieldPayoffTable.fill({Money(), true, Dollars(1)});
       },
       nothing, nothing},
      {"a Place bet beside the dice",
       Bet::Place4,
       [](Game& g) { LoadDice(g, 1, 1); },
       nothing,
       {zero, zero, "1.", zero, zero}},
      {"Don't Pass always barred",
       Bet::DontPass,
       [](Game& g) { LoadDice(g, 6, 6); },
       nothing,
       {zero, zero, "1.", zero, zero}},
      {"odds without a point", Bet::PassLineOdds, [](Game& g) { LoadDice(g, 6, 1); }, nothing, nothing},
      {"a Buy bet whose vig eats the win",
       Bet::Buy4,
       [](Game& g) {
         LoadDice(g, 2, 2);
         g.PayoffTable[Bet::Buy4] = {Dollars(1), true, Dollars(20)};
       },
       nothing,
       {zero, zero, "1.", zero, zero}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable table;
    row.change(table.g);
    EXPECT_EQ(Texts(EvaluateBet(table.g, row.bet)), row.figures);
    table.g.CountZeroOutcomes = true;
    EXPECT_EQ(Texts(EvaluateBet(table.g, row.bet)), row.countingZero);
  }
}

TEST(EvaluateBet, TrueDiceOnRequest) {
  TestTable table;
  const BetFigures fair = EvaluateBet(table.g, Bet::Hard8);
  LoadDice(table.g, 4, 4);
  EXPECT_EQ(EvaluateBet(table.g, Bet::Hard8).EvPerRoll, 9);
  EXPECT_EQ(Texts(EvaluateBet(table.g, Bet::Hard8, DiceTaken::True)), Texts(fair));
  table.g.UseProbabilityMatrix = false;
  EXPECT_EQ(Texts(EvaluateBet(table.g, Bet::Hard8)), Texts(fair));
}

}  // namespace
}  // namespace rollwick
