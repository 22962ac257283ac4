// SPDX-License-Identifier: MIT
// Parts of a setup as charts, made of what the boxes hold: pure functions of their texts and choices.
//
// A box that holds no number, or one that it would not keep, gives a chart without lines that names the box.
#pragma once

#include <optional>
#include <string>

#include "platform/Chart.h"

namespace torvane {

// How the unit shows a reading.
struct ReadingFormat {
  int decimals = 0;       // 0 to 3
  std::string unit = {};  // "C", "F"; empty for a process signal
};

// Two points of a line, in the texts of their boxes.
struct LineBoxes {
  std::string x1 = {}, y1 = {}, x2 = {}, y2 = {};
};

// The reading against the input counts of a process signal.
Chart readingChart(const LineBoxes& boxes, const ReadingFormat& format);

struct AnalogBoxes {
  bool on = false;
  bool current = false;  // milliamps, not volts
  LineBoxes line = {};   // readings in counts, outputs in volts or milliamps
};

// The analog output against the reading.
Chart analogChart(const AnalogBoxes& boxes, const ReadingFormat& format);

// What an alarm's boxes hold. Choices are list indexes, -1 where none is chosen.
struct AlarmBoxes {
  int number = 1;  // 1 or 2
  bool on = false;
  bool simpleMenu = false;  // the alarm has a dead band in place of its set points
  int control = 0;
  int setup = 0;
  bool latches = false;
  std::string high = {}, low = {}, deadBand = {};
  std::string setPoint1 = {};                  // for a deviation
  std::optional<int> color = {}, normal = {};  // of the display; none where the unit has no colours
};

// Where an alarm is active, as zones of the reading that cover the whole bar.
Chart alarmChart(const AlarmBoxes& boxes, const ReadingFormat& format);

struct RampBoxes {
  bool ramp = false;
  bool soak = false;
  std::string rampTime = {}, soakTime = {};  // hh:mm
  std::string setPoint1 = {};
};

// The way to the set point and the stay there, in minutes. The reading at the start is not known, so that it
// is the foot of the axis, 0, and the set point its 1.
Chart rampChart(const RampBoxes& boxes, const ReadingFormat& format);

}  // namespace torvane
