// A game played by the mouse and the same game typed at the console: their saved games are the same, field
// for field.
#include <map>

#include "console/tests/Rollwick.h"
#include "dice/Draw.h"
#include "files/GameFile.h"
#include "ui/tests/TestWindow.h"

namespace rollwick {
namespace {

constexpr PicturePoint kLammerOff = {555, 71}, kPanelSwitch = {489, 300};

// What each front end keeps for itself.
bool IsOfTheWindow(const std::string& field) {
  for (const char* own : {"Table", "Screens[", "SelectedChip", "games log", "events log"})
    if (field.starts_with(own)) return true;
  return false;
}

class SameGame : public TestWindow {
 protected:
  // Clicks with a chip of the tray, from the lowest.
  void Bet(BetId bet, int chip, int times = 1) {
    g().SelectedChip = chip;
    for (int i = 0; i < times; ++i) Click(bet);
  }
  void Roll() { Click(Bet::Field, Qt::RightButton); }
  // On what is no bet.
  void ClickAt(PicturePoint point) {
    const WidgetPoint at = ToWidget(Picture().Frame(), point);
    QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {static_cast<int>(at.x), static_cast<int>(at.y)});
  }

  std::map<std::string, std::string> Fields(const std::string& file) const {
    const Result shown = Rollwick({"game", "show", (temporary / file).string(), "--json"});
    EXPECT_EQ(shown.exitCode, 0) << shown.error;
    std::map<std::string, std::string> fields;
    const auto object = Lines(shown.out).at(0);
    for (const auto& [name, value] : object.items())
      if (!IsOfTheWindow(name)) fields[name] = value;
    return fields;
  }
};

TEST_F(SameGame, ByTheMouseAndAtTheConsole) {
  g().Rules.NotifyFlags = 0;
  g().HandleWinningBets = WinPressUnit;
  g().HandleLosingBets = LossSameBet;
  g().SeedRequest = Dollars(7);
  SeedGenerator(g(), true);
  std::string typed = "set NotifyFlags 0\nset HandleWinningBets " + std::to_string(WinPressUnit) +
                      "\nset HandleLosingBets " + std::to_string(LossSameBet) + "\nseed 7\n";
  const auto type = [&typed](const std::string& line) { typed += line + "\n"; };

  Bet(Bet::PassLine, 1, 2), type("add Pass_Line 5\nadd Pass_Line 5");
  Bet(Bet::Field, 1), type("add Field 5");
  Bet(Bet::Place6, 1), type("add Place_6 5");
  Roll(), type("roll");
  Choose("mnuTakeAllOdds"), type("odds take");
  Bet(Bet::Come, 1), type("add Come 5");
  Bet(Bet::Hard8, 0, 3), type("add Hard_8 1\nadd Hard_8 1\nadd Hard_8 1");
  Bet(SlotChipStack + 1, 2), type("add 101 25");
  for (int roll = 0; roll < 12; ++roll) Roll(), type("roll");
  ClickAt(kLammerOff), Click(Bet::Hard8), PressKey(Qt::Key_Escape), type("call Hard_8 off");
  ClickAt(kPanelSwitch);
  Bet(Bet::Hop25, 0), type("add Hop_2-5 1");
  ClickAt(kPanelSwitch);
  Choose("mnuCallAllBetsOn"), type("call all on");
  for (int roll = 0; roll < 12; ++roll) Roll(), type("roll");
  Choose("mnuRemoveAllBets"), type("remove all");
  Roll(), type("roll");
  g().KeepRolling = false;

  ASSERT_EQ(SaveGameFile(g(), temporary / "window.crp", folder), "");
  const Result played = Rollwick({"play", "--data", (temporary / "console").string()},
                                 typed + "save " + (temporary / "console.crp").string() + "\n");
  ASSERT_EQ(played.exitCode, 0) << played.error << played.out;
  const auto byMouse = Fields("window.crp"), byWords = Fields("console.crp");
  ASSERT_GT(byMouse.size(), 20'000U);
  for (const auto& [field, value] : byMouse) {
    const auto same = byWords.find(field);
    if (same == byWords.end() || same->second != value) {
      ADD_FAILURE() << field << " is " << value << " by the mouse, "
                    << (same == byWords.end() ? "missing" : same->second) << " at the console";
    }
  }
  EXPECT_EQ(byMouse.size(), byWords.size());
}

}  // namespace
}  // namespace rollwick
