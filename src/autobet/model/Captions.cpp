#include "autobet/model/Captions.h"

#include <algorithm>

#include "base/Nearest.h"
#include "engine/state/Bets.h"

namespace rollwick {

namespace {

constexpr std::string_view kBlanks = " \t";

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool IsWordLetter(char c) {
  return (c >= '0' && c <= '9') || (Lower(c) >= 'a' && Lower(c) <= 'z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
  return std::min(text.find_first_not_of(kBlanks, at), text.size());
}

std::string_view WithoutBlanksAtRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

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

char Captions::Choice::First() const {
  return Lower(caption.front());
}

void Captions::Sort() {
  std::ranges::sort(choices_, [](const Choice& a, const Choice& b) {
    return a.First() != b.First() ? a.First() < b.First() : a.caption.size() > b.caption.size();
  });
}

Captions::Found Captions::Match(std::string_view text, std::size_t below) const {
  if (text.empty()) return {};
  const char first = Lower(text.front());
  auto choice = std::ranges::lower_bound(choices_, first, {}, [](const Choice& c) { return c.First(); });
  for (; choice != choices_.end() && choice->First() == first; ++choice) {
    if (choice->caption.size() >= below) continue;
    if (const std::size_t length = MatchLength(text, choice->caption)) return {&*choice, length};
  }
  return {};
}

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

}  // namespace rollwick
