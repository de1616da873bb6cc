// A bet is decided: what it wins or loses moves the bankroll, the counters and the log, and is then settled.
#include <algorithm>
#include <array>
#include <cstdlib>

#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"
#include "engine/bets/Resolution.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

void LogDecision(Game& g, BetId bet) {
  if (!g.RecordEventsActive) return;
  if (g.RecordBetsWon && g.PayoffNet > Money()) {
    LogEvent(g, "      " + BetName(bet) + " bet won $" + PlainText(g.PayoffNet));
  }
  if (g.RecordBetsLost && g.PayoffNet < Money()) {
    LogEvent(g, "      " + BetName(bet) + " bet lost $" + PlainText(-g.PayoffNet));
  }
}

// What takes a decided bet off the table whatever the player chooses.
enum class Leaves : std::uint8_t { Never, Always, OnSeven, WithoutPutBets, WithFlat };

constexpr auto kLeaves = [] {
  std::array<Leaves, kBetCount + 1> leaves{};
  const auto set = [&](BetId first, BetId last, Leaves when) {
    for (BetId bet = first; bet <= last; ++bet) leaves[static_cast<std::size_t>(bet)] = when;
  };
  set(Bet::DontCome4, Bet::DontCome10Odds, Leaves::Always);
  set(Bet::Come4, Bet::Come10, Leaves::WithoutPutBets);
  set(Bet::Come4Odds, Bet::Come10Odds, Leaves::WithFlat);
  for (const BetId odds : {Bet::PassLineOdds, Bet::DontPassOdds}) set(odds, odds, Leaves::Always);
  for (const BetId box : {Bet::Come, Bet::DontCome}) set(box, box, Leaves::OnSeven);
  return leaves;
}();

bool ComesDown(const Game& g, BetId bet) {
  const Leaves leaves = kLeaves[static_cast<std::size_t>(bet)];
  if (leaves == Leaves::Never) return false;
  switch (leaves) {
    case Leaves::Always:
      return true;
    case Leaves::OnSeven:
      return g.DiceTotal == 7;
    case Leaves::WithoutPutBets:
      return !g.Rules.AllowPutBets;
    case Leaves::WithFlat:
      return g.BetAmount[FlatOf(bet)] == Money();
    case Leaves::Never:
      break;
  }
  return false;
}

constexpr std::string_view kPush = "Push";
constexpr std::string_view kWinner = "* * * Winner * * *";

void CountStreak(Game& g, BetId bet, bool won) {
  std::int32_t& streak = g.BetStreak[bet][1];
  if (won) {
    streak = streak < 0 ? 1 : streak + 1;
    return;
  }
  streak = streak > 0 ? -1 : streak - 1;
  if (-streak > g.LongestLosingRun) {
    g.LongestLosingRun = -streak;
    g.LongestLosingBet = bet;
  }
}

void ResolveWorkingBet(Game& g, int outcome, BetId bet) {
  const Money stake = g.BetAmount[bet];
  ComputePayoff(g, true, bet, outcome, stake);
  RecordBetDecision(g, bet, stake, g.PayoffNet);
  LogDecision(g, bet);
  // A payoff row of zero makes the number a dead number for this bet.
  if (g.PayoffTable[0].Ratio == Money() && g.PayoffNet == Money()) return;

  SetAmount(g, SlotBankroll, g.BetAmount[SlotBankroll] + g.PayoffNet);
  // What has been decided is no contract any more: the player may keep it, take it or change it.
  if (bet <= Bet::DontPass) SetContract(g, bet, Money());
  g.BetMustComeDown = ComesDown(g, bet);
  if (g.PayoffNet != Money()) CountStreak(g, bet, g.PayoffNet > Money());
  if (g.PayoffNet < Money()) return SettleLostBet(g);
  SettleWonBet(g, g.PayoffNet == Money() ? kPush : kWinner);
}

// The flat bet was decided and its odds were not working: they go back to the player.
void ReturnOdds(Game& g, BetId bet) {
  g.PayoffNet = Money();
  const bool lineOdds = bet == Bet::PassLineOdds || bet == Bet::DontPassOdds;
  if (lineOdds || g.BetAmount[FlatOf(bet)] == Money() || !g.Rules.AllowPutBets) {
    g.BetMustComeDown = true;
  } else {
    g.PayoffTable[0].Base = g.PayoffTable[bet].Base;
  }
  SettleWonBet(g, "Odds Bet Returned");
  SetBetWorking(g, bet, On);
}

}  // namespace

void ResolveBet(Game& g, int outcome, BetId bet) {
  if (g.BetAmount[bet] == Money()) return;
  g.CurrentBetId = bet;
  g.BetMustComeDown = false;
  if (g.BetWorking[bet] >= On) {
    ResolveWorkingBet(g, outcome, bet);
  } else if (std::abs(outcome) == OddsWin) {
    ReturnOdds(g, bet);
  }
}

void BetUnit(Game& g, BetId bet) {
  const Money base = g.PayoffTable[bet].Base;
  const Money amount = g.BetAmount[bet];
  for (int slot = SlotChipDenom + kChipCount - 1; slot >= SlotChipDenom; --slot) {
    g.BetUnitAmount = Product(base, g.BetAmount[slot]);
    if (g.BetUnitAmount < amount && IsMultipleOf(amount, g.BetUnitAmount)) return;
  }
}

void MoveComeBet(Game& g, BetId fromBox, BetId toNumber) {
  const Money amount = g.BetAmount[fromBox];
  if (amount == Money()) return;
  g.BetDelta = -amount;
  ChangeBet(g, fromBox);
  if (!g.HyperDriveActive) g.TheHost->ChipsChanged(g, fromBox);
  g.TravelPass = true;
  g.BetDelta = amount;
  PlaceChips(g, toNumber);
  g.TravelPass = false;
  SetContract(g, toNumber, std::min(amount, g.BetAmount[toNumber]));
  if (g.RecordEventsActive && g.RecordBetChanges) {
    LogEvent(g, "      $" + PlainText(g.BetAtThrow[fromBox]) + " " + BetName(fromBox) + " bet moved to " +
                    BetName(toNumber));
  }
  if (!IsComeNumber(toNumber) || !g.AutoRemovePlaceBets) return;
  for (const BetId onNumber : {toNumber + 12, toNumber + 18}) {
    g.BetDelta = -g.BetAmount[onNumber];
    if (g.BetDelta != Money()) ChangeBet(g, onNumber);
  }
}

}  // namespace rollwick
