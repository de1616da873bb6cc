// The keyboard's way over the table.
#include "layout/SpotCursor.h"

#include <gtest/gtest.h>

#include <set>

namespace rollwick {
namespace {

TEST(NextSpot, Steps) {
  using enum CursorKey;
  const struct Row {
    const char* name;
    bool hopBets;
    int from;
    CursorKey key;
    BetId to;
  } rows[] = {
      {"to the next number", false, Bet::Lay4, Right, Bet::Lay5},
      {"the first number", false, Bet::Come4, Left, Bet::Come4},
      {"the last number", false, Bet::Lay10, Right, Bet::Lay10},
      {"a row down", false, Bet::Lay6, Down, Bet::DontCome6},
      {"from Place to Buy in the same box", false, Bet::Place8, Down, Bet::Buy8},
      {"and back", false, Bet::Buy8, Up, Bet::Place8},
      {"the top row", false, Bet::Lay9, Up, Bet::Lay9},
      {"the last row", false, Bet::Buy9, Down, Bet::Buy9},
      {"from the odds to the flat bet in one box", false, Bet::DontPassOdds, Right, Bet::DontPass},
      {"and to the odds", false, Bet::DontPass, Left, Bet::DontPassOdds},
      {"nearest below", false, Bet::PassLine, Down, Bet::PassLineOdds},
      {"up to a box in which nothing is bought", false, Bet::Come, Up, Bet::Place8},
      {"propositions", false, Bet::Hard4, Right, Bet::Hard6},
      {"hop bets", true, Bet::Hop13, Right, Bet::Hop15},
      {"Chip-Stacks", false, SlotChipStack + 1, Up, SlotChipStack + 2},
      {"nothing that way", false, SlotChipStack + 4, Left, SlotChipStack + 4},
      {"what is right of it is more above it", false, Bet::Horn, Right, Bet::Horn},
      {"no spot yet", false, SpotNone, Up, Bet::PassLine},
      {"a hop bet whose panel was taken away", false, Bet::Hop13, Down, Bet::PassLine},
      {"Tab to the next id", false, Bet::Lay10, Tab, Bet::DontCome4},
      {"Tab over the panel not on view", false, Bet::World, Tab, SlotChipStack + 1},
      {"Tab over the propositions", true, Bet::Big8, Tab, Bet::CAndE},
      {"Tab over Horn", true, Bet::CAndE, Tab, Bet::World},
      {"Tab round", false, SlotChipStack + 4, Tab, Bet::Lay4},
      {"back round", false, Bet::Lay4, BackTab, SlotChipStack + 4},
      {"back from a Chip-Stack", true, SlotChipStack + 1, BackTab, Bet::Hop55},
      {"Tab from no spot", false, SpotNone, Tab, Bet::Lay4},
  };
  GameTables g{};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    g.DisplayHopBets = row.hopBets;
    EXPECT_EQ(NextSpot(g, row.from, row.key), row.to);
  }
  g.DisplayHopBets = false;
  g.BetAmount[Bet::Buy8] = Dollars(5);
  EXPECT_EQ(NextSpot(g, Bet::Come, CursorKey::Up), Bet::Buy8) << "the box with money answers";
}

TEST(NextSpot, StaysOnViewAndTabMeetsAll) {
  GameTables g{};
  g.VisibleChipStack = {99, 3, 0, 40};
  for (const bool hopBets : {false, true}) {
    g.DisplayHopBets = hopBets;
    for (int from = -1; from <= kSlotCount; ++from)
      for (int key = 0; key < 6; ++key)
        EXPECT_TRUE(IsOnView(g, NextSpot(g, from, static_cast<CursorKey>(key)))) << from;
    for (const CursorKey key : {CursorKey::Tab, CursorKey::BackTab}) {
      std::set<BetId> met;
      for (BetId spot = SpotNone; met.insert(spot = NextSpot(g, spot, key)).second;) {
      }
      EXPECT_EQ(met.size(), SpotsOnView(g).size());
      EXPECT_EQ(met.size(), hopBets ? 76u : 68u);
    }
  }
}

}  // namespace
}  // namespace rollwick
