// The moving average, against a plain list of every bankroll there was.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <vector>

#include "stats/tally/Tally.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

// The mean of the last `period` of the first `rolls` bankrolls; 0 stands for all of them.
Money MeanOf(const std::vector<int>& bankrolls, int rolls, int period) {
  // A graph of one point has no average yet, the game as a whole has.
  if (rolls <= 0 || (period > 0 && rolls == 1)) return {};
  const int taken = period == 0 ? rolls : std::min({period, 525, rolls});
  const auto end = bankrolls.begin() + rolls;
  return Money::FromDouble(std::accumulate(end - taken, end, 0.0) / taken);
}

TEST(MovingAverage, NowAndBeforeTheRollOnThreePages) {
  TestTable t;
  ResetStatistics(t.g);
  std::vector<int> bankrolls;
  std::uint32_t walk = 17;
  for (int rolls = 0; rolls <= 1105; ++rolls) {
    if (rolls > 0) {
      walk = walk * 1'103'515'245U + 12'345U;
      bankrolls.push_back(static_cast<int>(walk >> 16U) % 3000 - 1000);
      t.g.RollCount() = rolls;
      t.g.BetAmount[SlotBankroll] = Dollars(bankrolls.back());
      TallyBankroll(t.g);
      AddBankrollPoint(t.g);
    }
    for (const int period : {0, 1, 2, 3, 10, 524, 525, 526, 9000}) {
      ASSERT_EQ(MovingAverage(t.g, 0, period), MeanOf(bankrolls, rolls, period)) << rolls << " " << period;
      ASSERT_EQ(MovingAverage(t.g, 1, period), MeanOf(bankrolls, rolls - 1, period))
          << rolls << " " << period;
    }
  }
}

}  // namespace
}  // namespace rollwick
