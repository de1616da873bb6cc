#include "engine/bets/Bankroll.h"

#include <algorithm>

#include "base/FormatNumber.h"

namespace rollwick {

namespace {

constexpr std::string_view kSelectNew = "Select \"New\" from the \"Game\" menu to reset the table.";

std::string LimitText() {
  return FormatMoney(kBankLimit, "$");
}

std::string CutText(Money amount, Money allowed, std::string_view why) {
  return FormatMoney(amount, "Requested amount:  $") + "\r" + FormatMoney(allowed, "Allowed amount:  $") +
         "\r\rThe full amount of this transaction was not allowed since it would have " + std::string(why);
}

std::string ShortDepositReason(const Game& g, bool onConfiguration) {
  const bool betsOnTable = g.TotalBets > Money();
  std::string why = betsOnTable
                        ? "caused your current bankroll to drop below the amount of your current bets."
                        : "resulted in a negative current bankroll.";
  why += "\r\rYou can deposit more by checking the box marked, \"Allow negative bankroll amounts\"";
  if (!onConfiguration) why += " on the Configuration screen";
  why += betsOnTable ? ", and/or by reducing the amount of your current bets." : ".";
  return why;
}

void MoveMoney(Game& g, Money into) {
  g.InvestedBankroll += into;
  SetAmount(g, SlotBankroll, g.BetAmount[SlotBankroll] + into);
  g.TableDirty = true;
}

Money Withdraw(Game& g, Money amount, bool tell) {
  const Money room = std::max(kBankLimit - g.BetAmount[SlotBankroll], Money());
  if (amount > room) {
    if (tell) {
      ShowNotice(
          g, NotifyNotAllowed,
          CutText(amount, room, "caused the current bankroll to exceed the bank limit of " + LimitText()),
          "ATM Withdrawal");
    }
    amount = room;
  }
  MoveMoney(g, amount);
  return amount;
}

Money Deposit(Game& g, Money amount, bool tell, bool onConfiguration) {
  const Money bankroll = g.BetAmount[SlotBankroll];
  const auto cut = [&](Money allowed, const std::string& why) {
    if (tell) ShowNotice(g, NotifyNotAllowed, CutText(amount, allowed, why), "ATM Deposit");
    amount = allowed;
  };
  if (!g.Rules.AllowNegBankroll && amount > AvailableBankroll(g)) {
    cut(std::max(AvailableBankroll(g), Money()), ShortDepositReason(g, onConfiguration));
  } else if (bankroll - amount < -kBankLimit) {
    cut(std::max(kBankLimit + bankroll, Money()),
        "caused your current bankroll to exceed the bank limit of " + FormatMoney(-kBankLimit, "$"));
  }
  MoveMoney(g, -amount);
  return amount;
}

}  // namespace

Money AtmTransaction(Game& g, AtmDirection direction, Money amount, bool alwaysTell) {
  amount = std::clamp(amount, Money(), kMaxChipStack);
  const bool tell = alwaysTell || MayNotify(g, NotifyNotAllowed);
  if (direction == AtmDirection::Withdraw) return Withdraw(g, amount, tell);
  return Deposit(g, amount, tell, alwaysTell);
}

void BankLimitStop(Game& g) {
  g.KeepRolling = false;
  const bool brokeTheBank = g.BetAmount[SlotBankroll] > Money();
  const std::string ending = LimitText() + "\r\r" + std::string(kSelectNew);
  if (g.HyperDriveActive) {
    g.StopMessage = (brokeTheBank ? "Stopped by breaking the bank limit of "
                                  : "Stopped by exceeding the max loss limit of ") +
                    ending;
    return;
  }
  if (!brokeTheBank) {
    ShowMessage(g, "Sorry ... this wasn't your lucky day.\r\rYou've exceeded the max loss limit of " + ending,
                "Rollwick");
    return;
  }
  // The chips rain once, not at every further try to roll.
  if (g.BetAmount[SlotBankroll] != g.BetAfterSettle[SlotBankroll]) g.TheHost->Play(g, Sound::BrokeTheBank);
  ShowMessage(g, "Congratulations!\r\rYou broke the bank limit of " + ending, "Rollwick");
}

}  // namespace rollwick
