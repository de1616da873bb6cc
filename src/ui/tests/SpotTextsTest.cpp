// What is said of the spots, by the hover pop-up and to screen readers.
#include "ui/SpotTexts.h"

#include <QAccessible>
#include <QDialog>

#include "ui/SpotAccessibility.h"
#include "ui/tests/LayoutWindow.h"

namespace rollwick {
namespace {

// ---- What is said

TEST(picLayout, QuickStats) {
  const struct {
    const char* name;
    int spot;
    void (*setUp)(LayoutWindow&);
    const char* text;
  } kRows[] = {
      {"no money", Bet::Place6, [](LayoutWindow&) {}, " Place 6  7 to 6"},
      {"money", Bet::Place6, [](LayoutWindow& t) { t.Put(Bet::Place6, 1200 / 100); },
       "Place 6 bet (OFF):  $12\n Place 6  7 to 6"},
      {"called on", Bet::Place6,
       [](LayoutWindow& t) { t.Put(Bet::Place6, 12), CallBet(t.g, Bet::Place6, true); },
       "Place 6 bet (working):  $12\n Place 6  7 to 6"},
      {"a vig on all", Bet::Buy4, [](LayoutWindow& t) { t.Put(Bet::Buy4, 40); },
       "Buy 4 bet (OFF):  $40\nvig: $2\n Buy 4  2 to 1"},
      {"a vig of winners", Bet::Buy4,
       [](LayoutWindow& t) { t.g.Rules.BuyVigOnAll = false, t.Put(Bet::Buy4, 40); },
       "Buy 4 bet (OFF):  $40\nvig:  $2\n Buy 4  2 to 1"},
      {"rail", SlotRail, [](LayoutWindow& t) { t.Put(Bet::Field, 100); },
       "Bankroll:  $5,000\nTotal bets:  $100\n  Available:  $4,900"},
      {"Chip-Stack", 107, [](LayoutWindow& t) { t.Put(107, 40); }, "Chip-Stack #7:  $40"},
      {"dice file", SpotDiceFile,
       [](LayoutWindow& t) { t.g.DiceFileMode = DiceFilePlayback, t.g.DiceFileRecord = 17; },
       "Dice Roll Recorder:   Playback\nNext roll is #17"},
      {"nothing", SpotNone, [](LayoutWindow&) {}, ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    LayoutWindow t;
    row.setUp(t);
    EXPECT_EQ(t.layout.QuickStats(row.spot), row.text);
  }
}

TEST(picLayout, PopUpAppearsAndGoes) {
  LayoutWindow t;
  auto& timer = *t.layout.findChild<QTimer*>("timerQuickStats");
  EXPECT_EQ(timer.interval(), 700);
  timer.setInterval(0);
  t.Hover(t.Place(Bet::Hard4));
  const auto isThere = [&] { return t.Label("lblQuickStats").isVisible(); };
  ASSERT_TRUE(QTest::qWaitFor(isThere));
  EXPECT_EQ(t.Label("lblQuickStats").text(), " Hard 4  7 to 1");
  EXPECT_TRUE(t.layout.rect().contains(t.Label("lblQuickStats").geometry()));
  EXPECT_FALSE(t.Label("lblQuickStats").geometry().contains(t.Place(Bet::Hard4)));
  t.Click(Bet::Hard4);
  EXPECT_FALSE(t.Label("lblQuickStats").isVisible());
  ASSERT_TRUE(QTest::qWaitFor(isThere));
  EXPECT_EQ(t.Label("lblQuickStats").text(), "Hard 4 bet (working):  $5\n Hard 4  7 to 1")
      << "what stands now";
  t.g.QuickStats = false;
  t.Hover(t.Place(Bet::Hard6));
  EXPECT_FALSE(timer.isActive());
}

TEST(picLayout, ScreenReaderSpots) {
  InstallSpotAccessibility();
  LayoutWindow t;
  for (const bool hops : {false, true}) {
    t.g.DisplayHopBets = hops;
    auto* table = QAccessible::queryAccessibleInterface(&t.layout);
    ASSERT_NE(table, nullptr);
    const int spots = static_cast<int>(SpotsOnView(t.g).size()) + 5 + static_cast<int>(kTools.size());
    ASSERT_GE(table->childCount(), spots);
    for (int i = 0; i < spots; ++i) {
      auto* child = table->child(i);
      ASSERT_NE(child, nullptr);
      EXPECT_EQ(child->role(), QAccessible::Button);
      EXPECT_FALSE(child->text(QAccessible::Name).isEmpty());
      EXPECT_EQ(table->indexOfChild(child), i);
      EXPECT_TRUE(child->isValid() && child->parent() == table);
      EXPECT_TRUE(t.layout.rect().contains(child->rect().translated(-t.layout.mapToGlobal(QPoint()))));
      EXPECT_FALSE(child->rect().isEmpty());
    }
    for (std::size_t i = 0; const BetId spot : SpotsOnView(t.g)) {
      auto* child = table->child(static_cast<int>(i++));
      const QPoint at = t.layout.mapToGlobal(t.Place(spot));
      EXPECT_TRUE(child->rect().contains(at)) << spot;
      const bool sharesBox = IsBuy(spot) || spot == Bet::DontPassOdds;
      EXPECT_EQ(table->childAt(at.x(), at.y()) == child, !sharesBox) << spot;
    }
  }
  t.g.DisplayHopBets = false;
  auto* table = QAccessible::queryAccessibleInterface(&t.layout);
  t.layout.MoveCursor(Bet::Place6);
  auto* place6 = table->focusChild();
  ASSERT_NE(place6, nullptr);
  EXPECT_EQ(place6->text(QAccessible::Name), "Place 6, no bet");
  EXPECT_TRUE(place6->state().focused);
  SetBetWorking(t.g, Bet::Place6, On);
  for (int i = 0; i < 2; ++i) place6->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(place6->text(QAccessible::Name).toStdString(), "Place 6, $10, working");
  EXPECT_EQ(place6->text(QAccessible::Description), "Place 6 bet (working):  $10\n Place 6  7 to 6");
  auto* field = table->child(table->indexOfChild(place6) + Bet::Field - Bet::Place6);
  t.layout.KeyIn(Bet::Place6), t.Type("18");
  field->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_FALSE(t.Box().isVisible()) << "going elsewhere takes the amount";
  EXPECT_EQ(t.Amount(Bet::Place6), Dollars(18));
  EXPECT_EQ(t.layout.Cursor(), Bet::Field);
  QDialog question;
  question.setModal(true), question.show();
  place6->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(t.Amount(Bet::Place6), Dollars(18)) << "the question is answered first";
}

}  // namespace
}  // namespace rollwick
