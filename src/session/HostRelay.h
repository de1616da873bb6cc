// A Host that hands everything on to another one: for whoever wants to hear one kind of call.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// Stands in front of the game's host as long as it lives.
class HostRelay : public Host {
 public:
  explicit HostRelay(Game& g) : g_(g), behind_(g.TheHost) { g.TheHost = this; }
  ~HostRelay() override { g_.TheHost = behind_; }
  HostRelay(const HostRelay&) = delete;
  HostRelay& operator=(const HostRelay&) = delete;

  std::uint32_t Milliseconds(Game& g) override { return behind_->Milliseconds(g); }
  void PumpEvents(Game& g) override { behind_->PumpEvents(g); }
  bool EventsAreDue() override { return behind_->EventsAreDue(); }
  void Wait(Game& g, std::uint32_t milliseconds) override { behind_->Wait(g, milliseconds); }
  Answer Show(Game& g, const Message& message) override { return behind_->Show(g, message); }
  std::optional<std::string> Ask(Game& g, const Prompt& prompt) override { return behind_->Ask(g, prompt); }
  SettleAnswer Settle(Game& g, const SettleQuestion& question) override {
    return behind_->Settle(g, question);
  }
  bool IsMinimized() const override { return behind_->IsMinimized(); }
  bool CommitTypedBet(Game& g) override { return behind_->CommitTypedBet(g); }
  FileGrant GrantFile(Game& g, std::string_view name, FileUse use) override {
    return behind_->GrantFile(g, name, use);
  }
  std::string SaveWorkingGame(Game& g) override { return behind_->SaveWorkingGame(g); }
  void Play(Game& g, Sound sound) override { behind_->Play(g, sound); }
  void AnimateDice(Game& g) override { behind_->AnimateDice(g); }
  void ReturnDice(Game& g) override { behind_->ReturnDice(g); }
  void ChipsChanged(Game& g, BetId bet) override { behind_->ChipsChanged(g, bet); }
  void TableChanged(Game& g) override { behind_->TableChanged(g); }
  void PlayFile(Game& g, const std::filesystem::path& file) override { behind_->PlayFile(g, file); }
  void ShowStatus(Game& g, std::string_view text) override { behind_->ShowStatus(g, text); }
  void ShowStep(Game& g, const StepTrace& trace) override { behind_->ShowStep(g, trace); }
  void WaitForEyes(Game& g, std::uint32_t since, std::uint32_t milliseconds) override {
    behind_->WaitForEyes(g, since, milliseconds);
  }

 private:
  Game& g_;
  Host* behind_;
};

}  // namespace rollwick
