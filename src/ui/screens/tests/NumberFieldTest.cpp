// What a number field takes, what it refuses, and when it says so.
#include "ui/screens/NumberField.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWidget>

#include "support/WindowChecks.h"

namespace rollwick {
namespace {

TEST(NumberField, Parse) {
  struct Row {
    const char* name;
    const char* locale;
    const char* text;
    std::optional<std::int64_t> units;
  };
  const std::optional<std::int64_t> none;
  const Row rows[] = {
      {"plain", "en_US", "12", 120'000},
      {"blanks around", "en_US", "  12.5 ", 125'000},
      {"as money is shown", "en_US", "$1,000.5", 10'005'000},
      {"minus before the dollar", "en_US", "-$5", -50'000},
      {"minus behind the dollar", "en_US", "$-5", -50'000},
      {"two minus signs", "en_US", "-$-5", none},
      {"four decimals", "en_US", ".0001", 1},
      {"five decimals", "en_US", "1.00001", none},
      {"mark at the end", "en_US", "5.", 50'000},
      {"nothing", "en_US", "", none},
      {"only a sign", "en_US", "-", none},
      {"only a mark", "en_US", ".", none},
      {"a word", "en_US", "ten", none},
      {"an exponent", "en_US", "1e3", none},
      {"two marks", "en_US", "1.2.3", none},
      {"a group of two", "en_US", "1,00", none},
      {"a comma is no point here", "en_US", "12,5", none},
      {"a group of four in front", "en_US", "1234,567", none},
      {"groups in the fraction", "en_US", "1.000,000", none},
      {"a mark in front", "en_US", ",100", none},
      {"beyond all money", "en_US", "99999999999999999999", none},
      {"comma", "de_DE", "12,5", 125'000},
      {"point all the same", "de_DE", "12.5", 125'000},
      {"the user's groups", "de_DE", "1.234,50", 12'345'000},
      {"the user's groups alone", "de_DE", "1.234", 12'340'000},
      {"as the table shows it", "de_DE", "1,234.50", 12'345'000},
      {"three decimals", "de_DE", "2,778", 27'780},
      {"no group begins with a 0", "de_DE", "0.125", 1'250},
      {"mixed up", "de_DE", "1.23,4", none},
      {"groups by narrow blanks", "fr_FR", "1\u202f234,5", 12'345'000},
      {"groups by plain blanks", "fr_FR", "1 234,5", 12'345'000},
      {"groups by apostrophes", "de_CH", "1'234.5", 12'345'000},
      {"digits of the country", "ar_EG", "١٢٫٥", 125'000},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const UserLocale locale(row.locale);
    const auto amount = NumberField::Parse(row.text);
    EXPECT_EQ(amount.has_value(), row.units.has_value());
    if (amount && row.units) {
      EXPECT_EQ(amount->Units(), *row.units);
      EXPECT_EQ(NumberField::Parse(NumberField::PlainEntry(*amount)), amount) << "its own entry";
    }
  }
}

// A window with two fields, for leaving one for the other.
struct Form {
  QWidget window;
  NumberField field, other;
  QSignalSpy entered{&field, &NumberField::Entered}, refused{&field, &NumberField::Refused};

  Form() {
    auto* const page = new QVBoxLayout(&window);
    page->addWidget(&field);
    page->addWidget(&other);
    field.SetLimits(Dollars(1), Dollars(5000));
    field.SetValue(Dollars(1234), "#,#.00");
    other.setFocus();
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  void Type(const char* text) {
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
  }
};

TEST(NumberField, TakesAnEntryWhenItIsDone) {
  const UserLocale locale("C");
  struct Row {
    const char* name;
    const char* typed;
    Qt::Key key;
    bool wholeOnly;
    const char* shown;  // without the focus
    Money value;
    bool isEntered;
    const char* refusal;
  };
  const char* const limits = "Please enter a number from 1 to 5,000.";
  const char* const wholeLimits = "Please enter a whole number from 1 to 5,000.";
  const Row rows[] = {
      {"left", "2000.5", Qt::Key_Tab, false, "2,000.50", Money::FromUnits(20'005'000), true, ""},
      {"Enter", "2000", Qt::Key_Return, false, "2,000.00", Dollars(2000), true, ""},
      {"Enter of the pad", "$2,000", Qt::Key_Enter, false, "2,000.00", Dollars(2000), true, ""},
      {"largest", "5000", Qt::Key_Tab, false, "5,000.00", Dollars(5000), true, ""},
      {"too large", "5000.0001", Qt::Key_Tab, false, "1,234.00", Dollars(1234), false, limits},
      {"too small", "0.9999", Qt::Key_Return, false, "1,234.00", Dollars(1234), false, limits},
      {"no number", "ten", Qt::Key_Tab, false, "1,234.00", Dollars(1234), false, limits},
      {"emptied", " ", Qt::Key_Tab, false, "1,234.00", Dollars(1234), false, limits},
      {"no whole number", "2.5", Qt::Key_Tab, true, "1,234.00", Dollars(1234), false, wholeLimits},
      {"whole", "2.0", Qt::Key_Tab, true, "2.00", Dollars(2), true, ""},
      {"taken back", "2000", Qt::Key_Escape, false, "1,234.00", Dollars(1234), false, ""},
      {"untouched", "", Qt::Key_Tab, false, "1,234.00", Dollars(1234), false, ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Form form;
    form.field.SetLimits(Dollars(1), Dollars(5000), row.wholeOnly);
    form.Type(row.typed);
    EXPECT_EQ(form.field.Value(), Dollars(1234)) << "nothing is written while typing";
    EXPECT_EQ(form.entered.size(), 0);
    QTest::keyClick(&form.field, row.key);
    EXPECT_EQ(form.entered.size() + form.refused.size(), row.isEntered || *row.refusal != '\0' ? 1 : 0)
        << "at once";
    form.other.setFocus();
    EXPECT_EQ(form.field.text().toStdString(), row.shown);
    EXPECT_EQ(form.field.Value(), row.value);
    EXPECT_EQ(form.entered.size(), row.isEntered ? 1 : 0);
    EXPECT_EQ(form.refused.size(), *row.refusal != '\0' ? 1 : 0);
    if (!form.refused.empty()) {
      EXPECT_EQ(form.refused[0][0].toString().toStdString(), row.refusal);
      EXPECT_EQ(QToolTip::text().toStdString(), row.refusal);
    }
  }
}

TEST(NumberField, ShowsThePlainNumberWhileItHasTheFocus) {
  const UserLocale locale("de_DE");
  Form form;
  form.field.SetValue(Money::FromUnits(12'345'000), "#,#.00");
  EXPECT_EQ(form.field.text(), "1,234.50");
  form.field.setFocus();
  EXPECT_EQ(form.field.text(), "1234,5");
  form.other.setFocus();
  EXPECT_EQ(form.field.text(), "1,234.50");
  EXPECT_EQ(form.entered.size(), 0);
}

TEST(NumberField, ARollDoesNotDisturbWhatIsBeingTyped) {
  Form form;
  form.Type("77");
  form.field.SetValue(Dollars(9), "#,#.00");
  EXPECT_EQ(form.field.text(), "77");
  QTest::keyClick(&form.field, Qt::Key_Escape);
  EXPECT_EQ(form.field.text(), "9");
}

}  // namespace
}  // namespace rollwick
