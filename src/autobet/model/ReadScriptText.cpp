// Reading the text form: each line is matched against the catalogue's captions, the longest first, any case.
#include <algorithm>
#include <charconv>
#include <unordered_set>

#include "autobet/model/Catalogue.h"
#include "autobet/model/Codes.h"
#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "base/CodePage.h"
#include "base/Nearest.h"

namespace rollwick {

namespace {

constexpr std::size_t kMostErrors = 100;
constexpr std::size_t kLongestEcho = 60;         // characters of the text an error repeats
constexpr std::size_t kLongestStatement = 2000;  // bytes, far above any name and caption
constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool IsWordLetter(char c) {
  return IsDigit(c) || (Lower(c) >= 'a' && Lower(c) <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
  return std::min(text.find_first_not_of(kBlanks, at), text.size());
}

std::string_view WithoutBlanksAtRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// How much of `text` the caption takes, 0 if the text does not begin with it. A blank of the caption stands
// for any run of blanks, and a word ends where the caption ends.
std::size_t MatchLength(std::string_view text, std::string_view caption) {
  std::size_t at = 0;
  for (const char c : caption) {
    if (at >= text.size()) return 0;
    if (c == ' ') {
      if (!IsBlank(text[at])) return 0;
      at = SkipBlanks(text, at);
    } else if (Lower(text[at++]) != Lower(c)) {
      return 0;
    }
  }
  const bool cutsWord = at < text.size() && IsWordLetter(text[at]) && IsWordLetter(caption.back());
  return cutsWord ? 0 : at;
}

// The captions one place of a line may hold.
class Captions {
 public:
  struct Choice {
    std::string caption;
    std::int32_t code;
    char First() const { return Lower(caption.front()); }
  };
  struct Found {
    const Choice* choice = nullptr;
    std::size_t length = 0;
  };

  void Add(std::string_view caption, std::int32_t code) { choices_.push_back({std::string(caption), code}); }
  void Add(std::span<const CatalogueEntry> entries) {
    for (const CatalogueEntry& entry : entries) Add(entry.caption, entry.code);
  }
  void Sort() {
    std::ranges::sort(choices_, [](const Choice& a, const Choice& b) {
      return a.First() != b.First() ? a.First() < b.First() : a.caption.size() > b.caption.size();
    });
  }

  // The longest caption, shorter than `below`, that `text` begins with.
  Found Match(std::string_view text, std::size_t below = std::string_view::npos) const {
    if (text.empty()) return {};
    for (const Choice& choice : std::ranges::equal_range(choices_, Lower(text.front()), {},
                                                         [](const Choice& c) { return c.First(); })) {
      if (choice.caption.size() >= below) continue;
      if (const std::size_t length = MatchLength(text, choice.caption)) return {&choice, length};
    }
    return {};
  }

  // The caption nearest to the first words of `text`; empty when none is near.
  std::string_view Nearest(std::string_view text) const;

 private:
  std::vector<Choice> choices_;
};

std::string_view Captions::Nearest(std::string_view text) const {
  std::string_view nearest;
  std::size_t least = std::string_view::npos;
  for (const Choice& choice : choices_) {
    // A start line is as near as its words: its dots are what is often forgotten.
    const std::string_view words = std::string_view(choice.caption).substr(0, choice.caption.find(" ."));
    const std::size_t length = words.size();
    const std::size_t furthest = std::min(least, (length + 2) / 3);
    const std::size_t longest = std::min(text.size(), length + furthest);
    for (std::size_t end = std::max<std::size_t>(length - furthest, 1); end <= longest; ++end) {
      if (end < text.size() && !IsBlank(text[end])) continue;
      const std::size_t distance = EditDistance(text.substr(0, end), words);
      if (distance > furthest || distance > least) continue;
      if (distance == least && length <= nearest.size()) continue;
      least = distance;
      nearest = choice.caption;
    }
  }
  return nearest;
}

// All lists a reader looks into. Verbs that share their words before an amount share one head.
struct Lists {
  Lists();

  std::vector<std::vector<const VerbItem*>> verbsOfHead;
  Captions left, right, heads, values, targets, outcomes, numbers, modes, winning, losing, truths;
  Captions operators[kOperatorLists];
  Captions statements;  // all a line may begin with, to find the nearest

 private:
  void AddVerb(const VerbItem& verb);
};

Lists::Lists() {
  for (const LeftItem& item : LeftItems()) {
    left.Add(item.caption, item.code);
    statements.Add(item.caption, item.code);
  }
  for (const VerbItem& verb : VerbItems()) AddVerb(verb);
  statements.Add(StartLines());
  right.Add(RightItems());
  values.Add(ValueItems());
  targets.Add(TargetItems());
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    values.Add(BetName(bet), bet);
    targets.Add(BetName(bet), bet);
  }
  for (const std::int32_t code : ResetRollTargets()) outcomes.Add(ResetRollCaption(code), code);
  for (int list = 0; list < kOperatorLists; ++list) {
    const auto words = static_cast<OperatorList>(list);
    for (const Operator& op : OperatorsOf(words)) operators[list].Add(OperatorCaption(op, words), op.code);
    operators[list].Sort();
  }
  numbers.Add(NumberList());
  modes.Add(RoundModes());
  winning.Add(WinningSettings());
  losing.Add(LosingSettings());
  truths.Add("True", 1);
  truths.Add("False", 0);
  for (Captions* const list :
       {&left, &right, &heads, &values, &targets, &outcomes, &numbers, &modes, &winning, &losing, &truths}) {
    list->Sort();
  }
}

void Lists::AddVerb(const VerbItem& verb) {
  statements.Add(verb.caption, verb.code);
  const auto shared = std::ranges::find_if(verbsOfHead, [&](const std::vector<const VerbItem*>& verbs) {
    return VerbHead(*verbs.front()) == VerbHead(verb);
  });
  if (shared != verbsOfHead.end()) {
    shared->push_back(&verb);
    return;
  }
  heads.Add(VerbHead(verb), static_cast<std::int32_t>(verbsOfHead.size()));
  verbsOfHead.push_back({&verb});
}

// Where reading stopped, and what could have stood there.
struct Failure {
  std::size_t at = 0;
  std::string expected;
  const Captions* candidates = nullptr;
  std::size_t candidatesAt = 0;
};

std::size_t CharacterStart(std::string_view text, std::size_t characters) {
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    const bool startsCharacter = (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80;
    if (startsCharacter && characters-- == 0) break;
  }
  return at;
}

std::string Echo(std::string_view text) {
  const std::size_t length = CharacterStart(text, kLongestEcho);
  std::string echo(text.substr(0, length));
  std::ranges::replace_if(
      echo, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return '"' + echo + (length < text.size() ? "...\"" : "\"");
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

// Reads one condition or action, from left to right; each step returns false when the text is not as
// expected.
class StatementReader {
 public:
  StatementReader(const Lists& lists, std::string_view text) : lists_(lists), text_(text) {}

  bool Read();
  const ScriptLine& Line() const { return line_; }
  const Failure& WhatFailed() const { return failure_; }

 private:
  bool ReadCondition(const Captions::Found& left);
  bool ReadComparison(OperatorList list);
  bool ReadOperand(const Operator& op);
  bool ReadCount(std::string_view unit);
  bool ReadAction();
  bool ReadVerb(const std::vector<const VerbItem*>& verbs);
  bool ReadPercent(const std::vector<const VerbItem*>& verbs, const VerbItem*& verb);
  bool ReadPiece(const VerbItem& verb, Piece piece);

  bool ReadCode(const Captions& list, std::string_view what, std::int32_t& code);
  bool ReadItem(const Captions& list, std::string_view what, std::int32_t& code, std::int32_t& index);
  bool ReadIndex(IndexForm form, std::int32_t& index);
  bool ReadWholeNumber(int most, std::string_view what, std::int32_t& number);
  bool ReadAmount();
  bool ReadTruth();
  bool ReadQuoted(std::string_view what, bool mayBeEmpty);
  bool ReadWords();
  bool SetName(std::size_t from, std::size_t to);
  bool ReadWord(std::string_view word);
  bool TakeWord(std::string_view word);
  bool AtEnd();

  bool Fail(std::size_t at, std::string expected, const Captions* candidates = nullptr) {
    failure_ = {at, std::move(expected), candidates, at};
    return false;
  }
  std::string_view Rest() {
    at_ = SkipBlanks(text_, at_);
    return text_.substr(at_);
  }

  const Lists& lists_;
  std::string_view text_;
  std::size_t at_ = 0;
  ScriptLine line_;
  Failure failure_;
};

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

// The kind of a start line; 0 for other lines. Its three dots stand with or without blanks or as one
// character. They may be missing where the line cannot be a label.
std::int32_t StartKind(std::string_view body, bool mayBeLabel) {
  constexpr std::string_view kEllipsis = "\xE2\x80\xA6";
  const bool hasEllipsis = body.ends_with(kEllipsis);
  if (hasEllipsis) body.remove_suffix(kEllipsis.size());
  const std::string_view words = body.substr(0, body.find_last_not_of(". \t") + 1);
  const std::string_view rest = body.substr(words.size());
  const auto dots = std::ranges::count(rest, '.') + (hasEllipsis ? 3 : 0);
  if (dots != 3 && (dots != 0 || mayBeLabel)) return 0;
  for (const CatalogueEntry& start : StartLines()) {
    const std::string_view caption = start.caption.substr(0, start.caption.find(" ."));
    if (!words.empty() && MatchLength(words, caption) == words.size()) return start.code;
  }
  return 0;
}

// The first character without a place in a script, as its bytes; empty when there is none.
std::string_view FindForeign(std::string_view text) {
  if (HasPlaceInCodePage(text) && text.find('\0') == text.npos) return {};
  for (std::size_t at = 0; at < text.size();) {
    std::size_t length = 1;
    while (length < 4 && at + length < text.size() &&
           (static_cast<unsigned char>(text[at + length]) & 0xC0) == 0x80) {
      ++length;
    }
    const std::string_view character = text.substr(at, length);
    if (!HasPlaceInCodePage(character) || character == std::string_view("\0", 1)) return character;
    at += length;
  }
  return text;
}

// The number of a character of UTF-8, 0 when its bytes are none.
std::uint32_t CharacterNumber(std::string_view bytes) {
  static constexpr std::uint32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(bytes.front());
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xC0 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length != bytes.size() || lead > 0xF4) return 0;
  std::uint32_t number = length == 1 ? lead : lead & (0xFFU >> (length + 1));
  for (const char c : bytes.substr(1)) number = number << 6 | (static_cast<unsigned char>(c) & 0x3FU);
  const bool isSurrogate = number >= 0xD800 && number < 0xE000;
  return number < kLeast[length - 1] || number > 0x10FFFF || isSurrogate ? 0 : number;
}

std::string ForeignText(std::string_view character) {
  if (character == std::string_view("\0", 1)) return "A zero byte cannot stand in a script.";
  const std::uint32_t number = CharacterNumber(character);
  if (number == 0) return "This byte is no UTF-8.";
  char digits[8];
  const auto end = std::to_chars(digits, digits + sizeof digits, number, 16).ptr;
  std::string hex(digits, end);
  std::ranges::transform(hex, hex.begin(), [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
  hex.insert(0, hex.size() < 4 ? 4 - hex.size() : 0, '0');
  return "The character \"" + std::string(character) + "\" (U+" + hex +
         ") has no place in a script: it is not in code page 1252.";
}

ScriptLine LabelLine(std::string_view label) {
  ScriptLine line;
  line.Kind = KindLabel;
  line.Name = line.Text = label;
  return line;
}

class ScriptReader {
 public:
  explicit ScriptReader(std::string_view text) : rest_(text) {
    if (rest_.starts_with("\xEF\xBB\xBF")) rest_.remove_prefix(3);  // written before UTF-8 by some editors
  }

  ParsedScript Read() {
    while (!rest_.empty() && script_.errors.size() < kMostErrors) {
      ++number_;
      text_ = TakeLine();
      ReadLine();
    }
    TurnIntoLabels();
    return std::move(script_);
  }

 private:
  std::string_view TakeLine() {
    const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
    const std::string_view line = rest_.substr(0, end);
    const bool isPair = rest_.substr(end).starts_with("\r\n");
    rest_.remove_prefix(std::min(end + (isPair ? 2 : 1), rest_.size()));
    return line;
  }

  void ReadLine();
  void ReadStatement(std::string_view body, std::size_t indent);
  void AddLabel(std::string_view label);
  void TurnIntoLabels();

  void AddLine(ScriptLine line) {
    if (line.Kind != KindComment) line.Text = LineText(line);
    script_.lines.push_back(std::move(line));
    script_.sourceLines.push_back(number_);
  }
  void AddError(std::size_t at, std::string message) {
    const auto column = static_cast<int>(CharacterCount(text_.substr(0, at))) + 1;
    script_.errors.push_back({number_, column, std::move(message)});
  }

  const Lists lists_;
  std::string_view rest_;  // of the text
  std::string_view text_;  // the line
  int number_ = 0;
  ParsedScript script_;
  struct Unindented {
    std::size_t place;  // of the script's lines
    std::string_view body;
  };
  std::vector<Unindented> unindented_;  // statements that are labels if a jump says so
};

void ScriptReader::ReadLine() {
  if (const std::string_view foreign = FindForeign(text_); !foreign.empty()) {
    return AddError(static_cast<std::size_t>(foreign.data() - text_.data()), ForeignText(foreign));
  }
  const std::size_t indent = SkipBlanks(text_, 0);
  const std::string_view body = WithoutBlanksAtRight(text_.substr(indent));
  if (body.empty()) return;
  ScriptLine line;
  if (body.starts_with('\'')) {
    line.Kind = KindComment;
    line.Text = text_.substr(indent);
    return AddLine(std::move(line));
  }
  if (body.size() > kLongestStatement) {
    return AddError(indent + kLongestStatement, "This line is too long; only a comment may be so long.");
  }
  line.Kind = StartKind(body, indent == 0);
  if (line.Kind != 0) return AddLine(std::move(line));
  ReadStatement(body, indent);
}

void ScriptReader::ReadStatement(std::string_view body, std::size_t indent) {
  StatementReader reader(lists_, body);
  if (reader.Read()) {
    if (indent == 0) unindented_.push_back({script_.lines.size(), body});
    return AddLine(reader.Line());
  }
  if (indent == 0) return AddLabel(body);
  AddError(indent + reader.WhatFailed().at, FailureText(body, reader.WhatFailed()));
}

void ScriptReader::AddLabel(std::string_view label) {
  if (CharacterCount(label) > kLongestName) {
    return AddError(CharacterStart(label, kLongestName), "A label has at most 80 characters.");
  }
  AddLine(LabelLine(label));
}

bool IsJump(const ScriptLine& line) {
  return line.Kind == KindAction && (line.Op == Verb::GoTo || line.Op == Verb::Gosub);
}

// A line without indent that reads as a statement is a label all the same when a jump leads to it.
void ScriptReader::TurnIntoLabels() {
  if (unindented_.empty()) return;
  std::unordered_set<std::string> jumps;
  for (const ScriptLine& line : script_.lines) {
    if (IsJump(line)) jumps.insert(LowerTrimmed(line.Name));
  }
  for (const auto& [place, body] : unindented_) {
    if (jumps.contains(LowerTrimmed(body))) script_.lines[place] = LabelLine(body);
  }
}

}  // namespace

ParsedScript ParseScriptText(std::string_view text) {
  return ScriptReader(text).Read();
}

}  // namespace rollwick
