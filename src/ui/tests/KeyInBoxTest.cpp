// The table played from the keyboard: typed amounts, characters, the way through the picture and out of it.
#include "ui/KeyInBox.h"

#include "ui/tests/LayoutWindow.h"

namespace rollwick {
namespace {

// ---- The key-in box

TEST(picLayout, KeyInBox) {
  LayoutWindow t;
  t.Click(kTypePoint);
  ASSERT_TRUE(t.g.KeyInBetAmounts);
  t.Put(Bet::Place6, 12);
  t.Click(Bet::Place6);
  ASSERT_TRUE(t.Box().isVisible() && t.Box().hasFocus());
  EXPECT_EQ(t.Box().text(), "12");
  EXPECT_EQ(t.Box().geometry().topLeft(), QPoint(297 - 11, 165 - 11));
  EXPECT_EQ(t.Box().height(), 22);
  t.Type("18"), t.Type(Qt::Key_Tab);
  EXPECT_EQ(t.Amount(Bet::Place6), Dollars(18));
  EXPECT_EQ(t.g.EnterBetSpot, Bet::Place8);
  t.Type("6"), t.Type(Qt::Key_Left);
  EXPECT_EQ(t.Box().cursorPosition(), 0);
  EXPECT_EQ(t.g.EnterBetSpot, Bet::Place8) << "the arrow moved in the text first";
  t.Type(Qt::Key_Left);
  EXPECT_EQ(t.Amount(Bet::Place8), Dollars(6));
  EXPECT_EQ(t.g.EnterBetSpot, Bet::Place6);
  t.Type(Qt::Key_Down);
  EXPECT_EQ(t.g.EnterBetSpot, Bet::Buy6) << "the box of both";
  t.Type("20"), t.Type(Qt::Key_Backtab);
  EXPECT_EQ(t.Amount(Bet::Buy6), Dollars(20));
  EXPECT_EQ(t.g.EnterBetSpot, Bet::Buy5);
  t.Type("30"), t.Type(Qt::Key_Escape);
  EXPECT_FALSE(t.Box().isVisible());
  EXPECT_EQ(t.Amount(Bet::Buy5), Money());
  EXPECT_TRUE(t.layout.hasFocus());
  t.Type(Qt::Key_Return), t.Type("25"), t.Type(Qt::Key_Return);
  EXPECT_EQ(t.Amount(Bet::Buy5), Dollars(25)) << "the cursor stayed where the box was";
  EXPECT_FALSE(t.Box().isVisible());
  while (t.hand.CanUndo()) t.hand.Undo();
  EXPECT_EQ(t.g.TotalBets, Dollars(12)) << "each amount was a step";
}

TEST(picLayout, AnAmountThatIsTakenIsTold) {
  LayoutWindow t;
  const QSignalSpy told(&t.layout, &picLayout::StatusText);
  t.layout.KeyIn(Bet::Field);
  t.Type("abc"), t.Type(Qt::Key_Return);
  ASSERT_FALSE(told.empty());
  EXPECT_TRUE(told.last().at(0).toString().startsWith("Please enter"));
  t.Box().selectAll(), t.Type("15"), t.Type(Qt::Key_Return);
  EXPECT_TRUE(told.last().at(0).toString().startsWith("Field, $15"))
      << told.last().at(0).toString().toStdString();
}

TEST(picLayout, RefusedAmountsKeepTheClickFromActing) {
  const struct {
    const char* name;
    const char* typed;
    BetId spot;
    int stands;
    bool isOpen;
  } kRows[] = {
      {"taken", "15", Bet::Field, 15, false},    {"above the maximum", "2000", Bet::Field, 1000, true},
      {"not allowed", "15", Bet::Come, 0, true}, {"no number", "abc", Bet::Field, 0, true},
      {"negative", "-5", Bet::Field, 0, true},   {"nothing typed", "", Bet::Field, 0, false}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    LayoutWindow t;
    t.layout.KeyIn(row.spot);
    t.Type(row.typed);
    t.Click(Bet::Big6);
    EXPECT_EQ(t.Amount(row.spot), Dollars(row.stands));
    EXPECT_EQ(t.Box().isVisible(), row.isOpen);
    EXPECT_EQ(t.Amount(Bet::Big6), row.isOpen ? Money() : Dollars(5));
    EXPECT_TRUE(t.layout.CommitKeyIn()) << "what the table made of it stands";
    t.layout.KeyIn(row.spot);
    t.Type(row.typed);
    t.Click(kFeltPoint, {}, Qt::RightButton);
    EXPECT_EQ(t.rolls.count(), row.isOpen ? 0 : 1);
  }
}

// What is typed into an open box is the amount, whatever came between.
TEST(picLayout, TypingReplacesTheAmount) {
  const struct {
    const char* name;
    void (*comesBetween)(LayoutWindow&);
  } kRows[] = {
      {"nothing", [](LayoutWindow&) {}},
      {"another window",
       [](LayoutWindow& t) {
         QFocusEvent out(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
         QFocusEvent in(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
         QApplication::sendEvent(&t.Box(), &out), QApplication::sendEvent(&t.Box(), &in);
       }},
      {"no number, and a click on the table", [](LayoutWindow& t) { t.Type("abc"), t.Click(Bet::Big6); }},
      {"an amount that is not allowed, and a throw",
       [](LayoutWindow& t) { t.Type("9000"), t.Click(kFeltPoint, {}, Qt::RightButton); }},
      {"the Enter that opened it is held down",
       [](LayoutWindow&) {
         QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
         for (int i = 0; i < 3; ++i) QApplication::sendEvent(QApplication::focusWidget(), &repeated);
       }},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    LayoutWindow t;
    t.Put(Bet::Place6, 12);
    t.g.KeyInBetAmounts = true;
    t.layout.MoveCursor(Bet::Place6), t.Type(Qt::Key_Return);
    row.comesBetween(t);
    ASSERT_TRUE(t.Box().isVisible() && t.Box().hasFocus());
    t.Type("18"), t.Type(Qt::Key_Return);
    EXPECT_EQ(t.Amount(Bet::Place6), Dollars(18));
    EXPECT_TRUE(t.hotKeys.isEmpty());
  }
}

// ---- Keys

TEST(picLayout, CharactersAndLettingGo) {
  LayoutWindow t;
  t.Put(Bet::Place6, 6);
  t.Hover(t.Place(Bet::Place6));
  t.Type("+");
  EXPECT_EQ(t.Amount(Bet::Place6), Dollars(12)) << "the bet under the pointer";
  t.Type("*"), t.Type("/"), t.Type("-");
  EXPECT_EQ(t.Amount(Bet::Place6), Dollars(6));
  EXPECT_TRUE(t.hotKeys.isEmpty());
  t.layout.IsHotKey = [](const QString& character) { return character == "+"; };
  t.Type("+"), t.Type("x"), t.Type("7");
  EXPECT_EQ(t.hotKeys.count(), 3);
  EXPECT_EQ(t.Amount(Bet::Place6), Dollars(6)) << "the player's own key goes first";
  t.Type(Qt::Key_Space);
  EXPECT_EQ(t.rolls.count(), 1);
  EXPECT_EQ(t.hotKeys.count(), 3);

  t.g.DiceFileMode = DiceFileRecording;
  t.Click(kOnPoint);
  t.hand.TakeUp(Bet::Place6);
  t.layout.KeyIn(Bet::Big8);
  EXPECT_FALSE(t.hand.Carried()) << "one thing in the hand at a time";
  t.hand.TakeUp(Bet::Place6);
  t.Type(Qt::Key_Escape);
  EXPECT_FALSE(t.Box().isVisible());
  EXPECT_TRUE(t.hand.Carried());
  t.Type(Qt::Key_Escape);
  EXPECT_FALSE(t.hand.Carried());
  EXPECT_EQ(t.hand.Mode(), ClickMode::CallOn);
  t.Type(Qt::Key_Escape);
  EXPECT_EQ(t.hand.Mode(), ClickMode::Bet);
  EXPECT_EQ(t.diceFileStops.count(), 0);
  t.Type(Qt::Key_Escape);
  EXPECT_EQ(t.diceFileStops.count(), 1);
  t.Click(PicturePoint{470, 390});
  EXPECT_EQ(t.diceFileStops.count(), 2);
}

TEST(picLayout, TabWalksAndControlTabLeaves) {
  QWidget window;
  LayoutWindow t;
  QLineEdit before(&window), after(&window);
  t.layout.setParent(&window);
  QWidget::setTabOrder(&before, &t.layout), QWidget::setTabOrder(&t.layout, &after);
  window.show(), t.layout.show(), window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  t.layout.setFocus();
  for (int i = 0; i < 200; ++i) t.Type(i % 3 ? Qt::Key_Tab : Qt::Key_Backtab);
  EXPECT_TRUE(t.layout.hasFocus());
  t.Type(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_TRUE(after.hasFocus());
  t.layout.setFocus();
  t.Type(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(before.hasFocus());
  t.layout.setParent(nullptr);
}

// An entry of the menu asks for it.
TEST(picLayout, TheBetAtHandIsWhereSomethingMovedLast) {
  LayoutWindow t;
  EXPECT_EQ(t.layout.BetAtHand(), SpotNone) << "nothing moved yet";
  t.Hover(t.Place(Bet::Field));
  EXPECT_EQ(t.layout.BetAtHand(), Bet::Field);
  t.Type(Qt::Key_Up);
  EXPECT_EQ(t.layout.BetAtHand(), t.layout.Cursor());
  t.Hover(t.Place(kFeltPoint));
  EXPECT_EQ(t.layout.BetAtHand(), SpotNone);
  t.layout.MoveCursor(Bet::Hard4), t.g.DisplayHopBets = true;
  EXPECT_EQ(t.layout.BetAtHand(), SpotNone) << "it is not on view";
}

TEST(picLayout, SnapsThePointer) {
  LayoutWindow t;
  t.g.SnapMouse = true;
  t.layout.MoveCursor(Bet::Hard10);
  QApplication::processEvents();
  EXPECT_EQ(t.layout.mapFromGlobal(QCursor::pos()), t.Place(Bet::Hard10));
  EXPECT_EQ(t.layout.BetAtHand(), Bet::Hard10);

  // A Place bet shares its box with the Buy bet there. Where the screen has other pixels than the window the
  // pointer arrives beside the place it was sent to.
  t.Put(Bet::Buy6, 20);
  t.layout.MoveCursor(Bet::Place6);
  t.Hover(t.Place(Bet::Place6) + QPointF(0.6, -0.6));
  EXPECT_EQ(t.layout.BetAtHand(), Bet::Place6);
  t.Hover(t.Place(Bet::Place6) + QPointF(4, 0));
  EXPECT_EQ(t.layout.BetAtHand(), Bet::Buy6) << "the player's own move";
}

}  // namespace
}  // namespace rollwick
