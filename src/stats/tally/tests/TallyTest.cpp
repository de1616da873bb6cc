// The counters, against what a player with pencil and paper would have written down.
#include "stats/tally/Tally.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "stats/tally/tests/EventDice.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

void Throw(Game& g, int die1, int die2) {
  g.Die1 = die1;
  g.Die2 = die2;
  g.DiceTotal = die1 + die2;
  TallyRoll(g);
  BringUpToDate(g);
}

TEST(RollEvents, EveryRollIsExactlyItsEvents) {
  for (int pair = 0; pair < 36; ++pair) {
    const int die1 = pair / 6 + 1, die2 = pair % 6 + 1;
    SCOPED_TRACE(std::to_string(die1) + "-" + std::to_string(die2));
    TestTable t;
    Throw(t.g, die1, die2);
    EXPECT_EQ(t.g.RollEventCount[0], 1);
    EXPECT_EQ(t.g.RollEventCount[1], 0);
    EXPECT_EQ(t.g.RollEventCount[90], 0);
    EXPECT_EQ(t.g.TrackedEventCount[0], 1);
    EXPECT_EQ(t.g.TrackedEventCount[1], 1);
    for (const EventDice& row : kEvents) {
      const int happens = Happens(row.dice, die1, die2) ? 1 : 0;
      EXPECT_EQ(t.g.RollEventCount[row.event], happens) << "event " << row.event;
      EXPECT_EQ(t.g.TrackedEventCount[row.event], happens) << "event " << row.event;
      EXPECT_EQ(t.g.RollGapHistogram[row.event][1], happens) << "event " << row.event;
      EXPECT_EQ(t.g.RollsSinceEvent[row.event], 1 - happens) << "event " << row.event;
      EXPECT_EQ(t.g.TrackedRollBase[row.event], 1 - happens) << "event " << row.event;
    }
    for (const RollEvent ageing : {1, 90}) EXPECT_EQ(t.g.RollsSinceEvent[ageing], 1);
  }
}

TEST(RollEvents, AFaceOfSevenIsCountedOnceAndIsNoPair) {
  TestTable t;
  Throw(t.g, 7, 1);
  EXPECT_EQ(t.g.RollEventCount[84], 1);
  EXPECT_EQ(t.g.RollGapHistogram[84][0], 0) << "gap 0 is no gap";
  EXPECT_EQ(t.g.RollEventCount[8], 1);
  Throw(t.g, 7, 7);
  EXPECT_EQ(t.g.RollEventCount[90], 1);
  for (RollEvent event = 2; event <= 77; ++event) {
    if (!Happens(kEvents[event - 2].dice, 2, 6) || event == 48 || event == 52) {
      EXPECT_EQ(t.g.RollEventCount[event], 0) << event;
    }
  }
}

TEST(RollEvents, GapsUpTo199AreCountedAndLongerOnesSummed) {
  for (const int gap : {1, 2, 198, 199, 200, 201, 350}) {
    SCOPED_TRACE(gap);
    TestTable t;
    Throw(t.g, 3, 4);  // gap 1: counted from the start of the game
    for (int roll = 1; roll < gap; ++roll) Throw(t.g, 1, 1);
    EXPECT_EQ(t.g.RollsSinceEvent[7], gap - 1);
    Throw(t.g, 6, 1);
    const auto& gaps = t.g.RollGapHistogram[7];
    EXPECT_EQ(gaps[1], gap == 1 ? 2 : 1);
    if (gap > 1 && gap < 200) {
      EXPECT_EQ(gaps[static_cast<std::size_t>(gap)], 1);
    }
    EXPECT_EQ(gaps[200], gap >= 200 ? 1 : 0);
    EXPECT_EQ(gaps[0], gap >= 200 ? gap : 0);
    int rolls = gaps[0];
    for (int length = 1; length < 200; ++length) rolls += length * gaps[static_cast<std::size_t>(length)];
    EXPECT_EQ(rolls, t.g.RollCount()) << "the average stays exact";
    EXPECT_EQ(t.g.RollsSinceEvent[7], 0);
  }
}

TEST(RollEvents, TrackedCountersAreCopiedAndReset) {
  TestTable t;
  Throw(t.g, 3, 4);
  Throw(t.g, 1, 1);
  CountPrevRolls(t.g);
  Throw(t.g, 1, 1);
  EXPECT_EQ(t.g.TrackedRollBase[7], 2);
  EXPECT_EQ(t.g.TrackedRollBaseBefore[7], 1);
  EXPECT_EQ(t.g.TrackedEventCount[2], 2);
  EXPECT_EQ(t.g.TrackedEventCountBefore[2], 1);

  ResetTrackedEvent(t.g, 7);
  ResetTrackedEvent(t.g, 2);
  for (const RollEvent event : {7, 2}) {
    EXPECT_EQ(t.g.TrackedEventCount[event], 0);
    EXPECT_EQ(t.g.TrackedEventCountBefore[event], 0);
    EXPECT_EQ(t.g.TrackedRollBase[event], 0);
    EXPECT_EQ(t.g.TrackedRollBaseBefore[event], 0);
  }
  EXPECT_EQ(t.g.RollEventCount[2], 2) << "the game's own count goes on";
  EXPECT_EQ(t.g.RollsSinceEvent[7], 2);
  EXPECT_EQ(t.g.TrackedEventCount[3], 0);
  EXPECT_EQ(t.g.TrackedRollBase[3], 3) << "other events are left alone";
}

TEST(RollEvents, AResetInTheRollOfAHitIsKept) {
  TestTable t;
  Throw(t.g, 3, 4);
  for (int roll = 0; roll < 3; ++roll) Throw(t.g, 1, 1);
  CountPrevRolls(t.g);
  Throw(t.g, 3, 4);
  ResetTrackedEvent(t.g, 7);
  BringUpToDate(t.g);
  const TrackedEvent tracked = Tracked(t.g, 7);
  EXPECT_EQ(tracked.Count, 0);
  EXPECT_EQ(tracked.CountBefore, 0);
  EXPECT_EQ(tracked.RollsSince, 0);
  EXPECT_EQ(tracked.RollsSinceBefore, 0);
  EXPECT_EQ(t.g.TrackedRollBaseBefore[7], 0);

  CountPrevRolls(t.g);
  Throw(t.g, 1, 1);
  CountPrevRolls(t.g);
  Throw(t.g, 3, 4);
  EXPECT_EQ(t.g.TrackedEventCount[7], 1);
  EXPECT_EQ(t.g.TrackedRollBase[7], 0);
  EXPECT_EQ(t.g.TrackedRollBaseBefore[7], 1) << "from the reset on";
}

TEST(Hands, EndOnlyWithASevenOut) {
  TestTable t;
  Game& g = t.g;
  const auto play = [&](int rolls, int pointBefore, void (*count)(Game&)) {
    for (int roll = 0; roll < rolls; ++roll) {
      g.PointBeforeRoll = pointBefore;
      Throw(g, 1, 2);
    }
    count(g);
  };
  play(2, 0, CountPass);
  play(1, 0, CountMiss);
  play(1, 0, CountBarPush);
  play(5, 6, CountPass);
  EXPECT_EQ(g.HandStats[HandRolls], 9);
  EXPECT_EQ(g.HandStats[HandPasses], 2);
  EXPECT_EQ(g.HandStats[HandMisses], 2);
  EXPECT_EQ(g.HandStats[HandsCompleted], 0);
  play(1, 8, CountMiss);
  using Stats = std::array<std::int32_t, kHandStatCount>;
  // In the order of the entries: the current hand, completed hands and records, points and passes, misses and
  // come-outs, the current hand's misses, the previous hand.
  EXPECT_EQ(g.HandStats, (Stats{0, 0, 1, 10, 2, 10, 2, 0, 1, 1, 2, 1, 2, 3, 4, 0, 3, 10, 2, 3}));
  play(3, 5, CountMiss);
  EXPECT_EQ(g.HandStats, (Stats{0, 0, 2, 10, 2, 13, 2, 0, 1, 1, 2, 2, 2, 4, 4, 0, 3, 3, 0, 1}))
      << "a hand without a pass counts, and takes no record";
}

BetStatRow Row(int count, Money total, Money high, Money low, Money last) {
  BetStatRow row{};
  row[TotalCount] = Dollars(count);
  row[TotalAmount] = total;
  row[HighAmount] = high;
  row[LowAmount] = low;
  row[LastAmount] = row[LastRollAmount] = last;
  row[LastRollCount] = Dollars(1);
  return row;
}

TEST(BetResults, AmountsOfDecisions) {
  TestTable t;
  Game& g = t.g;
  RecordBetDecision(g, Bet::Field, Dollars(5), Money());
  EXPECT_EQ(g.BetWagers[ActualWagers][Bet::Field], BetStatRow{}) << "a push is no decision";
  RecordBetDecision(g, Bet::Field, Dollars(5), Dollars(10));
  EXPECT_EQ(g.BetWagers[ActualWagers][Bet::Field], Row(1, Dollars(5), Dollars(5), Dollars(5), Dollars(5)));
  EXPECT_EQ(g.BetWins[ActualWagers][Bet::Field], Row(1, Dollars(10), Dollars(10), Dollars(10), Dollars(10)));
  EXPECT_EQ(g.BetLosses[ActualWagers][Bet::Field], BetStatRow{}) << "the low stays 0 until there is one";
  RecordBetDecision(g, Bet::Field, Dollars(3), Dollars(-3));
  RecordBetDecision(g, Bet::Field, Dollars(9), Dollars(-9));
  EXPECT_EQ(g.BetWagers[ActualWagers][Bet::Field], Row(3, Dollars(17), Dollars(9), Dollars(3), Dollars(9)));
  EXPECT_EQ(g.BetLosses[ActualWagers][Bet::Field], Row(2, Dollars(12), Dollars(9), Dollars(3), Dollars(9)));
  EXPECT_EQ(g.BetWagers[PhantomWagers][Bet::Field], BetStatRow{});

  StartRollResults(g);
  EXPECT_EQ(g.BetWagers[ActualWagers][Bet::Field][LastRollCount], Money());
  EXPECT_EQ(g.BetLosses[ActualWagers][Bet::Field][LastRollAmount], Money());
  EXPECT_EQ(g.BetLosses[ActualWagers][Bet::Field][LastAmount], Dollars(9)) << "the last decision is kept";
}

TEST(BetResults, TheVigJoinsTheWager) {
  struct Row {
    const char* name;
    BetId bet;
    bool onAll;
    int result;
    const char* wager;
  };
  constexpr Row kRows[] = {
      {"Lay 4 won, on all", Bet::Lay4, true, 19, "43"},
      {"Lay 4 lost, on all", Bet::Lay4, true, -43, "43"},
      {"Lay 4 won, on wins", Bet::Lay4, false, 19, "43"},
      {"Lay 4 lost, on wins", Bet::Lay4, false, -40, "40"},
      {"Buy 10 won, on all", Bet::Buy10, true, 49, "42"},
      {"Buy 10 lost, on wins", Bet::Buy10, false, -40, "40"},
      {"Place 4 has none", Bet::Place4, true, 72, "40"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    t.g.Rules.BuyVigOnAll = t.g.Rules.LayVigOnAll = row.onAll;
    t.g.LayVigAmount[Bet::Lay4] = Dollars(3);
    t.g.BuyVigAmount[Bet::Buy10] = Dollars(2);
    RecordBetDecision(t.g, row.bet, Dollars(40), Dollars(row.result));
    EXPECT_EQ(PlainText(t.g.BetWagers[ActualWagers][row.bet][TotalAmount]), row.wager);
    EXPECT_EQ((row.result > 0 ? t.g.BetWins : t.g.BetLosses)[ActualWagers][row.bet][TotalAmount],
              Abs(Dollars(row.result)));
  }
}

// What the ledger says when it is read, of phantom dollars decided one by one.
struct Phantoms {
  TestTable t;
  Game& g = t.g;

  Phantoms() { StartCounting(g); }
  void Decide(BetId bet, Money result) {
    CellDecisions& cell = DecisionsOf(g, 0);
    cell.Count = 0;
    AddDecision(g, cell, bet, result);
    ++g.RollCount();
    g.TheLedger.Events.Stage = RollStage::Counted;
    g.BetsInAction.Set(bet);
    ActionCells& action = CellsInAction(g);
    if (CountRollIn(g, action, 0)) TouchCell(g, action, 0);
    BringUpToDate(g);
  }
};

TEST(Phantoms, TheVigJoinsTheDollar) {
  struct Row {
    const char* name;
    BetId bet;
    bool onAll;
    int result;
    const char* wager;
  };
  constexpr Row kRows[] = {
      {"Lay 4", Bet::Lay4, true, 1, "1.025"},  {"Lay 5", Bet::Lay5, true, -1, "1.0333"},
      {"Lay 6", Bet::Lay6, true, 1, "1.0417"}, {"Lay 6 lost, on wins", Bet::Lay6, false, -1, "1"},
      {"Buy 4", Bet::Buy4, true, -1, "1.05"},  {"Buy 4 lost, on wins", Bet::Buy4, false, -1, "1"},
      {"Place 4", Bet::Place4, true, 1, "1"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    Phantoms p;
    p.g.Rules.BuyVigOnAll = p.g.Rules.LayVigOnAll = row.onAll;
    p.Decide(row.bet, Dollars(row.result));
    EXPECT_EQ(PlainText(p.g.BetWagers[PhantomWagers][row.bet][TotalAmount]), row.wager);
  }
}

TEST(Phantoms, AmountsOfDecisions) {
  Phantoms p;
  const auto rows = [&](const BetStatTable& table) { return table[PhantomWagers][Bet::Field]; };
  p.Decide(Bet::Field, Money());
  EXPECT_EQ(rows(p.g.BetWagers), BetStatRow{}) << "a push is no decision";
  p.Decide(Bet::Field, Dollars(2));
  p.Decide(Bet::Field, Dollars(-1));
  p.Decide(Bet::Field, Dollars(1));
  EXPECT_EQ(rows(p.g.BetWagers), Row(3, Dollars(3), Dollars(1), Dollars(1), Dollars(1)));
  BetStatRow won = Row(2, Dollars(3), Dollars(2), Dollars(1), Dollars(1));
  EXPECT_EQ(rows(p.g.BetWins), won);
}

TEST(Phantoms, BetsOnNumbersTravelFirst) {
  struct Row {
    const char* name;
    int total, pointBefore;
    bool wasThere;
    bool isThere;
  };
  constexpr Row kRows[] = {
      {"a 4 with a point on", 4, 6, false, true},
      {"a 4 on the come-out", 4, 0, false, false},
      {"a 4 on the come-out decides it", 4, 0, true, false},
      {"a 4 with a point on replaces it", 4, 9, true, true},
      {"another number", 5, 6, true, true},
      {"another number, absent", 5, 6, false, false},
      {"a seven", 7, 0, true, false},
      {"craps", 3, 6, true, true},
      {"eleven", 11, 6, false, false},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    for (const BetId bet : {7, 13, 19, 25}) {
      t.g.BetWagers[PhantomWagers][bet][InPlay] = Dollars(row.wasThere ? 1 : 0);
    }
    StartCounting(t.g);
    t.g.DiceTotal = row.total;
    t.g.PointBeforeRoll = row.pointBefore;
    StartRollResults(t.g);
    BringUpToDate(t.g);
    for (const BetId bet : {7, 13, 19, 25}) {
      EXPECT_EQ(t.g.BetWagers[PhantomWagers][bet][InPlay], Dollars(row.isThere ? 1 : 0)) << BetName(bet);
    }
  }
}

TEST(BetResults, StreaksAreKeptAsBeforeTheRoll) {
  TestTable t;
  t.g.BetStreak[Bet::Hop55] = {2, -3};
  StartRollResults(t.g);
  EXPECT_EQ(t.g.BetStreak[Bet::Hop55], (std::array<std::int32_t, 2>{-3, -3}));
}

TEST(BetResults, SumsOfActualBets) {
  TestTable t;
  Game& g = t.g;
  RecordBetDecision(g, 1, Dollars(4), Dollars(2));
  RecordBetDecision(g, 49, Dollars(5), Dollars(-5));
  RecordBetDecision(g, 83, Dollars(7), Dollars(210));
  g.BetWagers[PhantomWagers][49][TotalAmount] = Dollars(1);
  const auto sum = [&](const BetStatTable& table) { return table[ActualWagers][0][TotalAmount]; };
  SumBetResults(g, true, 1, 83);
  EXPECT_EQ(sum(g.BetWagers), Dollars(16));
  EXPECT_EQ(sum(g.BetWins), Dollars(212));
  EXPECT_EQ(sum(g.BetLosses), Dollars(5));
  EXPECT_EQ(g.BetWagers[ActualWagers][0][TotalCount], Dollars(3));
  EXPECT_EQ(g.BetWagers[ActualWagers][0][LastRollCount], Dollars(3));
  SumBetResults(g, true, 2, 82);
  EXPECT_EQ(sum(g.BetWagers), Dollars(5));
  EXPECT_EQ(sum(g.BetWins), Money());
  SumBetResults(g, false, 83, 83);
  EXPECT_EQ(sum(g.BetWagers), Dollars(12));
  EXPECT_EQ(g.BetWagers[PhantomWagers][0], BetStatRow{}) << "phantoms are never summed";
}

TEST(BankrollGraph, ThePageTurnsWithPoint526) {
  TestTable t;
  Game& g = t.g;
  const auto add = [&](int roll) {
    g.RollCount() = roll;
    g.BetAmount[SlotBankroll] = Dollars(10'000 - roll);
    AddBankrollPoint(g);
  };
  for (int roll = 1; roll <= 525; ++roll) add(roll);
  EXPECT_EQ(g.BankrollHistoryCount, 525);
  EXPECT_EQ(g.BankrollHistory[0], Dollars(1));
  EXPECT_EQ(g.BankrollHistory[525], Dollars(9475));
  EXPECT_EQ(g.BankrollHistory[526], Money());
  EXPECT_EQ(g.GraphHigh, Dollars(9999));
  add(526);
  EXPECT_EQ(g.BankrollHistoryCount, 1);
  EXPECT_EQ(g.BankrollHistory[0], Dollars(526));
  EXPECT_EQ(g.BankrollHistory[1], Dollars(9474));
  EXPECT_EQ(g.BankrollHistory[2], Dollars(9998)) << "the old page stays until it is written over";
  EXPECT_EQ(g.BankrollHistory[526], Dollars(9999));
  EXPECT_EQ(g.BankrollHistory[1050], Dollars(9475));
  EXPECT_EQ(g.GraphHigh, Dollars(9474));
  EXPECT_EQ(g.GraphLow, Dollars(9474));
  for (int roll = 527; roll <= 1051; ++roll) add(roll);
  EXPECT_EQ(g.BankrollHistory[0], Dollars(1051));
  EXPECT_EQ(g.BankrollHistory[526], Dollars(9474)) << "a further turn overwrites the page before";
}

TEST(BankrollGraph, TheScaleGrowsThroughItsSteps) {
  struct Row {
    const char* name;
    int adjust, unit, top, high, low, bankroll;
    int newUnit, newTop;
  };
  constexpr Row kRows[] = {
      {"the first point at 500", 1, 1, 150, 500, 500, 500, 1, 650},
      {"on the graph nothing moves", 1, 1, 650, 500, 500, 640, 1, 650},
      {"off its top the centre moves", 1, 1, 650, 500, 500, 651, 1, 800},
      {"off its foot", 1, 1, 650, 500, 500, 349, 1, 450},
      {"at its foot", 1, 1, 650, 500, 500, 350, 1, 650},
      {"a range of 250", 1, 1, 650, 600, 400, 350, 1, 650},
      {"a range of 251", 1, 1, 650, 600, 400, 349, 2, 600},
      {"from 2 to 4", 1, 2, 600, 900, 400, 399, 4, 600 + 200},
      {"from 4 to 10", 1, 4, 600, 1400, 400, 399, 10, 1500},
      {"several steps at once", 1, 1, 650, 500, 500, 5'501, 40, 10'000},
      {"a bankroll below 0 rounds down", 1, 1, 150, -1, -1, -201, 1, -250 + 150},
      {"by hand it never moves", 0, 1, 150, 500, 500, 90'000, 1, 150},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    t.g.GraphAdjustType = row.adjust;
    t.g.GraphUnit = Dollars(row.unit);
    t.g.GraphTop = Dollars(row.top);
    t.g.GraphHigh = Dollars(row.high);
    t.g.GraphLow = Dollars(row.low);
    t.g.BetAmount[SlotBankroll] = Dollars(row.bankroll);
    AddBankrollPoint(t.g);
    EXPECT_EQ(t.g.GraphUnit, Dollars(row.newUnit));
    EXPECT_EQ(t.g.GraphTop, Dollars(row.newTop));
    EXPECT_EQ(t.g.GraphHigh, Dollars(std::max(row.high, row.bankroll)));
    EXPECT_EQ(t.g.GraphLow, Dollars(std::min(row.low, row.bankroll)));
  }
}

TEST(BankrollGraph, APageTurnCentresOrSnapsBack) {
  struct Row {
    const char* name;
    int adjust;
    int newUnit, newTop;
  };
  constexpr Row kRows[] = {{"by hand", 0, 10, 5000},
                           {"expanding keeps its unit", 1, 10, 1500 + 1500},
                           {"snap-back takes the last one set by hand", 2, 2, 1700 + 300}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    t.g.GraphAdjustType = row.adjust;
    t.g.GraphUnit = Dollars(10);
    t.g.GraphTop = Dollars(5000);
    t.g.GraphManualUnit = Dollars(2);
    t.g.GraphManualTop = Dollars(300);
    t.g.BankrollHistoryCount = 525;
    t.g.GraphHigh = Dollars(4000);
    t.g.BetAmount[SlotBankroll] = Dollars(1799);
    AddBankrollPoint(t.g);
    EXPECT_EQ(t.g.GraphUnit, Dollars(row.newUnit));
    EXPECT_EQ(t.g.GraphTop, Dollars(row.newTop));
  }
}

TEST(Bankroll, SumHighAndLow) {
  TestTable t;
  for (const int bankroll : {510, 480, 495}) {
    t.g.BetAmount[SlotBankroll] = Dollars(bankroll);
    TallyBankroll(t.g);
  }
  EXPECT_EQ(t.g.BankrollRollSum, Dollars(1485));
  EXPECT_EQ(t.g.BankrollHigh, Dollars(510));
  EXPECT_EQ(t.g.BankrollLow, Dollars(480));
  t.g.BankrollRollSum = Money::FromUnits(INT64_MAX - 5);
  TallyBankroll(t.g);
  EXPECT_EQ(t.g.BankrollRollSum, Money::FromUnits(INT64_MAX)) << "held at its end";
}

}  // namespace
}  // namespace rollwick
