// A file of one-byte records, read and written one at a time at any place, through a buffer.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace rollwick {

// Costs a system call per block of bytes, not per byte. What is written reaches the file when the place moves
// on to another block, at Flush and at Close, in the order of the places: a process that is killed leaves
// the file as at the last of these. Bytes the disk refuses are dropped, so that the length and what is read
// are again what the file holds.
class ByteFile {
 public:
  ByteFile() = default;
  ~ByteFile();
  ByteFile(const ByteFile&) = delete;
  ByteFile& operator=(const ByteFile&) = delete;
  void Swap(ByteFile& other) noexcept;

  // Opens the file for reading and writing, or for reading alone where that is all the system grants; one
  // that is not there is made empty if `create`. Only regular files are opened. Empty on success, else the
  // system's words; closed then.
  std::string Open(const std::filesystem::path& path, bool create);
  // Empty on success; closed in any case.
  std::string Close();
  bool IsOpen() const { return descriptor_ >= 0; }

  std::int64_t Length() const { return length_; }
  // The byte at `place`, from 0; nothing past the end, or when the system refuses: Failure() then has its
  // words, and is empty at the end of the file.
  std::optional<unsigned char> Read(std::int64_t place);
  const std::string& Failure() const { return failure_; }
  // Puts a byte at `place`, 0..Length(). Empty on success, else the system's words.
  std::string Write(std::int64_t place, unsigned char byte);
  std::string Flush();

 private:
  std::string MoveTo(std::int64_t place);

  int descriptor_ = -1;
  bool isReadOnly_ = false;
  std::int64_t length_ = 0;
  std::int64_t blockStart_ = 0;       // place of block_[0]
  std::vector<unsigned char> block_;  // what the file holds there, and what is yet to be written
  std::size_t dirtyStart_ = 0;        // block_[dirtyStart_..dirtyEnd_) is yet to be written
  std::size_t dirtyEnd_ = 0;
  std::string failure_;
};

}  // namespace rollwick
