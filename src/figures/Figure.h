// A figure of a statistics screen: its text, its colour and the number behind it. What a screen shows is made
// here for every front end; none of them computes or words a figure of its own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/Money.h"

namespace rollwick {

// Nothing where there is nothing to count: the share of no wagers, the average of no hands.
using PlainNumber = std::variant<std::monostate, std::int64_t, Money, double>;

// Figures that may be a gain or a loss stand in blue from 0 up and in red below.
enum class Tone { Plain, Gain, Loss };

struct Figure {
  std::string name;   // of the control: "lblTotalRolls"
  std::string label;  // what stands beside it
  std::string text;
  PlainNumber plain;
  Tone tone = Tone::Plain;
};

// 0.1 as "0.1": the shortest plain decimal that reads back as the same number.
std::string PlainText(double value);

constexpr std::string_view kWholeFormat = "#,#;-#,#;0";
constexpr std::string_view kRateFormat = "#,#.0###;-#,#;0";

// Whole numbers by the first format, others by the second.
std::string FormatBySize(double value, std::string_view whole, std::string_view fractional);
std::string FormatBySize(Money value, std::string_view whole, std::string_view fractional);

Tone ToneOf(Money value);

Figure CountFigure(std::string name, std::string label, std::int64_t count);
// An amount shown in whole dollars; toned when it may be a gain or a loss.
Figure WholeAmountFigure(std::string name, std::string label, Money amount, bool isToned = false);
// Rolls per hour, simulated hours.
Figure RateFigure(std::string name, std::string label, double value);

// part / whole in double precision; nothing of nothing.
PlainNumber Share(Money part, Money whole);

// The hours that this many rolls take at the table's pace; 0 at no pace.
double SimulatedHours(std::int64_t rolls, Money rollsPerHour);

}  // namespace rollwick
