// The Events Log in use: new, opened, saved under another name, searched.
#include "session/EventsLogs.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "dice/Draw.h"
#include "engine/game/NewGame.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;

struct LogInUse : TestTable {
  TemporaryFolder folder;
  fs::path usual = folder / "Events Log.txt";
  EventsLog log{usual};

  LogInUse() { g.TheLog = &log; }
  void Put(const std::string& line) {
    LogEvent(g, line);
    FlushEventsLog(g);
  }
  static std::string Read(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }
  bool New(const std::function<bool()>& rename = [] { return false; }) {
    return NewEventsLog(g, log, folder.Path(), rename);
  }
};

TEST(EventsLogs, ANewLogIsAskedForWhileTheOldOneHasLines) {
  LogInUse house;
  EXPECT_TRUE(house.New());
  EXPECT_EQ(house.TakeMessage(), "") << "nothing to lose";

  house.Put("kept");
  house.host.answers = {Answer::Yes};
  EXPECT_FALSE(house.New()) << "no name was chosen";
  EXPECT_EQ(house.host.messages.front().title, "Save Events Log?");
  EXPECT_EQ(house.TakeMessage(),
            "This log needs to be re-named if you want to save it.\r\rDo you want to re-name it now?");
  EXPECT_EQ(LogInUse::Read(house.usual), "kept\n");

  house.host.answers = {Answer::Yes};
  const fs::path mine = house.folder / "mine.txt";
  EXPECT_TRUE(house.New([&] { return SaveEventsLogAs(house.g, house.log, mine).empty(); }));
  EXPECT_EQ(LogInUse::Read(mine), "kept\n");
  EXPECT_FALSE(fs::exists(house.usual));
  EXPECT_EQ(EventsLogCaption(house.g, house.folder.Path()), "Events Log");

  house.Put("lost");
  house.g.LogTopLine = 5;
  house.host.answers = {Answer::No};
  EXPECT_TRUE(house.New());
  EXPECT_FALSE(fs::exists(house.usual) || fs::exists(house.folder / "Events Log.ref"));
  EXPECT_EQ(house.g.LogTopLine, 1);

  house.Put("stays");
  house.host.minimized = true;  // nobody can be asked
  EXPECT_FALSE(house.New());
  EXPECT_EQ(LogInUse::Read(house.usual), "stays\n");
}

TEST(EventsLogs, AnotherLogIsOpenedAndACopyTaken) {
  LogInUse house;
  const fs::path other = house.folder / "other.txt", copy = house.folder / "copy\n.txt";
  std::ofstream(other) << "there\n";
  house.Put("here");
  EXPECT_EQ(OpenEventsLog(house.g, house.log, house.folder / "missing.txt"),
            "No such file or directory, Error #2");
  EXPECT_EQ(EventsLogCaption(house.g, house.folder.Path()), "Events Log");
  ASSERT_EQ(OpenEventsLog(house.g, house.log, other), "");
  EXPECT_EQ(EventsLogCaption(house.g, house.folder.Path()), "Events Log (other.txt)");
  EXPECT_TRUE(fs::exists(house.folder / "other.ref"));
  house.Put("more");

  std::ofstream(house.folder / "copy\n.ref") << std::string("\1\0\0\0old", 7);
  std::ofstream(house.folder / "mine.ref") << "somebody's file";
  ASSERT_EQ(SaveEventsLogAs(house.g, house.log, copy), "");
  EXPECT_EQ(EventsLogCaption(house.g, house.folder.Path()), "Events Log (copy?.txt)");
  house.Put("copied");
  EXPECT_EQ(LogInUse::Read(other), "there\nmore\n");
  EXPECT_EQ(LogInUse::Read(copy), "there\nmore\ncopied\n");
  EXPECT_EQ(LogInUse::Read(house.folder / "copy\n.ref"), std::string("\1\0\0\0\7\0\0\0\14\0\0\0", 12));
  for (const char* name : {"no/log.txt", "log.ref", "copy\n.log", "mine.txt"})
    EXPECT_NE(SaveEventsLogAs(house.g, house.log, house.folder / name), "") << name;
  EXPECT_EQ(house.log.Path(), copy);
  EXPECT_EQ(LogInUse::Read(house.folder / "mine.ref"), "somebody's file");

  std::ofstream(house.folder / "script.txt") << "While . . .\n";
  EXPECT_EQ(UseEventsLog(house.g, house.log, house.folder / "script.txt"),
            "This is no Events Log. Please choose another name.");
  EXPECT_EQ(UseEventsLog(house.g, house.log, house.folder / "new.txt"), "");
  EXPECT_EQ(house.g.EventsLogPath, (house.folder / "new.txt").string());
  ASSERT_EQ(OpenEventsLog(house.g, house.log, copy), "");

  // A log under a name of its own stays where it is.
  house.host.answers = {Answer::No};
  EXPECT_TRUE(house.New());
  EXPECT_TRUE(fs::exists(copy));
  EXPECT_FALSE(fs::exists(house.usual));
}

// What happened is on the disk while the player is asked.
TEST(EventsLogs, NothingIsHeldBackByAPrompt) {
  struct Watcher : ScriptedHost {
    std::optional<std::string> Ask(Game& game, const Prompt& prompt) override {
      EXPECT_EQ(game.PendingLogLines, "") << prompt.title;
      return ScriptedHost::Ask(game, prompt);
    }
  } host;
  LogInUse house;
  Game& g = house.g;
  g.TheHost = &host;
  LogEvent(g, "before the bankroll");
  g.Rules.BankrollInitType = StartByPrompt;
  NewGame(g, false);
  LogEvent(g, "before the seed");
  g.UserSeedMode = true;
  SeedGenerator(g, false);
  LogEvent(g, "before the text");
  EventsLogReader reader;
  std::string wanted;
  FindInEventsLog(g, reader, wanted);
  std::string asked;
  for (const Prompt& prompt : host.prompts) asked += prompt.title + ", ";
  EXPECT_EQ(asked, "Set Beginning Bankroll, RNG Seed, Find, ");
}

TEST(EventsLogs, WhatIsFoundIsShownAtTheTop) {
  LogInUse house;
  for (const char* line : {"a roll", "nothing", "a Roll", "end"}) house.Put(line);
  EventsLogReader reader;
  ASSERT_EQ(reader.Open(house.usual), "");
  std::string wanted;
  house.host.entries = {"roll"};
  house.g.LogTopLine = 4;
  FindInEventsLog(house.g, reader, wanted);
  EXPECT_EQ(house.host.prompts.back().title, "Find");
  EXPECT_EQ(house.g.LogTopLine, 1);
  FindNextInEventsLog(house.g, reader, wanted);
  EXPECT_EQ(house.g.LogTopLine, 3);
  FindNextInEventsLog(house.g, reader, wanted);
  EXPECT_EQ(house.host.messages.back().title, "Search Results");
  EXPECT_EQ(house.TakeMessage(), "Text not found.");
  EXPECT_EQ(house.g.LogTopLine, 3);
  FindPreviousInEventsLog(house.g, reader, wanted);
  EXPECT_EQ(house.g.LogTopLine, 1);
  FindPreviousInEventsLog(house.g, reader, wanted);
  EXPECT_EQ(house.TakeMessage(), "Text not found.");
  house.Put("one more roll");
  house.g.LogTopLine = 4;
  FindNextInEventsLog(house.g, reader, wanted);
  EXPECT_EQ(house.g.LogTopLine, 5);
}

}  // namespace
}  // namespace rollwick
