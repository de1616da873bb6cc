#include "ui/RecentGames.h"

#include <algorithm>
#include <fstream>

#include "base/AtomicFile.h"

namespace rollwick {

namespace fs = std::filesystem;

RecentGames::RecentGames(fs::path file) : file_(std::move(file)) {
  std::error_code unknown;
  if (!fs::is_regular_file(file_, unknown)) return;
  std::ifstream in(file_);
  std::string line;
  while (games_.size() < kMostRecentGames && std::getline(in, line)) {
    const fs::path game(line);
    if (game.is_absolute() && line.find('\0') == std::string::npos &&
        std::ranges::find(games_, game) == games_.end())
      games_.push_back(game);
  }
}

void RecentGames::Add(const fs::path& game) {
  const fs::path added = fs::absolute(game).lexically_normal();
  if (added.string().find('\n') != std::string::npos) return;  // has no line of its own
  std::erase(games_, added);
  games_.insert(games_.begin(), added);
  if (games_.size() > kMostRecentGames) games_.pop_back();
  Save();
}

void RecentGames::Forget(const fs::path& game) {
  if (std::erase(games_, game) > 0) Save();
}

void RecentGames::Save() const {
  std::string text;
  for (const fs::path& game : games_) text += game.string() + "\n";
  SaveWhole(file_, text);
}

}  // namespace rollwick
