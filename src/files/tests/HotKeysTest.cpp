// "HotKeys.dta": what comes back, what is refused, and files cut and changed everywhere.
#include "files/HotKeys.h"

#include <gtest/gtest.h>

#include <fstream>

#include "files/tests/SavedTable.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

const std::vector<HotKey> kThree = {
    {"a", "martingale.bet", "doubles after a loss"},
    {"\u00e9", "/home/x/na\xefve.bet", "\u20ac 5 a roll"},  // a path has bytes of its own
    {"*", std::string(100, 'p'), std::string(100, 'd')},
};

std::string Field(std::string_view text, std::size_t width) {
  std::string field(text);
  field.resize(width, ' ');
  return field;
}

// A file with this count, one record after another `stride` bytes behind the last.
std::string FileOf(std::string_view count, std::initializer_list<const char*> keys, std::size_t stride) {
  std::string bytes = " " + Field("Rollwick Hot-Key File", 100) + Field(count, 100);
  bytes.resize(stride);
  for (const char* key : keys) {
    bytes += key + Field("x.bet", 100) + Field("", 100);
    bytes.resize((bytes.size() + stride - 1) / stride * stride);
  }
  return bytes;
}

struct HotKeys : testing::Test {
  TemporaryFolder folder;
  std::filesystem::path file = folder / "HotKeys.dta";
};

TEST_F(HotKeys, ComeBack) {
  ASSERT_EQ(SaveHotKeys(file, kThree), "");
  EXPECT_EQ(std::filesystem::file_size(file), 4 * 256U);
  std::vector<HotKey> loaded;
  EXPECT_EQ(LoadHotKeys(file, loaded), "");
  EXPECT_EQ(loaded, kThree);
  EXPECT_EQ(FindHotKey(loaded, "A"), &loaded[0]);
  EXPECT_EQ(FindHotKey(loaded, "\u00c9"), &loaded[1]);
  EXPECT_EQ(FindHotKey(loaded, "+"), nullptr);

  EXPECT_EQ(LoadHotKeys(folder / "none.dta", loaded), "");
  EXPECT_TRUE(loaded.empty());
  EXPECT_EQ(LoadHotKeys(folder.Path(), loaded), "Is a directory, Error #21");
}

TEST(HotKeyBytes, AreReadAsFarAsTheFileGoes) {
  struct Row {
    const char* name;
    std::string bytes;
    const char* keys;
  };
  const Row rows[] = {
      {"padded records", FileOf("2", {"a", "b"}, 256), "ab"},
      {"packed records", FileOf("2", {"a", "b"}, 201), "ab"},
      {"fewer than there are", FileOf("1", {"a", "b"}, 256), "a"},
      {"more than there are", FileOf("9", {"a", "b"}, 256), "ab"},
      {"far more", FileOf("99999999999999999999999", {"a"}, 256), "a"},
      {"a sign, blanks and a fraction", FileOf("  +2.9 keys", {"a", "b", "c"}, 256), "ab"},
      {"below zero", FileOf("-2", {"a", "b"}, 256), ""},
      {"no number", FileOf("two", {"a", "b"}, 256), ""},
      {"a key twice, in either case", FileOf("3", {"a", "A", "b"}, 256), "ab"},
      {"keys that nobody can press", FileOf("5", {" ", "\t", "a", "\x7f", "\xa0"}, 256), "a"},
      {"the last record without its padding", FileOf("1", {"a"}, 256).substr(0, 457), "a"},
      {"the last record cut", FileOf("1", {"a"}, 256).substr(0, 456), ""},
      {"another file", "a letter", ""},
      {"of another system", FileOf("1", {"a"}, 256).replace(1, 8, "Somebody"), ""},
      {"empty", "", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::string keys;
    for (const HotKey& hotKey : ReadHotKeys(row.bytes)) keys += hotKey.key;
    EXPECT_EQ(keys, row.keys);
  }
}

TEST_F(HotKeys, AnyLengthAndAnyByteIsHarmless) {
  ASSERT_EQ(SaveHotKeys(file, kThree), "");
  const std::string whole = Contents(file);
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    if (length == 4 * 201) continue;  // as long as if the records were packed
    const std::vector<HotKey> loaded = ReadHotKeys(whole.substr(0, length));
    const std::size_t held = length < 201 ? 0 : (length - 201) / 256;
    ASSERT_EQ(loaded.size(), held) << length;
    ASSERT_TRUE(std::equal(loaded.begin(), loaded.end(), kThree.begin())) << length;
  }
  for (std::size_t place = 0; place < whole.size(); ++place) {
    const bool isPadding = place % 256 >= 201;
    for (int byte = 0; byte < 256; byte += isPadding ? 51 : 1) {
      std::string changed = whole;
      changed[place] = static_cast<char>(byte);
      const std::vector<HotKey> loaded = ReadHotKeys(changed);
      ASSERT_LE(loaded.size(), kThree.size());
      ASSERT_TRUE(!isPadding || loaded == kThree) << place;
    }
  }
}

TEST_F(HotKeys, WhatDoesNotFitIsNotSaved) {
  struct Row {
    const char* name;
    HotKey hotKey;
    const char* says;
  };
  const Row rows[] = {
      {"no key", {"", "x.bet", ""}, "one printable character"},
      {"two keys", {"ab", "x.bet", ""}, "one printable character"},
      {"the space bar", {" ", "x.bet", ""}, "one printable character"},
      {"a key of another script", {"\u0416", "x.bet", ""}, "one printable character"},
      {"no file", {"b", "", ""}, "needs an Auto-Bet file"},
      {"a long path", {"b", std::string(101, 'p'), ""}, "at most 100 bytes"},
      {"a path that would lose its end", {"b", "x.bet ", ""}, "not a blank"},
      {"a long description", {"b", "x.bet", std::string(101, 'd')}, "at most 100 characters"},
      {"one of another script", {"b", "x.bet", "\u0416"}, "Western"},
  };
  ASSERT_EQ(SaveHotKeys(file, kThree), "");
  const std::string before = Contents(file);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_NE(SaveHotKeys(file, {row.hotKey}).find(row.says), std::string::npos);
    EXPECT_EQ(Contents(file), before);
  }
  const FileSizeLimit full(300);
  EXPECT_EQ(SaveHotKeys(file, {kThree[0]}), "File too large, Error #27");
  EXPECT_EQ(Contents(file), before);
}

}  // namespace
}  // namespace rollwick
