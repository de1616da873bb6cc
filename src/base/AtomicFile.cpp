// Saving through a temporary file in the same folder.
#include "base/AtomicFile.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <system_error>

namespace rollwick {

namespace {

constexpr std::string_view kTemporaryName = ".rollwick-";

// Creates a file of a name that nothing in `folder` has, and puts the name into `path`. -1 with errno on
// failure.
int CreateTemporary(const std::filesystem::path& folder, std::filesystem::path& path) {
  const std::string start = std::string(kTemporaryName) + std::to_string(getpid()) + '-';
  for (int attempt = 0;; ++attempt) {
    path = folder / (start + std::to_string(attempt));
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor >= 0 || errno != EEXIST) return descriptor;
  }
}

int WriteAndClose(int descriptor, std::string_view bytes, const std::filesystem::path& target) {
  int error = WriteAll(descriptor, bytes);
  struct stat old = {};
  const bool replaces = stat(target.c_str(), &old) == 0;
  if (error == 0 && replaces && fchmod(descriptor, old.st_mode & 07777) != 0) error = errno;
  if (error == 0 && fsync(descriptor) != 0) error = errno;
  if (close(descriptor) != 0 && error == 0) error = errno;
  return error;
}

// A device or a pipe takes the bytes as they come, and is never replaced by a file. One that nobody reads is
// refused instead of waited for.
int WriteInto(const std::filesystem::path& device, std::string_view bytes) {
  const int descriptor = open(device.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return errno;
  fcntl(descriptor, F_SETFL, 0);
  const int error = WriteAll(descriptor, bytes);
  const int closed = close(descriptor) != 0 ? errno : 0;
  return error != 0 ? error : closed;
}

int SyncFolder(const std::filesystem::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return errno == EACCES ? 0 : errno;  // a folder that may be written and not listed
  int error = fsync(descriptor) == 0 ? 0 : errno;
  if (error == EINVAL) error = 0;  // a file system whose folders need no syncing
  close(descriptor);
  return error;
}

// Whether `name` is that of a temporary whose process is gone.
bool IsAbandoned(std::string_view name) {
  if (!name.starts_with(kTemporaryName)) return false;
  name.remove_prefix(kTemporaryName.size());
  pid_t process = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  if (error != std::errc() || end == name.data() + name.size() || *end != '-') return false;
  return process > 0 && kill(process, 0) != 0 && errno == ESRCH;
}

}  // namespace

void RemoveAbandonedTemporaries(const std::filesystem::path& folder) {
  std::error_code unreadable;
  for (std::filesystem::directory_iterator file(folder, unreadable), end; !unreadable && file != end;
       file.increment(unreadable)) {
    if (IsAbandoned(file->path().filename().string())) unlink(file->path().c_str());
  }
}

std::string SystemErrorText(int error) {
  // Not strerror: it speaks the user's language, and the rest of the table does not.
  const char* const words = strerrordesc_np(error);
  return (words == nullptr ? std::string("Unknown error") : words) + ", Error #" + std::to_string(error);
}

int WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

std::string SaveWhole(const std::filesystem::path& path, std::string_view bytes) {
  // A link is followed, so that the file it leads to is replaced and the link stays.
  std::error_code noFile;
  std::filesystem::path target = std::filesystem::canonical(path, noFile);
  if (noFile) target = path;
  if (std::filesystem::is_directory(target, noFile)) return SystemErrorText(EISDIR);
  if (std::filesystem::is_other(target, noFile)) {
    const int error = WriteInto(target, bytes);
    return error == 0 ? std::string() : SystemErrorText(error);
  }

  // The folder would let a file that is protected be replaced.
  if (access(target.c_str(), W_OK) != 0 && errno != ENOENT) return SystemErrorText(errno);

  const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
  std::filesystem::path temporary;
  const int descriptor = CreateTemporary(folder, temporary);
  if (descriptor < 0) return SystemErrorText(errno);
  int error = WriteAndClose(descriptor, bytes, target);
  if (error == 0 && rename(temporary.c_str(), target.c_str()) != 0) error = errno;
  if (error != 0) {
    unlink(temporary.c_str());
    return SystemErrorText(error);
  }
  error = SyncFolder(folder);
  return error == 0 ? std::string() : SystemErrorText(error);
}

}  // namespace rollwick
