// Deciding a bet and settling it.
#pragma once

#include "engine/state/Game.h"
#include "stats/tally/Tally.h"

namespace rollwick {

// Outcomes: 1 wins, -1 loses; 2 and -2 the same for odds, which are returned when they were not working.
enum Outcome : int { Wins = 1, Loses = -1, OddsWin = 2, OddsLose = -2 };

// Decides the chips on `bet`, if any: pays or takes them and settles what becomes of the bet.
void ResolveBet(Game& g, int outcome, BetId bet);

// What becomes of CurrentBetId by the Auto-Play choice, or by asking.
void SettleLostBet(Game& g);
void SettleWonBet(Game& g, std::string_view caption = {});

// The unit of `bet`: the largest chip times its Base that is below the amount and divides it; sets
// BetUnitAmount.
void BetUnit(Game& g, BetId bet);

// Sends a Come or Don't Come bet from its box to its number.
void MoveComeBet(Game& g, BetId fromBox, BetId toNumber);

// "Bet increased by: $...", against the amount at the throw, if the player wants to hear of changes. The
// title is the bet's name behind the prefix.
void TellBetChange(Game& g, BetId bet, const char* titlePrefix = "");

// A formula's new amount put up in place of the bet.
void ApplySameBetFormula(Game& g, int slot);
void ApplyBetFormula(Game& g, int slot);

// Each sets the bet as named, through ChangeBet.
void RemoveResolvedBet(Game& g);
void BetRemainder(Game& g);
void RestoreSameBet(Game& g);
void PressOneUnit(Game& g);
void PressDouble(Game& g);
void ParlayBet(Game& g);

}  // namespace rollwick
