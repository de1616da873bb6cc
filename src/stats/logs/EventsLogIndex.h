// The index of an Events Log: how it is proved to fit its text, read, and made from it. Files are
// descriptors, owned by whoever calls.
#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace rollwick {

// Offsets are signed 32-bit numbers: a text of this many bytes is full.
inline constexpr std::uint64_t kLongestEventsLog = std::numeric_limits<std::int32_t>::max();
inline constexpr std::size_t kIndexRecord = 4;  // bytes

// The index beside the text.
std::filesystem::path EventsIndexPath(const std::filesystem::path& text);

// The record of a line that begins at `offset`, counted from 1.
std::string IndexRecord(std::uint64_t offset);

// Opens a regular file to be read; a pipe is not waited for. -1 and the errno in `error` otherwise.
int OpenRegularFile(const std::filesystem::path& path, int& error);

// Reads up to `bytes` at `offset`; less only at the end of the file. The errno in `error` on failure.
std::string ReadAt(int file, std::uint64_t offset, std::size_t bytes, int& error);

// Whether something stands at an index's path that is no index of a log: it does not begin like one, or is no
// file.
bool IsForeignIndex(const std::filesystem::path& path);

// Writes behind `index` a record for each whole line of the text from byte `from`, where a line begins, up to
// byte `to`. 0 or an errno.
int AppendRecords(int text, std::uint64_t from, std::uint64_t to, int index);

// Whether there is a text with one right record for each of its lines, the last one whole too, in its index.
bool IsIndexedEventsLog(const std::filesystem::path& path);

// A file read piece by piece through one block of memory.
class BlockReader {
 public:
  static constexpr std::size_t kMost = 16 * 1024;  // bytes of one reading

  explicit BlockReader(int file) : file_(file) {}
  // Up to kMost bytes; less only at the end of the file or on an error. Good until the next reading.
  std::string_view Read(std::uint64_t offset, std::size_t bytes);
  void Forget() { block_.clear(); }
  int Error() const { return error_; }  // the errno of the last failure

 private:
  int file_;
  std::uint64_t start_ = 0;
  std::string block_;
  int error_ = 0;
};

// Bytes of a text, from 0, the line's end included.
struct LineSpan {
  std::uint64_t start = 0;
  std::uint64_t end = 0;
};

// A text seen through its index. Only lines count that have both their record and their end, so that it may
// be looked at while somebody writes.
class IndexedText {
 public:
  IndexedText(int text, int index) : text_(text), index_(index), textFile_(text), indexFile_(index) {}

  // Counts the lines the files have now; records that point behind the text are not counted. False when the
  // index does not fit: its ends and some lines between are looked at, so the cost does not grow with the
  // log.
  bool Look();
  std::uint32_t LineCount() const { return lines_; }
  // Bytes of the counted lines.
  std::uint64_t End() const { return end_; }
  // Whether a whole line without a record follows the counted ones.
  bool IsShort();

  // Line `number`, from 1; nothing when the records do not fit the text there.
  std::optional<LineSpan> Line(std::uint32_t number);
  // Up to BlockReader::kMost bytes of the text; good until the next call of any kind.
  std::string_view Text(std::uint64_t offset, std::size_t bytes) { return textFile_.Read(offset, bytes); }
  int Error() const { return textFile_.Error() != 0 ? textFile_.Error() : indexFile_.Error(); }

 private:
  std::uint64_t Offset(std::uint32_t number);
  std::optional<std::uint64_t> LineEnd(std::uint64_t from, std::uint64_t limit);
  bool SomeLinesFit();

  int text_;
  int index_;
  BlockReader textFile_;
  BlockReader indexFile_;
  std::uint64_t textLength_ = 0;
  std::uint32_t lines_ = 0;
  std::uint64_t end_ = 0;
};

}  // namespace rollwick
