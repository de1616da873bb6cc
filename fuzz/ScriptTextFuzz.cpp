// A script of any text: errors that say where, or lines whose text reads back as them, and a run that ends.
#include "FuzzTable.h"
#include "autobet/files/ScriptFile.h"
#include "autobet/model/CheckStructure.h"
#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"

namespace rollwick {
namespace {

void Try(const std::filesystem::path& folder, std::string_view text) {
  const ParsedScript script = ParseScriptText(text);
  Demand(script.lines.size() == script.sourceLines.size(), "a place in the text for every line");
  for (const ScriptTextError& error : script.errors) {
    Demand(error.line >= 1 && error.column >= 1 && !error.message.empty(),
           "a place and words for every error");
  }
  std::string shown;
  for (const ScriptLine& line : script.lines) shown += LineText(line) + "\n";
  const ParsedScript again = ParseScriptText(shown);
  Demand(again.errors.empty() && again.lines == script.lines, "the same lines from the text as shown");
  CheckStructure(script.lines);

  FuzzTable table(folder);
  ReplaceScript(table.g, script.lines, "input.txt", "input.txt");
  table.g.AutoBetsActive = 1;
  table.PlayOn(20);
}

}  // namespace
}  // namespace rollwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rollwick;
  static const TemporaryFolder folder;
  PutFile(folder / "script-file", "");
  Try(folder.Path(), InputText(data, size));
  return 0;
}
