// The table picture as a widget: what it shows, and the key-in box and pop-ups over it. What the player does
// with it is next door (picLayoutInput.cpp, picLayoutKeys.cpp).
#include "ui/picLayout.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "ui/SpotAccessibility.h"
#include "ui/SpotTexts.h"
#include "ui/screens/Captions.h"

namespace rollwick {
namespace {

constexpr int kQuickStatsDelay = 700;  // milliseconds
constexpr int kNoteTime = 6000;
constexpr PictureRect kKeyInRect = {-11, -11, 58, 22};  // around the anchor

void SetUpPopup(QLabel& popup, const char* name, const QString& accessible) {
  Name(popup, name, accessible);
  popup.setPalette(QToolTip::palette());
  popup.setForegroundRole(QPalette::ToolTipText);
  popup.setBackgroundRole(QPalette::ToolTipBase);
  popup.setAutoFillBackground(true);
  popup.setFrameShape(QFrame::Box);
  popup.setMargin(3);
  popup.setTextFormat(Qt::PlainText);
  popup.setAttribute(Qt::WA_TransparentForMouseEvents);
  popup.hide();
}

}  // namespace

picLayout::picLayout(Game& g, TableHand& hand, QWidget* parent) : QWidget(parent), g_(g), hand_(hand) {
  Name(*this, "picLayout", "Craps table");
  setAccessibleDescription(
      "Arrow keys and Tab walk over the bets, Enter bets the chip in hand, Delete takes down, Space rolls, "
      "the Menu key shows what else there is, Control and Tab leave the table.");
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  SetUpPopup(lblQuickStats_, "lblQuickStats", "Bet under the pointer");
  SetUpPopup(lblNote_, "lblNote", "Note");
  timerQuickStats_.setObjectName("timerQuickStats");
  timerQuickStats_.setParent(this);
  for (QTimer* timer : {&timerQuickStats_, &timerNote_}) timer->setSingleShot(true);
  timerQuickStats_.setInterval(kQuickStatsDelay);
  timerNote_.setInterval(kNoteTime);
  connect(&timerQuickStats_, &QTimer::timeout, this, &picLayout::ShowQuickStats);
  connect(&timerNote_, &QTimer::timeout, &lblNote_, &QLabel::hide);
  connect(&txtEnterBet_, &KeyInBox::CommitWanted, this, [this] {
    if (MayGoOn()) CommitKeyIn();
  });
  connect(&txtEnterBet_, &KeyInBox::CloseWanted, this, &picLayout::CloseKeyIn);
  connect(&txtEnterBet_, &KeyInBox::MoveWanted, this, &picLayout::StepKeyIn);
  connect(&txtEnterBet_, &KeyInBox::Refused, this, &picLayout::StatusText);
  ShowView();
}

PictureFrame picLayout::Frame() const {
  return FitPicture(width(), height());
}

int picLayout::SpotAt(QPointF position) const {
  const PicturePoint at = ToPicture(Frame(), position.x(), position.y());
  return LocateHotSpot(g_, keys_, at.x, at.y);
}

BetId picLayout::BetAtHand() const {
  if (!keyboardLeads_) return BetUnderPointer();
  return IsOnView(g_, cursor_) ? cursor_ : SpotNone;
}

QString picLayout::QuickStats(int spot) const {
  return QuickStatsText(g_, spot);
}

// ---- What is shown

void picLayout::RefreshTable() {
  if (g_.HyperDriveActive) return;
  if (txtEnterBet_.Spot() != 0) {
    if (!IsOnView(g_, txtEnterBet_.Spot())) {
      CloseKeyIn();
    } else if (!txtEnterBet_.isModified() && txtEnterBet_.Value() != g_.BetAmount[txtEnterBet_.Spot()]) {
      txtEnterBet_.SetValue(g_.BetAmount[txtEnterBet_.Spot()]);
      txtEnterBet_.selectAll();
    }
  }
  if (isPointerHere_) MovePointerTo(pointerAt_);
  if (lblQuickStats_.isVisible()) ShowQuickStats();
  if (hand_.Mode() == ClickMode::Bet) lblNote_.hide();
  TellCursorText(*this);
  ShowView();
}

void picLayout::Changed() {
  RefreshTable();
  emit TableChanged();
}

void picLayout::ShowView() {
  view_.cursor = hasFocus() && keyboardLeads_ && IsOnView(g_, cursor_) ? cursor_ : SpotNone;
  const QPoint at = PopupPoint();
  view_.hoverTool = ToolUnderPointer();
  view_.clickMode = static_cast<int>(hand_.Mode());
  view_.carried = hand_.Carried() ? hand_.Carried()->amount : Money();
  view_.pointer = ToPicture(Frame(), at.x(), at.y());
  update();
}

void picLayout::ShowDice(const DicePoses& dice) {
  view_.dice = dice;
  update();
}

void picLayout::ShowFallenChips(std::vector<TableChip> chips) {
  view_.fallen = std::move(chips);
  update();
}

void picLayout::paintEvent(QPaintEvent*) {
  view_.isRolling = g_.KeepRolling;  // also in Hyper-Drive, which refreshes nothing else
  QPainter painter(this);
  picture_.Paint(painter, g_, view_, Frame(), devicePixelRatioF(), width(), height());
}

void picLayout::resizeEvent(QResizeEvent*) {
  HidePopups();
  PlaceKeyIn();
}

QPoint picLayout::PointOf(int spot) const {
  const auto hotPoint = HotPointOf(g_, spot);
  if (!hotPoint) return rect().center();
  const WidgetPoint point = ToWidget(Frame(), *hotPoint);
  return QPointF(point.x, point.y).toPoint();
}

// ---- Cursor and pointer

void picLayout::MoveCursor(BetId spot) {
  if (!IsOnView(g_, spot) || !CommitKeyIn()) return;
  cursor_ = spot;
  keyboardLeads_ = true;
  SnapPointer(spot);
  WaitForQuickStats(spot);
  emit StatusText(SpokenText(g_, spot));
  ShowView();
  TellFocus(*this);
}

// Where the system keeps the pointer to itself the ring alone shows the place.
void picLayout::SnapPointer(BetId spot) {
  if (!g_.SnapMouse || !isVisible() || QGuiApplication::platformName().startsWith("wayland")) return;
  snappedTo_ = PointOf(spot);
  QCursor::setPos(mapToGlobal(snappedTo_));
}

Tool picLayout::ToolUnderPointer() const {
  if (pointer_.HotSpot != SpotTools) return Tool::None;
  const PicturePoint at = ToPicture(Frame(), pointerAt_.x(), pointerAt_.y());
  return ToolAt(at.x, at.y);
}

void picLayout::PointAt(QPointF position) {
  isPointerHere_ = true;
  pointerAt_ = position;
  MovePointerTo(position);
}

void picLayout::MovePointerTo(QPointF position) {
  const PicturePoint at = ToPicture(Frame(), position.x(), position.y());
  const int before = pointer_.HotSpot;
  if (!MovePointer(g_, keys_, pointer_, at.x, at.y)) return;
  const bool isNothing = pointer_.HotSpot == SpotNone || pointer_.HotSpot == SlotRail;
  setCursor(isNothing ? Qt::ArrowCursor : Qt::PointingHandCursor);
  // A pop-up that is there already follows the amount.
  const bool isShown = pointer_.HotSpot == before && lblQuickStats_.isVisible();
  if (!keyboardLeads_ && !isShown) WaitForQuickStats(pointer_.HotSpot);
}

// ---- Pop-ups

void picLayout::WaitForQuickStats(int spot) {
  lblQuickStats_.hide();
  quickStatsSpot_ = spot;
  timerQuickStats_.stop();
  if (g_.QuickStats && !QuickStats(spot).isEmpty()) timerQuickStats_.start();
}

void picLayout::ShowQuickStats() {
  const QString text = QuickStats(quickStatsSpot_);
  if (!g_.QuickStats || g_.HyperDriveActive || text.isEmpty() || txtEnterBet_.Spot() != 0)
    return lblQuickStats_.hide();
  ShowPopup(lblQuickStats_, text, PopupPoint());
}

void picLayout::ShowNote(const QString& text) {
  lblQuickStats_.hide();
  timerQuickStats_.stop();
  ShowPopup(lblNote_, text, PopupPoint());
  timerNote_.start();
  emit StatusText(text);
}

QPoint picLayout::PopupPoint() const {
  return keyboardLeads_ || !isPointerHere_ ? PointOf(cursor_) : pointerAt_.toPoint();
}

// Beside the point, so that it covers neither the spot nor the pointer, and inside the picture.
void picLayout::ShowPopup(QLabel& popup, const QString& text, QPoint at) {
  constexpr int kAside = 18;
  popup.setText(text);
  popup.adjustSize();
  const bool fitsBelow = at.y() + kAside + popup.height() <= height();
  const int x = std::clamp(at.x() + kAside, 0, std::max(width() - popup.width(), 0));
  const int y = fitsBelow ? at.y() + kAside : std::max(at.y() - kAside - popup.height(), 0);
  popup.move(x, y);
  popup.raise();
  popup.show();
}

void picLayout::HidePopups() {
  timerQuickStats_.stop();
  lblQuickStats_.hide();
  lblNote_.hide();
}

// ---- The key-in box

void picLayout::KeyIn(BetId spot) {
  if (g_.RollInProgress || g_.AutoBetRunning || g_.HyperDriveActive || !IsOnView(g_, spot)) return;
  HidePopups();
  hand_.PutBack();
  g_.EnterBetSpot = spot;
  txtEnterBet_.Open(spot, g_.BetAmount[spot]);
  PlaceKeyIn();
  cursor_ = spot;
  SnapPointer(spot);
  ShowView();
}

void picLayout::PlaceKeyIn() {
  const auto anchor = AnchorOf(g_, txtEnterBet_.Spot());
  if (txtEnterBet_.Spot() == 0 || !anchor) return;
  const PictureFrame frame = Frame();
  const auto units = [&](int length) { return std::lround(length * frame.scale); };
  const int width = static_cast<int>(units(kKeyInRect.width));
  const int left = static_cast<int>(std::lround(frame.left) + units(anchor->x + kKeyInRect.x));
  QFont font = txtEnterBet_.font();
  font.setPixelSize(std::max(static_cast<int>(units(12)), 1));
  txtEnterBet_.setFont(font);
  txtEnterBet_.setGeometry(std::max(left, 0),
                           static_cast<int>(std::lround(frame.top) + units(anchor->y + kKeyInRect.y)), width,
                           static_cast<int>(units(kKeyInRect.height)));
}

bool picLayout::CommitKeyIn() {
  const BetId spot = txtEnterBet_.Spot();
  if (spot == 0) return true;
  if (txtEnterBet_.isModified()) {
    if (!txtEnterBet_.Commit()) {
      txtEnterBet_.setFocus(Qt::OtherFocusReason);  // the click that asked took it
      return false;
    }
    const bool isTaken = hand_.EnterAmount(spot, txtEnterBet_.Value());
    Changed();
    if (!isTaken) {
      // What the table made of it stands in the box, so that the next try goes through.
      txtEnterBet_.Open(spot, g_.BetAmount[spot]);
      return false;
    }
    emit StatusText(SpokenText(g_, spot));  // in place of what was wrong before
  }
  CloseKeyIn();
  return true;
}

void picLayout::CloseKeyIn() {
  if (txtEnterBet_.Spot() == 0) return;
  const bool hadFocus = txtEnterBet_.hasFocus();
  cursor_ = txtEnterBet_.Spot();
  txtEnterBet_.Close();
  if (hadFocus) setFocus(Qt::OtherFocusReason);
  ShowView();
}

void picLayout::StepKeyIn(CursorKey direction) {
  const BetId next = NextSpot(g_, txtEnterBet_.Spot(), direction);
  if (!MayGoOn() || !CommitKeyIn()) return;
  keyboardLeads_ = true;
  KeyIn(next);
}

}  // namespace rollwick
