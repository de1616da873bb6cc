// The window of the table: menus, keys and status bar around picLayout, the start and the end of a session.
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "engine/bets/Bankroll.h"
#include "engine/state/Game.h"
#include "files/HotKeys.h"
#include "session/TableHand.h"
#include "stats/logs/EventsLog.h"
#include "ui/BetMenu.h"
#include "ui/DiceShow.h"
#include "ui/HelpWindow.h"
#include "ui/TableFiles.h"
#include "ui/TableHost.h"
#include "ui/TableMenus.h"
#include "ui/TableStatus.h"
#include "ui/picLayout.h"
#include "ui/sound/SoundPlayer.h"

namespace rollwick {

struct TableOptions {
  std::filesystem::path dataFolder;
  std::filesystem::path game;  // to be opened instead of the working game; empty: none
  std::vector<std::filesystem::path> soundFolders;
};

// How large the window is at first, with `around` for its bars: the picture at the largest whole or half step
// that leaves a tenth of the screen free, or what there is of a small screen.
QSize FirstTableSize(const QSize& around, const QSize& screen);

class frmCrapTable : public QMainWindow {
  Q_OBJECT

 public:
  explicit frmCrapTable(const TableOptions& options);
  ~frmCrapTable() override;

  Game& TheGame() { return g; }
  // Keeps the table as it is for the next start, without a word: there is nobody to ask any more.
  void SaveForNextStart();
  // The session has ended: the window is closed, or about to be.
  bool HasEnded() const { return hasEnded_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  // ---- What may happen when

  // Whether an event of the player may act at all. A script's step or Hyper-Drive in progress is asked about
  // first, and an event that asked goes no further. A dialog that stands open is answered first.
  bool MayAct();
  // Asks whether the run in progress is to be interrupted, and interrupts it after a Yes.
  bool AskToInterrupt();
  // Runs what the player chose, unless something is going on already, and shows what became of it. Every
  // change of the table goes through here, but for those of the picture, which asks MayAct.
  void Act(const std::function<void()>& action);
  bool IsBusy() const { return isActing_ || g.RollInProgress || g.AutoBetRunning; }

  // ---- The run

  void RollOrStop();
  void ToggleHyper();
  void TellHeldStop();
  void StopDiceFile();
  void RunHotKeyOn(const QString& character);

  // ---- The menus

  void ConnectPicture();
  void ConnectMenus();
  void ConnectBetEntries();
  // An entry for one bet: the bet at hand, or else the next one clicked.
  void ForBet(ClickMode mode, const char* note, void (frmCrapTable::*act)(BetId));
  void RemoveBet(BetId bet) { hand_.Remove(bet); }
  void BuyPlaceBet(BetId bet) { hand_.Buy(bet); }
  void CallBetOn(BetId bet) { hand_.Call(bet, true); }
  void CallBetOff(BetId bet) { hand_.Call(bet, false); }
  void ClearBets();
  void SameBets();
  void UseAtm(AtmDirection direction);
  void OpenBetMenu(int spot, const QPoint& globalPosition);
  void DoWithBet(BetId bet, BetEntry entry);
  void ShowHelp(const QString& page);
  void ShowAbout();
  void ShowLastError();

  // ---- What the window shows

  void ShowTable();  // all of it
  void ShowSwitches();
  void ShowCaption();
  void ShowRecentGames();
  // Another game lies on the table.
  void GameHasChanged();
  void RestorePlace();
  void RememberPlace();

  // ---- Start and end

  void Begin(const std::filesystem::path& game);
  bool EndSession();

  std::filesystem::path dataFolder_;
  std::unique_ptr<Game> game_;  // on the heap: the tables are big
  Game& g;
  TableHost host_;
  EventsLog log_;
  TableHand hand_;
  SoundPlayer sound_;
  TableFiles files_;
  picLayout* layout_ = nullptr;
  TableStatus* status_ = nullptr;
  DiceShow* dice_ = nullptr;
  std::unique_ptr<TableMenus> menus_;
  HelpWindow* help_ = nullptr;  // once it was opened
  std::vector<HotKey> hotKeys_;
  std::vector<Message> notices_;  // of the start, to be shown when the window has appeared
  std::filesystem::path gameToOpen_;

  bool isActing_ = false;
  bool isAsking_ = false;
  bool isRolling_ = false;        // and not in Hyper-Drive
  bool hyperHasStopped_ = false;  // while minimised
  bool closeIsWanted_ = false;    // when the run has ended
  bool hasBegun_ = false;
  bool hasEnded_ = false;
};

}  // namespace rollwick
