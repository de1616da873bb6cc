// Ten thousand events at random, dialogs included: the window never sticks, and no money is lost.
#include <QAbstractButton>
#include <random>

#include "engine/game/NewGame.h"
#include "ui/tests/TestWindow.h"

namespace rollwick {
namespace {

constexpr int kEvents = 10'000;

// Presses buttons of whatever dialog is open.
class Monkey : public QObject {
 public:
  explicit Monkey(std::mt19937& random) : random_(random) {
    connect(&look_, &QTimer::timeout, this, [this] { Look(); });
    look_.start(0);
  }
  int dialogs = 0;

 private:
  void Look() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    ++dialogs;
    QList<QAbstractButton*> buttons = dialog->findChildren<QAbstractButton*>();
    buttons.removeIf([](const QAbstractButton* button) { return !button->isVisible(); });
    const auto pick = random_() % static_cast<unsigned>(buttons.size() + 2);
    if (qobject_cast<QFileDialog*>(dialog) != nullptr || pick >= static_cast<unsigned>(buttons.size())) {
      dialog->reject();
    } else {
      buttons[static_cast<int>(pick)]->click();
    }
  }

  QTimer look_;
  std::mt19937& random_;
};

constexpr Qt::Key kKeys[] = {
    Qt::Key_Left, Qt::Key_Right,    Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Tab,    Qt::Key_Backtab,
    Qt::Key_1,    Qt::Key_5,        Qt::Key_Return, Qt::Key_Escape, Qt::Key_Delete, Qt::Key_PageUp,
    Qt::Key_Plus, Qt::Key_PageDown, Qt::Key_Minus,  Qt::Key_Slash,  Qt::Key_Menu,   Qt::Key_Asterisk};

struct RandomEvents : TestWindow {
  std::mt19937 random{20'261'121};
  QList<QAction*> entries;

  unsigned Any(unsigned count) { return static_cast<unsigned>(random()) % count; }
  QWidget& Target() const {
    QWidget* const focus = QApplication::focusWidget();
    return focus != nullptr && focus->window() == window.get() ? *focus : Picture();
  }
  void AnyMouse() {
    static constexpr Qt::KeyboardModifiers kHeld[] = {{}, {}, {}, Qt::ControlModifier, Qt::ShiftModifier};
    const QPoint at(static_cast<int>(Any(static_cast<unsigned>(Picture().width()))),
                    static_cast<int>(Any(static_cast<unsigned>(Picture().height()))));
    const auto button = Any(25) == 0 ? Qt::RightButton : Qt::LeftButton;
    if (Any(8) == 0) {
      QTest::mousePress(&Picture(), button, kHeld[Any(5)], at);
      QTest::mouseMove(&Picture(), at / 2);
      QTest::mouseRelease(&Picture(), button, {}, at / 2);
    } else {
      QTest::mouseClick(&Picture(), button, kHeld[Any(5)], at);
    }
  }
  void AnyEvent() {
    const unsigned kind = Any(100);
    if (kind < 55) {
      AnyMouse();
    } else if (kind < 85) {
      QTest::keyClick(&Target(), kKeys[Any(std::size(kKeys))]);
    } else if (kind < 87) {
      PressKey(Qt::Key_Space);
    } else if (kind < 99) {
      QAction& entry = *entries[static_cast<int>(Any(static_cast<unsigned>(entries.size())))];
      if (entry.objectName() != "mnuExit") entry.trigger();
    } else {
      window->resize(static_cast<int>(400 + Any(900)), static_cast<int>(300 + Any(700)));
    }
    if (QWidget* const popup = QApplication::activePopupWidget()) {
      const auto choices = popup->actions();
      if (Any(2) == 0 && !choices.empty())
        choices[static_cast<int>(Any(static_cast<unsigned>(choices.size())))]->trigger();
      popup->close();
    }
  }
};

TEST_F(RandomEvents, LeaveTheTableWhole) {
  player.GoAway();
  Monkey monkey(random);
  entries = window->findChildren<QAction*>(QRegularExpression("^mnu"));
  for (int event = 0; event < kEvents; ++event) {
    if (event % 500 == 0) {
      NewGame(g(), false);
      g().TableDirty = false;
      g().AutoRoll = event % 2'500 == 0;
      g().AutoRollsLeft = g().AutoRollsSet = 20;  // Hyper-Drive ends by it too
    }
    const Money moneyBefore = g().BetAmount[SlotBankroll], invested = g().InvestedBankroll;
    const int rollsBefore = g().RollCount();
    AnyEvent();
    SCOPED_TRACE("event " + std::to_string(event));
    ASSERT_TRUE(window->isVisible());
    ASSERT_FALSE(g().RollInProgress || g().AutoBetRunning || g().HyperDriveActive || g().KeepRolling);
    ASSERT_TRUE(TablesAgree(g()) && BetSetsAgree(g()));
    // Without dice the bankroll changes by the ATM alone.
    if (g().RollCount() == rollsBefore) {
      ASSERT_EQ(g().BetAmount[SlotBankroll] - moneyBefore, g().InvestedBankroll - invested);
    }
    ASSERT_TRUE(g().BetAmount[SlotBankroll] >= g().TotalBets || g().Rules.AllowNegBankroll);
  }
  EXPECT_GT(monkey.dialogs, 100);
  // Still everything works.
  NewGame(g(), false);
  Picture().CloseKeyIn();
  PressKey(Qt::Key_Escape);
  g().KeyInBetAmounts = false;
  g().SelectedChip = 0;
  Click(Bet::PassLine);
  EXPECT_EQ(g().BetAmount[Bet::PassLine], LowestChip(g()));
}

}  // namespace
}  // namespace rollwick
