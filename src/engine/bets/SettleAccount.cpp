#include "engine/bets/SettleAccount.h"

#include "base/FormatNumber.h"
#include "engine/bets/Payoffs.h"

namespace rollwick {

namespace {

std::string Dollar(Money amount) {
  return FormatMoney(amount, "$");
}

void AddRow(SettleQuestion& question, std::string label, Money amount, bool bold = false) {
  question.rows.push_back({std::move(label), Dollar(amount), bold});
}

SettleQuestion Begin(const Game& g, std::string_view caption) {
  SettleQuestion question;
  question.bet = g.CurrentBetId;
  question.caption = caption;
  AddRow(question, BetName(question.bet) + " bet:", g.BetAmount[question.bet]);
  return question;
}

Money VigOf(const Game& g, BetId bet) {
  return IsLay(bet) ? g.LayVigAmount[bet] : IsBuy(bet) ? g.BuyVigAmount[bet] : Money();
}

std::string VigRate(const Game& g, BetId bet) {
  return PlainText(-Product(IsLay(bet) ? g.Rules.LayVigPct : g.Rules.BuyVigPct, Dollars(100)));
}

std::string NetLabel(const Game& g, std::string_view what) {
  return "Net " + std::string(what) + (g.PayoffNet == g.PayoffExact ? ": " : " (rounded): ");
}

int SplitWays(BetId bet) {
  return bet == Bet::CAndE ? 2 : bet == Bet::Horn ? 4 : bet == Bet::World ? 5 : 0;
}

void AddSplitRows(const Game& g, SettleQuestion& question, int ways) {
  const Money stake = g.BetAmount[question.bet];
  const Money part = Quotient(stake, Dollars(ways));
  const Money lost = stake - part;
  const std::string of = "/" + std::to_string(ways) + " of bet:";
  AddRow(question, "1" + of, part);
  AddRow(question, "Payoff at " + RatioText(g.PayoffTable[0]) + ":", g.PayoffExact + lost);
  AddRow(question, "Less " + std::to_string(ways - 1) + of, -lost);
  AddRow(question, NetLabel(g, "payoff"), g.PayoffNet, true);
}

}  // namespace

std::string PressUnitCaption(const Game& g) {
  return "Press 1 &Unit - Add " + Dollar(g.BetUnitAmount) + " to Bet";
}

SettleQuestion AccountOfWin(const Game& g, std::string_view caption) {
  SettleQuestion question = Begin(g, caption);
  question.choices = {"&Take Bet and Winnings",
                      "&Same Bet - Take Winnings",
                      PressUnitCaption(g),
                      "&Press - Add Winnings to &Double Bet",
                      "Parlay - Add &All Winnings to Bet",
                      "Sa&me Bet:",
                      "&Bet:"};
  const BetId bet = question.bet;
  if (g.BetWorking[bet] < On) {
    question.rows.push_back({"wasn't working!", "", false});
    return question;
  }
  if (const int ways = SplitWays(bet)) {
    AddSplitRows(g, question, ways);
    return question;
  }
  const Money vig = VigOf(g, bet);
  AddRow(question, "Payoff at " + RatioText(g.PayoffTable[0]) + ":", g.PayoffExact + vig);
  if (IsLay(bet) || IsBuy(bet)) {
    AddRow(question, VigRate(g, bet) + "% vig:", -vig);
    AddRow(question, NetLabel(g, "payoff"), g.PayoffNet, true);
  } else if (g.PayoffNet != g.PayoffExact) {
    AddRow(question, NetLabel(g, "payoff"), g.PayoffNet, true);
  }
  return question;
}

SettleQuestion AccountOfLoss(Game& g) {
  SettleQuestion question = Begin(g, "Bet Lost");
  question.won = false;
  question.choices = {
      "No Bet/Take Remainder", "Bet Remainder", "Same Bet", "", "Double Bet", "Sa&me Bet:", "&Bet:"};
  const BetId bet = question.bet;
  const PayoffRow& row = g.PayoffTable[0];
  // A won Lay bet may still lose by its vig, which it then pays in any case.
  const bool won = row.Ratio > Money();
  const bool charged =
      (IsLay(bet) && (won || g.Rules.LayVigOnAll)) || (IsBuy(bet) && (won || g.Rules.BuyVigOnAll));
  const Money vig = charged ? VigOf(g, bet) : Money();
  AddRow(question, (won ? "Payoff at " : "Loss at ") + RatioText(row) + ":", g.PayoffExact + vig);
  if (charged) {
    // The single "&" before "vig" is how this line has always read.
    AddRow(question, VigRate(g, bet) + "& vig:", -vig);
    AddRow(question, NetLabel(g, "loss"), g.PayoffNet, true);
    g.PayoffNet += vig;
  } else if (g.PayoffNet != g.PayoffExact) {
    AddRow(question, NetLabel(g, "loss"), g.PayoffNet, true);
  }
  AddRow(question, "Remainder: ", g.BetAmount[bet] + g.PayoffNet);
  return question;
}

}  // namespace rollwick
