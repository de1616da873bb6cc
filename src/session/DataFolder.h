// The folder that holds the user's games, scripts and logs, and what lies in it.
#pragma once

#include <filesystem>

namespace rollwick {

// The folder of the user's games by the XDG rules.
std::filesystem::path UserDataFolder();

// Whether `path`, when all links are followed, lies in `folder`. A link to what is not there leads nobody
// knows where.
bool IsInFolder(const std::filesystem::path& path, const std::filesystem::path& folder);

}  // namespace rollwick
