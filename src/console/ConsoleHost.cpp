// Answers in order, and runs that Ctrl-C can end.
#include "console/ConsoleHost.h"

#include <algorithm>
#include <ostream>
#include <type_traits>
#include <utility>

#include "base/FormatNumber.h"
#include "base/Nearest.h"
#include "console/Words.h"
#include "engine/cycle/RollDice.h"
#include "session/DataFolder.h"
#include "session/StartAndEnd.h"

namespace rollwick {
namespace {

std::string Seconds(double seconds) {
  const auto whole = static_cast<std::int64_t>(seconds);
  if (whole < 60) return std::to_string(whole) + " s";
  return std::to_string(whole / 60) + " min " + std::to_string(whole % 60) + " s";
}

std::string Join(const std::vector<SettleRow>& rows) {
  std::string text;
  for (const SettleRow& row : rows) text += (text.empty() ? "" : "\r") + row.label + " " + row.amount;
  return text;
}

// Keeps the newest: a script that goes round for ever must not fill the memory with what it says.
template <class Said>
void Keep(std::deque<Said>& all, std::type_identity_t<Said> said) {
  constexpr std::size_t kMost = 100'000;
  if (all.size() == kMost) all.pop_front();
  all.push_back(std::move(said));
}

}  // namespace

void ConsoleHost::ForgetWhatWasSaid() {
  notices.clear();
  questions.clear();
}

void ConsoleHost::Roll(Game& g, std::int32_t rolls) {
  StartRun(g, rolls);
  rollsWanted_ = rolls;
  if (g.AutoRoll && g.AutoRollsLeft == 0) g.AutoRollsLeft = g.AutoRollsSet;
  while (rollsWanted_ > 0 && !WasInterrupted()) {
    const std::int32_t wantedBefore = rollsWanted_;
    g.KeepRolling = true;
    RollDice(g);
    if (!g.KeepRolling) break;
    if (rollsWanted_ == wantedBefore) --rollsWanted_;  // a roll without a wait behind it: auto-roll is off
    PumpEvents(g);
  }
  rollsWanted_ = 0;
  g.KeepRolling = false;
  EndRun();
}

std::int64_t ConsoleHost::HyperDrive(Game& g, std::int32_t rolls, bool throughGames) {
  StartRun(g, rolls);
  g.AutoRollsSet = g.AutoRollsLeft = throughGames ? 0 : rolls;
  g.RollsInRunSet = throughGames ? rolls : 0;
  g.RollsInRun = 0;
  ToggleHyperDrive(g);
  g.RollsInRunSet = 0;
  g.KeepRolling = false;
  EndRun();
  return g.RollsInRun;
}

std::uint32_t ConsoleHost::Milliseconds(Game&) {
  // A step at each look, within what every generator takes for a seed.
  if (ownClock) return *ownClock = 1'000 + (*ownClock + 12'347) % 99'000'000;
  return static_cast<std::uint32_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now().time_since_epoch()).count());
}

void ConsoleHost::PumpEvents(Game& g) {
  lastServed_ = Clock::now();
  if (WasInterrupted()) g.KeepRolling = g.AutoBetRunning = false;  // also a script that goes round for ever
  if (progress_ != nullptr) ShowProgress(g);
}

void ConsoleHost::Wait(Game& g, std::uint32_t) {
  PumpEvents(g);
  if (g.HyperDriveActive || rollsWanted_ == 0) return;
  if (--rollsWanted_ == 0) g.KeepRolling = false;
}

std::optional<std::string> ConsoleHost::NextAnswer() {
  if (answers.empty()) return {};
  std::string answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

Answer ConsoleHost::Show(Game&, const Message& message) {
  if ((message.flags & (MessageYes | MessageNo | MessageCancel)) == 0) {
    Keep(notices, message);
    return Answer::Ok;
  }
  const std::string given = NextAnswer().value_or("no");
  const bool isYes = SameWord(given, "yes") && (message.flags & MessageYes) != 0;
  const bool isCancel = SameWord(given, "cancel") && (message.flags & MessageCancel) != 0;
  Keep(questions, {message.title, message.text, isYes ? "yes" : isCancel ? "cancel" : "no"});
  return isYes ? Answer::Yes : isCancel ? Answer::Cancel : Answer::No;
}

std::optional<std::string> ConsoleHost::Ask(Game&, const Prompt& prompt) {
  std::optional<std::string> given = NextAnswer();
  if (given) {
    if (SameWord(*given, "cancel")) given.reset();
  } else if (questions.empty() || questions.back().title != prompt.title) {
    given = prompt.preset;
  }
  // An entry that was refused comes back at once; with no other answer to give the prompt is closed.
  Keep(questions, {prompt.title, prompt.text, given.value_or("cancel")});
  return given;
}

SettleAnswer ConsoleHost::Settle(Game&, const SettleQuestion& question) {
  const std::optional<std::string> given = NextAnswer();
  const auto entered = given ? ParseWhole(*given, 0, kSettleChoices - 1) : std::nullopt;
  const int choice = question.mustComeDown ? 0 : static_cast<int>(entered.value_or(question.remembered));
  std::string meaning = question.choices[static_cast<std::size_t>(choice)];
  std::erase(meaning, '&');
  Keep(questions, {question.caption, Join(question.rows), std::to_string(choice), meaning});
  return {choice, {}};
}

FileGrant ConsoleHost::GrantFile(Game&, std::string_view name, FileUse use) {
  namespace fs = std::filesystem;
  if (name.empty() || name.find('\0') != std::string_view::npos) return {{}, "The script names no file"};
  const fs::path folder = fs::absolute(scriptFolder) / "", named = folder / name;
  if (!scriptsMayLeaveIt && !IsInFolder(named, folder)) {
    const std::string what = use == FileUse::Write ? "write" : "read";
    return {{},
            "The file \"" + Echo(name) + "\" lies outside of " + folder.parent_path().string() +
                ", where scripts may " + what + "; --allow-write lets them " + what + " anywhere"};
  }
  std::error_code unknown;  // opening the file will tell
  if (use == FileUse::Write && named.parent_path() == folder.parent_path()) {
    fs::create_directories(folder, unknown);
  }
  return {named, {}};
}

std::string ConsoleHost::SaveWorkingGame(Game& g) {
  return workingGameFolder.empty() ? "" : rollwick::SaveWorkingGame(g, workingGameFolder);
}

void ConsoleHost::StartRun(Game& g, std::int32_t rolls) {
  g.LastStopMessage.clear();  // of the run before: this one may be refused at its start
  progressRolls_ = rolls;
  started_ = lastShown_ = Clock::now();
}

void ConsoleHost::ShowProgress(const Game& g) {
  const auto now = Clock::now();
  const double seconds = std::chrono::duration<double>(now - started_).count();
  if (seconds < 1 || now - lastShown_ < std::chrono::milliseconds(250)) return;
  lastShown_ = now;
  const std::int64_t done = g.HyperDriveActive ? g.RollsInRun : progressRolls_ - rollsWanted_;
  const double perSecond = static_cast<double>(done) / seconds;
  std::string line = FormatMoney(Dollars(done)) + " rolls  " +
                     FormatMoney(Dollars(static_cast<std::int64_t>(perSecond))) + " rolls/s  bankroll " +
                     FormatMoney(g.BetAmount[SlotBankroll], "$");
  if (progressRolls_ > done && perSecond >= 1)
    line += "  " + Seconds(static_cast<double>(progressRolls_ - done) / perSecond) + " left";
  *progress_ << "\r\x1b[K" << line << std::flush;
  progressIsShown_ = true;
}

void ConsoleHost::EndRun() {
  if (progressIsShown_) *progress_ << "\r\x1b[K" << std::flush;
  progressIsShown_ = false;
}

}  // namespace rollwick
