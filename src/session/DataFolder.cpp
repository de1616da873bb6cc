#include "session/DataFolder.h"

#include <cstdlib>
#include <system_error>

namespace rollwick {
namespace {

std::filesystem::path FolderIn(const char* variable) {
  const char* const value = std::getenv(variable);
  const std::filesystem::path path = value == nullptr ? "" : value;
  return path.is_absolute() ? path : std::filesystem::path();  // a relative one is to be ignored
}

}  // namespace

std::filesystem::path UserDataFolder() {
  if (const auto data = FolderIn("XDG_DATA_HOME"); !data.empty()) return data / "rollwick";
  if (const auto home = FolderIn("HOME"); !home.empty()) return home / ".local/share/rollwick";
  return "rollwick";
}

bool IsInFolder(const std::filesystem::path& path, const std::filesystem::path& folder) {
  std::error_code error;
  const auto resolvedFolder = std::filesystem::weakly_canonical((folder / "").parent_path(), error);
  if (error) return false;
  auto resolved = std::filesystem::weakly_canonical(path, error);
  if (error || resolved == resolvedFolder) return false;
  for (; resolved != resolvedFolder; resolved = resolved.parent_path()) {
    if (!resolved.has_relative_path() || is_symlink(symlink_status(resolved, error))) return false;
  }
  return true;
}

}  // namespace rollwick
