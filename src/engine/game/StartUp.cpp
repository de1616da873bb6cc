// The program comes up.
#include "dice/Draw.h"
#include "engine/game/NewGame.h"

namespace rollwick {

void StartUp(Game& g) {
  SetStartUpDefaults(g);
  // Every base source starts from the clock; RNG #1 is left in force.
  for (g.RngChoice = RngRan1; g.RngChoice > RngMersenne; --g.RngChoice) SeedGenerator(g, false);
  SeedGenerator(g, false);
}

}  // namespace rollwick
