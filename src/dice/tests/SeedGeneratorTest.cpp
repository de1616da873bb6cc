// Seeding: limits and rounding, the clock, the prompt word for word, the log line, seeds that are too large.
#include <gtest/gtest.h>

#include <charconv>
#include <optional>

#include "dice/Draw.h"
#include "dice/Generators.h"
#include "dice/tests/GoldenFile.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

using nlohmann::json;

constexpr const char* kAskLarge =
    "Please enter a value between 1 and 2,147,483,647 to seed the random number generator:\r";
constexpr const char* kAskSmall =
    "Please enter a value between 1 and 999,999 to seed the random number generator:\r";
constexpr const char* kOutOfLimits = "Your seed value is out of limits.\r\r";

TEST(SeedGenerator, GoldenRequests) {
  for (const json& golden : GoldenDice()["extra"]["SeedRequest"]) {
    SCOPED_TRACE(golden.dump());
    TestTable table;
    Game& g = table.g;
    g.RecordEventsActive = true;
    g.CurrentSeed = 77;
    g.LastSeed = 66;
    const Money request = ParseMoney(golden["SeedRequest"].get<std::string>()).value();
    const bool taken = golden["taken"];
    EXPECT_EQ(Seed(g, golden["RngChoice"], request), taken ? SeedResult::Seeded : SeedResult::OutOfLimits);
    EXPECT_EQ(g.LastSeed, golden["LastSeed"].get<std::int32_t>());
    EXPECT_EQ(g.CurrentSeed, golden["CurrentSeed"].get<std::int32_t>());
    FlushEventsLog(g);
    EXPECT_EQ(table.log.lines, golden["log"].get<std::vector<std::string>>());
    EXPECT_TRUE(table.host.messages.empty());
    EXPECT_TRUE(table.host.prompts.empty());
  }
}

TEST(SeedGenerator, GoldenClocks) {
  for (const json& golden : GoldenDice()["extra"]["clock seeds"]) {
    SCOPED_TRACE(golden.dump());
    TestTable table;
    Game& g = table.g;
    table.host.clock = golden["clock"];
    g.RngChoice = golden["RngChoice"];
    const bool taken = golden["taken"];
    EXPECT_EQ(SeedGenerator(g, false), taken ? SeedResult::Seeded : SeedResult::OutOfLimits);
    EXPECT_EQ(g.SeedRequest, ParseMoney(golden["SeedRequest"].get<std::string>()).value());
    EXPECT_EQ(g.LastSeed, golden["LastSeed"].get<std::int32_t>());
    EXPECT_TRUE(table.host.prompts.empty());
  }
}

TEST(SeedGenerator, GivenSeedNeverAsks) {
  TestTable table;
  table.g.UserSeedMode = true;
  table.g.KeepRolling = true;
  EXPECT_EQ(Seed(table.g, RngRan1, Dollars(9)), SeedResult::Seeded);
  EXPECT_TRUE(table.host.prompts.empty());
  EXPECT_TRUE(table.g.KeepRolling);
}

TEST(SeedGenerator, ClockSeedingLeavesTheRunGoing) {
  TestTable table;
  table.g.KeepRolling = true;
  EXPECT_EQ(SeedGenerator(table.g, false), SeedResult::Seeded);
  EXPECT_TRUE(table.g.KeepRolling);
}

TEST(SeedGenerator, NothingIsLoggedWithTheLogOff) {
  TestTable table;
  Seed(table.g, RngRan1, Dollars(9));
  FlushEventsLog(table.g);
  EXPECT_TRUE(table.log.lines.empty());
}

TEST(SeedGenerator, PromptTakesTheFirstEntryWithinLimits) {
  struct Row {
    const char* name;
    std::int32_t choice;
    std::vector<const char*> refused;
    const char* taken;
    std::int32_t seed;
  };
  for (const Row& row : {
           Row{"RNG #1, smallest", RngMersenne, {}, "1", 1},
           Row{"RNG #1, largest", RngMersenne, {"2147483648", "9999999999"}, "2147483647", 2147483647},
           Row{"RNG #3, largest", RngCongruential, {"1000000"}, "999999", 999'999},
           Row{"RNG #4, nought and nothing", RngRan2, {"0", ""}, "12", 12},
           Row{"RNG #8, no numbers",
               RngMersenneSingleCall,
               {"abc", "-5", "1.5", " 7", "1e3", "."},
               "0007",
               7},
           Row{"RNG #5, beyond every number", RngRan1, {"99999999999999999999999999"}, "5", 5},
       }) {
    SCOPED_TRACE(row.name);
    TestTable table;
    Game& g = table.g;
    g.RngChoice = row.choice;
    g.UserSeedMode = true;
    g.KeepRolling = true;
    g.LastSeed = 1234;
    table.host.entries.assign(row.refused.begin(), row.refused.end());
    table.host.entries.emplace_back(row.taken);
    EXPECT_EQ(SeedGenerator(g, false), SeedResult::Seeded);
    EXPECT_EQ(g.LastSeed, row.seed);
    EXPECT_EQ(g.SeedRequest, Dollars(row.seed));
    EXPECT_EQ(g.RngChoice, row.choice);
    EXPECT_FALSE(g.KeepRolling);
    EXPECT_FALSE(g.SeedPromptOpen);

    const bool small = row.choice == RngCongruential;
    const std::string ask = small ? kAskSmall : kAskLarge;
    ASSERT_EQ(table.host.prompts.size(), row.refused.size() + 1);
    for (std::size_t i = 0; i < table.host.prompts.size(); ++i) {
      const Prompt& prompt = table.host.prompts[i];
      EXPECT_EQ(prompt.kind, PromptKind::Seed);
      EXPECT_EQ(prompt.title, "RNG Seed");
      EXPECT_EQ(prompt.text, i == 0 ? ask : kOutOfLimits + ask);
      EXPECT_EQ(prompt.preset, i == 0 ? "1234" : row.refused[i - 1]);
      EXPECT_EQ(prompt.maxLength, small ? 6 : 10);
    }
  }
}

// Notes whether the table knows of the prompt while it stands.
struct WatchingHost : ScriptedHost {
  bool openSeen = false;
  std::optional<std::string> Ask(Game& g, const Prompt& prompt) override {
    openSeen = g.SeedPromptOpen && !g.KeepRolling;
    return ScriptedHost::Ask(g, prompt);
  }
};

TEST(SeedGenerator, PromptIsKnownToBeOpenWhileItStands) {
  TestTable table;
  WatchingHost host;
  table.g.TheHost = &host;
  table.g.UserSeedMode = true;
  table.g.KeepRolling = true;
  host.entries = {"8"};
  SeedGenerator(table.g, false);
  EXPECT_TRUE(host.openSeen);
  EXPECT_FALSE(table.g.SeedPromptOpen);
}

TEST(SeedGenerator, ClosedPromptSeedsNothing) {
  TestTable table;
  Game& g = table.g;
  Seed(g, RngMersenne, Dollars(50));
  const DicePair first = NextRoll(g);
  Seed(g, RngMersenne, Dollars(50));
  g.RecordEventsActive = true;
  g.UserSeedMode = true;
  g.LastSeed = 0;  // preset, and no seed: the host gives it once and then closes
  EXPECT_EQ(SeedGenerator(g, false), SeedResult::OutOfLimits);
  EXPECT_EQ(table.host.prompts.size(), 2U);
  EXPECT_FALSE(g.SeedPromptOpen);
  EXPECT_EQ(g.CurrentSeed, 50);
  EXPECT_EQ(g.LastSeed, 0);
  FlushEventsLog(g);
  EXPECT_TRUE(table.log.lines.empty());
  EXPECT_EQ(NextRoll(g), first);
}

TEST(SeedGenerator, TooLargeForTheFirstStepKeepsTheOldTable) {
  const std::int32_t ran1 = GoldenDice()["extra"]["overflow seeds"]["Ran1 largest"];
  const std::int32_t ran2 = GoldenDice()["extra"]["overflow seeds"]["Ran2 largest"];
  struct Row {
    const char* name;
    std::int32_t choice;
    std::int32_t seed;
    bool overflows;
  };
  for (const Row& row : {
           Row{"RNG #5, largest", RngRan1, ran1, false},
           Row{"RNG #5, one more", RngRan1, ran1 + 1, true},
           Row{"RNG #6, largest", RngMersenneAndRan1, ran1, false},
           Row{"RNG #6, one more", RngMersenneAndRan1, ran1 + 1, true},
           Row{"RNG #4, largest", RngRan2, ran2, false},
           Row{"RNG #4, one more", RngRan2, ran2 + 1, true},
           Row{"RNG #7, largest", RngSecondMersenneAndRan2, ran2, false},
           Row{"RNG #7, one more", RngSecondMersenneAndRan2, ran2 + 1, true},
           Row{"RNG #1 knows no limit", RngMersenne, 2147483647, false},
           Row{"RNG #2 knows no limit", RngSecondMersenne, 2147483647, false},
       }) {
    SCOPED_TRACE(row.name);
    TestTable table;
    Game& g = table.g;
    for (const std::int32_t choice : {RngMersenneAndRan1, RngSecondMersenneAndRan2})
      Seed(g, choice, Dollars(5));
    const DiceTables before = g;
    EXPECT_EQ(Seed(g, row.choice, Dollars(row.seed)),
              row.overflows ? SeedResult::Overflow : SeedResult::Seeded);
    EXPECT_EQ(g.CurrentSeed, row.seed);
    EXPECT_EQ(g.LastSeed, row.seed);

    const bool hasRan1 = row.choice == RngRan1 || row.choice == RngMersenneAndRan1;
    const bool hasRan2 = row.choice == RngRan2 || row.choice == RngSecondMersenneAndRan2;
    EXPECT_EQ(g.Ran1Generator.r != before.Ran1Generator.r, hasRan1 && !row.overflows);
    EXPECT_EQ(g.Ran2Generator.ir != before.Ran2Generator.ir, hasRan2 && !row.overflows);
    EXPECT_EQ(g.Mersenne.words != before.Mersenne.words,
              row.choice == RngMersenne || row.choice == RngMersenneAndRan1);
    EXPECT_EQ(g.SecondMersenne.words != before.SecondMersenne.words,
              row.choice == RngSecondMersenne || row.choice == RngSecondMersenneAndRan2);
  }
}

TEST(SeedGenerator, MissingLibraryIsPassedByAndTheRestIsSeeded) {
  for (const std::int32_t choice : {RngMersenne, RngSecondMersenne, RngMersenneAndRan1,
                                    RngSecondMersenneAndRan2, RngMersenneSingleCall}) {
    SCOPED_TRACE("RNG #" + std::to_string(choice + 1));
    TestTable table;
    Game& g = table.g;
    g.MissingGenerators = MissingMersenne | MissingSecondMersenne;
    g.RecordEventsActive = true;
    const DiceTables before = g;
    EXPECT_EQ(Seed(g, choice, Dollars(31)), SeedResult::Seeded);
    EXPECT_EQ(g.CurrentSeed, 31);
    EXPECT_EQ(g.LastSeed, 31);
    FlushEventsLog(g);
    EXPECT_EQ(table.log.lines.size(), 1U);
    EXPECT_EQ(g.Mersenne.words, before.Mersenne.words);
    EXPECT_EQ(g.SecondMersenne.words, before.SecondMersenne.words);
    EXPECT_EQ(g.Ran1Generator.initialised, choice == RngMersenneAndRan1);
    EXPECT_EQ(g.Ran2Generator.initialised, choice == RngSecondMersenneAndRan2);
  }
}

TEST(SeedGenerator, LogTellsTheRunningStateOfTheThirdGenerator) {
  TestTable table;
  Game& g = table.g;
  Seed(g, RngCongruential, Dollars(1));
  g.RecordEventsActive = true;
  Seed(g, RngRan2, Dollars(9));
  FlushEventsLog(g);
  EXPECT_EQ(table.log.lines, std::vector<std::string>{"      RNG #4 seeded: 152255"});
}

TEST(SeedGenerator, SameSeedRepeatsTheRolls) {
  for (std::int32_t choice = 0; choice < kRngCount; ++choice) {
    SCOPED_TRACE("RNG #" + std::to_string(choice + 1));
    TestTable table;
    std::vector<DicePair> runs[2];
    for (auto& run : runs) {
      table.g.RollCount() = 0;
      Seed(table.g, choice, Dollars(777));
      for (int roll = 0; roll < 1000; ++roll) run.push_back(NextRoll(table.g));
    }
    EXPECT_EQ(runs[0], runs[1]);
  }
}

}  // namespace
}  // namespace rollwick
