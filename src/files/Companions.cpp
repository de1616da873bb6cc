#include "files/Companions.h"

#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <system_error>

#include "base/CodePage.h"
#include "base/Nearest.h"
#include "files/GameFields.h"
#include "stats/logs/EventsLogIndex.h"

namespace rollwick {

namespace {

std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

bool IsRegular(const std::filesystem::path& path) {
  std::error_code unknown;
  return std::filesystem::is_regular_file(path, unknown);
}

}  // namespace

std::string FileDateText(const std::filesystem::path& path) {
  struct stat status = {};
  std::tm time = {};
  if (stat(path.c_str(), &status) != 0 || localtime_r(&status.st_mtim.tv_sec, &time) == nullptr) return {};
  const std::string date = std::to_string(time.tm_mon + 1) + '/' + std::to_string(time.tm_mday) + '/' +
                           std::to_string(time.tm_year + 1900);
  if (time.tm_hour == 0 && time.tm_min == 0 && time.tm_sec == 0) return date;
  const int hour = time.tm_hour % 12 == 0 ? 12 : time.tm_hour % 12;
  return date + ' ' + std::to_string(hour) + ':' + TwoDigits(time.tm_min) + ':' + TwoDigits(time.tm_sec) +
         (time.tm_hour < 12 ? " AM" : " PM");
}

std::filesystem::path FullPath(const std::filesystem::path& path) {
  std::error_code noFolder;
  const std::filesystem::path full = std::filesystem::absolute(path, noFolder);
  return noFolder ? path : full;
}

std::string StoredPath(const std::filesystem::path& path, const std::filesystem::path& folder, bool& isCut) {
  const std::string full = FullPath(path).string();
  if (full.size() <= kPathWidth) return full;
  const std::string relative = FullPath(path).lexically_relative(FullPath(folder)).string();
  if (!relative.empty() && relative.size() <= kPathWidth) return relative;
  isCut = true;
  return full.substr(0, kPathWidth);
}

std::optional<std::filesystem::path> FindCompanion(std::string_view stored,
                                                   const std::filesystem::path& folder) {
  const std::filesystem::path path = FullPath(folder) / std::filesystem::path(stored);
  if (IsRegular(path)) return path;
  std::error_code error;
  std::filesystem::directory_iterator entry(path.parent_path(), error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::filesystem::path& found = entry->path();
    if (SameWord(found.filename().string(), path.filename().string()) && IsRegular(found)) return found;
  }
  return {};
}

std::string ShownPath(std::string_view stored) {
  std::string shown = IsUtf8(stored) ? std::string(stored) : FromCodePage(stored);
  std::ranges::replace_if(
      shown, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, '?');
  return shown;
}

bool IsEventsLog(const std::filesystem::path& path) {
  return IsIndexedEventsLog(path);
}

bool IsSamePath(const std::filesystem::path& a, const std::filesystem::path& b) {
  return FullPath(a).lexically_normal() == FullPath(b).lexically_normal();
}

}  // namespace rollwick
