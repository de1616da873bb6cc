// The draw by the matrix, and the matrix as a file keeps it.
#include "dice/Matrix.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "base/Record.h"
#include "dice/Generators.h"

namespace rollwick {

namespace {

constexpr std::int32_t kWhole = 100'000;
constexpr std::string_view kSignature = "Rollwick Probability File, Data Format 4.6";
constexpr std::size_t kSignatureSize = 92;
constexpr std::size_t kLongestFile = 65'536;  // well above the five records of a true one

// Calls `visit` with the value of each pair and its cell, row by row, until it says true. Whether it did.
template <typename Visit>
bool FindPair(const MatrixTable& matrix, Visit visit) {
  for (std::int32_t row = 2; row <= 7; ++row) {
    for (std::int32_t column = row - 1; column <= 13 - row; ++column) {
      const std::int32_t value =
          matrix[MatrixValues][static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
      if (visit(value, row, column)) return true;
    }
  }
  return false;
}

bool HasWeight(const MatrixTable& matrix) {
  return FindPair(matrix, [](std::int32_t value, auto, auto) { return value > 0; });
}

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

}  // namespace

void PickPairFromMatrix(Game& g, std::int32_t value) {
  assert(HasWeight(g.ProbabilityMatrix));
  for (;; value = PlainRandomBelow(g, kWhole) + 1) {
    std::int32_t sum = 0;
    const bool found = FindPair(g.ProbabilityMatrix, [&](std::int32_t weight, auto row, auto column) {
      sum += weight;
      if (value > sum) return false;
      const MatrixPair pair = PairOfCell(row, column);
      g.Die1 = pair.die1;
      g.Die2 = pair.die2;
      return true;
    });
    if (found) return;
  }
}

std::optional<Message> LoadProbabilityFile(Game& g, const std::filesystem::path& path) {
  const std::string name = path.filename().string();
  Message refusal{name +
                      "\ris either from an older version, has been corrupted, or is not a true Rollwick "
                      "Probability File.",
                  "Unable to Open Rollwick Probability File", MessagePlain | MessageWarning};
  std::string bytes;
  if (std::string failure = ReadWhole(path, kLongestFile, bytes); !failure.empty()) {
    refusal.text = std::move(failure);
    return refusal;
  }
  const std::optional<MatrixTable> matrix = ReadMatrix(bytes);
  if (!matrix) return refusal;
  g.ProbabilityMatrix = *matrix;
  g.ProbabilityName = name;
  return {};
}

}  // namespace rollwick
