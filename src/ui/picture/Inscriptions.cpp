#include "ui/picture/Inscriptions.h"

#include "engine/bets/Payoffs.h"
#include "layout/Anchors.h"
#include "ui/picture/DiceArt.h"
#include "ui/picture/Lines.h"

namespace rollwick {
namespace {

constexpr const char* kBoxNames[6] = {"4", "5", "SIX", "8", "NINE", "10"};
constexpr int kColumnStep = 54;
constexpr int kFieldTwoX = 172;  // the circles around the 2 and the 12, and the numbers between them
constexpr int kFieldStep = 41;
constexpr int kFieldY = 266;
constexpr double kFieldCircle = 14;
constexpr QPoint kFirstOfCAndE{465, 206};
constexpr int kCAndEStep = 30;

// Words that stand where they stand whatever the rules are.
struct Word {
  int spot;
  TableColor ink;
  const char* text;
  QRectF box;
};

// clang-format off
const Word kWords[] = {
    {Bet::PassLine, PassInk, "PASS LINE", {193, 351, 125, 18}},
    {Bet::Come, PassInk, "COME", {221, 194, 133, 31}},
    {Bet::DontPass, DontInk, "DON'T PASS BAR", {224, 321.5, 159, 15}},
    {Bet::DontCome, DontInk, "DON'T", {126, 68, 45, 13}},
    {Bet::DontCome, DontInk, "COME", {126, 86, 45, 13}},
    {Bet::DontCome, DontInk, "BAR", {130, 104, 37, 13}},
    {Bet::Field, FieldInk, "FIELD", {266, 287, 74, 19}},
    {Bet::Field, FieldInk, "3", {kFieldTwoX + kFieldStep - 15, 257, 30, 18}},
    {Bet::Field, FieldInk, "4", {kFieldTwoX + 2 * kFieldStep - 15, 257, 30, 18}},
    {Bet::Field, FieldInk, "9", {kFieldTwoX + 3 * kFieldStep - 15, 257, 30, 18}},
    {Bet::Field, FieldInk, "10", {kFieldTwoX + 4 * kFieldStep - 15, 257, 30, 18}},
    {Bet::Field, FieldInk, "11", {kFieldTwoX + 5 * kFieldStep - 15, 257, 30, 18}},
    {Bet::Field, FieldInk, "2", {kFieldTwoX - 8, 255, 16, 12}},
    {Bet::Field, FieldInk, "12", {kFieldTwoX + 6 * kFieldStep - 10, 255, 20, 12}},
    {Bet::Big6, PlaceInk, "BIG", {116, 273.5, 18, 7}},
    {Bet::Big6, PlaceInk, "6", {117, 283, 15, 19}},
    {Bet::Big8, PlaceInk, "8", {143, 312, 16, 20}},
    {Bet::Big8, PlaceInk, "BIG", {141, 302, 18, 7}},
};
const Word kPropositions[] = {
    {Bet::Seven, PlaceInk, "SEVEN", {541, 110, 88, 18}},
    {Bet::Craps, PlaceInk, "ANY CRAPS", {538, 150, 57, 11}},
    {Bet::World, PlaceInk, "WORLD", {513, 343.5, 27, 7}},
    {Bet::Horn, PlaceInk, "HORN", {565, 351, 38, 14}},
    {Bet::Horn, PlaceInk, "2", {608, 347, 10, 8}},
    {Bet::Horn, PlaceInk, "3", {622, 347, 10, 8}},
    {Bet::Horn, PlaceInk, "11", {608, 361, 10, 8}},
    {Bet::Horn, PlaceInk, "12", {622, 361, 10, 8}},
};
const Word kHops[] = {
    {Bet::Over7, PlaceInk, "OVER 7", {537, 104, 33, 8}},
    {Bet::Under7, PlaceInk, "UNDER 7", {600, 104, 33, 8}},
    {Bet::World, PlaceInk, "WORLD", {516, 331, 53, 12}},
    {Bet::World, PlaceInk, "2 3 7", {538, 349, 33, 8}},
    {Bet::World, PlaceInk, "11 12", {538, 360, 33, 8}},
};
// clang-format on

// The bets of the panels that show two dice.
struct PairPicture {
  BetId bet;
  int face1;
  int face2;
};
constexpr PairPicture kPropPairs[] = {
    {Bet::Hard4, 2, 2}, {Bet::Hard6, 3, 3}, {Bet::Hard8, 4, 4},  {Bet::Hard10, 5, 5},
    {Bet::Two, 1, 1},   {Bet::Three, 1, 2}, {Bet::Eleven, 5, 6}, {Bet::Twelve, 6, 6},
};
constexpr PairPicture kHopPairs[] = {
    {Bet::Hop13, 1, 3}, {Bet::Hop14, 1, 4}, {Bet::Hop15, 1, 5}, {Bet::Hop16, 1, 6}, {Bet::Hop22, 2, 2},
    {Bet::Hop23, 2, 3}, {Bet::Hop24, 2, 4}, {Bet::Hop25, 2, 5}, {Bet::Hop26, 2, 6}, {Bet::Hop33, 3, 3},
    {Bet::Hop34, 3, 4}, {Bet::Hop35, 3, 5}, {Bet::Hop36, 3, 6}, {Bet::Hop44, 4, 4}, {Bet::Hop45, 4, 5},
    {Bet::Hop46, 4, 6}, {Bet::Hop55, 5, 5},
};

std::span<const PairPicture> PairsOnView(const ScreenTables& g) {
  if (g.DisplayHopBets) return kHopPairs;
  return kPropPairs;
}

QRectF CellOf(const ScreenTables& g, BetId bet) {
  for (const Region& region : g.DisplayHopBets ? AlternatePanel() : StandardPanel())
    if (region.spot == bet) return RectOf(region.rect);
  return {};
}

std::vector<Inscription> Printed(std::span<const Word> words, Lettering& letters) {
  std::vector<Inscription> all;
  for (const Word& word : words)
    all.push_back(
        {word.spot, word.ink, letters.Fitted(QString::fromLatin1(word.text), Face::Serif, word.box)});
  return all;
}

Inscription Ratio(Lettering& letters, const PayoffRow& row, int spot, TableColor ink, const QRectF& box) {
  return {spot, ink, letters.Fitted(PrintedRatio(row), Face::Sans, box, 0.55)};
}

void AddUprightWords(std::vector<Inscription>& all, const ScreenTables& g, Lettering& letters) {
  const auto add = [&](int spot, TableColor ink, const char* text, const QRectF& box) {
    all.push_back({spot, ink, letters.Upright(QString::fromLatin1(text), Face::Serif, box)});
  };
  add(Bet::PassLine, PassInk, "PASS LINE", {68, 129, 18, 128});
  add(Bet::DontPass, DontInk, "DON'T PASS BAR", {101, 58, 14, 160});
  add(SpotPanelSwitch, PlaceInk, g.DisplayHopBets ? "PROP BETS" : "HOP BETS", {483.5, 227, 10, 110});
}

void AddNumberBoxes(std::vector<Inscription>& all, const Game& g, Lettering& letters) {
  for (int column = 0; column < 6; ++column) {
    const double middle = 203 + kColumnStep * column;
    const QString name = QString::fromLatin1(kBoxNames[column]);
    const bool spelled = name.size() > 2;
    const BetId lay = Bet::Lay4 + column, place = Bet::Place4 + column;
    all.push_back(
        {Bet::DontCome4Odds + column, PlaceInk,
         letters.Fitted(name, Face::Serif,
                        spelled ? QRectF(middle - 22, 105, 44, 20) : QRectF(middle - 22, 102, 44, 26), 0.6)});
    all.push_back({lay, PlaceInk, letters.Fitted("LAY", Face::Sans, QRectF(middle, 57, 23, 6))});
    all.push_back(Ratio(letters, g.PayoffTable[lay], lay, PlaceInk, {middle - 1, 67, 25, 6}));
    all.push_back({place, PlaceInk, letters.Fitted("PLACE", Face::Sans, QRectF(middle, 157, 23, 6))});
    all.push_back(Ratio(letters, g.PayoffTable[place], place, PlaceInk, {middle - 1, 167, 25, 6}));
  }
}

void AddCAndE(std::vector<Inscription>& all, Lettering& letters) {
  for (int circle = 0; circle < 6; ++circle) {
    const bool isE = circle % 2 == 1;
    const QPointF middle(kFirstOfCAndE.x(), kFirstOfCAndE.y() + kCAndEStep * circle);
    const QRectF box(middle - QPointF(5.5, 5.5), QSizeF(11, 11));
    all.push_back({Bet::CAndE, isE ? PlaceInk : PassInk, letters.Fitted(isE ? "E" : "C", Face::Serif, box)});
  }
}

QRectF FieldCircle(bool isTwelve) {
  const QPointF middle(kFieldTwoX + (isTwelve ? 6 * kFieldStep : 0), kFieldY);
  return QRectF(middle - QPointF(kFieldCircle, kFieldCircle), QSizeF(2 * kFieldCircle, 2 * kFieldCircle));
}

Inscription FieldPays(const Game& g, Lettering& letters, bool isTwelve) {
  const PayoffRow& row =
      g.FieldPayoffTable[static_cast<std::size_t>(isTwelve ? FieldIndex(6, 6) : FieldIndex(1, 1))];
  const QRectF box(FieldCircle(isTwelve).center() + QPointF(-9, 3.8), QSizeF(18, 5));
  if (row.Ratio < Money()) return {Bet::Field, FieldInk, letters.Fitted("LOSES", Face::Sans, box)};
  return Ratio(letters, row, Bet::Field, FieldInk, box);
}

void PaintGrid(QPainter& painter, const Scheme& scheme, std::initializer_list<QLineF> lines, double width) {
  for (const QLineF& line : lines) {
    QPainterPath path(line.p1());
    path.lineTo(line.p2());
    PaintLine(painter, scheme, LineColor, path, width);
  }
}

void PaintFrame(QPainter& painter, const Scheme& scheme, double top, double bottom) {
  QPainterPath frame;
  frame.addRect(QRectF(QPointF(511, top), QPointF(636, bottom)));
  PaintLine(painter, scheme, LineColor, frame, 2);
}

// Thin rings show where the chips of the panel's bets are put.
void PaintChipPlaces(QPainter& painter, const ScreenTables& g, const Scheme& scheme) {
  QColor color = scheme[LineColor];
  color.setAlphaF(0.35f);
  painter.setPen(QPen(color, 0.8));
  painter.setBrush(Qt::NoBrush);
  for (const Region& region : g.DisplayHopBets ? AlternatePanel() : StandardPanel()) {
    const PicturePoint at = *AnchorOf(g, region.spot);
    painter.drawEllipse(QPointF(at.x, at.y), 9.5, 9.5);
  }
}

}  // namespace

QString PrintedRatio(const PayoffRow& row) {
  return QString::fromStdString(RatioText(row)).toUpper();
}

std::vector<Inscription> TableInscriptions(const Game& g, Lettering& letters) {
  std::vector<Inscription> all = Printed(kWords, letters);
  AddUprightWords(all, g, letters);
  AddNumberBoxes(all, g, letters);
  AddCAndE(all, letters);
  all.push_back({Bet::PassLine, PassInk, letters.Curved("PASS LINE", Face::Serif, 14, kTurnMiddle, 74, 135)});
  all.push_back(FieldPays(g, letters, false));
  all.push_back(FieldPays(g, letters, true));
  return all;
}

std::vector<Inscription> PanelInscriptions(const Game& g, Lettering& letters) {
  const auto pays = [&](BetId bet, const QRectF& box) {
    return Ratio(letters, g.PayoffTable[bet], bet, PlaceInk, box);
  };
  std::vector<Inscription> all = g.DisplayHopBets ? Printed(kHops, letters) : Printed(kPropositions, letters);
  for (const PairPicture& pair : PairsOnView(g)) {
    const QRectF cell = CellOf(g, pair.bet);
    all.push_back(pays(pair.bet, g.DisplayHopBets ? QRectF(cell.x() + 25, cell.y() + 16, 33, 6)
                                                  : QRectF(cell.x() + 24, cell.y() + 25, 34, 8)));
  }
  if (g.DisplayHopBets) {
    all.push_back(pays(Bet::Over7, {537, 116, 33, 6}));
    all.push_back(pays(Bet::Under7, {600, 116, 33, 6}));
  } else {
    all.push_back(pays(Bet::Seven, {555, 133, 60, 8}));
    all.push_back(pays(Bet::Craps, {601, 151, 28, 8}));
  }
  return all;
}

void PaintTableFigures(QPainter& painter, const Game& g, const Scheme& scheme) {
  for (int circle = 0; circle < 6; ++circle) {
    QPainterPath ring;
    ring.addEllipse(QPointF(kFirstOfCAndE.x(), kFirstOfCAndE.y() + kCAndEStep * circle), 9, 9);
    PaintLine(painter, scheme, LineColor, ring, 1.4);
  }
  for (const bool isTwelve : {false, true}) {
    QPainterPath ring;
    ring.addEllipse(FieldCircle(isTwelve).adjusted(0.6, 0.6, -0.6, -0.6));
    PaintLine(painter, scheme, LineColor, ring, 1.2);
  }
  QPainterPath strip;
  strip.addRoundedRect(QRectF(480.8, 180.8, 16.4, 192.4), 4, 4);
  painter.fillPath(strip, QColor(255, 255, 255, 22));
  PaintLine(painter, scheme, LineColor, strip, 1.2);
  const int face = g.Rules.BarNumber == 2 ? 1 : 6;
  for (const QPointF at : {QPointF(134, 127), QPointF(150, 127), QPointF(389, 323), QPointF(405, 323),
                           QPointF(102, 224), QPointF(102, 240)})
    PaintPrintedDie(painter, scheme, at, 12, face);
}

void PaintPanelFigures(QPainter& painter, const Game& g, const Scheme& scheme) {
  PaintChipPlaces(painter, g, scheme);
  PaintFrame(painter, scheme, g.DisplayHopBets ? 100 : 106, g.DisplayHopBets ? 373 : 374);
  if (g.DisplayHopBets) {
    PaintGrid(painter, scheme, {{574, 101, 574, 372}}, 2);
    for (int row = 1; row <= 9; ++row) {
      const double y = 100.5 + 25 * row;
      PaintGrid(painter, scheme, {{512, y, 635, y}}, 1);
    }
    PaintGrid(painter, scheme, {{575, 350.5, 635, 350.5}}, 1);
  } else {
    PaintGrid(painter, scheme,
              {{512, 146, 635, 146},
               {512, 185, 635, 185},
               {512, 224, 635, 224},
               {512, 263, 635, 263},
               {512, 302, 635, 302},
               {512, 341, 635, 341},
               {574, 186, 574, 340},
               {542, 342, 542, 373}},
              2);
    for (const PairPicture pair : {PairPicture{0, 1, 1}, PairPicture{0, 1, 2}, PairPicture{0, 6, 6}})
      PaintPrintedPair(painter, scheme, QPointF(555 + 28 * (pair.face2 / 2 - pair.face2 / 6), 174), 10.5,
                       pair.face1, pair.face2);
  }
  for (const PairPicture& pair : PairsOnView(g)) {
    const QRectF cell = CellOf(g, pair.bet);
    const double size = g.DisplayHopBets ? 11.5 : 17;
    const QPointF middle(cell.x() + 41, cell.y() + (g.DisplayHopBets ? 8.5 : 13));
    PaintPrintedPair(painter, scheme, middle, size, pair.face1, pair.face2);
  }
}

}  // namespace rollwick
