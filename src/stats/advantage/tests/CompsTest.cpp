// Comps reckoned by hand.
#include "stats/advantage/Comps.h"

#include <gtest/gtest.h>

#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

using Labels = std::array<std::string, 7>;

// 240 rolls in two hours: 30 decisions of the Pass Line at $10, 12 of the Field at $25.50, one of Hop 5-5.
struct CompTable : TestTable {
  CompTable() {
    g.RollCount() = 240;
    Decided(Bet::PassLine, 30, Dollars(300));
    Decided(Bet::Field, 12, Dollars(306));
    Decided(Bet::Hop55, 1, Dollars(1));
    g.CompRate = Dollars(40);
  }
  void Decided(BetId bet, int count, Money amount) {
    g.BetWagers[ActualWagers][bet][TotalCount] = Dollars(count);
    g.BetWagers[ActualWagers][bet][TotalAmount] = amount;
    g.BetWagers[PhantomWagers][bet][TotalAmount] = Dollars(77'777);  // plays no part
    g.BetWagers[PhantomWagers][bet][TotalCount] = Dollars(777);
  }
};

TEST(Comps, ByHand) {
  constexpr std::int32_t kPassLine = 1 << 11, kField = 1 << 17, kHop55 = 1 << 20;
  const struct Row {
    const char* name;
    std::int32_t middle, last, base;  // words of the mask, CompBase
    Labels labels;
    std::string summary;
  } rows[] = {
      {"nothing ticked", 0, 0, CompsOfTheoreticalVig, {"0", "0", "0", "0", "0", "0", "2.00"}, "0"},
      // 300 * .014141 = 4.2423, and 40 % of it
      {"Pass Line",
       kPassLine,
       0,
       CompsOfTheoreticalVig,
       {"300", "30", "10", "4.24", "20", "1.70", "2.00"},
       "$1.70"},
      // 4.2423 + 306 * .055556 = 21.242436
      {"two bets",
       kPassLine | kField,
       0,
       CompsOfTheoreticalVig,
       {"606", "42", "14.43", "21.24", "28.86", "8.50", "2.00"},
       "$8.50"},
      {"of the action",
       kPassLine | kField,
       0,
       CompsOfAction,
       {"606", "42", "14.43", "21.24", "28.86", "242.40", "2.00"},
       "$242.40"},
      // 2 hours at 606 / 42 = 28.8571
      {"of action and time",
       kPassLine | kField,
       0,
       CompsOfActionAndTime,
       {"606", "42", "14.43", "21.24", "28.86", "11.54", "2.00"},
       "$11.54"},
      {"the last bet", 0, kHop55, CompsOfAction, {"1", "1", "1", ".14", "2", ".40", "2.00"}, "$0.40"},
      {"a ticked bet nobody made", 1, 0, CompsOfAction, {"0", "0", "0", "0", "0", "0", "2.00"}, "0"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    CompTable table;
    table.g.CompBetMask = {0, row.middle, row.last};
    table.g.CompBase = row.base;
    const CompFigures comps = UpdateComps(table.g, CompTarget::ConfigureLabels);
    EXPECT_EQ(CompTexts(comps), row.labels);
    EXPECT_EQ(CompValueText(comps), row.summary);
  }
}

TEST(Comps, EveryBetHasABitOfItsOwn) {
  TestTable table;
  for (BetId ticked = 1; ticked <= kBetCount; ++ticked) {
    table.g.CompBetMask = {};
    table.g.CompBetMask[ticked <= 31   ? 0
                        : ticked <= 62 ? 1
                                       : 2] = std::int32_t{1} << (ticked <= 31   ? ticked - 1
                                                                  : ticked <= 62 ? ticked - 32
                                                                                 : ticked - 63);
    for (BetId bet = 1; bet <= kBetCount; ++bet) EXPECT_EQ(EarnsComps(table.g, bet), bet == ticked) << ticked;
  }
}

// Weights under which the Field wins every roll, 2 to 1.
void LoadAces(Game& g) {
  g.UseProbabilityMatrix = true;
  g.ProbabilityMatrix[MatrixValues] = {};
  g.ProbabilityMatrix[MatrixValues][2][1] = 100'000;
}

TEST(Comps, CrookedDiceAndAHouseThatIsBehind) {
  const struct Row {
    const char* name;
    bool takesTrueDice;
    CompTarget target;
    std::string vig, value, summary;
  } rows[] = {
      // Meant: the value of a house that is behind shows neither sign nor cents.
      {"as they fall", false, CompTarget::ConfigureLabels, "-612.00", "245", "245"},
      {"true for the panel", true, CompTarget::ConfigureLabels, "17.00", "6.80", "$6.80"},
      {"true for the summary", true, CompTarget::SummaryLabel, "17.00", "6.80", "$6.80"},
      {"never for others", true, CompTarget::DiceAtTheTable, "-612.00", "245", "245"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    CompTable table;
    LoadAces(table.g);
    table.g.CompBetMask[1] = 1 << 17;
    table.g.CompsUseTrueProbs = row.takesTrueDice;
    const CompFigures comps = UpdateComps(table.g, row.target);
    EXPECT_EQ(CompTexts(comps)[3], row.vig);
    EXPECT_EQ(CompTexts(comps)[5], row.value);
    EXPECT_EQ(CompValueText(comps), row.summary);
    EXPECT_TRUE(table.g.UseProbabilityMatrix);
  }
}

TEST(Comps, NoRollsInAnHour) {
  CompTable table;
  table.g.RollsPerHour = Money();
  table.g.CompBetMask[1] = 1 << 11;
  table.g.CompBase = CompsOfActionAndTime;
  EXPECT_EQ(CompTexts(UpdateComps(table.g, CompTarget::SummaryLabel)),
            (Labels{"300", "30", "10", "4.24", "0", "0", "0"}));
}

}  // namespace
}  // namespace rollwick
