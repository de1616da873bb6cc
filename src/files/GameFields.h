// The map of a game file: which field of the game stands where, as what, and which values it may have.
// docs/game-file.md shows the same map as a page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <variant>

#include "base/Record.h"
#include "engine/state/Game.h"

namespace rollwick {

enum class FieldType {
  Amount,    // 8 bytes: a Money
  Whole,     // 8 bytes: a whole number as Money
  Flag8,     // 8 bytes: -1 or 0 as Money
  Dice,      // 8 bytes: a throw as Money, the first die ten times
  Long,      // 4 bytes
  FlagLong,  // 4 bytes: -1 or 0
  Single,    // 4 bytes, IEEE
  FlagSingle,
  Short,      // 2 bytes
  FlagShort,  // 2 bytes: -1 or 0
};

// A throw of the dice.
struct DicePlace {
  std::int32_t* die1;
  std::int32_t* die2;
};

// Where a value lives in memory. A number that is given itself is nowhere: it is written, and passed over.
using Place = std::variant<bool*, std::int32_t*, Money*, float*, double*, DicePlace, std::int64_t>;

// Values out of range read as the field's start-up default.
struct Range {
  enum Kind { Any, Between, AboveZero, BarNumber, PointNumber, TwoDice, OneIfAny };
  Kind kind = Any;
  std::int64_t low = 0;  // of Between; dollars for an Amount
  std::int64_t high = 0;
  std::optional<std::int64_t> otherwise = {};  // instead of the default
};

// One field, or one array: `count` values from index `first` on, which stand in slots of the type's width
// from `slot` on, `perRecord` of them in a record (0: as many as a record holds).
struct Field {
  int record;  // from 1
  int slot;
  FieldType type;
  const char* name;
  Place (*place)(GameTables& g, int i);
  Range range;
  const char* meaning;
  int first = 0;
  int count = 1;
  int perRecord = 0;
};

// Of the records 7 to 9, and of 10 to 541 without the block of further settings, by their place in the file.
std::span<const Field> ScreenFields();
std::span<const Field> GameFields();
// The further settings of record 60.
std::span<const Field> FurtherFields();

inline constexpr int kFurtherRecord = 60;
inline constexpr std::size_t kFurtherMagic = 16;  // bytes in the record
inline constexpr std::size_t kFurtherLineCount = 128;
inline constexpr std::size_t kFurtherFlagCount = 132;
inline constexpr std::size_t kFurtherFlags = 136;
inline constexpr std::size_t kFurtherChecksum = 252;
inline constexpr std::int32_t kMostKeptFlags = 232;
inline constexpr int kChipCountRecord = 14;
inline constexpr int kChipCountSlot = 6;
inline constexpr int kNamesRecord = 542;
inline constexpr int kNamesPerRecord = 3;
inline constexpr std::size_t kNameWidth = 80;
inline constexpr int kChipsRecord = 576;
inline constexpr std::size_t kChipWidth = 8;
inline constexpr std::size_t kMostChips = 65'536;
inline constexpr std::size_t kLineStateWidth = 4;
inline constexpr std::size_t kSignatureWidth = 92;
inline constexpr std::size_t kHeaderPath = 100;
inline constexpr std::size_t kPathWidth = 100;
inline constexpr std::size_t kHeaderDate = 208;
inline constexpr std::size_t kDateWidth = 40;

constexpr std::size_t RecordOffset(int record) {
  return static_cast<std::size_t>(record - 1) * kRecordSize;
}

std::size_t WidthOf(FieldType type);
bool IsSingle(FieldType type);
// Where entry k (from 0) of the field begins in the file.
std::size_t OffsetOf(const Field& field, int k);

// The value of entry k as the map's ranges mean it: units of an Amount, else a whole number, of a flag 0 or
// -1. Single fields that hold fractions lose them.
std::int64_t FieldValue(const Field& field, GameTables& g, int k);

// What stands in the file for entry k, whether or not it is in range; nothing for a Whole beyond 32 bits. Not
// for Single fields.
std::optional<std::int64_t> StoredValue(const Field& field, int k, RecordReader& reader);

// Writes entry k at its place.
void WriteField(const Field& field, int k, GameTables& g, RecordWriter& writer);

// Takes entry k from its place, or from `defaults` when what stands there is out of range. False when the
// value had to be mended.
bool ReadField(const Field& field, int k, RecordReader& reader, GameTables& g, GameTables& defaults);

// Gives every entry of the field the value it has in `from`.
void CopyField(const Field& field, GameTables& from, GameTables& to);

}  // namespace rollwick
