// The status bar of the table: what a player always needs to see, and at the left what was called last.
#pragma once

#include <QLabel>
#include <QStatusBar>

#include "engine/state/Game.h"

namespace rollwick {

class TableStatus : public QStatusBar {
 public:
  explicit TableStatus(QWidget* parent);

  // Bankroll, bets, point, rolls, file and recorder, as they are now.
  void Refresh(const Game& g);
  // "Auto-Betting", "Hot-Key"; empty when the script has acted.
  void ShowRun(const QString& word);
  // What the stick person calls or what cannot be done now; stays until the next one.
  void Tell(const QString& text) { showMessage(text); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeRoom();
  QLabel* AddLabel(const char* name, const char* accessible);

  QLabel* lblStatus_;
  QLabel* lblBankroll_;
  QLabel* lblOnTheTable_;
  QLabel* lblAvailable_;
  QLabel* lblPoint_;
  QLabel* lblRollNumber_;
  QLabel* lblFile_;
};

// What the stick person calls when the dice lie, before anything is paid: "Hard 8 (4 + 4), pass".
QString CallText(const Game& g);

}  // namespace rollwick
