#include "ui/BetMenu.h"

#include <cmath>

#include "base/FormatNumber.h"
#include "layout/HotSpots.h"
#include "stats/advantage/EvaluateBet.h"
#include "ui/screens/Captions.h"

namespace rollwick {
namespace {

bool HasChips(const Game& g, BetId bet) {
  return g.BetAmount[bet] != Money();
}

// Odds themselves, or a bet that takes some.
bool HasOdds(BetId bet) {
  return IsOdds(bet) || bet == Bet::PassLine || bet == Bet::DontPass || IsComeNumber(bet) ||
         IsDontComeNumber(bet);
}

bool Applies(const Game& g, BetId bet, BetEntry entry) {
  switch (entry) {
    case BetEntry::Amount:
      return true;
    case BetEntry::TakeDown:
      return HasChips(g, bet);
    case BetEntry::CallOn:
    case BetEntry::CallOff:
      return IsBet(bet) && HasChips(g, bet);
    case BetEntry::Buy:
      return IsPlace(bet) && HasChips(g, bet);
    case BetEntry::FullOdds:
      return HasOdds(bet) && HasChips(g, IsOdds(bet) ? FlatOf(bet) : bet);
    case BetEntry::ExplainPayoff:
      return IsBet(bet);
  }
  return false;
}

struct EntryText {
  BetEntry entry;
  const char* name;
  const char* text;
};
constexpr EntryText kEntries[] = {
    {BetEntry::Amount, "mnuBetAmount", "&Bet $..."},
    {BetEntry::TakeDown, "mnuBetTakeDown", "&Take Down"},
    {BetEntry::CallOn, "mnuBetCallOn", "Call &ON"},
    {BetEntry::CallOff, "mnuBetCallOff", "Call O&FF"},
    {BetEntry::Buy, "mnuBetBuy", "B&uy"},
    {BetEntry::FullOdds, "mnuBetFullOdds", "Full O&dds"},
    {BetEntry::ExplainPayoff, "mnuBetExplain", "&Explain Payoff"},
};

void AddEntries(const Game& g, BetId bet, QMenu& menu, const std::function<void(BetId, BetEntry)>& choose) {
  for (const EntryText& text : kEntries) {
    QAction& action = *menu.addAction(text.text);
    action.setObjectName(QString("%1_%2").arg(text.name).arg(bet));
    action.setEnabled(Applies(g, bet, text.entry));
    QObject::connect(&action, &QAction::triggered, &menu,
                     [choose, bet, entry = text.entry] { choose(bet, entry); });
  }
}

QString OfHundred(double share) {
  return ToQt(FormatNumber(std::abs(share) * 100, "#,0.00##;;0.00"));
}

}  // namespace

std::vector<BetId> BetsAt(const Game& g, int spot) {
  if (spot == Bet::DontPassOdds && HasChips(g, Bet::DontPass)) return {Bet::DontPass, Bet::DontPassOdds};
  if ((IsPlace(spot) || IsBuy(spot))) {
    const BetId place = PlaceOn(NumberOf(spot)), buy = BuyOn(NumberOf(spot));
    if (HasChips(g, place) && HasChips(g, buy)) return {place, buy};
    if (HasChips(g, place) || HasChips(g, buy)) return {BoxAnswer(g, spot)};
  }
  if (IsBet(spot) || IsChipStack(spot)) return {spot};
  return {};
}

QMenu* MakeBetMenu(const Game& g, const std::vector<BetId>& bets, QWidget* parent,
                   const std::function<void(BetId, BetEntry)>& choose) {
  auto* const menu = new QMenu(parent);
  menu->setObjectName("menuBet");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (bets.size() == 1) {
    menu->addSection(ToQt(BetName(bets.front())));
    AddEntries(g, bets.front(), *menu, choose);
    return menu;
  }
  for (std::size_t at = 0; at < bets.size(); ++at) {
    QMenu& own = *menu->addMenu(QString("&%1  %2").arg(at + 1).arg(ToQt(BetName(bets[at]))));
    AddEntries(g, bets[at], own, choose);
  }
  return menu;
}

QString HouseShareText(const Game& g, BetId bet) {
  const BetFigures figures = EvaluateBet(g, bet);
  return QString("In the long run a bet of $100 %1 $%2 a decision and $%3 a roll.")
      .arg(figures.EvPerDecision < 0 ? "loses" : "earns", OfHundred(figures.EvPerDecision),
           OfHundred(figures.EvPerRoll));
}

}  // namespace rollwick
