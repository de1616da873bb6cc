// The dice on the move: a throw that the roll waits for, and the way home, which nobody waits for.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <optional>

#include "ui/picLayout.h"
#include "ui/picture/DiceMotion.h"

namespace rollwick {

class DiceShow : public QObject {
 public:
  explicit DiceShow(picLayout& layout);

  // Shows the dice of the game fall, serving events meanwhile. They lie there when it returns.
  void Throw(const Game& g);
  bool IsThrowing() const { return isThrowing_; }
  // The throw ends at once.
  void Skip() { isThrowing_ = false; }

  // A bet was settled: dice that wait for that go home.
  void BetIsSettled(const Game& g);
  // No motion: as a game that was not seen rolled finds them.
  void LieAtHome(const Game& g);

 private:
  // Whether anybody can see and wants to see motion.
  bool IsWatched() const;
  void GoHome();
  void Step();

  picLayout& layout_;
  QTimer frames_;
  QElapsedTimer since_;
  std::optional<DiceMotion> motion_;
  bool isThrowing_ = false;
  bool isOnFelt_ = false;
  bool goesHome_ = false;  // after a pause on the felt
};

}  // namespace rollwick
