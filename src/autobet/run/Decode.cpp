// From logged lines to steps that a run takes without touching a text.
#include <unordered_map>

#include "autobet/model/Codes.h"
#include "autobet/run/Run.h"

namespace rollwick {

namespace {

// Line of each label, from 1. A label that stands twice is reached at its first place.
std::unordered_map<std::string, std::int32_t> FindLabels(const std::vector<ScriptLine>& lines) {
  std::unordered_map<std::string, std::int32_t> labels;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].Kind == KindLabel)
      labels.try_emplace(LowerTrimmed(lines[i].Name), static_cast<std::int32_t>(i) + 1);
  }
  return labels;
}

// Names of flags are compared exactly.
std::unordered_map<std::string_view, std::int32_t> FindFlags(const std::vector<FlagEntry>& flags) {
  std::unordered_map<std::string_view, std::int32_t> places;
  for (std::size_t i = 0; i < flags.size(); ++i)
    places.try_emplace(TrimBlanks(flags[i].Name), static_cast<std::int32_t>(i));
  return places;
}

template <class Map, class Key>
std::int32_t PlaceOf(const Map& map, const Key& key) {
  const auto found = map.find(key);
  return found == map.end() ? -1 : found->second;
}

bool GoesOnWith(const ScriptLine& before, const ScriptLine& line) {
  return before.Kind == KindAction && before.Op == line.Op && before.RightCode == line.RightCode &&
         before.RightIndex == line.RightIndex;
}

bool MayGoWith(std::int32_t kind, std::int32_t before) {
  return kind == before && (kind == KindCondition || kind == KindAction);
}

void FixRange(std::int16_t& first, std::int16_t& last, const std::optional<SlotRange>& range) {
  if (!range) return;
  first = static_cast<std::int16_t>(range->first);
  last = static_cast<std::int16_t>(range->last);
}

void DecodeTest(ScriptStep& step) {
  step.Accepts = AcceptedSigns(step.Op);
  step.HasTypedAmount =
      !IsComparisonWithItem(step.Op) && step.Op != Compare::IsNamed && step.Op != Compare::IsNotNamed;
  step.Group = GroupKindOf(step.LeftCode);
  step.Test = TestOf(step);
}

// From the last line up: where a run goes on behind each line, and where when it passes the rest over.
void LinkSteps(std::vector<ScriptStep>& steps) {
  std::int32_t next = static_cast<std::int32_t>(steps.size()) + 1;
  for (auto line = next - 1; line >= 1; --line) {
    ScriptStep& step = steps[static_cast<std::size_t>(line - 1)];
    step.Next = step.Past = next;
    if (next <= std::ssize(steps)) {
      const ScriptStep& behind = steps[static_cast<std::size_t>(next - 1)];
      if (MayGoWith(step.Kind, behind.Kind)) step.Past = behind.Past;
    }
    if (step.Kind != KindComment) next = line;
  }
}

}  // namespace

void DecodeScript(Game& g) {
  const auto labels = FindLabels(g.ScriptLines);
  const auto flags = FindFlags(g.ScriptFlags);
  g.ScriptProgram.clear();
  g.ScriptProgram.reserve(g.ScriptLines.size());
  const ScriptLine* before = nullptr;
  for (const ScriptLine& line : g.ScriptLines) {
    ScriptStep step;
    step.Kind = line.Kind;
    step.Op = line.Op;
    step.LeftCode = line.LeftCode;
    step.LeftIndex = line.LeftIndex;
    step.RightCode = line.RightCode;
    step.RightIndex = line.RightIndex;
    step.Amount = line.Amount;
    // The first line of the script goes on with nothing, and has nothing to clear.
    step.StartsGroup = before != nullptr && !GoesOnWith(*before, line);
    if (NamesFlag(line)) step.Flag = PlaceOf(flags, TrimBlanks(line.Name));
    if (line.Op == Verb::GoTo || line.Op == Verb::Gosub) {
      const std::string label = LowerTrimmed(line.Name);
      step.Jump = label.empty() ? 0 : PlaceOf(labels, label);
    }
    step.AllNumbers =
        line.RightCode == Item::AllNumbers ||
        (line.RightCode == Item::BoxNumbers && line.Text.find("all the numbers") != std::string::npos);
    step.StaysOffTheLine = StaysOffTheLine(line.RightCode);
    FixRange(step.LeftFirst, step.LeftLast, FixedRangeOf(line.LeftCode, line.LeftIndex));
    FixRange(step.RightFirst, step.RightLast,
             line.Kind == KindAction ? FixedTargetsOf(line.RightCode, line.RightIndex)
                                     : FixedRangeOf(line.RightCode, line.RightIndex));
    if (line.Kind == KindCondition) DecodeTest(step);
    step.IsTypedBet = line.Kind == KindAction && line.Op == Verb::Bet && step.RightFirst <= step.RightLast;
    g.ScriptProgram.push_back(step);
    before = &line;
  }
  LinkSteps(g.ScriptProgram);
  g.ScriptStopPlaces.clear();
  g.ScriptStops.assign(1, {});
  for (auto& ways : g.WaysOfThrow) ways.clear();
  g.ScriptIsDecoded = true;
}

}  // namespace rollwick
