#include "ui/screens/frmMsg.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "base/FormatNumber.h"
#include "dice/Draw.h"
#include "ui/screens/Captions.h"
#include "ui/screens/MessageArea.h"
#include "ui/screens/NumberField.h"

namespace rollwick {

namespace {

// What Escape and the close box answer.
Answer LeastHarmful(int flags) {
  if ((flags & MessageCancel) != 0) return Answer::Cancel;
  return (flags & MessageNo) != 0 ? Answer::No : Answer::Ok;
}

QLabel* PictureLabel(const char* name, const QPixmap& picture, const QString& accessible) {
  auto* const label = new QLabel;
  Name(*label, name, accessible);
  label->setPixmap(picture);
  label->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
  if (picture.isNull()) label->hide();
  return label;
}

const char* NameOfIcon(int flags) {
  if ((flags & MessageWarning) != 0) return "Warning";
  if ((flags & MessageQuestion) != 0) return "Question";
  return (flags & MessageInformation) != 0 ? "Information" : "Picture";
}

const char* CaptionOf(PromptKind kind) {
  return kind == PromptKind::Seed ? "&Seed:" : kind == PromptKind::Money ? "&Amount:" : "&Text:";
}

}  // namespace

frmMsg::frmMsg(Game& game, const Message& message, const MessageExtras& extras, QWidget* owner)
    : Screen(game, "frmMsg", {}, owner), flags_(message.flags), answer_(LeastHarmful(message.flags)) {
  Build(message.title, message.text, extras);
}

frmMsg::frmMsg(Game& game, const Prompt& prompt, EntryCheck check, const MessageExtras& extras,
               QWidget* owner)
    : Screen(game, "frmMsg", {}, owner),
      flags_(MessageCancel),
      kind_(prompt.kind),
      check_(std::move(check)),
      answer_(Answer::Cancel) {
  Build(prompt.title, prompt.text, extras);
  FillInput(prompt);
}

void frmMsg::Build(const std::string& title, const std::string& text, const MessageExtras& extras) {
  setWindowTitle(ToQt(title));
  ShowHelp = extras.showHelp;
  helpPage = extras.helpPage;

  const bool isBelow = (flags_ & MessageTwoPictures) == MessageTwoPictures;
  auto* const message = new QBoxLayout(isBelow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  message->addLayout(Pictures(extras));
  text_ = new MessageArea(ToQt(text));
  message->addWidget(text_, 1);

  auto* const page = new QVBoxLayout(this);
  page->setSizeConstraint(QLayout::SetFixedSize);
  page->addLayout(message);
  page->addLayout(Input());
  chkNotice_ = new QCheckBox("Show this kind of notice");
  Name(*chkNotice_, "chkNotice", chkNotice_->text());
  chkNotice_->setChecked(true);
  if ((flags_ & MessageClassMask) == 0) chkNotice_->hide();
  page->addWidget(chkNotice_);
  page->addLayout(Buttons());
  // The title is to be read too, between the icon and the buttons of the frame.
  const int mostWidth = fontMetrics().averageCharWidth() * 60;
  const int titleWidth = fontMetrics().horizontalAdvance(windowTitle()) * 6 / 5 + fontMetrics().height() * 6;
  page->addSpacerItem(new QSpacerItem(std::min(titleWidth, mostWidth), 0));
  // Space as around a paragraph, whatever the font.
  const int space = fontMetrics().height();
  page->setContentsMargins(space, space, space, space);
  page->setSpacing(space * 3 / 4);
  message->setSpacing(space);
  default_->setDefault(true);
  default_->setFocus();
}

QPixmap frmMsg::StyleIcon() const {
  const int bits = flags_ & (MessageInformation | MessageQuestion | MessageWarning);
  if (bits == 0) return {};
  const QStyle::StandardPixmap icon = (bits & MessageWarning) != 0    ? QStyle::SP_MessageBoxWarning
                                      : (bits & MessageQuestion) != 0 ? QStyle::SP_MessageBoxQuestion
                                                                      : QStyle::SP_MessageBoxInformation;
  const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
  return style()->standardIcon(icon, nullptr, this).pixmap(QSize(size, size), devicePixelRatioF());
}

// The message's own pictures where it has some, else the icon.
QBoxLayout* frmMsg::Pictures(const MessageExtras& extras) {
  const bool hasOne = (flags_ & MessageOnePicture) != 0 && !extras.picture1.isNull();
  const bool hasTwo = (flags_ & MessageTwoPictures) == MessageTwoPictures;
  auto* const row = new QHBoxLayout;
  row->addWidget(PictureLabel("picIcon1", hasOne ? extras.picture1 : StyleIcon(),
                              hasOne ? "Picture" : NameOfIcon(flags_)),
                 0, Qt::AlignTop | Qt::AlignHCenter);
  row->addWidget(PictureLabel("picIcon2", hasTwo ? extras.picture2 : QPixmap(), "Second picture"), 0,
                 Qt::AlignTop | Qt::AlignHCenter);
  return row;
}

QBoxLayout* frmMsg::Input() {
  auto* const caption = new QLabel(CaptionOf(kind_.value_or(PromptKind::Text)));
  txtInput_ = new QLineEdit;
  Name(*caption, "lblInput", caption->text());
  Name(*txtInput_, "txtInput", caption->text().remove(':'));
  caption->setBuddy(txtInput_);
  lblReason_ = new QLabel;
  Name(*lblReason_, "lblReason", "What is wrong with the entry");
  lblReason_->setTextFormat(Qt::PlainText);
  lblReason_->setWordWrap(true);
  QFont bold = font();
  bold.setBold(true);
  lblReason_->setFont(bold);
  lblReason_->hide();
  if (!kind_) {
    caption->hide();
    txtInput_->hide();
  }

  auto* const row = new QHBoxLayout;
  row->addWidget(caption);
  row->addWidget(txtInput_, 1);
  auto* const input = new QVBoxLayout;
  input->addLayout(row);
  input->addWidget(lblReason_);
  return input;
}

QPushButton* frmMsg::AddButton(QBoxLayout& row, const char* name, const char* caption, Answer answer,
                               bool isOffered) {
  auto* const button = new QPushButton(caption);
  Name(*button, name, caption);
  if (!isOffered) button->hide();
  row.addWidget(button);
  connect(button, &QPushButton::clicked, this, [this, answer] {
    if (kind_ && answer == Answer::Ok) return TakeEntry();
    answer_ = answer;
    done(answer == LeastHarmful(flags_) ? Rejected : Accepted);
  });
  if (isOffered && default_ == nullptr) default_ = button;
  return button;
}

QBoxLayout* frmMsg::Buttons() {
  auto* const row = new QHBoxLayout;
  row->addStretch();
  const bool isNotice = (flags_ & (MessageYes | MessageNo | MessageCancel)) == 0;
  QPushButton* const yes = AddButton(*row, "cmdYes", "&Yes", Answer::Yes, (flags_ & MessageYes) != 0);
  QPushButton* const no = AddButton(*row, "cmdNo", "&No", Answer::No, (flags_ & MessageNo) != 0);
  AddButton(*row, "cmdOK", "OK", Answer::Ok, isNotice || kind_);
  AddButton(*row, "cmdCancel", "Cancel", Answer::Cancel, (flags_ & MessageCancel) != 0);

  auto* const help = new QPushButton("&Help");
  Name(*help, "cmdHelp", help->text());
  if ((flags_ & MessageHelp) == 0) help->hide();
  help->setAutoDefault(false);
  help->setEnabled(static_cast<bool>(ShowHelp));
  connect(help, &QPushButton::clicked, this, [this] { OpenHelp(); });
  row->addWidget(help);
  row->addStretch();

  if ((flags_ & MessageDefaultYes) != 0 && (flags_ & MessageYes) != 0) default_ = yes;
  if ((flags_ & MessageDefaultNo) != 0 && (flags_ & MessageNo) != 0) default_ = no;
  return row;
}

void frmMsg::FillInput(const Prompt& prompt) {
  txtInput_->setMaxLength(prompt.maxLength);
  txtInput_->setText(ToQt(prompt.preset));
  if (kind_ == PromptKind::Seed) {
    txtInput_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), txtInput_));
  }
  if (kind_ == PromptKind::Money) {
    if (const auto preset = ParseMoney(prompt.preset)) txtInput_->setText(NumberField::PlainEntry(*preset));
  }
  txtInput_->selectAll();
  txtInput_->setFocus();
  connect(txtInput_, &QLineEdit::textEdited, lblReason_, &QLabel::hide);
}

QString frmMsg::FaultOf(const QString& entry) const {
  if (kind_ == PromptKind::Money && !NumberField::Parse(entry)) {
    return "Please enter an amount, for example " + NumberField::PlainEntry(Money::FromUnits(125'000)) + ".";
  }
  if (kind_ == PromptKind::Seed) {
    const auto seed = ParseMoney(FromQt(entry));
    const Money most = Dollars(SeedLimit(g));
    if (!seed || !seed->IsWhole() || *seed < Dollars(1) || *seed > most)
      return ToQt("Please enter a whole number from 1 to " + FormatMoney(most) + ".");
  }
  return check_ ? check_(entry) : QString();
}

void frmMsg::TakeEntry() {
  const QString fault = FaultOf(txtInput_->text());
  if (fault.isEmpty()) {
    entry_ = kind_ == PromptKind::Money ? PlainText(*NumberField::Parse(txtInput_->text()))
                                        : FromQt(txtInput_->text());
    return done(Accepted);
  }
  lblReason_->setText(fault);
  lblReason_->show();
  txtInput_->selectAll();
  txtInput_->setFocus();
}

// However it is closed: a notice that is no longer wanted is switched off.
void frmMsg::done(int result) {
  if (!chkNotice_->isChecked()) g.Rules.NotifyFlags &= ~((flags_ & MessageClassMask) >> 16);
  Screen::done(result);
}

void frmMsg::showEvent(QShowEvent* event) {
  Screen::showEvent(event);
  SnapPointerTo(*default_);
  QAccessibleEvent heard(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&heard);
}

// A long text is read with the focus on the buttons.
void frmMsg::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key != Qt::Key_PageUp && key != Qt::Key_PageDown) return Screen::keyPressEvent(event);
  text_->verticalScrollBar()->triggerAction(key == Qt::Key_PageUp ? QScrollBar::SliderPageStepSub
                                                                  : QScrollBar::SliderPageStepAdd);
}

Answer ShowMessageWindow(Game& g, const Message& message, QWidget* owner, const MessageExtras& extras) {
  // On the heap: whoever closes the owner meanwhile takes the dialog along.
  const QPointer<frmMsg> dialog = new frmMsg(g, message, extras, owner);
  dialog->exec();
  const Answer answer = dialog ? dialog->MessageAnswer() : LeastHarmful(message.flags);
  delete dialog;
  return answer;
}

std::optional<std::string> AskInWindow(Game& g, const Prompt& prompt, QWidget* owner, EntryCheck check,
                                       const MessageExtras& extras) {
  const QPointer<frmMsg> dialog = new frmMsg(g, prompt, std::move(check), extras, owner);
  dialog->exec();
  const std::optional<std::string> entry = dialog ? dialog->Entry() : std::nullopt;
  delete dialog;
  return entry;
}

}  // namespace rollwick
