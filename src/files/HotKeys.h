// The hot keys of the table, each an Auto-Bet file that one key runs, and their file "HotKeys.dta".
// docs/hot-keys-file.md has the layout.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace rollwick {

inline constexpr std::string_view kHotKeysFile = "HotKeys.dta";
inline constexpr std::size_t kHotKeyText = 100;  // bytes that the path, and the description, may have

struct HotKey {
  std::string key;          // one character; its case does not matter
  std::string path;         // of the Auto-Bet file; a relative one starts in the data folder
  std::string description;  // for people
  friend bool operator==(const HotKey&, const HotKey&) = default;
};

// What keeps the hot key from being saved as it is; empty when nothing does.
std::string HotKeyFault(const HotKey& hotKey);

// The hot key on `key`, in either case; null when there is none.
const HotKey* FindHotKey(const std::vector<HotKey>& hotKeys, std::string_view key);

// The hot keys in the bytes of a file: none when it is no hot-key file.
std::vector<HotKey> ReadHotKeys(std::string_view bytes);

// Takes the hot keys of the file: none when it is not there or is no hot-key file. Empty on success, else
// the system's words; `hotKeys` is then as it was.
std::string LoadHotKeys(const std::filesystem::path& file, std::vector<HotKey>& hotKeys);

// Empty on success; else the fault of a hot key, or the system's words. The file is then as it was.
std::string SaveHotKeys(const std::filesystem::path& file, const std::vector<HotKey>& hotKeys);

}  // namespace rollwick
