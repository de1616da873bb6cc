// Notices, questions and the Events Log: everything the logic says to the world.
#include <algorithm>

#include "engine/state/Game.h"

namespace rollwick {

namespace {

constexpr int kAnswerBits = MessageYes | MessageNo | MessageCancel;

int ClassFlag(std::int32_t notifyBit) {
  switch (notifyBit) {
    case NotifyNotAllowed:
      return MessageClassNotAllowed;
    case NotifyLimits:
      return MessageClassLimits;
    case NotifyCharges:
      return MessageClassCharges;
    default:
      return 0;
  }
}

}  // namespace

Answer ShowMessage(Game& g, std::string_view text, std::string_view title, int flags) {
  FlushEventsLog(g);
  if (g.TheHost->IsMinimized()) {
    if ((flags & kAnswerBits) != 0) g.KeepRolling = g.AutoBetRunning = false;
    return Answer::Cancel;
  }
  return g.TheHost->Show(g, {std::string(text), std::string(title), flags});
}

bool AskYesNo(Game& g, std::string_view text, std::string_view title) {
  return ShowMessage(g, text, title, MessageYes | MessageNo | MessageQuestion) == Answer::Yes;
}

bool MayNotify(const Game& g, std::int32_t notifyBit) {
  return !g.HyperDriveActive && (g.Rules.NotifyFlags & notifyBit) != 0;
}

void ShowNotice(Game& g, std::int32_t notifyBit, std::string_view text, std::string_view title) {
  ShowMessage(g, text, title, MessagePlain | ClassFlag(notifyBit));
}

void LogEvent(Game& g, std::string_view text) {
  if (g.TheLog == nullptr) return;
  const std::size_t start = g.PendingLogLines.size();
  g.PendingLogLines += text;
  // The name of a file may hold anything; a line of the log stays one line.
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
  std::replace_if(g.PendingLogLines.begin() + static_cast<std::ptrdiff_t>(start), g.PendingLogLines.end(),
                  isControl, '?');
  g.PendingLogLines += '\n';
}

void FlushEventsLog(Game& g) {
  if (g.PendingLogLines.empty()) return;
  const std::string lines = std::move(g.PendingLogLines);
  g.PendingLogLines.clear();
  const std::string failure = g.TheLog->Append(g, lines);
  if (failure.empty()) return;
  g.RecordEventsActive = false;
  const std::string text = "The Events Log could not be written and has been turned off.\r\r" + failure;
  if (g.HyperDriveActive) {
    g.KeepRolling = false;
    g.StopMessage = text;
  } else {
    ShowMessage(g, text, "Events Log", MessagePlain | MessageWarning);
  }
}

bool TablesAgree(const Game& g) {
  Money total;
  for (BetId bet = 1; bet <= kBetCount; ++bet) total += g.BetAmount[bet];
  if (g.Rules.LayVigOnAll) {
    for (const Money vig : g.LayVigAmount) total += vig;
  }
  if (g.Rules.BuyVigOnAll) {
    for (const Money vig : g.BuyVigAmount) total += vig;
  }
  if (total != g.TotalBets) return false;
  if (g.Point == 0) return true;
  return g.PayoffTable[Bet::PassLineOdds] == g.PayoffTable[ComeOddsOn(g.Point)] &&
         g.PayoffTable[Bet::DontPassOdds] == g.PayoffTable[DontComeOddsOn(g.Point)];
}

bool BetSetsAgree(const Game& g) {
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const std::int32_t working = g.BetWorking[bet];
    if (g.BetsStanding.Has(bet) != (g.BetAmount[bet] != Money())) return false;
    if (g.BetsInAction.Has(bet) != (working >= On)) return false;
    if (g.BetsCalled.Has(bet) != (working == CalledOn || working == CalledOff)) return false;
    if (g.BetsOnByDefault.Has(bet) != (g.BetWorkingDefault[bet] >= On)) return false;
  }
  return true;
}

}  // namespace rollwick
