// What Hyper-Drive remembers of the rules' answers: the same request in another situation is another one.
#include "engine/bets/Resolution.h"
#include "engine/bets/tests/BetsTestTable.h"
#include "stats/tally/Tally.h"

namespace rollwick {
namespace {

void Ask(Game& g, BetId bet, Money stands, Money delta) {
  OverwriteAmount(g, bet, stands);
  g.BetDelta = delta;
  ChangeBet(g, bet);
}

// What stands after a request, and after the same request when the situation has changed.
std::pair<Money, Money> AskTwice(bool isHyperDrive, BetId bet, Money stands, Money delta,
                                 void (*change)(Game&)) {
  BetsTestTable t;
  Game& g = t.g;
  g.Rules.NotifyFlags = 0;
  g.AutoAdjustBetAmounts = AdjustMinor;
  g.Rules.AllowNegBankroll = true;
  g.Point = 6;
  OverwriteAmount(g, Bet::PassLine, Dollars(10));
  SetLineOddsPayoffs(g);
  g.HyperDriveActive = isHyperDrive;
  StartCounting(g);
  Ask(g, bet, stands, delta);
  const Money first = g.BetAmount[bet];
  OverwriteAmount(g, bet, stands);
  change(g);
  Ask(g, bet, stands, delta);
  g.HyperDriveActive = false;
  return {first, g.BetAmount[bet]};
}

TEST(KnownChanges, ForgetWhatBearsOnThem) {
  struct Row {
    const char* name;
    BetId bet;
    int stands, delta;
    void (*change)(Game&);
  };
  const Row kRows[] = {
      {"the maximum", Bet::Place6, 0, 600,
       [](Game& g) { g.Rules.MaxPlacardBet = Dollars(300), StartCounting(g); }},
      {"which way bets are fitted", Bet::Place6, 0, 13,
       [](Game& g) { g.PlaceBias = BiasDecrease, StartCounting(g); }},
      {"the point", Bet::Come, 0, 10, [](Game& g) { g.Point = 0; }},
      {"the flat bet", Bet::PassLineOdds, 0, 500,
       [](Game& g) { OverwriteAmount(g, Bet::PassLine, Dollars(50)); }},
      {"the number of the odds", Bet::PassLineOdds, 0, 23,
       [](Game& g) { g.Point = 4, SetLineOddsPayoffs(g); }},
      {"the contract", Bet::Come6, 20, -15, [](Game& g) { SetContract(g, Bet::Come6, Dollars(10)); }},
      {"the dealer moves the bet", Bet::Come6, 0, 10, [](Game& g) { g.TravelPass = true; }},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const auto ask = [&row](bool isHyperDrive) {
      return AskTwice(isHyperDrive, row.bet, Dollars(row.stands), Dollars(row.delta), row.change);
    };
    EXPECT_EQ(ask(true), ask(false));
    EXPECT_NE(ask(true).first, ask(true).second);
  }
}

// A parlay is fitted downwards whatever the player's wish, also where he pressed by as much before.
TEST(KnownChanges, TellAParlayFromAPress) {
  const auto place6After = [](bool isHyperDrive) {
    BetsTestTable t;
    Game& g = t.g;
    g.Rules.NotifyFlags = 0;
    g.AutoAdjustBetAmounts = AdjustMinor;
    g.HyperDriveActive = isHyperDrive;
    StartCounting(g);
    Ask(g, Bet::Place6, Dollars(12), Dollars(7));
    const Money pressed = g.BetAmount[Bet::Place6];
    OverwriteAmount(g, Bet::Place6, Dollars(12));
    g.CurrentBetId = Bet::Place6;
    g.PayoffNet = Dollars(7);
    ParlayBet(g);
    g.HyperDriveActive = false;
    return std::pair(pressed, g.BetAmount[Bet::Place6]);
  };
  EXPECT_EQ(place6After(true), place6After(false));
  EXPECT_NE(place6After(true).first, place6After(true).second);
}

}  // namespace
}  // namespace rollwick
