// Fixed games to measure and to compare: nobody looks, nothing is asked.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>

#include "engine/state/Game.h"

namespace rollwick {

// A world outside that is never asked anything.
class SilentHost : public Host {
 public:
  std::uint32_t Milliseconds(Game&) override { return 1; }
  Answer Show(Game&, const Message&) override { return Answer::No; }
  std::optional<std::string> Ask(Game&, const Prompt&) override { return {}; }
  SettleAnswer Settle(Game&, const SettleQuestion&) override { return {}; }
  void PumpEvents(Game&) override { lastServed_ = Clock::now(); }
  bool EventsAreDue() override { return Clock::now() - lastServed_ >= std::chrono::milliseconds(10); }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point lastServed_;
};

enum class Bettor {
  PassLineOnly,  // one bet, always up
  FiveBets,      // Pass Line, Field, Place 6, Place 8, Hard 8, always up
  IronCross,     // a script: Field, Place 5, 6 and 8 while a point is on
  TenRules,      // a script of ten rules with five to eight bets up
};

// A house at its defaults with RNG #1 seeded and the bettor's bets up for good (won or lost, each stays the
// same), or the bettor's script switched on.
std::unique_ptr<Game> OpenGame(SilentHost& host, Bettor bettor, std::int32_t seed);

// Brings RNG #1 and the bettor to a newly opened house.
void SeatBettor(Game& g, Bettor bettor, std::int32_t seed);

// Rolls that many times in Hyper-Drive; the roll count starts anew when it comes near its limit.
void RollInHyperDrive(Game& g, std::int32_t rolls);

// One number over fixed games with every generator and a bettor who bets at random: equal numbers mean equal
// games, to the last counter.
std::uint64_t Signature();

}  // namespace rollwick
