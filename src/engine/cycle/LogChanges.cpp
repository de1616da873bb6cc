#include "engine/cycle/LogChanges.h"

#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

std::string Dollar(Money amount) {
  return "$" + PlainText(amount);
}

void LogBet(Game& g, BetId bet, const std::string& what) {
  LogEvent(g, "      " + BetName(bet) + " bet " + what);
}

bool LostLastRoll(const Game& g, BetId bet) {
  return g.BetLosses[ActualWagers][bet][LastRollCount] != Money();
}

bool DecidedLastRoll(const Game& g, BetId bet) {
  return g.BetWagers[ActualWagers][bet][LastRollCount] != Money();
}

bool IsBox(BetId bet) {
  return bet == Bet::Come || bet == Bet::DontCome;
}

// Whether `bet` is where a bet of the box would have travelled on the last total.
bool WasTravelTarget(const Game& g, BetId box, BetId bet) {
  if (!IsBoxNumber(g.DiceTotal) || g.BetAtThrow[box] <= Money()) return false;
  return bet == (box == Bet::Come ? ComeOn(g.DiceTotal) : DontComeOn(g.DiceTotal));
}

void LogEmptySpot(Game& g, BetId bet) {
  const bool stood = g.BetAtThrow[bet] > Money();
  if (LostLastRoll(g, bet) || (IsBox(bet) && stood)) return;
  // A Don't Come bet taken down on its number right after it travelled there was never on it at a throw.
  if (stood || WasTravelTarget(g, Bet::DontCome, bet)) LogBet(g, bet, "removed");
}

void LogStandingBet(Game& g, BetId bet) {
  const Money amount = g.BetAmount[bet];
  const Money before = g.BetAtThrow[bet];
  const std::string fresh = "      " + Dollar(amount) + " bet on " + BetName(bet);
  if (IsBox(bet) && before > Money() && !DecidedLastRoll(g, bet)) {
    LogEvent(g, fresh);
  } else if (WasTravelTarget(g, Bet::DontCome, bet)) {
    if (amount < g.BetAtThrow[Bet::DontCome]) LogBet(g, bet, "decreased to " + Dollar(amount));
  } else if (before == Money()) {
    LogEvent(g, fresh);
  } else if (amount > before) {
    LogBet(g, bet, "increased to " + Dollar(amount));
  } else if (amount < before) {
    LogBet(g, bet, "decreased to " + Dollar(amount));
  } else if (WasTravelTarget(g, Bet::Come, bet)) {
    LogBet(g, bet, "still " + Dollar(amount));
  }
}

// The button on a bet at the end of the last roll; Off for none.
std::int32_t ButtonBefore(const Game& g, BetId bet) {
  if (!g.CalledAfterSettle.Has(bet)) return Off;
  return g.InActionAfterSettle.Has(bet) ? CalledOn : CalledOff;
}

void LogButton(Game& g, BetId bet) {
  const std::int32_t now = g.BetWorking[bet];
  const std::int32_t before = ButtonBefore(g, bet);
  const bool freshBet = g.BetAtThrow[bet] == Money() || LostLastRoll(g, bet);
  if (!freshBet && now == before) return;
  if (now == CalledOff) return LogBet(g, bet, "called OFF");
  if (now == CalledOn) return LogBet(g, bet, "called ON");
  if (freshBet) return;
  if (before == CalledOff) LogEvent(g, "      " + BetName(bet) + " bet, OFF button removed");
  if (before == CalledOn) LogEvent(g, "      " + BetName(bet) + " bet, ON button removed");
}

void LogBetChanges(Game& g) {
  BetSet bets = g.BetsStanding | g.BetsAtThrow;
  if (IsBoxNumber(g.DiceTotal)) bets.Set(DontComeOn(g.DiceTotal));  // a bet may have come there and gone
  bets.ForEach([&g](BetId bet) {
    if (g.BetAmount[bet] == Money()) {
      LogEmptySpot(g, bet);
    } else {
      LogStandingBet(g, bet);
      LogButton(g, bet);
    }
  });
}

void LogBankroll(Game& g, Money before, std::string_view up, std::string_view down) {
  const Money now = g.BetAmount[SlotBankroll];
  if (now == before) return;
  const bool rose = now > before;
  LogEvent(g, std::string("      Bankroll ") + (rose ? "increased" : "decreased") + " to " + Dollar(now) +
                  " (" + Dollar(Abs(now - before)) + " " + std::string(rose ? up : down) + ")");
}

void LogChipStackChanges(Game& g) {
  constexpr SlotSet kStacks = SlotSet::Range(SlotChipStack, SlotLastChipStack);
  (g.ChangedSinceThrow & kStacks).ForEach([&g](BetId stack) {
    const Money now = g.BetAmount[stack];
    const Money before = g.BetAtThrow[stack];
    if (now == before) return;
    LogEvent(g, "      " + ChipStackTitle(stack) + (now > before ? " increased to " : " decreased to ") +
                    Dollar(now));
  });
}

void LogActivation(Game& g) {
  const bool isOn = g.AutoBetsActive == 1 && !g.ScriptLines.empty();
  const bool wasOn = g.LoggedAutoBetEnabled == 1;
  if (!isOn || (wasOn && g.ScriptFileName == g.LoggedAutoBetName)) return;
  LogEvent(g,
           "      Auto-Bets activated (" + (g.ScriptFileName.empty() ? "untitled" : g.ScriptFileName) + ")");
}

void LogDeactivation(Game& g) {
  const bool isEmpty = g.ScriptLines.empty();
  const bool wasCleared = isEmpty && g.ScriptFileName != g.LoggedAutoBetName;
  const bool wasSwitchedOff = !isEmpty && g.LoggedAutoBetEnabled == 1 && g.AutoBetsActive != 1;
  if (wasCleared || wasSwitchedOff) LogEvent(g, "      Auto-Bets deactivated");
}

}  // namespace

void LogPlayerChanges(Game& g) {
  if (!g.RecordEventsActive) return;
  LogActivation(g);
  if (g.RecordBankrollChanges) {
    LogBankroll(g, g.BetAfterSettle[SlotBankroll], "ATM withdrawal", "ATM deposit");
  }
  if (g.RecordBetChanges) LogBetChanges(g);
  if (g.RecordChipStackChanges) LogChipStackChanges(g);
  LogDeactivation(g);
}

void LogRoll(Game& g, std::string_view source) {
  if (!g.RecordEventsActive || !g.RecordRolls) return;
  std::string line = " Roll #" + std::to_string(g.RollCount() + 1) + ":  " + std::to_string(g.Die1 + g.Die2) +
                     " (" + std::to_string(g.Die1) + "." + std::to_string(g.Die2) + ")";
  line += source;
  LogEvent(g, line);
}

void LogPoint(Game& g, std::string_view line) {
  if (g.RecordEventsActive && g.RecordPassesMisses) LogEvent(g, line);
}

void LogRollResult(Game& g) {
  if (!g.RecordEventsActive) return;
  if (g.RecordBankrollChanges) LogBankroll(g, g.BetAtThrow[SlotBankroll], "gain", "loss");
  if (g.RecordShooterChanges && g.PointBeforeRoll > 0 && g.DiceTotal == 7) LogEvent(g, kNewShooterLine);
}

}  // namespace rollwick
