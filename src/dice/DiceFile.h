// Dice Roll Files (*.rol): one byte a roll, the first die in bits 2 to 4, the second in bits 5 to 7. The game
// has one open at most (DiceFile, DiceFileName); DiceFileMode says whether rolls go in or come out.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "engine/state/Game.h"

namespace rollwick {

constexpr unsigned char DiceByte(std::int32_t die1, std::int32_t die2) {
  return static_cast<unsigned char>(die1 * 4 + die2 * 32);
}
struct DiceFaces {
  std::int32_t die1 = 0, die2 = 0;
};
// Faces 0..7. Bits 0 and 1 do not count.
constexpr DiceFaces FacesOfByte(unsigned char byte) {
  return {byte >> 2 & 7, byte >> 5};
}

inline constexpr std::string_view kDiceFileEnded = "Stopped due to end of Dice Roll File reached.";

// The record behind the last one that a file can have: no roll is read or written there.
inline constexpr std::int32_t kDiceRecordLimit = 2'147'483'647;

// Opens a Dice Roll File in place of the one that is open; a name that is not there is created empty if
// `create`. DiceFileName becomes the path as given, the mode off, the next record 1, the last one 0: to
// record or to play back the caller then sets DiceFileMode, and DiceFileRecord to begin elsewhere (Length() +
// 1 to record behind what is there). Nothing on success, else the message that refuses it; the file open
// before is then still open and its mode as it was.
std::optional<Message> OpenDiceFile(Game& g, const std::filesystem::path& path, bool create);

// Closes the file if one is open: no name, mode off, next record 1, last one 0.
void CloseDiceFile(Game& g);

// Writes Die1 and Die2 at DiceFileRecord, over the roll that may stand there, and advances; a record beyond
// the end is cut to the one behind the last, so that no hole comes into the file. A disk that refuses turns
// the mode off and says so, as FlushDiceFile does.
void RecordDiceRoll(Game& g);

// Takes Die1 and Die2 from DiceFileRecord and advances. False when the roll is abandoned, the dice and the
// place as they were: KeepRolling is cleared and StopMessage says why. At the end of the file
// (kDiceFileEnded) the mode stays; a roll that no dice can show, and a disk that refuses, turn it off, with a
// notice outside Hyper-Drive.
bool PlayBackDiceRoll(Game& g);

// Hands recorded rolls to the system, so that a kill loses none of them. A disk that refuses them turns the
// mode off and says so (in Hyper-Drive the run stops, with StopMessage); the next record is then the one
// behind what the file holds.
void FlushDiceFile(Game& g);

// After a stop of `stoppedMode` (recording or playback): asks whether to rewind. Yes plays the file back from
// record 1, No turns the mode off, Cancel leaves it as it is. Whoever stops the file by hand turns the mode
// off first.
void RewindDicePrompt(Game& g, std::int32_t stoppedMode);

}  // namespace rollwick
