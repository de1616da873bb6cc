#include "session/EventsLogs.h"

#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "base/AtomicFile.h"
#include "files/Companions.h"
#include "files/GameFileLayout.h"
#include "stats/logs/EventsLogIndex.h"

namespace rollwick {

namespace {

bool IsDefault(const Game& g, const std::filesystem::path& dataFolder) {
  return g.EventsLogPath.empty() || IsSamePath(g.EventsLogPath, DefaultEventsLog(dataFolder));
}

void Use(Game& g, EventsLog& log, const std::filesystem::path& path) {
  FlushEventsLog(g);  // lines of before belong to the log of before
  g.EventsLogPath = FullPath(path).string();
  log.Reopen(g.EventsLogPath);
  g.LogTopLine = 1;
}

// Through a file beside it, so that a full disk leaves what was at `to`.
std::error_code CopyFile(const std::filesystem::path& from, const std::filesystem::path& to) {
  const std::filesystem::path beside =
      FullPath(to).parent_path() / (".rollwick-log-" + std::to_string(getpid()));
  std::error_code error, ignored;
  std::filesystem::copy_file(from, beside, std::filesystem::copy_options::overwrite_existing, error);
  if (!error) std::filesystem::rename(beside, to, error);
  if (error) std::filesystem::remove(beside, ignored);
  return error;
}

void ShowFound(Game& g, EventsLogReader& reader, const std::string& wanted, std::int64_t from,
               std::int64_t to) {
  if (const auto line = reader.Find(wanted, from, to)) {
    g.LogTopLine = static_cast<std::int32_t>(*line);
  } else {
    ShowMessage(g, reader.Failure().empty() ? "Text not found." : reader.Failure(), "Search Results",
                MessagePlain | MessageInformation);
  }
}

// Whether the file may be written on as a log: it is empty, or begins with a line that a game writes.
bool LooksLikeLog(const std::filesystem::path& path) {
  int error = 0;
  const int file = OpenRegularFile(path, error);
  if (file < 0) return false;
  const std::string begin = ReadAt(file, 0, 9, error);
  close(file);
  constexpr std::string_view kBegins[] = {" Roll #", " New game", "======", "------", "      "};
  return error == 0 && (begin.empty() || std::ranges::any_of(kBegins, [&](std::string_view words) {
                          return begin.starts_with(words);
                        }));
}

}  // namespace

std::string EventsLogCaption(const Game& g, const std::filesystem::path& dataFolder) {
  if (IsDefault(g, dataFolder)) return "Events Log";
  return "Events Log (" + ShownPath(std::filesystem::path(g.EventsLogPath).filename().string()) + ")";
}

bool NewEventsLog(Game& g, EventsLog& log, const std::filesystem::path& dataFolder,
                  const std::function<bool()>& rename) {
  FlushEventsLog(g);
  if (!IsDefault(g, dataFolder)) Use(g, log, DefaultEventsLog(dataFolder));
  if (!log.IsEmpty()) {
    const Answer answer = ShowMessage(
        g, "This log needs to be re-named if you want to save it.\r\rDo you want to re-name it now?",
        "Save Events Log?", MessagePlain | MessageYes | MessageNo | MessageQuestion);
    if (answer == Answer::Cancel || (answer == Answer::Yes && !rename())) return false;
  }
  Use(g, log, DefaultEventsLog(dataFolder));
  log.Clear(g);
  return true;
}

std::string OpenEventsLog(Game& g, EventsLog& log, const std::filesystem::path& path) {
  EventsLogReader reader;
  if (std::string wrong = reader.Open(path); !wrong.empty()) return wrong;
  Use(g, log, path);
  return {};
}

std::string UseEventsLog(Game& g, EventsLog& log, const std::filesystem::path& path) {
  std::error_code unknown;
  const bool isThere = std::filesystem::exists(path, unknown);
  if (unknown) return SystemErrorText(unknown.value());
  if (!isThere) {
    if (EventsIndexPath(path) == path || IsForeignIndex(EventsIndexPath(path)))
      return SystemErrorText(EINVAL);
    Use(g, log, path);
    return {};
  }
  if (!LooksLikeLog(path)) return "This is no Events Log. Please choose another name.";
  return OpenEventsLog(g, log, path);
}

std::string SaveEventsLogAs(Game& g, EventsLog& log, const std::filesystem::path& path) {
  FlushEventsLog(g);
  if (IsSamePath(log.Path(), path)) return {};
  const std::filesystem::path index = EventsIndexPath(path);
  if (index == path || index == EventsIndexPath(log.Path()) || IsForeignIndex(index))
    return SystemErrorText(EINVAL);  // it would be an index, or share one, or destroy what is none
  if (log.IsEmpty()) {
    if (std::string wrong = SaveWhole(path, ""); !wrong.empty()) return wrong;
  } else if (const std::error_code error = CopyFile(log.Path(), path)) {
    return SystemErrorText(error.value());
  }
  unlink(EventsIndexPath(path).c_str());
  return OpenEventsLog(g, log, path);
}

void FindInEventsLog(Game& g, EventsLogReader& reader, std::string& wanted) {
  FlushEventsLog(g);
  const auto entered =
      g.TheHost->Ask(g, {PromptKind::Text,
                         "Enter the text you'd like to find\r\rIf found, the line will appear at the top of "
                         "the events log.",
                         "Find", wanted});
  if (!entered || entered->empty()) return;
  wanted = *entered;
  reader.Refresh();
  ShowFound(g, reader, wanted, 1, reader.LineCount());
}

void FindNextInEventsLog(Game& g, EventsLogReader& reader, const std::string& wanted) {
  reader.Refresh();
  ShowFound(g, reader, wanted, std::int64_t{g.LogTopLine} + 1, reader.LineCount());
}

void FindPreviousInEventsLog(Game& g, EventsLogReader& reader, const std::string& wanted) {
  reader.Refresh();
  ShowFound(g, reader, wanted, std::int64_t{g.LogTopLine} - 1, 1);
}

}  // namespace rollwick
