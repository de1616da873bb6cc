// Writing a game, record by record.
#include <algorithm>
#include <cassert>

#include "autobet/files/ScriptFile.h"
#include "base/AtomicFile.h"
#include "base/Nearest.h"
#include "dice/DiceFile.h"
#include "dice/ProbabilityFile.h"
#include "files/Companions.h"
#include "files/GameFields.h"
#include "files/GameFile.h"
#include "files/GameFileLayout.h"

namespace rollwick {

namespace {

struct Header {
  std::string path;
  std::string date;
};

class GameWriter {
 public:
  GameWriter(Game& g, const std::filesystem::path& file, const std::filesystem::path& dataFolder)
      : g_(g), file_(file), folder_(FullPath(file).parent_path()), dataFolder_(dataFolder) {}

  std::string Save();

 private:
  std::string PathField(const std::filesystem::path& path);
  // A file by its path and date; blank when it is not there.
  Header Companion(const std::filesystem::path& path);
  Header ScriptHeader();
  Header MatrixHeader();
  void WriteHeaders();
  void WriteHeader(int record, const Header& header);
  void WriteFields(std::span<const Field> fields);
  void WriteFurther();
  void WriteNames();
  void WriteChips();
  void WriteLineStates();
  RecordWriter At(std::size_t offset);
  void TellCutPaths();

  Game& g_;
  std::filesystem::path file_;
  std::filesystem::path folder_;
  std::filesystem::path dataFolder_;
  std::string bytes_;
  std::string failure_;
  std::string cutPaths_;
};

std::size_t RecordsOf(std::size_t entries, std::size_t perRecord) {
  return (entries + perRecord - 1) / perRecord;
}

RecordWriter GameWriter::At(std::size_t offset) {
  RecordWriter writer{std::span<char>(bytes_)};
  writer.Seek(offset);
  return writer;
}

std::string GameWriter::PathField(const std::filesystem::path& path) {
  if (path.empty()) return {};
  bool isCut = false;
  std::string stored = StoredPath(path, folder_, isCut);
  if (isCut) cutPaths_ += "\r" + ShownPath(FullPath(path).string());
  return stored;
}

Header GameWriter::Companion(const std::filesystem::path& path) {
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(path, unknown)) return {};
  return {PathField(path), FileDateText(path)};
}

// The working game loses nothing: what was never saved goes into a file of its own.
Header GameWriter::ScriptHeader() {
  std::error_code unknown;
  const bool isOnDisk = !g_.ScriptDirty && std::filesystem::is_regular_file(g_.ScriptFilePath, unknown);
  if (!IsWorkingGame(file_) || isOnDisk || g_.ScriptLines.empty()) return Companion(g_.ScriptFilePath);
  const std::filesystem::path path = dataFolder_ / "default.bet";
  if (failure_.empty()) failure_ = SaveWhole(path, ScriptFileBytes(g_.ScriptLines));
  return Companion(path);
}

Header GameWriter::MatrixHeader() {
  if (!IsWorkingGame(file_) || !g_.ProbabilityDirty) return Companion(g_.ProbabilityPath);
  const std::filesystem::path path = dataFolder_ / "default.prb";
  const std::string name = g_.ProbabilityName, ownPath = g_.ProbabilityPath;
  if (failure_.empty()) failure_ = SaveProbabilityFile(g_, path);
  g_.ProbabilityName = name;
  g_.ProbabilityPath = ownPath;
  g_.ProbabilityDirty = true;
  return Companion(path);
}

void GameWriter::WriteHeader(int record, const Header& header) {
  RecordWriter writer = At(RecordOffset(record));
  writer.Text(kGameSignature, kSignatureWidth);
  writer.Int32(record == HeaderScript ? g_.GameFileReserved : 0);
  writer.Seek(RecordOffset(record) + kHeaderPath);
  writer.Path(header.path, kPathWidth);
  writer.Seek(RecordOffset(record) + kHeaderDate);
  writer.Text(header.date, kDateWidth);
  assert(!writer.Failed());
}

void GameWriter::WriteHeaders() {
  // Dates are taken behind what is still on its way to the files.
  FlushDiceFile(g_);
  FlushEventsLog(g_);
  WriteHeader(HeaderScript, ScriptHeader());
  WriteHeader(HeaderDiceFile, {PathField(g_.DiceFileName), FileDateText(g_.DiceFileName)});
  WriteHeader(HeaderMatrix, MatrixHeader());
  const bool writesOutput = g_.ScriptOutput.IsOpen() || g_.OutputIsToReopen;
  WriteHeader(HeaderOutput, {writesOutput ? g_.OutputFileName : "", ""});
  WriteHeader(HeaderGamesLog, {PathField(g_.GamesLogPath), ""});
  const std::filesystem::path events = g_.EventsLogPath;
  WriteHeader(HeaderEventsLog, Companion(events.empty() ? DefaultEventsLog(dataFolder_) : events));
}

void GameWriter::WriteFields(std::span<const Field> fields) {
  RecordWriter writer = At(0);
  for (const Field& field : fields) {
    for (int k = 0; k < field.count; ++k) WriteField(field, k, g_, writer);
  }
  assert(!writer.Failed());
}

// A value of a flag in two bits.
unsigned FlagBits(std::int16_t value) {
  switch (value) {
    case 0:
    case 1:
      return static_cast<unsigned>(value);
    case -1:
      return 2;
    default:
      return 3;
  }
}

void GameWriter::WriteFurther() {
  const std::size_t start = RecordOffset(kFurtherRecord);
  WriteFields(FurtherFields());
  std::ranges::copy(kFurtherSettings, bytes_.begin() + static_cast<std::ptrdiff_t>(start + kFurtherMagic));
  const auto flags = static_cast<std::int32_t>(
      std::min<std::size_t>(g_.ScriptFlags.size(), static_cast<std::size_t>(kMostKeptFlags)));
  At(start + kFurtherLineCount).Int32(static_cast<std::int32_t>(g_.ScriptLines.size()));
  At(start + kFurtherFlagCount).Int32(flags);
  for (std::int32_t i = 0; i < flags; ++i) {
    const FlagEntry& flag = g_.ScriptFlags[static_cast<std::size_t>(i)];
    const unsigned nibble = FlagBits(flag.Value) | FlagBits(flag.PrevValue) << 2;
    char& byte = bytes_[start + kFurtherFlags + static_cast<std::size_t>(i / 2)];
    byte = static_cast<char>(static_cast<unsigned char>(byte) | nibble << (i % 2 * 4));
  }
  const std::string_view checked(&bytes_[start + kFurtherMagic], kFurtherChecksum - kFurtherMagic);
  At(start + kFurtherChecksum).Int32(static_cast<std::int32_t>(Checksum(checked)));
}

void GameWriter::WriteNames() {
  // Meant: a stack without a name is loaded under its number, and saved under it from then on.
  for (int i = 0; i < kChipStackCount; ++i)
    At(NameOffset(i)).Text(g_.ChipStackName[static_cast<std::size_t>(i)], kNameWidth);
}

void GameWriter::WriteChips() {
  RecordWriter writer = At(RecordOffset(kChipsRecord));
  for (const TableChip& chip : g_.TableChips) {
    for (const std::int32_t number : {chip.Bet, chip.Chip, chip.X, chip.Y})
      writer.Int16(static_cast<std::int16_t>(std::clamp(number, -32'768, 32'767)));
  }
  assert(!writer.Failed());
}

void GameWriter::WriteLineStates() {
  RecordWriter writer = At(RecordOffset(kChipsRecord) +
                           RecordsOf(g_.TableChips.size(), kRecordSize / kChipWidth) * kRecordSize);
  for (const ScriptLine& line : g_.ScriptLines) {
    writer.Int16(line.Selected ? -1 : 0);
    writer.Int16(static_cast<std::int16_t>(line.Band));
  }
  assert(!writer.Failed());
}

void GameWriter::TellCutPaths() {
  if (cutPaths_.empty()) return;
  ShowMessage(
      g_,
      "The following files will not be found when this game is opened, since their paths are too long:\r" +
          cutPaths_,
      "Save Game", MessagePlain | MessageWarning);
}

std::string GameWriter::Save() {
  if (g_.TableChips.size() > kMostChips) g_.TableChips.resize(kMostChips);
  bytes_.assign(
      RecordOffset(kChipsRecord) + (RecordsOf(g_.TableChips.size(), kRecordSize / kChipWidth) +
                                    RecordsOf(g_.ScriptLines.size(), kRecordSize / kLineStateWidth)) *
                                       kRecordSize,
      '\0');
  WriteHeaders();
  if (!failure_.empty()) return failure_;
  WriteFields(ScreenFields());
  WriteFields(GameFields());
  At(RecordOffset(kChipCountRecord) + kChipCountSlot * sizeof(std::int64_t))
      .Amount(Dollars(static_cast<std::int64_t>(g_.TableChips.size())));
  WriteFurther();
  WriteNames();
  WriteChips();
  WriteLineStates();
  if (std::string failure = SaveWhole(file_, bytes_); !failure.empty()) return failure;
  g_.GamePath = IsWorkingGame(file_) ? "" : FullPath(file_).string();
  g_.TableDirty = false;
  TellCutPaths();
  return {};
}

}  // namespace

bool IsWorkingGame(const std::filesystem::path& file) {
  return SameWord(file.filename().string(), kWorkingGame);
}

std::string SaveGameFile(Game& g, const std::filesystem::path& file,
                         const std::filesystem::path& dataFolder) {
  if (g.RollInProgress && !IsWorkingGame(file)) return "A game is not saved while the dice roll.";
  return GameWriter(g, file, dataFolder).Save();
}

std::uint32_t Checksum(std::string_view bytes) {
  std::uint32_t sum = 0xFFFFFFFF;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = sum >> 1 ^ (0xEDB88320 & (0 - (sum & 1)));
  }
  return ~sum;
}

}  // namespace rollwick
