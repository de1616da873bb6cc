// Scripts for tests, line by line out of codes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "autobet/model/Codes.h"
#include "autobet/model/Script.h"
#include "engine/state/Game.h"

namespace rollwick {

using Script = std::vector<ScriptLine>;

// When, While, ... then, else, Do this.
inline ScriptLine Start(std::int32_t kind) {
  ScriptLine line;
  line.Kind = kind;
  return line;
}
inline ScriptLine When() {
  return Start(KindWhen);
}
inline ScriptLine While() {
  return Start(KindWhile);
}
inline ScriptLine Then() {
  return Start(KindThen);
}
inline ScriptLine Else() {
  return Start(KindElse);
}
inline ScriptLine DoThis() {
  return Start(KindDoThis);
}

inline ScriptLine Label(std::string name) {
  ScriptLine line = Start(KindLabel);
  line.Name = std::move(name);
  return line;
}
inline ScriptLine Comment() {
  return Start(KindComment);
}

// LEFT compared with an amount, or standing alone. `index` is the number of a stack or the rolls of an
// average.
inline ScriptLine If(std::int32_t left, std::int32_t compare = 0, Money amount = {}, std::int32_t index = 0) {
  ScriptLine line = Start(KindCondition);
  line.Op = compare;
  line.Amount = amount;
  line.LeftCode = left;
  line.LeftIndex = index;
  return line;
}

// LEFT compared with an item.
inline ScriptLine IfItems(std::int32_t left, std::int32_t compare, std::int32_t right,
                          std::int32_t leftIndex = 0, std::int32_t rightIndex = 0) {
  ScriptLine line = If(left, compare, {}, leftIndex);
  line.RightCode = right;
  line.RightIndex = rightIndex;
  return line;
}

// LEFT is named, or is not named.
inline ScriptLine IfNamed(std::int32_t left, std::int32_t compare, std::string name) {
  ScriptLine line = If(left, compare);
  line.Name = std::move(name);
  return line;
}

inline ScriptLine IfFlag(std::string name, bool isTrue = true) {
  ScriptLine line = If(Item::Flag, 0, Dollars(isTrue ? 1 : 0));
  line.Name = std::move(name);
  return line;
}

// VERB AMOUNT on TARGET; of verbs without one or the other the parts they have.
inline ScriptLine Do(std::int32_t verb, Money amount = {}, std::int32_t target = 0,
                     std::int32_t targetIndex = 0) {
  ScriptLine line = Start(KindAction);
  line.Op = verb;
  line.Amount = amount;
  line.RightCode = target;
  line.RightIndex = targetIndex;
  return line;
}

// VERB [AMOUNT %] of VALUE on TARGET.
inline ScriptLine DoOf(std::int32_t verb, Money amount, std::int32_t value, std::int32_t valueIndex = 0,
                       std::int32_t target = 0, std::int32_t targetIndex = 0) {
  ScriptLine line = Do(verb, amount, target, targetIndex);
  line.LeftCode = value;
  line.LeftIndex = valueIndex;
  return line;
}

// A verb with a name: a label, a file, the words of a message.
inline ScriptLine DoNamed(std::int32_t verb, std::string name) {
  ScriptLine line = Do(verb);
  line.Name = std::move(name);
  return line;
}
inline ScriptLine GoTo(std::string label) {
  return DoNamed(Verb::GoTo, std::move(label));
}
inline ScriptLine Gosub(std::string label) {
  return DoNamed(Verb::Gosub, std::move(label));
}
inline ScriptLine SetFlag(std::string name, bool value) {
  ScriptLine line = DoNamed(Verb::SetFlag, std::move(name));
  line.Amount = Dollars(value ? 1 : 0);
  return line;
}
// Stack `number` counts one up.
inline ScriptLine Mark(std::int32_t number, std::int64_t step = 1) {
  return Do(Verb::Add, Dollars(step), Item::Stack, number);
}

// Makes `lines` the script of the game, switched on; flags it names come into being, those there already
// stay.
inline void SetScript(Game& g, Script lines) {
  const bool changed = g.AutoBetsChanged;
  g.ScriptLines.clear();
  InsertLines(g, std::move(lines));
  g.AutoBetsChanged = changed;
  g.AutoBetsActive = 1;
}

}  // namespace rollwick
