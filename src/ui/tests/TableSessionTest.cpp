// From the start of the window to its end: games begun, opened, saved and closed, with all their questions.
#include <fstream>

#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "files/GameFile.h"
#include "session/ActiveScript.h"
#include "ui/tests/TestWindow.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;

struct TableSession : TestWindow {
  void Play() const {
    BeQuiet();
    Click(Bet::PassLine);
    ASSERT_TRUE(g().TableDirty);
  }
};

struct NewGameRow {
  const char* name;
  std::vector<std::string> answers;
  bool begins;
  bool saves;
};
const NewGameRow kNewGames[] = {
    {"Cancel", {"Cancel"}, false, false},
    {"closed like a Cancel", {""}, false, false},
    {"No", {"No"}, true, false},
    {"Yes, then no file", {"Yes", ""}, false, false},
    {"Yes", {"Yes", "FOLDER/mine.crp"}, true, true},
    {"Yes, over a file, and not that one", {"Yes", "FOLDER/old.crp", "No", "FOLDER/mine.crp"}, true, true},
};

TEST_F(TableSession, ANewGameAsksAboutTheOldOne) {
  bool wasSaved = false;
  for (const NewGameRow& row : kNewGames) {
    SCOPED_TRACE(row.name);
    std::ofstream(temporary / "old.crp") << "old";
    fs::remove(temporary / "mine.crp");
    Play();
    for (std::string answer : row.answers) {
      if (answer.starts_with("FOLDER")) answer.replace(0, 6, temporary.Path().string());
      player.answers.push_back(answer);
    }
    const GameTables before = g();
    Choose("mnuNew");
    EXPECT_EQ(g().BetAmount[Bet::PassLine], row.begins ? Money() : before.BetAmount[Bet::PassLine]);
    EXPECT_EQ(g().TableDirty, !row.begins);
    EXPECT_EQ(fs::exists(temporary / "mine.crp"), row.saves);
    EXPECT_EQ(window->findChild<QAction*>("mnuRecentGame_1") != nullptr, row.saves || wasSaved);
    wasSaved |= row.saves;
    EXPECT_TRUE(player.answers.empty()) << player.answers.front() << " was not needed";
    EXPECT_EQ(window->windowTitle(), "Rollwick");
    player.answers.clear();
  }
  std::string old;
  std::getline(std::ifstream(temporary / "old.crp"), old);
  EXPECT_EQ(old, "old");
}

TEST_F(TableSession, AGameIsSavedAndOpenedAgain) {
  Play();
  player.answers = {(temporary / "mine").string()};  // the suffix comes by itself
  Choose("mnuSave");
  ASSERT_TRUE(fs::exists(temporary / "mine.crp"));
  EXPECT_EQ(window->windowTitle(), "Rollwick (mine.crp)");
  EXPECT_FALSE(g().TableDirty);
  Click(Bet::Field);
  Choose("mnuSave");  // needs no dialog any more
  Choose("mnuNew");
  EXPECT_EQ(window->windowTitle(), "Rollwick");
  std::ofstream(temporary / "bad.crp") << "no game";
  player.titles.clear();
  // A file that is refused brings the dialog back.
  player.answers = {(temporary / "bad.crp").string(), "OK", (temporary / "mine.crp").string()};
  Choose("mnuOpen");
  EXPECT_EQ(player.titles.size(), 3U) << Asked();
  EXPECT_EQ(g().BetAmount[Bet::Field], Dollars(1));
  EXPECT_EQ(window->windowTitle(), "Rollwick (mine.crp)");
  Choose("mnuNew");
  QCoreApplication::processEvents();
  Choose("mnuRecentGame_1");
  EXPECT_EQ(g().BetAmount[Bet::Field], Dollars(1));
}

TEST_F(TableSession, ClosingAsksAndKeepsTheGame) {
  Play();
  player.answers = {"Cancel"};
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(window->isVisible());
  EXPECT_FALSE(window->HasEnded());
  window->resize(700, 600);
  QCoreApplication::processEvents();
  const QSize size = window->size();
  player.answers = {"No"};
  EXPECT_TRUE(window->close());
  EXPECT_TRUE(fs::exists(folder / kWorkingGame));
  player.titles.clear();
  Open();
  EXPECT_EQ(g().BetAmount[Bet::PassLine], Dollars(1));
  EXPECT_EQ(window->size(), size);
  EXPECT_EQ(window->windowTitle(), "Rollwick");
  EXPECT_EQ(Asked(), "");
}

TEST_F(TableSession, AMinimisedWindowComesUpToAskBeforeItCloses) {
  Play();
  window->showMinimized();
  player.answers = {"No"};
  EXPECT_TRUE(window->close());
  EXPECT_EQ(Asked(), "Save Game?");
}

TEST_F(TableSession, AFullDiskDoesNotHoldTheWindow) {
  Play();
  g().TableDirty = false;
  const FileSizeLimit full(100);
  player.answers = {"OK", "No", "OK", "Yes"};
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(window->close());
  EXPECT_EQ(Asked(), "Save Game|Rollwick|Save Game|Rollwick");
}

// Enter twice, unread, does not lose the game.
TEST_F(TableSession, AHastyEnterKeepsATableThatCouldNotBeSaved) {
  Play();
  g().TableDirty = false;
  const FileSizeLimit full(100);
  player.GoAway();
  int asked = 0;
  QTimer enter;
  QObject::connect(&enter, &QTimer::timeout, [&] {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || !dialog->isVisible()) return;
    ++asked;
    QTest::keyClick(dialog, Qt::Key_Return);
  });
  enter.start(1);
  EXPECT_FALSE(window->close());
  EXPECT_EQ(asked, 2);
}

TEST_F(TableSession, WhatACrashLeftIsThereAgain) {
  ReplaceScript(g(), ParseScriptText("    Do this . . .\n          Bet $ 5 on Field\n").lines, "", "");
  ASSERT_EQ(SaveActiveScript(g(), folder), "");
  std::ofstream(folder / kWorkingGame) << "torn";
  Open();  // the first window never came to its end
  EXPECT_TRUE(QTest::qWaitFor([this] { return !player.titles.empty(); }));
  EXPECT_EQ(player.titles.size(), 1U) << "about the working game";
  EXPECT_EQ(g().ScriptLines.size(), 2U);
  EXPECT_TRUE(g().ScriptDirty);
}

TEST_F(TableSession, ASessionEndedFromOutsideIsThereAgain) {
  Play();
  window->SaveForNextStart();
  const Money stood = g().BetAmount[Bet::PassLine];
  Open();
  EXPECT_GT(stood, Money());
  EXPECT_EQ(g().BetAmount[Bet::PassLine], stood);
  EXPECT_EQ(Asked(), "") << "nobody is asked";
}

TEST_F(TableSession, AGameOnTheCommandLineIsOpened) {
  Play();
  player.answers = {(temporary / "mine.crp").string()};
  Choose("mnuSave");
  Choose("mnuNew");
  window->close();
  Open(temporary / "mine.crp");
  EXPECT_TRUE(QTest::qWaitFor([this] { return window->windowTitle() == "Rollwick (mine.crp)"; }));
  EXPECT_EQ(g().BetAmount[Bet::PassLine], Dollars(1));
}

}  // namespace
}  // namespace rollwick
