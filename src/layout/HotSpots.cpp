// The hit test: rules in their order, the first that matches wins.
#include "layout/HotSpots.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace rollwick {
namespace {

// The standard panel goes by colour, for the same colours mean other spots outside of it.
int LocateInPanel(const GameTables& g, Key key, int x, int y) {
  if (g.DisplayHopBets) {
    const Region* region = RegionAt(AlternatePanel(), x, y);
    return region ? region->spot : SpotNone;
  }
  constexpr int kSpots[] = {SpotNone,    Bet::Seven, Bet::Craps, Bet::Hard4,  Bet::Hard10,
                            Bet::Hard6,  Bet::Hard8, Bet::Three, Bet::Eleven, Bet::Two,
                            Bet::Twelve, Bet::Horn,  Bet::World, SpotNone,    SpotNone};
  static_assert(std::size(kSpots) == kKeyCount + 1);
  return kSpots[static_cast<int>(key)];
}

int SpotOfTableKey(Key key) {
  constexpr int kSpots[] = {SpotNone,        Bet::PassLine, SpotOff,    Bet::Big6,         SpotNone,
                            Bet::Come,       SpotBuy,       Bet::Field, Bet::PassLineOdds, Bet::Big8,
                            SpotPanelSwitch, SpotOn,        Bet::CAndE, SlotRail,          SpotTools};
  static_assert(std::size(kSpots) == kKeyCount + 1);
  return kSpots[static_cast<int>(key)];
}

// The spots found by their rectangles: the Don't bets and the numbers.
int LocateByRectangle(const GameTables& g, int x, int y) {
  const Region* region = RegionAt(TableRegions(), x, y);
  if (region == nullptr || region->key != Key::Neutral) return SpotNone;
  if (region->spot != Bet::DontPass) return BoxAnswer(g, region->spot);
  return g.BetAmount[Bet::DontPass] != Money() && g.Point != 0 ? Bet::DontPassOdds : Bet::DontPass;
}

Money AmountOf(const GameTables& g, int spot) {
  return BetUnder(spot) != SpotNone ? g.BetAmount[BetUnder(spot)] : Money();
}

}  // namespace

int LocateHotSpot(const GameTables& g, const KeyPicture& keys, int X, int Y) {
  for (int place = 1; place <= kStackPlaces; ++place)  // they stand first in the table
    if (TableRegions()[static_cast<std::size_t>(place - 1)].rect.Contains(X, Y))
      return StackAtPlace(g, place);
  const Key key = keys.At(X, Y);
  if (key == Key::Tools) return SpotTools;
  if (key == Key::Rail) return SlotRail;
  if (g.DiceFileMode != DiceFileOff && kDiceFileRect.Contains(X, Y)) return SpotDiceFile;
  if (IsPanelArea(X, Y)) return LocateInPanel(g, key, X, Y);
  // The key picture is neutral under all rectangles, so colours and rectangles never meet.
  if (key != Key::Neutral) return SpotOfTableKey(key);
  return LocateByRectangle(g, X, Y);
}

bool MovePointer(const GameTables& g, const KeyPicture& keys, Pointer& pointer, int X, int Y) {
  if (g.HyperDriveActive) return false;
  const int spot = LocateHotSpot(g, keys, X, Y);
  // The tool corner shows the chip in hand, which must follow at once.
  const bool isToolCorner = spot == SpotTools && Y > 374;
  const bool changed = spot != pointer.HotSpot || AmountOf(g, spot) != pointer.AmountShown;
  pointer.HotSpotCandidate = spot;
  if (!changed && !isToolCorner) return false;
  pointer.HotSpot = spot;
  pointer.AmountShown = AmountOf(g, spot);
  return true;
}

BetId SpotToTakeDown(const BetTables& g, int spot) {
  if (spot == Bet::DontPassOdds && g.BetAmount[Bet::DontPassOdds] == Money()) return Bet::DontPass;
  return BetUnder(spot);
}

BetId BoxAnswer(const BetTables& g, BetId spot) {
  if (!IsPlace(spot) && !IsBuy(spot)) return spot;
  const int number = NumberOf(spot);
  return g.BetAmount[BuyOn(number)] != Money() ? BuyOn(number) : PlaceOn(number);
}

PictureFrame FitPicture(double widgetWidth, double widgetHeight) {
  const double scale =
      std::clamp(std::min(widgetWidth / kPictureWidth, widgetHeight / kPictureHeight), 0.75, 4.0);
  return {(widgetWidth - scale * kPictureWidth) / 2, (widgetHeight - scale * kPictureHeight) / 2, scale};
}

PicturePoint ToPicture(const PictureFrame& frame, double x, double y) {
  const auto pixel = [&](double at, int outside) {
    return static_cast<int>(std::fmax(-1, std::fmin(std::floor(at / frame.scale), outside)));
  };
  return {pixel(x - frame.left, kPictureWidth), pixel(y - frame.top, kPictureHeight)};
}

WidgetPoint ToWidget(const PictureFrame& frame, PicturePoint point) {
  return {frame.left + (point.x + 0.5) * frame.scale, frame.top + (point.y + 0.5) * frame.scale};
}

}  // namespace rollwick
