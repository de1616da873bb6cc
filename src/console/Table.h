// A game set up for a command: the tables, the world around them, the log.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "console/Console.h"
#include "console/ConsoleHost.h"
#include "stats/logs/EventsLog.h"

namespace rollwick {

// An Events Log that makes its folder when the first line comes.
class FolderMakingLog : public EventsLog {
 public:
  using EventsLog::EventsLog;
  std::string Append(Game& g, std::string_view lines) override;
};

// A newly opened house with the generator and seed of the options.
class Table {
 public:
  Table(const CommonOptions& options, const Terminal& terminal);
  ~Table();
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  // What is wrong with the options, if anything.
  const std::string& Error() const { return error_; }
  const std::filesystem::path& DataFolder() const { return dataFolder_; }

 private:
  std::unique_ptr<Game> game_;  // on the heap: the tables are big
  std::string error_;
  std::filesystem::path dataFolder_;

 public:
  Game& g;
  ConsoleHost host;
  FolderMakingLog log;
};

// Lets the Events Log go on in `file`. Empty, or what is wrong, with its name.
std::string LogTo(Table& table, const std::filesystem::path& file);

// Opens the Dice Roll File. Empty, or what is wrong, with its name.
std::string DiceFileRefusal(Game& g, const std::filesystem::path& file, bool create);

// Opens the Dice Roll File and plays it back, or records behind what it holds. Empty, or the system's words.
std::string PlayBackFrom(Game& g, const std::filesystem::path& file);
std::string RecordInto(Game& g, const std::filesystem::path& file);

// Reads the probability file into the matrix; whether the table uses it is not touched. Empty, or what is
// wrong, with its name.
std::string LoadMatrix(Game& g, const std::filesystem::path& file);
// The same, and the dice fall by it. Empty also when there is no name.
std::string PlayWithMatrix(Game& g, const std::filesystem::path& file);

// Seeds the selected generator with the number in `text`. Empty, or what is wrong.
std::string SeedWith(Game& g, std::string_view text);

}  // namespace rollwick
