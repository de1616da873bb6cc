// The widget of the table picture: the pointer and the keyboard on it, the key-in box, the hover pop-up, and
// what a screen reader hears of it.
#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "session/TableHand.h"
#include "ui/picture/TablePicture.h"
#include "ui/screens/NumberField.h"

namespace rollwick {

class picLayout : public QWidget {
  Q_OBJECT

 public:
  picLayout(Game& g, TableHand& hand, QWidget* parent);

  // Whoever owns a run says whether this event may act: a question about interrupting it comes first.
  std::function<bool()> MayAct = [] { return true; };

  // The game changed: paints, and looks anew at what is under the pointer.
  void RefreshTable();
  int HotSpot() const { return pointer_.HotSpot; }
  BetId BetUnderPointer() const { return BetUnder(pointer_.HotSpot); }
  // The bet an entry of the menu acts on: under the pointer while it is over the picture, else under the
  // cursor.
  BetId BetAtHand() const;
  PictureFrame Frame() const;

  // Opens txtEnterBet over the spot.
  void KeyIn(BetId spot);
  // Commits an open key-in box; false when the amount was refused, which was told.
  bool CommitKeyIn();
  void CloseKeyIn();

  void ShowDice(const DicePoses& dice);
  const DicePoses& Dice() const { return view_.dice; }
  void ShowFallenChips(std::vector<TableChip> chips);
  void ShowNote(const QString& text);  // at the pointer, "Click on bet to remove"

  // "Place 6, $12, working": what a screen reader says of a spot; and the text of the hover pop-up.
  QString SpokenText(int spot) const;
  QString QuickStats(int spot) const;

 signals:
  void RollWanted();
  void HotKeyTyped(const QString& character);
  void DiceFileStopWanted();
  void TableChanged();  // by what the player did here
  void BetMenuWanted(int spot, const QPoint& globalPosition);
  void StatusText(const QString& text);

 private:
  Game& g_;
  TableHand& hand_;
  KeyPicture keys_;
  Pointer pointer_;
  TablePicture picture_;
  TableView view_;
};

}  // namespace rollwick
