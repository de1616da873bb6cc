#include "ui/TableFiles.h"

#include "files/GameFile.h"
#include "session/NewTable.h"
#include "ui/frmFile.h"

namespace rollwick {

namespace fs = std::filesystem;

TableFiles::TableFiles(Game& g, EventsLog& log, fs::path dataFolder, QWidget& window)
    : g_(g),
      log_(log),
      dataFolder_(std::move(dataFolder)),
      window_(window),
      recent_(dataFolder_ / "recent-games.txt") {}

bool TableFiles::New() {
  return Asking([this](const ChooseFile& choose) { return BeginNewTable(g_, dataFolder_, choose); }) ==
         Closing::Done;
}

bool TableFiles::Open() {
  if (AskAboutUnsaved() != Closing::Done) return false;
  fs::path start = GameFolder();
  while (const std::optional<fs::path> game = ChooseFileToOpen(&window_, kOpenGame, start)) {
    if (Load(*game)) return true;
    start = *game;
  }
  return false;
}

bool TableFiles::OpenRecent(const fs::path& game) {
  std::error_code unknown;
  if (!fs::exists(game, unknown)) recent_.Forget(game);  // opening it says so
  if (AskAboutUnsaved() != Closing::Done) return false;
  return Load(game);
}

bool TableFiles::Load(const fs::path& game) {
  const LoadedGame loaded = OpenGame(g_, game, dataFolder_);
  const bool isLoaded = loaded.result != GameFileResult::Refused;
  if (isLoaded) {
    log_.Reopen(g_.EventsLogPath);
    if (!IsWorkingGame(game)) recent_.Add(game);
  }
  for (const Message& notice : loaded.notices) {
    const std::string name = game.filename().string();
    const bool isNamed = isLoaded || notice.text.starts_with(name);
    ShowMessage(g_, isNamed ? notice.text : name + ": " + notice.text, notice.title, notice.flags);
  }
  return isLoaded;
}

bool TableFiles::Save() {
  return g_.GamePath.empty() ? SaveAs() : SaveTo(g_.GamePath);
}

bool TableFiles::SaveAs() {
  const std::optional<fs::path> file = Choose(Unsaved::Game);
  return file && SaveTo(*file);
}

bool TableFiles::SaveTo(const fs::path& file) {
  if (const std::string failure = SaveGameFile(g_, file, dataFolder_); !failure.empty()) {
    ShowMessage(g_, failure, "Save Game", MessagePlain | MessageWarning);
    return false;
  }
  if (!IsWorkingGame(file)) recent_.Add(file);
  return true;
}

Closing TableFiles::End() {
  return Asking([this](const ChooseFile& choose) { return EndTable(g_, dataFolder_, choose); });
}

Closing TableFiles::AskAboutUnsaved() {
  return Asking([this](const ChooseFile& choose) { return QueryUnsaved(g_, dataFolder_, choose); });
}

Closing TableFiles::Asking(const std::function<Closing(const ChooseFile&)>& ask) {
  std::optional<fs::path> saved;
  const Closing answer = ask([&](Unsaved what) {
    const std::optional<fs::path> file = Choose(what);
    if (what == Unsaved::Game) saved = file;
    return file;
  });
  std::error_code unknown;
  if (saved && !IsWorkingGame(*saved) && fs::exists(*saved, unknown)) recent_.Add(*saved);
  return answer;
}

std::optional<fs::path> TableFiles::Choose(Unsaved what) {
  switch (what) {
    case Unsaved::Game:
      return ChooseFileToSave(g_, &window_, kSaveGame,
                              g_.GamePath.empty() ? dataFolder_ / "game.crp" : fs::path(g_.GamePath));
    case Unsaved::Script:
      return ChooseFileToSave(g_, &window_, kSaveScript, dataFolder_ / "script.bet");
    case Unsaved::Matrix:
      return ChooseFileToSave(g_, &window_, kSaveMatrix, dataFolder_ / "probabilities.prb");
  }
  return {};
}

fs::path TableFiles::GameFolder() const {
  return g_.GamePath.empty() ? dataFolder_ : fs::path(g_.GamePath).parent_path();
}

}  // namespace rollwick
