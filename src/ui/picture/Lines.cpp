#include "ui/picture/Lines.h"

#include "layout/Anchors.h"

namespace rollwick {
namespace {

// Degrees as QPainterPath counts them: 180 is left, 270 below.
QPainterPath RingPart(double inner, double outer, double from, double to) {
  QPainterPath part;
  part.arcMoveTo(Around(kTurnMiddle, outer), from);
  part.arcTo(Around(kTurnMiddle, outer), from, to - from);
  part.arcTo(Around(kTurnMiddle, inner), to, from - to);
  part.closeSubpath();
  return part;
}

QPainterPath Polygon(std::initializer_list<QPointF> points) {
  QPainterPath path;
  path.addPolygon(QPolygonF(QList<QPointF>(points)));
  path.closeSubpath();
  return path;
}

QPainterPath Big6Path() {
  QPainterPath path(QPointF(96, 259));
  path.lineTo(121, 259);
  path.lineTo(149.5, 287);
  path.lineTo(112, 324.5);
  path.arcTo(Around(kTurnMiddle, 55.5), 225, -45);
  path.closeSubpath();
  return path;
}

QPainterPath Big8Path() {
  QPainterPath path(QPointF(151, 288.5));
  path.lineTo(113.5, 326);
  path.arcTo(Around(kTurnMiddle, 55.5), 225, 45);
  path.lineTo(179, 341);
  path.lineTo(179, 316.5);
  path.closeSubpath();
  return path;
}

QPainterPath Segment(double x1, double y1, double x2, double y2) {
  QPainterPath path(QPointF(x1, y1));
  path.lineTo(x2, y2);
  return path;
}

// From the top at the left, around the turn, to the right end.
QPainterPath AroundTheTurn(double top, double radius, double right) {
  QPainterPath path(QPointF(kTurnMiddle.x() - radius, top));
  path.arcTo(Around(kTurnMiddle, radius), 180, 90);
  path.lineTo(right, kTurnMiddle.y() + radius);
  return path;
}

struct Stroke {
  QPainterPath path;
  double width;
};

std::vector<Stroke> TableStrokes() {
  std::vector<Stroke> strokes = {
      {Segment(59, 52, 501, 52), 2},
      {AroundTheTurn(51, 91, 447), 3},             // outside the Pass Line
      {AroundTheTurn(51, 57, 447), 3},             // between Pass Line and Don't Pass
      {Segment(121.5, 51, 121.5, 258), 3},         // right of the upright Don't Pass
      {Segment(94.5, 258, 122, 258), 2},           // below it
      {Segment(121.5, 178, 501, 178), 2},          // above Come
      {Segment(121.5, 243, 447, 243), 2},          // above the Field
      {Segment(179, 315.5, 447, 315.5), 3},        // above Don't Pass
      {Segment(180, 315.5, 180, 342.5), 2},        // left of it
      {Segment(446, 178, 446, 404), 2},            // the right end
      {Segment(120.7, 256.2, 180.8, 316.3), 2.8},  // the cut corner of the Field
      {Segment(151.2, 286.7, 111.5, 326.4), 2},    // between Big 6 and Big 8
      {Segment(177, 77.5, 499, 77.5), 1},
      {Segment(177, 152.5, 499, 152.5), 1},
  };
  for (int x = 176; x <= 500; x += 54) strokes.push_back({Segment(x, 51, x, 179), 2});
  QPainterPath odds(QPointF(447, 403));
  odds.lineTo(kTurnMiddle.x(), 403);
  odds.arcTo(Around(kTurnMiddle, 117.5), 270, -45);
  odds.lineTo(kTurnMiddle.x() - 64.6, kTurnMiddle.y() + 63.4);
  strokes.push_back({odds, 2});
  return strokes;
}

}  // namespace

QPainterPath OutlineOf(const Region& region) {
  QPainterPath path;
  switch (region.shape) {
    case Shape::PassLineTurn:
      return RingPart(58.5, 89.5, 180, 270);
    case Shape::OddsTurn:
      return RingPart(92.5, 116.5, 225, 270);
    case Shape::FieldCut:
      return Polygon({{123, 244}, {445, 244}, {445, 314}, {180.5, 314}, {123, 256.5}});
    case Shape::Big6:
      return Big6Path();
    case Shape::Big8:
      return Big8Path();
    case Shape::Disc:
      path.addEllipse(RectOf(region.rect));
      return path;
    default:
      path.addRect(RectOf(region.rect));
      return path;
  }
}

QPainterPath SpotOutline(const ScreenTables& g, int spot) {
  int wanted = IsBuy(spot) ? spot - 6 : spot;
  if (spot == Bet::DontPassOdds) wanted = Bet::DontPass;
  if (IsChipStack(spot)) wanted = SlotChipStack + PlaceOfStack(g, spot);
  QPainterPath outline;
  const auto add = [&](std::span<const Region> regions) {
    for (const Region& region : regions) {
      if (region.spot != wanted) continue;
      // Parts of one line overlap by a hair and become one.
      outline = outline.united(OutlineOf(region));
    }
  };
  add(TableRegions());
  add(g.DisplayHopBets ? AlternatePanel() : StandardPanel());
  return outline;
}

void PaintTableLines(QPainter& painter, const Scheme& scheme) {
  for (const Stroke& stroke : TableStrokes())
    PaintLine(painter, scheme, LineColor, stroke.path, stroke.width);
}

}  // namespace rollwick
