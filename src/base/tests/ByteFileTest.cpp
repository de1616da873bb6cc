// The byte file against a string: any order of reads and writes, other people's hands on it, full disks.
#include "base/ByteFile.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <random>

#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

std::string Content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(ByteFile, RandomPlacesAgreeWithAString) {
  const TemporaryFolder folder;
  const auto path = folder / "bytes";
  std::string expected(100'000, 'x');
  std::ofstream(path, std::ios::binary) << expected;
  ByteFile file;
  ASSERT_EQ(file.Open(path, false), "");
  std::mt19937 random(7);
  for (int round = 0; round < 2'000; ++round) {
    std::size_t place = random() % (expected.size() + 1);
    if (random() % 4 == 0) place = expected.size();
    for (std::size_t run = random() % 50; run > 0; --run, ++place) {
      const auto byte = static_cast<unsigned char>(random());
      if (byte % 2 == 0) {
        ASSERT_EQ(file.Write(static_cast<std::int64_t>(place), byte), "");
        if (place == expected.size()) expected.push_back(' ');
        expected[place] = static_cast<char>(byte);
      } else if (place < expected.size()) {
        ASSERT_EQ(file.Read(static_cast<std::int64_t>(place)), static_cast<unsigned char>(expected[place]));
      } else {
        ASSERT_FALSE(file.Read(static_cast<std::int64_t>(place)));
        break;
      }
    }
    ASSERT_EQ(file.Length(), static_cast<std::int64_t>(expected.size()));
    if (round % 100 == 0) {
      ASSERT_EQ(file.Flush(), "");
      ASSERT_EQ(Content(path), expected);
    }
  }
  ASSERT_EQ(file.Close(), "");
  EXPECT_EQ(Content(path), expected);
}

TEST(ByteFile, AFullDiskDropsWhatItRefusedAndNothingElse) {
  const TemporaryFolder folder;
  const auto path = folder / "bytes";
  ByteFile file;
  ASSERT_EQ(file.Open(path, true), "");
  for (int place = 0; place < 40'000; ++place) ASSERT_EQ(file.Write(place, 'a'), "");
  ASSERT_EQ(file.Flush(), "");
  {
    const FileSizeLimit full(40'100);
    for (int place = 39'000; place < 40'200; ++place) ASSERT_EQ(file.Write(place, 'b'), "");
    EXPECT_EQ(file.Flush(), "File too large, Error #27");
    EXPECT_EQ(file.Length(), 40'100);
    EXPECT_EQ(file.Read(40'099), 'b');
    EXPECT_FALSE(file.Read(40'100));
    EXPECT_EQ(file.Failure(), "") << "that was the end of the file";
    EXPECT_EQ(file.Write(40'200, 'c'), "Invalid argument, Error #22") << "no hole";
  }
  ASSERT_EQ(file.Write(40'100, 'c'), "");
  ASSERT_EQ(file.Close(), "");
  EXPECT_EQ(Content(path), std::string(39'000, 'a') + std::string(1'100, 'b') + "c");
}

TEST(ByteFile, CutByOthersItEndsThere) {
  const TemporaryFolder folder;
  const auto path = folder / "bytes";
  std::ofstream(path) << std::string(70'000, 'x');
  ByteFile file;
  ASSERT_EQ(file.Open(path, false), "");
  EXPECT_EQ(file.Read(0), 'x');
  std::filesystem::resize_file(path, 65'600);
  EXPECT_EQ(file.Read(65'599), 'x');
  EXPECT_FALSE(file.Read(65'600));
  EXPECT_EQ(file.Failure(), "");
  EXPECT_EQ(file.Write(69'000, 'y'), "Input/output error, Error #5");
}

TEST(ByteFile, AFileOnlyToBeReadIsRead) {
  const TemporaryFolder folder;
  const auto path = folder / "bytes";
  std::ofstream(path) << "xyz";
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
  std::filesystem::permissions(path, std::filesystem::perms(0444));
  const bool isRoot = geteuid() == 0;  // who may write everywhere
  ASSERT_EQ(isRoot ? seteuid(65'534) : 0, 0);
  ByteFile file;
  const std::string failure = file.Open(path, true);
  ASSERT_EQ(isRoot ? seteuid(0) : 0, 0);
  ASSERT_EQ(failure, "");
  EXPECT_EQ(file.Read(2), 'z');
  EXPECT_EQ(file.Write(2, 'a'), "Permission denied, Error #13");
  EXPECT_EQ(file.Close(), "");
  EXPECT_EQ(Content(path), "xyz");
}

}  // namespace
}  // namespace rollwick
