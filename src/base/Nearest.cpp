// Edit distance between short words.
#include "base/Nearest.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace rollwick {
namespace {

constexpr std::size_t kLongestWord = 60;

char Lower(char letter) {
  if (letter == '_') return ' ';
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

std::size_t EditDistance(std::string_view a, std::string_view b) {
  const auto same = [&](std::size_t i, std::size_t j) { return Lower(a[i - 1]) == Lower(b[j - 1]); };
  std::vector<std::size_t> beforeLast, last, row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    beforeLast = last;
    last = row;
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same(i, j) ? 0 : 1)});
      if (i > 1 && j > 1 && same(i - 1, j) && same(i, j - 1))
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row.back();
}

bool SameWord(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string DidYouMean(std::string_view word, std::span<const std::string> names) {
  if (word.empty() || word.size() > kLongestWord) return {};
  const std::size_t furthest = (word.size() + 2) / 3;
  std::vector<std::pair<std::size_t, std::string_view>> near;
  for (const std::string& name : names) {
    const std::size_t distance = EditDistance(word, name);
    if (distance <= furthest) near.emplace_back(distance, name);
  }
  std::ranges::stable_sort(near, {}, [](const auto& entry) { return entry.first; });
  if (near.empty()) return {};

  const std::size_t count = std::min<std::size_t>(near.size(), 3);
  std::string text = " Did you mean ";
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) text += i + 1 == count ? " or " : ", ";
    text += near[i].second;
  }
  return text + "?";
}

}  // namespace rollwick
