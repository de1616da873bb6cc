// The ways of the dice, watched every millisecond of many throws.
#include "ui/picture/DiceMotion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

#include "layout/Regions.h"

namespace rollwick {
namespace {

constexpr double kHalfDiagonal = kDieSide * 0.7072;  // a die on its corner reaches so far
constexpr unsigned kThrows = 200;

double Distance(const DicePose& a, const DicePose& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

bool SamePose(const DicePose& a, const DicePose& b) {
  return a.x == b.x && a.y == b.y && a.angle == b.angle && a.lift == b.lift && a.face == b.face;
}

// What every moment of every way of the dice keeps to.
void ExpectFitsThePicture(const DicePose& die) {
  EXPECT_GE(die.x, kHalfDiagonal);
  EXPECT_LE(die.x, kPictureWidth - kHalfDiagonal);
  EXPECT_GE(die.y, kHalfDiagonal);
  EXPECT_LE(die.y, kPictureHeight - kHalfDiagonal);
  EXPECT_GE(die.lift, 0);
  EXPECT_TRUE(die.face >= 1 && die.face <= 6) << die.face;
  EXPECT_FALSE(die.x + kHalfDiagonal > 500 && die.y + kHalfDiagonal > 101 && die.y < 404) << "over the panel";
}

void ExpectMovesSmoothly(const DicePose& before, const DicePose& after) {
  EXPECT_LE(Distance(before, after), 4);  // in a millisecond
  EXPECT_LE(std::abs(after.angle - before.angle), 4);
  EXPECT_LE(std::abs(after.lift - before.lift), 2);
}

TEST(DiceMotion, EveryWayIsSmoothAndInSight) {
  const struct Row {
    const char* name;
    std::function<DiceMotion(unsigned)> motion;
    int least, most;  // milliseconds
  } rows[] = {
      {"stationary", [](unsigned n) { return DiceMotion::Throw(0, 1 + n % 6, 3, n); }, 300, 900},
      {"thrown", [](unsigned n) { return DiceMotion::Throw(1, 1 + n % 6, 3, n); }, 800, 1000},
      {"home from the felt",
       [](unsigned n) { return DiceMotion::Return(DiceMotion::Throw(3, 1 + n % 6, 3, n).At(5000)); }, 300,
       400},
      {"home from home", [](unsigned n) { return DiceMotion::Return(DiceAtHome(1 + n % 6, 3)); }, 300, 400},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    for (unsigned seed = 0; seed < kThrows && !testing::Test::HasFailure(); ++seed) {
      const DiceMotion motion = row.motion(seed);
      EXPECT_GE(motion.Duration(), row.least);
      EXPECT_LE(motion.Duration(), row.most);
      for (int now = 0; now <= motion.Duration() + 10; ++now) {
        SCOPED_TRACE("throw " + std::to_string(seed) + " at " + std::to_string(now));
        const DicePoses before = motion.At(now - 1), dice = motion.At(now);
        for (std::size_t die = 0; die < 2; ++die) {
          ExpectFitsThePicture(dice[die]);
          ExpectMovesSmoothly(before[die], dice[die]);
        }
      }
    }
  }
}

TEST(DiceMotion, ThrownDiceComeToRestApartWithTheirFacesWhereTheyHideNoChips) {
  const PicturePoint chips[] = {{354, 210}, {354, 297}, {354, 329}, {327, 329}, {135, 165}, {130, 328}};
  for (unsigned seed = 0; seed < kThrows; ++seed) {
    SCOPED_TRACE(seed);
    const int die1 = 1 + static_cast<int>(seed % 6), die2 = 1 + static_cast<int>(seed / 6 % 6);
    const DiceMotion motion = DiceMotion::Throw(1 + static_cast<int>(seed % 3), die1, die2, seed);
    const DicePoses rest = motion.At(motion.Duration());
    EXPECT_EQ(rest[0].face, die1);
    EXPECT_EQ(rest[1].face, die2);
    EXPECT_GT(Distance(rest[0], rest[1]), 2 * kHalfDiagonal);
    for (const DicePose& die : rest) {
      EXPECT_EQ(die.lift, 0);
      EXPECT_GT(die.x - kHalfDiagonal, 130);
      EXPECT_LT(die.x + kHalfDiagonal, 440);
      EXPECT_GT(die.y - kHalfDiagonal, 180);
      EXPECT_LT(die.y + kHalfDiagonal, 314);  // above the Don't Pass
      for (const PicturePoint& chip : chips)
        EXPECT_GT(std::hypot(die.x - chip.x, die.y - chip.y), kHalfDiagonal + 10) << chip.x << "," << chip.y;
    }
  }
}

TEST(DiceMotion, DiceTumbleOverTheirEdgesUntilTheyLie) {
  for (const int action : {0, 1}) {
    SCOPED_TRACE(action);
    const DiceMotion motion = DiceMotion::Throw(action, 6, 1, 7);
    int changes = 0;
    for (int now = 1; now <= motion.Duration(); ++now) {
      for (std::size_t die = 0; die < 2; ++die) {
        const int before = motion.At(now - 1)[die].face, face = motion.At(now)[die].face;
        if (before == face) continue;
        ++changes;
        EXPECT_NE(before + face, 7) << "the opposite face cannot be the next one";
        EXPECT_LT(now, motion.Duration() * 9 / 10) << "a face turned while the die lay still";
      }
    }
    EXPECT_GE(changes, 12);
  }
}

TEST(DiceMotion, ThrowsDifferByTheirSeedAloneAndComeHomeAsTheyLay) {
  const DiceMotion motion = DiceMotion::Throw(2, 4, 5, 11);
  const DicePoses rest = motion.At(motion.Duration());
  for (const int now : {0, 123, 456, 900, 100000})
    for (std::size_t die = 0; die < 2; ++die)
      EXPECT_TRUE(SamePose(motion.At(now)[die], DiceMotion::Throw(2, 4, 5, 11).At(now)[die])) << now;
  EXPECT_GT(Distance(rest[0], DiceMotion::Throw(2, 4, 5, 12).At(900)[0]), 1);

  const DiceMotion way = DiceMotion::Return(rest);
  const DicePoses home = DiceAtHome(4, 5);
  for (std::size_t die = 0; die < 2; ++die) {
    EXPECT_LT(Distance(motion.At(0)[die], home[die]), 0.001);
    EXPECT_TRUE(SamePose(way.At(0)[die], rest[die]));
    EXPECT_TRUE(SamePose(way.At(way.Duration())[die], home[die]));
    EXPECT_EQ(ToolAt(static_cast<int>(home[die].x), static_cast<int>(home[die].y)), Tool::Dice);
  }
  EXPECT_GT(Distance(home[0], home[1]), 2 * kHalfDiagonal);
}

}  // namespace
}  // namespace rollwick
