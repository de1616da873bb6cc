// The words behind the program's name: which command, with what options.
#include "console/Console.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <ostream>

#include "base/Nearest.h"
#include "console/Advantage.h"
#include "console/DiceDraw.h"
#include "console/DiceFileText.h"
#include "console/GameShow.h"
#include "console/GamesShow.h"
#include "console/LogShow.h"
#include "console/Play.h"
#include "console/PlayCommands.h"
#include "console/Run.h"
#include "console/ScriptCommands.h"
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
  std::string file;    // read
  std::string output;  // written
  std::string first, count;
  bool isPlain = false;
  bool countsZeroOutcomes = false;
  RunOptions run;
  GamesShowOptions games;
  LogShowOptions log;
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
  app.add_option("--dice", line.common.diceFile, "Plays the rolls of a Dice Roll File (play and run)")
      ->type_name("FILE.rol");
  app.add_option("--matrix", line.common.matrixFile,
                 "The dice fall by this probability file (play, run, advantage and dice draw)")
      ->type_name("FILE.prb");
  app.add_option("--game", line.common.gameFile,
                 "Starts from a saved game; default is the one the table keeps (play, run and advantage)")
      ->type_name("FILE.crp");
  app.add_option("--rules", line.common.rulesFile,
                 "Plays by the rules of a saved game (play, run and advantage)")
      ->type_name("FILE.crp");
  app.add_flag("--json", line.common.json, "Results as JSON, one object a line");
  app.add_flag("--quiet", line.common.quiet, "Shows no progress of long runs");
}

void AddAllowWrite(CLI::App& command, CommandLine& line) {
  command.add_flag("--allow-write", line.common.scriptsMayWrite,
                   "Scripts may write and read files outside of their folder");
}

CLI::App* AddFileCommand(CLI::App& parent, CommandLine& line, const char* name, const char* help,
                         const char* file, const char* fileHelp) {
  CLI::App* const command = parent.add_subcommand(name, help);
  command->fallthrough();
  command->add_option(file, line.file, fileHelp)->required()->type_name("");
  return command;
}

CLI::App* AddRun(CLI::App& app, CommandLine& line) {
  RunOptions& run = line.run;
  CLI::App* const command = app.add_subcommand("run", "A betting system at full speed");
  command->fallthrough();
  command->add_option("SCRIPT", run.script, "The script: a script file or a text")->required()->type_name("");
  command->add_option("--rolls", run.rolls, "How many, 1 to 100,000,000")->required()->type_name("N");
  command->add_option("--bankroll", run.bankroll, "The bankroll to begin with (usual: 500)")
      ->type_name("AMOUNT");
  command->add_flag("--init", run.initializes, "Runs the script once before the first roll");
  command->add_option("--set", run.settings, "Changes a setting first; may be repeated")
      ->type_name("NAME=VALUE")
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
  command->add_option("--events", run.eventsFile, "Writes the Events Log to this file")->type_name("FILE");
  command->add_option("--save", run.saveFile, "Saves the game at the end")->type_name("FILE.crp");
  command->add_option("--record", run.recordFile, "Records the rolls in a Dice Roll File")
      ->type_name("FILE.rol");
  command
      ->add_option("--output-dir", run.outputFolder,
                   "Where the script's own files lie (usual: the data folder)")
      ->type_name("DIR");
  AddAllowWrite(*command, line);
  return command;
}

CLI::App* AddGamesShow(CLI::App& games, CommandLine& line) {
  CLI::App* const command = games.add_subcommand("show", "The figures of one column over all games");
  command->fallthrough();
  command->add_option("FILE.glg", line.games.file, "The Games Log")->required()->type_name("");
  command->add_option("--view", line.games.view, "The column, by its number or its name (usual: 0, # Rolls)")
      ->type_name("COLUMN");
  command->add_option("--include", line.games.include, "Which games count (usual: won,even,lost)")
      ->type_name("CLASSES");
  command
      ->add_option("--break", line.games.breakPoints,
                   "A game is won with a net above HIGH, lost below LOW (usual: 0:0)")
      ->type_name("LOW:HIGH");
  return command;
}

CLI::App* AddLogShow(CLI::App& log, CommandLine& line) {
  CLI::App* const command = log.add_subcommand("show", "Lines of an Events Log with their numbers");
  command->fallthrough();
  command->add_option("FILE", line.log.file, "The Events Log")->required()->type_name("");
  command
      ->add_option("--find", line.log.find, "Only lines with this text in them, in any case of its letters")
      ->type_name("TEXT");
  command->add_option("--from", line.log.from, "The first line to show (usual: 1)")->type_name("LINE");
  command->add_option("--count", line.log.count, "How many (usual: all)")->type_name("N");
  return command;
}

std::string FirstLine(std::string text) {
  text = text.substr(0, text.find('\n'));
  return CleanUtf8(text);
}

std::string Listed(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

// The words of a line CLI11 could not use; the nearest command for an unknown one.
std::string WhatIsWrong(const CLI::ParseError& error, const std::vector<std::string>& words) {
  const std::map<std::string, std::vector<std::string>> commands = {
      {"", {"play", "run", "advantage", "dice", "script", "game", "games", "log"}},
      {"dice", {"draw", "show", "make"}},
      {"script", {"show", "build", "check", "statements"}},
      {"game", {"show", "fields"}},
      {"games", {"show"}},
      {"log", {"show"}}};
  std::string group;
  for (const std::string& word : words) {
    const auto known = commands.find(group);
    if (known == commands.end() || word.starts_with('-')) break;
    if (std::ranges::count(known->second, word) == 0) {
      return "there is no command \"" + group + (group.empty() ? "" : " ") + Echo(word) + "\"." +
             DidYouMean(word, known->second);
    }
    group = word;
  }
  if (const auto known = commands.find(group);
      known != commands.end() && !group.empty() && group == words.back())
    return group + " needs one of these words: " + Listed(known->second) + ".";
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
      "The options of `rollwick --help` apply: --data, --rng, --seed, --answer, --dice, --matrix, --json, "
      "--quiet.";

  CLI::App* const play = app.add_subcommand("play", "One game, command by command, from a file or as typed");
  play->fallthrough();
  play->add_option("FILE", line.playFile, "The commands, one a line (usual: the standard input)")
      ->type_name("");
  AddAllowWrite(*play, line);
  play->footer("Commands:\n" + PlayHelp() +
               "\nA bet is named with _ for blanks, in double quotes or by its number.\n" + common);

  CLI::App* const dice = app.add_subcommand("dice", "Dice alone, without a table");
  dice->fallthrough()->require_subcommand(1);
  CLI::App* const draw = dice->add_subcommand("draw", "Draws rolls: two dice a line, or a Dice Roll File");
  draw->fallthrough();
  draw->add_option("--rolls", line.rolls, "How many, 1 to 100,000,000")->required()->type_name("N");
  draw->add_option("-o,--output", line.output, "The Dice Roll File to write")->type_name("FILE.rol");
  draw->footer(common);
  CLI::App* const diceShow =
      AddFileCommand(*dice, line, "show", "A Dice Roll File as text", "FILE.rol", "The Dice Roll File");
  diceShow->add_option("--first", line.first, "The first roll to show (usual: 1)")->type_name("N");
  diceShow->add_option("--count", line.count, "How many (usual: all)")->type_name("N");
  CLI::App* const diceMake = AddFileCommand(
      *dice, line, "make", "A Dice Roll File from a text of two faces a line", "TEXTFILE", "The text");
  diceMake->add_option("-o,--output", line.output, "The Dice Roll File")->required()->type_name("FILE.rol");

  CLI::App* const run = AddRun(app, line);
  run->footer(common);

  CLI::App* const advantage = app.add_subcommand("advantage", "The exact price of every bet");
  advantage->fallthrough();
  advantage->add_flag("--count-zero-outcomes", line.countsZeroOutcomes, "A push is a decision as well");

  CLI::App* const script = app.add_subcommand("script", "Auto-Bet scripts as texts and files");
  script->fallthrough()->require_subcommand(1);
  CLI::App* const show =
      AddFileCommand(*script, line, "show", "A script with line numbers", "FILE", "A script file or a text");
  show->add_flag("--plain", line.isPlain, "Without numbers, as `script build` reads it");
  CLI::App* const build =
      AddFileCommand(*script, line, "build", "A script file from a text", "TEXTFILE", "The text");
  build->add_option("-o,--output", line.output, "The script file")->required()->type_name("FILE.bet");
  CLI::App* const check = AddFileCommand(*script, line, "check", "Whether a script is properly structured",
                                         "FILE", "A script file or a text");
  CLI::App* const statements = script->add_subcommand("statements", "Every statement a script may use");
  statements->fallthrough();

  CLI::App* const game = app.add_subcommand("game", "Saved games");
  game->fallthrough()->require_subcommand(1);
  CLI::App* const gameShow =
      AddFileCommand(*game, line, "show", "Every field of a saved game", "FILE.crp", "The game file");
  CLI::App* const gameFields = game->add_subcommand("fields", "Where each field of a game file stands");
  gameFields->fallthrough();

  CLI::App* const games = app.add_subcommand("games", "Games Logs");
  games->fallthrough()->require_subcommand(1);
  CLI::App* const gamesShow = AddGamesShow(*games, line);

  CLI::App* const log = app.add_subcommand("log", "Events Logs");
  log->fallthrough()->require_subcommand(1);
  CLI::App* const logShow = AddLogShow(*log, line);

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
  line.common.rngIsGiven = app.count("--rng") > 0;
  if (play->parsed()) return RunPlay(line.common, line.playFile, terminal);
  if (run->parsed()) return RunBettingSystem(line.common, line.run, terminal);
  if (!line.common.diceFile.empty()) return Usage(terminal, "--dice is for play and run.");
  if (advantage->parsed()) return RunAdvantage(line.common, line.countsZeroOutcomes, terminal);
  if (!line.common.matrixFile.empty() && !draw->parsed())
    return Usage(terminal, "--matrix is for play, run, advantage and dice draw.");
  if (!line.common.gameFile.empty() || !line.common.rulesFile.empty())
    return Usage(terminal, "--game and --rules are for play, run and advantage.");
  if (draw->parsed()) return RunDiceDraw(line.common, line.rolls, line.output, terminal);
  if (diceShow->parsed()) return RunDiceShow(line.file, line.first, line.count, line.common.json, terminal);
  if (diceMake->parsed()) return RunDiceMake(line.file, line.output, terminal);
  if (show->parsed()) return RunScriptShow(line.file, line.isPlain, line.common.json, terminal);
  if (build->parsed()) return RunScriptBuild(line.file, line.output, terminal);
  if (check->parsed()) return RunScriptCheck(line.file, terminal);
  if (statements->parsed()) return RunScriptStatements(terminal);
  if (gameShow->parsed()) return RunGameShow(line.file, line.common.json, terminal);
  if (gameFields->parsed()) return RunGameFields(terminal);
  if (gamesShow->parsed()) return RunGamesShow(line.games, line.common.json, terminal);
  line.log.finds = logShow->count("--find") > 0;
  if (logShow->parsed()) return RunLogShow(line.log, line.common.json, terminal);
  terminal.out << app.help();
  return ExitUsage;
}

}  // namespace rollwick
