// Who wins and who loses on each total, in the order the dealer settles them; written out once for all
// throws.
#include "engine/cycle/RollCalls.h"

#include <algorithm>

namespace rollwick {

namespace {

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

// What the calls look at.
struct Throw {
  bool ComeOut;
  bool PointMade;
  int Die1;
  int Die2;
  int BarNumber;

  constexpr int Total() const { return Die1 + Die2; }
  constexpr BetId Hop() const { return kHopOn[std::min(Die1, Die2)][std::max(Die1, Die2)]; }
};

class Dealer {
 public:
  constexpr explicit Dealer(const Throw& dice) : dice_(dice) {}

  constexpr RollCalls Call() {
    if (dice_.PointMade) PointMade();
    TotalRolled();
    OneRollBets();
    return calls_;
  }

 private:
  constexpr void Add(BetId id, int result = 0) {
    calls_.Called.Set(id);
    calls_.Place[static_cast<std::size_t>(id)] = static_cast<std::int8_t>(calls_.Count);
    calls_.Calls[static_cast<std::size_t>(calls_.Count)] = {static_cast<std::int8_t>(id),
                                                            static_cast<std::int8_t>(result)};
    ++calls_.Count;
  }
  constexpr void Win(BetId bet) { Add(bet, Wins); }
  constexpr void Lose(BetId bet) { Add(bet, Loses); }
  constexpr void LoseAll(BetId first, BetId last) {
    for (BetId bet = first; bet <= last; ++bet) Lose(bet);
  }

  constexpr void PointMade() {
    Add(TurnPass);
    Win(Bet::PassLine);
    Add(Bet::PassLineOdds, OddsWin);
    Lose(Bet::DontPass);
    Add(Bet::DontPassOdds, OddsLose);
  }

  constexpr void TotalRolled() {
    switch (dice_.Total()) {
      case 2:
        return TwoOrTwelve(Bet::Two);
      case 3:
        return Three();
      case 7:
        return Seven();
      case 11:
        return Eleven();
      case 12:
        return TwoOrTwelve(Bet::Twelve);
      case 13:
      case 14:
        return;  // a die of 7: no number of this table
      default:
        return BoxNumber(dice_.Total());
    }
  }

  // The Don't side wins unless the total is barred, which is a push and no decision at all.
  constexpr void TwoOrTwelve(BetId number) {
    const bool barred = dice_.Total() == dice_.BarNumber;
    Lose(Bet::Come);
    if (dice_.ComeOut) {
      Lose(Bet::PassLine);
      Add(barred ? TurnBarPush : TurnMiss);
      if (!barred) Win(Bet::DontPass);
    }
    for (const BetId bet : {number, +Bet::Craps, +Bet::CAndE, +Bet::Horn, +Bet::World}) Win(bet);
    if (!barred) Win(Bet::DontCome);
  }

  constexpr void Three() {
    Lose(Bet::Come);
    if (dice_.ComeOut) {
      Add(TurnMiss);
      Lose(Bet::PassLine);
      Win(Bet::DontPass);
    }
    for (const BetId bet : {Bet::Three, Bet::Craps, Bet::CAndE, Bet::DontCome, Bet::Horn, Bet::World})
      Win(bet);
  }

  constexpr void Eleven() {
    Lose(Bet::DontCome);
    if (dice_.ComeOut) {
      Add(TurnPass);
      Add(TurnNatural);
      Win(Bet::PassLine);
      Lose(Bet::DontPass);
    }
    for (const BetId bet : {Bet::Eleven, Bet::CAndE, Bet::Come, Bet::Horn, Bet::World}) Win(bet);
  }

  constexpr void Hardway(BetId hard) { Add(hard, dice_.Die1 == dice_.Die2 ? Wins : Loses); }
  constexpr void Hop() {
    if (dice_.Hop() != 0) Win(dice_.Hop());
  }

  constexpr void BoxNumber(int number) {
    Lose(LayOn(number));
    Lose(DontComeOn(number));
    Add(DontComeOddsOn(number), OddsLose);
    Win(ComeOn(number));
    Add(ComeOddsOn(number), OddsWin);
    Win(PlaceOn(number));
    Win(BuyOn(number));
    if (number == 6) Win(Bet::Big6);
    if (number == 8) Win(Bet::Big8);
    if (number % 2 == 0) Hardway(Bet::Hard4 + (number - 4) / 2);
    Hop();
    Add(Bet::DontCome);
    Add(Bet::Come);
  }

  constexpr void LinesOnSeven() {
    if (dice_.ComeOut) {
      Lose(Bet::DontPass);
      Win(Bet::PassLine);
      return;
    }
    Lose(Bet::PassLine);
    Add(Bet::PassLineOdds, OddsLose);
    Win(Bet::DontPass);
    Add(Bet::DontPassOdds, OddsWin);
  }

  constexpr void Seven() {
    Add(dice_.ComeOut ? TurnPass : TurnMiss);
    Lose(Bet::DontCome);
    Lose(Bet::Big6);
    Lose(Bet::Big8);
    LoseAll(Bet::Hard4, Bet::Hard10);
    LoseAll(Bet::Place4, Bet::Buy10);
    for (const int number : kBoxNumbers) {
      Lose(ComeOn(number));
      Add(ComeOddsOn(number), OddsLose);
    }
    LinesOnSeven();
    for (const int number : kBoxNumbers) Win(LayOn(number));
    for (const int number : kBoxNumbers) {
      Win(DontComeOn(number));
      Add(DontComeOddsOn(number), OddsWin);
    }
    Win(Bet::Come);
    Win(Bet::Seven);
    Win(Bet::World);
    Hop();
  }

  // The Field, the propositions, the hops: what the total has not decided above.
  constexpr void OneRollBets() {
    const int total = dice_.Total();
    const auto loseUnless = [this](bool wonAlready, BetId bet) {
      if (!wonAlready) Lose(bet);
    };
    Win(Bet::Field);  // its table says what it really does
    loseUnless(total == 2, Bet::Two);
    loseUnless(total == 3, Bet::Three);
    loseUnless(total == 7, Bet::Seven);
    loseUnless(total == 11, Bet::Eleven);
    loseUnless(total == 12, Bet::Twelve);
    if (total >= 4 && total <= 11) Lose(Bet::Craps);
    if (total >= 4 && total <= 10) {
      Lose(Bet::CAndE);
      Lose(Bet::Horn);
      if (total != 7) Lose(Bet::World);
    }
    if (total <= 7) Lose(Bet::Over7);
    if (total >= 8 && total <= 12) Win(Bet::Over7);
    if (total >= 7 && total <= 12) Lose(Bet::Under7);
    if (total <= 6) Win(Bet::Under7);
    for (BetId hop = Bet::Hop13; hop <= Bet::Hop55; ++hop) loseUnless(hop == dice_.Hop(), hop);
  }

  Throw dice_;
  RollCalls calls_;
};

// The calls on all dice in one state of the line point.
using CallsByDice = std::array<std::array<RollCalls, 8>, 8>;

constexpr CallsByDice CallAll(bool comeOut, bool pointMade, int barNumber) {
  CallsByDice calls{};
  for (int die1 = 1; die1 <= 7; ++die1) {
    for (int die2 = 1; die2 <= 7; ++die2) {
      const Throw dice{comeOut, pointMade, die1, die2, barNumber};
      calls[static_cast<std::size_t>(die1)][static_cast<std::size_t>(die2)] = Dealer(dice).Call();
    }
  }
  return calls;
}

// A point that is made is no barred total.
constexpr CallsByDice kComeOutBar12 = CallAll(true, false, 12);
constexpr CallsByDice kComeOutBar2 = CallAll(true, false, 2);
constexpr CallsByDice kPointOnBar12 = CallAll(false, false, 12);
constexpr CallsByDice kPointOnBar2 = CallAll(false, false, 2);
constexpr CallsByDice kPointMade = CallAll(false, true, 12);

}  // namespace

const RollCalls& CallsOf(int point, int die1, int die2, int barNumber) {
  const bool bar2 = barNumber == 2;
  const CallsByDice& calls = point == 0             ? (bar2 ? kComeOutBar2 : kComeOutBar12)
                             : point == die1 + die2 ? kPointMade
                                                    : (bar2 ? kPointOnBar2 : kPointOnBar12);
  return calls[static_cast<std::size_t>(die1)][static_cast<std::size_t>(die2)];
}

}  // namespace rollwick
