// The numeric format strings of the system: "positive;negative;zero" pictures of digits.
#pragma once

#include <string>
#include <string_view>

#include "base/Money.h"

namespace rollwick {

// `value` under `pattern`, a picture of up to three sections (positive; negative; zero) of the characters
// 0 # . , % and literals, or the name "Standard". A value that rounds to zero under its section prints with
// the zero section, or with the first if there is none. Rounds half away from zero: a Money exactly, a double
// by its 15 significant digits. The decimal point prints whenever the section has one and no 0 is put before
// it.
std::string FormatNumber(Money value, std::string_view pattern);
std::string FormatNumber(double value, std::string_view pattern);

// `text` followed by the amount: with cents when it has any ("1,234.50", ".25"), else whole ("1,234", "0").
std::string FormatMoney(Money value, std::string_view text = {});

}  // namespace rollwick
