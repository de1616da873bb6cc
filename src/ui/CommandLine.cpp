#include "ui/CommandLine.h"

#include "session/DataFolder.h"

namespace rollwick {
namespace {

constexpr const char* kHelp = R"(Rollwick, a craps table.
Usage: rollwick-table [OPTIONS] [FILE.crp]

  --data DIR    The data folder (usual: rollwick in the user's data folder)
  --game FILE   Opens this game instead of the one the table keeps
  --version     Says which version this is
  -h, --help    Says this

`rollwick --help` tells what can be done without a window.
)";

TableCommand Wrong(const std::string& what) {
  TableCommand command;
  command.exitCode = 2;
  command.error = "rollwick-table: " + what + "; `rollwick-table --help` lists the options.\n";
  return command;
}

TableCommand Said(std::string output) {
  TableCommand command;
  command.exitCode = 0;
  command.output = std::move(output);
  return command;
}

}  // namespace

TableCommand ReadTableCommand(const std::vector<std::string>& words) {
  TableCommand command;
  TableOptions& options = command.options;
  bool optionsHaveEnded = false;
  for (std::size_t at = 0; at < words.size(); ++at) {
    const std::string& word = words[at];
    const bool isOption = !optionsHaveEnded && word.size() > 1 && word.front() == '-';
    if (isOption && (word == "--help" || word == "-h")) return Said(kHelp);
    if (isOption && word == "--version") return Said("rollwick-table " ROLLWICK_VERSION "\n");
    if (isOption && word == "--") {
      optionsHaveEnded = true;
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string name = isOption ? word.substr(0, equals) : "--game";
    if (name != "--data" && name != "--game") return Wrong("unknown option " + word);
    std::string value = word;
    if (isOption && equals != std::string::npos) {
      value = word.substr(equals + 1);
    } else if (isOption) {
      value = ++at < words.size() ? words[at] : "";
    }
    if (value.empty()) return Wrong(name + " needs a " + (name == "--data" ? "folder" : "file"));
    std::filesystem::path& path = name == "--data" ? options.dataFolder : options.game;
    if (!path.empty()) return Wrong(name == "--data" ? "two data folders" : "more than one game");
    path = value;
  }
  if (options.dataFolder.empty()) options.dataFolder = UserDataFolder();
  options.dataFolder = std::filesystem::absolute(options.dataFolder);
  if (!options.game.empty()) options.game = std::filesystem::absolute(options.game);
  return command;
}

}  // namespace rollwick
