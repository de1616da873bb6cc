// `rollwick play`: one game, command by command.
#pragma once

#include "console/Console.h"
#include "console/PlayCommands.h"
#include "console/Words.h"

namespace rollwick {

// Plays the commands of `file`, or of the terminal's input when it is empty. Returns the exit code.
int RunPlay(const CommonOptions& options, const std::string& file, const Terminal& terminal);

// One line of input carried out. Nothing for a blank line or a comment.
struct Outcome {
  std::string command;  // fit to be echoed
  Reply reply;
};
std::optional<Outcome> Execute(Table& table, const InputLine& line);

// The object that answers a command.
Json OutcomeJson(const Table& table, const Outcome& outcome);

}  // namespace rollwick
