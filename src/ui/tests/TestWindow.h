// The window of the table on a folder of its own, with somebody at hand who answers its dialogs.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "layout/HotSpots.h"
#include "support/TemporaryFolder.h"
#include "ui/frmCrapTable.h"

namespace rollwick {

// As on a desktop where nothing is to move: the dice fall at once.
class StillStyle : public QProxyStyle {
 public:
  StillStyle() : QProxyStyle("Fusion") {}
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    if (hint == SH_Widget_Animation_Duration) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
  }
};

// Answers dialogs in the order they open: "Yes", "No", "Cancel", "OK" press that button, "=12" enters 12,
// "/path" chooses a file, "" closes it. When the answers run out dialogs are closed.
class Answerer : public QObject {
 public:
  std::deque<std::string> answers;
  std::vector<std::string> titles;  // of the dialogs that were answered
  std::string lastText;

  Answerer() {
    connect(&look_, &QTimer::timeout, this, [this] { Look(); });
    look_.start(1);
  }
  // Somebody else does.
  void GoAway() { look_.stop(); }

 private:
  void Look() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    titles.push_back(dialog->windowTitle().toStdString());
    if (auto* const label = dialog->findChild<QLabel*>("lblMessage")) lastText = label->text().toStdString();
    std::string answer;
    if (!answers.empty()) answer = std::move(answers.front()), answers.pop_front();
    if (auto* const files = qobject_cast<QFileDialog*>(dialog)) return Choose(*files, answer);
    if (answer.starts_with('=')) {
      dialog->findChild<QLineEdit*>("txtInput")->setText(QString::fromStdString(answer.substr(1)));
      answer = "OK";
    }
    auto* const button = dialog->findChild<QPushButton*>(QString::fromStdString("cmd" + answer));
    if (answer.empty()) return dialog->reject();
    ASSERT_NE(button, nullptr) << answer << " is not offered by " << titles.back() << ": " << lastText;
    QTest::mouseClick(button, Qt::LeftButton);
  }
  static void Choose(QFileDialog& dialog, const std::string& file) {
    if (file.empty()) return dialog.reject();
    dialog.selectFile(QString::fromStdString(file));
    QMetaObject::invokeMethod(&dialog, "accept");
  }

  QTimer look_;
};

struct TestWindow : testing::Test {
  TemporaryFolder temporary;
  std::filesystem::path folder = temporary / "data";
  Answerer player;
  std::unique_ptr<frmCrapTable> window;

  void SetUp() override {
    QApplication::setStyle(new StillStyle);
    Open();
  }
  void Open(const std::filesystem::path& game = {}) {
    window.reset();
    window = std::make_unique<frmCrapTable>(TableOptions{folder, game, {}});
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    QCoreApplication::processEvents();
  }
  Game& g() const { return window->TheGame(); }
  picLayout& Picture() const { return *window->findChild<picLayout*>(); }
  QAction& Entry(const char* name) const { return *window->findChild<QAction*>(name); }
  void Choose(const char* name) const { Entry(name).trigger(); }
  QString LabelText(const char* name) const { return window->findChild<QLabel*>(name)->text(); }
  QPoint PointOf(int spot) const {
    const WidgetPoint at = ToWidget(Picture().Frame(), *HotPointOf(g(), spot));
    return {static_cast<int>(at.x), static_cast<int>(at.y)};
  }
  void Click(int spot, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) const {
    QTest::mouseClick(&Picture(), button, keys, PointOf(spot));
  }
  void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
    // Without a window manager nobody gives a window its activity back when a dialog has closed.
    if (QApplication::activeModalWidget() == nullptr) QApplication::setActiveWindow(window.get());
    QTest::keyClick(&Picture(), key, modifiers);
  }
  // As a player would who does not want to be asked about every bet.
  void BeQuiet() const {
    g().Rules.NotifyFlags = 0;
    g().HandleWinningBets = WinTakeDown;
  }
  // Runs inside whatever event loop is running then.
  void Later(int milliseconds, std::function<void()> act) {
    QTimer::singleShot(milliseconds, &player, std::move(act));
  }
  std::string Asked() const {
    std::string all;
    for (const std::string& title : player.titles) all += (all.empty() ? "" : "|") + title;
    return all;
  }
};

}  // namespace rollwick
