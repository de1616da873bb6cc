// "Did you mean ...": the names nearest to a mistyped word.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace rollwick {

// Whether two words are the same but for the case of ASCII letters.
bool SameWord(std::string_view a, std::string_view b);

// Letters to add, drop, exchange or swap with their neighbour to make one of the other, in any case.
std::size_t EditDistance(std::string_view a, std::string_view b);

// Up to three of `names` within a few slips of `word` (any case), nearest first, as " Did you mean A, B or
// C?"; empty when none is near.
std::string DidYouMean(std::string_view word, std::span<const std::string> names);

}  // namespace rollwick
