// From a line of input to words, and texts made safe to print.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rollwick {

inline constexpr std::size_t kLongestLine = 4096;  // bytes

struct InputLine {
  std::string text;  // without its line end; of an overlong line no more than the beginning
  bool isTooLong = false;
};

// The next line; nothing at the end of the input. Never holds more of a line than may be said.
std::optional<InputLine> ReadInputLine(std::istream& in);

// Words are separated by blanks and may be put in double quotes. `error` says why the line cannot be read.
struct Words {
  std::vector<std::string> words;
  std::string error;
};
Words SplitWords(const InputLine& line);

// `text` with every byte that is no UTF-8 replaced by U+FFFD.
std::string CleanUtf8(std::string_view text);

// `text` fit to be echoed: clean, and cut to 200 characters and "..." when it is longer.
std::string Echo(std::string_view text);

// A plain decimal whole number within the limits.
std::optional<std::int64_t> ParseWhole(std::string_view text, std::int64_t low, std::int64_t high);

}  // namespace rollwick
