// Withdrawals and deposits, what they are cut to and what is said, and the bank's limits.
#include "engine/bets/tests/BetsTestTable.h"

namespace rollwick {
namespace {

constexpr const char* kNotAllowed =
    "\r\rThe full amount of this transaction was not allowed since it would have ";
constexpr const char* kDepositMore =
    "\r\rYou can deposit more by checking the box marked, \"Allow negative bankroll amounts\"";

struct AtmRow {
  const char* name;
  AtmDirection direction;
  Money bankroll;
  Money bets;
  bool negative;
  Money amount;
  Money moved;
  std::string text;             // away from the Configuration screen
  std::string onConfiguration;  // on it
};

const AtmRow kTransactions[] = {
    {"withdrawal", AtmDirection::Withdraw, 500_d, 0_d, false, 200_d, 200_d, "", ""},
    {"withdrawal to the limit", AtmDirection::Withdraw, 500_d, 0_d, false, 9'999'499_d, 9'999'499_d, "", ""},
    {"withdrawal over the limit", AtmDirection::Withdraw, 500_d, 0_d, false, 9'999'999_d, 9'999'499_d,
     std::string("Requested amount:  $9,999,999\rAllowed amount:  $9,999,499") + kNotAllowed +
         "caused the current bankroll to exceed the bank limit of $9,999,999",
     ""},
    {"withdrawal beyond the limit", AtmDirection::Withdraw, 12'000'000_d, 0_d, false, 10.5_d, 0_d,
     std::string("Requested amount:  $10.50\rAllowed amount:  $0") + kNotAllowed +
         "caused the current bankroll to exceed the bank limit of $9,999,999",
     ""},
    {"deposit", AtmDirection::Deposit, 500_d, 100_d, false, 400_d, 400_d, "", ""},
    {"deposit without bets", AtmDirection::Deposit, 500_d, 0_d, false, 600_d, 500_d,
     std::string("Requested amount:  $600\rAllowed amount:  $500") + kNotAllowed +
         "resulted in a negative current bankroll." + kDepositMore + " on the Configuration screen.",
     std::string("Requested amount:  $600\rAllowed amount:  $500") + kNotAllowed +
         "resulted in a negative current bankroll." + kDepositMore + "."},
    {"deposit with bets", AtmDirection::Deposit, 500_d, 100_d, false, 600_d, 400_d,
     std::string("Requested amount:  $600\rAllowed amount:  $400") + kNotAllowed +
         "caused your current bankroll to drop below the amount of your current bets." + kDepositMore +
         " on the Configuration screen, and/or by reducing the amount of your current bets.",
     std::string("Requested amount:  $600\rAllowed amount:  $400") + kNotAllowed +
         "caused your current bankroll to drop below the amount of your current bets." + kDepositMore +
         ", and/or by reducing the amount of your current bets."},
    {"deposit with too little for the bets", AtmDirection::Deposit, 50_d, 100_d, false, 10_d, 0_d,
     std::string("Requested amount:  $10\rAllowed amount:  $0") + kNotAllowed +
         "caused your current bankroll to drop below the amount of your current bets." + kDepositMore +
         " on the Configuration screen, and/or by reducing the amount of your current bets.",
     std::string("Requested amount:  $10\rAllowed amount:  $0") + kNotAllowed +
         "caused your current bankroll to drop below the amount of your current bets." + kDepositMore +
         ", and/or by reducing the amount of your current bets."},
    {"deposit into the negative", AtmDirection::Deposit, 500_d, 100_d, true, 600_d, 600_d, "", ""},
    {"deposit beyond the limit", AtmDirection::Deposit, 500_d, 0_d, true, 20'000'000_d, 10'000'499_d,
     std::string("Requested amount:  $20,000,000\rAllowed amount:  $10,000,499") + kNotAllowed +
         "caused your current bankroll to exceed the bank limit of $-9,999,999",
     ""},
};

TEST(Bankroll, AtmTransactions) {
  for (const AtmRow& row : kTransactions) {
    SCOPED_TRACE(row.name);
    const std::string title = row.direction == AtmDirection::Withdraw ? "ATM Withdrawal" : "ATM Deposit";
    for (const bool onConfiguration : {false, true}) {
      for (const bool quiet : {false, true}) {
        BetsTestTable table;
        Game& g = table.g;
        g.BetAmount[SlotBankroll] = g.InvestedBankroll = row.bankroll;
        g.Rules.AllowNegBankroll = row.negative;
        table.Stand(Bet::Field, row.bets);
        if (quiet) g.Rules.NotifyFlags &= ~NotifyNotAllowed;
        EXPECT_EQ(AtmTransaction(g, row.direction, row.amount, onConfiguration), row.moved);
        const Money into = row.direction == AtmDirection::Withdraw ? row.moved : -row.moved;
        EXPECT_EQ(g.BetAmount[SlotBankroll], row.bankroll + into);
        EXPECT_EQ(g.InvestedBankroll, g.BetAmount[SlotBankroll]) << "the net does not change";
        const std::string& there = row.onConfiguration.empty() ? row.text : row.onConfiguration;
        table.ExpectNotice(title, onConfiguration ? there : quiet ? "" : row.text);
      }
    }
  }
}

TEST(Bankroll, HyperDriveMovesMoneyInSilence) {
  for (const AtmRow& row : kTransactions) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.HyperDriveActive = true;
    g.BetAmount[SlotBankroll] = row.bankroll;
    g.Rules.AllowNegBankroll = row.negative;
    table.Stand(Bet::Field, row.bets);
    EXPECT_EQ(AtmTransaction(g, row.direction, row.amount), row.moved);
    EXPECT_EQ(table.TakeMessage(), "");
  }
}

TEST(Bankroll, LimitIsStrict) {
  BetsTestTable table;
  for (const Money at : {kBankLimit, -kBankLimit}) {
    table.g.BetAmount[SlotBankroll] = at;
    EXPECT_FALSE(IsBeyondBankLimit(table.g));
    table.g.BetAmount[SlotBankroll] = at + (at > 0_d ? 0.0001_d : -0.0001_d);
    EXPECT_TRUE(IsBeyondBankLimit(table.g));
  }
}

TEST(Bankroll, BankLimitStop) {
  const std::string ending = "$9,999,999\r\rSelect \"New\" from the \"Game\" menu to reset the table.";
  struct Row {
    const char* name;
    Money bankroll;
    Money settled;
    bool hyperDrive;
    std::string text;
    std::size_t sounds;
  };
  const Row rows[] = {
      {"broke the bank", 10'000'000_d, 9'000'000_d, false,
       "Congratulations!\r\rYou broke the bank limit of " + ending, 1},
      {"broke the bank, again", 10'000'000_d, 10'000'000_d, false,
       "Congratulations!\r\rYou broke the bank limit of " + ending, 0},
      {"lost it all", -10'000'000_d, 0_d, false,
       "Sorry ... this wasn't your lucky day.\r\rYou've exceeded the max loss limit of " + ending, 0},
      {"broke the bank in Hyper-Drive", 10'000'000_d, 0_d, true,
       "Stopped by breaking the bank limit of " + ending, 0},
      {"lost it all in Hyper-Drive", -10'000'000_d, 0_d, true,
       "Stopped by exceeding the max loss limit of " + ending, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    BetsTestTable table;
    Game& g = table.g;
    g.KeepRolling = true;
    g.HyperDriveActive = row.hyperDrive;
    g.BetAmount[SlotBankroll] = row.bankroll;
    g.BetAfterSettle[SlotBankroll] = row.settled;
    BankLimitStop(g);
    EXPECT_FALSE(g.KeepRolling);
    EXPECT_EQ(table.host.sounds.size(), row.sounds);
    EXPECT_EQ(g.StopMessage, row.hyperDrive ? row.text : "");
    table.ExpectNotice("Rollwick", row.hyperDrive ? "" : row.text);
  }
}

}  // namespace
}  // namespace rollwick
