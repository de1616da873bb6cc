// Random play with the hand: no order of actions makes or loses a cent, and undo finds back to the start.
#include <random>

#include "engine/bets/Bankroll.h"
#include "session/tests/HandTable.h"

namespace rollwick {
namespace {

// Any order of actions, with throws and visits to the ATM between: the books agree, betting never moves the
// bankroll, and undoing everything gives the tables after the last throw.
TEST(TableHand, RandomPlay) {
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto pick = [&](int low, int high) {
      return low + static_cast<int>(random() % static_cast<std::uint32_t>(high - low + 1));
    };
    const auto spot = [&] { return pick(0, 9) == 0 ? pick(98, 106) : pick(0, 93); };
    HandTable t;
    t.g.Rules.NotifyFlags = NotifyNotAllowed | NotifyLimits | NotifyCharges;
    t.g.Rules.BuyVigOnAll = pick(0, 1) == 0, t.g.Rules.AllowPutBets = pick(0, 1) == 0;
    t.g.AutoAdjustBetAmounts = pick(0, 2), t.g.AutoTakeFullOdds = pick(0, 1) == 0;
    t.g.HandleLosingBets = LossTakeDown, t.g.HandleWinningBets = WinTakeDown;
    BetTables start = t.g;
    for (int i = 0; i < 300; ++i) {
      const Money bankroll = t.Amount(SlotBankroll);
      bool isBetting = true;
      switch (pick(0, 18)) {
        case 0: {
          isBetting = false;
          t.Throw(pick(1, 6), pick(1, 6));
          start = t.g;
          break;
        }
        case 1:
          t.hand.ChooseMode(static_cast<ClickMode>(pick(0, 4)));
          break;
        case 2:
          t.hand.TakeUp(spot());
          break;
        case 3:
        case 4:
          t.hand.PutDown(spot());
          break;
        case 5:
          t.hand.EnterAmount(spot(), Dollars(pick(-10, 400)));
          break;
        case 6:
          t.hand.Step(pick(0, 100), pick(0, 3));
          break;
        case 7:
          t.hand.Remove(spot());
          break;
        case 8:
          t.hand.FullOdds(spot());
          break;
        case 9:
          pick(0, 1) ? t.hand.TakeAllOdds() : t.hand.LayAllOdds();
          break;
        case 10:
          t.hand.SameBetsAsLastHand();
          break;
        case 11:
          pick(0, 3) ? t.hand.CallAll(pick(0, 1) == 0) : t.hand.RemoveAll();
          break;
        case 12:
        case 13:
          t.hand.Undo();
          break;
        case 14:
          t.hand.Redo();
          break;
        case 15: {
          if (pick(0, 3) != 0) break;
          isBetting = false;
          AtmTransaction(t.g, AtmDirection::Withdraw, Dollars(50));
          start = t.g;
          break;
        }
        default:
          t.g.SelectedChip = pick(0, 4);
          t.hand.Click(spot());
      }
      if (isBetting) {
        ASSERT_EQ(t.Amount(SlotBankroll), bankroll);
      }
      ASSERT_TRUE(TablesAgree(t.g) && BetSetsAgree(t.g));
      ASSERT_LE(t.g.TotalBets, std::max(t.Amount(SlotBankroll), start.TotalBets));
    }
    const BetTables end = t.g;
    int steps = 0;
    for (; t.hand.CanUndo(); ++steps) t.hand.Undo();
    ExpectSameTables(t.g, start);
    for (; steps > 0; --steps) t.hand.Redo();
    ExpectSameTables(t.g, end);
  }
}

}  // namespace
}  // namespace rollwick
