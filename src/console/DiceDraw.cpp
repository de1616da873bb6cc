// Two dice a line, or a byte a roll.
#include "console/DiceDraw.h"

#include <ostream>

#include "base/AtomicFile.h"
#include "console/Report.h"
#include "console/Table.h"
#include "console/Words.h"
#include "dice/DiceFile.h"
#include "dice/Draw.h"
#include "dice/Matrix.h"

namespace rollwick {

void PrintRoll(std::ostream& out, bool isJson, std::int64_t roll, std::int32_t die1, std::int32_t die2) {
  const std::string first = std::to_string(die1), second = std::to_string(die2);
  if (isJson) {
    out << "{\"roll\":" << std::to_string(roll) << ",\"dice\":[" << first << "," << second << "]}\n";
  } else {
    out << first << " " << second << "\n";
  }
}

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
  if (const std::string wrong = PlayWithMatrix(g, options.matrixFile); !wrong.empty()) {
    terminal.error << "rollwick: " << CleanUtf8(OneLine(wrong)) << "\n";
    return ExitFailure;
  }
  std::string records;
  while (g.RollCount() < *count && !table.host.WasInterrupted() && terminal.out.good()) {
    if (g.UseProbabilityMatrix) {
      PickPairFromMatrix(g, DrawMatrixValue(g));
    } else {
      DrawDice(g);
    }
    ++g.RollCount();  // two of the generators take turns by it
    if (file.empty()) {
      PrintRoll(terminal.out, options.json, g.RollCount(), g.Die1, g.Die2);
    } else {
      records.push_back(static_cast<char>(DiceByte(g.Die1, g.Die2)));
    }
  }
  terminal.out << std::flush;
  if (!file.empty()) {
    if (const std::string wrong = SaveWhole(file, records); !wrong.empty()) {
      terminal.error << "rollwick: " << Echo(file) << ": " << wrong << "\n";
      return ExitFailure;
    }
  }
  if (table.host.WasInterrupted()) return ExitInterrupted;
  return terminal.out.good() ? ExitSuccess : ExitFailure;
}

}  // namespace rollwick
