// The keyboard on the table picture.
#include <QFocusEvent>
#include <QKeyEvent>

#include "ui/SpotAccessibility.h"
#include "ui/picLayout.h"

namespace rollwick {
namespace {

bool IsModifierKey(int key) {
  return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
         key == Qt::Key_AltGr || key == Qt::Key_CapsLock || key == Qt::Key_NumLock;
}

// Without Ctrl or Alt.
bool IsPlain(const QKeyEvent& event) {
  return (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
}

}  // namespace

bool picLayout::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
      keyPressEvent(key);
      return true;
    }
  }
  // Keys without Ctrl or Alt are the table's own while it has the focus, whatever menu has them too.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isTyped = !key->text().isEmpty() && key->text().front().isPrint();
    if (IsPlain(*key) && (isTyped || key->key() == Qt::Key_Delete)) {
      event->accept();
      return true;
    }
  }
  return QWidget::event(event);
}

void picLayout::keyPressEvent(QKeyEvent* event) {
  if (IsModifierKey(event->key())) return event->ignore();
  const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
  if (isTab && (event->modifiers() & Qt::ControlModifier) != 0) {
    const bool isBack = event->key() == Qt::Key_Backtab || (event->modifiers() & Qt::ShiftModifier) != 0;
    focusNextPrevChild(!isBack);
    return;
  }
  if (!MayGoOn()) return event->accept();
  event->setAccepted(PressKey(*event));
}

// Whether the key means something here.
bool picLayout::PressKey(const QKeyEvent& event) {
  if (const auto step = CursorKeyOf(event)) {
    HidePopups();
    MoveCursor(NextSpot(g_, cursor_, *step));
    return true;
  }
  const bool isPlain = IsPlain(event);
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (event.isAutoRepeat() || !IsOnView(g_, cursor_)) return true;
      keyboardLeads_ = true;
      if (CommitKeyIn())
        PressLeft(cursor_, Tool::None, (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) != 0);
      return true;
    case Qt::Key_Escape:
      return LetGo();
    case Qt::Key_Delete:
      if (!isPlain) return false;
      hand_.Remove(BetAtHand());
      Changed();
      return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      SelectChip(g_.SelectedChip + (event.key() == Qt::Key_PageUp ? 1 : -1));
      return true;
    case Qt::Key_Menu:
      OpenMenuAtHand();
      return true;
    case Qt::Key_F10:
      if ((event.modifiers() & Qt::ShiftModifier) == 0) return false;
      OpenMenuAtHand();
      return true;
    case Qt::Key_Space:
      if (isPlain && !event.isAutoRepeat() && CommitKeyIn()) Roll();
      return isPlain;
    default:
      // Some keyboards type characters with AltGr.
      return !event.text().isEmpty() && event.text().front().isPrint() &&
             (isPlain || (event.modifiers() & Qt::GroupSwitchModifier) != 0) && TypeCharacter(event.text());
  }
}

bool picLayout::TypeCharacter(const QString& character) {
  const qsizetype formula = character.size() == 1 ? QString("+-*/").indexOf(character) : -1;
  if (formula < 0 || IsHotKey(character)) {
    emit HotKeyTyped(character);
    return true;
  }
  const BetId bet = BetAtHand();
  if (!IsBet(bet)) return true;
  hand_.Step(bet, static_cast<int>(formula));
  Changed();
  return true;
}

// Escape acts on the first of these that there is.
bool picLayout::LetGo() {
  HidePopups();
  if (txtEnterBet_.Spot() != 0) {
    CloseKeyIn();
  } else if (hand_.Carried()) {
    hand_.PutBack();
  } else if (hand_.Mode() != ClickMode::Bet) {
    hand_.LeaveMode();
  } else if (g_.DiceFileMode != DiceFileOff) {
    emit DiceFileStopWanted();
  } else {
    return false;
  }
  ShowView();
  return true;
}

void picLayout::OpenMenuAtHand() {
  HidePopups();
  const BetId bet = BetAtHand();
  const QPoint at = bet == cursor_ && keyboardLeads_ ? PointOf(bet) : pointerAt_.toPoint();
  emit BetMenuWanted(bet, mapToGlobal(at));
}

void picLayout::focusInEvent(QFocusEvent* event) {
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
    keyboardLeads_ = true;
  ShowView();
  TellFocus(*this);
}

void picLayout::focusOutEvent(QFocusEvent* event) {
  // A menu about the bet leaves the ring where it is.
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason) return;
  HidePopups();
  ShowView();
}

}  // namespace rollwick
