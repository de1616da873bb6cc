#include "autobet/model/StatementReader.h"

#include <algorithm>
#include <charconv>

#include "autobet/model/Codes.h"
#include "autobet/model/Script.h"
#include "base/CodePage.h"

namespace rollwick {

namespace {

constexpr std::size_t kLongestEcho = 60;  // characters of the text an error repeats

std::string Echo(std::string_view text) {
  const std::size_t length = CharacterStart(text, kLongestEcho);
  std::string echo(text.substr(0, length));
  std::ranges::replace_if(
      echo, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return '"' + echo + (length < text.size() ? "...\"" : "\"");
}

// Whether commas, if any, part the whole dollars in threes.
bool IsGroupedRight(std::string_view number) {
  if (number.find(',') == number.npos) return true;
  if (number.starts_with('-')) number.remove_prefix(1);
  const std::string_view whole = number.substr(0, number.find('.'));
  if (number.find(',', whole.size()) != number.npos) return false;
  const std::size_t first = whole.find(',');
  if (first == 0 || first > 3) return false;
  for (std::size_t i = first; i < whole.size(); ++i) {
    if ((whole[i] == ',') != ((i - first) % 4 == 0)) return false;
  }
  return (whole.size() - first) % 4 == 0;
}

}  // namespace

std::size_t CharacterStart(std::string_view text, std::size_t characters) {
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    const bool startsCharacter = (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80;
    if (startsCharacter && characters-- == 0) break;
  }
  return at;
}

std::string FailureText(std::string_view text, const Failure& failure) {
  const std::string_view rest = text.substr(failure.at);
  std::string words = rest.empty() ? "The line ends where " : "Found " + Echo(rest) + " where ";
  words += failure.expected + " is expected.";
  if (failure.candidates) {
    const std::string_view nearest = failure.candidates->Nearest(text.substr(failure.candidatesAt));
    if (!nearest.empty()) words += " Did you mean \"" + std::string(nearest) + "\"?";
  }
  return words;
}

bool StatementReader::Read() {
  const Captions::Found left = lists_.left.Match(text_);
  return left.choice ? ReadCondition(left) : ReadAction();
}

bool StatementReader::ReadCondition(const Captions::Found& left) {
  at_ = left.length;
  line_.Kind = KindCondition;
  line_.LeftCode = left.choice->code;
  if (!ReadIndex(IndexFormOf(line_.LeftCode), line_.LeftIndex)) return false;
  switch (const OperatorList list = FindLeftItem(line_.LeftCode)->operators) {
    case OperatorList::Alone:
      return AtEnd();
    case OperatorList::FlagTruth:
      return ReadQuoted("a flag's name in double quotes", false) && ReadWord("is") && ReadTruth() && AtEnd();
    case OperatorList::IsTruth:
      return ReadWord("is") && ReadTruth() && AtEnd();
    case OperatorList::AreTruth:
      return ReadWord("are") && ReadTruth() && AtEnd();
    case OperatorList::Numbers:
      return ReadCode(lists_.numbers, "a number of the point", line_.Op) && AtEnd();
    default:
      return ReadComparison(list) && AtEnd();
  }
}

bool StatementReader::ReadComparison(OperatorList list) {
  return ReadCode(lists_.operators[static_cast<int>(list)], "a comparison", line_.Op) &&
         ReadOperand(*FindOperator(line_.Op));
}

bool StatementReader::ReadOperand(const Operator& op) {
  switch (op.operand) {
    case Operand::Times:
      return ReadCount("time");
    case Operand::Rolls:
      return ReadCount("roll");
    case Operand::Amount:
      return ReadAmount();
    case Operand::Item:
      return ReadItem(lists_.right, "an item to compare with", line_.RightCode, line_.RightIndex);
    case Operand::Name:
      return ReadQuoted("a name in double quotes", true);
    case Operand::None:
      break;
  }
  return true;
}

// "3 times", "each time", or nothing where a zero goes without saying.
bool StatementReader::ReadCount(std::string_view unit) {
  const std::int32_t op = line_.Op;
  const bool mayBeEach = op == Compare::HasRolled || op == Compare::HasNotRolled;
  const bool mayBeNone = op == Compare::HasWon || op == Compare::HasLost || op == Compare::HasNotWon ||
                         op == Compare::HasNotLost;
  if (mayBeNone && Rest().empty()) return true;
  if (mayBeEach && Rest().empty()) return Fail(at_, "\"each time\" or an amount");
  if (mayBeEach && TakeWord("each")) return ReadWord(unit);
  if (!ReadAmount()) return false;
  const std::string several = std::string(unit) + "s";
  return TakeWord(several) || TakeWord(unit) || Fail(at_, "\"" + several + "\"");
}

// A message may begin as a longer verb does ("Show message: Value of patience"), so shorter verbs follow.
bool StatementReader::ReadAction() {
  Captions::Found head = lists_.heads.Match(text_);
  if (!head.choice) return Fail(0, "a condition or an action", &lists_.statements);
  Failure first;
  for (bool isFirst = true; head.choice; isFirst = false) {
    at_ = head.length;
    line_ = {};
    if (ReadVerb(lists_.verbsOfHead[static_cast<std::size_t>(head.choice->code)])) return true;
    if (isFirst) first = failure_;
    head = lists_.heads.Match(text_, head.choice->caption.size());
  }
  failure_ = first;
  return false;
}

bool StatementReader::ReadVerb(const std::vector<const VerbItem*>& verbs) {
  line_.Kind = KindAction;
  const VerbItem* verb = verbs.front();
  std::span<const Piece> pieces = verb->pieces;
  if (!VerbTail(*verbs.back()).empty()) {
    if (!ReadPercent(verbs, verb)) return false;
    pieces = std::span(verb->pieces).subspan(VerbTail(*verb).empty() ? 1 : 2);
  }
  line_.Op = verb->code;
  for (const Piece piece : pieces) {
    if (!ReadPiece(*verb, piece)) return false;
  }
  return AtEnd();
}

// The amount, and the "% of" behind it by which verbs of one head differ.
bool StatementReader::ReadPercent(const std::vector<const VerbItem*>& verbs, const VerbItem*& verb) {
  if (!ReadAmount()) {
    failure_ = {failure_.at, "an amount", &lists_.statements, 0};
    return false;
  }
  if (!Rest().starts_with('%') && VerbTail(*verb).empty()) return true;
  std::size_t longest = 0;
  std::string expected;
  for (const VerbItem* const candidate : verbs) {
    const std::string_view tail = VerbTail(*candidate);
    if (tail.empty()) continue;
    expected += (expected.empty() ? "\"" : " or \"") + std::string(tail) + "\"";
    const std::size_t length = MatchLength(Rest(), tail);
    if (length <= longest) continue;
    longest = length;
    verb = candidate;
  }
  if (longest == 0) return Fail(at_, expected);
  at_ += longest;
  return true;
}

bool StatementReader::ReadPiece(const VerbItem& verb, Piece piece) {
  switch (piece) {
    case Piece::Amount:
      return ReadAmount();
    case Piece::Value:
      return ReadItem(lists_.values, "a value", line_.LeftCode, line_.LeftIndex);
    case Piece::Joint:
      return ReadWord(verb.joint);
    case Piece::Target:
      return ReadItem(lists_.targets, "a target", line_.RightCode, line_.RightIndex);
    case Piece::Outcome:
      return ReadCode(lists_.outcomes, "an outcome of the dice", line_.RightCode);
    case Piece::Winning:
      return ReadCode(lists_.winning, "a setting for winning bets", line_.RightCode);
    case Piece::Losing:
      return ReadCode(lists_.losing, "a setting for losing bets", line_.RightCode);
    case Piece::Words:
      return ReadWords();
    case Piece::Label:
      return ReadQuoted("a label in double quotes", false);
    case Piece::Flag:
      return ReadQuoted("a flag's name in double quotes", false);
    case Piece::StackName:
      return ReadQuoted("a name in double quotes", true);
    case Piece::StackNumber:
      return ReadIndex(IndexForm::Stack, line_.LeftIndex);
    case Piece::Mode:
      return ReadCode(lists_.modes, "a way to round", line_.LeftCode);
    case Piece::Truth:
      return ReadTruth();
    case Piece::Percent:
    case Piece::None:
      break;
  }
  return true;
}

bool StatementReader::ReadCode(const Captions& list, std::string_view what, std::int32_t& code) {
  const Captions::Found found = list.Match(Rest());
  if (!found.choice) return Fail(at_, std::string(what), &list);
  at_ += found.length;
  code = found.choice->code;
  return true;
}

bool StatementReader::ReadItem(const Captions& list, std::string_view what, std::int32_t& code,
                               std::int32_t& index) {
  return ReadCode(list, what, code) && ReadIndex(IndexFormOf(code), index);
}

bool StatementReader::ReadIndex(IndexForm form, std::int32_t& index) {
  switch (form) {
    case IndexForm::Stack:
      return ReadWholeNumber(kMostStackIndex, "a Chip-Stack's number from 0 to 99", index);
    case IndexForm::Average:
      return ReadWord("(") && ReadWholeNumber(kMostAverageIndex, "a number of rolls from 0 to 999", index) &&
             ReadWord("roll average") && ReadWord(")");
    case IndexForm::None:
      break;
  }
  return true;
}

bool StatementReader::ReadWholeNumber(int most, std::string_view what, std::int32_t& number) {
  const std::string_view rest = Rest();
  const auto [stop, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
  const bool goesOn = stop != rest.data() + rest.size() && (*stop == '.' || IsWordLetter(*stop));
  if (error != std::errc() || number < 0 || number > most || goesOn) return Fail(at_, std::string(what));
  at_ += static_cast<std::size_t>(stop - rest.data());
  return true;
}

bool StatementReader::ReadAmount() {
  const std::string_view rest = Rest();
  const std::string_view number = rest.substr(0, rest.find_first_not_of("0123456789,.-"));
  std::string plain(number);
  std::erase(plain, ',');
  const std::optional<Money> amount = ParseMoney(plain);
  const bool goesOn = number.size() < rest.size() && IsWordLetter(rest[number.size()]);
  if (!amount || goesOn || !IsGroupedRight(number))
    return Fail(at_, "an amount (with at most four decimals)");
  at_ += number.size();
  line_.Amount = *amount;
  return true;
}

bool StatementReader::ReadTruth() {
  std::int32_t truth = 0;
  if (!ReadCode(lists_.truths, "True or False", truth)) return false;
  line_.Amount = Dollars(truth);
  return true;
}

bool StatementReader::ReadQuoted(std::string_view what, bool mayBeEmpty) {
  if (!Rest().starts_with('"')) return Fail(at_, std::string(what));
  const std::size_t last = text_.rfind('"');
  if (last == at_) return Fail(text_.size(), "a closing double quote");
  if (!mayBeEmpty && TrimBlanks(text_.substr(at_ + 1, last - at_ - 1)).empty()) {
    return Fail(at_, std::string(what));
  }
  if (!SetName(at_ + 1, last)) return false;
  at_ = last + 1;
  return true;
}

bool StatementReader::ReadWords() {
  Rest();
  if (!SetName(at_, text_.size())) return false;
  at_ = text_.size();
  return true;
}

bool StatementReader::SetName(std::size_t from, std::size_t to) {
  const std::string_view name = TrimRight(text_.substr(from, to - from));
  if (CharacterCount(name) > kLongestName) {
    return Fail(from + CharacterStart(name, kLongestName), "the end of a name of at most 80 characters");
  }
  line_.Name = name;
  return true;
}

bool StatementReader::TakeWord(std::string_view word) {
  const std::size_t length = MatchLength(Rest(), word);
  if (length == 0) return false;
  at_ += length;
  return true;
}

bool StatementReader::ReadWord(std::string_view word) {
  return TakeWord(word) || Fail(at_, "\"" + std::string(word) + "\"");
}

bool StatementReader::AtEnd() {
  return Rest().empty() || Fail(at_, "the end of the line");
}

}  // namespace rollwick
