// The key-in box hands all keys that lead away from its amount to the table.
#include "ui/KeyInBox.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include "ui/screens/Captions.h"

namespace rollwick {

std::optional<CursorKey> CursorKeyOf(const QKeyEvent& event) {
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return {};
  switch (event.key()) {
    case Qt::Key_Left:
      return CursorKey::Left;
    case Qt::Key_Right:
      return CursorKey::Right;
    case Qt::Key_Up:
      return CursorKey::Up;
    case Qt::Key_Down:
      return CursorKey::Down;
    case Qt::Key_Tab:
      return (event.modifiers() & Qt::ShiftModifier) != 0 ? CursorKey::BackTab : CursorKey::Tab;
    case Qt::Key_Backtab:
      return CursorKey::BackTab;
    default:
      return {};
  }
}

KeyInBox::KeyInBox(QWidget* parent) : NumberField(parent) {
  Name(*this, "txtEnterBet", "Bet amount");
  hide();
}

void KeyInBox::Open(BetId spot, Money amount) {
  spot_ = spot;
  // A Chip-Stack may owe.
  SetLimits(IsChipStack(spot) ? -kMaxChipStack : Money(), kMaxChipStack);
  setModified(false);
  SetValue(amount);
  setAccessibleName("Bet amount, " + ToQt(IsChipStack(spot) ? ChipStackTitle(spot) : BetName(spot)));
  show();
  raise();
  setFocus(Qt::OtherFocusReason);
  selectAll();
}

void KeyInBox::Close() {
  if (spot_ == 0) return;
  spot_ = 0;
  setModified(false);
  hide();
}

bool KeyInBox::IsAtEnd(int key) const {
  if (hasSelectedText()) return selectedText() == text();
  return cursorPosition() == (key == Qt::Key_Left ? 0 : text().size());
}

// Tab goes on over the table, not through the window.
bool KeyInBox::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
      if (const auto step = CursorKeyOf(*key)) emit MoveWanted(*step);
      return true;
    }
  }
  return NumberField::event(event);
}

// Whoever comes back types the whole amount anew, or goes on with what he typed.
void KeyInBox::focusInEvent(QFocusEvent* event) {
  NumberField::focusInEvent(event);
  if (!isModified()) selectAll();
}

// Looking elsewhere for a moment takes nothing.
void KeyInBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
}

void KeyInBox::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const auto step = CursorKeyOf(*event);
  const bool isUpOrDown = key == Qt::Key_Up || key == Qt::Key_Down;
  if (step && (event->modifiers() & Qt::ShiftModifier) == 0 && (isUpOrDown || IsAtEnd(key))) {
    emit MoveWanted(*step);
  } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    if (!event->isAutoRepeat()) emit CommitWanted();  // the Enter that opened the box may be held yet
  } else if (key == Qt::Key_Escape) {
    emit CloseWanted();
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

}  // namespace rollwick
