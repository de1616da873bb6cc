// A header and 224 numbers in records of 256 bytes.
#include "dice/ProbabilityFile.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "base/AtomicFile.h"
#include "base/Record.h"
#include "dice/Matrix.h"

namespace rollwick {

namespace {

constexpr std::int32_t kWhole = 100'000;
constexpr std::string_view kSignature = "Rollwick Probability File, Data Format 4.6";
constexpr std::size_t kSignatureSize = 92;
// The header has room for a path and its date, as that of a game file; here they are blank.
constexpr std::size_t kPathPlace = 100, kPathSize = 100, kDatePlace = 208, kDateSize = 40;
constexpr std::size_t kFileSize = 5 * kRecordSize;  // the last record half full
constexpr std::size_t kLongestFile = 65'536;        // what stands behind the values is not looked at

std::int32_t ValidState(std::int32_t state) {
  constexpr std::int32_t kBits = 128 | 4 | 2 | 1;
  return state == -1 || (state & ~kBits) == 0 ? state : 0;
}

std::optional<MatrixTable> ReadMatrix(std::string_view bytes) {
  RecordReader file(bytes);
  const std::string signature = file.Text(kSignatureSize);
  if (signature.substr(std::min(signature.find_first_not_of(' '), signature.size())) != kSignature) return {};
  file.Seek(kRecordSize);
  MatrixTable matrix{};
  for (auto& row : matrix[MatrixStates]) {
    for (std::int32_t& state : row) state = ValidState(file.Int32());
  }
  for (auto& row : matrix[MatrixValues]) {
    for (std::int32_t& value : row) value = std::clamp(file.Int32(), 0, kWhole);
  }
  if (file.Failed()) return {};
  // With no weight at all the draw would never end.
  return HasWeight(matrix) ? std::optional(matrix) : std::nullopt;
}

void MakeOwnFile(Game& g, const std::filesystem::path& path) {
  g.ProbabilityName = path.filename().string();
  g.ProbabilityPath = path.string();
  g.ProbabilityDirty = false;
}

}  // namespace

std::optional<Message> LoadProbabilityFile(Game& g, const std::filesystem::path& path) {
  Message refusal{path.filename().string() +
                      "\ris either from an older version, has been corrupted, or is not a true Rollwick "
                      "Probability File.",
                  "Unable to Open Rollwick Probability File", MessagePlain | MessageWarning};
  std::string bytes;
  if (std::string failure = ReadWhole(path, kLongestFile, bytes); !failure.empty()) {
    if (failure != SystemErrorText(EFBIG)) refusal.text = std::move(failure);
    return refusal;
  }
  const std::optional<MatrixTable> matrix = ReadMatrix(bytes);
  if (!matrix) return refusal;
  g.ProbabilityMatrix = *matrix;
  MakeOwnFile(g, path);
  return {};
}

std::string SaveProbabilityFile(Game& g, const std::filesystem::path& path) {
  std::string bytes(kFileSize, '\0');
  RecordWriter file(bytes);
  file.Text(kSignature, kSignatureSize);
  file.Seek(kPathPlace);
  file.Text("", kPathSize);
  file.Seek(kDatePlace);
  file.Text("", kDateSize);
  file.Seek(kRecordSize);
  for (const auto& field : g.ProbabilityMatrix) {
    for (const auto& row : field) {
      for (const std::int32_t cell : row) file.Int32(cell);
    }
  }
  assert(!file.Failed());
  if (std::string failure = SaveWhole(path, bytes); !failure.empty()) return failure;
  MakeOwnFile(g, path);
  return {};
}

}  // namespace rollwick
