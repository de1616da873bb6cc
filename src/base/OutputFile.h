// A text file written piece by piece through a buffer.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace rollwick {

class OutputFile {
 public:
  OutputFile() = default;
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // All give 0 or the errno of what the system refused.
  int Open(const std::filesystem::path& path, bool append);
  int Write(std::string_view text);
  int Flush();
  int Close();  // closed in any case; 0 when nothing was open
  bool IsOpen() const { return descriptor_ >= 0; }

 private:
  int descriptor_ = -1;
  std::string buffer_;
};

}  // namespace rollwick
