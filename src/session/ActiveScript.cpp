#include "session/ActiveScript.h"

#include <system_error>
#include <utility>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Script.h"
#include "base/AtomicFile.h"

namespace rollwick {

std::string SaveActiveScript(const Game& g, const std::filesystem::path& dataFolder) {
  if (g.ScriptLines.empty()) return DeleteActiveScript(dataFolder);
  return SaveWhole(dataFolder / kActiveScript, ScriptFileBytes(g.ScriptLines));
}

std::optional<std::vector<ScriptLine>> ReadActiveScript(const std::filesystem::path& dataFolder) {
  ScriptFileContent content = ReadScriptFile(dataFolder / kActiveScript);
  if (content.refusal || content.lines.empty()) return {};
  return std::move(content.lines);
}

void RecoverScript(Game& g, std::vector<ScriptLine> lines) {
  // What files keep of a line counts, not how it looked in the editor.
  if (ScriptFileBytes(lines) == ScriptFileBytes(g.ScriptLines)) return;
  const std::string name = g.ScriptFileName, path = g.ScriptFilePath;
  ReplaceScript(g, std::move(lines), name, path);
  g.ScriptDirty = true;
}

std::string DeleteActiveScript(const std::filesystem::path& dataFolder) {
  std::error_code error;
  std::filesystem::remove(dataFolder / kActiveScript, error);
  return error ? SystemErrorText(error.value()) : "";
}

}  // namespace rollwick
