// A file of hot keys of any bytes: read without complaint, and what it holds is saved and read again the
// same.
#include <algorithm>

#include "FuzzTable.h"
#include "files/HotKeys.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rollwick;
  static const TemporaryFolder folder;
  const std::filesystem::path file = folder / kHotKeysFile, saved = folder / "saved.dta";
  PutFile(file, InputText(data, size));
  std::vector<HotKey> hotKeys, again;
  Demand(LoadHotKeys(file, hotKeys).empty(), "hot keys, or none, from any file");
  for (const HotKey& hotKey : hotKeys) {
    const HotKey* const found = FindHotKey(hotKeys, hotKey.key);
    Demand(found != nullptr && found <= &hotKey, "every hot key by its key, the first of two");
  }
  if (!std::ranges::all_of(hotKeys, [](const HotKey& hotKey) { return HotKeyFault(hotKey).empty(); }))
    return 0;
  Demand(SaveHotKeys(saved, hotKeys).empty(), "hot keys without a fault that can be saved");
  Demand(LoadHotKeys(saved, again).empty() && again == hotKeys, "the same hot keys after saving and loading");
  return 0;
}
