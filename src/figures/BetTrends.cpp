#include "figures/BetTrends.h"

namespace rollwick {

std::vector<BetTrend> BetTrends(const Game& g) {
  std::vector<BetTrend> trends;
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const std::int32_t run = g.BetStreak[bet][1];
    if (run == 0) continue;
    trends.push_back({bet,
                      {"", BetName(bet), (run > 0 ? "+" : "") + std::to_string(run), std::int64_t{run},
                       run > 0 ? Tone::Gain : Tone::Loss}});
  }
  return trends;
}

}  // namespace rollwick
