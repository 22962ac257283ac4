// SPDX-License-Identifier: MIT
// What the charts of a setup are put together from: numbers of boxes, axes, lines within a frame.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Chart.h"

namespace torvane {

namespace chartParts {

// The number that a whole text is, if it is one and lies from low to high.
std::optional<double> numberWithin(std::string_view text, double low, double high);
// Minutes of "hh:mm".
std::optional<double> minutesOf(std::string_view text);

// In the unit's display: "100.0" for one decimal.
std::string shown(double value, int decimals);
std::string withUnit(const std::string& number, const std::string& unit);
// "Reading (C)"; without a unit the title alone.
std::string titled(const std::string& title, const std::string& unit);
std::string clockText(double minutes);  // "01:30"

// What the display can show with so many decimals, and the value of one count in it.
double countValue(int decimals);
double leastReading(int decimals);
double mostReading(int decimals);

// An axis over all the values, at least as wide as asked for, with ticks at round numbers.
struct Span {
  double from = 0;
  double to = 0;
};
Span spanOf(std::initializer_list<double> values, double least);
Span widened(Span span, double share);
ChartAxis axis(const std::string& title, Span span, int decimals);
ChartAxis timeAxis(const std::string& title, double minutes);

// The straight line through two points of different x, as far as it lies within both spans.
std::vector<ChartPoint> lineWithin(ChartPoint one, ChartPoint other, Span across, Span up);

Chart nothing(const std::string& reason);

}  // namespace chartParts

}  // namespace torvane
