// Faces and matrix values of all eight generators against the golden streams, and the odd values that are
// meant.
#include "dice/Draw.h"

#include <gtest/gtest.h>

#include <array>

#include "dice/Generators.h"
#include "dice/tests/GoldenFile.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

using nlohmann::json;

TEST(Draw, GoldenStreamsOfAllGenerators) {
  int streams = 0;
  for (std::int32_t choice = 0; choice < kRngCount; ++choice) {
    for (const auto& [seedText, golden] :
         GoldenDice()["generators"][std::to_string(choice)]["seeds"].items()) {
      SCOPED_TRACE("RNG #" + std::to_string(choice + 1) + " seed " + seedText);
      ++streams;
      const Money seed = Dollars(std::stoi(seedText));
      TestTable table;
      Game& g = table.g;
      ASSERT_EQ(Seed(g, choice, seed), SeedResult::Seeded);
      EXPECT_EQ(g.CurrentSeed, golden["CurrentSeed_after_seeding"].get<std::int32_t>());
      EXPECT_EQ(g.LastSeed, golden["LastSeed"].get<std::int32_t>());
      ASSERT_EQ(golden["pairs"].size(), 40U);
      for (const json& pair : golden["pairs"]) {
        const std::int32_t roll = g.RollCount() + 1;
        EXPECT_EQ(NextRoll(g), DicePair(pair[0], pair[1])) << "roll " << roll;
      }
      if (golden.contains("CurrentSeed_after_40_rolls")) {
        EXPECT_EQ(g.CurrentSeed, golden["CurrentSeed_after_40_rolls"].get<std::int32_t>());
      }

      g.RollCount() = 0;
      ASSERT_EQ(Seed(g, choice, seed), SeedResult::Seeded);
      ASSERT_EQ(golden["v_first_40"].size(), 40U);
      for (const json& value : golden["v_first_40"]) {
        const std::int32_t roll = g.RollCount() + 1;
        EXPECT_EQ(NextMatrixValue(g), value.get<std::int32_t>()) << "roll " << roll;
      }
    }
  }
  EXPECT_EQ(streams, 16);
}

TEST(Draw, FaceOfSevenComesThrough) {
  const json& golden = GoldenDice()["extra"]["face 7"];
  TestTable table;
  Seed(table.g, golden["RngChoice"], Dollars(golden["seed"].get<int>()));
  for (int roll = 1; roll <= 20; ++roll) NextRoll(table.g);
  for (const json& pair : golden["rolls 21..24 (1-based)"])
    EXPECT_EQ(NextRoll(table.g), DicePair(pair[0], pair[1]));
}

TEST(Draw, MatrixValuesOfTheRanGeneratorsRoundToEven) {
  for (const char* name : {"tie to even", "v = 100001"}) {
    SCOPED_TRACE(name);
    const json& golden = GoldenDice()["extra"][name];
    TestTable table;
    Seed(table.g, golden["RngChoice"], Dollars(golden["seed"].get<int>()));
    for (int draw = 1; draw < golden["matrix draw number (1-based)"].get<int>(); ++draw)
      NextMatrixValue(table.g);
    EXPECT_EQ(NextMatrixValue(table.g), golden["v"].get<std::int32_t>());
  }
}

TEST(Draw, AlternatesByTheRollsPlayedAndNotByTheDraws) {
  struct Row {
    const char* name;
    std::int32_t choice, evenChoice, oddChoice;
  };
  for (const Row& row : {Row{"RNG #6", RngMersenneAndRan1, RngRan1, RngMersenne},
                         Row{"RNG #7", RngSecondMersenneAndRan2, RngRan2, RngSecondMersenne}}) {
    SCOPED_TRACE(row.name);
    TestTable mixed, even, odd;
    Seed(mixed.g, row.choice, Dollars(321));
    Seed(even.g, row.evenChoice, Dollars(321));
    Seed(odd.g, row.oddChoice, Dollars(321));
    // A roll that is abandoned or played back leaves the count to the caller: the same count, the same
    // source.
    for (const std::int32_t rollCount : {0, 0, 2, 1, 3, 3, 99'999'998, 99'999'999}) {
      mixed.g.RollCount() = rollCount;
      DrawDice(mixed.g);
      Game& source = rollCount % 2 == 0 ? even.g : odd.g;
      DrawDice(source);
      EXPECT_EQ(DicePair(mixed.g.Die1, mixed.g.Die2), DicePair(source.Die1, source.Die2)) << rollCount;
    }
  }
}

TEST(Draw, GeneratorsShareTheirBaseAndSelectingChangesNothing) {
  TestTable table, alone;
  Seed(table.g, RngMersenne, Dollars(5));
  Seed(alone.g, RngMersenne, Dollars(5));
  alone.g.RngChoice = table.g.RngChoice = RngMersenne;
  NextRoll(table.g);
  NextRoll(alone.g);
  for (const std::int32_t other : {RngSecondMersenne, RngCongruential, RngRan2, RngRan1}) {
    table.g.RngChoice = other;
    DrawDice(table.g);
  }
  table.g.RngChoice = RngMersenneSingleCall;
  DrawDice(table.g);
  const std::int32_t word = NextBelow(alone.g.Mersenne, 36);
  EXPECT_EQ(DicePair(table.g.Die1, table.g.Die2), DicePair(word % 6 + 1, word / 6 + 1));
  table.g.RngChoice = RngMersenne;
  EXPECT_EQ(NextRoll(table.g), NextRoll(alone.g));
}

TEST(Draw, ChoiceOutsideTheListDrawsAsTheFirst) {
  for (const std::int32_t choice : {-2147483647 - 1, -1, 8, 17, 2147483647}) {
    SCOPED_TRACE(choice);
    TestTable table, first;
    ASSERT_EQ(Seed(table.g, choice, Dollars(3)), SeedResult::Seeded);
    Seed(first.g, RngMersenne, Dollars(3));
    EXPECT_EQ(NextRoll(table.g), NextRoll(first.g));
    EXPECT_EQ(NextMatrixValue(table.g), NextMatrixValue(first.g));
    EXPECT_EQ(table.g.RngChoice, choice);
  }
}

TEST(Draw, FacesOfEveryGeneratorAreEven) {
  // 36 cells, 360,000 rolls: the sum of squares over the mean stays below 90 once in a million runs of a fair
  // stream.
  for (std::int32_t choice = 0; choice < kRngCount; ++choice) {
    if (choice == RngCongruential)
      continue;  // two calls in a row of so short a generator are not independent
    SCOPED_TRACE("RNG #" + std::to_string(choice + 1));
    TestTable table;
    Seed(table.g, choice, Dollars(20'240));
    std::array<int, 49> cells{};
    for (int roll = 0; roll < 360'000; ++roll) {
      const auto [die1, die2] = NextRoll(table.g);
      ASSERT_TRUE(die1 >= 1 && die1 <= 7 && die2 >= 1 && die2 <= 7);
      ++cells[static_cast<std::size_t>((die1 - 1) * 7 + die2 - 1)];
    }
    double sum = 0;
    for (std::size_t die1 = 0; die1 < 6; ++die1)
      for (std::size_t die2 = 0; die2 < 6; ++die2) {
        const double off = cells[die1 * 7 + die2] - 10'000.0;
        sum += off * off / 10'000.0;
      }
    EXPECT_LT(sum, 90);
    EXPECT_GT(sum, 5);
  }
}

TEST(FallBack, MissingLibraryGivesWayToRan2) {
  constexpr int kBoth = MissingMersenne | MissingSecondMersenne;
  struct Row {
    const char* name;
    std::int32_t missing;
    std::array<std::int32_t, kRngCount> after;
  };
  for (const Row& row : {
           Row{"none missing", 0, {0, 1, 2, 3, 4, 5, 6, 7}},
           Row{"first missing", MissingMersenne, {3, 1, 2, 3, 4, 3, 6, 3}},
           Row{"second missing", MissingSecondMersenne, {0, 3, 2, 3, 4, 5, 3, 7}},
           Row{"both missing", kBoth, {3, 3, 2, 3, 4, 3, 3, 3}},
       }) {
    SCOPED_TRACE(row.name);
    for (std::int32_t choice = 0; choice < kRngCount; ++choice) {
      DiceTables tables;
      tables.MissingGenerators = row.missing;
      tables.RngChoice = choice;
      FallBackFromMissingGenerator(tables);
      EXPECT_EQ(tables.RngChoice, row.after[static_cast<std::size_t>(choice)]) << "choice " << choice;
    }
  }
}

}  // namespace
}  // namespace rollwick
