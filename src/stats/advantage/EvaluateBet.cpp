// Two views of a bet: single rolls, for all that stands until its number or seven comes, and the whole cycle
// of come-out and point, for the lines and the Come boxes.
#include "stats/advantage/EvaluateBet.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>

#include "base/FormatNumber.h"
#include "dice/Matrix.h"

namespace rollwick {

namespace {

constexpr double kMatrixWhole = 100'000;

// A chance of 0 makes the figure 0.
double Over(double sum, double chance) {
  return chance == 0 ? 0 : sum / chance;
}

double RatioOf(const PayoffRow& row) {
  return Over(row.Ratio.ToDouble(), row.Base.ToDouble());
}

double Rounded(double figure) {
  const std::string text = FigureText(figure);
  double rounded = 0;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return rounded;
}

BetFigures Rounded(const BetFigures& exact) {
  return {Rounded(exact.EvPerRoll), Rounded(exact.EvPerDecision), Rounded(exact.RollsPerDecision),
          Rounded(exact.StdDevPerRoll), Rounded(exact.StdDevPerDecision)};
}

// ---- what a dollar gets on one roll

// A win less its vig, for each dollar put down; with the vig charged on all bets it is put down as well. One
// fraction, so that a vig that eats the whole win leaves exactly 0, which is no decision.
double LessVig(double ratio, double vig, bool isOnAll) {
  if (vig <= 0) return ratio;
  return isOnAll ? (ratio - vig) / (1 + vig) : ratio - vig;
}

double NetWin(const Game& g, BetId bet) {
  const double ratio = RatioOf(g.PayoffTable[bet]);
  if (IsLay(bet)) return LessVig(ratio, ratio * g.Rules.LayVigPct.ToDouble(), g.Rules.LayVigOnAll);
  if (IsBuy(bet)) return LessVig(ratio, g.Rules.BuyVigPct.ToDouble(), g.Rules.BuyVigOnAll);
  return ratio;
}

// The dollar is split and one part wins, the others lose. One fraction: World on a seven is exactly 0.
double SplitWin(const PayoffRow& row, int ways) {
  Money won = row.Ratio;
  for (int part = 1; part < ways; ++part) won -= row.Base;
  return Over(won.ToDouble(), ways * row.Base.ToDouble());
}

// The one-number row of a total of 2, 3, 7, 11 or 12; 0 for other totals.
BetId OneNumberBet(int total) {
  switch (total) {
    case 2:
      return Bet::Two;
    case 3:
      return Bet::Three;
    case 7:
      return Bet::Seven;
    case 11:
      return Bet::Eleven;
    case 12:
      return Bet::Twelve;
    default:
      return 0;
  }
}

bool IsCraps(int total) {
  return total == 2 || total == 3 || total == 12;
}

constexpr MatrixPair kHops[] = {{1, 3}, {1, 4}, {1, 5}, {1, 6}, {2, 2}, {2, 3}, {2, 4}, {2, 5}, {2, 6},
                                {3, 3}, {3, 4}, {3, 5}, {3, 6}, {4, 4}, {4, 5}, {4, 6}, {5, 5}};
static_assert(std::size(kHops) == Bet::Hop55 - Bet::Hop13 + 1);

bool IsHopOn(BetId bet, MatrixPair dice) {
  const auto [low, high] = std::minmax(dice.die1, dice.die2);
  const MatrixPair hop = kHops[bet - Bet::Hop13];
  return low == hop.die1 && high == hop.die2;
}

// Propositions are decided by every roll.
double PropositionResult(const Game& g, BetId bet, MatrixPair dice) {
  const int total = dice.die1 + dice.die2;
  const PayoffRow& own = g.PayoffTable[bet];
  const BetId number = OneNumberBet(total);
  const PayoffRow& numberRow = g.PayoffTable[number];
  bool wins = false;
  switch (bet) {
    case Bet::Craps:
      wins = IsCraps(total);
      break;
    case Bet::CAndE:
      if (total == 11) return SplitWin(numberRow, 2);
      return IsCraps(total) ? SplitWin(g.PayoffTable[Bet::Craps], 2) : -1;
    case Bet::Horn:
      return number != 0 && total != 7 ? SplitWin(numberRow, 4) : -1;
    case Bet::World:
      return number != 0 ? SplitWin(numberRow, 5) : -1;
    case Bet::Over7:
      wins = total > 7;
      break;
    case Bet::Under7:
      wins = total < 7;
      break;
    default:
      wins = IsHop(bet) ? IsHopOn(bet, dice) : number == bet;
      break;
  }
  return wins ? RatioOf(own) : -1;
}

// Bets that wait for their number and lose on seven; hard ones lose on their number the easy way as well.
double NumberResult(const Game& g, BetId bet, int number, MatrixPair dice) {
  const int total = dice.die1 + dice.die2;
  const bool isEasyWay = bet >= Bet::Hard4 && bet <= Bet::Hard10 && dice.die1 != dice.die2;
  if (total == number) return isEasyWay ? -1 : NetWin(g, bet);
  return total == 7 ? -1 : 0;
}

// What a dollar on the bet gets when the dice fall so; 0 is no decision.
double OneRollResult(const Game& g, BetId bet, MatrixPair dice) {
  const int total = dice.die1 + dice.die2;
  if (bet <= Bet::DontCome10Odds) {
    if (total == 7) return NetWin(g, bet);
    return total == NumberOf(bet) ? -1 : 0;
  }
  if (bet <= Bet::Buy10) return NumberResult(g, bet, NumberOf(bet), dice);
  switch (bet) {
    case Bet::Field:
      return RatioOf(g.FieldPayoffTable[FieldIndex(dice.die1, dice.die2)]);
    case Bet::Big6:
      return NumberResult(g, bet, 6, dice);
    case Bet::Big8:
      return NumberResult(g, bet, 8, dice);
    case Bet::Hard4:
    case Bet::Hard6:
    case Bet::Hard8:
    case Bet::Hard10:
      return NumberResult(g, bet, 4 + 2 * (bet - Bet::Hard4), dice);
    default:
      return PropositionResult(g, bet, dice);
  }
}

// ---- figures of a list of results

struct Outcome {
  double result;  // of a dollar; 0: no decision
  double chance;
};

double Expected(std::span<const Outcome> outcomes) {
  double sum = 0;
  for (const Outcome& outcome : outcomes) sum += outcome.result * outcome.chance;
  return sum;
}

double SumOfSquares(std::span<const Outcome> outcomes, double mean, bool decisionsOnly) {
  double sum = 0;
  for (const auto& [result, chance] : outcomes) {
    if (result != 0 || !decisionsOnly) sum += (result - mean) * (result - mean) * chance;
  }
  return sum;
}

DecisionOdds OddsWhenDecided(std::span<const Outcome> outcomes) {
  double decided = 0, sum = 0, squares = 0;
  for (const auto& [result, chance] : outcomes) {
    if (result == 0) continue;
    decided += chance;
    sum += result * chance;
    squares += result * result * chance;
  }
  const double mean = Over(sum, decided);
  return {mean, std::sqrt(std::max(0.0, Over(squares, decided) - mean * mean))};
}

// ---- single rolls

bool AreCrooked(const Game& g, DiceTaken dice) {
  return g.UseProbabilityMatrix && dice == DiceTaken::AtTheTable;
}

using OneRoll = std::array<Outcome, kPairCells.size()>;

OneRoll ResultsOfOneRoll(const Game& g, BetId bet, DiceTaken dice) {
  OneRoll outcomes;
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    const auto [row, column] = kPairCells[i];
    const auto weight = g.ProbabilityMatrix[MatrixValues][row][column];
    outcomes[i].chance = AreCrooked(g, dice) ? weight / kMatrixWhole : 1.0 / 36;
    outcomes[i].result =
        OneRollResult(g, bet, PairOfCell(static_cast<std::int32_t>(row), static_cast<std::int32_t>(column)));
  }
  return outcomes;
}

double ToTwoDecimals(double rolls) {
  const std::string text = FormatNumber(rolls, "#.##");
  double rounded = 0;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return rounded;
}

BetFigures EvaluateSingleRolls(const Game& g, BetId bet, DiceTaken dice) {
  const OneRoll outcomes = ResultsOfOneRoll(g, bet, dice);
  if (std::ranges::all_of(outcomes, [](const Outcome& o) { return o.result == 0; })) return {};
  double decision = 0;  // the chance of one on a roll
  for (const Outcome& outcome : outcomes) decision += outcome.result != 0 ? outcome.chance : 0;
  if (g.CountZeroOutcomes) decision = 1;

  BetFigures figures;
  figures.EvPerRoll = Expected(outcomes);
  figures.StdDevPerRoll = std::sqrt(SumOfSquares(outcomes, figures.EvPerRoll, false));
  figures.EvPerDecision = Over(figures.EvPerRoll, decision);
  figures.RollsPerDecision = ToTwoDecimals(Over(1, decision));
  const double squares = SumOfSquares(outcomes, figures.EvPerDecision, !g.CountZeroOutcomes);
  figures.StdDevPerDecision = std::sqrt(Over(squares, decision));
  return figures;
}

// ---- come-out and point

// Column 1 of the grid: chances by total, 2..12.
using Totals = std::array<double, 13>;

Totals ChancesOfTotals(const Game& g, DiceTaken dice) {
  Totals chances{};
  for (std::size_t total = 2; total <= 12; ++total) {
    const auto weight = g.ProbabilityMatrix[MatrixValues][1][total - 1];
    const auto ways = static_cast<double>(std::min(total - 1, 13 - total));
    chances[total] = AreCrooked(g, dice) ? weight / kMatrixWhole : ways / 36;
  }
  return chances;
}

// What may become of a bet from the come-out to its decision.
class Cycle {
 public:
  // Meant: a win that pays nothing is a decision as well.
  void AddResult(double result, double chance) {
    outcomes_[count_++] = {result, chance};
    decision_ += chance;
  }
  void AddTie(double chance) { outcomes_[count_++] = {0, chance}; }
  void AddRolls(double rolls) { rolls_ += rolls; }

  std::span<const Outcome> Outcomes() const { return {outcomes_.data(), count_}; }

  BetFigures Evaluate(bool countsTies) const {
    const std::span<const Outcome> outcomes(outcomes_.data(), count_);
    const double expected = Expected(outcomes);
    const double decision = countsTies ? 1 : decision_;
    BetFigures figures;
    figures.EvPerRoll = Over(expected, rolls_);
    figures.EvPerDecision = Over(expected, decision);
    figures.RollsPerDecision = Over(rolls_, decision);
    // Meant: only what decides the bet swings, and the deviation of a decision is not taken of the decided
    // part alone.
    figures.StdDevPerRoll = std::sqrt(Over(SumOfSquares(outcomes, figures.EvPerRoll, false), rolls_));
    figures.StdDevPerDecision = std::sqrt(SumOfSquares(outcomes, figures.EvPerDecision, false));
    return figures;
  }

 private:
  std::array<Outcome, 20> outcomes_;  // five of the come-out, two of each point
  std::size_t count_ = 0;
  double decision_ = 0;  // the chance of any
  double rolls_ = 0;
};

bool IsDont(BetId bet) {
  return bet >= Bet::DontPass;
}

// The row that pays the bet on a point.
BetId PointRow(BetId bet, int number) {
  switch (bet) {
    case Bet::PassLineOdds:
      return ComeOddsOn(number);
    case Bet::DontPassOdds:
      return DontComeOddsOn(number);
    default:
      return IsDont(bet) ? DontComeOn(number) : ComeOn(number);
  }
}

void AddComeOut(Cycle& cycle, const Game& g, BetId bet, const Totals& chances) {
  const double win = RatioOf(g.PayoffTable[IsDont(bet) ? Bet::DontCome : Bet::Come]);
  for (const int total : {2, 3, 7, 11, 12}) {
    const double chance = chances[static_cast<std::size_t>(total)];
    const bool wins = IsCraps(total) == IsDont(bet);
    cycle.AddRolls(chance);
    if (IsDont(bet) && total == g.Rules.BarNumber) {
      if (g.CountZeroOutcomes) cycle.AddTie(chance);
    } else {
      cycle.AddResult(wins ? win : -1, chance);
    }
  }
}

// `weight` is the chance that the point comes to be, `rollsBefore` what it took to get there.
void AddPoint(Cycle& cycle, const Game& g, BetId bet, int number, const Totals& chances, double weight,
              int rollsBefore) {
  const double made = chances[static_cast<std::size_t>(number)], seven = chances[7];
  const double decision = made + seven;
  if (decision == 0) return;
  const double win = RatioOf(g.PayoffTable[PointRow(bet, number)]);
  cycle.AddResult(win, weight * (IsDont(bet) ? seven : made) / decision);
  cycle.AddResult(-1, weight * (IsDont(bet) ? made : seven) / decision);
  cycle.AddRolls(weight * (1 / decision + rollsBefore));
}

Cycle WholeCycle(const Game& g, BetId bet, const Totals& chances) {
  double points = 0;
  for (const int number : kBoxNumbers) points += chances[static_cast<std::size_t>(number)];
  Cycle cycle;
  if (!IsOdds(bet)) AddComeOut(cycle, g, bet, chances);
  for (const int number : kBoxNumbers) {
    const double chance = chances[static_cast<std::size_t>(number)];
    // Odds begin with the point: it is taken for granted that there is one.
    AddPoint(cycle, g, bet, number, chances, IsOdds(bet) ? Over(chance, points) : chance,
             IsOdds(bet) ? 0 : 1);
  }
  return cycle;
}

bool RunsOverPoint(BetId bet) {
  return bet >= Bet::PassLine && bet <= Bet::DontCome;
}

}  // namespace

BetFigures EvaluateBet(const Game& g, BetId bet, DiceTaken dice) {
  if (!RunsOverPoint(bet)) return Rounded(EvaluateSingleRolls(g, bet, dice));
  return Rounded(WholeCycle(g, bet, ChancesOfTotals(g, dice)).Evaluate(g.CountZeroOutcomes));
}

DecisionOdds OddsOfDecision(const Game& g, BetId bet) {
  if (!RunsOverPoint(bet)) return OddsWhenDecided(ResultsOfOneRoll(g, bet, DiceTaken::AtTheTable));
  const Totals chances = ChancesOfTotals(g, DiceTaken::AtTheTable);
  if (bet != Bet::Come && bet != Bet::DontCome)
    return OddsWhenDecided(WholeCycle(g, bet, chances).Outcomes());
  Cycle onTheBox;
  AddComeOut(onTheBox, g, bet, chances);
  return OddsWhenDecided(onTheBox.Outcomes());
}

std::string FigureText(double figure) {
  return FormatNumber(figure, "#.######;-#.######;0.000000");
}

}  // namespace rollwick
