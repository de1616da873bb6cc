// Every setting of the table by its name in the code, changed with the same refusals and consequences as on
// the screens.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

enum class SettingGroup { Rules, Settings };
using SettingValue = std::variant<bool, std::int32_t, Money>;

struct SettingEntry {
  std::string name;    // "MinPlacardBet", "AutoStopOn"
  SettingGroup group;  // Rules: a field of TableRules
  bool isArray = false;
  int firstIndex = 0;
  std::vector<SettingValue> values;  // one, or an array's entries from firstIndex on
};

// All settings with their present values, in the order of the screens.
std::vector<SettingEntry> ListSettings(const Game& g);

// The present value of `name`, written as in ChangeSetting; nothing when there is no such setting.
std::optional<SettingValue> ReadSetting(const Game& g, std::string_view name);

// Sets `name` (with its index in brackets for an array) to `value` ("on"/"off" for flags). Empty when it was
// understood (a refusal is told by a notice), else what is wrong with the words: unknown name, index out of
// range, no number.
std::string ChangeSetting(Game& g, std::string_view name, std::string_view value);

// A row of PayoffTable (bet 1..83) or, with `field`, of FieldPayoffTable (1..21). Empty or what is wrong.
std::string ChangePayoff(Game& g, bool field, int index, Money ratio, Money base, bool isToForm);

}  // namespace rollwick
