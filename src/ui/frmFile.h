// The file dialogs: one way to choose a file of any kind, with the table's own question before one is
// overwritten.
#pragma once

#include <QWidget>
#include <filesystem>
#include <optional>

#include "engine/state/Game.h"

namespace rollwick {

// What is chosen: the title of the dialog, what such files are, their suffix ("crp").
struct FileKind {
  const char* title;
  const char* what;
  const char* suffix;
};

inline constexpr FileKind kOpenGame = {"Open Game", "Games", "crp"};
inline constexpr FileKind kSaveGame = {"Save Game As", "Games", "crp"};
inline constexpr FileKind kSaveScript = {"Save Auto-Bet File As", "Auto-Bet files", "bet"};
inline constexpr FileKind kSaveMatrix = {"Save Probability File As", "Probability files", "prb"};

// A file that is there. `start` is a file or folder to begin at. Nothing when the player closed the dialog.
std::optional<std::filesystem::path> ChooseFileToOpen(QWidget* owner, const FileKind& kind,
                                                      const std::filesystem::path& start);

// A file to write, with the suffix of its kind when it was given none. One that is there is only taken after
// a Yes; after a No the dialog comes back.
std::optional<std::filesystem::path> ChooseFileToSave(Game& g, QWidget* owner, const FileKind& kind,
                                                      const std::filesystem::path& start);

}  // namespace rollwick
