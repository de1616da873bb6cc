#include "ui/picture/Scheme.h"

#include <algorithm>
#include <cmath>

namespace rollwick {
namespace {

constexpr int kTextures = 9;
constexpr double kBlackFelt = 0.01;     // luminance up to which print glows
constexpr double kPlainContrast = 2.2;  // ink with less than that gets an outline
constexpr double kFineContrast = 3.2;   // the same of small print, and on black
constexpr double kSmallPrint = 9.5;     // units high

QColor ColorOf(std::int32_t value) {
  return QColor(value & 255, value >> 8 & 255, value >> 16 & 255);
}

double Linear(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) + 0.0722 * Linear(color.blueF());
}

QPen RoundPen(QColor color, double width, double alpha = 1) {
  color.setAlphaF(static_cast<float>(alpha));
  return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

// The colour that sets this ink off from the felt: none where it is seen well enough, else the opposite of
// the felt.
QColor EdgeOf(const Scheme& scheme, TableColor ink, bool isSmall) {
  const double wanted = scheme.glows || isSmall ? kFineContrast : kPlainContrast;
  if (Contrast(scheme[ink], scheme[FeltColor]) >= wanted) return {};
  if (scheme.glows) return Blend(scheme[ink], Qt::white, 0.5);
  return Luminance(scheme[FeltColor]) > 0.18 ? QColor(40, 12, 0) : QColor(255, 255, 255);
}

}  // namespace

Scheme SchemeOf(const ScreenTables& g) {
  Scheme scheme;
  std::transform(g.TableColors.begin(), g.TableColors.end(), scheme.colors.begin(), ColorOf);
  const double texture = std::isnan(g.TableTexture) ? 0 : std::round(g.TableTexture);
  scheme.texture = static_cast<int>(std::clamp(texture, 0.0, kTextures - 1.0));
  scheme.glows = Luminance(scheme[FeltColor]) < kBlackFelt;
  return scheme;
}

double Contrast(const QColor& a, const QColor& b) {
  const double one = Luminance(a) + 0.05, other = Luminance(b) + 0.05;
  return std::max(one, other) / std::min(one, other);
}

QColor Blend(const QColor& from, const QColor& to, double part) {
  const auto mixed = [part](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
  return QColor(mixed(from.red(), to.red()), mixed(from.green(), to.green()), mixed(from.blue(), to.blue()));
}

void PaintInk(QPainter& painter, const Scheme& scheme, TableColor ink, const QPainterPath& letters) {
  const QRectF box = letters.boundingRect();
  const double size = std::min({box.width(), box.height(), 18.0}) / 18;
  if (scheme.glows) {
    painter.strokePath(letters, RoundPen(scheme[ink], 4.5 * size, 0.13));
    painter.strokePath(letters, RoundPen(scheme[ink], 2.2 * size, 0.22));
  }
  const bool isSmall = box.height() < kSmallPrint;
  const QColor edge = EdgeOf(scheme, ink, isSmall);
  if (edge.isValid() && isSmall) {
    // There is no room for an edge: the ink itself comes nearer to its colour.
    painter.fillPath(letters, Blend(scheme[ink], edge, 0.8));
    return;
  }
  if (edge.isValid()) painter.strokePath(letters, RoundPen(edge, 0.5 + size, 0.9));
  painter.fillPath(letters, scheme[ink]);
}

void PaintLine(QPainter& painter, const Scheme& scheme, TableColor ink, const QPainterPath& line,
               double width) {
  QPen pen(scheme[ink], width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
  if (scheme.glows) {
    painter.strokePath(line, RoundPen(scheme[ink], width + 5, 0.1));
    painter.strokePath(line, RoundPen(scheme[ink], width + 2, 0.2));
  }
  painter.strokePath(line, pen);
}

}  // namespace rollwick
