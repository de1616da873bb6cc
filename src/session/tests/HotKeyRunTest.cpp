// A hot key runs its file once, and the player's script comes back.
#include "session/HotKeyRun.h"

#include <gtest/gtest.h>

#include <fstream>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "session/ActiveScript.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

constexpr const char* kPlayers =
    "While . . .\n          Flag \"Mine\" is True\n    then . . .\n          Bet $ 10 on Pass Line\n";

std::vector<ScriptLine> Script(std::string_view text) {
  ParsedScript parsed = ParseScriptText(text);
  EXPECT_TRUE(parsed.errors.empty()) << text;
  return std::move(parsed.lines);
}

class StatusHost : public ScriptedHost {
 public:
  std::vector<std::string> status;
  void ShowStatus(Game&, std::string_view text) override { status.emplace_back(text); }
};

struct HotKeyRuns : testing::Test {
  TemporaryFolder folder;
  TestTable t;
  Game& g = t.g;
  StatusHost host;
  HotKey hotKey{"b", "place.bet", ""};

  HotKeyRuns() {
    g.TheHost = &host;
    ReplaceScript(g, Script(kPlayers), "players.bet", "/home/x/players.bet");
    g.ScriptDirty = true;
    g.AutoBetsChanged = false;
    g.ScriptInsertLine = 3;
    g.ScriptLines[1].Selected = true;
    g.ScriptFlags[0].Value = 1;
  }
  void PutFile(std::string_view text) const {
    std::ofstream(folder / "place.bet", std::ios::binary) << ScriptFileBytes(Script(text));
  }
  void ExpectThePlayersScript(const std::vector<ScriptLine>& lines) const {
    EXPECT_EQ(g.ScriptLines, lines);
    EXPECT_EQ(g.ScriptFileName, "players.bet");
    EXPECT_TRUE(g.ScriptDirty);
    EXPECT_FALSE(g.AutoBetsChanged);
    EXPECT_FALSE(g.HotKeyRunning);
    EXPECT_EQ(g.ScriptInsertLine, 3);
    ASSERT_EQ(g.ScriptFlags.size(), 1U);
    EXPECT_EQ(g.ScriptFlags[0].Name, "Mine");
    EXPECT_EQ(g.ScriptFlags[0].Value, 1);
  }
};

TEST_F(HotKeyRuns, OnceAndThePlayersScriptIsBack) {
  struct Row {
    const char* name;
    const char* text;
    Money place6;
    const char* message;  // its title; "" for none
  };
  const std::string bet = "    Do this . . .\n          Bet $ 12 on Place 6\n";
  const std::string flag =
      bet + "          Set flag \"Other\" to True\n          Set flag \"Mine\" to False\n";
  const std::string seesFlag =
      "While . . .\n          Flag \"Mine\" is True\n    then . . .\n          Bet $ 12 on Place 6\n";
  const std::string fails = bet + "          Open/clear file for output: x\n          Bet $ 18 on Place 6\n";
  const Row rows[] = {
      {"a bet", bet.c_str(), Dollars(12), ""},
      {"flags of its own", flag.c_str(), Dollars(12), ""},
      {"the player's flag is seen", seesFlag.c_str(), Dollars(12), ""},
      {"one that is aborted", fails.c_str(), Dollars(12), "Auto-Bet Abort"},
      {"one without lines", "", Money(), ""},
  };
  const std::vector<ScriptLine> lines = g.ScriptLines;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    g.BetAmount[Bet::Place6] = g.TotalBets = Money();
    PutFile(row.text);
    EXPECT_TRUE(RunHotKey(g, hotKey, folder.Path()));
    EXPECT_EQ(t.Amount(Bet::Place6), row.place6);
    EXPECT_EQ(host.messages.empty() ? "" : host.messages[0].title, row.message);
    host.messages.clear();
    ExpectThePlayersScript(lines);
    EXPECT_EQ(host.status, std::vector<std::string>{"Hot-Key"});
    host.status.clear();
    // What is left of the player's script if the run never ends.
    const auto copy = ReadActiveScript(folder.Path());
    ASSERT_TRUE(copy);
    EXPECT_EQ(ScriptFileBytes(*copy), ScriptFileBytes(lines));
  }
}

TEST_F(HotKeyRuns, ANewGameHasNoFlagUp) {
  g.RollEventCount[EventEveryRoll] = 5;
  PutFile("    Do this . . .\n          Reset table\n");
  EXPECT_TRUE(RunHotKey(g, hotKey, folder.Path()));
  EXPECT_EQ(g.RollCount(), 0);
  EXPECT_EQ(g.ScriptFlags[0].Value, 0);
  EXPECT_EQ(g.ScriptLines.size(), Script(kPlayers).size());
}

TEST_F(HotKeyRuns, WithoutAFileNothingHappens) {
  hotKey.path = "none.bet";
  const std::vector<ScriptLine> lines = g.ScriptLines;
  EXPECT_FALSE(RunHotKey(g, hotKey, folder.Path()));
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].title, "Hot-Key");
  EXPECT_EQ(host.messages[0].text,
            "Unable to find the Auto-Bet file:\r\rnone.bet\r\rin the specified location.\r\rPlease check the "
            "filename and/or location and make corrections on the Hot-Key screen.");
  EXPECT_FALSE(std::filesystem::exists(folder / "active.tmp"));
  ExpectThePlayersScript(lines);
}

TEST_F(HotKeyRuns, WhatStopsOne) {
  PutFile("    Do this . . .\n          Bet $ 12 on Place 6\n");
  const std::vector<ScriptLine> lines = g.ScriptLines;
  {
    const FileSizeLimit full(10);
    EXPECT_FALSE(RunHotKey(g, hotKey, folder.Path()));
    EXPECT_EQ(host.messages.back().text, "File too large, Error #27");
  }
  for (bool* const isBusy : {&g.RollInProgress, &g.AutoBetRunning, &g.HotKeyRunning}) {
    *isBusy = true;
    EXPECT_FALSE(RunHotKey(g, hotKey, folder.Path()));
    *isBusy = false;
  }
  std::ofstream(folder / "place.bet") << "a letter";
  EXPECT_FALSE(RunHotKey(g, hotKey, folder.Path()));
  EXPECT_EQ(host.messages.back().title, "Unable to Open Auto-Bet File");
  EXPECT_EQ(t.Amount(Bet::Place6), Money());
  ExpectThePlayersScript(lines);
}

}  // namespace
}  // namespace rollwick
