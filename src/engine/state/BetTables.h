// Bets, payoffs, house rules, dice and point: what stands on the table.
#pragma once

#include <array>
#include <cstdint>

#include "base/Money.h"
#include "engine/state/BetSet.h"
#include "engine/state/Bets.h"

namespace rollwick {

inline constexpr Money kBankLimit = Dollars(9'999'999);                            // in both directions
inline constexpr Money kMaxChipStack = Money::FromUnits(999'999'999'999'999'999);  // and the same negated
inline constexpr std::int32_t kMaxRollCount = 100'000'000;

// BetWorking: whether a bet is in action. From 1 up it is.
enum Working : std::int32_t {
  CalledOff = -1,  // by the player's OFF button; survives the come-out reset
  Off = 0,         // by the come-out default: the roll leaves the bet alone
  On = 1,
  CalledOn = 2,  // by the player's ON button; survives the come-out reset
};

// A bet pays Ratio to Base, net of the stake; IsToForm ("to" or "for") alters only how the payoff is written.
struct PayoffRow {
  Money Ratio = Dollars(1);
  bool IsToForm = true;
  Money Base = Dollars(1);
  friend bool operator==(const PayoffRow&, const PayoffRow&) = default;
};

enum OddsMethod : std::int32_t {
  OddsAutoSelect,
  OddsNoPush,
  OddsMinorPush,
  OddsColorPush,
  OddsFlatTimesSingle,
  OddsSingleTimesFlat,
};

enum VigRounding : std::int32_t { VigRoundedNormally, VigRoundedDown, VigRoundedUp };

enum BankrollInit : std::int32_t { StartWithAmount, StartByPrompt, CarryBankroll, CarryBankrollAndNet };

// Bits of NotifyFlags: which notices the player wants to see.
enum Notify : std::int32_t {
  NotifyNotAllowed = 1,
  NotifyLimits = 2,
  NotifyCharges = 4,
  NotifyAutoBet = 8,
  NotifyAutoBetHyper = 16,
};

// The rules of the house.
struct TableRules {
  Money MinPlacardBet = Dollars(1);
  Money MaxPlacardBet = Dollars(1000);
  Money MaxPropBetPayoff = Dollars(3000);
  Money MaxOddsBet = Dollars(2000);
  Money OddsAllowed410 = Dollars(2);
  Money OddsAllowed59 = Dollars(2);
  Money OddsAllowed68 = Money::FromUnits(25'000);
  std::int32_t OddsCalcMethod = OddsAutoSelect;
  Money BuyVigPct = Money::FromUnits(500);
  bool BuyVigOnAll = true;
  std::int32_t RoundBuyVig = VigRoundedNormally;
  Money LayVigPct = Money::FromUnits(500);  // of what the bet would win
  bool LayVigOnAll = true;
  std::int32_t RoundLayVig = VigRoundedNormally;
  std::int32_t BarNumber = 12;  // 2 or 12
  bool AllowPutBets = false;
  bool AllowNegBankroll = false;
  std::int32_t BankrollInitType = StartWithAmount;
  Money BankrollInitAmount = Dollars(500);
  Money AtmAmount = Dollars(500);
  std::int32_t NotifyFlags = NotifyNotAllowed | NotifyLimits | NotifyCharges | NotifyAutoBet;
  friend bool operator==(const TableRules&, const TableRules&) = default;
};

struct BetTables {
  // Amounts by slot. Slot 0 is the bankroll, which a bet does not lower until it is lost.
  std::array<Money, kSlotCount> BetAmount{};
  std::array<Money, kSlotCount> BetAtThrow{};      // as it stood when the dice were thrown
  std::array<Money, kSlotCount> BetAfterSettle{};  // as it stood at the end of the last roll
  std::array<Money, 47> BetContract{};             // bets 1..46: the established amount of contract bets

  std::array<std::int32_t, kBetCount + 1> BetWorking{};         // Working
  std::array<std::int32_t, kBetCount + 1> BetWorkingDefault{};  // 0 or 1: works on the come-out

  // They follow from the tables above: bets with chips on them, bets in action, bets with a button, bets that
  // work on the come-out.
  BetSet BetsStanding;
  BetSet BetsInAction;
  BetSet BetsCalled;
  BetSet BetsOnByDefault;
  BetSet BetsAtThrow;  // with chips on them in BetAtThrow
  BetSet BetsAtEnd;    // the same in BetAfterSettle
  // Bets in action and bets with a button as they stood at the end of the last roll.
  BetSet InActionAfterSettle;
  BetSet CalledAfterSettle;
  // Slots whose amount or contract may differ from what was kept at the throw and at the end of the roll.
  SlotSet ChangedSinceThrow;
  SlotSet ChangedSinceEnd;
  // What a script asked for on a slot where asking again would change nothing; below 0 where that is not
  // known.
  std::array<Money, kSlotCount> Asked{};

  // The vig of the amount now on each Lay bet 1..6 and Buy bet 37..42, rounded; 0 on all others.
  std::array<Money, 7> LayVigAmount{};
  std::array<Money, 43> BuyVigAmount{};

  // Row 0 is a scratch row: the ratio ComputePayoff used last, which the texts read.
  std::array<PayoffRow, kBetCount + 1> PayoffTable{};
  // By dice combination, smaller die first: 1 = 1-1, 2 = 1-2, 3 = 1-3, 4 = 2-2 ... 21 = 6-6. Index 0 for a
  // face of 7.
  std::array<PayoffRow, 22> FieldPayoffTable{};

  TableRules Rules;

  // All bets, plus the vig amounts of a kind while that kind is charged on all bets. Kept by the changes,
  // never summed.
  Money TotalBets;
  Money InvestedBankroll;

  std::int32_t Die1 = 3;
  std::int32_t Die2 = 4;
  std::int32_t DiceTotal = 7;
  std::int32_t ManualDie1 = 1;  // what the manual pad holds for a roll with ManualRollPending
  std::int32_t ManualDie2 = 1;
  std::int32_t PrevDie1 = 3;
  std::int32_t PrevDie2 = 4;
  std::int32_t Point = 0;            // 0 on the come-out
  std::int32_t PointBeforeRoll = 0;  // all resolution of a roll reads this one
  std::int32_t PointBeforeLast = 0;

  // The bet at work and its result.
  BetId CurrentBetId = 0;
  Money BetDelta;         // the change asked of ChangeBet
  Money BetDeltaApplied;  // the change it made
  Money PayoffExact;      // last result of ComputePayoff before rounding to chips
  Money PayoffNet;        // the same in whole lowest chips: this one moves the bankroll
  Money BetUnitAmount;
  Money BetMin;
  Money BetMax;
  Money OddsMultiple;
  bool BetMustComeDown = false;
  bool TravelPass = false;  // lets a Come bet on its way past the rules of Come and Don't Come numbers
};

// The lowest chip, never 0.
inline Money LowestChip(const BetTables& g) {
  return g.BetAmount[SlotChipDenom];
}

inline Money AvailableBankroll(const BetTables& g) {
  return g.BetAmount[SlotBankroll] - g.TotalBets;
}

// Place of the two dice in FieldPayoffTable; 0 when a face is outside 1..6.
int FieldIndex(int die1, int die2);

}  // namespace rollwick
