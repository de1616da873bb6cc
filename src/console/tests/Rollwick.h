// The program as a function of words and input, for tests.
#pragma once

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "console/Console.h"

namespace rollwick {

struct Result {
  int exitCode;
  std::string out;
  std::string error;
};

inline Result Rollwick(const std::vector<std::string>& words, const std::string& input = "") {
  std::istringstream in(input);
  std::ostringstream out, error;
  const std::atomic<bool> interrupted = false;
  const int code = RunConsole(words, {in, out, error, interrupted});
  return {code, out.str(), error.str()};
}

// The objects of a text with one a line.
inline std::vector<nlohmann::ordered_json> Lines(const std::string& text) {
  std::vector<nlohmann::ordered_json> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(nlohmann::ordered_json::parse(line));
  return lines;
}

inline std::string WholeFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

}  // namespace rollwick
