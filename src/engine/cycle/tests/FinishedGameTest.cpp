// A finished game goes into the Games Log before anything of it is cleared.
#include <gtest/gtest.h>

#include <fstream>

#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "engine/game/NewGame.h"
#include "stats/logs/GamesLog.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

struct FinishedGame : testing::Test, TestTable {
  TemporaryFolder folder;

  FinishedGame() {
    g.HandleWinningBets = WinTakeDown;
    g.Rules.NotifyFlags = 0;
    g.GamesLogPath = (folder / "games/default.glg").string();  // the folder is made with it
  }
  void Roll(int die1, int die2) {
    g.ManualDie1 = die1;
    g.ManualDie2 = die2;
    g.ManualRollPending = true;
    RollDice(g);
  }
  std::vector<GameRecord> Games() const {
    std::vector<GameRecord> games;
    EXPECT_FALSE(ReadGames(g.GamesLogPath, [&](const GameRecord& kept) { games.push_back(kept); }));
    return games;
  }
};

TEST_F(FinishedGame, IsKeptAsItEnded) {
  NewGame(g, false);
  EXPECT_FALSE(std::filesystem::exists(g.GamesLogPath)) << "a game without a roll";
  g.BetDelta = Dollars(20);
  PlaceChips(g, Bet::PassLine);
  Roll(3, 4);
  g.BetDelta = Dollars(5);
  PlaceChips(g, Bet::Field);
  Roll(2, 3);
  g.BetAmount[SlotChipStack + 19] = Dollars(7);
  g.BetAmount[SlotChipStack + 20] = Dollars(8);
  NewGame(g, false);
  NewGame(g, false);
  Roll(1, 1);
  NewGame(g, true);
  const auto games = Games();
  ASSERT_EQ(games.size(), 2U);
  const int expected[] = {2, 2, 1, 1, 0, 25, 20, 5, 15, 60, 500, 515};
  for (std::size_t field = 0; field < std::size(expected); ++field)
    EXPECT_EQ(games[0][field], Dollars(expected[field])) << GameFieldCaption(static_cast<int>(field));
  EXPECT_EQ(games[0][31], Dollars(7));
  EXPECT_EQ(games[1][GameRolls], Dollars(1));
  EXPECT_EQ(games[1][GameAdvantage], Money()) << "no handle";
  g.GamesLogPath.clear();
  Roll(1, 1);
  NewGame(g, false);
  EXPECT_EQ(TakeMessage(), "");
}

TEST_F(FinishedGame, ThatCannotBeKeptIsTold) {
  g.GamesLogPath = (folder / "default.glg").string();
  std::ofstream(g.GamesLogPath) << "a letter";
  for (const bool inHyperDrive : {false, true}) {
    SCOPED_TRACE(inHyperDrive ? "in Hyper-Drive" : "at the table");
    Roll(1, 1);
    g.HyperDriveActive = g.AutoBetRunning = g.KeepRolling = inHyperDrive;
    NewGame(g, false);
    const std::string refusal =
        "default.glg\ris either from an older version, has been corrupted, or is not a true Rollwick Games "
        "File.";
    EXPECT_EQ(TakeMessage(), inHyperDrive ? "" : refusal);
    EXPECT_EQ(g.StopMessage, inHyperDrive ? refusal : "");
    EXPECT_FALSE(g.KeepRolling);
    EXPECT_EQ(g.RollCount(), 0) << "the new game has begun all the same";
  }
  EXPECT_EQ(std::filesystem::file_size(g.GamesLogPath), 8U);
}

}  // namespace
}  // namespace rollwick
