// Scripts put together wrongly, and what Check Bets says of them.
#include "autobet/model/CheckStructure.h"

#include <gtest/gtest.h>

#include <vector>

#include "autobet/model/Codes.h"

namespace rollwick {
namespace {

ScriptLine Line(std::int32_t kind, std::string name = {}, std::int32_t op = 0) {
  ScriptLine line;
  line.Kind = kind;
  line.Op = op;
  line.Name = std::move(name);
  return line;
}

// A letter a line: W When, w While, & | ^ and, or, xor, c a condition, t then, e else, d Do this, a an
// action, a digit a label of that name, ' a comment, G and S a jump to the label that follows.
std::vector<ScriptLine> Script(std::string_view letters) {
  std::vector<ScriptLine> lines;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    switch (const char letter = letters[i]) {
      case 'W':
        lines.push_back(Line(KindWhen));
        break;
      case 'w':
        lines.push_back(Line(KindWhile));
        break;
      case '&':
        lines.push_back(Line(KindAndWhen));
        break;
      case '|':
        lines.push_back(Line(KindOrWhile));
        break;
      case '^':
        lines.push_back(Line(KindXorWhen));
        break;
      case 'c':
        lines.push_back(Line(KindCondition));
        break;
      case 't':
        lines.push_back(Line(KindThen));
        break;
      case 'e':
        lines.push_back(Line(KindElse));
        break;
      case 'd':
        lines.push_back(Line(KindDoThis));
        break;
      case 'a':
        lines.push_back(Line(KindAction));
        break;
      case '\'':
        lines.push_back(Line(KindComment));
        break;
      case 'G':
        lines.push_back(Line(KindAction, {letters[++i]}, Verb::GoTo));
        break;
      case 'S':
        lines.push_back(Line(KindAction, {letters[++i]}, Verb::Gosub));
        break;
      default:
        lines.push_back(Line(KindLabel, {' ', letter, ' '}));
        break;
    }
  }
  return lines;
}

TEST(CheckStructure, FindsTheFirstFault) {
  struct Row {
    const char* name;
    const char* script;
    int line;  // 0: well put together
    const char* title;
    const char* words;
  };
  const Row rows[] = {
      {"empty", "", 0, "", ""},
      {"all there is", "1'Wcc&c|c^cta2aeaa'da3wcta4", 0, "", ""},
      {"comments anywhere", "'W'c'c't'a'e'a'", 0, "", ""},
      {"label between conditions and then", "Wc1ta", 0, "", ""},
      {"label behind then", "Wct1a", 0, "", ""},
      {"jumps forth and back, any case", "xdGySX'Y", 0, "", ""},
      {"condition first", "c", 1, "Missing Start Condition", "not associated with a Start Condition"},
      {"condition behind actions", "Wctac", 5, "Missing Start Condition",
       "not associated with a Start Condition"},
      {"two starts", "WcWcta", 1, "Missing Action Lines", "has no Action block"},
      {"start without a condition", "Wcta'Wta", 6, "Missing Condition Lines",
       "not followed by a Condition line"},
      {"start at the end", "WctaW", 5, "Missing Condition Lines", "not followed by a Condition line"},
      {"and without a condition", "Wc&ta", 3, "Missing Condition Lines", "not followed by a Condition line"},
      {"and first", "&cta", 1, "Missing Condition Lines", "not preceded by a Condition line"},
      {"or behind actions", "Wcta|cta", 5, "Missing Condition Lines", "not preceded by a Condition line"},
      {"action first", "a", 1, "Missing Start Action", "not associated with a Start Action"},
      {"action behind a condition", "Wca", 3, "Missing Start Action", "not associated with a Start Action"},
      {"then without an action", "Wct", 3, "Missing Action Lines", "not followed by an Action line"},
      {"then without an action, else", "Wctea", 3, "Missing Action Lines", "not followed by an Action line"},
      {"several groups", "daWctada", 0, "", ""},
      {"Do this and a condition", "dc", 1, "Missing Action Lines", "not followed by an Action line"},
      {"then first", "ta", 1, "Missing Action Lines", "not immediately preceded by a Condition block"},
      {"then twice", "Wctata", 5, "Missing Action Lines", "not immediately preceded by a Condition block"},
      {"conditions alone", "daWc&c", 3, "Missing Action Lines", "has no Action block"},
      {"conditions, Do this", "Wcda", 1, "Missing Action Lines", "has no Action block"},
      {"else first", "ea", 1, "Missing Action Lines",
       "The else Start Action line shown at the top of the screen must be immediately preceded by a then "
       "block "
       "of action lines."},
      {"else twice", "Wctaeaea", 7, "Missing Action Lines", "preceded by a then block"},
      {"else behind Do this", "Wctadaea", 7, "Missing Action Lines", "preceded by a then block"},
      {"else for then", "Wcea", 3, "Missing Action Lines", "preceded by a then block"},
      {"label between conditions", "Wc1'2cta", 3, "Label Position", "appears between Condition Lines."},
      {"label behind When", "W1cta", 2, "Label Position", "appears between Condition Lines."},
      {"label before and", "Wc1&cta", 3, "Label Position", "appears between Condition Lines."},
      {"same label", "1da2G3'1", 7, "Duplicate Label", "appears more than once in your list."},
      {"Go to nowhere", "1dG1G2", 4, "Missing Label", "The Go to statement shown"},
      {"Gosub nowhere", "dSx", 2, "Missing Label", "The Gosub statement shown"},
      {"structure before labels", "dG111c", 5, "Missing Start Condition", "not associated"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const auto fault = CheckStructure(Script(row.script));
    ASSERT_EQ(fault.has_value(), row.line != 0) << (fault ? fault->text : "");
    if (!fault) continue;
    EXPECT_EQ(fault->line, row.line);
    EXPECT_EQ(fault->title, row.title);
    EXPECT_NE(fault->text.find(row.words), std::string::npos) << fault->text;
    EXPECT_TRUE(fault->text.ends_with(
        ".\r\rThis is not allowed and must be resolved before you can run this auto-betting script."));
  }
}

TEST(CheckStructure, LongScriptsEndSoon) {
  std::vector<ScriptLine> lines = {Line(KindDoThis)};
  for (int i = 0; i < 50'000; ++i) {
    lines.push_back(Line(KindLabel, "Place " + std::to_string(i)));
    lines.push_back(Line(KindAction, "place " + std::to_string(49'999 - i), Verb::GoTo));
  }
  EXPECT_FALSE(CheckStructure(lines));
}

}  // namespace
}  // namespace rollwick
