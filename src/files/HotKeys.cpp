// A record with the count, and one for each hot key.
#include "files/HotKeys.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <charconv>

#include "autobet/model/Script.h"
#include "base/AtomicFile.h"
#include "base/CodePage.h"
#include "base/Record.h"

namespace rollwick {

namespace {

constexpr std::string_view kSignature = "Rollwick Hot-Key File";
constexpr std::size_t kFieldBytes = 1 + kHotKeyText + kHotKeyText;  // of a record; the rest is zero
constexpr std::size_t kLongestFile = 1 << 20;                       // far more than there are keys

// A character that a key can type and a picture can show.
bool IsKey(std::string_view key) {
  if (CharacterCount(key) != 1 || !HasPlaceInCodePage(key)) return false;
  const auto byte = static_cast<unsigned char>(ToCodePage(key)[0]);
  constexpr unsigned char kDelete = 0x7F, kNoBreakSpace = 0xA0;
  return byte > ' ' && byte != kDelete && byte != kNoBreakSpace;
}

// The whole number that the text begins with, blanks before it passed over; 0 for another text.
std::size_t LeadingCount(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  std::size_t count = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  return error == std::errc::result_out_of_range ? kLongestFile : count;
}

// From one record to the next: they are padded to 256 bytes, or packed in files from elsewhere.
std::size_t Stride(std::size_t length, std::size_t count) {
  return length == kFieldBytes * (count + 1) ? kFieldBytes : kRecordSize;
}

}  // namespace

std::string HotKeyFault(const HotKey& hotKey) {
  if (!IsKey(hotKey.key)) return "A hot key is one printable character, not the space bar.";
  if (hotKey.path.empty()) return "A hot key needs an Auto-Bet file.";
  if (hotKey.path.size() > kHotKeyText || hotKey.path.find('\0') != std::string::npos ||
      hotKey.path.ends_with(' '))
    return "The path of a hot key has at most 100 bytes, the last one not a blank.";
  if (CharacterCount(hotKey.description) > kHotKeyText || !HasPlaceInCodePage(hotKey.description))
    return "The description of a hot key has at most 100 characters, all of them of Western scripts.";
  return {};
}

const HotKey* FindHotKey(const std::vector<HotKey>& hotKeys, std::string_view key) {
  const auto found = std::ranges::find_if(
      hotKeys, [&](const HotKey& hotKey) { return LowerTrimmed(hotKey.key) == LowerTrimmed(key); });
  return found == hotKeys.end() ? nullptr : &*found;
}

std::vector<HotKey> ReadHotKeys(std::string_view bytes) {
  RecordReader reader(bytes);
  reader.Text(1);
  const std::string signature = reader.Text(kHotKeyText);
  const std::size_t stored = LeadingCount(reader.Text(kHotKeyText));
  if (reader.Failed() || signature != kSignature) return {};
  const std::size_t stride = Stride(bytes.size(), stored);
  const std::size_t count = std::min(stored, (bytes.size() - kFieldBytes) / stride);
  std::vector<HotKey> hotKeys;
  for (std::size_t n = 1; n <= count; ++n) {
    reader.Seek(n * stride);
    HotKey hotKey;
    hotKey.key = reader.Text(1);
    hotKey.path = reader.Path(kHotKeyText);
    hotKey.description = reader.Text(kHotKeyText);
    // A key that nobody can press is of no use; of two on the same key the first counts.
    if (IsKey(hotKey.key) && FindHotKey(hotKeys, hotKey.key) == nullptr) hotKeys.push_back(std::move(hotKey));
  }
  assert(!reader.Failed());
  return hotKeys;
}

std::string LoadHotKeys(const std::filesystem::path& file, std::vector<HotKey>& hotKeys) {
  std::string bytes;
  const std::string failure = ReadWhole(file, kLongestFile, bytes);
  if (!failure.empty() && failure != SystemErrorText(ENOENT)) return failure;
  hotKeys = ReadHotKeys(bytes);
  return {};
}

std::string SaveHotKeys(const std::filesystem::path& file, const std::vector<HotKey>& hotKeys) {
  std::string bytes((hotKeys.size() + 1) * kRecordSize, '\0');
  RecordWriter writer(bytes);
  writer.Text("", 1);
  writer.Text(kSignature, kHotKeyText);
  writer.Text(std::to_string(hotKeys.size()), kHotKeyText);
  for (std::size_t n = 1; n <= hotKeys.size(); ++n) {
    const HotKey& hotKey = hotKeys[n - 1];
    if (std::string fault = HotKeyFault(hotKey); !fault.empty()) return fault;
    writer.Seek(n * kRecordSize);
    writer.Text(hotKey.key, 1);
    writer.Path(hotKey.path, kHotKeyText);
    writer.Text(hotKey.description, kHotKeyText);
  }
  assert(!writer.Failed());
  if (bytes.size() > kLongestFile) return SystemErrorText(EFBIG);
  return SaveWhole(file, bytes);
}

}  // namespace rollwick
