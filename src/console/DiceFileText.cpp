#include "console/DiceFileText.h"

#include <filesystem>
#include <fstream>
#include <ostream>

#include "base/AtomicFile.h"
#include "console/DiceDraw.h"
#include "console/Report.h"
#include "console/Table.h"
#include "console/Words.h"
#include "dice/DiceFile.h"

namespace rollwick {
namespace {

int Wrong(const Terminal& terminal, const std::string& wrong, int exitCode) {
  terminal.error << "rollwick: " << CleanUtf8(OneLine(wrong)) << "\n";
  return exitCode;
}

// A line's two faces; neither for a line without any. An error stands at a column from 1.
struct FacesLine {
  DiceFaces faces;
  std::size_t column = 0;
  std::string error;
};

FacesLine ReadFaces(std::string_view line) {
  constexpr std::string_view kBetween = " \t,-()[]{}";
  FacesLine read;
  int count = 0;
  for (std::size_t at = 0; at < line.size() && line[at] != '#'; ++at) {
    if (kBetween.find(line[at]) != std::string_view::npos) continue;
    const std::size_t end = std::min(line.find_first_of(" \t,-()[]{}#", at), line.size());
    const std::string_view word = line.substr(at, end - at);
    read.column = at + 1;
    if (word.size() != 1 || word[0] < '1' || word[0] > '6') {
      read.error = "\"" + Echo(word) + "\" is no face of a die, which shows 1 to 6.";
      return read;
    }
    if (++count > 2) {
      read.error = "a roll has two dice, and here is a third.";
      return read;
    }
    (count == 1 ? read.faces.die1 : read.faces.die2) = word[0] - '0';
    at = end - 1;
  }
  if (count == 1) read.error = "the second die is missing.";
  return read;
}

}  // namespace

int RunDiceShow(const std::string& file, const std::string& first, const std::string& count, bool isJson,
                const Terminal& terminal) {
  const auto from = ParseWhole(first.empty() ? "1" : first, 1, kDiceRecordLimit);
  if (!from) return Wrong(terminal, "--first takes the number of a roll, from 1 on.", ExitUsage);
  const auto most = ParseWhole(count.empty() ? std::to_string(kDiceRecordLimit) : count, 0, kDiceRecordLimit);
  if (!most) return Wrong(terminal, "--count takes a number of rolls.", ExitUsage);
  const auto game = std::make_unique<Game>();
  if (const std::string wrong = DiceFileRefusal(*game, file, false); !wrong.empty())
    return Wrong(terminal, wrong, ExitFailure);

  ByteFile& rolls = game->DiceFile;
  const std::int64_t last = std::min(rolls.Length(), *from - 1 + *most);
  if (!first.empty() && *from > rolls.Length()) {
    return Wrong(terminal, "the file holds " + std::to_string(rolls.Length()) + " rolls.", ExitFailure);
  }
  for (std::int64_t roll = *from; roll <= last && terminal.out.good(); ++roll) {
    if (terminal.interrupted.load(std::memory_order_relaxed)) return ExitInterrupted;
    const auto byte = rolls.Read(roll - 1);
    if (!byte) return Wrong(terminal, rolls.Failure(), ExitFailure);
    const DiceFaces faces = FacesOfByte(*byte);
    PrintRoll(terminal.out, isJson, roll, faces.die1, faces.die2);
  }
  terminal.out << std::flush;
  return terminal.out.good() ? ExitSuccess : ExitFailure;
}

int RunDiceMake(const std::string& text, const std::string& output, const Terminal& terminal) {
  constexpr int kMostErrors = 20;
  std::error_code unknown;
  std::ifstream in(text, std::ios::binary);
  if (!in || std::filesystem::is_directory(text, unknown))
    return Wrong(terminal, "the file \"" + Echo(text) + "\" cannot be read.", ExitFailure);
  std::string records;  // a byte a roll
  int errors = 0;
  std::int64_t number = 0;
  const auto complain = [&](std::size_t column, const std::string& what) {
    terminal.error << Echo(text) << ":" << std::to_string(number) << ":" << std::to_string(column) << ": "
                   << what << "\n";
    ++errors;
  };
  while (errors < kMostErrors) {
    const auto line = ReadInputLine(in);
    if (!line) break;
    if (terminal.interrupted.load(std::memory_order_relaxed)) return ExitInterrupted;
    ++number;
    const FacesLine read = ReadFaces(line->text);
    if (!read.error.empty()) {
      complain(read.column, read.error);
    } else if (line->isTooLong) {
      complain(kLongestLine + 1, "the line is too long.");
    } else if (std::ssize(records) == kMaxRollCount) {
      complain(1, "a file of more than 100,000,000 rolls cannot be made.");
      break;
    } else if (read.faces.die1 != 0) {
      records.push_back(static_cast<char>(DiceByte(read.faces.die1, read.faces.die2)));
    }
  }
  if (errors > 0) return ExitFailure;
  if (const std::string wrong = SaveWhole(output, records); !wrong.empty())
    return Wrong(terminal, Echo(output) + ": " + wrong, ExitFailure);
  return ExitSuccess;
}

}  // namespace rollwick
