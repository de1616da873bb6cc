// The table of all settings, and what changing each of them brings about.
#include "session/Settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <span>

#include "base/FormatNumber.h"
#include "base/Nearest.h"
#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"

namespace rollwick {
namespace {

constexpr int kBetMaskCount = 3;
constexpr int kVisibleStackCount = 4;
constexpr int kDicePairCount = 36;
static_assert(kTableColorCount == kFormulaCount);  // arrays of one type in Place

// Where a setting lives: a field of the rules, or a field or array of the tables.
using Place = std::variant<
    bool TableRules::*, std::int32_t TableRules::*, Money TableRules::*, bool GameTables::*,
    std::int32_t GameTables::*, Money GameTables::*, std::array<std::int32_t, kFormulaCount> GameTables::*,
    std::array<Money, kFormulaCount> GameTables::*, std::array<bool, kAutoStopCount> GameTables::*,
    std::array<std::int32_t, kBetCount + 1> GameTables::*, std::array<Money, kSlotCount> GameTables::*,
    double GameTables::*, float GameTables::*, std::array<std::int32_t, kBetMaskCount> GameTables::*,
    std::array<std::int32_t, kVisibleStackCount> GameTables::*,
    std::array<bool, kDicePairCount + 1> GameTables::*>;

struct Range {
  Money low;
  Money high;
};

struct Setting;

// Writes the value as the screen would: with its questions, refusals and consequences.
using Change = void (*)(Game& g, const Setting& setting, int index, SettingValue value);

struct Setting {
  std::string_view name;
  Place place;
  Range range;  // of numbers
  Change change;
  int first = 0;
  int count = 0;  // 0: not an array
};

template <class Tables, class Field>
auto& At(Tables& g, Field TableRules::*field) {
  return g.Rules.*field;
}
template <class Tables, class Field>
auto& At(Tables& g, Field GameTables::*field) {
  return g.*field;
}
template <class Field>
auto& Entry(Field& field, int index) {
  if constexpr (requires { field.size(); }) {
    return field.at(static_cast<std::size_t>(index));
  } else {
    return field;
  }
}

// A fraction is told and taken with the four decimals that files keep; a single holds whole numbers.
SettingValue AsValue(double value) {
  return Money::FromDouble(value);
}
SettingValue AsValue(float value) {
  return static_cast<std::int32_t>(value);
}
template <class Value>
SettingValue AsValue(Value value) {
  return value;
}

void Assign(double& entry, SettingValue value) {
  entry = std::get<Money>(value).ToDouble();
}
void Assign(float& entry, SettingValue value) {
  entry = static_cast<float>(std::get<std::int32_t>(value));
}
template <class Value>
void Assign(Value& entry, SettingValue value) {
  entry = std::get<Value>(value);
}

SettingValue Read(const Game& g, const Setting& setting, int index) {
  return std::visit([&](auto place) { return AsValue(Entry(At(g, place), index)); }, setting.place);
}

void Store(Game& g, const Setting& setting, int index, SettingValue value) {
  std::visit([&](auto place) { Assign(Entry(At(g, place), index), value); }, setting.place);
}

std::string Limits(const Setting& setting) {
  return "The value of " + std::string(setting.name) + " must be from " + FormatMoney(setting.range.low) +
         " to " + FormatMoney(setting.range.high) + ".";
}

void Plain(Game& g, const Setting& setting, int index, SettingValue value) {
  Store(g, setting, index, value);
}

void ChangeVig(Game& g, const Setting& setting, int index, SettingValue value) {
  const auto onAll = [&] { return VigCharged{g.Rules.BuyVigOnAll, g.Rules.LayVigOnAll}; };
  const SettingValue before = Read(g, setting, index);
  const VigCharged chargedBefore = onAll();
  Store(g, setting, index, value);
  RefreshVigs(g, chargedBefore);
  if (g.Rules.AllowNegBankroll || AvailableBankroll(g) >= Money()) return;

  const VigCharged chargedAfter = onAll();
  Store(g, setting, index, before);
  RefreshVigs(g, chargedAfter);
  const bool isBuy = setting.name.find("Buy") != std::string_view::npos;
  ShowMessage(g,
              "This change would leave your bankroll below the amount of your current bets.\r\r"
              "Reduce your bets, make a withdrawal from the ATM, or allow negative bankroll amounts.",
              isBuy ? "Buy Bet Vig" : "Lay Bet Vig");
}

// Without negative bankrolls there must be money for every bet, so the box only un-checks when there is.
void ChangeAllowNegBankroll(Game& g, const Setting& setting, int index, SettingValue value) {
  const bool allow = std::get<bool>(value);
  if (!allow && g.BetAmount[SlotBankroll] < Money()) {
    ShowMessage(
        g,
        "Before you can un-check this box you must first establish a non-negative bankroll by either:\r\r"
        " -- Winning some more money, or\r"
        " -- Making a withdrawal from the ATM.",
        "Bankroll");
    return;
  }
  if (!allow && AvailableBankroll(g) < Money()) {
    ShowMessage(g,
                "The amount of your current bets exceeds your current bankroll.  "
                "Therefore, before you can un-check this box you must either:\r\r"
                " -- Reduce the amount of your current bets, or \r" +
                    FormatMoney(-AvailableBankroll(g), " -- Make at least a $") + " withdrawal from the ATM.",
                "Bankroll");
    return;
  }
  Store(g, setting, index, value);
}

void ChangeBarNumber(Game& g, const Setting& setting, int index, SettingValue value) {
  const std::int32_t number = std::get<std::int32_t>(value);
  if (number != 2 && number != 12) {
    ShowMessage(g, "The value of BarNumber must be 2 or 12.", setting.name);
    return;
  }
  Store(g, setting, index, value);
}

void ChangeAutoAdjust(Game& g, const Setting& setting, int index, SettingValue value) {
  Store(g, setting, index, value);
  if (g.AutoAdjustBetAmounts != AdjustManual) RefitAllBets(g);
}

void ChangeAutoArrange(Game& g, const Setting& setting, int index, SettingValue value) {
  Store(g, setting, index, value);
  if (!g.AutoArrangeChips) return;
  for (BetId bet = 1; bet <= kBetCount; ++bet) g.TheHost->ChipsChanged(g, bet);
}

void ChangeTakeFullOdds(Game& g, const Setting& setting, int index, SettingValue value) {
  const bool wasOn = g.AutoTakeFullOdds;
  Store(g, setting, index, value);
  if (wasOn || !g.AutoTakeFullOdds) return;
  if (AskYesNo(g,
               "Auto-Take Full Odds is now active.\r\r"
               "Do you also want to take full odds on any bets that are already on the table?",
               "Auto-Take Full Odds")) {
    TakeAllDoOdds(g);
  }
}

void ChangeLayFullOdds(Game& g, const Setting& setting, int index, SettingValue value) {
  const bool wasOn = g.AutoLayFullOdds;
  Store(g, setting, index, value);
  if (wasOn || !g.AutoLayFullOdds) return;
  if (AskYesNo(g,
               "Auto-Lay Full Odds is now active.\r\r"
               "Do you also want to lay full odds on any bets that are already on the table?",
               "Auto-Lay Full Odds")) {
    LayAllDontOdds(g);
  }
}

void ChangeComeOutWorking(Game& g, const Setting& setting, int index, SettingValue value) {
  Store(g, setting, index, value);
  RefreshBetSets(g);
  ApplyComeOutWorking(g);
}

void ChangeAutoRoll(Game& g, const Setting& setting, int index, SettingValue value) {
  const bool wasOn = g.AutoRoll;
  Store(g, setting, index, value);
  if (wasOn || !g.AutoRoll || g.AutoRollsLeft == g.AutoRollsSet) return;
  const std::string left = FormatMoney(Dollars(g.AutoRollsLeft));
  const std::string set = FormatMoney(Dollars(g.AutoRollsSet));
  if (!AskYesNo(g,
                "Would you like to resume the current roll count at " + left +
                    "?\r\rIf not, then the count will be reset to " + set,
                "Auto-Roll")) {
    g.AutoRollsLeft = g.AutoRollsSet;
  }
}

void ChangeAutoRolls(Game& g, const Setting& setting, int index, SettingValue value) {
  Store(g, setting, index, std::min(std::get<std::int32_t>(value), kMaxRollCount));
  g.AutoRollsLeft = g.AutoRollsSet;
}

constexpr std::int32_t kLongestDelay = 99;

void ChangeDelay(Game& g, const Setting& setting, int index, SettingValue value) {
  Store(g, setting, index, std::min(std::get<std::int32_t>(value), kLongestDelay));
}

// Chips are counted out from the largest down, so each must be worth more than the one before and be a whole
// number of the lowest.
void ChangeDenomination(Game& g, const Setting& setting, int index, SettingValue value) {
  const SettingValue before = Read(g, setting, index);
  Store(g, setting, index, value);
  bool ascending = true, multiples = true;
  for (int chip = SlotChipDenom + 1; chip < SlotChipDenom + kChipCount; ++chip) {
    const auto slot = static_cast<std::size_t>(chip);
    ascending = ascending && g.BetAmount[slot] > g.BetAmount[slot - 1];
    multiples = multiples && IsMultipleOf(g.BetAmount[slot], LowestChip(g));
  }
  if (ascending && multiples) {
    for (BetId bet = 0; bet < kSlotCount; ++bet) g.TheHost->ChipsChanged(g, bet);
    return;
  }
  Store(g, setting, index, before);
  ShowMessage(g,
              ascending ? "Every denomination must be a multiple of the lowest one."
                        : "The denominations must ascend, each higher than the one before.",
              "Denominations");
}

// The last of three masks has the bets 63 to 83 alone.
void ChangeBetMask(Game& g, const Setting& setting, int index, SettingValue value) {
  constexpr std::int32_t kMostOfLast = (1 << 21) - 1;
  if (index == kBetMaskCount - 1 && std::get<std::int32_t>(value) > kMostOfLast) {
    ShowMessage(g,
                "The value of " + std::string(setting.name) + "[2] must be from 0 to " +
                    FormatMoney(Dollars(kMostOfLast)) + ".",
                setting.name);
    return;
  }
  Store(g, setting, index, value);
}

void ChangeVisibleStack(Game& g, const Setting& setting, int index, SettingValue value) {
  const SettingValue before = Read(g, setting, index);
  Store(g, setting, index, value);
  if (std::ranges::count(g.VisibleChipStack, std::get<std::int32_t>(value)) == 1) return;
  Store(g, setting, index, before);
  ShowMessage(g, "Each Chip-Stack entry should be a different number.", "Set Visible Chip-Stacks");
}

constexpr Range kAmount{Money(), kBankLimit};
constexpr Range kBankroll{-kBankLimit, kBankLimit};
constexpr Range kFormulaAmount{Money(), Money::FromUnits(99'999'999'999)};
constexpr Range kRate{Money(), Dollars(1)};
constexpr Range kAboveZero{Money::FromUnits(1), kBankLimit};
constexpr Range kChipValue{Money::FromUnits(100), Dollars(1'000'000)};
constexpr Range kNoRange{};
constexpr Range kCount{Money(), Dollars(INT32_MAX)};
constexpr Range kAnyCount{Dollars(INT32_MIN), Dollars(INT32_MAX)};
constexpr Range kAnyAmount{Money::FromUnits(INT64_MIN), Money::FromUnits(INT64_MAX)};
constexpr Range kColor{Money(), Dollars(0xFFFFFF)};
constexpr Range kFontSize{Dollars(1), Dollars(99)};
constexpr Range kSoundIndex{Dollars(-1), Dollars(999)};  // -1 none
constexpr Range kVolume{Dollars(-1), Dollars(100)};
constexpr Range kAnyAboveZero{Money::FromUnits(1), Money::FromUnits(INT64_MAX)};

constexpr Range UpTo(int highest) {
  return {Money(), Dollars(highest)};
}

// In the order of the screens: the house, then Auto-Play, chips, statistics and dice, what the screens show,
// log.
const Setting kSettings[] = {
    {"MinPlacardBet", &TableRules::MinPlacardBet, kAmount, Plain},
    {"MaxPlacardBet", &TableRules::MaxPlacardBet, kAmount, Plain},
    {"MaxPropBetPayoff", &TableRules::MaxPropBetPayoff, kAmount, Plain},
    {"MaxOddsBet", &TableRules::MaxOddsBet, kAmount, Plain},
    {"OddsAllowed410", &TableRules::OddsAllowed410, kAmount, Plain},
    {"OddsAllowed59", &TableRules::OddsAllowed59, kAmount, Plain},
    {"OddsAllowed68", &TableRules::OddsAllowed68, kAmount, Plain},
    {"OddsCalcMethod", &TableRules::OddsCalcMethod, UpTo(OddsSingleTimesFlat), Plain},
    {"BuyVigPct", &TableRules::BuyVigPct, kRate, ChangeVig},
    {"BuyVigOnAll", &TableRules::BuyVigOnAll, kNoRange, ChangeVig},
    {"RoundBuyVig", &TableRules::RoundBuyVig, UpTo(VigRoundedUp), ChangeVig},
    {"LayVigPct", &TableRules::LayVigPct, kRate, ChangeVig},
    {"LayVigOnAll", &TableRules::LayVigOnAll, kNoRange, ChangeVig},
    {"RoundLayVig", &TableRules::RoundLayVig, UpTo(VigRoundedUp), ChangeVig},
    {"BarNumber", &TableRules::BarNumber, kCount, ChangeBarNumber},
    {"AllowPutBets", &TableRules::AllowPutBets, kNoRange, Plain},
    {"AllowNegBankroll", &TableRules::AllowNegBankroll, kNoRange, ChangeAllowNegBankroll},
    {"BankrollInitType", &TableRules::BankrollInitType, UpTo(CarryBankrollAndNet), Plain},
    {"BankrollInitAmount", &TableRules::BankrollInitAmount, kBankroll, Plain},
    {"AtmAmount", &TableRules::AtmAmount, kAmount, Plain},
    {"NotifyFlags", &TableRules::NotifyFlags, UpTo(31), Plain},

    {"HandleWinningBets", &GameTables::HandleWinningBets, UpTo(WinBetFormula), Plain},
    {"HandleLosingBets", &GameTables::HandleLosingBets, UpTo(LossBetFormula), Plain},
    {"ModifyOperator", &GameTables::ModifyOperator, UpTo(FormulaDivide), Plain, 0, kFormulaCount},
    {"ModifyAmount", &GameTables::ModifyAmount, kFormulaAmount, Plain, 0, kFormulaCount},
    {"ModifyUnit", &GameTables::ModifyUnit, UpTo(6), Plain, 0, kFormulaCount},
    {"AutoAdjustBetAmounts", &GameTables::AutoAdjustBetAmounts, UpTo(AdjustColor), ChangeAutoAdjust},
    {"LayBias", &GameTables::LayBias, UpTo(BiasDecrease), Plain},
    {"PlaceBias", &GameTables::PlaceBias, UpTo(BiasDecrease), Plain},
    {"DoBias", &GameTables::DoBias, UpTo(BiasDecrease), Plain},
    {"DontBias", &GameTables::DontBias, UpTo(BiasDecrease), Plain},
    {"AutoArrangeChips", &GameTables::AutoArrangeChips, kNoRange, ChangeAutoArrange},
    {"AutoTakeFullOdds", &GameTables::AutoTakeFullOdds, kNoRange, ChangeTakeFullOdds},
    {"AutoLayFullOdds", &GameTables::AutoLayFullOdds, kNoRange, ChangeLayFullOdds},
    {"AutoRemovePlaceBets", &GameTables::AutoRemovePlaceBets, kNoRange, Plain},
    {"BetWorkingDefault", &GameTables::BetWorkingDefault, UpTo(1), ChangeComeOutWorking, 1, kBetCount},
    {"AutoRoll", &GameTables::AutoRoll, kNoRange, ChangeAutoRoll},
    {"AutoRollsSet", &GameTables::AutoRollsSet, kCount, ChangeAutoRolls},
    {"AutoRollDelay", &GameTables::AutoRollDelay, kCount, ChangeDelay},
    {"AutoStopOn", &GameTables::AutoStopOn, kNoRange, Plain, 0, kAutoStopCount},
    {"HyperThrottle", &GameTables::HyperThrottle, UpTo(10), Plain},

    {"BetAmount", &GameTables::BetAmount, kChipValue, ChangeDenomination, SlotChipDenom, kChipCount},
    {"RollsPerHour", &GameTables::RollsPerHour, kAboveZero, Plain},
    {"GraphAdjustType", &GameTables::GraphAdjustType, UpTo(2), Plain},
    {"UserSeedMode", &GameTables::UserSeedMode, kNoRange, Plain},
    {"ReseedNewGames", &GameTables::ReseedNewGames, kNoRange, Plain},

    {"UseProbabilityMatrix", &GameTables::UseProbabilityMatrix, kNoRange, Plain},
    {"ProbabilityDisplayMode", &GameTables::ProbabilityDisplayMode, UpTo(DisplayRollsFromTrue), Plain},
    {"ProbabilityRollsOutOf", &GameTables::ProbabilityRollsOutOf, kAnyAboveZero, Plain},
    {"CompBetMask", &GameTables::CompBetMask, kCount, ChangeBetMask, 0, kBetMaskCount},
    {"CompBase", &GameTables::CompBase, UpTo(2), Plain},
    {"CompRate", &GameTables::CompRate, UpTo(100), Plain},
    {"CompsUseTrueProbs", &GameTables::CompsUseTrueProbs, kNoRange, Plain},
    {"CountZeroOutcomes", &GameTables::CountZeroOutcomes, kNoRange, Plain},
    {"ShowMiscData", &GameTables::ShowMiscData, kNoRange, Plain},
    {"RollsPerTimeForm", &GameTables::RollsPerTimeForm, UpTo(5), Plain},

    {"SelectedChip", &GameTables::SelectedChip, UpTo(kChipCount - 1), Plain},
    {"ChipStyle", &GameTables::ChipStyle, UpTo(99), Plain},
    {"DiceStyle", &GameTables::DiceStyle, UpTo(99), Plain},
    {"DiceAction", &GameTables::DiceAction, UpTo(3), Plain},
    {"UseCentsSymbol", &GameTables::UseCentsSymbol, kNoRange, Plain},
    {"KeyInBetAmounts", &GameTables::KeyInBetAmounts, kNoRange, Plain},
    {"DisplayBetAmounts", &GameTables::DisplayBetAmounts, kNoRange, Plain},
    {"DisplayHopBets", &GameTables::DisplayHopBets, kNoRange, Plain},
    {"QuickStats", &GameTables::QuickStats, kNoRange, Plain},
    {"SnapMouse", &GameTables::SnapMouse, kNoRange, Plain},
    {"StacksShowZero", &GameTables::StacksShowZero, kNoRange, Plain},
    {"VisibleChipStack", &GameTables::VisibleChipStack, UpTo(kChipStackCount - 1), ChangeVisibleStack, 0,
     kVisibleStackCount},
    {"TableColors", &GameTables::TableColors, kColor, Plain, 0, kTableColorCount},
    {"TableTexture", &GameTables::TableTexture, UpTo(8), Plain},
    {"StickPerson", &GameTables::StickPerson, kSoundIndex, Plain},
    {"DiceSound", &GameTables::DiceSound, kSoundIndex, Plain},
    {"ChipSound", &GameTables::ChipSound, kSoundIndex, Plain},
    {"WinSound", &GameTables::WinSound, kSoundIndex, Plain},
    {"Volume", &GameTables::Volume, kVolume, Plain},
    {"DisableAutoBetSounds", &GameTables::DisableAutoBetSounds, kNoRange, Plain},
    {"DisableAllSound", &GameTables::DisableAllSound, kNoRange, Plain},
    {"PrintFontBody", &GameTables::PrintFontBody, kFontSize, Plain},
    {"PrintFontHeads", &GameTables::PrintFontHeads, kFontSize, Plain},
    {"PrintFontTitle", &GameTables::PrintFontTitle, kFontSize, Plain},
    {"ColorPrinter", &GameTables::ColorPrinter, kNoRange, Plain},

    {"ShowLineNumbers", &GameTables::ShowLineNumbers, kNoRange, Plain},
    {"TotalsDisplay", &GameTables::TotalsDisplay, UpTo(3), Plain},
    {"TotalsBackColour", &GameTables::TotalsBackColour, UpTo(3), Plain},
    {"TotalsGraphColour", &GameTables::TotalsGraphColour, UpTo(99), Plain},
    {"TotalsShowProb", &GameTables::TotalsShowProb, UpTo(1), Plain},
    {"FreqItem", &GameTables::FreqItem, UpTo(87), Plain},
    {"FreqSkewed", &GameTables::FreqSkewed, kNoRange, Plain},
    {"AutoPrintGraph", &GameTables::AutoPrintGraph, kNoRange, Plain},
    {"GraphRefLines", &GameTables::GraphRefLines, kNoRange, Plain},
    {"GraphGridLines", &GameTables::GraphGridLines, kNoRange, Plain},
    {"GraphColor", &GameTables::GraphColor, UpTo(7), Plain},
    {"GraphStyle", &GameTables::GraphStyle, UpTo(2), Plain},
    {"MovingAverageOn", &GameTables::MovingAverageOn, kNoRange, Plain},
    {"MovingAveragePeriod", &GameTables::MovingAveragePeriod, UpTo(kGraphPage), Plain},
    {"ResultsDataType", &GameTables::ResultsDataType, UpTo(2), Plain},
    {"ResultsBetMask", &GameTables::ResultsBetMask, kCount, ChangeBetMask, 0, kBetMaskCount},
    {"GamesView", &GameTables::GamesView, UpTo(31), Plain},
    {"GamesDisplay", &GameTables::GamesDisplay, UpTo(1), Plain},
    {"GamesBarWidth", &GameTables::GamesBarWidth, UpTo(3), Plain},
    {"GamesInclude", &GameTables::GamesInclude, UpTo(7), Plain},
    {"GamesValueCount", &GameTables::GamesValueCount, kAnyAmount, Plain},
    {"GamesSDCount", &GameTables::GamesSDCount, kAnyAmount, Plain},
    {"BreakLow", &GameTables::BreakLow, kAnyAmount, Plain},
    {"BreakHigh", &GameTables::BreakHigh, kAnyAmount, Plain},

    {"DiceInsertRolls", &GameTables::DiceInsertRolls, kNoRange, Plain},
    {"DiceOutDieNums", &GameTables::DiceOutDieNums, kNoRange, Plain},
    {"DiceOutRollNums", &GameTables::DiceOutRollNums, kNoRange, Plain},
    {"DiceOutNumbersCalled", &GameTables::DiceOutNumbersCalled, kNoRange, Plain},
    {"DiceOutSelected", &GameTables::DiceOutSelected, kNoRange, Plain},
    {"DiceOutFontSize", &GameTables::DiceOutFontSize, kFontSize, Plain},
    {"DiceRollHighlight", &GameTables::DiceRollHighlight, kNoRange, Plain, 1, kDicePairCount},
    {"PadStayOnTop", &GameTables::PadStayOnTop, kAnyCount, Plain},
    {"PadRollAtOnce", &GameTables::PadRollAtOnce, kAnyCount, Plain},

    {"RecordEventsActive", &GameTables::RecordEventsActive, kNoRange, Plain},
    {"RecordRolls", &GameTables::RecordRolls, kNoRange, Plain},
    {"RecordBetChanges", &GameTables::RecordBetChanges, kNoRange, Plain},
    {"RecordBetsWon", &GameTables::RecordBetsWon, kNoRange, Plain},
    {"RecordBetsLost", &GameTables::RecordBetsLost, kNoRange, Plain},
    {"RecordChipStackChanges", &GameTables::RecordChipStackChanges, kNoRange, Plain},
    {"RecordPassesMisses", &GameTables::RecordPassesMisses, kNoRange, Plain},
    {"RecordShooterChanges", &GameTables::RecordShooterChanges, kNoRange, Plain},
    {"RecordBankrollChanges", &GameTables::RecordBankrollChanges, kNoRange, Plain},
    {"LogClearOnNewGame", &GameTables::LogClearOnNewGame, kNoRange, Plain},
    {"LogLatestRollOnTop", &GameTables::LogLatestRollOnTop, kNoRange, Plain},
    {"LogFontSize", &GameTables::LogFontSize, UpTo(2), Plain},
    {"LogFontBold", &GameTables::LogFontBold, kNoRange, Plain},
    {"LogFontItalic", &GameTables::LogFontItalic, kNoRange, Plain},
};

const Setting* FindSetting(std::string_view name) {
  const auto found =
      std::ranges::find_if(kSettings, [&](const Setting& s) { return SameWord(s.name, name); });
  return found == std::end(kSettings) ? nullptr : found;
}

std::string UnknownSetting(std::string_view name) {
  std::vector<std::string> names;
  for (const Setting& setting : kSettings) names.emplace_back(setting.name);
  return "there is no setting of this name." + DidYouMean(name, names);
}

// Cuts "[12]" off the end of the name.
struct IndexedName {
  std::string_view name;
  bool hasIndex = false;
  std::optional<int> index;
};
IndexedName SplitIndex(std::string_view text) {
  const std::size_t bracket = text.find('[');
  if (bracket == std::string_view::npos) return {text, false, {}};
  IndexedName result{text.substr(0, bracket), true, {}};
  const char* const end = text.data() + text.size();
  int index = 0;
  const auto [stop, error] = std::from_chars(text.data() + bracket + 1, end, index);
  if (error == std::errc() && end - stop == 1 && *stop == ']') result.index = index;
  return result;
}

std::string WrongIndex(const Setting& setting, const IndexedName& indexed) {
  const std::string name(setting.name);
  if (setting.count == 0) return indexed.hasIndex ? name + " is one value: it takes no index." : "";
  const int last = setting.first + setting.count - 1;
  if (indexed.index && *indexed.index >= setting.first && *indexed.index <= last) return {};
  return name + " takes an index in brackets, from " + name + "[" + std::to_string(setting.first) + "] to " +
         name + "[" + std::to_string(last) + "].";
}

std::optional<bool> ReadFlag(std::string_view text) {
  if (SameWord(text, "on")) return true;
  if (SameWord(text, "off")) return false;
  return {};
}

// A number within the setting's range, as the setting's type; the notice of a number out of range is shown
// here.
enum class Reading { Ok, Refused, NoNumber };
Reading ReadNumber(Game& g, const Setting& setting, std::string_view text, SettingValue& value) {
  const bool isWhole = std::holds_alternative<std::int32_t>(value);
  const std::optional<Money> number = ParseMoney(text);
  if (!number || (isWhole && !number->IsWhole())) return Reading::NoNumber;
  // A count that is far too high is held to its maximum, whatever the number of digits.
  const bool isHeld = setting.change == ChangeAutoRolls || setting.change == ChangeDelay;
  const Money held = isHeld ? std::min(*number, setting.range.high) : *number;
  if (held < setting.range.low || held > setting.range.high) {
    ShowMessage(g, Limits(setting), setting.name);
    return Reading::Refused;
  }
  if (isWhole) {
    value = static_cast<std::int32_t>(held.Units() / Money::kUnitsPerDollar);
  } else {
    value = held;
  }
  return Reading::Ok;
}

}  // namespace

std::vector<SettingEntry> ListSettings(const Game& g) {
  std::vector<SettingEntry> entries;
  for (const Setting& setting : kSettings) {
    const bool isRule = setting.place.index() < 3;
    SettingEntry entry{std::string(setting.name),
                       isRule ? SettingGroup::Rules : SettingGroup::Settings,
                       setting.count > 0,
                       setting.first,
                       {}};
    for (int i = 0; i < std::max(1, setting.count); ++i)
      entry.values.push_back(Read(g, setting, setting.first + i));
    entries.push_back(std::move(entry));
  }
  return entries;
}

std::optional<SettingValue> ReadSetting(const Game& g, std::string_view name) {
  const IndexedName indexed = SplitIndex(name);
  const Setting* const setting = FindSetting(indexed.name);
  if (setting == nullptr || !WrongIndex(*setting, indexed).empty()) return {};
  return Read(g, *setting, indexed.index.value_or(0));
}

std::string ChangeSetting(Game& g, std::string_view name, std::string_view value) {
  const IndexedName indexed = SplitIndex(name);
  const Setting* const setting = FindSetting(indexed.name);
  if (setting == nullptr) return UnknownSetting(indexed.name);
  if (std::string wrong = WrongIndex(*setting, indexed); !wrong.empty()) return wrong;
  const int index = indexed.index.value_or(0);

  SettingValue wanted = Read(g, *setting, index);
  if (std::holds_alternative<bool>(wanted)) {
    const std::optional<bool> flag = ReadFlag(value);
    if (!flag) return std::string(setting->name) + " is switched on or off.";
    wanted = *flag;
  } else {
    switch (ReadNumber(g, *setting, value, wanted)) {
      case Reading::NoNumber:
        return std::string(setting->name) + " takes " +
               (std::holds_alternative<Money>(wanted) ? "a number of at most four decimals."
                                                      : "a whole number.");
      case Reading::Refused:
        return {};
      case Reading::Ok:
        break;
    }
  }
  setting->change(g, *setting, index, wanted);
  g.TableDirty = true;
  g.TheHost->TableChanged(g);
  return {};
}

std::string ChangePayoff(Game& g, bool field, int index, Money ratio, Money base, bool isToForm) {
  constexpr int kFieldRows = 21;
  if (field && (index < 1 || index > kFieldRows)) return "the Field has the combinations 1 to 21.";
  if (!field && !IsBet(index)) return "only bets 1 to 83 have a payoff.";
  if (!field && (index == Bet::PassLineOdds || index == Bet::DontPassOdds)) {
    return BetName(index) + " pays as the odds of the Come numbers do: change those.";
  }
  // A Field combination that loses has a negative ratio.
  const Money lowest = field ? -kBankLimit : Money();
  if (ratio < lowest || ratio > kBankLimit) {
    return "the ratio must be from " + FormatMoney(lowest) + " to " + FormatMoney(kBankLimit) + ".";
  }
  if (base <= Money() || base > kBankLimit) return "the base must be above 0 and at most 9,999,999.";

  const auto row = static_cast<std::size_t>(index);
  (field ? g.FieldPayoffTable[row] : g.PayoffTable[row]) = {ratio, isToForm, base};
  if (g.Point != 0) SetLineOddsPayoffs(g);
  if (!field && IsLay(index)) RefreshVigs(g, {g.Rules.BuyVigOnAll, g.Rules.LayVigOnAll});
  g.TableDirty = true;
  g.TheHost->TableChanged(g);
  return {};
}

}  // namespace rollwick
