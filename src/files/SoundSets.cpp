// Looks through folders for files by their suffixes, in any case.
#include "files/SoundSets.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

#include "autobet/model/Script.h"
#include "base/Nearest.h"

namespace rollwick {

namespace {

constexpr std::size_t kDigits = 2;

std::string_view Suffix(SoundKind kind) {
  switch (kind) {
    case SoundKind::Voice:
      return ".stk";
    case SoundKind::Dice:
      return ".dce";
    case SoundKind::Win:
      return ".win";
    case SoundKind::Chips:
      return ".chp";
  }
  return {};
}

// The call whose number ends the name, 1 to 18.
std::optional<std::size_t> CallOf(std::string_view stem) {
  if (stem.size() < kDigits) return {};
  const char tens = stem[stem.size() - 2], ones = stem[stem.size() - 1];
  if (tens < '0' || tens > '1' || ones < '0' || ones > '9') return {};
  const int call = (tens - '0') * 10 + (ones - '0');
  if (call < CallComingOut || call > kLastCall) return {};
  return static_cast<std::size_t>(call);
}

std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder, std::string_view suffix) {
  std::vector<std::filesystem::path> files;
  std::error_code error, unknown;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    if (SameWord(entry->path().extension().string(), suffix) && entry->is_regular_file(unknown))
      files.push_back(entry->path());
  }
  // A folder lists its files in no order of its own.
  std::ranges::sort(files, {}, [](const std::filesystem::path& file) {
    return std::pair(LowerTrimmed(file.stem().string()), file.string());
  });
  return files;
}

std::vector<SoundSet> SetsIn(SoundKind kind, const std::filesystem::path& folder) {
  std::vector<SoundSet> sets;
  for (const std::filesystem::path& file : FilesIn(folder, Suffix(kind))) {
    std::string name = file.stem().string();
    std::size_t entry = 0;
    if (kind == SoundKind::Voice) {
      const auto call = CallOf(name);
      if (!call) continue;
      entry = *call;
      name.resize(name.size() - kDigits);
    }
    auto set = std::ranges::find_if(sets, [&](const SoundSet& other) { return SameWord(other.name, name); });
    if (set == sets.end()) set = sets.insert(set, {name, {}});
    if (set->files[entry].empty()) set->files[entry] = file;
  }
  // Prefixes need not come in the order of their files: "Ann-01" before "Ann01", but "Ann" before "Ann-".
  std::ranges::stable_sort(sets, {}, [](const SoundSet& set) { return LowerTrimmed(set.name); });
  return sets;
}

}  // namespace

std::vector<SoundSet> FindSoundSets(SoundKind kind, std::span<const std::filesystem::path> folders) {
  std::vector<SoundSet> found;
  for (const std::filesystem::path& folder : folders) {
    for (SoundSet& set : SetsIn(kind, folder)) {
      const auto isSame = [&](const SoundSet& other) { return SameWord(other.name, set.name); };
      if (std::ranges::none_of(found, isSame)) found.push_back(std::move(set));
    }
  }
  return found;
}

}  // namespace rollwick
