#include "bench/Games.h"

#include <stdexcept>

#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "dice/Draw.h"
#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"

namespace rollwick {

namespace {

void PutUp(Game& g, BetId bet, std::int64_t dollars) {
  g.BetDelta = Dollars(dollars);
  PlaceChips(g, bet);
}

void Seed(Game& g, std::int32_t rng, std::int32_t seed) {
  g.RngChoice = rng;
  g.SeedRequest = Dollars(seed);
  SeedGenerator(g, true);
}

// FNV-1a over numbers.
class Hash {
 public:
  void Add(std::int64_t number) {
    for (int byte = 0; byte < 8; ++byte) {
      value_ ^= static_cast<std::uint64_t>(number >> (8 * byte)) & 0xFF;
      value_ *= 1'099'511'628'211u;
    }
  }
  void Add(Money money) { Add(money.Units()); }
  template <class Entry, std::size_t size>
  void Add(const std::array<Entry, size>& table) {
    for (const Entry& entry : table) Add(entry);
  }
  std::uint64_t Value() const { return value_; }

 private:
  std::uint64_t value_ = 14'695'981'039'346'656'037u;
};

void AddGame(Hash& hash, const Game& g) {
  hash.Add(g.BetAmount);
  hash.Add(g.BetWorking);
  hash.Add(g.TotalBets);
  hash.Add(g.RollEventCount);
  hash.Add(g.RollGapHistogram);
  hash.Add(g.TrackedRollBase);
  hash.Add(g.HandStats);
  for (const BetStatTable* results : {&g.BetWagers, &g.BetWins, &g.BetLosses}) hash.Add(*results);
  hash.Add(g.BetStreak);
  hash.Add(g.BankrollHistory);
  hash.Add(g.BankrollRollSum);
}

// A bettor who puts up or takes down a few bets between rolls, by a congruential sequence of its own.
void PlayAtRandom(Game& g, std::uint32_t& sequence, int rolls) {
  const auto next = [&sequence](std::uint32_t range) {
    sequence = sequence * 1'664'525u + 1'013'904'223u;
    return static_cast<std::int32_t>((sequence >> 8) % range);
  };
  for (int roll = 0; roll < rolls; ++roll) {
    for (int bets = next(4); bets > 0; --bets) {
      const BetId bet = 1 + next(kBetCount);
      g.BetDelta = Dollars(next(40) - 10);
      PlaceChips(g, bet);
    }
    if (next(50) == 0) TakeAllDoOdds(g);
    if (next(50) == 0) LayAllDontOdds(g);
    g.HyperDriveActive = true;
    g.KeepRolling = false;
    RollDice(g);
  }
}

constexpr std::string_view kIronCross = R"(While . . .
          Next roll is NOT a come-out roll
    then . . .
          Bet $ 5 on Field
          Bet $ 5 on Place 5
          Bet $ 6 on Place 6
          Bet $ 6 on Place 8
)";

// Pass Line and two Come bets with odds, the inside numbers, a hardway that presses, and a count of losses.
constexpr std::string_view kTenRules = R"(While . . .
          Next roll is a come-out roll
    then . . .
          Bet $ 10 on Pass Line
While . . .
          Next roll is NOT a come-out roll
and while . . .
          Total Come bets number less than 2
    then . . .
          Bet $ 10 on Come
When . . .
          A point is established on any number
    then . . .
          Bet $ 20 on Pass Line Odds
          Bet $ 10 on all inside Place bets
While . . .
          Any Come bet is greater than $ 0
    then . . .
          Bet $ 20 on all Come Odds bets
When . . .
          On each pass
    then . . .
          Bet $ 1 on Hard 8
When . . .
          Hard 8 (4-4) has rolled each time
    then . . .
          Multiply by 2 on Hard 8
While . . .
          Place (shooter's point) is greater than $ 0
    then . . .
          Bet $ 0 on Place (shooter's point)
When . . .
          A point is decided "against" any number
    then . . .
          Add $ 1 to Chip-Stack # 1
When . . .
          Any Place bet has won
or when . . .
          Chip-Stack # 1 is greater than $ 3
    then . . .
          Bet $ 0 on Chip-Stack # 1
    else . . .
          Bet $ 5 on Field
When . . .
          Number 7 (3-4) or (4-3) has rolled 3 times
and while . . .
          Bankroll is greater than $ 100
    then . . .
          Bet $ 1 on Twelve
)";

void SwitchOn(Game& g, std::string_view script) {
  ParsedScript parsed = ParseScriptText(script);
  if (!parsed.errors.empty()) {
    const ScriptTextError& error = parsed.errors.front();
    throw std::logic_error("line " + std::to_string(error.line) + ": " + error.message);
  }
  ReplaceScript(g, std::move(parsed.lines), "", "");
  g.AutoBetsActive = 1;
  g.AutoBetsChanged = false;
}

}  // namespace

void SeatBettor(Game& g, Bettor bettor, std::int32_t seed) {
  Seed(g, RngMersenne, seed);
  g.Rules.AllowNegBankroll = true;
  g.HandleWinningBets = WinSameBet;
  if (bettor == Bettor::IronCross || bettor == Bettor::TenRules) {
    return SwitchOn(g, bettor == Bettor::IronCross ? kIronCross : kTenRules);
  }
  g.HandleLosingBets = LossSameBet;
  PutUp(g, Bet::PassLine, 10);
  if (bettor == Bettor::FiveBets) {
    PutUp(g, Bet::Field, 5);
    PutUp(g, Bet::Place6, 12);
    PutUp(g, Bet::Place8, 12);
    PutUp(g, Bet::Hard8, 1);
  }
}

std::unique_ptr<Game> OpenGame(SilentHost& host, Bettor bettor, std::int32_t seed) {
  auto game = std::make_unique<Game>();
  SetStartUpDefaults(*game);
  game->TheHost = &host;
  SeatBettor(*game, bettor, seed);
  return game;
}

void RollInHyperDrive(Game& g, std::int32_t rolls) {
  if (g.RollCount() > kMaxRollCount - rolls) g.RollCount() = 0;
  g.BetAmount[SlotBankroll] = Dollars(500);
  g.AutoRollsSet = g.AutoRollsLeft = rolls;
  g.KeepRolling = false;
  ToggleHyperDrive(g);
}

std::uint64_t Signature() {
  Hash hash;
  SilentHost host;
  std::uint32_t sequence = 1;
  for (std::int32_t rng = 0; rng < kRngCount; ++rng) {
    const auto game = OpenGame(host, Bettor::FiveBets, 1 + rng);
    Game& g = *game;
    Seed(g, rng, 1000 + rng);
    g.Rules.AllowPutBets = rng % 2 == 1;
    g.Rules.BuyVigOnAll = g.Rules.LayVigOnAll = rng % 3 != 1;
    g.HandleWinningBets = WinTakeDown + rng % 5;
    g.HandleLosingBets = LossTakeDown + rng % 5;
    PlayAtRandom(g, sequence, 20'000);
    AddGame(hash, g);
  }
  return hash.Value();
}

}  // namespace rollwick
