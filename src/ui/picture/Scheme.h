// The colours of the table, and what makes print legible on whatever felt the player chose.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <array>

#include "engine/state/ScreenTables.h"

namespace rollwick {

// What each of the TableColors paints.
enum TableColor : std::size_t {
  FeltColor,
  LineColor,
  PassInk,   // Pass Line, Come, C
  DontInk,   // Don't Pass, Don't Come
  PlaceInk,  // numbers, Big 6 and 8, propositions, E
  FieldInk,
  DiceColor,
  PipColor,
};

struct Scheme {
  std::array<QColor, kTableColorCount> colors;
  int texture = 0;     // 0..8
  bool glows = false;  // on a black felt lines and print glow like neon
  const QColor& operator[](TableColor color) const { return colors[color]; }
};

Scheme SchemeOf(const ScreenTables& g);

// How well two colours can be told apart: 1 not at all, 21 black on white.
double Contrast(const QColor& a, const QColor& b);
// The colour that lies `part` (0..1) of the way from one to the other.
QColor Blend(const QColor& from, const QColor& to, double part);

// Prints letters on the felt in one of the inks: with a glow on black, and with an outline where ink and felt
// are too much alike.
void PaintInk(QPainter& painter, const Scheme& scheme, TableColor ink, const QPainterPath& letters);
// The same for lines, `width` units wide.
void PaintLine(QPainter& painter, const Scheme& scheme, TableColor ink, const QPainterPath& line,
               double width);

}  // namespace rollwick
