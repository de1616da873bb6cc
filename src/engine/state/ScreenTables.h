// What the screens remember: where they stand, which page is on show, what is ticked. Only the screens act on
// these; a game file keeps them all.
#pragma once

#include <array>
#include <cstdint>

#include "base/Money.h"

namespace rollwick {

// The screens beside the table, in the order of the game file.
enum ScreenId : int {
  ScreenAutoBet,
  ScreenAutoPlay,
  ScreenConfigure,
  ScreenSummary,
  ScreenBankroll,
  ScreenRollTotals,
  ScreenRollFreqs,
  ScreenBetResults,
  ScreenBetTrends,
  ScreenGames,
  ScreenEventsLog,
  ScreenDiceRollFiles,
  ScreenRYON,
  ScreenStackValues,
  ScreenFlags,
  ScreenHotKeys,
  ScreenSteps,
  ScreenSettleBet,
  kScreenCount,
};

// In pixels. All 0 where nothing was remembered yet.
struct ScreenPlace {
  bool Open = false;
  float Top = 0;
  float Left = 0;
  float Width = 0;  // this and Height of screens that can be sized
  float Height = 0;
};

// A chip as it lies on the table: a picture, for amounts come from BetAmount.
struct TableChip {
  std::int32_t Bet = 0;   // 1..83 or a Chip-Stack's slot
  std::int32_t Chip = 0;  // 0..4, the denomination in slot 95 + it
  std::int32_t X = 0;     // in pixels of picLayout
  std::int32_t Y = 0;
  friend bool operator==(const TableChip&, const TableChip&) = default;
};

inline constexpr int kTableColorCount = 8;

struct ScreenTables {
  // The table's window.
  float TableWindowState = 0;  // 0 normal, 1 minimised, 2 maximised
  ScreenPlace TablePlace;      // without Open
  std::array<ScreenPlace, kScreenCount> Screens{};

  std::int32_t SelectedChip = 0;  // the chip in hand: slot 95 + it
  std::int32_t ChipStyle = 0;     // picture sets
  std::int32_t DiceStyle = 0;
  std::int32_t DiceAction =
      1;  // 0 stationary, 1 return after thrown, 2 return on decision, 3 remain on table
  bool KeyInBetAmounts = false;
  bool DisplayBetAmounts = false;
  bool DisplayHopBets = false;
  bool QuickStats = true;
  std::int32_t EnterBetSpot = 0;  // the spot last keyed in; 0 none
  bool SnapMouse = false;
  std::array<std::int32_t, kTableColorCount> TableColors{0x4A781B, 0xFFFFFF, 0x77BBFF, 0x000000,
                                                         0xFFFFFF, 0xFFFFFF, 0x0000FF, 0xFFFFFF};  // BBGGRR
  float TableTexture = 8;                                                                          // 0..8

  // frmConfigure.
  std::int32_t ConfigPage = 0;
  bool UseCentsSymbol = false;
  std::int32_t StickPerson = 0;  // list indexes of voices and sounds; -1 none
  std::int32_t DiceSound = 0;
  std::int32_t ChipSound = 0;
  std::int32_t WinSound = 0;
  bool DisableAutoBetSounds = false;
  bool DisableAllSound = false;
  std::int32_t Volume = -1;                   // 0..100; -1 leaves the volume alone
  std::array<std::int32_t, 3> CompBetMask{};  // bets 1..31, 32..62, 63..83, lowest bit first
  std::int32_t CompBase = 0;                  // 0..2
  bool CompsUseTrueProbs = false;
  Money CompRate;                  // percent
  std::int32_t PrintFontBody = 9;  // point sizes
  std::int32_t PrintFontHeads = 12;
  std::int32_t PrintFontTitle = 13;
  bool ColorPrinter = false;
  std::int32_t RollsPerTimeForm = 0;
  std::int32_t ProbabilityDisplayMode = 0;  // 0..3
  double ProbabilityRollsOutOf = 36;        // above 0
  std::int32_t Die1Axis = 0;                // 0..2
  std::int32_t Die2Axis = 0;
  Money Die1SE;  // percent
  Money Die2SE;
  bool CountZeroOutcomes = false;
  bool ShowMiscData = false;
  std::int32_t AdvantageScroll = 0;
  std::int32_t PayoffsScroll = 0;

  // frmAutoBet.
  std::int32_t AutoBetScroll = 0;
  bool ShowLineNumbers = false;

  // frmRollTotals and frmRollFreqs.
  std::int32_t TotalsDisplay = 0;
  std::int32_t TotalsBackColour = 0;
  std::int32_t TotalsGraphColour = 0;
  std::int32_t TotalsVScroll = 0;
  std::int32_t TotalsHScroll = 0;
  std::int32_t TotalsShowProb = 0;
  std::array<bool, 37> DiceRollHighlight{};  // 1..36: (first die - 1) x 6 + second die
  std::int32_t FreqItem = 0;
  bool FreqSkewed = false;

  // frmBankroll.
  bool AutoPrintGraph = false;
  bool GraphRefLines = false;
  bool GraphGridLines = false;
  std::int32_t GraphColor = 0;
  std::int32_t GraphStyle = 0;
  bool MovingAverageOn = false;
  std::int32_t MovingAveragePeriod = 525;  // rolls; 0 all of them

  // frmBetResults: the columns on show, and the bets, with masks as CompBetMask.
  std::int32_t ResultsDataType = 0;
  std::array<std::int32_t, 3> ResultsBetMask{};

  // frmGames.
  std::int32_t GamesView = 0;
  std::int32_t GamesDisplay = 0;
  std::int32_t GamesBarWidth = 0;
  std::int32_t GamesInclude = 7;  // bits 1, 2, 4
  Money GamesValueCount;
  Money GamesSDCount;
  Money BreakLow;
  Money BreakHigh;

  // frmEventsLog.
  std::int32_t LogFontSize = 1;  // 0 smaller, 1 normal, 2 larger
  bool LogFontBold = false;
  bool LogFontItalic = false;

  // frmDiceRollFiles and frmRYON.
  bool DiceInsertRolls = false;
  bool DiceOutDieNums = false;
  bool DiceOutRollNums = false;
  bool DiceOutNumbersCalled = false;
  bool DiceOutSelected = false;
  std::int32_t DiceOutFontSize = 9;
  std::int32_t PadStayOnTop = -1;  // not 0 is on
  std::int32_t PadRollAtOnce = -1;

  // frmStackValues.
  bool StacksShowZero = true;
  std::int32_t StacksTop = 0;  // the first stack on show
  std::array<std::int32_t, 4> VisibleChipStack{1, 2, 3,
                                               4};  // on the table: numbers, not slots; all different
};

}  // namespace rollwick
