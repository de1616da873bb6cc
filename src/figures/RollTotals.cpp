#include "figures/RollTotals.h"

#include <algorithm>

#include "base/FormatNumber.h"
#include "figures/RollEventList.h"

namespace rollwick {
namespace {

Figure PercentFigure(const char* label, double percent) {
  return {"", label, FormatNumber(percent, "#,#.00;-#,#;0"), percent};
}

RollTotalsRow Row(const Game& g, std::string number, RollEvent event, bool skewed) {
  const DiceOfEvent& dice = ItemOfEvent(event).dice;
  const double probable = skewed ? SkewedPercent(g.ProbabilityMatrix, dice) : TruePercent(dice);
  return {std::move(number),
          event,
          CountFigure("", "count", g.RollEventCount[event]),
          PercentFigure("actual %", ActualPercent(g, event)),
          PercentFigure("probable %", probable),
          CountFigure("", "rolls since", g.RollsSinceEvent[event])};
}

std::vector<RollTotalsRow> Combos(const Game& g, bool eitherOrder, bool skewed) {
  std::vector<RollTotalsRow> rows;
  const auto add = [&](int die1, int die2) {
    rows.push_back(Row(g, std::to_string(die1) + "-" + std::to_string(die2),
                       EventOfPair(die1, die2, eitherOrder), skewed));
  };
  for (int total = 2; total <= 12; ++total) {
    for (int low = std::max(1, total - 6); 2 * low <= total; ++low) {
      add(low, total - low);
      if (!eitherOrder && 2 * low < total) add(total - low, low);
    }
  }
  return rows;
}

}  // namespace

std::vector<RollTotalsRow> RollTotals(const Game& g, TotalsSet set, bool skewed) {
  std::vector<RollTotalsRow> rows;
  switch (set) {
    case TotalsSet::StandardNumbers:
      for (RollEvent total = 2; total <= 12; ++total)
        rows.push_back(Row(g, std::to_string(total), total, skewed));
      break;
    case TotalsSet::DistinguishableCombos:
      return Combos(g, true, skewed);
    case TotalsSet::UniqueCombos:
      return Combos(g, false, skewed);
    case TotalsSet::DiceFaces:
      for (RollEvent face = EventDie1 + 1; face <= EventDie2 + 6; ++face)
        rows.push_back(Row(g, ItemOfEvent(face).text, face, skewed));
      break;
  }
  return rows;
}

}  // namespace rollwick
