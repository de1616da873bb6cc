// What a script says and asks.
#include "autobet/model/Codes.h"
#include "autobet/run/Run.h"
#include "base/FormatNumber.h"
#include "stats/tally/Tally.h"

namespace rollwick {

namespace {

constexpr std::size_t kPromptStart = 34;  // of a line's text: behind the indent, the verb and a blank

bool IsQuestion(std::int32_t op) {
  return op == Verb::Question || op == Verb::QuestionValue;
}
bool IsNotice(std::int32_t op) {
  return op == Verb::ShowMessage || op == Verb::ShowValue;
}

// The verb of the line so far from the one at work; 0 when there is no action.
std::int32_t VerbBeside(const Game& g, std::int32_t offset) {
  const std::int32_t line = g.CurrentLine + offset;
  if (line < 1 || line > std::ssize(g.ScriptProgram)) return 0;
  const ScriptStep& step = g.ScriptProgram[static_cast<std::size_t>(line - 1)];
  return step.Kind == KindAction ? step.Op : 0;
}

std::string WithoutLastReturn(std::string text) {
  if (text.ends_with('\r')) text.pop_back();
  return text;
}

void Show(AutoBetRun& run, bool asks) {
  Game& g = run.g;
  const std::string text = WithoutLastReturn(run.message);
  const std::int32_t wanted = g.HyperDriveActive ? NotifyAutoBetHyper : NotifyAutoBet;
  if (!asks && (g.Rules.NotifyFlags & wanted) == 0) return;
  if (g.HyperDriveActive) g.KeepRolling = false;
  BringUpToDate(g);
  if (asks) {
    g.LastAnswer = static_cast<std::int32_t>(AskYesNo(g, text, "Auto-Bet") ? Answer::Yes : Answer::No);
  } else {
    ShowMessage(g, text, "Auto-Bet");
  }
}

// `text` from its 35th character on.
std::string_view PromptPart(std::string_view text) {
  std::size_t characters = 0, place = 0;
  while (place < text.size() && characters <= kPromptStart) {
    const bool begins = (static_cast<unsigned char>(text[place]) & 0xC0U) != 0x80U;
    if (begins && ++characters > kPromptStart) break;
    ++place;
  }
  return text.substr(place);
}

}  // namespace

void SayLine(AutoBetRun& run, const ScriptStep& step) {
  const bool asks = IsQuestion(step.Op);
  const auto isOfRun = [&](std::int32_t verb) { return asks ? IsQuestion(verb) : IsNotice(verb); };
  if (!isOfRun(VerbBeside(run.g, -1))) run.message.clear();
  if (step.Op == Verb::ShowValue || step.Op == Verb::QuestionValue) {
    run.message += FormatMoney(ValueOf(run, Moment::Now, step.LeftCode, step.LeftIndex)) + " ;";
  } else {
    run.message += NameOf(run);
  }
  if (!run.error.empty()) return;
  if (run.message.ends_with(';')) {
    run.message.pop_back();
  } else {
    run.message += '\r';
  }
  if (!isOfRun(VerbBeside(run.g, 1))) Show(run, asks);
}

std::optional<Money> AskForInput(AutoBetRun& run) {
  Game& g = run.g;
  if (g.HyperDriveActive) g.KeepRolling = false;
  if (g.TheHost->IsMinimized()) {
    g.KeepRolling = g.AutoBetRunning = false;
    return {};
  }
  const std::int32_t before = VerbBeside(g, -1);
  const bool isToldBefore = (IsNotice(before) || IsQuestion(before)) && !run.message.empty();
  const std::string text =
      isToldBefore ? WithoutLastReturn(run.message)
                   : "Please enter a value to bet on:  " + std::string(PromptPart(LineOf(run).Text));
  Prompt prompt{PromptKind::Money, text, "Auto-Bet", "0", 15};
  BringUpToDate(g);
  FlushEventsLog(g);
  for (;;) {
    const std::optional<std::string> entry = g.TheHost->Ask(g, prompt);
    if (!entry) return {};
    if (const auto amount = ParseMoney(*entry)) return amount;
    prompt.text = "Please enter an amount, for example 12.50.\r\r" + text;
    prompt.preset = *entry;
  }
}

}  // namespace rollwick
