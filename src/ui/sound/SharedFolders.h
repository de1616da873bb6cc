// Where the program finds what came with it.
#pragma once

#include <filesystem>
#include <vector>

namespace rollwick {

// Of a program in this folder, as it was installed: PREFIX/share/rollwick; empty when it is not.
std::filesystem::path ShareFolder(const std::filesystem::path& programFolder);

// The player's own sounds first, then those that came with the program: installed, or as they lie in its
// sources.
std::vector<std::filesystem::path> SoundFolders(const std::filesystem::path& dataFolder);

// The pages of the help.
std::filesystem::path HelpFolder();

// The picture of the program, where the desktop does not know it.
std::filesystem::path IconFile();

}  // namespace rollwick
