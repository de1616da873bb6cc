// The menu bar of the table: every entry by its name. What nothing was connected to is there and disabled.
#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <filesystem>
#include <functional>
#include <vector>

namespace rollwick {

class TableMenus {
 public:
  // Fills the menu bar of the window.
  explicit TableMenus(QMainWindow& window);

  QAction& Entry(const char* name) const;
  // What the entry does. An entry that does something is enabled.
  void Connect(const char* name, std::function<void()> act);
  void ShowRecentGames(const std::vector<std::filesystem::path>& games,
                       const std::function<void(const std::filesystem::path&)>& open);
  // While the dice roll only what ends the run, or changes nothing, can be chosen.
  void SetRolling(bool isRolling);

 private:
  QMainWindow& window_;
  std::vector<QAction*> connected_;
};

}  // namespace rollwick
