// The window played by its menus, keys and mouse, with every dialog answered.
#include "ui/frmCrapTable.h"

#include <QMenuBar>
#include <QPointer>
#include <set>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "dice/Draw.h"
#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "support/ScriptedHost.h"
#include "ui/tests/TestWindow.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;

using CrapTable = TestWindow;

void SeedBoth(Game& a, Game& b) {
  for (Game* g : {&a, &b}) {
    g->RngChoice = RngMersenne;
    g->SeedRequest = Dollars(4'711);
    SeedGenerator(*g, true);
  }
}

void ExpectSameTable(const Game& a, const Game& b) {
  EXPECT_EQ(a.BetAmount, b.BetAmount);
  EXPECT_EQ(a.BetWorking, b.BetWorking);
  EXPECT_EQ(a.BetContract, b.BetContract);
  EXPECT_EQ(a.BuyVigAmount, b.BuyVigAmount);
  EXPECT_EQ(a.TotalBets, b.TotalBets);
  EXPECT_EQ(a.Point, b.Point);
  EXPECT_EQ(a.Die1 * 10 + a.Die2, b.Die1 * 10 + b.Die2);
  EXPECT_EQ(a.RollEventCount, b.RollEventCount);
  EXPECT_EQ(a.HandStats, b.HandStats);
  EXPECT_EQ(a.Mersenne.words, b.Mersenne.words);
}

// ---- Menus

QString LetterOf(const QString& text) {
  const qsizetype at = QString(text).replace("&&", "  ").indexOf('&');
  return at < 0 ? QString() : text.mid(at + 1, 1).toUpper();
}

void ExpectOwnLetters(const QList<QAction*>& actions, const std::string& where) {
  std::set<QString> letters;
  for (const QAction* action : actions) {
    if (action->isSeparator()) continue;
    const QString letter = LetterOf(action->text());
    EXPECT_FALSE(letter.isEmpty()) << where << ": " << action->text().toStdString();
    EXPECT_TRUE(letters.insert(letter).second) << where << ": " << action->text().toStdString();
    if (action->menu() != nullptr) {
      ExpectOwnLetters(action->menu()->actions(), action->text().toStdString());
    } else {
      EXPECT_FALSE(action->objectName().isEmpty()) << action->text().toStdString();
    }
  }
}

TEST_F(CrapTable, EveryEntryIsThereWithALetterOfItsOwn) {
  ExpectOwnLetters(window->menuBar()->actions(), "menu bar");
  for (const char* name : {"mnuNew",
                           "mnuOpen",
                           "mnuSave",
                           "mnuSaveAs",
                           "mnuRecentGames",
                           "mnuRollDice",
                           "mnuPrintSetup",
                           "mnuExit",
                           "mnuUndo",
                           "mnuRedo",
                           "mnuRemoveBet",
                           "mnuBuyPlaceBet",
                           "mnuCallBetOn",
                           "mnuCallBetOff",
                           "mnuCallAllBetsOn",
                           "mnuCallAllBetsOff",
                           "mnuRemoveAllBets",
                           "mnuTakeAllOdds",
                           "mnuLayAllOdds",
                           "mnuSameBets",
                           "mnuClearBets",
                           "mnuWithdraw",
                           "mnuDeposit",
                           "mnuKeyInBetAmounts",
                           "mnuDisplayBetAmounts",
                           "mnuDisplayHopBets",
                           "mnuAutoPlay",
                           "mnuAutoBet",
                           "mnuAutoBetActive",
                           "mnuShowSteps",
                           "mnuHyperDrive",
                           "mnuSummary",
                           "mnuBankroll",
                           "mnuRollTotals",
                           "mnuRollFreqs",
                           "mnuBetResults",
                           "mnuBetTrends",
                           "mnuGamesLog",
                           "mnuEventsLog",
                           "mnuConfigure",
                           "mnuDiceRollFiles",
                           "mnuRYON",
                           "mnuHotKeys",
                           "mnuChipStacks",
                           "mnuFlagValues",
                           "mnuContents",
                           "mnuAbout"})
    EXPECT_NE(window->findChild<QAction*>(name), nullptr) << name;
  std::set<QString> keys;
  for (const QAction* action : window->findChildren<QAction*>()) {
    if (!action->shortcut().isEmpty()) {
      EXPECT_TRUE(keys.insert(action->shortcut().toString()).second) << action->text().toStdString();
    }
  }
}

TEST_F(CrapTable, TheMenuOfABetHasLettersOfItsOwn) {
  g().BetAmount[Bet::Place6] = Dollars(12);
  g().BetAmount[Bet::Buy6] = Dollars(20);
  for (const auto& bets : {BetsAt(g(), Bet::Buy6), BetsAt(g(), Bet::PassLine)}) {
    const QPointer<QMenu> menu = MakeBetMenu(g(), bets, window.get(), [](BetId, BetEntry) {});
    ExpectOwnLetters(menu->actions(), "bet");
    delete menu;
  }
  EXPECT_EQ(BetsAt(g(), Bet::Buy6), (std::vector<BetId>{Bet::Place6, Bet::Buy6}));
  EXPECT_TRUE(BetsAt(g(), SlotRail).empty());
}

TEST_F(CrapTable, TheHelpOpensBesideTheTable) {
  Choose("mnuContents");
  Choose("mnuContents");
  ASSERT_EQ(window->findChildren<HelpWindow*>().size(), 1);
  EXPECT_TRUE(window->findChild<HelpWindow*>()->isVisible());
  window->close();
  EXPECT_FALSE(window->findChild<HelpWindow*>()->isVisible());
}

TEST_F(CrapTable, ADialogBringsItsOwnHelp) {
  Later(1, [] {
    auto* const dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    QTest::keyClick(dialog, Qt::Key_F1);
    ASSERT_NE(dialog->findChild<HelpWindow*>(), nullptr) << "one that the dialog does not lock";
    EXPECT_TRUE(dialog->findChild<HelpWindow*>()->isVisible());
    dialog->close();
  });
  player.GoAway();
  Choose("mnuAbout");
  EXPECT_EQ(window->findChildren<HelpWindow*>().size(), 0);
}

// ---- Play

// One step of a game, in the window and by the procedures.
struct Step {
  std::function<void()> inWindow;
  std::function<void(Game&, TableHand&)> byCalls;
};

TEST_F(CrapTable, AGamePlayedInTheWindowIsTheGamePlayedByCalls) {
  TestTable calls;
  TableHand hand(calls.g);
  for (Game* game : {&g(), &calls.g}) {
    game->Rules.NotifyFlags = 0;
    game->BetAmount[SlotBankroll] = game->InvestedBankroll = Dollars(20'000);
    game->BetAfterSettle = game->BetAtThrow = game->BetAmount;
  }
  SeedBoth(g(), calls.g);
  const auto entry = [this](const char* name, void (TableHand::*act)()) -> Step {
    return {[this, name] { Choose(name); }, [act](Game&, TableHand& own) { (own.*act)(); }};
  };
  const auto click = [this](BetId bet, int chip) -> Step {
    return {[this, bet, chip] {
              QTest::keyClick(&Picture(), Qt::Key_PageDown);
              g().SelectedChip = chip;
              Click(bet);
            },
            [bet, chip](Game& game, TableHand& own) {
              game.SelectedChip = chip;
              own.Click(BoxAnswer(game, bet));  // one box, and the bet with money answers
            }};
  };
  const auto roll = [](Game& game, TableHand& own) {
    own.LeaveMode();
    own.DiceAreOut();
    RollDice(game);
  };
  const std::vector<Step> steps = {
      click(Bet::PassLine, 1),
      click(Bet::DontCome, 2),
      click(Bet::Field, 0),
      {[this] { PressKey(Qt::Key_Space); }, roll},
      {[this] { Click(Bet::Come, Qt::RightButton); }, roll},
      click(Bet::Place8, 1),
      click(Bet::Hard6, 0),
      click(Bet::Come, 1),
      entry("mnuTakeAllOdds", &TableHand::TakeAllOdds),
      {[this] { Choose("mnuRollDice"); }, roll},
      {[this] { Choose("mnuCallAllBetsOff"); }, [](Game&, TableHand& own) { own.CallAll(false); }},
      {[this] {
         Picture().MoveCursor(Bet::Place8);
         PressKey(Qt::Key_Plus);
       },
       [](Game&, TableHand& own) { own.Step(Bet::Place8, FormulaPlus); }},
      {[this] { PressKey(Qt::Key_Z, Qt::ControlModifier); }, [](Game&, TableHand& own) { own.Undo(); }},
      entry("mnuSameBets", &TableHand::SameBetsAsLastHand),
      {[this] {
         Picture().MoveCursor(Bet::Place8);
         Choose("mnuBuyPlaceBet");
       },
       [](Game&, TableHand& own) { own.Buy(Bet::Place8); }},
      {[this] { Choose("mnuCallAllBetsOn"); }, [](Game&, TableHand& own) { own.CallAll(true); }},
      entry("mnuLayAllOdds", &TableHand::LayAllOdds),
      {[this] { Choose("mnuWithdraw"); },
       [](Game& game, TableHand&) { AtmTransaction(game, AtmDirection::Withdraw, Dollars(500)); }},
      {[this] { PressKey(Qt::Key_Space); }, roll},
      entry("mnuRemoveAllBets", &TableHand::RemoveAll),
  };
  unsigned choice = 7;
  for (int turn = 0; turn < 400; ++turn) {
    choice = choice * 1'103'515'245 + 12'345;
    const Step& step = steps[(choice >> 16) % steps.size()];
    player.answers.clear();
    if (&step == &steps[17]) player.answers = {"OK"};  // the amount of the ATM as it is offered
    step.inWindow();
    step.byCalls(calls.g, hand);
    SCOPED_TRACE("turn " + std::to_string(turn) + ", step " + std::to_string(&step - steps.data()));
    ExpectSameTable(g(), calls.g);
    ASSERT_TRUE(TablesAgree(g()));
    if (HasFailure()) return;
  }
  EXPECT_GT(g().RollCount(), 60);
  EXPECT_GT(calls.host.settled.size(), 3U) << "the Settle Bet dialog was never seen";
}

TEST_F(CrapTable, UndoAndRedoByKeys) {
  BeQuiet();
  EXPECT_FALSE(Entry("mnuUndo").isEnabled());
  g().SelectedChip = 1;
  Click(Bet::PassLine);
  Click(Bet::PassLine);
  PressKey(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(g().BetAmount[Bet::PassLine], Dollars(5));
  PressKey(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(g().BetAmount[Bet::PassLine], Dollars(10));
  PressKey(Qt::Key_Space);
  EXPECT_FALSE(Entry("mnuUndo").isEnabled()) << "the dice were out";
}

TEST_F(CrapTable, AnEntryWithoutABetWaitsForAClick) {
  BeQuiet();
  g().SelectedChip = 1;
  Click(Bet::PassLine);
  QTest::mouseMove(&Picture(), {1, 1});
  Choose("mnuRemoveBet");
  EXPECT_EQ(g().BetAmount[Bet::PassLine], Dollars(5));
  EXPECT_EQ(window->statusBar()->currentMessage(), "Click on bet to remove");
  Click(Bet::PassLine);
  EXPECT_EQ(g().BetAmount[Bet::PassLine], Money());
}

TEST_F(CrapTable, TheMenuOfABetActs) {
  BeQuiet();
  g().BetAmount[SlotBankroll] = Dollars(5'000);
  g().SelectedChip = 2;
  Click(Bet::Place6);
  const auto choose = [this](const char* name) {
    Picture().setFocus();
    PressKey(Qt::Key_F10, Qt::ShiftModifier);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    menu->findChild<QAction*>(name)->trigger();
    menu->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  };
  Picture().MoveCursor(Bet::Place6);
  choose("mnuBetCallOff_33");
  EXPECT_EQ(g().BetWorking[Bet::Place6], CalledOff);
  choose("mnuBetExplain_33");
  EXPECT_EQ(Asked(), "Place 6");
  EXPECT_NE(player.lastText.find("7 to 6"), std::string::npos) << player.lastText;
  choose("mnuBetBuy_33");
  EXPECT_NE(g().BetAmount[Bet::Buy6], Money());
  choose("mnuBetTakeDown_39");
  EXPECT_TRUE(g().BetsStanding.IsEmpty());
  choose("mnuBetAmount_33");
  QTest::keyClicks(QApplication::focusWidget(), "18");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(g().BetAmount[Bet::Place6], Dollars(18));
}

TEST_F(CrapTable, TheAtmMovesWhatWasEntered) {
  player.answers = {"=250.5", "", "=1000000"};
  Choose("mnuWithdraw");
  EXPECT_EQ(g().BetAmount[SlotBankroll], *ParseMoney("750.5"));
  EXPECT_EQ(LabelText("lblBankroll"), "Bankroll $750.50");
  Choose("mnuDeposit");  // and closed
  EXPECT_EQ(g().BetAmount[SlotBankroll], *ParseMoney("750.5"));
  Choose("mnuDeposit");  // no more than there is
  EXPECT_EQ(g().BetAmount[SlotBankroll], Money());
  EXPECT_EQ(Asked(), "ATM Withdrawal|ATM Deposit|ATM Deposit|ATM Deposit");
}

TEST_F(CrapTable, TheAtmTakesNoAmountThatIsNone) {
  for (const char* amount : {"=-5", "=0", "=.00001"}) {
    SCOPED_TRACE(amount);
    player.titles.clear();
    player.answers = {amount, ""};  // the prompt stays until it is closed
    Choose("mnuWithdraw");
    EXPECT_EQ(Asked(), "ATM Withdrawal|ATM Withdrawal");
    EXPECT_EQ(g().BetAmount[SlotBankroll], Dollars(500));
    EXPECT_FALSE(g().TableDirty);
  }
}

// ---- The window on its screen

TEST_F(CrapTable, AKeyFillsTheScreenAndGivesItBack) {
  PressKey(Qt::Key_F11);
  EXPECT_TRUE(window->isFullScreen());
  PressKey(Qt::Key_F11);
  EXPECT_FALSE(window->isFullScreen());
}

struct ScreenRow {
  const char* name;
  QSize screen;
  QSize window;
};
const ScreenRow kScreens[] = {
    {"large", {1920, 1080}, {1536, 930}},
    {"of a laptop", {1400, 900}, {1152, 710}},
    {"as large as the table", {800, 600}, {768, 490}},
    {"smaller than the table and its frame", {853, 480}, {768, 441}},
    {"very small", {600, 400}, {600, 368}},
};

TEST(FirstTableSize, FitsTheScreenWithItsFrame) {
  for (const ScreenRow& row : kScreens) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(FirstTableSize({0, 50}, row.screen), row.window);
  }
}

// ---- Runs

TEST_F(CrapTable, ARightClickEndsAutoRoll) {
  BeQuiet();
  g().AutoRoll = true;
  int clicks = 0;
  QTimer stopper;
  QObject::connect(&stopper, &QTimer::timeout, window.get(), [&] {
    if (g().RollCount() < 5 || clicks > 0) return;
    ++clicks;
    EXPECT_TRUE(g().RollInProgress);
    EXPECT_FALSE(Entry("mnuNew").isEnabled());
    Click(Bet::Field);  // nobody bets while the dice roll
    Click(Bet::Field, Qt::RightButton);
  });
  stopper.start(0);
  Click(Bet::Field, Qt::RightButton);
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(g().RollInProgress || g().KeepRolling);
  EXPECT_TRUE(g().BetsStanding.IsEmpty());
  EXPECT_TRUE(Entry("mnuNew").isEnabled());
  const int rolls = g().RollCount();
  QTest::qWait(1);
  EXPECT_EQ(g().RollCount(), rolls) << "it began anew";
}

TEST_F(CrapTable, HyperDriveStopsByItsEntry) {
  BeQuiet();
  Click(Bet::PassLine);
  Later(30, [this] {
    EXPECT_EQ(Entry("mnuHyperDrive").text(), "Stop Hyper-&Drive");
    Choose("mnuHyperDrive");
  });
  Choose("mnuHyperDrive");
  EXPECT_GT(g().RollCount(), 100);
  EXPECT_FALSE(g().HyperDriveActive || g().KeepRolling || g().RollInProgress);
  EXPECT_EQ(Entry("mnuHyperDrive").text(), "Start Hyper-&Drive");
  EXPECT_EQ(LabelText("lblRollNumber").remove(',').toStdString(), "Roll #" + std::to_string(g().RollCount()));
  EXPECT_EQ(Asked(), "") << "asked to stop although it is the stop";
}

TEST_F(CrapTable, HyperDriveEndsByItsCountAndTells) {
  BeQuiet();
  g().AutoRollsSet = g().AutoRollsLeft = 500;
  player.answers = {"OK"};
  Choose("mnuHyperDrive");
  EXPECT_EQ(g().RollCount(), 500);
  EXPECT_EQ(Asked(), "Hyper-Drive Stopped");
  EXPECT_EQ(player.lastText, "Stopped by roll count on Auto-Play screen.");
}

TEST_F(CrapTable, AKeyEndsTheFlightOfTheDice) {
  BeQuiet();
  QApplication::setStyle("Fusion");
  for (const int action : {0, 1, 2, 3}) {
    g().DiceAction = action;
    Later(20, [this] {
      EXPECT_TRUE(g().RollInProgress);
      PressKey(Qt::Key_Space);  // and is no second roll
    });
    const int before = g().RollCount();
    PressKey(Qt::Key_Space);
    EXPECT_EQ(g().RollCount(), before + 1);
    EXPECT_EQ(Picture().Dice()[0].face, g().Die1);
    EXPECT_EQ(Picture().Dice()[1].face, g().Die2);
  }
}

TEST_F(CrapTable, ClosedWhileTheDiceFlyItClosesWhenTheyLie) {
  BeQuiet();
  QApplication::setStyle("Fusion");
  Later(20, [this] {
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(g().RollInProgress);
  });
  player.answers = {"No"};
  PressKey(Qt::Key_Space);
  EXPECT_EQ(g().RollCount(), 1);
  EXPECT_TRUE(QTest::qWaitFor([this] { return window->HasEnded(); }));
  EXPECT_EQ(Asked(), "Save Game?");
}

struct Interruption {
  const char* name;
  std::function<void(CrapTable&)> event;
  bool closes;
};
const Interruption kInterruptions[] = {
    {"an entry", [](CrapTable& t) { t.Choose("mnuNew"); }, false},
    {"a key of the picture", [](CrapTable& t) { t.PressKey(Qt::Key_Space); }, false},
    {"a click", [](CrapTable& t) { t.Click(Bet::Field); }, false},
    {"closing", [](CrapTable& t) { t.window->close(); }, true},
};

TEST_F(CrapTable, WhatComesIntoHyperDriveIsAskedAbout) {
  for (const Interruption& row : kInterruptions) {
    SCOPED_TRACE(row.name);
    if (row.closes) player.answers = {"No", "Yes", "No"};  // the last: the game is not to be saved
    if (!row.closes) player.answers = {"No", "Yes"};
    player.titles.clear();
    BeQuiet();
    bool wentOn = false;
    Later(10, [&] {
      row.event(*this);
      wentOn = g().HyperDriveActive && g().KeepRolling;
      Later(10, [&] { row.event(*this); });
    });
    const int before = g().RollCount();
    Choose("mnuHyperDrive");
    EXPECT_TRUE(wentOn) << "after a No";
    EXPECT_GT(g().RollCount(), before);
    EXPECT_TRUE(g().BetsStanding.IsEmpty()) << "the event went further";
    QTest::qWait(1);  // closing waits until the run is over
    EXPECT_EQ(Asked(), row.closes ? "Hyper-Drive Active|Hyper-Drive Active|Save Game?"
                                  : "Hyper-Drive Active|Hyper-Drive Active");
    EXPECT_EQ(window->isVisible(), !row.closes);
    EXPECT_EQ(window->HasEnded(), row.closes);
  }
}

TEST_F(CrapTable, AScriptsStepIsAskedAbout) {
  BeQuiet();
  ReplaceScript(g(), ParseScriptText("    Do this . . .\n          Bet $ 5 on Pass Line\n").lines, "", "");
  Choose("mnuAutoBetActive");
  EXPECT_TRUE(Entry("mnuAutoBetActive").isChecked());
  player.answers = {"No", "No", "Yes"};  // no initializing run; then the two interruptions
  Later(50, [this] {
    EXPECT_EQ(LabelText("lblStatus"), "Auto-Betting");
    Choose("mnuRollDice");
    EXPECT_TRUE(g().AutoBetRunning) << "after a No";
    Choose("mnuNew");
    EXPECT_FALSE(g().AutoBetRunning) << "after a Yes";
  });
  Choose("mnuRollDice");
  EXPECT_EQ(Asked(), "Auto-Bet|Auto-Bet Active|Auto-Bet Active");
  EXPECT_EQ(g().RollCount(), 1);
  EXPECT_EQ(LabelText("lblStatus"), "");
}

TEST_F(CrapTable, AStopThatNobodySawIsToldLater) {
  BeQuiet();
  g().AutoRollsSet = g().AutoRollsLeft = 100;
  window->showMinimized();
  ASSERT_TRUE(window->isMinimized());
  Choose("mnuHyperDrive");
  EXPECT_EQ(Asked(), "");
  EXPECT_EQ(window->windowTitle(), "Rollwick Hyper-Drive Stopped");
  window->showNormal();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !player.titles.empty(); }));
  EXPECT_EQ(Asked(), "Hyper-Drive Stopped");
  EXPECT_EQ(window->windowTitle(), "Rollwick");
  EXPECT_EQ(g().StopMessage, "");
}

TEST_F(CrapTable, HotKeysRunFromThePicture) {
  BeQuiet();
  ReplaceScript(g(), ParseScriptText("    Do this . . .\n          Bet $ 5 on Field\n").lines, "", "");
  ASSERT_EQ(WriteScript(g(), folder / "five.bet", false), "");
  ClearScript(g());
  ASSERT_EQ(SaveHotKeys(folder / kHotKeysFile, {{"F", "five.bet", "a field bet"}}), "");
  g().TableDirty = false;
  window->close();
  Open();
  BeQuiet();
  QTest::keyClicks(&Picture(), "f");
  EXPECT_EQ(g().BetAmount[Bet::Field], Dollars(5));
  EXPECT_TRUE(g().ScriptLines.empty());
  EXPECT_FALSE(Entry("mnuUndo").isEnabled()) << "a script's bets are no step of the player";
}

}  // namespace
}  // namespace rollwick
