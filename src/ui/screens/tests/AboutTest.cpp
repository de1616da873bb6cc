// The About screen.
#include <gtest/gtest.h>

#include <QFontInfo>
#include <QLabel>
#include <QScreen>

#include "support/ScriptedHost.h"
#include "support/WindowChecks.h"
#include "ui/screens/frmAbout.h"

namespace rollwick {
namespace {

TEST(About, TellsVersionLicenceAndFolders) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
    TestTable table;
    QString help;
    PlayNextDialog([&](QWidget& dialog) {
      EXPECT_EQ(ControlFaults(dialog), "");
      EXPECT_TRUE(dialog.isModal());
      EXPECT_EQ(Control<QLabel>(dialog, "lblVersion").text(), "1.2.3");
      EXPECT_TRUE(Control<QLabel>(dialog, "lblLicence").text().contains("MIT"));
      EXPECT_EQ(Control<QLabel>(dialog, "lblFolder_1").text(), "/usr/share/<b>&x") << "as it is";
      QTest::keyClick(&dialog, Qt::Key_F1);
      QTest::keyClick(&dialog, key);
    });
    ShowAboutWindow(table.g, "1.2.3", {{"Data", "/home/ann/data"}, {"Sounds", "/usr/share/<b>&x"}}, nullptr,
                    [&](const QString& page) { help = page; });
    EXPECT_EQ(help, "frmAbout");
  }
}

TEST(About, FitsTheScreenWithDeepFoldersAndLettersInPixels) {
  std::string deep;
  for (int folder = 0; folder < 30; ++folder) deep += "/folder-of-games";
  for (const bool isInPixels : {false, true}) {
    SCOPED_TRACE(isInPixels);
    const QFont usual = QApplication::font();
    QFont font = usual;
    if (isInPixels) font.setPixelSize(18);
    QApplication::setFont(font);
    TestTable table;
    PlayNextDialog([&](QWidget& dialog) {
      EXPECT_EQ(ControlFaults(dialog), "");
      EXPECT_LE(dialog.width(), dialog.screen()->availableSize().width());
      const auto& title = Control<QLabel>(dialog, "lblName");
      EXPECT_GT(QFontInfo(title.font()).pixelSize(), 3 * QFontInfo(dialog.font()).pixelSize() / 2);
      dialog.close();
    });
    ShowAboutWindow(table.g, "1.2.3", {{"Games and settings", deep}}, nullptr);
    QApplication::setFont(usual);
  }
}

}  // namespace
}  // namespace rollwick
