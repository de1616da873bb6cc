// A script file of any bytes, of ours or of the sibling product: refused without a trace, or taken, written
// the same, shown as a text and run.
#include "FuzzTable.h"
#include "autobet/files/ScriptFile.h"
#include "autobet/model/CheckStructure.h"
#include "autobet/model/ScriptText.h"

namespace rollwick {
namespace {

void TryBytes(std::string_view bytes) {
  const ScriptFileContent content = ReadScriptBytes(bytes, "input.bet");
  if (content.refusal) {
    Demand(content.lines.empty(), "no lines of a refused script");
    return;
  }
  const std::string written = ScriptFileBytes(content.lines);
  const ScriptFileContent again = ReadScriptBytes(written, "input.bet");
  Demand(!again.refusal && again.lines == content.lines, "the same lines after writing and reading");
  Demand(ScriptFileBytes(again.lines) == written, "the same bytes after writing, reading and writing");

  std::string text;
  for (const ScriptLine& line : content.lines) text += LineText(line) + "\n";
  ParseScriptText(text);
  CheckStructure(content.lines);
}

void TryTable(const std::filesystem::path& folder, const std::filesystem::path& file) {
  FuzzTable table(folder);
  if (!ReadScript(table.g, file, false)) {
    Demand(table.g.ScriptLines.empty() && table.g.ScriptFileName.empty(),
           "a refused script that changes nothing");
    return;
  }
  const std::size_t lines = table.g.ScriptLines.size();
  ReadScript(table.g, file, true);
  Demand(table.g.ScriptLines.size() >= lines, "a paste that adds lines");
  table.g.AutoBetsActive = 1;
  table.PlayOn(20);
}

}  // namespace
}  // namespace rollwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rollwick;
  static const TemporaryFolder folder;
  PutFile(folder / "input.bet", InputText(data, size));
  PutFile(folder / "script-file", "");
  TryBytes(InputText(data, size));
  TryTable(folder.Path(), folder / "input.bet");
  return 0;
}
