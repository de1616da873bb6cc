// What the player hears: the stick person's calls, dice, chips, wins. A machine without a sound device stays
// silent.
#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <vector>

#include "engine/state/Game.h"
#include "files/SoundSets.h"
#include "ui/sound/SoundOutput.h"

namespace rollwick {

class SoundPlayer {
 public:
  // `folders` are looked through for sound sets, the first one first.
  explicit SoundPlayer(const std::vector<std::filesystem::path>& folders,
                       std::unique_ptr<SoundOutput> output = MakeSpeakers());

  const std::vector<SoundSet>& Sets(SoundKind kind) const { return sets_[static_cast<std::size_t>(kind)]; }

  // By the game's choices of voice and sounds, its volume and its switches; called after what it tells of has
  // happened. Calls are queued behind each other (the total, "hard way"), other sounds play at once.
  void Play(const Game& g, Sound sound);
  void PlayDice(const Game& g);
  void PlayFile(const Game& g, const std::filesystem::path& file);
  // Plays the first sound of one set whatever the switches say, as the test buttons do.
  void Test(const Game& g, SoundKind kind, int index);
  void StopAll();

 private:
  // Silent for a set or a sound that there is not.
  void PlayFrom(const Game& g, SoundKind kind, int index, int entry);
  void Send(const Game& g, SoundChannel channel, const std::filesystem::path& file);

  std::unique_ptr<SoundOutput> output_;
  std::array<std::vector<SoundSet>, 4> sets_;
  std::filesystem::path chipsShower_;  // of the broken bank; empty: there is none
  int volume_ = 100;
};

// The calls that a sound of the table is made of, in their order; empty for sounds that are none of the
// voice. Pure, for tests.
std::vector<int> CallsFor(const Game& g, Sound sound);

}  // namespace rollwick
