// The command line as a function: what main calls, and what the tests call.
#pragma once

#include <atomic>
#include <iosfwd>
#include <string>
#include <vector>

namespace rollwick {

// Where a command reads and writes, and what kind of thing that is.
struct Terminal {
  std::istream& in;
  std::ostream& out;
  std::ostream& error;
  const std::atomic<bool>& interrupted;  // set by Ctrl-C
  bool isInteractive = false;            // a person types and reads: line editing, a picture of the table
  bool showsProgress = false;            // `error` is a terminal
};

enum ExitCode : int { ExitSuccess = 0, ExitFailure = 1, ExitUsage = 2, ExitInterrupted = 130 };

// Runs `rollwick` with the words behind the program's name; returns its exit code.
int RunConsole(const std::vector<std::string>& words, const Terminal& terminal);

// What every command takes, before or after its name.
struct CommonOptions {
  std::string dataFolder;  // empty: the user's own
  int rng = 1;             // as users count them, 1..8
  bool rngIsGiven = false;
  std::string seed;  // empty: from the clock
  std::vector<std::string> answers;
  std::string gameFile;    // started from; "default" is the working game; empty: a newly opened house
  std::string rulesFile;   // a game file whose rules a new game is played by
  std::string diceFile;    // played back; empty: none
  std::string matrixFile;  // the dice fall by it; empty: they fall true
  bool json = false;
  bool quiet = false;
  bool scriptsMayWrite = false;  // anywhere, and read
};

}  // namespace rollwick
