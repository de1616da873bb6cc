#include "stats/logs/EventsLogReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "base/AtomicFile.h"

namespace rollwick {

namespace {

constexpr int kLooks = 3;  // at an index that its writer may be about to complete

std::string Words(int error) {
  return error == 0 ? std::string() : SystemErrorText(error);
}

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// `wanted` is in small letters.
bool HasText(std::string_view text, std::string_view wanted) {
  return std::search(text.begin(), text.end(), wanted.begin(), wanted.end(),
                     [](char a, char b) { return Lower(a) == b; }) != text.end();
}

// Not in the middle of a UTF-8 character.
std::string_view Cut(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  std::size_t length = most;
  for (int back = 0; back < 3 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80; ++back) --length;
  return text.substr(0, length);
}

// Controls of ASCII, and those that UTF-8 writes as C2 80 to C2 9F, could steer a terminal.
std::string WithoutControls(std::string_view text) {
  std::string shown;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
    const bool isTwoByteControl = byte == 0xC2 && next >= 0x80 && next < 0xA0;
    const bool isControl = byte < ' ' || byte == 0x7F || isTwoByteControl;
    shown += isControl ? '?' : text[at];
    if (isTwoByteControl) ++at;
  }
  return shown;
}

// A name that the index can take over: free, or an index that is a file of its own. A link is left alone.
bool MayReplace(const std::filesystem::path& path) {
  struct stat status = {};
  if (lstat(path.c_str(), &status) != 0) return errno == ENOENT;
  return S_ISREG(status.st_mode) && !IsForeignIndex(path);
}

}  // namespace

void EventsLogReader::Close() {
  seen_.reset();
  if (text_ >= 0) close(text_);
  if (index_ >= 0) close(index_);
  text_ = index_ = -1;
  isIndexOurs_ = isMended_ = false;
}

std::string EventsLogReader::Open(const std::filesystem::path& path) {
  Close();
  path_ = path;
  failure_ = OpenText();
  if (failure_.empty()) {
    OpenIndex();
    if (!seen_) failure_ = Rebuild();
  }
  if (!failure_.empty()) Close();
  return failure_;
}

std::string EventsLogReader::OpenText() {
  if (EventsIndexPath(path_) == path_) return SystemErrorText(EINVAL);  // an index, not a text
  int error = 0;
  text_ = OpenRegularFile(path_, error);
  struct stat status = {};
  if (error == 0 && fstat(text_, &status) != 0) error = errno;
  if (error == 0 && static_cast<std::uint64_t>(status.st_size) > kLongestEventsLog) error = EFBIG;
  if (error != 0) return SystemErrorText(error);
  constexpr std::size_t kBeginning = 256;  // long enough for the header of any of the table's own files
  const std::string beginning = ReadAt(text_, 0, kBeginning, error);
  if (beginning.find('\0') != beginning.npos) return "It is not a text, and so no Events Log.";
  return Words(error);
}

// Takes the index that lies beside the text when it fits.
void EventsLogReader::OpenIndex() {
  int error = 0;
  index_ = OpenRegularFile(EventsIndexPath(path_), error);
  if (index_ < 0) return;
  seen_.emplace(text_, index_);
  for (int look = 0; look < kLooks; ++look) {
    if (seen_->Look() && !seen_->IsShort()) return;
  }
  seen_.reset();
}

// Makes an index of what the text has now, beside it if the folder lets us.
std::string EventsLogReader::Rebuild() {
  seen_.reset();
  if (index_ >= 0) close(index_);
  index_ = -1;
  isMended_ = true;
  std::error_code unknown;
  const std::filesystem::path folder = path_.has_parent_path() ? path_.parent_path() : ".";
  int error = MayReplace(EventsIndexPath(path_)) ? RebuildIn(folder, true) : EEXIST;
  if (error != 0) error = RebuildIn(std::filesystem::temp_directory_path(unknown), false);
  if (error != 0) return SystemErrorText(error);
  seen_.emplace(text_, index_);
  if (seen_->Look()) return {};
  seen_.reset();
  return SystemErrorText(EIO);  // the text changes while we read it
}

// The new index is not synced: one that a lost disk leaves unfit is made again.
int EventsLogReader::RebuildIn(const std::filesystem::path& folder, bool keepsName) {
  struct stat text = {};
  if (fstat(text_, &text) != 0) return errno;
  std::string name = (folder / ".rollwick-XXXXXX").string();
  const int file = mkostemp(name.data(), O_CLOEXEC);
  if (file < 0) return errno;
  if (!keepsName) unlink(name.c_str());
  const int error = AppendRecords(text_, 0, static_cast<std::uint64_t>(text.st_size), file);
  isIndexOurs_ = !keepsName || error != 0 || fchmod(file, text.st_mode & 0666) != 0 ||
                 rename(name.c_str(), EventsIndexPath(path_).c_str()) != 0;
  if (isIndexOurs_ && keepsName) unlink(name.c_str());
  if (error != 0) {
    close(file);
    return error;
  }
  index_ = file;
  return 0;
}

// Whether both files are still those at the path.
bool EventsLogReader::IsAtItsPlace() const {
  const auto isSame = [](int file, const std::filesystem::path& path) {
    struct stat open = {};
    struct stat named = {};
    return fstat(file, &open) == 0 && stat(path.c_str(), &named) == 0 && open.st_ino == named.st_ino &&
           open.st_dev == named.st_dev;
  };
  return isSame(text_, path_) && (isIndexOurs_ || isSame(index_, EventsIndexPath(path_)));
}

std::string EventsLogReader::Refresh() {
  if (!seen_ || !IsAtItsPlace()) return Open(path_);
  struct stat text = {};
  if (fstat(text_, &text) != 0) return failure_ = SystemErrorText(errno);
  const auto length = static_cast<std::uint64_t>(text.st_size);
  if (length < seen_->End()) return Open(path_);
  if (isIndexOurs_) {
    if (const int error = AppendRecords(text_, seen_->End(), length, index_); error != 0)
      return failure_ = SystemErrorText(error);
  }
  return seen_->Look() ? std::string() : Open(path_);
}

// Where the line stands. An index that does not fit there is made anew, once.
std::optional<LineSpan> EventsLogReader::Span(std::int64_t number) {
  if (number < 1 || number > LineCount()) return {};
  auto line = seen_->Line(static_cast<std::uint32_t>(number));
  if (!line && !isMended_) {
    failure_ = Rebuild();
    if (number > LineCount()) return {};
    line = seen_->Line(static_cast<std::uint32_t>(number));
  }
  if (!line && failure_.empty()) failure_ = SystemErrorText(seen_->Error() != 0 ? seen_->Error() : EIO);
  return line;
}

std::optional<EventsLogLine> EventsLogReader::Line(std::int64_t number) {
  failure_.clear();
  const auto line = Span(number);
  if (!line) return {};
  // One byte more than is shown tells whether the line goes on.
  const std::uint64_t length = line->end - 1 - line->start;
  std::string_view text = seen_->Text(line->start, std::min<std::uint64_t>(length, kLongestShown + 2));
  if (text.size() == length && text.ends_with('\r')) text.remove_suffix(1);
  const std::string_view shown = Cut(text, kLongestShown);
  return EventsLogLine{WithoutControls(shown), shown.size() < text.size()};
}

std::vector<EventsLogLine> EventsLogReader::Screenful(std::int64_t top, std::int64_t most) {
  std::vector<EventsLogLine> lines;
  for (std::int64_t number = std::max<std::int64_t>(top, 1); std::ssize(lines) < most; ++number) {
    auto line = Line(number);
    if (!line) break;
    lines.push_back(std::move(*line));
  }
  return lines;
}

// Piece by piece, each with the end of the one before, so that no line is too long.
bool EventsLogReader::Contains(const LineSpan& line, std::string_view wanted) {
  const std::uint64_t end = line.end - 1;
  for (std::uint64_t at = line.start; at + wanted.size() <= end;) {
    const std::string_view text = seen_->Text(at, std::min<std::uint64_t>(BlockReader::kMost, end - at));
    if (text.size() < wanted.size()) return false;
    if (HasText(text, wanted)) return true;
    at += text.size() - wanted.size() + 1;
  }
  return false;
}

std::optional<std::int64_t> EventsLogReader::Find(std::string_view wanted, std::int64_t from,
                                                  std::int64_t to) {
  failure_.clear();
  std::string small(wanted);
  std::ranges::transform(small, small.begin(), Lower);
  if (small.empty() || small.size() > BlockReader::kMost) return {};
  const std::int64_t step = to < from ? -1 : 1;
  for (std::int64_t number = from;; number += step) {
    const auto line = Span(number);
    if (!line) return {};
    if (Contains(*line, small)) return number;
    if (number == to) return {};
  }
}

}  // namespace rollwick
