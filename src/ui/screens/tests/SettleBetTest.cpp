// The Settle Bet dialog, brought up by bets that were really decided and answered by keys and mouse.
#include <gtest/gtest.h>

#include <QCursor>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "engine/bets/tests/BetsTestTable.h"
#include "support/WindowChecks.h"
#include "ui/screens/frmSettleBet.h"

namespace rollwick {
namespace {

class DialogHost : public ScriptedHost {
 public:
  std::function<void(QWidget& dialog)> play;
  SettleQuestion asked;

  SettleAnswer Settle(Game& g, const SettleQuestion& question) override {
    asked = question;
    PlayNextDialog(play);
    return ShowSettleWindow(g, question, nullptr);
  }
};

// A house whose decided bets come to the dialog.
struct SettleTable : BetsTestTable {
  DialogHost dialogHost;

  SettleTable() {
    g.TheHost = &dialogHost;
    g.HandleLosingBets = LossManual;
    g.Rules.NotifyFlags = 0;
  }
  // Has the bet decided by the dice, with the dialog played by `play`.
  void Decide(BetId bet, Money amount, int outcome, int die1, int die2, std::function<void(QWidget&)> play) {
    PutPointOn(4);
    Stand(bet, amount);
    Dice(die1, die2);
    bool wasShown = false;
    dialogHost.play = [&](QWidget& dialog) {
      wasShown = true;
      play(dialog);
    };
    ResolveBet(g, outcome, bet);
    EXPECT_TRUE(wasShown);
    EXPECT_TRUE(TablesAgree(g));
  }
  void DecidePlace6(bool won, std::function<void(QWidget&)> play) {
    if (won) return Decide(Bet::Place6, Dollars(12), Wins, 2, 4, std::move(play));
    Decide(Bet::Place6, Dollars(12), Loses, 3, 4, std::move(play));
  }
};

QPushButton& Choice(QWidget& dialog, int choice) {
  return Control<QPushButton>(dialog, ("cmdHandle_" + std::to_string(choice)).c_str());
}

std::string Account(QWidget& dialog) {
  std::string account;
  for (int row = 0; row < 5; ++row) {
    const auto* type = dialog.findChild<QLabel*>("lblWonBetType_" + QString::number(row));
    const auto* amount = dialog.findChild<QLabel*>("lblWonBet_" + QString::number(row));
    EXPECT_EQ(type == nullptr, amount == nullptr);
    if (type == nullptr) continue;
    EXPECT_EQ(type->font().bold(), type->text().startsWith("Net "));
    account += (type->text() + "|" + amount->text() + "|").toStdString();
  }
  return account;
}

TEST(SettleBet, ShowsTheAccountTheDiceAndTheBankroll) {
  struct Row {
    const char* name;
    BetId bet;
    int dollars, outcome, die1, die2;
    const char* title;
    const char* account;
    const char* rollLine;
  };
  const Row rows[] = {
      {"won", Bet::Place6, 12, Wins, 2, 4, "* * * Winner * * *", "Place 6 bet:|$12|Payoff at 7 to 6:|$14|",
       "Dice 2 and 4, total 6|Bankroll $514"},
      {"won with vig", Bet::Buy4, 25, Wins, 3, 1, "* * * Winner * * *",
       "Buy 4 bet:|$25|Payoff at 2 to 1:|$50|-5% vig:|$-1|Net payoff: |$49|",
       "Dice 3 and 1, total 4|Bankroll $549"},
      {"five rows", Bet::Horn, 5, Wins, 6, 6, "* * * Winner * * *",
       "Horn bet:|$5|1/4 of bet:|$1.25|Payoff at 30 to 1:|$37.50|Less 3/4 of bet:|$-3.75|Net payoff "
       "(rounded): |$33|",
       "Dice 6 and 6, total 12|Bankroll $533"},
      {"push", Bet::World, 7, Wins, 3, 4, "Push",
       "World bet:|$7|1/5 of bet:|$1.40|Payoff at 4 to 1:|$5.60|Less 4/5 of bet:|$-5.60|Net payoff: |$0|",
       "Dice 3 and 4, total 7|Bankroll $500"},
      {"lost", Bet::Buy4, 25, Loses, 3, 4, "Bet Lost",
       "Buy 4 bet:|$25|Loss at -1 to 1:|$-25|-5& vig:|$-1|Net loss: |$-26|Remainder: |$0|",
       "Dice 3 and 4, total 7|Bankroll $474"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    SettleTable table;
    table.Decide(row.bet, Dollars(row.dollars), row.outcome, row.die1, row.die2, [&](QWidget& dialog) {
      EXPECT_EQ(ControlFaults(dialog), "");
      EXPECT_EQ(dialog.windowTitle(), row.title);
      EXPECT_EQ(Account(dialog), row.account);
      EXPECT_EQ(
          Control<QLabel>(dialog, "lblDice").text() + "|" + Control<QLabel>(dialog, "lblBankroll").text(),
          row.rollLine);
      dialog.close();
    });
  }
}

TEST(SettleBet, TabGoesFromTheTopToTheBottom) {
  SettleTable table;
  table.DecidePlace6(true, [](QWidget& dialog) {
    QString order;
    Choice(dialog, 3).setFocus();
    for (int tabs = 0; tabs < 9; ++tabs) {
      order += QApplication::focusWidget()->objectName() + ' ';
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order.toStdString(),
              "cmdHandle_3 cmdHandle_4 cmdHandle_5 cmdMathOperator txtModifyAmount_5 cmdUnits_5 cmdHandle_6 "
              "txtModifyAmount_6 cmdUnits_6 ");
    EXPECT_TRUE(Choice(dialog, 0).hasFocus());
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
}

TEST(SettleBet, AKeyHeldSinceBeforeChoosesNothing) {
  SettleTable table;
  table.DecidePlace6(true, [](QWidget& dialog) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_4, {}, "4", true);
    QApplication::sendEvent(&Choice(dialog, 0), &held);
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(&dialog, Qt::Key_2);
  });
  EXPECT_EQ(table.g.LastWonChoice, 1);
}

TEST(SettleBet, SurvivesLargeLettersOnADarkDesktop) {
  const LargeDarkDesktop desktop;
  SettleTable table;
  table.Decide(Bet::Horn, Dollars(5), Wins, 6, 6, [](QWidget& dialog) {
    EXPECT_EQ(ControlFaults(dialog), "");
    EXPECT_LE(dialog.width(), 1024);
    EXPECT_LE(dialog.height(), 700);
    dialog.close();
  });
}

// What choices 0..6 make of $12 on the 6, with "+ 3 $" and "30 $" as the formulas of both kinds.
constexpr int kAfterWin[kSettleChoices] = {0, 12, 18, 24, 26, 15, 30};
constexpr int kAfterLoss[kSettleChoices] = {0, 0, 12, 18, 24, 15, 30};

TEST(SettleBet, EveryChoiceByEveryWay) {
  enum Way { Digit, PadDigit, Mouse, Space, Enter, Accelerator };
  constexpr Qt::Key kWonLetters[] = {Qt::Key_T, Qt::Key_S, Qt::Key_U, Qt::Key_P,
                                     Qt::Key_A, Qt::Key_M, Qt::Key_B};
  constexpr Qt::Key kLostLetters[] = {Qt::Key_unknown, Qt::Key_unknown, Qt::Key_unknown, Qt::Key_U,
                                      Qt::Key_unknown, Qt::Key_M,       Qt::Key_B};
  for (int i = 0; i < 2 * kSettleChoices * (Accelerator + 1); ++i) {
    const bool won = i % 2 == 0;
    const int choice = i / 2 % kSettleChoices;
    const Way way = static_cast<Way>(i / 2 / kSettleChoices);
    const Qt::Key letter = (won ? kWonLetters : kLostLetters)[choice];
    if (way == Accelerator && letter == Qt::Key_unknown) continue;
    SCOPED_TRACE(std::string(won ? "won" : "lost") + ", choice " + std::to_string(choice) + ", way " +
                 std::to_string(way));
    SettleTable table;
    table.g.ModifyAmount = {Dollars(3), Dollars(30), Dollars(3), Dollars(30)};
    const int expected = (won ? kAfterWin : kAfterLoss)[choice];
    table.DecidePlace6(won, [&](QWidget& dialog) {
      const auto& preview = Control<QLabel>(dialog, ("lblPreview_" + std::to_string(choice)).c_str());
      EXPECT_EQ(preview.text().toStdString(),
                expected == 0 ? "Bet comes down" : "Bet becomes $" + std::to_string(expected));
      QPushButton& button = Choice(dialog, choice);
      const auto key = static_cast<Qt::Key>(Qt::Key_1 + choice);
      if (way == Digit) QTest::keyClick(&Choice(dialog, 0), key);
      if (way == PadDigit) QTest::keyClick(&Choice(dialog, 0), key, Qt::KeypadModifier);
      if (way == Mouse) QTest::mouseClick(&button, Qt::LeftButton);
      if (way == Accelerator) QTest::keyClick(&dialog, letter, Qt::AltModifier);
      if (way == Space || way == Enter) {
        button.setFocus();
        QTest::keyClick(&button, way == Space ? Qt::Key_Space : Qt::Key_Return);
      }
    });
    EXPECT_EQ(table.g.BetAmount[Bet::Place6], Dollars(expected));
    EXPECT_EQ(won ? table.g.LastWonChoice : table.g.LastLostChoice, choice);
  }
}

TEST(SettleBet, EnterEscapeAndTheCloseBoxTakeTheRememberedChoice) {
  const std::pair<const char*, void (*)(QWidget&)> ways[] = {
      {"Enter",
       [](QWidget& dialog) {
         QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
         (void)dialog;
       }},
      {"Enter in a field",
       [](QWidget& dialog) {
         Control(dialog, "txtModifyAmount_6").setFocus();
         QTest::keyClick(&Control(dialog, "txtModifyAmount_6"), Qt::Key_Enter);
       }},
      {"Escape", [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }},
      {"Escape beside the choices",
       [](QWidget& dialog) {
         Control(dialog, "cmdUnits_5").setFocus();
         QTest::keyClick(&Control(dialog, "cmdUnits_5"), Qt::Key_Escape);
       }},
      {"close box", [](QWidget& dialog) { dialog.close(); }},
  };
  struct Row {
    const char* name;
    int remembered, taken;
  };
  const Row rows[] = {{"nothing chosen yet", 0, 0},
                      {"doubled", 3, 3},
                      {"a formula", 6, 6},
                      {"no choice", 99, 0},
                      {"below all", -1, 0}};
  for (const auto& [way, close] : ways) {
    for (const Row& row : rows) {
      SCOPED_TRACE(std::string(way) + ", " + row.name);
      SettleTable table;
      table.g.LastWonChoice = row.remembered;
      table.g.ModifyAmount[DialogWonBet] = Dollars(30);
      table.DecidePlace6(true, [&, close = close](QWidget& dialog) {
        EXPECT_TRUE(Choice(dialog, row.taken).hasFocus());
        EXPECT_TRUE(Choice(dialog, row.taken).isDefault());
        close(dialog);
      });
      EXPECT_EQ(table.g.LastWonChoice, row.taken);
      EXPECT_EQ(table.g.BetAmount[Bet::Place6], Dollars(kAfterWin[row.taken]));
    }
  }
}

TEST(SettleBet, ABetThatMustComeDownOffersNothingElse) {
  SettleTable table;
  table.g.LastWonChoice = 3;
  table.g.ModifyAmount[DialogWonSameBet] = Dollars(3);
  PlayNextDialog([&](QWidget& dialog) {
    EXPECT_EQ(ControlFaults(dialog), "");
    for (int choice = 1; choice < kSettleChoices; ++choice) EXPECT_FALSE(Choice(dialog, choice).isEnabled());
    for (const char* name :
         {"cmdMathOperator", "cmdUnits_5", "cmdUnits_6", "txtModifyAmount_5", "txtModifyAmount_6"})
      EXPECT_FALSE(Control(dialog, name).isEnabled()) << name;
    QTest::keyClick(&dialog, Qt::Key_4);
    QTest::keyClick(&dialog, Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(dialog.isVisible()) << "the keys of the others are dead";
    EXPECT_TRUE(Choice(dialog, 0).hasFocus());
    QTest::keyClick(&Choice(dialog, 0), Qt::Key_Return);
  });
  table.g.BetAmount[Bet::PassLine] = Dollars(10);
  table.g.CurrentBetId = Bet::PassLine;
  SettleQuestion question;
  question.bet = Bet::PassLine;
  question.mustComeDown = true;
  question.remembered = 3;
  question.caption = "Bet Lost";
  question.choices.fill("Choice");
  EXPECT_EQ(ShowSettleWindow(table.g, question, nullptr).choice, 0);
}

TEST(SettleBet, FormulasAreSteppedTypedAndKept) {
  const UserLocale locale("C");
  for (const bool won : {true, false}) {
    SCOPED_TRACE(won ? "won" : "lost");
    SettleTable table;
    Game& g = table.g;
    const int slot = won ? DialogWonSameBet : DialogLostSameBet;
    g.ModifyAmount = {Dollars(1), Dollars(1), Dollars(1), Dollars(1)};
    table.DecidePlace6(won, [&](QWidget& dialog) {
      auto& op = Control<QPushButton>(dialog, "cmdMathOperator");
      auto& unit5 = Control<QPushButton>(dialog, "cmdUnits_5");
      auto& unit6 = Control<QPushButton>(dialog, "cmdUnits_6");
      QString shown, shown5, shown6;
      for (int step = 0; step < 7; ++step) {
        shown += op.text();
        shown5 += unit5.text() + "|";
        shown6 += unit6.text() + "|";
        QTest::mouseClick(&op, Qt::LeftButton);
        QTest::mouseClick(&unit5, Qt::LeftButton);
        unit6.setFocus();
        QTest::keyClick(&unit6, Qt::Key_Space);
      }
      EXPECT_EQ(shown, "+-x/+-x");
      EXPECT_EQ(shown5, "$|%|$6 Units|$30 Units|$150 Units|$600 Units|$3,000 Units|");
      EXPECT_EQ(shown6, "$|$6 Units|$30 Units|$150 Units|$600 Units|$3,000 Units|$|");
      EXPECT_EQ(ControlFaults(dialog), "");
      QTest::mouseClick(&op, Qt::LeftButton);  // "/" to "+"
      auto& amount5 = Control<QLineEdit>(dialog, "txtModifyAmount_5");
      QTest::mouseClick(&amount5, Qt::LeftButton);
      amount5.selectAll();
      QTest::keyClicks(&amount5, "-6.x0y0");
      EXPECT_EQ(amount5.text(), "6.00") << "digits and one mark";
      EXPECT_TRUE(Choice(dialog, 5).isDefault()) << "typing selects the row's choice";
      EXPECT_EQ(Control<QLabel>(dialog, "lblPreview_5").text(), "Bet becomes $13") << "not while typing";
      auto& amount6 = Control<QLineEdit>(dialog, "txtModifyAmount_6");
      amount6.setFocus();
      EXPECT_EQ(Control<QLabel>(dialog, "lblPreview_5").text(), "Bet becomes $18");
      amount6.selectAll();
      QTest::keyClicks(&amount6, "12345678.12345");
      EXPECT_EQ(amount6.text(), "1234567.1234") << "no more than seven and four";
      amount6.selectAll();
      QTest::keyClicks(&amount6, "2");
      EXPECT_TRUE(Choice(dialog, 6).isDefault());
      QTest::keyClick(&amount6, Qt::Key_Return);
    });
    EXPECT_EQ(g.BetAmount[Bet::Place6], Dollars(12)) << "two units of six";
    EXPECT_EQ(g.ModifyOperator[slot], FormulaPlus);
    EXPECT_EQ(g.ModifyAmount[slot], Dollars(6));
    EXPECT_EQ(g.ModifyUnit[slot], 0);
    EXPECT_EQ(g.ModifyAmount[slot + 1], Dollars(2));
    EXPECT_EQ(g.ModifyUnit[slot + 1], 2);
    EXPECT_EQ(g.ModifyAmount[slot ^ 2], Dollars(1)) << "the other kind's rows";
    EXPECT_EQ(won ? g.LastWonChoice : g.LastLostChoice, 6);

    table.DecidePlace6(won, [&](QWidget& dialog) {
      EXPECT_EQ(Control<QPushButton>(dialog, "cmdUnits_6").text(), "$6 Units");
      EXPECT_EQ(Control<QLineEdit>(dialog, "txtModifyAmount_5").text(), "6");
      dialog.close();
    });
  }
}

TEST(SettleBet, NobodyBetsByAnAmountThatWasRefused) {
  const UserLocale locale("C");
  SettleTable table;
  table.g.ModifyAmount[DialogWonBet] = Dollars(1'234'567);
  table.g.ModifyUnit[DialogWonBet] = 99;  // as a damaged file may have it
  table.g.ModifyOperator[DialogWonSameBet] = -1;
  table.DecidePlace6(true, [&](QWidget& dialog) {
    auto& amount = Control<QLineEdit>(dialog, "txtModifyAmount_6");
    EXPECT_EQ(amount.text(), "1,234,567");
    EXPECT_EQ(Control<QPushButton>(dialog, "cmdUnits_6").text(), "$");
    EXPECT_EQ(Control<QPushButton>(dialog, "cmdMathOperator").text(), "/");
    amount.setFocus();
    EXPECT_EQ(amount.text(), "1234567");
    QTest::keyClick(&amount, Qt::Key_Delete);
    amount.clear();
    QTest::keyClicks(&amount, ".");
    QTest::mouseClick(&Choice(dialog, 6), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(amount.text(), "1234567") << "stands again, in the field that has the focus";
    QTest::mouseClick(&Choice(dialog, 1), Qt::LeftButton);
  });
  EXPECT_EQ(table.g.LastWonChoice, 1);
  EXPECT_EQ(table.g.ModifyAmount[DialogWonBet], Dollars(1'234'567));
}

TEST(SettleBet, APointIsADecimalMarkInEveryCountry) {
  const UserLocale locale("de_DE");
  SettleTable table;
  table.g.ModifyAmount[DialogWonBet] = Money::FromUnits(12'500);
  table.DecidePlace6(true, [](QWidget& dialog) {
    auto& amount = Control<QLineEdit>(dialog, "txtModifyAmount_6");
    amount.setFocus();
    EXPECT_EQ(amount.text(), "1,25");
    amount.selectAll();
    QTest::keyClicks(&amount, "13.125");
    EXPECT_EQ(amount.text(), "13,125") << "not thirteen thousand";
    QTest::keyClicks(&amount, ".,");
    EXPECT_EQ(amount.text(), "13,125");
    QTest::keyClick(&amount, Qt::Key_Return);
  });
  EXPECT_EQ(table.g.ModifyAmount[DialogWonBet], Money::FromUnits(131'250));
}

TEST(SettleBet, OpensWhereItWasAndThePointerGoesToTheDefault) {
  SettleTable table;
  table.g.SnapMouse = true;
  table.g.LastWonChoice = 2;
  QCursor::setPos(1, 1);
  table.DecidePlace6(true, [&](QWidget& dialog) {
    QCoreApplication::processEvents();
    const QPushButton& choice = Choice(dialog, 2);
    EXPECT_TRUE(choice.rect().contains(choice.mapFromGlobal(QCursor::pos())));
    dialog.move(31, 47);
    dialog.close();
  });
  EXPECT_EQ(table.g.Screens[ScreenSettleBet].Left, 31);
  EXPECT_FALSE(table.g.Screens[ScreenSettleBet].Open);
  table.DecidePlace6(true, [&](QWidget& dialog) {
    EXPECT_EQ(dialog.pos(), QPoint(31, 47));
    dialog.close();
  });
}

}  // namespace
}  // namespace rollwick
