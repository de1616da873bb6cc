// Reading lines without trusting them.
#include "console/Words.h"

#include <charconv>

namespace rollwick {
namespace {

constexpr std::size_t kLongestEcho = 200;  // characters
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

unsigned Byte(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// Bytes of the valid UTF-8 character at the front of `text`; 0 when there is none.
std::size_t CharacterLength(std::string_view text) {
  const unsigned lead = Byte(text, 0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((Byte(text, i) & 0xC0U) != 0x80) return 0;
  }
  const unsigned second = Byte(text, 1);
  const bool isOverlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
  const bool isSurrogate = lead == 0xED && second >= 0xA0;
  const bool isBeyond = lead == 0xF4 && second >= 0x90;
  return isOverlong || isSurrogate || isBeyond ? 0 : length;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = CharacterLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

bool IsBlank(char letter) {
  return letter == ' ' || letter == '\t';
}

}  // namespace

std::optional<InputLine> ReadInputLine(std::istream& in) {
  std::streambuf& bytes = *in.rdbuf();
  constexpr int kEnd = std::istream::traits_type::eof();
  int next = bytes.sbumpc();
  if (next == kEnd) return {};
  InputLine line;
  for (; next != kEnd && next != '\n'; next = bytes.sbumpc()) {
    if (line.text.size() <= kLongestLine) line.text.push_back(static_cast<char>(next));
  }
  if (line.text.ends_with('\r')) line.text.pop_back();
  line.isTooLong = line.text.size() > kLongestLine;
  return line;
}

Words SplitWords(const InputLine& line) {
  if (line.isTooLong) return {{}, "the line is longer than " + std::to_string(kLongestLine) + " bytes."};
  if (line.text.find('\0') != std::string::npos) return {{}, "the line has a byte 0 in it."};
  if (!IsUtf8(line.text)) return {{}, "the line is not valid UTF-8."};

  Words result;
  bool isInWord = false, isQuoted = false;
  for (const char letter : line.text) {
    if (!isQuoted && IsBlank(letter)) {
      isInWord = false;
      continue;
    }
    if (!isInWord) result.words.emplace_back();
    isInWord = true;
    if (letter == '"') {
      isQuoted = !isQuoted;
    } else {
      result.words.back().push_back(letter);
    }
  }
  if (isQuoted) return {{}, "a double quote is not closed."};
  return result;
}

std::string CleanUtf8(std::string_view text) {
  std::string clean;
  while (!text.empty()) {
    const std::size_t length = CharacterLength(text);
    clean += length == 0 ? kReplacement : text.substr(0, length);
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return clean;
}

std::string Echo(std::string_view text) {
  const std::string clean = CleanUtf8(text.substr(0, 4 * (kLongestEcho + 1)));
  std::string_view rest = clean;
  for (std::size_t characters = 0; !rest.empty(); ++characters) {
    if (characters == kLongestEcho) return clean.substr(0, clean.size() - rest.size()) + "...";
    rest.remove_prefix(CharacterLength(rest));
  }
  return clean;
}

std::optional<std::int64_t> ParseWhole(std::string_view text, std::int64_t low, std::int64_t high) {
  std::int64_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || stop != text.data() + text.size()) return {};
  if (number < low || number > high) return {};
  return number;
}

}  // namespace rollwick
