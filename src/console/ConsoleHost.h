// The world outside, as a terminal or another program is it: answers given beforehand, everything said kept
// for the report, and an eye on Ctrl-C.
#pragma once

#include <atomic>
#include <chrono>
#include <deque>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

// A question or prompt and what was answered.
struct AnsweredQuestion {
  std::string title;
  std::string text;
  std::string answer;
  std::string meaning = {};  // of an answer that is only a number; empty: the answer says it itself
};

class ConsoleHost : public Host {
 public:
  // `interrupted` is set by Ctrl-C. `progress` takes the progress line of long runs; null shows none.
  ConsoleHost(const std::atomic<bool>& interrupted, std::ostream* progress)
      : interrupted_(interrupted), progress_(progress) {}

  std::deque<std::string> answers;  // to come
  std::deque<Message> notices;      // of the present command
  std::deque<AnsweredQuestion> questions;

  // A clock of its own for a game that is to be the same every time: what new games and scripts seed by it is
  // then the same too. Nothing: the time of day.
  std::optional<std::uint32_t> ownClock;

  std::filesystem::path scriptFolder;  // where scripts read and write, made when they first write
  bool scriptsMayLeaveIt = false;
  std::filesystem::path workingGameFolder;  // where a script that resets the table saves it; empty: nowhere

  void ForgetWhatWasSaid();
  bool WasInterrupted() const { return interrupted_.load(std::memory_order_relaxed); }

  // Rolls until `rolls` are made or KeepRolling is cleared.
  void Roll(Game& g, std::int32_t rolls);
  // Hyper-Drive until it ends by itself or by Ctrl-C. A game that a script begins has its own count of rolls;
  // with `throughGames` they share one. Returns the rolls made.
  std::int64_t HyperDrive(Game& g, std::int32_t rolls, bool throughGames = false);

  std::uint32_t Milliseconds(Game& g) override;
  void PumpEvents(Game& g) override;
  bool EventsAreDue() override {
    return WasInterrupted() || Clock::now() - lastServed_ >= std::chrono::milliseconds(10);
  }
  // Between auto-rolls nobody needs time to look: a wait only counts the roll behind it.
  void Wait(Game& g, std::uint32_t milliseconds) override;
  Answer Show(Game& g, const Message& message) override;
  std::optional<std::string> Ask(Game& g, const Prompt& prompt) override;
  SettleAnswer Settle(Game& g, const SettleQuestion& question) override;
  FileGrant GrantFile(Game& g, std::string_view name, FileUse use) override;
  std::string SaveWorkingGame(Game& g) override;

 private:
  using Clock = std::chrono::steady_clock;

  std::optional<std::string> NextAnswer();
  void StartRun(Game& g, std::int32_t rolls);
  void ShowProgress(const Game& g);
  void EndRun();

  const std::atomic<bool>& interrupted_;
  std::ostream* progress_;
  std::int32_t rollsWanted_ = 0;    // by Roll; 0 when nothing is counted
  std::int32_t progressRolls_ = 0;  // of the run; 0 is no count
  bool progressIsShown_ = false;
  Clock::time_point lastServed_;
  Clock::time_point started_;
  Clock::time_point lastShown_;
};

}  // namespace rollwick
