// Lines of any text typed at `rollwick play`: each is carried out or answered with what is wrong with it.
#include <unistd.h>

#include <algorithm>
#include <sstream>

#include "FuzzTable.h"
#include "Samples.h"
#include "base/Nearest.h"
#include "console/Play.h"

namespace rollwick {
namespace {

constexpr int kMostLines = 100;
constexpr std::int64_t kMostRolls = 300;  // of one line, and so few lines of them that an input ends soon

// Whether the line is left out: one that rolls for long, or reaches out of the folder.
bool IsLeftOut(const InputLine& line, std::int64_t& rollsLeft) {
  if (line.text.find('/') != std::string::npos) return true;
  const Words words = SplitWords(line);
  if (words.words.size() != 2 || !(SameWord(words.words[0], "rolls") || SameWord(words.words[0], "hyper")))
    return false;
  const auto rolls = ParseWhole(words.words[1], 0, kMaxRollCount);
  if (!rolls) return false;
  rollsLeft -= *rolls;
  return *rolls == 0 || *rolls > kMostRolls || rollsLeft < 0;
}

void Try(std::string_view text) {
  std::istringstream in{std::string(text)};
  std::ostringstream out, error;
  const std::atomic<bool> interrupted = false;
  CommonOptions options;
  options.dataFolder = "data";
  options.seed = "1";
  Table table(options, {in, out, error, interrupted});
  std::int64_t rollsLeft = 1'000;
  for (int count = 0; count < kMostLines; ++count) {
    const std::optional<InputLine> line = ReadInputLine(in);
    if (!line) break;
    if (IsLeftOut(*line, rollsLeft)) continue;
    const std::optional<Outcome> outcome = Execute(table, *line);
    Demand(TablesAgree(table.g), "tables that agree after a command");
    Demand(!table.g.RollInProgress && !table.g.HyperDriveActive, "an end of every command");
    if (!outcome) continue;
    OutcomeJson(table, *outcome).dump();  // throws at what is no UTF-8
    if (outcome->reply.ends) break;
  }
}

}  // namespace
}  // namespace rollwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rollwick;
  static const TemporaryFolder folder;
  static const FilesByName files = SampleCompanions();
  // Each input finds the same folder.
  const std::filesystem::path place = folder / "here";
  std::filesystem::remove_all(place);
  std::filesystem::create_directory(place);
  for (const auto& [name, bytes] : files) PutFile(place / name, bytes);
  Demand(chdir(place.c_str()) == 0, "a folder to play in");
  Try(InputText(data, size));
  return 0;
}
