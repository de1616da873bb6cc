#include "stats/logs/GamesLog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <limits>
#include <system_error>

#include "base/AtomicFile.h"
#include "base/Record.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

constexpr std::string_view kSignature = "Rollwick Games File, Data Format 5.0";
constexpr std::size_t kSignatureWidth = 92;  // the count of games stands behind it
constexpr std::size_t kPathPlace = 100, kPathWidth = 100;
constexpr std::size_t kDatePlace = 208, kDateWidth = 40;
constexpr std::size_t kGamesAtOnce = 256;  // read in one step
constexpr std::size_t kMostGames = std::numeric_limits<std::int32_t>::max();

Message Refusal(const std::filesystem::path& path, const std::string& words) {
  return {path.string() + ": " + words, "Games Log Error", MessagePlain | MessageWarning};
}

Message Refusal(const std::filesystem::path& path, int error) {
  return Refusal(path, SystemErrorText(error));
}

Message NoGamesFile(const std::filesystem::path& path) {
  return {path.filename().string() +
              "\ris either from an older version, has been corrupted, or is not a true Rollwick Games File.",
          "Unable to Open Rollwick Games File", MessagePlain | MessageWarning};
}

// A file descriptor that closes itself.
class OpenFile {
 public:
  // Without blocking: a pipe would hold the table up until somebody opens its other end.
  OpenFile(const std::filesystem::path& path, int flags)
      : descriptor_(open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK)) {}
  ~OpenFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

// Reads up to `size` bytes at `place`; fewer only at the end of the file. 0 or an errno.
int ReadAt(int file, std::size_t place, std::size_t size, std::string& bytes) {
  bytes.resize(size);
  std::size_t count = 0;
  int error = 0;
  while (count < size) {
    const ssize_t got = pread(file, bytes.data() + count, size - count, static_cast<off_t>(place + count));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) error = errno;
    if (got <= 0) break;
    count += static_cast<std::size_t>(got);
  }
  bytes.resize(count);
  return error;
}

int WriteAt(int file, std::size_t place, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(place));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
    place += static_cast<std::size_t>(written);
  }
  return 0;
}

std::string Header(std::int32_t count) {
  std::string bytes(kRecordSize, '\0');
  RecordWriter writer(bytes);
  writer.Text(kSignature, kSignatureWidth);
  writer.Int32(count);
  writer.Seek(kPathPlace);
  writer.Text("", kPathWidth);
  writer.Seek(kDatePlace);
  writer.Text("", kDateWidth);
  return bytes;
}

std::string BytesOf(std::span<const GameRecord> games) {
  std::string bytes(games.size() * kRecordSize, '\0');
  RecordWriter writer(bytes);
  for (const GameRecord& game : games) {
    for (const Money field : game) writer.Amount(field);
  }
  return bytes;
}

// The games in a file: the header's count brought into what the length has room for, or the file is none.
struct Proof {
  std::size_t count = 0;
  std::optional<Message> refusal;
};

Proof ProveFile(const std::filesystem::path& path, int file) {
  struct stat status = {};
  if (fstat(file, &status) != 0) return {0, Refusal(path, errno)};
  if (S_ISDIR(status.st_mode)) return {0, Refusal(path, EISDIR)};
  if (!S_ISREG(status.st_mode)) return {0, Refusal(path, ENOTSUP)};
  std::string header;
  if (const int error = ReadAt(file, 0, kRecordSize, header); error != 0) return {0, Refusal(path, error)};

  RecordReader reader(header);
  std::string signature = reader.Text(kSignatureWidth);
  signature.erase(0, signature.find_first_not_of(' '));
  if (signature != kSignature) return {0, NoGamesFile(path)};
  const std::int64_t count = reader.Int32();  // 0 when the file ends before it
  const std::int64_t room = std::max<std::int64_t>(status.st_size / std::int64_t{kRecordSize} - 1, 0);
  return {static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, room)), {}};
}

// A log of these records in place of whatever is there.
std::optional<Message> SaveGames(const std::filesystem::path& path, std::string_view records) {
  const auto count = static_cast<std::int32_t>(records.size() / kRecordSize);
  const std::string failure = SaveWhole(path, Header(count) + std::string(records));
  if (failure.empty()) return {};
  return Refusal(path, failure);
}

std::optional<Message> AppendRecords(const std::filesystem::path& path, std::string_view records) {
  const OpenFile file(path, O_RDWR);
  if (file.Descriptor() < 0 && errno == ENOENT) return SaveGames(path, records);
  if (file.Descriptor() < 0) return Refusal(path, errno);
  const Proof proof = ProveFile(path, file.Descriptor());
  if (proof.refusal) return proof.refusal;
  const std::size_t count = proof.count + records.size() / kRecordSize;
  if (count > kMostGames) return Refusal(path, EFBIG);

  // The count last and alone: until it is written the log is as it was.
  std::string newCount(sizeof(std::int32_t), '\0');
  RecordWriter(newCount).Int32(static_cast<std::int32_t>(count));
  int error = WriteAt(file.Descriptor(), (proof.count + 1) * kRecordSize, records);
  if (error == 0) error = WriteAt(file.Descriptor(), kSignatureWidth, newCount);
  if (error == 0) return {};
  return Refusal(path, error);
}

// Calls `onRecords` with the bytes of whole records, some at a time.
std::optional<Message> ReadRecords(const std::filesystem::path& path,
                                   const std::function<void(std::string_view)>& onRecords) {
  const OpenFile file(path, O_RDONLY);
  if (file.Descriptor() < 0) return Refusal(path, errno);
  const Proof proof = ProveFile(path, file.Descriptor());
  if (proof.refusal) return proof.refusal;
  std::string bytes;
  for (std::size_t game = 0; game < proof.count;) {
    const std::size_t wanted = std::min(kGamesAtOnce, proof.count - game);
    if (const int error = ReadAt(file.Descriptor(), (game + 1) * kRecordSize, wanted * kRecordSize, bytes);
        error != 0)
      return Refusal(path, error);
    if (bytes.size() < wanted * kRecordSize) return Refusal(path, EIO);  // it became shorter meanwhile
    onRecords(bytes);
    game += wanted;
  }
  return {};
}

// The records of a whole log, one behind the other.
std::optional<Message> CollectRecords(const std::filesystem::path& path, std::string& records) {
  return ReadRecords(path, [&](std::string_view bytes) { records += bytes; });
}

}  // namespace

std::string GameFieldCaption(int field) {
  constexpr std::string_view kCaptions[] = {"# Rolls",
                                            "# Bets Decided",
                                            "# Bets Won",
                                            "# Bets Lost",
                                            "# Bets Won/Lost (Net)",
                                            "$ Bets Decided (Handle)",
                                            "$ Bets Won",
                                            "$ Bets Lost",
                                            "$ Bets Won/Lost (Net)",
                                            "% Won or Lost (HA)",
                                            "Invested bankroll",
                                            "Ending bankroll"};
  static_assert(std::size(kCaptions) == GameChipStacks);
  if (field >= GameChipStacks) return "Chip-Stack #" + std::to_string(field - GameChipStacks);
  return std::string(kCaptions[field]);
}

GameRecord RecordOfGame(Game& g) {
  SumBetResults(g, true, 1, kBetCount);
  const BetStatRow& wagers = g.BetWagers[ActualWagers][0];
  const BetStatRow& wins = g.BetWins[ActualWagers][0];
  const BetStatRow& losses = g.BetLosses[ActualWagers][0];
  GameRecord game{};
  game[GameRolls] = Dollars(g.RollCount());
  game[GameBetsDecided] = wagers[TotalCount];
  game[GameBetsWon] = wins[TotalCount];
  game[GameBetsLost] = losses[TotalCount];
  game[GameBetsNet] = wins[TotalCount] - losses[TotalCount];
  game[GameHandle] = wagers[TotalAmount];
  game[GameAmountWon] = wins[TotalAmount];
  game[GameAmountLost] = losses[TotalAmount];
  game[GameNet] = wins[TotalAmount] - losses[TotalAmount];
  if (game[GameHandle] != Money()) {
    game[GameAdvantage] = Money::FromDouble(100 * game[GameNet].ToDouble() / game[GameHandle].ToDouble());
  }
  game[GameInvested] = g.InvestedBankroll;
  game[GameBankroll] = g.BetAmount[SlotBankroll];
  std::copy_n(g.BetAmount.begin() + SlotChipStack, kGameFieldCount - GameChipStacks,
              game.begin() + GameChipStacks);
  return game;
}

std::optional<Message> CreateGamesLog(const std::filesystem::path& path) {
  return SaveGames(path, {});
}

std::optional<Message> CountGames(const std::filesystem::path& path, int& count) {
  const OpenFile file(path, O_RDONLY);
  if (file.Descriptor() < 0) return Refusal(path, errno);
  const Proof proof = ProveFile(path, file.Descriptor());
  count = static_cast<int>(proof.count);
  return proof.refusal;
}

std::optional<Message> AppendGames(const std::filesystem::path& path, std::span<const GameRecord> games) {
  return AppendRecords(path, BytesOf(games));
}

std::optional<Message> AppendGameRecord(Game& g) {
  if (g.GamesLogPath.empty() || g.RollCount() == 0) return {};
  const std::filesystem::path path = g.GamesLogPath;
  std::error_code failure;  // appending tells of a folder that could not be made
  if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), failure);
  const GameRecord game = RecordOfGame(g);
  return AppendGames(path, {&game, 1});
}

std::optional<Message> ReadGames(const std::filesystem::path& path,
                                 const std::function<void(const GameRecord&)>& onGame) {
  return ReadRecords(path, [&](std::string_view bytes) {
    RecordReader reader(bytes);
    while (reader.Place() < bytes.size()) {
      GameRecord game;
      for (Money& field : game) field = reader.Amount();
      onGame(game);
    }
  });
}

std::optional<Message> MergeGames(const std::filesystem::path& into, const std::filesystem::path& from) {
  std::string records;
  if (auto refusal = CollectRecords(from, records)) return refusal;
  return AppendRecords(into, records);
}

std::optional<GameRange> ParseGameRange(std::string_view text, int count) {
  std::string digits;
  std::ranges::copy_if(text, std::back_inserter(digits), [](char letter) { return letter != ' '; });
  GameRange range;
  const char* const end = digits.data() + digits.size();
  auto [stop, error] = std::from_chars(digits.data(), end, range.first);
  range.last = range.first;
  if (error == std::errc() && stop != end && *stop == '-') {
    const auto behind = std::from_chars(stop + 1, end, range.last);
    stop = behind.ptr;
    error = behind.ec;
  }
  if (error != std::errc() || stop != end) return {};
  if (range.first < 1 || range.last < range.first || range.last > count) return {};
  return range;
}

std::optional<Message> DeleteGames(const std::filesystem::path& path, GameRange range) {
  std::string records;
  if (auto refusal = CollectRecords(path, records)) return refusal;
  const auto count = static_cast<std::int64_t>(records.size() / kRecordSize);
  const auto first = std::clamp<std::int64_t>(range.first - std::int64_t{1}, 0, count);
  const auto last = std::clamp<std::int64_t>(range.last, first, count);
  records.erase(static_cast<std::size_t>(first) * kRecordSize,
                static_cast<std::size_t>(last - first) * kRecordSize);
  return SaveGames(path, records);
}

}  // namespace rollwick
