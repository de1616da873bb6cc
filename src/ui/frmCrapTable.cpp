// What may happen when, the runs of the dice, and the start and end of a session. What the entries do and
// what is shown is next door (TableEntries.cpp, TableLook.cpp).
#include "ui/frmCrapTable.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTimer>

#include "dice/DiceFile.h"
#include "engine/cycle/RollDice.h"
#include "engine/game/NewGame.h"
#include "files/GameFileLayout.h"
#include "session/HotKeyRun.h"
#include "session/StartAndEnd.h"
#include "stats/tally/Tally.h"
#include "ui/screens/Captions.h"
#include "ui/sound/SharedFolders.h"

namespace rollwick {

frmCrapTable::frmCrapTable(const TableOptions& options)
    : dataFolder_(options.dataFolder),
      game_(std::make_unique<Game>()),
      g(*game_),
      host_(options.dataFolder),
      log_(DefaultEventsLog(options.dataFolder)),
      hand_(g),
      sound_(options.soundFolders),
      files_(g, log_, options.dataFolder, *this),
      gameToOpen_(options.game) {
  setObjectName("frmCrapTable");
  setWindowIcon(QIcon::fromTheme("rollwick", QIcon(QString::fromStdString(IconFile().string()))));
  TableParts parts;
  parts.window = this;
  host_.Attach(parts);
  g.TheHost = &host_;
  g.TheLog = &log_;
  StartUp(g);
  g.EventsLogPath = DefaultEventsLog(dataFolder_).string();
  g.GamesLogPath = DefaultGamesLog(dataFolder_).string();
  StartedTable started = StartTable(g, dataFolder_);
  hotKeys_ = std::move(started.hotKeys);
  notices_ = std::move(started.notices);
  log_.Reopen(g.EventsLogPath);

  layout_ = new picLayout(g, hand_, this);
  status_ = new TableStatus(this);
  dice_ = new DiceShow(*layout_);
  dice_->setParent(this);
  parts = {this, layout_, &hand_, dice_, status_, &sound_};
  host_.Attach(parts);
  host_.TableHasChanged = [this] { ShowTable(); };
  host_.ShowHelp = [this](const QString& page) { ShowHelp(page); };
  menus_ = std::make_unique<TableMenus>(*this);
  setCentralWidget(layout_);
  setStatusBar(status_);
  ConnectPicture();
  ConnectMenus();
  GameHasChanged();
  ShowRecentGames();
  RestorePlace();
}

frmCrapTable::~frmCrapTable() {
  FlushEventsLog(g);
  // Before the game that they show.
  delete dice_;
  delete layout_;
}

// ---- What may happen when

bool frmCrapTable::AskToInterrupt() {
  isAsking_ = true;
  const bool ofScript = g.AutoBetRunning;
  const bool isYes = ofScript ? AskYesNo(g, "Do you want to interrupt Auto-Betting? ", "Auto-Bet Active")
                              : AskYesNo(g, "Do you want to stop Hyper-Drive?", "Hyper-Drive Active");
  isAsking_ = false;
  if (!isYes) return false;
  if (ofScript) g.StopMessage = g.HyperDriveActive ? "Auto-Betting interrupted." : "";
  g.KeepRolling = g.AutoBetRunning = false;
  return true;
}

bool frmCrapTable::MayAct() {
  if (isAsking_ || hasEnded_ || QApplication::activeModalWidget() != nullptr) return false;
  dice_->Skip();
  if (g.AutoBetRunning || g.HyperDriveActive) {
    AskToInterrupt();
    return false;
  }
  return !isActing_ || g.RollInProgress;
}

void frmCrapTable::Act(const std::function<void()>& action) {
  if (!MayAct() || IsBusy()) return ShowSwitches();  // one that was refused goes back
  isActing_ = true;
  layout_->ShowFallenChips({});
  if (layout_->CommitKeyIn()) action();
  isActing_ = false;
  ShowTable();
  if (closeIsWanted_) QTimer::singleShot(0, this, &QWidget::close);
}

// ---- The run

void frmCrapTable::RollOrStop() {
  if (!MayAct()) return;
  hand_.LeaveMode();
  if (g.AutoRoll) {
    g.KeepRolling = !g.KeepRolling;
    if (g.KeepRolling && g.AutoRollsLeft == 0) g.AutoRollsLeft = g.AutoRollsSet;
  }
  if (IsBusy()) return layout_->RefreshTable();
  Act([this] {
    isRolling_ = true;
    ShowSwitches();
    RollDice(g);
    isRolling_ = false;
    g.KeepRolling = false;  // one left over would turn the next click around
    status_->ShowRun({});
  });
}

void frmCrapTable::ToggleHyper() {
  if (g.HyperDriveActive && !isAsking_) {
    g.KeepRolling = false;
    return;
  }
  Act([this] {
    hand_.DiceAreOut();
    status_->ShowRun("Hyper-Drive");
    menus_->Entry("mnuHyperDrive").setText("Stop Hyper-&Drive");
    g.KeepRolling = false;
    ToggleHyperDrive(g);
    g.KeepRolling = false;
    status_->ShowRun({});
    menus_->Entry("mnuHyperDrive").setText("Start Hyper-&Drive");
    dice_->LieAtHome(g);
    hyperHasStopped_ = isMinimized();
  });
}

// Of a run that ended while nothing could be shown.
void frmCrapTable::TellHeldStop() {
  if (g.StopMessage.empty() || isMinimized() || IsBusy()) return;
  Act([this] {
    const std::string held = std::exchange(g.StopMessage, "");
    ShowMessage(g, held, "Hyper-Drive Stopped");
    if (held == kDiceFileEnded) RewindDicePrompt(g, DiceFilePlayback);
  });
}

// Also between the rolls of a run, which goes on with other dice then.
void frmCrapTable::StopDiceFile() {
  if (!MayAct() || g.DiceFileMode == DiceFileOff) return;
  RewindDicePrompt(g, std::exchange(g.DiceFileMode, DiceFileOff));
  ShowTable();
}

void frmCrapTable::RunHotKeyOn(const QString& character) {
  const HotKey* const found = FindHotKey(hotKeys_, FromQt(character));
  if (found == nullptr) return;
  Act([this, hotKey = *found] { RunHotKey(g, hotKey, dataFolder_); });
}

// ---- Start and end

void frmCrapTable::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (std::exchange(hasBegun_, true)) return;
  layout_->setFocus();
  QTimer::singleShot(0, this, [this] { Begin(gameToOpen_); });
}

void frmCrapTable::Begin(const std::filesystem::path& game) {
  Act([&] {
    for (const Message& notice : std::exchange(notices_, {}))
      ShowMessage(g, notice.text, notice.title, notice.flags);
    if (game.empty() || !files_.Load(game)) return;
    GameHasChanged();
    ShowRecentGames();
  });
}

void frmCrapTable::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || menus_ == nullptr) return;
  if (!isMinimized()) {
    hyperHasStopped_ = false;
    QTimer::singleShot(0, this, [this] { TellHeldStop(); });
  }
  ShowCaption();
}

void frmCrapTable::SaveForNextStart() {
  if (hasEnded_) return;
  RememberPlace();
  BringUpToDate(g);  // in the middle of a run
  SaveWorkingGame(g, dataFolder_);
  FlushEventsLog(g);
  FlushDiceFile(g);
}

bool frmCrapTable::EndSession() {
  if (!layout_->CommitKeyIn()) return false;
  RememberPlace();
  switch (files_.End()) {
    case Closing::Done:
      return true;
    case Closing::Cancelled:
      return false;
    case Closing::Failed:
      return ShowMessage(g, "Not everything could be saved.\rDo you want to close the table anyway?",
                         "Rollwick",
                         MessageYes | MessageNo | MessageQuestion | MessageDefaultNo) == Answer::Yes;
  }
  return false;
}

void frmCrapTable::closeEvent(QCloseEvent* event) {
  event->setAccepted(hasEnded_);
  if (hasEnded_ || isAsking_ || QApplication::activeModalWidget() != nullptr) return;
  closeIsWanted_ = false;
  if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);  // there are questions
  if (IsBusy()) {
    // A run is stopped, and the table closes when it has ended.
    if ((g.AutoBetRunning || g.HyperDriveActive) && !AskToInterrupt()) return;
    dice_->Skip();
    g.KeepRolling = false;
    closeIsWanted_ = true;
    return;
  }
  isActing_ = true;
  hasEnded_ = EndSession();
  isActing_ = false;
  event->setAccepted(hasEnded_);
  if (hasEnded_) {
    sound_.StopAll();
    if (help_ != nullptr) help_->close();
  } else {
    ShowTable();
  }
}

}  // namespace rollwick
