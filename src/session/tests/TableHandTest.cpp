// The player's hand: what each action does to the table, that undo takes back exactly that and no more, and
// what is put up again after a hand.
#include "session/TableHand.h"

#include "engine/bets/Bankroll.h"
#include "session/tests/HandTable.h"

namespace rollwick {
namespace {

struct ActionRow {
  const char* name;
  std::vector<std::array<int, 2>> throws;  // with the bets up
  std::vector<std::pair<BetId, int>> before;
  void (*act)(HandTable&);
  std::vector<std::pair<BetId, int>> after;  // what stands then, of the spots named
  const char* told = "";                     // how the message begins
};

const ActionRow kActions[] = {
    {"a chip on an empty bet", {}, {}, [](HandTable& t) { t.hand.Click(Bet::Field); }, {{Bet::Field, 5}}},
    {"a chip on a Chip-Stack", {}, {}, [](HandTable& t) { t.hand.Click(107); }, {{107, 5}}},
    {"a click on the rail bets nothing", {}, {}, [](HandTable& t) { t.hand.Click(SlotRail); }, {}},
    {"TAKE takes the Don't Pass when it has no odds",
     {{4, 2}},
     {{Bet::DontPass, 10}},
     [](HandTable& t) { t.hand.ChooseMode(ClickMode::Remove), t.hand.Click(Bet::DontPassOdds); },
     {{Bet::DontPass, 0}}},
    {"TAKE takes the odds first",
     {{4, 2}},
     {{Bet::DontPass, 10}},
     [](HandTable& t) {
       t.hand.FullOdds(Bet::DontPass);
       t.hand.ChooseMode(ClickMode::Remove), t.hand.Click(Bet::DontPassOdds);
     },
     {{Bet::DontPass, 10}, {Bet::DontPassOdds, 0}}},
    {"a contract bet stays",
     {{4, 2}},
     {{Bet::PassLine, 10}},
     [](HandTable& t) { t.hand.Remove(Bet::PassLine); },
     {{Bet::PassLine, 10}},
     "You may not decrease or remove your Pass Line"},
    {"a bet not allowed",
     {},
     {},
     [](HandTable& t) { t.hand.Click(Bet::Come); },
     {{Bet::Come, 0}},
     "You may not"},
    {"a mode chosen again is left",
     {},
     {},
     [](HandTable& t) {
       t.hand.ChooseMode(ClickMode::Buy), t.hand.ChooseMode(ClickMode::Buy), t.hand.Click(Bet::Place4);
     },
     {{Bet::Place4, 5}}},
    {"the BUY lammer",
     {},
     {{Bet::Place4, 20}},
     [](HandTable& t) { t.hand.ChooseMode(ClickMode::Buy), t.hand.Click(Bet::Place4); },
     {{Bet::Place4, 0}, {Bet::Buy4, 20}}},
    {"carried to another bet",
     {},
     {{Bet::Place6, 12}},
     [](HandTable& t) { t.hand.TakeUp(Bet::Place6), t.hand.PutDown(Bet::Place8); },
     {{Bet::Place6, 0}, {Bet::Place8, 12}}},
    {"carried to where it may not stand",
     {},
     {{Bet::Place6, 12}},
     [](HandTable& t) { t.hand.TakeUp(Bet::Place6), t.hand.PutDown(Bet::Come); },
     {{Bet::Place6, 12}, {Bet::Come, 0}},
     "You may not make a Come bet"},
    {"what is over the maximum goes back",
     {},
     {{Bet::Field, 300}, {Bet::Hard4, 400}},
     [](HandTable& t) {
       t.g.Rules.MaxPlacardBet = Dollars(350);
       t.hand.TakeUp(Bet::Field), t.hand.PutDown(Bet::Field);
       t.g.Rules.MaxPropBetPayoff = Dollars(3150);
       t.hand.Remove(Bet::Field);
       t.hand.TakeUp(Bet::Hard4), t.hand.PutDown(Bet::Field);
     },
     {{Bet::Field, 350}, {Bet::Hard4, 50}},
     "Maximum bet here"},
    {"a contract bet cannot be carried away",
     {{4, 2}},
     {{Bet::PassLine, 10}},
     [](HandTable& t) { t.hand.TakeUp(Bet::PassLine), t.hand.PutDown(Bet::Field); },
     {{Bet::PassLine, 10}, {Bet::Field, 0}},
     "You may not decrease"},
    {"odds do not stay behind a Don't Pass that is carried away",
     {{4, 2}},
     {{Bet::DontPass, 10}},
     [](HandTable& t) {
       t.hand.FullOdds(Bet::DontPass);
       t.hand.TakeUp(Bet::DontPass), t.hand.PutDown(Bet::Field);
     },
     {{Bet::DontPass, 0}, {Bet::DontPassOdds, 0}, {Bet::Field, 10}}},
    {"what nobody takes goes back as it was, whatever the table asks of a bet by now",
     {},
     {{Bet::Place6, 10}},
     [](HandTable& t) {
       t.g.Rules.MinPlacardBet = Dollars(25);
       t.hand.TakeUp(Bet::Place6), t.hand.PutDown(Bet::Come);
     },
     {{Bet::Place6, 10}, {Bet::Come, 0}},
     "You may not make a Come bet"},
    {"a put bet goes back where none can be made any more",
     {{4, 2}},
     {{Bet::Field, 10}},
     [](HandTable& t) {
       t.g.Rules.AllowPutBets = true;
       t.hand.EnterAmount(Bet::Come8, Dollars(15));
       t.g.Rules.AllowPutBets = false;
       t.g.Rules.NotifyFlags = 0;
       t.hand.TakeUp(Bet::Come8), t.hand.PutDown(Bet::DontPass);
     },
     {{Bet::Come8, 15}, {Bet::DontPass, 0}}},
    {"a refused carry lays no odds",
     {{4, 2}},
     {{Bet::DontPass, 10}},
     [](HandTable& t) {
       t.g.AutoLayFullOdds = true;
       t.hand.TakeUp(Bet::DontPass), t.hand.PutDown(Bet::DontCome4);
     },
     {{Bet::DontPass, 10}, {Bet::DontPassOdds, 0}, {Bet::DontCome4, 0}},
     "You may not make or increase a Don't Come"},
    {"odds follow by themselves to where they are carried",
     {{4, 2}},
     {{Bet::PassLine, 10}, {Bet::Field, 10}},
     [](HandTable& t) {
       t.g.Rules.AllowPutBets = t.g.AutoTakeFullOdds = true;
       t.hand.EnterAmount(Bet::Field, Dollars(10));
       t.hand.TakeUp(Bet::Field), t.hand.PutDown(Bet::PassLine);
     },
     {{Bet::PassLine, 20}, {Bet::PassLineOdds, 50}, {Bet::Field, 0}}},
    {"whatever else is done puts the chips back",
     {},
     {{Bet::Field, 10}},
     [](HandTable& t) { t.hand.TakeUp(Bet::Field), t.hand.Click(Bet::Big6), t.hand.PutDown(Bet::Big8); },
     {{Bet::Field, 10}, {Bet::Big6, 5}, {Bet::Big8, 0}}},
    {"the dice put the chips back",
     {},
     {{Bet::Field, 10}},
     [](HandTable& t) { t.hand.TakeUp(Bet::Field), t.hand.DiceAreOut(), t.hand.PutDown(Bet::Big8); },
     {{Bet::Field, 10}, {Bet::Big8, 0}}},
    {"a Chip-Stack carried onto a bet",
     {},
     {{101, 25}},
     [](HandTable& t) { t.hand.TakeUp(101), t.hand.PutDown(Bet::PassLine); },
     {{101, 0}, {Bet::PassLine, 25}}},
    {"put back on the rail",
     {},
     {{Bet::Field, 10}},
     [](HandTable& t) { t.hand.TakeUp(Bet::Field), t.hand.PutDown(SlotRail); },
     {{Bet::Field, 10}}},
    {"back into the box of the Don't Pass, which answers as its odds",
     {{4, 2}},
     {{Bet::DontPass, 10}},
     [](HandTable& t) { t.hand.TakeUp(Bet::DontPassOdds), t.hand.PutDown(Bet::DontPassOdds); },
     {{Bet::DontPass, 10}, {Bet::DontPassOdds, 0}}},
    {"plus, a unit more",
     {},
     {{Bet::Place6, 6}},
     [](HandTable& t) { t.hand.Step(Bet::Place6, FormulaPlus); },
     {{Bet::Place6, 12}}},
    {"minus, odds do not stay behind a Don't Pass that is stepped down to nothing",
     {{4, 2}},
     {{Bet::DontPass, 1}},
     [](HandTable& t) {
       t.hand.FullOdds(Bet::DontPass);
       EXPECT_GT(t.Amount(Bet::DontPassOdds), Money());
       t.hand.Step(Bet::DontPass, FormulaMinus);
     },
     {{Bet::DontPass, 0}, {Bet::DontPassOdds, 0}}},
    {"down, as far as the rules let go",
     {{4, 2}},
     {{Bet::PassLine, 10}, {Bet::Place5, 5}},
     [](HandTable& t) { t.hand.RemoveAll(); },
     {{Bet::PassLine, 10}, {Bet::Place5, 0}}},
    {"nothing while the dice roll",
     {},
     {{Bet::Field, 10}},
     [](HandTable& t) {
       t.g.RollInProgress = true;
       t.hand.Click(Bet::Field), t.hand.Remove(Bet::Field), t.hand.RemoveAll(), t.hand.Undo();
       EXPECT_FALSE(t.hand.TakeUp(Bet::Field));
       EXPECT_FALSE(t.hand.CanUndo());
       t.g.RollInProgress = false;
     },
     {{Bet::Field, 10}}},
};

TEST(TableHand, ActionsAndTheirUndo) {
  for (const ActionRow& row : kActions) {
    SCOPED_TRACE(row.name);
    HandTable t;
    t.g.BetAmount[SlotBankroll] = Dollars(2000);
    for (const auto& [bet, dollars] : row.before) t.hand.EnterAmount(bet, Dollars(dollars));
    for (const auto& dice : row.throws) t.Throw(dice[0], dice[1]);
    t.TakeMessage();
    int before = 0;  // steps that made the table
    while (t.hand.CanUndo()) t.hand.Undo(), ++before;
    while (before-- > 0) t.hand.Redo();
    const BetTables start = t.g;
    const Money bankroll = t.Amount(SlotBankroll);

    row.act(t);
    for (const auto& [spot, dollars] : row.after) EXPECT_EQ(t.Amount(spot), Dollars(dollars)) << spot;
    const std::string told = t.TakeMessage();
    EXPECT_TRUE(*row.told == 0 ? told.empty() : told.starts_with(row.told)) << told;
    EXPECT_EQ(t.Amount(SlotBankroll), bankroll);
    EXPECT_TRUE(TablesAgree(t.g) && BetSetsAgree(t.g));
    if (t.g.Rules != start.Rules) continue;
    while (t.hand.CanUndo() && t.g.BetAmount != start.BetAmount) t.hand.Undo();
    ExpectSameTables(t.g, start);
  }
}

TEST(TableHand, OneStepForEachAction) {
  HandTable t;
  t.g.Rules.NotifyFlags = 0;
  for (int i = 0; i < 150; ++i) t.hand.Click(Bet::Field);
  EXPECT_EQ(t.Amount(Bet::Field), Dollars(500)) << "the bankroll is 500";
  t.hand.RemoveAll();
  EXPECT_EQ(t.Amount(Bet::Field), Money());
  t.hand.Undo();
  EXPECT_EQ(t.Amount(Bet::Field), Dollars(500));
  for (int clicks = 99; clicks >= 0; --clicks) {
    t.hand.Undo();
    EXPECT_EQ(t.Amount(Bet::Field), Dollars(5 * clicks)) << "clicks that changed nothing made no step";
  }
  EXPECT_FALSE(t.hand.CanUndo());
  for (int i = 0; i < 100; ++i) t.hand.Redo();
  EXPECT_EQ(t.Amount(Bet::Field), Dollars(500));
  EXPECT_TRUE(t.hand.CanRedo()) << "taking all down is still to come";
  t.hand.Undo();
  t.hand.Click(Bet::Big6);
  EXPECT_FALSE(t.hand.CanRedo()) << "something else was done instead";
}

TEST(TableHand, ButtonsAndVigsComeBack) {
  HandTable t;
  t.Bets({{Bet::Place4, 20}, {Bet::Lay5, 30}});
  t.hand.Call(Bet::Place4, false);
  const BetTables start = t.g;
  t.hand.Buy(Bet::Place4);
  t.g.TableDirty = false;
  EXPECT_EQ(t.g.BetWorking[Bet::Buy4], CalledOff);
  EXPECT_EQ(t.g.BuyVigAmount[Bet::Buy4], Dollars(1));
  t.hand.Undo();
  EXPECT_TRUE(t.g.TableDirty);
  ExpectSameTables(t.g, start);
  t.hand.TakeUp(Bet::Place4), t.hand.PutDown(Bet::Come);
  ExpectSameTables(t.g, start);  // refused: the button lies where it lay
  t.hand.CallAll(true), t.hand.Undo();
  ExpectSameTables(t.g, start);
  t.hand.Remove(Bet::Lay5), t.hand.Undo();
  ExpectSameTables(t.g, start);
}

// What the steps began from must be there yet.
TEST(TableHand, StepsEndWhenTheTableBecomesAnother) {
  const struct {
    const char* name;
    void (*change)(HandTable&);
    bool canUndo;
  } kRows[] = {
      {"nothing", [](HandTable&) {}, true},
      {"money from the ATM", [](HandTable& t) { AtmTransaction(t.g, AtmDirection::Withdraw, Dollars(100)); },
       false},
      {"money to the ATM", [](HandTable& t) { AtmTransaction(t.g, AtmDirection::Deposit, Dollars(100)); },
       false},
      {"a rule", [](HandTable& t) { t.g.Rules.AllowPutBets = true; }, false},
      {"a notice was switched off", [](HandTable& t) { t.g.Rules.NotifyFlags = 0; }, true},
      {"a bet changed by a script", [](HandTable& t) { SetAmount(t.g, Bet::Field, Dollars(7)); }, false},
      {"a throw", [](HandTable& t) { t.Throw(1, 3); }, false},
      {"another game", [](HandTable& t) { t.hand.Forget(); }, false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    HandTable t;
    t.Bets({{Bet::PassLine, 10}, {Bet::Big8, 6}});
    t.hand.Undo();
    row.change(t);
    EXPECT_EQ(t.hand.CanUndo(), row.canUndo);
    EXPECT_EQ(t.hand.CanRedo(), row.canUndo);
    const BetTables now = t.g;
    if (!row.canUndo) t.hand.Undo(), t.hand.Redo();
    ExpectSameTables(t.g, now);
    t.hand.Click(Bet::Hard6), t.hand.Undo();  // what is done from here on can be undone
    ExpectSameTables(t.g, now);
    EXPECT_EQ(t.hand.CanUndo(), row.canUndo);
  }
}

TEST(TableHand, AnEnteredAmountSaysWhetherItWasTaken) {
  const struct {
    const char* name;
    BetId bet;
    int dollars, stands;
    bool taken;
    std::int32_t notify = NotifyNotAllowed | NotifyLimits | NotifyCharges;
  } kRows[] = {
      {"taken", Bet::Field, 10, 10, true},
      {"above the maximum", Bet::Field, 2000, 1000, false},
      {"above the maximum, nobody wants to hear", Bet::Field, 2000, 1000, true, 0},
      {"not allowed", Bet::Come, 10, 0, false},
      {"fitted to a proper payoff without a word", Bet::Place6, 10, 12, true},
      {"a vig is told and no refusal", Bet::Buy4, 20, 20, true},
      {"a Chip-Stack", 105, -40, -40, true},
      {"no place for money", SlotRail, 10, 0, true},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    HandTable t;
    t.g.AutoAdjustBetAmounts = AdjustMinor;
    t.g.BetAmount[SlotBankroll] = Dollars(5000);
    t.g.Rules.NotifyFlags = row.notify;
    EXPECT_EQ(t.hand.EnterAmount(row.bet, Dollars(row.dollars)), row.taken);
    EXPECT_EQ(t.Amount(row.bet), Dollars(row.stands));
    EXPECT_EQ(t.g.TheHost, &t.host);
  }
}

TEST(TableHand, SameBetsAsLastHand) {
  HandTable t;
  EXPECT_FALSE(t.hand.HasLastHand());
  t.Throw(1, 2);
  EXPECT_FALSE(t.hand.HasLastHand()) << "nothing was bet";
  t.Bets({{Bet::PassLine, 10}, {Bet::Hard6, 5}});
  t.Throw(4, 2);
  t.Bets({{Bet::Place8, 12}, {Bet::PassLineOdds, 20}});
  t.Throw(3, 4);
  EXPECT_TRUE(t.g.BetsStanding.IsEmpty());
  EXPECT_TRUE(t.hand.HasLastHand());
  t.Throw(1, 2);  // a throw without bets forgets nothing
  t.Bets({{Bet::PassLine, 4}});
  const BetTables before = t.g;
  t.hand.SameBetsAsLastHand();
  EXPECT_EQ(t.Amount(Bet::PassLine), Dollars(10));
  EXPECT_EQ(t.Amount(Bet::Hard6), Dollars(5));
  EXPECT_EQ(t.g.TotalBets, Dollars(15)) << "what came later is not put up";
  t.hand.Undo();
  ExpectSameTables(t.g, before);
  t.hand.Redo();
  t.hand.RemoveAll();
  t.Bets({{Bet::DontPass, 25}});
  t.Throw(4, 4);
  t.Throw(3, 4);
  t.hand.SameBetsAsLastHand();
  EXPECT_EQ(t.Amount(Bet::DontPass), Dollars(25)) << "the hand after it";
  EXPECT_EQ(t.Amount(Bet::PassLine), Money());
  t.hand.Forget();
  EXPECT_FALSE(t.hand.HasLastHand());
}

// One word for each bet that is refused would be a row of windows.
TEST(TableHand, SameBetsAreRefusedWithoutAWord) {
  HandTable t;
  t.g.Rules.NotifyFlags = NotifyNotAllowed | NotifyLimits | NotifyCharges;
  t.Throw(4, 2);
  t.Bets({{Bet::Come, 10}, {Bet::DontCome, 10}, {Bet::Buy4, 20}, {Bet::Place8, 12}});
  t.Throw(3, 4);
  t.g.Rules.MaxPlacardBet = Dollars(15);
  t.host.messages.clear();
  const std::int32_t notices = t.g.Rules.NotifyFlags;
  t.hand.SameBetsAsLastHand();
  EXPECT_EQ(t.Amount(Bet::Come), Money());
  EXPECT_EQ(t.Amount(Bet::Place8), Dollars(12));
  EXPECT_EQ(t.Amount(Bet::Buy4), Dollars(15));
  EXPECT_TRUE(t.host.messages.empty());
  EXPECT_EQ(t.g.Rules.NotifyFlags, notices);
}

}  // namespace
}  // namespace rollwick
