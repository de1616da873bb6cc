// What of the table bears on a request for a bet, beside the bet itself.
#pragma once

#include <array>
#include <cstdint>

#include "engine/state/AutoPlayTables.h"
#include "engine/state/Bets.h"

namespace rollwick {

struct Bearing {
  bool isPlain = true;  // nothing below
  bool hasContract = false;
  bool hasVig = false;
  bool seesPoint = false;
  bool isFollowed = false;  // by odds or a vig
  std::int8_t flat = 0;     // of odds
};

inline constexpr auto kBearings = [] {
  std::array<Bearing, kBetCount + 1> bearings{};
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    Bearing& bearing = bearings[static_cast<std::size_t>(bet)];
    bearing.hasContract =
        IsComeNumber(bet) || IsDontComeNumber(bet) || bet == Bet::PassLine || bet == Bet::DontPass;
    bearing.hasVig = IsBuy(bet) || IsLay(bet);
    bearing.seesPoint = bet >= Bet::PassLine && bet <= Bet::DontCome;
    bearing.isFollowed = bearing.hasContract || bearing.hasVig;
    if (IsOdds(bet)) bearing.flat = static_cast<std::int8_t>(FlatOf(bet));
    bearing.isPlain = !bearing.isFollowed && !bearing.seesPoint && bearing.flat == 0;
  }
  return bearings;
}();

inline const Bearing& BearingOn(BetId bet) {
  return kBearings[static_cast<std::size_t>(bet)];
}

// Which way the player wants bets of this kind to be fitted.
inline std::int32_t BiasOf(const AutoPlayTables& g, BetId bet) {
  if (IsLay(bet)) return g.LayBias;
  if (IsPlace(bet)) return g.PlaceBias;
  if (IsDoOdds(bet)) return g.DoBias;
  if (IsDontOdds(bet)) return g.DontBias;
  return BiasNearest;
}

}  // namespace rollwick
