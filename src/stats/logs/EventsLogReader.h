// The Events Log as a viewer sees it: lines by their number, read where they stand, and found by a text.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "stats/logs/EventsLogIndex.h"

namespace rollwick {

// A line as it may be shown: without its end, control characters replaced.
struct EventsLogLine {
  std::string text;
  bool isCut = false;  // the line goes on
};

// Reads by handles of its own, while the writer may be at work, and holds no more than some blocks in memory.
// An index that is missing or does not fit is made anew by one pass over the text: put beside the text, or
// where that cannot be, kept in a file without a name.
class EventsLogReader {
 public:
  static constexpr std::size_t kLongestShown = 4096;  // bytes of a line

  EventsLogReader() = default;
  ~EventsLogReader() { Close(); }
  EventsLogReader(const EventsLogReader&) = delete;
  EventsLogReader& operator=(const EventsLogReader&) = delete;

  // Empty on success, else what is wrong, in the system's words where it is the system's; no line is there
  // then.
  std::string Open(const std::filesystem::path& path);
  void Close();
  // Takes in lines written since; a log that was deleted or replaced is opened anew. As Open.
  std::string Refresh();

  const std::filesystem::path& Path() const { return path_; }
  std::int64_t LineCount() const { return seen_ ? seen_->LineCount() : 0; }
  // Line `number`, from 1. Nothing when there is no such line, or it cannot be read: Failure() then says why.
  std::optional<EventsLogLine> Line(std::int64_t number);
  // Up to `most` lines from line `top` on.
  std::vector<EventsLogLine> Screenful(std::int64_t top, std::int64_t most);
  // The first line with `wanted` in it, in any case of its ASCII letters, going from line `from` to line
  // `to`, either way. Nothing when there is none, or as for Line.
  std::optional<std::int64_t> Find(std::string_view wanted, std::int64_t from, std::int64_t to);
  const std::string& Failure() const { return failure_; }

 private:
  std::string OpenText();
  void OpenIndex();
  std::string Rebuild();
  int RebuildIn(const std::filesystem::path& folder, bool keepsName);
  bool IsAtItsPlace() const;
  std::optional<LineSpan> Span(std::int64_t number);
  bool Contains(const LineSpan& line, std::string_view wanted);

  std::filesystem::path path_;
  int text_ = -1;
  int index_ = -1;
  bool isIndexOurs_ = false;  // it has no name, and grows by our own passes
  bool isMended_ = false;     // made anew once since Open
  std::optional<IndexedText> seen_;
  std::string failure_;
};

}  // namespace rollwick
