// The speakers of this machine, which may have none, and the sounds that come with the program.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTest>
#include <algorithm>
#include <fstream>
#include <string>

#include "base/Record.h"
#include "files/SoundSets.h"
#include "support/TemporaryFolder.h"
#include "ui/sound/SharedFolders.h"
#include "ui/sound/SoundOutput.h"
#include "ui/sound/WaitingCalls.h"
#include "ui/sound/WavFile.h"

namespace rollwick {
namespace {

std::string Number(std::uint64_t value, std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}

struct WavFormat {
  std::uint64_t coding, channels, rate, bits;
};

std::string Wav(const WavFormat& format, const std::string& data, const std::string& before = "") {
  const std::string chunk = Number(format.coding, 2) + Number(format.channels, 2) + Number(format.rate, 4) +
                            Number(0, 6) + Number(format.bits, 2);
  return "RIFF" + Number(0, 4) + "WAVE" + before + "fmt " + Number(chunk.size(), 4) + chunk + "data" +
         Number(data.size(), 4) + data;
}

using Samples = std::vector<std::int16_t>;
using namespace std::string_literals;

TEST(ParseWav, ReadsPlainSamples) {
  struct Row {
    const char* name;
    std::string bytes;
    Samples samples;  // empty: no sound
  };
  const std::string two = "\x01\x02\xFF\xFF"s;
  const Row rows[] = {
      {"16 bits", Wav({1, 1, 22050, 16}, two), {513, -1}},
      {"stereo", Wav({1, 2, 44100, 16}, two), {513, -1}},
      {"half a pair at the end", Wav({1, 2, 44100, 16}, two + "\x01\x02"), {513, -1}},
      {"8 bits", Wav({1, 1, 8000, 8}, "\x00\x80\xFF"s), {-32768, 0, 32512}},
      {"24 bits", Wav({1, 1, 48000, 24}, "\x77\x01\x02"s), {513}},
      {"32 bits", Wav({1, 1, 48000, 32}, "\x77\x77\x01\x02"s), {513}},
      {"fractions, too loud ones too",
       Wav({3, 1, 48000, 32}, "\x00\x00\x80\xBF\x00\x00\x00\x40"s),
       {-32767, 32767}},
      {"a fraction that is no number", Wav({3, 1, 48000, 32}, "\x00\x00\xC0\x7F"s), {0}},
      {"an odd chunk before", Wav({1, 1, 22050, 16}, two, "LIST" + Number(3, 4) + "abc" + "\0"s), {513, -1}},
      {"an endless chunk before", Wav({1, 1, 22050, 16}, two, "LIST" + Number(0xFFFFFFFF, 4)), {}},
      {"three channels", Wav({1, 3, 22050, 16}, two + two), {}},
      {"no channel", Wav({1, 0, 22050, 16}, two), {}},
      {"no rate", Wav({1, 1, 0, 16}, two), {}},
      {"a rate below 0", Wav({1, 1, 0xFFFFFFFF, 16}, two), {}},
      {"12 bits", Wav({1, 1, 22050, 12}, two), {}},
      {"another coding", Wav({2, 1, 22050, 16}, two), {}},
      {"nothing in it", Wav({1, 1, 22050, 16}, ""), {}},
      {"an empty file", "", {}},
      {"no sound at all", "RIFFxxxxAVI fmt data", {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const auto sound = ParseWav(row.bytes);
    EXPECT_EQ(sound ? sound->samples : Samples{}, row.samples);
  }
}

TEST(ParseWav, ASoundCutAnywhereIsNoneOrShorter) {
  const std::string whole = Wav({1, 1, 1000, 16}, std::string(40, 'x'), "LIST" + Number(2, 4) + "ab");
  EXPECT_EQ(ParseWav(whole)->Milliseconds(), 20);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const auto sound = ParseWav(std::string_view(whole).substr(0, length));
    EXPECT_EQ(sound ? sound->samples.size() : 0,
              length > whole.size() - 40 ? (length - (whole.size() - 40)) / 2 : 0);
  }
  for (std::size_t place = 0; place < whole.size(); ++place) {
    std::string changed = whole;
    changed[place] = static_cast<char>(0xFF);
    const auto sound = ParseWav(changed);
    EXPECT_LE(sound ? sound->samples.size() : 0, 40U);
  }
}

TEST(WaitingCalls, TheOldestIsLeftOutWhenAFourthComes) {
  WaitingCalls calls;
  for (const char* call : {"six", "hard", "winner", "coming out"}) calls.Add(call);
  std::vector<std::string> spoken;
  while (!calls.IsEmpty()) spoken.push_back(calls.Take().string());
  EXPECT_EQ(spoken, (std::vector<std::string>{"hard", "winner", "coming out"}));
}

TEST(Speakers, WhatCannotBePlayedIsSilence) {
  const TemporaryFolder folder;
  std::ofstream(folder / "good.wav", std::ios::binary) << Wav({1, 1, 22050, 16}, std::string(4000, '\0'));
  std::ofstream(folder / "broken.wav") << "RIFF";
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const auto speakers = MakeSpeakers();
  // Far faster than they can be played; they are given time between, so that some are.
  for (int round = 0; round < 20; ++round) {
    for (const char* name : {"good.wav", "broken.wav", "pipe", "missing.wav", "."})
      for (int channel = 0; channel < kSoundChannels; ++channel)
        speakers->Play(static_cast<SoundChannel>(channel), folder / name, round * 5);
    QTest::qWait(1);
  }
  speakers->StopAll();
}

TEST(Speakers, NeedNotHavePlayedAnything) {
  const auto speakers = MakeSpeakers();
  speakers->StopAll();
}

// Sounds end each other as fast as they can, on a sound server of our own that nobody hears; the last ones
// still play at the end. Gives the words of what went wrong.
std::string PlayOnAServer() {
  const TemporaryFolder folder;
  for (const char* name : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"}) qputenv(name, folder.Path().c_str());
  const auto socket = folder / "socket";
  qputenv("PULSE_SERVER", "unix:" + QByteArray(socket.c_str()));
  QProcess server;
  server.start(
      "pulseaudio",
      {"-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "--load=module-null-sink",
       QString("--load=module-native-protocol-unix socket=") + socket.c_str() + " auth-anonymous=1"});
  if (!QTest::qWaitFor([&] { return std::filesystem::exists(socket); }, 10'000)) return "no server";
  auto speakers = MakeSpeakers();
  const auto sounds = SoundFolders("/nowhere").back();
  const std::filesystem::path files[] = {sounds / "Bells.win", sounds / "Fanfare.win"};
  for (int round = 0; round < 200; ++round) {
    for (const SoundChannel channel : {SoundChannel::Win, SoundChannel::Chips, SoundChannel::Dice})
      speakers->Play(channel, files[round % 2], 100);
    if (round % 50 == 49) speakers->StopAll();
    QTest::qWait(5);
  }
  speakers.reset();
  server.kill();
  server.waitForFinished();
  return {};
}

TEST(Speakers, SoundsThatEndEachOtherOnADevice) {
  if (QStandardPaths::findExecutable("pulseaudio").isEmpty()) GTEST_SKIP() << "no pulseaudio on this machine";
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // which server there is a program finds out once
  EXPECT_EXIT(
      {
        const std::string failure = PlayOnAServer();
        std::fputs(failure.c_str(), stderr);
        std::exit(failure.empty() ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(SharedFolders, AProgramFindsWhatWasInstalledWithIt) {
  const TemporaryFolder folder;
  EXPECT_EQ(ShareFolder(folder / "bin"), "");
  std::filesystem::create_directories(folder / "share/rollwick");
  EXPECT_EQ(ShareFolder(folder / "bin"), folder / "share/rollwick");
  EXPECT_TRUE(std::filesystem::exists(HelpFolder() / "console.md"));
}

TEST(SharedFolders, TheSoundsThatComeWithTheProgramAreWhole) {
  const auto folders = SoundFolders("/nowhere");
  EXPECT_EQ(folders.front(), "/nowhere/sounds");
  struct Row {
    SoundKind kind;
    std::size_t sets;
    int first, last;
  };
  const Row rows[] = {{SoundKind::Voice, 2, CallComingOut, kLastCall},
                      {SoundKind::Dice, 2, 0, 0},
                      {SoundKind::Chips, 2, 0, 0},
                      {SoundKind::Win, 2, 0, 0}};
  std::size_t bytes = 0;
  std::vector<std::filesystem::path> files = {folders.back() / "Chips.wav"};
  for (const Row& row : rows) {
    const auto sets = FindSoundSets(row.kind, folders);
    EXPECT_GE(sets.size(), row.sets);
    for (const SoundSet& set : sets)
      for (int entry = row.first; entry <= row.last; ++entry)
        files.push_back(set.files[static_cast<std::size_t>(entry)]);
  }
  for (const auto& file : files) {
    SCOPED_TRACE(file);
    const auto sound = ReadWav(file);
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->rate, 22050);
    EXPECT_EQ(sound->channels, 1);
    EXPECT_GT(sound->Milliseconds(), 100);
    EXPECT_LT(sound->Milliseconds(), 3000);
    const auto [low, high] = std::ranges::minmax(sound->samples);
    EXPECT_GT(std::max(high, static_cast<std::int16_t>(-1 - low)), 14000) << "too quiet";
    EXPECT_TRUE(low > -32000 && high < 32000) << "clipped";
    bytes += std::filesystem::file_size(file);
  }
  EXPECT_LT(bytes, 3'000'000U);
}

}  // namespace
}  // namespace rollwick
