// Letters as outlines, so that they are sharp at any scale: print of the felt, captions, figures.
#pragma once

#include <QFont>
#include <QHash>
#include <QPainterPath>
#include <QString>

namespace rollwick {

enum class Face { Serif, Sans };  // the print of the felt; figures and small captions

// Every character is outlined once and kept.
class Lettering {
 public:
  Lettering();

  // The text in the middle of the box, as large as it allows. A long text is first made narrower, to
  // `narrowest` of its natural width, and then smaller.
  QPainterPath Fitted(const QString& text, Face face, const QRectF& box, double narrowest = 0.72);
  // The same, reading upward along the box.
  QPainterPath Upright(const QString& text, Face face, const QRectF& box, double narrowest = 0.72);
  // Along the lower left of a circle, read from inside, with the middle of the text at `degrees` (0 right, 90
  // down).
  QPainterPath Curved(const QString& text, Face face, double capHeight, QPointF center, double radius,
                      double degrees);
  // An amount around a point, its figures `high` and all of it no wider than `widest`.
  QPainterPath Amount(const QString& text, QPointF middle, double high, double widest);

 private:
  struct Glyph {
    QPainterPath path;  // in pixels of the outline size, on a baseline at (0, 0)
    double advance = 0;
  };
  const Glyph& GlyphOf(QChar character, Face face);
  QPainterPath Line(const QString& text, Face face, double* width = nullptr);

  QFont fonts_[2];
  double capHeights_[2];
  QHash<QChar, Glyph> glyphs_[2];
};

}  // namespace rollwick
