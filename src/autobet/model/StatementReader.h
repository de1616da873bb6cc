// Reads one condition or action of the text form.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "autobet/model/Captions.h"
#include "autobet/model/Catalogue.h"
#include "engine/state/ScriptTables.h"

namespace rollwick {

// Where reading stopped, and what could have stood there.
struct Failure {
  std::size_t at = 0;
  std::string expected;
  const Captions* candidates = nullptr;
  std::size_t candidatesAt = 0;
};

// The byte at which character `characters`, from 0, of a UTF-8 text begins.
std::size_t CharacterStart(std::string_view text, std::size_t characters);

// What was found, what was expected there, and the nearest caption.
std::string FailureText(std::string_view text, const Failure& failure);

// Reads one condition or action, from left to right; each step returns false when the text is not as
// expected.
class StatementReader {
 public:
  StatementReader(const Lists& lists, std::string_view text) : lists_(lists), text_(text) {}

  bool Read();
  const ScriptLine& Line() const { return line_; }
  const Failure& WhatFailed() const { return failure_; }

 private:
  bool ReadCondition(const Captions::Found& left);
  bool ReadComparison(OperatorList list);
  bool ReadOperand(const Operator& op);
  bool ReadCount(std::string_view unit);
  bool ReadAction();
  bool ReadVerb(const std::vector<const VerbItem*>& verbs);
  bool ReadPercent(const std::vector<const VerbItem*>& verbs, const VerbItem*& verb);
  bool ReadPiece(const VerbItem& verb, Piece piece);

  bool ReadCode(const Captions& list, std::string_view what, std::int32_t& code);
  bool ReadItem(const Captions& list, std::string_view what, std::int32_t& code, std::int32_t& index);
  bool ReadIndex(IndexForm form, std::int32_t& index);
  bool ReadWholeNumber(int most, std::string_view what, std::int32_t& number);
  bool ReadAmount();
  bool ReadTruth();
  bool ReadQuoted(std::string_view what, bool mayBeEmpty);
  bool ReadWords();
  bool SetName(std::size_t from, std::size_t to);
  bool ReadWord(std::string_view word);
  bool TakeWord(std::string_view word);
  bool AtEnd();

  bool Fail(std::size_t at, std::string expected, const Captions* candidates = nullptr) {
    failure_ = {at, std::move(expected), candidates, at};
    return false;
  }
  std::string_view Rest() {
    at_ = SkipBlanks(text_, at_);
    return text_.substr(at_);
  }

  const Lists& lists_;
  std::string_view text_;
  std::size_t at_ = 0;
  ScriptLine line_;
  Failure failure_;
};

}  // namespace rollwick
