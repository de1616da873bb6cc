// Where screens stand, when they read the state, and what every screen does with Escape and F1.
#include "ui/screens/Screen.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QLineEdit>
#include <QScreen>
#include <QVBoxLayout>
#include <cmath>
#include <limits>

#include "support/ScriptedHost.h"
#include "support/WindowChecks.h"
#include "ui/screens/Captions.h"

namespace rollwick {
namespace {

class RollScreen : public Screen {
 public:
  RollScreen(Game& game, std::optional<ScreenId> id) : Screen(game, "frmRollTotals", id, nullptr) {
    auto* const page = new QVBoxLayout(this);
    page->addWidget(&total_);
    connect(&total_, &QLineEdit::textChanged, this, [this] { (IsFilling() ? fills : writes)++; });
  }
  int fills = 0, writes = 0;

 protected:
  void Fill() override { total_.setText(QString::number(g.DiceTotal)); }

 private:
  QLineEdit total_;
};

TEST(Screen, StandsWhereTheGameRemembersItInsideTheVisibleArea) {
  const QRect visible = QGuiApplication::primaryScreen()->availableGeometry();
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  struct Row {
    const char* name;
    ScreenPlace kept;
    std::optional<QRect> stands;  // nothing: somewhere inside
    bool isWhole = false;         // `stands` is all there is, the frame included
  };
  const Row rows[] = {
      {"remembered", {true, 60, 50, 300, 200}, QRect(50, 60, 300, 200)},
      {"remembered without a size", {true, 60, 50, 0, 0}, {}},
      {"never shown", {}, {}},
      {"left of the screen", {true, 10, -5000, 300, 200}, QRect(visible.left(), 10, 300, 200)},
      {"below the screen", {true, 99'999, 20, 300, 200}, {}},
      {"larger than the screen", {true, 0, 0, 90'000, 90'000}, visible, true},
      {"no numbers", {true, kNaN, INFINITY, -INFINITY, kNaN}, {}},
      {"huge", {true, 3e38F, -3e38F, 3e38F, 3e38F}, visible, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable table;
    table.g.Screens[ScreenRollTotals] = row.kept;
    RollScreen screen(table.g, ScreenRollTotals);
    screen.show();
    EXPECT_TRUE(visible.contains(screen.frameGeometry()));
    if (row.stands) {
      EXPECT_EQ(screen.pos(), row.stands->topLeft());
      EXPECT_EQ(screen.size(),
                row.stands->size() - (row.isWhole ? screen.frameSize() - screen.size() : QSize(0, 0)));
    }
  }
}

TEST(Screen, RemembersItsPlaceWhenItIsClosed) {
  TestTable table;
  const ScreenPlace& kept = table.g.Screens[ScreenRollTotals];
  RollScreen screen(table.g, ScreenRollTotals);
  screen.show();
  EXPECT_TRUE(kept.Open);
  screen.move(70, 80);
  screen.resize(333, 222);
  QTest::keyClick(&screen, Qt::Key_Escape);
  EXPECT_FALSE(screen.isVisible());
  EXPECT_FALSE(kept.Open);
  EXPECT_EQ(QRectF(kept.Left, kept.Top, kept.Width, kept.Height), QRectF(70, 80, 333, 222));
  screen.show();
  EXPECT_EQ(QRect(screen.pos(), screen.size()), QRect(70, 80, 333, 222));
  screen.move(90, 80);
  screen.RememberPlace();
  EXPECT_TRUE(kept.Open) << "as it is when the table ends";
  EXPECT_EQ(kept.Left, 90);
}

TEST(Screen, AFillIsNoEntry) {
  TestTable table;
  table.g.DiceTotal = 8;
  RollScreen screen(table.g, {});
  screen.show();
  table.g.DiceTotal = 9;
  screen.Refresh();
  EXPECT_EQ(screen.fills, 2);
  EXPECT_FALSE(screen.IsFilling());
  QTest::keyClicks(screen.findChild<QLineEdit*>(), "1");
  EXPECT_EQ(screen.writes, 1);
}

TEST(Screen, F1OpensItsHelpPage) {
  TestTable table;
  RollScreen screen(table.g, {});
  QString opened;
  screen.helpPage = "roll-totals";
  screen.show();
  QTest::keyClick(&screen, Qt::Key_F1);  // no help yet: nothing happens
  screen.ShowHelp = [&](const QString& page) { opened = page; };
  QTest::keyClick(screen.findChild<QLineEdit*>(), Qt::Key_F1);
  EXPECT_EQ(opened, "roll-totals");
  EXPECT_TRUE(screen.isVisible());
}

TEST(Captions, AreReadOutAndTyped) {
  struct Row {
    const char* caption;
    const char* spoken;
    const char* typed;
  };
  const Row rows[] = {
      {"&Press - Add Winnings to &Double Bet", "Press - Add Winnings to Double Bet",
       "&Press - Add Winnings to Double Bet"},
      {" 1-1", "1-1", " 1-1"},
      {"Bread && Butter", "Bread & Butter", "Bread && Butter"},
      {"Bread && &Butter", "Bread & Butter", "Bread && &Butter"},
      {"No Bet/Take Remainder", "No Bet/Take Remainder", "No Bet/Take Remainder"},
      {"", "", ""},
      {"&", "&", "&"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.caption);
    EXPECT_EQ(Spoken(row.caption).toStdString(), row.spoken);
    EXPECT_EQ(OneAccelerator(row.caption).toStdString(), row.typed);
    EXPECT_EQ(Spoken(WithoutAccelerator("a & b&c")).toStdString(), "a & b&c");
  }
  EXPECT_EQ(ToQt("a\rb\r\nc\xE2\x82\xAC\xFF").toStdString(), "a\nb\nc\xE2\x82\xAC\xEF\xBF\xBD");
  EXPECT_EQ(FromQt(ToQt("a\rb")), "a\rb");
}

}  // namespace
}  // namespace rollwick
