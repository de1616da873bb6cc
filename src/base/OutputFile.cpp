#include "base/OutputFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "base/AtomicFile.h"

namespace rollwick {

namespace {
constexpr std::size_t kBufferSize = 65'536;
}

OutputFile::~OutputFile() {
  Close();
}

int OutputFile::Open(const std::filesystem::path& path, bool append) {
  if (const int error = Close(); error != 0) return error;
  // Without blocking: a pipe that nobody reads is refused instead of holding the game up.
  const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | (append ? O_APPEND : O_TRUNC);
  descriptor_ = open(path.c_str(), flags, 0666);
  if (descriptor_ < 0) return errno;
  fcntl(descriptor_, F_SETFL, append ? O_APPEND : 0);
  return 0;
}

int OutputFile::Write(std::string_view text) {
  buffer_ += text;
  return buffer_.size() < kBufferSize ? 0 : Flush();
}

int OutputFile::Flush() {
  if (descriptor_ < 0 || buffer_.empty()) return 0;
  // What a full disk refuses is not offered again: it would come a second time, behind what did get there.
  return WriteAll(descriptor_, std::exchange(buffer_, {}));
}

int OutputFile::Close() {
  if (descriptor_ < 0) return 0;
  const int flushed = Flush();
  const int closed = close(std::exchange(descriptor_, -1)) < 0 ? errno : 0;
  return flushed != 0 ? flushed : closed;
}

}  // namespace rollwick
