// The common ground of all screens: place and size, Escape and F1, the busy flag while a fill is under way,
// the refresh at the end of a roll.
#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <optional>

#include "engine/state/Game.h"

namespace rollwick {

// Opens a page of the help.
using HelpOpener = std::function<void(const QString& page)>;

class Screen : public QDialog {
  Q_OBJECT

 public:
  // `name` is the screen's own ("frmMsg"), `id` its place in the game file; without one it is not remembered.
  Screen(Game& g, std::string_view name, std::optional<ScreenId> id, QWidget* owner);

  // Reads the state into the controls, under the busy flag. Called when shown and at the end of every roll.
  void Refresh();
  bool IsFilling() const { return filling_ > 0; }

  // Puts the window where the game remembers it, inside the visible area; else centred on its owner.
  void RestorePlace();
  // Keeps place, size and whether it is open. Runs by itself when the screen is closed.
  void RememberPlace();

  // Set once by the window of the table; F1 opens the page, which bears the screen's name unless told.
  HelpOpener ShowHelp;
  QString helpPage;

 protected:
  // What Refresh runs; signals of the controls are not to be acted on meanwhile (ask IsFilling).
  virtual void Fill() {}
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  void OpenHelp() const;
  // Moves the pointer there once the window stands, if the player wants that and the platform can.
  void SnapPointerTo(QWidget& control);

  Game& g;

 private:
  bool HasOwnSize() const;

  std::optional<ScreenId> id_;
  int filling_ = 0;
};

// A place or size of a game file, where any number may stand.
int Pixels(float number);

// Brings a rectangle into the visible area of its screen, smaller if it must.
QRect IntoView(const QRect& wanted);

}  // namespace rollwick
