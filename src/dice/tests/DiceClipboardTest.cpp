// Dice Roll Files edited as lists of rolls: 11 is the roll 1-1, 65 the roll 6-5.
#include "dice/DiceClipboard.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "dice/DiceFile.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

std::string Bytes(const std::vector<int>& rolls) {
  std::string bytes;
  for (const int roll : rolls) bytes += static_cast<char>(DiceByte(roll / 10, roll % 10));
  return bytes;
}

std::vector<int> Rolls(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::vector<int> rolls;
  for (char byte; in.get(byte);) {
    const DiceFaces faces = FacesOfByte(static_cast<unsigned char>(byte));
    rolls.push_back(faces.die1 * 10 + faces.die2);
  }
  return rolls;
}

struct DiceEdit : testing::Test {
  TemporaryFolder folder;
  std::filesystem::path file = folder / "rolls.rol";
  std::filesystem::path clipboard = DiceClipboard(folder.Path());
  TestTable t;
  Game& g = t.g;

  void Open(const std::vector<int>& rolls, std::int32_t nextRoll) {
    std::ofstream(file, std::ios::binary) << Bytes(rolls);
    ASSERT_FALSE(OpenDiceFile(g, file, false));
    g.DiceFileRecord = nextRoll;
    g.DiceFileMode = DiceFilePlayback;
  }
  void PutClipboard(const std::string& bytes) const { std::ofstream(clipboard, std::ios::binary) << bytes; }
};

TEST_F(DiceEdit, RangesAreCopiedAndDeleted) {
  struct Row {
    const char* name;
    DiceRange range;
    std::vector<int> taken;
    std::vector<int> left;
    std::int32_t nextRoll;  // that was 4
  };
  const Row rows[] = {
      {"before the next roll", {1, 2}, {11, 22}, {33, 44, 55}, 2},
      {"with the next roll", {3, 2}, {33, 44}, {11, 22, 55}, 3},
      {"behind it", {5, 1}, {55}, {11, 22, 33, 44}, 4},
      {"more than there are", {2, INT32_MAX}, {22, 33, 44, 55}, {11}, 2},
      {"all", {1, 5}, {11, 22, 33, 44, 55}, {}, 1},
      {"from before the first", {-1, 3}, {11}, {22, 33, 44, 55}, 3},
      {"behind the last", {6, 2}, {}, {11, 22, 33, 44, 55}, 4},
      {"none", {2, 0}, {}, {11, 22, 33, 44, 55}, 4},
      {"less than none", {2, -5}, {}, {11, 22, 33, 44, 55}, 4},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Open({11, 22, 33, 44, 55}, 4);
    EXPECT_FALSE(CopyDiceRolls(g, row.range, clipboard));
    EXPECT_FALSE(DeleteDiceRolls(g, row.range));
    EXPECT_EQ(Rolls(clipboard), row.taken);
    EXPECT_EQ(Rolls(file), row.left);
    EXPECT_EQ(g.DiceFile.Length(), std::ssize(row.left));
    EXPECT_EQ(g.DiceFileRecord, row.nextRoll);
    EXPECT_EQ(g.DiceFileMode, DiceFilePlayback);
  }
}

TEST_F(DiceEdit, RollsArePastedAndKeyedIn) {
  struct Row {
    const char* name;
    bool inserts;
    std::int32_t nextRoll;
    std::vector<int> pasted;  // two of them, or one that is keyed in
    std::vector<int> left;
    std::int32_t after;
  };
  const Row rows[] = {
      {"pasted over", false, 2, {65, 56}, {11, 65, 56}, 4},
      {"pasted over and beyond", false, 3, {65, 56}, {11, 22, 65, 56}, 5},
      {"inserted", true, 2, {65, 56}, {11, 65, 56, 22, 33}, 4},
      {"inserted behind the last", true, 4, {65, 56}, {11, 22, 33, 65, 56}, 6},
      {"a place beyond the file", true, 99, {65, 56}, {11, 22, 33, 65, 56}, 6},
      {"keyed in over", false, 2, {65}, {11, 65, 33}, 3},
      {"keyed in behind the last", false, 4, {65}, {11, 22, 33, 65}, 5},
      {"keyed in between", true, 1, {65}, {65, 11, 22, 33}, 2},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Open({11, 22, 33}, row.nextRoll);
    g.DiceInsertRolls = row.inserts;
    PutClipboard(Bytes(row.pasted));
    EXPECT_FALSE(row.pasted.size() == 1 ? KeyInDiceRoll(g, row.pasted[0] / 10, row.pasted[0] % 10)
                                        : PasteDiceRolls(g, clipboard));
    EXPECT_EQ(Rolls(file), row.left);
    EXPECT_EQ(g.DiceFileRecord, row.after);
    EXPECT_EQ(g.DiceLastRecord, row.after - 1);
  }
}

TEST_F(DiceEdit, TheRecorderGoesOnInTheFileThatWasEdited) {
  Open({11, 22, 33}, 4);
  g.DiceFileMode = DiceFileRecording;
  g.Die1 = 4;
  g.Die2 = 4;
  RecordDiceRoll(g);  // still on its way to the disk
  EXPECT_FALSE(DeleteDiceRolls(g, {1, 2}));
  RecordDiceRoll(g);
  FlushDiceFile(g);
  EXPECT_EQ(Rolls(file), (std::vector{33, 44, 44}));
  EXPECT_FALSE(PasteDiceRolls(g, file)) << "also the file itself";
  EXPECT_EQ(Rolls(file), (std::vector{33, 44, 44, 33, 44, 44}));
}

TEST_F(DiceEdit, WhatIsRefusedChangesNothing) {
  const auto text = [](const std::optional<Message>& message) { return message ? message->text : "done"; };
  EXPECT_EQ(text(PasteDiceRolls(g, clipboard)), "You need to open a file first.");
  EXPECT_EQ(text(KeyInDiceRoll(g, 1, 1)), "You need to open a file first.");
  EXPECT_EQ(text(CopyDiceRolls(g, {1, 1}, clipboard)), "You need to open a file first.");

  Open({11, 22, 33}, 2);
  EXPECT_EQ(text(PasteDiceRolls(g, clipboard)), "No such file or directory, Error #2");
  EXPECT_EQ(text(CopyDiceRolls(g, {1, 2}, file)), "Device or resource busy, Error #16");
  PutClipboard("a letter");
  EXPECT_NE(text(PasteDiceRolls(g, clipboard)).find("is not a true Rollwick dice roll file."),
            std::string::npos);
  {
    PutClipboard(Bytes({65, 56}));
    g.DiceInsertRolls = true;
    const FileSizeLimit full(2);
    EXPECT_EQ(text(PasteDiceRolls(g, clipboard)), "File too large, Error #27");
    EXPECT_EQ(text(KeyInDiceRoll(g, 6, 5)), "File too large, Error #27");
    g.DiceFileRecord = 4;
    EXPECT_EQ(text(KeyInDiceRoll(g, 6, 5)), "File too large, Error #27");
    EXPECT_EQ(text(CopyDiceRolls(g, {1, 3}, clipboard)), "File too large, Error #27");
  }
  EXPECT_EQ(Rolls(file), (std::vector{11, 22, 33}));
  EXPECT_EQ(Rolls(clipboard), (std::vector{65, 56}));
  EXPECT_EQ(g.DiceFile.Length(), 3);
  EXPECT_EQ(g.DiceFileRecord, 4);

  EXPECT_EQ(DeleteDiceClipboard(folder.Path()), "");
  EXPECT_FALSE(std::filesystem::exists(clipboard));
  EXPECT_EQ(DeleteDiceClipboard(folder.Path()), "") << "there is none";
}

}  // namespace
}  // namespace rollwick
