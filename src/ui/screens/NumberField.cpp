#include "ui/screens/NumberField.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QToolTip>

#include "base/FormatNumber.h"
#include "ui/screens/Captions.h"

namespace rollwick {

namespace {

// How somebody writes numbers.
struct Marks {
  QString decimal;
  QString group;

  bool IsGroup(QChar c) const {
    // French and Swiss groups are set apart by blanks or apostrophes of several kinds.
    if (group.size() == 1 && group[0].isSpace()) return c.isSpace();
    if (group == QString(QChar(0x2019))) return c == '\'' || c == QChar(0x2019);
    return group == QString(c);
  }
};

bool TakeSign(QString& text) {
  if (!text.startsWith('-') && !text.startsWith(QChar(0x2212))) return false;
  text.remove(0, 1);
  return true;
}

// "1.234,5" to "1234.5"; empty when a group is not of three digits, when a 0 leads the groups (nobody means
// 125 by "0.125"), or when a character has no place.
std::string ToPlainDigits(const QString& text, const Marks& marks) {
  std::string plain;
  int sinceGroup = -1;  // digits behind the last group mark; -1 before the first
  bool isFraction = false;
  for (const QChar c : text) {
    if (c.isDigit()) {
      plain += static_cast<char>('0' + c.digitValue());
      if (!isFraction && sinceGroup >= 0) ++sinceGroup;
    } else if (!isFraction && QString(c) == marks.decimal && (sinceGroup < 0 || sinceGroup == 3)) {
      isFraction = true;
      plain += '.';
    } else if (!isFraction && marks.IsGroup(c) && !plain.empty() && plain.front() != '0' &&
               (sinceGroup < 0 ? plain.size() <= 3 : sinceGroup == 3)) {
      sinceGroup = 0;
    } else {
      return {};
    }
  }
  return isFraction || sinceGroup < 0 || sinceGroup == 3 ? plain : std::string();
}

}  // namespace

NumberField::NumberField(QWidget* parent) : QLineEdit(parent) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void NumberField::SetLimits(Money low, Money high, bool wholeOnly) {
  low_ = low;
  high_ = high;
  wholeOnly_ = wholeOnly;
}

void NumberField::SetValue(Money value, std::string_view format) {
  value_ = value;
  format_ = format;
  if (!hasFocus() || !isModified()) ShowValue();
}

void NumberField::ShowValue() {
  if (hasFocus()) return setText(PlainEntry(value_));
  setText(ToQt(format_.empty() ? FormatMoney(value_) : FormatNumber(value_, format_)));
}

bool NumberField::Commit() {
  if (!isModified()) return true;
  const std::optional<Money> entry = Parse(text());
  const bool isTaken = entry && *entry >= low_ && *entry <= high_ && (!wholeOnly_ || entry->IsWhole());
  if (isTaken) value_ = *entry;
  ShowValue();
  if (isTaken) {
    emit Entered(value_);
  } else {
    selectAll();
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), Limits(), this);
    emit Refused(Limits());
  }
  return isTaken;
}

QString NumberField::Limits() const {
  return ToQt("Please enter a " + std::string(wholeOnly_ ? "whole " : "") + "number from " +
              FormatMoney(low_) + " to " + FormatMoney(high_) + ".");
}

std::optional<Money> NumberField::Parse(const QString& text) {
  QString number = text.trimmed();
  bool negative = TakeSign(number);
  if (number.startsWith('$')) {
    number.remove(0, 1);
    negative = negative || TakeSign(number);
  }
  const QLocale user;
  for (const Marks& marks : {Marks{user.decimalPoint(), user.groupSeparator()}, Marks{".", ","}}) {
    const std::string plain = ToPlainDigits(number, marks);
    if (const auto amount = ParseMoney(plain)) return negative ? -*amount : *amount;
  }
  return {};
}

QString NumberField::PlainEntry(Money value) {
  return ToQt(PlainText(value)).replace('.', QLocale().decimalPoint());
}

void NumberField::focusInEvent(QFocusEvent* event) {
  if (!isModified()) ShowValue();
  QLineEdit::focusInEvent(event);
}

void NumberField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason) return;  // its own menu
  if (isModified()) {
    Commit();
  } else {
    ShowValue();
  }
}

void NumberField::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && !Commit()) return;
  if (event->key() == Qt::Key_Escape && isModified()) {
    ShowValue();
    return;
  }
  QLineEdit::keyPressEvent(event);
}

}  // namespace rollwick
