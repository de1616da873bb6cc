// The file a script writes: byte for byte, and on disks that refuse.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "autobet/run/Output.h"
#include "autobet/run/tests/ScriptTable.h"

namespace rollwick {
namespace {

std::string ReadAll(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

ScriptLine Clear(std::string name = "out.txt") {
  return DoNamed(Verb::OpenClear, std::move(name));
}
ScriptLine Append(std::string name = "out.txt") {
  return DoNamed(Verb::OpenAppend, std::move(name));
}
ScriptLine Put(std::string text) {
  return DoNamed(Verb::OutputMessage, std::move(text));
}
ScriptLine PutStack(int number, bool atThrow = false) {
  return DoOf(atThrow ? Verb::OutputLastValue : Verb::OutputValue, {}, Item::Stack, number);
}
const ScriptLine kNewLine = Do(Verb::OutputNewLine);
const ScriptLine kClose = Do(Verb::CloseFile);

TEST(Output, ByteForByte) {
  struct Row {
    const char* name;
    Script lines;
    const char* content;  // of out.txt, which held "old"
  };
  // clang-format off
  const Row rows[] = {
    {"cleared", {Clear()}, ""},
    {"appended", {Append(), Put("new")}, "oldnew\t"},
    {"name between blanks", {Clear("  out.txt  "), Put("new;")}, "new"},
    {"a message, its blanks at the right lost", {Clear(), Put(" Roll count  ")}, " Roll count\t"},
    {"a semicolon for the tab", {Clear(), Put("Roll count;"), Put("s ;"), Put("")}, "Roll counts \t"},
    {"one semicolon of two", {Clear(), Put("a;;")}, "a;"},
    {"amounts", {Clear(), PutStack(1), PutStack(2), PutStack(3), PutStack(4)}, "0.25\t-3\t1000000\t0\t"},
    {"amounts at the throw", {Clear(), PutStack(1, true), PutStack(2, true)}, "-0.0001\t0\t"},
    {"the end of a line", {Clear(), Put("a"), kNewLine, kNewLine, Put("b;")}, "a\t\r\n\r\nb"},
    {"closed and opened again", {Clear(), Put("a;"), kClose, kClose, Append(), Put("b;")}, "ab"},
    {"opened over itself", {Append(), Put("a;"), Append(), Put("b;")}, "oldab"},
    {"cleared again", {Clear(), Put("a;"), Clear(), Put("b;")}, "b"},
    {"another one takes its place", {Append(), Put("a;"), Clear("other.txt"), Put("b;")}, "olda"},
    {"closed for good", {Clear(), Put("a;"), kClose, Put("b;")}, "a"},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptTable t;
    const auto path = t.files.folder / "out.txt";
    std::ofstream(path) << "old";
    t.Stand({{StackOf(1), "0.25"}, {StackOf(2), "-3"}, {StackOf(3), "1000000"}});
    t.g.BetAtThrow[StackOf(1)] = Of("-0.0001");
    t.Run(row.lines);
    EXPECT_EQ(ReadAll(path), row.content);
    const bool isClosed =
        row.lines.back().Op == Verb::OutputMessage && row.lines.rbegin()[1].Op == Verb::CloseFile;
    EXPECT_EQ(t.files.messages.size(), isClosed ? 1u : 0u);
    EXPECT_FALSE(t.g.OutputFileName.empty()) << "closing keeps the name";
  }
}

// A game was loaded whose script had been writing: it goes on behind what is there, once.
TEST(Output, GoesOnInALoadedGame) {
  ScriptTable t;
  const auto path = t.files.folder / "out.txt";
  std::ofstream(path) << "old";
  t.g.OutputFileName = "out.txt";
  t.g.OutputIsToReopen = true;
  t.Run({Put("new;"), kClose});
  EXPECT_EQ(ReadAll(path), "oldnew");
  t.g.OutputIsToReopen = true;
  t.Run({kClose, Put("more;")});
  EXPECT_EQ(ReadAll(path), "oldnew") << "closed is closed";
}

// Seen by others when the run has ended, in Hyper-Drive when it is served.
TEST(Output, ReachesTheDisk) {
  ScriptTable t;
  const auto path = t.files.folder / "out.txt";
  t.g.HyperDriveActive = true;
  t.Run({Clear(), Put("a;")});
  EXPECT_EQ(ReadAll(path), "");
  FlushScriptOutput(t.g);
  EXPECT_EQ(ReadAll(path), "a");
  t.Run({PutStack(1)});
  t.g.ScriptOutput.Close();
  EXPECT_EQ(ReadAll(path), "a0\t");
  t.Run({Append()});
  const std::string word(78, 'x');
  for (int line = 0; line < 2000; ++line) t.Run({Put(word + ";")});
  EXPECT_GT(ReadAll(path).size(), 100'000u) << "no more than a buffer waits";
  t.Run({kClose});
  EXPECT_EQ(ReadAll(path).size(), 3 + 2000 * word.size());
}

// A full disk is told once, what got there stays, and nothing is open any more.
TEST(Output, FullDisk) {
  struct Row {
    const char* name;
    bool hyper;
    Script lines;
    const char* message;
  };
  const char* closed =
      "The output file of the Auto-Bet script could not be written and has been closed:\r\r"
      "out.txt: File too large, Error #27";
  const char* aborted =
      "The following error has caused Auto-Betting to abort at line #5:\r\r"
      "out.txt: File too large, Error #27\r\rPress help for more information.";
  const Script twice = {Clear(), Put("12345;"), Put("67890;")};
  const auto with = [&](ScriptLine last) {
    Script lines = twice;
    lines.push_back(std::move(last));
    return lines;
  };
  // clang-format off
  const Row rows[] = {
    {"at the end of the run", false, twice, closed},
    {"in Hyper-Drive, when it is served", true, twice, closed},
    {"when it is closed", false, with(kClose), aborted},
    {"when another is opened, which is then left alone", false, with(Clear("other.txt")), aborted},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptTable t;
    std::ofstream(t.files.folder / "other.txt") << "old";
    t.g.HyperDriveActive = row.hyper;
    t.g.KeepRolling = true;
    {
      const FileSizeLimit limit(8);
      t.Run(row.lines);
      if (row.hyper) FlushScriptOutput(t.g);
      FlushScriptOutput(t.g);
    }
    ASSERT_EQ(t.files.messages.size(), row.hyper ? 0u : 1u);
    EXPECT_EQ(row.hyper ? t.g.StopMessage : t.files.messages[0].text, row.message);
    EXPECT_FALSE(t.g.KeepRolling || t.g.ScriptOutput.IsOpen());
    EXPECT_EQ(ReadAll(t.files.folder / "out.txt"), "12345678");
    EXPECT_EQ(ReadAll(t.files.folder / "other.txt"), "old");
  }
}

}  // namespace
}  // namespace rollwick
