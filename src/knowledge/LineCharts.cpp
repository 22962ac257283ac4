// SPDX-License-Identifier: MIT
// The straight lines of a setup: the reading against the input, the analog output against the reading.
#include <algorithm>
#include <cmath>

#include "core/NumberText.h"
#include "knowledge/ChartParts.h"
#include "knowledge/SetupCharts.h"

namespace torvane {

namespace {

using namespace chartParts;

// What a box of a point may hold, and its name for the user.
struct Entry {
  const char* name;
  double least;
  double most;
};

struct Points {
  ChartPoint one, two;
  std::string reason;  // why there are none
};

std::string beyond(const Entry& entry, int point) {
  return std::string(entry.name) + " of point " + numberText(std::int32_t{point}) + " is not a number from " +
         numberText(entry.least) + " to " + numberText(entry.most) + ".";
}

// In the numbers of the boxes.
Points pointsOf(const LineBoxes& boxes, const Entry& x, const Entry& y) {
  Points points;
  const auto take = [&](const std::string& text, const Entry& entry, int point, double& into) {
    const auto number = numberWithin(text, entry.least, entry.most);
    if (number) into = *number;
    if (!number && points.reason.empty()) points.reason = beyond(entry, point);
  };
  take(boxes.x1, x, 1, points.one.x);
  take(boxes.y1, y, 1, points.one.y);
  take(boxes.x2, x, 2, points.two.x);
  take(boxes.y2, y, 2, points.two.y);
  return points;
}

std::string wayOf(ChartPoint one, ChartPoint two) {
  if (one.y == two.y) return "a level line.";
  return (two.y > one.y) == (two.x > one.x) ? "a rising line." : "a falling line.";
}

Span spanned(const ChartAxis& axis) { return {axis.from, axis.to}; }

// The line between its points and, dashed, beyond them as far as it may reach up and down.
void addLine(Chart& chart, ChartPoint one, ChartPoint two, Span reach) {
  const Span up{std::max(reach.from, chart.up.from), std::min(reach.to, chart.up.to)};
  chart.lines.push_back({lineWithin(one, two, spanned(chart.across), up), true});
  chart.lines.push_back({{one, two}, false});
}

struct PointTexts {
  std::string x, y;
};

void addPoints(Chart& chart, ChartPoint one, ChartPoint two, const PointTexts& first,
               const PointTexts& second) {
  chart.marks.push_back({one, "1: " + first.x + ", " + first.y});
  chart.marks.push_back({two, "2: " + second.x + ", " + second.y});
}

// Whole counts as they will be kept, in the display's numbers.
void toReading(double& counts, int decimals) { counts = std::trunc(counts) * countValue(decimals); }

// The line as far as the display can show it; beside a point there is always some room.
Span readingsOf(ChartPoint one, ChartPoint two, Span across, int decimals) {
  const double slope = (two.y - one.y) / (two.x - one.x);
  const auto onDisplay = [&](double x) {
    return std::clamp(one.y + slope * (x - one.x), leastReading(decimals), mostReading(decimals));
  };
  const Span all =
      spanOf({one.y, two.y, onDisplay(across.from), onDisplay(across.to)}, 10 * countValue(decimals));
  return widened(all, 0.12);
}

}  // namespace

Chart readingChart(const LineBoxes& boxes, const ReadingFormat& format) {
  const auto [typedOne, typedTwo, reason] =
      pointsOf(boxes, {"Input counts", 0, 9999}, {"Reading", -999, 9999});
  if (!reason.empty()) return nothing(reason);
  ChartPoint one{std::trunc(typedOne.x), typedOne.y};
  ChartPoint two{std::trunc(typedTwo.x), typedTwo.y};
  if (one.x == two.x) return nothing("Both inputs are the same: no line leads through both points.");
  toReading(one.y, format.decimals);
  toReading(two.y, format.decimals);
  Chart chart;
  const Span across = widened(spanOf({0, one.x, two.x}, 10), 0.05);
  chart.across = axis("Input (counts)", {std::max(0.0, across.from), across.to}, 0);
  chart.up = axis(titled("Reading", format.unit),
                  readingsOf(one, two, spanned(chart.across), format.decimals), format.decimals);
  addLine(chart, one, two, {leastReading(format.decimals), mostReading(format.decimals)});
  const PointTexts first{shown(one.x, 0), shown(one.y, format.decimals)};
  const PointTexts second{shown(two.x, 0), shown(two.y, format.decimals)};
  addPoints(chart, one, two, first, second);
  chart.words = "Reading against input: " + withUnit(first.y, format.unit) + " at " + first.x + " counts, " +
                withUnit(second.y, format.unit) + " at " + second.x + " counts, " + wayOf(one, two);
  return chart;
}

Chart analogChart(const AnalogBoxes& boxes, const ReadingFormat& format) {
  if (!boxes.on) return nothing("The analog output is off.");
  const double most = boxes.current ? 20 : 10;
  auto [one, two, reason] = pointsOf(boxes.line, {"Reading", 0, 9999}, {"Output", 0, most});
  if (!reason.empty()) return nothing(reason);
  toReading(one.x, format.decimals);
  toReading(two.x, format.decimals);
  if (one.x == two.x) return nothing("Both readings are the same: no line leads through both points.");
  const std::string unit = boxes.current ? "mA" : "V";
  Chart chart;
  const Span readings = spanOf({0, one.x, two.x}, 10 * countValue(format.decimals));
  chart.across = axis(titled("Reading", format.unit), {0, widened(readings, 0.05).to}, format.decimals);
  chart.up = axis(titled("Output", unit), {0, 1.15 * most}, 0);
  addLine(chart, one, two, {0, most});
  const PointTexts first{shown(one.x, format.decimals), shown(one.y, 2)};
  const PointTexts second{shown(two.x, format.decimals), shown(two.y, 2)};
  addPoints(chart, one, two, first, second);
  chart.words = "Analog output against reading: " + withUnit(first.y, unit) + " at " +
                withUnit(first.x, format.unit) + ", " + withUnit(second.y, unit) + " at " +
                withUnit(second.x, format.unit) + ", " + wayOf(one, two);
  return chart;
}

}  // namespace torvane
