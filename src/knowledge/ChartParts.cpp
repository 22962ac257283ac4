// SPDX-License-Identifier: MIT
// What the charts of a setup are put together from.
#include "knowledge/ChartParts.h"

#include <algorithm>
#include <cmath>

#include "core/NumberText.h"
#include "platform/RuntimeError.h"

namespace torvane {

namespace {

constexpr int mostTicks = 9;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The smallest of 1, 2 and 5 times a power of ten that gives few enough steps, and no finer than one count.
double roundStep(double width, double finest) {
  const double rough = std::max(width / mostTicks, finest);
  const double power = std::pow(10.0, std::floor(std::log10(rough) + 1e-9));
  for (const double step : {1.0, 2.0, 5.0}) {
    if (step * power >= rough * (1 - 1e-9)) return step * power;
  }
  return 10 * power;
}

double minuteStep(double minutes) {
  for (const int step : {1, 2, 5, 10, 15, 30, 60, 120, 180, 360, 720, 1440}) {
    if (minutes / step <= mostTicks) return step;
  }
  return 2880;
}

}  // namespace

namespace chartParts {

std::optional<double> numberWithin(std::string_view text, double low, double high) {
  double number = 0;
  if (!attempt([&] { number = numberOfText(text); })) return std::nullopt;
  const bool within = number >= low && number <= high;  // which what is no number is not
  return within ? std::optional(number) : std::nullopt;
}

std::optional<double> minutesOf(std::string_view text) {
  const bool isTime = text.size() == 5 && isDigit(text[0]) && isDigit(text[1]) && text[2] == ':' &&
                      isDigit(text[3]) && isDigit(text[4]) && text[3] <= '5';
  if (!isTime) return std::nullopt;
  return 60 * Val(text.substr(0, 2)) + Val(text.substr(3));
}

std::string shown(double value, int decimals) {
  constexpr const char* pictures[] = {"0", "0.0", "0.00", "0.000"};
  return formatNumber(value, pictures[std::clamp(decimals, 0, 3)]);
}

std::string withUnit(const std::string& number, const std::string& unit) {
  return unit.empty() ? number : number + " " + unit;
}

std::string titled(const std::string& title, const std::string& unit) {
  return unit.empty() ? title : title + " (" + unit + ")";
}

std::string clockText(double minutes) {
  const double hours = std::floor(minutes / 60);
  return formatNumber(hours, "00") + ":" + formatNumber(minutes - 60 * hours, "00");
}

double countValue(int decimals) { return std::pow(10.0, -decimals); }
double leastReading(int decimals) { return -1999 * countValue(decimals); }
double mostReading(int decimals) { return 9999 * countValue(decimals); }

Span spanOf(std::initializer_list<double> values, double least) {
  const auto [low, high] = std::minmax(values);
  const double missing = std::max(0.0, least - (high - low));
  return {low - missing / 2, high + missing / 2};
}

Span widened(Span span, double share) {
  const double more = (span.to - span.from) * share;
  return {span.from - more, span.to + more};
}

ChartAxis axis(const std::string& title, Span span, int decimals) {
  ChartAxis axis{title, span.from, span.to, {}};
  const double step = roundStep(span.to - span.from, countValue(decimals));
  const double slack = step * 1e-9;
  const auto first = static_cast<int>(std::ceil((span.from - slack) / step));
  const auto last = static_cast<int>(std::floor((span.to + slack) / step));
  for (int at = first; at <= last; ++at) {
    const double value = std::clamp(at * step, span.from, span.to);
    axis.ticks.push_back({value, shown(value, decimals)});
  }
  return axis;
}

ChartAxis timeAxis(const std::string& title, double minutes) {
  ChartAxis axis{title, 0, minutes, {}};
  const double step = minuteStep(minutes);
  const auto last = static_cast<int>(std::floor(minutes / step));
  for (int at = 0; at <= last; ++at) axis.ticks.push_back({at * step, clockText(at * step)});
  return axis;
}

std::vector<ChartPoint> lineWithin(ChartPoint one, ChartPoint other, Span across, Span up) {
  const double slope = (other.y - one.y) / (other.x - one.x);
  const auto heightAt = [&](double x) { return std::clamp(one.y + slope * (x - one.x), up.from, up.to); };
  Span reach = across;
  if (slope != 0) {
    const double atFoot = one.x + (up.from - one.y) / slope;
    const double atTop = one.x + (up.to - one.y) / slope;
    reach.from = std::max(reach.from, std::min(atFoot, atTop));
    reach.to = std::min(reach.to, std::max(atFoot, atTop));
  }
  return {{reach.from, heightAt(reach.from)}, {reach.to, heightAt(reach.to)}};
}

Chart nothing(const std::string& reason) {
  Chart chart;
  chart.words = chart.reason = reason;
  return chart;
}

}  // namespace chartParts

}  // namespace torvane
