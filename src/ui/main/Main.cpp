// The program `rollwick-table`.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QMessageBox>
#include <csignal>
#include <cstdio>

#include "ui/CommandLine.h"
#include "ui/EndingSignals.h"
#include "ui/SpotAccessibility.h"
#include "ui/sound/SharedFolders.h"

namespace {

bool HasDisplay() {
  return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// Two tables would write over each other's working game. False while another one that lives has the folder;
// a folder that cannot be written tells so when something is saved.
bool TakeFolder(QLockFile& lock) {
  lock.setStaleLockTime(0);
  return lock.tryLock() || lock.error() != QLockFile::LockFailedError;
}

int Refuse(const QString& why) {
  std::fputs(qPrintable(why + "\n"), stderr);
  QMessageBox::warning(nullptr, "Rollwick", why);
  return 1;
}

}  // namespace

int main(int count, char** arguments) {
  const rollwick::TableCommand command =
      rollwick::ReadTableCommand({arguments + (count > 0 ? 1 : 0), arguments + count});
  std::fputs(command.output.c_str(), stdout);
  std::fputs(command.error.c_str(), stderr);
  if (command.exitCode) return *command.exitCode;
  if (!HasDisplay()) {
    std::fputs("rollwick-table: there is no display; `rollwick play` plays in the terminal.\n", stderr);
    return 1;
  }
  std::signal(SIGXFSZ, SIG_IGN);  // a file at its limit is an error to tell, like a full disk

  rollwick::HoldEndingSignals();
  int qtCount = 1;  // its own options come from the environment
  QApplication application(qtCount, arguments);
  QApplication::setApplicationName("Rollwick");
  QApplication::setDesktopFileName("rollwick");
  const QString folder = QFile::decodeName(command.options.dataFolder.c_str());
  if (!QDir().mkpath(folder))
    return Refuse("The folder\n" + folder +
                  "\ncannot be made.\n\nGames and settings need one: rollwick-table --data FOLDER");
  QLockFile lock(folder + "/table.lock");
  if (!TakeFolder(lock))
    return Refuse("A table with the games in\n" + folder +
                  "\nis open already.\n\nA second one needs a folder of its own: "
                  "rollwick-table --data FOLDER");
  rollwick::InstallSpotAccessibility();
  rollwick::TableOptions options = command.options;
  options.soundFolders = rollwick::SoundFolders(options.dataFolder);
  rollwick::frmCrapTable window(options);
  rollwick::EndBySignal(window, [&window] { window.SaveForNextStart(); });
  window.show();
  return QApplication::exec();
}
