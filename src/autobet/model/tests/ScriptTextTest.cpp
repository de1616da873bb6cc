// The text form: every statement the lists offer there and back, what a typed text may look like, and errors.
#include "autobet/model/ScriptText.h"

#include <gtest/gtest.h>

#include <unordered_set>

#include "autobet/model/Catalogue.h"
#include "autobet/model/Codes.h"
#include "support/DamagedFile.h"

namespace rollwick {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kWalksAll = false;  // each verb with each value and each target, not each of the triples
#else
constexpr bool kWalksAll = true;
#endif

const Money kAmounts[] = {Money(), Dollars(1), Money::FromUnits(25'000)};

struct Place {
  std::int32_t code;
  std::int32_t index;
};

std::vector<Place> PlacesOf(const std::vector<std::int32_t>& codes) {
  std::vector<Place> places;
  for (const std::int32_t code : codes) {
    places.push_back({code, 0});
    if (IndexFormOf(code) != IndexForm::None) places.push_back({code, 5});
  }
  return places;
}

template <typename Rows>
std::vector<std::int32_t> CodesOf(const Rows& rows, bool withBets = false) {
  std::vector<std::int32_t> codes;
  for (const auto& row : rows) codes.push_back(row.code);
  for (BetId bet = 1; withBets && bet <= kBetCount; ++bet) codes.push_back(bet);
  return codes;
}

// Takes all lines, in bundles through the text form and back.
class RoundTrip {
 public:
  void Take(const ScriptLine& line) {
    const std::string text = LineText(line);
    longest_ = std::max(longest_, text.size() - line.Name.size());
    repeated_ += texts_.insert(std::hash<std::string>()(text)).second ? 0 : 1;
    bundle_.push_back(line);
    bundle_.back().Text = text;
    bundleText_ += text + "\n";
    if (bundle_.size() == 20'000) Compare();
  }
  void Compare() {
    const ParsedScript read = ParseScriptText(bundleText_);
    EXPECT_TRUE(read.errors.empty()) << read.errors.front().message;
    ASSERT_EQ(read.lines.size(), bundle_.size());
    for (std::size_t i = 0; i < bundle_.size(); ++i) {
      ASSERT_EQ(read.lines[i], bundle_[i]) << bundle_[i].Text << "\n" << read.lines[i].Text;
    }
    count_ += bundle_.size();
    bundle_.clear();
    bundleText_.clear();
  }
  std::size_t Count() const { return count_; }
  std::size_t Repeated() const { return repeated_; }
  std::size_t Longest() const { return longest_; }

 private:
  std::vector<ScriptLine> bundle_;
  std::string bundleText_;
  std::unordered_set<std::size_t> texts_;
  std::size_t count_ = 0, repeated_ = 0, longest_ = 0;
};

void WalkOperands(RoundTrip& trip, ScriptLine line, Operand operand) {
  switch (operand) {
    case Operand::Item:
      for (const auto& [code, index] : PlacesOf(CodesOf(RightItems()))) {
        line.RightCode = code;
        line.RightIndex = index;
        trip.Take(line);
      }
      return;
    case Operand::Name:
      line.Name = "Come \"back\"";
      return trip.Take(line);
    default:
      for (const Money amount : kAmounts) {
        line.Amount = amount;
        trip.Take(line);
      }
  }
}

void WalkCondition(RoundTrip& trip, ScriptLine line, OperatorList list) {
  switch (list) {
    case OperatorList::Alone:
      return trip.Take(line);
    case OperatorList::FlagTruth:
      line.Name = "is True";
      [[fallthrough]];
    case OperatorList::IsTruth:
    case OperatorList::AreTruth:
      trip.Take(line);
      line.Amount = Dollars(1);
      return trip.Take(line);
    case OperatorList::Numbers:
      for (const CatalogueEntry& number : NumberList()) {
        line.Op = number.code;
        trip.Take(line);
      }
      return;
    default:
      for (const Operator& op : OperatorsOf(list)) {
        line.Op = op.code;
        WalkOperands(trip, line, op.operand);
      }
  }
}

void WalkPieces(RoundTrip& trip, const ScriptLine& line, std::span<const Piece> pieces) {
  if (pieces.empty()) return trip.Take(line);
  const auto rest = pieces.subspan(1);
  ScriptLine next = line;
  const auto walk = [&] { WalkPieces(trip, next, rest); };
  const auto walkEach = [&](const std::vector<Place>& places, auto code, auto index) {
    for (const Place& place : places) {
      next.*code = place.code;
      next.*index = place.index;
      walk();
      const bool isOtherValue = line.LeftCode != ValueItems()[0].code && !ValueCaption(line.LeftCode).empty();
      if (!kWalksAll && pieces[0] == Piece::Target && isOtherValue) return;
    }
  };
  const auto left = [&](const std::vector<Place>& places) {
    walkEach(places, &ScriptLine::LeftCode, &ScriptLine::LeftIndex);
  };
  const auto right = [&](const std::vector<Place>& places) {
    walkEach(places, &ScriptLine::RightCode, &ScriptLine::RightIndex);
  };
  switch (pieces[0]) {
    case Piece::Amount:
      for (const Money amount : kAmounts) {
        next.Amount = amount;
        walk();
      }
      return;
    case Piece::Value:
      return left(PlacesOf(CodesOf(ValueItems(), true)));
    case Piece::Mode:
      return left(PlacesOf(CodesOf(RoundModes())));
    case Piece::Target:
      return right(PlacesOf(CodesOf(TargetItems(), true)));
    case Piece::Outcome:
      return right(PlacesOf(ResetRollTargets()));
    case Piece::Winning:
      return right(PlacesOf(CodesOf(WinningSettings())));
    case Piece::Losing:
      return right(PlacesOf(CodesOf(LosingSettings())));
    case Piece::StackNumber:
      return left({{0, 0}, {0, 5}});
    case Piece::Truth:
      walk();
      next.Amount = Dollars(1);
      return walk();
    case Piece::Words:
    case Piece::Label:
    case Piece::Flag:
    case Piece::StackName:
      next.Name = "Value of patience to True";
      return walk();
    case Piece::Percent:
    case Piece::Joint:
    case Piece::None:
      return walk();
  }
}

TEST(ScriptText, EveryOfferedStatementReadsBack) {
  RoundTrip trip;
  ScriptLine condition;
  condition.Kind = KindCondition;
  for (const auto& [code, index] : PlacesOf(CodesOf(LeftItems()))) {
    condition.LeftCode = code;
    condition.LeftIndex = index;
    WalkCondition(trip, condition, FindLeftItem(code)->operators);
  }
  ScriptLine action;
  action.Kind = KindAction;
  for (const VerbItem& verb : VerbItems()) {
    action.Op = verb.code;
    WalkPieces(trip, action, verb.pieces);
  }
  trip.Compare();
  EXPECT_EQ(trip.Repeated(), 0U);
  EXPECT_EQ(trip.Count(), kWalksAll ? 755'486U : 33'326U);
  EXPECT_EQ(trip.Longest(), kWalksAll ? 113U : 103U);
}

// A script's text as it is typed, and what becomes of each line.
TEST(ScriptText, ReadsWhatPeopleType) {
  struct Row {
    const char* name;
    const char* typed;
    const char* canonical;
  };
  const Row rows[] = {
      {"start, three dots", "When...", "When . . ."},
      {"start, an ellipsis", "While\xE2\x80\xA6", "While . . ."},
      {"start without dots, indented", "  and when", "and when . . ."},
      {"the same words as a label", "When", "When"},
      {"start, any case and indent", "\t AND WHEN . . .", "and when . . ."},
      {"start of actions", "do this . ..", "    Do this . . ."},
      {"dollars without a blank", " bet $10 on place 6", "          Bet $ 10 on Place 6"},
      {"runs of blanks and tabs", "  Bet \t $   10  on\tPlace   6  ", "          Bet $ 10 on Place 6"},
      {"no indent at all", "Bet $ 10 on Place 6", "          Bet $ 10 on Place 6"},
      {"amount with grouping", " Bet $1,234,567.5 on Field", "          Bet $ 1,234,567.50 on Field"},
      {"amount of four decimals", " Bet $ -.0001 on Field", "          Bet $ -.0001 on Field"},
      {"percent without blanks", " add 50% of the last Come to Come",
       "          Add 50 % of the last Come to Come"},
      {"percent of a product", " Multiply by 50 % of bankroll on Field",
       "          Multiply by 50 % of bankroll on Field"},
      {"product", " Multiply by 2 on Chip-Stack #1", "          Multiply by 2 on Chip-Stack # 1"},
      {"longest bet name", " Bet the highest of the last: Come 4 Odds on Don't Come 10 Odds",
       "          Bet the highest of the last: Come 4 Odds on Don't Come 10 Odds"},
      {"longest and whole average",
       " Average bankroll (999 roll average) is less than bankroll average ( 0 roll average )",
       "          Average bankroll ( 999 roll average ) is less than bankroll average ( 0 roll average )"},
      {"average and average", " Average bankroll (25 roll average) is less than Chip-Stack ref #99",
       "          Average bankroll ( 25 roll average ) is less than Chip-Stack ref # 99"},
      {"zero wins", " any bet has won 0 times", "          Any bet has won"},
      {"one loss", " All bets have lost more than 1 times", "          All bets have lost more than 1 time"},
      {"each time", " Hard 4 (2-2) has rolled EACH time", "          Hard 4 (2-2) has rolled each time"},
      {"one roll", " Any 7 has not rolled in the last 1 roll",
       "          Any 7 has not rolled in the last 1 roll"},
      {"double bracket", " number 6 ((5-1) has rolled 2 times",
       "          Number 6 ((5-1) has rolled 2 times"},
      {"name with quotes and words", " Flag \"a\" is True\" is false",
       "          Flag \"a\" is True\" is False"},
      {"stack named", " Name Chip-Stack #7 as \" stop\"", "          Name Chip-Stack # 7 as \" stop\""},
      {"counts", " Total Come bets number more than 3", "          Total Come bets number more than 3"},
      {"message beginning as a value", " Show message: Value of bankroll?",
       "          Show message: Value of bankroll?"},
      {"message of a value", " Show message: Value of Bankroll", "          Show message: Value of bankroll"},
      {"message in Latin letters", " Show message: \xC3\x84 \xE2\x82\xAC",
       "          Show message: \xC3\x84 \xE2\x82\xAC"},
      {"empty message", " Show message:", "          Show message:"},
      {"outcomes of two ways", " reset rolls on number 3 (1-2) and (2-1)",
       "          Reset rolls on number 3 (1-2) and (2-1)"},
      {"outcomes, a group", " Reset rolls on Number group 2,3,12",
       "          Reset rolls on number group 2,3,12"},
      {"all outcomes", " Reset rolls on all the numbers", "          Reset rolls on all the numbers"},
      {"round", " Round down to the nearest $5 on all Chip-Stacks",
       "          Round down to the nearest $ 5 on all Chip-Stacks"},
      {"machine", " ATM - deposit 10% of bankroll in the ATM",
       "          ATM - deposit 10 % of bankroll in the ATM"},
      {"handler", " Set Auto-Handle Losing Bets to same bet plus 1 unit",
       "          Set Auto-Handle Losing Bets to Same Bet plus 1 Unit"},
      {"point", " A point is decided \"for\" or \"against\" the number 5, 6, 8, or 9",
       "          A point is decided \"for\" or \"against\" the number 5, 6, 8, or 9"},
      {"comment, indented", "   'When . . .", "'When . . ."},
      {"label", "Bet it all ", "Bet it all"},
      {"label like a start", "Whenever...", "Whenever..."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const ParsedScript read = ParseScriptText(row.typed);
    EXPECT_TRUE(read.errors.empty()) << read.errors[0].message;
    ASSERT_EQ(read.lines.size(), 1U);
    EXPECT_EQ(read.lines[0].Text, row.canonical);
    EXPECT_EQ(LineText(read.lines[0]), row.canonical);
  }
}

std::string Kinds(const ParsedScript& script) {
  std::string kinds;
  for (const ScriptLine& line : script.lines) {
    kinds += (kinds.empty() ? "" : " ") + std::to_string(line.Kind);
  }
  return kinds;
}

TEST(ScriptText, ReadsLabelsAndLineEnds) {
  struct Row {
    const char* name;
    const char* text;
    const char* kinds;
    std::vector<int> sourceLines;
  };
  const Row rows[] = {
      {"statement without a jump to it", "Return\n", "30", {1}},
      {"label that reads as a statement", "return\n Go to \"Return \"", "90 30", {1, 2}},
      {"indented it stays a statement", " return\n Gosub \"Return\"", "30 30", {1, 2}},
      {"label that reads as a condition", "\nOn each roll\n\n\tGosub \"on each roll\"", "90 30", {2, 4}},
      {"carriage returns with and without", "When...\r\n\r\n On each roll\rthen...\r", "1 20 11", {1, 3, 4}},
      {"mark of UTF-8 in front", "\xEF\xBB\xBFWhen...", "1", {1}},
      {"nothing", " \n\t\n", "", {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const ParsedScript read = ParseScriptText(row.text);
    EXPECT_TRUE(read.errors.empty()) << read.errors[0].message;
    EXPECT_EQ(Kinds(read), row.kinds);
    EXPECT_EQ(read.sourceLines, row.sourceLines);
  }
  const ParsedScript label = ParseScriptText("on EACH roll\n Go to \"On each roll\"");
  EXPECT_EQ(label.lines[0].Name, "on EACH roll");
  EXPECT_EQ(label.lines[0].Text, "on EACH roll");
  EXPECT_EQ(label.lines[0].LeftCode, 0);
}

TEST(ScriptText, TellsWhatIsWrongAndWhere) {
  struct Row {
    const char* name;
    std::string text;
    int column;
    const char* message;
  };
  const std::string name80(80, 'x');
  const Row rows[] = {
      {"mistyped verb", "  Bett the highest of: bankroll on Field", 3,
       "Found \"Bett the highest of: bankroll on Field\" where a condition or an action is expected. Did you "
       "mean \"Bet the highest of:\"?"},
      {"mistyped behind a shared word", " Bet the higest of: bankroll on Field", 6,
       "Found \"the higest of: bankroll on Field\" where an amount is expected. Did you mean \"Bet the "
       "highest of:\"?"},
      {"mistyped condition", " Bankrol is equal to $ 5", 2,
       "Found \"Bankrol is equal to $ 5\" where a condition or an action is expected. Did you mean "
       "\"Bankroll\"?"},
      {"start with two dots, indented", "  when..", 3,
       "Found \"when..\" where a condition or an action is expected. Did you mean \"When . . .\"?"},
      {"no amount", " Bet $ ten on Field", 8,
       "Found \"ten on Field\" where an amount (with at most four decimals) is expected."},
      {"five decimals", " Bet $ 1.00001 on Field", 8,
       "Found \"1.00001 on Field\" where an amount (with at most four decimals) is expected."},
      {"beyond the range", " Bet $ 922337203685478 on Field", 8,
       "Found \"922337203685478 on Field\" where an amount (with at most four decimals) is expected."},
      {"wrong grouping", " Bet $ 10,00 on Field", 8,
       "Found \"10,00 on Field\" where an amount (with at most four decimals) is expected."},
      {"grouped decimals", " Bet $ 1.000,000 on Field", 8,
       "Found \"1.000,000 on Field\" where an amount (with at most four decimals) is expected."},
      {"mistyped target", " Bet $ 5 on Plcae 6", 13,
       "Found \"Plcae 6\" where a target is expected. Did you mean \"Place 6\"?"},
      {"line ends", " Bet $ 5 on", 12, "The line ends where a target is expected."},
      {"glued", " Bet $ 5on Field", 8,
       "Found \"5on Field\" where an amount (with at most four decimals) is expected."},
      {"more behind it", " Bet $ 5 on Field now", 19, "Found \"now\" where the end of the line is expected."},
      {"wrong joint", " Bet $ 5 to Field", 10, "Found \"to Field\" where \"on\" is expected."},
      {"stack out of range", " Bet $ 5 on Chip-Stack # 100", 26,
       "Found \"100\" where a Chip-Stack's number from 0 to 99 is expected."},
      {"average out of range", " Average bankroll ( 1000 roll average ) is less than $ 5", 21,
       "Found \"1000 roll average ) is less than $ 5\" where a number of rolls from 0 to 999 is expected."},
      {"fraction of a stack", " Bet $ 5 on Chip-Stack # 1.5", 26,
       "Found \"1.5\" where a Chip-Stack's number from 0 to 99 is expected."},
      {"percent of what", " Bet 5 % off bankroll on Field", 8,
       "Found \"% off bankroll on Field\" where \"% of\" or \"% of the last\" is expected."},
      {"product of percent", " Multiply by 5 %of bankroll on Field", 16,
       "Found \"%of bankroll on Field\" where \"% of\" or \"% of the last\" is expected."},
      {"singular for plural", " All bets is equal to $ 5", 11,
       "Found \"is equal to $ 5\" where a comparison is expected. Did you mean \"are equal to $\"?"},
      {"comparison not offered", " All bets have not won", 11,
       "Found \"have not won\" where a comparison is expected. Did you mean \"have lost\"?"},
      {"no comparison", " Bankroll", 10, "The line ends where a comparison is expected."},
      {"no count", " Any 7 has rolled", 18, "The line ends where \"each time\" or an amount is expected."},
      {"no unit", " Any 7 has rolled 5", 20, "The line ends where \"times\" is expected."},
      {"truth of a flag", " Flag \"a\" is Yes", 14, "Found \"Yes\" where True or False is expected."},
      {"flag without a name", " Set flag \" \" to True", 11,
       "Found \"\" \" to True\" where a flag's name in double quotes is expected."},
      {"open quote", " Go to \"here", 13, "The line ends where a closing double quote is expected."},
      {"unquoted label", " Go to here", 8, "Found \"here\" where a label in double quotes is expected."},
      {"long name", " Show message: " + name80 + "y", 96,
       "Found \"y\" where the end of a name of at most 80 characters is expected."},
      {"long label", name80 + "y", 81, "A label has at most 80 characters."},
      {"Greek letter", " Show message: \xC3\xA4 \xCE\xB1", 18,
       "The character \"\xCE\xB1\" (U+03B1) has no place in a script: it is not in code page 1252."},
      {"broken UTF-8", "'\xC3\xA4 \xFF", 4, "This byte is no UTF-8."},
      {"surrogate", "'\xED\xA0\x80", 2, "This byte is no UTF-8."},
      {"zero byte", std::string("'a\0", 3), 3, "A zero byte cannot stand in a script."},
      {"long echo", " " + std::string(70, 'z'), 2,
       "Found \"zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz...\" where a condition or an "
       "action is expected."},
      {"long line", " Bet " + std::string(2000, ' ') + "$ 5 on Field", 2002,
       "This line is too long; only a comment may be so long."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const ParsedScript read = ParseScriptText("\n" + row.text + "\n On each pass");
    EXPECT_EQ(Kinds(read), "20");
    ASSERT_EQ(read.errors.size(), 1U);
    EXPECT_EQ(read.errors[0].line, 2);
    EXPECT_EQ(read.errors[0].column, row.column);
    EXPECT_EQ(read.errors[0].message, row.message);
  }
}

TEST(ScriptText, HostileTextsEndSoon) {
  constexpr std::size_t kSize = 10'000'000;
  const std::string junk(kSize, 'q'), blanks(kSize, ' ');
  std::string lines, labels, bytes;
  while (lines.size() < kSize) lines += " qq\n";
  while (labels.size() < kSize) labels += "Bet q\n";
  for (std::uint32_t i = 1; bytes.size() < kSize; i = i * 1'664'525 + 1'013'904'223) {
    bytes += static_cast<char>(i >> 24);
  }
  EXPECT_EQ(ParseScriptText(lines).errors.size(), 100U);
  EXPECT_EQ(ParseScriptText(labels).lines.size(), (kSize + 5) / 6);
  EXPECT_EQ(ParseScriptText(bytes).errors.size(), 100U);
  EXPECT_TRUE(ParseScriptText(blanks).lines.empty());
  EXPECT_EQ(ParseScriptText("'" + junk).lines.size(), 1U);
  for (const std::string& line : {junk, " " + junk, " Bet" + blanks + "$", " Show message: " + junk,
                                  std::string(kSize, '"'), " Go to " + std::string(kSize, '"')}) {
    const ParsedScript read = ParseScriptText(line);
    ASSERT_EQ(read.errors.size(), 1U);
    EXPECT_LT(read.errors[0].message.size(), 200U);
  }
}

// Lines or errors that say where, and the lines read back from their own text.
void ExpectLinesOrErrors(const std::string& text) {
  const ParsedScript script = ParseScriptText(text);
  EXPECT_EQ(script.lines.size(), script.sourceLines.size());
  for (const ScriptTextError& error : script.errors) {
    EXPECT_GE(error.line, 1);
    EXPECT_GE(error.column, 1);
    EXPECT_NE(error.message, "");
  }
  std::string shown;
  for (const ScriptLine& line : script.lines) shown += LineText(line) + "\n";
  EXPECT_EQ(ParseScriptText(shown).lines, script.lines) << shown;
}

TEST(ScriptText, SurvivesCutsAndChanges) {
  const std::string text =
      "' All.\nWhen . . .\n          Flag \"A\" is True\n    then . . .\n          Bet 5 % of bankroll on "
      "Place 6\n"
      "          Go to \"on\"\non\n";
  ASSERT_TRUE(ParseScriptText(text).errors.empty());
  ForEachLength(text, ExpectLinesOrErrors);
  ForEachChange(text, [](const std::string& bytes, std::size_t place) {
    // Not all values: each text is read by all lists.
    if (static_cast<unsigned char>(bytes[place]) % 16 == place % 16) ExpectLinesOrErrors(bytes);
  });
}

TEST(ScriptText, WritesCodesOfNoList) {
  struct Row {
    const char* name;
    ScriptLine line;
    const char* text;
  };
  const auto line = [](std::int32_t kind, std::int32_t op, std::int32_t left, std::int32_t right) {
    ScriptLine made;
    made.Kind = kind;
    made.Op = op;
    made.LeftCode = left;
    made.RightCode = right;
    return made;
  };
  ScriptLine oldAll = line(KindAction, Verb::ResetRolls, 0, Item::BoxNumbers);
  oldAll.Text = "          Reset rolls on all the numbers";
  ScriptLine broken = line(KindAction, Verb::ShowMessage, 0, 0);
  broken.Name = "one\r\ntwo ";
  const Row rows[] = {
      {"value of the dice", line(KindAction, 11, Value::DiceTotal, Bet::Field),
       "          Bet 0 % of [1300] on Field"},
      {"verb", line(KindAction, 150, 0, 0), "          [150]"},
      {"left item", line(KindCondition, Compare::EqualItem, 1250, 1400),
       "          [1250] is equal to bankroll"},
      {"comparison", line(KindCondition, 99, Item::Bankroll, 0), "          Bankroll [99]"},
      {"not offered for all", line(KindCondition, Compare::HasNotWon, 1101, 0),
       "          All bets have not won"},
      {"kind", line(55, 0, 0, 0), "[55]"},
      {"all the numbers of older scripts", oldAll, "          Reset rolls on all the numbers"},
      {"box numbers", line(KindAction, Verb::ResetRolls, 0, Item::BoxNumbers),
       "          Reset rolls on number group 4,5,6,8,9,10"},
      {"name with a line end", broken, "          Show message: one  two"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(LineText(row.line), row.text);
  }
}

}  // namespace
}  // namespace rollwick
