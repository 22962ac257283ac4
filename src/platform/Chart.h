// SPDX-License-Identifier: MIT
// A chart: what it shows in numbers of its own, the same in words, and the control that holds it.
//
// A chart with zones is a bar along its one axis, on which a mark is a stroke; any other has two axes, lines,
// and marks that are dots.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Controls.h"

namespace torvane {

struct ChartPoint {
  double x = 0;
  double y = 0;  // nothing on a bar

  bool operator==(const ChartPoint&) const = default;
};

struct ChartTick {
  double at = 0;
  std::string text = {};

  bool operator==(const ChartTick&) const = default;
};

struct ChartAxis {
  std::string title = {};
  double from = 0;
  double to = 1;
  std::vector<ChartTick> ticks = {};  // from left to right, or from below

  bool operator==(const ChartAxis&) const = default;
};

struct ChartLine {
  std::vector<ChartPoint> points = {};
  bool dashed = false;

  bool operator==(const ChartLine&) const = default;
};

enum class ZoneKind { quiet, deadBand, active };
enum class ZoneColor { none, red, green, amber };

struct ChartZone {
  double from = 0;
  double to = 0;
  ZoneKind kind = ZoneKind::quiet;
  ZoneColor color = ZoneColor::none;
  std::string text = {};

  bool operator==(const ChartZone&) const = default;
};

struct ChartMark {
  ChartPoint at = {};
  std::string text = {};

  bool operator==(const ChartMark&) const = default;
};

struct Chart {
  std::string words;   // all that it shows, for who can't see it
  std::string reason;  // why there is nothing to show; then all below is empty
  ChartAxis across;
  ChartAxis up;
  std::vector<ChartLine> lines;
  std::vector<ChartZone> zones;
  std::vector<ChartMark> marks;

  bool operator==(const Chart&) const = default;
};

// A place for a chart. It takes nothing from the user; its tool tip says what it is.
class Plot : public Control {
 public:
  Plot(Container& container, std::string name, std::string_view tip) : Control(container, std::move(name)) {
    setToolTip(tip);
  }

  const Chart& chart() const { return chart_; }
  void setChart(Chart chart) { assign(chart_, std::move(chart)); }

 private:
  Chart chart_;
};

}  // namespace torvane
