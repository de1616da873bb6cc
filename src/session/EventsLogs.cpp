#include "session/EventsLogs.h"

#include <unistd.h>

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

std::string SaveEventsLogAs(Game& g, EventsLog& log, const std::filesystem::path& path) {
  FlushEventsLog(g);
  if (IsSamePath(log.Path(), path)) return {};
  if (EventsIndexPath(path) == path || EventsIndexPath(path) == EventsIndexPath(log.Path()))
    return SystemErrorText(EINVAL);  // it would be an index, or share one
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
