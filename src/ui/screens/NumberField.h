// Fields for money and numbers: a wrong entry goes back to what was there, with the limits told.
#pragma once

#include <QLineEdit>
#include <functional>
#include <optional>

#include "base/Money.h"

namespace rollwick {

// A field that writes when it is left or Enter is pressed, never while typing. Entries may use the user's
// decimal mark or a point, and grouping.
class NumberField : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberField(QWidget* parent = nullptr);

  void SetLimits(Money low, Money high, bool wholeOnly = false);
  // Shows the value by the format string of its place; does not count as an entry.
  void SetValue(Money value, std::string_view format);
  Money Value() const { return value_; }

  // Takes what is typed. False when it is no number or out of range: the former value stands again and the
  // limits are shown in a tooltip and by `Refused`.
  bool Commit();

  // "$1,000.5", "12,5" under a locale with a comma; nothing when it is no amount of at most four decimals.
  static std::optional<Money> Parse(const QString& text);

 signals:
  void Entered(Money value);
  void Refused(const QString& limits);

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Money value_, low_, high_;
  bool wholeOnly_ = false;
  std::string format_;
};

}  // namespace rollwick
