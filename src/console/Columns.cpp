#include "console/Columns.h"

#include <algorithm>

namespace rollwick {

std::string PadRight(std::string text, std::size_t width) {
  if (text.size() < width) text.append(width - text.size(), ' ');
  return text;
}

std::string PadLeft(std::string text, std::size_t width) {
  if (text.size() < width) text.insert(0, width - text.size(), ' ');
  return text;
}

std::string InColumns(std::span<const TextRow> rows) {
  std::vector<std::size_t> widths;
  for (const TextRow& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column)
      widths[column] = std::max(widths[column], row[column].size());
  }
  std::string text;
  for (const TextRow& row : rows) {
    std::string line = PadRight(row.front(), widths[0]);
    for (std::size_t column = 1; column < row.size(); ++column)
      line += "  " + PadLeft(row[column], widths[column]);
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
  }
  return text;
}

std::string StoryLine(const std::string& name, const std::string& text) {
  return PadRight(name, 12) + text + "\n";
}

}  // namespace rollwick
