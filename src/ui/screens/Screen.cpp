#include "ui/screens/Screen.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "ui/screens/Captions.h"

namespace rollwick {

namespace {

bool IsRemembered(const ScreenPlace& place) {
  return place.Left != 0 || place.Top != 0 || place.Width != 0 || place.Height != 0;
}

QPoint CentreOf(const QWidget* owner) {
  if (owner != nullptr && owner->window()->isVisible()) return owner->window()->frameGeometry().center();
  const QScreen* const screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? QPoint() : screen->availableGeometry().center();
}

}  // namespace

int Pixels(float number) {
  return std::isfinite(number) ? static_cast<int>(std::clamp(number, -100'000.0F, 100'000.0F)) : 0;
}

Screen::Screen(Game& game, std::string_view name, std::optional<ScreenId> id, QWidget* owner)
    : QDialog(owner), g(game), id_(id) {
  setObjectName(ToQt(name));
  helpPage = objectName();
}

void Screen::Refresh() {
  ++filling_;
  Fill();
  --filling_;
}

bool Screen::HasOwnSize() const {
  return layout() == nullptr || layout()->sizeConstraint() != QLayout::SetFixedSize;
}

void Screen::RestorePlace() {
  ensurePolished();
  if (layout() != nullptr) layout()->activate();
  QRect place(QPoint(), testAttribute(Qt::WA_Resized) && HasOwnSize() ? size() : sizeHint());
  place.moveCenter(CentreOf(parentWidget()));
  if (id_ && IsRemembered(g.Screens[*id_])) {
    const ScreenPlace& kept = g.Screens[*id_];
    place.moveTopLeft({Pixels(kept.Left), Pixels(kept.Top)});
    const QSize keptSize(Pixels(kept.Width), Pixels(kept.Height));
    if (HasOwnSize() && keptSize.width() > 0 && keptSize.height() > 0) place.setSize(keptSize);
  }
  // Places are those of the frame, sizes those of what is inside.
  const QMargins frame = windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
  const QSize border(frame.left() + frame.right(), frame.top() + frame.bottom());
  place = IntoView({place.topLeft(), place.size() + border});
  resize(place.size() - border);
  move(place.topLeft());
}

void Screen::RememberPlace() {
  if (!id_) return;
  ScreenPlace& kept = g.Screens[*id_];
  kept.Open = isVisible();
  if (isMinimized() || isMaximized() || isFullScreen()) return;  // the place to go back to was kept before
  kept.Left = static_cast<float>(x());
  kept.Top = static_cast<float>(y());
  kept.Width = HasOwnSize() ? static_cast<float>(width()) : 0;
  kept.Height = HasOwnSize() ? static_cast<float>(height()) : 0;
}

void Screen::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    Refresh();  // first: what it shows may decide how large it is
    RestorePlace();
    if (id_) g.Screens[*id_].Open = true;
  }
  QDialog::showEvent(event);
}

void Screen::hideEvent(QHideEvent* event) {
  if (!event->spontaneous()) RememberPlace();
  QDialog::hideEvent(event);
}

void Screen::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) return OpenHelp();
  QDialog::keyPressEvent(event);
}

void Screen::OpenHelp() const {
  if (ShowHelp) ShowHelp(helpPage);
}

void Screen::SnapPointerTo(QWidget& control) {
  if (!g.SnapMouse || QGuiApplication::platformName().startsWith("wayland")) return;
  QTimer::singleShot(0, &control,
                     [&control] { QCursor::setPos(control.mapToGlobal(control.rect().center())); });
}

QRect IntoView(const QRect& wanted) {
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  if (screen == nullptr) screen = QGuiApplication::screenAt(wanted.topLeft());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return wanted;
  const QRect visible = screen->availableGeometry();
  QRect place(wanted.topLeft(), wanted.size().boundedTo(visible.size()));
  place.moveLeft(std::clamp(place.left(), visible.left(), visible.right() - place.width() + 1));
  place.moveTop(std::clamp(place.top(), visible.top(), visible.bottom() - place.height() + 1));
  return place;
}

}  // namespace rollwick
