// The window of the table: menus, keys and status bar around picLayout, the start and the end of a session.
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <memory>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

struct TableOptions {
  std::filesystem::path dataFolder;
  std::filesystem::path game;  // to be opened instead of the working game; empty: none
  std::vector<std::filesystem::path> soundFolders;
};

class frmCrapTable : public QMainWindow {
  Q_OBJECT

 public:
  explicit frmCrapTable(const TableOptions& options);
  ~frmCrapTable() override;

  Game& TheGame();
};

}  // namespace rollwick
