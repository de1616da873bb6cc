// Every list of the Auto-Bet language, in the order the editor shows it: what can be picked, under which
// words, and what goes with it. The editor, the text form and the user's list of statements all read these.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rollwick {

struct CatalogueEntry {
  std::int32_t code;
  std::string_view caption;
};

// A number that an item carries: "Chip-Stack # 5", "Average bankroll ( 25 roll average )".
enum class IndexForm { None, Stack, Average };
IndexForm IndexFormOf(std::int32_t code);
inline constexpr int kMostStackIndex = 99;
inline constexpr int kMostAverageIndex = 999;  // rolls, three digits; 0 is all of them, above 525 is 525

// What follows a left item. The words are "is", or "are" where the item is several; the win lists precede.
enum class OperatorList {
  Alone,         // nothing
  FlagTruth,     // a flag's name, is True or is False
  IsTruth,       // is True, is False
  AreTruth,      // are True, are False
  Numbers,       // the number list
  Is,            // comparisons
  Are,           // the same, plural
  HasIs,         // wins and losses, comparisons
  HaveAre,       // the same, plural; no "not won" and its like
  HaveAreCount,  // and a count of bets
  Count,
  Rolled,
};
inline constexpr int kOperatorLists = 12;

struct LeftItem {
  std::int32_t code;
  std::string_view caption;
  OperatorList operators;
};

// What stands behind an operator.
enum class Operand { None, Times, Rolls, Amount, Item, Name };

struct Operator {
  std::int32_t code;
  std::string_view singular;
  std::string_view plural;
  Operand operand;
};

// A piece of an action line behind its verb, each after a blank.
enum class Piece {
  None,
  Amount,
  Percent,  // the verb's words from its "%" on: the amount stands before them
  Value,    // of listOf
  Joint,    // the verb's "on", "to", "from the ATM"
  Target,   // of listTo
  Outcome,  // a target of Reset rolls
  Winning,  // a setting of Auto-Handle Winning Bets
  Losing,
  Words,  // Name, to the end of the line
  Label,  // Name in quotes
  Flag,   // the same
  StackName,
  StackNumber,
  Mode,  // of Round
  Truth,
};

struct VerbItem {
  std::int32_t code;
  std::string_view caption;
  std::array<Piece, 5> pieces;
  std::string_view joint;
};

// The start lines, of the kinds 1..8 and 11..13.
std::span<const CatalogueEntry> StartLines();
std::span<const LeftItem> LeftItems();
// The items a condition compares with; the shooter's-point bets at the end.
std::span<const CatalogueEntry> RightItems();
// All operators, by lists; the number list.
std::span<const Operator> Operators();
std::span<const CatalogueEntry> NumberList();
// The operators one list offers, in its order. Empty for the lists without operators; Numbers has its own.
std::vector<Operator> OperatorsOf(OperatorList list);
// "is equal to $" or "are equal to $", "has won" or "have won", as the list says it.
std::string_view OperatorCaption(const Operator& op, OperatorList list);

std::span<const VerbItem> VerbItems();
// The words before the amount of a verb with "%" ("Multiply by" of "Multiply by % of"), and those from the
// "%" on; a verb without is all head.
std::string_view VerbHead(const VerbItem& verb);
std::string_view VerbTail(const VerbItem& verb);

// Values behind "of", and targets; the single bets, which follow in both, are left out.
std::span<const CatalogueEntry> ValueItems();
std::span<const CatalogueEntry> TargetItems();
std::span<const CatalogueEntry> RoundModes();
std::span<const CatalogueEntry> WinningSettings();
std::span<const CatalogueEntry> LosingSettings();

// The targets of Reset rolls: all the numbers, then the outcomes of the dice as on the left.
std::vector<std::int32_t> ResetRollTargets();
// "number 3 (1-2) and (2-1)", "number group 2,3,12"; empty for other codes.
std::string ResetRollCaption(std::int32_t code);

// The entry with this code; nullptr when the list has none.
const LeftItem* FindLeftItem(std::int32_t code);
const Operator* FindOperator(std::int32_t code);
const VerbItem* FindVerb(std::int32_t code);
// The caption of `code` in `list`; empty when it is not there.
std::string_view FindCaption(std::span<const CatalogueEntry> list, std::int32_t code);
// The same for values and targets, single bets included.
std::string ValueCaption(std::int32_t code);
std::string TargetCaption(std::int32_t code);

}  // namespace rollwick
