#include "ui/screens/frmSettleBet.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "base/FormatNumber.h"
#include "ui/screens/Captions.h"
#include "ui/screens/NumberField.h"
#include "ui/screens/SettlePreview.h"

namespace rollwick {

namespace {

constexpr int kAccountRows = 5;
constexpr Money kLargestModifyAmount = Money::FromUnits(99'999'999'999);
constexpr const char* kOperators[] = {"+", "-", "x", "/"};
constexpr std::int32_t kPercent = 1, kLastUnit = 6;

// A text as it is: the account of a loss has a single "&" in it.
QLabel* PlainLabel(const char* name, int index, const QString& text) {
  auto* const label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  Name(*label, name, index, {});
  label->setAccessibleName(text.trimmed());
  return label;
}

// Digits and one decimal mark. Nothing is grouped here, so a point is the mark wherever the player lives.
class AmountValidator : public QRegularExpressionValidator {
 public:
  explicit AmountValidator(QLineEdit& field)
      : QRegularExpressionValidator(
            QRegularExpression("[0-9]{0,7}(" + QRegularExpression::escape(QLocale().decimalPoint()) +
                               "[0-9]{0,4})?"),
            &field),
        field_(field) {}
  State validate(QString& input, int& cursor) const override {
    if (field_.hasFocus()) input.replace('.', QLocale().decimalPoint());
    return QRegularExpressionValidator::validate(input, cursor);
  }

 private:
  const QLineEdit& field_;
};

// A file may hold any number; the game divides by what it does not know.
std::int32_t KnownOperator(std::int32_t formulaOperator) {
  return formulaOperator >= FormulaPlus && formulaOperator <= FormulaDivide ? formulaOperator : FormulaDivide;
}
std::int32_t KnownUnit(std::int32_t unit) {
  return unit >= 0 && unit <= kLastUnit ? unit : 0;
}

}  // namespace

frmSettleBet::frmSettleBet(Game& game, const SettleQuestion& question, QWidget* owner)
    : Screen(game, "frmSettleBet", ScreenSettleBet, owner), question_(question) {
  setWindowTitle(ToQt(question_.caption));
  const int firstSlot = question_.won ? DialogWonSameBet : DialogLostSameBet;
  for (int row = 0; row < kFormulas; ++row) {
    const int slot = firstSlot + row;
    rows_[row].formula = {KnownOperator(g.ModifyOperator[slot]), g.ModifyAmount[slot],
                          KnownUnit(g.ModifyUnit[slot])};
  }

  auto* const page = new QVBoxLayout(this);
  page->setSizeConstraint(QLayout::SetFixedSize);
  page->addLayout(RollLine());
  page->addWidget(Account());
  page->addLayout(Choices());
  page->setSpacing(fontMetrics().height() / 2);

  const bool isKnown = question_.remembered >= 0 && question_.remembered < kSettleChoices;
  QPushButton* const shown = cmdHandle_[question_.mustComeDown || !isKnown ? 0 : question_.remembered];
  shown->setDefault(true);
  shown->setFocus();
}

QBoxLayout* frmSettleBet::RollLine() {
  auto* const dice = new QLabel(ToQt("Dice " + std::to_string(g.Die1) + " and " + std::to_string(g.Die2) +
                                     ", total " + std::to_string(g.DiceTotal)));
  Name(*dice, "lblDice", dice->text());
  auto* const bankroll = new QLabel(ToQt(FormatMoney(g.BetAmount[SlotBankroll], "Bankroll $")));
  Name(*bankroll, "lblBankroll", bankroll->text());
  auto* const line = new QHBoxLayout;
  line->addWidget(dice);
  line->addStretch();
  line->addWidget(bankroll);
  return line;
}

QWidget* frmSettleBet::Account() {
  auto* const account = new QFrame;
  account->setFrameShape(QFrame::StyledPanel);
  account->setBackgroundRole(QPalette::Base);
  account->setAutoFillBackground(true);
  auto* const grid = new QGridLayout(account);
  grid->setColumnStretch(0, 1);
  grid->setHorizontalSpacing(fontMetrics().height() * 2);
  const int rows = std::min(kAccountRows, static_cast<int>(question_.rows.size()));
  for (int row = 0; row < rows; ++row) {
    const SettleRow& entry = question_.rows[static_cast<std::size_t>(row)];
    QLabel* const type = PlainLabel("lblWonBetType", row, ToQt(entry.label));
    QLabel* const amount = PlainLabel("lblWonBet", row, ToQt(entry.amount));
    amount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (entry.bold) {
      auto* const line = new QFrame;
      line->setFrameShape(QFrame::HLine);
      grid->addWidget(line, 2 * row, 0, 1, 2);
      QFont bold = font();
      bold.setBold(true);
      type->setFont(bold);
      amount->setFont(bold);
    }
    grid->addWidget(type, 2 * row + 1, 0);
    grid->addWidget(amount, 2 * row + 1, 1);
  }
  return account;
}

QGridLayout* frmSettleBet::Choices() {
  auto* const grid = new QGridLayout;
  grid->setColumnStretch(2, 1);
  grid->setSpacing(style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing));
  for (int choice = 0; choice < kSettleChoices; ++choice) {
    AddChoice(*grid, choice);
    if (choice >= kFirstFormula) AddFormula(*grid, choice - kFirstFormula);
  }
  return grid;
}

void frmSettleBet::AddChoice(QGridLayout& grid, int choice) {
  auto* const key = PlainLabel("lblKey", choice, QString::number(choice + 1));
  key->setAccessibleName("Key " + key->text());
  grid.addWidget(key, choice, 0);

  const QString caption = OneAccelerator(ToQt(question_.choices[static_cast<std::size_t>(choice)]));
  auto* const button = new QPushButton(caption);
  Name(*button, "cmdHandle", choice, caption);
  button->setEnabled(choice == 0 || !question_.mustComeDown);
  connect(button, &QPushButton::clicked, this, [this, choice] { Choose(choice); });
  cmdHandle_[choice] = button;
  grid.addWidget(button, choice, 1, 1, choice < kFirstFormula ? 5 : 1);

  lblPreview_[choice] = PlainLabel("lblPreview", choice, {});
  lblPreview_[choice]->setIndent(fontMetrics().averageCharWidth());
  grid.addWidget(lblPreview_[choice], choice, 6);
}

void frmSettleBet::AddFormula(QGridLayout& grid, int row) {
  const int choice = kFirstFormula + row;
  const QString which = Spoken(cmdHandle_[choice]->text()).remove(':');
  if (row == 0) {
    cmdMathOperator_ = new QPushButton;
    Name(*cmdMathOperator_, "cmdMathOperator", which + " operator");
    cmdMathOperator_->setAutoDefault(false);
    connect(cmdMathOperator_, &QPushButton::clicked, this, [this] { StepOperator(); });
    grid.addWidget(cmdMathOperator_, choice, 2);
  }

  auto* const label = PlainLabel("lblModifyAmount", choice, "Amount:");
  auto* const field = new NumberField;
  label->setBuddy(field);
  Name(*field, "txtModifyAmount", choice, which + " amount");
  field->setValidator(new AmountValidator(*field));
  field->SetLimits(Money(), kLargestModifyAmount);
  field->SetValue(rows_[row].formula.amount);
  connect(field, &NumberField::textEdited, this, [this, row, choice] {
    rows_[row].wasRefused = false;
    cmdHandle_[choice]->setDefault(true);
  });
  connect(field, &NumberField::Refused, this, [this, row] { rows_[row].wasRefused = true; });
  connect(field, &NumberField::Entered, this, [this, row, choice](Money amount) {
    rows_[row].formula.amount = amount;
    ShowPreview(choice);
  });
  rows_[row].txtModifyAmount = field;
  grid.addWidget(label, choice, 3);
  grid.addWidget(field, choice, 4);

  auto* const units = new QPushButton;
  Name(*units, "cmdUnits", choice, which + " unit");
  units->setAutoDefault(false);
  connect(units, &QPushButton::clicked, this, [this, row] { StepUnit(row); });
  rows_[row].cmdUnits = units;
  grid.addWidget(units, choice, 5);

  for (QWidget* const control : {static_cast<QWidget*>(field), static_cast<QWidget*>(units)}) {
    control->setEnabled(!question_.mustComeDown);
  }
  cmdMathOperator_->setEnabled(!question_.mustComeDown);
}

void frmSettleBet::StepOperator() {
  rows_[0].formula.formulaOperator = (rows_[0].formula.formulaOperator + 1) % 4;
  ShowFormulas();
}

void frmSettleBet::StepUnit(int row) {
  std::int32_t& unit = rows_[row].formula.unit;
  unit = unit == kLastUnit ? 0 : unit + 1;
  if (row == 1 && unit == kPercent) ++unit;  // a new bet is no share of anything
  ShowFormulas();
}

QString frmSettleBet::UnitCaption(std::int32_t unit) const {
  if (unit <= kPercent) return unit == kPercent ? "%" : "$";
  const Money chip = g.BetAmount[SlotUnits + unit];
  return ToQt(FormatMoney(Product(chip, g.PayoffTable[question_.bet].Base), "$") + " Units");
}

void frmSettleBet::ShowFormulas() {
  cmdMathOperator_->setText(kOperators[rows_[0].formula.formulaOperator]);
  for (int row = 0; row < kFormulas; ++row) {
    rows_[row].cmdUnits->setText(UnitCaption(rows_[row].formula.unit));
    ShowPreview(kFirstFormula + row);
  }
}

void frmSettleBet::Fill() {
  ReserveRoom();
  for (int choice = 0; choice < kFirstFormula; ++choice) ShowPreview(choice);
  ShowFormulas();
  // On a small screen with large letters the choices need all the room.
  const bool hasRoom = sizeHint().width() <= screen()->availableGeometry().width();
  for (QLabel* const preview : lblPreview_) preview->setVisible(hasRoom);
}

// Nothing moves under the pointer while the units are stepped through.
void frmSettleBet::ReserveRoom() {
  for (const FormulaRow& row : rows_) {
    int widest = 0;
    for (std::int32_t unit = 0; unit <= kLastUnit; ++unit) {
      row.cmdUnits->setText(UnitCaption(unit));
      widest = std::max(widest, row.cmdUnits->sizeHint().width());
    }
    row.cmdUnits->setMinimumWidth(widest);
  }
  lblPreview_[0]->setMinimumWidth(fontMetrics().horizontalAdvance("Bet becomes $10,000"));
}

void frmSettleBet::ShowPreview(int choice) {
  QLabel& preview = *lblPreview_[choice];
  if (question_.mustComeDown && choice > 0) return preview.clear();
  const Money amount = BetAfterAnswer(g, question_, {choice, Formulas()});
  preview.setText(amount == Money() ? "Bet comes down" : ToQt(FormatMoney(amount, "Bet becomes $")));
  preview.setAccessibleName(preview.text());
}

std::array<SettleFormula, frmSettleBet::kFormulas> frmSettleBet::Formulas() const {
  return {rows_[0].formula, rows_[1].formula};
}

void frmSettleBet::Choose(int choice) {
  for (int row = 0; row < kFormulas; ++row) {
    NumberField& field = *rows_[row].txtModifyAmount;
    const bool wasRefused = !field.Commit() || rows_[row].wasRefused;
    rows_[row].wasRefused = false;
    // Nobody bets by a formula whose amount has just gone back to another one: the next press takes it.
    if (wasRefused && choice == kFirstFormula + row) return field.setFocus();
  }
  answer_ = {choice, Formulas()};
  done(choice);
}

void frmSettleBet::reject() {
  const auto shown =
      std::ranges::find_if(cmdHandle_, [](const QPushButton* button) { return button->isDefault(); });
  Choose(shown == cmdHandle_.end() ? 0 : static_cast<int>(shown - cmdHandle_.begin()));
}

void frmSettleBet::showEvent(QShowEvent* event) {
  Screen::showEvent(event);
  for (QPushButton* const button : cmdHandle_) {
    if (button->isDefault()) SnapPointerTo(*button);
  }
}

void frmSettleBet::keyPressEvent(QKeyEvent* event) {
  const int choice = event->key() - Qt::Key_1;
  const bool isAlone = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (choice < 0 || choice >= kSettleChoices || !isAlone) return Screen::keyPressEvent(event);
  if (event->isAutoRepeat()) return;  // a key held since before the dialog came up has chosen nothing
  cmdHandle_[choice]->click();        // nothing while it is disabled
}

SettleAnswer ShowSettleWindow(Game& g, const SettleQuestion& question, QWidget* owner,
                              const HelpOpener& showHelp) {
  const QPointer<frmSettleBet> dialog = new frmSettleBet(g, question, owner);
  dialog->ShowHelp = showHelp;
  dialog->exec();
  // A table that was closed meanwhile takes the bet down.
  const SettleAnswer answer = dialog ? dialog->Chosen() : SettleAnswer();
  delete dialog;
  return answer;
}

}  // namespace rollwick
