// Tables to be painted, and the painting of them.
#pragma once

#include <QImage>
#include <QPainter>
#include <iterator>

#include "ui/picture/TablePicture.h"

namespace rollwick {

struct PaintedTable {
  Game g;
  TableView view;
  TablePicture picture;

  PaintedTable() {
    SetStartUpDefaults(g);
    view.dice = {DicePose{657, 35, 0, 0, 3}, DicePose{715, 35, 0, 0, 4}};
  }

  // The picture alone, `scale` pixels to a unit; a screen of `pixelRatio` makes that many more.
  QImage Shot(double scale = 1, double pixelRatio = 1) {
    QImage image(static_cast<int>(kPictureWidth * scale * pixelRatio),
                 static_cast<int>(kPictureHeight * scale * pixelRatio), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    image.setDevicePixelRatio(pixelRatio);
    QPainter painter(&image);
    picture.Paint(painter, g, view, {0, 0, scale}, pixelRatio, kPictureWidth * scale, kPictureHeight * scale);
    return image;
  }

  void Put(BetId bet, std::int64_t dollars) {
    g.BetAmount[static_cast<std::size_t>(bet)] = Dollars(dollars);
    if (IsBet(bet)) g.TotalBets += Dollars(dollars);
  }
};

// A game in full swing: point 8, most kinds of bets, buttons, odds, a bought number, stacks put aside.
inline void MakeBusy(PaintedTable& table) {
  Game& g = table.g;
  constexpr struct {
    BetId bet;
    int dollars;
  } kBets[] = {
      {Bet::PassLine, 15},     {Bet::PassLineOdds, 30},  {Bet::DontPass, 10},
      {Bet::DontPassOdds, 12}, {Bet::Come, 10},          {Bet::Come6, 10},
      {Bet::Come6Odds, 25},    {Bet::Come9, 15},         {Bet::Come9Odds, 30},
      {Bet::DontCome4, 25},    {Bet::DontCome4Odds, 50}, {Bet::DontCome, 5},
      {Bet::Lay5, 60},         {Bet::Lay10, 1240},       {Bet::Place5, 10},
      {Bet::Place6, 12},       {Bet::Place8, 618},       {Bet::Buy4, 20},
      {Bet::Buy10, 130},       {Bet::Place4, 5},         {Bet::Field, 7},
      {Bet::Big6, 6},          {Bet::Big8, 6},           {Bet::CAndE, 4},
      {Bet::Seven, 3},         {Bet::Craps, 1},          {Bet::Hard4, 2},
      {Bet::Hard6, 5},         {Bet::Hard8, 25},         {Bet::Hard10, 1},
      {Bet::Two, 1},           {Bet::Twelve, 100},       {Bet::Eleven, 5},
      {Bet::World, 5},         {Bet::Horn, 8},           {Bet::Hop22, 1},
      {Bet::Hop46, 4},         {SlotChipStack + 1, 250}, {SlotChipStack + 2, 36},
      {SlotChipStack + 4, 7},
  };
  g.BetAmount[SlotBankroll] = Dollars(6789);
  for (const auto& [bet, dollars] : kBets) table.Put(bet, dollars);
  g.Point = 8;
  g.DisplayBetAmounts = true;
  g.SelectedChip = 1;
  for (const BetId bet : {Bet::Place5, Bet::Buy4, Bet::Hard8}) SetBetWorking(g, bet, CalledOn);
  for (const BetId bet : {Bet::Place6, Bet::Come9Odds, Bet::Hard4}) SetBetWorking(g, bet, CalledOff);
}

// The six table colours and the texture of every scheme.
struct NamedScheme {
  const char* name;
  std::array<std::int32_t, kTableColorCount> colors;
  float texture;
};
// clang-format off
inline constexpr NamedScheme kSchemes[] = {
    {"green", {0x4A781B, 0xFFFFFF, 0x77BBFF, 0x000000, 0xFFFFFF, 0xFFFFFF, 0x0000FF, 0xFFFFFF}, 8},
    {"black-light", {0x000000, 0xFF00FF, 0x8600FF, 0x3F0077, 0x6B00CC, 0xFF0000, 0x0000FF, 0x000000}, 6},
    {"night-lights", {0x000000, 0x11FFFF, 0xFFFF55, 0xFF1111, 0x0000FF, 0x00FF00, 0x0000FF, 0xFFFFFF}, 0},
    {"woodgrain", {0x66B3FF, 0x001A33, 0x000077, 0x000000, 0x11FFFF, 0x0055AA, 0x000000, 0xFFFFFF}, 6},
    {"orange-fizz", {0x1188FF, 0x1111FF, 0x8600FF, 0x990099, 0x77BBFF, 0x00FFFF, 0x0000FF, 0xFFFFFF}, 0},
    {"blue-velvet", {0xBB6700, 0x000000, 0x0000DD, 0x000000, 0xEEEE00, 0x00E8EE, 0x0000FF, 0xFFFFFF}, 8},
};
// clang-format on

}  // namespace rollwick
