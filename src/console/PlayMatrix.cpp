// matrix, show matrix: crooked dice.
#include <charconv>

#include "base/FormatNumber.h"
#include "base/Nearest.h"
#include "console/PlayCommands.h"
#include "console/Words.h"
#include "dice/MatrixEdit.h"
#include "dice/ProbabilityFile.h"

namespace rollwick {
namespace {

constexpr std::string_view kUsage =
    "matrix load FILE, matrix save FILE, matrix on, matrix off, matrix cell ROW COLUMN VALUE, or matrix axis "
    "DIE 16|25|34 PERCENT.";

Reply Told(std::string text) {
  Reply reply;
  reply.text = std::move(text);
  return reply;
}

// "2.5", "-3", "+.25": plain decimals of any length.
std::optional<double> ParseNumber(std::string_view text) {
  if (text.starts_with("+-") || text.find_first_not_of("+-.0123456789") != text.npos) return {};  // nor "inf"
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
  if (error != std::errc() || stop != end) return {};
  return number;
}

// A cell in the display mode in force: "2.778", "+0.500".
std::string ShownCell(const Game& g, std::int32_t row, std::int32_t column) {
  const bool isFromTrue =
      g.ProbabilityDisplayMode == DisplayPercentFromTrue || g.ProbabilityDisplayMode == DisplayRollsFromTrue;
  return FormatNumber(ShownCellValue(g, row, column), isFromTrue ? "+0.000;-0.000;0.000" : "0.000");
}

std::string UnitText(const Game& g) {
  const std::string rolls = FormatNumber(g.ProbabilityRollsOutOf, "#,##0.####");
  const std::string outOf = rolls.ends_with('.') ? rolls.substr(0, rolls.size() - 1) : rolls;
  switch (g.ProbabilityDisplayMode) {
    case DisplayPercentFromTrue:
      return "more or less percent than true dice";
    case DisplayRolls:
      return "rolls out of " + outOf;
    case DisplayRollsFromTrue:
      return "more or less rolls out of " + outOf + " than true dice";
    default:
      return "percent";
  }
}

Reply EnterCell(Table& table, Arguments words) {
  if (words.size() != 3) return Failure("matrix cell ROW COLUMN VALUE.");
  const auto row = static_cast<std::int32_t>(ParseWhole(words[0], 0, 7).value_or(-1));
  const auto column = static_cast<std::int32_t>(ParseWhole(words[1], 0, 13).value_or(-1));
  if (AreaOfCell(row, column) == MatrixArea::None) {
    return Failure(
        "the matrix has totals in row 1, columns 1 to 11; pairs in rows 2 to 7, in row R the columns R - 1 "
        "to "
        "13 - R; and the faces of the dice in columns 12 and 13, rows 2 to 7.");
  }
  const auto number = ParseNumber(words[2]);
  if (!number) return Failure("\"" + Echo(words[2]) + "\" is no number.");
  if (!EnterMatrixCell(table.g, row, column, *number)) {
    return Failure("the dice would have no pair left to show.");
  }
  return Told(std::string(ProbabilityKindLabel(table.g)) + ", the cell is at " +
              ShownCell(table.g, row, column) + " " + UnitText(table.g) + ".");
}

std::optional<DieAxis> FindAxis(std::string_view faces) {
  if (faces == "16") return DieAxis::OneSix;
  if (faces == "25") return DieAxis::TwoFive;
  if (faces == "34") return DieAxis::ThreeFour;
  return {};
}

Reply ComputeAxis(Table& table, Arguments words) {
  if (words.size() != 3) return Failure("matrix axis DIE 16|25|34 PERCENT.");
  const auto die = ParseWhole(words[0], 1, 2);
  if (!die) return Failure("the dice are 1 and 2.");
  const auto axis = FindAxis(words[1]);
  if (!axis) return Failure("the axes are 16, 25 and 34.");
  const auto effectiveness = ParseWhole(words[2], 0, INT32_MAX);
  if (!effectiveness) return Failure("the shooter's effectiveness is a whole number from 0 to 100.");
  if (!ComputeAboutAxis(table.g, static_cast<std::int32_t>(*die), *axis,
                        static_cast<std::int32_t>(*effectiveness))) {
    return Failure("the dice would have no pair left to show.");
  }
  return Told("Die " + words[0] + " is thrown about the " + words[1][0] + "-" + words[1][1] + " axis.");
}

Reply Load(Table& table, const std::string& file) {
  if (const std::string wrong = LoadMatrix(table.g, file); !wrong.empty()) {
    return Failure(CleanUtf8(OneLine(wrong)));
  }
  return Told(std::string(ProbabilityKindLabel(table.g)) + ": " + Echo(table.g.ProbabilityName));
}

Reply Save(Table& table, const std::string& file) {
  if (const std::string wrong = SaveProbabilityFile(table.g, file); !wrong.empty()) {
    return Failure(Echo(file) + ": " + wrong);
  }
  return Told("The matrix is saved as " + Echo(file) + ".");
}

Reply Switch(Table& table, bool isOn) {
  table.g.UseProbabilityMatrix = isOn;
  table.g.TableDirty = true;
  return Told(isOn ? "The dice fall by the matrix." : "The dice fall true.");
}

// What a cell of the picture holds: nothing outside of the areas.
std::string CellText(const Game& g, std::int32_t row, std::int32_t column) {
  if (AreaOfCell(row, column) == MatrixArea::None) return {};
  const std::int32_t state =
      g.ProbabilityMatrix[MatrixStates][static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  return ShownCell(g, row, column) + (state > 0 ? "*" : " ");
}

std::string MatrixPicture(const Game& g) {
  constexpr std::size_t kWidth = 9;
  const auto right = [](const std::string& text) {
    return std::string(text.size() < kWidth ? kWidth - text.size() : 1, ' ') + text;
  };
  std::string text = std::string(ProbabilityKindLabel(g)) + ", " +
                     (g.ProbabilityName.empty() ? "untitled" : Echo(g.ProbabilityName)) +
                     (g.ProbabilityDirty ? ", not saved" : "") +
                     (g.UseProbabilityMatrix ? ", in force; " : ", not in force; ") + UnitText(g) +
                     "; * is entered or covered\ntotal";
  std::string columns;
  for (std::int32_t column = 1; column <= 13; ++column) {
    const std::string head = column == 12 ? "die 1" : column == 13 ? "die 2" : std::to_string(column + 1);
    text += right(head + " ");
    columns += right(std::to_string(column) + " ");
  }
  text.pop_back();
  text += "\ncolumn" + columns.substr(1, columns.size() - 2);
  for (std::int32_t row = 1; row <= 7; ++row) {
    text += "\nrow " + std::to_string(row);
    for (std::int32_t column = 1; column <= 13; ++column) text += right(CellText(g, row, column));
    text.erase(text.find_last_not_of(' ') + 1);
  }
  return text;
}

}  // namespace

Reply RunMatrix(Table& table, Arguments arguments) {
  const std::string& word = arguments[0];
  const Arguments rest = arguments.subspan(1);
  if (SameWord(word, "cell")) return EnterCell(table, rest);
  if (SameWord(word, "axis")) return ComputeAxis(table, rest);
  if (SameWord(word, "load") || SameWord(word, "save")) {
    if (rest.size() != 1) return Failure("matrix " + Echo(word) + " needs the name of a file.");
    return SameWord(word, "load") ? Load(table, rest[0]) : Save(table, rest[0]);
  }
  const bool isOn = SameWord(word, "on");
  if ((!isOn && !SameWord(word, "off")) || !rest.empty()) return Failure(std::string(kUsage));
  return Switch(table, isOn);
}

Reply ShowMatrix(Table& table, Arguments) {
  const Game& g = table.g;
  Json json;
  json["UseProbabilityMatrix"] = g.UseProbabilityMatrix;
  json["ProbabilityDisplayMode"] = g.ProbabilityDisplayMode;
  json["ProbabilityRollsOutOf"] = PlainText(Money::FromDouble(g.ProbabilityRollsOutOf));
  json["ProbabilityName"] = CleanUtf8(g.ProbabilityName);
  json["ProbabilityDirty"] = g.ProbabilityDirty;
  json["ProbabilityKindLabel"] = ProbabilityKindLabel(g);
  json["ProbabilityMatrix"] = g.ProbabilityMatrix;
  Reply reply;
  reply.extra["matrix"] = std::move(json);
  reply.text = MatrixPicture(g);
  return reply;
}

}  // namespace rollwick
