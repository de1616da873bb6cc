#include "base/Record.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cmath>
#include <limits>
#include <utility>

#include "base/AtomicFile.h"
#include "base/CodePage.h"

namespace rollwick {

namespace {

static_assert(std::numeric_limits<float>::is_iec559 && sizeof(float) == 4);

// Reads what is left of the file. 0, or the errno of what failed.
int ReadAll(int descriptor, std::size_t most, std::string& bytes) {
  struct stat status = {};
  if (fstat(descriptor, &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  if (!S_ISREG(status.st_mode)) return ENOTSUP;
  if (static_cast<std::uint64_t>(status.st_size) > most) return EFBIG;
  // One byte more than the file has: the read that finds its end needs no second buffer.
  bytes.resize(static_cast<std::size_t>(status.st_size) + 1);
  std::size_t count = 0;
  for (;;) {
    const ssize_t got = read(descriptor, bytes.data() + count, bytes.size() - count);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return errno;
    if (got == 0) break;
    count += static_cast<std::size_t>(got);
    if (count > most) return EFBIG;
    if (count == bytes.size()) bytes.resize(std::min(2 * count + 4096, most + 1));  // it grew meanwhile
  }
  bytes.resize(count);
  return 0;
}

}  // namespace

std::optional<std::size_t> RecordCursor::Step(std::size_t size) {
  if (failed_ || place_ > length_ || size > length_ - place_) {
    failed_ = true;
    return {};
  }
  return std::exchange(place_, place_ + size);
}

std::uint64_t RecordReader::Number(std::size_t size) {
  const auto place = Step(size);
  if (!place) return 0;
  std::uint64_t value = 0;
  for (std::size_t i = size; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes_[*place + i]);
  return value;
}

float RecordReader::Single() {
  return std::bit_cast<float>(Int32());
}

std::string RecordReader::Text(std::size_t width) {
  const auto place = Step(width);
  if (!place) return {};
  std::string text = FromCodePage(bytes_.substr(*place, width));
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string RecordReader::Path(std::size_t width) {
  const auto place = Step(width);
  if (!place) return {};
  std::string path(bytes_.substr(*place, width));
  std::ranges::replace(path, '\0', ' ');
  path.erase(path.find_last_not_of(' ') + 1);
  return path;
}

void RecordWriter::Number(std::uint64_t value, std::size_t size) {
  const auto place = Step(size);
  if (!place) return;
  for (std::size_t i = 0; i < size; ++i) bytes_[*place + i] = static_cast<char>(value >> (8 * i) & 0xFF);
}

void RecordWriter::Single(float value) {
  Int32(std::bit_cast<std::int32_t>(value));
}

void RecordWriter::Text(std::string_view text, std::size_t width) {
  Path(ToCodePage(text), width);
}

void RecordWriter::Path(std::string_view path, std::size_t width) {
  const auto place = Step(width);
  if (!place) return;
  std::string field(path);
  field.resize(width, ' ');
  std::ranges::copy(field, bytes_.begin() + static_cast<std::ptrdiff_t>(*place));
}

std::optional<std::int32_t> NearestInt32(double value) {
  const double whole = std::nearbyint(value);
  constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  if (!(whole >= kLeast && whole <= kMost)) return {};  // also for what is no number
  return static_cast<std::int32_t>(whole);
}

std::string ReadWhole(const std::filesystem::path& path, std::size_t most, std::string& bytes) {
  bytes.clear();
  // A pipe that nobody writes to would hold the open for ever.
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return SystemErrorText(errno);
  const int error = ReadAll(descriptor, most, bytes);
  close(descriptor);
  if (error == 0) return {};
  bytes.clear();
  return SystemErrorText(error);
}

}  // namespace rollwick
