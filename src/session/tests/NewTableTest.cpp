// The player's own new game: what is asked around it, and what the answers do.
#include "session/NewTable.h"

#include <gtest/gtest.h>

#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "dice/DiceFile.h"
#include "session/ActiveScript.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

struct Row {
  const char* name;
  bool isDirty, hasDiceFile, hasScript, isSwitchedOn;
  std::deque<Answer> answers;
  const char* asked;
  bool begins, keepsDiceFile, keepsScript, runsScript;
};
const Row kRows[] = {
    {"nothing to ask", false, false, false, false, {}, "", true, false, false, false},
    {"not now", true, true, true, true, {Answer::Cancel}, "Save Game?;", false, true, true, false},
    {"not to be saved", true, false, false, false, {Answer::No}, "Save Game?;", true, false, false, false},
    {"all kept",
     false,
     true,
     true,
     true,
     {Answer::Yes, Answer::Yes},
     "Dice Roll File Open;Auto-Bets Present;",
     true,
     true,
     true,
     true},
    {"script kept, but off",
     false,
     false,
     true,
     false,
     {Answer::Yes},
     "Auto-Bets Present;",
     true,
     false,
     true,
     false},
    {"nothing kept",
     false,
     true,
     true,
     true,
     {Answer::No, Answer::No},
     "Dice Roll File Open;Auto-Bets Present;",
     true,
     false,
     false,
     false},
};

TEST(NewTable, AsksAboutEverythingThatIsOpen) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const TemporaryFolder folder;
    TestTable t;
    t.g.BetAmount[SlotBankroll] = Dollars(321);
    t.g.GamePath = (folder / "mine.crp").string();
    t.g.TableDirty = row.isDirty;
    if (row.hasDiceFile) {
      ASSERT_FALSE(OpenDiceFile(t.g, folder / "dice.rol", true));
      t.g.DiceFileMode = DiceFileRecording;
    }
    if (row.hasScript)
      ReplaceScript(t.g, ParseScriptText("    Do this . . .\n          Bet $ 5 on Field\n").lines, "s.bet",
                    "");
    t.g.AutoBetsActive = row.isSwitchedOn ? 1 : 0;
    ASSERT_EQ(SaveActiveScript(t.g, folder.Path()), "");
    t.host.answers = row.answers;
    const Closing closing = BeginNewTable(t.g, folder.Path(), [](Unsaved) { return std::nullopt; });
    std::string asked;
    for (const Message& message : t.host.messages) asked += message.title + ";";
    EXPECT_EQ(asked, row.asked);
    EXPECT_EQ(closing, row.begins ? Closing::Done : Closing::Cancelled);
    EXPECT_EQ(t.g.BetAmount[SlotBankroll], row.begins ? Dollars(500) : Dollars(321));
    EXPECT_EQ(t.g.GamePath.empty(), row.begins);
    EXPECT_EQ(!t.g.DiceFileName.empty(), row.keepsDiceFile);
    EXPECT_EQ(t.g.DiceFileMode == DiceFileRecording, row.hasDiceFile && !row.begins);
    EXPECT_EQ(!t.g.ScriptLines.empty(), row.keepsScript);
    EXPECT_EQ(ReadActiveScript(folder.Path()).has_value(), row.keepsScript);
    EXPECT_EQ(t.Amount(Bet::Field), row.runsScript ? Dollars(5) : Money());
  }
}

TEST(NewTable, TellsWhetherTheScriptWasSaved) {
  for (const bool isDirty : {false, true}) {
    const TemporaryFolder folder;
    TestTable t;
    ReplaceScript(t.g, ParseScriptText("    Do this . . .\n          Bet $ 5 on Field\n").lines, "s.bet", "");
    t.g.ScriptDirty = isDirty;
    t.host.answers = {isDirty ? Answer::No : Answer::Yes, Answer::Yes};
    BeginNewTable(t.g, folder.Path(), [](Unsaved) { return std::nullopt; });
    EXPECT_EQ(t.host.messages.back().text.starts_with("Although you didn't save your Auto-Bets\rto disk"),
              isDirty);
  }
}

TEST(NewTable, DoesNotBeginWhileTheDiceRoll) {
  TestTable t;
  t.g.BetAmount[SlotBankroll] = Dollars(321);
  t.g.RollInProgress = true;
  EXPECT_EQ(BeginNewTable(t.g, "", [](Unsaved) { return std::nullopt; }), Closing::Cancelled);
  EXPECT_EQ(t.g.BetAmount[SlotBankroll], Dollars(321));
}

}  // namespace
}  // namespace rollwick
