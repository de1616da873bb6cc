// Where sounds go. The speakers are the one implementation outside of tests.
#pragma once

#include <filesystem>
#include <memory>

namespace rollwick {

// Sounds of different channels are heard together.
enum class SoundChannel { Voice, Dice, Chips, Win, Script };
inline constexpr int kSoundChannels = 5;

class SoundOutput {
 public:
  virtual ~SoundOutput() = default;

  // Plays a WAV file, at once or, on the channel of the voice, behind the calls before it; elsewhere a new
  // sound ends the one before. `volume` is 0 to 100. Returns without waiting for anything, and what cannot be
  // played is silence.
  virtual void Play(SoundChannel channel, const std::filesystem::path& file, int volume) = 0;
  virtual void StopAll() = 0;
};

std::unique_ptr<SoundOutput> MakeSpeakers();

}  // namespace rollwick
