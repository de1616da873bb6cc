// Settings by name: what they take, what they refuse, what follows from them.
#include "session/Settings.h"

#include <gtest/gtest.h>

#include "engine/bets/Placement.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

std::string ValueText(const Game& g, std::string_view name) {
  const auto value = ReadSetting(g, name);
  if (!value) return "?";
  if (const Money* const amount = std::get_if<Money>(&*value)) return PlainText(*amount);
  if (const bool* const flag = std::get_if<bool>(&*value)) return *flag ? "on" : "off";
  return std::to_string(std::get<std::int32_t>(*value));
}

void Place(Game& g, BetId bet, Money amount) {
  g.BetDelta = amount;
  PlaceChips(g, bet);
}

TEST(Settings, TakeWhatIsWithinTheirLimits) {
  struct Row {
    const char* name;
    const char* setting;
    const char* value;
    const char* after;
    const char* notice;  // its title; "" for none
  };
  const Row rows[] = {
      {"an amount with cents", "MinPlacardBet", "2.5", "2.5", ""},
      {"name in another case", "minplacardbet", "3", "3", ""},
      {"amount below zero", "MaxOddsBet", "-1", "2000", "MaxOddsBet"},
      {"amount at the bank limit", "MaxOddsBet", "9999999", "9999999", ""},
      {"amount above it", "MaxOddsBet", "10000000", "2000", "MaxOddsBet"},
      {"a rate of all", "BuyVigPct", "1", "1", ""},
      {"a rate above all", "BuyVigPct", "1.0001", "0.05", "BuyVigPct"},
      {"the other barred number", "BarNumber", "2", "2", ""},
      {"a number nobody bars", "BarNumber", "3", "12", "BarNumber"},
      {"last odds method", "OddsCalcMethod", "5", "5", ""},
      {"no such odds method", "OddsCalcMethod", "6", "0", "OddsCalcMethod"},
      {"all notices", "NotifyFlags", "31", "31", ""},
      {"a notice too many", "NotifyFlags", "32", "15", "NotifyFlags"},
      {"a flag", "AllowPutBets", "ON", "on", ""},
      {"first formula", "ModifyAmount[0]", "9999999.9999", "9999999.9999", ""},
      {"last stop", "AutoStopOn[16]", "on", "on", ""},
      {"last bet", "BetWorkingDefault[83]", "0", "0", ""},
      {"too many rolls are held to the most", "AutoRollsSet", "100000001", "100000000", ""},
      {"very many rolls too", "AutoRollsSet", "99999999999", "100000000", ""},
      {"a long delay is held to the longest", "AutoRollDelay", "100", "99", ""},
      {"a delay below zero", "AutoRollDelay", "-1", "0", "AutoRollDelay"},
      {"full throttle", "HyperThrottle", "10", "10", ""},
      {"beyond it", "HyperThrottle", "11", "0", "HyperThrottle"},
      {"no rolls in an hour", "RollsPerHour", "0", "120", "RollsPerHour"},
      {"half a roll in an hour", "RollsPerHour", "0.5", "0.5", ""},
      {"a lower highest chip", "BetAmount[99]", "250", "250", ""},
      {"chips that do not ascend", "BetAmount[99]", "100", "500", "Denominations"},
      {"chips that are no multiple", "BetAmount[95]", "2", "1", "Denominations"},
      {"a lowest chip of cents", "BetAmount[95]", "0.01", "0.01", ""},
      {"a chip below a cent", "BetAmount[95]", "0.001", "1", "BetAmount"},
      {"a chip above a million", "BetAmount[99]", "1000000.5", "500", "BetAmount"},
      {"crooked dice", "UseProbabilityMatrix", "on", "on", ""},
      {"weights as rolls", "ProbabilityDisplayMode", "3", "3", ""},
      {"no such way to show them", "ProbabilityDisplayMode", "4", "0", "ProbabilityDisplayMode"},
      {"out of two rolls and a half", "ProbabilityRollsOutOf", "2.5", "2.5", ""},
      {"the least rolls", "ProbabilityRollsOutOf", "0.0001", "0.0001", ""},
      {"out of no roll", "ProbabilityRollsOutOf", "0", "36", "ProbabilityRollsOutOf"},
      {"comps of all", "CompRate", "100", "100", ""},
      {"of more than all", "CompRate", "100.0001", "0", "CompRate"},
      {"all bets of a mask", "CompBetMask[1]", "2147483647", "2147483647", ""},
      {"one more", "CompBetMask[1]", "2147483648", "0", "CompBetMask"},
      {"the last bet of the last mask", "ResultsBetMask[2]", "2097151", "2097151", ""},
      {"a bet behind it", "ResultsBetMask[2]", "2097152", "0", "ResultsBetMask"},
      {"the coarsest felt", "TableTexture", "0", "0", ""},
      {"a finer one than there is", "TableTexture", "9", "8", "TableTexture"},
      {"white", "TableColors[7]", "16777215", "16777215", ""},
      {"whiter", "TableColors[0]", "16777216", "4880411", "TableColors"},
      {"no voice", "StickPerson", "-1", "-1", ""},
      {"less than none", "StickPerson", "-2", "0", "StickPerson"},
      {"full volume", "Volume", "100", "100", ""},
      {"another stack on the table", "VisibleChipStack[0]", "99", "99", ""},
      {"one that is there already", "VisibleChipStack[0]", "3", "1", "Set Visible Chip-Stacks"},
      {"the stack that was there", "VisibleChipStack[0]", "1", "1", ""},
      {"double six", "DiceRollHighlight[36]", "on", "on", ""},
      {"no points at all", "DiceOutFontSize", "0", "9", "DiceOutFontSize"},
      {"a loss counts", "BreakLow", "-100000000.5", "-100000000.5", ""},
      {"any number for a pad", "PadStayOnTop", "-2147483648", "-2147483648", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    EXPECT_EQ(ChangeSetting(t.g, row.setting, row.value), "");
    EXPECT_EQ(ValueText(t.g, row.setting), row.after);
    const std::string title = t.host.messages.empty() ? "" : t.host.messages[0].title;
    EXPECT_EQ(title, row.notice);
    EXPECT_LE(t.host.messages.size(), 1U);
  }
}

TEST(Settings, SayWhatIsWrongWithTheWords) {
  struct Row {
    const char* name;
    const char* setting;
    const char* value;
    const char* says;
  };
  const Row rows[] = {
      {"a slip of the finger", "MinPlacrdBet", "1", "Did you mean MinPlacardBet"},
      {"a name unlike any", "Zebra", "1", "no setting of this name"},
      {"not a name", "", "1", "no setting of this name"},
      {"no number", "MinPlacardBet", "ten", "takes a number"},
      {"an exponent", "MinPlacardBet", "1e3", "takes a number"},
      {"five decimals", "MinPlacardBet", "1.00001", "takes a number"},
      {"empty", "MinPlacardBet", "", "takes a number"},
      {"not a number at all", "BuyVigPct", "NaN", "takes a number"},
      {"half a method", "OddsCalcMethod", "1.5", "takes a whole number"},
      {"a flag as a number", "AutoRoll", "1", "on or off"},
      {"an index where there is none", "AutoRoll[0]", "on", "takes no index"},
      {"no index where there is one", "AutoStopOn", "on", "from AutoStopOn[0] to AutoStopOn[16]"},
      {"index too high", "AutoStopOn[17]", "on", "from AutoStopOn[0] to AutoStopOn[16]"},
      {"index below the first", "BetWorkingDefault[0]", "1", "from BetWorkingDefault[1]"},
      {"the bankroll is no denomination", "BetAmount[0]", "1", "from BetAmount[95] to BetAmount[99]"},
      {"index not closed", "AutoStopOn[1", "on", "takes an index"},
      {"index with more behind it", "AutoStopOn[1]x", "on", "takes an index"},
      {"a huge index", "AutoStopOn[99999999999999]", "on", "takes an index"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    const GameTables before = t.g;
    EXPECT_NE(ChangeSetting(t.g, row.setting, row.value).find(row.says), std::string::npos)
        << ChangeSetting(t.g, row.setting, row.value);
    EXPECT_EQ(t.g.TableDirty, before.TableDirty);
    EXPECT_TRUE(t.host.messages.empty());
  }
}

TEST(Settings, NegativeBankrollsStayAllowedWhileOneIsNeeded) {
  TestTable t;
  t.g.Rules.AllowNegBankroll = true;
  t.g.BetAmount[SlotBankroll] = Dollars(-5);
  ChangeSetting(t.g, "AllowNegBankroll", "off");
  EXPECT_TRUE(t.g.Rules.AllowNegBankroll);
  EXPECT_EQ(t.TakeMessage(),
            "Before you can un-check this box you must first establish a non-negative bankroll by either:\r\r"
            " -- Winning some more money, or\r -- Making a withdrawal from the ATM.");

  t.g.BetAmount[SlotBankroll] = Dollars(100);
  Place(t.g, Bet::PassLine, Dollars(1000));
  t.host.messages.clear();
  ChangeSetting(t.g, "AllowNegBankroll", "off");
  EXPECT_TRUE(t.g.Rules.AllowNegBankroll);
  EXPECT_NE(t.TakeMessage().find(" -- Make at least a $900 withdrawal from the ATM."), std::string::npos);

  t.g.BetAmount[SlotBankroll] = Dollars(1000);
  ChangeSetting(t.g, "AllowNegBankroll", "off");
  EXPECT_FALSE(t.g.Rules.AllowNegBankroll);
  EXPECT_EQ(t.TakeMessage(), "");
}

TEST(Settings, VigThatTheBankrollCannotPayIsRefused) {
  TestTable t;
  t.g.BetAmount[SlotBankroll] = Dollars(105);
  Place(t.g, Bet::Buy4, Dollars(100));
  ASSERT_EQ(t.g.TotalBets, Dollars(105));
  t.host.messages.clear();
  ChangeSetting(t.g, "BuyVigPct", "0.1");
  EXPECT_EQ(t.g.Rules.BuyVigPct, Money::FromUnits(500));
  EXPECT_EQ(t.g.TotalBets, Dollars(105));
  ASSERT_EQ(t.host.messages.size(), 1U);
  EXPECT_EQ(t.host.messages[0].title, "Buy Bet Vig");

  t.g.Rules.AllowNegBankroll = true;
  ChangeSetting(t.g, "BuyVigPct", "0.1");
  EXPECT_EQ(t.g.TotalBets, Dollars(110));
}

TEST(Settings, SwitchingTheVigToWinnersAndBack) {
  TestTable t;
  Place(t.g, Bet::Buy4, Dollars(100));
  Place(t.g, Bet::Lay10, Dollars(40));
  ASSERT_EQ(t.g.TotalBets, Dollars(146));
  ChangeSetting(t.g, "BuyVigOnAll", "off");
  EXPECT_EQ(t.g.TotalBets, Dollars(141));
  ChangeSetting(t.g, "LayVigOnAll", "off");
  EXPECT_EQ(t.g.TotalBets, Dollars(140));
  // The way back would cost six dollars that are not there.
  t.g.BetAmount[SlotBankroll] = Dollars(140);
  ChangeSetting(t.g, "BuyVigOnAll", "on");
  EXPECT_FALSE(t.g.Rules.BuyVigOnAll);
  ChangeSetting(t.g, "LayVigOnAll", "on");
  EXPECT_FALSE(t.g.Rules.LayVigOnAll);
  EXPECT_EQ(t.g.TotalBets, Dollars(140));
  EXPECT_EQ(t.host.messages.back().title, "Lay Bet Vig");
  EXPECT_TRUE(TablesAgree(t.g));
}

TEST(Settings, FullOddsAskAboutBetsThatStand) {
  for (const bool isYes : {true, false}) {
    SCOPED_TRACE(isYes);
    TestTable t;
    Place(t.g, Bet::PassLine, Dollars(10));
    t.g.Point = 6;
    SetLineOddsPayoffs(t.g);
    t.host.answers = {isYes ? Answer::Yes : Answer::No};
    ChangeSetting(t.g, "AutoTakeFullOdds", "on");
    EXPECT_TRUE(t.g.AutoTakeFullOdds);
    EXPECT_EQ(t.Amount(Bet::PassLineOdds), isYes ? Dollars(25) : Money());
    ASSERT_EQ(t.host.messages.size(), 1U);
    EXPECT_EQ(t.host.messages[0].title, "Auto-Take Full Odds");
    ChangeSetting(t.g, "AutoTakeFullOdds", "on");
    EXPECT_EQ(t.host.messages.size(), 1U) << "nothing was switched on";
  }
}

TEST(Settings, AutoRollAsksAboutACountUnderWay) {
  TestTable t;
  ChangeSetting(t.g, "AutoRollsSet", "10");
  EXPECT_EQ(t.g.AutoRollsLeft, 10);
  ChangeSetting(t.g, "AutoRoll", "on");
  EXPECT_EQ(t.TakeMessage(), "");
  ChangeSetting(t.g, "AutoRoll", "off");
  t.g.AutoRollsLeft = 4;
  t.host.answers = {Answer::Yes};
  ChangeSetting(t.g, "AutoRoll", "on");
  EXPECT_EQ(t.g.AutoRollsLeft, 4);
  EXPECT_EQ(
      t.TakeMessage(),
      "Would you like to resume the current roll count at 4?\r\rIf not, then the count will be reset to 10");
  ChangeSetting(t.g, "AutoRoll", "off");
  ChangeSetting(t.g, "AutoRoll", "on");
  EXPECT_EQ(t.g.AutoRollsLeft, 10);
}

TEST(Settings, ComeOutDefaultsApplyAtOnce) {
  TestTable t;
  ASSERT_EQ(t.g.BetWorking[Bet::Place6], Off);
  ChangeSetting(t.g, "BetWorkingDefault[33]", "1");
  EXPECT_EQ(t.g.BetWorking[Bet::Place6], On);
  t.g.BetWorking[Bet::Place6] = CalledOff;
  ChangeSetting(t.g, "BetWorkingDefault[33]", "1");
  EXPECT_EQ(t.g.BetWorking[Bet::Place6], CalledOff) << "a button outlives the default";
}

TEST(Settings, AdjustingRefitsWhatStands) {
  TestTable t;
  ChangeSetting(t.g, "AutoAdjustBetAmounts", "0");
  Place(t.g, Bet::Place6, Dollars(7));
  ASSERT_EQ(t.Amount(Bet::Place6), Dollars(7));
  ChangeSetting(t.g, "AutoAdjustBetAmounts", "1");
  EXPECT_EQ(t.Amount(Bet::Place6).Units() % Dollars(6).Units(), 0);
}

TEST(Settings, ListHasEveryValueReadable) {
  TestTable t;
  for (const SettingEntry& entry : ListSettings(t.g)) {
    SCOPED_TRACE(entry.name);
    for (std::size_t i = 0; i < entry.values.size(); ++i) {
      const std::string index = "[" + std::to_string(entry.firstIndex + static_cast<int>(i)) + "]";
      EXPECT_EQ(ReadSetting(t.g, entry.isArray ? entry.name + index : entry.name), entry.values[i]);
    }
  }
}

TEST(Payoffs, RowsTakeWhatPays) {
  struct Row {
    const char* name;
    bool field;
    int index;
    Money ratio;
    Money base;
    bool isTaken;
  };
  const Row rows[] = {
      {"a better Place 4", false, Bet::Place4, Dollars(2), Dollars(1), true},
      {"even a bet that pays nothing", false, Bet::Place4, Money(), Dollars(1), true},
      {"no negative ratio", false, Bet::Place4, Dollars(-1), Dollars(1), false},
      {"no base of 0", false, Bet::Place4, Dollars(1), Money(), false},
      {"no base below 0", false, Bet::Place4, Dollars(1), Dollars(-1), false},
      {"nothing above the limit", false, Bet::Place4, Dollars(10'000'000), Dollars(1), false},
      {"Pass Line Odds follow the Come odds", false, Bet::PassLineOdds, Dollars(1), Dollars(1), false},
      {"Don't Pass Odds too", false, Bet::DontPassOdds, Dollars(1), Dollars(1), false},
      {"a losing combination", true, 5, Dollars(-1), Dollars(1), true},
      {"last combination", true, 21, Dollars(3), Dollars(1), true},
      {"no combination 0", true, 0, Dollars(1), Dollars(1), false},
      {"no combination 22", true, 22, Dollars(1), Dollars(1), false},
      {"the bankroll is no bet", false, 0, Dollars(1), Dollars(1), false},
      {"no bet 84", false, 84, Dollars(1), Dollars(1), false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestTable t;
    EXPECT_EQ(ChangePayoff(t.g, row.field, row.index, row.ratio, row.base, true).empty(), row.isTaken);
    if (!row.isTaken) continue;
    const auto index = static_cast<std::size_t>(row.index);
    const PayoffRow& now = row.field ? t.g.FieldPayoffTable[index] : t.g.PayoffTable[index];
    EXPECT_EQ(now, (PayoffRow{row.ratio, true, row.base}));
  }
}

TEST(Payoffs, AnEditReachesLineOddsAndLayVig) {
  TestTable t;
  t.g.Point = 5;
  SetLineOddsPayoffs(t.g);
  ChangePayoff(t.g, false, Bet::Come5Odds, Dollars(2), Dollars(1), true);
  EXPECT_EQ(t.g.PayoffTable[Bet::PassLineOdds].Ratio, Dollars(2));

  Place(t.g, Bet::Lay4, Dollars(200));
  ASSERT_EQ(t.g.LayVigAmount[Bet::Lay4], Dollars(5));
  ChangePayoff(t.g, false, Bet::Lay4, Dollars(1), Dollars(1), true);
  EXPECT_EQ(t.g.LayVigAmount[Bet::Lay4], Dollars(10));
  EXPECT_EQ(t.g.TotalBets, Dollars(210));
}

}  // namespace
}  // namespace rollwick
