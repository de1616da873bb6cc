#include "ui/picture/Lettering.h"

#include <QFontMetricsF>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace rollwick {
namespace {

constexpr int kOutlineSize = 200;     // pixels at which outlines are taken: hinting does not matter there
constexpr double kFigureWidth = 0.8;  // of the natural width: figures of amounts stand close

QFont BoldFont(const QStringList& families, QFont::StyleHint kind) {
  QFont font;
  font.setFamilies(families);
  font.setStyleHint(kind);
  font.setBold(true);
  font.setPixelSize(kOutlineSize);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

std::size_t IndexOf(Face face) {
  return static_cast<std::size_t>(face);
}

}  // namespace

Lettering::Lettering()
    : fonts_{BoldFont({"DejaVu Serif", "Liberation Serif", "Noto Serif", "serif"}, QFont::Serif),
             BoldFont({"DejaVu Sans", "Liberation Sans", "Noto Sans", "sans-serif"}, QFont::SansSerif)},
      capHeights_{QFontMetricsF(fonts_[0]).capHeight(), QFontMetricsF(fonts_[1]).capHeight()} {}

const Lettering::Glyph& Lettering::GlyphOf(QChar character, Face face) {
  Glyph& glyph = glyphs_[IndexOf(face)][character];
  if (glyph.advance == 0) {
    const QFont& font = fonts_[IndexOf(face)];
    glyph.advance = QFontMetricsF(font).horizontalAdvance(character);
    glyph.path.addText(0, 0, font, character);
  }
  return glyph;
}

QPainterPath Lettering::Line(const QString& text, Face face, double* width) {
  QPainterPath line;
  line.setFillRule(Qt::WindingFill);
  double at = 0;
  for (const QChar character : text) {
    const Glyph& glyph = GlyphOf(character, face);
    line.addPath(glyph.path.translated(at, 0));
    at += glyph.advance;
  }
  if (width) *width = at;
  return line;
}

QPainterPath Lettering::Fitted(const QString& text, Face face, const QRectF& box, double narrowest) {
  const QPainterPath line = Line(text, face);
  const QRectF ink = line.boundingRect();
  if (ink.isEmpty()) return {};
  double tall = box.height() / ink.height();
  const double wide = std::min(tall, box.width() / ink.width());
  tall = std::min(tall, wide / narrowest);
  QTransform to;
  to.translate(box.center().x(), box.center().y());
  to.scale(wide, tall);
  to.translate(-ink.center().x(), -ink.center().y());
  return to.map(line);
}

QPainterPath Lettering::Upright(const QString& text, Face face, const QRectF& box, double narrowest) {
  const QRectF lying(-box.height() / 2, -box.width() / 2, box.height(), box.width());
  QTransform to;
  to.translate(box.center().x(), box.center().y());
  to.rotate(-90);
  return to.map(Fitted(text, face, lying, narrowest));
}

QPainterPath Lettering::Curved(const QString& text, Face face, double capHeight, QPointF center,
                               double radius, double degrees) {
  const double cap = capHeights_[IndexOf(face)], scale = capHeight / cap;
  double length = 0;
  Line(text, face, &length);
  double at = -length / 2;
  QPainterPath all;
  all.setFillRule(Qt::WindingFill);
  for (const QChar character : text) {
    const Glyph& glyph = GlyphOf(character, face);
    // Along the lower left the text runs against the clock.
    const double angle = degrees - (at + glyph.advance / 2) * scale / radius * 180 / std::numbers::pi;
    QTransform to;
    to.translate(center.x(), center.y());
    to.rotate(angle);
    to.translate(radius, 0);
    to.rotate(-90);
    to.scale(scale, scale);
    to.translate(-glyph.advance / 2, cap / 2);
    all.addPath(to.map(glyph.path));
    at += glyph.advance;
  }
  return all;
}

QPainterPath Lettering::Amount(const QString& text, QPointF middle, double high, double widest) {
  double natural = 0;
  const QPainterPath line = Line(text, Face::Sans, &natural);
  const double tall = high / capHeights_[IndexOf(Face::Sans)];
  const double wide = std::min(tall * kFigureWidth, widest / std::max(natural, 1.0));
  QTransform to;
  to.translate(middle.x() - natural * wide / 2, middle.y() + high / 2);
  to.scale(wide, tall);
  return to.map(line);
}

}  // namespace rollwick
