// Good files made by their writers: what the fuzzers begin with, and what stands beside a damaged game.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace rollwick {

using FilesByName = std::map<std::string, std::string>;

// A script file, a matrix, recorded rolls, a Games Log and an Events Log with its index.
FilesByName SampleCompanions();

// By target's name: its beginning inputs.
std::map<std::string, FilesByName> SampleCorpora();

}  // namespace rollwick
