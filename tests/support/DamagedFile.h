// What can happen to a file: it is cut at any length, or any of its bytes becomes any other.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace rollwick {

// The values a byte is changed to: all, and under sanitizers, which take their time, the telling ones.
inline std::vector<char> OtherValues(char value) {
  std::vector<char> values;
#if defined(__SANITIZE_ADDRESS__)
  for (const int change : {1, 2, 4, 8, 16, 32, 64, 128, 0xFF, 0x7F})
    values.push_back(static_cast<char>(value ^ change));
  for (const char other : {'\0', ' '}) {
    if (other != value) values.push_back(other);
  }
#else
  for (int change = 1; change < 256; ++change) values.push_back(static_cast<char>(value ^ change));
#endif
  return values;
}

// Calls tryBytes(bytes) with `good` cut at every length, and with all of it; ends at the first failure.
template <class Try>
void ForEachLength(const std::string& good, Try tryBytes) {
  for (std::size_t length = 0; length <= good.size(); ++length) {
    SCOPED_TRACE("cut at " + std::to_string(length));
    tryBytes(good.substr(0, length));
    if (testing::Test::HasFailure()) return;
  }
}

// Calls tryBytes(bytes, place) with every byte from `begin` to before `end` changed to every other value;
// ends at the first failure.
template <class Try>
void ForEachChange(const std::string& good, std::size_t begin, std::size_t end, Try tryBytes) {
  std::string bytes = good;
  for (std::size_t place = begin; place < end; ++place) {
    for (const char value : OtherValues(good[place])) {
      bytes[place] = value;
      tryBytes(bytes, place);
      if (testing::Test::HasFailure()) {
        FAIL() << "byte " << place << " was changed to "
               << static_cast<int>(static_cast<unsigned char>(value));
      }
    }
    bytes[place] = good[place];
  }
}
template <class Try>
void ForEachChange(const std::string& good, Try tryBytes) {
  ForEachChange(good, 0, good.size(), tryBytes);
}

// A file that is put in place of itself many times: quicker than a new one each time.
class RewrittenFile {
 public:
  explicit RewrittenFile(const std::filesystem::path& path)
      : file_(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666)) {}
  ~RewrittenFile() { close(file_); }
  RewrittenFile(const RewrittenFile&) = delete;
  RewrittenFile& operator=(const RewrittenFile&) = delete;

  void Put(const std::string& bytes) const {
    const auto length = static_cast<off_t>(bytes.size());
    if (pwrite(file_, bytes.data(), bytes.size(), 0) != length || ftruncate(file_, length) != 0)
      throw std::runtime_error("the test's file cannot be written");
  }

 private:
  int file_;
};

}  // namespace rollwick
