// The About screen.
#include <gtest/gtest.h>

#include <QLabel>

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

}  // namespace
}  // namespace rollwick
