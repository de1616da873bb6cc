#include "ui/TableMenus.h"

#include <QMenuBar>
#include <algorithm>
#include <array>
#include <cassert>
#include <string_view>

#include "ui/screens/Captions.h"

namespace rollwick {
namespace {

struct MenuEntry {
  const char* name;  // empty: a line between entries
  const char* text = "";
  const char* keys = "";  // of an entry that works wherever the focus is
  bool isSwitch = false;
};

// What stands behind a tabulator is a key of the picture: it is shown here and heard there.
constexpr MenuEntry kGame[] = {
    {"mnuNew", "&New", "Ctrl+N"},         {"mnuOpen", "&Open Game...", "Ctrl+O"},
    {"mnuSave", "&Save Game", "Ctrl+S"},  {"mnuSaveAs", "Save Game &As...", "Ctrl+Shift+S"},
    {"mnuRecentGames", "Recent &Games"},  {""},
    {"mnuRollDice", "&Roll Dice\tSpace"}, {""},
    {"mnuPrintSetup", "Print Set&up..."}, {""},
    {"mnuExit", "E&xit", "Ctrl+Q"},
};
constexpr MenuEntry kBets[] = {
    {"mnuUndo", "&Undo", "Ctrl+Z"},
    {"mnuRedo", "R&edo", "Ctrl+Shift+Z"},
    {""},
    {"mnuRemoveBet", "&Remove Bet\tDel"},
    {"mnuBuyPlaceBet", "&Buy Place Bet"},
    {"mnuCallBetOn", "Call Bet &ON"},
    {"mnuCallBetOff", "Call Bet O&FF"},
    {"mnuCallAllBetsOn", "Call &All Bets ON"},
    {"mnuCallAllBetsOff", "Call A&ll Bets OFF"},
    {"mnuRemoveAllBets", "Re&move All Bets"},
    {"mnuTakeAllOdds", "&Take All Odds", "Ctrl+T"},
    {"mnuLayAllOdds", "La&y All Odds", "Ctrl+L"},
    {""},
    {"mnuSameBets", "&Same Bets as Last Hand", "Ctrl+B"},
    {"mnuClearBets", "&Clear My Bets", "Ctrl+Backspace"},
    {""},
    {"mnuWithdraw", "&Withdraw from ATM..."},
    {"mnuDeposit", "De&posit to ATM..."},
    {""},
    {"mnuKeyInBetAmounts", "&Key In Bet Amounts", "Ctrl+K", true},
    {"mnuDisplayBetAmounts", "&Display Bet Amounts", "", true},
    {"mnuDisplayHopBets", "Display &Hop Bets", "Ctrl+H", true},
};
constexpr MenuEntry kAuto[] = {
    {"mnuAutoPlay", "Auto-&Play..."},
    {"mnuAutoBet", "Auto-&Bet..."},
    {"mnuAutoBetActive", "Auto-Bet &Active", "", true},
    {"mnuShowSteps", "Show &Steps", "", true},
    {"mnuHyperDrive", "Start Hyper-&Drive", "F9"},
};
constexpr MenuEntry kStats[] = {
    {"mnuSummary", "&Summary"},        {"mnuBankroll", "&Bankroll"},
    {"mnuRollTotals", "&Roll Totals"}, {"mnuRollFreqs", "Roll &Frequencies"},
    {"mnuBetResults", "Bet R&esults"}, {"mnuBetTrends", "Bet &Trends"},
    {"mnuGamesLog", "&Games Log"},     {"mnuEventsLog", "E&vents Log"},
};
constexpr MenuEntry kTools[] = {
    {"mnuConfigure", "&Configuration..."}, {"mnuDiceRollFiles", "&Dice Roll Files"},
    {"mnuRYON", "Roll &Your Own Numbers"}, {"mnuHotKeys", "&Hot-Keys..."},
    {"mnuChipStacks", "Chip-&Stacks"},     {"mnuFlagValues", "&Flags"},
};
constexpr MenuEntry kHelp[] = {
    {"mnuContents", "&Contents", "F1"},
    {"mnuAbout", "&About Rollwick"},
};

template <std::size_t count>
void Fill(QMainWindow& window, const char* name, const char* title, const MenuEntry (&entries)[count]) {
  QMenu& menu = *window.menuBar()->addMenu(title);
  menu.setObjectName(name);
  for (const MenuEntry& entry : entries) {
    if (std::string_view(entry.name).empty()) {
      menu.addSeparator();
      continue;
    }
    QAction& action = *menu.addAction(entry.text);
    action.setObjectName(entry.name);
    action.setShortcut(QKeySequence(entry.keys));
    action.setCheckable(entry.isSwitch);
    action.setEnabled(false);
  }
}

// What can be chosen while the dice roll.
constexpr std::array<std::string_view, 4> kOfARun = {"mnuRollDice", "mnuHyperDrive", "mnuExit",
                                                     "mnuContents"};

}  // namespace

TableMenus::TableMenus(QMainWindow& window) : window_(window) {
  Fill(window, "menuGame", "&Game", kGame);
  Fill(window, "menuBets", "&Bets", kBets);
  Fill(window, "menuAuto", "&Auto", kAuto);
  Fill(window, "menuStats", "&Stats", kStats);
  Fill(window, "menuTools", "&Tools", kTools);
  Fill(window, "menuHelp", "&Help", kHelp);
  auto* const recent = new QMenu(&window);
  recent->setObjectName("menuRecentGames");
  Entry("mnuRecentGames").setMenu(recent);
}

QAction& TableMenus::Entry(const char* name) const {
  auto* const action = window_.findChild<QAction*>(name);
  assert(action != nullptr);
  return *action;
}

void TableMenus::Connect(const char* name, std::function<void()> act) {
  QAction& action = Entry(name);
  action.setEnabled(true);
  connected_.push_back(&action);
  QObject::connect(&action, &QAction::triggered, &window_, std::move(act));
}

void TableMenus::ShowRecentGames(const std::vector<std::filesystem::path>& games,
                                 const std::function<void(const std::filesystem::path&)>& open) {
  QAction& entry = Entry("mnuRecentGames");
  QMenu& menu = *entry.menu();
  menu.clear();
  for (std::size_t at = 0; at < games.size(); ++at) {
    const QString number = QString::number(at + 1);
    const QString name = WithoutAccelerator(ToQt(games[at].filename().string()));
    QAction& action = *menu.addAction("&" + number + "  " + name);
    action.setObjectName("mnuRecentGame_" + number);
    action.setToolTip(ToQt(games[at].string()));
    QObject::connect(&action, &QAction::triggered, &window_, [open, game = games[at]] { open(game); });
  }
  menu.setToolTipsVisible(true);
  entry.setEnabled(!games.empty());
}

void TableMenus::SetRolling(bool isRolling) {
  for (QAction* const action : connected_) {
    const std::string name = action->objectName().toStdString();
    action->setEnabled(!isRolling || std::ranges::find(kOfARun, name) != kOfARun.end());
  }
}

}  // namespace rollwick
