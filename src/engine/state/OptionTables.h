// Switches of the Events Log and of the screens.
#pragma once

#include <cstdint>

namespace rollwick {

struct OptionTables {
  bool RecordEventsActive = false;  // the master switch
  bool RecordRolls = true;
  bool RecordBetChanges = true;
  bool RecordBetsWon = true;
  bool RecordBetsLost = true;
  bool RecordChipStackChanges = true;
  bool RecordPassesMisses = true;
  bool RecordShooterChanges = true;
  bool RecordBankrollChanges = true;
  bool LogClearOnNewGame = false;
  bool LogLatestRollOnTop = false;
  std::int32_t LogTopLine = 1;  // the line, from 1, at the top of the viewer

  bool TableDirty = false;  // the game differs from what is on disk
};

}  // namespace rollwick
