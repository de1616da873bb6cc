// The games opened and saved last, newest first, in a file of their own: one path a line.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace rollwick {

inline constexpr std::size_t kMostRecentGames = 8;

class RecentGames {
 public:
  // Reads the list at `file`, if there is one.
  explicit RecentGames(std::filesystem::path file);

  const std::vector<std::filesystem::path>& Games() const { return games_; }
  // To the top, and into the file. A disk that refuses it is no matter for a message.
  void Add(const std::filesystem::path& game);
  // A game that is not there any more.
  void Forget(const std::filesystem::path& game);

 private:
  void Save() const;

  std::filesystem::path file_;
  std::vector<std::filesystem::path> games_;
};

}  // namespace rollwick
