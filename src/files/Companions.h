// Files that a game file names: how it writes their paths and dates, and how it finds them again.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace rollwick {

// When the file was last written, in local time and by the system's own form: "3/7/2026 4:05:09 PM", at
// midnight the date alone. Empty when there is no such file.
std::string FileDateText(const std::filesystem::path& path);

// `path` in full, as far as the system can say.
std::filesystem::path FullPath(const std::filesystem::path& path);

// The words for a file in a game file in `folder`: its full path, or where that is too long for the field the
// path from the folder. Cut when neither fits: `isCut` tells it.
std::string StoredPath(const std::filesystem::path& path, const std::filesystem::path& folder, bool& isCut);

// The regular file that such words name, a file of the same name in other letters for want of it; nothing
// when there is none.
std::optional<std::filesystem::path> FindCompanion(std::string_view stored,
                                                   const std::filesystem::path& folder);

// The words for a person's eyes: UTF-8, without control characters.
std::string ShownPath(std::string_view stored);

// Whether two paths lead to the same place, whatever stands there.
bool IsSamePath(const std::filesystem::path& a, const std::filesystem::path& b);

// Whether the log has the index that was written with it: a file from elsewhere is not appended to, nor
// deleted with a new game.
bool IsEventsLog(const std::filesystem::path& path);

}  // namespace rollwick
