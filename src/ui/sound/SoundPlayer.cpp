#include "ui/sound/SoundPlayer.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace rollwick {
namespace {

constexpr std::array kKinds = {SoundKind::Voice, SoundKind::Dice, SoundKind::Win, SoundKind::Chips};

SoundChannel ChannelOf(SoundKind kind) {
  switch (kind) {
    case SoundKind::Voice:
      return SoundChannel::Voice;
    case SoundKind::Dice:
      return SoundChannel::Dice;
    case SoundKind::Win:
      return SoundChannel::Win;
    case SoundKind::Chips:
      return SoundChannel::Chips;
  }
  return SoundChannel::Script;
}

bool MayBeHeard(const Game& g) {
  return !g.HyperDriveActive && !g.DisableAllSound && !(g.AutoBetRunning && g.DisableAutoBetSounds);
}

std::filesystem::path FirstFile(const std::vector<std::filesystem::path>& folders, const char* name) {
  std::error_code unknown;
  for (const std::filesystem::path& folder : folders)
    if (std::filesystem::is_regular_file(folder / name, unknown)) return folder / name;
  return {};
}

std::vector<int> NumberCalls(const Game& g) {
  const bool isHard = g.Die1 == g.Die2 && g.DiceTotal != 2 && g.DiceTotal != 12;
  return isHard ? std::vector<int>{g.DiceTotal, CallHardWay} : std::vector<int>{g.DiceTotal};
}

}  // namespace

std::vector<int> CallsFor(const Game& g, Sound sound) {
  switch (sound) {
    case Sound::NumberCall:
      return NumberCalls(g);
    case Sound::ComingOut:
      return {CallComingOut};
    case Sound::Pass:
      return {g.PointBeforeRoll == 0 ? CallComeOutPass : CallPointMade};
    case Sound::Miss:
      return {g.PointBeforeRoll == 0 ? CallComeOutCraps : CallSevenOut};
    case Sound::BarPush:
      return {CallBarPush};
    case Sound::Chips:
    case Sound::Win:
    case Sound::BrokeTheBank:
      return {};
  }
  return {};
}

SoundPlayer::SoundPlayer(const std::vector<std::filesystem::path>& folders,
                         std::unique_ptr<SoundOutput> output)
    : output_(std::move(output)), chipsShower_(FirstFile(folders, "Chips.wav")) {
  for (const SoundKind kind : kKinds) sets_[static_cast<std::size_t>(kind)] = FindSoundSets(kind, folders);
}

void SoundPlayer::Play(const Game& g, Sound sound) {
  if (!MayBeHeard(g)) return;
  if (sound == Sound::Chips) PlayFrom(g, SoundKind::Chips, g.ChipSound, 0);
  if (sound == Sound::Win) PlayFrom(g, SoundKind::Win, g.WinSound, 0);
  if (sound == Sound::BrokeTheBank) Send(g, SoundChannel::Chips, chipsShower_);
  for (const int call : CallsFor(g, sound)) PlayFrom(g, SoundKind::Voice, g.StickPerson, call);
}

void SoundPlayer::PlayDice(const Game& g) {
  if (MayBeHeard(g)) PlayFrom(g, SoundKind::Dice, g.DiceSound, 0);
}

void SoundPlayer::PlayFile(const Game& g, const std::filesystem::path& file) {
  if (MayBeHeard(g)) Send(g, SoundChannel::Script, file);
}

void SoundPlayer::Test(const Game& g, SoundKind kind, int index) {
  StopAll();
  for (int entry = 0; entry <= kLastCall; ++entry) {
    if (index < 0 || std::cmp_greater_equal(index, Sets(kind).size())) return;
    if (!Sets(kind)[static_cast<std::size_t>(index)].files[static_cast<std::size_t>(entry)].empty())
      return PlayFrom(g, kind, index, entry);
  }
}

void SoundPlayer::StopAll() {
  output_->StopAll();
}

void SoundPlayer::PlayFrom(const Game& g, SoundKind kind, int index, int entry) {
  if (index < 0 || std::cmp_greater_equal(index, Sets(kind).size())) return;
  if (entry < 0 || entry > kLastCall) return;
  Send(g, ChannelOf(kind),
       Sets(kind)[static_cast<std::size_t>(index)].files[static_cast<std::size_t>(entry)]);
}

void SoundPlayer::Send(const Game& g, SoundChannel channel, const std::filesystem::path& file) {
  if (g.Volume >= 0) volume_ = std::min(g.Volume, 100);
  if (!file.empty()) output_->Play(channel, file, volume_);
}

}  // namespace rollwick
