#include "ui/screens/MessageArea.h"

#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

namespace rollwick {

namespace {

constexpr int kWidestLine = 60;   // average characters
constexpr int kHighestPart = 70;  // percent of the screen
constexpr int kWidestPart = 85;

}  // namespace

MessageArea::MessageArea(const QString& text) : lblMessage_(new QLabel) {
  // A script's text is shown as it is, never read as markup.
  lblMessage_->setTextFormat(Qt::PlainText);
  lblMessage_->setText(text);
  lblMessage_->setWordWrap(true);
  lblMessage_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  lblMessage_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  lblMessage_->setObjectName("lblMessage");
  lblMessage_->setAccessibleName(text);
  setWidget(lblMessage_);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  // The text stands on the window, not on a page of its own.
  viewport()->setAutoFillBackground(false);
  lblMessage_->setAutoFillBackground(false);
}

QSize MessageArea::sizeHint() const {
  const QSize room = (screen() != nullptr ? screen() : QGuiApplication::primaryScreen())->availableSize();
  const QFontMetrics font(lblMessage_->font());
  const int wanted = font.size(Qt::TextExpandTabs, lblMessage_->text()).width() + font.averageCharWidth();
  const int width =
      std::min({wanted, kWidestLine * font.averageCharWidth(), room.width() * kWidestPart / 100});
  const int height = lblMessage_->heightForWidth(width);
  const int highest = room.height() * kHighestPart / 100;
  if (height <= highest) return {width, height};
  return {width + verticalScrollBar()->sizeHint().width(), highest};
}

void MessageArea::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) updateGeometry();
  QScrollArea::changeEvent(event);
}

}  // namespace rollwick
