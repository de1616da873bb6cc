// What all fuzz targets stand on: a folder for the input's file, a table in a hurry, and demands that must
// hold.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "engine/state/Game.h"
#include "support/TemporaryFolder.h"

namespace rollwick {

// Ends the program with `what` when `holds` is false: the fuzzer keeps the input.
void Demand(bool holds, const char* what);

// Puts `bytes` in place of the file; the same inode, which costs least.
void PutFile(const std::filesystem::path& path, std::string_view bytes);
std::string FileBytes(const std::filesystem::path& path);

inline std::string_view InputText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Answers everything at once, and loses patience with scripts that go round for ever. Whatever file a script
// names, it gets "script-file" of the folder.
class HastyHost : public Host {
 public:
  explicit HastyHost(std::filesystem::path folder) : folder_(std::move(folder)) {}

  std::uint32_t Milliseconds(Game&) override { return clock_ += 12'347; }
  void PumpEvents(Game& g) override { g.KeepRolling = g.AutoBetRunning = false; }
  Answer Show(Game&, const Message& message) override;
  std::optional<std::string> Ask(Game&, const Prompt& prompt) override;
  SettleAnswer Settle(Game&, const SettleQuestion& question) override;
  FileGrant GrantFile(Game&, std::string_view, FileUse) override { return {folder_ / "script-file", {}}; }

 private:
  std::filesystem::path folder_;
  std::uint32_t clock_ = 1'000;
  int asked_ = 0;
};

// A newly opened house.
struct FuzzTable {
  std::unique_ptr<Game> game = std::make_unique<Game>();
  Game& g = *game;
  HastyHost host;

  explicit FuzzTable(const std::filesystem::path& folder);
  // A few bets and rolls by hand, then Hyper-Drive for `rolls`; the tables must agree behind each.
  void PlayOn(int rolls);
  // The flat tables' bytes: what a refused file may not change.
  std::string Bytes() const;
};

}  // namespace rollwick
