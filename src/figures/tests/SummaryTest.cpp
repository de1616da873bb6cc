// The summary of a small game to the letter, and of random games against a recount from the Events Log.
#include "figures/Summary.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

void LayDice(Game& g, int die1, int die2) {
  g.ManualRollPending = true;
  g.ManualDie1 = die1;
  g.ManualDie2 = die2;
  RollDice(g);
}

void PutBet(Game& g, BetId bet, Money amount) {
  g.BetDelta = amount - g.BetAmount[bet];
  PlaceChips(g, bet);
}

std::map<std::string, Figure> ByName(Game& g) {
  std::map<std::string, Figure> figures;
  for (const Figure& figure : SummaryFigures(g)) figures[figure.name.substr(3)] = figure;
  return figures;
}

TEST(Summary, ASmallGameToTheLetter) {
  TestTable t;
  Game& g = t.g;
  g.RollsPerHour = Money::FromUnits(1'205'000);
  const auto texts = [&] {
    std::string all;
    for (const Figure& figure : SummaryFigures(g)) all += figure.name.substr(3) + "=" + figure.text + " ";
    return all;
  };
  PutBet(g, Bet::PassLine, Dollars(10));
  EXPECT_EQ(texts(),
            "TotalRolls=0 RollsPerHour=120.5 Hours=0 HandCurrentRolls=0 HandCurrentPasses=0 "
            "HandLongestRolls=0 HandLongestPasses=0 HandAverageRolls= HandAveragePasses= HandTotal=0 "
            "NumPointsEstablished=0 PassesPoints=0 PassesComeout=0 TotalPasses=0 DontPassesPoints=0 "
            "DontPassesComeout=0 TotalDontPasses=0 NumComeoutRolls=0 BankrollHigh=500 BankrollCurrent=500 "
            "BankrollAverage=0 BankrollLow=500 NumBetsDecided=0 NumBetsWon=0 NumBetsLost=0 NumBetsNet=0 "
            "NumBetsNetPercentage= NetNum=Net win: AmountBetsMade=0 AmountBetsWon=0 AmountBetsLost=0 "
            "AmountBetsNet=0 AmountBetsNetPercentage= NetAmount=Net win: CompValue=0 ");
  LayDice(g, 3, 4);  // a pass on the come-out: 510
  PutBet(g, Bet::PassLine, Dollars(10));
  LayDice(g, 2, 2);  // point 4
  LayDice(g, 6, 6);
  LayDice(g, 1, 6);  // seven-out: 500, a hand of 4 rolls and a pass
  PutBet(g, Bet::PassLine, Dollars(20));
  LayDice(g, 1, 1);  // a miss on the come-out: 480
  LayDice(g, 5, 4);
  LayDice(g, 5, 2);  // seven-out: a hand of 3 rolls
  g.CompBetMask = {0, 1 << (Bet::PassLine - 32), 0};
  g.CompBase = 1;
  g.CompRate = Dollars(10);
  EXPECT_EQ(texts(),
            "TotalRolls=7 RollsPerHour=120.5 Hours=.0581 HandCurrentRolls=0 HandCurrentPasses=0 "
            "HandLongestRolls=4 HandLongestPasses=1 HandAverageRolls=3.5 HandAveragePasses=.5 HandTotal=2 "
            "NumPointsEstablished=2 PassesPoints=0 PassesComeout=1 TotalPasses=1 DontPassesPoints=2 "
            "DontPassesComeout=1 TotalDontPasses=3 NumComeoutRolls=4 BankrollHigh=510 BankrollCurrent=480 "
            "BankrollAverage=496 BankrollLow=480 NumBetsDecided=3 NumBetsWon=1 NumBetsLost=2 NumBetsNet=-1 "
            "NumBetsNetPercentage=-33.33% NetNum=Net loss: AmountBetsMade=40 AmountBetsWon=10 "
            "AmountBetsLost=30 AmountBetsNet=-20 AmountBetsNetPercentage=-50.00% NetAmount=Net loss: "
            "CompValue=$4.00 ");
  EXPECT_EQ(ByName(g)["AmountBetsNet"].tone, Tone::Loss);
  EXPECT_EQ(ByName(g)["BankrollCurrent"].tone, Tone::Gain);
  g.BetAmount[SlotBankroll] = Money::FromUnits(-5'005'000);
  EXPECT_EQ(ByName(g)["BankrollCurrent"].text, "-501");
  EXPECT_EQ(ByName(g)["BankrollCurrent"].tone, Tone::Loss);
}

// What a spectator with a pencil writes down.
struct Notes {
  std::map<std::string, std::int64_t> counts;
  std::map<std::string, Money> amounts;
  int point = 0;

  void Count(int total) {
    auto& n = counts;
    ++n["TotalRolls"];
    ++n["HandCurrentRolls"];
    if (point == 0) {
      ++n["NumComeoutRolls"];
      if (total == 7 || total == 11) ++n["PassesComeout"], ++n["TotalPasses"], ++n["HandCurrentPasses"];
      if (total == 2 || total == 3 || total == 12) ++n["DontPassesComeout"], ++n["TotalDontPasses"];
      if (IsBoxNumber(total)) ++n["NumPointsEstablished"], point = total;
      return;
    }
    if (total == point) {
      ++n["PassesPoints"], ++n["TotalPasses"], ++n["HandCurrentPasses"];
      point = 0;
    } else if (total == 7) {
      ++n["DontPassesPoints"], ++n["TotalDontPasses"], ++n["HandTotal"];
      n["HandLongestRolls"] = std::max(n["HandLongestRolls"], std::exchange(n["HandCurrentRolls"], 0));
      n["HandLongestPasses"] = std::max(n["HandLongestPasses"], std::exchange(n["HandCurrentPasses"], 0));
      point = 0;
    }
  }
};

TEST(Summary, RandomGameAgainstARecount) {
  TestTable t;
  Game& g = t.g;
  g.BetAmount[SlotBankroll] = g.BankrollHigh = g.BankrollLow = Dollars(50'000);
  g.RecordEventsActive = g.RecordBetsWon = g.RecordBetsLost = true;
  std::mt19937 random(29);
  Notes notes;
  notes.amounts["BankrollHigh"] = notes.amounts["BankrollLow"] = Dollars(50'000);
  Money sum, bankroll = Dollars(50'000);
  // Bets whose wager is what lay there at the throw.
  const BetId spots[] = {Bet::PassLine, Bet::DontPass, Bet::Come, Bet::DontCome, Bet::Place4, Bet::Place9,
                         Bet::Field,    Bet::Hard6,    Bet::Horn, Bet::Hop16,    Bet::Over7,  Bet::Big8};
  for (int roll = 0; roll < 4000; ++roll) {
    PutBet(g, spots[random() % std::size(spots)], Dollars(5 * static_cast<int>(random() % 8)));
    t.log.lines.clear();
    const auto atThrow = g.BetAmount;
    LayDice(g, 1 + static_cast<int>(random() % 6), 1 + static_cast<int>(random() % 6));
    notes.Count(g.DiceTotal);
    for (const std::string& line : t.log.lines) {
      const bool isWon = line.find(" bet won $") != std::string::npos;
      const std::size_t end = isWon ? line.find(" bet won $") : line.find(" bet lost $");
      if (end == std::string::npos) continue;
      const std::size_t start = line.find_first_not_of(' ');
      const Money amount = *ParseMoney(line.substr(line.find('$') + 1));
      ++notes.counts["NumBetsDecided"];
      ++notes.counts[isWon ? "NumBetsWon" : "NumBetsLost"];
      notes.amounts[isWon ? "AmountBetsWon" : "AmountBetsLost"] += amount;
      notes.amounts["AmountBetsMade"] +=
          atThrow[static_cast<std::size_t>(FindBet(line.substr(start, end - start)))];
      bankroll += isWon ? amount : -amount;
    }
    sum += bankroll;
    notes.amounts["BankrollHigh"] = std::max(notes.amounts["BankrollHigh"], bankroll);
    notes.amounts["BankrollLow"] = std::min(notes.amounts["BankrollLow"], bankroll);
  }
  auto& n = notes.counts;
  auto& a = notes.amounts;
  n["NumBetsNet"] = n["NumBetsWon"] - n["NumBetsLost"];
  a["AmountBetsNet"] = a["AmountBetsWon"] - a["AmountBetsLost"];
  a["BankrollCurrent"] = bankroll;
  a["BankrollAverage"] = Quotient(sum, Dollars(4000));
  auto figures = ByName(g);
  ASSERT_GT(n["NumBetsDecided"], 2000);
  ASSERT_GT(n["HandTotal"], 300);
  for (const auto& [name, count] : n) EXPECT_EQ(std::get<std::int64_t>(figures[name].plain), count) << name;
  for (const auto& [name, amount] : a) EXPECT_EQ(std::get<Money>(figures[name].plain), amount) << name;
  const auto ratio = [&](const char* name) { return std::get<double>(figures[name].plain); };
  const double decided = static_cast<double>(n["NumBetsDecided"]),
               hands = static_cast<double>(n["HandTotal"]);
  EXPECT_DOUBLE_EQ(ratio("NumBetsNetPercentage"), static_cast<double>(n["NumBetsNet"]) / decided);
  EXPECT_DOUBLE_EQ(ratio("AmountBetsNetPercentage"),
                   a["AmountBetsNet"].ToDouble() / a["AmountBetsMade"].ToDouble());
  EXPECT_DOUBLE_EQ(ratio("HandAverageRolls") * hands,
                   static_cast<double>(n["TotalRolls"] - n["HandCurrentRolls"]));
  EXPECT_DOUBLE_EQ(ratio("HandAveragePasses") * hands,
                   static_cast<double>(n["TotalPasses"] - n["HandCurrentPasses"]));
  EXPECT_DOUBLE_EQ(ratio("Hours"), 4000.0 / 120);
  EXPECT_EQ(figures.size(), n.size() + a.size() + 5 + 4);  // those, rolls per hour, comps and two captions
}

}  // namespace
}  // namespace rollwick
