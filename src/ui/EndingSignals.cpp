#include "ui/EndingSignals.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <csignal>
#include <utility>

namespace rollwick {
namespace {

sigset_t EndingSignals() {
  sigset_t ending;
  sigemptyset(&ending);
  for (const int each : {SIGTERM, SIGHUP, SIGINT}) sigaddset(&ending, each);
  return ending;
}

void EndAs(int number) {
  std::signal(number, SIG_DFL);
  const sigset_t ending = EndingSignals();
  pthread_sigmask(SIG_UNBLOCK, &ending, nullptr);
  std::raise(number);
}

}  // namespace

void HoldEndingSignals() {
  const sigset_t ending = EndingSignals();
  pthread_sigmask(SIG_BLOCK, &ending, nullptr);
}

void EndBySignal(QObject& owner, std::function<void()> onEnd) {
  const sigset_t ending = EndingSignals();
  const int file = signalfd(-1, &ending, SFD_NONBLOCK | SFD_CLOEXEC);
  if (file < 0) {
    pthread_sigmask(SIG_UNBLOCK, &ending, nullptr);
    return;
  }
  auto* const bell = new QSocketNotifier(file, QSocketNotifier::Read, &owner);
  QObject::connect(bell, &QSocketNotifier::activated, &owner, [file, onEnd = std::move(onEnd)] {
    signalfd_siginfo came{};
    if (read(file, &came, sizeof came) != sizeof came) return;
    onEnd();
    EndAs(static_cast<int>(came.ssi_signo));
  });
  QObject::connect(&owner, &QObject::destroyed, [file] { close(file); });
}

}  // namespace rollwick
