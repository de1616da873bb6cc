// Saving a file whole, and what is left when the system refuses.
#include "base/AtomicFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::ptrdiff_t FileCount(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

TEST(SaveWhole, ReplacesTheFileAndLeavesNothingBeside) {
  const TemporaryFolder folder;
  const fs::path path = folder / "game.crp";
  EXPECT_EQ(SaveWhole(path, std::string(100'000, 'x')), "");
  EXPECT_EQ(SaveWhole(path, std::string_view("a\0b", 3)), "");
  EXPECT_EQ(Content(path), std::string("a\0b", 3));
  EXPECT_EQ(FileCount(folder.Path()), 1);
}

TEST(SaveWhole, KeepsTheFilesMode) {
  const TemporaryFolder folder;
  const fs::path path = folder / "game.crp";
  ASSERT_EQ(SaveWhole(path, "old"), "");
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  ASSERT_EQ(SaveWhole(path, "new"), "");
  struct stat status = {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST(SaveWhole, FollowsALink) {
  const TemporaryFolder folder;
  ASSERT_EQ(SaveWhole(folder / "real", "old"), "");
  fs::create_symlink("real", folder / "link");
  EXPECT_EQ(SaveWhole(folder / "link", "new"), "");
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(Content(folder / "real"), "new");
}

TEST(SaveWhole, LeavesADeviceOrAPipeInItsPlace) {
  const TemporaryFolder folder;
  EXPECT_EQ(SaveWhole("/dev/full", "x"), "No space left on device, Error #28");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(SaveWhole(folder / "pipe", "x"), "No such device or address, Error #6") << "nobody reads it";
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
  EXPECT_EQ(FileCount(folder.Path()), 1);
}

TEST(SaveWhole, SaysWhyItCannot) {
  const TemporaryFolder folder;
  ASSERT_EQ(SaveWhole(folder / "file", "kept"), "");
  EXPECT_EQ(SaveWhole(folder / "no" / "game.crp", "x"), "No such file or directory, Error #2");
  EXPECT_EQ(SaveWhole(folder / "file" / "game.crp", "x"), "Not a directory, Error #20");
  EXPECT_EQ(SaveWhole(folder.Path(), "x"), "Is a directory, Error #21");
  EXPECT_EQ(Content(folder / "file"), "kept");
  EXPECT_EQ(FileCount(folder.Path()), 1);
  EXPECT_EQ(SystemErrorText(99'999), "Unknown error, Error #99999");
}

TEST(SaveWhole, AFullDiskKeepsTheOldFile) {
  const TemporaryFolder folder;
  const fs::path path = folder / "game.crp";
  ASSERT_EQ(SaveWhole(path, "kept"), "");
  const FileSizeLimit limit(4096);
  EXPECT_EQ(SaveWhole(path, std::string(10'000, 'x')), "File too large, Error #27");
  EXPECT_EQ(Content(path), "kept");
  EXPECT_EQ(FileCount(folder.Path()), 1);
}

TEST(SaveWhole, WhatAKilledSaveLeftIsRemoved) {
  const TemporaryFolder folder;
  const pid_t gone = fork();
  if (gone == 0) _exit(0);
  ASSERT_EQ(waitpid(gone, nullptr, 0), gone);
  const std::string dead = ".rollwick-" + std::to_string(gone) + "-0";
  const std::string alive = ".rollwick-" + std::to_string(getpid()) + "-0";
  for (const std::string& name : {dead, alive, std::string(".rollwick-x-0"), std::string("game.crp")})
    ASSERT_EQ(SaveWhole(folder / name, "x"), "");
  RemoveAbandonedTemporaries(folder.Path());
  EXPECT_FALSE(fs::exists(folder / dead));
  EXPECT_TRUE(fs::exists(folder / alive));
  EXPECT_EQ(FileCount(folder.Path()), 3);
  RemoveAbandonedTemporaries(folder / "nowhere");
}

TEST(SaveWhole, AFolderThatMayNotBeWrittenKeepsTheOldFile) {
  const TemporaryFolder folder;
  const fs::path path = folder / "game.crp";
  ASSERT_EQ(SaveWhole(path, "kept"), "");
  fs::permissions(folder.Path(), static_cast<fs::perms>(0555));
  const uid_t user = geteuid();
  if (user == 0) {  // root may write everywhere: become nobody for a moment
    ASSERT_EQ(seteuid(65534), 0);
  }
  const std::string failure = SaveWhole(path, "new");
  ASSERT_EQ(seteuid(user), 0);
  fs::permissions(folder.Path(), fs::perms::owner_all);
  EXPECT_EQ(failure, "Permission denied, Error #13");
  EXPECT_EQ(Content(path), "kept");
}

}  // namespace
}  // namespace rollwick
