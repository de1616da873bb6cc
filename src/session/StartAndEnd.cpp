#include "session/StartAndEnd.h"

#include <system_error>
#include <utility>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Script.h"
#include "base/AtomicFile.h"
#include "dice/DiceClipboard.h"
#include "dice/ProbabilityFile.h"
#include "session/ActiveScript.h"
#include "stats/logs/GamesLog.h"

namespace rollwick {

namespace {

// A world in which nobody is there yet: what is said waits, and questions are answered No.
class NobodyThere : public Host {
 public:
  explicit NobodyThere(Game& g) : g_(g), host_(std::exchange(g.TheHost, this)) {}
  ~NobodyThere() override { g_.TheHost = host_; }
  NobodyThere(const NobodyThere&) = delete;
  NobodyThere& operator=(const NobodyThere&) = delete;

  std::vector<Message> said;

  std::uint32_t Milliseconds(Game& g) override { return host_->Milliseconds(g); }
  Answer Show(Game&, const Message& message) override {
    if ((message.flags & MessageYes) != 0) return Answer::No;
    said.push_back(message);
    return Answer::Ok;
  }
  std::optional<std::string> Ask(Game&, const Prompt&) override { return {}; }
  SettleAnswer Settle(Game&, const SettleQuestion& question) override { return {question.remembered, {}}; }

 private:
  Game& g_;
  Host* host_;
};

Message Failure(std::string words, std::string title) {
  return {std::move(words), std::move(title), MessagePlain | MessageWarning};
}

void Show(Game& g, const Message& message) {
  ShowMessage(g, message.text, message.title, message.flags);
}

void LoadWorkingGame(Game& g, const std::filesystem::path& dataFolder, std::vector<Message>& notices) {
  const std::filesystem::path file = dataFolder / kWorkingGame;
  std::error_code unknown;
  if (std::filesystem::status(file, unknown).type() == std::filesystem::file_type::not_found) return;
  NobodyThere host(g);
  LoadedGame loaded = LoadGameFile(g, file, dataFolder);
  notices.insert(notices.end(), host.said.begin(), host.said.end());
  notices.insert(notices.end(), loaded.notices.begin(), loaded.notices.end());
}

struct UnsavedQuestion {
  const char* text;
  const char* title;
  const char* saveTitle;
};

UnsavedQuestion QuestionOf(Unsaved what) {
  switch (what) {
    case Unsaved::Game:
      return {"Your current game has not been saved.\rDo you want to save it now?", "Save Game?",
              "Save Game"};
    case Unsaved::Script:
      return {"Your current logged Auto-Bets\rhave not been saved.\rDo you want to save them now?",
              "Save Auto-Bets?", "Save Auto-Bets"};
    case Unsaved::Matrix:
      return {
          "Your current probabilities (listed on the\rconfiguration screen) have not been saved.\r"
          "Do you want to save them now?",
          "Save Probabilities?", "Save Probabilities"};
  }
  return {};
}

bool IsUnsaved(const Game& g, Unsaved what) {
  switch (what) {
    case Unsaved::Game:
      return g.TableDirty;
    case Unsaved::Script:
      // Nothing was ever logged: there is nothing to keep.
      return g.ScriptDirty && !(g.ScriptLines.empty() && g.ScriptFilePath.empty());
    case Unsaved::Matrix:
      return g.ProbabilityDirty;
  }
  return false;
}

std::string OwnFile(const Game& g, Unsaved what) {
  if (what == Unsaved::Game) return g.GamePath;
  if (what == Unsaved::Matrix) return g.ProbabilityPath;
  // A script that was read from a text is never written over it in coded lines.
  const std::string ending = std::filesystem::path(g.ScriptFilePath).extension().string();
  return LowerTrimmed(ending) == ".bet" ? g.ScriptFilePath : "";
}

std::string Save(Game& g, Unsaved what, const std::filesystem::path& file,
                 const std::filesystem::path& dataFolder) {
  switch (what) {
    case Unsaved::Game:
      return SaveGameFile(g, file, dataFolder);
    case Unsaved::Script:
      return WriteScript(g, file, false);
    case Unsaved::Matrix:
      return SaveProbabilityFile(g, file);
  }
  return {};
}

Closing Query(Game& g, Unsaved what, const std::filesystem::path& dataFolder, const ChooseFile& chooseFile) {
  if (!IsUnsaved(g, what)) return Closing::Done;
  const UnsavedQuestion question = QuestionOf(what);
  const Answer answer =
      ShowMessage(g, question.text, question.title, MessageYes | MessageNo | MessageCancel | MessageQuestion);
  if (answer == Answer::No) return Closing::Done;
  if (answer != Answer::Yes) return Closing::Cancelled;
  std::optional<std::filesystem::path> file = OwnFile(g, what);
  if (file->empty()) file = chooseFile(what);
  if (!file) return Closing::Cancelled;
  const std::string failure = Save(g, what, *file, dataFolder);
  if (failure.empty()) return Closing::Done;
  Show(g, Failure(failure, question.saveTitle));
  return Closing::Failed;
}

// The first start of all finds no folder, and one that was lost while the table was open is made anew.
void MakeFolder(const std::filesystem::path& dataFolder) {
  std::error_code error;  // saving into it will tell
  std::filesystem::create_directories(dataFolder, error);
}

// Every start begins with an empty clipboard, and a script copy is what a crash leaves.
void DeleteWorkFiles(Game& g, const std::filesystem::path& dataFolder) {
  for (const std::string& failure : {DeleteDiceClipboard(dataFolder), DeleteActiveScript(dataFolder)}) {
    if (!failure.empty()) Show(g, Failure(failure, "Close Table"));
  }
}

}  // namespace

StartedTable StartTable(Game& g, const std::filesystem::path& dataFolder) {
  StartedTable started;
  MakeFolder(dataFolder);
  RemoveAbandonedTemporaries(dataFolder);
  if (std::string failure = LoadHotKeys(dataFolder / kHotKeysFile, started.hotKeys); !failure.empty())
    started.notices.push_back(Failure(std::move(failure), "Hot-Key"));
  std::optional<std::vector<ScriptLine>> newest = ReadActiveScript(dataFolder);
  LoadWorkingGame(g, dataFolder, started.notices);
  if (newest) RecoverScript(g, *std::move(newest));
  // Only now, so that a crash of the start itself leaves the newest script too.
  if (std::string failure = SaveActiveScript(g, dataFolder); !failure.empty())
    started.notices.push_back(Failure(std::move(failure), "Auto-Bet"));
  return started;
}

LoadedGame OpenGame(Game& g, const std::filesystem::path& file, const std::filesystem::path& dataFolder) {
  LoadedGame loaded = LoadGameFile(g, file, dataFolder);
  if (loaded.result == GameFileResult::Refused) return loaded;
  if (std::string failure = SaveActiveScript(g, dataFolder); !failure.empty())
    loaded.notices.push_back(Failure(std::move(failure), "Auto-Bet"));
  return loaded;
}

std::string SaveWorkingGame(Game& g, const std::filesystem::path& dataFolder) {
  const std::string path = g.GamePath;
  const bool isDirty = g.TableDirty;
  // A hot key's script stands in the place of the player's, whose copy was written before the run.
  std::vector<ScriptLine> playersLines;
  std::vector<FlagEntry> playersFlags;  // the new game that begins makes them all False
  if (g.HotKeyRunning) {
    playersLines = ReadActiveScript(dataFolder).value_or(playersLines);
    std::swap(g.ScriptLines, playersLines);
    std::swap(g.ScriptFlags, playersFlags);
  }
  std::string failure = SaveGameFile(g, dataFolder / kWorkingGame, dataFolder);
  if (g.HotKeyRunning) {
    std::swap(g.ScriptLines, playersLines);
    std::swap(g.ScriptFlags, playersFlags);
  }
  g.GamePath = path;
  g.TableDirty = isDirty;
  return failure;
}

Closing QueryUnsaved(Game& g, const std::filesystem::path& dataFolder, const ChooseFile& chooseFile) {
  for (const Unsaved what : {Unsaved::Game, Unsaved::Script, Unsaved::Matrix}) {
    const Closing answer = Query(g, what, dataFolder, chooseFile);
    if (answer != Closing::Done) return answer;
  }
  return Closing::Done;
}

Closing EndTable(Game& g, const std::filesystem::path& dataFolder, const ChooseFile& chooseFile) {
  if (g.RollInProgress || g.AutoBetRunning) return Closing::Cancelled;
  const Closing answer = QueryUnsaved(g, dataFolder, chooseFile);
  if (answer != Closing::Done) return answer;
  MakeFolder(dataFolder);
  if (const std::string failure = SaveGameFile(g, dataFolder / kWorkingGame, dataFolder); !failure.empty()) {
    Show(g, Failure(failure, "Save Game"));
    return Closing::Failed;
  }
  DeleteWorkFiles(g, dataFolder);
  if (const std::optional<Message> refusal = AppendGameRecord(g)) Show(g, *refusal);
  return Closing::Done;
}

}  // namespace rollwick
