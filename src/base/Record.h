// Fields of binary files: a reader and a writer over a span of bytes, and a file read whole. Numbers are
// little-endian and packed without gaps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/Money.h"

namespace rollwick {

inline constexpr std::size_t kRecordSize = 256;

// Where the next field is. A field that is not wholly inside the span sets Failed, which stays set; whoever
// uses a reader or writer looks at it before believing or keeping anything.
class RecordCursor {
 public:
  void Seek(std::size_t offset) { place_ = offset; }
  std::size_t Place() const { return place_; }
  bool Failed() const { return failed_; }

 protected:
  explicit RecordCursor(std::size_t length) : length_(length) {}
  // Steps over a field of `size` bytes and gives its offset; nothing when it is not inside.
  std::optional<std::size_t> Step(std::size_t size);

 private:
  std::size_t length_;
  std::size_t place_ = 0;
  bool failed_ = false;
};

// Fields that are not inside read as 0 and blank.
class RecordReader : public RecordCursor {
 public:
  explicit RecordReader(std::string_view bytes) : RecordCursor(bytes.size()), bytes_(bytes) {}

  std::int16_t Int16() { return static_cast<std::int16_t>(Number(2)); }
  std::int32_t Int32() { return static_cast<std::int32_t>(Number(4)); }
  std::int64_t Int64() { return static_cast<std::int64_t>(Number(8)); }
  float Single();
  Money Amount() { return Money::FromUnits(Int64()); }
  // A text of `width` characters, without the blanks at its right.
  std::string Text(std::size_t width);
  // The same without a code page: a path's own bytes.
  std::string Path(std::size_t width);

 private:
  std::uint64_t Number(std::size_t size);

  std::string_view bytes_;
};

// Fields that are not inside are not written.
class RecordWriter : public RecordCursor {
 public:
  explicit RecordWriter(std::span<char> bytes) : RecordCursor(bytes.size()), bytes_(bytes) {}

  void Int16(std::int16_t value) { Number(static_cast<std::uint16_t>(value), 2); }
  void Int32(std::int32_t value) { Number(static_cast<std::uint32_t>(value), 4); }
  void Int64(std::int64_t value) { Number(static_cast<std::uint64_t>(value), 8); }
  void Single(float value);
  void Amount(Money value) { Int64(value.Units()); }
  // Cut at `width` characters, or filled with blanks.
  void Text(std::string_view text, std::size_t width);
  void Path(std::string_view path, std::size_t width);

 private:
  void Number(std::uint64_t value, std::size_t size);

  std::span<char> bytes_;
};

// The whole number nearest to `value`, ties to even; nothing beyond 32 bits and for what is no number.
std::optional<std::int32_t> NearestInt32(double value);

// Reads the file into `bytes`. Empty on success, else the system's words: also for a file longer than `most`
// bytes, and for what is no file.
std::string ReadWhole(const std::filesystem::path& path, std::size_t most, std::string& bytes);

}  // namespace rollwick
