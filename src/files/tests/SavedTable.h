// A table with a folder of its own to save games in, for tests.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "engine/game/NewGame.h"
#include "files/GameFields.h"
#include "files/GameFile.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {

inline std::string Contents(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

inline void PutContents(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// The next throw of a fixed sequence.
struct PadDice {
  std::uint32_t state = 1;
  int Next() {
    state = state * 1'103'515'245 + 12'345;
    return static_cast<int>(state >> 16) % 6 + 1;
  }
};

struct SavedTable : TestTable {
  const TemporaryFolder& folder;

  explicit SavedTable(const TemporaryFolder& where) : folder(where) {
    g.GamesLogPath = (folder / "default.glg").string();
    for (std::size_t i = 0; i < g.ChipStackName.size(); ++i)
      g.ChipStackName[i] = "Stack " + std::to_string(i);
    g.HandleWinningBets = WinTakeDown;
    g.Rules.NotifyFlags = 0;
  }
  void Bet(BetId bet, int dollars) {
    g.BetDelta = Dollars(dollars);
    ChangeBet(g, bet);
  }
  void Roll(int die1, int die2) {
    g.ManualDie1 = die1;
    g.ManualDie2 = die2;
    g.ManualRollPending = true;
    RollDice(g);
  }
  // Rolls with a few bets put up again and again.
  void Play(int rolls, PadDice& dice) {
    for (int i = 0; i < rolls; ++i) {
      if (g.Point == 0) Bet(Bet::PassLine, 5);
      if (g.Point != 0) Bet(Bet::Come, 5);
      if (i % 3 == 0) Bet(Bet::Buy4, 20);
      Bet(Bet::Field, 1);
      const int die1 = dice.Next();
      Roll(die1, dice.Next());
    }
  }
  std::string Save(const char* name) {
    EXPECT_EQ(SaveGameFile(g, folder / name, folder.Path()), "");
    return Contents(folder / name);
  }
  LoadedGame Load(const char* name) { return LoadGameFile(g, folder / name, folder.Path()); }
  LoadedGame LoadBytes(const std::string& bytes, const char* name = "changed.crp") {
    PutContents(folder / name, bytes);
    return Load(name);
  }
};

inline std::string NoticesOf(const LoadedGame& loaded) {
  std::string all;
  for (const Message& notice : loaded.notices) all += notice.title + ": " + notice.text + "\n";
  return all;
}

}  // namespace rollwick
