// Steps of the keyboard cursor over the spots on view.
#include "layout/SpotCursor.h"

#include <algorithm>
#include <cstdlib>

#include "layout/HotSpots.h"

namespace rollwick {
namespace {

BetId NextId(const std::vector<BetId>& spots, int spot) {
  const auto next = std::ranges::upper_bound(spots, spot);
  return next == spots.end() ? spots.front() : *next;
}

BetId PreviousId(const std::vector<BetId>& spots, int spot) {
  const auto next = std::ranges::lower_bound(spots, spot);
  return next == spots.begin() ? spots.back() : *(next - 1);
}

PicturePoint DirectionOf(CursorKey key) {
  switch (key) {
    case CursorKey::Left:
      return {-1, 0};
    case CursorKey::Right:
      return {1, 0};
    case CursorKey::Up:
      return {0, -1};
    default:
      return {0, 1};
  }
}

// Columns are the six numbers, rows the seven kinds of bets on them.
BetId StepOnNumbers(BetId spot, PicturePoint direction) {
  const int column = std::clamp((spot - 1) % 6 + direction.x, 0, 5);
  const int row = std::clamp((spot - 1) / 6 + direction.y, 0, 6);
  return row * 6 + column + 1;
}

// Direction means more that way than to either side.
BetId NearestSpot(const GameTables& g, int spot, PicturePoint from, PicturePoint direction) {
  BetId nearest = spot;
  int least = kPictureWidth * kPictureWidth + kPictureHeight * kPictureHeight;
  for (const BetId other : SpotsOnView(g)) {
    const PicturePoint at = *HotPointOf(g, other);
    const int dx = at.x - from.x;
    const int dy = at.y - from.y;
    const int along = dx * direction.x + dy * direction.y;
    const int sideways = std::abs(dx * direction.y + dy * direction.x);
    const int distance = dx * dx + dy * dy;
    if (along <= 0 || sideways > along || distance >= least) continue;
    nearest = other;
    least = distance;
  }
  return BoxAnswer(g, nearest);
}

}  // namespace

BetId NextSpot(const GameTables& g, int spot, CursorKey key) {
  if (key == CursorKey::Tab) return NextId(SpotsOnView(g), spot);
  if (key == CursorKey::BackTab) return PreviousId(SpotsOnView(g), spot);
  const PicturePoint direction = DirectionOf(key);
  if (spot >= Bet::Lay4 && spot <= Bet::Buy10) return StepOnNumbers(spot, direction);
  if (!IsOnView(g, spot)) return Bet::PassLine;
  return NearestSpot(g, spot, *HotPointOf(g, spot), direction);
}

}  // namespace rollwick
