// make-corpus FOLDER: the beginning inputs of every fuzz target, in FOLDER/TARGET, and FOLDER/TARGET.dict
// with words the target knows.
#include <cstdio>
#include <filesystem>
#include <set>

#include "FuzzTable.h"
#include "Samples.h"
#include "autobet/model/Catalogue.h"
#include "console/PlayCommands.h"
#include "session/Settings.h"

namespace rollwick {
namespace {

using Words = std::set<std::string, std::less<>>;

Words ScriptWords() {
  Words words = {"Label \"", "Chip-Stack # ", " $ ", " % of ", "' "};
  const auto add = [&](auto list) {
    for (const auto& entry : list) words.emplace(entry.caption);
  };
  add(StartLines());
  add(LeftItems());
  add(RightItems());
  add(NumberList());
  add(VerbItems());
  add(ValueItems());
  add(TargetItems());
  add(RoundModes());
  add(WinningSettings());
  add(LosingSettings());
  for (const Operator& op : Operators()) words.emplace(op.singular);
  for (BetId bet = 1; bet <= kBetCount; ++bet) words.insert(BetName(bet));
  return words;
}

Words PlayWords(const Game& g) {
  Words words;
  for (const auto& list : {PlayCommandNames(), BetWords(), ShowWords()})
    words.insert(list.begin(), list.end());
  for (const SettingEntry& setting : ListSettings(g)) words.insert(setting.name);
  for (const auto& [name, bytes] : SampleCompanions()) words.insert("\"" + name + "\"");
  return words;
}

std::string Dictionary(const Words& words) {
  std::string text;
  for (const std::string& word : words) {
    if (word.empty()) continue;
    text += '"';
    for (const char c : word) {
      if (c == '"' || c == '\\') text += '\\';
      text += c;
    }
    text += "\"\n";
  }
  return text;
}

void MakeCorpus(const std::filesystem::path& folder) {
  for (const auto& [target, inputs] : SampleCorpora()) {
    std::filesystem::create_directories(folder / target);
    for (const auto& [name, bytes] : inputs) PutFile(folder / target / name, bytes);
  }
  const FuzzTable table(folder);
  PutFile(folder / "script_text.dict", Dictionary(ScriptWords()));
  PutFile(folder / "play.dict", Dictionary(PlayWords(table.g)));
}

}  // namespace
}  // namespace rollwick

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("make-corpus FOLDER\n", stderr);
    return 2;
  }
  rollwick::MakeCorpus(arguments[1]);
  return 0;
}
