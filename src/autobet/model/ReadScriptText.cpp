// Reading the text form line by line: starts, comments, statements, labels.
#include <algorithm>
#include <charconv>
#include <unordered_set>

#include "autobet/model/Codes.h"
#include "autobet/model/Script.h"
#include "autobet/model/ScriptText.h"
#include "autobet/model/StatementReader.h"
#include "base/CodePage.h"

namespace rollwick {

namespace {

constexpr std::size_t kMostErrors = 100;
constexpr std::size_t kLongestStatement = 2000;  // bytes, far above any name and caption

// The kind of a start line; 0 for other lines. Its three dots stand with or without blanks or as one
// character. They may be missing where the line cannot be a label.
std::int32_t StartKind(std::string_view body, bool mayBeLabel) {
  constexpr std::string_view kEllipsis = "\xE2\x80\xA6";
  const bool hasEllipsis = body.ends_with(kEllipsis);
  if (hasEllipsis) body.remove_suffix(kEllipsis.size());
  const std::string_view words = body.substr(0, body.find_last_not_of(". \t") + 1);
  const std::string_view rest = body.substr(words.size());
  const auto dots = std::ranges::count(rest, '.') + (hasEllipsis ? 3 : 0);
  if (dots != 3 && (dots != 0 || mayBeLabel)) return 0;
  for (const CatalogueEntry& start : StartLines()) {
    const std::string_view caption = start.caption.substr(0, start.caption.find(" ."));
    if (!words.empty() && MatchLength(words, caption) == words.size()) return start.code;
  }
  return 0;
}

// The first character without a place in a script, as its bytes; empty when there is none.
std::string_view FindForeign(std::string_view text) {
  if (HasPlaceInCodePage(text) && text.find('\0') == text.npos) return {};
  for (std::size_t at = 0; at < text.size();) {
    std::size_t length = 1;
    while (length < 4 && at + length < text.size() &&
           (static_cast<unsigned char>(text[at + length]) & 0xC0) == 0x80) {
      ++length;
    }
    const std::string_view character = text.substr(at, length);
    if (!HasPlaceInCodePage(character) || character == std::string_view("\0", 1)) return character;
    at += length;
  }
  return text;
}

// The number of a character of UTF-8, 0 when its bytes are none.
std::uint32_t CharacterNumber(std::string_view bytes) {
  static constexpr std::uint32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(bytes.front());
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xC0 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length != bytes.size() || lead > 0xF4) return 0;
  std::uint32_t number = length == 1 ? lead : lead & (0xFFU >> (length + 1));
  for (const char c : bytes.substr(1)) number = number << 6 | (static_cast<unsigned char>(c) & 0x3FU);
  const bool isSurrogate = number >= 0xD800 && number < 0xE000;
  return number < kLeast[length - 1] || number > 0x10FFFF || isSurrogate ? 0 : number;
}

std::string ForeignText(std::string_view character) {
  if (character == std::string_view("\0", 1)) return "A zero byte cannot stand in a script.";
  const std::uint32_t number = CharacterNumber(character);
  if (number == 0) return "This byte is no UTF-8.";
  char digits[8];
  const auto end = std::to_chars(digits, digits + sizeof digits, number, 16).ptr;
  std::string hex(digits, end);
  std::ranges::transform(hex, hex.begin(), [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
  hex.insert(0, hex.size() < 4 ? 4 - hex.size() : 0, '0');
  return "The character \"" + std::string(character) + "\" (U+" + hex +
         ") has no place in a script: it is not in code page 1252.";
}

ScriptLine LabelLine(std::string_view label) {
  ScriptLine line;
  line.Kind = KindLabel;
  line.Name = line.Text = label;
  return line;
}

class ScriptReader {
 public:
  explicit ScriptReader(std::string_view text) : rest_(text) {
    if (rest_.starts_with("\xEF\xBB\xBF")) rest_.remove_prefix(3);  // written before UTF-8 by some editors
  }

  ParsedScript Read() {
    while (!rest_.empty() && script_.errors.size() < kMostErrors) {
      ++number_;
      text_ = TakeLine();
      ReadLine();
    }
    TurnIntoLabels();
    return std::move(script_);
  }

 private:
  std::string_view TakeLine() {
    const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
    const std::string_view line = rest_.substr(0, end);
    const bool isPair = rest_.substr(end).starts_with("\r\n");
    rest_.remove_prefix(std::min(end + (isPair ? 2 : 1), rest_.size()));
    return line;
  }

  void ReadLine();
  void ReadStatement(std::string_view body, std::size_t indent);
  void AddLabel(std::string_view label);
  void TurnIntoLabels();

  void AddLine(ScriptLine line) {
    if (line.Kind != KindComment) line.Text = LineText(line);
    script_.lines.push_back(std::move(line));
    script_.sourceLines.push_back(number_);
  }
  void AddError(std::size_t at, std::string message) {
    const auto column = static_cast<int>(CharacterCount(text_.substr(0, at))) + 1;
    script_.errors.push_back({number_, column, std::move(message)});
  }

  const Lists lists_;
  std::string_view rest_;  // of the text
  std::string_view text_;  // the line
  int number_ = 0;
  ParsedScript script_;
  struct Unindented {
    std::size_t place;  // of the script's lines
    std::string_view body;
  };
  std::vector<Unindented> unindented_;  // statements that are labels if a jump says so
};

void ScriptReader::ReadLine() {
  if (const std::string_view foreign = FindForeign(text_); !foreign.empty()) {
    return AddError(static_cast<std::size_t>(foreign.data() - text_.data()), ForeignText(foreign));
  }
  const std::size_t indent = SkipBlanks(text_, 0);
  const std::string_view body = WithoutBlanksAtRight(text_.substr(indent));
  if (body.empty()) return;
  ScriptLine line;
  if (body.starts_with('\'')) {
    line.Kind = KindComment;
    line.Text = text_.substr(indent);
    return AddLine(std::move(line));
  }
  if (body.size() > kLongestStatement) {
    return AddError(indent + kLongestStatement, "This line is too long; only a comment may be so long.");
  }
  line.Kind = StartKind(body, indent == 0);
  if (line.Kind != 0) return AddLine(std::move(line));
  ReadStatement(body, indent);
}

void ScriptReader::ReadStatement(std::string_view body, std::size_t indent) {
  StatementReader reader(lists_, body);
  if (reader.Read()) {
    if (indent == 0) unindented_.push_back({script_.lines.size(), body});
    return AddLine(reader.Line());
  }
  if (indent == 0) return AddLabel(body);
  AddError(indent + reader.WhatFailed().at, FailureText(body, reader.WhatFailed()));
}

void ScriptReader::AddLabel(std::string_view label) {
  if (CharacterCount(label) > kLongestName) {
    return AddError(CharacterStart(label, kLongestName), "A label has at most 80 characters.");
  }
  AddLine(LabelLine(label));
}

bool IsJump(const ScriptLine& line) {
  return line.Kind == KindAction && (line.Op == Verb::GoTo || line.Op == Verb::Gosub);
}

// A line without indent that reads as a statement is a label all the same when a jump leads to it.
void ScriptReader::TurnIntoLabels() {
  if (unindented_.empty()) return;
  std::unordered_set<std::string> jumps;
  for (const ScriptLine& line : script_.lines) {
    if (IsJump(line)) jumps.insert(LowerTrimmed(line.Name));
  }
  for (const auto& [place, body] : unindented_) {
    if (jumps.contains(LowerTrimmed(body))) script_.lines[place] = LabelLine(body);
  }
}

}  // namespace

ParsedScript ParseScriptText(std::string_view text) {
  return ScriptReader(text).Read();
}

}  // namespace rollwick
