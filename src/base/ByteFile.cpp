// One block of the file is held in memory; another one is read when the place leaves it.
#include "base/ByteFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/AtomicFile.h"

namespace rollwick {

namespace {

constexpr std::int64_t kBlock = 32'768;

// Fills `block` from `place`, cut to what the file holds. 0 or an errno.
int ReadBlock(int file, std::int64_t place, std::vector<unsigned char>& block) {
  std::size_t length = 0;
  int error = 0;
  while (length < block.size()) {
    const ssize_t got =
        pread(file, block.data() + length, block.size() - length, place + static_cast<off_t>(length));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) error = errno;
    if (got <= 0) break;
    length += static_cast<std::size_t>(got);
  }
  block.resize(length);
  return error;
}

// 0 or the errno of the step that failed; earlier steps stay written.
int WriteBlock(int file, std::int64_t place, const unsigned char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t written = pwrite(file, bytes, count, place);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes += written;
    place += written;
    count -= static_cast<std::size_t>(written);
  }
  return 0;
}

}  // namespace

ByteFile::~ByteFile() {
  Close();
}

void ByteFile::Swap(ByteFile& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(isReadOnly_, other.isReadOnly_);
  std::swap(length_, other.length_);
  std::swap(blockStart_, other.blockStart_);
  block_.swap(other.block_);
  std::swap(dirtyStart_, other.dirtyStart_);
  std::swap(dirtyEnd_, other.dirtyEnd_);
  failure_.swap(other.failure_);
}

std::string ByteFile::Open(const std::filesystem::path& path, bool create) {
  if (std::string failure = Close(); !failure.empty()) return failure;
  // Without O_NONBLOCK a pipe would hold the table up until somebody opens its other end.
  const int flags = O_CLOEXEC | O_NONBLOCK;
  descriptor_ = open(path.c_str(), flags | O_RDWR | (create ? O_CREAT : 0), 0666);
  isReadOnly_ = descriptor_ < 0 && (errno == EACCES || errno == EROFS);
  const int refused = errno;
  if (isReadOnly_) descriptor_ = open(path.c_str(), flags | O_RDONLY);
  if (isReadOnly_ && descriptor_ < 0 && errno == ENOENT) errno = refused;  // it could not be made
  struct stat status = {};
  int error = descriptor_ < 0 || fstat(descriptor_, &status) != 0 ? errno : 0;
  if (error == 0 && S_ISDIR(status.st_mode)) error = EISDIR;
  if (error == 0 && !S_ISREG(status.st_mode)) error = EINVAL;
  if (error == 0) {
    length_ = status.st_size;
    return {};
  }
  Close();
  return SystemErrorText(error);
}

std::string ByteFile::Close() {
  if (descriptor_ < 0) return {};
  std::string failure = Flush();
  if (close(descriptor_) != 0 && failure.empty()) failure = SystemErrorText(errno);
  descriptor_ = -1;
  length_ = blockStart_ = 0;
  block_.clear();
  failure_.clear();
  return failure;
}

std::string ByteFile::Flush() {
  if (dirtyStart_ == dirtyEnd_) return {};
  const std::size_t start = std::exchange(dirtyStart_, 0);
  const std::size_t count = std::exchange(dirtyEnd_, 0) - start;
  const int error =
      WriteBlock(descriptor_, blockStart_ + static_cast<std::int64_t>(start), block_.data() + start, count);
  if (error == 0) return {};
  block_.clear();
  struct stat status = {};
  if (fstat(descriptor_, &status) == 0) length_ = status.st_size;
  return SystemErrorText(error);
}

// Makes the block that holds `place` the one in memory.
std::string ByteFile::MoveTo(std::int64_t place) {
  std::string failure = Flush();
  blockStart_ = place - place % kBlock;
  block_.resize(static_cast<std::size_t>(std::clamp<std::int64_t>(length_ - blockStart_, 0, kBlock)));
  const int error = ReadBlock(descriptor_, blockStart_, block_);
  if (error != 0 && failure.empty()) failure = SystemErrorText(error);
  return failure;
}

std::optional<unsigned char> ByteFile::Read(std::int64_t place) {
  failure_.clear();
  if (place < 0 || place >= length_) return {};
  auto offset = static_cast<std::uint64_t>(place - blockStart_);
  if (offset >= block_.size()) {
    failure_ = MoveTo(place);
    offset = static_cast<std::uint64_t>(place - blockStart_);
    if (!failure_.empty() || offset >= block_.size()) return {};
  }
  return block_[offset];
}

std::string ByteFile::Write(std::int64_t place, unsigned char byte) {
  if (descriptor_ < 0) return SystemErrorText(EBADF);
  if (isReadOnly_) return SystemErrorText(EACCES);
  if (place < 0 || place > length_) return SystemErrorText(EINVAL);
  auto offset = static_cast<std::uint64_t>(place - blockStart_);
  if (offset > block_.size() || offset >= static_cast<std::uint64_t>(kBlock)) {
    if (std::string failure = MoveTo(place); !failure.empty()) return failure;
    offset = static_cast<std::uint64_t>(place - blockStart_);
    if (offset > block_.size()) return SystemErrorText(EIO);  // the file became shorter behind our back
  }
  if (offset == block_.size()) {
    block_.push_back(byte);
    length_ = std::max(length_, place + 1);
  } else {
    block_[offset] = byte;
  }
  if (dirtyStart_ == dirtyEnd_) dirtyStart_ = offset;
  dirtyStart_ = std::min<std::size_t>(dirtyStart_, offset);
  dirtyEnd_ = std::max<std::size_t>(dirtyEnd_, offset + 1);
  return {};
}

}  // namespace rollwick
