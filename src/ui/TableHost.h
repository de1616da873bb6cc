// The world outside as the window is it: dialogs, the event loop, sounds, dice that fly.
#pragma once

#include <QElapsedTimer>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <utility>

#include "engine/state/Game.h"
#include "session/TableHand.h"
#include "ui/DiceShow.h"
#include "ui/TableStatus.h"
#include "ui/screens/frmMsg.h"
#include "ui/sound/SoundPlayer.h"

namespace rollwick {

// What the host shows things on. All of it is there before the first dice roll.
struct TableParts {
  QWidget* window = nullptr;
  picLayout* layout = nullptr;
  TableHand* hand = nullptr;
  DiceShow* dice = nullptr;
  TableStatus* status = nullptr;
  SoundPlayer* sound = nullptr;
};

class TableHost : public Host {
 public:
  explicit TableHost(std::filesystem::path dataFolder) : dataFolder_(std::move(dataFolder)) {}

  void Attach(const TableParts& parts) { parts_ = parts; }
  // The game changed: what the window itself shows of it.
  std::function<void()> TableHasChanged = [] {};
  // Opens a page of the help, for the dialogs.
  HelpOpener ShowHelp;

  std::uint32_t Milliseconds(Game& g) override;
  void PumpEvents(Game& g) override;
  bool EventsAreDue() override { return !served_.isValid() || served_.hasExpired(10); }
  void Wait(Game& g, std::uint32_t milliseconds) override;
  Answer Show(Game& g, const Message& message) override;
  std::optional<std::string> Ask(Game& g, const Prompt& prompt) override;
  SettleAnswer Settle(Game& g, const SettleQuestion& question) override;
  bool IsMinimized() const override;
  bool CommitTypedBet(Game& g) override;
  FileGrant GrantFile(Game& g, std::string_view name, FileUse use) override;
  std::string SaveWorkingGame(Game& g) override;
  void Play(Game& g, Sound sound) override;
  void AnimateDice(Game& g) override;
  void ReturnDice(Game& g) override;
  void ChipsChanged(Game& g, BetId bet) override;
  void TableChanged(Game& g) override;
  void PlayFile(Game& g, const std::filesystem::path& file) override;
  void ShowStatus(Game& g, std::string_view text) override;
  void WaitForEyes(Game& g, std::uint32_t since, std::uint32_t milliseconds) override;

 private:
  // Whoever shows something now: a dialog that is open, or the window.
  QWidget* Owner() const;
  // Before a dialog opens: the table behind it is as the game is.
  void ShowTable(const Game& g);
  MessageExtras Extras() const;
  void ServeFor(std::uint32_t milliseconds, const bool& goesOn);
  void ShowChipsFall(const Game& g);

  std::filesystem::path dataFolder_;
  TableParts parts_;
  QElapsedTimer served_;
  QElapsedTimer told_;  // of Hyper-Drive, when the status bar was last brought up to date
  std::set<std::pair<std::string, FileUse>> granted_;  // files outside that the player allowed
};

}  // namespace rollwick
