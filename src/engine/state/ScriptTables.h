// The Auto-Bet script: its lines as they are logged, its flags, and what a run shares with the table.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/Money.h"
#include "engine/state/BetSet.h"
#include "engine/state/Bets.h"

namespace rollwick {

enum LineKind : std::int32_t {
  KindWhen = 1,  // the When kinds ask for something new on this roll; the While kinds do not
  KindWhile,
  KindAndWhen,
  KindAndWhile,
  KindOrWhen,
  KindOrWhile,
  KindXorWhen,
  KindXorWhile,
  KindThen = 11,
  KindElse,
  KindDoThis,
  KindCondition = 20,
  KindAction = 30,
  KindLabel = 90,
  KindComment = 99,
};

inline constexpr std::size_t kLongestName = 80;       // characters, as files keep them
inline constexpr std::size_t kLongestLineText = 128;  // the same

// One logged line. A run reads the coded fields; Text is for people, and for the prompt of an input.
struct ScriptLine {
  std::int32_t Kind = 0;
  std::int32_t Op = 0;         // of a condition its comparison, of an action its verb
  std::string Name;            // of a flag, stack, label or file, or the words of a message
  Money Amount;                // of a flag line 1 for True and 0 for False
  std::int32_t LeftCode = 0;   // of a condition its left item, of an action what stands behind "of"
  std::int32_t LeftIndex = 0;  // the stack's number, or the rolls of an average
  std::int32_t LeftAux = 0;    // kept for files
  std::int32_t RightCode = 0;  // of a condition the item compared with, of an action its target
  std::int32_t RightIndex = 0;
  std::int32_t RightAux = 0;
  bool Selected = false;  // in the editor
  std::int32_t Band = 0;  // colour class in the editor: 0 and 1 alternate, 3 label, 4 comment
  std::string Text;
  friend bool operator==(const ScriptLine&, const ScriptLine&) = default;
};

struct FlagEntry {
  std::string Name;
  std::int16_t Value = 0;      // 0 is false
  std::int16_t PrevValue = 0;  // as it stood at the end of the last roll
};

// A script line as a run takes it: names looked up, jumps found. Rebuilt from the lines when they change.
struct ScriptStep {
  std::int32_t Kind = 0;
  std::int32_t Op = 0;
  std::int32_t LeftCode = 0;
  std::int32_t LeftIndex = 0;
  std::int32_t RightCode = 0;
  std::int32_t RightIndex = 0;
  std::int32_t Jump = 0;    // of Go to and Gosub the line of the label; 0 names none, -1 is not there
  std::int32_t Flag = -1;   // first flag of the name; -1: no such flag
  std::int32_t Next = 0;    // line behind this one that is no comment
  std::int32_t Past = 0;    // line behind the conditions or actions this one belongs to
  bool StartsGroup = true;  // the line before is no action with the same verb and target
  bool AllNumbers = false;  // of Reset rolls: every event of the dice
  // The slots of the items left and right where they are always the same; empty (last below first) where the
  // run has to find them.
  std::int16_t LeftFirst = 0;
  std::int16_t LeftLast = -1;
  std::int16_t RightFirst = 0;
  std::int16_t RightLast = -1;
  std::int16_t Test = 0;         // of a condition what kind of test it is
  std::int16_t Group = 0;        // of a condition which of its slots the left item means: an ItemGroup
  std::int16_t Accepts = 0;      // of a comparison the signs of left minus right that it holds for, as bits
  bool HasTypedAmount = false;   // a condition reads Amount; else the amount is to be found
  bool IsNegated = false;        // of a condition on bets: it holds for the others of the item
  bool StaysOffTheLine = false;  // of an action on Place bets: the number of the line bet is left out
  bool IsTypedBet = false;       // an action that puts a typed amount on slots that are always the same
  BetSet LeftBets;               // the slots left as a set, where they are bets
  Money Amount;
};

// Throws that differ in the point before or after them, their total, or whether a point was on before the
// last.
inline constexpr std::uint32_t kTotals = 13;  // 2..14: a generator can deliver a 7
inline constexpr int kPointsOfThrow = 8;      // the come-out, the six numbers, and what is no point
inline constexpr std::size_t kThrows = kPointsOfThrow * kPointsOfThrow * kTotals * 2;

// What the conditions of a run have come to, between two lines.
struct ScriptState {
  bool blockTrue = false;      // all conditions of the block so far were true
  bool lineOccurred = false;   // the last condition tested is true and was not before this roll
  bool blockOccurred = false;  // the same of some condition of the part since the last start line
  bool prevBlockTrue = false;  // result of the block before, for or and xor
  bool decided = false;        // the conditions as a whole are true; the rest of them is not tested
  std::int16_t blockKind = 0;  // LineKind of the last start line met
  std::int16_t xorMode = 0;    // KindXorWhen or KindXorWhile while such a block is open
};

// Where a run tests a condition or takes an action, and in what state it arrives. Stop 0 is the start, before
// line 1; the line behind the last one is the end.
struct ScriptStop {
  std::int32_t Line = 0;
  ScriptState State;
};

// The way from one stop of a run to the next, with the lines it counts for. The lines between two stops only
// move the state, and so do conditions on the throw while it is the same; so a way found once is good until
// the script changes. Stop is -1 until it was walked.
struct ScriptWay {
  std::int32_t Stop = -1;
  std::int16_t Lines = 0;
  std::int16_t Test = 0;  // StopTest of the stop it leads to, known before that is looked at
};

// The ways on from a stop, by what comes of it: a condition that is false, true, or true and new; an action
// that goes on or jumps.
using ScriptWays = std::array<ScriptWay, 3>;

struct ScriptTables {
  std::int32_t AutoBetsActive = 0;  // 1 while the player has the script switched on
  bool AutoBetsChanged = false;     // since the last offer to initialize
  bool HotKeyRunning = false;
  bool StepTraceOn = false;
  bool ScriptDirty = false;               // differs from its file
  std::int32_t ScriptInsertLine = 1;      // where the editor logs the next line
  std::int32_t CurrentLine = 0;           // of the run, from 1
  std::int32_t LastAnswer = 1;            // of the script's questions: an Answer
  std::int32_t LoggedAutoBetEnabled = 0;  // AutoBetsActive at the end of the last roll
};

}  // namespace rollwick
