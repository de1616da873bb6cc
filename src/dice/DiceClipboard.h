// Editing the open Dice Roll File as a list of rolls, and the clipboard of that list, which is a Dice Roll
// File too: "copyfile.rll" in the data folder. docs/dice-roll-file.md has the format.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "engine/state/Game.h"

namespace rollwick {

std::filesystem::path DiceClipboard(const std::filesystem::path& dataFolder);

// Rolls of the open file by their numbers, from 1. Those beyond its end are left out.
struct DiceRange {
  std::int32_t first = 1;
  std::int32_t count = 0;
};

// All of these give nothing on success, else the message that says why not; all files are then as they were.

// Makes the rolls the whole of the file `into`: the clipboard, or a Dice Roll File of its own.
std::optional<Message> CopyDiceRolls(Game& g, DiceRange rolls, const std::filesystem::path& into);

// Takes the rolls out; those behind move up. The next roll stays the roll it was, or becomes the one that has
// moved to the place of those that went.
std::optional<Message> DeleteDiceRolls(Game& g, DiceRange rolls);

// Puts all rolls of the file `from` in at DiceFileRecord, over the rolls that stand there or with
// DiceInsertRolls before them. The next roll is then the one behind them. What is no Dice Roll File is
// refused.
std::optional<Message> PasteDiceRolls(Game& g, const std::filesystem::path& from);

// The same with one roll, as it is keyed in.
std::optional<Message> KeyInDiceRoll(Game& g, std::int32_t die1, std::int32_t die2);

// Empty on success, also when there is none.
std::string DeleteDiceClipboard(const std::filesystem::path& dataFolder);

}  // namespace rollwick
