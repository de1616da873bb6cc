// A table set up as asked, Hyper-Drive, and the report.
#include "console/Run.h"

#include <chrono>
#include <cmath>
#include <ostream>
#include <utility>

#include "autobet/run/Output.h"
#include "base/FormatNumber.h"
#include "console/Columns.h"
#include "console/FiguresShow.h"
#include "console/GameFiles.h"
#include "console/Report.h"
#include "console/ScriptCommands.h"
#include "console/Table.h"
#include "console/Words.h"
#include "dice/DiceFile.h"
#include "engine/game/NewGame.h"
#include "session/Scripts.h"
#include "session/Settings.h"

namespace rollwick {
namespace {

constexpr std::string_view kStopTitle = "Hyper-Drive Stopped";

// What a run came to, beside the game as it left it.
struct RunResult {
  std::int64_t rolls = 0;  // of all games the script began
  std::int32_t rng = 0;    // as users count them
  std::int32_t seed = 0;
  Money bankrollAtStart;
  Money investedAtStart;
  double seconds = 0;
  std::string scriptName;

  double RollsPerSecond() const { return seconds > 0 ? std::round(static_cast<double>(rolls) / seconds) : 0; }
};

// What is wrong with the words, if anything; exit code 2.
std::string ApplySettings(Game& g, const RunOptions& run) {
  for (const std::string& setting : run.settings) {
    const std::size_t equals = setting.find('=');
    if (equals == std::string::npos)
      return "--set takes NAME=VALUE, such as --set MinPlacardBet=5, not \"" + Echo(setting) + "\".";
    if (std::string wrong = ChangeSetting(g, setting.substr(0, equals), setting.substr(equals + 1));
        !wrong.empty())
      return "--set " + Echo(setting) + ": " + wrong;
  }
  return {};
}

// A new game with this bankroll, whatever else new games begin with; the dice stay seeded as they are.
void StartWith(Game& g, Money bankroll) {
  g.Rules.BankrollInitAmount = bankroll;
  const std::int32_t type = std::exchange(g.Rules.BankrollInitType, StartWithAmount);
  const bool reseeds = std::exchange(g.ReseedNewGames, false);
  NewGame(g, false);
  g.Rules.BankrollInitType = type;
  g.ReseedNewGames = reseeds;
}

std::string ApplyWords(Table& table, const CommonOptions& options, const RunOptions& run) {
  if (!table.Error().empty()) return table.Error();
  if (!run.recordFile.empty() && !options.diceFile.empty())
    return "--record and --dice need the one Dice Roll File that can be open.";
  if (std::string wrong = ApplySettings(table.g, run); !wrong.empty()) return wrong;
  if (run.bankroll.empty()) return {};
  const auto bankroll = ParseMoney(run.bankroll);
  if (!bankroll || Abs(*bankroll) > kBankLimit)
    return "--bankroll takes an amount up to 9,999,999, not \"" + Echo(run.bankroll) + "\".";
  StartWith(table.g, *bankroll);
  return {};
}

// A recording is of this run alone: what the file held before goes, once it is known for a Dice Roll File.
std::string RecordAnew(Game& g, const std::filesystem::path& file) {
  if (std::string wrong = DiceFileRefusal(g, file, true); !wrong.empty()) return wrong;
  CloseDiceFile(g);
  std::error_code error;
  std::filesystem::resize_file(file, 0, error);
  return error ? file.string() + ": " + error.message() : RecordInto(g, file);
}

// The files of the run, opened or found fit. What the system says against one, if anything; exit code 1.
std::string OpenFiles(Table& table, const CommonOptions& options, const RunOptions& run) {
  Game& g = table.g;
  std::error_code unknown;
  if (!run.outputFolder.empty()) {
    if (!std::filesystem::is_directory(run.outputFolder, unknown))
      return "the folder \"" + Echo(run.outputFolder) + "\" is not there.";
    table.host.scriptFolder = run.outputFolder;
  }
  if (!run.eventsFile.empty()) {
    if (std::filesystem::is_directory(run.eventsFile, unknown))
      return "the Events Log needs the name of a file, not of the folder \"" + Echo(run.eventsFile) + "\".";
    if (std::string wrong = LogTo(table, run.eventsFile); !wrong.empty()) return wrong;
    ChangeSetting(g, "RecordEventsActive", "on");
  }
  if (std::string wrong = PlayWithMatrix(g, options.matrixFile); !wrong.empty()) return wrong;
  if (!run.recordFile.empty()) return RecordAnew(g, run.recordFile);
  if (!options.diceFile.empty()) return PlayBackFrom(g, options.diceFile);
  return {};
}

// Makes the file the script in force. Says what is wrong with it; false when it cannot be read. What is only
// put together in an odd way runs, as it does at the table.
bool LoadForRun(Table& table, const std::string& file, const Terminal& terminal) {
  const LoadedScript loaded = LoadScript(table.g, file);
  if (!loaded.isLoaded) {
    terminal.error << ErrorsText(file, loaded.source);
    if (loaded.source.isScriptFile) terminal.error << SaidForPeople(table.host);
    return false;
  }
  terminal.error << (table.g.ScriptLines.empty() ? Echo(file) + ": " + kScriptIsEmpty + "\n"
                                                 : FaultText(file, loaded.source));
  ActivateScript(table.g, true);
  return true;
}

// Whether the notice tells of a script that was aborted, a disk that refused or dice that are none.
bool IsFailure(const Message& notice) {
  if ((notice.flags & MessageWarning) != 0 || notice.title == "Auto-Bet Abort") return true;
  return notice.title == kStopTitle &&
         (notice.text == "Auto-Bet error." || notice.text.find(", Error #") != std::string::npos ||
          notice.text == "Stopped due to Dice Roll File value out of limits.");
}

Json ResultJson(Table& table, const RunResult& result) {
  Game& g = table.g;
  Json json;
  json["rolls"] = result.rolls;
  json["seed"] = result.seed;
  json["rng"] = result.rng;
  json["seconds"] = result.seconds;
  json["rolls_per_second"] = result.RollsPerSecond();
  json["stopped"] = CleanUtf8(g.LastStopMessage);
  json["notices"] = NoticesJson(table.host);
  json["questions"] = QuestionsJson(table.host);
  json["bankroll"] = PlainText(g.BetAmount[SlotBankroll]);
  json["summary"] = SummaryJson(g);
  json["stacks"] = StacksJson(g);
  json["flags"] = Json::object();
  for (const FlagEntry& flag : g.ScriptFlags) json["flags"][CleanUtf8(flag.Name)] = flag.Value != 0;
  json["hand"] = g.HandStats;
  return json;
}

std::string Count(std::int64_t count) {
  return FormatMoney(Dollars(count));
}

std::string ResultForPeople(Table& table, const RunResult& result) {
  Game& g = table.g;
  std::string text = SaidForPeople(table.host, kStopTitle);  // the reason stands below
  text += StoryLine("Script", CleanUtf8(result.scriptName) + ", " + Count(std::ssize(g.ScriptLines)) +
                                  (g.ScriptLines.size() == 1 ? " line" : " lines"));
  const bool hasEarlierGames = result.rolls > g.RollCount();
  const char* const whose = hasEarlierGames                ? "; what follows is of the last game, of "
                            : result.rolls < g.RollCount() ? "; what follows is of the whole game, of "
                                                           : nullptr;
  text += StoryLine("Rolls", Count(result.rolls) + (whose ? whose + Count(g.RollCount()) : ""));
  text +=
      StoryLine("Generator", "RNG #" + std::to_string(result.rng) + ", seed " + std::to_string(result.seed));
  for (const FlagEntry& flag : g.ScriptFlags)
    text += StoryLine("Flag", CleanUtf8(flag.Name) + " is " + (flag.Value != 0 ? "True" : "False"));
  for (int stack = 0; stack < kChipStackCount; ++stack) {
    const BetId slot = SlotChipStack + stack;
    const Money chips = g.BetAmount[static_cast<std::size_t>(slot)];
    if (chips != Money()) text += StoryLine("Stack", ChipStackTitle(slot) + ": " + FormatMoney(chips));
  }
  text += StoryLine("Stopped", !g.LastStopMessage.empty()    ? WithNewLines(CleanUtf8(g.LastStopMessage))
                               : table.host.WasInterrupted() ? "by Ctrl-C"
                               : result.rolls == 0           ? "before the first roll"
                                                             : "at the end of a roll");
  text +=
      StoryLine("Time", FormatNumber(result.seconds, "#,##0.00") + " s, " +
                            Count(static_cast<std::int64_t>(result.RollsPerSecond())) + " rolls per second");
  const Money fromAtm = g.InvestedBankroll - result.investedAtStart;
  const bool showsAtm = !hasEarlierGames && fromAtm != Money();
  text += StoryLine("Bankroll", Cents(result.bankrollAtStart) +
                                    (hasEarlierGames ? " at the start of the run, " : " at the start, ") +
                                    (showsAtm ? Cents(fromAtm) + " from the ATM, " : "") +
                                    Cents(g.BetAmount[SlotBankroll]) + " at the end");
  return text + StoryOfGame(g);
}

int Wrong(const Terminal& terminal, const std::string& wrong, int exitCode) {
  terminal.error << "rollwick: " << CleanUtf8(OneLine(wrong)) << "\n";
  return exitCode;
}

// The run itself: once before the dice if asked, then Hyper-Drive.
RunResult RunScriptFor(Table& table, std::int32_t rolls, bool initializes) {
  Game& g = table.g;
  RunResult result{.rng = g.RngChoice + 1,
                   .seed = g.LastSeed,
                   .bankrollAtStart = g.BetAmount[SlotBankroll],
                   .investedAtStart = g.InvestedBankroll,
                   .scriptName = g.ScriptFileName};
  const auto started = std::chrono::steady_clock::now();
  const bool isAborted = initializes && !RunInitializingScript(g).empty();
  g.AutoBetsChanged = false;  // nobody is to be asked
  if (!isAborted && !table.host.WasInterrupted()) {
    result.rolls = table.host.HyperDrive(g, rolls, true);
  }
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
  FlushScriptOutput(g);
  CloseDiceFile(g);
  FlushEventsLog(g);
  return result;
}

}  // namespace

int RunBettingSystem(const CommonOptions& options, const RunOptions& run, const Terminal& terminal) {
  const auto rolls = ParseWhole(run.rolls, 1, kMaxRollCount);
  if (!rolls) return Wrong(terminal, "--rolls takes a number from 1 to 100,000,000.", ExitUsage);
  Table table(options, terminal);
  if (table.Error().empty()) {
    if (const std::string wrong = StartFromFiles(table, options); !wrong.empty())
      return Wrong(terminal, wrong, ExitFailure);
  }
  if (const std::string wrong = ApplyWords(table, options, run); !wrong.empty())
    return Wrong(terminal, wrong, ExitUsage);
  if (!LoadForRun(table, run.script, terminal)) return ExitFailure;
  if (const std::string wrong = OpenFiles(table, options, run); !wrong.empty())
    return Wrong(terminal, wrong, ExitFailure);

  const RunResult result = RunScriptFor(table, static_cast<std::int32_t>(*rolls), run.initializes);
  const std::string notSaved = run.saveFile.empty() ? "" : SaveInto(table, run.saveFile);
  if (options.json) {
    terminal.out << ResultJson(table, result).dump() << "\n";
  } else {
    terminal.out << ResultForPeople(table, result);
  }
  terminal.out << std::flush;
  bool isFailure = !terminal.out.good() || !notSaved.empty();
  if (!notSaved.empty()) Wrong(terminal, notSaved, ExitFailure);
  for (const Message& notice : table.host.notices) {
    if (!IsFailure(notice)) continue;
    isFailure = true;
    Wrong(terminal, notice.title + ": " + notice.text, ExitFailure);
  }
  if (table.host.WasInterrupted()) return ExitInterrupted;
  return isFailure ? ExitFailure : ExitSuccess;
}

}  // namespace rollwick
