#include "ui/picture/Felt.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace rollwick {
namespace {

constexpr int kTileUnits = 56;
constexpr int kMostTilePixels = 4 * kTileUnits;
constexpr double kTurn = 2 * std::numbers::pi;

// A fixed pseudo-random number 0..1 for a whole point: the cloth looks the same in every window.
double Grain(int x, int y, std::uint32_t layer) {
  std::uint32_t h = static_cast<std::uint32_t>(x) * 374761393u + static_cast<std::uint32_t>(y) * 668265263u +
                    layer * 2246822519u;
  h = (h ^ (h >> 13)) * 1274126177u;
  h ^= h >> 16;
  return static_cast<double>(h & 0xFFFF) / 0xFFFF;
}

// Smooth noise 0..1 over a tile of 1 x 1 that has `across` x `down` knots and continues itself.
double Cloud(double u, double v, int across, int down, std::uint32_t layer) {
  const double x = u * across, y = v * down;
  const int left = static_cast<int>(x), top = static_cast<int>(y);
  const auto ease = [](double t) { return t * t * (3 - 2 * t); };
  const double right = ease(x - left), low = ease(y - top);
  const auto knot = [&](int dx, int dy) { return Grain((left + dx) % across, (top + dy) % down, layer); };
  const double above = std::lerp(knot(0, 0), knot(1, 0), right);
  const double below = std::lerp(knot(0, 1), knot(1, 1), right);
  return std::lerp(above, below, low);
}

double Wave(double turns) {
  return std::sin(turns * kTurn);
}

double Baize(double u, double v) {
  return 0.5 * (Cloud(u, v, 56, 56, 1) - 0.5) + 0.5 * (Cloud(u, v, 28, 28, 2) - 0.5);
}

// Round specks, in about every third cell of a grid.
double Spark(double u, double v) {
  constexpr int kCells = 14;
  const int column = static_cast<int>(u * kCells), row = static_cast<int>(v * kCells);
  if (Grain(column, row, 13) < 0.65) return 0;
  const double dx = u * kCells - column - 0.3 - 0.4 * Grain(column, row, 14);
  const double dy = v * kCells - row - 0.3 - 0.4 * Grain(column, row, 15);
  return 1.5 * std::clamp(2 - 10 * std::hypot(dx, dy), 0.0, 1.0);
}

// How much lighter (up to 1) or darker (down to -1) a point of a tile is.
double Shade(int texture, double u, double v) {
  switch (texture) {
    case 0:  // plain cloth
      return 0.5 * Baize(u, v);
    case 1:  // coarse baize
      return 1.3 * Baize(u, v);
    case 2:  // brushed nap
      return 1.4 * (Cloud(u, v, 56, 5, 3) - 0.5);
    case 3:  // linen
      return 0.25 * Wave(u * 28) + 0.25 * Wave(v * 28) + 0.6 * (Cloud(u, v, 28, 3, 4) - 0.5) +
             0.6 * (Cloud(u, v, 3, 28, 5) - 0.5);
    case 4:  // diamonds
      return 0.45 * (std::abs(Wave((u + v) * 2) * Wave((u - v) * 2)) < 0.16 ? 0.7 : -0.1) + 0.5 * Baize(u, v);
    case 5: {  // brocade
      const double figure = Wave(u * 2) * Wave(v * 2) + 0.5 * Wave(u * 4) * Wave(v * 4);
      return (std::abs(figure) > 0.45 ? 0.32 : -0.08) + 0.5 * Baize(u, v);
    }
    case 6: {  // wood
      const double bent = v + 0.05 * Cloud(u, v, 2, 3, 6);
      return 0.8 * (Cloud(u, bent, 1, 42, 7) - 0.5) + 0.6 * (Cloud(u, bent, 2, 15, 8) - 0.5) +
             0.5 * (Cloud(u, v, 5, 56, 9) - 0.5);
    }
    case 7:  // sparkle
      return Spark(u, v) + 0.5 * Baize(u, v);
    default:  // velvet
      return 0.3 * (Cloud(u, v, 5, 4, 10) - 0.5) + 0.25 * (Cloud(u, v, 9, 11, 11) - 0.5) +
             0.5 * (Cloud(u, v, 56, 40, 12) - 0.5);
  }
}

QRgb Lit(const QColor& felt, double shade) {
  // On black a part that does not depend on the colour keeps the texture visible.
  const auto part = [shade](int value) {
    return static_cast<int>(std::clamp(value + shade * (0.19 * value + 13), 0.0, 255.0));
  };
  return qRgb(part(felt.red()), part(felt.green()), part(felt.blue()));
}

// Light falls from above the middle; the rail throws its shadow to the right and downward.
void PaintLight(QPainter& painter, const QPainterPath& felt) {
  QRadialGradient light(QPointF(310, 190), 420);
  light.setColorAt(0, QColor(255, 255, 255, 26));
  light.setColorAt(0.45, QColor(255, 255, 255, 6));
  light.setColorAt(0.7, QColor(0, 0, 0, 14));
  light.setColorAt(1, QColor(0, 0, 0, 76));
  painter.fillPath(felt, light);
  painter.save();
  painter.setClipPath(felt);
  for (int width = 2; width <= 22; width += 2) {
    painter.strokePath(felt.translated(1.5, 2.5), QPen(QColor(0, 0, 0, 11), width));
  }
  painter.restore();
}

}  // namespace

QPainterPath FeltPath() {
  QPainterPath felt(QPointF(88, 18));
  felt.lineTo(602, 18);
  felt.lineTo(602, 96);
  felt.lineTo(641, 96);
  felt.lineTo(641, 378);
  felt.lineTo(602, 378);
  felt.lineTo(602, 405);
  felt.lineTo(108, 405);
  felt.arcTo(QRectF(48, 285, 120, 120), 270, -90);
  felt.lineTo(48, 58);
  felt.arcTo(QRectF(48, 18, 80, 80), 180, -90);
  felt.closeSubpath();
  return felt;
}

QImage FeltTile(int texture, const QColor& felt, int pixels) {
  QImage tile(pixels, pixels, QImage::Format_RGB32);
  for (int y = 0; y < pixels; ++y) {
    auto* line = reinterpret_cast<QRgb*>(tile.scanLine(y));
    for (int x = 0; x < pixels; ++x) {
      line[x] = Lit(felt, Shade(texture, static_cast<double>(x) / pixels, static_cast<double>(y) / pixels));
    }
  }
  return tile;
}

QBrush TextureBrush(int texture, const QColor& color, double deviceScale, bool upright) {
  const int pixels =
      std::clamp(static_cast<int>(std::lround(kTileUnits * deviceScale)), kTileUnits / 2, kMostTilePixels);
  const QImage tile = FeltTile(texture, color, pixels);
  QBrush brush(upright ? tile.transformed(QTransform().rotate(90)) : tile);
  // Pixel for pixel, except in windows so large that the tile has to grow.
  const double unit = std::max(1 / deviceScale, static_cast<double>(kTileUnits) / kMostTilePixels);
  brush.setTransform(QTransform::fromScale(unit, unit));
  return brush;
}

void PaintFelt(QPainter& painter, const Scheme& scheme, double deviceScale) {
  const QPainterPath felt = FeltPath();
  painter.fillPath(felt, TextureBrush(scheme.texture, scheme[FeltColor], deviceScale));
  PaintLight(painter, felt);
}

}  // namespace rollwick
