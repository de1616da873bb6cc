// An edit that changes more than a roll makes the file anew beside the old one, so that a full disk or a kill
// leaves one of the two whole.
#include "dice/DiceClipboard.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <system_error>
#include <utility>

#include "base/AtomicFile.h"
#include "base/Record.h"
#include "dice/DiceFile.h"

namespace rollwick {

namespace {

constexpr std::size_t kMostRolls = kDiceRecordLimit - 1;
constexpr const char* kTitle = "Dice Roll Files";

Message Refusal(std::string text, const char* title = kTitle) {
  return {std::move(text), title, MessagePlain | MessageWarning};
}

std::optional<Message> ToMessage(std::string failure) {
  if (failure.empty()) return {};
  return Refusal(std::move(failure));
}

std::optional<Message> RefusalWithoutFile(const Game& g) {
  if (g.DiceFile.IsOpen()) return {};
  return Refusal("You need to open a file first.", "Record Dice Rolls");
}

// The bytes of the rolls, which may be half of a disk: memory that is not there is an error like another.
std::string ReadRolls(const std::filesystem::path& file, std::string& bytes) {
  try {
    return ReadWhole(file, kMostRolls, bytes);
  } catch (const std::bad_alloc&) {
    return SystemErrorText(ENOMEM);
  }
}

// As every Dice Roll File is tested when it is opened: the first 100 rolls leave two bits clear.
bool LooksLikeDice(std::string_view bytes) {
  return std::ranges::none_of(bytes.substr(0, 100), [](char byte) { return (byte & 3) != 0; });
}

bool IsOpenFile(const Game& g, const std::filesystem::path& file) {
  std::error_code unknown;
  return std::filesystem::equivalent(g.DiceFileName, file, unknown);
}

// Saves the file with these bytes and opens it again, recorder and places as they are.
std::string Rewrite(Game& g, std::string_view bytes) {
  if (bytes.size() > kMostRolls) return SystemErrorText(EFBIG);
  // A file may be replaced where it must not be written.
  if (access(g.DiceFileName.c_str(), W_OK) != 0) return SystemErrorText(errno);
  if (std::string failure = SaveWhole(g.DiceFileName, bytes); !failure.empty()) return failure;
  std::string failure = g.DiceFile.Open(g.DiceFileName, false);
  if (!failure.empty()) CloseDiceFile(g);
  return failure;
}

// Puts `rolls` in the place of `removed` rolls from record `first` on.
std::string Splice(Game& g, std::size_t first, std::size_t removed, std::string_view rolls) {
  FlushDiceFile(g);
  std::string bytes;
  if (std::string failure = ReadRolls(g.DiceFileName, bytes); !failure.empty()) return failure;
  const std::size_t place = std::min(first - 1, bytes.size());
  try {
    bytes.replace(place, removed, rolls);
  } catch (const std::bad_alloc&) {
    return SystemErrorText(ENOMEM);
  }
  return Rewrite(g, bytes);
}

// A next roll behind the end of the file is the one behind its last.
std::int32_t NextRoll(const Game& g) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(
      g.DiceFileRecord, 1, std::min<std::int64_t>(g.DiceFile.Length() + 1, kDiceRecordLimit)));
}

void AdvanceTo(Game& g, std::size_t nextRoll) {
  g.DiceFileRecord = static_cast<std::int32_t>(nextRoll);
  g.DiceLastRecord = g.DiceFileRecord - 1;
  g.TableDirty = true;
}

// Where a record is when the rolls are gone.
std::int32_t AfterDeletion(std::int32_t record, DiceRange rolls) {
  if (record < rolls.first) return record;
  return std::max(rolls.first, record - rolls.count);
}

// What of the range the file has.
DiceRange Held(const Game& g, DiceRange rolls) {
  const std::int64_t first = std::max(rolls.first, 1);
  const std::int64_t behind = std::min(std::int64_t{rolls.first} + rolls.count, g.DiceFile.Length() + 1);
  return {static_cast<std::int32_t>(first),
          static_cast<std::int32_t>(std::max<std::int64_t>(behind - first, 0))};
}

}  // namespace

std::filesystem::path DiceClipboard(const std::filesystem::path& dataFolder) {
  return dataFolder / "copyfile.rll";
}

std::optional<Message> CopyDiceRolls(Game& g, DiceRange rolls, const std::filesystem::path& into) {
  if (auto refusal = RefusalWithoutFile(g)) return refusal;
  if (IsOpenFile(g, into)) return Refusal(SystemErrorText(EBUSY));
  const DiceRange held = Held(g, rolls);
  std::string bytes;
  for (std::int64_t place = held.first - 1; place < std::int64_t{held.first} - 1 + held.count; ++place) {
    const std::optional<unsigned char> byte = g.DiceFile.Read(place);
    if (!byte) return Refusal(g.DiceFile.Failure().empty() ? SystemErrorText(EIO) : g.DiceFile.Failure());
    bytes += static_cast<char>(*byte);
  }
  return ToMessage(SaveWhole(into, bytes));
}

std::optional<Message> DeleteDiceRolls(Game& g, DiceRange rolls) {
  if (auto refusal = RefusalWithoutFile(g)) return refusal;
  FlushDiceFile(g);
  const DiceRange held = Held(g, rolls);
  if (held.count == 0) return {};
  const std::int32_t nextRoll = AfterDeletion(NextRoll(g), held);
  std::string failure =
      Splice(g, static_cast<std::size_t>(held.first), static_cast<std::size_t>(held.count), "");
  if (!failure.empty()) return Refusal(std::move(failure));
  AdvanceTo(g, static_cast<std::size_t>(nextRoll));
  return {};
}

std::optional<Message> PasteDiceRolls(Game& g, const std::filesystem::path& from) {
  if (auto refusal = RefusalWithoutFile(g)) return refusal;
  FlushDiceFile(g);  // it may be the same file
  std::string rolls;
  if (std::string failure = ReadRolls(from, rolls); !failure.empty()) return Refusal(std::move(failure));
  if (!LooksLikeDice(rolls)) {
    return Refusal(
        from.filename().string() +
            "\ris either from an earlier version, has been corrupted, or is not a true Rollwick dice "
            "roll file.",
        "Unable to Open Dice Roll File");
  }
  const auto first = static_cast<std::size_t>(NextRoll(g));
  std::string failure = Splice(g, first, g.DiceInsertRolls ? 0 : rolls.size(), rolls);
  if (!failure.empty()) return Refusal(std::move(failure));
  AdvanceTo(g, first + rolls.size());
  return {};
}

std::optional<Message> KeyInDiceRoll(Game& g, std::int32_t die1, std::int32_t die2) {
  if (auto refusal = RefusalWithoutFile(g)) return refusal;
  FlushDiceFile(g);
  const std::int32_t first = NextRoll(g);
  const unsigned char roll = DiceByte(die1, die2);
  std::string failure;
  if (first == kDiceRecordLimit) {
    failure = SystemErrorText(EFBIG);
  } else if (g.DiceInsertRolls && first <= g.DiceFile.Length()) {
    failure = Splice(g, static_cast<std::size_t>(first), 0, std::string(1, static_cast<char>(roll)));
  } else {
    failure = g.DiceFile.Write(first - 1, roll);
    if (failure.empty()) failure = g.DiceFile.Flush();
  }
  if (!failure.empty()) return Refusal(std::move(failure));
  AdvanceTo(g, static_cast<std::size_t>(first) + 1);
  return {};
}

std::string DeleteDiceClipboard(const std::filesystem::path& dataFolder) {
  std::error_code error;
  std::filesystem::remove(DiceClipboard(dataFolder), error);
  return error ? SystemErrorText(error.value()) : "";
}

}  // namespace rollwick
