// Long runs of phantom dollars on every spot must come out at the exact figures, and the dice at their
// chances. ROLLWICK_TEST_ROLLS sets another number of rolls for each of the three houses.
#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "dice/Draw.h"
#include "dice/MatrixEdit.h"
#include "engine/cycle/RollDice.h"
#include "figures/Expectation.h"
#include "figures/RollEventList.h"
#include "figures/RollFrequencies.h"
#include "stats/advantage/EvaluateBet.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

constexpr double kMostDeviations = 4;

std::int32_t RollsToMake() {
  std::int32_t rolls = 100'000;
  if (const char* const text = std::getenv("ROLLWICK_TEST_ROLLS"))
    std::from_chars(text, text + std::strlen(text), rolls);
  return rolls;
}

void ExpectNear(double actual, double expected, double deviation, const char* what) {
  EXPECT_LE(std::abs(actual - expected), kMostDeviations * deviation)
      << what << ": " << actual << " instead of " << expected << ", deviation " << deviation;
}

void CheckBets(Game& g) {
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    SCOPED_TRACE(BetName(bet));
    const BetStatRow& wagers = g.BetWagers[PhantomWagers][bet];
    const double decisions = wagers[TotalCount].ToDouble();
    ASSERT_GT(decisions, 200);
    // The exact figures are of a dollar put down: a vig paid on all bets lies in that dollar, one paid on
    // wins comes out of the win. The vig itself is recorded with the wager in both houses.
    const bool hasVigOnWins = (IsLay(bet) && !g.Rules.LayVigOnAll) || (IsBuy(bet) && !g.Rules.BuyVigOnAll);
    const double dollars = hasVigOnWins ? decisions : wagers[TotalAmount].ToDouble();
    const BetFigures exact = EvaluateBet(g, bet);
    const bool isOnBox = bet == Bet::Come || bet == Bet::DontCome;  // only part of the bet is decided there
    const DecisionOdds odds =
        isOnBox ? OddsOfDecision(g, bet) : DecisionOdds{exact.EvPerDecision, exact.StdDevPerDecision};
    const double net =
        (g.BetWins[PhantomWagers][bet][TotalAmount] - g.BetLosses[PhantomWagers][bet][TotalAmount])
            .ToDouble();
    ExpectNear(net / dollars, odds.mean, odds.deviation / std::sqrt(decisions), "net per dollar");
  }
}

void CheckDice(const Game& g) {
  const double rolls = g.RollCount();
  for (const RollEventItem& item : RollEventList()) {
    SCOPED_TRACE(item.text);
    const double chance =
        (g.UseProbabilityMatrix ? SkewedPercent(g.ProbabilityMatrix, item.dice) : TruePercent(item.dice)) /
        100;
    ExpectNear(ActualPercent(g, item.event) / 100, chance, std::sqrt(chance * (1 - chance) / rolls), "share");
    const double average = std::get<double>(FrequenciesOf(g, item.event, false).figures.back().plain);
    ExpectNear(average, 1 / chance,
               std::sqrt(1 - chance) / chance / std::sqrt(static_cast<double>(g.RollEventCount[item.event])),
               "rolls between");
  }
}

TEST(ExactOdds, LongRunsComeOutAtThem) {
  struct Row {
    const char* name;
    std::int32_t seed;
    void (*setUp)(Game& g);
  };
  const Row rows[] = {
      {"the house as it opens", 20'011, [](Game&) {}},
      {"vig on wins only, 2 barred, put bets, a field that pays triple", 20'021,
       [](Game& g) {
         g.Rules.BuyVigOnAll = g.Rules.LayVigOnAll = false;
         g.Rules.BarNumber = 2;
         g.Rules.AllowPutBets = true;
         g.FieldPayoffTable[21].Ratio = Dollars(3);
         g.PayoffTable[Bet::Horn].Ratio = Dollars(27);
         g.PayoffTable[Bet::Hard8].Ratio = Dollars(10);
         g.PayoffTable[Bet::Place5] = {Dollars(3), true, Dollars(2)};
       }},
      {"crooked dice", 20'063,
       [](Game& g) {
         NewProbabilityMatrix(g);
         EXPECT_TRUE(EnterMatrixCell(g, 7, 12, 20));
         EXPECT_TRUE(EnterMatrixCell(g, 2, 13, 12));
         g.UseProbabilityMatrix = true;
       }},
  };
  const std::int32_t rolls = RollsToMake();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    row.setUp(t.g);
    t.g.SeedRequest = Dollars(row.seed);
    ASSERT_EQ(SeedGenerator(t.g, true), SeedResult::Seeded);
    t.g.AutoRollsSet = t.g.AutoRollsLeft = rolls;
    ToggleHyperDrive(t.g);
    ASSERT_EQ(t.g.RollCount(), rolls);
    CheckBets(t.g);
    CheckDice(t.g);
  }
}

}  // namespace
}  // namespace rollwick
