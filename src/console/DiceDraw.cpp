// Two dice a line, or a byte a roll.
#include "console/DiceDraw.h"

#include <ostream>

#include "base/AtomicFile.h"
#include "console/Table.h"
#include "console/Words.h"
#include "dice/Draw.h"

namespace rollwick {
namespace {

void Print(std::ostream& out, bool isJson, const Game& g) {
  const std::string die1 = std::to_string(g.Die1), die2 = std::to_string(g.Die2);
  if (isJson) {
    out << "{\"roll\":" << std::to_string(g.RollCount()) << ",\"dice\":[" << die1 << "," << die2 << "]}\n";
  } else {
    out << die1 << " " << die2 << "\n";
  }
}

// The record of a Dice Roll File: the first die in bits 2 to 4, the second in bits 5 to 7.
char Record(const Game& g) {
  return static_cast<char>(g.Die1 * 4 + g.Die2 * 32);
}

}  // namespace

int RunDiceDraw(const CommonOptions& options, const std::string& rolls, const std::string& file,
                const Terminal& terminal) {
  const auto count = ParseWhole(rolls, 1, kMaxRollCount);
  if (!count) {
    terminal.error << "rollwick: --rolls takes a number from 1 to 100,000,000.\n";
    return ExitUsage;
  }
  Table table(options, terminal);
  if (!table.Error().empty()) {
    terminal.error << "rollwick: " << table.Error() << "\n";
    return ExitUsage;
  }

  Game& g = table.g;
  std::string records;
  while (g.RollCount() < *count && !table.host.WasInterrupted() && terminal.out.good()) {
    DrawDice(g);
    ++g.RollCount();  // two of the generators take turns by it
    if (file.empty()) {
      Print(terminal.out, options.json, g);
    } else {
      records.push_back(Record(g));
    }
  }
  terminal.out << std::flush;
  if (!file.empty()) {
    if (const std::string wrong = SaveWhole(file, records); !wrong.empty()) {
      terminal.error << "rollwick: " << wrong << "\n";
      return ExitFailure;
    }
  }
  if (table.host.WasInterrupted()) return ExitInterrupted;
  return terminal.out.good() ? ExitSuccess : ExitFailure;
}

}  // namespace rollwick
