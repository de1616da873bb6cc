// What the entries of the table's menus and the picture's own wishes do.
#include <QApplication>
#include <QKeySequence>

#include "engine/state/Game.h"
#include "session/Scripts.h"
#include "ui/frmCrapTable.h"
#include "ui/screens/Captions.h"
#include "ui/screens/NumberField.h"
#include "ui/screens/frmAbout.h"
#include "ui/sound/SharedFolders.h"

namespace rollwick {

void frmCrapTable::ConnectPicture() {
  layout_->MayAct = [this] { return MayAct(); };
  layout_->IsHotKey = [this](const QString& key) { return FindHotKey(hotKeys_, FromQt(key)) != nullptr; };
  connect(layout_, &picLayout::RollWanted, this, &frmCrapTable::RollOrStop);
  connect(layout_, &picLayout::HotKeyTyped, this, &frmCrapTable::RunHotKeyOn);
  connect(layout_, &picLayout::DiceFileStopWanted, this, &frmCrapTable::StopDiceFile);
  connect(layout_, &picLayout::BetMenuWanted, this, &frmCrapTable::OpenBetMenu);
  connect(layout_, &picLayout::StatusText, status_, &TableStatus::Tell);
  connect(layout_, &picLayout::TableChanged, this, [this] {
    layout_->ShowFallenChips({});
    status_->Refresh(g);
    ShowSwitches();
  });
}

void frmCrapTable::ConnectMenus() {
  const auto toGame = [this](const char* name, bool (TableFiles::*act)(), bool isAnother) {
    menus_->Connect(name, [this, act, isAnother] {
      Act([&] {
        RememberPlace();
        if ((files_.*act)() && isAnother) GameHasChanged();
        ShowRecentGames();
      });
    });
  };
  toGame("mnuNew", &TableFiles::New, true);
  toGame("mnuOpen", &TableFiles::Open, true);
  toGame("mnuSave", &TableFiles::Save, false);
  toGame("mnuSaveAs", &TableFiles::SaveAs, false);
  menus_->Connect("mnuRollDice", [this] { RollOrStop(); });
  menus_->Connect("mnuExit", [this] { close(); });
  menus_->Connect("mnuHyperDrive", [this] { ToggleHyper(); });
  menus_->Connect("mnuAutoBetActive", [this] { Act([this] { ActivateScript(g, g.AutoBetsActive != 1); }); });
  menus_->Connect("mnuContents", [this] { ShowHelp("contents"); });
  menus_->Connect("mnuAbout", [this] { Act([this] { ShowAbout(); }); });
  ConnectBetEntries();

  const auto onKey = [this](const char* name, const char* text, QKeySequence keys,
                            const std::function<void()>& act) {
    auto* const action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, act);
    addAction(action);
  };
  onKey("actFullScreen", "Full Screen", QKeySequence("F11"),  // few desktops have a key for it
        [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); });
  onKey("actLastError", "Last Error", QKeySequence("Ctrl+Alt+E"), [this] { ShowLastError(); });
}

void frmCrapTable::ConnectBetEntries() {
  const auto toHand = [this](const char* name, void (TableHand::*act)()) {
    menus_->Connect(name, [this, act] { Act([&] { (hand_.*act)(); }); });
  };
  toHand("mnuUndo", &TableHand::Undo);
  toHand("mnuRedo", &TableHand::Redo);
  toHand("mnuRemoveAllBets", &TableHand::RemoveAll);
  toHand("mnuTakeAllOdds", &TableHand::TakeAllOdds);
  toHand("mnuLayAllOdds", &TableHand::LayAllOdds);
  menus_->Connect("mnuSameBets", [this] { Act([this] { SameBets(); }); });
  menus_->Connect("mnuClearBets", [this] { Act([this] { ClearBets(); }); });
  menus_->Connect("mnuCallAllBetsOn", [this] { Act([this] { hand_.CallAll(true); }); });
  menus_->Connect("mnuCallAllBetsOff", [this] { Act([this] { hand_.CallAll(false); }); });
  menus_->Connect("mnuWithdraw", [this] { Act([this] { UseAtm(AtmDirection::Withdraw); }); });
  menus_->Connect("mnuDeposit", [this] { Act([this] { UseAtm(AtmDirection::Deposit); }); });

  const auto toBet = [this](const char* name, ClickMode mode, const char* note,
                            void (frmCrapTable::*act)(BetId)) {
    menus_->Connect(name, [this, mode, note, act] { Act([&] { ForBet(mode, note, act); }); });
  };
  toBet("mnuRemoveBet", ClickMode::Remove, "Click on bet to remove", &frmCrapTable::RemoveBet);
  toBet("mnuBuyPlaceBet", ClickMode::Buy, "Click on bet to buy", &frmCrapTable::BuyPlaceBet);
  toBet("mnuCallBetOn", ClickMode::CallOn, "Click on bet to call ON", &frmCrapTable::CallBetOn);
  toBet("mnuCallBetOff", ClickMode::CallOff, "Click on bet to call OFF", &frmCrapTable::CallBetOff);

  const auto toSwitch = [this](const char* name, bool ScreenTables::*setting) {
    menus_->Connect(name, [this, setting] {
      Act([&] {
        g.*setting = !(g.*setting);
        g.TableDirty = true;
      });
    });
  };
  toSwitch("mnuKeyInBetAmounts", &ScreenTables::KeyInBetAmounts);
  toSwitch("mnuDisplayBetAmounts", &ScreenTables::DisplayBetAmounts);
  toSwitch("mnuDisplayHopBets", &ScreenTables::DisplayHopBets);
}

void frmCrapTable::ForBet(ClickMode mode, const char* note, void (frmCrapTable::*act)(BetId)) {
  if (const BetId bet = layout_->BetAtHand(); bet != SpotNone) return (this->*act)(bet);
  hand_.ChooseMode(mode);
  if (hand_.Mode() == mode) layout_->ShowNote(note);
}

// What the rules hold fast is told, so that nobody wonders.
void frmCrapTable::ClearBets() {
  hand_.RemoveAll();
  status_->Tell(g.BetsStanding.IsEmpty() ? "All bets are down." : "What is still up may not come down now.");
}

void frmCrapTable::SameBets() {
  hand_.SameBetsAsLastHand();
  if (!hand_.LastHandStands()) status_->Tell("Not every bet of last hand may be made now.");
}

void frmCrapTable::UseAtm(AtmDirection direction) {
  const bool isWithdrawal = direction == AtmDirection::Withdraw;
  const Prompt prompt = {PromptKind::Money, isWithdrawal ? "Amount to withdraw: " : "Amount to deposit: ",
                         isWithdrawal ? "ATM Withdrawal" : "ATM Deposit", PlainText(g.Rules.AtmAmount), 15};
  const EntryCheck isSome = [](const QString& entry) {
    const auto amount = NumberField::Parse(entry);
    return amount && *amount > Money() ? QString() : QString("Please enter an amount above 0.");
  };
  MessageExtras extras;
  extras.showHelp = host_.ShowHelp;
  const auto entered = AskInWindow(g, prompt, this, isSome, extras);
  if (const auto amount = entered ? ParseMoney(*entered) : std::nullopt)
    AtmTransaction(g, direction, *amount);
}

void frmCrapTable::OpenBetMenu(int spot, const QPoint& globalPosition) {
  if (!MayAct() || IsBusy()) return;
  const std::vector<BetId> bets = BetsAt(g, spot);
  if (bets.empty()) return;
  MakeBetMenu(g, bets, this, [this](BetId bet, BetEntry entry) {
    Act([&] { DoWithBet(bet, entry); });
  })->popup(globalPosition);
}

void frmCrapTable::DoWithBet(BetId bet, BetEntry entry) {
  switch (entry) {
    case BetEntry::Amount:
      return layout_->KeyIn(bet);
    case BetEntry::TakeDown:
      return hand_.Remove(bet);
    case BetEntry::CallOn:
    case BetEntry::CallOff:
      return hand_.Call(bet, entry == BetEntry::CallOn);
    case BetEntry::Buy:
      return hand_.Buy(bet);
    case BetEntry::FullOdds:
      return hand_.FullOdds(bet);
    case BetEntry::ExplainPayoff:
      ShowMessage(g, FromQt(layout_->QuickStats(bet).trimmed() + "\n\n" + HouseShareText(g, bet)),
                  BetName(bet), MessagePlain | MessageInformation);
  }
}

// Reading disturbs no run.
// A dialog keeps all windows but its own from being used, so its help is one of them.
void frmCrapTable::ShowHelp(const QString& page) {
  if (QWidget* const dialog = QApplication::activeModalWidget()) {
    auto* const help = new HelpWindow(HelpFolder(), dialog);
    help->setAttribute(Qt::WA_DeleteOnClose);
    return help->Open(page);
  }
  if (help_ == nullptr) help_ = new HelpWindow(HelpFolder(), this);
  help_->Open(page);
}

void frmCrapTable::ShowAbout() {
  ShowAboutWindow(g, ROLLWICK_VERSION, {{"Games and settings", dataFolder_}, {"Help", HelpFolder()}}, this,
                  host_.ShowHelp);
}

void frmCrapTable::ShowLastError() {
  Act([this] {
    ShowMessage(g, g.LastErrorText.empty() ? "No error recorded." : g.LastErrorText, "Last Error",
                MessagePlain | MessageInformation);
  });
}

}  // namespace rollwick
