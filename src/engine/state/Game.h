// The whole game. Passed first to every procedure; nothing mutable lives anywhere else.
#pragma once

#include <string>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include "base/ByteFile.h"
#include "base/OutputFile.h"
#include "engine/state/AutoPlayTables.h"
#include "engine/state/BetTables.h"
#include "engine/state/DiceTables.h"
#include "engine/state/Host.h"
#include "engine/state/Ledger.h"
#include "engine/state/OptionTables.h"
#include "engine/state/ScreenTables.h"
#include "engine/state/ScriptTables.h"
#include "engine/state/StatisticsTables.h"

namespace rollwick {

// The flat part: copying it is undo, a snapshot, a test's "before".
struct GameTables : BetTables,
                    AutoPlayTables,
                    DiceTables,
                    StatisticsTables,
                    OptionTables,
                    ScriptTables,
                    ScreenTables {};
static_assert(std::is_trivially_copyable_v<GameTables>);

struct Game : GameTables {
  Host* TheHost = nullptr;          // never null while a procedure runs
  EventsLogSink* TheLog = nullptr;  // null: nothing is recorded
  Ledger TheLedger;
  std::string PendingLogLines;  // whole lines not yet handed to TheLog
  std::string BetMessage;       // collected by ChangeBet for one notice
  std::string StopMessage;      // why the run stopped; empty if it stopped by itself
  std::string LastStopMessage;  // the same of the last run, kept when StopMessage is emptied
  std::string LastErrorText;
  std::array<std::string, kChipStackCount> ChipStackName;  // given by scripts; empty: the stack's own name

  std::string GamePath;               // of the game file; empty for the working game
  std::int32_t GameFileReserved = 0;  // a number of the game file that is kept as it is
  std::vector<TableChip> TableChips;

  std::string EventsLogPath;  // empty: the log of the data folder
  std::string GamesLogPath;   // where finished games are added; empty: the Games Log is off

  std::string DiceFileName;  // path of the Dice Roll File; empty when none is open
  ByteFile DiceFile;
  std::string ProbabilityName;  // short name of the matrix's file; empty while it has none
  std::string ProbabilityPath;

  std::vector<ScriptLine> ScriptLines;  // line n is entry n - 1
  std::vector<FlagEntry> ScriptFlags;   // names differ in more than case
  std::string ScriptFileName;           // short name; empty while untitled
  std::string ScriptFilePath;
  std::string LoggedAutoBetName;          // ScriptFileName at the end of the last roll
  std::vector<ScriptStep> ScriptProgram;  // ScriptLines as a run takes them
  std::vector<ScriptStop> ScriptStops;    // found so far; emptied when the steps are made anew
  std::unordered_map<std::uint64_t, std::int32_t> ScriptStopPlaces;  // in ScriptStops, by line and state
  // By throw and stop, as far as they were walked; entry 0 is for runs that no throw came before.
  std::array<std::vector<ScriptWays>, 1 + kThrows> WaysOfThrow;
  bool ScriptIsDecoded = false;  // cleared by whoever changes lines or adds flags
  std::string OutputFileName;    // as the script named it
  OutputFile ScriptOutput;
  bool OutputIsToReopen = false;  // at the next write, to go on behind what a loaded game wrote
};

// Writes PayoffTable and FieldPayoffTable as the house opens with, and the line odds of a point that is on.
void RestoreDefaultPayoffs(Game& g);

// With a point on, copies its Come Odds row to the Pass Line Odds and its Don't Come Odds row to the Don't
// Pass Odds.
void SetLineOddsPayoffs(Game& g);

// Which bets work on the come-out as the house opens with, applied at once.
void SetDefaultWorking(Game& g);

// The odds behind each slot; the slot itself where it has none.
inline constexpr auto kOddsBehind = [] {
  std::array<std::uint8_t, kSlotCount> odds{};
  for (BetId slot = 0; slot < kSlotCount; ++slot)
    odds[static_cast<std::size_t>(slot)] = static_cast<std::uint8_t>(slot);
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    if (IsOdds(bet)) odds[static_cast<std::size_t>(FlatOf(bet))] = static_cast<std::uint8_t>(bet);
  }
  return odds;
}();

inline constexpr Money kNotAsked = Money::FromUnits(-1);

// Writes the amount of a slot, as everybody does while the dice roll.
[[gnu::always_inline]] inline void SetAmount(BetTables& g, BetId slot, Money amount) {
  const auto place = static_cast<std::size_t>(slot);
  g.BetAmount[place] = amount;
  g.ChangedSinceThrow.Set(slot);
  g.ChangedSinceEnd.Set(slot);
  g.Asked[place] = g.Asked[kOddsBehind[place]] = kNotAsked;
  if (IsBet(slot)) g.BetsStanding.Set(slot, amount != Money());
}

// Writes the contract of bet 1..46.
inline void SetContract(BetTables& g, BetId bet, Money contract) {
  g.BetContract[bet] = contract;
  g.ChangedSinceThrow.Set(bet);
}

// Writes BetWorking of one bet.
inline void SetBetWorking(BetTables& g, BetId bet, std::int32_t working) {
  g.BetWorking[bet] = working;
  g.BetsInAction.Set(bet, working >= On);
  g.BetsCalled.Set(bet, working == CalledOn || working == CalledOff);
}

// Which bets are in action and which have a button, as the sets tell now, kept as of the end of a roll.
inline void KeepWorkingAfterSettle(BetTables& g) {
  g.InActionAfterSettle = g.BetsInAction;
  g.CalledAfterSettle = g.BetsCalled;
}

// Works out the sets of bets after their tables were written whole.
void RefreshBetSets(Game& g);

// Run when the point changes, or a default: a new point turns every bet that was off on; the come-out gives
// every bet without a button its default.
void ApplyComeOutWorking(Game& g);

// A bet that went to zero: in action, on the come-out as its default says. Ids up to 83 only.
void ResetBetWorking(Game& g, BetId bet);

// All defaults of a newly opened house: rules, payoffs, denominations, a bankroll of 500, an empty table.
void SetStartUpDefaults(Game& g);

inline constexpr std::string_view kNewShooterLine = "------New shooter coming out----------";

// Appends one line to the Events Log. Callers look at RecordEventsActive and the matching switch themselves.
void LogEvent(Game& g, std::string_view text);

// Hands the pending lines to the log. A disk that refuses them turns the log off and says so.
void FlushEventsLog(Game& g);

// The tables that only follow from others, compared with what they follow from: TotalBets with its parts,
// vigs with amounts. False when they differ (a bug,
// asserted after every roll in debug builds).
bool TablesAgree(const Game& g);
// The same of the sets of bets, which follow while the dice roll.
bool BetSetsAgree(const Game& g);

}  // namespace rollwick
