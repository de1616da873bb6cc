// Fields for money and numbers: a wrong entry goes back to what was there, with the limits told.
#pragma once

#include <QLineEdit>
#include <optional>
#include <string>
#include <string_view>

#include "base/Money.h"

namespace rollwick {

// A field that writes when it is left or Enter is pressed, never while typing. Entries may use the user's
// decimal mark or a point, and grouping. While it has the focus it shows the plain number, else the format of
// its place. Escape takes back what was typed.
class NumberField : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberField(QWidget* parent = nullptr);

  void SetLimits(Money low, Money high, bool wholeOnly = false);
  // Shows the value by the format string of its place, or as amounts of money are without one; does not count
  // as an entry, and leaves alone what is being typed.
  void SetValue(Money value, std::string_view format = {});
  Money Value() const { return value_; }

  // Takes what is typed. False when it is no number or out of range: the former value stands again and the
  // limits are shown in a tooltip and by `Refused`.
  bool Commit();

  // "Please enter a number from 1 to 1,000."
  QString Limits() const;

  // "$1,000.5", "12,5" under a locale with a comma; nothing when it is no amount of at most four decimals.
  // What can be read in the user's own way is; else a point is the decimal mark and a comma groups.
  static std::optional<Money> Parse(const QString& text);

  // The number without grouping, with the user's decimal mark: how an entry begins.
  static QString PlainEntry(Money value);

 signals:
  void Entered(Money value);
  void Refused(const QString& limits);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ShowValue();

  Money value_, low_, high_ = Money::FromUnits(INT64_MAX);
  bool wholeOnly_ = false;
  std::string format_;
};

}  // namespace rollwick
