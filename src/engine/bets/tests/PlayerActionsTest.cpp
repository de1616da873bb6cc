// What a player does with a bet beyond its amount: buying, calling, halving, clearing the table.
#include "engine/bets/tests/BetsTestTable.h"

namespace rollwick {
namespace {

TEST(PlayerActions, RemoveAllBetsSparesContracts) {
  BetsTestTable table;
  Game& g = table.g;
  table.PutPointOn(6);
  for (BetId bet : {Bet::PassLine, Bet::Come9, Bet::DontPass, Bet::DontCome4, Bet::Come9Odds, Bet::Place8,
                    Bet::Buy10, Bet::Lay4, Bet::Field, Bet::Hop55}) {
    table.Stand(bet, 10_d);
  }
  g.BetAmount[101] = 7_d;
  RemoveAllBets(g);
  EXPECT_TRUE(TablesAgree(g));
  EXPECT_EQ(g.TotalBets, 20_d);
  EXPECT_EQ(table.Amount(Bet::PassLine), 10_d);
  EXPECT_EQ(table.Amount(Bet::Come9), 10_d);
  EXPECT_EQ(table.Amount(101), 7_d);
  EXPECT_EQ(table.TakeMessage(), "");
  EXPECT_EQ(g.Rules.NotifyFlags, 15);
}

TEST(PlayerActions, BuyBet) {
  struct Row {
    const char* name;
    BetId bet;
    Money amount;
    Money placed;  // left on the bet
    Money bought;  // on Buy 6
    const char* text;
  };
  const Row rows[] = {
      {"Place 6", Bet::Place6, 40_d, 0_d, 40_d, "Total \"Vig\" charge $2"},
      {"Place 6, nothing on it", Bet::Place6, 0_d, 0_d, 0_d, ""},
      {"Buy 6", Bet::Buy6, 40_d, 40_d, 40_d, ""},
      {"Field", Bet::Field, 40_d, 40_d, 0_d, "You may not buy this bet."},
      {"Field, nothing on it", Bet::Field, 0_d, 0_d, 0_d, ""},
      {"a Chip-Stack", 101, 40_d, 40_d, 0_d, "You may not buy Chip-Stacks."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    if (IsBet(row.bet)) table.Stand(row.bet, row.amount);
    g.BetAmount[row.bet] = row.amount;
    if (IsBet(row.bet)) g.BetWorking[row.bet] = CalledOn;
    BuyBet(g, row.bet);
    EXPECT_EQ(table.Amount(row.bet), row.placed);
    EXPECT_EQ(table.Amount(Bet::Buy6), row.bought);
    EXPECT_EQ(table.TakeMessage(), row.text);
    EXPECT_EQ(g.BetWorking[Bet::Buy6] == CalledOn, row.bought > 0_d) << "the button moves along";
    EXPECT_TRUE(TablesAgree(g));
  }
}

TEST(PlayerActions, CallBet) {
  constexpr const char* kRefused = "You may not call this bet ON or OFF.";
  struct Row {
    const char* name;
    BetId bet;
    int point;
    std::int32_t before;
    bool on;
    std::int32_t after;
    const char* text = "";
  };
  const Row rows[] = {
      {"ON", Bet::Place6, 0, Off, true, CalledOn},
      {"OFF", Bet::Place6, 5, On, false, CalledOff},
      {"ON takes the OFF button away, come-out", Bet::Place6, 0, CalledOff, true, Off},
      {"ON takes the OFF button away, point", Bet::Place6, 5, CalledOff, true, On},
      {"OFF takes the ON button away, come-out", Bet::Come6Odds, 0, CalledOn, false, Off},
      {"ON stays ON", Bet::Hard4, 5, CalledOn, true, CalledOn},
      {"Pass Line", Bet::PassLine, 5, On, false, On, kRefused},
      {"Don't Pass", Bet::DontPass, 5, On, false, On, kRefused},
      {"Come box", Bet::Come, 5, On, true, On, kRefused},
      {"Don't Come box", Bet::DontCome, 5, On, true, On, kRefused},
      {"Come 10", Bet::Come10, 5, On, false, On, kRefused},
      {"Don't Come 4", Bet::DontCome4, 5, On, false, On, kRefused},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    if (row.point != 0) table.PutPointOn(row.point);
    table.Stand(row.bet, 10_d);
    g.BetWorking[row.bet] = row.before;
    CallBet(g, row.bet, row.on);
    EXPECT_EQ(g.BetWorking[row.bet], row.after);
    EXPECT_EQ(table.TakeMessage(), row.text);
    g.BetWorking[row.bet] = row.before;
    CallAllBets(g, row.on);
    EXPECT_EQ(g.BetWorking[row.bet], row.after) << "all bets called";
    EXPECT_EQ(table.TakeMessage(), "");
  }
}

TEST(PlayerActions, AdjustBet) {
  struct Row {
    const char* name;
    FormulaOperator step;
    Money amount;
    Money after;
    const char* text;
  };
  const Row rows[] = {
      {"one unit more", FormulaPlus, 12_d, 18_d, "Bet increased by: $6"},
      {"one unit less", FormulaMinus, 12_d, 6_d, "Bet decreased by: $6"},
      {"doubled", FormulaTimes, 12_d, 24_d, "Bet increased by: $12"},
      {"halved", FormulaDivide, 12_d, 6_d, "Bet decreased by: $6"},
      {"halved to whole chips", FormulaDivide, 5_d, 3_d, "Bet decreased by: $2"},
      {"the last unit", FormulaMinus, 6_d, 0_d, "Bet decreased by: $6"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    table.Stand(Bet::Place6, row.amount);
    AdjustBet(table.g, Bet::Place6, row.step);
    EXPECT_EQ(table.Amount(Bet::Place6), row.after);
    table.ExpectNotice("Place 6", row.text);
  }
}

TEST(PlayerActions, CallBetWithoutABet) {
  for (BetId slot : {0, 84, 95, 99, 200, 201, -1}) {
    BetsTestTable table;
    CallBet(table.g, slot, true);
    BuyBet(table.g, slot);
    EXPECT_EQ(table.TakeMessage(), "") << slot;
  }
  BetsTestTable table;
  CallBet(table.g, Bet::PassLine, true);
  CallBet(table.g, Bet::Place6, true);
  CallBet(table.g, 101, true);
  EXPECT_EQ(table.TakeMessage(), "");
  EXPECT_EQ(table.g.BetWorking[Bet::Place6], Off);
  table.g.BetAmount[101] = 5_d;
  CallBet(table.g, 101, true);
  EXPECT_EQ(table.TakeMessage(), "You may not call Chip-Stacks ON or OFF.");
}

}  // namespace
}  // namespace rollwick
