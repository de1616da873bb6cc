// Writing the Events Log and its index, mending them, and reading the end of the text.
#include "stats/logs/EventsLog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <functional>
#include <limits>
#include <utility>

#include "base/AtomicFile.h"

namespace rollwick {

namespace {

constexpr std::size_t kBlock = 64 * 1024;
constexpr std::size_t kRecord = 4;
// The index holds signed 32-bit offsets: a text of this many bytes is full.
constexpr std::uint64_t kLongestText = std::numeric_limits<std::int32_t>::max();

std::string Record(std::uint64_t offset) {
  std::string bytes;
  for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(offset >> shift & 0xFF);
  return bytes;
}

// Reads up to `bytes` at `offset`; less only at the end of the file. The errno in `error` on failure.
std::string ReadAt(int file, std::uint64_t offset, std::size_t bytes, int& error) {
  std::string block(bytes, '\0');
  std::size_t length = 0;
  while (length < bytes) {
    const ssize_t got =
        pread(file, block.data() + length, bytes - length, static_cast<off_t>(offset + length));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) error = errno;
    if (got <= 0) break;
    length += static_cast<std::size_t>(got);
  }
  block.resize(length);
  return block;
}

// Calls `onLine` with the 1-based offset of every line of the text. 0 or an errno.
int ForEachLine(int text, const std::function<void(std::uint64_t)>& onLine) {
  bool atLineStart = true;
  int error = 0;
  for (std::uint64_t position = 0;;) {
    const std::string block = ReadAt(text, position, kBlock, error);
    if (error != 0 || block.empty()) return error;
    for (std::size_t at = 0; at < block.size();) {
      if (atLineStart) onLine(position + at + 1);
      const std::size_t end = block.find('\n', at);
      atLineStart = end != block.npos;
      at = atLineStart ? end + 1 : block.size();
    }
    position += block.size();
  }
}

// Whether the index has a record for each of `lines` lines, the last one at `lastLine`.
bool IndexFits(int index, std::uint32_t lines, std::uint64_t lastLine, int& error) {
  struct stat status = {};
  if (fstat(index, &status) != 0) {
    error = errno;
    return false;
  }
  const std::uint64_t length = static_cast<std::uint64_t>(status.st_size);
  if (length != std::uint64_t{lines} * kRecord) return false;
  return lines == 0 || ReadAt(index, length - kRecord, kRecord, error) == Record(lastLine);
}

int RebuildIndex(int text, int index) {
  if (ftruncate(index, 0) != 0) return errno;
  std::string records;
  int writeError = 0;
  const int readError = ForEachLine(text, [&](std::uint64_t offset) {
    records += Record(offset);
    if (records.size() < kBlock || writeError != 0) return;
    writeError = WriteAll(index, records);
    records.clear();
  });
  if (writeError == 0) writeError = WriteAll(index, records);
  return readError != 0 ? readError : writeError;
}

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

bool IsRollLine(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return line.starts_with("Roll");
}

}  // namespace

EventsLog::~EventsLog() {
  Close();
}

std::filesystem::path EventsLog::IndexPath() const {
  return std::filesystem::path(path_).replace_extension(".ref");
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

// Whether the open text still lies at its path with the length it had after our last line: not deleted, and
// nobody else has written to it.
bool EventsLog::IsOpenAsLeft() const {
  struct stat open = {};
  struct stat named = {};
  if (text_ < 0 || fstat(text_, &open) != 0 || stat(path_.c_str(), &named) != 0) return false;
  if (access(IndexPath().c_str(), F_OK) != 0) return false;
  return open.st_ino == named.st_ino && open.st_dev == named.st_dev &&
         static_cast<std::uint64_t>(open.st_size) == textLength_;
}

std::string EventsLog::Open() {
  Close();
  if (IndexPath() == path_) return SystemErrorText(EINVAL);  // a text "*.ref" would be its own index
  int error = 0;
  text_ = OpenForAppend(path_, error);
  if (error == 0) index_ = OpenForAppend(IndexPath(), error);
  return error == 0 ? Mend() : SystemErrorText(error);
}

std::string EventsLog::Mend() {
  struct stat status = {};
  if (fstat(text_, &status) != 0) return SystemErrorText(errno);
  textLength_ = static_cast<std::uint64_t>(status.st_size);
  if (textLength_ >= kLongestText) return SystemErrorText(EFBIG);

  int error = 0;
  if (textLength_ > 0 && ReadAt(text_, textLength_ - 1, 1, error) != "\n" && error == 0) {
    error = WriteAll(text_, "\n");
    ++textLength_;
  }
  if (error != 0) return SystemErrorText(error);

  lineCount_ = 0;
  std::uint64_t lastLine = 0;
  error = ForEachLine(text_, [&](std::uint64_t offset) {
    ++lineCount_;
    lastLine = offset;
  });
  if (error == 0 && !IndexFits(index_, lineCount_, lastLine, error) && error == 0) {
    error = RebuildIndex(text_, index_);
  }
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
  if (textLength_ + lines.size() > kLongestText) return SystemErrorText(EFBIG);

  std::string records;
  std::uint32_t topLine = 0;
  std::uint32_t line = lineCount_;
  for (std::size_t start = 0; start < lines.size();) {
    const std::size_t end = std::min(lines.find('\n', start), lines.size());
    records += Record(textLength_ + start + 1);
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
  for (const std::filesystem::path& path : {IndexPath(), path_}) {
    if (unlink(path.c_str()) != 0 && errno != ENOENT) clearFailure_ = SystemErrorText(errno);
  }
  g.LogTopLine = 1;
}

std::vector<std::string> EventsLog::LastLines(int count) {
  const int text = open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (text < 0 || count <= 0) {
    if (text >= 0) close(text);
    return {};
  }
  struct stat status = {};
  if (fstat(text, &status) != 0 || !S_ISREG(status.st_mode)) status.st_size = 0;
  const auto length = static_cast<std::uint64_t>(status.st_size);
  int error = 0;
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
