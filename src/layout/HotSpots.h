// What is under the pointer: from the window's coordinates to the picture's, from there to the spot.
#pragma once

#include "layout/Anchors.h"

namespace rollwick {

// The spot that has this pixel of the picture: a bet, a Chip-Stack's slot, 88 to 94, or 0.
int LocateHotSpot(const GameTables& g, const KeyPicture& keys, int X, int Y);

struct Pointer {
  int HotSpot = SpotNone;           // what the pointer is over
  int HotSpotCandidate = SpotNone;  // what its last move found
  Money AmountShown;                // of HotSpot, when it was taken
};
// Takes a move of the pointer; true when the spot is to be shown anew, which is so when it changed or its
// amount did. Hyper-Drive leaves all as it was.
bool MovePointer(const GameTables& g, const KeyPicture& keys, Pointer& pointer, int X, int Y);

// BetUnderPointer: a hot spot that can hold money, else 0.
constexpr BetId BetUnder(int hotSpot) {
  return IsBet(hotSpot) || IsChipStack(hotSpot) ? hotSpot : SpotNone;
}

// What is taken down where `spot` is clicked: Don't Pass itself while it has no odds.
BetId SpotToTakeDown(const BetTables& g, int spot);

// Of a Place or Buy bet the one that its box answers with; any other spot is itself.
BetId BoxAnswer(const BetTables& g, BetId spot);

// How the picture stands in its widget: one scale for both directions, in the middle.
struct PictureFrame {
  double left = 0;
  double top = 0;
  double scale = 1;  // 0.75 to 4
};
PictureFrame FitPicture(double widgetWidth, double widgetHeight);
// The pixel of the picture at a point of the widget; far away it is a point just outside.
PicturePoint ToPicture(const PictureFrame& frame, double x, double y);
// The middle of a pixel in the widget's coordinates.
struct WidgetPoint {
  double x = 0;
  double y = 0;
};
WidgetPoint ToWidget(const PictureFrame& frame, PicturePoint point);

}  // namespace rollwick
