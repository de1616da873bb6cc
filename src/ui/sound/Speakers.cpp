// The speakers of the machine. They have a thread of their own, for finding them may take seconds and a roll
// never waits for a sound.
#include "ui/sound/SoundOutput.h"

#if __has_include(<QAudioSink>)

#include <unistd.h>

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QBuffer>
#include <QElapsedTimer>
#include <QMediaDevices>
#include <QObject>
#include <QThread>
#include <QTimer>
#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <utility>

#include "ui/sound/WaitingCalls.h"
#include "ui/sound/WavFile.h"

namespace rollwick {
namespace {

constexpr int kMostRequests = 8;             // that wait for the speakers' thread
constexpr int kSameSoundMilliseconds = 100;  // ten bets that win together are one sound
constexpr int kPauseMilliseconds = 150;      // between two calls
constexpr int kLatencyMilliseconds = 1500;   // until a device has played what it was given
constexpr int kGoodbyeMilliseconds = 2000;

QAudioFormat FormatOf(const WavSound& sound) {
  QAudioFormat format;
  format.setSampleRate(sound.rate);
  format.setChannelCount(sound.channels);
  format.setSampleFormat(QAudioFormat::Int16);
  return format;
}

// Deleting a sink serves the events of its thread, and one that still plays then feeds a stream it has
// closed, which ends the program. So it is stopped before, and deleted when nothing else is being done.
void Discard(QAudioSink* sink) {
  if (sink == nullptr) return;
  sink->stop();
  sink->deleteLater();
}

// One sound at a time.
class Channel : public QObject {
 public:
  explicit Channel(QObject* parent) : QObject(parent), ends_(this) {
    ends_.setSingleShot(true);
    ends_.callOnTimeout(this, [this] {
      LetFadeAway();
      if (Ended) Ended();
    });
  }

  std::function<void()> Ended;

  bool IsPlaying() const { return ends_.isActive(); }
  bool HasJustBegun(const std::filesystem::path& file) const {
    return IsPlaying() && file == file_ && !began_.hasExpired(kSameSoundMilliseconds);
  }

  // False when nothing is to be heard.
  bool Begin(const std::filesystem::path& file, int volume) {
    Stop();
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull()) return false;
    const std::optional<WavSound> sound = ReadWav(file);
    if (!sound || !device.isFormatSupported(FormatOf(*sound))) return false;
    sink_ = new QAudioSink(device, FormatOf(*sound), this);
    sink_->setVolume(QAudio::convertVolume(static_cast<float>(volume) / 100, QAudio::LogarithmicVolumeScale,
                                           QAudio::LinearVolumeScale));
    auto* source = new QBuffer(sink_);
    source->setData(reinterpret_cast<const char*>(sound->samples.data()),
                    static_cast<int>(sound->samples.size() * sizeof(std::int16_t)));
    source->open(QIODevice::ReadOnly);
    sink_->start(source);
    file_ = file;
    began_.start();
    ends_.start(sound->Milliseconds() + kPauseMilliseconds);
    return true;
  }

  void Stop() {
    ends_.stop();
    Discard(std::exchange(sink_, nullptr));
  }
  // With what still fades away.
  void StopAll() {
    Stop();
    for (QAudioSink* sink : findChildren<QAudioSink*>()) Discard(sink);
  }

 private:
  void LetFadeAway() {
    QAudioSink* const sink = std::exchange(sink_, nullptr);
    QTimer::singleShot(kLatencyMilliseconds, sink, [sink] { Discard(sink); });
  }

  QTimer ends_;  // by the clock: a device that stalls holds up nothing
  QElapsedTimer began_;
  std::filesystem::path file_;
  QAudioSink* sink_ = nullptr;  // while the sound lasts
};

// Lives in the speakers' thread.
class Desk : public QObject {
 public:
  Desk() {
    for (Channel*& channel : channels_) channel = new Channel(this);
    At(SoundChannel::Voice).Ended = [this] { SpeakNext(); };
  }

  void Play(SoundChannel channel, const std::filesystem::path& file, int volume) {
    volume_ = volume;
    if (channel == SoundChannel::Voice) {
      waiting_.Add(file);
      if (!At(channel).IsPlaying()) SpeakNext();
    } else if (!At(channel).HasJustBegun(file)) {
      At(channel).Begin(file, volume);
    }
  }

  void StopAll() {
    waiting_.Clear();
    for (Channel* channel : channels_) channel->StopAll();
  }

  std::atomic<int> Requests = 0;  // on their way
  std::atomic<bool> IsClosing = false;

 private:
  Channel& At(SoundChannel channel) { return *channels_[static_cast<std::size_t>(channel)]; }

  void SpeakNext() {
    while (!waiting_.IsEmpty() && !At(SoundChannel::Voice).Begin(waiting_.Take(), volume_)) {
    }
  }

  std::array<Channel*, kSoundChannels> channels_;
  WaitingCalls waiting_;
  int volume_ = 100;
};

class Speakers : public SoundOutput {
 public:
  Speakers() : thread_(new QThread), desk_(new Desk) { desk_->moveToThread(thread_); }

  ~Speakers() override {
    if (!thread_->isRunning()) {
      delete desk_;
      delete thread_;
      return;
    }
    desk_->IsClosing = true;
    QMetaObject::invokeMethod(
        desk_,
        [desk = desk_] {
          desk->StopAll();  // the sinks end with their thread, before the desk does
          QThread::currentThread()->quit();
        },
        Qt::QueuedConnection);
    if (thread_->wait(kGoodbyeMilliseconds)) {
      delete desk_;
      delete thread_;
    } else {
      // A sound server that does not answer keeps the thread. What the multimedia library does at the end of
      // the program would wait for it, too: it is left out.
      on_exit(
          [](int status, void*) {
            std::fflush(nullptr);
            _exit(status);
          },
          nullptr);
    }
  }

  void Play(SoundChannel channel, const std::filesystem::path& file, int volume) override {
    if (!thread_->isRunning()) thread_->start(QThread::LowPriority);
    if (desk_->Requests >= kMostRequests) return;
    ++desk_->Requests;
    QMetaObject::invokeMethod(
        desk_,
        [desk = desk_, channel, file, volume] {
          --desk->Requests;
          if (!desk->IsClosing) desk->Play(channel, file, volume);
        },
        Qt::QueuedConnection);
  }

  void StopAll() override {
    if (!thread_->isRunning()) return;
    QMetaObject::invokeMethod(
        desk_, [desk = desk_] { desk->StopAll(); }, Qt::QueuedConnection);
  }

 private:
  QThread* thread_;
  Desk* desk_;
};

}  // namespace

std::unique_ptr<SoundOutput> MakeSpeakers() {
  return std::make_unique<Speakers>();
}

}  // namespace rollwick

#else

namespace rollwick {
namespace {

class NoSpeakers : public SoundOutput {
 public:
  void Play(SoundChannel, const std::filesystem::path&, int) override {}
  void StopAll() override {}
};

}  // namespace

std::unique_ptr<SoundOutput> MakeSpeakers() {
  return std::make_unique<NoSpeakers>();
}

}  // namespace rollwick

#endif
