// Accidents in the middle of a save: the n-th step that writes, renames or closes anything fails, is cut
// short, or is the last one before the process is killed. The linker leads these steps of the house here
// (--wrap).
#pragma once

#include <vector>

namespace rollwick {

enum class Accident {
  None,
  Fails,       // the step does nothing and reports the error; a close closes all the same
  CutShort,    // a write takes half of its bytes; the next one goes on
  FullBehind,  // a write takes half of its bytes, every later one is refused
  Killed,      // before the step
  KilledHalf,  // when a write has taken half of its bytes
};

struct PlannedAccident {
  Accident kind = Accident::None;
  int step = 0;   // from 1; 0: at none
  int error = 0;  // an errno
};

// From here on steps are counted, and the accident happens.
void PlanAccident(const PlannedAccident& planned);
// Nothing happens any more.
struct AccidentReport {
  bool isReached = false;
  bool isWrite = false;
  bool concernsContent = false;  // no close and no removal: whoever saves must look at its result
};
AccidentReport EndAccident();

}  // namespace rollwick
