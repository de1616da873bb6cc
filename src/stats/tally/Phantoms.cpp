// The phantom dollar on every bet: rolls counted by kind in the ledger, decisions entered when they are read.
#include <algorithm>
#include <utility>

#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

// The phantom bets of a number, in the order of the bits of its presence.
constexpr std::array<BetId, 4> PhantomsOn(int number) {
  return {DontComeOn(number), DontComeOddsOn(number), ComeOn(number), ComeOddsOn(number)};
}

Money& InPlayOf(Game& g, int place, int bit) {
  const BetId bet = PhantomsOn(kBoxNumbers[place])[static_cast<std::size_t>(bit)];
  return g.BetWagers[PhantomWagers][bet][InPlay];
}

void ReadPresence(Game& g) {
  for (int place = 0; place < 6; ++place) {
    std::int32_t& presence = g.TheLedger.Phantoms.Presence[static_cast<std::size_t>(place)];
    presence = 0;
    for (int bit = 0; bit < 4; ++bit) presence |= (InPlayOf(g, place, bit) != Money() ? 1 : 0) << bit;
  }
}

void EnterPresence(Game& g) {
  for (int place = 0; place < 6; ++place) {
    const std::int32_t presence = g.TheLedger.Phantoms.Presence[static_cast<std::size_t>(place)];
    for (int bit = 0; bit < 4; ++bit) InPlayOf(g, place, bit) = Dollars(presence >> bit & 1);
  }
}

// Not the scratch row, nor the line odds, which are those of the point's number.
bool HasOwnPayoff(BetId row) {
  return row != 0 && row != Bet::PassLineOdds && row != Bet::DontPassOdds;
}

std::array<Money, kChipCount> Denominations(const Game& g) {
  std::array<Money, kChipCount> chips;
  std::copy_n(g.BetAmount.begin() + SlotChipDenom, kChipCount, chips.begin());
  return chips;
}

std::array<std::int32_t, 4> Biases(const Game& g) {
  return {g.LayBias, g.PlaceBias, g.DoBias, g.DontBias};
}

bool RulesAreUnchanged(const Game& g) {
  const RulesInForce& rules = g.TheLedger.Rules;
  for (BetId row = 0; row <= kBetCount; ++row) {
    if (HasOwnPayoff(row) && rules.PayoffTable[row] != g.PayoffTable[row]) return false;
  }
  return rules.FieldPayoffTable == g.FieldPayoffTable && rules.Rules == g.Rules &&
         rules.Denominations == Denominations(g) && rules.AutoAdjustBetAmounts == g.AutoAdjustBetAmounts &&
         rules.Biases == Biases(g);
}

void TakeOnRules(Game& g) {
  g.TheLedger.Rules = {g.PayoffTable,    g.FieldPayoffTable,     g.Rules,
                       Denominations(g), g.AutoAdjustBetAmounts, Biases(g)};
  PhantomLedger& phantoms = g.TheLedger.Phantoms;
  phantoms.PriceCount = 0;
  phantoms.FirstPrice.fill(-1);
  for (CellDecisions& cell : phantoms.Decisions) cell.Count = kNotPriced;
  ++g.TheLedger.RulesNumber;
}

// Enters `count` equal decisions. `isOfThisRoll`: the latest of them belongs to the roll that is going on.
void Enter(BetStatRow& row, Money amount, const PhantomPrice& price, bool isOfThisRoll) {
  row[TotalCount] += Dollars(price.Count);
  row[TotalAmount] += amount.Times(price.Count);
  if (amount > row[HighAmount]) row[HighAmount] = amount;
  if (amount > Money() && (row[LowAmount] == Money() || amount < row[LowAmount])) row[LowAmount] = amount;
  if (!isOfThisRoll) return;
  row[LastRollAmount] = amount;
  row[LastRollCount] = Dollars(1);
}

// The roll of the last amount in each row, while a ledger is entered.
struct LastRolls {
  std::array<std::int32_t, kBetCount + 1> wagers{};
  std::array<std::int32_t, kBetCount + 1> wins{};
  std::array<std::int32_t, kBetCount + 1> losses{};
};

void EnterLast(BetStatRow& row, Money amount, std::int32_t& last, std::int32_t roll) {
  if (roll < last) return;
  last = roll;
  row[LastAmount] = amount;
}

void EnterPrice(Game& g, const PhantomPrice& price, LastRolls& last) {
  const bool isOfThisRoll = g.TheLedger.Events.Stage == RollStage::Counted && price.LastRoll == g.RollCount();
  const BetId bet = price.Bet;
  BetStatRow& results = (price.Won ? g.BetWins : g.BetLosses)[PhantomWagers][bet];
  if (isOfThisRoll) MarkDecided(g, PhantomWagers, bet, price.Won);
  Enter(g.BetWagers[PhantomWagers][bet], price.Wager, price, isOfThisRoll);
  Enter(results, price.Amount, price, isOfThisRoll);
  EnterLast(g.BetWagers[PhantomWagers][bet], price.Wager, last.wagers[bet], price.LastRoll);
  EnterLast(results, price.Amount, (price.Won ? last.wins : last.losses)[bet], price.LastRoll);
}

// Hands the rolls of a cell on to the prices of its decisions, and empties it.
void EmptyCell(PhantomLedger& phantoms, std::int32_t touched) {
  ActionCells& action = phantoms.Actions[static_cast<std::size_t>(touched / kCellCount)];
  const auto cell = static_cast<std::size_t>(touched % kCellCount);
  const RollCell rolls = action.Cells[cell];
  action.Cells[cell] = {};
  const CellDecisions& decisions = phantoms.Decisions[cell];
  for (std::int32_t i = 0; i < decisions.Count; ++i) {
    PhantomPrice& price =
        phantoms.Prices[static_cast<std::size_t>(decisions.Prices[static_cast<std::size_t>(i)])];
    if (!action.InAction.Has(price.Bet)) continue;
    price.Count += rolls.Count;
    price.LastRoll = std::max(price.LastRoll, rolls.LastRoll);
  }
}

void EnterPhantoms(Game& g) {
  PhantomLedger& phantoms = g.TheLedger.Phantoms;
  EnterPresence(g);
  if (phantoms.TouchedCount == 0) return;
  for (std::int32_t i = 0; i < phantoms.TouchedCount; ++i) {
    EmptyCell(phantoms, phantoms.Touched[static_cast<std::size_t>(i)]);
  }
  phantoms.TouchedCount = 0;
  LastRolls last;
  for (std::int32_t i = 0; i < phantoms.PriceCount; ++i) {
    PhantomPrice& price = phantoms.Prices[static_cast<std::size_t>(i)];
    if (price.Count > 0) EnterPrice(g, price, last);
    price.Count = price.LastRoll = 0;
  }
}

}  // namespace

Money PhantomLayVig(const Game& g, BetId bet) {
  const PayoffRow& row = g.PayoffTable[bet];
  return Money::FromDouble(row.Ratio.ToDouble() / row.Base.ToDouble() * g.Rules.LayVigPct.ToDouble());
}

void StartCounting(Game& g) {
  RefreshBetSets(g);
  StartEventMarks(g);
  ReadPresence(g);
  if (!RulesAreUnchanged(g)) TakeOnRules(g);
}

void BringUpToDate(Game& g) {
  EnterEvents(g);
  EnterPhantoms(g);
}

void MovePhantoms(Game& g) {
  auto& presence = g.TheLedger.Phantoms.Presence;
  if (g.DiceTotal == 7) {
    presence.fill(0);
  } else if (IsBoxNumber(g.DiceTotal)) {
    presence[static_cast<std::size_t>(BoxPlace(g.DiceTotal))] = g.PointBeforeRoll > 0 ? kPresences - 1 : 0;
  }
}

CellDecisions& DecisionsOf(Game& g, int cell) {
  return g.TheLedger.Phantoms.Decisions[static_cast<std::size_t>(cell)];
}

void AddDecision(Game& g, CellDecisions& cell, BetId bet, Money result) {
  if (result == Money()) return;
  PhantomLedger& phantoms = g.TheLedger.Phantoms;
  const bool won = result > Money();
  const Money wager = Dollars(1) + VigOnDecision(g, PhantomWagers, bet, result), amount = Abs(result);
  std::int16_t& first = phantoms.FirstPrice[static_cast<std::size_t>(bet)];
  std::int16_t place = first;
  const auto price = [&]() -> PhantomPrice& { return phantoms.Prices[static_cast<std::size_t>(place)]; };
  while (place >= 0 && (price().Won != won || price().Wager != wager || price().Amount != amount))
    place = price().Next;
  if (place < 0) {
    place = static_cast<std::int16_t>(phantoms.PriceCount++);
    price() = {bet, won, wager, amount, std::exchange(first, place)};
  }
  cell.Prices[static_cast<std::size_t>(cell.Count++)] = place;
}

ActionCells& CellsOfOtherAction(Game& g) {
  PhantomLedger& phantoms = g.TheLedger.Phantoms;
  auto& actions = phantoms.Actions;
  const auto begin = actions.begin();
  auto found = std::find_if(begin, begin + phantoms.ActionCount,
                            [&](const ActionCells& cells) { return cells.InAction == g.BetsInAction; });
  if (found == actions.end()) {
    BringUpToDate(g);
    phantoms.ActionCount = 0;
    found = begin;
  }
  phantoms.Current = static_cast<std::int32_t>(found - begin);
  if (phantoms.Current == phantoms.ActionCount) {
    ++phantoms.ActionCount;
    found->InAction = g.BetsInAction;
  }
  return *found;
}

void TouchCell(Game& g, const ActionCells& action, int cell) {
  PhantomLedger& phantoms = g.TheLedger.Phantoms;
  const auto place = static_cast<std::int32_t>(&action - phantoms.Actions.data());
  phantoms.Touched[static_cast<std::size_t>(phantoms.TouchedCount++)] = place * kCellCount + cell;
}

}  // namespace rollwick
