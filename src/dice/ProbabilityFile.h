// Probability files (*.prb): the matrix as a file keeps it. docs/probability-file.md has the layout.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "engine/state/Game.h"

namespace rollwick {

// Reads a probability file into ProbabilityMatrix and makes it the matrix's file, unedited. Whether the table
// uses the matrix is not touched. Nothing on success, else the message that refuses the file (for one the
// system does not give, the system's words); all is then as it was.
std::optional<Message> LoadProbabilityFile(Game& g, const std::filesystem::path& path);

// Writes ProbabilityMatrix and makes the file the matrix's own, unedited. Empty on success, else the system's
// words; the file and the game are then as they were.
std::string SaveProbabilityFile(Game& g, const std::filesystem::path& path);

}  // namespace rollwick
