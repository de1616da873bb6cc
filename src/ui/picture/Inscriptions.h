// What is printed on the felt: which words stand where, and the payoffs as the house has them now.
#pragma once

#include <QPainter>
#include <QPainterPath>
#include <vector>

#include "engine/state/Game.h"
#include "ui/picture/Lettering.h"
#include "ui/picture/Scheme.h"

namespace rollwick {

struct Inscription {
  int spot;  // the spot it belongs to and lies in
  TableColor ink;
  QPainterPath letters;
};

// Words and payoffs outside the panel.
std::vector<Inscription> TableInscriptions(const Game& g, Lettering& letters);
// Those of the panel on view.
std::vector<Inscription> PanelInscriptions(const Game& g, Lettering& letters);

// "9 TO 1" or "10 FOR 1", as a layout prints it.
QString PrintedRatio(const PayoffRow& row);

// Circles, dice pictures and the panel's lines, which have no letters.
void PaintTableFigures(QPainter& painter, const Game& g, const Scheme& scheme);
void PaintPanelFigures(QPainter& painter, const Game& g, const Scheme& scheme);

}  // namespace rollwick
