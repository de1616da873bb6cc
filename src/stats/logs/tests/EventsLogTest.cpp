// The Events Log on disk: text and index line by line, what an accident leaves, and the end of the text.
#include "stats/logs/EventsLog.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;

struct LogOnDisk {
  TemporaryFolder folder;
  fs::path textPath = folder / "Events Log.txt";
  fs::path indexPath = folder / "Events Log.ref";
  std::unique_ptr<Game> game = std::make_unique<Game>();
  Game& g = *game;
  EventsLog log{textPath};

  std::string Text() const { return Read(textPath); }
  static std::string Read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static void Write(const fs::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  std::vector<unsigned> Offsets() const {
    const std::string bytes = Read(indexPath);
    EXPECT_EQ(bytes.size() % 4, 0U);
    std::vector<unsigned> offsets;
    for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4) {
      unsigned offset = 0;
      for (std::size_t byte = 4; byte-- > 0;)
        offset = offset << 8 | static_cast<unsigned char>(bytes[at + byte]);
      offsets.push_back(offset);
    }
    return offsets;
  }
  // The offsets that the text itself asks for.
  std::vector<unsigned> OffsetsOfText() const {
    std::vector<unsigned> offsets;
    unsigned at = 1;
    bool start = true;
    for (const char c : Text()) {
      if (start) offsets.push_back(at);
      start = c == '\n';
      ++at;
    }
    return offsets;
  }
};

TEST(EventsLog, OneRecordALineEmptyLinesToo) {
  LogOnDisk disk;
  EXPECT_TRUE(disk.log.IsEmpty());
  EXPECT_EQ(disk.log.Append(disk.g, ""), "");
  EXPECT_FALSE(fs::exists(disk.textPath));
  EXPECT_EQ(disk.log.Append(disk.g, "first\n\nthird\n"), "");
  EXPECT_EQ(disk.log.Append(disk.g, "fourth\n"), "");
  EXPECT_EQ(disk.Text(), "first\n\nthird\nfourth\n");
  EXPECT_EQ(disk.Offsets(), (std::vector<unsigned>{1, 7, 8, 14}));
  EXPECT_FALSE(disk.log.IsEmpty());
}

TEST(EventsLog, ANameWithControlsStaysInItsLine) {
  LogOnDisk disk;
  TestTable table;
  table.g.TheLog = &disk.log;
  LogEvent(table.g, "from a\nb\x1B\x7F\xC3\xA9.rol");
  FlushEventsLog(table.g);
  EXPECT_EQ(disk.Text(), "from a?b??\xC3\xA9.rol\n");
  EXPECT_EQ(disk.Offsets(), std::vector<unsigned>{1});
}

TEST(EventsLog, OffsetsBeyondOneByteAreLittleEndian) {
  LogOnDisk disk;
  const std::string line = std::string(69'999, '-') + '\n';
  ASSERT_EQ(disk.log.Append(disk.g, line + line + "x\n"), "");
  EXPECT_EQ(disk.Offsets(), (std::vector<unsigned>{1, 70'001, 140'001}));
}

// The log as an earlier run or an accident left it, and the text after one more line. The index must fit it
// then.
TEST(EventsLog, MendsWhatItFinds) {
  const std::string good("\1\0\0\0\3\0\0\0", 8);
  struct Row {
    const char* name;
    const char* text;
    std::string index;
    const char* after;
  };
  const Row rows[] = {
      {"index fits", "a\nb\n", good, "a\nb\nnew\n"},
      {"index missing", "a\nb\n", "", "a\nb\nnew\n"},
      {"index one record short", "a\nb\n", good.substr(0, 4), "a\nb\nnew\n"},
      {"index in the middle of a record", "a\nb\n", good.substr(0, 7), "a\nb\nnew\n"},
      {"index one record long", "a\nb\n", good + good.substr(4), "a\nb\nnew\n"},
      {"index of another text", "a\nb\n", std::string("\1\0\0\0\7\0\0\0", 8), "a\nb\nnew\n"},
      {"last line unfinished, in the index", "a\nb", good, "a\nb\nnew\n"},
      {"last line unfinished, not in the index", "a\nb", good.substr(0, 4), "a\nb\nnew\n"},
      {"lines that end in CR LF", "a\r\nb\r\n", "", "a\r\nb\r\nnew\n"},
      {"text empty, index not", "", good, "new\n"},
      {"only line ends", "\n\n\n", good, "\n\n\nnew\n"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    LogOnDisk disk;
    LogOnDisk::Write(disk.textPath, row.text);
    if (!row.index.empty()) LogOnDisk::Write(disk.indexPath, row.index);
    EXPECT_EQ(disk.log.Append(disk.g, "new\n"), "");
    EXPECT_EQ(disk.Text(), row.after);
    EXPECT_EQ(disk.Offsets(), disk.OffsetsOfText());
  }
}

// Killed at any point: both files end anywhere. No line that was whole is lost, and the index fits.
TEST(EventsLog, BothFilesCutAnywhere) {
  const std::string text = "a\n\nccc\nd\n";
  const std::string index("\1\0\0\0\3\0\0\0\4\0\0\0\10\0\0\0", 16);
  for (std::size_t textLength = 0; textLength <= text.size(); ++textLength) {
    for (std::size_t indexLength = 0; indexLength <= index.size(); indexLength += 3) {
      SCOPED_TRACE(testing::Message() << textLength << " of the text, " << indexLength << " of the index");
      LogOnDisk disk;
      const std::string left = text.substr(0, textLength);
      LogOnDisk::Write(disk.textPath, left);
      LogOnDisk::Write(disk.indexPath, index.substr(0, indexLength));
      ASSERT_EQ(disk.log.Append(disk.g, "new\n"), "");
      const bool isEnded = left.empty() || left.ends_with('\n');
      EXPECT_EQ(disk.Text(), left + (isEnded ? "" : "\n") + "new\n");
      EXPECT_EQ(disk.Offsets(), disk.OffsetsOfText());
    }
  }
}

TEST(EventsLog, RebuildsAnIndexOfManyBlocks) {
  LogOnDisk disk;
  std::string text;
  for (std::size_t line = 0; line < 50'000; ++line) text += std::string(line % 90, 'x') + '\n';
  LogOnDisk::Write(disk.textPath, text);
  ASSERT_EQ(disk.log.Append(disk.g, "new\n"), "");
  EXPECT_EQ(disk.Offsets(), disk.OffsetsOfText());
}

TEST(EventsLog, FilesThatOthersTouchWhileItIsOpen) {
  LogOnDisk disk;
  ASSERT_EQ(disk.log.Append(disk.g, "one\n"), "");
  std::ofstream(disk.textPath, std::ios::app) << "not ours\n";
  ASSERT_EQ(disk.log.Append(disk.g, "two\n"), "");
  EXPECT_EQ(disk.Text(), "one\nnot ours\ntwo\n");
  EXPECT_EQ(disk.Offsets(), disk.OffsetsOfText());
  fs::remove(disk.textPath);
  ASSERT_EQ(disk.log.Append(disk.g, "three\n"), "");
  EXPECT_EQ(disk.Text(), "three\n");
  EXPECT_EQ(disk.Offsets(), std::vector<unsigned>{1});
  fs::remove(disk.indexPath);
  ASSERT_EQ(disk.log.Append(disk.g, "four\n"), "");
  EXPECT_EQ(disk.Offsets(), disk.OffsetsOfText());
}

TEST(EventsLog, TopLineFollowsTheLatestRoll) {
  LogOnDisk disk;
  Game& g = disk.g;
  ASSERT_EQ(disk.log.Append(g, " Roll #1:  7 (3.4) from RNG #1\n"), "");
  EXPECT_EQ(g.LogTopLine, 1);
  g.LogLatestRollOnTop = true;
  ASSERT_EQ(
      disk.log.Append(g, "      Pass (natural)\n Roll #2:  4 (2.2) from RNG #1\n      Point established\n"),
      "");
  EXPECT_EQ(g.LogTopLine, 3);
  ASSERT_EQ(disk.log.Append(g, " New game started\n      $5 bet on Roll\n"), "");
  EXPECT_EQ(g.LogTopLine, 3);
  disk.log.Clear(g);
  EXPECT_EQ(g.LogTopLine, 1);
  EXPECT_FALSE(fs::exists(disk.textPath));
  EXPECT_FALSE(fs::exists(disk.indexPath));
  EXPECT_TRUE(disk.log.IsEmpty());
  ASSERT_EQ(disk.log.Append(g, "x\nRoll\n"), "");
  EXPECT_EQ(g.LogTopLine, 2);
  EXPECT_EQ(disk.Offsets(), (std::vector<unsigned>{1, 3}));
}

TEST(EventsLog, AnotherLogTakesOver) {
  LogOnDisk disk;
  ASSERT_EQ(disk.log.Append(disk.g, "here\n"), "");
  disk.log.Reopen(disk.folder / "other.txt");
  ASSERT_EQ(disk.log.Append(disk.g, "there\n"), "");
  EXPECT_EQ(disk.Text(), "here\n");
  EXPECT_EQ(LogOnDisk::Read(disk.folder / "other.txt"), "there\n");
  EXPECT_TRUE(fs::exists(disk.folder / "other.ref"));
}

TEST(EventsLog, SaysWhyItCannotWrite) {
  LogOnDisk disk;
  fs::create_directory(disk.folder / "folder");
  mkfifo((disk.folder / "pipe").c_str(), 0600);
  struct Row {
    const char* name;
    const char* text;
  };
  const Row rows[] = {
      {"no/log.txt", "No such file or directory, Error #2"},
      {"folder", "Is a directory, Error #21"},
      {"pipe", "Invalid argument, Error #22"},
      {"a log that would be its own index.ref", "Invalid argument, Error #22"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    disk.log.Reopen(disk.folder / row.name);
    EXPECT_EQ(disk.log.Append(disk.g, "x\n"), row.text);
    EXPECT_TRUE(disk.log.LastLines(5).empty());
  }
}

TEST(EventsLog, AFullDiskIsMendedByTheNextLine) {
  LogOnDisk disk;
  ASSERT_EQ(disk.log.Append(disk.g, "kept\n"), "");
  {
    const FileSizeLimit limit(100);
    EXPECT_EQ(disk.log.Append(disk.g, std::string(200, 'x') + '\n'), "File too large, Error #27");
  }
  ASSERT_EQ(disk.log.Append(disk.g, "after\n"), "");
  EXPECT_EQ(disk.Text(), "kept\n" + std::string(95, 'x') + "\nafter\n");
  EXPECT_EQ(disk.Offsets(), disk.OffsetsOfText());
}

TEST(EventsLog, ATextAsLongAsAnOffsetCanSayIsFull) {
  LogOnDisk disk;
  LogOnDisk::Write(disk.textPath, "");
  fs::resize_file(disk.textPath, 2'147'483'647);  // a hole: no disk is filled
  EXPECT_EQ(disk.log.Append(disk.g, "x\n"), "File too large, Error #27");
}

// The last line that fits still comes; then recording ends with one notice. The text is a hole but for its
// last line, so that it must open without being read.
TEST(EventsLog, AFullLogTurnsItselfOffWithOneNotice) {
  constexpr unsigned kLast = 2'147'483'630;
  LogOnDisk disk;
  LogOnDisk::Write(disk.textPath, "");
  fs::resize_file(disk.textPath, kLast - 2);
  std::ofstream(disk.textPath, std::ios::app) << "\nlast\n";
  const auto byte = [](unsigned shift) { return static_cast<char>(kLast >> shift & 0xFF); };
  LogOnDisk::Write(disk.indexPath, std::string("\1\0\0\0", 4) + byte(0) + byte(8) + byte(16) + byte(24));
  TestTable table;
  table.g.TheLog = &disk.log;
  table.g.RecordEventsActive = true;
  LogEvent(table.g, "twelve bytes");
  FlushEventsLog(table.g);
  EXPECT_EQ(table.TakeMessage(), "");
  EXPECT_EQ(fs::file_size(disk.textPath), 2'147'483'647U);
  EXPECT_EQ(disk.Offsets(), (std::vector<unsigned>{1, kLast, kLast + 5}));
  for (int round = 0; round < 3 && table.g.RecordEventsActive; ++round) {
    LogEvent(table.g, "");
    FlushEventsLog(table.g);
    EXPECT_EQ(table.TakeMessage(),
              "The Events Log could not be written and has been turned off.\r\rFile too large, Error #27");
  }
  EXPECT_FALSE(table.g.RecordEventsActive);
  EXPECT_EQ(fs::file_size(disk.textPath), 2'147'483'647U);
}

TEST(EventsLog, ALogThatCannotBeDeletedSaysSoAtTheNextLine) {
  LogOnDisk disk;
  fs::create_directories(disk.textPath);
  disk.log.Clear(disk.g);
  EXPECT_EQ(disk.log.Append(disk.g, "x\n"), "Is a directory, Error #21");
}

TEST(EventsLog, LastLines) {
  struct Row {
    const char* name;
    std::string text;
    int count;
    std::vector<std::string> lines;
  };
  const std::string longLine(200'000, 'y');
  const Row rows[] = {
      {"fewer than asked for", "a\nb\n", 5, {"a", "b"}},
      {"as many as there are", "a\nb\n", 2, {"a", "b"}},
      {"the last of them", "a\nb\nc\n", 2, {"b", "c"}},
      {"none", "a\nb\n", 0, {}},
      {"a negative count", "a\nb\n", -1, {}},
      {"an unfinished last line", "a\nb", 1, {"b"}},
      {"empty lines", "\n\n\n", 2, {"", ""}},
      {"empty first line", "\na\n", 2, {"", "a"}},
      {"CR LF", "a\r\nb\r\n", 2, {"a", "b"}},
      {"nothing", "", 3, {}},
      {"lines longer than a block", "a\n" + longLine + "\nb\n", 2, {longLine, "b"}},
      {"a line end at the start of a block",
       "a\nb" + std::string("\n") + std::string(65'536, 'z') + "\n",
       2,
       {"b", std::string(65'536, 'z')}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    LogOnDisk disk;
    LogOnDisk::Write(disk.textPath, row.text);
    EXPECT_EQ(disk.log.LastLines(row.count), row.lines);
  }
  LogOnDisk missing;
  EXPECT_TRUE(missing.log.LastLines(3).empty());
}

// A log of 20 GB, all but its end a hole: its last lines must come without reading the rest.
TEST(EventsLog, LastLinesOfAHugeLogAreReadFromItsEnd) {
  LogOnDisk disk;
  LogOnDisk::Write(disk.textPath, "");
  fs::resize_file(disk.textPath, 20'000'000'000);
  std::ofstream(disk.textPath, std::ios::app) << "\nnext to last\nlast\n";
  EXPECT_EQ(disk.log.LastLines(2), (std::vector<std::string>{"next to last", "last"}));
}

}  // namespace
}  // namespace rollwick
