// What the rolls of a run have shown and the tables do not hold yet. A roll makes a few marks here;
// BringUpToDate enters them in the tables before anybody reads those.
#pragma once

#include <array>
#include <cstdint>

#include "engine/state/BetSet.h"
#include "engine/state/BetTables.h"
#include "engine/state/StatisticsTables.h"

namespace rollwick {

// The roll that is going on, as far as the counters have come with it.
enum class RollStage : std::int32_t { None, Begun, Counted };

// Where the tracked counters of an event start: when the run began, or when a script reset them.
struct TrackedStart {
  std::int32_t Roll = 0;    // from which its rolls-since counter runs until the event comes again
  std::int32_t Count = 0;   // of the event
  std::int32_t Offset = 0;  // from the event's count to its tracked count
};

// The events by roll numbers, from which their rolls-since counters follow. A number can lie before the first
// roll, as a game from a file may have it.
struct EventMarks {
  RollStage Stage = RollStage::None;                      // None: the tables hold everything
  std::array<std::int32_t, kRollEventCount> Hit{};        // when it came last
  std::array<std::int32_t, kRollEventCount> HitBefore{};  // and before that
  std::array<std::int32_t, kRollEventCount> Count{};
  std::array<TrackedStart, kRollEventCount> TrackedStarts{};
};

// ---- Phantom wagers. Which bets a roll decides, and at what price, depends on the line point, the dice, the
// bets in action and the numbers that phantom Come and Don't Come bets have travelled to. So rolls are
// counted by these, and decisions only when they are read.

inline constexpr int kPointPlaces = 7;  // the come-out and the six numbers
inline constexpr int kFaces = 7;        // a generator can deliver a 7
inline constexpr int kLineCells = kPointPlaces * kFaces * kFaces;
// A number, which of its four phantom bets are there, and whether it was rolled or a seven.
inline constexpr int kPresences = 16;
inline constexpr int kTravelCells = 6 * kPresences * 2;
inline constexpr int kCellCount = kLineCells + kTravelCells;

// Rolls of one kind.
struct RollCell {
  std::int32_t Count = 0;
  std::int32_t LastRoll = 0;  // roll number of the latest
};

// The cells of one state of the buttons and defaults: the bets that were in action.
struct ActionCells {
  BetSet InAction;
  std::array<RollCell, kCellCount> Cells{};
};

// A phantom dollar decided in one way.
struct PhantomPrice {
  BetId Bet = 0;
  bool Won = false;
  Money Wager;             // with the vig
  Money Amount;            // won or lost, above 0
  std::int16_t Next = -1;  // of the same bet
  std::int32_t Count = 0;
  std::int32_t LastRoll = 0;
};

inline constexpr int kMostPrices = 512;      // some 230 come up
inline constexpr int kMostDecisions = 64;    // of one roll
inline constexpr int kMostActionCells = 64;  // the come-out's, the point's, and odds returned on the come-out
inline constexpr std::int32_t kNotPriced = -1;  // of a cell whose decisions are not known yet

// Indexes into Prices.
struct CellDecisions {
  std::int32_t Count = kNotPriced;
  std::array<std::int16_t, kMostDecisions> Prices{};
};

struct PhantomLedger {
  std::int32_t PriceCount = 0;
  std::array<PhantomPrice, kMostPrices> Prices{};
  std::array<std::int16_t, kBetCount + 1> FirstPrice{};  // of a bet, in Prices; -1: none yet
  std::array<CellDecisions, kCellCount> Decisions{};

  std::array<std::int32_t, 6> Presence{};  // by BoxPlace: bit 0 Don't Come, 1 its odds, 2 Come, 3 its odds
  std::int32_t ActionCount = 0;
  std::array<ActionCells, kMostActionCells> Actions{};
  std::int32_t Current = 0;  // of Actions
  // Cells with rolls in them: place in Actions x kCellCount + cell.
  std::int32_t TouchedCount = 0;
  std::array<std::int32_t, kMostActionCells * kCellCount> Touched{};
};

// ---- Changes of bets that were reckoned before.

// A request, with all that can differ between two equal ones.
struct ChangeRequest {
  std::uint64_t Circumstances = 0;  // the rules and all that is no amount; 0: no request was made
  Money Amount;
  Money Delta;
  Money Tie;  // the contract of contract bets, the flat bet of odds
  friend bool operator==(const ChangeRequest&, const ChangeRequest&) = default;
};

// What the rules made of it, before the bankroll was looked at.
struct KnownChange {
  ChangeRequest Request;
  bool IsRefused = false;
  Money Applied;
  Money BetMin;
  Money BetMax;
};

inline constexpr int kKnownChangesShift = 58;     // the top bits of a hash choose the place
inline constexpr std::size_t kKnownChanges = 64;  // places of a bet: put up, kept, taken down, on each point

// The most that may stand on odds behind a flat bet.
struct KnownMaximum {
  std::uint32_t RulesNumber = 0;
  Money Flat;
  Money BetMax;
  Money OddsMultiple;
};

inline constexpr std::size_t kKnownMaxima = 8;  // of odds: behind no bet, off the lines, on each point

// What a stake is paid at a ratio; follows from these alone.
struct KnownPayment {
  Money Stake;
  Money Ratio;
  Money Base;
  Money Pays;
};

// What prices and known changes follow from; when it changes they are worked out anew.
struct RulesInForce {
  std::array<PayoffRow, kBetCount + 1> PayoffTable{};
  std::array<PayoffRow, 22> FieldPayoffTable{};
  TableRules Rules;
  std::array<Money, kChipCount> Denominations{};
  std::int32_t AutoAdjustBetAmounts = 0;
  std::array<std::int32_t, 4> Biases{};  // of Lay, Place, Do and Don't bets
};

struct Ledger {
  RulesInForce Rules;
  std::uint32_t RulesNumber = 1;  // another one for all rules that were in force since the start
  bool IsParlay = false;          // the biases of the moment are those of a parlay
  EventMarks Events;
  PhantomLedger Phantoms;
  // Two to a place, the latest first.
  std::array<std::array<std::array<KnownChange, 2>, kKnownChanges>, kBetCount + 1> Changes{};
  std::array<std::array<KnownMaximum, kKnownMaxima>, kBetCount + 1> Maxima{};
  std::array<KnownPayment, kBetCount + 1> Payments{};
};

}  // namespace rollwick
