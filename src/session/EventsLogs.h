// The Events Log in use: a new one, another one, a copy, and what is looked for in it.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "engine/state/Game.h"
#include "stats/logs/EventsLog.h"
#include "stats/logs/EventsLogReader.h"

namespace rollwick {

// "Events Log", with the name of a log other than the data folder's own in brackets.
std::string EventsLogCaption(const Game& g, const std::filesystem::path& dataFolder);

// Puts the data folder's own log in use and deletes its files. While it has lines the player is asked whether
// to name it first: `rename` then lets him, by SaveEventsLogAs, and returns false when he does not. False
// when the log was left as it is.
bool NewEventsLog(Game& g, EventsLog& log, const std::filesystem::path& dataFolder,
                  const std::function<bool()>& rename);

// Puts the log at `path` in use, with its index mended. Empty on success, else what is wrong: the log is then
// the one it was.
std::string OpenEventsLog(Game& g, EventsLog& log, const std::filesystem::path& path);

// The same, begun when it is not there. A file that is there must be a log, or empty.
std::string UseEventsLog(Game& g, EventsLog& log, const std::filesystem::path& path);

// Copies the text of the log in use to `path` with an index of its own; the copy is the log in use then.
// Empty on success, else the system's words: the log is then the one it was.
std::string SaveEventsLogAs(Game& g, EventsLog& log, const std::filesystem::path& path);

// Asks for a text, `wanted` at first, and shows the first line with it at the top.
void FindInEventsLog(Game& g, EventsLogReader& reader, std::string& wanted);
// The next line with it behind the line at the top, or the one before.
void FindNextInEventsLog(Game& g, EventsLogReader& reader, const std::string& wanted);
void FindPreviousInEventsLog(Game& g, EventsLogReader& reader, const std::string& wanted);

}  // namespace rollwick
