#include "console/GameShow.h"

#include <ostream>

#include "console/Report.h"
#include "console/Words.h"
#include "files/GameFileText.h"

namespace rollwick {
namespace {

int Ended(const Terminal& terminal) {
  terminal.out << std::flush;
  return terminal.out.good() ? ExitSuccess : ExitFailure;
}

}  // namespace

int RunGameShow(const std::string& file, bool isJson, const Terminal& terminal) {
  const GameFileContent content = ListGameFile(file);
  if (content.refusal) {
    terminal.error << "rollwick: " << Echo(file) << ": " << CleanUtf8(OneLine(content.refusal->text)) << "\n";
    return ExitFailure;
  }
  Json json = Json::object();
  for (const GameFileEntry& entry : content.entries) {
    if (isJson) {
      json[entry.name] = entry.value;
    } else {
      terminal.out << entry.name << " = " << entry.value << "\n";
    }
  }
  if (isJson) terminal.out << json.dump() << "\n";
  return Ended(terminal);
}

int RunGameFields(const Terminal& terminal) {
  terminal.out << GameFieldPage();
  return Ended(terminal);
}

}  // namespace rollwick
