// Notices, questions and inputs, played by keys and mouse.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QCursor>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

#include "support/ScriptedHost.h"
#include "support/WindowChecks.h"
#include "ui/screens/MessageArea.h"
#include "ui/screens/frmMsg.h"

namespace rollwick {
namespace {

constexpr int kYesNo = MessageYes | MessageNo | MessageQuestion;
constexpr int kYesNoCancel = kYesNo | MessageCancel;

Answer Show(TestTable& table, const Message& message, std::function<void(QWidget&)> play) {
  PlayNextDialog(std::move(play));
  return ShowMessageWindow(table.g, message, nullptr);
}

void Press(QWidget& dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &dialog, key,
                  modifiers);
}

TEST(Message, EveryAnswerByEveryWay) {
  struct Row {
    const char* name;
    int flags;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    Answer answer;
  };
  const Row rows[] = {
      {"notice, Enter", MessagePlain, Qt::Key_Return, {}, Answer::Ok},
      {"notice of no flags, Space", 0, Qt::Key_Space, {}, Answer::Ok},
      {"notice, Escape", MessagePlain | MessageWarning, Qt::Key_Escape, {}, Answer::Ok},
      {"Yes is the first button", kYesNo, Qt::Key_Return, {}, Answer::Yes},
      {"Alt + Y", kYesNoCancel | MessageDefaultNo, Qt::Key_Y, Qt::AltModifier, Answer::Yes},
      {"Alt + N", kYesNoCancel, Qt::Key_N, Qt::AltModifier, Answer::No},
      {"No as default", kYesNo | MessageDefaultNo, Qt::Key_Return, {}, Answer::No},
      {"No as default, with Enter of the pad", kYesNo | MessageDefaultNo, Qt::Key_Enter, {}, Answer::No},
      {"Yes as default", kYesNo | MessageDefaultYes, Qt::Key_Space, {}, Answer::Yes},
      {"a default that is not offered",
       MessageYes | MessageCancel | MessageDefaultNo,
       Qt::Key_Return,
       {},
       Answer::Yes},
      {"Escape is Cancel", kYesNoCancel, Qt::Key_Escape, {}, Answer::Cancel},
      {"Escape is No without Cancel", kYesNo, Qt::Key_Escape, {}, Answer::No},
      {"Escape is Cancel without No", MessageYes | MessageCancel, Qt::Key_Escape, {}, Answer::Cancel},
      {"only Cancel", MessageCancel, Qt::Key_Return, {}, Answer::Cancel},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable table;
    const Answer answer = Show(table, {"Text", "Title", row.flags}, [&](QWidget& dialog) {
      EXPECT_EQ(ControlFaults(dialog), "");
      Press(dialog, row.key, row.modifiers);
    });
    EXPECT_EQ(answer, row.answer);
  }
}

TEST(Message, EveryButtonByMouseAndTheCloseBox) {
  const std::pair<const char*, Answer> buttons[] = {
      {"cmdYes", Answer::Yes}, {"cmdNo", Answer::No}, {"cmdCancel", Answer::Cancel}};
  for (const auto& [name, meaning] : buttons) {
    TestTable table;
    EXPECT_EQ(Show(table, {"Text", "Title", kYesNoCancel},
                   [name = name](QWidget& dialog) {
                     EXPECT_FALSE(Control(dialog, "cmdOK").isVisible());
                     EXPECT_FALSE(Control(dialog, "chkNotice").isVisible());
                     EXPECT_FALSE(Control(dialog, "txtInput").isVisible());
                     QTest::mouseClick(&Control(dialog, name), Qt::LeftButton);
                   }),
              meaning);
  }
  TestTable table;
  EXPECT_EQ(Show(table, {"Text", "Title", kYesNo}, [](QWidget& dialog) { dialog.close(); }), Answer::No);
  EXPECT_EQ(Show(table, {"Text", "Title", MessagePlain},
                 [](QWidget& dialog) { QTest::mouseClick(&Control(dialog, "cmdOK"), Qt::LeftButton); }),
            Answer::Ok);
}

TEST(Message, TheCheckBoxSwitchesItsClassOff) {
  struct Row {
    const char* name;
    int flag;
    bool untick;
    Qt::Key close;
    int left;  // of all five bits
  };
  const Row rows[] = {
      {"not allowed", MessageClassNotAllowed, true, Qt::Key_Return, 30},
      {"limits", MessageClassLimits, true, Qt::Key_Return, 29},
      {"charges, closed with Escape", MessageClassCharges, true, Qt::Key_Escape, 27},
      {"left ticked", MessageClassLimits, false, Qt::Key_Return, 31},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable table;
    table.g.Rules.NotifyFlags = 31;
    Show(table, {"Text", "Title", MessagePlain | row.flag}, [&](QWidget& dialog) {
      auto& check = Control<QCheckBox>(dialog, "chkNotice");
      EXPECT_TRUE(check.isVisible() && check.isChecked());
      if (row.untick) QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(8, check.height() / 2));
      QTest::keyClick(&dialog, row.close);
    });
    EXPECT_EQ(table.g.Rules.NotifyFlags, row.left);
  }
}

TEST(Message, HelpOpensItsPageAndStays) {
  TestTable table;
  QStringList opened;
  MessageExtras extras;
  extras.helpPage = "betting-limits";
  extras.showHelp = [&](const QString& page) { opened << page; };
  PlayNextDialog([](QWidget& dialog) {
    QTest::mouseClick(&Control(dialog, "cmdHelp"), Qt::LeftButton);
    QTest::keyClick(&dialog, Qt::Key_F1);
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  ShowMessageWindow(table.g, {"Text", "Title", MessagePlain | MessageHelp}, nullptr, extras);
  EXPECT_EQ(opened, QStringList({"betting-limits", "betting-limits"}));
}

TEST(Message, TextsAreShownAsTheyAre) {
  struct Row {
    const char* name;
    std::string text;
    const char* shown;
  };
  const Row rows[] = {
      {"lines", "Two\rlines ", "Two\nlines "},
      {"no markup", "<b>5 & 6</b>", "<b>5 & 6</b>"},
      {"no ASCII", "Caf\u00e9 \u2013 \u20ac5", "Caf\u00e9 \u2013 \u20ac5"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable table;
    Show(table, {row.text, "A title", MessagePlain}, [&](QWidget& dialog) {
      auto& label = Control<QLabel>(dialog, "lblMessage");
      EXPECT_EQ(label.text(), row.shown);
      EXPECT_EQ(label.accessibleName(), row.shown);
      EXPECT_EQ(label.textFormat(), Qt::PlainText);
      EXPECT_TRUE(label.textInteractionFlags() & Qt::TextSelectableByMouse);
      EXPECT_EQ(dialog.windowTitle(), "A title");
      EXPECT_EQ(dialog.objectName(), "frmMsg");
      dialog.close();
    });
  }
}

TEST(Message, GrowsWithItsTextAndThenWrapsAndScrolls) {
  std::string words;
  while (words.size() < 10'000) words += "seven out ";
  struct Row {
    const char* name;
    std::string text;
    bool wraps, scrolls;
  };
  const Row rows[] = {
      {"a word", "Yes?", false, false},
      {"a line", "Do you want to stop Hyper-Drive?", false, false},
      {"a paragraph", words.substr(0, 400), true, false},
      {"10,000 characters", words, true, true},
      {"10,000 characters without a blank", std::string(10'000, 'W'), false, true},
      {"2,000 lines", std::string(2'000, '\r'), false, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable table;
    Show(table, {row.text, "Title", MessagePlain | MessageInformation}, [&](QWidget& dialog) {
      const QRect visible = dialog.screen()->availableGeometry();
      EXPECT_TRUE(visible.contains(dialog.frameGeometry()));
      auto& label = Control<QLabel>(dialog, "lblMessage");
      const QFontMetrics font(label.font());
      auto& area = *dialog.findChild<MessageArea*>();
      EXPECT_LE(area.viewport()->width(), 60 * font.averageCharWidth());
      if (!row.scrolls) {
        EXPECT_EQ(label.heightForWidth(label.width()) > 2 * font.lineSpacing(), row.wraps);
      }
      const bool scrolls =
          area.verticalScrollBar()->maximum() > 0 || area.horizontalScrollBar()->maximum() > 0;
      EXPECT_EQ(scrolls, row.scrolls);
      EXPECT_LE(area.height(), visible.height() * 7 / 10);
      EXPECT_TRUE(Control(dialog, "cmdOK").isVisible());
      Press(dialog, Qt::Key_PageDown);
      EXPECT_EQ(area.verticalScrollBar()->value() > 0, area.verticalScrollBar()->maximum() > 0);
      dialog.close();
    });
  }
}

TEST(Message, SurvivesLargeLettersOnADarkDesktop) {
  const LargeDarkDesktop desktop;
  TestTable table;
  Show(table,
       {"Do you want to stop Hyper-Drive?", "Hyper-Drive Active",
        kYesNoCancel | MessageHelp | MessageClassLimits},
       [](QWidget& dialog) {
         EXPECT_EQ(ControlFaults(dialog), "");
         EXPECT_LE(dialog.width(), 1024);
         dialog.close();
       });
}

TEST(Message, StandsOnItsOwnerAndInsideTheScreen) {
  struct Row {
    const char* name;
    QPoint owner;
    bool isCentred;
  };
  for (const Row& row : {Row{"in the middle", {200, 150}, true}, Row{"half outside", {-300, -200}, false}}) {
    SCOPED_TRACE(row.name);
    TestTable table;
    QWidget owner;
    owner.setGeometry(QRect(row.owner, QSize(400, 300)));
    owner.show();
    PlayNextDialog([&](QWidget& dialog) {
      EXPECT_TRUE(dialog.screen()->availableGeometry().contains(dialog.geometry()));
      const QPoint off = dialog.frameGeometry().center() - owner.frameGeometry().center();
      EXPECT_EQ(off.manhattanLength() <= 4, row.isCentred);
      EXPECT_TRUE(dialog.isModal());
      dialog.close();
    });
    ShowMessageWindow(table.g, {"Text", "Title", MessagePlain}, &owner);
  }
}

TEST(Message, AnOwnerThatIsGoneLeavesTheLeastHarmfulAnswer) {
  TestTable table;
  auto* owner = new QWidget;
  owner->show();
  PlayNextDialog([owner](QWidget&) { delete owner; });
  EXPECT_EQ(ShowMessageWindow(table.g, {"Text", "Title", kYesNo}, owner), Answer::No);
  owner = new QWidget;
  owner->show();
  PlayNextDialog([owner](QWidget&) { delete owner; });
  EXPECT_EQ(AskInWindow(table.g, {}, owner), std::nullopt);
}

TEST(Message, ThePointerGoesToTheDefaultButton) {
  for (const bool snaps : {true, false}) {
    SCOPED_TRACE(snaps);
    TestTable table;
    table.g.SnapMouse = snaps;
    QCursor::setPos(1, 1);
    Show(table, {"Text", "Title", kYesNo | MessageDefaultNo}, [&](QWidget& dialog) {
      QCoreApplication::processEvents();
      const auto& no = Control(dialog, "cmdNo");
      EXPECT_EQ(no.rect().contains(no.mapFromGlobal(QCursor::pos())), snaps);
      dialog.close();
    });
  }
}

TEST(Message, IconsAndPictures) {
  QPixmap dice(40, 40), chips(60, 30);
  dice.fill(Qt::red);
  chips.fill(Qt::blue);
  struct Row {
    const char* name;
    int flags;
    bool first, second, textIsBelow;
    const char* spoken;
  };
  const Row rows[] = {
      {"none", MessagePlain, false, false, false, nullptr},
      {"warning", MessageWarning, true, false, false, "Warning"},
      {"question", MessageQuestion, true, false, false, "Question"},
      {"information", MessageInformation, true, false, false, "Information"},
      {"one picture", MessageOnePicture, true, false, false, "Picture"},
      {"two pictures", MessageTwoPictures, true, true, true, "Picture"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable table;
    PlayNextDialog([&](QWidget& dialog) {
      const auto& first = Control(dialog, "picIcon1");
      EXPECT_EQ(first.isVisible(), row.first);
      EXPECT_EQ(Control(dialog, "picIcon2").isVisible(), row.second);
      const QPoint text = dialog.findChild<MessageArea*>()->mapTo(&dialog, QPoint());
      if (row.first) {
        EXPECT_EQ(first.accessibleName(), row.spoken);
        EXPECT_EQ(text.y() >= first.geometry().bottom(), row.textIsBelow);
      }
      dialog.close();
    });
    ShowMessageWindow(table.g, {"Text", "Title", row.flags}, nullptr, {dice, chips, {}, {}});
  }
}

TEST(Input, EntriesTakenAndRefused) {
  struct Row {
    const char* name;
    PromptKind kind;
    const char* preset;
    const char* typed;
    const char* locale;
    const char* entry;   // taken
    const char* reason;  // of a refusal; the entry behind it is then what a second Enter with "7" gives
  };
  const char* const noAmount = "Please enter an amount, for example 12.5.";
  const char* const noSeed = "Please enter a whole number from 1 to 2,147,483,647.";
  const Row rows[] = {
      {"preset as it is", PromptKind::Money, "800", nullptr, "en_US", "800", ""},
      {"preset under a comma", PromptKind::Money, "12.5", nullptr, "de_DE", "12.5", ""},
      {"amount", PromptKind::Money, "0", "$1,234.50", "en_US", "1234.5", ""},
      {"amount with a comma", PromptKind::Money, "0", "1234,5", "de_DE", "1234.5", ""},
      {"debt", PromptKind::Money, "0", "-20", "en_US", "-20", ""},
      {"no amount", PromptKind::Money, "0", "ten", "en_US", "7", noAmount},
      {"nothing", PromptKind::Money, "0", "", "en_US", "7", noAmount},
      {"seed", PromptKind::Seed, "1", "2147483647", "en_US", "2147483647", ""},
      {"letters of a seed are not taken", PromptKind::Seed, "1", "1-2.3x", "en_US", "123", ""},
      {"seed too large", PromptKind::Seed, "1", "2147483648", "en_US", "7", noSeed},
      {"seed 0", PromptKind::Seed, "1", "0", "en_US", "7", noSeed},
      {"no seed", PromptKind::Seed, "0", "", "en_US", "7", noSeed},
      {"text as typed", PromptKind::Text, "", " seven  out ", "en_US", " seven  out ", ""},
      {"empty text", PromptKind::Text, "old", "", "en_US", "", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const UserLocale locale(row.locale);
    TestTable table;
    PlayNextDialog([&](QWidget& dialog) {
      EXPECT_EQ(ControlFaults(dialog), "");
      auto& input = Control<QLineEdit>(dialog, "txtInput");
      auto& reason = Control<QLabel>(dialog, "lblReason");
      EXPECT_TRUE(input.hasFocus());
      if (row.typed != nullptr) QTest::keyClick(&input, Qt::Key_Delete);
      if (row.typed != nullptr) QTest::keyClicks(&input, row.typed);
      QTest::keyClick(&input, Qt::Key_Return);
      if (*row.reason == '\0') return;
      EXPECT_TRUE(dialog.isVisible() && reason.isVisible());
      EXPECT_EQ(reason.text().toStdString(), row.reason);
      QTest::keyClicks(&input, "7");
      EXPECT_FALSE(reason.isVisible()) << "a new entry is on its way";
      QTest::mouseClick(&Control(dialog, "cmdOK"), Qt::LeftButton);
    });
    const auto entry = AskInWindow(table.g, {row.kind, "Enter:", "Title", row.preset, 15}, nullptr);
    EXPECT_EQ(entry, std::optional<std::string>(row.entry));
  }
}

TEST(Input, ClosedWithoutAnEntry) {
  const std::pair<const char*, void (*)(QWidget&)> ways[] = {
      {"Escape", [](QWidget& dialog) { Press(dialog, Qt::Key_Escape); }},
      {"Cancel", [](QWidget& dialog) { QTest::mouseClick(&Control(dialog, "cmdCancel"), Qt::LeftButton); }},
      {"close box", [](QWidget& dialog) { dialog.close(); }},
  };
  for (const auto& [name, close] : ways) {
    SCOPED_TRACE(name);
    TestTable table;
    PlayNextDialog(close);
    EXPECT_EQ(AskInWindow(table.g, {PromptKind::Text, "Enter:", "Find", "old", 15}, nullptr), std::nullopt);
  }
}

TEST(Input, TheAskerMayCheckAndTheLengthIsKept) {
  TestTable table;
  table.g.RngChoice = RngCongruential;
  PlayNextDialog([&](QWidget& dialog) {
    auto& input = Control<QLineEdit>(dialog, "txtInput");
    QTest::keyClicks(&input, "5-99");
    EXPECT_EQ(input.text(), "5-9");
    QTest::keyClick(&input, Qt::Key_Return);
    EXPECT_EQ(Control<QLabel>(dialog, "lblReason").text(), "There are 4 games.");
    QTest::keyClicks(&input, "3");
    QTest::keyClick(&input, Qt::Key_Return);
  });
  const EntryCheck check = [](const QString& entry) {
    return entry == "3" ? QString() : "There are 4 games.";
  };
  EXPECT_EQ(AskInWindow(table.g, {PromptKind::Text, "Games:", "Title", "", 3}, nullptr, check), "3");

  PlayNextDialog([&](QWidget& dialog) {
    QTest::keyClick(&Control(dialog, "txtInput"), Qt::Key_Return);
    EXPECT_EQ(Control<QLabel>(dialog, "lblReason").text(), "Please enter a whole number from 1 to 999,999.");
    dialog.close();
  });
  AskInWindow(table.g, {PromptKind::Seed, "Seed:", "RNG Seed", "1000000", 7}, nullptr);
}

}  // namespace
}  // namespace rollwick
