// What a run counts in its ledger, against counters kept roll by roll with pencil and paper.
#include <gtest/gtest.h>

#include <random>

#include "dice/Draw.h"
#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"
#include "engine/cycle/RollCalls.h"
#include "engine/cycle/RollDice.h"
#include "stats/tally/Tally.h"
#include "support/LookingHost.h"

namespace rollwick {
namespace {

class House {
 public:
  explicit House(std::uint32_t seed) {
    g.TheHost = &host;
    SetStartUpDefaults(g);
    g.Rules.AllowNegBankroll = true;
    g.RngChoice = RngMersenne;
    g.SeedRequest = Dollars(1 + seed);
    SeedGenerator(g, true);
    g.HandleWinningBets = WinSameBet;
    g.HandleLosingBets = LossSameBet;
  }
  void Roll(std::int32_t rolls) {
    g.AutoRollsSet = g.AutoRollsLeft = rolls;
    g.KeepRolling = false;
    ToggleHyperDrive(g);
  }

 private:
  std::unique_ptr<Game> game_ = std::make_unique<Game>();

 public:
  LookingHost host;
  Game& g = *game_;
};

// Whatever a player or the house may do between rolls, by a sequence of its own.
void ChangeSomething(Game& g, std::mt19937& random) {
  const auto pick = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
  const BetId bet = 1 + pick(kBetCount - 1);
  switch (pick(9)) {
    case 0:
      g.Rules.BuyVigOnAll = !g.Rules.BuyVigOnAll;
      return RefreshVigs(g, {!g.Rules.BuyVigOnAll, g.Rules.LayVigOnAll});
    case 1:
      g.Rules.LayVigPct = Money::FromUnits(pick(900));
      return RefreshVigs(g, {g.Rules.BuyVigOnAll, g.Rules.LayVigOnAll});
    case 2:
      g.Rules.BarNumber = pick(1) == 0 ? 2 : 12;
      return;
    case 3:
      g.Rules.AllowPutBets = !g.Rules.AllowPutBets;
      return;
    case 4:
      g.FieldPayoffTable[1 + static_cast<std::size_t>(pick(20))].Ratio = Dollars(pick(3) - 1);
      return;
    case 5:
      if (!IsLay(bet)) g.PayoffTable[bet].Ratio = Dollars(pick(6));
      return SetLineOddsPayoffs(g);
    case 6:
      return CallAllBets(g, pick(1) == 0);
    case 7:
      return ResetTrackedEvent(g, 2 + pick(87));
    default:
      g.BetDelta = Dollars(pick(60) - 20);
      return PlaceChips(g, bet);
  }
}

void ExpectSameStatistics(const GameTables& run, const GameTables& stepped, std::int32_t roll) {
  SCOPED_TRACE("roll " + std::to_string(roll));
  EXPECT_EQ(run.RollEventCount, stepped.RollEventCount);
  EXPECT_EQ(run.RollsSinceEvent, stepped.RollsSinceEvent);
  EXPECT_EQ(run.RollGapHistogram, stepped.RollGapHistogram);
  EXPECT_EQ(run.TrackedEventCount, stepped.TrackedEventCount);
  EXPECT_EQ(run.TrackedEventCountBefore, stepped.TrackedEventCountBefore);
  EXPECT_EQ(run.TrackedRollBase, stepped.TrackedRollBase);
  EXPECT_EQ(run.TrackedRollBaseBefore, stepped.TrackedRollBaseBefore);
  EXPECT_EQ(run.BetWagers, stepped.BetWagers);
  EXPECT_EQ(run.BetWins, stepped.BetWins);
  EXPECT_EQ(run.BetLosses, stepped.BetLosses);
  EXPECT_EQ(run.BetStreak, stepped.BetStreak);
  EXPECT_EQ(run.BetAmount, stepped.BetAmount);
  EXPECT_EQ(run.BetAtThrow, stepped.BetAtThrow);
  EXPECT_EQ(run.BetAfterSettle, stepped.BetAfterSettle);
  EXPECT_EQ(run.BetContract, stepped.BetContract);
  EXPECT_EQ(run.BankrollHistory, stepped.BankrollHistory);
  EXPECT_EQ(run.HandStats, stepped.HandStats);
  EXPECT_EQ(run.PayoffTable, stepped.PayoffTable);
}

// The same game twice: in one run, looked at now and then, and roll by roll, where every roll is entered in
// the tables at once.
TEST(Ledger, ARunCountsAsItsRollsOneByOne) {
  constexpr std::int32_t kRolls = 20'000, kLook = 64;
  for (const std::uint32_t seed : {1u, 2u}) {
    House run(seed), stepped(seed);
    std::mt19937 runRandom(seed), steppedRandom(seed);
    std::vector<GameTables> seen;
    run.host.look = [&](Game& g) {
      if (seen.size() < 3 || runRandom() % 4 == 0) seen.push_back(g);
      ChangeSomething(g, runRandom);
    };
    run.Roll(kRolls);
    ASSERT_EQ(run.g.RollCount(), kRolls);

    std::size_t next = 0, looks = 0;
    for (std::int32_t roll = 1; roll <= kRolls && !testing::Test::HasFailure(); ++roll) {
      stepped.Roll(1);
      if (roll % kLook != 0) continue;
      if (looks++ < 3 || steppedRandom() % 4 == 0) ExpectSameStatistics(seen.at(next++), stepped.g, roll);
      ChangeSomething(stepped.g, steppedRandom);
    }
    ExpectSameStatistics(run.g, stepped.g, kRolls);
  }
}

// Phantom dollars kept with pencil and paper: one row added to for every decision.
class Paper {
 public:
  void Roll(const Game& before, Game& after) {
    for (auto* table : {&wagers_, &wins_, &losses_}) {
      for (BetStatRow& row : *table) row[LastRollCount] = row[LastRollAmount] = Money();
    }
    Travel(before);
    const RollCalls& calls = CallsOf(after.PointBeforeRoll, after.Die1, after.Die2, after.Rules.BarNumber);
    for (std::int32_t i = 0; i < calls.Count; ++i) {
      const auto [bet, result] = calls.Calls[static_cast<std::size_t>(i)];
      if (result == 0 || before.BetWorking[bet] < On || !IsThere(after, bet)) continue;
      ComputePayoff(after, false, bet, result, Dollars(1));
      Decide(after, bet, after.PayoffExact);
    }
  }
  void ExpectEqual(const Game& g) const {
    for (BetId bet = 1; bet <= kBetCount; ++bet) {
      SCOPED_TRACE(BetName(bet));
      const auto place = static_cast<std::size_t>(bet);
      BetStatRow wagers = wagers_[place];
      wagers[InPlay] = g.BetWagers[PhantomWagers][place][InPlay];
      EXPECT_EQ(g.BetWagers[PhantomWagers][place], wagers);
      EXPECT_EQ(g.BetWins[PhantomWagers][place], wins_[place]);
      EXPECT_EQ(g.BetLosses[PhantomWagers][place], losses_[place]);
    }
  }

 private:
  using Rows = std::array<BetStatRow, kBetCount + 1>;

  void Travel(const Game& before) {
    if (before.DiceTotal == 7) there_ = {};
    if (IsBoxNumber(before.DiceTotal))
      there_[static_cast<std::size_t>(before.DiceTotal)] = before.PointBeforeRoll != 0;
  }
  bool IsThere(const Game& g, BetId bet) const {
    if (bet < Bet::DontCome4 || bet > Bet::Come10Odds) return true;
    if (bet >= Bet::Come4 && g.Rules.AllowPutBets) return true;
    return there_[static_cast<std::size_t>(NumberOf(bet))];
  }
  static void Add(BetStatRow& row, Money amount) {
    row[TotalCount] += Dollars(1);
    row[TotalAmount] += amount;
    row[HighAmount] = std::max(row[HighAmount], amount);
    if (row[LowAmount] == Money() || amount < row[LowAmount]) row[LowAmount] = amount;
    row[LastAmount] = row[LastRollAmount] = amount;
    row[LastRollCount] = Dollars(1);
  }
  void Decide(const Game& g, BetId bet, Money result) {
    if (result == Money()) return;
    const bool won = result > Money();
    Money wager = Dollars(1);
    if (IsLay(bet) && (won || g.Rules.LayVigOnAll)) wager += PhantomLayVig(g, bet);
    if (IsBuy(bet) && (won || g.Rules.BuyVigOnAll)) wager += g.Rules.BuyVigPct;
    const auto place = static_cast<std::size_t>(bet);
    Add(wagers_[place], wager);
    Add((won ? wins_ : losses_)[place], Abs(result));
  }

  std::array<bool, 11> there_{};
  Rows wagers_{}, wins_{}, losses_{};
};

TEST(Ledger, PhantomsAsOnPaper) {
  House house(7);
  Game& g = house.g;
  Paper paper;
  std::mt19937 random(7);
  const auto before = std::make_unique<Game>();
  for (std::int32_t roll = 1; roll <= 12'000 && !testing::Test::HasFailure(); ++roll) {
    SCOPED_TRACE("roll " + std::to_string(roll));
    static_cast<GameTables&>(*before) = g;
    house.Roll(1);
    paper.Roll(*before, g);
    paper.ExpectEqual(g);
    if (roll % 40 == 0) ChangeSomething(g, random);
  }
}

TEST(Ledger, AThrowThatFailsLeavesTheCountersOfTheRollBefore) {
  for (const bool isHyper : {true, false}) {
    SCOPED_TRACE(isHyper ? "in Hyper-Drive" : "by a click");
    House house(3);
    Game& g = house.g;
    house.Roll(100);
    g.DiceFileMode = DiceFilePlayback;  // with no file to play
    isHyper ? house.Roll(1) : RollDice(g);
    EXPECT_EQ(g.RollCount(), 100);
    EXPECT_EQ(g.TrackedEventCountBefore, g.TrackedEventCount) << "a roll began";
    EXPECT_EQ(g.TrackedRollBaseBefore, g.TrackedRollBase);
    EXPECT_EQ(g.BetWagers[PhantomWagers][Bet::Field][LastRollCount], Money());
  }
}

}  // namespace
}  // namespace rollwick
