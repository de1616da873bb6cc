// The map of the game file: nothing stands on top of anything else, every field comes back, and a file come
// to harm is taken or refused but never believed.
#include "files/GameFields.h"

#include <map>
#include <set>

#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "dice/DiceFile.h"
#include "files/GameFileLayout.h"
#include "files/GameFileText.h"
#include "files/tests/SavedTable.h"

namespace rollwick {
namespace {

std::vector<Field> AllFields() {
  std::vector<Field> all;
  for (const auto fields : {ScreenFields(), GameFields(), FurtherFields()})
    all.insert(all.end(), fields.begin(), fields.end());
  return all;
}

std::string NameOf(const Field& field, int k) {
  return std::string(field.name) + " (" + std::to_string(field.first + k) + ")";
}

TEST(GameFields, EachByteBelongsToOneField) {
  std::vector<bool> isTaken(RecordOffset(kChipsRecord));
  const auto take = [&](std::size_t from, std::size_t count, const std::string& name) {
    for (std::size_t at = from; at < from + count; ++at) {
      EXPECT_FALSE(isTaken.at(at)) << name << " at byte " << at;
      isTaken.at(at) = true;
    }
  };
  take(RecordOffset(kFurtherRecord) + kFurtherMagic, 8, "magic");
  take(RecordOffset(kFurtherRecord) + kFurtherLineCount, kRecordSize - kFurtherLineCount, "lines and flags");
  take(RecordOffset(kChipCountRecord) + kChipCountSlot * 8, 8, "ChipCount");
  for (const Field& field : AllFields()) {
    for (int k = 0; k < field.count; ++k) take(OffsetOf(field, k), WidthOf(field.type), NameOf(field, k));
  }
}

// Where some fields stand, among them every place that does not follow from its neighbours.
TEST(GameFields, StandWhereOldFilesHaveThem) {
  struct Row {
    const char* name;
    int entry;
    std::size_t offset;
  };
  const Row rows[] = {
      {"TableWindowState", 0, 1536},
      {"Screens[ScreenSettleBet].Left", 0, 2168},
      {"Screens[ScreenRollTotals].Height", 0, 1876},
      {"ReseedNewGames", 0, 2512},
      {"Rules.MaxOddsBet", 0, 2784},
      {"AutoStopOn[i]", 16, 3032},
      {"ModifyOperator[5]", 0, 3096},
      {"ModifyUnit[i]", 5, 3208},
      {"TotalBets", 0, 3424},
      {"HyperThrottle", 0, 3576},
      {"RecordRolls", 0, 3636},
      {"DiceRollHighlight[i]", 1, 3842},
      {"DiceRollHighlight[i]", 36, 3912},
      {"VisibleChipStack[i]", 3, 4200},
      {"TableTexture", 0, 4392},
      {"BetAmount[i]", 0, 4608},
      {"BetAmount[i]", 24, 4800},
      {"BetAmount[i]", 25, 4864},
      {"BetAmount[i]", 83, 5440},
      {"BetAmount[i]", 84, 5448},
      {"BetAmount[i]", 95, 5536},
      {"BetAmount[i]", 100, 5632},
      {"BetAmount[i]", 199, 6592},
      {"BetAmount[i]", 200, 6600},
      {"BetAtThrow[i]", 200, 8648},
      {"BetAfterSettle[i]", 199, 10688},
      {"BetAfterSettle[i]", 200, 10696},
      {"BetContract[i]", 22, 10928},
      {"BetContract[i]", 23, 11008},
      {"BetContract[i]", 46, 11208},
      {"LayVigAmount[i]", 6, 11312},
      {"BuyVigAmount[i]", 42, 11360},
      {"BetWorking[i]", 83, 11942},
      {"PayoffTable[i].IsToForm", 0, 12840},
      {"PayoffTable[i].Base", 83, 14312},
      {"FieldPayoffTable[i].Base", 21, 15112},
      {"BetWagers[i / 800][i / 8 % 100 + 1][i % 8]", 1599, 28152},
      {"BetLosses[i / 800][i / 8 % 100 + 1][i % 8]", 0, 40960},
      {"BankrollHistory[i]", 1050, 62160},
      {"BetStreak[i][1]", 100, 62664},
      {"RollEventCount[i]", 64, 62976},
      {"TrackedRollBaseBefore[i]", 90, 65640},
      {"RollGapHistogram[i / 201 + 1][i % 201]", 18089, 138148},
      {"HandStats[i]", 19, 138316},
      {"LastLostChoice", 0, 15184},
      {"Die1SE", 0, 15200},
      {"GamesSDCount", 0, 15224},
  };
  std::map<std::pair<std::string, int>, std::size_t> places;
  for (const Field& field : AllFields()) {
    for (int k = 0; k < field.count; ++k)
      places[{field.name, field.count > 1 ? field.first + k : field.first}] = OffsetOf(field, k);
  }
  for (const Row& row : rows) EXPECT_EQ((places[{row.name, row.entry}]), row.offset) << row.name << row.entry;
}

// Values at both ends of the range and between; for flags both.
std::int64_t ValueFor(const Field& field, int k, int round) {
  const Range& range = field.range;
  const std::int64_t unit = field.type == FieldType::Amount ? Money::kUnitsPerDollar : 1;
  switch (range.kind) {
    case Range::Between: {
      const bool isOpen = range.high == std::numeric_limits<std::int64_t>::max();
      const std::int64_t high = isOpen ? 1'234'567 : range.high;
      if (round == 0) return range.low * unit;
      return round == 1 ? high * unit : range.low * unit + (k + 7) % ((high - range.low) * unit + 1);
    }
    case Range::AboveZero:
      return round == 0 ? 1 : 9'876'543 + k;
    case Range::BarNumber:
      return round == 0 ? 2 : 12;
    case Range::PointNumber:
      return round == 0 ? 4 : round == 1 ? 10 : 0;
    case Range::TwoDice:
      return round == 0 ? 11 : round == 1 ? 77 : 65;
    case Range::OneIfAny:
      return round == 0 ? 1 : 0;
    default:
      break;
  }
  switch (field.type) {
    case FieldType::Flag8:
    case FieldType::FlagLong:
    case FieldType::FlagShort:
    case FieldType::FlagSingle:
      return (k + round) % 2 == 0 ? -1 : 0;
    default: {
      const bool isCount = field.record >= 61 && field.record <= 210;  // of decisions, and their amounts
      return round == 0 ? (isCount ? 32'000 : -32'000) + k % 100 : 31'000 - k % 1000;
    }
  }
}

void PutValue(const Field& field, int k, std::int64_t value, std::string& bytes) {
  RecordWriter writer{std::span<char>(bytes)};
  writer.Seek(OffsetOf(field, k));
  const std::size_t width = WidthOf(field.type);
  if (field.type == FieldType::Single || field.type == FieldType::FlagSingle)
    return writer.Single(static_cast<float>(value));
  if (width == 2) return writer.Int16(static_cast<std::int16_t>(value));
  if (width == 4) return writer.Int32(static_cast<std::int32_t>(value));
  writer.Int64(field.type == FieldType::Amount ? value : value * Money::kUnitsPerDollar);
}

// A game with a Dice Roll File, so that its place in it is kept.
std::string GoodGame(SavedTable& t) {
  PutContents(t.folder / "rolls.rol", std::string(50, static_cast<char>(DiceByte(3, 4))));
  EXPECT_FALSE(OpenDiceFile(t.g, t.folder / "rolls.rol", false));
  t.g.TableChips = {{Bet::PassLine, 1, 3, 4}};
  t.Bet(Bet::PassLine, 10);
  t.Roll(4, 4);
  return t.Save("default.crp");
}

// What is worked out from other fields, and what names must differ.
bool FollowsFromOthers(const Field& field, int k) {
  static const std::set<std::string> kNames = {"", "TotalBets", "BankrollHistoryCount", "VisibleChipStack[i]",
                                               "DiceFileRecord"};
  const std::string name = field.name;
  if (kNames.contains(name)) return true;
  if (name == "RecordEventsActive" && field.record == 15) return true;
  if (name == "RollsSinceEvent[i]" || name == "BankrollHistory[i]") return k == 0;
  return name.starts_with("PayoffTable") && (k == Bet::PassLineOdds || k == Bet::DontPassOdds);
}

void SealFurther(std::string& bytes) {
  const std::size_t start = RecordOffset(kFurtherRecord);
  RecordWriter writer{std::span<char>(bytes)};
  writer.Seek(start + kFurtherChecksum);
  writer.Int32(static_cast<std::int32_t>(
      Checksum(std::string_view(bytes).substr(start + kFurtherMagic, kFurtherChecksum - kFurtherMagic))));
}

TEST(GameFields, EveryFieldKeepsWhatItMayHold) {
  TemporaryFolder folder;
  SavedTable table(folder);
  const std::string good = GoodGame(table);
  for (int round = 0; round < 3; ++round) {
    std::string bytes = good;
    for (const Field& field : AllFields()) {
      for (int k = 0; k < field.count; ++k) {
        if (!FollowsFromOthers(field, k)) PutValue(field, k, ValueFor(field, k, round), bytes);
      }
    }
    SealFurther(bytes);
    const LoadedGame loaded = table.LoadBytes(bytes, "default.crp");
    EXPECT_EQ(NoticesOf(loaded), "");
    const std::string again = table.Save("default.crp");
    for (const Field& field : AllFields()) {
      for (int k = 0; k < field.count; ++k) {
        if (FollowsFromOthers(field, k)) continue;
        const std::size_t at = OffsetOf(field, k), width = WidthOf(field.type);
        ASSERT_EQ(bytes.substr(at, width), again.substr(at, width))
            << NameOf(field, k) << " in round " << round << ": " << FieldValue(field, table.g, k);
      }
    }
  }
}

// No two rows share a place in memory: one field changed changes its own bytes alone.
TEST(GameFields, NoFieldIsAnothersToo) {
  TemporaryFolder folder;
  SavedTable table(folder);
  const auto tables = std::make_unique<GameTables>(table.g);
  std::vector<Field> fields;
  for (const Field& field : AllFields()) {
    if (field.count <= 100 && field.name != std::string()) fields.push_back(field);
  }
  const auto write = [&] {
    std::string bytes(RecordOffset(kChipsRecord), '\0');
    RecordWriter writer{std::span<char>(bytes)};
    for (const Field& field : fields) {
      for (int k = 0; k < field.count; ++k) WriteField(field, k, *tables, writer);
    }
    return bytes;
  };
  const std::string before = write();
  for (const Field& field : fields) {
    if (field.name == std::string("RecordEventsActive")) continue;
    const int k = field.count - 1;
    for (int round = 0; round < 3; ++round) {
      std::string bytes = before;
      PutValue(field, k, ValueFor(field, k, round), bytes);
      if (bytes == before) continue;
      RecordReader reader(bytes);
      ASSERT_TRUE(ReadField(field, k, reader, *tables, table.g)) << NameOf(field, k);
      EXPECT_TRUE(write() == bytes) << NameOf(field, k);
      RecordReader old(before);
      ReadField(field, k, old, *tables, table.g);
      break;
    }
  }
}

TEST(GameFields, TakeTheirDefaultOutOfRange) {
  TemporaryFolder folder;
  SavedTable table(folder);
  const std::string good = GoodGame(table);
  struct Row {
    const char* name;
    std::size_t offset;
    std::int64_t units;  // of an 8-byte slot
    std::int64_t after;
  };
  const std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  const Row rows[] = {
      {"a page that is not there", 2304, 100'000, 0},
      {"half a page goes to the even one", 2304, 25'000, 20'000},
      {"beyond 32 bits", 2304, kMost, 0},
      {"a rate of no rolls", 2344, 0, 1'200'000},
      {"any flag but 0 is true", 2352, 70'000, -10'000},
      {"neither 2 nor 12", 2608, 30'000, 120'000},
      {"a rate above all", 2616, 10'001, 500},
      {"a point on 7", 3384, 70'000, 0},
      {"a point below", 3384, -40'000, 0},
      {"a face of 8", 3408, 180'000, 340'000},
      {"any state of the check box is on", 3432, -30'000, 10'000},
      {"a scale of nothing", 3496, 0, 10'000},
      {"a place behind the Dice Roll File", 4144, 990'000, 510'000},
      {"a stack twice", 4176, 20'000, 10'000},
      {"a negative bet", 4616, -5, 0},
      {"a bet that no total could hold", 4616, kMost, 0},
      {"a vig that no total could hold", 11272, kMost, 0},
      {"a negative bankroll", 4608, -5, -5},
      {"a chip of nothing", 5544, 0, 50'000},
      {"a Base of nothing", 13656, 0, 10'000},
      {"a total that does not add up", 3424, 990'000, 100'000},
      {"more points than rolls", 3480, 90'000, 10'000},
      {"a count below 0", 15368, -1, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::string bytes = good;
    RecordWriter writer{std::span<char>(bytes)};
    writer.Seek(row.offset);
    writer.Int64(row.units);
    EXPECT_EQ(NoticesOf(table.LoadBytes(bytes, "one.crp")), "");
    const std::string again = table.Save("two.crp");
    RecordReader reader(again);
    reader.Seek(row.offset);
    EXPECT_EQ(reader.Int64(), row.after);
  }
}

// Plays on with whatever was loaded.
void RollOn(SavedTable& table, int rolls) {
  for (int i = 0; i < rolls; ++i) {
    table.Bet(table.g.Point == 0 ? Bet::PassLine : Bet::Come, 5);
    table.Bet(Bet::Place6 + i % 3, 6);
    table.Bet(Bet::Horn, 4);
    table.Roll(i % 6 + 1, i % 5 + 2);
  }
}

std::string TableBytes(const Game& g) {
  return {reinterpret_cast<const char*>(static_cast<const GameTables*>(&g)), sizeof(GameTables)};
}

TEST(GameFields, AFileCutAnywhereIsTakenAsFarAsItGoes) {
  TemporaryFolder folder;
  SavedTable table(folder);
  const std::string good = GoodGame(table);
  const std::size_t needed = RecordOffset(kChipsRecord) + kChipWidth;
  std::set<std::size_t> lengths = {needed - 1, needed, good.size() - 1};
  for (std::size_t length = 0; length < 4608; length += 5) lengths.insert(length);
  for (std::size_t length = 4608; length < needed; length += 229) lengths.insert(length);
  for (const Field& field : GameFields()) {
    for (const int k : {0, field.count - 1}) {
      const std::size_t end = OffsetOf(field, k) + WidthOf(field.type);
      lengths.insert({end - 1, end});
    }
  }
  for (const std::size_t length : lengths) {
    SCOPED_TRACE(length);
    table.g.TableDirty = false;
    table.g.GamePath = "before";
    const std::string before = TableBytes(table.g);
    const LoadedGame loaded = table.LoadBytes(good.substr(0, length));
    const auto expected = length < kRecordSize ? GameFileResult::Refused
                          : length < needed    ? GameFileResult::CutShort
                                               : GameFileResult::Loaded;
    ASSERT_EQ(loaded.result, expected);
    if (expected == GameFileResult::Loaded) continue;
    EXPECT_EQ(table.g.GamePath, "before");
    if (expected == GameFileResult::Refused) {
      ASSERT_TRUE(TableBytes(table.g) == before);
      continue;
    }
    EXPECT_TRUE(table.g.TableDirty);
    EXPECT_EQ(loaded.notices.back().text, "Input past end of file, Error #62");
    ASSERT_TRUE(TablesAgree(table.g));
    RollOn(table, 2);
  }
}

TEST(GameFields, AFileChangedAnywhereNeverHarms) {
  TemporaryFolder folder;
  SavedTable table(folder);
  table.g.HandleWinningBets = WinPressUnit;
  table.g.HandleLosingBets = LossDoubleBet;
  const ParsedScript script = ParseScriptText(
      "While . . .\n          Next roll is a come-out roll\n"
      "    then . . .\n          Bet $ 10 on Pass Line\n");
  ReplaceScript(table.g, script.lines, "", "");
  const std::string good = GoodGame(table);
  PadDice dice;
  for (std::size_t at = 0; at < good.size(); at += at < 16'000 ? 13 : 127) {
    SCOPED_TRACE(at);
    std::string bytes = good;
    for (int i = 0; i < 1 + dice.Next() % 3; ++i) {
      constexpr char kBytes[] = {'\0', '\x7F', '\x80', '\xFF', '\x01', ' '};
      bytes[(at + static_cast<std::size_t>(i) * 8) % bytes.size()] = kBytes[dice.Next() - 1];
    }
    // In half of the changes of the further settings the sum fits them.
    const std::size_t further = RecordOffset(kFurtherRecord) + kFurtherMagic;
    if (at >= further && at < further + kRecordSize && at % 2 == 0) SealFurther(bytes);
    table.g.BetAmount[SlotBankroll] = Dollars(500);
    const LoadedGame loaded = table.LoadBytes(bytes, at % 2 == 0 ? "default.crp" : "one.crp");
    if (loaded.result == GameFileResult::Refused) {
      EXPECT_LT(at, kSignatureWidth);
      continue;
    }
    ASSERT_TRUE(TablesAgree(table.g));
    ASSERT_GE(table.g.BankrollHistoryCount, 0);
    ASSERT_LE(table.g.BankrollHistoryCount, kGraphPage);
    RollOn(table, 3);
    table.host.messages.clear();
    table.host.prompts.clear();
    table.host.settled.clear();
  }
}

TEST(GameFields, PageShowsTheMap) {
  const std::string text = Contents(std::filesystem::path(ROLLWICK_TEST_DATA) / "../../docs/game-file.md");
  const std::string begin = "<!-- fields: written by `rollwick game fields` -->\n";
  const auto from = text.find(begin), to = text.find("<!-- end of fields -->");
  ASSERT_NE(from, text.npos);
  ASSERT_NE(to, text.npos);
  const auto start = from + begin.size();
  EXPECT_TRUE(text.substr(start, to - start) == GameFieldPage())
      << "docs/game-file.md is behind: put the output of `rollwick game fields` between its markers.";
}

}  // namespace
}  // namespace rollwick
