// The table of anchors and what follows from it and from what is on view.
#include "layout/Anchors.h"

#include <algorithm>

namespace rollwick {
namespace {

// The middle of a number's boxes, 4 to 10, and of the bets on it, row by row as the ids run.
constexpr int kBoxX[6] = {189, 243, 297, 351, 405, 459};
constexpr int kBoxY[7] = {65, 90, 99, 140, 131, 165, 165};
constexpr int kDontComeHotY = 84;

// clang-format off
constexpr PicturePoint kAnchors[] = {  // from the Pass Line on
    {354, 360}, {354, 387}, {354, 210}, {354, 329}, {327, 329}, {135, 165},  // lines, Come, their odds
    {354, 297}, {104, 287}, {130, 328},                                      // Field, Big 6, Big 8
    {524, 204}, {587, 204}, {587, 243}, {524, 243},                          // Hard 4, 6, 8, 10
    {587, 282}, {524, 282}, {524, 126}, {524, 321}, {587, 321},              // Two, Three, Seven, Eleven, Twelve
    {524, 165}, {463, 356}, {553, 360}, {524, 360},                          // Craps, C and E, Horn, World
    {524, 113}, {587, 113},                                                  // Over 7, Under 7
    {524, 138}, {524, 188}, {587, 138}, {587, 213},                          // hops 1-3 to 1-6
    {524, 163}, {524, 213}, {587, 188}, {587, 238}, {587, 313},              // 2-2 to 2-6
    {587, 163}, {587, 263}, {587, 338}, {524, 238},                          // 3-3 to 3-6
    {587, 288}, {524, 263}, {524, 313}, {524, 288},                          // 4-4 to 4-6, 5-5
};
// clang-format on
static_assert(std::size(kAnchors) == kBetCount - Bet::Buy10);

PicturePoint BetAnchor(BetId bet) {
  if (bet > Bet::Buy10) return kAnchors[bet - Bet::PassLine];
  return {kBoxX[(bet - 1) % 6], kBoxY[(bet - 1) / 6]};
}

}  // namespace

BetId StackAtPlace(const ScreenTables& g, int place) {
  return SlotChipStack + g.VisibleChipStack[static_cast<std::size_t>(place - 1)];
}

int PlaceOfStack(const ScreenTables& g, BetId stack) {
  for (int place = 1; place <= kStackPlaces; ++place)
    if (StackAtPlace(g, place) == stack) return place;
  return 0;
}

PicturePoint PlaceAnchor(int place) {
  return {16, 268 - 51 * place};
}

std::optional<PicturePoint> AnchorOf(const ScreenTables& g, int spot) {
  if (IsBet(spot)) return BetAnchor(spot);
  if (spot == SlotRail) return PicturePoint{330, 422};
  if (const int place = PlaceOfStack(g, spot); place > 0) return PlaceAnchor(place);
  return {};
}

std::optional<PicturePoint> HotPointOf(const ScreenTables& g, int spot) {
  auto point = AnchorOf(g, spot);
  if (IsDontComeNumber(spot)) point->y = kDontComeHotY;
  return point;
}

bool IsOnView(const ScreenTables& g, int spot) {
  if (!IsBet(spot)) return PlaceOfStack(g, spot) > 0;
  if (spot >= Bet::Over7) return g.DisplayHopBets;
  const bool isStandard = (spot >= Bet::Hard4 && spot <= Bet::Craps) || spot == Bet::Horn;
  return !isStandard || !g.DisplayHopBets;
}

std::vector<BetId> SpotsOnView(const ScreenTables& g) {
  std::vector<BetId> spots;
  for (BetId spot = 1; spot <= SlotLastChipStack; ++spot)
    if (IsOnView(g, spot)) spots.push_back(spot);
  return spots;
}

PicturePoint PuckAnchor(int point) {
  if (!IsBoxNumber(point)) return {149, 36};
  return {203 + 54 * BoxPlace(point), 36};
}

}  // namespace rollwick
