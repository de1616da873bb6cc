// Seeding: the prompt, the clock, the limits, and which base generators a seed goes to.
#include <algorithm>
#include <cmath>

#include "base/FormatNumber.h"
#include "dice/Draw.h"
#include "dice/Generators.h"

namespace rollwick {

namespace {

constexpr std::int32_t kCongruentialLimit = 999'999;
constexpr std::int32_t kLimit = 2'147'483'647;

// An RngChoice outside the list stands for RNG #1.
std::int32_t SeededChoice(const DiceTables& g) {
  return g.RngChoice >= 0 && g.RngChoice < kRngCount ? g.RngChoice : RngMersenne;
}

bool IsWithin(Money request, std::int32_t limit) {
  return request >= Dollars(1) && request <= Dollars(limit);
}

std::optional<Money> ReadSeed(std::string_view entry) {
  const bool onlyDigits = std::ranges::all_of(entry, [](char c) { return c >= '0' && c <= '9'; });
  return onlyDigits ? ParseMoney(entry) : std::nullopt;
}

// Asks until SeedRequest is within the limit; false when the prompt is closed for good.
bool AskForSeed(Game& g, std::int32_t limit) {
  g.KeepRolling = false;
  const std::string text = "Please enter a value between 1 and " + FormatNumber(Dollars(limit), "#,#") +
                           " to seed the random number generator:\r";
  Prompt prompt{PromptKind::Seed, text, "RNG Seed", PlainText(Dollars(g.LastSeed)),
                limit == kCongruentialLimit ? 6 : 10};
  for (;;) {
    FlushEventsLog(g);
    g.SeedPromptOpen = true;
    const std::optional<std::string> entry = g.TheHost->Ask(g, prompt);
    g.SeedPromptOpen = false;
    if (!entry) return false;
    g.SeedRequest = ReadSeed(*entry).value_or(Money());
    if (IsWithin(g.SeedRequest, limit)) return true;
    prompt.text = "Your seed value is out of limits.\r\r" + text;
    prompt.preset = *entry;
  }
}

SeedResult SeedRan1(Game& g, std::int32_t seed) {
  if (seed > kRan1LargestSeed) return SeedResult::Overflow;
  std::int32_t idum = -seed;
  Ran1(g, idum);
  return SeedResult::Seeded;
}

SeedResult SeedRan2(Game& g, std::int32_t seed) {
  if (seed > kRan2LargestSeed) return SeedResult::Overflow;
  std::int32_t idum = -seed;
  Ran2(g, idum);
  return SeedResult::Seeded;
}

// The twisters pass a missing library by; the rest of the seeding is done all the same.
void SeedFirstTwister(Game& g, std::int32_t seed) {
  if ((g.MissingGenerators & MissingMersenne) == 0)
    SeedMersenne(g.Mersenne, static_cast<std::uint32_t>(seed));
}

void SeedSecondTwister(Game& g, std::int32_t seed) {
  if ((g.MissingGenerators & MissingSecondMersenne) == 0)
    SeedSecondMersenne(g.SecondMersenne, static_cast<std::uint32_t>(seed));
}

// The value each generator returns when seeded is dropped: the stream starts one step past the seed.
SeedResult SeedBaseGenerators(Game& g, std::int32_t seed) {
  switch (g.RngChoice) {
    case RngSecondMersenne:
      SeedSecondTwister(g, seed);
      return SeedResult::Seeded;
    case RngCongruential:
      SeededRandomInt(g, 6);
      return SeedResult::Seeded;
    case RngRan2:
      return SeedRan2(g, seed);
    case RngRan1:
      return SeedRan1(g, seed);
    case RngMersenneAndRan1:
      SeedFirstTwister(g, seed);
      return SeedRan1(g, seed);
    case RngSecondMersenneAndRan2:
      SeedSecondTwister(g, seed);
      return SeedRan2(g, seed);
    default:
      SeedFirstTwister(g, seed);
      return SeedResult::Seeded;
  }
}

}  // namespace

std::int32_t SeedLimit(const DiceTables& g) {
  return g.RngChoice == RngCongruential ? kCongruentialLimit : kLimit;
}

// The clock as a signed number of milliseconds, of tenths of a second (with two decimals) for RNG #3.
void TakeSeedFromClock(Game& g) {
  const auto clock = static_cast<std::int32_t>(g.TheHost->Milliseconds(g));
  g.SeedRequest = Dollars(clock);
  if (g.RngChoice == RngCongruential) g.SeedRequest = Quotient(g.SeedRequest, Dollars(100));
}

SeedResult SeedGenerator(Game& g, bool seedIsGiven) {
  const std::int32_t limit = SeedLimit(g);
  if (!seedIsGiven && g.UserSeedMode && !AskForSeed(g, limit)) return SeedResult::OutOfLimits;
  if (!seedIsGiven && !g.UserSeedMode) TakeSeedFromClock(g);
  if (!IsWithin(g.SeedRequest, limit)) return SeedResult::OutOfLimits;

  // Meant: the line tells the seed, or running state, that is being given up.
  if (g.RecordEventsActive)
    LogEvent(
        g, "      RNG #" + std::to_string(SeededChoice(g) + 1) + " seeded: " + std::to_string(g.CurrentSeed));
  g.CurrentSeed = g.LastSeed = static_cast<std::int32_t>(std::nearbyint(g.SeedRequest.ToDouble()));
  return SeedBaseGenerators(g, g.CurrentSeed);
}

}  // namespace rollwick
