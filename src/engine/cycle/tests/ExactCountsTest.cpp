// Every sequence of dice, with money on every spot: each roll must pay each bet what a player reads off the
// layout. All spots stand on one table and one walk shares the beginnings of its sequences, so that 46,656
// sequences cost 48,000 rolls; the counters of the last roll tell the bets apart.
#include <gtest/gtest.h>

#include <charconv>
#include <climits>
#include <map>
#include <string_view>

#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

constexpr int kNoDecision = INT_MIN;

// What a stake nets on the dice, on the come-out and with a point on: totals ("6:14"), pairs ("3-3:9"), all
// other dice ("*:-1"), the point itself ("P:10"). Dice without an entry decide nothing; an entry of 0 gives
// the stake back.
struct Spot {
  const char* name;
  BetId bet;
  int stake;
  const char* comeOut;
  const char* pointOn;
};

constexpr const char* kSame = nullptr;  // decided alike whether a point is on or not
constexpr const char* kOff = "";

constexpr Spot kLines[] = {
    {"Pass Line", Bet::PassLine, 10, "7:10 11:10 2:-10 3:-10 12:-10", "P:10 7:-10"},
    {"Don't Pass", Bet::DontPass, 10, "2:10 3:10 7:-10 11:-10", "7:10 P:-10"},
};

constexpr Spot kBar2[] = {
    {"Don't Pass, bar 2", Bet::DontPass, 10, "12:10 3:10 7:-10 11:-10", "7:10 P:-10"},
};

constexpr Spot kBoxes[] = {
    {"Come", Bet::Come, 10, kOff, "7:10 11:10 2:-10 3:-10 12:-10"},
    {"Don't Come", Bet::DontCome, 10, kOff, "2:10 3:10 7:-10 11:-10"},
};

constexpr Spot kBar2Box[] = {{"Don't Come, bar 2", Bet::DontCome, 10, kOff, "12:10 3:10 7:-10 11:-10"}};

constexpr Spot kNumbers[] = {
    {"Come 4", Bet::Come4, 10, kSame, "4:10 7:-10"},
    {"Come 5", Bet::Come5, 10, kSame, "5:10 7:-10"},
    {"Come 6", Bet::Come6, 10, kSame, "6:10 7:-10"},
    {"Come 8", Bet::Come8, 10, kSame, "8:10 7:-10"},
    {"Come 9", Bet::Come9, 10, kSame, "9:10 7:-10"},
    {"Come 10", Bet::Come10, 10, kSame, "10:10 7:-10"},
    {"Don't Come 4", Bet::DontCome4, 10, kSame, "7:10 4:-10"},
    {"Don't Come 5", Bet::DontCome5, 10, kSame, "7:10 5:-10"},
    {"Don't Come 6", Bet::DontCome6, 10, kSame, "7:10 6:-10"},
    {"Don't Come 8", Bet::DontCome8, 10, kSame, "7:10 8:-10"},
    {"Don't Come 9", Bet::DontCome9, 10, kSame, "7:10 9:-10"},
    {"Don't Come 10", Bet::DontCome10, 10, kSame, "7:10 10:-10"},
};

// Come odds are given back when their flat bet is decided on a come-out.
constexpr Spot kNumberOdds[] = {
    {"Come 4 Odds", Bet::Come4Odds, 10, "4:0 7:0", "4:20 7:-10"},
    {"Come 5 Odds", Bet::Come5Odds, 10, "5:0 7:0", "5:15 7:-10"},
    {"Come 6 Odds", Bet::Come6Odds, 10, "6:0 7:0", "6:12 7:-10"},
    {"Come 8 Odds", Bet::Come8Odds, 10, "8:0 7:0", "8:12 7:-10"},
    {"Come 9 Odds", Bet::Come9Odds, 10, "9:0 7:0", "9:15 7:-10"},
    {"Come 10 Odds", Bet::Come10Odds, 10, "10:0 7:0", "10:20 7:-10"},
    {"Don't Come 4 Odds", Bet::DontCome4Odds, 20, kSame, "7:10 4:-20"},
    {"Don't Come 5 Odds", Bet::DontCome5Odds, 15, kSame, "7:10 5:-15"},
    {"Don't Come 6 Odds", Bet::DontCome6Odds, 12, kSame, "7:10 6:-12"},
    {"Don't Come 8 Odds", Bet::DontCome8Odds, 12, kSame, "7:10 8:-12"},
    {"Don't Come 9 Odds", Bet::DontCome9Odds, 15, kSame, "7:10 9:-15"},
    {"Don't Come 10 Odds", Bet::DontCome10Odds, 20, kSame, "7:10 10:-20"},
};

// By point, in table order: first the odds taken, then the odds laid.
constexpr Spot kLineOdds[6][2] = {
    {{"Pass Line Odds on 4", Bet::PassLineOdds, 10, kOff, "4:20 7:-10"},
     {"Don't Pass Odds on 4", Bet::DontPassOdds, 20, kOff, "7:10 4:-20"}},
    {{"Pass Line Odds on 5", Bet::PassLineOdds, 10, kOff, "5:15 7:-10"},
     {"Don't Pass Odds on 5", Bet::DontPassOdds, 15, kOff, "7:10 5:-15"}},
    {{"Pass Line Odds on 6", Bet::PassLineOdds, 10, kOff, "6:12 7:-10"},
     {"Don't Pass Odds on 6", Bet::DontPassOdds, 12, kOff, "7:10 6:-12"}},
    {{"Pass Line Odds on 8", Bet::PassLineOdds, 10, kOff, "8:12 7:-10"},
     {"Don't Pass Odds on 8", Bet::DontPassOdds, 12, kOff, "7:10 8:-12"}},
    {{"Pass Line Odds on 9", Bet::PassLineOdds, 10, kOff, "9:15 7:-10"},
     {"Don't Pass Odds on 9", Bet::DontPassOdds, 15, kOff, "7:10 9:-15"}},
    {{"Pass Line Odds on 10", Bet::PassLineOdds, 10, kOff, "10:20 7:-10"},
     {"Don't Pass Odds on 10", Bet::DontPassOdds, 20, kOff, "7:10 10:-20"}},
};

// Vig of $1 on each Lay and Buy bet, charged win or lose.
constexpr Spot kOthers[] = {
    {"Lay 4", Bet::Lay4, 40, kSame, "7:19 4:-41"},
    {"Lay 5", Bet::Lay5, 30, kSame, "7:19 5:-31"},
    {"Lay 6", Bet::Lay6, 24, kSame, "7:19 6:-25"},
    {"Lay 8", Bet::Lay8, 24, kSame, "7:19 8:-25"},
    {"Lay 9", Bet::Lay9, 30, kSame, "7:19 9:-31"},
    {"Lay 10", Bet::Lay10, 40, kSame, "7:19 10:-41"},
    {"Place 4", Bet::Place4, 10, kOff, "4:18 7:-10"},
    {"Place 5", Bet::Place5, 10, kOff, "5:14 7:-10"},
    {"Place 6", Bet::Place6, 12, kOff, "6:14 7:-12"},
    {"Place 8", Bet::Place8, 12, kOff, "8:14 7:-12"},
    {"Place 9", Bet::Place9, 10, kOff, "9:14 7:-10"},
    {"Place 10", Bet::Place10, 10, kOff, "10:18 7:-10"},
    {"Buy 4", Bet::Buy4, 25, kOff, "4:49 7:-26"},
    {"Buy 5", Bet::Buy5, 20, kOff, "5:29 7:-21"},
    {"Buy 6", Bet::Buy6, 20, kOff, "6:23 7:-21"},
    {"Buy 8", Bet::Buy8, 20, kOff, "8:23 7:-21"},
    {"Buy 9", Bet::Buy9, 20, kOff, "9:29 7:-21"},
    {"Buy 10", Bet::Buy10, 25, kOff, "10:49 7:-26"},
    {"Field", Bet::Field, 1, kSame, "2:2 3:1 4:1 9:1 10:1 11:1 12:2 *:-1"},
    {"Big 6", Bet::Big6, 1, kSame, "6:1 7:-1"},
    {"Big 8", Bet::Big8, 1, kSame, "8:1 7:-1"},
    {"Hard 4", Bet::Hard4, 1, kSame, "2-2:7 4:-1 7:-1"},
    {"Hard 6", Bet::Hard6, 1, kSame, "3-3:9 6:-1 7:-1"},
    {"Hard 8", Bet::Hard8, 1, kSame, "4-4:9 8:-1 7:-1"},
    {"Hard 10", Bet::Hard10, 1, kSame, "5-5:7 10:-1 7:-1"},
    {"Two", Bet::Two, 1, kSame, "2:30 *:-1"},
    {"Three", Bet::Three, 1, kSame, "3:15 *:-1"},
    {"Seven", Bet::Seven, 1, kSame, "7:4 *:-1"},
    {"Eleven", Bet::Eleven, 1, kSame, "11:15 *:-1"},
    {"Twelve", Bet::Twelve, 1, kSame, "12:30 *:-1"},
    {"Craps", Bet::Craps, 1, kSame, "2:7 3:7 12:7 *:-1"},
    {"C and E", Bet::CAndE, 2, kSame, "2:6 3:6 12:6 11:14 *:-2"},
    {"Horn", Bet::Horn, 4, kSame, "2:27 3:12 11:12 12:27 *:-4"},
    {"World", Bet::World, 5, kSame, "2:26 3:11 7:0 11:11 12:26 *:-5"},
    {"Over 7", Bet::Over7, 1, kSame, "8:1 9:1 10:1 11:1 12:1 *:-1"},
    {"Under 7", Bet::Under7, 1, kSame, "2:1 3:1 4:1 5:1 6:1 *:-1"},
    {"Hop 1-3", Bet::Hop13, 1, kSame, "1-3:15 *:-1"},
    {"Hop 1-4", Bet::Hop14, 1, kSame, "1-4:15 *:-1"},
    {"Hop 1-5", Bet::Hop15, 1, kSame, "1-5:15 *:-1"},
    {"Hop 1-6", Bet::Hop16, 1, kSame, "1-6:15 *:-1"},
    {"Hop 2-2", Bet::Hop22, 1, kSame, "2-2:30 *:-1"},
    {"Hop 2-3", Bet::Hop23, 1, kSame, "2-3:15 *:-1"},
    {"Hop 2-4", Bet::Hop24, 1, kSame, "2-4:15 *:-1"},
    {"Hop 2-5", Bet::Hop25, 1, kSame, "2-5:15 *:-1"},
    {"Hop 2-6", Bet::Hop26, 1, kSame, "2-6:15 *:-1"},
    {"Hop 3-3", Bet::Hop33, 1, kSame, "3-3:30 *:-1"},
    {"Hop 3-4", Bet::Hop34, 1, kSame, "3-4:15 *:-1"},
    {"Hop 3-5", Bet::Hop35, 1, kSame, "3-5:15 *:-1"},
    {"Hop 3-6", Bet::Hop36, 1, kSame, "3-6:15 *:-1"},
    {"Hop 4-4", Bet::Hop44, 1, kSame, "4-4:30 *:-1"},
    {"Hop 4-5", Bet::Hop45, 1, kSame, "4-5:15 *:-1"},
    {"Hop 4-6", Bet::Hop46, 1, kSame, "4-6:15 *:-1"},
    {"Hop 5-5", Bet::Hop55, 1, kSame, "5-5:30 *:-1"},
};

// Stakes that do not pay whole chips: wins are rounded down, losses up. A house that charges vig on wins
// only.
constexpr Spot kUneven[] = {
    {"Place 6 of 10 wins 11.67", Bet::Place6, 10, kOff, "6:11 7:-10"},
    {"Place 5 of 7 wins 9.80", Bet::Place5, 7, kOff, "5:9 7:-7"},
    {"C and E of 5 nets 35.00 and 15.00", Bet::CAndE, 5, kSame, "2:15 3:15 12:15 11:35 *:-5"},
    {"Horn of 5 nets 33.75 and 15.00", Bet::Horn, 5, kSame, "2:33 12:33 3:15 11:15 *:-5"},
    {"World of 7 nets 36.40 and 15.40", Bet::World, 7, kSame, "2:36 12:36 3:15 11:15 7:0 *:-7"},
    {"Buy 4, vig on wins", Bet::Buy4, 25, kOff, "4:49 7:-25"},
    {"Lay 4, vig on wins", Bet::Lay4, 40, kSame, "7:19 4:-40"},
    {"Lay 10 of 1 wins 0.50 less 1", Bet::Lay10, 1, kSame, "7:-1 10:-1"},
    {"Lay 6 of 5 wins 4.17 less 1", Bet::Lay6, 5, kSame, "7:3 6:-5"},
};

int ReadNumber(std::string_view text) {
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  EXPECT_EQ(read.ptr, text.data() + text.size()) << text;
  return number;
}

// What the rule nets on these dice; the first entry that fits.
int NetOn(std::string_view rule, int die1, int die2, int point) {
  while (!rule.empty()) {
    const std::string_view entry = rule.substr(0, rule.find(' '));
    rule.remove_prefix(std::min(rule.size(), entry.size() + 1));
    const std::size_t colon = entry.find(':');
    const std::string_view dice = entry.substr(0, colon);
    bool fits = dice == "*" || (dice == "P" && die1 + die2 == point);
    if (!fits && dice.size() == 3 && dice[1] == '-') {
      fits = dice[0] - '0' == std::min(die1, die2) && dice[2] - '0' == std::max(die1, die2);
    } else if (!fits && dice != "P") {
      fits = die1 + die2 == ReadNumber(dice);
    }
    if (fits) return ReadNumber(entry.substr(colon + 1));
  }
  return kNoDecision;
}

// One bet beside the table: whether it still stands and what each pair of dice nets it.
struct Wager {
  const char* name;
  int stake;
  std::array<int, 36> onComeOut;
  std::array<std::array<int, 36>, 6> onPoint;  // by the point, in table order
};

struct Sums {
  std::int64_t fromTable = 0;
  std::int64_t byHand = 0;
  std::map<int, std::int64_t> undecided;  // sequences that left the bet standing, by the point they left
};

// What the player's side knows between two rolls.
struct Expected {
  int point = 0;
  std::array<bool, kBetCount + 1> stands{};
};

class Sweep {
 public:
  explicit Sweep(TestTable& table) : t_(table) {}

  void Place(const Spot& spot) {
    t_.g.BetDelta = Dollars(spot.stake);
    ChangeBet(t_.g, spot.bet);
    ASSERT_EQ(t_.Amount(spot.bet), Dollars(spot.stake)) << spot.name << " was not taken";
    Know(spot);
    expected_.stands[static_cast<std::size_t>(spot.bet)] = true;
  }
  template <class Spots>
  void PlaceAll(const Spots& spots) {
    for (const Spot& spot : spots) Place(spot);
  }

  // A rule for a spot that a bet may travel to.
  void Know(const Spot& spot) {
    Wager& wager = wagers_[spot.bet];
    wager.name = spot.name;
    wager.stake = spot.stake;
    const char* comeOut = spot.comeOut == kSame ? spot.pointOn : spot.comeOut;
    for (int pair = 0; pair < 36; ++pair) {
      const auto place = static_cast<std::size_t>(pair);
      wager.onComeOut[place] = NetOn(comeOut, pair / 6 + 1, pair % 6 + 1, 0);
      for (const int point : kBoxNumbers) {
        wager.onPoint[static_cast<std::size_t>(BoxPlace(point))][place] =
            NetOn(spot.pointOn, pair / 6 + 1, pair % 6 + 1, point);
      }
    }
  }

  // One roll on the way to the walk's start, compared like every other.
  void Lead(int die1, int die2) { RollAndCompare(die1, die2, 0); }

  void Walk(int depth) {
    if (depth == 0) return CountStanding();
    const auto before = std::make_unique<GameTables>(t_.g);
    const Expected expectedBefore = expected_;
    std::int64_t endings = 1;
    for (int i = 1; i < depth; ++i) endings *= 36;
    for (int pair = 0; pair < 36; ++pair) {
      RollAndCompare(pair / 6 + 1, pair % 6 + 1, endings);
      if (testing::Test::HasFailure()) return;
      Walk(depth - 1);
      if (testing::Test::HasFailure()) return;
      static_cast<GameTables&>(t_.g) = *before;
      expected_ = expectedBefore;
    }
  }

  void CompareSums(std::string_view phase) const {
    for (const auto& [bet, sums] : sums_) {
      EXPECT_EQ(sums.fromTable, sums.byHand) << wagers_.at(bet).name << ", " << phase;
    }
  }
  Sums& SumsOf(BetId bet) { return sums_[bet]; }

 private:
  static Money OfLastRoll(const Game& g, BetId bet) {
    return g.BetWins[ActualWagers][bet][LastRollAmount] - g.BetLosses[ActualWagers][bet][LastRollAmount];
  }

  void RollAndCompare(int die1, int die2, std::int64_t endings) {
    Game& g = t_.g;
    const Money bankroll = g.BetAmount[SlotBankroll];
    g.ManualDie1 = die1;
    g.ManualDie2 = die2;
    g.ManualRollPending = true;
    RollDice(g);

    const int point = expected_.point;
    const int total = die1 + die2;
    const auto pair = static_cast<std::size_t>((die1 - 1) * 6 + die2 - 1);
    Money sum;
    for (const auto& [bet, wager] : wagers_) {
      bool& stands = expected_.stands[static_cast<std::size_t>(bet)];
      int net = kNoDecision;
      if (stands) {
        net = point == 0 ? wager.onComeOut[pair]
                         : wager.onPoint[static_cast<std::size_t>(BoxPlace(point))][pair];
      }
      if (net != kNoDecision) stands = false;
      const Money result = OfLastRoll(g, bet);
      sum += result;
      Sums& sums = sums_[bet];
      sums.fromTable += result.Units() / Money::kUnitsPerDollar * endings;
      sums.byHand += (net == kNoDecision ? 0 : net) * endings;
      ASSERT_EQ(result, Dollars(net == kNoDecision ? 0 : net)) << Where(wager.name, die1, die2);
    }
    ASSERT_EQ(g.BetAmount[SlotBankroll] - bankroll, sum) << Where("bankroll", die1, die2);

    if (IsBoxNumber(total)) {
      Travel(Bet::Come, ComeOn(total));
      Travel(Bet::DontCome, DontComeOn(total));
    }
    if (point == 0 && IsBoxNumber(total)) expected_.point = total;
    if (point != 0 && (total == 7 || total == point)) expected_.point = 0;
    ASSERT_EQ(g.Point, expected_.point) << Where("point", die1, die2);
    for (const auto& [bet, wager] : wagers_) {
      const bool stands = expected_.stands[static_cast<std::size_t>(bet)];
      ASSERT_EQ(g.BetAmount[bet], Dollars(stands ? wager.stake : 0)) << Where(wager.name, die1, die2);
    }
  }

  void Travel(BetId box, BetId number) {
    if (!expected_.stands[static_cast<std::size_t>(box)]) return;
    expected_.stands[static_cast<std::size_t>(box)] = false;
    expected_.stands[static_cast<std::size_t>(number)] = true;
  }

  void CountStanding() {
    for (const auto& [bet, wager] : wagers_) {
      if (t_.g.BetAmount[bet] != Money()) ++sums_[bet].undecided[t_.g.Point];
    }
  }

  std::string Where(std::string_view what, int die1, int die2) const {
    return std::string(what) + " on " + std::to_string(die1) + "-" + std::to_string(die2) + ", roll " +
           std::to_string(t_.g.RollCount()) + " of the sequence, before it point " +
           std::to_string(t_.g.PointBeforeRoll) + ", dice " + std::to_string(t_.g.PrevDie1) + "-" +
           std::to_string(t_.g.PrevDie2);
  }

  TestTable& t_;
  std::map<BetId, Wager> wagers_;
  std::map<BetId, Sums> sums_;
  Expected expected_;
};

struct RichTable : TestTable {
  RichTable() {
    g.AutoAdjustBetAmounts = AdjustManual;
    g.HandleWinningBets = WinTakeDown;
    g.HandleLosingBets = LossTakeDown;
    g.Rules.NotifyFlags = 0;
    g.BetAmount[SlotBankroll] = Dollars(100'000);
  }
};

constexpr std::int64_t kSequences = 36 * 36 * 36;
constexpr int kWays[13] = {0, 0, 1, 2, 3, 4, 5, 6, 5, 4, 3, 2, 1};

TEST(ExactCounts, AllThreeRollsFromTheComeOut) {
  RichTable t;
  Sweep sweep(t);
  sweep.PlaceAll(kLines);
  sweep.PlaceAll(kOthers);
  sweep.Walk(3);
  ASSERT_FALSE(HasFailure());
  sweep.CompareSums("from the come-out");

  // Counted on paper, in dollars over all 46,656 sequences.
  struct Row {
    const char* name;
    BetId bet;
    std::int64_t sum;
  };
  constexpr Row kRows[] = {
      {"Pass Line: 4 of 36 on the come-out, then w times (w - 6) by point", Bet::PassLine, 24'480},
      {"Seven: 6 times 4 less 30", Bet::Seven, 1296 * -6},
      {"Field: 14 and twice 2 less 20", Bet::Field, 1296 * -2},
      {"Twelve: 30 less 35", Bet::Twelve, 1296 * -5},
      {"Horn: 2 times 27 and 4 times 12 less 30 times 4", Bet::Horn, 1296 * -18},
      {"World: 2 times 26 and 4 times 11 less 24 times 5", Bet::World, 1296 * -24},
      {"Hop 2-3: 2 times 15 less 34", Bet::Hop23, 1296 * -4},
      {"Hard 6: 9 less 10, 25 of 36 decide nothing", Bet::Hard6, -(1296 + 25 * 36 + 625)},
      {"Big 8: 5 less 6, 25 of 36 decide nothing", Bet::Big8, -(1296 + 25 * 36 + 625)},
      {"Lay 4: 6 times 19 less 3 times 41, 27 of 36 decide nothing", Bet::Lay4, -9 * (1296 + 27 * 36 + 729)},
  };
  for (const Row& row : kRows) EXPECT_EQ(sweep.SumsOf(row.bet).fromTable, row.sum) << row.name;

  // With what the undecided sequences are still worth, the edge of the whole bet comes out exactly.
  const Sums& pass = sweep.SumsOf(Bet::PassLine);
  std::int64_t passTimes990 = pass.fromTable * 990;
  for (const auto& [point, count] : pass.undecided) {
    const int ways = kWays[point];
    passTimes990 += count * 10 * (ways - 6) * (990 / (ways + 6));
  }
  EXPECT_EQ(passTimes990, -7 * 2 * 10 * kSequences) << "the Pass Line costs 7/495 of the stake";

  // A barred 12 decides nothing, so what is left standing on a come-out is worth the whole bet again.
  Sums& dont = sweep.SumsOf(Bet::DontPass);
  EXPECT_EQ(dont.undecided[0], 1) << "only three barred rolls leave it on a come-out";
  std::int64_t dontTimes34650 = dont.fromTable * 34'650;
  for (const auto& [point, count] : dont.undecided) {
    const int ways = kWays[point];
    dontTimes34650 += point == 0 ? -27 * 18 * 10 : count * 10 * (6 - ways) * (34'650 / (ways + 6));
  }
  EXPECT_EQ(dontTimes34650, -27 * 18 * 10 * kSequences) << "the Don't Pass costs 27/1925 of a decided stake";
}

TEST(ExactCounts, AllThreeRollsWithAPointAndBetsOnTheOtherNumbers) {
  struct Row {
    const char* name;
    int point;
    int barNumber;
  };
  constexpr Row kRows[] = {
      {"point 4", 4, 12}, {"point 5", 5, 12},   {"point 6", 6, 12},       {"point 8", 8, 12},
      {"point 9", 9, 12}, {"point 10", 10, 12}, {"point 8, bar 2", 8, 2},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    RichTable t;
    t.g.Rules.BarNumber = row.barNumber;
    Sweep sweep(t);
    sweep.PlaceAll(kLines);
    if (row.barNumber == 2) sweep.Know(kBar2[0]);
    for (const Spot& number : kNumbers) sweep.Know(number);
    sweep.Lead(row.point / 2, row.point - row.point / 2);
    for (const int number : kBoxNumbers) {
      if (number == row.point) continue;
      sweep.PlaceAll(kBoxes);
      sweep.Lead(number / 2, number - number / 2);
    }
    sweep.PlaceAll(kLineOdds[BoxPlace(row.point)]);
    for (const Spot& odds : kNumberOdds) {
      if (NumberOf(odds.bet) != row.point) sweep.Place(odds);
    }
    sweep.PlaceAll(kBoxes);
    if (row.barNumber == 2) sweep.Know(kBar2Box[0]);
    sweep.PlaceAll(kOthers);
    sweep.Walk(3);
    if (HasFailure()) return;
    sweep.CompareSums(row.name);
  }
}

TEST(ExactCounts, AllThreeRollsOfAComeOutWithBetsOnEveryNumber) {
  RichTable t;
  Sweep sweep(t);
  sweep.Place(kLines[0]);
  for (const Spot& number : kNumbers) sweep.Know(number);
  sweep.Lead(2, 2);
  for (const int number : {5, 6, 8, 9, 10, 4}) {
    sweep.PlaceAll(kBoxes);
    sweep.Lead(number / 2, number - number / 2);
  }
  ASSERT_EQ(t.g.Point, 0);
  sweep.PlaceAll(kNumberOdds);
  sweep.PlaceAll(kLines);
  sweep.PlaceAll(kOthers);
  sweep.Walk(3);
  if (!HasFailure()) sweep.CompareSums("come-out with bets on the numbers");
}

TEST(ExactCounts, AllThreeRollsWithUnevenStakesBar2AndVigOnWinsOnly) {
  RichTable t;
  t.g.Rules.BarNumber = 2;
  t.g.Rules.BuyVigOnAll = t.g.Rules.LayVigOnAll = false;
  Sweep sweep(t);
  sweep.PlaceAll(kBar2);
  sweep.PlaceAll(kUneven);
  sweep.Walk(3);
  if (!HasFailure()) sweep.CompareSums("uneven stakes");
}

}  // namespace
}  // namespace rollwick
