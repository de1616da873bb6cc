#include "base/CodePage.h"

#include <algorithm>
#include <array>
#include <optional>

namespace rollwick {

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

// The characters of the bytes 80..9F. All other bytes are the characters of the same number.
constexpr std::array<char32_t, 32> kMiddle = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80..87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88..8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90..97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98..9F
};

unsigned char Byte(char c) {
  return static_cast<unsigned char>(c);
}

// Takes one character from the front of `text`, which is not empty; a byte that begins none is taken alone.
char32_t TakeCharacter(std::string_view& text) {
  const unsigned lead = Byte(text.front());
  const std::size_t size = lead < 0x80   ? 1
                           : lead < 0xC2 ? 0
                           : lead < 0xE0 ? 2
                           : lead < 0xF0 ? 3
                           : lead < 0xF5 ? 4
                                         : 0;
  char32_t character = size < 2 ? lead : lead & (0x7FU >> size);
  bool isWhole = size > 0 && size <= text.size();
  for (std::size_t i = 1; isWhole && i < size; ++i) {
    const unsigned next = Byte(text[i]);
    isWhole = (next & 0xC0U) == 0x80;
    character = (character << 6) | (next & 0x3FU);
  }
  const bool isTooLong = (size == 3 && character < 0x800) || (size == 4 && character < 0x10000);
  const bool isSurrogate = character >= 0xD800 && character < 0xE000;
  if (!isWhole || isTooLong || isSurrogate || character > 0x10FFFF) {
    text.remove_prefix(1);
    return kNoCharacter;
  }
  text.remove_prefix(size);
  return character;
}

void AppendCharacter(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) return append(character);
  if (character < 0x800) {
    append(0xC0 | (character >> 6));
  } else {
    append(0xE0 | (character >> 12));
    append(0x80 | ((character >> 6) & 0x3F));
  }
  append(0x80 | (character & 0x3F));
}

// The byte of a character, if it has one.
std::optional<char> Place(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  const auto found = std::ranges::find(kMiddle, character);
  if (found == kMiddle.end()) return {};
  return static_cast<char>(0x80 + (found - kMiddle.begin()));
}

}  // namespace

std::string ToCodePage(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    bytes += character == 0 ? ' ' : Place(character).value_or('?');
  }
  return bytes;
}

std::string FromCodePage(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const unsigned char byte = Byte(c);
    AppendCharacter(text, byte == 0 ? ' ' : byte >= 0x80 && byte < 0xA0 ? kMiddle[byte - 0x80U] : byte);
  }
  return text;
}

bool HasPlaceInCodePage(std::string_view text) {
  while (!text.empty()) {
    if (!Place(TakeCharacter(text))) return false;
  }
  return true;
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    if (TakeCharacter(bytes) == kNoCharacter) return false;
  }
  return true;
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) TakeCharacter(text);
  return count;
}

}  // namespace rollwick
