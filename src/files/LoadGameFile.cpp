// Reading a game. The file is proved to be one before anything changes; then its companions are brought in,
// and its fields in the order of the records.
#include <algorithm>
#include <memory>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "base/Record.h"
#include "dice/DiceFile.h"
#include "dice/ProbabilityFile.h"
#include "files/Companions.h"
#include "files/GameFields.h"
#include "files/GameFile.h"
#include "files/GameFileLayout.h"
#include "files/RepairGame.h"

namespace rollwick {

namespace {

constexpr std::size_t kLongestFile = 256 << 20;  // far beyond any script's lines
constexpr const char* kRefusalTitle = "Unable to Open Rollwick Game File";
constexpr const char* kPastEnd = "Input past end of file, Error #62";
constexpr std::string_view kSaved = " (that was in use when this game was saved) ";

Message Notice(std::string text, std::string title) {
  return {std::move(text), std::move(title), MessagePlain | MessageWarning};
}

// A script file, or a script as text. False when it was refused, with a message shown.
bool LoadScriptOf(Game& g, const std::filesystem::path& path) {
  constexpr std::size_t kLongestText = 64 << 20;
  std::string text;
  if (ReadWhole(path, kLongestText, text).empty() && text.find('\0') == std::string::npos) {
    ParsedScript script = ParseScriptText(text);
    if (script.errors.empty() && !script.lines.empty()) {
      ReplaceScript(g, std::move(script.lines), path.filename().string(), path.string());
      return true;
    }
  }
  return ReadScript(g, path, false);
}

struct Header {
  std::string path;
  std::string date;
};

class GameReader {
 public:
  GameReader(Game& g, std::string_view bytes, const std::filesystem::path& file,
             const std::filesystem::path& dataFolder)
      : g_(g),
        bytes_(bytes),
        file_(file),
        folder_(FullPath(file).parent_path()),
        dataFolder_(FullPath(dataFolder)),
        startUp_(std::make_unique<Game>()) {
    SetStartUpDefaults(*startUp_);
  }

  LoadedGame Load();

 private:
  bool HoldsBytes(std::size_t end) const { return end <= bytes_.size(); }
  RecordReader At(std::size_t offset) const;
  // Whether the field was whole; the file is cut short if not.
  bool Reaches(std::size_t end);

  void ReadHeaders();
  void Take(int record, const Header& header);
  void TakeScript(const Header& header);
  void TakeDiceFile(const Header& header);
  void TakeMatrix(const Header& header);
  void TakeOutput(const Header& header);
  void TakeGamesLog(const Header& header);
  void TakeEventsLog(const Header& header);
  void Missing(const std::string& what, const std::string& title, const std::string& path,
               const std::string& more = {});
  void Altered(const std::string& what, const std::string& title, const std::string& path);

  void ReadFields(std::span<const Field> fields);
  void ReadFurther();
  void ReadNames();
  void ReadChips();
  void ReadLineStates();
  void ReadFlags();
  void Finish();

  Game& g_;
  std::string_view bytes_;
  std::filesystem::path file_;
  std::filesystem::path folder_;
  std::filesystem::path dataFolder_;
  std::unique_ptr<Game> startUp_;
  LoadedGame loaded_;
  bool isCut_ = false;
  bool isMended_ = false;
  bool scriptIsAsSaved_ = false;
  bool hasFurther_ = false;  // settings of record 60, with how many lines and flags they are for
  std::int32_t lineCount_ = 0;
  std::int32_t flagCount_ = 0;
  std::size_t lineStates_ = 0;  // where they begin
};

RecordReader GameReader::At(std::size_t offset) const {
  RecordReader reader(bytes_);
  reader.Seek(offset);
  return reader;
}

bool GameReader::Reaches(std::size_t end) {
  if (!HoldsBytes(end)) isCut_ = true;
  return !isCut_;
}

void GameReader::Missing(const std::string& what, const std::string& title, const std::string& path,
                         const std::string& more) {
  loaded_.notices.push_back(Notice(
      "The following " + what + std::string(kSaved) + "was not found:\r\r" + ShownPath(path) + more, title));
}

void GameReader::Altered(const std::string& what, const std::string& title, const std::string& path) {
  loaded_.notices.push_back(Notice(
      "The following " + what + std::string(kSaved) + "has been changed:\r\r" + ShownPath(path), title));
}

void GameReader::ReadHeaders() {
  for (int record = HeaderScript; record <= HeaderEventsLog; ++record) {
    const std::size_t start = RecordOffset(record);
    if (!Reaches(start + kHeaderDate + kDateWidth)) return;
    if (record == HeaderScript) g_.GameFileReserved = At(kSignatureWidth).Int32();
    Header header;
    header.path = At(start + kHeaderPath).Path(kPathWidth);
    header.date = TrimBlanks(At(start + kHeaderDate).Text(kDateWidth));
    Take(record, header);
  }
}

void GameReader::Take(int record, const Header& header) {
  switch (record) {
    case HeaderScript:
      return TakeScript(header);
    case HeaderDiceFile:
      return TakeDiceFile(header);
    case HeaderMatrix:
      return TakeMatrix(header);
    case HeaderOutput:
      return TakeOutput(header);
    case HeaderGamesLog:
      return TakeGamesLog(header);
    default:
      return TakeEventsLog(header);
  }
}

void GameReader::TakeScript(const Header& header) {
  // What a script of the game before had open is not this game's.
  g_.ScriptOutput.Close();
  g_.OutputIsToReopen = false;
  if (header.path.empty()) return ClearScript(g_);
  const auto path = FindCompanion(header.path, folder_);
  // Meant: a file that was refused is called missing besides.
  if (!path || !LoadScriptOf(g_, *path)) {
    Missing("Auto-Bet file", "Missing Auto-Bet File", header.path);
    return ClearScript(g_);
  }
  g_.OutputFileName.clear();
  scriptIsAsSaved_ = FileDateText(*path) == header.date;
  if (!scriptIsAsSaved_) Altered("Auto-Bet file", "Altered Auto-Bet File", header.path);
}

void GameReader::TakeDiceFile(const Header& header) {
  if (header.path.empty()) return CloseDiceFile(g_);
  FlushDiceFile(g_);  // it may be the same file, and its date is looked at
  const auto path = FindCompanion(header.path, folder_);
  const auto refusal = path ? OpenDiceFile(g_, *path, false) : std::nullopt;
  if (refusal) loaded_.notices.push_back(*refusal);
  if (!path || refusal) {
    CloseDiceFile(g_);
    Missing("Dice Roll file", "Missing Dice Roll File", header.path);
  } else if (FileDateText(*path) != header.date) {
    Altered("Dice Roll file", "Altered Dice Roll File", header.path);
  }
}

void GameReader::TakeMatrix(const Header& header) {
  const auto path = header.path.empty() ? std::nullopt : FindCompanion(header.path, folder_);
  const auto refusal = path ? LoadProbabilityFile(g_, *path) : std::nullopt;
  if (refusal) loaded_.notices.push_back(*refusal);
  if (!path || refusal) {
    g_.ProbabilityMatrix = DefaultProbabilityMatrix();
    g_.ProbabilityName.clear();
    g_.ProbabilityPath.clear();
    g_.ProbabilityDirty = false;
    if (!header.path.empty()) Missing("Probability file", "Missing Probability File", header.path);
  } else if (FileDateText(*path) != header.date) {
    Altered("Probability file", "Altered Probability File", header.path);
  }
}

// Opened where the script next writes, under the rules for its own Open action.
void GameReader::TakeOutput(const Header& header) {
  if (header.path.empty()) return;
  g_.OutputFileName = header.path;
  g_.OutputIsToReopen = true;
}

void GameReader::TakeGamesLog(const Header& header) {
  const std::filesystem::path usual = DefaultGamesLog(dataFolder_);
  g_.GamesLogPath = usual.string();
  if (header.path.empty() || IsSamePath(folder_ / header.path, usual)) return;
  if (const auto path = FindCompanion(header.path, folder_)) {
    g_.GamesLogPath = path->string();
    return;
  }
  Missing("Games Log", "Missing Games Log", header.path,
          "\r\rThe following Games Log will be opened instead:\r\r" + ShownPath(usual.string()));
}

void GameReader::TakeEventsLog(const Header& header) {
  FlushEventsLog(g_);  // lines of the game before belong to its log
  const std::filesystem::path usual = DefaultEventsLog(dataFolder_);
  g_.EventsLogPath = usual.string();
  if (header.path.empty()) return;
  const auto path = FindCompanion(header.path, folder_);
  if (!path) {
    loaded_.notices.push_back(Notice("The Events Log that was open when this game\rwas saved, was not found.",
                                     "Missing Events Log"));
  } else if (FileDateText(*path) != header.date || (!IsSamePath(*path, usual) && !IsEventsLog(*path))) {
    Altered("Events Log", "Changed Events Log", header.path);
  } else {
    g_.EventsLogPath = path->string();
  }
}

void GameReader::ReadFields(std::span<const Field> fields) {
  RecordReader reader = At(0);
  for (const Field& field : fields) {
    for (int k = 0; k < field.count; ++k) {
      if (!Reaches(OffsetOf(field, k) + WidthOf(field.type))) return;
      if (!ReadField(field, k, reader, g_, *startUp_)) isMended_ = true;
    }
  }
}

// Files from elsewhere have anything there: the start-up settings hold then.
void GameReader::ReadFurther() {
  const std::size_t start = RecordOffset(kFurtherRecord);
  if (isCut_ || !Reaches(start + kRecordSize)) return;
  hasFurther_ = HasFurtherSettings(bytes_);
  if (hasFurther_) {
    ReadFields(FurtherFields());
    lineCount_ = At(start + kFurtherLineCount).Int32();
    flagCount_ = At(start + kFurtherFlagCount).Int32();
    return;
  }
  for (const Field& field : FurtherFields()) CopyField(field, *startUp_, g_);
}

void GameReader::ReadNames() {
  for (int i = 0; i < kChipStackCount; ++i) {
    const std::size_t start = NameOffset(i);
    if (!Reaches(start + kNameWidth)) return;
    std::string& name = g_.ChipStackName[static_cast<std::size_t>(i)];
    name = At(start).Text(kNameWidth);
    if (name.empty()) name = ChipStackTitle(SlotChipStack + i);
  }
}

// A false count makes nothing grow: no more chips are taken than there are.
void GameReader::ReadChips() {
  const std::size_t start = RecordOffset(kChipsRecord);
  if (isCut_) return;
  const Money counted = At(RecordOffset(kChipCountRecord) + kChipCountSlot * sizeof(std::int64_t)).Amount();
  const std::size_t held = bytes_.size() < start ? 0 : (bytes_.size() - start) / kChipWidth;
  const auto wanted = static_cast<std::size_t>(
      std::clamp<std::int64_t>(NearestInt32(counted.ToDouble()).value_or(0), 0, INT32_MAX));
  const std::size_t count = std::min({wanted, held, kMostChips});
  g_.TableChips.clear();
  RecordReader reader = At(start);
  for (std::size_t j = 0; j < count; ++j) {
    TableChip chip;
    for (std::int32_t* number : {&chip.Bet, &chip.Chip, &chip.X, &chip.Y}) *number = reader.Int16();
    const bool isGood =
        (IsBet(chip.Bet) || IsChipStack(chip.Bet)) && chip.Chip >= 0 && chip.Chip < kChipCount;
    if (isGood) g_.TableChips.push_back(chip);
    if (!isGood) isMended_ = true;
  }
  if (count < wanted) isCut_ = true;
  constexpr std::size_t kPerRecord = kRecordSize / kChipWidth;
  lineStates_ = start + (wanted + kPerRecord - 1) / kPerRecord * kRecordSize;
}

// A value of a flag from its two bits; one that fits no bits comes back as true.
std::int16_t FlagOfBits(unsigned bits) {
  if (bits == 2) return -1;
  return bits == 0 ? 0 : 1;
}

// How the script's lines looked in the editor, and its flags: only for the script they were saved with.
void GameReader::ReadLineStates() {
  const auto lines = static_cast<std::int64_t>(g_.ScriptLines.size());
  if (isCut_ || !scriptIsAsSaved_ || (hasFurther_ && lineCount_ != lines)) return;
  RecordReader reader = At(lineStates_);
  for (ScriptLine& line : g_.ScriptLines) {
    line.Selected = reader.Int16() != 0;
    const std::int32_t band = reader.Int16();
    line.Band = band == 1 || band == 3 || band == 4 ? band : 0;
  }
  if (hasFurther_) ReadFlags();
}

void GameReader::ReadFlags() {
  const std::int32_t kept = flagCount_ > kMostKeptFlags ? 0 : flagCount_;
  for (std::int32_t i = 0; i < std::min(kept, static_cast<std::int32_t>(g_.ScriptFlags.size())); ++i) {
    const auto place = RecordOffset(kFurtherRecord) + kFurtherFlags + static_cast<std::size_t>(i / 2);
    const unsigned nibble = static_cast<unsigned char>(bytes_[place]) >> (i % 2 * 4) & 15U;
    FlagEntry& flag = g_.ScriptFlags[static_cast<std::size_t>(i)];
    flag.Value = FlagOfBits(nibble & 3);
    flag.PrevValue = FlagOfBits(nibble >> 2);
  }
}

void GameReader::Finish() {
  if (RepairGame(g_)) isMended_ = true;
  g_.TableDirty = isCut_ || isMended_;
  if (isCut_) {
    loaded_.result = GameFileResult::CutShort;
    loaded_.notices.push_back(Notice(kPastEnd, kRefusalTitle));
    return;
  }
  loaded_.result = GameFileResult::Loaded;
  g_.GamePath = IsWorkingGame(file_) ? "" : FullPath(file_).string();
}

// What a house plays by, and how it handles bets by itself.
bool IsRule(const Field& field) {
  constexpr int kAutoPlayRecord = 12, kFormulaRecord = 13, kFirstTotalsSlot = 18;
  const std::string_view name = field.name;
  return name.starts_with("Rules.") || name == "BetWorkingDefault[i]" || name == "HyperThrottle" ||
         name.starts_with("PayoffTable") || name.starts_with("FieldPayoffTable") ||
         field.record == kAutoPlayRecord ||
         (field.record == kFormulaRecord && field.slot < kFirstTotalsSlot) ||
         (name == "BetAmount[i]" && field.first == SlotChipDenom);
}

LoadedGame GameReader::Load() {
  ReadHeaders();
  const std::span<const Field> fields = GameFields();
  const auto behind = std::ranges::find_if(fields, [](const Field& f) { return f.record > kFurtherRecord; });
  ReadFields({fields.begin(), behind});
  ReadFurther();
  ReadFields({behind, fields.end()});
  ReadNames();
  ReadChips();
  ReadLineStates();
  if (IsWorkingGame(file_)) ReadFields(ScreenFields());
  Finish();
  return std::move(loaded_);
}

}  // namespace

bool HasFurtherSettings(std::string_view bytes) {
  const std::size_t start = RecordOffset(kFurtherRecord);
  if (bytes.size() < start + kRecordSize) return false;
  const std::string_view block = bytes.substr(start + kFurtherMagic, kFurtherChecksum - kFurtherMagic);
  RecordReader reader(bytes);
  reader.Seek(start + kFurtherChecksum);
  return block.starts_with(kFurtherSettings) && static_cast<std::int32_t>(Checksum(block)) == reader.Int32();
}

std::optional<Message> ReadGameFile(const std::filesystem::path& file, std::string& bytes) {
  if (std::string failure = ReadWhole(file, kLongestFile, bytes); !failure.empty())
    return Notice(std::move(failure), kRefusalTitle);
  // Meant: any word may stand before the format, and further digits behind it.
  const std::string_view signature = std::string_view(bytes).substr(0, kSignatureWidth);
  if (bytes.size() >= kRecordSize && signature.find(kGameFormat) != std::string_view::npos) return {};
  return Notice(
      "This file is either from a different version, has been corrupted, or is not a true Rollwick game "
      "file.",
      kRefusalTitle);
}

LoadedGame LoadGameFile(Game& g, const std::filesystem::path& file, const std::filesystem::path& dataFolder) {
  LoadedGame refused;
  std::string bytes;
  if (g.RollInProgress) {
    refused.notices.push_back(Notice("A game is not opened while the dice roll.", kRefusalTitle));
  } else if (std::optional<Message> refusal = ReadGameFile(file, bytes)) {
    refused.notices.push_back(*std::move(refusal));
  } else {
    return GameReader(g, bytes, file, dataFolder).Load();
  }
  return refused;
}

std::optional<Message> LoadRules(Game& g, const std::filesystem::path& file) {
  std::string bytes;
  if (std::optional<Message> refusal = ReadGameFile(file, bytes)) return refusal;
  if (bytes.size() < RecordOffset(kFurtherRecord + 1)) return Notice(kPastEnd, kRefusalTitle);
  const auto startUp = std::make_unique<Game>();
  SetStartUpDefaults(*startUp);
  RecordReader reader(bytes);
  for (const Field& field : GameFields()) {
    for (int k = 0; k < field.count && IsRule(field); ++k) ReadField(field, k, reader, g, *startUp);
  }
  g.AutoRollsLeft = g.AutoRollsSet;
  return {};
}

bool IsDefaultGamesLog(const Game& g, const std::filesystem::path& dataFolder) {
  return IsSamePath(g.GamesLogPath, DefaultGamesLog(dataFolder));
}

}  // namespace rollwick
