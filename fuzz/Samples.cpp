#include "Samples.h"

#include <algorithm>

#include "FuzzTable.h"
#include "autobet/files/ScriptFile.h"
#include "autobet/model/ScriptText.h"
#include "base/Record.h"
#include "dice/DiceFile.h"
#include "dice/MatrixEdit.h"
#include "dice/ProbabilityFile.h"
#include "engine/game/NewGame.h"
#include "files/GameFile.h"
#include "files/HotKeys.h"
#include "stats/logs/EventsLog.h"
#include "stats/logs/GamesLog.h"

namespace rollwick {

namespace {

constexpr std::string_view kScript = R"(' Something of every kind.
While . . .
          Flag "resting" is False
          Next roll is a come-out roll
    then . . .
          Bet $ 10 on Pass Line
          Bet 50 % of bankroll on Chip-Stack # 2
    else . . .
          Set flag "resting" to True
Label "again"
Do this . . .
          Add $ 1 to Chip-Stack # 1
          Open/clear file for output: out.txt
          Output to file. Value of bankroll
)";

constexpr std::string_view kCommands = R"(# A game of every command.
seed 17
bet Pass_Line 10
roll 4 2
odds take
bet Place_8 12
buy Place_4
call Place_8 off
show
show rules
show events
set MinPlacardBet 5
set AutoTakeFullOdds on
payoff Field 2 1 to
payoff field 2 3 1
matrix load matrix.prb
matrix cell 2 1 500
matrix axis 1 16 40
matrix on
matrix save other.prb
record new.rol
rolls 20
dicefile close
playback dice.rol
rolls 5
dicefile rewind
log on
gameslog games.glg
script load script.bet
script on
answer yes
script run
hyper 100
atm withdraw 100
save game.crp
new keep
load game.crp
add "Pass Line" 5
remove all
rng 5
show log 5
help
quit
)";

std::vector<ScriptLine> SampleScript() {
  const ParsedScript script = ParseScriptText(kScript);
  for (const ScriptTextError& error : script.errors) Demand(false, error.message.c_str());
  return script.lines;
}

void PlaceFiles(const std::filesystem::path& folder, const FilesByName& files) {
  for (const auto& [name, bytes] : files) PutFile(folder / name, bytes);
}

std::string SavedGame(FuzzTable& table, const std::filesystem::path& file) {
  Demand(SaveGameFile(table.g, file, file.parent_path()).empty(), "a game that can be saved");
  return FileBytes(file);
}

FilesByName Games() {
  const TemporaryFolder folder;
  PlaceFiles(folder.Path(), SampleCompanions());
  FuzzTable table(folder.Path());
  FilesByName games;
  games["fresh"] = SavedGame(table, folder / "fresh.crp");
  table.PlayOn(30);
  games["played"] = SavedGame(table, folder / "played.crp");

  EventsLog log(folder / "Events Log.txt");
  table.g.TheLog = &log;
  table.g.EventsLogPath = log.Path().string();
  table.g.RecordEventsActive = true;
  ReadScript(table.g, folder / "script.bet", false);
  table.g.AutoBetsActive = 1;
  LoadProbabilityFile(table.g, folder / "matrix.prb");
  table.g.UseProbabilityMatrix = true;
  OpenDiceFile(table.g, folder / "dice.rol", false);
  table.g.DiceFileMode = DiceFilePlayback;
  table.g.TableChips.resize(33, {1, 2, 30, 40});
  table.PlayOn(30);
  games["all companions"] = SavedGame(table, folder / "all.crp");
  table.g.ScriptDirty = table.g.ProbabilityDirty = true;
  games["working game"] = SavedGame(table, folder / "default.crp");
  return games;
}

// As the sibling product writes it, and as files were before amounts became exact.
FilesByName Scripts() {
  const std::string bytes = ScriptFileBytes(SampleScript());
  std::string sibling = bytes, old = bytes;
  RecordWriter(sibling).Text("Quillhaven AutoBets, Data Format 5.0", kLongestLineText);
  RecordWriter(old).Text("Rollwick AutoBets, Data Format 3.9", kLongestLineText);
  return {{"script", bytes}, {"sibling", sibling}, {"old", old}};
}

std::string HotKeyFile() {
  const TemporaryFolder folder;
  const std::vector<HotKey> hotKeys = {{"a", "script.bet", "a script"}, {"1", "/games/other.bet", ""}};
  Demand(SaveHotKeys(folder / kHotKeysFile, hotKeys).empty(), "hot keys that can be saved");
  return FileBytes(folder / kHotKeysFile);
}

FilesByName EventsLogs() {
  const FilesByName files = SampleCompanions();
  const std::string &text = files.at("Events Log.txt"), &index = files.at("Events Log.ref");
  const auto input = [](const std::string& first, const std::string& second) {
    const std::size_t share = first.size() * 255 / std::max<std::size_t>(first.size() + second.size(), 1);
    return std::string(1, static_cast<char>(share)) + first + second;
  };
  return {
      {"both", input(index, text)}, {"no index", input("", text)}, {"half a line", input("", text + "half")}};
}

}  // namespace

FilesByName SampleCompanions() {
  const TemporaryFolder folder;
  FuzzTable table(folder.Path());
  Game& g = table.g;
  g.ScriptLines = SampleScript();
  Demand(WriteScript(g, folder / "script.bet", false).empty(), "a script that can be written");
  EnterMatrixCell(g, 2, 1, 10'000);
  Demand(SaveProbabilityFile(g, folder / "matrix.prb").empty(), "a matrix that can be saved");
  Demand(!OpenDiceFile(g, folder / "dice.rol", true), "a new Dice Roll File");
  g.DiceFileMode = DiceFileRecording;
  EventsLog log(folder / "Events Log.txt");
  g.TheLog = &log;
  g.RecordEventsActive = true;
  g.GamesLogPath = (folder / "games.glg").string();
  for (int game = 0; game < 3; ++game) {
    table.PlayOn(10);
    NewGame(g, false);
  }
  CloseDiceFile(g);
  FilesByName files;
  for (const char* name :
       {"script.bet", "matrix.prb", "dice.rol", "games.glg", "Events Log.txt", "Events Log.ref"})
    files[name] = FileBytes(folder / name);
  return files;
}

std::map<std::string, FilesByName> SampleCorpora() {
  const FilesByName files = SampleCompanions();
  return {{"game_file", Games()},
          {"script_file", Scripts()},
          {"script_text", {{"script", std::string(kScript)}}},
          {"probability_file", {{"matrix", files.at("matrix.prb")}}},
          {"dice_file", {{"dice", files.at("dice.rol")}}},
          {"games_log", {{"games", files.at("games.glg")}}},
          {"events_log", EventsLogs()},
          {"hot_keys", {{"keys", HotKeyFile()}}},
          {"play", {{"commands", std::string(kCommands)}}}};
}

}  // namespace rollwick
