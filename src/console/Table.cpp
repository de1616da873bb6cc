// Opening the house for one command.
#include "console/Table.h"

#include <algorithm>
#include <cstdint>
#include <system_error>

#include "base/AtomicFile.h"
#include "base/FormatNumber.h"
#include "console/Words.h"
#include "dice/DiceFile.h"
#include "dice/Draw.h"
#include "dice/ProbabilityFile.h"
#include "engine/game/NewGame.h"
#include "session/DataFolder.h"
#include "session/EventsLogs.h"

namespace rollwick {
namespace {

// What the system says of a file is without its name.
std::string WithName(const Message& refusal, const std::filesystem::path& file) {
  const bool isNamed = refusal.text.starts_with(file.filename().string());
  return isNamed ? refusal.text : Echo(file.string()) + ": " + refusal.text;
}

}  // namespace

std::string FolderMakingLog::Append(Game& events, std::string_view lines) {
  std::error_code error;
  if (Path().has_parent_path()) std::filesystem::create_directories(Path().parent_path(), error);
  return EventsLog::Append(events, lines);  // which reports a folder that could not be made
}

Table::Table(const CommonOptions& options, const Terminal& terminal)
    : game_(std::make_unique<Game>()),
      dataFolder_(options.dataFolder.empty() ? UserDataFolder() : std::filesystem::path(options.dataFolder)),
      g(*game_),
      host(terminal.interrupted, terminal.showsProgress && !options.quiet ? &terminal.error : nullptr),
      log(dataFolder_ / "Events Log.txt") {
  g.TheHost = &host;
  g.TheLog = &log;
  if (!options.seed.empty())
    host.ownClock = static_cast<std::uint32_t>(ParseWhole(options.seed, 1, INT32_MAX).value_or(0));
  StartUp(g);
  g.RngChoice = options.rng - 1;
  FallBackFromMissingGenerator(g);
  if (options.seed.empty()) {
    SeedGenerator(g, false);  // so that the seed that is told is the selected generator's
  } else {
    error_ = SeedWith(g, options.seed);
  }
  RemoveAbandonedTemporaries(dataFolder_);
  host.ForgetWhatWasSaid();
  host.scriptFolder = dataFolder_;
  host.scriptsMayLeaveIt = options.scriptsMayWrite;
  host.answers.assign(options.answers.begin(), options.answers.end());
}

Table::~Table() {
  FlushEventsLog(g);
}

std::string LogTo(Table& table, const std::filesystem::path& file) {
  const std::string wrong = UseEventsLog(table.g, table.log, file);
  return wrong.empty() ? "" : Echo(file.string()) + ": " + wrong;
}

std::string DiceFileRefusal(Game& g, const std::filesystem::path& file, bool create) {
  const auto refusal = OpenDiceFile(g, file, create);
  return refusal ? WithName(*refusal, file) : "";
}

std::string PlayBackFrom(Game& g, const std::filesystem::path& file) {
  if (std::string wrong = DiceFileRefusal(g, file, false); !wrong.empty()) return wrong;
  g.DiceFileMode = DiceFilePlayback;
  return {};
}

std::string RecordInto(Game& g, const std::filesystem::path& file) {
  if (std::string wrong = DiceFileRefusal(g, file, true); !wrong.empty()) return wrong;
  g.DiceFileMode = DiceFileRecording;
  g.DiceFileRecord =
      static_cast<std::int32_t>(std::min<std::int64_t>(g.DiceFile.Length() + 1, kDiceRecordLimit));
  g.DiceLastRecord = g.DiceFileRecord - 1;
  return {};
}

std::string LoadMatrix(Game& g, const std::filesystem::path& file) {
  const auto refusal = LoadProbabilityFile(g, file);
  return refusal ? WithName(*refusal, file) : "";
}

std::string PlayWithMatrix(Game& g, const std::filesystem::path& file) {
  if (file.empty()) return {};
  if (std::string wrong = LoadMatrix(g, file); !wrong.empty()) return wrong;
  g.UseProbabilityMatrix = true;
  return {};
}

std::string SeedWith(Game& g, std::string_view text) {
  const std::int32_t limit = SeedLimit(g);
  const auto seed = ParseWhole(text, 1, limit);
  if (!seed)
    return "a seed of RNG #" + std::to_string(g.RngChoice + 1) + " is a whole number from 1 to " +
           FormatMoney(Dollars(limit)) + ".";
  g.SeedRequest = Dollars(*seed);
  switch (SeedGenerator(g, true)) {
    case SeedResult::Seeded:
      return {};
    case SeedResult::OutOfLimits:
      return "the seed is out of limits.";
    case SeedResult::Overflow:
      return "Overflow, Error #6";
  }
  return {};
}

}  // namespace rollwick
