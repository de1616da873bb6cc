// Reads WAV files, whatever their suffix: plain samples of 8, 16, 24 or 32 bits, or of 32-bit fractions.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace rollwick {

struct WavSound {
  int rate = 0;      // samples a second of each channel
  int channels = 0;  // 1 or 2, their samples in turns
  std::vector<std::int16_t> samples;

  int Milliseconds() const;
};

// Nothing for what is no such sound. A sound that ends early is as long as it is.
std::optional<WavSound> ParseWav(std::string_view bytes);

// The same of a file of at most 64 MB.
std::optional<WavSound> ReadWav(const std::filesystem::path& file);

}  // namespace rollwick
