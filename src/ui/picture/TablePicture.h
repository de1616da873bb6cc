// The table as one picture: felt, lines, lettering, panel, rail, tools, puck, buttons, chips, dice. Painted
// by vectors in the units of the picture, 768 by 440, at any scale.
#pragma once

#include <QByteArray>
#include <QPainter>
#include <QPixmap>
#include <vector>

#include "engine/state/Game.h"
#include "layout/HotSpots.h"
#include "ui/picture/Chips.h"
#include "ui/picture/DicePose.h"
#include "ui/picture/Lettering.h"

namespace rollwick {

// What the window knows and the game does not.
struct TableView {
  DicePoses dice{};
  bool isRolling = false;         // the roll button reads STOP
  int cursor = SpotNone;          // the spot with the keyboard's ring; none while the picture has no focus
  Tool hoverTool = Tool::None;    // under the pointer
  int clickMode = 0;              // ClickMode: its lammer or tool is lit
  Money carried;                  // in the player's hand, drawn at the pointer; 0 nothing
  PicturePoint pointer;           // where that is
  std::vector<TableChip> fallen;  // the chips all over the table when the bank is broken
};

// The layers that only the colours, the texture, the rules and the panel change are kept as a pixmap.
class TablePicture {
 public:
  // The painter is at the left top of the widget, in its logical pixels; `frame` says where the picture
  // stands and `pixelRatio` how many device pixels a logical one has. Paints the surroundings of the picture
  // too, of `width` by `height` logical pixels.
  void Paint(QPainter& painter, const Game& g, const TableView& view, const PictureFrame& frame,
             double pixelRatio, double width, double height);

  // How often the kept layers have been painted.
  int Builds() const { return builds_; }

 private:
  void Keep(const Game& g, const PictureFrame& frame, double pixelRatio, double width, double height);
  void PaintBets(QPainter& painter, const Game& g);
  void PaintRailBankroll(QPainter& painter, const Game& g);
  void PaintCarried(QPainter& painter, const Game& g, const TableView& view);

  QPixmap kept_;
  QByteArray keptFor_;  // all that decides the kept layers
  int builds_ = 0;
  ChipSprites chips_;  // kept together with the layers
  Lettering letters_;
};

// One chip of this denomination, with its figure, as the tools and cursors show it. `radius` in units.
void PaintChip(QPainter& painter, const Game& g, int chip, QPointF middle, double radius);

}  // namespace rollwick
