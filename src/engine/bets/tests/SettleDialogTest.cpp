// The Settle Bet dialog: its accounts, its choices, and what they do.
#include "engine/bets/tests/BetsTestTable.h"

namespace rollwick {
namespace {

struct AccountRow {
  const char* name;
  BetId bet;
  Money amount;
  int outcome;
  int total;
  const char* caption;
  const char* rows;  // label|amount|label|amount ...
  bool toForm = true;
  Money chip = 1_d;
  bool working = true;
};

TEST(SettleDialog, AccountsOfTheDialog) {
  const AccountRow rows[] = {
      {"whole win", Bet::Place6, 12_d, Wins, 6, "* * * Winner * * *",
       "Place 6 bet:|$12|Payoff at 7 to 6:|$14"},
      {"rounded win", Bet::Place6, 10_d, Wins, 6, "* * * Winner * * *",
       "Place 6 bet:|$10|Payoff at 7 to 6:|$11.6667|Net payoff (rounded): |$11"},
      {"for form", Bet::Place6, 12_d, Wins, 6, "* * * Winner * * *",
       "Place 6 bet:|$12|Payoff at 13 for 6:|$14", false},
      {"Buy win", Bet::Buy4, 25_d, Wins, 4, "* * * Winner * * *",
       "Buy 4 bet:|$25|Payoff at 2 to 1:|$50|-5% vig:|$-1|Net payoff: |$49"},
      {"Lay win, rounded", Bet::Lay5, 31_d, Wins, 7, "* * * Winner * * *",
       "Lay 5 bet:|$31|Payoff at 2 to 3:|$20.6667|-5% vig:|$-1|Net payoff (rounded): |$19"},
      {"C and E on 11", Bet::CAndE, 2_d, Wins, 11, "* * * Winner * * *",
       "C and E bet:|$2|1/2 of bet:|$1|Payoff at 15 to 1:|$15|Less 1/2 of bet:|$-1|Net payoff: |$14"},
      {"Horn on 12", Bet::Horn, 5_d, Wins, 12, "* * * Winner * * *",
       "Horn bet:|$5|1/4 of bet:|$1.25|Payoff at 30 to 1:|$37.50|Less 3/4 of bet:|$-3.75|Net payoff "
       "(rounded): |$33"},
      {"World on 7", Bet::World, 7_d, Wins, 7, "Push",
       "World bet:|$7|1/5 of bet:|$1.40|Payoff at 4 to 1:|$5.60|Less 4/5 of bet:|$-5.60|Net payoff: |$0"},
      {"loss", Bet::Place6, 12_d, Loses, 7, "Bet Lost",
       "Place 6 bet:|$12|Loss at -1 to 1:|$-12|Remainder: |$0"},
      {"loss in for form", Bet::Place6, 12_d, Loses, 7, "Bet Lost",
       "Place 6 bet:|$12|Loss at 0 for 1:|$-12|Remainder: |$0", false},
      {"rounded loss", Bet::Place6, 12_d, Loses, 7, "Bet Lost",
       "Place 6 bet:|$12|Loss at -1 to 1:|$-12|Net loss (rounded): |$-15|Remainder: |$-3", true, 5_d},
      {"Buy loss", Bet::Buy4, 25_d, Loses, 7, "Bet Lost",
       "Buy 4 bet:|$25|Loss at -1 to 1:|$-25|-5& vig:|$-1|Net loss: |$-26|Remainder: |$0"},
      {"a won Lay bet that loses", Bet::Lay10, 1_d, Wins, 7, "Bet Lost",
       "Lay 10 bet:|$1|Payoff at 1 to 2:|$.50|-5& vig:|$-1|Net loss (rounded): |$-1|Remainder: |$1"},
      {"odds returned", Bet::Come6Odds, 20_d, OddsLose, 7, "Odds Bet Returned",
       "Come 6 Odds bet:|$20|wasn't working!|", true, 1_d, false},
  };
  for (const AccountRow& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.HandleLosingBets = LossManual;
    g.BetAmount[SlotChipDenom] = row.chip;
    g.PayoffTable[row.bet].IsToForm = row.toForm;
    g.DiceTotal = row.total;
    table.Stand(row.bet, row.amount);
    if (!row.working) g.BetWorking[row.bet] = Off;
    ResolveBet(g, row.outcome, row.bet);
    ASSERT_EQ(table.host.settled.size(), 1U);
    const SettleQuestion& question = table.host.settled[0];
    EXPECT_EQ(question.caption, row.caption);
    std::string shown;
    for (const SettleRow& line : question.rows) {
      shown += (shown.empty() ? "" : "|") + line.label + "|" + line.amount;
      EXPECT_EQ(line.bold, line.label.starts_with("Net ")) << line.label;
    }
    EXPECT_EQ(shown, row.rows);
    EXPECT_EQ(g.TotalBets, 0_d) << "the dialog's first choice takes the bet down";
  }
}

TEST(SettleDialog, ChoicesOfTheDialog) {
  BetsTestTable table;
  table.g.HandleLosingBets = LossManual;
  DecidePlace6(table, Wins);
  DecidePlace6(table, Loses);
  ASSERT_EQ(table.host.settled.size(), 2U);
  EXPECT_TRUE(table.host.settled[0].won);
  EXPECT_EQ(table.host.settled[0].choices,
            (std::array<std::string, kSettleChoices>{
                "&Take Bet and Winnings", "&Same Bet - Take Winnings", "Press 1 &Unit - Add $6 to Bet",
                "&Press - Add Winnings to &Double Bet", "Parlay - Add &All Winnings to Bet",
                "Sa&me Bet:", "&Bet:"}));
  EXPECT_FALSE(table.host.settled[1].won);
  EXPECT_EQ(table.host.settled[1].choices,
            (std::array<std::string, kSettleChoices>{"No Bet/Take Remainder", "Bet Remainder", "Same Bet",
                                                     "Press 1 &Unit - Add $6 to Bet", "Double Bet",
                                                     "Sa&me Bet:", "&Bet:"}));
}

TEST(SettleDialog, ChosenInTheDialog) {
  constexpr Money kWon[kSettleChoices] = {0_d, 12_d, 18_d, 24_d, 26_d, 15_d, 30_d};
  constexpr Money kLost[kSettleChoices] = {0_d, 0_d, 12_d, 18_d, 24_d, 17_d, 36_d};
  for (int choice = 0; choice < kSettleChoices; ++choice) {
    for (const bool won : {true, false}) {
      SCOPED_TRACE((won ? "won, choice " : "lost, choice ") + std::to_string(choice));
      BetsTestTable table;
      Game& g = table.g;
      g.HandleLosingBets = LossManual;
      g.ModifyAmount = {3_d, 30_d, 5_d, 36_d, 0_d, 0_d, 0_d, 0_d};
      table.host.choices = {choice};
      DecidePlace6(table, won ? Wins : Loses);
      EXPECT_EQ(table.Amount(Bet::Place6), won ? kWon[choice] : kLost[choice]);
      EXPECT_EQ(g.LastWonChoice, won ? choice : 0);
      EXPECT_EQ(g.LastLostChoice, won ? 0 : choice);
      DecidePlace6(table, won ? Wins : Loses);  // just closed: the remembered choice
      EXPECT_EQ(table.host.settled.back().remembered, choice);
      EXPECT_EQ(table.Amount(Bet::Place6), won ? kWon[choice] : kLost[choice]);
    }
  }
}

// A dialog whose formula rows were typed in, with "Bet:" chosen.
class FormulaHost : public ScriptedHost {
 public:
  SettleAnswer Settle(Game&, const SettleQuestion&) override {
    return {6, std::array{SettleFormula{FormulaTimes, 2_d, 1}, SettleFormula{FormulaPlus, 3_d, 2}}};
  }
};

TEST(SettleDialog, TypedFormulasAreKeptForTheirKind) {
  struct Row {
    const char* name;
    BetId bet;
    Money amount;
    int outcome;
    int slot;
    Money after;
  };
  const Row rows[] = {
      {"won", Bet::Place6, 12_d, Wins, DialogWonSameBet, 18_d},
      {"lost", Bet::Place6, 12_d, Loses, DialogLostSameBet, 18_d},
      {"a won Lay bet that loses", Bet::Lay10, 1_d, Wins, DialogLostSameBet, 6_d},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    FormulaHost host;
    g.TheHost = &host;
    g.HandleLosingBets = LossManual;
    table.Stand(row.bet, row.amount);
    ResolveBet(g, row.outcome, row.bet);
    EXPECT_EQ(table.Amount(row.bet), row.after);
    EXPECT_EQ(g.ModifyOperator[row.slot], FormulaTimes);
    EXPECT_EQ(g.ModifyAmount[row.slot], 2_d);
    EXPECT_EQ(g.ModifyUnit[row.slot], 1);
    EXPECT_EQ(g.ModifyAmount[row.slot + 1], 3_d);
    EXPECT_EQ(g.ModifyUnit[row.slot + 1], 2);
    EXPECT_EQ(g.ModifyAmount[row.slot ^ 2], 0_d) << "the other kind's rows";
  }
}

}  // namespace
}  // namespace rollwick
