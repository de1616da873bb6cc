#include "ui/TableHost.h"

#include <QApplication>
#include <QRandomGenerator>
#include <QTimer>
#include <chrono>

#include "session/DataFolder.h"
#include "session/StartAndEnd.h"
#include "ui/screens/Captions.h"
#include "ui/screens/frmMsg.h"
#include "ui/screens/frmSettleBet.h"

namespace rollwick {
namespace {

constexpr int kFallenChips = 1000;

}  // namespace

QWidget* TableHost::Owner() const {
  QWidget* const dialog = QApplication::activeModalWidget();
  return dialog != nullptr ? dialog : parts_.window;
}

std::uint32_t TableHost::Milliseconds(Game&) {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void TableHost::PumpEvents(Game& g) {
  // Of a long run the player sees once a second how far it is.
  if (g.HyperDriveActive && (!told_.isValid() || told_.hasExpired(1000))) {
    parts_.status->Refresh(g);
    told_.start();
  }
  QCoreApplication::processEvents();
  served_.start();
}

// The loop looks at the flag behind every event, for only an event clears it.
void TableHost::ServeFor(std::uint32_t milliseconds, const bool& goesOn) {
  QTimer alarm;
  alarm.setTimerType(Qt::PreciseTimer);
  alarm.setSingleShot(true);
  QElapsedTimer since;
  since.start();
  QCoreApplication::processEvents();
  while (goesOn && !since.hasExpired(milliseconds)) {
    alarm.start(static_cast<int>(milliseconds - since.elapsed()) + 1);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  served_.start();
}

void TableHost::Wait(Game& g, std::uint32_t milliseconds) {
  ServeFor(milliseconds, g.KeepRolling);
}

void TableHost::WaitForEyes(Game& g, std::uint32_t since, std::uint32_t milliseconds) {
  const std::uint32_t passed = Milliseconds(g) - since;
  if (passed < milliseconds) ServeFor(milliseconds - passed, g.AutoBetRunning);
}

void TableHost::ShowTable(const Game& g) {
  if (parts_.layout == nullptr) return;  // the window is being made
  parts_.layout->RefreshTable();
  parts_.status->Refresh(g);
}

MessageExtras TableHost::Extras() const {
  MessageExtras extras;
  extras.showHelp = ShowHelp;
  return extras;
}

Answer TableHost::Show(Game& g, const Message& message) {
  ShowTable(g);
  return ShowMessageWindow(g, message, Owner(), Extras());
}

std::optional<std::string> TableHost::Ask(Game& g, const Prompt& prompt) {
  if (!IsMinimized()) return AskInWindow(g, prompt, Owner(), {}, Extras());
  g.KeepRolling = false;
  return {};
}

SettleAnswer TableHost::Settle(Game& g, const SettleQuestion& question) {
  ShowTable(g);
  if (!IsMinimized()) return ShowSettleWindow(g, question, Owner(), ShowHelp);
  g.KeepRolling = false;
  return {question.mustComeDown ? 0 : question.remembered, {}};
}

bool TableHost::IsMinimized() const {
  return parts_.window->isMinimized();
}

bool TableHost::CommitTypedBet(Game&) {
  return parts_.layout->CommitKeyIn();
}

FileGrant TableHost::GrantFile(Game& g, std::string_view name, FileUse use) {
  if (name.empty() || name.find('\0') != std::string_view::npos) return {{}, "The script names no file"};
  const std::filesystem::path file = (dataFolder_ / name).lexically_normal();
  if (IsInFolder(file, dataFolder_)) return {file, {}};
  const auto wanted = std::pair(file.string(), use);
  if (granted_.contains(wanted)) return {file, {}};
  const std::string verb = use == FileUse::Write ? "write" : "read";
  if (AskYesNo(g,
               "The Auto-Bet script wants to " + verb + " this file:\r\r" + wanted.first +
                   "\r\rIt lies outside of your Rollwick folder.\rMay the script " + verb + " it?",
               "Auto-Bet File")) {
    granted_.insert(wanted);
    return {file, {}};
  }
  return {{}, "The file \"" + file.string() + "\" is out of reach of the script"};
}

std::string TableHost::SaveWorkingGame(Game& g) {
  return rollwick::SaveWorkingGame(g, dataFolder_);
}

void TableHost::ShowChipsFall(const Game& g) {
  QRandomGenerator& random = *QRandomGenerator::global();
  std::vector<TableChip> chips(kFallenChips);
  for (TableChip& chip : chips)
    chip = {0, random.bounded(kChipCount), 50 + random.bounded(570), 19 + random.bounded(367)};
  parts_.layout->ShowFallenChips(std::move(chips));
  parts_.sound->Play(g, Sound::BrokeTheBank);
}

void TableHost::Play(Game& g, Sound sound) {
  if (sound == Sound::BrokeTheBank) return ShowChipsFall(g);
  if (sound == Sound::NumberCall) parts_.status->Tell(CallText(g));
  parts_.sound->Play(g, sound);
}

void TableHost::AnimateDice(Game& g) {
  parts_.hand->DiceAreOut();
  parts_.sound->PlayDice(g);
  parts_.dice->Throw(g);
}

void TableHost::ReturnDice(Game& g) {
  parts_.dice->BetIsSettled(g);
}

void TableHost::ChipsChanged(Game& g, BetId) {
  ShowTable(g);
}

void TableHost::TableChanged(Game& g) {
  ShowTable(g);
  if (!g.AutoBetRunning) parts_.status->ShowRun({});  // the script has acted
  TableHasChanged();
}

void TableHost::PlayFile(Game& g, const std::filesystem::path& file) {
  parts_.sound->PlayFile(g, file);
}

void TableHost::ShowStatus(Game&, std::string_view text) {
  parts_.status->ShowRun(ToQt(text));
}

}  // namespace rollwick
