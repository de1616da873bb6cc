#include "console/LogShow.h"

#include <algorithm>
#include <ostream>

#include "console/Report.h"
#include "console/Words.h"
#include "stats/logs/EventsLogReader.h"

namespace rollwick {
namespace {

int Wrong(const Terminal& terminal, const std::string& wrong, int exitCode) {
  terminal.error << "rollwick: " << CleanUtf8(OneLine(wrong)) << "\n";
  return exitCode;
}

void PrintLine(std::ostream& out, bool isJson, std::int64_t number, const EventsLogLine& line) {
  if (isJson) {
    Json json = {{"line", number}, {"text", CleanUtf8(line.text)}};
    if (line.isCut) json["cut"] = true;
    out << json.dump() << "\n";
    return;
  }
  constexpr std::size_t kNumberWidth = 8;
  const std::string digits = std::to_string(number);
  out << std::string(kNumberWidth - std::min(kNumberWidth, digits.size()), ' ') << digits << "  "
      << CleanUtf8(line.text) << (line.isCut ? "..." : "") << "\n";
}

// The line to show, from `number` on, or the first with the text; 0 when there is none. In steps, so that
// Ctrl-C is heard.
std::int64_t NextLine(EventsLogReader& log, const LogShowOptions& options, std::int64_t number,
                      const Terminal& terminal) {
  constexpr std::int64_t kStep = 100'000;
  if (!options.finds) return number <= log.LineCount() ? number : 0;
  for (; number <= log.LineCount(); number += kStep) {
    if (terminal.interrupted.load(std::memory_order_relaxed)) return 0;
    const auto found = log.Find(options.find, number, std::min(number + kStep - 1, log.LineCount()));
    if (found) return *found;
    if (!log.Failure().empty()) return 0;
  }
  return 0;
}

}  // namespace

int RunLogShow(const LogShowOptions& options, bool isJson, const Terminal& terminal) {
  constexpr std::int64_t kMost = kLongestEventsLog;
  const auto from = ParseWhole(options.from.empty() ? "1" : options.from, 1, kMost);
  if (!from) return Wrong(terminal, "--from takes the number of a line, from 1 on.", ExitUsage);
  const auto count = ParseWhole(options.count.empty() ? std::to_string(kMost) : options.count, 0, kMost);
  if (!count) return Wrong(terminal, "--count takes a number of lines.", ExitUsage);
  if (options.finds && options.find.empty())
    return Wrong(terminal, "--find takes a text to look for.", ExitUsage);

  EventsLogReader log;
  if (const std::string wrong = log.Open(options.file); !wrong.empty())
    return Wrong(terminal, Echo(options.file) + ": " + wrong, ExitFailure);
  if (!options.from.empty() && *from > log.LineCount())
    return Wrong(terminal, "the log has " + std::to_string(log.LineCount()) + " lines.", ExitFailure);

  std::int64_t shown = 0;
  for (std::int64_t number = *from; shown < *count && terminal.out.good(); ++number, ++shown) {
    number = NextLine(log, options, number, terminal);
    if (terminal.interrupted.load(std::memory_order_relaxed)) return ExitInterrupted;
    if (number == 0) break;
    const auto line = log.Line(number);
    if (!line) break;
    PrintLine(terminal.out, isJson, number, *line);
  }
  terminal.out << std::flush;
  if (!log.Failure().empty()) return Wrong(terminal, Echo(options.file) + ": " + log.Failure(), ExitFailure);
  if (options.finds && shown == 0 && *count > 0) return Wrong(terminal, "Text not found.", ExitFailure);
  return terminal.out.good() ? ExitSuccess : ExitFailure;
}

}  // namespace rollwick
