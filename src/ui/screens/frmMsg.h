// The one window for notices, questions and inputs.
#pragma once

#include <QPixmap>

#include "ui/screens/Screen.h"

class QBoxLayout;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace rollwick {

class MessageArea;

// More bits of Message::flags, which only a window can show.
enum MessageLook : int {
  MessageOnePicture = 128,
  MessageTwoPictures = 192,  // with the text below them
  MessageDefaultYes = 0x1000,
  MessageDefaultNo = 0x2000,
  MessageClassMask = 0xF0000,  // a bit of NotifyFlags, sixteen places up
};

// What a message may bring along: its pictures, and where its help is.
struct MessageExtras {
  QPixmap picture1, picture2;
  HelpOpener showHelp;
  QString helpPage = "frmMsg";
};

// What is wrong with an entry, in words for the player; empty when it is taken.
using EntryCheck = std::function<QString(const QString& entry)>;

class frmMsg : public Screen {
  Q_OBJECT

 public:
  frmMsg(Game& g, const Message& message, const MessageExtras& extras, QWidget* owner);
  frmMsg(Game& g, const Prompt& prompt, EntryCheck check, const MessageExtras& extras, QWidget* owner);

  Answer MessageAnswer() const { return answer_; }
  // What was entered, as the game reads it; nothing when the prompt was closed.
  const std::optional<std::string>& Entry() const { return entry_; }

  void done(int result) override;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Build(const std::string& title, const std::string& text, const MessageExtras& extras);
  QBoxLayout* Pictures(const MessageExtras& extras);
  QPixmap StyleIcon() const;
  QBoxLayout* Input();
  QBoxLayout* Buttons();
  QPushButton* AddButton(QBoxLayout& row, const char* name, const char* caption, Answer answer,
                         bool isOffered);
  void FillInput(const Prompt& prompt);
  void TakeEntry();
  QString FaultOf(const QString& entry) const;

  const int flags_;
  const std::optional<PromptKind> kind_;  // of an input
  EntryCheck check_;
  Answer answer_ = Answer::Ok;
  std::optional<std::string> entry_;

  MessageArea* text_ = nullptr;
  QCheckBox* chkNotice_ = nullptr;
  QLineEdit* txtInput_ = nullptr;
  QLabel* lblReason_ = nullptr;
  QPushButton* default_ = nullptr;
};

// Shows the message, modal to `owner`, and gives its answer. A class bit brings the check box that clears the
// bit of NotifyFlags. Escape and the close box give the least harmful answer: Cancel, else No, else Ok.
Answer ShowMessageWindow(Game& g, const Message& message, QWidget* owner, const MessageExtras& extras = {});

// Asks for an entry; nothing when the player closes it. An entry that is no amount, or no number a seed can
// be, or that `check` finds fault with, is not taken, and the reason is shown.
std::optional<std::string> AskInWindow(Game& g, const Prompt& prompt, QWidget* owner, EntryCheck check = {},
                                       const MessageExtras& extras = {});

}  // namespace rollwick
