// Dice Roll Files by themselves: what opens, what is recorded and played back byte by byte, and disks that
// refuse.
#include "dice/DiceFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>

#include "support/DamagedFile.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

struct FileTable : TestTable {
  TemporaryFolder folder;
  std::filesystem::path path = folder / "mine.rol";

  void Put(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }
  std::string Bytes() const {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void Open(std::int32_t mode, std::int32_t record = 1) {
    const auto refusal = OpenDiceFile(g, path, true);
    ASSERT_FALSE(refusal) << refusal->text;
    g.DiceFileMode = mode;
    g.DiceFileRecord = record;
  }
  void Record(std::int32_t die1, std::int32_t die2) {
    g.Die1 = die1;
    g.Die2 = die2;
    RecordDiceRoll(g);
  }
};

TEST(DiceFile, WhatOpens) {
  const std::string refusal =
      "mine.rol\ris either from an earlier version, has been corrupted, or is not a true Rollwick dice roll "
      "file.";
  const std::string good(150, '\x24');
  const auto withBits = [&](std::size_t place, char bits) {
    std::string bytes = good;
    bytes[place] = static_cast<char>(bytes[place] | bits);
    return bytes;
  };
  const struct Row {
    const char* name;
    std::string bytes;
    std::string refused;
  } kRows[] = {
      {"no roll", "", ""},
      {"rolls", good, ""},
      {"a byte of no dice at the start", std::string(1, '\0'), ""},
      {"bit 0 in the first byte", withBits(0, 1), refusal},
      {"bit 1 in the hundredth byte", withBits(99, 2), refusal},
      {"bits 0 and 1 in the byte behind", withBits(100, 3), ""},
      {"a text", "This is a text and no dice.", refusal},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    FileTable t;
    t.Put(row.bytes);
    const auto message = OpenDiceFile(t.g, t.path, false);
    EXPECT_EQ(message ? message->text : "", row.refused);
    EXPECT_EQ(message ? message->title : "", row.refused.empty() ? "" : "Unable to Open Dice Roll File");
    EXPECT_EQ(t.g.DiceFileName, row.refused.empty() ? t.path.string() : "");
    EXPECT_EQ(t.Bytes(), row.bytes);
  }
}

TEST(DiceFile, ARefusedFileLeavesTheOneThatIsOpen) {
  FileTable t;
  t.Open(DiceFileRecording);
  t.Record(2, 3);
  const auto missing = t.folder / "missing.rol", pipe = t.folder / "pipe.rol";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(OpenDiceFile(t.g, missing, false)->text, "No such file or directory, Error #2");
  EXPECT_FALSE(std::filesystem::exists(missing));
  EXPECT_EQ(OpenDiceFile(t.g, t.folder.Path(), false)->text, "Is a directory, Error #21");
  EXPECT_EQ(OpenDiceFile(t.g, pipe, true)->text, "Invalid argument, Error #22");
  EXPECT_EQ(t.g.DiceFileName, t.path.string());
  EXPECT_EQ(t.g.DiceFileMode, DiceFileRecording);
  t.Record(5, 6);

  ASSERT_FALSE(OpenDiceFile(t.g, missing, true));
  EXPECT_TRUE(std::filesystem::exists(missing));
  EXPECT_EQ(t.g.DiceFileName, missing.string());
  EXPECT_EQ(t.g.DiceFileMode, DiceFileOff);
  EXPECT_EQ(t.g.DiceFileRecord, 1);
  EXPECT_EQ(t.Bytes(), "\x68\xd4") << "closed with all its rolls";
}

TEST(DiceFile, EveryByteInPlayback) {
  for (int byte = 0; byte < 256; ++byte) {
    SCOPED_TRACE(byte);
    FileTable t;
    t.Put("\x24" + std::string(99, '\x48') + static_cast<char>(byte));
    t.Open(DiceFilePlayback, 101);
    t.g.DiceLastRecord = 40;
    t.g.Die1 = 9;
    t.g.KeepRolling = true;
    const int die1 = byte / 4 % 8, die2 = byte / 32;
    if (die1 >= 1 && die1 <= 6 && die2 >= 1 && die2 <= 6) {
      EXPECT_TRUE(PlayBackDiceRoll(t.g));
      EXPECT_EQ(t.g.Die1, die1);
      EXPECT_EQ(t.g.Die2, die2);
      EXPECT_EQ(t.g.DiceFileRecord, 102);
      EXPECT_EQ(t.g.DiceLastRecord, 101);
      EXPECT_TRUE(t.g.KeepRolling);
    } else {
      EXPECT_FALSE(PlayBackDiceRoll(t.g));
      EXPECT_EQ(t.g.Die1, 9);
      EXPECT_EQ(t.g.DiceFileRecord, 101);
      EXPECT_EQ(t.g.DiceLastRecord, 40);
      EXPECT_EQ(t.g.DiceFileMode, DiceFileOff);
      EXPECT_EQ(t.g.StopMessage, "Stopped due to Dice Roll File value out of limits.");
      EXPECT_FALSE(t.g.KeepRolling);
    }
  }
}

// How many rolls come out before the file ends or one is none.
int RollsPlayed(Game& g) {
  g.DiceFileMode = DiceFilePlayback;
  int rolls = 0;
  while (g.DiceFileMode == DiceFilePlayback && PlayBackDiceRoll(g)) ++rolls;
  return rolls;
}

TEST(DiceFile, ADamagedFilePlaysUpToTheDamage) {
  const std::string good = std::string(100, '\x24') + std::string(30, '\xD8');
  FileTable t;
  const RewrittenFile file(t.path);
  ForEachLength(good, [&](const std::string& bytes) {
    file.Put(bytes);
    ASSERT_FALSE(OpenDiceFile(t.g, t.path, false));
    EXPECT_EQ(RollsPlayed(t.g), static_cast<int>(bytes.size()));
  });
  ForEachChange(good, [&](const std::string& bytes, std::size_t place) {
    file.Put(bytes);
    const auto byte = static_cast<unsigned char>(bytes[place]);
    const auto [die1, die2] = FacesOfByte(byte);
    const bool isRefused = place < 100 && (byte & 3) != 0;
    CloseDiceFile(t.g);
    EXPECT_EQ(OpenDiceFile(t.g, t.path, false).has_value(), isRefused);
    if (isRefused) return;
    const bool isRoll = die1 >= 1 && die1 <= 6 && die2 >= 1 && die2 <= 6;
    EXPECT_EQ(RollsPlayed(t.g), static_cast<int>(isRoll ? bytes.size() : place));
  });
}

TEST(DiceFile, RecordsOverWhatIsThereAndGrowsAtItsEndOnly) {
  const struct Row {
    const char* name;
    std::int32_t record;
    std::string bytes;
    std::int32_t next;
  } kRows[] = {
      {"from the start", 1, "\x68\xfc\x24\x24", 3},
      {"over the end", 4, "\x24\x24\x24\x68\xfc", 6},
      {"behind the last", 5, "\x24\x24\x24\x24\x68\xfc", 7},
      {"far behind the last", 900, "\x24\x24\x24\x24\x68\xfc", 7},
      {"before the first", -2'147'483'647, "\x68\xfc\x24\x24", 3},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    FileTable t;
    t.Put("\x24\x24\x24\x24");
    t.Open(DiceFileRecording, row.record);
    t.Record(2, 3);
    t.Record(7, 7);  // a face of 7 is written as it comes
    FlushDiceFile(t.g);
    EXPECT_EQ(t.Bytes(), row.bytes);
    EXPECT_EQ(t.g.DiceFileRecord, row.next);
    EXPECT_EQ(t.g.DiceLastRecord, row.next - 1);
  }
}

TEST(DiceFile, TheLastRecordOfAll) {
  FileTable t;
  t.Put("");
  std::filesystem::resize_file(t.path, 2'200'000'000);  // a hole: it takes no room
  t.Open(DiceFileRecording, kDiceRecordLimit - 1);
  t.Record(6, 6);
  EXPECT_EQ(t.g.DiceFileRecord, kDiceRecordLimit);
  t.Record(6, 6);
  EXPECT_EQ(t.TakeMessage(),
            "The Dice Roll File could not be written and recording has been turned off.\r\rFile too large, "
            "Error #27");
  EXPECT_EQ(t.g.DiceFileRecord, kDiceRecordLimit);
  t.g.DiceFileMode = DiceFilePlayback;
  EXPECT_FALSE(PlayBackDiceRoll(t.g));
  EXPECT_EQ(t.g.StopMessage, kDiceFileEnded);
  t.g.DiceFileRecord = kDiceRecordLimit - 1;
  EXPECT_TRUE(PlayBackDiceRoll(t.g));
}

TEST(DiceFile, AFullDiskEndsRecordingAndKeepsWhatIsWritten) {
  FileTable t;
  t.Open(DiceFileRecording);
  {
    const FileSizeLimit full(40'000);
    for (int roll = 0; roll < 70'000 && t.g.DiceFileMode == DiceFileRecording; ++roll) t.Record(3, 4);
  }
  EXPECT_EQ(t.TakeMessage(),
            "The Dice Roll File could not be written and recording has been turned off.\r\rFile too large, "
            "Error #27");
  EXPECT_EQ(t.g.DiceFileRecord, 40'001);
  EXPECT_EQ(t.g.DiceLastRecord, 40'000);
  t.g.DiceFileMode = DiceFileRecording;  // room again
  t.Record(1, 1);
  CloseDiceFile(t.g);
  EXPECT_EQ(t.Bytes(), std::string(40'000, '\x8c') + '\x24');
}

TEST(DiceFile, TheRewindQuestionSaysWhatStopped) {
  TestTable t;
  RewindDicePrompt(t.g, DiceFileRecording);
  RewindDicePrompt(t.g, DiceFilePlayback);
  ASSERT_EQ(t.host.messages.size(), 2U);
  EXPECT_EQ(t.host.messages[0].title, "Dice Roll File");
  EXPECT_NE(t.host.messages[0].flags & MessageCancel, 0);
  EXPECT_EQ(t.TakeMessage(),
            "Recording stopped.\rRewind for playback? | Playback stopped.\rRewind for playback?");
}

}  // namespace
}  // namespace rollwick
