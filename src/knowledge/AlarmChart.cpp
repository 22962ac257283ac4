// SPDX-License-Identifier: MIT
// Where an alarm is active: zones of the reading, or of its distance from the limit where the setup has none.
#include <algorithm>

#include "core/Choices.h"
#include "core/NumberText.h"
#include "knowledge/ChartParts.h"
#include "knowledge/SetupCharts.h"

namespace torvane {

namespace {

using namespace chartParts;

enum : int { absolute = 0, deviation = 1 };
enum : int { above = 0, below = 1, hiLo = 2, deviationBand = 3 };

// An alarm is active below `low` and above `high`, and stays so within the dead band inside them.
struct Limits {
  std::optional<double> low, high;
  double deadBand = 0;
  double base = 0;  // what the boxes' numbers are added to
};

std::string nameOf(const AlarmBoxes& boxes) { return "Alarm " + numberText(std::int32_t{boxes.number}); }

std::string beyond(const std::string& what, double least, const ReadingFormat& format) {
  return what + " is not a number from " + numberText(least) + " to " +
         numberText(mostReading(format.decimals)) + ".";
}

ZoneColor colorOf(std::optional<int> index) {
  if (!index) return ZoneColor::none;
  return *index == 0 ? ZoneColor::red : *index == 1 ? ZoneColor::green : ZoneColor::amber;
}

// Reads the boxes; the reason says which of them is in the way.
class Reader {
 public:
  Reader(const AlarmBoxes& boxes, const ReadingFormat& format) : boxes_(boxes), format_(format) {}

  std::string reason;

  Limits limits() {
    Limits limits;
    if (boxes_.simpleMenu) return simpleMenuLimits();
    if (boxes_.control == deviation) limits.base = take(boxes_.setPoint1, "Setpoint 1");
    const bool usesHigh = boxes_.setup != below;
    const bool usesLow = boxes_.setup == below || boxes_.setup == hiLo;
    const double high = usesHigh ? take(boxes_.high, "The high setpoint") : 0;
    const double low = usesLow ? take(boxes_.low, "The low setpoint") : 0;
    if (usesHigh) limits.high = limits.base + high;
    if (usesLow) limits.low = limits.base + low;
    if (boxes_.setup == deviationBand) limits.low = limits.base - high;
    return limits;
  }

 private:
  // Its set point is no part of the alarm's setup, so the limit is 0.
  Limits simpleMenuLimits() {
    Limits limits;
    limits.deadBand = within(boxes_.deadBand, "The dead band", 0);
    (boxes_.setup == above ? limits.high : limits.low) = 0;
    return limits;
  }

  double take(const std::string& text, const char* what) {
    return within(text, what, leastReading(format_.decimals));
  }

  double within(const std::string& text, const char* what, double least) {
    const auto number = numberWithin(text, least, mostReading(format_.decimals));
    if (!number && reason.empty()) reason = beyond(what, least, format_);
    return number.value_or(0);
  }

  const AlarmBoxes& boxes_;
  const ReadingFormat& format_;
};

std::string choiceMissing(const AlarmBoxes& boxes) {
  if (!boxes.on && !boxes.simpleMenu) return nameOf(boxes) + " is off.";
  if (boxes.setup < above || boxes.setup > deviationBand) return "No setup of the alarm is chosen.";
  if (boxes.simpleMenu) return boxes.setup > below ? "The simple menu has Above and Below only." : "";
  if (boxes.control != absolute && boxes.control != deviation) return "No control of the alarm is chosen.";
  if (boxes.setup == deviationBand && boxes.control == absolute) return "Band is for Deviation only.";
  return "";
}

// Around everything that is marked, with room for a zone on either side. Marks stand in order.
Span spanOf(const Chart& chart, const Limits& limits, const ReadingFormat& format) {
  const double first = chart.marks.front().at.x;
  const double last = chart.marks.back().at.x;
  return widened(
      chartParts::spanOf({first - limits.deadBand, last + limits.deadBand}, 20 * countValue(format.decimals)),
      0.3);
}

void addZone(Chart& chart, const AlarmBoxes& boxes, double to, ZoneKind kind) {
  const double from = chart.zones.empty() ? chart.across.from : chart.zones.back().to;
  if (to <= from) return;
  const char* text = kind == ZoneKind::active     ? "alarm"
                     : kind == ZoneKind::deadBand ? "dead band"
                                                  : "no alarm";
  const auto color = kind == ZoneKind::quiet ? colorOf(boxes.normal) : colorOf(boxes.color);
  chart.zones.push_back({from, to, kind, color, text});
}

// From left to right. Limits that have passed each other leave no room without an alarm.
void addZones(Chart& chart, const AlarmBoxes& boxes, const Limits& limits) {
  const double end = chart.across.to;
  if (limits.low && limits.high && *limits.low >= *limits.high)
    return addZone(chart, boxes, end, ZoneKind::active);
  if (limits.low) {
    addZone(chart, boxes, *limits.low, ZoneKind::active);
    addZone(chart, boxes, *limits.low + limits.deadBand, ZoneKind::deadBand);
  }
  addZone(chart, boxes, limits.high ? *limits.high - limits.deadBand : end, ZoneKind::quiet);
  if (!limits.high) return;
  addZone(chart, boxes, *limits.high, ZoneKind::deadBand);
  addZone(chart, boxes, end, ZoneKind::active);
}

// "High 220.0 (+20.0)" of a deviation.
std::string limitText(const char* name, double at, const Limits& limits, bool isDeviation, int decimals) {
  std::string text = std::string(name) + " " + shown(at, decimals);
  if (!isDeviation) return text;
  const double distance = at - limits.base;
  return text + " (" + (distance < 0 ? "" : "+") + shown(distance, decimals) + ")";
}

void addMarks(Chart& chart, const AlarmBoxes& boxes, const Limits& limits, const ReadingFormat& format) {
  if (boxes.simpleMenu) {
    chart.marks.push_back({{0, 0}, "Limit"});
    return;
  }
  const bool isDeviation = boxes.control == deviation;
  const auto text = [&](const char* name, double at) {
    return limitText(name, at, limits, isDeviation, format.decimals);
  };
  if (limits.low) chart.marks.push_back({{*limits.low, 0}, text("Low", *limits.low)});
  if (isDeviation) {
    chart.marks.push_back({{limits.base, 0}, "Setpoint 1: " + shown(limits.base, format.decimals)});
  }
  if (limits.high) chart.marks.push_back({{*limits.high, 0}, text("High", *limits.high)});
  std::ranges::stable_sort(chart.marks, {}, [](const ChartMark& mark) { return mark.at.x; });
}

std::string colorWords(const AlarmBoxes& boxes) {
  if (!boxes.color) return "";
  return " The display is then " + choiceAt(choices::colors, *boxes.color) + ".";
}

std::string simpleMenuWords(const AlarmBoxes& boxes, const Limits& limits, const ReadingFormat& format) {
  const bool isAbove = boxes.setup == above;
  return std::string(isAbove ? "Alarm above" : "Alarm below") + " the limit, until the reading is " +
         withUnit(shown(limits.deadBand, format.decimals), format.unit) +
         (isAbove ? " below it." : " above it.");
}

std::string placeWords(const AlarmBoxes& boxes, const Limits& limits, const ReadingFormat& format) {
  if (boxes.simpleMenu) return simpleMenuWords(boxes, limits, format);
  const auto at = [&](double value) { return withUnit(shown(value, format.decimals), format.unit); };
  if (limits.low && limits.high) {
    if (*limits.low >= *limits.high) return "Alarm at every reading: the limits leave no room between them.";
    return "Alarm below " + at(*limits.low) + " and above " + at(*limits.high) + ".";
  }
  if (limits.high) return "Alarm above " + at(*limits.high) + ".";
  return limits.low ? "Alarm below " + at(*limits.low) + "." : "";
}

std::string wordsOf(const AlarmBoxes& boxes, const Limits& limits, const ReadingFormat& format) {
  std::string words = nameOf(boxes) + ". " + placeWords(boxes, limits, format);
  if (!boxes.simpleMenu && boxes.control == deviation) {
    words += " Setpoint 1 is " + withUnit(shown(limits.base, format.decimals), format.unit) + ".";
  }
  words += colorWords(boxes);
  if (boxes.latches) words += " It stays until it is reset.";
  return words;
}

}  // namespace

Chart alarmChart(const AlarmBoxes& boxes, const ReadingFormat& format) {
  if (const std::string missing = choiceMissing(boxes); !missing.empty()) return nothing(missing);
  Reader reader(boxes, format);
  const Limits limits = reader.limits();
  if (!reader.reason.empty()) return nothing(reader.reason);
  Chart chart;
  addMarks(chart, boxes, limits, format);
  const char* title = boxes.simpleMenu ? "Reading, from the alarm's limit" : "Reading";
  chart.across = axis(titled(title, format.unit), spanOf(chart, limits, format), format.decimals);
  addZones(chart, boxes, limits);
  chart.words = wordsOf(boxes, limits, format);
  return chart;
}

}  // namespace torvane
