#include "session/Scripts.h"

#include <cerrno>
#include <fstream>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Script.h"
#include "autobet/run/RunAutoBet.h"
#include "base/AtomicFile.h"

namespace rollwick {
namespace {

constexpr std::string_view kSignatures[] = {"Rollwick AutoBets", "Quillhaven AutoBets"};
constexpr std::size_t kLargestText = 64 << 20;  // bytes: far beyond what anybody writes

Message CannotRead(const std::filesystem::path& path, const std::string& why) {
  return {path.filename().string() + ": " + why, "Unable to Open Auto-Bet Script",
          MessagePlain | MessageWarning};
}

bool IsScriptFile(std::string_view bytes) {
  for (const std::string_view signature : kSignatures) {
    if (bytes.starts_with(signature)) return true;
  }
  return false;
}

// A file under a script file's name that is empty or no text either: a script file come to harm.
bool IsBrokenScriptFile(const std::filesystem::path& path, std::string_view bytes) {
  return LowerTrimmed(path.extension().string()) == ".bet" &&
         (bytes.empty() || bytes.find('\0') != std::string_view::npos);
}

// The text at `path`, or the refusal. Of a script file no more than its beginning.
std::optional<Message> ReadWhole(const std::filesystem::path& path, std::string& text) {
  std::error_code unknown;
  if (std::filesystem::is_directory(path, unknown)) return CannotRead(path, SystemErrorText(EISDIR));
  errno = 0;
  std::ifstream in(path, std::ios::binary);
  if (!in) return CannotRead(path, SystemErrorText(errno == 0 ? EIO : errno));
  char block[65'536];
  while (in.read(block, sizeof block), in.gcount() > 0) {
    text.append(block, static_cast<std::size_t>(in.gcount()));
    if (IsScriptFile(text)) return {};  // its own reader reads it
    if (text.size() > kLargestText) return CannotRead(path, SystemErrorText(EFBIG));
  }
  if (in.bad()) return CannotRead(path, SystemErrorText(errno == 0 ? EIO : errno));
  return {};
}

}  // namespace

ScriptSource ReadScriptSource(const std::filesystem::path& path) {
  ScriptSource source;
  std::string text;
  source.refusal = ReadWhole(path, text);
  if (source.refusal) return source;
  source.isScriptFile = IsScriptFile(text) || IsBrokenScriptFile(path, text);
  if (source.isScriptFile) {
    ScriptFileContent content = ReadScriptFile(path);
    source.lines = std::move(content.lines);
    source.refusal = std::move(content.refusal);
    return source;
  }
  ParsedScript parsed = ParseScriptText(text);
  source.lines = std::move(parsed.lines);
  source.sourceLines = std::move(parsed.sourceLines);
  source.errors = std::move(parsed.errors);
  return source;
}

int SourceLine(const ScriptSource& source, int line) {
  const auto index = static_cast<std::size_t>(line) - 1;
  return index < source.sourceLines.size() ? source.sourceLines[index] : line;
}

LoadedScript LoadScript(Game& g, const std::filesystem::path& path) {
  LoadedScript loaded{false, ReadScriptSource(path)};
  ScriptSource& source = loaded.source;
  if (source.isScriptFile) {
    source.refusal.reset();  // ReadScript says it, after it has offered to convert the file
    loaded.isLoaded = ReadScript(g, path, false);
    source.lines = g.ScriptLines;
  } else if (!source.refusal && source.errors.empty()) {
    ReplaceScript(g, source.lines, path.filename().string(), path.string());
    loaded.isLoaded = true;
  }
  return loaded;
}

void ActivateScript(Game& g, bool isOn) {
  g.AutoBetsActive = isOn ? 1 : 0;
  if (isOn) g.AutoBetsChanged = true;
}

std::string RunInitializingScript(Game& g) {
  g.LastErrorText.clear();
  InitializeAutoBets(g);
  return g.LastErrorText;
}

}  // namespace rollwick
