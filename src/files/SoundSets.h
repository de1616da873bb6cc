// Which voices of the stick person and which sounds there are to choose from. They are found, not played.
#pragma once

#include <array>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace rollwick {

enum class SoundKind {
  Voice,  // "*.stk": a file for each call, the prefix of the voice and two digits
  Dice,   // "*.dce"
  Win,    // "*.win"
  Chips,  // "*.chp"
};

// The calls of a voice. 2 to 12 are the totals.
enum VoiceCall : int {
  CallComingOut = 1,
  CallComeOutPass = 13,
  CallPointMade = 14,
  CallSevenOut = 15,
  CallHardWay = 16,  // behind the total
  CallComeOutCraps = 17,
  CallBarPush = 18,
};
inline constexpr int kLastCall = 18;

struct SoundSet {
  std::string name;  // a voice's prefix, or the file's name without its suffix
  // Of a voice entries 1 to 18, its calls; of other sounds entry 0. Empty: there is none.
  std::array<std::filesystem::path, kLastCall + 1> files;
};

// What there is of this kind, in the order of the choices: the first folder's by name, then those of the
// next whose names are new, and so on. A folder that is not there has none.
std::vector<SoundSet> FindSoundSets(SoundKind kind, std::span<const std::filesystem::path> folders);

}  // namespace rollwick
