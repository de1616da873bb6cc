// The Settle Bet dialog: what one decided bet won or lost, and what is to become of it.
#pragma once

#include <array>

#include "ui/screens/Screen.h"

class QBoxLayout;
class QGridLayout;
class QLabel;
class QPushButton;

namespace rollwick {

class NumberField;

class frmSettleBet : public Screen {
  Q_OBJECT

 public:
  frmSettleBet(Game& g, const SettleQuestion& question, QWidget* owner);

  // The choice and the values of both formula rows.
  const SettleAnswer& Chosen() const { return answer_; }

  // Escape and the close box take the default on show.
  void reject() override;

 protected:
  void Fill() override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  static constexpr int kFirstFormula = 5;  // the choices 5 and 6 have a formula beside them
  static constexpr int kFormulas = 2;

  struct FormulaRow {
    NumberField* txtModifyAmount = nullptr;
    QPushButton* cmdUnits = nullptr;
    SettleFormula formula;
    bool wasRefused = false;  // the entry was, and nothing has been typed since
  };

  QWidget* Account();
  QBoxLayout* RollLine();
  QGridLayout* Choices();
  void AddChoice(QGridLayout& grid, int choice);
  void AddFormula(QGridLayout& grid, int row);
  void StepOperator();
  void StepUnit(int row);
  QString UnitCaption(std::int32_t unit) const;
  void ShowFormulas();
  void ReserveRoom();
  void ShowPreview(int choice);
  void Choose(int choice);
  std::array<SettleFormula, kFormulas> Formulas() const;

  const SettleQuestion question_;
  SettleAnswer answer_;
  std::array<QPushButton*, kSettleChoices> cmdHandle_{};
  std::array<QLabel*, kSettleChoices> lblPreview_{};
  QPushButton* cmdMathOperator_ = nullptr;
  std::array<FormulaRow, kFormulas> rows_;
};

// Shows the dialog, modal to `owner`, and gives what was chosen.
SettleAnswer ShowSettleWindow(Game& g, const SettleQuestion& question, QWidget* owner,
                              const HelpOpener& showHelp = {});

}  // namespace rollwick
