// How the dice get from the stick person to where they come to rest, and home again.
#pragma once

#include "ui/picture/DicePose.h"

namespace rollwick {

// Of a die that lies on the felt. Dice at rest lie far enough apart for it, however they are turned.
inline constexpr double kDieSide = 30;

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
  enum class Way { None, Shake, Flight, Home };
  DicePose OnWay(int die, double part) const;

  Way way_ = Way::None;
  int duration_ = 0;
  unsigned seed_ = 0;
  DicePoses from_{};
  DicePoses bounce_{};  // off the wall at the player's side, in flight only
  DicePoses to_{};
};

}  // namespace rollwick
