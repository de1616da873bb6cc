// The window and its dialogs as people see them, against the pictures in tests/data/pictures.
#include <QFontDatabase>

#include "engine/bets/Placement.h"
#include "support/GoldenPicture.h"
#include "ui/screens/frmMsg.h"
#include "ui/screens/frmSettleBet.h"
#include "ui/tests/TestWindow.h"

namespace rollwick {
namespace {

constexpr double kOfText = 0.01;  // hinting of small letters differs more than drawing

// One font and one style, whatever the desktop likes.
class WindowPictures : public TestWindow {
 protected:
  void SetUp() override {
    ASSERT_TRUE(QFontDatabase::hasFamily("DejaVu Sans")) << "install fonts-dejavu-core";
    QApplication::setFont(QFont("DejaVu Sans", 10));
    TestWindow::SetUp();
    player.GoAway();
    window->resize(900, 580);
    g().Rules.NotifyFlags = 0;
    g().Die1 = 6;
    g().Die2 = 4;
    g().DiceTotal = g().Point = 10;
    for (const auto& [bet, dollars] : {std::pair(Bet::Place6, 12), {Bet::Field, 5}, {Bet::Hard8, 5}}) {
      g().BetDelta = Dollars(dollars);
      PlaceChips(g(), bet);
    }
    g().TableDirty = false;
    Choose("mnuDisplayBetAmounts");
  }
  void TearDown() override {
    window.reset();
    QApplication::setFont(font_);
    QApplication::setPalette(palette_);
  }

 private:
  QFont font_ = QApplication::font();
  QPalette palette_ = QApplication::palette();
};

QImage Grab(QWidget& widget) {
  QCoreApplication::processEvents();
  return widget.grab().toImage();
}

TEST_F(WindowPictures, TheTableOnALightAndADarkDesktop) {
  ExpectLikeGolden("window", Grab(*window), kOfText);
  QApplication::setPalette(QPalette(QColor(50, 50, 50)));
  ExpectLikeGolden("window-dark", Grab(*window), kOfText);
}

TEST_F(WindowPictures, ASettledBet) {
  const SettleQuestion question = {
      Bet::Place6,
      true,
      false,
      1,
      "* * * Winner * * *",
      {{"Place 6 bet:", "$12"}, {"Payoff at 7 to 6:", "$14"}},
      {"&Take Bet and Winnings", "&Same Bet - Take Winnings", "Press 1 &Unit - Add $6 to Bet",
       "&Press - Add Winnings to &Double Bet", "Parlay - Add &All Winnings to Bet", "Sa&me Bet:", "&Bet:"}};
  Later(20, [] {
    QWidget& dialog = *QApplication::activeModalWidget();
    ExpectLikeGolden("settle-bet", Grab(dialog), kOfText);
    dialog.close();
  });
  g().CurrentBetId = Bet::Place6;
  g().PayoffNet = Dollars(14);
  EXPECT_EQ(ShowSettleWindow(g(), question, window.get()).choice, 1);
}

TEST_F(WindowPictures, ANotice) {
  Later(20, [] {
    QWidget& dialog = *QApplication::activeModalWidget();
    ExpectLikeGolden("notice", Grab(dialog), kOfText);
    dialog.close();
  });
  ShowMessageWindow(g(),
                    {"You may not make a Come bet until \ra point is established.", "Come Bet",
                     MessagePlain | MessageClassNotAllowed},
                    window.get());
}

}  // namespace
}  // namespace rollwick
