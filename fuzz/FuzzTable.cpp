#include "FuzzTable.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "base/AtomicFile.h"
#include "engine/bets/Placement.h"
#include "engine/cycle/RollDice.h"
#include "engine/game/NewGame.h"

namespace rollwick {

void Demand(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "Demanded, and does not hold: %s\n", what);
  std::abort();
}

void PutFile(const std::filesystem::path& path, std::string_view bytes) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  Demand(file >= 0 && WriteAll(file, bytes) == 0, "the folder of the inputs takes a file");
  close(file);
}

std::string FileBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

Answer HastyHost::Show(Game&, const Message& message) {
  if ((message.flags & MessageYes) == 0) return Answer::Ok;
  return ++asked_ % 2 != 0 ? Answer::Yes : Answer::No;
}

std::optional<std::string> HastyHost::Ask(Game&, const Prompt& prompt) {
  if (++asked_ % 2 == 0) return {};
  return prompt.preset;
}

SettleAnswer HastyHost::Settle(Game&, const SettleQuestion& question) {
  return {question.mustComeDown ? 0 : ++asked_ % kSettleChoices, {}};
}

FuzzTable::FuzzTable(const std::filesystem::path& folder) : host(folder) {
  g.TheHost = &host;
  StartUp(g);
}

void FuzzTable::PlayOn(int rolls) {
  constexpr BetId kBets[] = {Bet::PassLine, Bet::Come, Bet::Place6, Bet::Field};
  for (const BetId bet : kBets) {
    g.BetDelta = LowestChip(g);
    ChangeBet(g, bet);
    RollDice(g);
    Demand(TablesAgree(g), "tables that agree after a roll");
  }
  g.AutoRollsSet = g.AutoRollsLeft = 0;
  g.RollsInRunSet = rolls;
  g.RollsInRun = 0;
  ToggleHyperDrive(g);
  Demand(TablesAgree(g), "tables that agree after Hyper-Drive");
  Demand(!g.RollInProgress && !g.HyperDriveActive, "an end of Hyper-Drive");
  Demand(g.BankrollHistoryCount >= 0 && g.BankrollHistoryCount <= kGraphPage,
         "points that fit the graph's page");
}

std::string FuzzTable::Bytes() const {
  return {reinterpret_cast<const char*>(static_cast<const GameTables*>(&g)), sizeof(GameTables)};
}

}  // namespace rollwick
