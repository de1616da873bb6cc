// script show, build, check, statements.
#include "console/ScriptCommands.h"

#include <ostream>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Statements.h"
#include "base/AtomicFile.h"
#include "base/CodePage.h"
#include "console/Words.h"

namespace rollwick {
namespace {

// Says what is wrong with the file; false then.
bool IsReadable(const std::string& file, const ScriptSource& source, const Terminal& terminal) {
  const std::string errors = ErrorsText(file, source);
  terminal.error << errors;
  return errors.empty();
}

int EndOf(const Terminal& terminal) {
  terminal.out << std::flush;
  return terminal.out.good() ? ExitSuccess : ExitFailure;
}

// A line for every text that a script file would cut.
std::string CutsText(const std::string& file, const ScriptSource& source) {
  std::string text;
  for (std::size_t i = 0; i < source.lines.size(); ++i) {
    const std::size_t length = CharacterCount(source.lines[i].Text);
    if (length <= kLongestLineText) continue;
    text += Echo(file) + ":" + std::to_string(SourceLine(source, static_cast<int>(i) + 1)) + ":" +
            std::to_string(kLongestLineText + 1) + ": the line has " + std::to_string(length) +
            " characters; a script file keeps " + std::to_string(kLongestLineText) + ".\n";
  }
  return text;
}

}  // namespace

std::string ScriptForPeople(std::span<const ScriptLine> lines) {
  const std::size_t width = std::to_string(lines.size()).size();
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    text.append(width - number.size(), ' ');
    text += number + "  " + CleanUtf8(lines[i].Text) + "\n";
  }
  return text;
}

Json ScriptLineJson(const ScriptLine& line, int number) {
  Json json;
  json["line"] = number;
  json["kind"] = line.Kind;
  json["op"] = line.Op;
  json["name"] = CleanUtf8(line.Name);
  json["amount"] = PlainText(line.Amount);
  json["left"] = {line.LeftCode, line.LeftIndex};
  json["right"] = {line.RightCode, line.RightIndex};
  json["text"] = CleanUtf8(line.Text);
  return json;
}

std::string ErrorsText(const std::string& file, const ScriptSource& source) {
  if (source.refusal) return "rollwick: " + CleanUtf8(OneLine(source.refusal->text)) + "\n";
  std::string text;
  for (const ScriptTextError& error : source.errors) {
    text += Echo(file) + ":" + std::to_string(error.line) + ":" + std::to_string(error.column) + ": " +
            CleanUtf8(OneLine(error.message)) + "\n";
  }
  return text;
}

std::string FaultText(const std::string& file, const ScriptSource& source) {
  const auto fault = CheckStructure(source.lines);
  if (!fault) return {};
  return Echo(file) + ":" + std::to_string(SourceLine(source, fault->line)) + ": " + fault->title + ": " +
         OneLine(fault->text) + "\n";
}

int RunScriptShow(const std::string& file, bool isPlain, bool isJson, const Terminal& terminal) {
  const ScriptSource source = ReadScriptSource(file);
  if (!IsReadable(file, source, terminal)) return ExitFailure;
  if (isJson) {
    for (std::size_t i = 0; i < source.lines.size(); ++i)
      terminal.out << ScriptLineJson(source.lines[i], static_cast<int>(i) + 1).dump() << "\n";
  } else if (isPlain) {
    for (const ScriptLine& line : source.lines) terminal.out << line.Text << "\n";
  } else {
    terminal.out << ScriptForPeople(source.lines);
  }
  return EndOf(terminal);
}

int RunScriptBuild(const std::string& file, const std::string& output, const Terminal& terminal) {
  const ScriptSource source = ReadScriptSource(file);
  if (!IsReadable(file, source, terminal)) return ExitFailure;
  if (source.isScriptFile) {
    terminal.error << "rollwick: the file \"" << Echo(file) << "\" is a script file already.\n";
    return ExitFailure;
  }
  const std::string cuts = CutsText(file, source);
  terminal.error << cuts;
  if (!cuts.empty()) return ExitFailure;
  if (const std::string wrong = SaveWhole(output, ScriptFileBytes(source.lines)); !wrong.empty()) {
    terminal.error << "rollwick: " << Echo(output) << ": " << wrong << "\n";
    return ExitFailure;
  }
  return ExitSuccess;
}

int RunScriptCheck(const std::string& file, const Terminal& terminal) {
  const ScriptSource source = ReadScriptSource(file);
  if (!IsReadable(file, source, terminal)) return ExitFailure;
  if (source.lines.empty()) {
    terminal.out << kScriptIsEmpty << "\n";
    return ExitFailure;
  }
  const std::string fault = FaultText(file, source);
  terminal.error << fault;
  if (!fault.empty()) return ExitFailure;
  terminal.out << kScriptIsGood << "\n";
  return EndOf(terminal);
}

int RunScriptStatements(const Terminal& terminal) {
  terminal.out << StatementList();
  return EndOf(terminal);
}

}  // namespace rollwick
