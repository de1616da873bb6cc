#include "Faults.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace rollwick {
namespace {

PlannedAccident planned;
bool isPlanned = false;
int steps = 0;
AccidentReport report;

enum class Step { Write, Change, Ending };

// What becomes of a step.
enum class Fate { Goes, Fails, Half };

Fate FateOfStep(Step step) {
  const bool isWrite = step == Step::Write;
  if (!isPlanned) return Fate::Goes;
  ++steps;
  if (planned.kind == Accident::FullBehind && report.isReached && isWrite) {
    errno = planned.error;
    return Fate::Fails;
  }
  if (steps != planned.step) return Fate::Goes;
  report = {true, isWrite, step != Step::Ending};
  switch (planned.kind) {
    case Accident::Fails:
      errno = planned.error;
      return Fate::Fails;
    case Accident::CutShort:
    case Accident::FullBehind:
    case Accident::KilledHalf:
      return isWrite ? Fate::Half : Fate::Goes;
    case Accident::Killed:
      raise(SIGKILL);
      return Fate::Goes;
    case Accident::None:
      return Fate::Goes;
  }
  return Fate::Goes;
}

void KillAfterHalf() {
  if (planned.kind == Accident::KilledHalf) raise(SIGKILL);
}

}  // namespace

void PlanAccident(const PlannedAccident& accident) {
  planned = accident;
  steps = 0;
  report = {};
  isPlanned = true;
}

AccidentReport EndAccident() {
  isPlanned = false;
  return report;
}

}  // namespace rollwick

using rollwick::Fate;
using rollwick::FateOfStep;
using rollwick::Step;

extern "C" {

int __real_open(const char* path, int flags, ...);
ssize_t __real_write(int file, const void* bytes, size_t count);
ssize_t __real_pwrite(int file, const void* bytes, size_t count, off_t place);
int __real_fsync(int file);
int __real_fchmod(int file, mode_t mode);
int __real_ftruncate(int file, off_t length);
int __real_close(int file);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);

int __wrap_open(const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list arguments;
    va_start(arguments, flags);
    mode = va_arg(arguments, mode_t);
    va_end(arguments);
  }
  return FateOfStep(Step::Change) == Fate::Fails ? -1 : __real_open(path, flags, mode);
}

ssize_t __wrap_write(int file, const void* bytes, size_t count) {
  const Fate fate = FateOfStep(Step::Write);
  if (fate == Fate::Fails) return -1;
  if (fate == Fate::Goes || count < 2) return __real_write(file, bytes, count);
  const ssize_t written = __real_write(file, bytes, count / 2);
  rollwick::KillAfterHalf();
  return written;
}

ssize_t __wrap_pwrite(int file, const void* bytes, size_t count, off_t place) {
  const Fate fate = FateOfStep(Step::Write);
  if (fate == Fate::Fails) return -1;
  if (fate == Fate::Goes || count < 2) return __real_pwrite(file, bytes, count, place);
  const ssize_t written = __real_pwrite(file, bytes, count / 2, place);
  rollwick::KillAfterHalf();
  return written;
}

int __wrap_fsync(int file) {
  return FateOfStep(Step::Change) == Fate::Fails ? -1 : __real_fsync(file);
}

int __wrap_fchmod(int file, mode_t mode) {
  return FateOfStep(Step::Change) == Fate::Fails ? -1 : __real_fchmod(file, mode);
}

int __wrap_ftruncate(int file, off_t length) {
  return FateOfStep(Step::Change) == Fate::Fails ? -1 : __real_ftruncate(file, length);
}

int __wrap_close(int file) {
  const bool fails = FateOfStep(Step::Ending) == Fate::Fails;
  const int error = errno;
  const int closed = __real_close(file);
  if (!fails) return closed;
  errno = error;
  return -1;
}

int __wrap_rename(const char* from, const char* to) {
  return FateOfStep(Step::Change) == Fate::Fails ? -1 : __real_rename(from, to);
}

int __wrap_unlink(const char* path) {
  return FateOfStep(Step::Ending) == Fate::Fails ? -1 : __real_unlink(path);
}

}  // extern "C"
