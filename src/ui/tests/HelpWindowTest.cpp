// The handbook in its window: where its links lead, and large letters.
#include "ui/HelpWindow.h"

#include <QScreen>
#include <QTextBlock>
#include <QTextBrowser>
#include <fstream>

#include "support/TemporaryFolder.h"
#include "support/WindowChecks.h"

namespace rollwick {
namespace {

struct Help : testing::Test {
  TemporaryFolder folder;

  Help() {
    std::ofstream(folder / "table.md")
        << "# Table\n\n[first](other.md), [second](other.md#the-2nd-part-chips), [files](../examples)\n";
    std::string lines;
    for (int line = 0; line < 300; ++line) lines += "Come bets\n\n";
    std::ofstream(folder / "other.md") << "# Other\n\n" + lines + "## The 2nd part: chips\n\n" + lines;
  }
};

TEST_F(Help, LinksLeadToPagesAndToTheirHeadings) {
  struct Row {
    const char* name;
    int tabs;
    const char* page;
    const char* firstLine;
  };
  const Row rows[] = {
      {"a page", 1, "other.md", "Other"},
      {"a heading", 2, "other.md", "The 2nd part: chips"},
      {"what is no page is left to the desktop", 3, "table.md", "Table"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    HelpWindow window(folder.Path(), nullptr);
    window.Open("table");
    EXPECT_EQ(ControlFaults(window), "");
    auto& pages = *window.findChild<QTextBrowser*>();
    pages.setFocus();
    for (int tab = 0; tab < row.tabs; ++tab) QTest::keyClick(&pages, Qt::Key_Tab);
    QTest::keyClick(&pages, Qt::Key_Return);
    EXPECT_EQ(pages.source().path().toStdString(), row.page);
    EXPECT_EQ(pages.cursorForPosition(QPoint(8, 8)).block().text().toStdString(), row.firstLine);
    QTest::mouseClick(&Control(window, "cmdBack"), Qt::LeftButton);
    EXPECT_EQ(pages.source().path(), "table.md");
  }
}

TEST_F(Help, FitsTheScreenWithLargeLetters) {
  const LargeDarkDesktop desktop;
  HelpWindow window(folder.Path(), nullptr);
  window.Open("no page of its own");
  EXPECT_EQ(window.findChild<QTextBrowser*>()->source().path(), "table.md");
  EXPECT_LE(window.width(), window.screen()->availableSize().width());
  EXPECT_LE(window.height(), window.screen()->availableSize().height());
}

}  // namespace
}  // namespace rollwick
