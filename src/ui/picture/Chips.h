// Chips: how one looks, how amounts are made of them, how they lie in a stack.
#pragma once

#include <QPainter>
#include <QPixmap>
#include <array>
#include <string>
#include <vector>

#include "engine/state/Game.h"
#include "ui/picture/Lettering.h"

namespace rollwick {

inline constexpr double kChipRadius = 10;

// What stands on the chip: "25", "2.50", "25¢"; from 1,000 on the hundreds, to be followed by a small "00",
// and from 100,000 on "100K", "1M".
struct ChipFigure {
  std::string figure;
  bool hasHundreds = false;
};
ChipFigure FigureOf(const GameTables& g, int chip);

// "12.3M", "100K": where an amount in full has no room; below 1,000 the amount itself.
std::string ShortAmount(Money amount);

// One chip with its figure, without a shadow.
void PaintChip(QPainter& painter, const GameTables& g, Lettering& letters, int chip, QPointF middle,
               double radius);

// How many chips of each denomination are drawn for an amount, at most `most` in all: the fewest that make it
// up, and of too many every denomination keeps its share and at least one. An amount below the lowest chip
// still is one chip; nothing and less than nothing is none.
std::array<int, kChipCount> ChipsFor(const GameTables& g, Money amount, int most);

// The five chips at the size they have on the table, kept as pixels.
class ChipSprites {
 public:
  // Paints them anew; `deviceScale` is how many device pixels a unit has.
  void Rebuild(const GameTables& g, Lettering& letters, double deviceScale);
  // One chip, its middle here, with the shadow of what lies on the table.
  void Draw(QPainter& painter, int chip, QPointF middle) const;
  // Chips for the amount on top of each other, the highest at the bottom; gives the middle of the top one.
  QPointF DrawStack(QPainter& painter, const GameTables& g, Money amount, QPointF bottom) const;

 private:
  void DrawSprite(QPainter& painter, const QPixmap& sprite, QPointF middle) const;

  std::array<QPixmap, kChipCount> chips_;
  QPixmap shadow_;  // one for a whole stack
};

}  // namespace rollwick
