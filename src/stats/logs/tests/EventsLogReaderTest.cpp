// Reading the Events Log by line numbers: what is shown, indexes that do not fit, and a writer at work.
#include "stats/logs/EventsLogReader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <random>

#include "stats/logs/EventsLog.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;

void Write(const fs::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

void Add(const fs::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary | std::ios::app) << bytes;
}

std::string Read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The index that the text asks for, found by the simplest means.
std::string IndexOf(std::string_view text) {
  std::string index;
  for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) index += IndexRecord(at + 1);
  return index;
}

struct LogToRead {
  TemporaryFolder folder;
  fs::path text = folder / "Events Log.txt";
  fs::path index = folder / "Events Log.ref";
  EventsLogReader log;

  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    for (std::int64_t number = 1; auto line = log.Line(number); ++number)
      lines.push_back(line->text + (line->isCut ? "|" : ""));
    EXPECT_EQ(log.Failure(), "");
    EXPECT_EQ(std::ssize(lines), log.LineCount());
    return lines;
  }
};

using Texts = std::vector<std::string>;

TEST(EventsLogReader, LinesAsTheyAreShown) {
  const std::string most(EventsLogReader::kLongestShown, 'x');
  struct Row {
    const char* name;
    std::string text;
    Texts lines;
  };
  const Row rows[] = {
      {"nothing", "", {}},
      {"lines and an empty one", "a\n\nb\n", {"a", "", "b"}},
      {"CR LF", "a\r\n\r\nb\r\n", {"a", "", "b"}},
      {"the last line has no end yet", "a\nb", {"a"}},
      {"only a line without an end", "a", {}},
      {"controls", "a\tb\x1B[2J\x7F\xC2\x9B.\xC3\xA9\rc\n", {"a?b?[2J??.\xC3\xA9?c"}},
      {"as long as is shown", most + "\n", {most}},
      {"as long as is shown, CR LF", most + "\r\n", {most}},
      {"a byte longer", most + "y\n", {most + "|"}},
      {"cut before a character, not inside", most.substr(1) + "\xC3\xA9\n", {most.substr(1) + "|"}},
      {"longer than any block", std::string(100'000, 'x') + "\nb\n", {most + "|", "b"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    LogToRead disk;
    Write(disk.text, row.text);
    EXPECT_EQ(disk.log.Open(disk.text), "");
    EXPECT_EQ(disk.Lines(), row.lines);
    EXPECT_FALSE(disk.log.Line(0));
    EXPECT_FALSE(disk.log.Line(-1));
  }
}

TEST(EventsLogReader, WhatIsRefused) {
  LogToRead disk;
  fs::create_directory(disk.folder / "folder");
  mkfifo((disk.folder / "pipe").c_str(), 0600);
  Write(disk.folder / "some.ref", "a\n");
  Write(disk.folder / "game.crp", std::string("Rollwick Game File\0\0\n", 21));
  Write(disk.folder / "huge", "a\n");
  fs::resize_file(disk.folder / "huge", 2'147'483'648);  // a hole: no disk is filled
  struct Row {
    const char* name;
    const char* failure;
  };
  const Row rows[] = {
      {"missing", "No such file or directory, Error #2"},
      {"folder", "Is a directory, Error #21"},
      {"pipe", "Invalid argument, Error #22"},
      {"some.ref", "Invalid argument, Error #22"},
      {"huge", "File too large, Error #27"},
      {"game.crp", "It is not a text, and so no Events Log."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(disk.log.Open(disk.folder / row.name), row.failure);
    EXPECT_EQ(disk.log.LineCount(), 0);
    EXPECT_FALSE(disk.log.Line(1));
    EXPECT_FALSE(fs::exists((disk.folder / row.name).replace_extension(".ref")) &&
                 row.name != fs::path("some.ref"));
  }
}

// What does not begin as an index is somebody's file.
bool IsForeign(const std::string& index) {
  return index.substr(0, 4) != IndexRecord(1).substr(0, index.size());
}

// Whatever a short index says, the lines are right; an index that was not is put right on the disk.
TEST(EventsLogReader, AShortIndexOfEveryLengthAndWithEveryByte) {
  const std::string text = "a\nbb\n\nccc\n";
  const std::string good = IndexOf(text);
  const Texts lines = {"a", "bb", "", "ccc"};
  LogToRead disk;
  Write(disk.text, text);
  const auto expectRightWith = [&](const std::string& index) {
    Write(disk.index, index);
    ASSERT_EQ(disk.log.Open(disk.text), "");
    ASSERT_EQ(disk.Lines(), lines);
    const bool staysAsItIs = index.starts_with(good) || IsForeign(index);
    EXPECT_EQ(Read(disk.index), staysAsItIs ? index : good);
  };
  for (std::size_t length = 0; length <= good.size(); ++length) expectRightWith(good.substr(0, length));
  for (const std::size_t bytes : {1, 3, 4}) expectRightWith(good + IndexRecord(12).substr(0, bytes));
  for (std::size_t at = 0; at < good.size(); ++at) {
    std::string index = good;
    index[at] ^= 1;
    SCOPED_TRACE(at);
    ASSERT_NO_FATAL_FAILURE(expectRightWith(index));
  }

  // Every byte, without making the index anew each time.
  Write(disk.index, good);
  int error = 0;
  const int textFile = OpenRegularFile(disk.text, error);
  const int indexFile = OpenRegularFile(disk.index, error);
  IndexedText indexed(textFile, indexFile);
  std::fstream change(disk.index, std::ios::in | std::ios::out | std::ios::binary);
  for (std::size_t at = 0; at < good.size(); ++at) {
    for (int byte = 0; byte < 256; ++byte) {
      change.seekp(static_cast<std::streamoff>(at)).put(static_cast<char>(byte)).flush();
      const bool fits = indexed.Look() && !indexed.IsShort();
      ASSERT_EQ(fits, byte == static_cast<unsigned char>(good[at])) << "byte " << at << " is " << byte;
    }
    change.seekp(static_cast<std::streamoff>(at)).put(good[at]).flush();
  }
  close(textFile);
  close(indexFile);
}

// More lines than are looked at on opening, read one after the other.
TEST(EventsLogReader, RandomIndexes) {
  std::mt19937 random(7);
  std::string text;
  Texts lines;
  for (std::size_t line = 0; line < 300; ++line) {
    lines.push_back(std::string(random() % 12, static_cast<char>('a' + line % 26)));
    text += lines.back() + "\n";
  }
  const std::string good = IndexOf(text);
  const auto record = [&] { return 4 * (random() % 300); };
  for (int round = 0; round < 100; ++round) {
    SCOPED_TRACE(round);
    std::string index = good;
    switch (round % 5) {
      case 0:  // a few records are anything
        for (int k = 0; k < 3; ++k) index.replace(record(), 4, IndexRecord(random()));
        break;
      case 1:  // a few are inside the text
        for (int k = 0; k < 3; ++k) index.replace(record(), 4, IndexRecord(1 + random() % text.size()));
        break;
      case 2:  // one is missing
        index.erase(record(), 4);
        break;
      case 3:  // one stands for two
        index.insert(record(), index, record(), 4);
        break;
      default:  // all are anything
        for (char& byte : index) byte = static_cast<char>(random());
    }
    LogToRead disk;
    Write(disk.text, text);
    Write(disk.index, index);
    ASSERT_EQ(disk.log.Open(disk.text), "");
    ASSERT_EQ(disk.Lines(), lines);
    EXPECT_EQ(Read(disk.index), IsForeign(index) ? index : good);
  }
}

TEST(EventsLogReader, WhileTheWriterIsAtWork) {
  LogToRead disk;
  const auto game = std::make_unique<Game>();
  EventsLog writer(disk.text);
  EXPECT_NE(disk.log.Open(disk.text), "");
  ASSERT_EQ(writer.Append(*game, "one\ntwo\n"), "");
  EXPECT_EQ(disk.log.Refresh(), "");
  EXPECT_EQ(disk.Lines(), (Texts{"one", "two"}));
  ASSERT_EQ(writer.Append(*game, "three\n"), "");
  EXPECT_EQ(disk.log.LineCount(), 2);
  EXPECT_EQ(disk.log.Refresh(), "");
  EXPECT_EQ(disk.Lines(), (Texts{"one", "two", "three"}));

  // In the middle of a flush: first the text comes, then the records, each in pieces.
  const std::string whole = Read(disk.text) + "four\nfive\n";
  const struct {
    std::string text, index;
    std::int64_t lines;
  } steps[] = {{"fo", "", 3},
               {"ur\n", "", 3},
               {"five\n", "", 3},
               {"", IndexOf(whole).substr(12, 2), 3},
               {"", IndexOf(whole).substr(14, 4), 4},
               {"", IndexOf(whole).substr(18), 5}};
  for (const auto& step : steps) {
    Add(disk.text, step.text);
    Add(disk.index, step.index);
    EXPECT_EQ(disk.log.Refresh(), "");
    EXPECT_EQ(disk.log.LineCount(), step.lines);
  }
  EXPECT_EQ(disk.Lines(), (Texts{"one", "two", "three", "four", "five"}));

  // A new index under the writer's hands, and a new log under the reader's.
  fs::remove(disk.index);
  EXPECT_EQ(disk.log.Refresh(), "");
  ASSERT_EQ(writer.Append(*game, "six\n"), "");
  EXPECT_EQ(Read(disk.index), IndexOf(Read(disk.text)));
  writer.Clear(*game);
  EXPECT_EQ(disk.log.Refresh(), "No such file or directory, Error #2");
  EXPECT_EQ(disk.log.LineCount(), 0);
  ASSERT_EQ(writer.Append(*game, "new\n"), "");
  EXPECT_EQ(disk.log.Refresh(), "");
  EXPECT_EQ(disk.Lines(), Texts{"new"});
}

// An index that cannot be put beside its text is kept without a name, and follows the text all the same.
TEST(EventsLogReader, WhereNoIndexCanBe) {
  LogToRead disk;
  Write(disk.text, "a\nb\n");
  fs::create_directory(disk.index);
  ASSERT_EQ(disk.log.Open(disk.text), "");
  EXPECT_EQ(disk.Lines(), (Texts{"a", "b"}));
  Add(disk.text, "c\nd");
  EXPECT_EQ(disk.log.Refresh(), "");
  EXPECT_EQ(disk.Lines(), (Texts{"a", "b", "c"}));
  Add(disk.text, "d\n");
  EXPECT_EQ(disk.log.Refresh(), "");
  EXPECT_EQ(disk.Lines(), (Texts{"a", "b", "c", "dd"}));
  EXPECT_EQ(std::distance(fs::directory_iterator(disk.folder.Path()), {}), 2) << "a file was left behind";
}

TEST(EventsLogReader, Find) {
  LogToRead disk;
  const std::string edge = std::string(BlockReader::kMost - 3, 'x') + "across" + std::string(40'000, 'x');
  Write(disk.text, " Roll #1:  7 (3.4)\n      Pass (natural)\n\n Roll #2:  4 (2.2)\n" + edge + "\n");
  ASSERT_EQ(disk.log.Open(disk.text), "");
  struct Row {
    const char* name;
    std::string wanted;
    std::int64_t from, to, found;  // 0: none
  };
  const Row rows[] = {
      {"the first", "roll", 1, 5, 1},
      {"the next", "Roll", 2, 5, 4},
      {"the one before", "ROLL", 3, 1, 1},
      {"on the line itself", "pass (NAT", 2, 2, 2},
      {"not so far", "roll", 2, 3, 0},
      {"in the middle of a long line", "across", 1, 5, 5},
      {"at the end of a long line", "xxx", 5, 5, 5},
      {"not over the end of a line", "(3.4)\n", 1, 5, 0},
      {"a text longer than all lines", std::string(15'000, 'y'), 1, 5, 0},
      {"a text too long to look for", std::string(20'000, 'x'), 1, 5, 0},
      {"nothing", "", 1, 5, 0},
      {"behind the last line", "roll", 6, 5, 0},
      {"before the first line", "roll", 0, 1, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(disk.log.Find(row.wanted, row.from, row.to).value_or(0), row.found);
    EXPECT_EQ(disk.log.Failure(), "");
  }
  EXPECT_EQ(disk.log.Screenful(2, 2).size(), 2U);
  EXPECT_EQ(disk.log.Screenful(5, 10).size(), 1U);
}

TEST(EventsLogReader, AMillionLines) {
  constexpr std::int64_t kLines = 1'000'000;
  LogToRead disk;
  std::string text;
  for (std::int64_t line = 1; line <= kLines; ++line) text += " Roll #" + std::to_string(line) + "\n";
  Write(disk.text, text);
  ASSERT_EQ(disk.log.Open(disk.text), "");
  ASSERT_EQ(disk.log.LineCount(), kLines);
  for (const std::int64_t line : {std::int64_t{1}, kLines / 2, kLines})
    EXPECT_EQ(disk.log.Line(line)->text, " Roll #" + std::to_string(line));
  EXPECT_EQ(disk.log.Find("#999999", 1, kLines), 999'999);
  EXPECT_EQ(disk.log.Find("#1000000", kLines, 1), kLines);
  EXPECT_EQ(Read(disk.index), IndexOf(text));
}

TEST(EventsLogReader, WhichLogsHaveTheirIndex) {
  struct Row {
    const char* name;
    const char* text;
    std::string index;
    bool fits;
  };
  const std::string good = IndexOf("a\nb\nc\n");
  const Row rows[] = {
      {"its own", "a\nb\nc\n", good, true},
      {"of an empty log", "", "", true},
      {"too short", "a\nb\nc\n", good.substr(0, 8), false},
      {"too long", "a\nb\nc\n", good + good.substr(8), false},
      {"half a record more", "a\nb\nc\n", good + "x", false},
      {"wrong in the middle", "a\nb\nc\n", good.substr(0, 4) + IndexRecord(4) + good.substr(8), false},
      {"of a text with other lines", "aa\n\nc\n", good, false},
      {"the last line without its end", "a\nb\nc", good, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    LogToRead disk;
    Write(disk.text, row.text);
    EXPECT_FALSE(IsIndexedEventsLog(disk.text)) << "without an index";
    Write(disk.index, row.index);
    EXPECT_EQ(IsIndexedEventsLog(disk.text), row.fits);
  }
}

}  // namespace
}  // namespace rollwick
