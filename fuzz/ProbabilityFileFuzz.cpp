// A probability file of any bytes: refused without a trace, or taken, written the same, and dice fall by it.
#include "FuzzTable.h"
#include "dice/Draw.h"
#include "dice/Matrix.h"
#include "dice/ProbabilityFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rollwick;
  static const TemporaryFolder folder;
  PutFile(folder / "input.prb", InputText(data, size));
  FuzzTable table(folder.Path());
  Game& g = table.g;
  const std::string before = table.Bytes();
  if (LoadProbabilityFile(g, folder / "input.prb")) {
    Demand(table.Bytes() == before && g.ProbabilityName.empty(), "a refused matrix that changes nothing");
    return 0;
  }
  const MatrixTable matrix = g.ProbabilityMatrix;
  Demand(SaveProbabilityFile(g, folder / "saved.prb").empty(), "a loaded matrix that can be saved");
  Demand(!LoadProbabilityFile(g, folder / "saved.prb"), "a saved matrix that can be loaded");
  Demand(g.ProbabilityMatrix == matrix, "the same matrix after saving and loading");
  g.UseProbabilityMatrix = true;
  table.PlayOn(2);  // of weights that are next to nothing each roll takes many draws
  return 0;
}
