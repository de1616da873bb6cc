// The table played by real mouse and key events: where they land, what they do, and that no order of them
// makes or loses a cent or leaves the table stuck.
#include "ui/picLayout.h"

#include <QWheelEvent>
#include <fstream>
#include <random>
#include <sstream>

#include "engine/cycle/RollDice.h"
#include "ui/SpotTexts.h"
#include "ui/tests/LayoutWindow.h"

namespace rollwick {
namespace {

// ---- Where events land

struct Expected {
  PicturePoint at;
  std::string state;  // what is up: a alternate panel, f dice file, d Don't Pass with the point on, b Buy bet
  int spot = SpotNone;
};

std::vector<Expected> GoldenPoints() {
  std::vector<Expected> all;
  std::ifstream file(std::string(ROLLWICK_TEST_DATA) + "/layout.txt");
  for (std::string text; std::getline(file, text);) {
    std::istringstream line(text);
    std::string kind;
    Expected row;
    line >> kind;
    if (kind == "point") {
      line >> row.at.x >> row.at.y >> row.state >> row.spot;
    } else if (kind == "anchor") {
      int anchorX = 0, anchorY = 0;
      line >> row.spot >> anchorX >> anchorY >> row.at.x >> row.at.y;
      if (IsHop(row.spot) || row.spot == Bet::Over7 || row.spot == Bet::Under7) row.state = "a";
      if (row.spot == Bet::DontPassOdds) row.state = "d";
      if (IsBuy(row.spot)) row.state = "b" + std::to_string(row.spot);
    } else {
      continue;
    }
    all.push_back(row);
  }
  return all;
}

// Screens of many pixels to a unit have points between the whole ones.
TEST(picLayout, EveryPointAnswersAsTheRulesSay) {
  const std::vector<Expected> rows = GoldenPoints();
  ASSERT_EQ(rows.size(), 157u);
  for (const QSize size :
       {QSize(576, 330), QSize(768, 440), QSize(1000, 900), QSize(1537, 881), QSize(3072, 1760)}) {
    LayoutWindow t(size);
    const PictureFrame frame = t.layout.Frame();
    for (const Expected& row : rows) {
      t.g.DisplayHopBets = row.state.find('a') != std::string::npos;
      t.g.DiceFileMode = row.state.find('f') != std::string::npos ? DiceFilePlayback : DiceFileOff;
      t.g.Point = row.state.find('d') != std::string::npos ? 6 : 0;
      t.g.BetAmount[Bet::DontPass] = t.g.Point != 0 ? Dollars(10) : Money();
      const auto buy = row.state.find('b');
      const BetId bought = buy == std::string::npos ? 0 : std::stoi(row.state.substr(buy + 1));
      if (bought != 0) t.g.BetAmount[bought] = Dollars(5);
      for (const double within : {0.01, 0.5, 0.99}) {
        const QPointF at(frame.left + (row.at.x + within) * frame.scale,
                         frame.top + (row.at.y + within) * frame.scale);
        t.Hover(at);
        ASSERT_EQ(t.layout.HotSpot(), row.spot)
            << row.at.x << "," << row.at.y << " " << row.state << " at " << size.width();
      }
      if (bought != 0) t.g.BetAmount[bought] = Money();
    }
  }
}

// ---- Betting

TEST(picLayout, EveryBetByAClick) {
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    SCOPED_TRACE(BetName(bet));
    LayoutWindow t;
    t.PrepareFor(bet);
    if (IsBuy(bet)) {  // a Place bet is bought; from then on the box answers as Buy
      t.Click(bet);
      EXPECT_EQ(t.Amount(bet - 6), Dollars(5));
      t.Click(kBuyPoint), t.Click(bet), t.Click(kBuyPoint);
      EXPECT_EQ(t.Amount(bet), Dollars(5));
    }
    const Money before = t.Amount(bet);
    t.Click(bet);
    EXPECT_EQ(t.Amount(bet), before + Dollars(5));
    EXPECT_EQ(t.TakeMessage(), "");
  }
}

TEST(picLayout, EveryBetByTheKeyboardAlone) {
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    SCOPED_TRACE(BetName(bet));
    LayoutWindow t;
    t.PrepareFor(bet);
    for (int steps = 0; t.layout.Cursor() != bet && steps < 100; ++steps) t.Type(Qt::Key_Tab);
    ASSERT_EQ(t.layout.Cursor(), bet);
    t.Type(Qt::Key_Return);
    EXPECT_EQ(t.Amount(bet), Dollars(5));
    t.Type(Qt::Key_Plus);
    EXPECT_GT(t.Amount(bet), Dollars(5)) << t.TakeMessage();
    t.Type(Qt::Key_Delete);
    EXPECT_EQ(t.Amount(bet), Money());
  }
}

TEST(picLayout, ChipsToolsAndPanel) {
  LayoutWindow t;
  t.Click(kChip100Point), t.Click(Bet::Field);
  EXPECT_EQ(t.Amount(Bet::Field), Dollars(100));
  t.Click(kSelectedPoint), t.Click(Bet::Field);
  EXPECT_EQ(t.Amount(Bet::Field), Dollars(600)) << "the next chip";
  t.Click(kSelectedPoint), t.Click(PicturePoint{16, 166});
  EXPECT_EQ(t.Amount(102), Dollars(1)) << "the first again, on a Chip-Stack";
  t.Click(kDownPoint);
  EXPECT_EQ(t.g.TotalBets, Money());
  t.Type(Qt::Key_PageUp);
  EXPECT_EQ(t.g.SelectedChip, 1);
  t.Type(Qt::Key_PageDown), t.Type(Qt::Key_PageDown);
  EXPECT_EQ(t.g.SelectedChip, 0) << "no further down";
  for (const int turn : {60, 60, 120}) {
    QWheelEvent wheel(t.Place(kFeltPoint), t.layout.mapToGlobal(t.Place(kFeltPoint)), {}, {0, turn}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&t.layout, &wheel);
  }
  EXPECT_EQ(t.g.SelectedChip, 2) << "two halves of a notch and a whole one";
  t.Click(kPanelSwitchPoint);
  EXPECT_TRUE(t.g.DisplayHopBets);
  t.Click(PicturePoint{524, 113});
  EXPECT_EQ(t.Amount(Bet::Over7), Dollars(25));
  t.Click(kPanelSwitchPoint);
  EXPECT_EQ(HiddenBets(t.g), Dollars(25));
  t.Click(Bet::Big6), QTest::mouseDClick(&t.layout, Qt::LeftButton, {}, t.Place(Bet::Big6));
  EXPECT_EQ(t.Amount(Bet::Big6), Dollars(50)) << "every one of quick clicks counts";
  t.Click(kRollPoint);
  EXPECT_EQ(t.rolls.count(), 1);
}

TEST(picLayout, RightButtonOnlyRolls) {
  LayoutWindow t;
  for (const PicturePoint where :
       {kFeltPoint, kRailPoint, kDownPoint, kTypePoint, kPanelSwitchPoint, kOnPoint}) {
    const BetTables before = t.g;
    t.Click(where, {}, Qt::RightButton);
    EXPECT_EQ(t.g.BetAmount, before.BetAmount);
    EXPECT_EQ(t.hand.Mode(), ClickMode::Bet);
  }
  t.Click(kOnPoint), t.Click(Bet::Field, {}, Qt::RightButton);
  EXPECT_EQ(t.hand.Mode(), ClickMode::Bet);
  EXPECT_EQ(t.rolls.count(), 7);
  EXPECT_FALSE(t.g.DisplayHopBets || t.g.KeyInBetAmounts);
  EXPECT_TRUE(t.menus.isEmpty());

  t.Click(Bet::Field, Qt::ShiftModifier, Qt::RightButton);
  t.layout.MoveCursor(Bet::Hard8);
  t.Type(Qt::Key_Menu), t.Type(Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_EQ(t.menus.count(), 3);
  EXPECT_EQ(t.menus[0][0].toInt(), Bet::Field);
  EXPECT_EQ(t.menus[1][0].toInt(), Bet::Hard8);
  EXPECT_EQ(t.menus[2][1].toPoint(), t.layout.mapToGlobal(t.Place(Bet::Hard8)));
  EXPECT_EQ(t.rolls.count(), 7);
}

TEST(picLayout, ModesAndTheirEnd) {
  const struct {
    PicturePoint lammer;
    ClickMode mode;
    const char* note;
  } kRows[] = {{kOnPoint, ClickMode::CallOn, "Click on bet to call ON"},
               {kOffPoint, ClickMode::CallOff, "Click on bet to call OFF"},
               {kBuyPoint, ClickMode::Buy, "Click on bet to buy"},
               {kTakePoint, ClickMode::Remove, "Click on bet to remove"}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.note);
    LayoutWindow t;
    void (*const kEnds[])(LayoutWindow&, PicturePoint) = {
        [](LayoutWindow& w, PicturePoint lammer) { w.Click(lammer); },
        [](LayoutWindow& w, PicturePoint) { w.Click(kFeltPoint); },
        [](LayoutWindow& w, PicturePoint) { w.Type(Qt::Key_Escape); }};
    for (const auto end : kEnds) {
      t.Click(row.lammer);
      EXPECT_EQ(t.hand.Mode(), row.mode);
      EXPECT_TRUE(t.Label("lblNote").isVisible());
      EXPECT_EQ(t.Label("lblNote").text(), row.note);
      end(t, row.lammer);
      EXPECT_EQ(t.hand.Mode(), ClickMode::Bet);
      EXPECT_FALSE(t.Label("lblNote").isVisible());
    }
    t.Put(Bet::Place4, 20);
    t.Click(row.lammer), t.Click(Bet::Place4);
    EXPECT_EQ(t.g.BetWorking[Bet::Place4] == CalledOn, row.mode == ClickMode::CallOn);
    EXPECT_EQ(t.g.BetWorking[Bet::Place4] == CalledOff, row.mode == ClickMode::CallOff);
    EXPECT_EQ(t.Amount(Bet::Buy4) == Dollars(20), row.mode == ClickMode::Buy);
    EXPECT_EQ(t.Amount(Bet::Place4) == Dollars(20), row.mode <= ClickMode::CallOff);
  }
}

TEST(picLayout, CarriedChips) {
  const struct {
    const char* name;
    void (*act)(LayoutWindow&);
    int place6, place8, come;
    bool isCarrying = false;
  } kRows[] = {
      {"two clicks", [](LayoutWindow& t) { t.Click(Bet::Place6, Qt::ControlModifier), t.Click(Bet::Place8); },
       0, 12, 0},
      {"with Alt", [](LayoutWindow& t) { t.Click(Bet::Place6, Qt::AltModifier), t.Click(Bet::Place8); }, 0,
       12, 0},
      {"dragged",
       [](LayoutWindow& t) {
         QTest::mousePress(&t.layout, Qt::LeftButton, Qt::ControlModifier, t.Place(Bet::Place6));
         t.Hover(t.Place(Bet::Place8));
         QTest::mouseRelease(&t.layout, Qt::LeftButton, {}, t.Place(Bet::Place8));
       },
       0, 12, 0},
      {"by the keyboard",
       [](LayoutWindow& t) {
         t.layout.MoveCursor(Bet::Place6), t.Type(Qt::Key_Return, Qt::ControlModifier);
         t.Type(Qt::Key_Right), t.Type(Qt::Key_Return);
       },
       0, 12, 0},
      {"still in the hand", [](LayoutWindow& t) { t.Click(Bet::Place6, Qt::ControlModifier); }, 12, 0, 0,
       true},
      {"refused", [](LayoutWindow& t) { t.Click(Bet::Place6, Qt::ControlModifier), t.Click(Bet::Come); }, 12,
       0, 0},
      {"over nothing they stay in the hand",
       [](LayoutWindow& t) { t.Click(Bet::Place6, Qt::ControlModifier), t.Click(kFeltPoint); }, 12, 0, 0,
       true},
      {"the rail", [](LayoutWindow& t) { t.Click(Bet::Place6, Qt::ControlModifier), t.Click(kRailPoint); },
       12, 0, 0},
      {"Escape",
       [](LayoutWindow& t) {
         t.Click(Bet::Place6, Qt::ControlModifier), t.Type(Qt::Key_Escape), t.Click(Bet::Place8);
       },
       12, 5, 0},
      {"nothing there to take", [](LayoutWindow& t) { t.Click(Bet::Place8, Qt::ControlModifier); }, 12, 0, 0},
      {"the dice are out",
       [](LayoutWindow& t) {
         t.Click(Bet::Place6, Qt::ControlModifier), t.hand.DiceAreOut(), t.Click(Bet::Place8);
       },
       12, 5, 0},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    LayoutWindow t;
    t.Put(Bet::Place6, 12);
    row.act(t);
    EXPECT_EQ(t.Amount(Bet::Place6), Dollars(row.place6));
    EXPECT_EQ(t.Amount(Bet::Place8), Dollars(row.place8));
    EXPECT_EQ(t.Amount(Bet::Come), Dollars(row.come));
    EXPECT_EQ(t.hand.Carried().has_value(), row.isCarrying);
  }
}

// Whoever carries them sees them where they would be put.
TEST(picLayout, CarriedChipsAreWhereTheHandIs) {
  LayoutWindow t;
  t.Put(Bet::Place6, 12);
  const auto at = [&](BetId spot) {
    return t.layout.grab(QRect(t.Place(spot) - QPoint(5, 5), QSize(10, 10))).toImage();
  };
  t.layout.MoveCursor(Bet::Field);
  const QImage empty = at(Bet::Field);
  t.layout.MoveCursor(Bet::Place6), t.Type(Qt::Key_Return, Qt::ControlModifier);
  t.layout.MoveCursor(Bet::Field);
  EXPECT_NE(at(Bet::Field), empty) << "with the keyboard's ring";
  const QImage there = at(Bet::Field), none = at(Bet::Big8);
  t.Hover(t.Place(Bet::Big8));
  EXPECT_NE(at(Bet::Field), there);
  EXPECT_NE(at(Bet::Big8), none) << "with the pointer";
}

// ---- The pointer

// Windows of other pixels than the screen have the pointer between two of theirs.
TEST(picLayout, ARefreshLooksWhereThePointerIs) {
  LayoutWindow t;
  for (const double x : {228.4, 228.6, 230.4, 230.6}) {
    t.Hover(QPointF(x, 165));
    const int spot = t.layout.HotSpot();
    EXPECT_EQ(spot, x < 229 ? +Bet::Place4 : +SpotNone);
    t.layout.RefreshTable();
    EXPECT_EQ(t.layout.HotSpot(), spot) << x;
  }
}

TEST(picLayout, ThePointerComesAndGoes) {
  LayoutWindow t;
  const QPointF at = t.Place(Bet::Field);
  QEnterEvent enter(at, at, t.layout.mapToGlobal(at));
  QApplication::sendEvent(&t.layout, &enter);
  EXPECT_EQ(t.layout.BetAtHand(), Bet::Field) << "it need not move for that";
  QEvent leave(QEvent::Leave);
  QCursor::setPos(t.layout.mapToGlobal(at.toPoint()));
  QApplication::sendEvent(&t.layout, &leave);
  EXPECT_EQ(t.layout.BetAtHand(), Bet::Field) << "a window has opened over the table";
  QCursor::setPos(t.layout.mapToGlobal(QPoint(-40, 200)));
  QApplication::sendEvent(&t.layout, &leave);
  EXPECT_EQ(t.layout.BetAtHand(), SpotNone);
}

TEST(picLayout, NothingIsPaintedForAMereMove) {
  struct PaintCount : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      return event->type() == QEvent::Paint && ++paints < 0;
    }
  } count;
  LayoutWindow t;
  t.layout.installEventFilter(&count);
  const auto paintsOf = [&](QPointF to) {
    QApplication::processEvents();
    count.paints = 0;
    t.Hover(to);
    QApplication::processEvents();
    return count.paints;
  };
  paintsOf(t.Place(Bet::Field));
  EXPECT_EQ(paintsOf(t.Place(Bet::Come)), 0);
  EXPECT_EQ(paintsOf(t.Place(kRollPoint)), 1) << "the button under it is lit";
  EXPECT_EQ(paintsOf(t.Place(Bet::Come)), 1);
  t.Put(Bet::Field, 5), t.hand.TakeUp(Bet::Field);
  EXPECT_EQ(paintsOf(t.Place(Bet::Field)), 1) << "chips follow it";
  t.Type(Qt::Key_Escape);
  EXPECT_EQ(paintsOf(t.Place(Bet::Come)), 0);
  t.layout.MoveCursor(Bet::Big6);
  EXPECT_EQ(paintsOf(t.Place(Bet::Field)), 1) << "the ring goes";
}

// ---- Runs

TEST(picLayout, ARunIsAskedFirst) {
  for (const bool mayAct : {false, true}) {
    LayoutWindow t;
    int asked = 0;
    t.layout.MayAct = [&] { return ++asked, mayAct; };
    t.Click(kRailPoint);
    EXPECT_EQ(asked, 0) << "nothing runs";
    t.g.RollInProgress = t.g.KeepRolling = true;
    t.Hover(t.Place(Bet::Field));
    EXPECT_EQ(asked, 0);
    t.Click(kFeltPoint, {}, Qt::RightButton), t.Click(Bet::Field), t.Type(Qt::Key_Space), t.Type("q");
    EXPECT_EQ(asked, 4);
    EXPECT_EQ(t.rolls.count(), mayAct ? 2 : 0);
    EXPECT_EQ(t.hotKeys.count(), mayAct ? 1 : 0);
    t.g.HyperDriveActive = true;
    t.Hover(t.Place(Bet::Come));
    EXPECT_EQ(t.layout.HotSpot(), Bet::Field) << "nobody looks in Hyper-Drive";
    t.Click(kPanelSwitchPoint), t.Type(Qt::Key_Space), t.Click(kChip100Point);
    EXPECT_EQ(asked, 7);
    EXPECT_FALSE(t.g.DisplayHopBets);
    EXPECT_EQ(t.rolls.count(), mayAct ? 2 : 0);
    EXPECT_EQ(t.g.TotalBets, Money());
  }
}

// ---- Everything at once

TEST(picLayout, RandomEvents) {
  LayoutWindow t({800, 500});
  std::mt19937 random(7);
  const auto pick = [&](int low, int high) {
    return low + static_cast<int>(random() % static_cast<std::uint32_t>(high - low + 1));
  };
  t.g.HandleLosingBets = LossTakeDown, t.g.HandleWinningBets = WinTakeDown;
  t.g.Rules.AllowNegBankroll = true;
  int rolls = 0;
  QObject::connect(&t.layout, &picLayout::RollWanted, [&] {
    if (!t.layout.CommitKeyIn()) return;
    t.hand.DiceAreOut();
    RollDice(t.g);
    t.layout.RefreshTable();
    ++rolls;
  });
  constexpr Qt::Key kKeys[] = {
      Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,  Qt::Key_Tab,    Qt::Key_Backtab,
      Qt::Key_Return, Qt::Key_Escape, Qt::Key_Delete,   Qt::Key_Space, Qt::Key_PageUp, Qt::Key_PageDown,
      Qt::Key_Menu,   Qt::Key_1,      Qt::Key_5,        Qt::Key_0,     Qt::Key_Period, Qt::Key_A,
      Qt::Key_Plus,   Qt::Key_Minus,  Qt::Key_Asterisk, Qt::Key_Slash, Qt::Key_F10,    Qt::Key_Backspace};
  constexpr Qt::KeyboardModifier kHeld[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                            Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
  for (int i = 0; i < 5000; ++i) {
    const Money bankroll = t.Amount(SlotBankroll);
    const int before = rolls;
    const QPoint at(pick(0, 799), pick(0, 499));
    const auto held = kHeld[pick(0, 5)];
    const auto button = pick(0, 6) ? Qt::LeftButton : Qt::RightButton;
    switch (pick(0, 7)) {
      case 0:
        t.Hover(at);
        break;
      case 1:
      case 2:
        QTest::mouseClick(&t.layout, button, held, at);
        break;
      case 3:
        QTest::mousePress(&t.layout, button, held, at);
        QTest::mouseRelease(&t.layout, button, held, QPoint(pick(0, 799), pick(0, 499)));
        break;
      case 4:
        if (pick(0, 3) == 0) t.hand.Undo(), t.layout.RefreshTable();
        if (pick(0, 9) == 0) t.layout.resize(pick(600, 1000), pick(350, 700));
        break;
      default:
        t.Type(kKeys[pick(0, static_cast<int>(std::size(kKeys)) - 1)], held);
    }
    if (rolls == before) {
      ASSERT_EQ(t.Amount(SlotBankroll), bankroll) << "event " << i;
    }
    ASSERT_TRUE(TablesAgree(t.g) && BetSetsAgree(t.g)) << "event " << i;
    t.host.messages.clear();
    if (i % 50 == 0) QApplication::processEvents();  // paint
  }
  EXPECT_GT(rolls, 100);
  for (int i = 0; i < 3; ++i) t.Type(Qt::Key_Escape);
  EXPECT_FALSE(t.Box().isVisible());
  EXPECT_FALSE(t.hand.Carried());
  EXPECT_EQ(t.hand.Mode(), ClickMode::Bet);
  t.g.KeyInBetAmounts = false;
  t.hand.RemoveAll();
  t.Click(Bet::Field);
  EXPECT_EQ(t.Amount(Bet::Field), t.g.BetAmount[SlotChipDenom + t.g.SelectedChip]);
}

}  // namespace
}  // namespace rollwick
