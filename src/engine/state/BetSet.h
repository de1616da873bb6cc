// Sets of bets and other slots: which stand, which are in action, which a total decides.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

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
  constexpr bool IsEmpty() const { return *this == IdSet(); }

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
  friend constexpr bool operator==(const IdSet&, const IdSet&) = default;

  // Calls `onId` with every id of the set, lowest first.
  template <class OnId>
  constexpr void ForEach(OnId onId) const {
    for (std::size_t word = 0; word < kWords; ++word) {
      for (std::uint64_t rest = words_[word]; rest != 0; rest &= rest - 1) {
        onId(static_cast<BetId>(word * 64) + std::countr_zero(rest));
      }
    }
  }

 private:
  static constexpr std::size_t Word(BetId id) { return static_cast<std::size_t>(id) >> 6; }

  std::array<std::uint64_t, kWords> words_{};
};

// The bets, and behind them whatever else has its turn among them.
using BetSet = IdSet<2>;
// Slots 0..200.
using SlotSet = IdSet<4>;

inline constexpr BetSet kAllBets = BetSet::Range(1, kBetCount);

}  // namespace rollwick
