// How far words are apart, and which names are offered for a mistyped one.
#include "base/Nearest.h"

#include <gtest/gtest.h>

#include <vector>

namespace rollwick {
namespace {

TEST(Nearest, CountsSlips) {
  struct Row {
    const char* a;
    const char* b;
    std::size_t distance;
  };
  const Row rows[] = {
      {"", "abc", 3},        {"abc", "", 3},       {"Place 6", "place_6", 0},
      {"Plcae", "Place", 1}, {"Plae", "Place", 1}, {"Placce", "Place", 1},
      {"Plase", "Place", 1}, {"ca", "abc", 3},     {"kitten", "sitting", 3},
  };
  for (const Row& row : rows) EXPECT_EQ(EditDistance(row.a, row.b), row.distance) << row.a << ", " << row.b;
}

TEST(Nearest, OffersUpToThreeNearestFirst) {
  const std::vector<std::string> names = {"rolls", "roll", "role", "roil", "bet"};
  EXPECT_EQ(DidYouMean("roll", names), " Did you mean roll, rolls or role?");
  EXPECT_EQ(DidYouMean("bat", names), " Did you mean bet?");
  EXPECT_EQ(DidYouMean("quit", names), "");
  EXPECT_EQ(DidYouMean(std::string(61, 'r'), names), "");
}

}  // namespace
}  // namespace rollwick
