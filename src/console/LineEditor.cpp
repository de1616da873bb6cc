// The terminal's side of line editing.
#include "console/LineEditor.h"

#include <histedit.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cwchar>

#include "base/Nearest.h"
#include "console/PlayCommands.h"
#include "session/Settings.h"

namespace rollwick {
namespace {

std::vector<std::string> SettingWords() {
  const auto game = std::make_unique<Game>();
  std::vector<std::string> names;
  for (const SettingEntry& entry : ListSettings(*game))
    names.push_back(entry.name + (entry.isArray ? "[" : ""));
  return names;
}

std::vector<std::string> With(std::vector<std::string> words, std::initializer_list<const char*> more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

// Every word that may follow those before it.
std::vector<std::string> WordsAfter(const std::vector<std::string>& before) {
  if (before.empty()) return PlayCommandNames();
  const std::string& command = before[0];
  const auto is = [&](std::string_view name) { return SameWord(command, name); };
  if (before.size() == 1) {
    if (is("bet") || is("add") || is("buy")) return BetWords();
    if (is("remove") || is("call")) return With(BetWords(), {"all"});
    if (is("payoff")) return With(BetWords(), {"field", "restore"});
    if (is("set")) return SettingWords();
    if (is("show")) return ShowWords();
    if (is("help")) return PlayCommandNames();
    if (is("odds")) return {"take", "lay"};
    if (is("atm")) return {"withdraw", "deposit"};
    if (is("log")) return {"on", "off"};
    if (is("new")) return {"keep"};
    if (is("script")) return {"load", "on", "off", "run", "clear"};
    if (is("dicefile")) return {"close", "rewind"};
  }
  if (before.size() == 2 && is("show") && SameWord(before[1], "bet")) return BetWords();
  if (is("show") && SameWord(before[1], "results")) return With(BetWords(), {"actual", "phantom"});
  if (before.size() == 2 && (is("call") || is("set"))) return {"on", "off"};
  return {};
}

}  // namespace

std::vector<std::string> Completions(std::string_view line) {
  const std::size_t lastBlank = line.find_last_of(" \t");
  const std::string_view begun = lastBlank == std::string_view::npos ? line : line.substr(lastBlank + 1);
  const Words before = SplitWords({std::string(line.substr(0, line.size() - begun.size()))});
  std::vector<std::string> words = WordsAfter(before.words);
  std::erase_if(words, [&](const std::string& word) {
    return word.size() < begun.size() || !SameWord(std::string_view(word).substr(0, begun.size()), begun);
  });
  return words;
}

struct LineEditor::Terminal {
  explicit Terminal(const std::atomic<bool>& ctrlC) : interrupted(ctrlC) {}

  const std::atomic<bool>& interrupted;
  EditLine* editor = nullptr;
  History* history = nullptr;
  char prompt[16] = "rollwick> ";
  HistEvent event{};

  static Terminal& Of(EditLine* editor) {
    void* self = nullptr;
    el_get(editor, EL_CLIENTDATA, &self);
    return *static_cast<Terminal*>(self);
  }

  static char* PromptOf(EditLine* editor) { return Of(editor).prompt; }

  // One character typed; Ctrl-C ends the input instead of being waited out.
  static int ReadCharacter(EditLine* editor, wchar_t* character) {
    std::mbstate_t state{};
    char byte = 0;
    while (true) {
      const ssize_t count = read(STDIN_FILENO, &byte, 1);
      if (count < 0 && errno == EINTR && !Of(editor).interrupted.load()) continue;
      if (count <= 0) return 0;
      const std::size_t length = std::mbrtowc(character, &byte, 1, &state);
      if (length == static_cast<std::size_t>(-2)) continue;
      if (length == static_cast<std::size_t>(-1)) state = {}, *character = L'?';
      return 1;
    }
  }

  // Tab: puts in what all completions share, or lists them.
  static unsigned char Complete(EditLine* editor, int) {
    const LineInfo* const line = el_line(editor);
    const std::string_view text(line->buffer, static_cast<std::size_t>(line->cursor - line->buffer));
    const std::vector<std::string> words = Completions(text);
    if (words.empty()) return CC_ERROR;
    std::string shared = words[0];
    for (const std::string& word : words) {
      const auto differs = std::ranges::mismatch(shared, word).in1;
      shared.erase(differs, shared.end());
    }
    const std::size_t begun = text.size() - (text.find_last_of(" \t") + 1);
    if (shared.size() > begun || words.size() == 1) {
      if (words.size() == 1 && !shared.ends_with('[')) shared += ' ';
      el_deletestr(editor, static_cast<int>(begun));
      el_insertstr(editor, shared.c_str());
      return CC_REFRESH;
    }
    std::fputc('\n', stdout);
    for (const std::string& word : words) std::fprintf(stdout, "%s  ", word.c_str());
    std::fputc('\n', stdout);
    return CC_REDISPLAY;
  }
};

LineEditor::LineEditor(const std::atomic<bool>& interrupted)
    : terminal_(std::make_unique<Terminal>(interrupted)) {
  constexpr int kHistoryLength = 500;
  Terminal& self = *terminal_;
  self.history = history_init();
  history(self.history, &self.event, H_SETSIZE, kHistoryLength);
  self.editor = el_init("rollwick", stdin, stdout, stderr);
  el_set(self.editor, EL_CLIENTDATA, terminal_.get());
  el_set(self.editor, EL_PROMPT, Terminal::PromptOf);
  el_set(self.editor, EL_EDITOR, "emacs");
  el_set(self.editor, EL_HIST, history, self.history);
  el_set(self.editor, EL_GETCFN, Terminal::ReadCharacter);
  el_wset(self.editor, EL_ADDFN, L"complete", L"Completes the word", Terminal::Complete);
  el_set(self.editor, EL_BIND, "^I", "complete", nullptr);
}

LineEditor::~LineEditor() {
  el_end(terminal_->editor);
  history_end(terminal_->history);
}

std::optional<InputLine> LineEditor::NextLine() {
  int length = 0;
  const char* const typed = el_gets(terminal_->editor, &length);
  if (typed == nullptr || length <= 0) {
    std::fputc('\n', stdout);
    return {};
  }
  InputLine line{std::string(typed, static_cast<std::size_t>(length)), false};
  if (line.text.ends_with('\n')) line.text.pop_back();
  if (!line.text.empty()) history(terminal_->history, &terminal_->event, H_ENTER, line.text.c_str());
  line.isTooLong = line.text.size() > kLongestLine;
  return line;
}

}  // namespace rollwick
