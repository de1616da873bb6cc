// Every reader proves a file whole before anything is made of it.
#include "autobet/files/ScriptFile.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <limits>

#include "autobet/model/Script.h"
#include "base/AtomicFile.h"
#include "base/CodePage.h"
#include "base/Record.h"

namespace rollwick {

namespace {

constexpr std::string_view kSignature = "Rollwick AutoBets, Data Format 5.0";
constexpr std::string_view kFamily = "Rollwick AutoBets";
constexpr std::string_view kQuillhavenFamily = "Quillhaven AutoBets";
constexpr const char* kOpenTitle = "Unable to Open Auto-Bet File";
constexpr const char* kConvertTitle = "Convert Quillhaven to Rollwick Auto-Bet File";
constexpr const char* kCorrupted = "has either been corrupted or is not a true Rollwick Auto-Bet file.";

constexpr const char* kOlderFormat =
    "has either been corrupted or was written with an older format which is no longer in use.";

constexpr std::size_t kLongestFile = 256U << 20;  // bytes, a million lines
constexpr std::size_t kFieldBytes = 238;          // of a record; the rest is not looked at
constexpr std::size_t kOldFieldBytes = 234;
constexpr std::size_t kLeftCodeOffset = 222;
constexpr std::size_t kRightCodeOffset = 230;

constexpr Money kCurrentFormat = Dollars(5);
constexpr Money kOldFormat = Money::FromUnits(39'000);  // 3.9: amounts are singles

Message Refusal(const std::string& name, std::string_view reason) {
  return {name + '\r' + std::string(reason), kOpenTitle};
}

bool IsQuillhaven(std::string_view bytes) {
  return bytes.starts_with(kQuillhavenFamily);
}

// The number in the last four characters of the header's text.
Money FormatVersion(std::string_view headerText) {
  const std::string characters = ToCodePage(TrimBlanks(headerText));
  std::string_view number =
      std::string_view(characters).substr(std::max<std::size_t>(characters.size(), 4) - 4);
  number = TrimBlanks(number);
  const std::size_t sign = number.starts_with('-') || number.starts_with('+') ? 1 : 0;
  std::size_t end = sign;
  for (bool hasPoint = false; end < number.size(); ++end) {
    const bool isPoint = number[end] == '.';
    if (!(number[end] >= '0' && number[end] <= '9') && !(isPoint && !hasPoint)) break;
    hasPoint = hasPoint || isPoint;
  }
  const Money version = ParseMoney(number.substr(sign, end - sign)).value_or(Money());
  return number.starts_with('-') ? -version : version;
}

// The old format's amount; nothing when it is no number or beyond the range of Money.
std::optional<Money> AmountOfSingle(float single) {
  const double units = static_cast<double>(single) * Money::kUnitsPerDollar;  // exact
  constexpr double kEnd = 9223372036854775808.0;                              // 2^63
  if (!(units >= -kEnd && units < kEnd)) return {};
  return Money::FromDouble(single);
}

// The record's fields as a line; nothing when one is not inside, or holds a number that no line can.
std::optional<ScriptLine> ReadLine(std::string_view record, bool isOld) {
  RecordReader reader(record);
  ScriptLine line;
  line.Text = reader.Text(kLongestLineText);
  line.Kind = reader.Int16();
  line.Op = reader.Int32();
  line.Name = reader.Text(kLongestName);
  const std::optional<Money> amount = isOld ? AmountOfSingle(reader.Single()) : reader.Amount();
  const auto leftCode = NearestInt32(reader.Single());
  line.LeftIndex = reader.Int16();
  line.LeftAux = reader.Int16();
  const auto rightCode = NearestInt32(reader.Single());
  line.RightIndex = reader.Int16();
  line.RightAux = reader.Int16();
  if (reader.Failed() || !amount || !leftCode || !rightCode) return {};
  line.Amount = *amount;
  line.LeftCode = *leftCode;
  line.RightCode = *rightCode;
  return line;
}

void WriteLine(RecordWriter& writer, const ScriptLine& line) {
  const auto int16 = [&writer](std::int32_t value) {
    using Limits = std::numeric_limits<std::int16_t>;
    writer.Int16(static_cast<std::int16_t>(std::clamp<std::int32_t>(value, Limits::min(), Limits::max())));
  };
  const auto code = [&writer](std::int32_t value) {
    constexpr std::int32_t kMost = 2'147'483'520;  // the last single below 2^31
    writer.Single(static_cast<float>(std::min(value, kMost)));
  };
  writer.Text(line.Text, kLongestLineText);
  int16(line.Kind);
  writer.Int32(line.Op);
  writer.Text(line.Name, kLongestName);
  writer.Amount(line.Amount);
  code(line.LeftCode);
  int16(line.LeftIndex);
  int16(line.LeftAux);
  code(line.RightCode);
  int16(line.RightIndex);
  int16(line.RightAux);
}

ScriptLine Header(std::size_t lineCount) {
  ScriptLine header;
  header.Text = kSignature;
  header.Amount = Dollars(static_cast<std::int64_t>(lineCount));
  return header;
}

// The count that the header of a file with records of the current layout or the old one names; nothing when
// it is none, or when the file is too short for the fields of so many lines.
std::optional<std::size_t> LineCount(std::string_view bytes, bool isOld) {
  constexpr std::size_t kCountOffset = 214;
  RecordReader reader(bytes);
  reader.Seek(kCountOffset);
  const auto count = NearestInt32(isOld ? reader.Single() : reader.Amount().ToDouble());
  const std::size_t fieldBytes = isOld ? kOldFieldBytes : kFieldBytes;
  if (reader.Failed() || bytes.size() < fieldBytes || !count || *count < 0) return {};
  if (static_cast<std::size_t>(*count) > (bytes.size() - fieldBytes) / kRecordSize) return {};
  return static_cast<std::size_t>(*count);
}

std::string_view RecordOfLine(std::string_view bytes, std::size_t line) {
  return bytes.substr(line * kRecordSize, kRecordSize);
}

// Takes the lines of a file of this system. Empty on success, else why it is not taken.
std::string ReadLines(std::string_view bytes, std::vector<ScriptLine>& lines) {
  RecordReader header(bytes);
  const Money version = FormatVersion(header.Text(kLongestLineText));
  if (!bytes.starts_with(kFamily) || bytes.size() < kOldFieldBytes) return kCorrupted;
  if (version > kCurrentFormat)
    return "requires Rollwick version " + PlainText(version) + " or later to run.";
  const bool isOld = version == kOldFormat;
  if (version != kCurrentFormat && !isOld) return kOlderFormat;
  const auto count = LineCount(bytes, isOld);
  if (!count) return kCorrupted;
  lines.reserve(*count);
  for (std::size_t k = 1; k <= *count; ++k) {
    std::optional<ScriptLine> line = ReadLine(RecordOfLine(bytes, k), isOld);
    if (!line) return kCorrupted;
    lines.push_back(std::move(*line));
  }
  return {};
}

// Which code each code of the sibling product is; the bets on 2, 3, 11 and 12 between these ranges are none.
struct CodeRange {
  std::int32_t first, last, change;
};
constexpr CodeRange kConvertedCodes[] = {
    {3, 8, -2},    // Lay
    {13, 18, 6},   // Come
    {23, 28, 2},   // Come Odds
    {33, 38, -2},  // Place
    {43, 48, -6},  // Buy
    {51, 53, -8}, {54, 88, -5},
};

std::optional<std::int32_t> ConvertedCode(std::int32_t code) {
  for (const CodeRange& range : kConvertedCodes) {
    if (code >= range.first && code <= range.last) return code + range.change;
  }
  if (code >= 1 && code <= 50) return {};
  return code;
}

// The file in this system's format: nothing when a number in it is none. All bytes of a line but its codes go
// over as they are.
// Meant: where a small right code is a setting, it is dropped or changed as a bet would be.
std::optional<std::string> ConvertedBytes(std::string_view source) {
  const auto sourceCount = LineCount(source, false);
  if (!sourceCount) return {};
  std::string bytes(kRecordSize, '\0');
  std::size_t count = 0;
  for (std::size_t k = 1; k <= *sourceCount; ++k) {
    const auto line = ReadLine(RecordOfLine(source, k), false);
    if (!line) return {};
    const auto left = ConvertedCode(line->LeftCode);
    const auto right = ConvertedCode(line->RightCode);
    if (!left || !right) continue;
    std::string record(RecordOfLine(source, k).substr(0, kFieldBytes));
    record.resize(kRecordSize, '\0');
    RecordWriter writer(record);
    writer.Seek(kLeftCodeOffset);
    writer.Single(static_cast<float>(*left));
    writer.Seek(kRightCodeOffset);
    writer.Single(static_cast<float>(*right));
    assert(!writer.Failed());
    bytes += record;
    ++count;
  }
  RecordWriter writer(bytes);
  WriteLine(writer, Header(count));
  assert(!writer.Failed());
  return bytes;
}

// Meant: the last four characters go whatever they are.
std::filesystem::path ConvertedPath(const std::filesystem::path& path) {
  std::string name = path.string();
  for (int i = 0; i < 4 && !name.empty(); ++i) {
    while (name.size() > 1 && (static_cast<unsigned char>(name.back()) & 0xC0) == 0x80) name.pop_back();
    name.pop_back();
  }
  return name + "[zq].bet";
}

bool WantsConversion(Game& g, const std::filesystem::path& path) {
  return AskYesNo(
      g,
      path.filename().string() +
          "\rwas created using Quillhaven (another program by Marrowbank.)\r\r"
          "You can run this file by converting it to Rollwick format. If you choose to do this, the "
          "original file will remain intact and a new file will be created using the same name plus "
          "[zq] added to the end. Any lines containing references to Lay, Come, Come Odds, Place, and "
          "Buy bets on points 2, 3, 11, or 12 will be removed.  This could cause errors in the script "
          "which you'll need to resolve before you can run it.\r\r"
          "Would you like to convert this file to Rollwick format now?\r\r",
      kConvertTitle);
}

void Show(Game& g, const Message& message) {
  ShowMessage(g, message.text, message.title, message.flags);
}

std::filesystem::path FullPath(const std::filesystem::path& path) {
  std::error_code noFolder;
  std::filesystem::path full = std::filesystem::absolute(path, noFolder);
  return noFolder ? path : full;
}

}  // namespace

ScriptFileContent ReadScriptBytes(std::string_view bytes, const std::string& name) {
  ScriptFileContent content;
  if (IsQuillhaven(bytes)) {
    content.isQuillhaven = true;
  } else if (const std::string fault = ReadLines(bytes, content.lines); !fault.empty()) {
    content.lines.clear();
    content.refusal = Refusal(name, fault);
  }
  return content;
}

ScriptFileContent ReadScriptFile(const std::filesystem::path& path) {
  std::string bytes;
  const std::string failure = ReadWhole(path, kLongestFile, bytes);
  if (failure.empty()) return ReadScriptBytes(bytes, path.filename().string());
  ScriptFileContent content;
  content.refusal = {failure, kOpenTitle};
  return content;
}

bool ReadScript(Game& g, const std::filesystem::path& path, bool paste) {
  ScriptFileContent content = ReadScriptFile(path);
  if (content.isQuillhaven) {
    if (!WantsConversion(g, path)) return false;
    const auto converted = ConvertQuillhavenFile(g, path);
    return converted && ReadScript(g, *converted, paste);
  }
  if (content.refusal) {
    Show(g, *content.refusal);
    return false;
  }
  if (paste) {
    InsertLines(g, std::move(content.lines));
  } else {
    ReplaceScript(g, std::move(content.lines), path.filename().string(), FullPath(path).string());
  }
  return true;
}

std::string ScriptFileBytes(const std::vector<ScriptLine>& lines) {
  std::string bytes((lines.size() + 1) * kRecordSize, '\0');
  RecordWriter writer(bytes);
  WriteLine(writer, Header(lines.size()));
  for (std::size_t k = 1; k <= lines.size(); ++k) {
    writer.Seek(k * kRecordSize);
    WriteLine(writer, lines[k - 1]);
  }
  assert(!writer.Failed());
  return bytes;
}

std::string WriteScript(Game& g, const std::filesystem::path& path, bool selectedOnly) {
  if (selectedOnly) {
    std::vector<ScriptLine> selected;
    std::ranges::copy_if(g.ScriptLines, std::back_inserter(selected), &ScriptLine::Selected);
    return SaveWhole(path, ScriptFileBytes(selected));
  }
  std::string failure = SaveWhole(path, ScriptFileBytes(g.ScriptLines));
  if (!failure.empty() || g.HotKeyRunning) return failure;
  g.ScriptFileName = path.filename().string();
  g.ScriptFilePath = FullPath(path).string();
  g.ScriptDirty = false;
  return {};
}

std::optional<std::filesystem::path> ConvertQuillhavenFile(Game& g, const std::filesystem::path& path) {
  std::string source;
  if (const std::string failure = ReadWhole(path, kLongestFile, source); !failure.empty()) {
    ShowMessage(g, failure, kOpenTitle);
    return {};
  }
  const auto converted = IsQuillhaven(source) ? ConvertedBytes(source) : std::nullopt;
  if (!converted) {
    Show(g, Refusal(path.filename().string(), kCorrupted));
    return {};
  }
  const std::filesystem::path newPath = ConvertedPath(path);
  std::error_code unknown;
  if (std::filesystem::exists(newPath, unknown) &&
      !AskYesNo(g, newPath.filename().string() + "\ris already on file.\r\rDo you want to overwrite it?",
                kConvertTitle)) {
    return {};
  }
  if (const std::string failure = SaveWhole(newPath, *converted); !failure.empty()) {
    ShowMessage(g, failure, kConvertTitle);
    return {};
  }
  return newPath;
}

std::string WriteSelectedLinesToText(const Game& g, const std::filesystem::path& path) {
  std::string text;
  for (const ScriptLine& line : g.ScriptLines) {
    if (line.Selected) text += line.Text + '\r';
  }
  return SaveWhole(path, text);
}

}  // namespace rollwick
