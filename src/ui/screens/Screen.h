// The common ground of all screens: place and size, Escape and F1, the busy flag while a fill is under way,
// the refresh at the end of a roll.
#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <optional>

#include "engine/state/Game.h"

namespace rollwick {

class Screen : public QDialog {
 public:
  // `name` is the screen's own ("frmMsg"), `id` its place in the game file; without one it is not remembered.
  Screen(Game& g, std::string_view name, std::optional<ScreenId> id, QWidget* owner);

  // Reads the state into the controls, under the busy flag. Called when shown and at the end of every roll.
  void Refresh();
  bool IsFilling() const { return filling_ > 0; }

  // Puts the window where the game remembers it, inside the visible area; else centred on its owner.
  void RestorePlace();
  void RememberPlace();

  // Opens the help page of the screen; set once by the window of the table.
  std::function<void(const QString& page)> ShowHelp;
  QString helpPage;

 protected:
  // What Refresh runs; signals of the controls are not to be acted on meanwhile (ask IsFilling).
  virtual void Fill() {}
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  Game& g;

 private:
  std::optional<ScreenId> id_;
  int filling_ = 0;
};

// Brings a rectangle into the visible area of the screens, smaller if it must.
QRect IntoView(const QRect& wanted);

}  // namespace rollwick
