// Sounds found in folders.
#include "files/SoundSets.h"

#include <gtest/gtest.h>

#include "files/tests/SavedTable.h"

namespace rollwick {
namespace {

TEST(SoundSets, AreFoundInTheUsersFolderFirst) {
  const TemporaryFolder users, shared;
  for (const char* name : {"Zoe02.stk", "Zoe16.STK", "Zoe19.stk", "Zoe00.stk", "Zoe.stk", "zoe5.stk",
                           "Bell.win", "bar.WIN", "notes.txt", "Bell.dce"})
    PutContents(users / name, "");
  for (const char* name : {"ann01.stk", "ann18.stk", "zoe07.stk", "BELL.win", "Coins.win", "Rail.chp"})
    PutContents(shared / name, "");
  std::filesystem::create_directory(shared / "folder.chp");

  const std::filesystem::path folders[] = {users.Path(), shared.Path(), shared / "none"};
  struct Row {
    const char* name;
    SoundKind kind;
    std::vector<std::string> sets;
  };
  const Row rows[] = {
      {"voices by their prefixes", SoundKind::Voice, {"Zoe", "ann"}},
      {"win sounds, none twice", SoundKind::Win, {"bar", "Bell", "Coins"}},
      {"dice", SoundKind::Dice, {"Bell"}},
      {"chips", SoundKind::Chips, {"Rail"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::vector<std::string> names;
    for (const SoundSet& set : FindSoundSets(row.kind, folders)) names.push_back(set.name);
    EXPECT_EQ(names, row.sets);
  }

  const SoundSet zoe = FindSoundSets(SoundKind::Voice, folders)[0];
  EXPECT_EQ(zoe.files[2], users / "Zoe02.stk");
  EXPECT_EQ(zoe.files[CallHardWay], users / "Zoe16.STK");
  EXPECT_TRUE(zoe.files[7].empty()) << "a voice comes from one folder";
  EXPECT_EQ(FindSoundSets(SoundKind::Win, folders)[2].files[0], shared / "Coins.win");
}

}  // namespace
}  // namespace rollwick
