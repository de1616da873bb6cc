// Which sounds the table makes, heard by an output that writes down what it is given.
#include "ui/sound/SoundPlayer.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <optional>
#include <string>

#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

struct Listener : SoundOutput {
  explicit Listener(std::vector<std::string>& out) : heard(out) {}
  void Play(SoundChannel channel, const std::filesystem::path& file, int volume) override {
    constexpr std::array kNames = {"voice", "dice", "chips", "win", "script"};
    heard.push_back(std::string(kNames[static_cast<std::size_t>(channel)]) + " " + file.filename().string() +
                    " " + std::to_string(volume));
  }
  void StopAll() override { heard.push_back("stop"); }

  std::vector<std::string>& heard;
};

using Heard = std::vector<std::string>;

class SoundPlayerTest : public testing::Test {
 protected:
  SoundPlayerTest() {
    for (const char* name : {"Ann06.stk", "Ann16.stk", "Ann13.stk", "Bob06.stk", "Felt.dce", "Clay.chp",
                             "Metal.chp", "Bells.win", "Chips.wav"})
      std::ofstream(folder_ / name) << "sound";
    player_.emplace(std::vector{folder_.Path(), folder_ / "missing"}, std::make_unique<Listener>(heard_));
    g_.StickPerson = g_.DiceSound = g_.ChipSound = g_.WinSound = 0;
    g_.Die1 = g_.Die2 = 3;
    g_.DiceTotal = 6;
  }

  TemporaryFolder folder_;
  Heard heard_;
  std::optional<SoundPlayer> player_;
  Game g_;
};

TEST(CallsFor, AreWhatAStickPersonSays) {
  struct Row {
    const char* name;
    Sound sound;
    int die1, die2, pointBeforeRoll;
    std::vector<int> calls;
  };
  const Row rows[] = {
      {"aces are no hard way", Sound::NumberCall, 1, 1, 0, {2}},
      {"hard four", Sound::NumberCall, 2, 2, 0, {4, 16}},
      {"easy four", Sound::NumberCall, 1, 3, 0, {4}},
      {"hard ten", Sound::NumberCall, 5, 5, 6, {10, 16}},
      {"eleven", Sound::NumberCall, 5, 6, 0, {11}},
      {"boxcars are no hard way", Sound::NumberCall, 6, 6, 0, {12}},
      {"coming out", Sound::ComingOut, 4, 3, 6, {1}},
      {"natural", Sound::Pass, 4, 3, 0, {13}},
      {"point made", Sound::Pass, 4, 2, 6, {14}},
      {"seven-out", Sound::Miss, 4, 3, 6, {15}},
      {"craps", Sound::Miss, 1, 2, 0, {17}},
      {"barred twelve", Sound::BarPush, 6, 6, 0, {18}},
      {"chips say nothing", Sound::Chips, 3, 3, 0, {}},
      {"a win is no call", Sound::Win, 3, 3, 0, {}},
      {"nor is the broken bank", Sound::BrokeTheBank, 3, 3, 0, {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Game g;
    g.Die1 = row.die1;
    g.Die2 = row.die2;
    g.DiceTotal = row.die1 + row.die2;
    g.PointBeforeRoll = row.pointBeforeRoll;
    EXPECT_EQ(CallsFor(g, row.sound), row.calls);
  }
}

TEST_F(SoundPlayerTest, SoundsGoByTheGamesChoices) {
  struct Row {
    const char* name;
    std::function<void(Game&)> choose;
    Heard heard;
  };
  const Row rows[] = {
      {"the first of each",
       [](Game&) {},
       {"voice Ann06.stk 100", "voice Ann16.stk 100", "chips Clay.chp 100", "win Bells.win 100",
        "chips Chips.wav 100", "dice Felt.dce 100", "script own.wav 100"}},
      {"none chosen",
       [](Game& g) { g.StickPerson = g.DiceSound = g.ChipSound = g.WinSound = -1; },
       {"chips Chips.wav 100", "script own.wav 100"}},
      {"chosen when there were more",
       [](Game& g) { g.StickPerson = g.DiceSound = g.ChipSound = g.WinSound = 999; },
       {"chips Chips.wav 100", "script own.wav 100"}},
      {"others, one without the call",
       [](Game& g) {
         g.StickPerson = g.ChipSound = 1;
         g.DiceSound = g.WinSound = -1;
         g.Volume = 0;
       },
       {"voice Bob06.stk 0", "chips Metal.chp 0", "chips Chips.wav 0", "script own.wav 0"}},
      {"all off", [](Game& g) { g.DisableAllSound = true; }, {}},
      {"in Hyper-Drive", [](Game& g) { g.HyperDriveActive = true; }, {}},
      {"a script's are off and it runs",
       [](Game& g) { g.DisableAutoBetSounds = g.AutoBetRunning = true; },
       {}},
      {"a script's are off, the player acts",
       [](Game& g) {
         g.DisableAutoBetSounds = true;
         g.StickPerson = g.DiceSound = g.WinSound = -1;
       },
       {"chips Clay.chp 100", "chips Chips.wav 100", "script own.wav 100"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Game g;
    static_cast<GameTables&>(g) = g_;
    row.choose(g);
    heard_.clear();
    player_.emplace(std::vector{folder_.Path()}, std::make_unique<Listener>(heard_));
    for (const Sound sound : {Sound::NumberCall, Sound::Chips, Sound::Win, Sound::BrokeTheBank})
      player_->Play(g, sound);
    player_->PlayDice(g);
    player_->PlayFile(g, "/somewhere/own.wav");
    EXPECT_EQ(heard_, row.heard);
  }
}

TEST_F(SoundPlayerTest, AVolumeThatIsNotSetLeavesTheLastOne) {
  for (const int volume : {40, -1, 100, -1}) {
    g_.Volume = volume;
    player_->Play(g_, Sound::Win);
  }
  EXPECT_EQ(heard_,
            (Heard{"win Bells.win 40", "win Bells.win 40", "win Bells.win 100", "win Bells.win 100"}));
}

TEST_F(SoundPlayerTest, TestButtonsAreHeardWhateverTheSwitchesSay) {
  g_.DisableAllSound = true;
  player_->Test(g_, SoundKind::Voice, 0);
  player_->Test(g_, SoundKind::Chips, 1);
  player_->Test(g_, SoundKind::Dice, -1);
  player_->Test(g_, SoundKind::Win, 1);
  EXPECT_EQ(heard_, (Heard{"stop", "voice Ann06.stk 100", "stop", "chips Metal.chp 100", "stop", "stop"}));
}

TEST_F(SoundPlayerTest, WithoutAnySoundsThereIsSilence) {
  player_.emplace(std::vector{folder_ / "missing"}, std::make_unique<Listener>(heard_));
  player_->Play(g_, Sound::NumberCall);
  player_->Play(g_, Sound::BrokeTheBank);
  player_->PlayDice(g_);
  EXPECT_EQ(heard_, Heard{});
}

}  // namespace
}  // namespace rollwick
