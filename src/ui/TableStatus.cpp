#include "ui/TableStatus.h"

#include <filesystem>

#include "base/FormatNumber.h"
#include "ui/screens/Captions.h"

namespace rollwick {
namespace {

QString FileText(const Game& g) {
  const auto name = std::filesystem::path(g.GamePath).filename().string();
  QString text = ToQt(name);
  const auto add = [&text](const QString& part) {
    if (!text.isEmpty()) text += "  ";
    text += part;
  };
  if (g.TableDirty) add("not saved");
  if (g.DiceFileMode == DiceFileRecording) add("REC");
  if (g.DiceFileMode == DiceFilePlayback) add("PLAY");
  if (g.RecordEventsActive) add("LOG");
  return text;
}

}  // namespace

TableStatus::TableStatus(QWidget* parent) : QStatusBar(parent) {
  Name(*this, "statusTable", "Status of the table");
  lblStatus_ = AddLabel("lblStatus", "What acts by itself");
  lblBankroll_ = AddLabel("lblBankroll", "Bankroll");
  lblOnTheTable_ = AddLabel("lblOnTheTable", "Bets on the table");
  lblAvailable_ = AddLabel("lblAvailable", "Bankroll that is not bet");
  lblPoint_ = AddLabel("lblPoint", "Point");
  lblRollNumber_ = AddLabel("lblRollNumber", "Rolls of the game");
  lblFile_ = AddLabel("lblFile", "Game file and recorder");
}

QLabel* TableStatus::AddLabel(const char* name, const char* accessible) {
  auto* const label = new QLabel(this);
  Name(*label, name, accessible);
  label->setTextFormat(Qt::PlainText);
  label->hide();
  addPermanentWidget(label);
  return label;
}

void TableStatus::Refresh(const Game& g) {
  const auto show = [](QLabel* label, const QString& text) {
    if (label->text() != text) label->setText(text);
    label->setVisible(!text.isEmpty());
  };
  show(lblBankroll_, ToQt(FormatMoney(g.BetAmount[SlotBankroll], "Bankroll $")));
  show(lblOnTheTable_, ToQt(FormatMoney(g.TotalBets, "On the table $")));
  show(lblAvailable_, ToQt(FormatMoney(AvailableBankroll(g), "Available $")));
  show(lblPoint_, g.Point == 0 ? QString("Point OFF") : QString("Point %1").arg(g.Point));
  show(lblRollNumber_, ToQt(FormatMoney(Dollars(g.RollCount()), "Roll #")));
  show(lblFile_, FileText(g));
  MakeRoom();
}

// What is also told elsewhere (the rail, the caption) gives way to the calls where there is no room for both.
void TableStatus::MakeRoom() {
  const int forCalls = fontMetrics().horizontalAdvance("Seven out (3 + 4), the point");
  int free = width() - forCalls;
  const int gap = 6;
  for (QLabel* const label :
       {lblStatus_, lblBankroll_, lblOnTheTable_, lblPoint_, lblRollNumber_, lblAvailable_, lblFile_}) {
    if (label->text().isEmpty()) continue;
    free -= label->sizeHint().width() + gap;
    label->setVisible(free >= 0 || (label != lblAvailable_ && label != lblFile_));
  }
}

void TableStatus::resizeEvent(QResizeEvent* event) {
  QStatusBar::resizeEvent(event);
  MakeRoom();
}

void TableStatus::ShowRun(const QString& word) {
  lblStatus_->setText(word);
  lblStatus_->setVisible(!word.isEmpty());
  MakeRoom();
}

QString CallText(const Game& g) {
  const int total = g.Die1 + g.Die2;
  const bool isComeOut = g.Point == 0;
  const char* outcome = "";
  if (total == 7) {
    outcome = isComeOut ? ", pass" : ", seven out";
  } else if (isComeOut && (total < 4 || total == 12)) {
    outcome = ", craps";
  } else if (isComeOut && total == 11) {
    outcome = ", pass";
  } else if (isComeOut) {
    outcome = ", the point";
  } else if (total == g.Point) {
    outcome = ", pass";
  }
  return QString("%1 (%2 + %3)%4")
      .arg(g.Die1 == g.Die2 && IsBoxNumber(total) ? QString("Hard %1").arg(total) : QString::number(total))
      .arg(g.Die1)
      .arg(g.Die2)
      .arg(outcome);
}

}  // namespace rollwick
