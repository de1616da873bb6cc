#include "session/NewTable.h"

#include "autobet/model/Script.h"
#include "autobet/run/RunAutoBet.h"
#include "dice/DiceFile.h"
#include "engine/game/NewGame.h"
#include "session/ActiveScript.h"

namespace rollwick {
namespace {

void AskAboutDiceFile(Game& g) {
  if (g.DiceFileName.empty()) return;
  if (!AskYesNo(
          g,
          "Although the dice roll recorder is turned off, would you like to keep the same Dice Roll File "
          "open?",
          "Dice Roll File Open"))
    CloseDiceFile(g);
}

void AskAboutScript(Game& g, const std::filesystem::path& dataFolder) {
  if (g.ScriptLines.empty()) return;
  const std::string where =
      g.ScriptDirty
          ? "Although you didn't save your Auto-Bets\rto disk, they're still listed on the\rAuto-Bet screen."
          : "Your Auto-Bets are still listed on\rthe Auto-Bet screen.";
  if (AskYesNo(g, where + "\r\rWould you like to keep them with\ryour new game?", "Auto-Bets Present")) {
    if (AutoBetsAreOn(g)) InitializeAutoBets(g);
    return;
  }
  ClearScript(g);
  if (const std::string failure = SaveActiveScript(g, dataFolder); !failure.empty())
    ShowMessage(g, failure, "Auto-Bet", MessagePlain | MessageWarning);
}

}  // namespace

Closing BeginNewTable(Game& g, const std::filesystem::path& dataFolder, const ChooseFile& chooseFile) {
  if (g.RollInProgress || g.AutoBetRunning) return Closing::Cancelled;
  const Closing answer = QueryUnsaved(g, dataFolder, chooseFile);
  if (answer != Closing::Done) return answer;
  NewGame(g, false);
  g.GamePath.clear();
  AskAboutDiceFile(g);
  AskAboutScript(g, dataFolder);
  return Closing::Done;
}

}  // namespace rollwick
