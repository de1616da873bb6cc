// The lists as they are offered, and that words and codes mean the same.
#include "autobet/model/Catalogue.h"

#include <gtest/gtest.h>

#include <set>

#include "autobet/model/Codes.h"
#include "autobet/model/Statements.h"

namespace rollwick {
namespace {

TEST(Catalogue, OffersTheOperatorsOfEachItem) {
  using Codes = std::vector<std::int32_t>;
  const Codes compare = {11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 26, 27};
  const auto with = [&](Codes before, const Codes& after = {}) {
    before.insert(before.end(), compare.begin(), compare.end());
    before.insert(before.end(), after.begin(), after.end());
    return before;
  };
  struct Row {
    const char* name;
    std::int32_t left;
    Codes ops;
  };
  const Row rows[] = {
      {"bankroll", Item::Bankroll, compare},
      {"all stacks", Item::AllStacks, compare},
      {"any Place bet", 1007, with({1, 2, 61, 60, 3, 4, 63, 62})},
      {"Buy on the point", Item::PointBuy, with({1, 2, 61, 60, 3, 4, 63, 62})},
      {"all bets", 1101, with({1, 2, 3, 4})},
      {"total bets", 1201, with({1, 2, 3, 4}, {23, 24, 25})},
      {"true flags", Item::TrueFlags, {23, 24, 25}},
      {"an outcome", 2089, {5, 6, 7, 8, 9, 10}},
      {"a flag", Item::Flag, {}},
      {"the point", Item::PointIsOn, {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Codes offered;
    for (const Operator& op : OperatorsOf(FindLeftItem(row.left)->operators)) offered.push_back(op.code);
    EXPECT_EQ(offered, row.ops);
  }
}

template <typename Rows>
void ExpectDistinct(const char* name, const Rows& rows, std::size_t count) {
  SCOPED_TRACE(name);
  std::set<std::int32_t> codes;
  std::set<std::string_view> captions;
  for (const auto& row : rows) {
    codes.insert(row.code);
    captions.insert(row.caption);
  }
  EXPECT_EQ(codes.size(), count);
  EXPECT_EQ(captions.size(), count);
  EXPECT_EQ(rows.size(), count);
}

TEST(Catalogue, ListsAreWhole) {
  ExpectDistinct("left items", LeftItems(), 67 + 88);
  ExpectDistinct("right items", RightItems(), 37);
  ExpectDistinct("verbs", VerbItems(), 45 + 48);
  ExpectDistinct("values", ValueItems(), 33);
  ExpectDistinct("targets", TargetItems(), 18);
  ExpectDistinct("numbers", NumberList(), 15);
  EXPECT_EQ(ResetRollTargets().size(), 89U);
}

// "the number 4, 5, or 6" is true of 4, 5 and 6.
TEST(Catalogue, NumberListMeansWhatItSays) {
  for (const CatalogueEntry& entry : NumberList()) {
    if (entry.code == Compare::AnyNumber) continue;
    for (const int number : kBoxNumbers) {
      const std::string words = std::string(entry.caption) + ",";
      const std::string digits = " " + std::to_string(number);
      const bool named = words.find(digits + ",") != words.npos || words.find(digits + " ") != words.npos;
      EXPECT_EQ(IsInNumberList(entry.code, number), named) << entry.caption << " and " << number;
    }
  }
}

// The groups' words name the bets they hold.
TEST(Catalogue, GroupsHoldTheBetsTheyName) {
  for (int group = 1; group < 8; ++group) {
    std::string any(FindLeftItem(Item::FirstAny + group)->caption);
    const std::string kind = any.substr(4, any.size() - 8);  // of "Any Don't Come bet"
    const bool isOdds = kind.ends_with(" Odds");
    for (BetId bet = 1; bet <= Bet::Buy10; ++bet) {
      const std::string name = isOdds
                                   ? kind.substr(0, kind.size() - 4) + std::to_string(NumberOf(bet)) + " Odds"
                                   : kind + " " + std::to_string(NumberOf(bet));
      const bool named = BetName(bet) == name;
      for (const std::int32_t first : {Item::FirstAny, Item::FirstAll, Item::FirstTotal}) {
        EXPECT_EQ(GroupOfItem(first + group)->Holds(bet), named) << kind << " and " << name;
      }
      // Among the values Buy stands behind the inside and outside Place bets.
      const std::int32_t value = group == 7 ? Value::LastGroup : Value::FirstGroup + group;
      EXPECT_EQ(ValueCaption(value), "total " + kind + " bets");
      EXPECT_EQ(TargetCaption(value), "all " + kind + " bets");
      EXPECT_EQ(GroupOfValue(value)->Holds(bet), named) << kind << " and " << name;
    }
  }
}

TEST(Statements, ListNamesEveryForm) {
  const std::string list = StatementList();
  for (const char* const words :
       {"- `    Do this . . .`", "- `Average bankroll ( N roll average )`", "- `are not less than ITEM`",
        "- `has won less than AMOUNT times`", "- `number 2 and 12`",
        "- `Bet AMOUNT % of the last VALUE on TARGET`", "- `Name Chip-Stack ref # N as \"NAME\"`",
        "- `Round MODE AMOUNT on TARGET`", "- `Reset rolls on OUTCOME`",
        "- `ATM - deposit AMOUNT % of VALUE in the ATM`", "- `Set flag \"NAME\" to True/False`",
        "- `Don't Come 10 Odds`", "- `total outside Place bets`", "- `Press Double`",
        "- `Same Bet plus 1 Unit`"}) {
    EXPECT_NE(list.find(words + std::string("\n")), std::string::npos) << words;
  }
}

}  // namespace
}  // namespace rollwick
