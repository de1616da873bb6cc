// The widget of the table picture: the pointer and the keyboard on it, the key-in box, the hover pop-up, and
// what a screen reader hears of it.
#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

#include "session/TableHand.h"
#include "ui/KeyInBox.h"
#include "ui/picture/TablePicture.h"

namespace rollwick {

// Keys while it has the focus: arrows and Tab walk over the spots, Enter is a left click on the spot with the
// ring, Ctrl+Enter takes its chips up, Delete takes the bet down, Space rolls, Page Up and Page Down change
// the chip, + - * / step the bet, Escape lets go, the Menu key and Shift+F10 open the bet's menu, other
// characters are hot keys. Ctrl+Tab and Ctrl+Shift+Tab leave the picture.
class picLayout : public QWidget {
  Q_OBJECT

 public:
  picLayout(Game& g, TableHand& hand, QWidget* parent);

  // Whoever owns a run says whether this event may act: a question about interrupting it comes first.
  std::function<bool()> MayAct = [] { return true; };
  // Whether the player has a hot key on the character, which then goes before + - * /.
  std::function<bool(const QString&)> IsHotKey = [](const QString&) { return false; };

  // The game changed: paints, and looks anew at what is under the pointer.
  void RefreshTable();
  int HotSpot() const { return pointer_.HotSpot; }
  BetId BetUnderPointer() const { return BetUnder(pointer_.HotSpot); }
  // The bet an entry of the menu acts on: under the pointer, or under the cursor when that was moved last; 0
  // for none.
  BetId BetAtHand() const;
  PictureFrame Frame() const;

  // Opens txtEnterBet over the spot.
  void KeyIn(BetId spot);
  // Commits an open key-in box; false when the amount was refused, which was told.
  bool CommitKeyIn();
  void CloseKeyIn();

  // A left click on a spot or a tool by a screen reader.
  void Press(int spot);
  void Press(Tool tool);
  // Where the keyboard's ring is, or would be. A step away from an open key-in box commits it.
  BetId Cursor() const { return cursor_; }
  void MoveCursor(BetId spot);

  void ShowDice(const DicePoses& dice);
  const DicePoses& Dice() const { return view_.dice; }
  void ShowFallenChips(std::vector<TableChip> chips);
  void ShowNote(const QString& text);  // at the pointer, "Click on bet to remove"

  // The text of the hover pop-up.
  QString QuickStats(int spot) const;
  const Game& TheGame() const { return g_; }
  int SpotAt(QPointF position) const;

  QSize sizeHint() const override { return {kPictureWidth, kPictureHeight}; }
  QSize minimumSizeHint() const override { return sizeHint() * 3 / 4; }

 signals:
  void RollWanted();
  void HotKeyTyped(const QString& character);
  void DiceFileStopWanted();
  void TableChanged();  // by what the player did here
  void BetMenuWanted(int spot, const QPoint& globalPosition);
  void StatusText(const QString& text);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  bool MayGoOn();
  void Changed();
  void ShowView();

  void PressLeft(int spot, Tool tool, bool takeUp);
  void PressBet(BetId spot, bool takeUp);
  void PressTool(Tool tool);
  bool PutDownCarried(int spot);
  void ChooseMode(ClickMode mode, const char* note);
  void PressRight(bool wantsMenu);
  void Roll();
  void SelectChip(int chip);

  bool PressKey(const QKeyEvent& event);
  bool TypeCharacter(const QString& character);
  bool LetGo();
  void OpenMenuAtHand();
  void StepKeyIn(CursorKey direction);
  void PlaceKeyIn();

  void PointAt(QPointF position);
  void MovePointerTo(QPointF position);
  Tool ToolUnderPointer() const;
  void SnapPointer(BetId spot);
  void WaitForQuickStats(int spot);
  void ShowQuickStats();
  void HidePopups();
  void ShowPopup(QLabel& popup, const QString& text, QPoint at);
  QPoint PointOf(int spot) const;
  QPoint PopupPoint() const;

  Game& g_;
  TableHand& hand_;
  KeyPicture keys_ = DrawKeyPicture();
  Pointer pointer_;
  TablePicture picture_;
  TableView view_;

  QPointF pointerAt_;           // in the widget
  bool isPointerHere_ = false;  // over the widget
  BetId cursor_ = Bet::PassLine;
  bool keyboardLeads_ = false;    // it moved the cursor after the pointer had moved
  QPoint snappedTo_{-9, -9};      // where the system moved the pointer itself
  BetId pressTookUp_ = SpotNone;  // the spot whose chips a press that still holds took up
  int wheel_ = 0;                 // eighths of a degree that are no step yet

  KeyInBox txtEnterBet_{this};
  QLabel lblQuickStats_{this};
  QLabel lblNote_{this};
  QTimer timerQuickStats_;
  QTimer timerNote_;
  int quickStatsSpot_ = SpotNone;  // the pop-up is about
};

}  // namespace rollwick
