// The way of a throw: over the numbers, down to the wall in front of the player, and rolling back up to the
// Come and the Field, left of where their chips lie. No die ever passes over the proposition panel.
#include "ui/picture/DiceMotion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace rollwick {
namespace {

struct Place {
  double x;
  double y;
};

constexpr int kShakeMilliseconds = 600;
constexpr int kThrowMilliseconds = 900;
constexpr int kReturnMilliseconds = 350;

constexpr Place kHome = {686, 35};  // between the dice
constexpr double kHomeApart = 29;   // a die from there
constexpr Place kTopOfArc = {330, 6};
constexpr double kWall = 376;         // where the middle of a die turns back
constexpr double kFlightPart = 0.45;  // of the time until the wall is hit
constexpr double kFirstDieIsSooner = 0.93;
constexpr int kTurnsOfFace = 14;

// A number of the throw, from 0 to just below 1.
double Chance(unsigned seed, unsigned which) {
  unsigned bits = (seed + 1) * 0x9E3779B9u + which * 0x85EBCA6Bu;
  bits = (bits ^ (bits >> 16)) * 0x7FEB352Du;
  bits = (bits ^ (bits >> 15)) * 0x846CA68Bu;
  return (bits ^ (bits >> 16)) / 4294967296.0;
}

double Between(double low, double high, double part) {
  return low + (high - low) * part;
}

double SlowingDown(double part) {
  return 1 - (1 - part) * (1 - part);
}

double Hop(double height, double part) {
  return height * 4 * part * (1 - part);
}

Place Arc(const DicePose& from, Place top, const DicePose& to, double part) {
  const double a = (1 - part) * (1 - part), b = 2 * part * (1 - part), c = part * part;
  return {a * from.x + b * top.x + c * to.x, a * from.y + b * top.y + c * to.y};
}

// A die rolls over one of its edges, to a face that is neither the same nor the opposite one. Told from the
// end, where the face is known.
int FaceBefore(int face, double chance) {
  constexpr int kNeighbours[3][4] = {
      {2, 3, 4, 5}, {1, 3, 4, 6}, {1, 2, 5, 6}};  // of 1 and 6, 2 and 5, 3 and 4
  return kNeighbours[std::min(face, 7 - face) - 1][static_cast<int>(chance * 4)];
}

int FaceOnWay(int last, unsigned seed, int die, double part) {
  int face = std::clamp(last, 1, 6);
  const int turnsLeft = static_cast<int>(kTurnsOfFace * (1 - part));
  for (int turn = 0; turn < turnsLeft; ++turn)
    face = FaceBefore(face, Chance(seed, static_cast<unsigned>(100 + 2 * turn + die)));
  return face;
}

// In the left half of Come and Field: the chips on their right half and the bets around them stay in sight.
DicePoses RestingPlaces(int die1, int die2, unsigned seed) {
  const Place middle = {Between(195, 250, Chance(seed, 0)), Between(228, 272, Chance(seed, 1))};
  const double direction = Between(-0.6, 0.6, Chance(seed, 2));  // radians
  const double apart = Between(26, 38, Chance(seed, 3));
  const double dx = apart * std::cos(direction), dy = apart * std::sin(direction);
  return {DicePose{middle.x - dx, middle.y - dy, Between(-60, 60, Chance(seed, 4)), 0, die1},
          DicePose{middle.x + dx, middle.y + dy, Between(-60, 60, Chance(seed, 5)), 0, die2}};
}

// They rattle in the bowl.
DicePose Shaken(const DicePose& home, double part) {
  DicePose pose = home;
  const double fading = 1 - part;
  pose.angle = 25 * fading * std::sin(6 * std::numbers::pi * part);
  pose.lift = 12 * fading * std::abs(std::sin(4 * std::numbers::pi * part));
  return pose;
}

// After the wall: two low hops, and sliding to rest.
double LiftBehindWall(double part) {
  if (part < 0.4) return Hop(16, part / 0.4);
  if (part < 0.65) return Hop(7, (part - 0.4) / 0.25);
  return 0;
}

DicePose Thrown(const DicePose& from, const DicePose& bounce, const DicePose& to, int turns, double part) {
  DicePose pose = to;
  pose.angle = to.angle - (to.angle - from.angle + 360.0 * turns) * (1 - SlowingDown(part));
  if (part < kFlightPart) {
    const double flown = part / kFlightPart;
    // Out of the hand, ever faster.
    const Place place = Arc(from, kTopOfArc, bounce, flown * flown * (1.6 - 0.6 * flown));
    pose.x = place.x;
    pose.y = place.y;
    pose.lift = Hop(32, flown);
  } else {
    const double rolled = (part - kFlightPart) / (1 - kFlightPart);
    pose.x = Between(bounce.x, to.x, SlowingDown(rolled));
    pose.y = Between(bounce.y, to.y, SlowingDown(rolled));
    pose.lift = LiftBehindWall(rolled);
  }
  return pose;
}

DicePose Returned(const DicePose& from, const DicePose& to, double part) {
  const double done = part * part * (3 - 2 * part);
  // Dice on the felt keep clear of the panel, others come straight.
  const Place top = from.x < kTopOfArc.x ? kTopOfArc : Place{(from.x + to.x) / 2, (from.y + to.y) / 2};
  const Place place = Arc(from, top, to, done);
  DicePose pose = to;
  pose.x = place.x;
  pose.y = place.y;
  pose.angle = Between(from.angle, to.angle, done);
  pose.lift = Between(from.lift, 0, done) + Hop(30, done);
  return pose;
}

}  // namespace

DicePoses DiceAtHome(int die1, int die2) {
  return {DicePose{kHome.x - kHomeApart, kHome.y, 0, 0, die1},
          DicePose{kHome.x + kHomeApart, kHome.y, 0, 0, die2}};
}

DiceMotion DiceMotion::Throw(int action, int die1, int die2, unsigned seed) {
  DiceMotion motion;
  motion.seed_ = seed;
  motion.from_ = DiceAtHome(die1, die2);
  motion.to_ = motion.from_;
  motion.way_ = action == 0 ? Way::Shake : Way::Flight;
  motion.duration_ = action == 0 ? kShakeMilliseconds : kThrowMilliseconds;
  if (action == 0) return motion;
  motion.to_ = RestingPlaces(die1, die2, seed);
  for (unsigned die = 0; die < 2; ++die) {
    DicePose& bounce = motion.bounce_[die];
    bounce.x = motion.to_[die].x + Between(18, 42, Chance(seed, 6 + die));
    bounce.y = kWall;
  }
  return motion;
}

DiceMotion DiceMotion::Return(const DicePoses& from) {
  DiceMotion motion;
  motion.from_ = from;
  motion.to_ = DiceAtHome(from[0].face, from[1].face);
  motion.way_ = Way::Home;
  motion.duration_ = kReturnMilliseconds;
  return motion;
}

DicePose DiceMotion::OnWay(int die, double part) const {
  const auto index = static_cast<std::size_t>(die);
  const DicePose& from = from_[index];
  const DicePose& to = to_[index];
  if (way_ == Way::Home) return Returned(from, to, part);
  DicePose pose = way_ == Way::Shake ? Shaken(to, part) : Thrown(from, bounce_[index], to, 2 - 4 * die, part);
  pose.face = FaceOnWay(to.face, seed_, die, SlowingDown(part));
  return pose;
}

DicePoses DiceMotion::At(int milliseconds) const {
  DicePoses poses = to_;
  for (int die = 0; die < 2; ++die) {
    const double whole = duration_ * (die == 0 ? kFirstDieIsSooner : 1);
    if (milliseconds < whole)
      poses[static_cast<std::size_t>(die)] = OnWay(die, std::max(milliseconds, 0) / whole);
  }
  return poses;
}

}  // namespace rollwick
