// Files written so that a full disk, a lost folder or a kill never leaves half of one, and what the system
// says when it refuses.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace rollwick {

// The system's words for `error` (an errno), and its number: "No such file or directory, Error #2".
std::string SystemErrorText(int error);

// Writes all of `bytes` to the descriptor, in as many steps as the system takes. 0, or the errno of the step
// that failed; earlier steps stay written.
int WriteAll(int descriptor, std::string_view bytes);

// Makes `bytes` the whole content of the file at `path`: written and synced beside it, then renamed over it.
// Empty on success, else the error's text; the file is then as it was, or the new one when it was the folder
// that could not be synced.
std::string SaveWhole(const std::filesystem::path& path, std::string_view bytes);

// Removes what saves that were killed left in the folder. A folder that is not there has none.
void RemoveAbandonedTemporaries(const std::filesystem::path& folder);

}  // namespace rollwick
