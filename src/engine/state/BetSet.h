// Sets of bets and other slots: which stand, which are in action, which a total decides.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <utility>

#include "engine/state/Bets.h"

namespace rollwick {

// Ids 0 to 64 x kWords - 1.
template <std::size_t kWords>
class IdSet {
 public:
  constexpr bool Has(BetId id) const { return (words_[Word(id)] >> (id & 63) & 1) != 0; }
  constexpr void Set(BetId id, bool isIn = true) {
    const std::uint64_t bit = std::uint64_t{1} << (id & 63);
    words_[Word(id)] = isIn ? words_[Word(id)] | bit : words_[Word(id)] & ~bit;
  }
  // Ids 64 x `word` and up, the lowest in bit 0.
  constexpr std::uint64_t WordAt(std::size_t word) const { return words_[word]; }
  constexpr bool IsEmpty() const {
    std::uint64_t any = 0;
    for (const std::uint64_t word : words_) any |= word;
    return any == 0;
  }
  // As Set, for a set that lies in registers: without an index in memory.
  constexpr void Add(BetId id) {
    for (std::size_t word = 0; word < kWords; ++word) {
      words_[word] |= std::uint64_t{Word(id) == word} << (id & 63);
    }
  }
  // The lowest id, taken out. The set must not be empty.
  constexpr BetId TakeLowest() {
    for (std::size_t word = 0; word + 1 < kWords; ++word) {
      if (words_[word] != 0) return TakeLowestOf(word);
    }
    return TakeLowestOf(kWords - 1);
  }

  // The ids from `first` to `last`.
  static constexpr IdSet Range(BetId first, BetId last) {
    IdSet set;
    for (BetId id = first; id <= last; ++id) set.Set(id);
    return set;
  }

  constexpr IdSet& operator&=(const IdSet& other) {
    for (std::size_t word = 0; word < kWords; ++word) words_[word] &= other.words_[word];
    return *this;
  }
  constexpr IdSet& operator|=(const IdSet& other) {
    for (std::size_t word = 0; word < kWords; ++word) words_[word] |= other.words_[word];
    return *this;
  }
  // What `other` does not hold.
  constexpr IdSet& operator-=(const IdSet& other) {
    for (std::size_t word = 0; word < kWords; ++word) words_[word] &= ~other.words_[word];
    return *this;
  }
  friend constexpr IdSet operator&(IdSet a, const IdSet& b) { return a &= b; }
  friend constexpr IdSet operator|(IdSet a, const IdSet& b) { return a |= b; }
  friend constexpr IdSet operator-(IdSet a, const IdSet& b) { return a -= b; }
  friend constexpr bool operator==(const IdSet& a, const IdSet& b) {
    std::uint64_t different = 0;
    for (std::size_t word = 0; word < kWords; ++word) different |= a.words_[word] ^ b.words_[word];
    return different == 0;
  }

  // Calls `onId` with every id of the set, lowest first.
  template <class OnId>
  constexpr void ForEach(OnId onId) const {
    // Word by word without a loop: most words of most sets are empty.
    [&]<std::size_t... word>(std::index_sequence<word...>) {
      (ForEachOf(words_[word], static_cast<BetId>(word * 64), onId), ...);
    }
    (std::make_index_sequence<kWords>());
  }

 private:
  constexpr BetId TakeLowestOf(std::size_t word) {
    const int bit = std::countr_zero(words_[word]);
    words_[word] &= words_[word] - 1;
    return static_cast<BetId>(word * 64) + bit;
  }

  template <class OnId>
  static constexpr void ForEachOf(std::uint64_t word, BetId first, OnId& onId) {
    for (; word != 0; word &= word - 1) onId(first + std::countr_zero(word));
  }

  static constexpr std::size_t Word(BetId id) { return static_cast<std::size_t>(id) >> 6; }

  std::array<std::uint64_t, kWords> words_{};
};

// The bets, and behind them whatever else has its turn among them.
using BetSet = IdSet<2>;
// Slots 0..200.
using SlotSet = IdSet<4>;

inline constexpr BetSet kAllBets = BetSet::Range(1, kBetCount);

}  // namespace rollwick
