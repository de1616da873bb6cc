// The regions of the table picture, 768 by 440 units with the origin at the left top, and the key picture in
// which the hit test (HotSpots.h) looks up what has no rectangle of its own.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/state/Bets.h"

namespace rollwick {

inline constexpr int kPictureWidth = 768;
inline constexpr int kPictureHeight = 440;

// Ids of what is no bet and no Chip-Stack; the rail is SlotRail.
enum : int {
  SpotNone = 0,
  SpotDiceFile = 88,
  SpotOn,
  SpotOff,
  SpotBuy,
  SpotTools = 92,
  SpotPanelSwitch = 94
};

struct PicturePoint {
  int x = 0;
  int y = 0;
  friend bool operator==(const PicturePoint&, const PicturePoint&) = default;
};

// All pixels from the left top one on.
struct PictureRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  constexpr bool Contains(int px, int py) const {
    return px >= x && px < x + width && py >= y && py < y + height;
  }
};

// The colours of the key picture. One colour names a bet of the standard panel and a spot outside of it.
enum class Key : std::uint8_t { Neutral, A, B, C, D, E, F, G, H, I, J, K, L, Rail, Tools };
inline constexpr int kKeyCount = 14;

// Which pixels of its rectangle a region has.
enum class Shape : std::uint8_t {
  Whole,
  PassLineTurn,  // a quarter of a ring around kTurnCentre
  OddsTurn,      // an eighth of a ring, from the bottom to half way up
  FieldCut,      // without the left bottom corner, which Big 6 and Big 8 cut off
  Big6,          // between the Field and the turn, above Big 8
  Big8,
  Disc,
  Rail,  // around the felt and the Chip-Stacks
};

struct Region {
  int spot = SpotNone;
  Key key = Key::Neutral;
  PictureRect rect;
  Shape shape = Shape::Whole;
};

// The centre of the bottom left turn of the lines.
inline constexpr PicturePoint kTurnCentre = {151, 285};

// What stands outside the panel. Chip-Stacks by place, as 101 to 104. Buy bets share the regions of the Place
// bets, the Don't Pass Odds those of Don't Pass.
std::span<const Region> TableRegions();
// The panel in its two states: the propositions, the hop bets.
std::span<const Region> StandardPanel();
std::span<const Region> AlternatePanel();

// Where a dice file in use shows itself and is stopped.
inline constexpr PictureRect kDiceFileRect = {453, 376, 51, 26};
// Here only the panel answers, and what misses its bets is nothing. It has no right edge.
constexpr bool IsPanelArea(int x, int y) {
  return x > 500 && y > 100 && y < 404;
}

bool Covers(const Region& region, int x, int y);
// Where the felt lies, with its round inner corners.
bool IsFelt(int x, int y);
// The region of these that has the pixel; null when none has.
const Region* RegionAt(std::span<const Region> regions, int x, int y);

// What the tool strip (SpotTools) holds, in the order in which it is tested.
enum class Tool { None, Dice, Roll, Chip99, Chip98, Chip97, Chip96, Chip95, Remove, Down, KeyIn, Selected };
struct ToolRegion {
  Tool tool;
  PictureRect rect;
};
inline constexpr std::array<ToolRegion, 11> kTools = {{
    {Tool::Dice, {608, 4, 156, 62}},
    {Tool::Roll, {608, 70, 156, 22}},
    {Tool::Chip99, {646, 118, 119, 40}},  // the highest denomination
    {Tool::Chip98, {646, 161, 119, 40}},
    {Tool::Chip97, {646, 204, 119, 40}},
    {Tool::Chip96, {646, 247, 119, 40}},
    {Tool::Chip95, {646, 290, 119, 40}},
    {Tool::Remove, {646, 354, 38, 20}},
    {Tool::Down, {686, 354, 38, 20}},
    {Tool::KeyIn, {726, 354, 38, 20}},
    {Tool::Selected, {608, 382, 156, 52}},
}};
Tool ToolAt(int x, int y);

// picLayoutBack: the standard panel and the table in colours, never shown.
class KeyPicture {
 public:
  // All neutral.
  KeyPicture() : pixels_(static_cast<std::size_t>(kPictureWidth) * kPictureHeight) {}
  // Neutral outside the picture.
  Key At(int x, int y) const;
  void Paint(const Region& region);

 private:
  std::vector<Key> pixels_;
};

KeyPicture DrawKeyPicture();

// Where every key colour must stand: the anchors of bets of the standard panel, a point of the rail, one of
// the tools.
struct KeySample {
  Key key;
  PicturePoint at;
};
std::span<const KeySample> KeySamples();
// Whether the picture has every key at its sample, and L on C and E too, which shares it with World.
bool ColourKeysStand(const KeyPicture& picture);

}  // namespace rollwick
