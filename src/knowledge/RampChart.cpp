// SPDX-License-Identifier: MIT
// Ramp and soak as the reading over time.
#include "knowledge/ChartParts.h"
#include "knowledge/SetupCharts.h"

namespace torvane {

namespace {

using namespace chartParts;

constexpr double start = 0;
constexpr double atSetPoint = 1;

std::string noTime(const char* what) { return std::string(what) + " is not hours and minutes, as 01:30."; }

ChartAxis readingAxis(const std::string& setPoint, const std::string& unit) {
  return {titled("Reading", unit), 0, 1.15, {{start, "at start"}, {atSetPoint, setPoint}}};
}

}  // namespace

Chart rampChart(const RampBoxes& boxes, const ReadingFormat& format) {
  if (!boxes.ramp) return nothing("The ramp is off.");
  const auto ramp = minutesOf(boxes.rampTime);
  const auto soak = boxes.soak ? minutesOf(boxes.soakTime) : 0;
  const auto setPoint =
      numberWithin(boxes.setPoint1, leastReading(format.decimals), mostReading(format.decimals));
  if (!ramp) return nothing(noTime("The ramp time"));
  if (!soak) return nothing(noTime("The soak time"));
  if (!setPoint) return nothing("Setpoint 1 is not a number that the display can show.");
  const double end = *ramp + *soak;
  if (end == 0) return nothing(boxes.soak ? "Both times are 00:00." : "The ramp time is 00:00.");
  const std::string reading = shown(*setPoint, format.decimals);
  Chart chart;
  chart.across = timeAxis("Time (hh:mm)", end * 1.15);
  chart.up = readingAxis(reading, format.unit);
  chart.lines.push_back({{{0, start}, {*ramp, atSetPoint}, {end, atSetPoint}}, false});
  if (!boxes.soak) chart.lines.push_back({{{end, atSetPoint}, {chart.across.to, atSetPoint}}, true});
  chart.marks.push_back({{*ramp, atSetPoint}, "ramp " + clockText(*ramp)});
  if (boxes.soak) chart.marks.push_back({{end, atSetPoint}, "soak " + clockText(*soak)});
  chart.words = "The reading goes evenly to setpoint 1, " + withUnit(reading, format.unit) + ", in " +
                clockText(*ramp) + (boxes.soak ? ", and is held there for " + clockText(*soak) + "." : ".");
  return chart;
}

}  // namespace torvane
