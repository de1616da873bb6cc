// The words behind the program's name: which command, with what options.
#include "console/Console.h"

#include <CLI/CLI.hpp>
#include <ostream>

#include "base/Nearest.h"
#include "console/DiceDraw.h"
#include "console/Play.h"
#include "console/PlayCommands.h"
#include "console/Words.h"

namespace rollwick {
namespace {

constexpr const char* kFirstGame = R"(A first game: type `rollwick play`, then

  bet Pass_Line 10     ten dollars on the Pass Line
  roll                 the come-out: 7 or 11 wins, 2, 3 or 12 loses, others are the point
  odds take            full odds behind the line, when a point is on
  rolls 10             roll on, and see what becomes of the bets
  show                 the table: point, dice, bets, bankroll
  quit

In the game, `help` lists all commands.)";

// What was typed, before it is proved.
struct CommandLine {
  CommonOptions common;
  std::string rng = "1";
  std::string playFile;
  std::string rolls;
  std::string rollFile;
};

void AddCommonOptions(CLI::App& app, CommandLine& line) {
  app.add_option("--data", line.common.dataFolder,
                 "The data folder (usual: rollwick in the user's data folder)")
      ->type_name("DIR");
  app.add_option("--rng", line.rng, "The generator of the dice, 1 to 8 (usual: 1)")->type_name("K");
  app.add_option("--seed", line.common.seed, "Seeds the generator (usual: from the clock)")->type_name("N");
  app.add_option("--answer", line.common.answers,
                 "Answers the next question: yes, no, cancel or a text; may be repeated")
      ->type_name("TEXT")
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
  app.add_flag("--json", line.common.json, "Results as JSON, one object a line");
  app.add_flag("--quiet", line.common.quiet, "Shows no progress of long runs");
}

std::string FirstLine(std::string text) {
  text = text.substr(0, text.find('\n'));
  return CleanUtf8(text);
}

// The words of a line CLI11 could not use; the nearest command for an unknown one.
std::string WhatIsWrong(const CLI::ParseError& error, const std::vector<std::string>& words) {
  const std::vector<std::string> commands = {"play", "dice"};
  if (!words.empty() && !words[0].starts_with('-') && words[0] != "play" && words[0] != "dice") {
    return "there is no command \"" + Echo(words[0]) + "\"." + DidYouMean(words[0], commands);
  }
  return FirstLine(error.what());
}

int Usage(const Terminal& terminal, const std::string& wrong) {
  terminal.error << "rollwick: " << wrong << "\n";
  return ExitUsage;
}

}  // namespace

int RunConsole(const std::vector<std::string>& words, const Terminal& terminal) {
  CommandLine line;
  CLI::App app("Rollwick, a craps table on the command line.", "rollwick");
  app.set_version_flag("--version", "rollwick " ROLLWICK_VERSION);
  app.footer(kFirstGame);
  app.require_subcommand(0, 1);
  AddCommonOptions(app, line);
  const std::string common =
      "The options of `rollwick --help` apply: --data, --rng, --seed, --answer, --json, --quiet.";

  CLI::App* const play = app.add_subcommand("play", "One game, command by command, from a file or as typed");
  play->fallthrough();
  play->add_option("FILE", line.playFile, "The commands, one a line (usual: the standard input)")
      ->type_name("");
  play->footer("Commands:\n" + PlayHelp() +
               "\nA bet is named with _ for blanks, in double quotes or by its number.\n" + common);

  CLI::App* const dice = app.add_subcommand("dice", "Dice alone, without a table");
  dice->fallthrough()->require_subcommand(1);
  CLI::App* const draw = dice->add_subcommand("draw", "Draws rolls: two dice a line, or a Dice Roll File");
  draw->fallthrough();
  draw->add_option("--rolls", line.rolls, "How many, 1 to 100,000,000")->required()->type_name("N");
  draw->add_option("-o,--output", line.rollFile, "The Dice Roll File to write")->type_name("FILE.rol");
  draw->footer(common);

  try {
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::Success& success) {
    app.exit(success, terminal.out, terminal.error);
    return ExitSuccess;
  } catch (const CLI::ParseError& error) {
    return Usage(terminal, WhatIsWrong(error, words));
  }

  const auto rng = ParseWhole(line.rng, 1, kRngCount);
  if (!rng) return Usage(terminal, "--rng takes a generator from 1 to 8.");
  line.common.rng = static_cast<int>(*rng);
  if (play->parsed()) return RunPlay(line.common, line.playFile, terminal);
  if (draw->parsed()) return RunDiceDraw(line.common, line.rolls, line.rollFile, terminal);
  terminal.out << app.help();
  return ExitUsage;
}

}  // namespace rollwick
