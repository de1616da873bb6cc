// UTF-8 to code page 1252 and back.
#include "base/CodePage.h"

#include <gtest/gtest.h>

namespace rollwick {
namespace {

TEST(CodePage, TakesEachTextToItsBytes) {
  struct Row {
    const char* name;
    std::string_view text, bytes;
    bool hasPlace;
  };
  const Row rows[] = {
      {"nothing", "", "", true},
      {"letters, quotes, line ends", "Bet $ 10 \"x\"\r\n", "Bet $ 10 \"x\"\r\n", true},
      {"upper half", "\u00a0\u00e9\u00ff", "\xA0\xE9\xFF", true},
      {"middle", "\u20ac\u0178\u2014\u2122", "\x80\x9F\x97\x99", true},
      {"bytes without a character", "\u0081\u008d\u008f\u0090\u009d", "\x81\x8D\x8F\x90\x9D", true},
      {"controls that stand for no byte", "\u0080\u0082\u009f", "???", false},
      {"no place", "\u0394x\u4e2d\U0001F3B2", "?x??", false},
      {"the replacement character", "\ufffd", "?", false},
      {"bytes that begin nothing", "a\x80\xC0\xC1\xF5\xFF", "a?????", false},
      {"cut off", "\xE2\x82", "??", false},
      {"cut off before a letter", "\xE2\x82z", "??z", false},
      {"too long a form of /", "\xC0\xAF\xE0\x80\xAF\xF0\x80\x80\xAF", "?????????", false},
      {"surrogate", "\xED\xA0\x80", "???", false},
      {"beyond the last character", "\xF4\x90\x80\x80", "????", false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(ToCodePage(row.text), row.bytes);
    EXPECT_EQ(CharacterCount(row.text), row.bytes.size());
    EXPECT_EQ(HasPlaceInCodePage(row.text), row.hasPlace);
    EXPECT_EQ(FromCodePage(row.bytes) == row.text, row.hasPlace);
  }
}

TEST(CodePage, BringsEveryByteBackButTheNul) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(ToCodePage(FromCodePage(bytes)), bytes) << byte;
    EXPECT_TRUE(HasPlaceInCodePage(FromCodePage(bytes))) << byte;
  }
  EXPECT_EQ(FromCodePage(std::string_view("a\0b", 3)), "a b");
  EXPECT_EQ(ToCodePage(std::string_view("a\0b", 3)), "a b");
}

}  // namespace
}  // namespace rollwick
