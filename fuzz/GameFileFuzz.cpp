// A game file of any bytes beside good companions: refused without a trace, or taken so that it is saved the
// same for ever and goes on being played.
#include <cstring>

#include "FuzzTable.h"
#include "Samples.h"
#include "base/Record.h"
#include "files/GameFile.h"
#include "files/GameFileLayout.h"

namespace rollwick {
namespace {

// The further settings count only with their sum, which no mutation finds: it is made to fit in half of the
// inputs.
std::string WithChecksum(std::string bytes) {
  const std::size_t start = RecordOffset(kFurtherRecord);
  if (bytes.size() % 2 != 0 || bytes.size() < start + kRecordSize) return bytes;
  const std::string_view block =
      std::string_view(bytes).substr(start + kFurtherMagic, kFurtherChecksum - kFurtherMagic);
  const auto sum = static_cast<std::int32_t>(Checksum(block));
  RecordWriter writer(bytes);
  writer.Seek(start + kFurtherChecksum);
  writer.Int32(sum);
  return bytes;
}

void PutCompanions(const std::filesystem::path& folder, const FilesByName& files) {
  for (const auto& [name, bytes] : files) PutFile(folder / name, bytes);
}

void Try(const std::filesystem::path& folder, const std::string& bytes) {
  // The working game keeps more than others.
  const std::filesystem::path file = folder / (bytes.size() % 4 < 2 ? "default.crp" : "input.crp");
  PutFile(file, bytes);
  FuzzTable table(folder);
  const std::string before = table.Bytes();
  const LoadedGame loaded = LoadGameFile(table.g, file, folder);
  if (loaded.result == GameFileResult::Refused) {
    Demand(loaded.notices.size() == 1, "one notice of a refused game");
    Demand(table.Bytes() == before, "a refused game that changes nothing");
    return;
  }
  Demand(TablesAgree(table.g), "tables that agree after loading");

  const std::filesystem::path saved = folder / "saved" / file.filename(),
                              again = folder / "again" / file.filename();
  // A file cut short may have left stacks without a name; loading what is saved now gives them one.
  for (int stack = 0; stack < kChipStackCount; ++stack) {
    std::string& name = table.g.ChipStackName[static_cast<std::size_t>(stack)];
    if (name.empty()) name = ChipStackTitle(SlotChipStack + stack);
  }
  Demand(SaveGameFile(table.g, saved, folder).empty(), "a loaded game that can be saved");
  FuzzTable second(folder);
  Demand(LoadGameFile(second.g, saved, folder).result == GameFileResult::Loaded,
         "a saved game that can be loaded");
  // A vig may be below zero in a file, the total of all bets may not.
  Demand(!second.g.TableDirty || table.g.TotalBets < Money(), "a saved game that needs no repair");
  Demand(SaveGameFile(second.g, again, folder).empty(), "a saved game that can be saved again");
  Demand(FileBytes(saved) == FileBytes(again), "the same bytes after saving, loading and saving");
  table.PlayOn(20);
}

}  // namespace
}  // namespace rollwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rollwick;
  static const TemporaryFolder folder;
  static const FilesByName companions = SampleCompanions();
  std::filesystem::create_directory(folder / "saved");
  std::filesystem::create_directory(folder / "again");
  PutCompanions(folder.Path(), companions);
  Try(folder.Path(), WithChecksum(std::string(InputText(data, size))));
  return 0;
}
