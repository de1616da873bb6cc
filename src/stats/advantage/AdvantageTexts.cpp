#include "stats/advantage/AdvantageTexts.h"

#include "base/FormatNumber.h"

namespace rollwick {

namespace {

constexpr const char* kTwoDecimals = "0.00;-0.00;0.00";
constexpr std::int64_t kHundredthsPerMinute = 6'000;

std::string Percent(double figure) {
  return FormatNumber(figure * 100, kTwoDecimals);
}

// Rounded before it is broken up, so that 60 seconds never show.
std::string TimeText(double hours) {
  const Money seconds = ParseMoney(FormatNumber(hours * 3600, "0.00")).value_or(Money());
  const std::int64_t hundredths = seconds.Units() / (Money::kUnitsPerDollar / 100);
  const std::int64_t minutes = hundredths / kHundredthsPerMinute;
  const Money rest = Money::FromUnits(hundredths % kHundredthsPerMinute * (Money::kUnitsPerDollar / 100));
  return std::to_string(minutes / 60) + ":" + FormatNumber(Dollars(minutes % 60), "00") + ":" +
         FormatNumber(rest, "00.0#");
}

}  // namespace

std::string AdvantageName(BetId bet) {
  const bool isDont = bet >= Bet::DontCome4 && bet <= Bet::DontCome10Odds;
  if (!isDont && !IsComeNumber(bet) && !IsComeOdds(bet)) return BetName(bet);
  return (isDont ? "DP/DC " : "Pass/Come ") + std::to_string(NumberOf(bet)) + (IsOdds(bet) ? " Odds" : "");
}

std::array<std::string, 5> AdvantageTexts(const Game& g, const BetFigures& figures) {
  return {Percent(figures.EvPerRoll), Percent(figures.StdDevPerRoll), Percent(figures.EvPerDecision),
          Percent(figures.StdDevPerDecision), Percent(figures.EvPerRoll * g.RollsPerHour.ToDouble())};
}

std::array<std::string, 3> MiscTexts(const Game& g, const BetFigures& figures) {
  const double rolls = figures.RollsPerDecision, hourly = g.RollsPerHour.ToDouble();
  return {FormatNumber(rolls, kTwoDecimals), FormatNumber(rolls == 0 ? 0 : 1 / rolls, kTwoDecimals),
          hourly == 0 ? "" : TimeText(rolls / hourly)};
}

std::string RollRateText(const Game& g) {
  struct Form {
    const char* unit;
    double divisor;
    bool isTimePerRoll;
  };
  static constexpr Form kForms[] = {{"Rolls / hr", 1, false},     {"Rolls / min", 60, false},
                                    {"Rolls / sec", 3600, false}, {"Hrs / roll", 1, true},
                                    {"Mins / roll", 60, true},    {"Secs / roll", 3600, true}};
  const auto index = static_cast<std::size_t>(g.RollsPerTimeForm);
  const Form& form = kForms[index < std::size(kForms) ? index : 0];
  const double hourly = g.RollsPerHour.ToDouble();
  const double rate = !form.isTimePerRoll ? hourly / form.divisor : hourly == 0 ? 0 : form.divisor / hourly;
  std::string text = FormatNumber(rate, "#.####;-#.####;0");
  if (text.ends_with('.')) text.pop_back();
  return (text == "0" ? "<.0001" : text) + " " + form.unit;
}

}  // namespace rollwick
