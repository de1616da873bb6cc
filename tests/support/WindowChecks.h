// What holds for every screen, and a hand that plays a dialog while it is on show.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMap>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <functional>
#include <string>

namespace rollwick {

// A part of another control, such as the bar of a scroll area, is none.
inline bool IsControl(const QWidget& widget) {
  const QWidget* const parent = widget.parentWidget();
  if (widget.objectName().startsWith("qt_") || qobject_cast<const QComboBox*>(parent) != nullptr ||
      qobject_cast<const QAbstractSpinBox*>(parent) != nullptr || widget.inherits("QScrollBar")) {
    return false;
  }
  return widget.inherits("QAbstractButton") || widget.inherits("QLabel") || widget.inherits("QLineEdit") ||
         widget.inherits("QTextEdit") || widget.inherits("QPlainTextEdit") || widget.inherits("QComboBox") ||
         widget.inherits("QAbstractSpinBox") || widget.inherits("QAbstractSlider") ||
         widget.inherits("QAbstractItemView") || widget.inherits("QGroupBox");
}

inline bool IsField(const QWidget& widget) {
  return widget.inherits("QLineEdit") || widget.inherits("QComboBox") || widget.inherits("QAbstractSpinBox");
}

inline QString CaptionOf(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) return group->title();
  const auto* label = qobject_cast<const QLabel*>(&widget);
  return label != nullptr && label->buddy() != nullptr ? label->text() : QString();
}

// Whether a caption is cut: only what wraps or scrolls may be smaller than it wants to be.
inline bool IsCut(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    if (label->wordWrap()) return label->height() < label->heightForWidth(label->width());
    return label->width() < label->sizeHint().width() || label->height() < label->sizeHint().height();
  }
  return qobject_cast<const QAbstractButton*>(&widget) != nullptr &&
         (widget.width() < widget.minimumSizeHint().width() ||
          widget.height() < widget.minimumSizeHint().height());
}

// Everything wrong with the controls of a window on show: names that are missing or stand twice, fields
// without a label, letters taken twice, captions cut off, controls the Tab key never reaches. Empty: nothing.
inline std::string ControlFaults(QWidget& window) {
  QStringList faults;
  QMap<QString, QString> letters, names;
  QSet<const QWidget*> labelled, reached;
  for (const QLabel* label : window.findChildren<QLabel*>()) labelled.insert(label->buddy());
  const QWidget* next = &window;
  do reached.insert(next = next->nextInFocusChain());
  while (next != &window);

  for (QWidget* const widget : window.findChildren<QWidget*>()) {
    if (!IsControl(*widget)) continue;
    const QString name = widget->objectName();
    const QString told =
        name.isEmpty() ? QString(widget->metaObject()->className()) + " \"" + CaptionOf(*widget) + '"' : name;
    if (name.isEmpty()) faults << told + " has no objectName";
    if (!name.isEmpty() && names.contains(name)) faults << told + " stands twice";
    names[name] = told;
    const auto* label = qobject_cast<const QLabel*>(widget);
    const bool isEmpty = label != nullptr && label->text().isEmpty() && label->pixmap().isNull();
    if (widget->accessibleName().isEmpty() && !isEmpty) faults << told + " has no accessibleName";
    if (IsField(*widget) && !labelled.contains(widget)) faults << told + " has no label";
    if (!widget->isVisibleTo(&window)) continue;
    if (IsCut(*widget)) faults << told + " is cut";
    if (widget->focusPolicy() & Qt::TabFocus && !reached.contains(widget))
      faults << told + " is out of Tab's way";
    const QString letter = QKeySequence::mnemonic(CaptionOf(*widget)).toString();
    if (letter.isEmpty()) continue;
    if (letters.contains(letter)) faults << letter + " is " + told + " and " + letters[letter];
    letters[letter] = told;
  }
  return faults.join("; ").toStdString();
}

// A user of another country, for the length of a test.
struct UserLocale {
  const QLocale former;

  explicit UserLocale(const char* name) { QLocale::setDefault(QLocale(name)); }
  ~UserLocale() { QLocale::setDefault(former); }
};

// Letters of 24 points on a dark desktop, for the length of a test.
struct LargeDarkDesktop {
  QFont font = QApplication::font();
  QPalette palette = QApplication::palette();

  LargeDarkDesktop() {
    QFont large = font;
    large.setPointSize(24);
    QApplication::setFont(large);
    QApplication::setPalette(QPalette(QColor(50, 50, 50)));
  }
  ~LargeDarkDesktop() {
    QApplication::setPalette(palette);
    QApplication::setFont(font);
  }
};

// The control of this name; the test fails where there is none.
template <class Widget = QWidget>
Widget& Control(QWidget& window, const char* name) {
  auto* const control = window.findChild<Widget*>(name);
  if (control == nullptr) {
    ADD_FAILURE() << name << " is missing";
    std::abort();
  }
  return *control;
}

// Plays the modal dialog that comes up next, once it is active. What is still open then is a failure, and
// closed.
inline void PlayNextDialog(std::function<void(QWidget& dialog)> play) {
  QTimer::singleShot(0, qApp, [play = std::move(play)] {
    const QPointer<QWidget> dialog = QApplication::activeModalWidget();
    ASSERT_FALSE(dialog.isNull()) << "no dialog came up";
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
    play(*dialog);
    // A letter's button is seen going down before it acts.
    if (QTest::qWaitFor([&] { return dialog.isNull() || !dialog->isVisible(); }, 1'000)) return;
    ADD_FAILURE() << "the dialog is still open";
    while (!dialog.isNull() && dialog->isVisible()) dialog->close();
  });
}

}  // namespace rollwick
