// A Dice Roll File of any bytes: refused while the one before stays open, or played to its end and recorded
// over.
#include "FuzzTable.h"
#include "dice/DiceFile.h"

namespace rollwick {
namespace {

bool IsFace(std::int32_t die) {
  return die >= 1 && die <= 6;
}

void PlayBack(Game& g) {
  g.DiceFileMode = DiceFilePlayback;
  while (g.DiceFileMode == DiceFilePlayback && PlayBackDiceRoll(g)) {
    Demand(IsFace(g.Die1) && IsFace(g.Die2), "faces of dice from a file");
  }
  Demand(g.DiceFileRecord <= g.DiceFile.Length() + 1, "an end of playback at the end of the file");
}

void RecordOver(Game& g, std::int32_t place, std::int64_t length) {
  g.DiceFileMode = DiceFileRecording;
  g.DiceFileRecord = place;
  for (int roll = 0; roll < 5; ++roll) {
    g.Die1 = 1 + roll;
    g.Die2 = 6;
    RecordDiceRoll(g);
    g.DiceFileRecord = g.DiceLastRecord;
    Demand(PlayBackDiceRoll(g) && g.Die1 == 1 + roll && g.Die2 == 6, "the roll just recorded");
  }
  FlushDiceFile(g);
  Demand(g.DiceFile.Length() >= length && g.DiceFile.Length() <= length + 5,
         "a file that grows by what is recorded");
}

}  // namespace
}  // namespace rollwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rollwick;
  static const TemporaryFolder folder;
  PutFile(folder / "before.rol", {});
  PutFile(folder / "input.rol", InputText(data, size));
  FuzzTable table(folder.Path());
  Game& g = table.g;
  Demand(!OpenDiceFile(g, folder / "before.rol", false), "an empty Dice Roll File that opens");
  if (OpenDiceFile(g, folder / "input.rol", false)) {
    Demand(g.DiceFileName == (folder / "before.rol").string(), "the file open before, still open");
    Demand(FileBytes(folder / "input.rol") == InputText(data, size), "a refused file that nobody writes to");
    return 0;
  }
  PlayBack(g);
  RecordOver(g, static_cast<std::int32_t>(size / 2), static_cast<std::int64_t>(size));
  g.DiceFileRecord = 1;
  g.DiceFileMode = DiceFilePlayback;
  table.PlayOn(20);
  return 0;
}
