// A player who does anything at any time, and a clerk beside the table who keeps books of his own: after
// every command both must agree.
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <random>

#include "engine/bets/Bankroll.h"
#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "engine/game/NewGame.h"
#include "stats/tally/Tally.h"
#include "stats/tally/tests/EventDice.h"
#include "support/ScriptedHost.h"

namespace rollwick {
namespace {

using Random = std::mt19937;

int Pick(Random& random, int low, int high) {
  return low + static_cast<int>(random() % static_cast<std::uint32_t>(high - low + 1));
}

// Answers the Settle Bet dialog by lot.
struct LotHost : ScriptedHost {
  Random* random = nullptr;
  SettleAnswer Settle(Game&, const SettleQuestion&) override {
    SettleAnswer answer{Pick(*random, 0, 6), {}};
    if (Pick(*random, 0, 3) != 0) return answer;
    answer.formulas = {
        SettleFormula{Pick(*random, 0, 3), Money::FromUnits(Pick(*random, 0, 300'000)), Pick(*random, 0, 6)},
        SettleFormula{0, Dollars(Pick(*random, 0, 30)), Pick(*random, 0, 6)}};
    return answer;
  }
};

struct RollRecord {
  int die1, die2, pointBefore;
};

// What the log said of one bet, added up.
struct Results {
  int decisions = 0;
  Money wagered, won, lost;
  Money highWager, lowWager, highWin, highLoss;
  int streak = 0;
};

// The clerk's books of one game.
struct Books {
  std::vector<RollRecord> rolls;
  std::map<RollEvent, std::size_t> trackedFrom;  // rolls made when the event was last reset
  std::map<BetId, Results> results;
  int point = 0;
  Money high, low, sum;
};

class RandomPlay {
 public:
  explicit RandomPlay(std::uint32_t seed) : random_(seed) {
    host_.random = &random_;
    t_.g.TheHost = &host_;
    t_.g.RecordEventsActive = true;
    t_.g.ReseedNewGames = false;
    for (BetId bet = 1; bet <= kBetCount; ++bet) byName_[BetName(bet)] = bet;
    StartBooks();
  }

  // One command and all comparisons; its name.
  std::string Step() {
    before_ = t_.g;
    t_.log.lines.clear();
    host_.messages.clear();
    host_.prompts.clear();
    host_.settled.clear();
    host_.sounds.clear();
    const std::string command = Command();
    CheckTables();
    return command;
  }

  void Recount() const;

 private:
  std::string Command();
  void AskForChange(bool click);
  void Roll();
  void Atm();
  void StartNewGame();
  void ChangeRules();
  void ChangeVigs();
  void ChangeDenominations();
  void ChangeAutoPlay();

  void StartBooks() {
    books_ = {};
    books_.high = books_.low = t_.g.BetAmount[SlotBankroll];
  }
  void ReadLog();
  void BookDecision(std::string_view name, Money result);
  void CheckTables() const;
  void CheckContracts() const;
  bool IsWithinEveryLimit(BetId bet, Money delta) const;
  bool RulesAllow(BetId bet, Money target) const;
  bool IsBelowMaximum(BetId bet, Money target) const;
  Money VigUpTo(BetId bet, Money target) const;
  Money RandomDelta();
  bool Flip(int oneIn = 2) { return Pick(random_, 1, oneIn) == 1; }

  Random random_;
  TestTable t_;
  LotHost host_;
  Books books_;
  GameTables before_;
  std::map<std::string, BetId, std::less<>> byName_;
};

std::string RandomPlay::Command() {
  Game& g = t_.g;
  const int lot = Pick(random_, 0, 9999);
  const BetId bet = Pick(random_, 1, kBetCount);
  const auto quietly = [&](std::string name) {
    EXPECT_EQ(g.BetAmount[SlotBankroll], before_.BetAmount[SlotBankroll]) << name << " moved the bankroll";
    CheckContracts();
    return name;
  };
  if (lot < 3500) return Roll(), "roll";
  if (lot < 6000) return AskForChange(false), quietly("change");
  if (lot < 8000) return AskForChange(true), quietly("click");
  if (lot < 8300) return TakeAllDoOdds(g), quietly("take odds");
  if (lot < 8500) return LayAllDontOdds(g), quietly("lay odds");
  if (lot < 8700) return BuyBet(g, Pick(random_, Bet::Place4, Bet::Buy10)), quietly("buy");
  if (lot < 9000) return CallBet(g, bet, Flip()), quietly("call");
  if (lot < 9050) return CallAllBets(g, Flip()), quietly("call all");
  if (lot < 9150) return RemoveAllBets(g), quietly("remove all");
  if (lot < 9250) return AdjustBet(g, bet, Pick(random_, 0, 3)), quietly("adjust");
  if (lot < 9300) return RefitAllBets(g), quietly("refit");
  if (lot < 9500) return Atm(), "ATM";
  if (lot < 9650) return ChangeRules(), quietly("rules");
  if (lot < 9750) return ChangeVigs(), quietly("vigs");
  if (lot < 9800) return ChangeDenominations(), quietly("denominations");
  if (lot < 9950) return ChangeAutoPlay(), quietly("auto-play");
  if (lot < 9996) {
    const RollEvent event = Pick(random_, 1, 90);
    ResetTrackedEvent(g, event);
    books_.trackedFrom[event] = books_.rolls.size();
    return quietly("reset event");
  }
  return StartNewGame(), "new game";
}

Money RandomPlay::RandomDelta() {
  const Money chip = LowestChip(t_.g);
  switch (Pick(random_, 0, 9)) {
    case 0:
      return Money::FromUnits(Pick(random_, -2'000'000, 2'000'000));
    case 1:
      return Money::FromUnits(static_cast<std::int64_t>(random_()) << 31) - Dollars(400'000'000'000'000);
    case 2:
      return Money();
    default:
      return Product(chip, Dollars(Pick(random_, -10, 60)));
  }
}

bool RandomPlay::RulesAllow(BetId bet, Money target) const {
  const GameTables& g = before_;
  const bool increase = target > g.BetAmount[bet];
  const bool contractBet = (bet == Bet::PassLine && g.Point != 0) || IsComeNumber(bet);
  const Money contract = bet <= Bet::DontPass ? g.BetContract[bet] : Money();
  if (contractBet) {
    return increase ? g.Rules.AllowPutBets && target > contract
                    : g.BetAmount[bet] > contract && target >= contract;
  }
  if (!increase) return true;
  if (IsOdds(bet) && g.BetAmount[FlatOf(bet)] == Money()) return false;
  switch (bet) {
    case Bet::Come:
    case Bet::DontCome:
    case Bet::PassLineOdds:
    case Bet::DontPassOdds:
      return g.Point != 0;
    case Bet::DontPass:
      return g.Point == 0 || target <= contract;
    default:
      return !IsDontComeNumber(bet) || target <= contract;
  }
}

// Whether the house surely takes that much: for odds only as far as the plain multiple of the flat bet goes.
bool RandomPlay::IsBelowMaximum(BetId bet, Money target) const {
  const GameTables& g = before_;
  const TableRules& rules = g.Rules;
  const auto pays = [&](BetId row) {
    return g.PayoffTable[row].Ratio.ToDouble() / g.PayoffTable[row].Base.ToDouble();
  };
  if (IsOdds(bet)) {
    if (rules.OddsCalcMethod != OddsNoPush) return false;
    const int number = bet <= Bet::Come10Odds ? NumberOf(bet) : g.Point;
    const Money multiple = number == 4 || number == 10  ? rules.OddsAllowed410
                           : number == 5 || number == 9 ? rules.OddsAllowed59
                                                        : rules.OddsAllowed68;
    const double most =
        std::min(multiple.ToDouble() * g.BetAmount[FlatOf(bet)].ToDouble(), rules.MaxOddsBet.ToDouble()) -
        LowestChip(g).ToDouble();
    return target.ToDouble() * (IsDontOdds(bet) ? pays(bet) : 1) <= most;
  }
  double net = 0;
  if (bet == Bet::CAndE) {
    net = std::max(pays(Bet::Craps), pays(Bet::Eleven)) / 2 - 0.5;
  } else if (bet == Bet::Horn) {
    net = pays(Bet::Twelve) / 4 - 0.75;
  } else if (bet == Bet::World) {
    net = pays(Bet::Twelve) / 5 - 0.8;
  } else if (bet >= Bet::Hard4) {
    net = pays(bet);
  }
  const double most = net > 0 ? rules.MaxPropBetPayoff.ToDouble() / net : rules.MaxPlacardBet.ToDouble();
  return target.ToDouble() <= most - LowestChip(g).ToDouble();
}

// No vig is higher, old and new together.
Money RandomPlay::VigUpTo(BetId bet, Money target) const {
  if (!IsLay(bet) && !IsBuy(bet)) return {};
  return target + LowestChip(before_) + LowestChip(before_);
}

bool RandomPlay::IsWithinEveryLimit(BetId bet, Money delta) const {
  const GameTables& g = before_;
  const Money target = g.BetAmount[bet] + delta;
  if (g.AutoAdjustBetAmounts != AdjustManual || delta == Money()) return false;
  if (!IsMultipleOf(delta, LowestChip(g)) || target < Money()) return false;
  if (!RulesAllow(bet, target)) return false;
  Money least = bet >= Bet::Hard4 ? LowestChip(g) : g.Rules.MinPlacardBet;
  if (bet == Bet::PassLine || IsComeNumber(bet)) least = std::max(least, g.BetContract[bet]);
  const bool removal = target == Money() && !IsComeNumber(bet);
  if (target < least && !removal) return false;
  if (!IsBelowMaximum(bet, target) && !removal) return false;
  return g.Rules.AllowNegBankroll ||
         g.TotalBets + std::max(delta, Money()) + VigUpTo(bet, target) <= g.BetAmount[SlotBankroll];
}

void RandomPlay::AskForChange(bool click) {
  Game& g = t_.g;
  BetId slot = Flip(3) ? Pick(random_, Bet::PassLine, Bet::DontCome) : Pick(random_, 1, kBetCount);
  if (Flip(40)) slot = Pick(random_, 0, kSlotCount - 1);
  const Money delta = RandomDelta();
  g.BetDelta = delta;
  if (click && slot != SlotBankroll) {
    PlaceChips(g, slot);
  } else {
    ChangeBet(g, slot);
  }
  const Money applied = g.BetDeltaApplied;
  EXPECT_EQ(g.BetAmount[slot] - before_.BetAmount[slot], applied) << "slot " << slot;
  for (BetId other = 0; other < kSlotCount; ++other) {
    const bool follows = click && applied != Money() && IsOdds(other) && FlatOf(other) == slot;
    if (other == slot || follows) continue;
    EXPECT_EQ(g.BetAmount[other], before_.BetAmount[other]) << "slot " << other << " beside " << slot;
  }
  if (!IsBet(slot)) return;
  if (IsWithinEveryLimit(slot, delta)) {
    EXPECT_EQ(applied, delta) << BetName(slot) << " asked for within every limit";
  }
  if (applied <= Money()) return;
  // A minimum raised since the throw lifts a Don't bet that is put back over its contract.
  const bool backAtContract = slot <= Bet::DontPass && g.BetAmount[slot] == g.BetContract[slot];
  const bool atItsLeast = backAtContract || g.BetAmount[slot] == g.BetMin;
  EXPECT_TRUE(atItsLeast || RulesAllow(slot, g.BetAmount[slot])) << BetName(slot);
  if (slot < Bet::Hard4 && !IsOdds(slot)) {
    EXPECT_LE(g.BetAmount[slot], g.Rules.MaxPlacardBet) << BetName(slot);
  }
  if (!g.Rules.AllowNegBankroll) {
    EXPECT_LE(g.TotalBets, g.BetAmount[SlotBankroll]) << BetName(slot);
  }
}

void RandomPlay::Roll() {
  Game& g = t_.g;
  g.ManualRollPending = Flip();
  g.ManualDie1 = Pick(random_, 1, 6);
  g.ManualDie2 = Pick(random_, 1, 6);
  if (Flip(50)) g.RngChoice = Pick(random_, 0, kRngCount - 1);
  if (Flip(4)) {
    g.AutoRollsSet = g.AutoRollsLeft = 1;
    ToggleHyperDrive(g);
    g.AutoRollsSet = g.AutoRollsLeft = 0;
  } else {
    RollDice(g);
  }
  EXPECT_FALSE(g.RollInProgress);
  const std::size_t rollsBefore = books_.rolls.size();
  ReadLog();
  EXPECT_EQ(books_.rolls.size() - rollsBefore,
            IsBeyondBankLimit(static_cast<const Game&>(g)) && books_.rolls.size() == rollsBefore ? 0u : 1u);
  if (books_.rolls.size() == rollsBefore) return;
  const Money bankroll = g.BetAmount[SlotBankroll];
  books_.high = std::max(books_.high, bankroll);
  books_.low = std::min(books_.low, bankroll);
  books_.sum += bankroll;
  EXPECT_EQ(g.Point, books_.point);
}

Money AmountAfter(std::string_view line, std::string_view word) {
  return ParseMoney(line.substr(line.find(word) + word.size())).value_or(Money());
}

// The log is the clerk's only source of rolls and results.
void RandomPlay::ReadLog() {
  const Money bankrollBefore = before_.BetAmount[SlotBankroll];
  Money sum;
  for (const std::string& text : t_.log.lines) {
    const std::string_view line = text;
    if (line.starts_with(" Roll #")) {
      const std::size_t dice = line.find('(');
      const RollRecord roll{line[dice + 1] - '0', line[dice + 3] - '0', books_.point};
      const int total = roll.die1 + roll.die2;
      books_.rolls.push_back(roll);
      if (books_.point == 0) {
        books_.point = IsBoxNumber(total) ? total : 0;
      } else if (total == 7 || total == books_.point) {
        books_.point = 0;
      }
    }
    for (const std::string_view word : {" bet won $", " bet lost $"}) {
      const std::size_t end = line.find(word);
      if (end == line.npos) continue;
      const Money amount = AmountAfter(line, word);
      const Money result = word == " bet won $" ? amount : -amount;
      sum += result;
      BookDecision(line.substr(6, end - 6), result);
    }
  }
  EXPECT_EQ(t_.g.BetAmount[SlotBankroll] - bankrollBefore, sum) << "only results move the bankroll in a roll";
}

void RandomPlay::BookDecision(std::string_view name, Money result) {
  const auto found = byName_.find(name);
  ASSERT_NE(found, byName_.end()) << name;
  const BetId bet = found->second;
  const Money stake = before_.BetAmount[bet];
  EXPECT_GT(stake, Money()) << name << " was decided without chips";
  const bool won = result > Money();
  Money vig;
  if (IsLay(bet) && before_.Rules.LayVigOnAll) vig = before_.LayVigAmount[bet];
  if (IsBuy(bet) && before_.Rules.BuyVigOnAll) vig = before_.BuyVigAmount[bet];
  if (IsLay(bet) && won) vig = before_.LayVigAmount[bet];
  if (IsBuy(bet) && won) vig = before_.BuyVigAmount[bet];
  const Money wager = stake + vig;
  Results& results = books_.results[bet];
  results.lowWager = results.decisions == 0 ? wager : std::min(results.lowWager, wager);
  results.highWager = std::max(results.highWager, wager);
  results.highWin = std::max(results.highWin, result);
  results.highLoss = std::max(results.highLoss, -result);
  ++results.decisions;
  results.wagered += wager;
  (won ? results.won : results.lost) += Abs(result);
  results.streak = won ? std::max(results.streak, 0) + 1 : std::min(results.streak, 0) - 1;
}

void RandomPlay::Atm() {
  Game& g = t_.g;
  const bool deposit = Flip();
  const Money amount = Flip(10) ? Dollars(20'000'000) : Dollars(Pick(random_, -5, 2000));
  const Money bankroll = g.BetAmount[SlotBankroll];
  const Money limit = Dollars(9'999'999);
  Money allowed = std::max(amount, Money());
  if (!deposit) {
    allowed = std::min(allowed, std::max(limit - bankroll, Money()));
  } else if (!g.Rules.AllowNegBankroll) {
    allowed = std::min(allowed, std::max(bankroll - g.TotalBets, Money()));
  } else {
    allowed = std::min(allowed, std::max(limit + bankroll, Money()));
  }
  const Money moved = AtmTransaction(g, deposit ? AtmDirection::Deposit : AtmDirection::Withdraw, amount);
  EXPECT_EQ(moved, allowed);
  EXPECT_EQ(g.BetAmount[SlotBankroll] - bankroll, deposit ? -allowed : allowed);
  EXPECT_EQ(g.BetAmount[SlotBankroll] - g.InvestedBankroll, bankroll - before_.InvestedBankroll)
      << "the net stays";
}

void RandomPlay::StartNewGame() {
  Game& g = t_.g;
  Recount();
  g.Rules.BankrollInitType = Pick(random_, 0, 3);
  g.Rules.BankrollInitAmount = Dollars(Pick(random_, 100, 20'000));
  g.Rules.AllowNegBankroll = Flip(4);
  NewGame(g, Flip());
  const Money bankroll =
      g.Rules.BankrollInitType >= CarryBankroll && Abs(before_.BetAmount[SlotBankroll]) <= Dollars(9'999'999)
          ? before_.BetAmount[SlotBankroll]
          : g.Rules.BankrollInitAmount;
  EXPECT_EQ(g.BetAmount[SlotBankroll], bankroll);
  StartBooks();
}

void RandomPlay::ChangeRules() {
  Game& g = t_.g;
  TableRules& rules = g.Rules;
  rules.MinPlacardBet = Money::FromUnits(Pick(random_, 0, 40) * 2500);
  rules.MaxPlacardBet = Dollars(Pick(random_, 20, 3000));
  rules.MaxPropBetPayoff = Dollars(Pick(random_, 50, 5000));
  rules.MaxOddsBet = Dollars(Pick(random_, 10, 3000));
  rules.OddsAllowed410 = Money::FromUnits(Pick(random_, 0, 12) * 5000);
  rules.OddsAllowed59 = Money::FromUnits(Pick(random_, 0, 12) * 5000);
  rules.OddsAllowed68 = Money::FromUnits(Pick(random_, 0, 12) * 5000);
  rules.OddsCalcMethod = Pick(random_, OddsAutoSelect, OddsSingleTimesFlat);
  rules.BarNumber = Flip() ? 2 : 12;
  rules.AllowPutBets = Flip(3);
  if (rules.AllowNegBankroll || Flip(3)) {
    const bool covered = g.BetAmount[SlotBankroll] >= Money() && AvailableBankroll(g) >= Money();
    rules.AllowNegBankroll = !covered;
  }
  rules.NotifyFlags = Flip() ? 0 : Pick(random_, 0, 15);
  g.PayoffTable[Bet::Place9].Ratio = Dollars(Flip(4) ? 0 : 7);  // now and then a dead number
  g.PayoffTable[Bet::Seven].Ratio = Dollars(Pick(random_, 4, 5));
}

void RandomPlay::ChangeVigs() {
  Game& g = t_.g;
  const TableRules old = g.Rules;
  const auto onAll = [&g] { return VigCharged{g.Rules.BuyVigOnAll, g.Rules.LayVigOnAll}; };
  VigCharged charged = onAll();
  g.Rules.BuyVigPct = Money::FromUnits(Pick(random_, 0, 4) * 250);
  g.Rules.LayVigPct = Money::FromUnits(Pick(random_, 0, 4) * 250);
  g.Rules.BuyVigOnAll = Flip();
  g.Rules.LayVigOnAll = Flip();
  g.Rules.RoundBuyVig = Pick(random_, 0, 2);
  g.Rules.RoundLayVig = Pick(random_, 0, 2);
  RefreshVigs(g, charged);
  if (g.Rules.AllowNegBankroll || AvailableBankroll(g) >= Money()) return;
  charged = onAll();
  g.Rules = old;
  RefreshVigs(g, charged);
  EXPECT_EQ(g.TotalBets, before_.TotalBets);
}

void RandomPlay::ChangeDenominations() {
  constexpr std::int64_t kChips[4][kChipCount] = {{10'000, 50'000, 250'000, 1'000'000, 5'000'000},
                                                  {5'000, 10'000, 50'000, 250'000, 1'000'000},
                                                  {50'000, 250'000, 1'000'000, 5'000'000, 10'000'000},
                                                  {2'500, 10'000, 50'000, 200'000, 1'000'000}};
  Game& g = t_.g;
  const auto stands = [](Money bet) { return bet != Money(); };
  if (std::any_of(&g.BetAmount[1], &g.BetAmount[kBetCount] + 1, stands)) return;
  // A Don't bet may still come back to its contract, in the chips of that time.
  if (std::ranges::any_of(g.BetContract, stands)) return;
  const auto& chips = kChips[Pick(random_, 0, 3)];
  for (int chip = 0; chip < kChipCount; ++chip) {
    g.BetAmount[static_cast<std::size_t>(SlotChipDenom + chip)] = Money::FromUnits(chips[chip]);
  }
}

void RandomPlay::ChangeAutoPlay() {
  Game& g = t_.g;
  g.HandleWinningBets = Pick(random_, WinManual, WinBetFormula);
  g.HandleLosingBets = Pick(random_, LossManual, LossBetFormula);
  for (std::size_t slot = 0; slot < kFormulaCount; ++slot) {
    g.ModifyOperator[slot] = Pick(random_, 0, 3);
    g.ModifyAmount[slot] = Money::FromUnits(Pick(random_, 0, 200'000));
    g.ModifyUnit[slot] = Pick(random_, 0, 6);
  }
  g.AutoAdjustBetAmounts = Pick(random_, AdjustManual, AdjustColor);
  g.LayBias = Pick(random_, 0, 2);
  g.PlaceBias = Pick(random_, 0, 2);
  g.DoBias = Pick(random_, 0, 2);
  g.DontBias = Pick(random_, 0, 2);
  g.AutoTakeFullOdds = Flip(3);
  g.AutoLayFullOdds = Flip(3);
  g.AutoRemovePlaceBets = Flip(4);
}

// The player alone never gets a contract bet below what was established.
void RandomPlay::CheckContracts() const {
  const Game& g = t_.g;
  const auto check = [&](BetId bet) {
    EXPECT_GE(g.BetAmount[bet], std::min(before_.BetAmount[bet], before_.BetContract[bet])) << BetName(bet);
  };
  if (before_.Point != 0) check(Bet::PassLine);
  for (BetId bet = Bet::Come4; bet <= Bet::Come10; ++bet) check(bet);
}

void RandomPlay::CheckTables() const {
  const Game& g = t_.g;
  Money total;
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const Money amount = g.BetAmount[bet];
    total += amount;
    if (IsLay(bet) && g.Rules.LayVigOnAll) total += g.LayVigAmount[bet];
    if (IsBuy(bet) && g.Rules.BuyVigOnAll) total += g.BuyVigAmount[bet];
    const Money vig = IsLay(bet) ? g.LayVigAmount[bet] : IsBuy(bet) ? g.BuyVigAmount[bet] : Money();
    EXPECT_EQ(vig, ComputeLayVig(g, bet, amount) + ComputeBuyVig(g, bet, amount)) << BetName(bet);
    EXPECT_GE(amount, Money()) << BetName(bet);
    EXPECT_TRUE(IsMultipleOf(amount, LowestChip(g))) << BetName(bet) << " " << PlainText(amount);
    EXPECT_GE(g.BetWorking[bet], CalledOff);
    EXPECT_LE(g.BetWorking[bet], CalledOn);
    if (amount == Money() && g.Point == 0 && before_.BetAmount[bet] != Money() && !IsComeOdds(bet) &&
        bet != Bet::PassLineOdds && bet != Bet::DontPassOdds) {
      EXPECT_EQ(g.BetWorking[bet], g.BetWorkingDefault[bet]) << BetName(bet) << " kept its button";
    }
  }
  EXPECT_EQ(g.TotalBets, total);
  EXPECT_TRUE(TablesAgree(g));
  for (BetId slot = kBetCount + 1; slot < SlotChipDenom; ++slot)
    EXPECT_EQ(g.BetAmount[slot], Money()) << slot;
  EXPECT_TRUE(g.Point == 0 || IsBoxNumber(g.Point));
}

void RandomPlay::Recount() const {
  const Game& g = t_.g;
  const int rolls = static_cast<int>(books_.rolls.size());
  EXPECT_EQ(g.RollEventCount[0], rolls);
  EXPECT_EQ(g.RollsSinceEvent[0], rolls);
  EXPECT_EQ(g.BankrollHigh, books_.high);
  EXPECT_EQ(g.BankrollLow, books_.low);
  EXPECT_EQ(g.BankrollRollSum, books_.sum);
  EXPECT_EQ(g.BankrollHistoryCount, rolls == 0 ? 0 : (rolls - 1) % 525 + 1);
  for (const auto& [event, dice] : kEvents) {
    const auto reset = books_.trackedFrom.find(event);
    const int trackedFrom = reset == books_.trackedFrom.end() ? 0 : static_cast<int>(reset->second);
    std::array<std::int32_t, kGapCount> gaps{};
    int count = 0, tracked = 0, last = 0, trackedLast = trackedFrom;
    for (int roll = 1; roll <= rolls; ++roll) {
      const RollRecord& record = books_.rolls[static_cast<std::size_t>(roll - 1)];
      if (!Happens(dice, record.die1, record.die2)) continue;
      const int gap = roll - last;
      ++gaps[static_cast<std::size_t>(std::min(gap, 200))];
      if (gap >= 200) gaps[0] += gap;
      ++count;
      last = roll;
      if (roll <= trackedFrom) continue;
      ++tracked;
      trackedLast = roll;
    }
    EXPECT_EQ(g.RollEventCount[event], count) << "event " << event;
    EXPECT_EQ(g.RollsSinceEvent[event], rolls - last) << "event " << event;
    EXPECT_EQ(g.RollGapHistogram[event], gaps) << "event " << event;
    EXPECT_EQ(g.TrackedEventCount[event], tracked) << "event " << event;
    EXPECT_EQ(g.TrackedRollBase[event], rolls - trackedLast) << "event " << event;
  }

  std::array<std::int32_t, kHandStatCount> hand{};
  int rollsOfHand = 0, passesOfHand = 0, missesOfHand = 0;
  for (const RollRecord& roll : books_.rolls) {
    const int total = roll.die1 + roll.die2;
    const bool comeOut = roll.pointBefore == 0;
    ++rollsOfHand;
    if (comeOut) ++hand[ComeOutRolls];
    if (comeOut && IsBoxNumber(total)) ++hand[PointsEstablished];
    if (comeOut ? total == 7 || total == 11 : total == roll.pointBefore) {
      ++passesOfHand;
      ++hand[TotalPasses];
      ++hand[comeOut ? PassesOnComeOut : PassesByPoint];
    }
    if (comeOut ? total < 4 || total == 12 : total == 7) {
      ++missesOfHand;
      ++hand[TotalMisses];
      ++hand[comeOut ? MissesOnComeOut : MissesBySevenOut];
    }
    if (comeOut || total != 7) continue;
    ++hand[HandsCompleted];
    hand[PreviousHandRolls] = rollsOfHand;
    hand[PreviousHandPasses] = passesOfHand;
    hand[PreviousHandMisses] = missesOfHand;
    hand[LongestHandRolls] = std::max(hand[LongestHandRolls], rollsOfHand);
    hand[MostHandPasses] = std::max(hand[MostHandPasses], passesOfHand);
    hand[MostHandMisses] = std::max(hand[MostHandMisses], missesOfHand);
    hand[CompletedHandRolls] += rollsOfHand;
    hand[CompletedHandPasses] += passesOfHand;
    rollsOfHand = passesOfHand = missesOfHand = 0;
  }
  hand[HandRolls] = rollsOfHand;
  hand[HandPasses] = passesOfHand;
  hand[HandMisses] = missesOfHand;
  EXPECT_EQ(g.HandStats, hand);

  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const auto found = books_.results.find(bet);
    const Results results = found == books_.results.end() ? Results() : found->second;
    const BetStatRow& wagers = g.BetWagers[ActualWagers][bet];
    const BetStatRow& wins = g.BetWins[ActualWagers][bet];
    const BetStatRow& losses = g.BetLosses[ActualWagers][bet];
    EXPECT_EQ(wagers[TotalCount], Dollars(results.decisions)) << BetName(bet);
    EXPECT_EQ(wins[TotalCount] + losses[TotalCount], Dollars(results.decisions)) << BetName(bet);
    EXPECT_EQ(wagers[TotalAmount], results.wagered) << BetName(bet);
    EXPECT_EQ(wagers[HighAmount], results.highWager) << BetName(bet);
    EXPECT_EQ(wagers[LowAmount], results.lowWager) << BetName(bet);
    EXPECT_EQ(wins[TotalAmount], results.won) << BetName(bet);
    EXPECT_EQ(wins[HighAmount], results.highWin) << BetName(bet);
    EXPECT_EQ(losses[TotalAmount], results.lost) << BetName(bet);
    EXPECT_EQ(losses[HighAmount], results.highLoss) << BetName(bet);
    EXPECT_EQ(g.BetStreak[bet][1], results.streak) << BetName(bet);
  }
}

TEST(RandomPlay, BooksAndTableAgreeAfterEveryCommand) {
  for (const std::uint32_t seed : {20'260'101u, 7u, 4'711u, 99'991u}) {
    RandomPlay play(seed);
    std::string command;
    for (int step = 1; step <= 25'000; ++step) {
      command = play.Step();
      if (step % 2500 == 0) play.Recount();
      if (HasFailure()) {
        FAIL() << "seed " << seed << ", step " << step << ", " << command;
      }
    }
    play.Recount();
    if (HasFailure()) {
      FAIL() << "seed " << seed << ", at the end";
    }
  }
}

}  // namespace
}  // namespace rollwick
