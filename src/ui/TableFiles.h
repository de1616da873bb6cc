// New, Open and Save of the table, with their dialogs.
#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>
#include <optional>

#include "session/StartAndEnd.h"
#include "stats/logs/EventsLog.h"
#include "ui/RecentGames.h"

namespace rollwick {

class TableFiles {
 public:
  TableFiles(Game& g, EventsLog& log, std::filesystem::path dataFolder, QWidget& window);

  // False when the player thought better of it: the table is then as it was.
  bool New();
  // Asks about unsaved work and for a file; a file that is refused brings the dialog back.
  bool Open();
  // The same with a file known beforehand. A game that is gone leaves the list of recent ones.
  bool OpenRecent(const std::filesystem::path& game);
  // Without questions, as when the program starts. False when it was refused, which was told.
  bool Load(const std::filesystem::path& game);
  bool Save();
  bool SaveAs();
  // At the end of the table.
  Closing End();

  const RecentGames& Recent() const { return recent_; }

 private:
  std::optional<std::filesystem::path> Choose(Unsaved what);
  Closing AskAboutUnsaved();
  // Runs `ask`, which asks about unsaved work. A game saved on the way is a recent one.
  Closing Asking(const std::function<Closing(const ChooseFile&)>& ask);
  bool SaveTo(const std::filesystem::path& file);
  std::filesystem::path GameFolder() const;

  Game& g_;
  EventsLog& log_;
  std::filesystem::path dataFolder_;
  QWidget& window_;
  RecentGames recent_;
};

}  // namespace rollwick
