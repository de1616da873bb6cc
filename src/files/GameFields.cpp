// The rows of the map, and how one value goes in and out.
#include "files/GameFields.h"

#include <algorithm>
#include <cmath>

namespace rollwick {

namespace {

using enum FieldType;

constexpr Range kAny{};
constexpr Range kAboveZero{Range::AboveZero};
constexpr Range kUpwards{Range::Between, 0, std::numeric_limits<std::int64_t>::max()};
constexpr Range kPoint{Range::PointNumber};
constexpr Range kDice{Range::TwoDice};
constexpr Range kPosition{Range::Between, -32'768, 32'767};
constexpr Range kSize{Range::Between, 0, 32'767};
constexpr Range kWorking{Range::Between, CalledOff, CalledOn, On};
// No counter of rolls passes the limit of a game.
constexpr Range kCounter{Range::Between, 0, kMaxRollCount};
constexpr Range kPayoffBase{Range::AboveZero, 0, 0, Money::kUnitsPerDollar};

// One that is wrong makes all of them start anew.
constexpr Range kVisibleStack{Range::Between, 0, kChipStackCount - 1, -1};

constexpr Range From(std::int64_t low, std::int64_t high) {
  return {Range::Between, low, high};
}
constexpr Range UpTo(std::int64_t high) {
  return From(0, high);
}
constexpr std::int64_t kMostMask = std::numeric_limits<std::int32_t>::max();

// A field's name and its place: the words of the code that reaches it. In arrays `i` is the entry.
#define AT(cell) #cell, [](GameTables & g, [[maybe_unused]] int i) -> Place { return &g.cell; }
// A number that stands in the file for rows the table does not have.
#define NOTHING(number) "", [](GameTables&, int) -> Place { return std::int64_t{number}; }

#define SCREEN(record, slot, screen)                                     \
  {record, slot, FlagSingle, AT(screen.Open), kAny, "is open"},          \
      {record, slot + 1, Single, AT(screen.Top), kPosition, "pixels"}, { \
    record, slot + 2, Single, AT(screen.Left), kPosition, "pixels"       \
  }
#define SIZED_SCREEN(record, slot, screen)                                                       \
  SCREEN(record, slot, screen), {record, slot + 3, Single, AT(screen.Width), kSize, "pixels"}, { \
    record, slot + 4, Single, AT(screen.Height), kSize, "pixels"                                 \
  }

constexpr Field kScreenFields[] = {
    {7, 0, Single, AT(TableWindowState), UpTo(2), "0 normal, 1 minimised, 2 maximised"},
    {7, 1, Single, AT(TablePlace.Top), kPosition, "pixels"},
    {7, 2, Single, AT(TablePlace.Left), kPosition, "pixels"},
    {7, 3, Single, AT(TablePlace.Width), kSize, "pixels"},
    {7, 4, Single, AT(TablePlace.Height), kSize, "pixels"},

    SIZED_SCREEN(8, 0, Screens[ScreenAutoBet]),
    SCREEN(8, 5, Screens[ScreenAutoPlay]),
    SCREEN(8, 8, Screens[ScreenConfigure]),
    SCREEN(8, 11, Screens[ScreenSummary]),
    SCREEN(8, 14, Screens[ScreenBankroll]),
    SIZED_SCREEN(8, 17, Screens[ScreenRollTotals]),
    SCREEN(8, 22, Screens[ScreenRollFreqs]),
    SCREEN(8, 25, Screens[ScreenBetResults]),
    SCREEN(8, 28, Screens[ScreenBetTrends]),

    SCREEN(9, 0, Screens[ScreenGames]),
    SIZED_SCREEN(9, 3, Screens[ScreenEventsLog]),
    SIZED_SCREEN(9, 8, Screens[ScreenDiceRollFiles]),
    SCREEN(9, 13, Screens[ScreenRYON]),
    SCREEN(9, 16, Screens[ScreenStackValues]),
    SCREEN(9, 19, Screens[ScreenFlags]),
    SCREEN(9, 22, Screens[ScreenHotKeys]),
    SCREEN(9, 25, Screens[ScreenSteps]),
    SCREEN(9, 28, Screens[ScreenSettleBet]),
};

constexpr Field kGameFields[] = {
    {10, 0, Whole, AT(ConfigPage), UpTo(9), "page of the configuration screen on show"},
    {10, 1, Whole, AT(SelectedChip), UpTo(4), "chip in hand: its denomination is in slot 95 + it"},
    {10, 2, Whole, AT(ChipStyle), UpTo(99), "picture set of the chips"},
    {10, 3, Whole, AT(DiceStyle), UpTo(99), "picture set of the dice"},
    {10, 4, Whole, AT(DiceAction), UpTo(3),
     "0 stationary, 1 return after thrown, 2 return on decision, 3 remain"},
    {10, 5, Amount, AT(RollsPerHour), kAboveZero, "rolls per hour"},
    {10, 6, Flag8, AT(UseCentsSymbol), kAny, "cents sign"},
    {10, 7, Whole, AT(StickPerson), From(-1, 999), "voice: index in its list, -1 none"},
    {10, 8, Whole, AT(DiceSound), From(-1, 999), "the same of the dice sound"},
    {10, 9, Whole, AT(ChipSound), From(-1, 999), "the same of the chip sound"},
    {10, 10, Whole, AT(WinSound), From(-1, 999), "the same of the win sound"},
    {10, 11, Flag8, AT(DisableAutoBetSounds), kAny, "no sounds while a script acts"},
    {10, 12, Flag8, AT(DisableAllSound), kAny, "no sounds"},
    {10, 13, Whole, AT(CompBetMask[0]), UpTo(kMostMask), "bets that earn comps, 1 to 31 from the lowest bit"},
    {10, 14, Whole, AT(CompBetMask[1]), UpTo(kMostMask), "bets 32 to 62"},
    {10, 15, Whole, AT(CompBetMask[2]), UpTo(2'097'151), "bets 63 to 83"},
    {10, 16, Whole, AT(CompBase), UpTo(2), "what comps are reckoned from"},
    {10, 17, Flag8, AT(CompsUseTrueProbs), kAny, "comps by true probabilities"},
    {10, 18, Amount, AT(CompRate), UpTo(100), "percent"},
    {10, 19, Whole, AT(Rules.NotifyFlags), UpTo(31), "notices wanted, bits 1, 2, 4, 8, 16"},
    {10, 20, Whole, AT(PrintFontBody), From(1, 99), "points"},
    {10, 21, Whole, AT(PrintFontHeads), From(1, 99), "points"},
    {10, 22, Whole, AT(PrintFontTitle), From(1, 99), "points"},
    {10, 23, Flag8, AT(SnapMouse), kAny, "the pointer snaps to bets"},
    {10, 24, Whole, AT(RngChoice), UpTo(kRngCount - 1), "generator, from 0"},
    {10, 25, Flag8, AT(UserSeedMode), kAny, "seeds are asked for"},
    {10, 26, Flag8, AT(ReseedNewGames), kAny, "a new game seeds anew"},

    {11, 0, Amount, AT(Rules.MinPlacardBet), kUpwards, "least bet"},
    {11, 1, Amount, AT(Rules.MaxPlacardBet), kUpwards, "highest bet"},
    {11, 2, Amount, AT(Rules.OddsAllowed410), kUpwards, "odds multiple on 4 and 10"},
    {11, 3, Amount, AT(Rules.OddsAllowed59), kUpwards, "on 5 and 9"},
    {11, 4, Amount, AT(Rules.OddsAllowed68), kUpwards, "on 6 and 8"},
    {11, 5, Whole, AT(Rules.OddsCalcMethod), UpTo(OddsSingleTimesFlat), "how full odds are reckoned"},
    {11, 6, Whole, AT(Rules.BarNumber), {Range::BarNumber}, "come-out number that Don't bets push on"},
    {11, 7, Amount, AT(Rules.LayVigPct), UpTo(1), "rate"},
    {11, 8, Whole, AT(Rules.RoundLayVig), UpTo(VigRoundedUp), "0 normally, 1 down, 2 up"},
    {11, 9, Flag8, AT(Rules.LayVigOnAll), kAny, "charged on every bet, not on wins alone"},
    {11, 10, Amount, AT(Rules.BuyVigPct), UpTo(1), "rate"},
    {11, 11, Whole, AT(Rules.RoundBuyVig), UpTo(VigRoundedUp), "0 normally, 1 down, 2 up"},
    {11, 12, Flag8, AT(Rules.BuyVigOnAll), kAny, "charged on every bet, not on wins alone"},
    {11, 13, Flag8, AT(Rules.AllowPutBets), kAny, "put bets are taken"},
    {11, 14, Flag8, AT(UseProbabilityMatrix), kAny, "the dice are weighted"},
    {11, 15, Whole, AT(ProbabilityDisplayMode), UpTo(3), "how weights are shown"},
    {11, 16, Amount, AT(ProbabilityRollsOutOf), kAboveZero, "rolls that weights are shown as parts of"},
    {11, 17, Flag8, AT(CountZeroOutcomes), kAny, "pushes count as decisions"},
    {11, 18, Flag8, AT(ShowMiscData), kAny, "further columns of the advantage page"},
    {11, 19, Whole, AT(AdvantageScroll), UpTo(999), "first line on show"},
    {11, 20, Whole, AT(PayoffsScroll), UpTo(999), "first line on show"},
    {11, 21, Flag8, AT(Rules.AllowNegBankroll), kAny, "the bankroll may go below 0"},
    {11, 22, Whole, AT(Rules.BankrollInitType), UpTo(CarryBankrollAndNet),
     "where a new game's bankroll is from"},
    {11, 23, Amount, AT(Rules.BankrollInitAmount), kAny, "bankroll of a new game"},
    {11, 24, Amount, AT(Rules.AtmAmount), kUpwards, "amount of the ATM"},
    {11, 25, Amount, AT(BankrollRollSum), kAny, "sum of the bankroll over all rolls"},
    {11, 26, Amount, AT(InvestedBankroll), kAny, "money brought into the game"},
    {11, 27, Amount, AT(Rules.MaxPropBetPayoff), kUpwards, "highest payoff of a proposition"},
    {11, 28, Amount, AT(Rules.MaxOddsBet), kUpwards, "highest odds"},

    {12, 0, Whole, AT(AutoAdjustBetAmounts), UpTo(AdjustColor), "0 manual, 1 minor, 2 color"},
    {12, 1, Flag8, AT(AutoArrangeChips), kAny, "chips are stacked by themselves"},
    {12, 2, Flag8, AT(AutoTakeFullOdds), kAny, "full odds behind line and Come bets"},
    {12, 3, Flag8, AT(AutoLayFullOdds), kAny, "full odds behind Don't bets"},
    {12, 4, Flag8, AT(AutoRemovePlaceBets), kAny, "the Place bet on a new point comes down"},
    {12, 5, Whole, AT(HandleWinningBets), UpTo(WinBetFormula), "what becomes of bets that won"},
    {12, 6, Whole, AT(HandleLosingBets), UpTo(LossBetFormula), "what becomes of bets that lost"},
    {12, 7, Flag8, AT(AutoRoll), kAny, "the dice roll by themselves"},
    {12, 8, Whole, AT(AutoRollsSet), UpTo(kMaxRollCount), "rolls of a run; 0 no count"},
    {12, 9, Whole, AT(AutoRollsLeft), UpTo(kMaxRollCount), "rolls left of it"},
    {12, 10, Whole, AT(AutoRollDelay), UpTo(99), "seconds"},
    {12, 11, Flag8, AT(AutoStopOn[i]), kAny,
     "ends a run: any win, any loss, then the totals with their hard ways", 0, kAutoStopCount},
    {12, 28, Whole, AT(LayBias), UpTo(BiasDecrease), "0 nearest, 1 increase, 2 decrease"},
    {12, 29, Whole, AT(PlaceBias), UpTo(BiasDecrease), "0 nearest, 1 increase, 2 decrease"},
    {12, 30, Whole, AT(DoBias), UpTo(BiasDecrease), "0 nearest, 1 increase, 2 decrease"},
    {12, 31, Whole, AT(DontBias), UpTo(BiasDecrease), "0 nearest, 1 increase, 2 decrease"},

    {13, 0, Whole, AT(ModifyOperator[0]), UpTo(FormulaDivide), "0 plus, 1 minus, 2 times, 3 divided by"},
    {13, 1, Whole, AT(ModifyOperator[2]), UpTo(FormulaDivide), "as above"},
    {13, 2, Whole, AT(ModifyOperator[4]), UpTo(FormulaDivide), "as above"},
    {13, 3, Whole, AT(ModifyOperator[5]), UpTo(FormulaDivide), "as above; the others are not kept"},
    {13, 4, Amount, AT(ModifyAmount[i]), kAny, "amounts of the formulas", 0, kFormulaCount},
    {13, 12, Whole, AT(ModifyUnit[i]), UpTo(6),
     "0 dollars, 1 percent, 2 to 6 chips; the last two are not kept", 0, 6},
    {13, 18, Whole, AT(TotalsDisplay), UpTo(3), "what the roll totals show"},
    {13, 19, Whole, AT(TotalsBackColour), UpTo(3), "background"},
    {13, 20, Whole, AT(TotalsGraphColour), UpTo(99), "colour of the bars"},
    {13, 21, Whole, AT(TotalsVScroll), UpTo(32'767), "vertical place"},
    {13, 22, Whole, AT(TotalsHScroll), UpTo(32'767), "horizontal place"},

    {14, 1, Flag8, AT(KeyInBetAmounts), kAny, "amounts are typed"},
    {14, 2, Flag8, AT(DisplayBetAmounts), kAny, "amounts are shown"},
    {14, 3, Flag8, AT(QuickStats), kAny, "payoff of the bet under the pointer"},
    {14, 4, Whole, AT(EnterBetSpot), UpTo(SlotLastChipStack), "spot last typed in, 0 none"},
    {14, 5, Flag8, AT(DisplayHopBets), kAny, "the hop bets are on show"},
    {14, 7, Whole, AT(Point), kPoint, "0 on the come-out"},
    {14, 8, Whole, AT(PointBeforeRoll), kPoint, "before the last roll"},
    {14, 9, Whole, AT(PointBeforeLast), kPoint, "before the one before"},
    {14, 10, Dice, "Die1, Die2", [](GameTables& g, int) -> Place { return DicePlace{&g.Die1, &g.Die2}; },
     kDice, "the last throw: 65 is a 6 and a 5"},
    {14, 11, Dice, "PrevDie1, PrevDie2",
     [](GameTables& g, int) -> Place { return DicePlace{&g.PrevDie1, &g.PrevDie2}; }, kDice,
     "the throw before"},
    {14, 12, Amount, AT(TotalBets), kUpwards, "bets and their vigs charged on all bets"},
    {14, 13, Whole, AT(AutoBetsActive), {Range::OneIfAny}, "1: the script is switched on"},
    {14, 14, Flag8, AT(StepTraceOn), kAny, "steps are shown"},
    {14, 15, Whole, AT(AutoBetScroll), kUpwards, "first line of the script on show"},
    {14, 17, Amount, AT(BankrollHigh), kAny, "highest of the game"},
    {14, 18, Amount, AT(BankrollLow), kAny, "lowest of the game"},
    {14, 19, Whole, AT(BankrollHistoryCount), UpTo(kGraphPage), "points filled on the page of the graph"},
    {14, 20, Flag8, AT(AutoPrintGraph), kAny, "full pages are printed"},
    {14, 21, Amount, AT(GraphUnit), kAboveZero, "dollars of a unit of the graph"},
    {14, 22, Amount, AT(GraphTop), kAny, "top of the graph"},
    {14, 23, Amount, AT(GraphManualUnit), kAboveZero, "unit last set by hand"},
    {14, 24, Flag8, AT(GraphRefLines), kAny, "reference lines"},
    {14, 25, Whole, AT(GraphColor), UpTo(7), "colour"},
    {14, 26, Whole, AT(GraphAdjustType), UpTo(2), "0 manual, 1 expanding, 2 snap-back"},
    {14, 27, Whole, AT(GraphStyle), UpTo(2), "kind of the graph"},
    {14, 28, Flag8, AT(GraphGridLines), kAny, "grid lines"},
    {14, 29, Flag8, AT(MovingAverageOn), kAny, "the average is drawn"},
    {14, 30, Whole, AT(MovingAveragePeriod), UpTo(kGraphPage), "rolls of the average, 0 all"},
    {14, 31, Whole, AT(HyperThrottle), UpTo(10), "0 full speed"},

    {15, 0, FlagLong, AT(RecordEventsActive), kAny, "the Events Log is on; the one of record 18 counts"},
    {15, 1, FlagLong, AT(LogClearOnNewGame), kAny, "a new game clears the log"},
    {15, 2, FlagLong, AT(LogLatestRollOnTop), kAny, "the viewer follows"},
    {15, 3, Long, AT(LogFontSize), UpTo(2), "0 smaller, 1 normal, 2 larger"},
    {15, 4, FlagLong, AT(LogFontBold), kAny, "bold"},
    {15, 5, FlagLong, AT(LogFontItalic), kAny, "italic"},
    {15, 6, FlagLong, AT(RecordBetsWon), kAny, "what is logged"},
    {15, 7, FlagLong, AT(RecordBetsLost), kAny, "what is logged"},
    {15, 8, FlagLong, AT(RecordBetChanges), kAny, "what is logged"},
    {15, 9, FlagLong, AT(RecordChipStackChanges), kAny, "what is logged"},
    {15, 10, FlagLong, AT(RecordPassesMisses), kAny, "what is logged"},
    {15, 11, FlagLong, AT(RecordShooterChanges), kAny, "what is logged"},
    {15, 12, FlagLong, AT(RecordBankrollChanges), kAny, "what is logged"},
    {15, 13, FlagLong, AT(RecordRolls), kAny, "what is logged"},

    {16, 1, FlagShort, AT(DiceRollHighlight[i]), kAny, "throws marked: (first die - 1) x 6 + second die", 1,
     36},

    {17, 0, Whole, AT(DiceFileMode), UpTo(DiceFilePlayback), "0 off, 1 recording, 2 playback"},
    {17, 1, Flag8, AT(DiceInsertRolls), kAny, "rolls typed in are inserted"},
    {17, 2, Flag8, AT(DiceOutDieNums), kAny, "printed: the dice"},
    {17, 3, Flag8, AT(DiceOutRollNums), kAny, "printed: the numbers of the rolls"},
    {17, 4, Flag8, AT(DiceOutSelected), kAny, "printed: the selected rolls alone"},
    {17, 5, Whole, AT(DiceOutFontSize), From(1, 99), "points"},
    {17, 6, Whole, AT(DiceFileRecord), From(1, kMostMask),
     "next roll of the Dice Roll File, at most one behind its last"},
    {17, 7, Whole, AT(DiceLastRecord), UpTo(kMostMask), "its last roll read or written"},
    {17, 8, Flag8, AT(StacksShowZero), kAny, "empty Chip-Stacks are listed"},
    {17, 9, Whole, AT(StacksTop), UpTo(99), "first Chip-Stack on show"},
    {17, 10, Whole, AT(VisibleChipStack[i]), kVisibleStack,
     "Chip-Stacks on the table by number, all different", 0, 4},
    {17, 14, Whole, AT(TotalsShowProb), UpTo(1), "what the roll totals are compared with"},
    {17, 15, Whole, AT(FreqItem), UpTo(87), "event of the frequencies"},
    {17, 16, Amount, AT(BreakLow), kAny, "lower break point of the games"},
    {17, 17, Amount, AT(BreakHigh), kAny, "upper break point"},
    {17, 18, Flag8, AT(DiceOutNumbersCalled), kAny, "printed: the totals"},
    {17, 19, Whole, AT(PadStayOnTop), kAny, "the roll pad stays on top unless 0"},
    {17, 20, Whole, AT(PadRollAtOnce), kAny, "it rolls when both dice are picked unless 0"},

    {18, 0, Long, AT(CurrentSeed), kAny, "last seed, and the state of RNG #3"},
    {18, 1, Long, AT(LastSeed), kAny, "last seed"},
    {18, 2, Long, AT(TableColors[i]), UpTo(0xFFFFFF), "blue x 65536 + green x 256 + red", 0,
     kTableColorCount},
    {18, 10, Long, AT(TableTexture), UpTo(8), "grain of the felt"},
    {18, 11, FlagLong, AT(RecordEventsActive), kAny, "the Events Log is on"},

    {19, 0, Amount, AT(BetAmount[i]), kAny, "the bankroll", 0, 1},
    {19, 1, Amount, AT(BetAmount[i]), kUpwards, "the bets", 1, kBetCount, 25},
    {22, 9, Amount, AT(BetAmount[i]), kAny, "not used", kBetCount + 1, 11, 25},
    {22, 20, Amount, AT(BetAmount[i]), kAboveZero, "the denominations", SlotChipDenom, kChipCount, 25},
    {23, 0, Amount, AT(BetAmount[i]), kAny, "the Chip-Stacks", SlotChipStack, kChipStackCount, 25},
    {26, 25, Amount, AT(BetAmount[i]), kAny, "behind the stacks", SlotBehindStacks},
    {27, 0, Amount, AT(BetAtThrow[i]), kAny, "as BetAmount, at the throw", 0, SlotBehindStacks, 25},
    {34, 25, Amount, AT(BetAtThrow[i]), kAny, "behind the stacks", SlotBehindStacks},
    {35, 0, Amount, AT(BetAfterSettle[i]), kAny, "as BetAmount, after the roll", 0, SlotBehindStacks, 25},
    {42, 25, Amount, AT(BetAfterSettle[i]), kAny, "behind the stacks", SlotBehindStacks},
    {43, 0, Amount, AT(BetContract[i]), kAny, "established amounts", 0, 46, 23},
    {44, 25, Amount, AT(BetContract[i]), kAny, "of Don't Pass", 46},
    {45, 1, Amount, AT(LayVigAmount[i]), kAny, "vig of the Lay bets", 1, 6},
    {45, 7, Amount, AT(BuyVigAmount[i]), kAny, "vig of the Buy bets", 37, 6},
    {46, 0, Short, AT(BetWorkingDefault[i]), UpTo(1), "1 works on the come-out", 0, kBetCount + 1},
    {46, 84, Short, NOTHING(0), kAny, "not used", 84, 17},
    {47, 0, Short, AT(BetWorking[i]), kWorking, "-1 called off, 0 off, 1 on, 2 called on", 0, kBetCount + 1},
    {47, 84, Short, NOTHING(0), kAny, "not used", 84, 17},

    {48, 0, Amount, AT(PayoffTable[i].Ratio), kAny, "paid for each Base", 0, kBetCount + 1},
    {50, 20, Amount, NOTHING(10'000), kAny, "not used", 84, 17},
    {51, 5, Flag8, AT(PayoffTable[i].IsToForm), kAny, "written \"to\", else \"for\"", 0, kBetCount + 1},
    {53, 25, Flag8, NOTHING(-1), kAny, "not used", 84, 17},
    {54, 10, Amount, AT(PayoffTable[i].Base), kPayoffBase, "stake that is paid Ratio", 0, kBetCount + 1},
    {56, 30, Amount, NOTHING(10'000), kAny, "not used", 84, 17},
    {58, 0, Amount, AT(FieldPayoffTable[i].Ratio), kAny, "by the dice, smaller die first; below 0 loses", 0,
     22},
    {58, 22, Flag8, AT(FieldPayoffTable[i].IsToForm), kAny, "written \"to\", else \"for\"", 0, 22},
    {59, 12, Amount, AT(FieldPayoffTable[i].Base), kPayoffBase, "stake that is paid Ratio", 0, 22},

    {61, 0, Amount, AT(BetWagers[i / 800][i / 8 % 100 + 1][i % 8]), kAny,
     "phantom, then actual wagers; bets 1 to 100; presence, count, amount, high, low, last, count and amount "
     "of "
     "the last roll",
     0, 1600},
    {111, 0, Amount, AT(BetWins[i / 800][i / 8 % 100 + 1][i % 8]), kAny, "in the same order", 0, 1600},
    {161, 0, Amount, AT(BetLosses[i / 800][i / 8 % 100 + 1][i % 8]), kAny, "in the same order", 0, 1600},
    {211, 0, Amount, AT(BankrollHistory[i]), kAny, "roll at which the page began, this page, the page before",
     0, 2 * kGraphPage + 1},
    {244, 0, Short, AT(BetStreak[i][0]), kAny, "runs of wins, or below 0 of losses, before the last roll", 0,
     101},
    {245, 0, Short, AT(BetStreak[i][1]), kAny, "after it", 0, 101},
    {246, 0, Long, AT(RollEventCount[i]), kCounter, "times each event came; 0 the rolls", 0, kRollEventCount},
    {248, 0, Long, AT(RollsSinceEvent[i]), kCounter, "rolls since", 0, kRollEventCount},
    {250, 0, Long, AT(TrackedEventCount[i]), kCounter, "the same counters, which scripts may reset", 0,
     kRollEventCount},
    {252, 0, Long, AT(TrackedEventCountBefore[i]), kCounter, "before the last roll", 0, kRollEventCount},
    {254, 0, Long, AT(TrackedRollBase[i]), kCounter, "rolls since", 0, kRollEventCount},
    {256, 0, Long, AT(TrackedRollBaseBefore[i]), kCounter, "before the last roll", 0, kRollEventCount},
    {258, 0, Long, AT(RollGapHistogram[i / 201 + 1][i % 201]), kCounter, "events 1 to 90, gaps 0 to 200", 0,
     90 * kGapCount},
    {541, 0, Long, AT(HandStats[i]), kCounter, "hands, passes and misses", 0, kHandStatCount},
};

constexpr Field kFurtherFields[] = {
    {60, 6, Long, AT(RollsPerTimeForm), UpTo(5), "unit of the rate of rolls"},
    {60, 7, FlagLong, AT(ColorPrinter), kAny, "the printer has colours"},
    {60, 8, Long, AT(Volume), From(-1, 100), "-1 leaves the volume alone"},
    {60, 9, FlagLong, AT(ShowLineNumbers), kAny, "of the script"},
    {60, 10, FlagLong, AT(FreqSkewed), kAny, "frequencies by the weighted dice"},
    {60, 11, Long, AT(ResultsDataType), UpTo(2), "what the bet results show"},
    {60, 12, Long, AT(ResultsBetMask[0]), UpTo(kMostMask), "their bets, 1 to 31 from the lowest bit"},
    {60, 13, Long, AT(ResultsBetMask[1]), UpTo(kMostMask), "bets 32 to 62"},
    {60, 14, Long, AT(ResultsBetMask[2]), UpTo(2'097'151), "bets 63 to 83"},
    {60, 15, Long, AT(GamesView), UpTo(31), "what the games show"},
    {60, 16, Long, AT(GamesDisplay), UpTo(1), "table or graph"},
    {60, 17, Long, AT(GamesBarWidth), UpTo(3), "width of the bars"},
    {60, 18, Long, AT(GamesInclude), UpTo(7), "games included, bits 1, 2, 4"},
    {60, 19, Long, AT(LastWonChoice), UpTo(6), "last choice for a bet that won"},
    {60, 20, Long, AT(LastLostChoice), UpTo(6), "for one that lost"},
    {60, 21, Long, AT(Die1Axis), UpTo(2), "axis of the weighted first die"},
    {60, 22, Long, AT(Die2Axis), UpTo(2), "of the second"},
    {60, 12, Amount, AT(Die1SE), UpTo(100), "percent"},
    {60, 13, Amount, AT(Die2SE), UpTo(100), "percent"},
    {60, 14, Amount, AT(GamesValueCount), kAny, "value counted from"},
    {60, 15, Amount, AT(GamesSDCount), kAny, "deviations counted"},
};

#undef AT
#undef NOTHING
#undef SCREEN
#undef SIZED_SCREEN

bool IsFlag(FieldType type) {
  return type == Flag8 || type == FlagLong || type == FlagSingle || type == FlagShort;
}

// Units to whole dollars, ties to even; nothing beyond 32 bits.
std::optional<std::int64_t> NearestWhole(std::int64_t units) {
  constexpr std::int64_t kUnits = Money::kUnitsPerDollar;
  std::int64_t whole = units / kUnits;
  std::int64_t rest = units % kUnits;
  if (rest < 0) {
    rest += kUnits;
    --whole;
  }
  if (2 * rest > kUnits || (2 * rest == kUnits && whole % 2 != 0)) ++whole;
  if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max())
    return {};
  return whole;
}

bool IsFace(std::int64_t die) {
  return die >= 1 && die <= 7;
}

// Without overflow at the ends.
bool IsBetween(const Range& range, std::int64_t value, std::int64_t unit) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  const std::int64_t high = range.high > kMost / unit ? kMost : range.high * unit;
  return value >= range.low * unit && value <= high;
}

bool IsInRange(const Field& field, std::int64_t value) {
  const Range& range = field.range;
  switch (range.kind) {
    case Range::Between:
      return IsBetween(range, value, field.type == Amount ? Money::kUnitsPerDollar : 1);
    case Range::AboveZero:
      return value > 0;
    case Range::BarNumber:
      return value == 2 || value == 12;
    case Range::PointNumber:
      return value == 0 || (value <= 10 && IsBoxNumber(static_cast<int>(value)));
    case Range::TwoDice:
      return IsFace(value / 10) && IsFace(value % 10);
    default:
      return true;
  }
}

// What memory holds, as a whole number or in units.
std::int64_t Fetch(const Place& place) {
  struct Reader {
    std::int64_t operator()(const bool* flag) const { return *flag ? -1 : 0; }
    std::int64_t operator()(const std::int32_t* number) const { return *number; }
    std::int64_t operator()(const Money* money) const { return money->Units(); }
    std::int64_t operator()(const float* number) const { return NearestInt32(double{*number}).value_or(0); }
    std::int64_t operator()(const double* number) const { return Money::FromDouble(*number).Units(); }
    std::int64_t operator()(const DicePlace& dice) const { return *dice.die1 * 10 + *dice.die2; }
    std::int64_t operator()(std::int64_t number) const { return number; }
  };
  return std::visit(Reader(), place);
}

void Store(const Place& place, std::int64_t value) {
  struct Writer {
    std::int64_t value;
    void operator()(bool* flag) const { *flag = value != 0; }
    void operator()(std::int32_t* number) const { *number = static_cast<std::int32_t>(value); }
    void operator()(Money* money) const { *money = Money::FromUnits(value); }
    void operator()(float* number) const { *number = static_cast<float>(value); }
    void operator()(double* number) const { *number = Money::FromUnits(value).ToDouble(); }
    void operator()(const DicePlace& dice) const {
      *dice.die1 = static_cast<std::int32_t>(value / 10);
      *dice.die2 = static_cast<std::int32_t>(value % 10);
    }
    void operator()(std::int64_t) const {}
  };
  std::visit(Writer{value}, place);
}

// Places and sizes of windows: fractions are kept.
bool ReadSingle(const Field& field, const Place& place, float value) {
  if (field.type == FlagSingle) {
    *std::get<bool*>(place) = std::isfinite(value) && value != 0;
    return std::isfinite(value);
  }
  const Range& range = field.range;
  const bool isGood = value >= static_cast<float>(range.low) && value <= static_cast<float>(range.high);
  *std::get<float*>(place) = isGood ? value : 0;
  return isGood;
}

}  // namespace

bool IsSingle(FieldType type) {
  return type == Single || type == FlagSingle;
}

std::span<const Field> ScreenFields() {
  return kScreenFields;
}

std::span<const Field> GameFields() {
  return kGameFields;
}

std::span<const Field> FurtherFields() {
  return kFurtherFields;
}

std::size_t WidthOf(FieldType type) {
  switch (type) {
    case Amount:
    case Whole:
    case Flag8:
    case Dice:
      return 8;
    case Short:
    case FlagShort:
      return 2;
    default:
      return 4;
  }
}

std::size_t OffsetOf(const Field& field, int k) {
  const std::size_t width = WidthOf(field.type);
  const int perRecord = field.perRecord == 0 ? static_cast<int>(kRecordSize / width) : field.perRecord;
  const int slot = field.slot + k;
  // A slot behind the filled ones of its record is the only one of its row.
  if (field.count == 1) return RecordOffset(field.record) + static_cast<std::size_t>(slot) * width;
  return RecordOffset(field.record + slot / perRecord) + static_cast<std::size_t>(slot % perRecord) * width;
}

std::int64_t FieldValue(const Field& field, GameTables& g, int k) {
  return Fetch(field.place(g, field.first + k));
}

std::optional<std::int64_t> StoredValue(const Field& field, int k, RecordReader& reader) {
  reader.Seek(OffsetOf(field, k));
  switch (WidthOf(field.type)) {
    case 2:
      return reader.Int16();
    case 4:
      return reader.Int32();
    default:
      const std::int64_t units = reader.Int64();
      return field.type == Amount ? units : NearestWhole(units);
  }
}

void WriteField(const Field& field, int k, GameTables& g, RecordWriter& writer) {
  const Place place = field.place(g, field.first + k);
  writer.Seek(OffsetOf(field, k));
  if (field.type == Single) return writer.Single(*std::get<float*>(place));
  const std::int64_t value = Fetch(place);
  if (field.type == FlagSingle) return writer.Single(static_cast<float>(value));
  switch (WidthOf(field.type)) {
    case 2:
      return writer.Int16(static_cast<std::int16_t>(std::clamp<std::int64_t>(value, -32'767, 32'767)));
    case 4:
      return writer.Int32(static_cast<std::int32_t>(value));
    default:
      return writer.Int64(field.type == Amount ? value : value * Money::kUnitsPerDollar);
  }
}

void CopyField(const Field& field, GameTables& from, GameTables& to) {
  for (int k = 0; k < field.count; ++k)
    Store(field.place(to, field.first + k), Fetch(field.place(from, field.first + k)));
}

bool ReadField(const Field& field, int k, RecordReader& reader, GameTables& g, GameTables& defaults) {
  const Place place = field.place(g, field.first + k);
  if (IsSingle(field.type)) {
    reader.Seek(OffsetOf(field, k));
    return ReadSingle(field, place, reader.Single());
  }
  std::optional<std::int64_t> value = StoredValue(field, k, reader);
  if (std::holds_alternative<std::int64_t>(place)) return true;
  if (field.range.kind == Range::OneIfAny && value) *value = *value != 0;
  const bool isGood = value && IsInRange(field, *value);
  if (!isGood) value = field.range.otherwise.value_or(FieldValue(field, defaults, k));
  Store(place, IsFlag(field.type) ? *value != 0 : *value);
  return isGood;
}

}  // namespace rollwick
