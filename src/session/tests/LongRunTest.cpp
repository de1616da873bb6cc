// A run of Hyper-Drive against the same game roll by roll, with everything going on that may go on in
// mid-run: rules, calls and bets changed, a script that resets counters, the matrix, games saved and loaded.
// ROLLWICK_ROLLS=1000000 plays that many rolls.
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "dice/Draw.h"
#include "dice/MatrixEdit.h"
#include "engine/bets/Payoffs.h"
#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "files/GameFile.h"
#include "support/LookingHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

constexpr std::int32_t kLook = 64;  // rolls between two looks of the world at a run

// Where a game file says when its script was written.
constexpr std::size_t kScriptDate = 208, kDateWidth = 40;

constexpr std::string_view kScript = R"(While . . .
          Next roll is a come-out roll
    then . . .
          Bet $ 10 on Pass Line
While . . .
          Next roll is NOT a come-out roll
and while . . .
          Total Come bets number less than 2
    then . . .
          Bet $ 10 on Come
          Bet $ 20 on all Come Odds bets
When . . .
          Any Place bet has lost
or when . . .
          Chip-Stack # 1 is greater than $ 3
    then . . .
          Bet $ 0 on Chip-Stack # 1
          Reset wins / losses on all Place bets
    else . . .
          Bet $ 12 on Place 6
          Add $ 6 to Place 8
When . . .
          Hard 8 (4-4) has rolled 3 times
    then . . .
          Reset rolls on all the numbers
          Add $ 1 to Chip-Stack # 1
When . . .
          Bankroll is less than $ 0
xor when . . .
          On each miss
    then . . .
          Gosub "buttons"
          Set flag "missed" to True
    Do this . . .
          Go to "end"
buttons
While . . .
          Flag "missed" is True
    then . . .
          Call OFF Place 6
          Set flag "missed" to False
    Do this . . .
          Multiply by 2 on Field
          Return
end
When . . .
          Any Come bet is greater than $ 0
or when . . .
          Total Place bets number more than 1
    then . . .
          Add $ 1 to Chip-Stack # 2
    Do this . . .
          Bet $ 5 on Field
          Bet $ 5 on Don't Come
          Bet $ 10 on Pass Line Odds
)";

// One of the two games, with a sequence of accidents of its own.
class Player {
 public:
  Player(std::uint32_t seed, const TemporaryFolder& where) : random(seed), folder(where) {
    g.TheHost = &host;
    SetStartUpDefaults(g);
    g.Rules.AllowNegBankroll = true;
    g.RngChoice = RngMersenne;
    g.SeedRequest = Dollars(1 + seed);
    SeedGenerator(g, true);
    g.HandleWinningBets = WinPressUnit;
    g.HandleLosingBets = LossSameBet;
    EnterMatrixCell(g, 1, 1, 4);
    ParsedScript parsed = ParseScriptText(kScript);
    EXPECT_TRUE(parsed.errors.empty()) << parsed.errors[0].line << ": " << parsed.errors[0].message;
    ReplaceScript(g, std::move(parsed.lines), "", "");
    g.AutoBetsActive = 1;
    g.AutoBetsChanged = false;
  }

  int Pick(int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); }

  // The bank stays within its limit, which would end a run.
  void StartAfresh() { g.BetAmount[SlotBankroll] = Dollars(500); }

  void Roll(std::int32_t rolls) {
    g.AutoRollsSet = g.AutoRollsLeft = rolls;
    g.KeepRolling = false;
    ToggleHyperDrive(g);
  }

  // What a player may do while a run lets him.
  void ChangeSomething() {
    const BetId bet = 1 + Pick(kBetCount - 1);
    switch (Pick(9)) {
      case 0:
        g.Rules.LayVigOnAll = !g.Rules.LayVigOnAll;
        return RefreshVigs(g, {g.Rules.BuyVigOnAll, !g.Rules.LayVigOnAll});
      case 1:
        g.Rules.BarNumber = Pick(1) == 0 ? 2 : 12;
        return;
      case 2:
        g.Rules.AllowPutBets = !g.Rules.AllowPutBets;
        return;
      case 3:
        g.FieldPayoffTable[1 + static_cast<std::size_t>(Pick(20))].Ratio = Dollars(Pick(3) - 1);
        return;
      case 4:
        g.UseProbabilityMatrix = !g.UseProbabilityMatrix;
        return;
      case 5:
        return CallAllBets(g, Pick(1) == 0);
      case 6:
        g.PlaceBias = Pick(2);
        return;
      case 7:
        g.Rules.MaxPlacardBet = Dollars(20 + Pick(500));
        return;
      default:
        g.BetDelta = Dollars(Pick(60) - 20);
        return PlaceChips(g, bet);
    }
  }

  // The game as its file has it; then it goes on from that file.
  std::string SaveAndLoad() {
    g.AutoRollsSet = g.AutoRollsLeft = 0;  // which differ by how the game is rolled
    const auto file = folder / std::string(kWorkingGame);
    EXPECT_EQ(SaveGameFile(g, file, folder.Path()), "");
    std::ifstream in(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    EXPECT_EQ(LoadGameFile(g, file, folder.Path()).result, GameFileResult::Loaded);
    g.AutoBetsChanged = false;
    return bytes.str().replace(kScriptDate, kDateWidth, "");
  }

 private:
  std::unique_ptr<Game> game_ = std::make_unique<Game>();

 public:
  std::mt19937 random;
  const TemporaryFolder& folder;
  LookingHost host;
  Game& g = *game_;
};

void ExpectSame(const GameTables& run, const GameTables& stepped) {
  EXPECT_EQ(run.RollEventCount, stepped.RollEventCount);
  EXPECT_EQ(run.RollsSinceEvent, stepped.RollsSinceEvent);
  EXPECT_EQ(run.RollGapHistogram, stepped.RollGapHistogram);
  EXPECT_EQ(run.TrackedEventCount, stepped.TrackedEventCount);
  EXPECT_EQ(run.TrackedRollBase, stepped.TrackedRollBase);
  EXPECT_EQ(run.BetWagers, stepped.BetWagers);
  EXPECT_EQ(run.BetWins, stepped.BetWins);
  EXPECT_EQ(run.BetLosses, stepped.BetLosses);
  EXPECT_EQ(run.BetStreak, stepped.BetStreak);
  EXPECT_EQ(run.BetAmount, stepped.BetAmount);
  EXPECT_EQ(run.BetWorking, stepped.BetWorking);
  EXPECT_EQ(run.HandStats, stepped.HandStats);
  EXPECT_EQ(run.BankrollHistory, stepped.BankrollHistory);
}

std::int32_t RollsWanted() {
  std::int32_t rolls = 20'000;
  if (const char* text = std::getenv("ROLLWICK_ROLLS"))
    std::from_chars(text, text + std::char_traits<char>::length(text), rolls);
  return rolls;
}

TEST(LongRun, IsTheSameGameAsItsRollsOneByOne) {
  const TemporaryFolder folder;
  Player run(5, folder), stepped(5, folder);
  std::mt19937 lengths(5);
  std::int32_t rolls = 0;
  run.host.look = [&](Game&) {
    if (run.Pick(3) == 0) run.ChangeSomething();
  };
  for (const std::int32_t wanted = RollsWanted(); rolls < wanted && !HasFailure();) {
    const auto length = kLook * static_cast<std::int32_t>(1 + lengths() % 40);
    run.StartAfresh();
    stepped.StartAfresh();
    run.Roll(length);
    for (std::int32_t roll = 1; roll <= length; ++roll) {
      stepped.Roll(1);
      if (roll % kLook == 0 && stepped.Pick(3) == 0) stepped.ChangeSomething();
    }
    rolls += length;
    SCOPED_TRACE("roll " + std::to_string(rolls));
    ASSERT_EQ(run.g.RollCount(), rolls);
    ExpectSame(run.g, stepped.g);
    if (lengths() % 8 != 0) continue;
    const std::string ofRun = run.SaveAndLoad(), ofStepped = stepped.SaveAndLoad();
    const auto differ = std::mismatch(ofRun.begin(), ofRun.end(), ofStepped.begin(), ofStepped.end()).first;
    EXPECT_EQ(ofRun.end() - differ, 0) << "the files differ from byte " << differ - ofRun.begin() << " on";
  }
}

}  // namespace
}  // namespace rollwick
