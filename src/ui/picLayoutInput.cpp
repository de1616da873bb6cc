// What the player does on the table picture: clicks by whatever means, and the mouse. The keyboard is next
// door (picLayoutKeys.cpp).
#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>

#include "ui/SpotTexts.h"
#include "ui/picLayout.h"

namespace rollwick {
namespace {

constexpr int kWheelStep = 120;  // eighths of a degree

bool HoldsTakeUpKey(Qt::KeyboardModifiers modifiers) {
  // Many desktops keep Alt with a click to themselves.
  return (modifiers & (Qt::AltModifier | Qt::ControlModifier)) != 0;
}

}  // namespace

// A dialog that stands open is answered first: screen readers press what lies behind it. A run may ask
// whether it is to be interrupted. Hyper-Drive does not look at the table at all.
bool picLayout::MayGoOn() {
  if (QApplication::activeModalWidget() != nullptr) return false;
  const bool isRunning = g_.RollInProgress || g_.AutoBetRunning || g_.HyperDriveActive;
  return (!isRunning || MayAct()) && !g_.HyperDriveActive;
}

// ---- Clicks, whether of the mouse, the keyboard or a screen reader

void picLayout::Press(int spot) {
  if (spot == SpotNone || (BetUnder(spot) != SpotNone && !IsOnView(g_, spot))) return;
  if (MayGoOn() && CommitKeyIn()) PressLeft(spot, Tool::None, false);
}

void picLayout::Press(Tool tool) {
  if (MayGoOn() && CommitKeyIn()) PressLeft(SpotTools, tool, false);
}

void picLayout::PressLeft(int spot, Tool tool, bool takeUp) {
  HidePopups();
  if (hand_.Carried() && PutDownCarried(spot)) return;
  switch (spot) {
    case SpotNone:
      hand_.LeaveMode();
      ShowView();
      break;
    case SpotDiceFile:
      emit DiceFileStopWanted();
      break;
    case SpotOn:
      ChooseMode(ClickMode::CallOn, "Click on bet to call ON");
      break;
    case SpotOff:
      ChooseMode(ClickMode::CallOff, "Click on bet to call OFF");
      break;
    case SpotBuy:
      ChooseMode(ClickMode::Buy, "Click on bet to buy");
      break;
    case SpotTools:
      PressTool(tool);
      break;
    case SlotRail:
      break;
    case SpotPanelSwitch:
      g_.DisplayHopBets = !g_.DisplayHopBets;
      g_.TableDirty = true;
      Changed();
      break;
    default:
      PressBet(spot, takeUp);
  }
}

void picLayout::PressBet(BetId spot, bool takeUp) {
  cursor_ = spot;
  if (takeUp) {
    hand_.TakeUp(spot);
    ShowView();
  } else if (g_.KeyInBetAmounts && hand_.Mode() == ClickMode::Bet) {
    KeyIn(spot);
  } else {
    hand_.Click(spot);
    Changed();
  }
}

// False when the spot is no place for chips: they stay in the hand.
bool picLayout::PutDownCarried(int spot) {
  if (BetUnder(spot) == SpotNone && spot != SlotRail) return false;
  hand_.PutDown(spot);
  Changed();
  return true;
}

void picLayout::ChooseMode(ClickMode mode, const char* note) {
  hand_.ChooseMode(mode);
  Changed();
  if (hand_.Mode() == mode) ShowNote(note);
}

void picLayout::PressTool(Tool tool) {
  switch (tool) {
    case Tool::None:
      break;
    case Tool::Dice:
    case Tool::Roll:
      Roll();
      break;
    case Tool::Remove:
      ChooseMode(ClickMode::Remove, "Click on bet to remove");
      break;
    case Tool::Down:
      hand_.RemoveAll();
      Changed();
      break;
    case Tool::KeyIn:
      g_.KeyInBetAmounts = !g_.KeyInBetAmounts;
      g_.TableDirty = true;
      Changed();
      break;
    case Tool::Selected:
      SelectChip((g_.SelectedChip + 1) % kChipCount);
      break;
    default:
      SelectChip(ChipOf(tool));
  }
}

void picLayout::Roll() {
  hand_.LeaveMode();
  ShowView();
  emit RollWanted();
}

void picLayout::SelectChip(int chip) {
  chip = std::clamp(chip, 0, kChipCount - 1);
  if (chip == g_.SelectedChip) return;
  g_.SelectedChip = chip;
  g_.TableDirty = true;
  emit StatusText(SpokenText(g_, Tool::Selected));
  Changed();
}

// ---- Mouse

void picLayout::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (!MayGoOn()) return;
  keyboardLeads_ = false;
  PointAt(event->position());
  if (!CommitKeyIn()) return;
  if (event->button() == Qt::RightButton) return PressRight((event->modifiers() & Qt::ShiftModifier) != 0);
  if (event->button() != Qt::LeftButton) return;
  const PicturePoint at = ToPicture(Frame(), event->position().x(), event->position().y());
  const int spot = SpotAt(event->position());
  const bool wasCarrying = hand_.Carried().has_value();
  PressLeft(spot, ToolAt(at.x, at.y), HoldsTakeUpKey(event->modifiers()));
  pressTookUp_ = !wasCarrying && hand_.Carried() ? spot : SpotNone;
}

void picLayout::PressRight(bool wantsMenu) {
  HidePopups();
  if (wantsMenu) {
    emit BetMenuWanted(pointer_.HotSpot, mapToGlobal(pointerAt_.toPoint()));
  } else {
    Roll();
  }
}

// Chips that were dragged lie where the button is let go; after a mere click they follow the pointer.
void picLayout::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() != Qt::LeftButton) return;
  const int from = pressTookUp_;
  pressTookUp_ = SpotNone;
  const int spot = SpotAt(event->position());
  if (from != SpotNone && spot != from && hand_.Carried() && !g_.HyperDriveActive) PutDownCarried(spot);
}

// Every one of quick clicks counts.
void picLayout::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

void picLayout::mouseMoveEvent(QMouseEvent* event) {
  if (g_.HyperDriveActive) return;
  // Where the screen has other pixels than the window, a snapped pointer arrives beside its place.
  const bool isOwnMove = (event->position().toPoint() - snappedTo_).manhattanLength() <= 2;
  const bool ringGoes = keyboardLeads_ && !isOwnMove;
  if (ringGoes) keyboardLeads_ = false;
  PointAt(event->position());
  if (ringGoes || hand_.Carried() || ToolUnderPointer() != view_.hoverTool) ShowView();
}

void picLayout::enterEvent(QEnterEvent* event) {
  if (!g_.HyperDriveActive) PointAt(event->position());
}

void picLayout::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (g_.HyperDriveActive || g_.AutoBetRunning) return;
  wheel_ += event->angleDelta().y();
  const int steps = wheel_ / kWheelStep;
  wheel_ -= steps * kWheelStep;
  if (steps != 0) SelectChip(g_.SelectedChip + steps);
}

// A window that opens over the table takes the pointer away, but does not move it.
void picLayout::leaveEvent(QEvent*) {
  if (rect().contains(mapFromGlobal(QCursor::pos()))) return;
  isPointerHere_ = false;
  pointer_ = {};
  if (!keyboardLeads_) HidePopups();
  ShowView();
}

// The right button rolls; the keys that open a menu come as keys.
void picLayout::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

}  // namespace rollwick
