#include "ui/DiceShow.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QStyle>

namespace rollwick {
namespace {

constexpr int kFrame = 16;         // milliseconds
constexpr int kPauseOnFelt = 700;  // until the stick person takes them back

enum DiceActions { Stationary, ReturnAfterThrown, ReturnOnDecision, RemainOnTable };

}  // namespace

DiceShow::DiceShow(picLayout& layout) : layout_(layout) {
  frames_.setTimerType(Qt::PreciseTimer);
  frames_.setInterval(kFrame);
  connect(&frames_, &QTimer::timeout, this, &DiceShow::Step);
}

bool DiceShow::IsWatched() const {
  const bool isSeen = layout_.isVisible() && !layout_.window()->isMinimized();
  return isSeen && layout_.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &layout_) > 0;
}

void DiceShow::Throw(const Game& g) {
  // Bounces are for the eye alone: the dice of the game never depend on them.
  motion_ = DiceMotion::Throw(g.DiceAction, g.Die1, g.Die2, QRandomGenerator::global()->generate());
  goesHome_ = false;
  isOnFelt_ = g.DiceAction != Stationary;
  if (IsWatched()) {
    isThrowing_ = true;
    since_.start();
    frames_.start();
    while (isThrowing_ && !since_.hasExpired(motion_->Duration()))
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    isThrowing_ = false;
  }
  frames_.stop();
  layout_.ShowDice(motion_->At(motion_->Duration()));
  if (g.DiceAction != ReturnAfterThrown) return;
  goesHome_ = true;
  since_.start();
  frames_.start();
}

void DiceShow::BetIsSettled(const Game& g) {
  if (g.DiceAction == ReturnOnDecision) GoHome();
}

void DiceShow::LieAtHome(const Game& g) {
  frames_.stop();
  isOnFelt_ = goesHome_ = false;
  layout_.ShowDice(DiceAtHome(g.Die1, g.Die2));
}

void DiceShow::GoHome() {
  goesHome_ = false;
  if (!isOnFelt_) return;
  isOnFelt_ = false;
  motion_ = DiceMotion::Return(layout_.Dice());
  since_.start();
  frames_.start();
}

void DiceShow::Step() {
  const int elapsed = static_cast<int>(std::min<qint64>(since_.elapsed(), 1 << 30));
  if (goesHome_) {
    if (elapsed >= kPauseOnFelt) GoHome();
    return;
  }
  const int duration = motion_->Duration();
  layout_.ShowDice(motion_->At(IsWatched() ? std::min(elapsed, duration) : duration));
  if (!isThrowing_ && (elapsed >= duration || !IsWatched())) frames_.stop();
}

}  // namespace rollwick
