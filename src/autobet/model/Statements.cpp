#include "autobet/model/Statements.h"

#include "autobet/model/Catalogue.h"
#include "autobet/model/ScriptText.h"
#include "engine/state/Bets.h"

namespace rollwick {

namespace {

std::string Code(std::string_view text) {
  return "`" + std::string(text) + "`";
}

std::string Bullet(std::string_view text) {
  return "- " + Code(text) + "\n";
}

// With the number the item carries: "Chip-Stack # N".
std::string ItemPattern(std::string_view caption, std::int32_t code) {
  const std::string text(caption);
  switch (IndexFormOf(code)) {
    case IndexForm::Stack:
      return text + " N";
    case IndexForm::Average:
      return text + " ( N roll average )";
    default:
      return text;
  }
}

std::string Bullets(std::span<const CatalogueEntry> entries) {
  std::string text;
  for (const CatalogueEntry& entry : entries) text += Bullet(ItemPattern(entry.caption, entry.code));
  return text;
}

std::string SingleBets() {
  std::string text;
  for (BetId bet = 1; bet <= kBetCount; ++bet) text += Bullet(BetName(bet));
  return text;
}

std::string OperandPattern(const Operator& op) {
  switch (op.operand) {
    case Operand::Times:
      return " AMOUNT times";
    case Operand::Rolls:
      return " AMOUNT rolls";
    case Operand::Amount:
      return " AMOUNT";
    case Operand::Item:
      return " ITEM";
    case Operand::Name:
      return " \"NAME\"";
    case Operand::None:
      break;
  }
  return {};
}

std::string Comparisons(OperatorList list) {
  std::string text;
  for (const Operator& op : OperatorsOf(list)) {
    text += Bullet(std::string(OperatorCaption(op, list)) + OperandPattern(op));
  }
  return text;
}

// What follows the items of one list.
std::string Followers(OperatorList list) {
  switch (list) {
    case OperatorList::Alone:
      return "They stand alone.\n";
    case OperatorList::FlagTruth:
      return Bullet("\"NAME\" is True") + Bullet("\"NAME\" is False");
    case OperatorList::IsTruth:
      return Bullet("is True") + Bullet("is False");
    case OperatorList::AreTruth:
      return Bullet("are True") + Bullet("are False");
    case OperatorList::Numbers:
      return Bullets(NumberList());
    default:
      return Comparisons(list);
  }
}

struct Group {
  OperatorList list;
  std::string_view title;
};

constexpr Group kGroups[] = {
    {OperatorList::Alone, "Events"},
    {OperatorList::Numbers, "The point"},
    {OperatorList::Is, "Money and Chip-Stacks"},
    {OperatorList::Are, "Counters and groups of Chip-Stacks"},
    {OperatorList::HasIs, "Any bet of a group, and the bet on the shooter's point"},
    {OperatorList::HaveAre, "All bets of a group"},
    {OperatorList::HaveAreCount, "Total of a group"},
    {OperatorList::FlagTruth, "A flag"},
    {OperatorList::IsTruth, "Any flag"},
    {OperatorList::AreTruth, "All flags"},
    {OperatorList::Count, "Flags counted"},
    {OperatorList::Rolled, "Outcomes of the dice"},
};

std::string Conditions() {
  std::string text;
  for (const auto& [list, title] : kGroups) {
    text += "\n### " + std::string(title) + "\n\n";
    for (const LeftItem& item : LeftItems()) {
      if (item.operators == list) text += Bullet(ItemPattern(item.caption, item.code));
    }
    text += list == OperatorList::Alone ? "\n" : "\nfollowed by one of\n\n";
    text += Followers(list);
  }
  return text;
}

std::string PiecePattern(const VerbItem& verb, Piece piece) {
  switch (piece) {
    case Piece::Amount:
      return " AMOUNT";
    case Piece::Percent:
      return " " + std::string(VerbTail(verb));
    case Piece::Value:
      return " VALUE";
    case Piece::Joint:
      return " " + std::string(verb.joint);
    case Piece::Target:
      return " TARGET";
    case Piece::Outcome:
      return " OUTCOME";
    case Piece::Winning:
    case Piece::Losing:
      return " SETTING";
    case Piece::Words:
      return " WORDS";
    case Piece::Label:
      return " \"LABEL\"";
    case Piece::Flag:
    case Piece::StackName:
      return " \"NAME\"";
    case Piece::StackNumber:
      return " N";
    case Piece::Mode:
      return " MODE";
    case Piece::Truth:
      return " True/False";
    case Piece::None:
      break;
  }
  return {};
}

std::string Actions() {
  std::string text;
  for (const VerbItem& verb : VerbItems()) {
    std::string pattern(VerbHead(verb));
    for (const Piece piece : verb.pieces) pattern += PiecePattern(verb, piece);
    text += Bullet(pattern);
  }
  return text;
}

std::string Outcomes() {
  std::string text;
  for (const std::int32_t code : ResetRollTargets()) text += Bullet(ResetRollCaption(code));
  return text;
}

std::string Starts() {
  std::string text;
  for (const CatalogueEntry& start : StartLines()) {
    ScriptLine line;
    line.Kind = start.code;
    text += Bullet(LineText(line));
  }
  return text;
}

constexpr const char* kOtherLines =
    "\nConditions and actions are indented by ten blanks. A line that begins with an apostrophe is a "
    "comment; "
    "any other line without an indent is a label.\n";
constexpr const char* kConditionWords =
    "N is a Chip-Stack's number (0 to 99), or the rolls of an average (0 to 999: 0 for all, at most 525 "
    "count). `has won`, "
    "`has lost`, `has not won` and `has not lost` may stand without AMOUNT times, and `has rolled` and `has "
    "not "
    "rolled` take `each time`.\n";

}  // namespace

std::string StatementList() {
  return "## Start lines\n\n" + Starts() + kOtherLines + "\n## Conditions\n\n" + kConditionWords +
         Conditions() + "\n### Items to compare with (ITEM)\n\n" + Bullets(RightItems()) +
         "\n## Actions\n\n" + Actions() + "\n### Values (VALUE)\n\n" + Bullets(ValueItems()) +
         "\nand every single bet.\n" + "\n### Targets (TARGET)\n\n" + Bullets(TargetItems()) +
         "\nand every single bet.\n" + "\n### Single bets\n\n" + SingleBets() +
         "\n### Outcomes to reset (OUTCOME)\n\n" + Outcomes() + "\n### Modes of Round (MODE)\n\n" +
         Bullets(RoundModes()) + "\n### Settings of Auto-Handle Winning Bets\n\n" +
         Bullets(WinningSettings()) + "\n### Settings of Auto-Handle Losing Bets\n\n" +
         Bullets(LosingSettings());
}

}  // namespace rollwick
