// Parts of a game file that both its writer and its reader know.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "engine/state/Host.h"
#include "files/GameFields.h"

namespace rollwick {

inline constexpr std::string_view kGameSignature = "Rollwick Game File, Data Format 5.1";
inline constexpr std::string_view kGameFormat = "Data Format 5.1";
inline constexpr std::string_view kFurtherSettings = "RWKXTRA1";

// The headers, which begin the records 1 to 6.
enum HeaderRecord : int {
  HeaderScript = 1,
  HeaderDiceFile,
  HeaderMatrix,
  HeaderOutput,
  HeaderGamesLog,
  HeaderEventsLog,
};

// CRC-32 (IEEE 802.3).
std::uint32_t Checksum(std::string_view bytes);

// Reads the file whole. Nothing on success, else why it is no game file or cannot be read.
std::optional<Message> ReadGameFile(const std::filesystem::path& file, std::string& bytes);

// Whether the block of further settings is there and as it was written.
bool HasFurtherSettings(std::string_view bytes);

// Where the name of Chip-Stack i stands.
constexpr std::size_t NameOffset(int i) {
  return RecordOffset(kNamesRecord + i / kNamesPerRecord) +
         static_cast<std::size_t>(i % kNamesPerRecord) * kNameWidth;
}

inline std::filesystem::path DefaultEventsLog(const std::filesystem::path& dataFolder) {
  return dataFolder / "Events Log.txt";
}
inline std::filesystem::path DefaultGamesLog(const std::filesystem::path& dataFolder) {
  return dataFolder / "default.glg";
}

}  // namespace rollwick
