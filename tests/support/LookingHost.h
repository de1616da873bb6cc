// A world that looks in whenever a run lets it.
#pragma once

#include <functional>

#include "support/ScriptedHost.h"

namespace rollwick {

class LookingHost : public ScriptedHost {
 public:
  std::function<void(Game&)> look;
  void PumpEvents(Game& g) override {
    if (look) look(g);
  }
};

}  // namespace rollwick
