// Texts as files keep them: code page 1252, one byte a character. Inside the program texts are UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace rollwick {

// The text with one byte a character. What has no place there, and every byte that is no UTF-8, becomes "?";
// a NUL becomes a blank. The result has CharacterCount(text) bytes.
std::string ToCodePage(std::string_view text);

// The UTF-8 of such bytes; a NUL reads as a blank. The five bytes without a character (81, 8D, 8F, 90, 9D)
// are U+0081 and so on, so that every other text comes back byte by byte.
std::string FromCodePage(std::string_view bytes);

// Whether every character of the text has a place, so that nothing of it is lost in a file.
bool HasPlaceInCodePage(std::string_view text);

// Whether the bytes are UTF-8 throughout.
bool IsUtf8(std::string_view bytes);

// Characters of the text; a byte that is no UTF-8 counts as one.
std::size_t CharacterCount(std::string_view text);

}  // namespace rollwick
