// Auto-Bet files: written, read, refused, pasted and converted.
#include "autobet/files/ScriptFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "autobet/model/Codes.h"
#include "base/AtomicFile.h"
#include "base/Record.h"
#include "support/DamagedFile.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

using namespace std::string_literals;

constexpr std::string_view kSignature = "Rollwick AutoBets, Data Format 5.0";
const std::string kCorrupted = "has either been corrupted or is not a true Rollwick Auto-Bet file.";
const std::string kOlder =
    "has either been corrupted or was written with an older format which is no longer in use.";

ScriptLine BetOnPlace6() {
  ScriptLine line;
  line.Text = "          Bet $ 10 on Place 6";
  line.Kind = KindAction;
  line.Op = Verb::Bet;
  line.Amount = Dollars(10);
  line.RightCode = Bet::Place6;
  return line;
}

ScriptLine FlagLine(std::string name) {
  ScriptLine line;
  line.Text = " Set flag \u20ac";
  line.Kind = KindAction;
  line.Op = Verb::SetFlag;
  line.Name = std::move(name);
  line.Amount = -Money::FromUnits(12'345);
  line.LeftCode = 9999;
  line.LeftIndex = -3;
  line.LeftAux = 4;
  line.RightCode = -1600;
  line.RightIndex = 32'767;
  line.RightAux = -32'768;
  return line;
}

ScriptLine Label(std::string name) {
  ScriptLine line;
  line.Kind = KindLabel;
  line.Text = line.Name = std::move(name);
  return line;
}

const std::vector<ScriptLine> kThreeLines = {Label("start"), BetOnPlace6(), FlagLine("Up")};

std::string WithSingle(std::string bytes, std::size_t offset, float value) {
  RecordWriter writer(bytes);
  writer.Seek(offset);
  writer.Single(value);
  EXPECT_FALSE(writer.Failed());
  return bytes;
}

std::string WithCount(std::string bytes, Money count) {
  RecordWriter writer(bytes);
  writer.Seek(214);
  writer.Amount(count);
  return bytes;
}

std::string WithHeaderText(std::string bytes, std::string_view text) {
  RecordWriter(bytes).Text(text, 128);
  return bytes;
}

// The same records in the format with amounts as singles.
std::string OldFormat(std::string_view bytes) {
  std::string old;
  for (std::size_t start = 0; start < bytes.size(); start += kRecordSize) {
    RecordReader amount(bytes.substr(start, kRecordSize));
    amount.Seek(214);
    std::string record(bytes.substr(start, 214));
    record.append(4, '\0').append(bytes.substr(start + 222, 16)).append(22, '\xEE');
    old += WithSingle(record, 214, static_cast<float>(amount.Amount().ToDouble()));
  }
  return WithHeaderText(old, "Rollwick AutoBets, Data Format 3.9");
}

// A game with a script of one line, and a folder for files.
struct ScriptFileTable : TestTable {
  TemporaryFolder folder;

  ScriptFileTable() {
    g.ScriptLines = {FlagLine("old")};
    g.ScriptFlags = {{"old", 1, 1}};
    g.ScriptFileName = "old.bet";
    g.ScriptDirty = true;
  }
  std::filesystem::path File(std::string_view name, std::string_view bytes) const {
    EXPECT_EQ(SaveWhole(folder / name, bytes), "");
    return folder / name;
  }
  std::string Content(std::string_view name) const {
    std::string bytes;
    EXPECT_EQ(ReadWhole(folder / name, 1 << 20, bytes), "");
    return bytes;
  }
  void ExpectOldScript() const {
    EXPECT_EQ(g.ScriptLines, std::vector{FlagLine("old")});
    ASSERT_EQ(g.ScriptFlags.size(), 1U);
    EXPECT_EQ(g.ScriptFlags[0].Value, 1);
    EXPECT_EQ(g.ScriptFileName, "old.bet");
    EXPECT_TRUE(g.ScriptDirty);
    EXPECT_FALSE(g.AutoBetsChanged);
  }
};

TEST(ScriptFile, LaysEachFieldAtItsPlace) {
  ScriptLine line = BetOnPlace6();
  line.LeftCode = 1500;
  line.Name = "\u20acup";
  const std::string bytes = ScriptFileBytes({line, line, line});
  ASSERT_EQ(bytes.size(), 4 * kRecordSize);
  EXPECT_EQ(bytes.substr(0, 256), std::string(kSignature) + std::string(94, ' ') + std::string(6, '\0') +
                                      std::string(80, ' ') + "\x30\x75"s + std::string(40, '\0'));
  EXPECT_EQ(bytes.substr(256, 128), line.Text + std::string(99, ' '));
  EXPECT_EQ(bytes.substr(384, 6), "\x1E\0\x0A\0\0\0"s);
  EXPECT_EQ(bytes.substr(390, 80), "\x80up" + std::string(77, ' '));
  EXPECT_EQ(bytes.substr(470, 8), "\xA0\x86\x01\0\0\0\0\0"s);
  EXPECT_EQ(bytes.substr(478, 8), "\x00\x80\xBB\x44\0\0\0\0"s);
  EXPECT_EQ(bytes.substr(486, 8), "\x00\x00\x04\x42\0\0\0\0"s);
  EXPECT_EQ(bytes.substr(494, 18), std::string(18, '\0'));
}

TEST(ScriptFile, CutsAndHoldsWhatHasNoRoom) {
  ScriptLine line = FlagLine(std::string(81, 'n'));
  line.Text = std::string(127, 't') + "\u20acx";
  line.LeftIndex = 40'000;
  line.RightIndex = -40'000;
  line.LeftCode = std::numeric_limits<std::int32_t>::max();
  line.RightCode = std::numeric_limits<std::int32_t>::min();
  const ScriptFileTable t;
  const ScriptFileContent read = ReadScriptFile(t.File("a.bet", ScriptFileBytes({line})));
  ASSERT_EQ(read.lines.size(), 1U);
  EXPECT_EQ(read.lines[0].Name, std::string(80, 'n'));
  EXPECT_EQ(read.lines[0].Text, std::string(127, 't') + "\u20ac");
  EXPECT_EQ(read.lines[0].LeftIndex, 32'767);
  EXPECT_EQ(read.lines[0].RightIndex, -32'768);
  EXPECT_EQ(read.lines[0].LeftCode, 2'147'483'520);
  EXPECT_EQ(read.lines[0].RightCode, std::numeric_limits<std::int32_t>::min());
}

TEST(ScriptFile, TakesOnlyWhatIsProved) {
  const std::string whole = ScriptFileBytes(kThreeLines);
  const std::string empty = ScriptFileBytes({});
  const std::string old = OldFormat(whole);
  const auto version = [&](const char* end) {
    return WithHeaderText(whole, "Rollwick AutoBets, " + std::string(end));
  };
  const std::size_t line3 = 3 * kRecordSize;
  const float infinite = std::numeric_limits<float>::infinity();
  struct Row {
    const char* name;
    std::string bytes;
    std::string refusal;  // after the file's name; empty: taken
    std::size_t lines = 3;
  };
  const Row rows[] = {
      {"three lines", whole, ""},
      {"no lines", empty, "", 0},
      {"bytes behind the last line", whole + "rest", ""},
      {"last record without its tail", whole.substr(0, line3 + 238), ""},
      {"last record short of a field byte", whole.substr(0, line3 + 237), kCorrupted},
      {"old, last record without its tail", old.substr(0, line3 + 234), ""},
      {"old, last record short of a field byte", old.substr(0, line3 + 233), kCorrupted},
      {"length 0", "", kCorrupted},
      {"header short of a field byte", empty.substr(0, 237), kCorrupted},
      {"signature alone", std::string(kSignature), kCorrupted},
      {"another signature", WithHeaderText(whole, "rollwick AutoBets, Data Format 5.0"), kCorrupted},
      {"blank before the signature", WithHeaderText(whole, " Rollwick AutoBets, Data Format 5.0"),
       kCorrupted},
      {"5.00", version("5.00"), ""},
      {"5, behind blanks", version("   5"), ""},
      {"NULs behind the version", version("+5.0").replace(23, 105, 105, '\0'), ""},
      {"3.90", WithHeaderText(old, "Rollwick AutoBets 3.90"), ""},
      {"6", version("x   6"), "requires Rollwick version 6 or later to run."},
      {"5.5", version(" 5.5"), "requires Rollwick version 5.5 or later to run."},
      {"10", version("10.0"), "requires Rollwick version 10 or later to run."},
      {"5.01", version("5.01"), "requires Rollwick version 5.01 or later to run."},
      {"second point ends the number", version("5.0."), ""},
      {"no exponent", version("5e10"), ""},
      {"4.9", version(" 4.9"), kOlder},
      {"-5.0", version("-5.0"), kOlder},
      {"no number", WithHeaderText(whole, "Rollwick AutoBets"), kOlder},
      {"count one too high", WithCount(whole, Dollars(4)), kCorrupted},
      {"count one less", WithCount(whole, Dollars(2)), "", 2},
      {"count 2.5 is 2", WithCount(whole, Money::FromUnits(25'000)), "", 2},
      {"count 3.5 is 4", WithCount(whole, Money::FromUnits(35'000)), kCorrupted},
      {"count -0.5 is 0", WithCount(whole, Money::FromUnits(-5'000)), "", 0},
      {"count -1", WithCount(whole, Dollars(-1)), kCorrupted},
      {"count 2^31", WithCount(whole, Dollars(1LL << 31)), kCorrupted},
      {"count 2^31 - 1", WithCount(whole, Dollars((1LL << 31) - 1)), kCorrupted},
      {"the least count", WithCount(whole, Money::FromUnits(INT64_MIN)), kCorrupted},
      {"old count no number", WithSingle(old, 214, NAN), kCorrupted},
      {"old count 2.5", WithSingle(old, 214, 2.5F), "", 2},
      {"left code no number", WithSingle(whole, line3 + 222, NAN), kCorrupted},
      {"left code infinite", WithSingle(whole, line3 + 222, infinite), kCorrupted},
      {"right code 2^31", WithSingle(whole, line3 + 230, 2147483648.0F), kCorrupted},
      {"right code -2^31", WithSingle(whole, line3 + 230, -2147483648.0F), ""},
      {"old amount 1e15", WithSingle(old, line3 + 214, 1e15F), kCorrupted},
      {"old amount no number", WithSingle(old, line3 + 214, NAN), kCorrupted},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptFileTable t;
    EXPECT_EQ(ReadScript(t.g, t.File("my.bet", row.bytes), false), row.refusal.empty());
    if (!row.refusal.empty()) {
      ASSERT_EQ(t.host.messages.size(), 1U);
      EXPECT_EQ(t.host.messages[0].text, "my.bet\r" + row.refusal);
      EXPECT_EQ(t.host.messages[0].title, "Unable to Open Auto-Bet File");
      t.ExpectOldScript();
    } else {
      EXPECT_EQ(t.TakeMessage(), "");
      EXPECT_EQ(t.g.ScriptLines.size(), row.lines);
    }
  }
}

TEST(ScriptFile, SaysWhatTheSystemSaysOfAMissingFile) {
  ScriptFileTable t;
  EXPECT_FALSE(ReadScript(t.g, t.folder / "none.bet", true));
  ASSERT_EQ(t.host.messages.size(), 1U);
  EXPECT_EQ(t.host.messages[0].text, "No such file or directory, Error #2");
  EXPECT_EQ(t.host.messages[0].title, "Unable to Open Auto-Bet File");
  t.ExpectOldScript();
}

TEST(ScriptFile, LoadsWhatWasWritten) {
  ScriptFileTable t;
  t.g.ScriptLines = kThreeLines;
  t.g.ScriptLines[1].Selected = true;
  t.g.ScriptLines[1].Band = 1;
  ASSERT_EQ(WriteScript(t.g, t.folder / "new.bet", false), "");
  EXPECT_EQ(t.g.ScriptFileName, "new.bet");
  EXPECT_EQ(t.g.ScriptFilePath, (t.folder / "new.bet").string());
  EXPECT_FALSE(t.g.ScriptDirty);

  ScriptFileTable other;
  EXPECT_TRUE(ReadScript(other.g, t.folder / "new.bet", false));
  EXPECT_EQ(other.g.ScriptLines, kThreeLines);
  ASSERT_EQ(other.g.ScriptFlags.size(), 1U);
  EXPECT_EQ(other.g.ScriptFlags[0].Name, "Up");
  EXPECT_EQ(other.g.ScriptFlags[0].Value, 0);
  EXPECT_EQ(other.g.ScriptFileName, "new.bet");
  EXPECT_EQ(other.g.ScriptFilePath, (t.folder / "new.bet").string());
  EXPECT_FALSE(other.g.ScriptDirty);
  EXPECT_TRUE(other.g.AutoBetsChanged);
}

TEST(ScriptFile, WritesTheSelectedLinesWithoutNamingTheScript) {
  ScriptFileTable t;
  t.g.ScriptLines = kThreeLines;
  t.g.ScriptLines[0].Selected = t.g.ScriptLines[2].Selected = true;
  ASSERT_EQ(WriteScript(t.g, t.folder / "part.bet", true), "");
  EXPECT_EQ(ReadScriptFile(t.folder / "part.bet").lines, (std::vector{kThreeLines[0], kThreeLines[2]}));
  ASSERT_EQ(WriteSelectedLinesToText(t.g, t.folder / "part.txt"), "");
  EXPECT_EQ(t.Content("part.txt"), "start\r Set flag \u20ac\r");
  t.g.HotKeyRunning = true;
  ASSERT_EQ(WriteScript(t.g, t.folder / "hot.bet", false), "");
  t.g.HotKeyRunning = false;
  EXPECT_EQ(WriteScript(t.g, t.folder / "none" / "x.bet", false), "No such file or directory, Error #2");
  EXPECT_EQ(t.g.ScriptFileName, "old.bet");
  EXPECT_TRUE(t.g.ScriptDirty);
}

TEST(ScriptFile, PastesSelectedLinesAtTheInsertLine) {
  ScriptFileTable t;
  t.g.ScriptLines = {Label("a"), Label("b")};
  t.g.ScriptLines[0].Selected = true;
  t.g.ScriptInsertLine = 2;
  t.g.ScriptDirty = false;
  EXPECT_TRUE(ReadScript(t.g, t.File("c.bet", ScriptFileBytes(kThreeLines)), true));
  std::string order;
  for (const ScriptLine& line : t.g.ScriptLines) order += line.Name + (line.Selected ? "+ " : " ");
  EXPECT_EQ(order, "a start+ + Up+ b ");
  EXPECT_EQ(t.g.ScriptFlags.size(), 2U);
  EXPECT_EQ(t.g.ScriptFileName, "old.bet");
  EXPECT_TRUE(t.g.ScriptDirty && t.g.AutoBetsChanged);
}

TEST(ScriptFile, TakesOldAmountsToFourDecimals) {
  struct Row {
    float single;
    std::int64_t units;
  };
  const Row rows[] = {
      {0.1F, 1'000}, {-12.3456F, -123'456}, {1e14F, 1'000'000'003'768'320'000}, {1.5F / 16384, 1}};
  const ScriptFileTable t;
  const std::string old = OldFormat(ScriptFileBytes(kThreeLines));
  for (const Row& row : rows) {
    SCOPED_TRACE(row.single);
    const auto read = ReadScriptFile(t.File("old.bet", WithSingle(old, 2 * kRecordSize + 214, row.single)));
    ASSERT_EQ(read.lines.size(), 3U);
    EXPECT_EQ(read.lines[1].Amount.Units(), row.units);
    EXPECT_EQ(read.lines[2], kThreeLines[2]);
  }
}

// Cut at every length, and every byte changed: taken or refused, and nothing in between.
TEST(ScriptFile, SurvivesCutsAndChanges) {
  for (const bool isOld : {false, true}) {
    const std::string whole = ScriptFileBytes({BetOnPlace6(), FlagLine("Up")});
    const std::string good = isOld ? OldFormat(whole) : whole;
    const std::size_t needed = 2 * kRecordSize + (isOld ? 234 : 238);
    ForEachLength(good, [&](const std::string& bytes) {
      const ScriptFileContent read = ReadScriptBytes(bytes, "x");
      EXPECT_EQ(read.refusal.has_value(), bytes.size() < needed);
      EXPECT_EQ(read.lines.size(), bytes.size() < needed ? 0U : 2U);
    });
    ForEachChange(good, [&](const std::string& bytes, std::size_t) {
      const ScriptFileContent read = ReadScriptBytes(bytes, "x");
      EXPECT_LE(read.lines.size(), read.refusal ? 0U : 2U);
      if (read.refusal) return;
      const ScriptFileContent again = ReadScriptBytes(ScriptFileBytes(read.lines), "x");
      EXPECT_EQ(again.lines, read.lines) << "what was taken is written as it was read";
    });
  }
}

// The same through a table: a file that is refused leaves its script.
TEST(ScriptFile, ADamagedFileLeavesTheScript) {
  const std::string good = ScriptFileBytes({BetOnPlace6()});
  ScriptFileTable t;
  const RewrittenFile file(t.folder / "x.bet");
  const auto load = [&](const std::string& bytes) {
    file.Put(bytes);
    if (ReadScript(t.g, t.folder / "x.bet", false)) {
      t.g.ScriptLines = {FlagLine("old")};
      t.g.ScriptFlags = {{"old", 1, 1}};
      t.g.ScriptFileName = "old.bet";
      t.g.ScriptDirty = true;
      t.g.AutoBetsChanged = false;
    } else {
      EXPECT_EQ(t.host.messages.size(), 1U);
    }
    t.ExpectOldScript();
    t.host.messages.clear();
  };
  ForEachLength(good, load);
  ForEachChange(good, 0, kRecordSize, [&](const std::string& bytes, std::size_t) { load(bytes); });
}

TEST(ScriptFile, ReadsALongScript) {
  const ScriptFileTable t;
  const std::vector<ScriptLine> lines(100'000, BetOnPlace6());
  EXPECT_EQ(ReadScriptFile(t.File("long.bet", ScriptFileBytes(lines))).lines, lines);
}

TEST(ScriptFile, RefusesWhatNoMemoryShouldHold) {
  const ScriptFileTable t;
  const auto path = t.File("huge.bet", kSignature);
  std::filesystem::resize_file(path, (256U << 20) + 1);
  const ScriptFileContent read = ReadScriptFile(path);
  ASSERT_TRUE(read.refusal);
  EXPECT_EQ(read.refusal->text, "File too large, Error #27");
}

ScriptLine Codes(std::int32_t left, std::int32_t right) {
  ScriptLine line = BetOnPlace6();
  line.LeftCode = left;
  line.RightCode = right;
  return line;
}

std::string Quillhaven(const std::vector<ScriptLine>& lines) {
  return WithHeaderText(ScriptFileBytes(lines), "Quillhaven AutoBets, any words");
}

TEST(Quillhaven, RenumbersBetsAndDropsThoseOnOtherPoints) {
  struct Row {
    const char* name;
    std::int32_t first, last, change;
    bool dropped = false;
  };
  const Row rows[] = {
      {"negative", -1, 0, 0},       {"Lay 2, 3", 1, 2, 0, true},  {"Lay", 3, 8, -2},
      {"between", 9, 12, 0, true},  {"Come", 13, 18, 6},          {"between", 19, 22, 0, true},
      {"Come Odds", 23, 28, 2},     {"between", 29, 32, 0, true}, {"Place", 33, 38, -2},
      {"between", 39, 42, 0, true}, {"Buy", 43, 48, -6},          {"Buy 11, 12", 49, 50, 0, true},
      {"51 to 53", 51, 53, -8},     {"54 to 88", 54, 88, -5},     {"others", 89, 91, 0},
      {"flag", 1500, 1500, 0},
  };
  std::vector<ScriptLine> lines;
  std::vector<ScriptLine> expected;
  for (const Row& row : rows) {
    for (std::int32_t code = row.first; code <= row.last; ++code) {
      lines.push_back(Codes(code, 0));
      lines.push_back(Codes(1600, code));
      if (row.dropped) continue;
      expected.push_back(Codes(code + row.change, 0));
      expected.push_back(Codes(1600, code + row.change));
    }
  }
  ScriptFileTable t;
  t.host.answers = {Answer::Yes};
  const auto path = t.File("their.bet", Quillhaven(lines));
  EXPECT_TRUE(ReadScript(t.g, path, false));
  EXPECT_EQ(t.g.ScriptLines, expected);
  EXPECT_EQ(t.g.ScriptFileName, "their[zq].bet");
  EXPECT_EQ(t.Content("their.bet"), Quillhaven(lines));
  EXPECT_EQ(t.Content("their[zq].bet"), ScriptFileBytes(expected));
  EXPECT_EQ(
      t.TakeMessage(),
      "their.bet\rwas created using Quillhaven (another program by Marrowbank.)\r\rYou can run this file by "
      "converting it to Rollwick format. If you choose to do this, the original file will remain intact and "
      "a new file will be created using the same name plus [zq] added to the end. Any lines containing "
      "references to Lay, Come, Come Odds, Place, and Buy bets on points 2, 3, 11, or 12 will be removed.  "
      "This could cause errors in the script which you'll need to resolve before you can run it.\r\rWould "
      "you like to convert this file to Rollwick format now?\r\r");
}

TEST(Quillhaven, AsksAndStopsWhenDeclined) {
  constexpr std::string_view kTitle = "Convert Quillhaven to Rollwick Auto-Bet File";
  const std::string good = Quillhaven({Codes(33, 0)});
  struct Row {
    const char* name;
    std::string bytes;
    std::deque<Answer> answers;
    std::size_t messages;
    bool loads = false;
    std::string lastText = {};
  };
  const std::string overwrite = "q[zq].bet\ris already on file.\r\rDo you want to overwrite it?";
  const Row rows[] = {
      {"conversion declined", good, {Answer::No}, 1},
      {"overwriting declined", good, {Answer::Yes, Answer::No}, 2, false, overwrite},
      {"overwritten", good, {Answer::Yes, Answer::Yes}, 2, true, overwrite},
      {"bad count", WithCount(good, Dollars(2)), {Answer::Yes}, 2, false, "q.bet\r" + kCorrupted},
      {"bad code", WithSingle(good, 256 + 222, NAN), {Answer::Yes}, 2, false, "q.bet\r" + kCorrupted},
      {"nothing but the name", "Quillhaven AutoBets", {Answer::Yes}, 2, false, "q.bet\r" + kCorrupted},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptFileTable t;
    t.host.answers = row.answers;
    const auto path = t.File("q.bet", row.bytes);
    t.File("q[zq].bet", "before");
    EXPECT_EQ(ReadScript(t.g, path, false), row.loads);
    ASSERT_EQ(t.host.messages.size(), row.messages);
    EXPECT_EQ(t.host.messages[0].title, kTitle);
    EXPECT_TRUE(t.host.messages.back().text.ends_with(row.lastText)) << t.host.messages.back().text;
    EXPECT_EQ(t.Content("q[zq].bet") == "before", !row.loads);
    if (!row.loads) t.ExpectOldScript();
  }
}

TEST(Quillhaven, PutsTheNewFileWhereTheNameLessFourCharactersLeads) {
  for (const auto& [name, converted] :
       {std::pair("my.quill", "my.q[zq].bet"), {"a\u20acb\u00e9.x", "a\u20ac[zq].bet"}}) {
    ScriptFileTable t;
    EXPECT_EQ(ConvertQuillhavenFile(t.g, t.File(name, Quillhaven({}))), t.folder / converted);
    EXPECT_TRUE(std::filesystem::exists(t.folder / converted));
  }
}

TEST(Quillhaven, KeepsAllOtherBytesOfALine) {
  std::string source = Quillhaven({FlagLine("Up")});
  source.replace(256 + 100, 3, "\0\x81\xFF"s);
  source.replace(256 + 238, 18, 18, '\xEE');
  ScriptFileTable t;
  ASSERT_TRUE(ConvertQuillhavenFile(t.g, t.File("k.bet", source)));
  const std::string bytes = t.Content("k[zq].bet");
  EXPECT_EQ(bytes.substr(256, 238), source.substr(256, 238));
  EXPECT_EQ(bytes.substr(256 + 238), std::string(18, '\0'));
}

}  // namespace
}  // namespace rollwick
