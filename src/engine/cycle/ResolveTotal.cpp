// Who wins and who loses on each total, in the order the dealer settles them.
#include "engine/cycle/ResolveTotal.h"

#include <algorithm>

#include "engine/bets/Resolution.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

struct AutoStopItem {
  AutoStop any;
  AutoStop hard;  // the same item where the total cannot be hard
};

constexpr AutoStopItem kAutoStops[13] = {
    {},
    {},
    {StopOn2, StopOn2},
    {StopOn3, StopOn3},
    {StopOn4, StopOnHard4},
    {StopOn5, StopOn5},
    {StopOn6, StopOnHard6},
    {StopOn7, StopOn7},
    {StopOn8, StopOnHard8},
    {StopOn9, StopOn9},
    {StopOn10, StopOnHard10},
    {StopOn11, StopOn11},
    {StopOn12, StopOn12},
};

// The hop bet on two dice; 0 for the pairs bet elsewhere (2, 3, 11, 12) and for a face of 7.
constexpr BetId kHopOn[8][8] = {
    {},
    {0, 0, 0, Bet::Hop13, Bet::Hop14, Bet::Hop15, Bet::Hop16, 0},
    {0, 0, Bet::Hop22, Bet::Hop23, Bet::Hop24, Bet::Hop25, Bet::Hop26, 0},
    {0, 0, 0, Bet::Hop33, Bet::Hop34, Bet::Hop35, Bet::Hop36, 0},
    {0, 0, 0, 0, Bet::Hop44, Bet::Hop45, Bet::Hop46, 0},
    {0, 0, 0, 0, 0, Bet::Hop55, 0, 0},
    {},
    {},
};

BetId HopOnDice(const Game& g) {
  const auto [low, high] = std::minmax(g.Die1, g.Die2);
  return kHopOn[low][high];
}

void Win(Game& g, BetId bet) {
  ResolveBet(g, Wins, bet);
}
void Lose(Game& g, BetId bet) {
  ResolveBet(g, Loses, bet);
}

void LoseAll(Game& g, BetId first, BetId last) {
  for (BetId bet = first; bet <= last; ++bet) Lose(g, bet);
}

bool ComeOut(const Game& g) {
  return g.PointBeforeRoll == 0;
}

void WinHop(Game& g) {
  if (const BetId hop = HopOnDice(g)) Win(g, hop);
}

// Two and twelve: the Don't side wins unless the total is barred, which is a push and no decision at all.
void ResolveTwoOrTwelve(Game& g, BetId number) {
  const bool barred = g.DiceTotal == g.Rules.BarNumber;
  Lose(g, Bet::Come);
  if (ComeOut(g)) {
    Lose(g, Bet::PassLine);
    if (barred) {
      CountBarPush(g);
    } else {
      CountMiss(g);
      Win(g, Bet::DontPass);
    }
  }
  for (const BetId bet : {number, +Bet::Craps, +Bet::CAndE, +Bet::Horn, +Bet::World}) Win(g, bet);
  if (!barred) Win(g, Bet::DontCome);
}

void ResolveThree(Game& g) {
  Lose(g, Bet::Come);
  if (ComeOut(g)) {
    CountMiss(g);
    Lose(g, Bet::PassLine);
    Win(g, Bet::DontPass);
  }
  for (const BetId bet : {Bet::Three, Bet::Craps, Bet::CAndE, Bet::DontCome, Bet::Horn, Bet::World})
    Win(g, bet);
}

void ResolveEleven(Game& g) {
  Lose(g, Bet::DontCome);
  if (ComeOut(g)) {
    CountPass(g);
    if (g.RecordEventsActive && g.RecordPassesMisses) LogEvent(g, "      Pass (natural)");
    Win(g, Bet::PassLine);
    Lose(g, Bet::DontPass);
  }
  for (const BetId bet : {Bet::Eleven, Bet::CAndE, Bet::Come, Bet::Horn, Bet::World}) Win(g, bet);
}

void ResolveHardway(Game& g, BetId hard) {
  if (g.Die1 == g.Die2) {
    Win(g, hard);
  } else {
    Lose(g, hard);
  }
}

void ResolveBoxNumber(Game& g, int number) {
  Lose(g, LayOn(number));
  Lose(g, DontComeOn(number));
  ResolveBet(g, OddsLose, DontComeOddsOn(number));
  Win(g, ComeOn(number));
  ResolveBet(g, OddsWin, ComeOddsOn(number));
  Win(g, PlaceOn(number));
  Win(g, BuyOn(number));
  switch (number) {
    case 4:
      ResolveHardway(g, Bet::Hard4);
      break;
    case 6:
      Win(g, Bet::Big6);
      ResolveHardway(g, Bet::Hard6);
      break;
    case 8:
      Win(g, Bet::Big8);
      ResolveHardway(g, Bet::Hard8);
      break;
    case 10:
      ResolveHardway(g, Bet::Hard10);
      break;
    default:
      break;
  }
  WinHop(g);
  MoveComeBet(g, Bet::DontCome, DontComeOn(number));
  MoveComeBet(g, Bet::Come, ComeOn(number));
}

void ResolveLinesOnSeven(Game& g) {
  if (ComeOut(g)) {
    Lose(g, Bet::DontPass);
    Win(g, Bet::PassLine);
    return;
  }
  Lose(g, Bet::PassLine);
  ResolveBet(g, OddsLose, Bet::PassLineOdds);
  Win(g, Bet::DontPass);
  ResolveBet(g, OddsWin, Bet::DontPassOdds);
}

void ResolveSeven(Game& g) {
  if (ComeOut(g)) {
    CountPass(g);
  } else {
    CountMiss(g);
  }
  Lose(g, Bet::DontCome);
  Lose(g, Bet::Big6);
  Lose(g, Bet::Big8);
  LoseAll(g, Bet::Hard4, Bet::Hard10);
  LoseAll(g, Bet::Place4, Bet::Buy10);
  for (const int number : kBoxNumbers) {
    Lose(g, ComeOn(number));
    ResolveBet(g, OddsLose, ComeOddsOn(number));
  }
  ResolveLinesOnSeven(g);
  for (const int number : kBoxNumbers) Win(g, LayOn(number));
  for (const int number : kBoxNumbers) {
    Win(g, DontComeOn(number));
    ResolveBet(g, OddsWin, DontComeOddsOn(number));
  }
  Win(g, Bet::Come);
  Win(g, Bet::Seven);
  Win(g, Bet::World);
  WinHop(g);
}

void StopAutoRollOn(Game& g, int total) {
  if (g.HyperDriveActive || !g.AutoRoll || total > 12) return;
  const AutoStopItem item = kAutoStops[total];
  if (g.Die1 == g.Die2 && g.AutoStopOn[item.hard]) g.KeepRolling = false;
  if (g.AutoStopOn[item.any]) g.KeepRolling = false;
}

}  // namespace

void ResolvePointMade(Game& g) {
  if (g.PointBeforeRoll == 0 || g.PointBeforeRoll != g.DiceTotal) return;
  CountPass(g);
  Win(g, Bet::PassLine);
  ResolveBet(g, OddsWin, Bet::PassLineOdds);
  Lose(g, Bet::DontPass);
  ResolveBet(g, OddsLose, Bet::DontPassOdds);
}

void ResolveTotal(Game& g) {
  const int total = g.DiceTotal;
  switch (total) {
    case 2:
      ResolveTwoOrTwelve(g, Bet::Two);
      break;
    case 3:
      ResolveThree(g);
      break;
    case 7:
      ResolveSeven(g);
      break;
    case 11:
      ResolveEleven(g);
      break;
    case 12:
      ResolveTwoOrTwelve(g, Bet::Twelve);
      break;
    case 13:
    case 14:
      break;  // a die of 7: no number of this table
    default:
      ResolveBoxNumber(g, total);
      break;
  }
  StopAutoRollOn(g, total);
}

void ResolveOneRollBets(Game& g) {
  const int total = g.DiceTotal;
  const auto loseUnless = [&](bool wonAlready, BetId bet) {
    if (!wonAlready) Lose(g, bet);
  };
  Win(g, Bet::Field);  // its table says what it really does
  loseUnless(total == 2, Bet::Two);
  loseUnless(total == 3, Bet::Three);
  loseUnless(total == 7, Bet::Seven);
  loseUnless(total == 11, Bet::Eleven);
  loseUnless(total == 12, Bet::Twelve);
  if (total >= 4 && total <= 11) Lose(g, Bet::Craps);
  if (total >= 4 && total <= 10) {
    Lose(g, Bet::CAndE);
    Lose(g, Bet::Horn);
    if (total != 7) Lose(g, Bet::World);
  }
  if (total <= 7) Lose(g, Bet::Over7);
  if (total >= 8 && total <= 12) Win(g, Bet::Over7);
  if (total >= 7 && total <= 12) Lose(g, Bet::Under7);
  if (total <= 6) Win(g, Bet::Under7);
  const BetId won = HopOnDice(g);
  for (BetId hop = Bet::Hop13; hop <= Bet::Hop55; ++hop) loseUnless(hop == won, hop);
}

}  // namespace rollwick
