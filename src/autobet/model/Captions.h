// What may stand in the text of a script line: the catalogue's captions, found the longest first, in any
// case.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/model/Catalogue.h"

namespace rollwick {

constexpr bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
// Letters, digits and everything beyond ASCII: what a word is made of.
bool IsWordLetter(char c);
// The place behind the blanks at `at`.
std::size_t SkipBlanks(std::string_view text, std::size_t at);
std::string_view WithoutBlanksAtRight(std::string_view text);

// How much of `text` the caption takes, 0 if the text does not begin with it. A blank of the caption stands
// for any run of blanks, and a word ends where the caption ends.
std::size_t MatchLength(std::string_view text, std::string_view caption);

// The captions one place of a line may hold.
class Captions {
 public:
  struct Choice {
    std::string caption;
    std::int32_t code;
    char First() const;
  };
  struct Found {
    const Choice* choice = nullptr;
    std::size_t length = 0;
  };

  void Add(std::string_view caption, std::int32_t code) { choices_.push_back({std::string(caption), code}); }
  void Add(std::span<const CatalogueEntry> entries) {
    for (const CatalogueEntry& entry : entries) Add(entry.caption, entry.code);
  }
  // Behind the last Add, before the first look.
  void Sort();

  // The longest caption, shorter than `below`, that `text` begins with.
  Found Match(std::string_view text, std::size_t below = std::string_view::npos) const;

  // The caption nearest to the first words of `text`; empty when none is near.
  std::string_view Nearest(std::string_view text) const;

 private:
  std::vector<Choice> choices_;
};

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

}  // namespace rollwick
