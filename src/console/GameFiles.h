// Game files at the console's table: where a command starts from, and save and load.
#pragma once

#include <string>

#include "console/Table.h"

namespace rollwick {

// Lets the table begin as --game and --rules say. Empty, or what refused it, with the file's name.
std::string StartFromFiles(Table& table, const CommonOptions& options);

// Saves the game. Empty, or the system's words, with the file's name.
std::string SaveInto(Table& table, const std::string& file);

}  // namespace rollwick
