// Fields of records, and files read whole.
#include "base/Record.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>
#include <limits>

#include "base/AtomicFile.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

using namespace std::string_view_literals;

TEST(Record, KeepsThePathsOwnBytes) {
  std::string bytes(12, '#');
  RecordWriter writer(bytes);
  writer.Path("\xC3\xA4\xFF", 5);
  writer.Path("too long", 3);
  writer.Path("", 5);
  EXPECT_TRUE(writer.Failed()) << "a byte more than there is";
  EXPECT_EQ(bytes, "\xC3\xA4\xFF  too####"sv);
  RecordReader reader("\xC3\xA4\xFF\0 a"sv);
  EXPECT_EQ(reader.Path(5), "\xC3\xA4\xFF");
}

TEST(Record, KeepsEachFieldByteByByte) {
  std::string bytes(36, '#');
  RecordWriter writer(bytes);
  writer.Int16(-2);
  writer.Int32(0x01020304);
  writer.Int64(std::numeric_limits<std::int64_t>::min() + 5);
  writer.Single(33.0F);
  writer.Amount(Dollars(10));
  writer.Text(" \u20ac", 4);
  writer.Text("longer", 4);
  writer.Seek(35);
  writer.Text("", 1);
  EXPECT_FALSE(writer.Failed());
  EXPECT_EQ(bytes,
            "\xFE\xFF"
            "\x04\x03\x02\x01"
            "\x05\0\0\0\0\0\0\x80"
            "\0\0\x04\x42"
            "\xA0\x86\x01\0\0\0\0\0"
            " \x80  "
            "long"
            "# "sv);

  RecordReader reader(bytes);
  EXPECT_EQ(reader.Int16(), -2);
  EXPECT_EQ(reader.Int32(), 0x01020304);
  EXPECT_EQ(reader.Int64(), std::numeric_limits<std::int64_t>::min() + 5);
  EXPECT_EQ(reader.Single(), 33.0F);
  EXPECT_EQ(reader.Amount(), Dollars(10));
  EXPECT_EQ(reader.Text(4), " \u20ac");
  EXPECT_EQ(reader.Text(4), "long");
  EXPECT_EQ(reader.Place(), 34U);
  EXPECT_FALSE(reader.Failed());
}

TEST(Record, ReadsNulsAsBlanks) {
  EXPECT_EQ(RecordReader("a\0b\0 \0"sv).Text(6), "a b");
  EXPECT_EQ(RecordReader("\0\0"sv).Text(2), "");
}

TEST(Record, FailsForEverOnceAFieldIsOutside) {
  struct Row {
    const char* name;
    std::size_t place, width;
    bool fails;
  };
  const Row rows[] = {
      {"last byte", 3, 1, false},        {"nothing at the end", 4, 0, false},
      {"one byte over", 3, 2, true},     {"nothing behind the end", 5, 0, true},
      {"far behind", SIZE_MAX, 2, true}, {"absurd width", 1, SIZE_MAX, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    RecordReader reader("1234");
    reader.Seek(row.place);
    reader.Text(row.width);
    EXPECT_EQ(reader.Failed(), row.fails);
    reader.Seek(0);
    EXPECT_EQ(reader.Text(4), row.fails ? "" : "1234");
    EXPECT_EQ(reader.Failed(), row.fails);

    std::string bytes = "1234";
    RecordWriter writer(bytes);
    writer.Seek(row.place);
    writer.Text("", row.width);
    EXPECT_EQ(writer.Failed(), row.fails);
    EXPECT_TRUE(!row.fails || bytes == "1234") << bytes;
  }
}

TEST(Record, RoundsToEvenAndLeavesOutWhatDoesNotFit) {
  struct Row {
    double value;
    std::optional<std::int32_t> nearest;
  };
  const Row rows[] = {
      {0.5, 0},
      {1.5, 2},
      {-2.5, -2},
      {2147483647.0, 2147483647},
      {2147483647.5, {}},
      {-2147483648.5, std::numeric_limits<std::int32_t>::min()},
      {-2147483649.0, {}},
      {1e300, {}},
      {-INFINITY, {}},
      {NAN, {}},
  };
  for (const Row& row : rows) EXPECT_EQ(NearestInt32(row.value), row.nearest) << row.value;
}

TEST(ReadWhole, GivesTheFileOrTheSystemsWords) {
  const TemporaryFolder folder;
  ASSERT_EQ(SaveWhole(folder / "empty", ""), "");
  ASSERT_EQ(SaveWhole(folder / "ten", "0123456\0x9"sv), "");
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  struct Row {
    const char* name;
    std::size_t most;
    std::string_view failure, bytes;
  };
  const Row rows[] = {
      {"ten", 10, "", "0123456\0x9"sv},
      {"ten", 9, "File too large, Error #27", ""},
      {"empty", 0, "", ""},
      {"missing", 10, "No such file or directory, Error #2", ""},
      {".", 10, "Is a directory, Error #21", ""},
      {"pipe", 10, "Operation not supported, Error #95", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::string bytes = "old";
    EXPECT_EQ(ReadWhole(folder / row.name, row.most, bytes), row.failure);
    EXPECT_EQ(bytes, row.bytes);
  }
}

TEST(ReadWhole, ReadsAFileWhoseLengthTheSystemDoesNotKnow) {
  std::string bytes;
  EXPECT_EQ(ReadWhole("/proc/self/maps", 1 << 24, bytes), "");
  EXPECT_GT(bytes.size(), 1000U);
}

}  // namespace
}  // namespace rollwick
