// The Events Log on disk: a text, one event a line, and beside it an index of 4-byte records, the 1-based
// byte offset of each line.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

// Lines are whole in both files before Append returns. After a kill or a failed write the next line mends
// what was left: it ends an unfinished line, and makes the index anew when it does not fit the text.
class EventsLog : public EventsLogSink {
 public:
  // The log at `path`; the index lies beside it with the ending ".ref". Nothing is opened before the first
  // line.
  explicit EventsLog(std::filesystem::path path) : path_(std::move(path)) {}
  ~EventsLog() override;
  EventsLog(const EventsLog&) = delete;
  EventsLog& operator=(const EventsLog&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  // Another log takes over; lines already written stay where they are.
  void Reopen(std::filesystem::path path);

  std::string Append(Game& g, std::string_view lines) override;
  bool IsEmpty() override;
  void Clear(Game& g) override;

  // The last `count` lines, oldest first.
  std::vector<std::string> LastLines(int count);

 private:
  std::string Open();
  std::string Mend();
  void Close();
  bool IsOpenAsLeft() const;

  std::filesystem::path path_;
  int text_ = -1;  // file descriptors, open between lines
  int index_ = -1;
  std::uint64_t textLength_ = 0;
  std::uint32_t lineCount_ = 0;
  std::string clearFailure_;  // why Clear could not delete a file; the next Append says it
};

}  // namespace rollwick
