#include "autobet/model/Script.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "autobet/model/Codes.h"

namespace rollwick {

namespace {

// A hostile file may name a flag in each of its lines, so names are looked up, not searched for.
void AddFlags(Game& g, const std::vector<ScriptLine>& lines) {
  std::unordered_set<std::string> names;
  for (const FlagEntry& flag : g.ScriptFlags) names.insert(LowerTrimmed(flag.Name));
  for (const ScriptLine& line : lines) {
    if (!NamesFlag(line) || !names.insert(LowerTrimmed(line.Name)).second) continue;
    g.ScriptFlags.push_back({std::string(TrimRight(line.Name)), 0, 0});
  }
}

void HasChanged(Game& g) {
  g.ScriptIsDecoded = false;
  g.AutoBetsChanged = true;
}

}  // namespace

std::string_view TrimRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view TrimBlanks(std::string_view text) {
  text = TrimRight(text);
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text;
}

std::string LowerTrimmed(std::string_view text) {
  // Of the letters beyond ASCII those of the western scripts, which stand 32 apart behind the byte C3.
  std::string lower(TrimBlanks(text));
  for (std::size_t i = 0; i < lower.size(); ++i) {
    const auto byte = static_cast<unsigned char>(lower[i]);
    const bool isWestern = i > 0 && lower[i - 1] == '\xC3' && byte >= 0x80 && byte <= 0x9E && byte != 0x97;
    if (isWestern || (byte >= 'A' && byte <= 'Z')) lower[i] = static_cast<char>(byte + 32);
  }
  return lower;
}

bool NamesFlag(const ScriptLine& line) {
  return (line.Kind == KindCondition && line.LeftCode == Item::Flag) ||
         (line.Kind == KindAction && line.Op == Verb::SetFlag);
}

void ClearScript(Game& g) {
  g.ScriptLines.clear();
  g.ScriptFlags.clear();
  g.ScriptFileName.clear();
  g.ScriptFilePath.clear();
  g.OutputFileName.clear();
  g.ScriptDirty = false;
  g.ScriptInsertLine = 1;
  g.ScriptIsDecoded = false;
}

void ReplaceScript(Game& g, std::vector<ScriptLine> lines, std::string_view name, std::string_view path) {
  g.ScriptLines = std::move(lines);
  g.ScriptInsertLine = 1;
  g.ScriptIsDecoded = false;
  if (!g.HotKeyRunning) {
    g.ScriptFlags.clear();
    g.ScriptFileName = name;
    g.ScriptFilePath = path;
    g.ScriptDirty = false;
    HasChanged(g);
  }
  AddFlags(g, g.ScriptLines);
}

void InsertLines(Game& g, std::vector<ScriptLine> lines) {
  for (ScriptLine& line : g.ScriptLines) {
    line.Selected = false;
    line.Band = 0;
  }
  for (ScriptLine& line : lines) {
    line.Selected = true;
    line.Band = 0;
  }
  AddFlags(g, lines);
  const auto place = std::clamp<std::ptrdiff_t>(g.ScriptInsertLine - 1, 0, std::ssize(g.ScriptLines));
  g.ScriptLines.insert(g.ScriptLines.begin() + place, std::make_move_iterator(lines.begin()),
                       std::make_move_iterator(lines.end()));
  g.ScriptDirty = true;
  HasChanged(g);
}

}  // namespace rollwick
