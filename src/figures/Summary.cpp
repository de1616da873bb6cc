#include "figures/Summary.h"

#include "base/FormatNumber.h"
#include "stats/advantage/Comps.h"
#include "stats/tally/Tally.h"

namespace rollwick {
namespace {

constexpr std::string_view kShareFormat = "#,#.00%;-#,#.00%;0%";
constexpr std::string_view kAverageFormat = "#,#.##;-#,#.##;0";
constexpr const char* kBankrollLine = "Bankroll: high, current, average, low";

struct HandFigure {
  const char* name;
  const char* label;
  HandStat stat;
};
constexpr HandFigure kHand[] = {
    {"lblHandCurrentRolls", "Current hand", HandRolls},
    {"lblHandCurrentPasses", "Current hand", HandPasses},
    {"lblHandLongestRolls", "Longest hand", LongestHandRolls},
    {"lblHandLongestPasses", "Longest hand", MostHandPasses},
};
constexpr HandFigure kPasses[] = {
    {"lblHandTotal", "Hands completed", HandsCompleted},
    {"lblNumPointsEstablished", "Points established", PointsEstablished},
    {"lblPassesPoints", "Passes: points / come-out / total", PassesByPoint},
    {"lblPassesComeout", "Passes: points / come-out / total", PassesOnComeOut},
    {"lblTotalPasses", "Passes: points / come-out / total", TotalPasses},
    {"lblDontPassesPoints", "Misses: points / come-out / total", MissesBySevenOut},
    {"lblDontPassesComeout", "Misses: points / come-out / total", MissesOnComeOut},
    {"lblTotalDontPasses", "Misses: points / come-out / total", TotalMisses},
    {"lblNumComeoutRolls", "Come-out rolls", ComeOutRolls},
};

// Empty while no hand is completed.
Figure HandAverage(const Game& g, const char* name, HandStat sum) {
  Figure figure{name, "Average hand", "", {}};
  const std::int32_t hands = g.HandStats[HandsCompleted];
  if (hands <= 0) return figure;
  const double average = static_cast<double>(g.HandStats[sum]) / hands;
  figure.text = FormatBySize(average, kWholeFormat, kAverageFormat);
  figure.plain = average;
  return figure;
}

// Empty for a share of nothing.
Figure NetShare(const char* name, const char* label, Money net, Money of) {
  Figure figure{name, label, "", Share(net, of), ToneOf(net)};
  if (const double* const share = std::get_if<double>(&figure.plain))
    figure.text = FormatNumber(*share, kShareFormat);
  return figure;
}

Figure NetCaption(const char* name, const char* label, Money net) {
  return {name, label, net < Money() ? "Net loss:" : "Net win:", {}, ToneOf(net)};
}

// The five figures of a line over all bets, from the work row, and the caption of its net.
struct NetLine {
  const char* label;
  BetStatField field;
  bool isCount;
  std::array<const char*, 5> names;  // wagered, won, lost, net, share
  const char* caption;
};
constexpr NetLine kNetLines[] = {
    {"Bets decided, won, lost, net, %",
     TotalCount,
     true,
     {"lblNumBetsDecided", "lblNumBetsWon", "lblNumBetsLost", "lblNumBetsNet", "lblNumBetsNetPercentage"},
     "lblNetNum"},
    {"Amount bet, won, lost, net, %",
     TotalAmount,
     false,
     {"lblAmountBetsMade", "lblAmountBetsWon", "lblAmountBetsLost", "lblAmountBetsNet",
      "lblAmountBetsNetPercentage"},
     "lblNetAmount"},
};

void AddNetLine(std::vector<Figure>& figures, const Game& g, const NetLine& line) {
  const Money made = g.BetWagers[ActualWagers][0][line.field];
  const Money won = g.BetWins[ActualWagers][0][line.field];
  const Money lost = g.BetLosses[ActualWagers][0][line.field];
  const Money net = won - lost;
  const Money amounts[] = {made, won, lost, net};
  for (std::size_t i = 0; i < std::size(amounts); ++i) {
    Figure figure = WholeAmountFigure(line.names[i], line.label, amounts[i], i == 3);
    if (line.isCount) figure.plain = amounts[i].Units() / Money::kUnitsPerDollar;
    figures.push_back(std::move(figure));
  }
  figures.push_back(NetShare(line.names[4], line.label, net, made));
  figures.push_back(NetCaption(line.caption, line.label, net));
}

}  // namespace

std::vector<Figure> SummaryFigures(Game& g) {
  SumBetResults(g, true, 1, kBetCount);
  const std::int32_t rolls = g.RollCount();
  std::vector<Figure> figures;
  figures.push_back(CountFigure("lblTotalRolls", "Total rolls:", rolls));
  figures.push_back(RateFigure("lblRollsPerHour", "Rolls per hour:", g.RollsPerHour.ToDouble()));
  figures.push_back(RateFigure("lblHours", "Simulated hours:", SimulatedHours(rolls, g.RollsPerHour)));
  for (const HandFigure& hand : kHand)
    figures.push_back(CountFigure(hand.name, hand.label, g.HandStats[hand.stat]));
  figures.push_back(HandAverage(g, "lblHandAverageRolls", CompletedHandRolls));
  figures.push_back(HandAverage(g, "lblHandAveragePasses", CompletedHandPasses));
  for (const HandFigure& passes : kPasses)
    figures.push_back(CountFigure(passes.name, passes.label, g.HandStats[passes.stat]));
  const Money average = rolls > 0 ? Quotient(g.BankrollRollSum, Dollars(rolls)) : Money();
  const auto bankroll = [&](const char* name, Money amount) {
    figures.push_back(WholeAmountFigure(name, kBankrollLine, amount, true));
  };
  bankroll("lblBankrollHigh", g.BankrollHigh);
  bankroll("lblBankrollCurrent", g.BetAmount[SlotBankroll]);
  bankroll("lblBankrollAverage", average);
  bankroll("lblBankrollLow", g.BankrollLow);
  for (const NetLine& line : kNetLines) AddNetLine(figures, g, line);
  const CompFigures comps = UpdateComps(g, CompTarget::SummaryLabel);
  figures.push_back({"lblCompValue", "Comp value:", CompValueText(comps), comps.Value});
  return figures;
}

}  // namespace rollwick
