// How the dice get from the stick person to where they come to rest, and home again.
#pragma once

#include "ui/picture/DicePose.h"

namespace rollwick {

// At their home in the tool strip, beside each other.
DicePoses DiceAtHome(int die1, int die2);

// One way of the dice, the same for the same arguments. `seed` chooses bounces and resting places only: the
// faces are known before.
class DiceMotion {
 public:
  // A throw from their home over the felt, ending with these faces on free felt; `action` is DiceAction: 0
  // stays at home and only turns the faces.
  static DiceMotion Throw(int action, int die1, int die2, unsigned seed);
  // Home from where they lie.
  static DiceMotion Return(const DicePoses& from);

  int Duration() const { return duration_; }  // milliseconds
  // At `milliseconds` from the start; the end stays for ever.
  DicePoses At(int milliseconds) const;

 private:
  int duration_ = 0;
  bool isReturn_ = false;
  DicePoses from_{};
  DicePoses to_{};
  unsigned seed_ = 0;
};

}  // namespace rollwick
