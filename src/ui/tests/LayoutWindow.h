// A picLayout in a window of its own at a table of 5 dollar chips, and the hands to play it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include "engine/bets/Placement.h"
#include "support/ScriptedHost.h"
#include "ui/picLayout.h"

namespace rollwick {

inline constexpr PicturePoint kPanelSwitchPoint = {489, 277}, kFeltPoint = {55, 300}, kRailPoint = {330, 422};
inline constexpr PicturePoint kOnPoint = {525, 71}, kOffPoint = {555, 71}, kBuyPoint = {585, 71};
inline constexpr PicturePoint kRollPoint = {686, 80}, kChip100Point = {700, 180}, kTakePoint = {665, 364};
inline constexpr PicturePoint kDownPoint = {705, 364}, kTypePoint = {745, 364}, kSelectedPoint = {686, 408};

// A table of 5 dollar chips at which everything may be bet, in a window.
struct LayoutWindow : TestTable {
  TableHand hand{g};
  picLayout layout{g, hand, nullptr};
  QSignalSpy rolls{&layout, &picLayout::RollWanted};
  QSignalSpy hotKeys{&layout, &picLayout::HotKeyTyped};
  QSignalSpy menus{&layout, &picLayout::BetMenuWanted};
  QSignalSpy diceFileStops{&layout, &picLayout::DiceFileStopWanted};

  explicit LayoutWindow(QSize size = {768, 440}) {
    g.BetAmount[SlotBankroll] = Dollars(5000);
    g.AutoAdjustBetAmounts = AdjustManual;
    g.Rules.AllowPutBets = true;
    g.Rules.NotifyFlags = NotifyNotAllowed | NotifyLimits;
    g.SelectedChip = 1;
    layout.resize(size);
    layout.show();
    layout.activateWindow();
    layout.setFocus();
    QApplication::processEvents();
  }

  QPoint Place(PicturePoint point) const {
    const WidgetPoint place = ToWidget(layout.Frame(), point);
    return QPointF(place.x, place.y).toPoint();
  }
  QPoint Place(int spot) const { return Place(*HotPointOf(g, spot)); }
  template <class Where>
  void Click(Where where, Qt::KeyboardModifiers held = {}, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&layout, button, held, Place(where));
  }
  void Hover(QPointF at) {
    QMouseEvent move(QEvent::MouseMove, at, layout.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&layout, &move);
  }
  void Type(Qt::Key key, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &layout, key, held);
  }
  void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
  QLineEdit& Box() { return *layout.findChild<QLineEdit*>("txtEnterBet"); }
  QLabel& Label(const char* name) { return *layout.findChild<QLabel*>(name); }

  void Put(BetId spot, int dollars) {
    g.BetDelta = Dollars(dollars);
    g.TravelPass = true;  // also on the numbers
    ChangeBet(g, spot);
    g.TravelPass = false;
    ASSERT_EQ(Amount(spot), Dollars(dollars)) << spot;
  }
  void SetPoint(int point) {
    g.Point = point;
    SetLineOddsPayoffs(g);
  }
  // So that a chip may be put on the bet.
  void PrepareFor(BetId bet) {
    if (IsOdds(bet)) Put(FlatOf(bet), 10);
    if (bet != Bet::PassLine && bet != Bet::DontPass) SetPoint(6);
    if (IsDontComeNumber(bet)) g.BetContract[bet] = Dollars(100);
    if (IsHop(bet) || bet == Bet::Over7 || bet == Bet::Under7) Click(kPanelSwitchPoint);
  }
};

}  // namespace rollwick
