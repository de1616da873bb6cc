// Texts of spots, made anew from the game whenever somebody looks.
#include "ui/SpotTexts.h"

#include <algorithm>

#include "base/FormatNumber.h"
#include "engine/bets/Payoffs.h"
#include "ui/screens/Captions.h"

namespace rollwick {
namespace {

std::string StackName(const Game& g, BetId stack) {
  const std::string& own = g.ChipStackName[static_cast<std::size_t>(stack - SlotChipStack)];
  return own.empty() ? ChipStackTitle(stack) : own;
}

std::string RatioLine(const Game& g, BetId bet) {
  std::string line = " " + BetName(bet) + "  ";
  if (bet != Bet::Field) return line + RatioText(g.PayoffTable[bet]);
  line += RatioText(g.PayoffTable[bet]);
  for (const int face : {1, 6}) {
    line += ",  " + std::to_string(2 * face) + ": " +
            RatioText(g.FieldPayoffTable[static_cast<std::size_t>(FieldIndex(face, face))]);
  }
  return line;
}

// The vig on the chips that stand, if the bet pays one.
Money VigOf(const Game& g, BetId bet) {
  if (IsLay(bet)) return g.LayVigAmount[bet];
  return IsBuy(bet) ? g.BuyVigAmount[bet] : Money();
}

bool IsVigOnAll(const Game& g, BetId bet) {
  return IsLay(bet) ? g.Rules.LayVigOnAll : g.Rules.BuyVigOnAll;
}

std::string BetText(const Game& g, BetId bet) {
  const Money amount = g.BetAmount[bet];
  if (amount == Money()) return RatioLine(g, bet);
  const bool isWorking = g.BetWorking[bet] >= On;
  std::string text =
      FormatMoney(amount, BetName(bet) + " bet " + (isWorking ? "(working):  " : "(OFF):  ") + "$");
  // Two blanks: it is not paid yet.
  if (const Money vig = VigOf(g, bet); vig != Money())
    text += FormatMoney(vig, IsVigOnAll(g, bet) ? "\nvig: $" : "\nvig:  $");
  return text + "\n" + RatioLine(g, bet);
}

const char* WorkingWord(std::int32_t working) {
  switch (working) {
    case CalledOn:
      return ", called ON";
    case CalledOff:
      return ", called OFF";
    case Off:
      return ", not working";
    default:
      return ", working";
  }
}

std::string SpokenBet(const Game& g, BetId bet) {
  if (g.BetAmount[bet] == Money()) return BetName(bet) + ", no bet";
  std::string text = FormatMoney(g.BetAmount[bet], BetName(bet) + ", $") + WorkingWord(g.BetWorking[bet]);
  if (const Money vig = VigOf(g, bet); vig != Money()) text += FormatMoney(vig, ", vig $");
  return text;
}

std::string SpokenSwitch(const Game& g) {
  std::string text = g.DisplayHopBets ? "Show proposition bets" : "Show hop bets";
  if (const Money hidden = HiddenBets(g); hidden != Money()) text += FormatMoney(hidden, ", $") + " on them";
  return text;
}

std::string SpokenSpot(const Game& g, int spot) {
  if (IsBet(spot)) return SpokenBet(g, spot);
  if (IsChipStack(spot)) return FormatMoney(g.BetAmount[spot], StackName(g, spot) + ", $");
  switch (spot) {
    case SpotDiceFile:
      return std::string("Dice Roll Recorder, ") +
             (g.DiceFileMode == DiceFileRecording ? "recording" : "playback") + ", next roll is " +
             std::to_string(g.DiceFileRecord) + ", stop";
    case SpotOn:
      return "ON button, call a bet ON";
    case SpotOff:
      return "OFF button, call a bet OFF";
    case SpotBuy:
      return "BUY button, buy a Place bet";
    case SpotTools:
      return "Tools";
    case SlotRail:
      return FormatMoney(AvailableBankroll(g), "Rail, $") + " available";
    case SpotPanelSwitch:
      return SpokenSwitch(g);
    default:
      return {};
  }
}

std::string SpokenChip(const Game& g, int chip) {
  return FormatMoney(g.BetAmount[SlotChipDenom + chip], "$") + " chip" +
         (chip == g.SelectedChip ? ", selected" : "");
}

std::string SpokenTool(const Game& g, Tool tool) {
  switch (tool) {
    case Tool::Dice:
      return "Dice, " + std::to_string(g.Die1) + " and " + std::to_string(g.Die2) + ", roll";
    case Tool::Roll:
      return g.KeepRolling ? "Stop" : "Roll dice";
    case Tool::Remove:
      return "Take a bet down";
    case Tool::Down:
      return "Take all bets down";
    case Tool::KeyIn:
      return g.KeyInBetAmounts ? "Type bet amounts, on" : "Type bet amounts, off";
    case Tool::Selected:
      return FormatMoney(g.BetAmount[SlotChipDenom + std::clamp(g.SelectedChip, 0, kChipCount - 1)],
                         "Chip in hand, $") +
             ", next chip";
    case Tool::None:
      return {};
    default:
      return SpokenChip(g, ChipOf(tool));
  }
}

std::string RecorderText(const Game& g) {
  return std::string("Dice Roll Recorder:   ") +
         (g.DiceFileMode == DiceFileRecording ? "Recording" : "Playback") + "\nNext roll is #" +
         std::to_string(g.DiceFileRecord);
}

}  // namespace

QString SpokenText(const Game& g, int spot) {
  return ToQt(SpokenSpot(g, spot));
}

QString SpokenText(const Game& g, Tool tool) {
  return ToQt(SpokenTool(g, tool));
}

QString QuickStatsText(const Game& g, int spot) {
  if (IsBet(spot)) return ToQt(BetText(g, spot));
  if (IsChipStack(spot)) return ToQt(FormatMoney(g.BetAmount[spot], StackName(g, spot) + ":  $"));
  if (spot == SpotDiceFile) return ToQt(RecorderText(g));
  if (spot != SlotRail) return {};
  return ToQt(FormatMoney(g.BetAmount[SlotBankroll], "Bankroll:  $") +
              FormatMoney(g.TotalBets, "\nTotal bets:  $") +
              FormatMoney(AvailableBankroll(g), "\n  Available:  $"));
}

int ChipOf(Tool tool) {
  if (tool < Tool::Chip99 || tool > Tool::Chip95) return -1;
  return static_cast<int>(Tool::Chip95) - static_cast<int>(tool);
}

Money HiddenBets(const Game& g) {
  Money hidden;
  g.BetsStanding.ForEach([&](BetId bet) {
    if (IsBet(bet) && !IsOnView(g, bet)) hidden += g.BetAmount[bet];
  });
  return hidden;
}

}  // namespace rollwick
