#include "figures/RollFrequencies.h"

#include "base/FormatNumber.h"
#include "figures/RollEventList.h"

namespace rollwick {
namespace {

constexpr std::size_t kLongestGap = kGapCount - 1;  // stands for itself and all longer ones

Figure StandardFigure(const char* name, const char* label, double value) {
  return {name, label, FormatNumber(value, "Standard"), value};
}

// Exact also with overlong gaps, whose lengths are kept in entry 0. 0 while the event never came.
double AverageGap(const std::array<std::int32_t, kGapCount>& gaps) {
  std::int64_t times = gaps[kLongestGap], rolls = gaps[0];
  for (std::size_t gap = 1; gap < kLongestGap; ++gap) {
    times += gaps[gap];
    rolls += static_cast<std::int64_t>(gap) * gaps[gap];
  }
  return times > 0 ? static_cast<double>(rolls) / static_cast<double>(times) : 0;
}

}  // namespace

RollFrequencies FrequenciesOf(const Game& g, RollEvent event, bool skewed) {
  const RollEventItem& item = ItemOfEvent(event);
  const auto& gaps = g.RollGapHistogram[event];
  RollFrequencies result{event, item.text, {}, {}};
  auto& figures = result.figures;
  figures.push_back(CountFigure("lblTotalRollsAll", "Total rolls:", g.RollCount()));
  figures.push_back(CountFigure("lblTotalRolls", "Times rolled:", g.RollEventCount[event]));
  figures.push_back(CountFigure("lblLastRolled", "Rolls since last rolled:", g.RollsSinceEvent[event]));
  figures.push_back(StandardFigure("lblActualPercent", "Actual %:", ActualPercent(g, event)));
  figures.push_back(skewed
                        ? StandardFigure("lblIdealPercent",
                                         "Skewed probable %:", SkewedPercent(g.ProbabilityMatrix, item.dice))
                        : StandardFigure("lblIdealPercent", "True probable %:", TruePercent(item.dice)));
  figures.push_back(StandardFigure("lblAverage", "Average rolls between:", AverageGap(gaps)));
  for (std::size_t gap = 1; gap <= kLongestGap; ++gap)
    result.gaps[gap - 1] = {std::to_string(gap) + (gap == kLongestGap ? "+" : ""), gaps[gap]};
  return result;
}

}  // namespace rollwick
