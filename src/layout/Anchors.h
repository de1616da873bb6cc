// Where chips, amounts and the key-in box of a spot are drawn (anchor), and where pointer and focus go (hot
// point).
#pragma once

#include <optional>
#include <vector>

#include "engine/state/Game.h"
#include "layout/Regions.h"

namespace rollwick {

inline constexpr int kStackPlaces = 4;

// The slot of the Chip-Stack that lies at place 1 to 4, counted upward from the lowest.
BetId StackAtPlace(const ScreenTables& g, int place);
// The place at which a Chip-Stack lies; 0 when it is not on the table.
int PlaceOfStack(const ScreenTables& g, BetId stack);
PicturePoint PlaceAnchor(int place);

// BetX and BetY of a bet, a Chip-Stack on the table or the rail; nothing for other spots.
std::optional<PicturePoint> AnchorOf(const ScreenTables& g, int spot);

// The anchor, but for Don't Come on a number, whose chips lie on the edge to its odds.
std::optional<PicturePoint> HotPointOf(const ScreenTables& g, int spot);

// Whether a bet or Chip-Stack can be seen: propositions and hop bets share the panel.
bool IsOnView(const ScreenTables& g, int spot);

// Bets and Chip-Stacks on view, ids ascending: where the keyboard stops.
std::vector<BetId> SpotsOnView(const ScreenTables& g);

// The middle of the puck, which lies OFF (no point) or above the box of the point.
PicturePoint PuckAnchor(int point);

}  // namespace rollwick
