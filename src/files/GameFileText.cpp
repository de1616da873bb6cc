#include "files/GameFileText.h"

#include <array>
#include <charconv>
#include <memory>

#include "files/Companions.h"
#include "files/GameFields.h"
#include "files/GameFileLayout.h"

namespace rollwick {

namespace {

std::string TypeText(FieldType type) {
  switch (type) {
    case FieldType::Amount:
      return "money";
    case FieldType::Whole:
      return "whole";
    case FieldType::Flag8:
    case FieldType::FlagLong:
    case FieldType::FlagSingle:
    case FieldType::FlagShort:
      return "flag";
    case FieldType::Dice:
      return "dice";
    case FieldType::Single:
      return "single";
    default:
      return "number";
  }
}

std::string RangeText(const Field& field) {
  const Range& range = field.range;
  switch (range.kind) {
    case Range::Between: {
      const bool isOpen = range.high == std::numeric_limits<std::int64_t>::max();
      return std::to_string(range.low) + " to " + (isOpen ? "any" : std::to_string(range.high));
    }
    case Range::AboveZero:
      return "above 0";
    case Range::BarNumber:
      return "2, 12";
    case Range::PointNumber:
      return "0, 4, 5, 6, 8, 9, 10";
    case Range::TwoDice:
      return "faces 1 to 7";
    case Range::OneIfAny:
      return "0, 1";
    default:
      return TypeText(field.type) == "flag" ? "-1, 0" : "any";
  }
}

// A place or size of a window, in as few digits as tell it from its neighbours.
std::string SingleText(float value) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  return {digits.data(), end};
}

std::string StoredText(const Field& field, int k, RecordReader& reader) {
  if (IsSingle(field.type)) {
    reader.Seek(OffsetOf(field, k));
    return SingleText(reader.Single());
  }
  const std::optional<std::int64_t> value = StoredValue(field, k, reader);
  if (!value) return "no number";
  return field.type == FieldType::Amount ? PlainText(Money::FromUnits(*value)) : std::to_string(*value);
}

std::string ValueText(const Field& field, GameTables& g, int k) {
  if (field.type == FieldType::Single) return SingleText(*std::get<float*>(field.place(g, field.first + k)));
  const std::int64_t value = FieldValue(field, g, k);
  if (field.type == FieldType::Amount) return PlainText(Money::FromUnits(value));
  return std::to_string(value);
}

// The start-up default, when all entries share it.
std::string DefaultText(const Field& field, GameTables& g) {
  const std::string first = ValueText(field, g, 0);
  for (int k = 1; k < field.count; ++k) {
    if (ValueText(field, g, k) != first) return "by entry";
  }
  return first;
}

std::string EntryName(const Field& field, int k) {
  std::string name = field.name;
  const std::string index = std::to_string(field.first + k);
  if (const auto at = name.find("[i]"); at != std::string::npos) return name.replace(at + 1, 1, index);
  return field.count == 1 ? name : name.substr(0, name.find('[')) + "[" + index + "]";
}

void AddRows(std::string& page, std::span<const Field> fields, GameTables& defaults) {
  for (const Field& field : fields) {
    const std::string name = *field.name == '\0' ? "" : "`" + std::string(field.name) + "`";
    const std::string entries = field.count == 1 ? ""
                                                 : ", i = " + std::to_string(field.first) + " to " +
                                                       std::to_string(field.first + field.count - 1);
    page += "| " + std::to_string(field.record) + " | " + std::to_string(OffsetOf(field, 0)) + " | " +
            std::to_string(WidthOf(field.type)) + " | " + TypeText(field.type) + " | " + name +
            (name.empty() && !entries.empty() ? entries.substr(2) : entries) + " | " +
            DefaultText(field, defaults) + " | " + RangeText(field) + " | " + field.meaning + " |\n";
  }
}

}  // namespace

std::string GameFieldPage() {
  const auto startUp = std::make_unique<Game>();
  SetStartUpDefaults(*startUp);
  std::string page =
      "| Record | Byte | Size | Type | Field | Default | Range | Meaning "
      "|\n|---|---|---|---|---|---|---|---|\n";
  AddRows(page, ScreenFields(), *startUp);
  AddRows(page, GameFields(), *startUp);
  page += "\nThe further settings, in the tail of record 60:\n\n";
  page +=
      "| Record | Byte | Size | Type | Field | Default | Range | Meaning "
      "|\n|---|---|---|---|---|---|---|---|\n";
  AddRows(page, FurtherFields(), *startUp);
  return page;
}

namespace {

// The chips that lie on the table, as many as are there.
void AddChips(GameFileContent& content, std::string_view bytes) {
  RecordReader reader(bytes);
  reader.Seek(RecordOffset(kChipCountRecord) + kChipCountSlot * sizeof(std::int64_t));
  const std::int64_t count = NearestInt32(reader.Amount().ToDouble()).value_or(0);
  reader.Seek(RecordOffset(kChipsRecord));
  for (std::int64_t chip = 0; chip < count; ++chip) {
    std::string text;
    for (int part = 0; part < 4; ++part) text += (part == 0 ? "" : " ") + std::to_string(reader.Int16());
    if (reader.Failed()) return;
    content.entries.push_back({"Chip[" + std::to_string(chip) + "]", text});
  }
}

// How many lines and flags the script had, and the flags' values in two bits, before and now.
void AddFlags(GameFileContent& content, std::string_view bytes) {
  const std::size_t start = RecordOffset(kFurtherRecord);
  RecordReader reader(bytes);
  reader.Seek(start + kFurtherLineCount);
  content.entries.push_back({"LineCount", std::to_string(reader.Int32())});
  reader.Seek(start + kFurtherFlagCount);
  const std::int32_t flags = reader.Int32();
  content.entries.push_back({"FlagCount", std::to_string(flags)});
  for (std::int32_t i = 0; i < std::min(flags, static_cast<std::int32_t>(kMostKeptFlags)); ++i) {
    const auto byte =
        static_cast<unsigned char>(bytes[start + kFurtherFlags + static_cast<std::size_t>(i / 2)]);
    const unsigned nibble = byte >> (i % 2 * 4) & 15U;
    constexpr const char* kValues[] = {"0", "1", "-1", "1"};
    content.entries.push_back({"Flag[" + std::to_string(i) + "]",
                               std::string(kValues[nibble & 3]) + " before " + kValues[nibble >> 2]});
  }
}

}  // namespace

GameFileContent ListGameFile(const std::filesystem::path& file) {
  GameFileContent content;
  std::string bytes;
  content.refusal = ReadGameFile(file, bytes);
  if (content.refusal) return content;
  constexpr const char* kHeaders[] = {"script",      "dice file", "probability file",
                                      "output file", "games log", "events log"};
  for (int record = HeaderScript; record <= HeaderEventsLog; ++record) {
    RecordReader reader(bytes);
    reader.Seek(RecordOffset(record) + kHeaderPath);
    const std::string path = reader.Path(kPathWidth);
    reader.Seek(RecordOffset(record) + kHeaderDate);
    const std::string date = reader.Text(kDateWidth);
    content.entries.push_back({kHeaders[record - 1], ShownPath(path)});
    content.entries.push_back({std::string(kHeaders[record - 1]) + " date", ShownPath(date)});
  }
  RecordReader reader(bytes);
  reader.Seek(kSignatureWidth);
  content.entries.push_back({"Reserved", std::to_string(reader.Int32())});
  for (const auto fields : {ScreenFields(), GameFields(), FurtherFields()}) {
    if (fields.data() == FurtherFields().data() && !HasFurtherSettings(bytes)) continue;
    for (const Field& field : fields) {
      for (int k = 0; k < field.count && *field.name != '\0'; ++k) {
        if (OffsetOf(field, k) + WidthOf(field.type) > bytes.size()) break;
        content.entries.push_back({EntryName(field, k), StoredText(field, k, reader)});
      }
    }
  }
  reader.Seek(RecordOffset(kChipCountRecord) + kChipCountSlot * sizeof(std::int64_t));
  if (const Money chips = reader.Amount(); !reader.Failed())
    content.entries.push_back({"ChipCount", PlainText(chips)});
  AddChips(content, bytes);
  if (HasFurtherSettings(bytes)) AddFlags(content, bytes);
  for (int i = 0; i < kChipStackCount; ++i) {
    reader.Seek(NameOffset(i));
    if (const std::string name = reader.Text(kNameWidth); !reader.Failed())
      content.entries.push_back({"ChipStackName[" + std::to_string(i) + "]", ShownPath(name)});
  }
  return content;
}

}  // namespace rollwick
