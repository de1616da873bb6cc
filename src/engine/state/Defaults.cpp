// How the house opens: payoffs, working bets, denominations, an empty table.
#include <algorithm>

#include "engine/state/Game.h"

namespace rollwick {

namespace {

struct DefaultPayoff {
  BetId bet;
  int ratio;
  int base;
};

// All rows that are not 1 to 1.
constexpr DefaultPayoff kDefaultPayoffs[] = {
    {Bet::Lay4, 1, 2},          {Bet::Lay5, 2, 3},          {Bet::Lay6, 5, 6},
    {Bet::Lay8, 5, 6},          {Bet::Lay9, 2, 3},          {Bet::Lay10, 1, 2},
    {Bet::DontCome4Odds, 1, 2}, {Bet::DontCome5Odds, 2, 3}, {Bet::DontCome6Odds, 5, 6},
    {Bet::DontCome8Odds, 5, 6}, {Bet::DontCome9Odds, 2, 3}, {Bet::DontCome10Odds, 1, 2},
    {Bet::Come4Odds, 2, 1},     {Bet::Come5Odds, 3, 2},     {Bet::Come6Odds, 6, 5},
    {Bet::Come8Odds, 6, 5},     {Bet::Come9Odds, 3, 2},     {Bet::Come10Odds, 2, 1},
    {Bet::Place4, 9, 5},        {Bet::Place5, 7, 5},        {Bet::Place6, 7, 6},
    {Bet::Place8, 7, 6},        {Bet::Place9, 7, 5},        {Bet::Place10, 9, 5},
    {Bet::Buy4, 2, 1},          {Bet::Buy5, 3, 2},          {Bet::Buy6, 6, 5},
    {Bet::Buy8, 6, 5},          {Bet::Buy9, 3, 2},          {Bet::Buy10, 2, 1},
    {Bet::Hard4, 7, 1},         {Bet::Hard6, 9, 1},         {Bet::Hard8, 9, 1},
    {Bet::Hard10, 7, 1},        {Bet::Two, 30, 1},          {Bet::Three, 15, 1},
    {Bet::Seven, 4, 1},         {Bet::Eleven, 15, 1},       {Bet::Twelve, 30, 1},
    {Bet::Craps, 7, 1},         {Bet::CAndE, 1, 2},         {Bet::Horn, 1, 4},
    {Bet::World, 1, 5},         {Bet::Hop13, 15, 1},        {Bet::Hop14, 15, 1},
    {Bet::Hop15, 15, 1},        {Bet::Hop16, 15, 1},        {Bet::Hop22, 30, 1},
    {Bet::Hop23, 15, 1},        {Bet::Hop24, 15, 1},        {Bet::Hop25, 15, 1},
    {Bet::Hop26, 15, 1},        {Bet::Hop33, 30, 1},        {Bet::Hop34, 15, 1},
    {Bet::Hop35, 15, 1},        {Bet::Hop36, 15, 1},        {Bet::Hop44, 30, 1},
    {Bet::Hop45, 15, 1},        {Bet::Hop46, 15, 1},        {Bet::Hop55, 30, 1},
};

constexpr int kDefaultDenominations[kChipCount] = {1, 5, 25, 100, 500};
constexpr Money kDefaultBankroll = Dollars(500);

}  // namespace

MatrixTable DefaultProbabilityMatrix() {
  MatrixTable matrix{};
  auto& values = matrix[MatrixValues];
  values[1] = {0, 2'778, 5'556, 8'333, 11'111, 13'889, 16'667, 13'889, 11'111, 8'333, 5'556, 2'778};
  for (std::size_t row = 2; row <= 7; ++row) {
    for (std::size_t column = row - 1; column <= 13 - row; ++column) values[row][column] = 2'778;
    values[row][12] = values[row][13] = 16'667;
  }
  return matrix;
}

int FieldIndex(int die1, int die2) {
  // By either die.
  static constexpr std::int8_t kIndex[7][7] = {
      {},
      {0, 1, 2, 3, 5, 7, 10},
      {0, 2, 4, 6, 8, 11, 13},
      {0, 3, 6, 9, 12, 14, 16},
      {0, 5, 8, 12, 15, 17, 18},
      {0, 7, 11, 14, 17, 19, 20},
      {0, 10, 13, 16, 18, 20, 21},
  };
  const bool arePair = die1 >= 0 && die1 <= 6 && die2 >= 0 && die2 <= 6;
  return arePair ? kIndex[die1][die2] : 0;
}

void RestoreDefaultPayoffs(Game& g) {
  g.PayoffTable.fill({});
  for (const DefaultPayoff& row : kDefaultPayoffs) {
    g.PayoffTable[row.bet] = {Dollars(row.ratio), true, Dollars(row.base)};
  }
  g.FieldPayoffTable.fill({});
  for (int index = 5; index <= 15; ++index) g.FieldPayoffTable[index].Ratio = Dollars(-1);  // totals 5 to 8
  g.FieldPayoffTable[1].Ratio = Dollars(2);
  g.FieldPayoffTable[21].Ratio = Dollars(2);
  SetLineOddsPayoffs(g);
}

void SetLineOddsPayoffs(Game& g) {
  if (g.Point == 0) return;
  g.PayoffTable[Bet::PassLineOdds] = g.PayoffTable[ComeOddsOn(g.Point)];
  g.PayoffTable[Bet::DontPassOdds] = g.PayoffTable[DontComeOddsOn(g.Point)];
}

void SetDefaultWorking(Game& g) {
  g.BetWorkingDefault.fill(On);
  for (BetId bet = Bet::Come4Odds; bet <= Bet::Buy10; ++bet) g.BetWorkingDefault[bet] = Off;
  for (BetId bet : {Bet::PassLineOdds, Bet::Come, Bet::DontPassOdds, Bet::DontCome}) {
    g.BetWorkingDefault[bet] = Off;
  }
  g.BetWorkingDefault[0] = Off;
  RefreshBetSets(g);
  ApplyComeOutWorking(g);
}

void RefreshBetSets(Game& g) {
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    g.BetsStanding.Set(bet, g.BetAmount[bet] != Money());
    g.BetsOnByDefault.Set(bet, g.BetWorkingDefault[bet] >= On);
    g.BetsAtThrow.Set(bet, g.BetAtThrow[bet] != Money());
    g.BetsAtEnd.Set(bet, g.BetAfterSettle[bet] > Money());
    SetBetWorking(g, bet, g.BetWorking[bet]);
  }
  g.ChangedSinceThrow = g.ChangedSinceEnd = SlotSet::Range(0, kSlotCount - 1);
  g.Asked.fill(kNotAsked);
}

void ApplyComeOutWorking(Game& g) {
  const bool newPoint = g.Point != 0 && g.Point == g.DiceTotal;
  if (g.Point != 0 && !newPoint) return;
  const BetSet called = g.BetsCalled, calledOn = called & g.BetsInAction;
  if (newPoint) {
    std::fill_n(g.BetWorking.begin() + 1, kBetCount, On);
  } else {
    std::copy_n(g.BetWorkingDefault.begin() + 1, kBetCount, g.BetWorking.begin() + 1);
  }
  called.ForEach([&](BetId bet) { g.BetWorking[bet] = calledOn.Has(bet) ? CalledOn : CalledOff; });
  g.BetsInAction = calledOn | ((newPoint ? kAllBets : g.BetsOnByDefault) - called);
}

void ResetBetWorking(Game& g, BetId bet) {
  if (!IsBet(bet)) return;
  const std::int32_t working = g.Point == 0 ? g.BetWorkingDefault[bet] : On;
  if (g.BetWorking[bet] != working) SetBetWorking(g, bet, working);
}

void SetStartUpDefaults(Game& g) {
  static_cast<GameTables&>(g) = GameTables();
  g.BetAmount[SlotBankroll] = kDefaultBankroll;
  g.InvestedBankroll = g.BankrollHigh = g.BankrollLow = g.GraphHigh = g.GraphLow = kDefaultBankroll;
  g.BankrollHistory[0] = Dollars(1);
  for (int chip = 0; chip < kChipCount; ++chip) {
    g.BetAmount[SlotChipDenom + chip] = Dollars(kDefaultDenominations[chip]);
  }
  g.BetAtThrow = g.BetAfterSettle = g.BetAmount;
  RestoreDefaultPayoffs(g);
  g.BetWorking.fill(On);
  g.BetWorking[0] = Off;
  SetDefaultWorking(g);
  KeepWorkingAfterSettle(g);
}

}  // namespace rollwick
