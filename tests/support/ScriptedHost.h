// A world outside made of a script of answers and a clock that stands still, for tests.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

class ScriptedHost : public Host {
 public:
  std::uint32_t clock = 123'456;
  std::deque<Answer> answers;  // for questions; when they run out: No
  std::deque<std::string>
      entries;              // for prompts; when they run out: the preset, a second time in a row: closed
  std::deque<int> choices;  // for the Settle Bet dialog; when they run out: the remembered one
  bool minimized = false;

  std::vector<Message> messages;
  std::vector<Prompt> prompts;
  std::vector<SettleQuestion> settled;
  std::vector<Sound> sounds;

  std::uint32_t Milliseconds(Game&) override { return clock; }
  Answer Show(Game&, const Message& message) override {
    messages.push_back(message);
    if ((message.flags & MessageYes) == 0) return Answer::Ok;
    if (answers.empty()) return Answer::No;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  std::optional<std::string> Ask(Game&, const Prompt& prompt) override {
    prompts.push_back(prompt);
    if (!entries.empty()) {
      std::string entry = entries.front();
      entries.pop_front();
      return entry;
    }
    if (prompts.size() > 1 && prompts[prompts.size() - 2].title == prompt.title) return {};
    return prompt.preset;
  }
  SettleAnswer Settle(Game&, const SettleQuestion& question) override {
    settled.push_back(question);
    if (choices.empty()) return {question.mustComeDown ? 0 : question.remembered, {}};
    const int choice = choices.front();
    choices.pop_front();
    return {choice, {}};
  }
  bool IsMinimized() const override { return minimized; }
  void Play(Game&, Sound sound) override { sounds.push_back(sound); }
};

class MemoryLog : public EventsLogSink {
 public:
  std::vector<std::string> lines;
  std::string failure;  // what Append answers when not empty

  std::string Append(Game&, std::string_view text) override {
    if (!failure.empty()) return failure;
    while (!text.empty()) {
      const auto end = text.find('\n');
      lines.emplace_back(text.substr(0, end));
      text.remove_prefix(end + 1);
    }
    return {};
  }
  bool IsEmpty() override { return lines.empty(); }
  void Clear(Game&) override { lines.clear(); }
};

// A house at its defaults with nobody's notices on: a bankroll of 500, no bet, a log in memory (off by
// default). The game stands on the heap: its tables are too big for a stack of many of them.
struct TestTable {
  std::unique_ptr<Game> game = std::make_unique<Game>();
  Game& g = *game;
  ScriptedHost host;
  MemoryLog log;

  TestTable() {
    SetStartUpDefaults(g);
    g.TheHost = &host;
    g.TheLog = &log;
  }

  Money Amount(BetId bet) const { return g.BetAmount[bet]; }
  // The text of the only message shown since the last call; a list of all when there are more.
  std::string TakeMessage() {
    std::string all;
    for (const Message& message : host.messages) all += (all.empty() ? "" : " | ") + message.text;
    host.messages.clear();
    return all;
  }
};

}  // namespace rollwick
