#include "stats/logs/EventsLogIndex.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "base/AtomicFile.h"
#include "base/Record.h"

namespace rollwick {

namespace {

constexpr std::size_t kPassBlock = 64 * 1024;  // of a pass over the whole text
constexpr std::uint32_t kSamples = 16;         // lines looked at before an index is believed

std::optional<std::uint64_t> FileLength(int file) {
  struct stat status = {};
  if (fstat(file, &status) != 0) return {};
  return static_cast<std::uint64_t>(status.st_size);
}

// A descriptor that ends with its scope.
struct ScopedFile {
  int file = -1;
  ~ScopedFile() {
    if (file >= 0) close(file);
  }
};

// Compares what the pass over a text finds with the records of an index.
bool EveryRecordFits(int text, std::uint64_t length, int index) {
  BlockReader records(index);
  std::uint64_t place = 0;  // in the index
  bool atLineStart = true;
  int error = 0;
  for (std::uint64_t position = 0; position < length;) {
    const std::string block = ReadAt(text, position, kPassBlock, error);
    if (error != 0 || block.empty()) return false;
    for (std::size_t at = 0; at < block.size();) {
      if (atLineStart && records.Read(place, kIndexRecord) != IndexRecord(position + at + 1)) return false;
      if (atLineStart) place += kIndexRecord;
      const std::size_t end = block.find('\n', at);
      atLineStart = end != block.npos;
      at = atLineStart ? end + 1 : block.size();
    }
    position += block.size();
  }
  return atLineStart && FileLength(index) == place;
}

}  // namespace

std::filesystem::path EventsIndexPath(const std::filesystem::path& text) {
  return std::filesystem::path(text).replace_extension(".ref");
}

std::string IndexRecord(std::uint64_t offset) {
  std::string bytes(kIndexRecord, '\0');
  RecordWriter(bytes).Int32(static_cast<std::int32_t>(offset));
  return bytes;
}

int OpenRegularFile(const std::filesystem::path& path, int& error) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  struct stat status = {};
  error = file < 0 || fstat(file, &status) != 0 ? errno : 0;
  if (error == 0 && S_ISDIR(status.st_mode)) error = EISDIR;
  if (error == 0 && !S_ISREG(status.st_mode)) error = EINVAL;
  if (error == 0) return file;
  if (file >= 0) close(file);
  return -1;
}

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

int AppendRecords(int text, std::uint64_t from, std::uint64_t to, int index) {
  std::string records;
  std::uint64_t lineStart = from;
  int error = 0;
  for (std::uint64_t position = from; position < to;) {
    const std::string block =
        ReadAt(text, position, std::min<std::uint64_t>(kPassBlock, to - position), error);
    if (error != 0) return error;
    if (block.empty()) break;
    for (std::size_t end = block.find('\n'); end != block.npos; end = block.find('\n', end + 1)) {
      records += IndexRecord(lineStart + 1);
      lineStart = position + end + 1;
    }
    if (records.size() >= kPassBlock) {
      if (error = WriteAll(index, records); error != 0) return error;
      records.clear();
    }
    position += block.size();
  }
  return WriteAll(index, records);
}

bool IsIndexedEventsLog(const std::filesystem::path& path) {
  int error = 0;
  const ScopedFile text{OpenRegularFile(path, error)};
  const ScopedFile index{OpenRegularFile(EventsIndexPath(path), error)};
  if (error != 0) return false;
  const auto length = FileLength(text.file);
  return length && *length <= kLongestEventsLog && EveryRecordFits(text.file, *length, index.file);
}

std::string_view BlockReader::Read(std::uint64_t offset, std::size_t bytes) {
  bytes = std::min(bytes, kMost);
  if (offset < start_ || offset + bytes > start_ + block_.size()) {
    // Twice as long as any reading and begun at a multiple of that: walks in both directions stay inside.
    start_ = offset - offset % kMost;
    block_ = ReadAt(file_, start_, 2 * kMost, error_);
  }
  if (offset >= start_ + block_.size()) return {};
  return std::string_view(block_).substr(offset - start_, bytes);
}

// 0 for what is no offset.
std::uint64_t IndexedText::Offset(std::uint32_t number) {
  const std::string_view bytes = indexFile_.Read(std::uint64_t{number - 1} * kIndexRecord, kIndexRecord);
  RecordReader record(bytes);
  return static_cast<std::uint64_t>(std::max(record.Int32(), 0));
}

// The place behind the first line end from `from` on.
std::optional<std::uint64_t> IndexedText::LineEnd(std::uint64_t from, std::uint64_t limit) {
  while (from < limit) {
    const std::string_view bytes = Text(from, std::min<std::uint64_t>(BlockReader::kMost, limit - from));
    if (bytes.empty()) break;
    if (const std::size_t at = bytes.find('\n'); at != bytes.npos) return from + at + 1;
    from += bytes.size();
  }
  return {};
}

bool IndexedText::Look() {
  textFile_.Forget();
  indexFile_.Forget();
  lines_ = 0;
  end_ = 0;
  // In this order: the text holds all that the index tells of.
  const auto indexLength = FileLength(index_);
  const auto textLength = FileLength(text_);
  if (!indexLength || !textLength) return false;
  textLength_ = std::min(*textLength, kLongestEventsLog);
  const std::uint64_t records = std::min(*indexLength / kIndexRecord, kLongestEventsLog);

  std::uint32_t kept = static_cast<std::uint32_t>(records);
  if (kept > 0 && Offset(kept) > textLength_) {
    std::uint32_t high = kept;  // behind the text
    for (kept = 0; kept + 1 < high;) {
      const std::uint32_t middle = kept + (high - kept) / 2;
      (Offset(middle) > textLength_ ? high : kept) = middle;
    }
  }
  if (kept == 0) return true;
  const std::uint64_t last = Offset(kept);
  if (last == 0 || Offset(1) != 1) return false;
  const auto end = LineEnd(last - 1, textLength_);
  lines_ = end ? kept : kept - 1;
  end_ = end ? *end : last - 1;
  if (SomeLinesFit()) return true;
  lines_ = 0;
  end_ = 0;
  return false;
}

// The last lines are where an accident strikes; the others are looked at here and there.
bool IndexedText::SomeLinesFit() {
  if (lines_ == 0) return end_ == 0;
  for (std::uint32_t back = 0; back < std::min(kSamples, lines_); ++back) {
    if (!Line(lines_ - back)) return false;
  }
  for (std::uint32_t sample = 0; sample < kSamples; ++sample) {
    if (!Line(1 + static_cast<std::uint32_t>(std::uint64_t{lines_ - 1} * sample / kSamples))) return false;
  }
  return true;
}

bool IndexedText::IsShort() {
  return LineEnd(end_, textLength_).has_value();
}

std::optional<LineSpan> IndexedText::Line(std::uint32_t number) {
  if (number == 0 || number > lines_) return {};
  const std::uint64_t start = Offset(number);
  const std::uint64_t next = number == lines_ ? end_ + 1 : Offset(number + 1);
  if (start == 0 || start >= next || next - 1 > end_) return {};
  const LineSpan line{start - 1, next - 1};
  const bool beginsLine = line.start == 0 ? number == 1 : Text(line.start - 1, 1) == "\n";
  if (!beginsLine || Text(line.end - 1, 1) != "\n") return {};
  // No line end inside; of an overlong line its beginning will do.
  const auto end = LineEnd(line.start, std::min(line.end, line.start + BlockReader::kMost));
  if (end ? *end != line.end : line.end - line.start <= BlockReader::kMost) return {};
  return line;
}

bool IsForeignIndex(const std::filesystem::path& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return errno != ENOENT && errno != ENOTDIR;
  if (!S_ISREG(status.st_mode)) return true;
  int error = 0;
  const int file = OpenRegularFile(path, error);
  if (file < 0) return true;
  const std::string first = ReadAt(file, 0, kIndexRecord, error);
  close(file);
  return first != IndexRecord(1).substr(0, first.size());
}

}  // namespace rollwick
