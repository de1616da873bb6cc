// The loop of a game: a line, its command, its report.
#include "console/Play.h"

#include <filesystem>
#include <fstream>
#include <ostream>

#include "base/Nearest.h"
#include "console/GameFiles.h"
#include "console/LineEditor.h"
#include "stats/logs/GamesLog.h"

namespace rollwick {
namespace {

constexpr std::string_view kBlanks = " \t";

Reply RunCommand(Table& table, const InputLine& line) {
  const Words words = SplitWords(line);
  if (!words.error.empty()) return Failure(words.error);
  const std::string& name = words.words.front();
  const PlayCommand* const command = FindPlayCommand(name);
  if (command == nullptr) {
    return Failure("there is no command \"" + Echo(name) + "\"." + DidYouMean(name, PlayCommandNames()));
  }
  const Arguments arguments = Arguments(words.words).subspan(1);
  if (arguments.size() < command->fewest || arguments.size() > command->most) {
    const std::string usage = std::string(command->name) + " " + std::string(command->usage);
    return Failure((arguments.size() < command->fewest ? "a word is missing: " : "too many words: ") + usage);
  }
  return command->run(table, arguments);
}

// What a person reads: mistakes, what was said and asked, then what happened.
void PrintForPeople(const Table& table, const Outcome& outcome, const Terminal& terminal) {
  const Reply& reply = outcome.reply;
  terminal.out << SaidForPeople(table.host);
  if (!reply.error.empty()) {
    terminal.out << std::flush;
    terminal.error << "rollwick: " << reply.error << "\n";
  } else if (!reply.text.empty()) {
    terminal.out << (reply.showsTable && terminal.isInteractive ? TablePicture(table.g)
                                                                : WithNewLines(reply.text))
                 << "\n";
  } else if (!reply.extra.empty()) {
    if (const std::string text = ForPeople(reply.extra); !text.empty()) terminal.out << text << "\n";
  }
}

// False when the game is to end.
bool PlayLine(Table& table, const InputLine& line, bool isJson, const Terminal& terminal) {
  const auto outcome = Execute(table, line);
  if (!outcome) return true;
  if (isJson) {
    terminal.out << OutcomeJson(table, *outcome).dump() << "\n";
  } else {
    PrintForPeople(table, *outcome, terminal);
  }
  terminal.out << std::flush;
  return !outcome->reply.ends && terminal.out.good();
}

template <class NextLine>
int PlayAll(Table& table, NextLine nextLine, bool isJson, const Terminal& terminal) {
  while (!table.host.WasInterrupted()) {
    const std::optional<InputLine> line = nextLine();
    if (!line || !PlayLine(table, *line, isJson, terminal)) break;
  }
  // The game that is left is finished too.
  const auto refusal = AppendGameRecord(table.g);
  if (refusal) terminal.error << "rollwick: " << CleanUtf8(OneLine(refusal->text)) << "\n";
  if (table.host.WasInterrupted()) return ExitInterrupted;
  return !refusal && terminal.out.good() ? ExitSuccess : ExitFailure;
}

}  // namespace

std::optional<Outcome> Execute(Table& table, const InputLine& line) {
  const std::size_t begin = line.text.find_first_not_of(kBlanks);
  if (begin == std::string::npos || line.text[begin] == '#') return {};
  table.host.ForgetWhatWasSaid();
  const std::size_t end = line.text.find_last_not_of(kBlanks);
  Outcome outcome{Echo(std::string_view(line.text).substr(begin, end - begin + 1)), RunCommand(table, line)};
  FlushEventsLog(table.g);
  return outcome;
}

Json OutcomeJson(const Table& table, const Outcome& outcome) {
  const Reply& reply = outcome.reply;
  Json json;
  json["command"] = outcome.command;
  json["ok"] = reply.error.empty();
  if (!reply.error.empty()) json["error"] = reply.error;
  if (reply.applied) json["applied"] = PlainText(*reply.applied);
  json["notices"] = NoticesJson(table.host);
  json["questions"] = QuestionsJson(table.host);
  AddTable(json, table.g);
  for (const auto& [key, value] : reply.extra.items()) json[key] = value;
  return json;
}

int RunPlay(const CommonOptions& options, const std::string& file, const Terminal& terminal) {
  Table table(options, terminal);
  if (!table.Error().empty()) {
    terminal.error << "rollwick: " << table.Error() << "\n";
    return ExitUsage;
  }
  std::string wrong = StartFromFiles(table, options);
  if (wrong.empty()) wrong = PlayWithMatrix(table.g, options.matrixFile);
  if (wrong.empty() && !options.diceFile.empty()) wrong = PlayBackFrom(table.g, options.diceFile);
  if (!wrong.empty()) {
    terminal.error << "rollwick: " << CleanUtf8(OneLine(wrong)) << "\n";
    return ExitFailure;
  }
  if (!file.empty()) {
    std::error_code unknown;
    std::ifstream commands(file, std::ios::binary);
    if (!commands || std::filesystem::is_directory(file, unknown)) {
      terminal.error << "rollwick: the file \"" << Echo(file) << "\" cannot be read.\n";
      return ExitFailure;
    }
    return PlayAll(
        table, [&] { return ReadInputLine(commands); }, options.json, terminal);
  }
  if (terminal.isInteractive && !options.json) {
    LineEditor editor(terminal.interrupted);
    return PlayAll(
        table, [&] { return editor.NextLine(); }, options.json, terminal);
  }
  return PlayAll(
      table, [&] { return ReadInputLine(terminal.in); }, options.json, terminal);
}

}  // namespace rollwick
