// Counters of rolls, bets, hands and the bankroll: every update is an increment or a copy.
#pragma once

#include "engine/state/Game.h"

namespace rollwick {

// One occurrence of `event` (2..89) with its gap.
void TallyRollEvent(StatisticsTables& g, RollEvent event);

// Counts the roll itself and every event the dice are: faces, pair, total, groups. A face of 7 is counted as
// a face and within the totals 8 to 11, but belongs to no pair.
void TallyRoll(Game& g);

// One decision of a bet. `result` is the signed net, 0 records nothing; `wager` is the stake, to which the
// vig is added when the decision charges it. Phantom Come and Don't Come bets count only once they have
// travelled to their number.
void RecordBetDecision(Game& g, BetStatKind kind, BetId bet, Money wager, Money result);

// The commonest decision: a phantom dollar lost on a bet that costs no vig.
void RecordPhantomLoss(Game& g, BetId bet);

// The vig on a phantom Lay bet of one dollar: of what it would win, unrounded.
Money PhantomLayVig(const Game& g, BetId bet);

void CountPass(Game& g);
void CountMiss(Game& g);
// The barred number on the come-out. Counts exactly as a come-out miss; only the call differs.
void CountBarPush(Game& g);

// At the start of a roll, before new dice exist: results of the last roll are cleared, streaks kept as
// "before", and the phantom Come and Don't Come bets of the last total travel, by the last DiceTotal and
// PointBeforeRoll.
void StartRollResults(Game& g);

// Copies the tracked counters to their values "before this roll".
void CountPrevRolls(Game& g);

// At the end of a settled roll: sum, high and low of the bankroll.
void TallyBankroll(Game& g);

// The bankroll as the next point of the graph, turning the page and moving the scale when it is time.
void AddBankrollPoint(Game& g);

// The average of the bankroll over the last `period` points of its graph, at most 525, as it stands now
// (rollsBack 0) or as it stood a roll before (1). Period 0 takes all rolls of the game. At the first point of
// a game, and with no rolls, it is 0.
Money MovingAverage(const Game& g, int rollsBack, int period);

// Forgets everything counted and starts the bankroll record at the present bankroll.
void ResetStatistics(Game& g);

// Zeroes the tracked counters of one event, now and before.
void ResetTrackedEvent(Game& g, RollEvent event);

// Sums rows firstBet..lastBet (1..83) of the actual kind into the work row (actual, bet 0), zeroed first if
// told so.
void SumBetResults(Game& g, bool clearFirst, BetId firstBet, BetId lastBet);

}  // namespace rollwick
