// A prompt on a terminal: line editing, history, completion of commands, bets and settings.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "console/Words.h"

namespace rollwick {

class LineEditor {
 public:
  explicit LineEditor(const std::atomic<bool>& interrupted);
  ~LineEditor();
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  // The next line typed; nothing at the end of the input or on Ctrl-C.
  std::optional<InputLine> NextLine();

 private:
  struct Terminal;
  std::unique_ptr<Terminal> terminal_;
};

// What may stand where the cursor is in `line`, the text before the cursor.
std::vector<std::string> Completions(std::string_view line);

}  // namespace rollwick
