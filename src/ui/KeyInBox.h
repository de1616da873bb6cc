// txtEnterBet: the field in which a bet's amount is typed, right over its spot.
#pragma once

#include "layout/SpotCursor.h"
#include "ui/screens/NumberField.h"

namespace rollwick {

// Nothing is taken before Enter, a step to the next spot, a click on the table or a throw asks for it.
class KeyInBox : public NumberField {
  Q_OBJECT

 public:
  explicit KeyInBox(QWidget* parent);

  BetId Spot() const { return spot_; }  // 0 while it is closed
  // All of the amount is selected, so that typing replaces it.
  void Open(BetId spot, Money amount);
  void Close();

 signals:
  void CommitWanted();
  void CloseWanted();
  void MoveWanted(CursorKey direction);  // arrows from an end of the text, Tab

 protected:
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool IsAtEnd(int key) const;

  BetId spot_ = 0;
};

// The step over the table that a key makes; nothing for other keys, or with Ctrl or Alt.
std::optional<CursorKey> CursorKeyOf(const QKeyEvent& event);

}  // namespace rollwick
