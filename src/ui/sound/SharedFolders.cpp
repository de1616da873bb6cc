#include "ui/sound/SharedFolders.h"

#include <QCoreApplication>
#include <system_error>

namespace rollwick {
namespace {

std::filesystem::path ProgramFolder() {
  return QCoreApplication::applicationDirPath().toStdString();
}

std::filesystem::path SourceFolder() {
  return std::filesystem::path(ROLLWICK_ASSETS).parent_path();
}

}  // namespace

std::filesystem::path ShareFolder(const std::filesystem::path& programFolder) {
  std::error_code unknown;
  std::filesystem::path share = programFolder.parent_path() / "share" / "rollwick";
  return std::filesystem::is_directory(share, unknown) ? share : std::filesystem::path();
}

std::vector<std::filesystem::path> SoundFolders(const std::filesystem::path& dataFolder) {
  const std::filesystem::path share = ShareFolder(ProgramFolder());
  return {dataFolder / "sounds", dataFolder, (share.empty() ? SourceFolder() / "assets" : share) / "sounds"};
}

std::filesystem::path HelpFolder() {
  const std::filesystem::path share = ShareFolder(ProgramFolder());
  return share.empty() ? SourceFolder() / "docs" : share / "help";
}

std::filesystem::path IconFile() {
  const std::filesystem::path share = ShareFolder(ProgramFolder());
  return share.empty() ? SourceFolder() / "packaging/rollwick.svg"
                       : share.parent_path() / "icons/hicolor/scalable/apps/rollwick.svg";
}

}  // namespace rollwick
