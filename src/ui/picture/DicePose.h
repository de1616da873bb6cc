// Where the two dice are at one moment, in units of the table picture.
#pragma once

#include <array>

namespace rollwick {

struct DicePose {
  double x = 0;  // of the middle
  double y = 0;
  double angle = 0;  // degrees, clockwise
  double lift = 0;   // above the felt, in units: moves the shadow and makes the die a little bigger
  int face = 1;      // 1..6, on top
};
using DicePoses = std::array<DicePose, 2>;

}  // namespace rollwick
