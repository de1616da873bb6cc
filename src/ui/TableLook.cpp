// What the window of the table shows of the game, and where it stands on the screen.
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <algorithm>

#include "autobet/run/RunAutoBet.h"
#include "files/GameFile.h"
#include "ui/frmCrapTable.h"
#include "ui/screens/Captions.h"
#include "ui/screens/Screen.h"

namespace rollwick {
namespace {

// What is left of a screen when the frame of the window has its place.
constexpr double kInsideFrame = 0.92;

}  // namespace

QSize FirstTableSize(const QSize& around, const QSize& screen) {
  for (double scale = 4; scale > 1; scale -= 0.5) {
    const QSize size = QSize(kPictureWidth, kPictureHeight) * scale + around;
    if (size.width() <= screen.width() * 0.9 && size.height() <= screen.height() * 0.9) return size;
  }
  const QSize size = QSize(kPictureWidth, kPictureHeight) + around;
  return size.boundedTo({screen.width(), static_cast<int>(screen.height() * kInsideFrame)});
}

void frmCrapTable::ShowTable() {
  layout_->RefreshTable();
  status_->Refresh(g);
  ShowSwitches();
  ShowCaption();
}

void frmCrapTable::ShowSwitches() {
  // Where a script acts an entry first asks, as in Hyper-Drive.
  menus_->SetRolling(isRolling_ && !AutoBetsAreOn(g));
  menus_->Entry("mnuUndo").setEnabled(hand_.CanUndo());
  menus_->Entry("mnuRedo").setEnabled(hand_.CanRedo());
  menus_->Entry("mnuSameBets").setEnabled(!isRolling_ && hand_.HasLastHand());
  menus_->Entry("mnuKeyInBetAmounts").setChecked(g.KeyInBetAmounts);
  menus_->Entry("mnuDisplayBetAmounts").setChecked(g.DisplayBetAmounts);
  menus_->Entry("mnuDisplayHopBets").setChecked(g.DisplayHopBets);
  menus_->Entry("mnuAutoBetActive").setChecked(g.AutoBetsActive == 1);
}

void frmCrapTable::ShowCaption() {
  if (isMinimized() && g.HyperDriveActive) return setWindowTitle("Rollwick Hyper-Drive Active");
  if (isMinimized() && hyperHasStopped_) return setWindowTitle("Rollwick Hyper-Drive Stopped");
  const std::filesystem::path file = g.GamePath;
  const bool hasName = !file.empty() && !IsWorkingGame(file);
  setWindowTitle(hasName ? ToQt("Rollwick (" + file.filename().string() + ")") : "Rollwick");
}

void frmCrapTable::ShowRecentGames() {
  menus_->ShowRecentGames(files_.Recent().Games(), [this](const std::filesystem::path& game) {
    Act([this, game] {
      if (files_.OpenRecent(game)) GameHasChanged();
      QTimer::singleShot(0, this, [this] { ShowRecentGames(); });  // not while the entry is being chosen
    });
  });
}

void frmCrapTable::GameHasChanged() {
  hand_.Forget();
  dice_->LieAtHome(g);
  ShowTable();
}

void frmCrapTable::RestorePlace() {
  ensurePolished();
  const QSize around(0, menuBar()->sizeHint().height() + status_->sizeHint().height());
  const QRect free = screen()->availableGeometry();
  QRect place(QPoint(), FirstTableSize(around, free.size()));
  place.moveCenter(free.center());
  const ScreenPlace& kept = g.TablePlace;
  if (Pixels(kept.Width) > 0 && Pixels(kept.Height) > 0)
    place = {Pixels(kept.Left), Pixels(kept.Top), Pixels(kept.Width), Pixels(kept.Height)};
  place = IntoView(place);
  resize(place.size());
  move(place.topLeft());
  if (g.TableWindowState == 2) setWindowState(Qt::WindowMaximized);
}

void frmCrapTable::RememberPlace() {
  g.TableWindowState = isMaximized() ? 2 : 0;
  const bool isNormal = !isMaximized() && !isFullScreen() && !isMinimized();
  const QRect place = isNormal ? QRect(pos(), size()) : normalGeometry();
  g.TablePlace.Left = static_cast<float>(place.x());
  g.TablePlace.Top = static_cast<float>(place.y());
  g.TablePlace.Width = static_cast<float>(place.width());
  g.TablePlace.Height = static_cast<float>(place.height());
}

}  // namespace rollwick
