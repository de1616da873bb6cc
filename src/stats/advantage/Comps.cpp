#include "stats/advantage/Comps.h"

#include "base/FormatNumber.h"
#include "stats/advantage/EvaluateBet.h"

namespace rollwick {

namespace {

// CompBetMask: the first bet of each word.
constexpr std::array<BetId, 3> kFirstOfWord = {1, 32, 63};

constexpr const char* kWhole = "#,#;-#,#;0";

double Base(const Game& g, const CompFigures& comps) {
  switch (g.CompBase) {
    case CompsOfAction:
      return comps.Action.ToDouble();
    case CompsOfActionAndTime:
      return comps.ActionTime.ToDouble();
    default:
      return -comps.HouseEv;
  }
}

Money AverageAction(const CompFigures& comps) {
  return comps.Decisions == Money() ? Money() : Quotient(comps.Action, comps.Decisions);
}

std::string AmountText(Money amount, const char* fractional) {
  return FormatNumber(amount, amount.IsWhole() ? kWhole : fractional);
}

}  // namespace

bool EarnsComps(const Game& g, BetId bet) {
  const std::size_t word = bet >= kFirstOfWord[2] ? 2 : bet >= kFirstOfWord[1] ? 1 : 0;
  return (static_cast<std::uint32_t>(g.CompBetMask[word]) >> (bet - kFirstOfWord[word]) & 1) != 0;
}

CompFigures UpdateComps(const Game& g, CompTarget target) {
  const bool isTrue = g.CompsUseTrueProbs && target != CompTarget::DiceAtTheTable;
  const DiceTaken dice = isTrue ? DiceTaken::True : DiceTaken::AtTheTable;
  CompFigures comps;
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    if (!EarnsComps(g, bet)) continue;
    const BetStatRow& wagers = g.BetWagers[ActualWagers][bet];
    comps.Action += wagers[TotalAmount];
    comps.Decisions += wagers[TotalCount];
    comps.HouseEv += wagers[TotalAmount].ToDouble() * EvaluateBet(g, bet, dice).EvPerDecision;
  }
  if (g.RollsPerHour != Money()) comps.Hours = g.RollCount() / g.RollsPerHour.ToDouble();
  if (comps.Decisions > Money()) {
    comps.ActionTime = Money::FromDouble(comps.Hours * comps.Action.ToDouble() / comps.Decisions.ToDouble());
  }
  comps.Value = Base(g, comps) * g.CompRate.ToDouble() / 100;
  return comps;
}

std::array<std::string, 7> CompTexts(const CompFigures& comps) {
  return {FormatNumber(comps.Action, kWhole), FormatNumber(comps.Decisions, kWhole),
          AmountText(AverageAction(comps), "#,#.##;-#,#.00;0"),
          FormatNumber(-comps.HouseEv, "#,#.00;-#,#.00;0"), AmountText(comps.ActionTime, "#,#.00;-#,#.00;0"),
          // Meant: a value below 0 shows without sign and cents.
          FormatNumber(comps.Value, "#,#.00;0;0"), FormatNumber(comps.Hours, "#,#.00;0;0")};
}

std::string CompValueText(const CompFigures& comps) {
  return FormatNumber(comps.Value, "$#,0.00;0;0");
}

}  // namespace rollwick
