// The tables of the picture's regions and the drawing of the key picture, pixel by pixel, nothing smoothed.
#include "layout/Regions.h"

#include <algorithm>

namespace rollwick {
namespace {

// clang-format off
constexpr auto kFixedRegions = std::to_array<Region>({
    {SlotChipStack + 1, Key::Rail, {4, 182, 24, 47}},
    {SlotChipStack + 2, Key::Rail, {4, 131, 24, 47}},
    {SlotChipStack + 3, Key::Rail, {4, 80, 24, 47}},
    {SlotChipStack + 4, Key::Rail, {4, 29, 24, 47}},
    {Bet::PassLine, Key::A, {62, 53, 31, 233}},
    {Bet::PassLine, Key::A, {62, 286, 89, 89}, Shape::PassLineTurn},
    {Bet::PassLine, Key::A, {151, 344, 294, 31}},
    {Bet::PassLineOdds, Key::H, {151, 378, 294, 24}},
    {Bet::PassLineOdds, Key::H, {62, 286, 89, 116}, Shape::OddsTurn},
    {Bet::Come, Key::E, {123, 179, 322, 63}},
    {Bet::DontPass, Key::Neutral, {96, 53, 24, 204}},
    {Bet::DontPass, Key::Neutral, {181, 317, 264, 24}},
    {Bet::DontCome, Key::Neutral, {123, 53, 52, 124}},
    {Bet::Field, Key::G, {123, 244, 322, 70}, Shape::FieldCut},
    {Bet::Big6, Key::C, {96, 259, 83, 82}, Shape::Big6},
    {Bet::Big8, Key::I, {96, 259, 83, 82}, Shape::Big8},
    {Bet::CAndE, Key::L, {451, 180, 27, 194}},
    {SpotPanelSwitch, Key::J, {480, 180, 18, 194}},
    {SpotOn, Key::K, {512, 58, 27, 27}, Shape::Disc},
    {SpotOff, Key::B, {542, 58, 27, 27}, Shape::Disc},
    {SpotBuy, Key::F, {572, 58, 27, 27}, Shape::Disc},
    {SlotRail, Key::Rail, {0, 0, 602, 440}, Shape::Rail},
    {SpotTools, Key::Tools, {604, 0, 164, 96}},
    {SpotTools, Key::Tools, {641, 96, 127, 282}},
    {SpotTools, Key::Tools, {604, 378, 164, 62}},
});

constexpr auto kStandardPanel = std::to_array<Region>({
    {Bet::Seven,  Key::A, {512, 107, 123, 38}},
    {Bet::Craps,  Key::B, {512, 147, 123, 37}},
    {Bet::Hard4,  Key::C, {512, 186, 61, 37}}, {Bet::Hard6,  Key::E, {575, 186, 60, 37}},
    {Bet::Hard10, Key::D, {512, 225, 61, 37}}, {Bet::Hard8,  Key::F, {575, 225, 60, 37}},
    {Bet::Three,  Key::G, {512, 264, 61, 37}}, {Bet::Two,    Key::I, {575, 264, 60, 37}},
    {Bet::Eleven, Key::H, {512, 303, 61, 37}}, {Bet::Twelve, Key::J, {575, 303, 60, 37}},
    {Bet::World,  Key::L, {512, 342, 29, 31}}, {Bet::Horn,   Key::K, {543, 342, 92, 31}},
});

// Totals 4, 5, 9 and 10 at the left, 6, 7 and 8 at the right. Hops of 2, 3, 11 and 12 are the propositions.
constexpr auto kAlternatePanel = std::to_array<Region>({
    {Bet::Over7, {}, {512, 101, 61, 24}}, {Bet::Under7, {}, {575, 101, 60, 24}},
    {Bet::Hop13, {}, {512, 126, 61, 24}}, {Bet::Hop15,  {}, {575, 126, 60, 24}},
    {Bet::Hop22, {}, {512, 151, 61, 24}}, {Bet::Hop33,  {}, {575, 151, 60, 24}},
    {Bet::Hop14, {}, {512, 176, 61, 24}}, {Bet::Hop24,  {}, {575, 176, 60, 24}},
    {Bet::Hop23, {}, {512, 201, 61, 24}}, {Bet::Hop16,  {}, {575, 201, 60, 24}},
    {Bet::Hop36, {}, {512, 226, 61, 24}}, {Bet::Hop25,  {}, {575, 226, 60, 24}},
    {Bet::Hop45, {}, {512, 251, 61, 24}}, {Bet::Hop34,  {}, {575, 251, 60, 24}},
    {Bet::Hop55, {}, {512, 276, 61, 24}}, {Bet::Hop44,  {}, {575, 276, 60, 24}},
    {Bet::Hop46, {}, {512, 301, 61, 24}}, {Bet::Hop26,  {}, {575, 301, 60, 24}},
    {Bet::World, {}, {512, 326, 61, 46}}, {Bet::Hop35,  {}, {575, 326, 60, 24}},
});

constexpr auto kKeySamples = std::to_array<KeySample>({
    {Key::A, {524, 126}}, {Key::B, {524, 165}}, {Key::C, {524, 204}}, {Key::D, {524, 243}},
    {Key::E, {587, 204}}, {Key::F, {587, 243}}, {Key::G, {524, 282}}, {Key::H, {524, 321}},
    {Key::I, {587, 282}}, {Key::J, {587, 321}}, {Key::K, {553, 360}}, {Key::L, {524, 360}},
    {Key::Rail, {10, 10}}, {Key::Tools, {620, 18}},
});
static_assert(kKeySamples.size() == kKeyCount);

// The rows of every number box from the top; the columns are 54 apart, with a gap of two.
constexpr struct BoxRow { BetId first; int y; int height; } kBoxRows[] = {
    {Bet::Lay4, 53, 24}, {Bet::DontCome4, 78, 12}, {Bet::DontCome4Odds, 90, 24},
    {Bet::Come4Odds, 116, 24}, {Bet::Come4, 140, 12}, {Bet::Place4, 153, 24},
};
// clang-format on

constexpr int kBoxRegions = 36;

constexpr auto kTableRegions = [] {
  std::array<Region, kFixedRegions.size() + kBoxRegions> all{};
  auto end = std::copy(kFixedRegions.begin(), kFixedRegions.end(), all.begin());
  for (const BoxRow& row : kBoxRows)
    for (int column = 0; column < 6; ++column)
      *end++ = {row.first + column, Key::Neutral, {177 + 54 * column, row.y, 52, row.height}};
  return all;
}();

constexpr int SquaredDistance(int x, int y, PicturePoint from) {
  return (x - from.x) * (x - from.x) + (y - from.y) * (y - from.y);
}

bool IsInRing(int x, int y, int inner, int outer) {
  const int distance = SquaredDistance(x, y, kTurnCentre);
  return distance >= inner * inner && distance <= outer * outer;
}

bool IsInBigs(int x, int y) {
  if (y - x < 138) return false;
  return x >= kTurnCentre.x || y <= kTurnCentre.y || IsInRing(x, y, 0, 55);
}

bool IsInDisc(const PictureRect& rect, int x, int y) {
  const int radius = rect.width / 2;
  return SquaredDistance(x, y, {rect.x + radius, rect.y + radius}) <= radius * radius;
}

bool IsRail(int x, int y) {
  const bool left = x < 28;
  if (left && y < 28 && SquaredDistance(x, y, {28, 28}) > 28 * 28) return false;
  if (left && y > 411 && SquaredDistance(x, y, {28, 411}) > 28 * 28) return false;
  if (IsFelt(x, y)) return false;
  return std::none_of(kFixedRegions.begin(), kFixedRegions.begin() + 4,
                      [&](const Region& stack) { return stack.rect.Contains(x, y); });
}

std::size_t PixelIndex(int x, int y) {
  return static_cast<std::size_t>(y) * kPictureWidth + static_cast<std::size_t>(x);
}

}  // namespace

std::span<const Region> TableRegions() {
  return kTableRegions;
}

std::span<const Region> StandardPanel() {
  return kStandardPanel;
}

std::span<const Region> AlternatePanel() {
  return kAlternatePanel;
}

std::span<const KeySample> KeySamples() {
  return kKeySamples;
}

bool IsFelt(int x, int y) {
  if (PictureRect{602, 96, 39, 282}.Contains(x, y)) return true;  // beside the panel
  if (!PictureRect{48, 18, 554, 387}.Contains(x, y)) return false;
  if (x < 88 && y < 58) return SquaredDistance(x, y, {88, 58}) <= 40 * 40;
  if (x < 108 && y > 344) return SquaredDistance(x, y, {108, 344}) <= 60 * 60;
  return true;
}

bool Covers(const Region& region, int x, int y) {
  if (!region.rect.Contains(x, y)) return false;
  switch (region.shape) {
    case Shape::Whole:
      return true;
    case Shape::PassLineTurn:
      return IsInRing(x, y, 59, 89);
    case Shape::OddsTurn:
      return IsInRing(x, y, 93, 116) && y - kTurnCentre.y >= kTurnCentre.x - x;
    case Shape::FieldCut:
      return y - x <= 133;
    case Shape::Big6:
      return IsInBigs(x, y) && x + y <= 435;
    case Shape::Big8:
      return IsInBigs(x, y) && x + y >= 439;
    case Shape::Disc:
      return IsInDisc(region.rect, x, y);
    case Shape::Rail:
      return IsRail(x, y);
  }
  return false;
}

const Region* RegionAt(std::span<const Region> regions, int x, int y) {
  const auto found =
      std::ranges::find_if(regions, [&](const Region& region) { return Covers(region, x, y); });
  return found == regions.end() ? nullptr : &*found;
}

Tool ToolAt(int x, int y) {
  const auto found =
      std::ranges::find_if(kTools, [&](const ToolRegion& region) { return region.rect.Contains(x, y); });
  return found == kTools.end() ? Tool::None : found->tool;
}

Key KeyPicture::At(int x, int y) const {
  if (!PictureRect{0, 0, kPictureWidth, kPictureHeight}.Contains(x, y)) return Key::Neutral;
  return pixels_[PixelIndex(x, y)];
}

void KeyPicture::Paint(const Region& region) {
  const PictureRect& rect = region.rect;
  for (int y = rect.y; y < rect.y + rect.height; ++y)
    for (int x = rect.x; x < rect.x + rect.width; ++x)
      if (Covers(region, x, y)) pixels_[PixelIndex(x, y)] = region.key;
}

KeyPicture DrawKeyPicture() {
  KeyPicture picture;
  for (const Region& region : kTableRegions) picture.Paint(region);
  for (const Region& region : kStandardPanel) picture.Paint(region);
  return picture;
}

bool ColourKeysStand(const KeyPicture& picture) {
  const auto stands = [&](const KeySample& sample) {
    return picture.At(sample.at.x, sample.at.y) == sample.key;
  };
  return std::ranges::all_of(kKeySamples, stands) && stands({Key::L, {463, 356}});
}

}  // namespace rollwick
