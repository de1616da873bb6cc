#include "ui/sound/WavFile.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/Record.h"

namespace rollwick {
namespace {

constexpr std::size_t kLongestFile = 64 << 20;
constexpr std::size_t kRiffHeader = 12;
constexpr std::size_t kChunkHeader = 8;
constexpr std::size_t kFormatLength = 16;
constexpr std::size_t kSubFormat = 24;  // in the format of a file with extensions

enum Coding { Whole = 1, Fraction = 3, Extended = 0xFFFE };

struct Format {
  int coding = 0;
  int channels = 0;
  int rate = 0;
  int bits = 0;
};

int Word(std::string_view bytes, std::size_t place) {
  RecordReader reader(bytes);
  reader.Seek(place);
  return static_cast<std::uint16_t>(reader.Int16());
}

Format ParseFormat(std::string_view chunk) {
  RecordReader rate(chunk);
  rate.Seek(4);
  Format format{Word(chunk, 0), Word(chunk, 2), rate.Int32(), Word(chunk, 14)};
  if (format.coding == Extended) format.coding = Word(chunk, kSubFormat);
  return format;
}

bool CanPlay(const Format& format) {
  if (format.channels < 1 || format.channels > 2) return false;
  if (format.rate < 1000 || format.rate > 192000) return false;
  if (format.coding == Fraction) return format.bits == 32;
  return format.coding == Whole && format.bits >= 8 && format.bits <= 32 && format.bits % 8 == 0;
}

std::int16_t SampleAt(std::string_view data, std::size_t place, const Format& format) {
  const auto width = static_cast<std::size_t>(format.bits) / 8;
  if (format.coding == Fraction) {
    RecordReader reader(data.substr(place, width));
    const float value = reader.Single();
    return static_cast<std::int16_t>(std::isnan(value) ? 0 : std::clamp(value, -1.0F, 1.0F) * 32767);
  }
  // Only bytes are without a sign, with silence at 128.
  if (width == 1) return static_cast<std::int16_t>((static_cast<unsigned char>(data[place]) - 128) * 256);
  return static_cast<std::int16_t>(Word(data, place + width - 2));
}

WavSound SoundOf(std::string_view data, const Format& format) {
  const auto width = static_cast<std::size_t>(format.bits) / 8,
             channels = static_cast<std::size_t>(format.channels);
  WavSound sound{format.rate, format.channels, {}};
  sound.samples.resize(data.size() / (width * channels) * channels);
  for (std::size_t n = 0; n < sound.samples.size(); ++n) sound.samples[n] = SampleAt(data, n * width, format);
  return sound;
}

}  // namespace

int WavSound::Milliseconds() const {
  if (rate <= 0 || channels <= 0) return 0;
  return static_cast<int>(static_cast<std::int64_t>(samples.size()) / channels * 1000 / rate);
}

std::optional<WavSound> ParseWav(std::string_view bytes) {
  if (!bytes.starts_with("RIFF") || bytes.size() < kRiffHeader || bytes.substr(8, 4) != "WAVE") return {};
  Format format;
  std::size_t place = kRiffHeader;
  while (bytes.size() - place >= kChunkHeader) {
    const std::string_view name = bytes.substr(place, 4);
    RecordReader reader(bytes);
    reader.Seek(place + 4);
    const std::size_t length = static_cast<std::uint32_t>(reader.Int32());
    place += kChunkHeader;
    const std::string_view chunk = bytes.substr(place, length);
    if (name == "fmt " && chunk.size() >= kFormatLength) format = ParseFormat(chunk);
    if (name == "data") {
      if (!CanPlay(format)) return {};
      WavSound sound = SoundOf(chunk, format);
      if (sound.samples.empty()) return {};
      return sound;
    }
    place += std::min(chunk.size() + length % 2, bytes.size() - place);  // chunks begin at even places
  }
  return {};
}

std::optional<WavSound> ReadWav(const std::filesystem::path& file) {
  std::string bytes;
  if (!ReadWhole(file, kLongestFile, bytes).empty()) return {};
  return ParseWav(bytes);
}

}  // namespace rollwick
