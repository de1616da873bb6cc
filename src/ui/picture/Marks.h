// What lies on the layout beside chips and dice: the puck, lammers, the dealer's buttons on bets, the spot of
// the dice file, the ring of the keyboard, plates with amounts.
#pragma once

#include <QPainter>
#include <vector>

#include "engine/state/Game.h"
#include "ui/picture/Lettering.h"
#include "ui/picture/TablePicture.h"

namespace rollwick {

void PaintPuck(QPainter& painter, Lettering& letters, int point);

// The three lammers on the felt; that of the mode is lit.
void PaintLammers(QPainter& painter, Lettering& letters, int clickMode);

enum class Button { On, Off, Buy };
void PaintButton(QPainter& painter, Lettering& letters, Button button, QPointF middle);

// REC or PLAY and the number of the next roll, while a dice file is in use.
void PaintDiceFile(QPainter& painter, const GameTables& g, Lettering& letters);

void PaintCursor(QPainter& painter, const GameTables& g, int spot);

// All bets on the panel that is not on view.
Money HiddenBets(const GameTables& g);
// The "$" and their sum on the switch, none when nothing is hidden.
void PaintHiddenBets(QPainter& painter, const GameTables& g, Lettering& letters);

// An amount on a dark plate. Where the place is taken by an earlier plate it goes below that.
class AmountPlates {
 public:
  explicit AmountPlates(Lettering& letters) : letters_(letters) {}
  // Shortened where all of it has no room.
  void Add(Money amount, QPointF middle, double widest);
  void Paint(QPainter& painter);
  struct Plate {
    QRectF rect;
    QPainterPath letters;
    bool isNegative;
  };
  const std::vector<Plate>& All() const { return plates_; }

 private:
  Lettering& letters_;
  std::vector<Plate> plates_;
};

}  // namespace rollwick
