// Writing: a line's words from its codes. ReadScriptText.cpp is the way back, over the same catalogue.
#include "autobet/model/ScriptText.h"

#include <algorithm>

#include "autobet/model/Catalogue.h"
#include "autobet/model/Codes.h"
#include "autobet/model/Script.h"
#include "base/FormatNumber.h"

namespace rollwick {

namespace {

constexpr std::string_view kActionStartIndent = "    ";
constexpr std::string_view kStatementIndent = "          ";

// What would end a line, or read back as a blank from a file, is written as one.
std::string OneLine(std::string_view name) {
  std::string text(name);
  std::ranges::replace_if(
      text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
  return text;
}

std::string Quoted(std::string_view name) {
  return '"' + OneLine(TrimRight(name)) + '"';
}

std::string CodeText(std::int32_t code) {
  return "[" + std::to_string(code) + "]";
}

std::string OrCode(std::string_view caption, std::int32_t code) {
  return caption.empty() ? CodeText(code) : std::string(caption);
}

// The caption and the number its item carries.
std::string ItemText(std::string_view caption, std::int32_t code, std::int32_t index) {
  const std::string text = OrCode(caption, code);
  switch (IndexFormOf(code)) {
    case IndexForm::Stack:
      return text + " " + std::to_string(index);
    case IndexForm::Average:
      return text + " ( " + std::to_string(index) + " roll average )";
    default:
      return text;
  }
}

std::string TruthText(Money amount) {
  return amount == Money() ? "False" : "True";
}

// "3 times", "1 time"; a zero is "each", or goes without saying.
std::string CountText(const ScriptLine& line, std::string_view unit) {
  if (line.Amount == Money()) {
    if (line.Op == Compare::HasRolled || line.Op == Compare::HasNotRolled) return " each time";
    if (line.Op == Compare::HasWon || line.Op == Compare::HasLost || line.Op == Compare::HasNotWon ||
        line.Op == Compare::HasNotLost) {
      return {};
    }
  }
  return " " + FormatMoney(line.Amount) + " " + std::string(unit) + (line.Amount == Dollars(1) ? "" : "s");
}

std::string OperandText(const ScriptLine& line, Operand operand) {
  switch (operand) {
    case Operand::Times:
      return CountText(line, "time");
    case Operand::Rolls:
      return CountText(line, "roll");
    case Operand::Amount:
      return " " + FormatMoney(line.Amount);
    case Operand::Item:
      return " " + ItemText(FindCaption(RightItems(), line.RightCode), line.RightCode, line.RightIndex);
    case Operand::Name:
      return " " + Quoted(line.Name);
    case Operand::None:
      break;
  }
  return {};
}

std::string ComparisonText(const ScriptLine& line, OperatorList list) {
  if (const std::string_view number = FindCaption(NumberList(), line.Op); !number.empty()) {
    return " " + std::string(number);
  }
  const Operator* const op = FindOperator(line.Op);
  if (!op) return " " + CodeText(line.Op);
  return " " + std::string(OperatorCaption(*op, list)) + OperandText(line, op->operand);
}

std::string ConditionText(const ScriptLine& line) {
  const LeftItem* const left = FindLeftItem(line.LeftCode);
  if (!left && line.Op == 0) return CodeText(line.LeftCode);
  const OperatorList list = left ? left->operators : OperatorList::Is;
  const std::string text = ItemText(left ? left->caption : std::string_view(), line.LeftCode, line.LeftIndex);
  switch (list) {
    case OperatorList::Alone:
      return text;
    case OperatorList::FlagTruth:
      return text + " " + Quoted(line.Name) + " is " + TruthText(line.Amount);
    case OperatorList::IsTruth:
      return text + " is " + TruthText(line.Amount);
    case OperatorList::AreTruth:
      return text + " are " + TruthText(line.Amount);
    default:
      return text + ComparisonText(line, list);
  }
}

// Older scripts mark all the numbers by the box numbers' code and these words, and a run goes by them.
std::string OutcomeText(const ScriptLine& line) {
  const std::string all = ResetRollCaption(Item::AllNumbers);
  if (line.RightCode == Item::BoxNumbers && line.Text.find(all) != std::string::npos) return all;
  return OrCode(ResetRollCaption(line.RightCode), line.RightCode);
}

std::string PieceText(const ScriptLine& line, const VerbItem& verb, Piece piece) {
  switch (piece) {
    case Piece::Amount:
      return FormatMoney(line.Amount);
    case Piece::Percent:
      return std::string(VerbTail(verb));
    case Piece::Value:
      return ItemText(ValueCaption(line.LeftCode), line.LeftCode, line.LeftIndex);
    case Piece::Joint:
      return std::string(verb.joint);
    case Piece::Target:
      return ItemText(TargetCaption(line.RightCode), line.RightCode, line.RightIndex);
    case Piece::Outcome:
      return OutcomeText(line);
    case Piece::Winning:
      return OrCode(FindCaption(WinningSettings(), line.RightCode), line.RightCode);
    case Piece::Losing:
      return OrCode(FindCaption(LosingSettings(), line.RightCode), line.RightCode);
    case Piece::Words:
      return OneLine(TrimRight(line.Name));
    case Piece::Label:
    case Piece::Flag:
    case Piece::StackName:
      return Quoted(line.Name);
    case Piece::StackNumber:
      return std::to_string(line.LeftIndex);
    case Piece::Mode:
      return OrCode(FindCaption(RoundModes(), line.LeftCode), line.LeftCode);
    case Piece::Truth:
      return TruthText(line.Amount);
    case Piece::None:
      break;
  }
  return {};
}

std::string ActionText(const ScriptLine& line) {
  const VerbItem* const verb = FindVerb(line.Op);
  if (!verb) return CodeText(line.Op);
  std::string text(VerbHead(*verb));
  for (const Piece piece : verb->pieces) {
    if (const std::string words = PieceText(line, *verb, piece); !words.empty()) text += " " + words;
  }
  return text;
}

}  // namespace

std::string LineText(const ScriptLine& line) {
  switch (line.Kind) {
    case KindCondition:
      return std::string(kStatementIndent) + ConditionText(line);
    case KindAction:
      return std::string(kStatementIndent) + ActionText(line);
    case KindLabel:
      return OneLine(TrimBlanks(line.Name));
    case KindComment:
      return OneLine(line.Text);
    default: {
      const std::string text = OrCode(FindCaption(StartLines(), line.Kind), line.Kind);
      return IsStartOfActions(line.Kind) ? std::string(kActionStartIndent) + text : text;
    }
  }
}

}  // namespace rollwick
