// Text in columns.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace rollwick {

// `text` filled up with blanks behind it, or in front; a longer one stays whole.
std::string PadRight(std::string text, std::size_t width);
std::string PadLeft(std::string text, std::size_t width);

using TextRow = std::vector<std::string>;

// Rows of one length, each column as wide as it needs: the first set left, the others right.
std::string InColumns(std::span<const TextRow> rows);

// A line of a report: what it is about, then what is to be said.
std::string StoryLine(const std::string& name, const std::string& text);

}  // namespace rollwick
