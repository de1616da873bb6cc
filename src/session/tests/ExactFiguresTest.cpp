// The exact figures of every bet against the table itself: each bet's phantom dollar is played out over all
// dice by the procedures that settle a roll, from the come-out to its decision, under random rules.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

#include "dice/Matrix.h"
#include "engine/cycle/PhantomWagers.h"
#include "stats/advantage/EvaluateBet.h"
#include "stats/tally/Tally.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

struct Throw {
  int die1, die2;
  double chance;
  int Total() const { return die1 + die2; }
};

// Chances of results of a dollar; a decision for nothing is among them, no decision is not.
using Results = std::map<double, double>;

class Walk {
 public:
  explicit Walk(std::uint32_t seed) : random_(seed) {
    Game& g = table_.g;
    ChangePayoffs();
    g.Rules.BuyVigPct = Money::FromUnits(Pick({0, 100, 400, 500, 1'000}));
    g.Rules.LayVigPct = Money::FromUnits(Pick({0, 100, 400, 500, 1'000}));
    g.Rules.BuyVigOnAll = Pick({0, 1}) == 1;
    g.Rules.LayVigOnAll = Pick({0, 1}) == 1;
    g.Rules.BarNumber = Pick({2, 12});
    g.CountZeroOutcomes = Pick({0, 1}) == 1;
    g.UseProbabilityMatrix = seed % 3 != 0;
    if (g.UseProbabilityMatrix) WeighDice(seed % 3 == 2);
    for (const auto [row, column] : kPairCells) {
      const auto [die1, die2] = PairOfCell(static_cast<int>(row), static_cast<int>(column));
      const double weight = g.ProbabilityMatrix[MatrixValues][row][column] / 100'000.0;
      throws_.push_back({die1, die2, g.UseProbabilityMatrix ? weight : 1.0 / 36});
    }
    g.BetWorking.fill(On);
    PlayOut();
  }

  const Game& g() const { return table_.g; }
  const std::vector<Throw>& Throws() const { return throws_; }

  // What the dollar on `bet` got of this throw with the point as it was.
  double Result(BetId bet, int point, std::size_t thrown) const {
    return results_[static_cast<std::size_t>(point)][thrown][static_cast<std::size_t>(bet)];
  }

 private:
  int Pick(std::initializer_list<int> from) {
    return from.begin()[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(random_)];
  }

  // Ratios that a Money holds exactly, vig included: the phantom's four decimals then lose nothing. A row of
  // the line bets pays something, for the table takes a win of nothing for no decision.
  void ChangePayoffs() {
    for (PayoffRow& row : table_.g.PayoffTable)
      row = {Dollars(std::uniform_int_distribution(1, 40)(random_)), true, Dollars(Pick({1, 2, 4, 5}))};
    for (const BetId bet : {Bet::Place4, Bet::Hard6, Bet::Two, Bet::Twelve, Bet::Hop34})
      if (Pick({0, 1}) == 1) table_.g.PayoffTable[static_cast<std::size_t>(bet)].Ratio = Money();
    for (PayoffRow& row : table_.g.FieldPayoffTable)
      row = {Dollars(Pick({-1, -1, 0, 1, 2})), true, Dollars(1)};
    if (Pick({0, 1}) == 1)
      table_.g.PayoffTable[Bet::Seven] = {Dollars(4), true, Dollars(1)};  // World breaks even
  }

  // Weights that sum to the whole; with `onlySome`, most pairs never come.
  void WeighDice(bool onlySome) {
    auto& values = table_.g.ProbabilityMatrix[MatrixValues];
    int left = 100'000;
    for (const auto [row, column] : kPairCells) {
      const bool isLast = row == 7 && column == 6;
      const int share =
          onlySome && Pick({0, 0, 1}) == 0 ? 0 : std::uniform_int_distribution(0, left / 5)(random_);
      left -= values[row][column] = isLast ? left : share;
    }
    for (std::size_t total = 1; total <= 11; ++total) {
      values[1][total] = 0;
      for (std::size_t row = 2; row <= 7; ++row)
        values[1][total] += total >= row - 1 && total <= 13 - row ? values[row][total] : 0;
    }
  }

  // What a dollar's bet puts down: the vig goes with it where it is charged on all.
  double PutDown(BetId bet) const {
    const TableRules& rules = table_.g.Rules;
    const PayoffRow& row = table_.g.PayoffTable[static_cast<std::size_t>(bet)];
    if (IsBuy(bet) && rules.BuyVigOnAll) return 1 + rules.BuyVigPct.ToDouble();
    if (IsLay(bet) && rules.LayVigOnAll)
      return 1 + row.Ratio.ToDouble() / row.Base.ToDouble() * rules.LayVigPct.ToDouble();
    return 1;
  }

  void PlayOut() {
    Game& g = table_.g;
    for (const int point : {0, 4, 5, 6, 8, 9, 10}) {
      auto& ofPoint = results_[static_cast<std::size_t>(point)];
      for (const Throw& dice : throws_) {
        g.BetWagers = g.BetWins = g.BetLosses = {};
        g.DecidedCount = 0;
        for (BetStatRow& row : g.BetWagers[PhantomWagers]) row[InPlay] = Dollars(1);
        g.PointBeforeRoll = point;
        g.Die1 = dice.die1;
        g.Die2 = dice.die2;
        g.DiceTotal = dice.Total();
        StartCounting(g);
        CountPhantoms(g);
        BringUpToDate(g);
        auto& results = ofPoint.emplace_back();
        for (BetId bet = 1; bet <= kBetCount; ++bet) {
          const auto index = static_cast<std::size_t>(bet);
          const Money net =
              g.BetWins[PhantomWagers][index][TotalAmount] - g.BetLosses[PhantomWagers][index][TotalAmount];
          results[index] = net.ToDouble() / PutDown(bet);
        }
      }
    }
  }

  std::mt19937 random_;
  TestTable table_;
  std::vector<Throw> throws_;
  std::array<std::vector<std::array<double, kBetCount + 1>>, 11> results_;
};

// A bet that stands until it is decided: every roll is one more chance.
struct Standing {
  Results decided;  // on one roll
  double chance = 0;
  double stays = 0;
  Standing(const Walk& walk, BetId bet, int point) {
    for (std::size_t i = 0; i < walk.Throws().size(); ++i) {
      const double result = walk.Result(bet, point, i);
      (result == 0 ? stays : chance) += walk.Throws()[i].chance;
      if (result != 0) decided[result] += walk.Throws()[i].chance;
    }
  }
};

// What becomes of a line bet or a Come bet.
struct Course {
  Results decided;
  double tie = 0;
  double rolls = 0;

  void Stand(const Standing& bet, double weight) {
    for (const auto& [result, chance] : bet.decided) decided[result] += weight * chance / bet.chance;
    rolls += weight / bet.chance;
  }
};

// The bet behind `bet` once it stands on its number, and the point its box is played under.
BetId OnNumber(BetId bet, int number) {
  return bet == Bet::Come ? ComeOn(number) : bet == Bet::DontCome ? DontComeOn(number) : bet;
}

Course PlayCourse(const Walk& walk, BetId bet) {
  const int boxPoint = bet == Bet::Come || bet == Bet::DontCome ? 4 : 0;
  Course course;
  std::map<int, double> points;
  double ofAll = 0;
  for (std::size_t i = 0; i < walk.Throws().size(); ++i) {
    const Throw& dice = walk.Throws()[i];
    if (dice.chance == 0) continue;
    const bool isPoint = IsBoxNumber(dice.Total());
    if (isPoint) points[dice.Total()] += dice.chance;
    if (isPoint) ofAll += dice.chance;
    if (IsOdds(bet)) continue;
    course.rolls += dice.chance;
    if (isPoint) continue;
    const double result = walk.Result(bet, boxPoint, i);
    if (result == 0) course.tie += dice.chance;
    if (result != 0) course.decided[result] += dice.chance;
  }
  for (const auto& [number, chance] : points)
    course.Stand(Standing(walk, OnNumber(bet, number), number), IsOdds(bet) ? chance / ofAll : chance);
  return course;
}

double Mean(const Results& results) {
  double sum = 0;
  for (const auto& [result, chance] : results) sum += result * chance;
  return sum;
}
double Squares(const Results& results, double mean) {
  double sum = 0;
  for (const auto& [result, chance] : results) sum += (result - mean) * (result - mean) * chance;
  return sum;
}

BetFigures FiguresOfCourse(const Walk& walk, BetId bet) {
  Course course = PlayCourse(walk, bet);
  double decision = 0;
  for (const auto& [result, chance] : course.decided) decision += chance;
  const double mean = Mean(course.decided);
  if (walk.g().CountZeroOutcomes) {
    course.decided[0] += course.tie;
    decision = 1;
  }
  if (decision == 0 || course.rolls == 0) return {0, 0, decision == 0 ? 0 : course.rolls, 0, 0};
  BetFigures figures;
  figures.EvPerRoll = mean / course.rolls;
  figures.EvPerDecision = mean / decision;
  figures.RollsPerDecision = course.rolls / decision;
  // Meant: both deviations leave a barred roll out, with no other chances in its place.
  figures.StdDevPerRoll = std::sqrt(Squares(course.decided, figures.EvPerRoll) / course.rolls);
  figures.StdDevPerDecision = std::sqrt(Squares(course.decided, figures.EvPerDecision));
  return figures;
}

BetFigures FiguresOfSingleRolls(const Walk& walk, BetId bet) {
  const Standing standing(walk, bet, 4);
  if (standing.chance == 0) return {0, 0, walk.g().CountZeroOutcomes ? 1.0 : 0.0, 0, 0};
  const double ev = Mean(standing.decided);
  const double perRoll = std::sqrt(Squares(standing.decided, ev) + standing.stays * ev * ev);
  // Meant: with pushes counted, a roll that leaves the bet alone is one.
  if (walk.g().CountZeroOutcomes) return {ev, ev, 1, perRoll, perRoll};
  const double mean = ev / standing.chance;
  const double rolls = std::round(100 / standing.chance) / 100;
  return {ev, mean, rolls, perRoll, std::sqrt(Squares(standing.decided, mean) / standing.chance)};
}

TEST(ExactFigures, AreThoseOfTheTable) {
  constexpr double kHalfOfTheLastDecimal = 0.51e-6;
  for (std::uint32_t seed = 1; seed <= 30; ++seed) {
    const Walk walk(seed);
    for (BetId bet = 1; bet <= kBetCount; ++bet) {
      SCOPED_TRACE("rules " + std::to_string(seed) + ": " + BetName(bet));
      const bool isLine = bet >= Bet::PassLine && bet <= Bet::DontCome;
      const BetFigures table = isLine ? FiguresOfCourse(walk, bet) : FiguresOfSingleRolls(walk, bet);
      const BetFigures figures = EvaluateBet(walk.g(), bet);
      EXPECT_NEAR(figures.EvPerRoll, table.EvPerRoll, kHalfOfTheLastDecimal);
      EXPECT_NEAR(figures.EvPerDecision, table.EvPerDecision, kHalfOfTheLastDecimal);
      EXPECT_NEAR(figures.RollsPerDecision, table.RollsPerDecision, kHalfOfTheLastDecimal);
      EXPECT_NEAR(figures.StdDevPerRoll, table.StdDevPerRoll, kHalfOfTheLastDecimal);
      EXPECT_NEAR(figures.StdDevPerDecision, table.StdDevPerDecision, kHalfOfTheLastDecimal);
    }
  }
}

}  // namespace
}  // namespace rollwick
