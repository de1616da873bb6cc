// Writing the Events Log and its index, mending them, and reading the end of the text.
#include "stats/logs/EventsLog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <utility>

#include "base/AtomicFile.h"
#include "stats/logs/EventsLogIndex.h"

namespace rollwick {

namespace {

constexpr std::size_t kBlock = 64 * 1024;

// Where the last `count` lines of a text begin, counted from 0: searched from the end, block by block.
std::uint64_t StartOfLastLines(int text, std::uint64_t length, int count, int& error) {
  int found = 0;
  for (std::uint64_t blockEnd = length > 0 ? length - 1 : 0;
       blockEnd > 0;) {  // the last line's own end not counted
    const std::uint64_t blockStart = blockEnd - std::min<std::uint64_t>(kBlock, blockEnd);
    const std::string block = ReadAt(text, blockStart, blockEnd - blockStart, error);
    for (std::size_t end = block.rfind('\n'); end != block.npos; end = block.rfind('\n', end - 1)) {
      if (++found == count) return blockStart + end + 1;
      if (end == 0) break;
    }
    blockEnd = blockStart;
  }
  return 0;
}

// Opens or creates a file for appending. A device or a pipe is no log.
int OpenForAppend(const std::filesystem::path& path, int& error) {
  const int file = open(path.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0666);
  struct stat status = {};
  if (file < 0 || fstat(file, &status) != 0) {
    error = errno;
  } else if (!S_ISREG(status.st_mode)) {
    error = EINVAL;
  }
  return file;
}

// Whether the open file lies at `path` and is `length` bytes long.
bool LiesAt(const std::filesystem::path& path, int file, std::uint64_t length) {
  struct stat open = {};
  struct stat named = {};
  if (fstat(file, &open) != 0 || stat(path.c_str(), &named) != 0) return false;
  return open.st_ino == named.st_ino && open.st_dev == named.st_dev &&
         static_cast<std::uint64_t>(open.st_size) == length;
}

bool IsRollLine(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return line.starts_with("Roll");
}

}  // namespace

EventsLog::~EventsLog() {
  Close();
}

void EventsLog::Reopen(std::filesystem::path path) {
  Close();
  path_ = std::move(path);
}

void EventsLog::Close() {
  if (text_ >= 0) close(text_);
  if (index_ >= 0) close(index_);
  text_ = index_ = -1;
}

// Whether both open files still lie at their paths with the length they had after our last line: not deleted,
// and nobody else has written to them or put another index in place.
bool EventsLog::IsOpenAsLeft() const {
  return text_ >= 0 && LiesAt(path_, text_, textLength_) &&
         LiesAt(EventsIndexPath(path_), index_, std::uint64_t{lineCount_} * kIndexRecord);
}

std::string EventsLog::Open() {
  Close();
  if (EventsIndexPath(path_) == path_)
    return SystemErrorText(EINVAL);  // a text "*.ref" would be its own index
  int error = 0;
  text_ = OpenForAppend(path_, error);
  if (error == 0) index_ = OpenForAppend(EventsIndexPath(path_), error);
  return error == 0 ? Mend() : SystemErrorText(error);
}

std::string EventsLog::Mend() {
  struct stat status = {};
  if (fstat(text_, &status) != 0) return SystemErrorText(errno);
  textLength_ = static_cast<std::uint64_t>(status.st_size);
  if (textLength_ >= kLongestEventsLog) return SystemErrorText(EFBIG);

  int error = 0;
  if (textLength_ > 0 && ReadAt(text_, textLength_ - 1, 1, error) != "\n" && error == 0) {
    error = WriteAll(text_, "\n");
    ++textLength_;
  }
  if (error != 0) return SystemErrorText(error);

  // What fits is kept: only lines behind it are passed over again.
  IndexedText indexed(text_, index_);
  indexed.Look();
  if (ftruncate(index_, static_cast<off_t>(std::uint64_t{indexed.LineCount()} * kIndexRecord)) != 0)
    return SystemErrorText(errno);
  error = AppendRecords(text_, indexed.End(), textLength_, index_);
  if (error == 0 && fstat(index_, &status) != 0) error = errno;
  lineCount_ = static_cast<std::uint32_t>(static_cast<std::uint64_t>(status.st_size) / kIndexRecord);
  return error == 0 ? std::string() : SystemErrorText(error);
}

std::string EventsLog::Append(Game& g, std::string_view lines) {
  if (!clearFailure_.empty()) return std::exchange(clearFailure_, {});
  if (lines.empty()) return {};
  assert(lines.ends_with('\n'));
  if (!IsOpenAsLeft()) {
    if (std::string failure = Open(); !failure.empty()) {
      Close();
      return failure;
    }
  }
  if (textLength_ + lines.size() > kLongestEventsLog) return SystemErrorText(EFBIG);

  std::string records;
  std::uint32_t topLine = 0;
  std::uint32_t line = lineCount_;
  for (std::size_t start = 0; start < lines.size();) {
    const std::size_t end = std::min(lines.find('\n', start), lines.size());
    records += IndexRecord(textLength_ + start + 1);
    ++line;
    if (IsRollLine(lines.substr(start, end - start))) topLine = line;
    start = end + 1;
  }
  int error = WriteAll(text_, lines);
  if (error == 0) error = WriteAll(index_, records);
  if (error != 0) {
    Close();  // what was written in part is mended when the next line comes
    return SystemErrorText(error);
  }
  textLength_ += lines.size();
  lineCount_ = line;
  if (topLine > 0 && g.LogLatestRollOnTop) g.LogTopLine = static_cast<std::int32_t>(topLine);
  return {};
}

bool EventsLog::IsEmpty() {
  std::error_code missing;
  const std::uintmax_t length = std::filesystem::file_size(path_, missing);
  return missing || length == 0;
}

void EventsLog::Clear(Game& g) {
  Close();
  clearFailure_.clear();
  for (const std::filesystem::path& path : {EventsIndexPath(path_), path_}) {
    if (unlink(path.c_str()) != 0 && errno != ENOENT) clearFailure_ = SystemErrorText(errno);
  }
  g.LogTopLine = 1;
}

std::vector<std::string> EventsLog::LastLines(int count) {
  int error = 0;
  const int text = count > 0 ? OpenRegularFile(path_, error) : -1;
  if (text < 0) return {};
  struct stat status = {};
  if (fstat(text, &status) != 0) error = errno;
  const auto length = static_cast<std::uint64_t>(status.st_size);
  const std::uint64_t start = StartOfLastLines(text, length, count, error);
  const std::string bytes = error == 0 ? ReadAt(text, start, length - start, error) : std::string();
  close(text);

  std::vector<std::string> lines;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
    lines.push_back(bytes.substr(at, end - at));
    if (lines.back().ends_with('\r')) lines.back().pop_back();
    at = end + 1;
  }
  return lines;
}

}  // namespace rollwick
