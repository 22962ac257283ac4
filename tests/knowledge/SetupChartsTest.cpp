// SPDX-License-Identifier: MIT
// Charts show what the encoders would send: points on their line, zones where the alarm is active. Whatever
// the boxes hold, nothing leaves the frame.
#include "knowledge/SetupCharts.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/Memo.h"
#include "core/NumberText.h"
#include "protocol/Encoders.h"
#include "protocol/Scale.h"
#include "support/RandomMemo.h"

namespace torvane {

namespace {

constexpr int setups = 1500;
constexpr const char* hostile[] = {"",     " ",     "-",     "abc",   "1e308", "-1e308", "1e-308",
                                   "nan",  "inf",   "&HFF",  "9999",  "-1999", "0",      "-0.0",
                                   "12,5", "1e5",   "-999",  "99:59", "0000",  "999999", "00:00",
                                   "5:30", "99:99", "0.001", "\xff"};

bool isWithin(double value, double from, double to) {
  const double slack = (std::abs(from) + std::abs(to)) * 1e-9;
  return std::isfinite(value) && value >= from - slack && value <= to + slack;
}

void expectAxisInOrder(const ChartAxis& axis) {
  EXPECT_TRUE(std::isfinite(axis.from) && std::isfinite(axis.to));
  EXPECT_LT(axis.from, axis.to) << axis.title;
  EXPECT_GE(axis.ticks.size(), 2U) << axis.title << " " << axis.from << " to " << axis.to;
  EXPECT_LE(axis.ticks.size(), 12U) << axis.title;
  for (std::size_t at = 0; at < axis.ticks.size(); ++at) {
    EXPECT_TRUE(isWithin(axis.ticks[at].at, axis.from, axis.to)) << axis.ticks[at].text;
    if (at == 0) continue;
    EXPECT_GT(axis.ticks[at].at, axis.ticks[at - 1].at);
    EXPECT_NE(axis.ticks[at].text, axis.ticks[at - 1].text)
        << "ticks are no closer than the display's digits";
  }
}

void expectZonesCoverTheBar(const Chart& chart) {
  ASSERT_FALSE(chart.zones.empty());
  EXPECT_EQ(chart.zones.front().from, chart.across.from);
  EXPECT_EQ(chart.zones.back().to, chart.across.to);
  for (std::size_t at = 0; at < chart.zones.size(); ++at) {
    EXPECT_LT(chart.zones[at].from, chart.zones[at].to);
    if (at > 0) {
      EXPECT_EQ(chart.zones[at].from, chart.zones[at - 1].to);
    }
  }
}

void expectWithinFrame(const Chart& chart) {
  for (const ChartLine& line : chart.lines) {
    for (const ChartPoint& point : line.points) {
      EXPECT_TRUE(isWithin(point.x, chart.across.from, chart.across.to)) << point.x;
      EXPECT_TRUE(isWithin(point.y, chart.up.from, chart.up.to)) << point.y;
    }
  }
  for (const ChartMark& mark : chart.marks) {
    EXPECT_TRUE(isWithin(mark.at.x, chart.across.from, chart.across.to)) << mark.text;
    if (chart.zones.empty()) {
      EXPECT_TRUE(isWithin(mark.at.y, chart.up.from, chart.up.to)) << mark.text;
    }
  }
}

// A whole chart, or none and a reason.
void expectSound(const Chart& chart) {
  EXPECT_FALSE(chart.words.empty());
  EXPECT_EQ(chart.words.find("nan"), std::string::npos);
  EXPECT_EQ(chart.words.find("inf"), std::string::npos);
  if (!chart.reason.empty()) {
    Chart empty;
    empty.reason = empty.words = chart.reason;
    EXPECT_EQ(chart, empty);
    return;
  }
  expectAxisInOrder(chart.across);
  if (chart.lines.empty()) expectZonesCoverTheBar(chart);
  if (!chart.lines.empty()) expectAxisInOrder(chart.up);
  EXPECT_FALSE(chart.marks.empty());
  expectWithinFrame(chart);
}

// The records as the boxes show them.
LineBoxes readingLine() {
  return {Memo[rec::txtIn1].text, Memo[rec::txtRd1].text, Memo[rec::txtIn2].text, Memo[rec::txtRd2].text};
}

AnalogBoxes analogBoxes() {
  return {true,
          Memo[rec::optAOutI].flag != 0,
          {Memo[rec::txtAOutRd1].text, Memo[rec::txtAOutOut1].text, Memo[rec::txtAOutRd2].text,
           Memo[rec::txtAOutOut2].text}};
}

int decimals() {
  for (int at = 0; at < 4; ++at) {
    if (Memo[rec::optDpoint + at].flag != 0) return at;
  }
  return 0;
}

// The slope and the intercept that a unit takes from these registers.
double scaleOf(const std::string& payload) {
  const auto bits = static_cast<unsigned>(hexValue(payload));
  const double size = (bits & 0x7FFFFU) / std::pow(10.0, static_cast<int>(bits >> 20U) - 1);
  return (bits & 0x80000U) != 0 ? -size : size;
}

double offsetOf(const std::string& payload) {
  const auto bits = static_cast<unsigned>(hexValue(payload));
  const double size = (bits & 0xFFFFFU) / std::pow(10.0, static_cast<int>(bits >> 20U & 7U) - 2);
  return (bits & 0x800000U) != 0 ? -size : size;
}

TEST(SetupCharts, OfTheReadingDrawTheLineThatIsSentThroughItsPoints) {
  std::mt19937 random(16);
  int compared = 0;
  for (int round = 0; round < setups; ++round) {
    freshSetup();
    fillRandomMemo(random);
    const Chart chart = readingChart(readingLine(), {decimals(), ""});
    expectSound(chart);
    const auto isKept = [](double x, double y) { return x >= 0 && x <= 9999 && y >= -999; };
    if (!isKept(Val(readingLine().x1), Val(readingLine().y1)) ||
        !isKept(Val(readingLine().x2), Val(readingLine().y2))) {
      EXPECT_NE(chart.reason, "") << "the boxes keep no such number";
      continue;
    }
    ASSERT_EQ(chart.reason, "");
    const double count = std::pow(10.0, -decimals());
    const double slope = scaleOf(makeRdScale().payload) * count;
    const std::string offset = makeRdOffset().payload;
    ASSERT_EQ(chart.lines.size(), 2U);
    for (const ChartPoint& point : chart.lines[1].points) {
      const bool isBox = point.x == Val(readingLine().x1) || point.x == Val(readingLine().x2);
      EXPECT_TRUE(isBox) << "the line ends in its two points";
    }
    // A very steep or level line, or one that starts far away, is beyond what the registers hold.
    const double start = Val(readingLine().y1) - slope / count * Val(readingLine().x1);
    if (std::abs(slope / count) > 1e3 || std::abs(slope / count) < 1e-2 || std::abs(start) > 9e5) continue;
    for (const ChartPoint& point : chart.lines[0].points) {
      const double sent = slope * point.x + offsetOf(offset) * count;
      EXPECT_NEAR(point.y, sent, std::abs(slope * point.x) * 2e-4 + 2 * count) << offset;
      ++compared;
    }
  }
  EXPECT_GT(compared, setups / 2);
}

TEST(SetupCharts, OfTheAnalogOutputStayWithinWhatItCanPutOut) {
  std::mt19937 random(17);
  int drawn = 0;
  for (int round = 0; round < setups; ++round) {
    freshSetup();
    fillRandomMemo(random);
    const AnalogBoxes boxes = analogBoxes();
    const Chart chart = analogChart(boxes, {decimals(), "C"});
    expectSound(chart);
    if (!chart.reason.empty()) continue;
    ++drawn;
    for (const ChartPoint& point : chart.lines[0].points) {
      EXPECT_TRUE(isWithin(point.y, 0, boxes.current ? 20 : 10)) << point.y;
    }
    const double count = std::pow(10.0, -decimals());
    const double x1 = Val(boxes.line.x1) * count;
    const double x2 = Val(boxes.line.x2) * count;
    const double slope = (Val(boxes.line.y2) - Val(boxes.line.y1)) / (x2 - x1);
    for (const ChartPoint& point : chart.lines[0].points) {
      EXPECT_NEAR(point.y, Val(boxes.line.y1) + slope * (point.x - x1), 1e-6 * (1 + std::abs(slope)));
    }
  }
  EXPECT_GT(drawn, setups / 2);
}

// What an alarm's registers say, and what the unit makes of a reading.
struct SentAlarm {
  unsigned config = 0;
  double high = 0;
  double low = 0;
  double setPoint = 0;

  bool isOn() const { return (config & 1U) != 0; }
  bool isActiveAt(double reading) const {
    const double value = (config & 2U) != 0 ? reading - setPoint : reading;
    switch (config >> 4U & 3U) {
      case 0:
        return value > high;
      case 1:
        return value < low;
      case 2:
        return value > high || value < low;
      default:
        return std::abs(value) > high;
    }
  }
};

// Six digits: sign and decimal code, then the magnitude.
double readingOf(const std::string& payload) {
  const auto bits = static_cast<unsigned>(hexValue(payload));
  const int code = static_cast<int>(bits >> 20U & 7U);
  const double size = (bits & 0xFFFFFU) / std::pow(10.0, code - 1);
  return (bits & 0x800000U) != 0 ? -size : size;
}

SentAlarm sentAlarm(int number) {
  const bool first = number == 1;
  return {static_cast<unsigned>(hexValue((first ? makeAl1Cnfg() : makeAl2Cnfg()).payload)),
          readingOf((first ? makeAl1High() : makeAl2High()).payload),
          readingOf((first ? makeAl1Low() : makeAl2Low()).payload), readingOf(makeSp1().payload)};
}

AlarmBoxes alarmBoxes(int number) {
  const bool first = number == 1;
  AlarmBoxes boxes;
  boxes.number = number;
  boxes.on = first ? Memo[rec::chkAl1Enabled].value == 1 || Memo[rec::chkAnalogOutputEnabled].value == 1
                   : Memo[rec::chkAl2Enabled].value == 1;
  boxes.control = Memo[first ? rec::cboAl1Ctrl : rec::cboAl2Ctrl].value;
  boxes.setup = Memo[first ? rec::cboAl1Setup : rec::cboAl2Setup].value;
  boxes.high = Memo[first ? rec::txtAl1HiSp : rec::txtAl2HiSp].text;
  boxes.low = Memo[first ? rec::txtAl1LoSp : rec::txtAl2LoSp].text;
  boxes.setPoint1 = Memo[rec::txtSp1].text;
  boxes.color = Memo[first ? rec::cboAl1WhenActiveColor : rec::cboAl2WhenActiveColor].extra;
  boxes.normal = Memo[rec::cboNormalColor].extra;
  return boxes;
}

const ChartZone& zoneAt(const Chart& chart, double reading) {
  for (const ChartZone& zone : chart.zones) {
    if (reading <= zone.to) return zone;
  }
  return chart.zones.back();
}

TEST(SetupCharts, OfAnAlarmAreActiveWhereTheUnitIs) {
  std::mt19937 random(18);
  int seen[2][4] = {};
  for (int round = 0; round < setups; ++round) {
    freshSetup();
    fillRandomMemo(random);
    for (const int number : {1, 2}) {
      const SentAlarm sent = sentAlarm(number);
      const Chart chart = alarmChart(alarmBoxes(number), {decimals(), ""});
      expectSound(chart);
      EXPECT_TRUE(sent.isOn() || !chart.reason.empty());
      if (!chart.reason.empty()) continue;
      ++seen[sent.config >> 1U & 1U][sent.config >> 4U & 3U];
      EXPECT_TRUE(sent.isOn());
      for (int at = 1; at < 100; ++at) {
        const double reading = chart.across.from + (chart.across.to - chart.across.from) * at / 100.03;
        EXPECT_EQ(zoneAt(chart, reading).kind == ZoneKind::active, sent.isActiveAt(reading)) << chart.words;
      }
    }
  }
  for (const int action : {0, 1, 2}) EXPECT_GT(seen[0][action], 20) << action;
  for (const int action : {0, 1, 2, 3}) EXPECT_GT(seen[1][action], 20) << action;
}

TEST(SetupCharts, OfAnAlarmHaveTheColoursThatTheUnitHas) {
  AlarmBoxes boxes{.on = true, .high = "100.0", .low = "0", .color = 0, .normal = 1};
  Chart chart = alarmChart(boxes, {1, "C"});
  EXPECT_EQ(zoneAt(chart, 99).color, ZoneColor::green);
  EXPECT_EQ(zoneAt(chart, 101).color, ZoneColor::red);
  EXPECT_EQ(chart.words, "Alarm 1. Alarm above 100.0 C. The display is then Red.");
  boxes.color = boxes.normal = std::nullopt;
  chart = alarmChart(boxes, {1, "C"});
  EXPECT_EQ(zoneAt(chart, 101).color, ZoneColor::none);
}

TEST(SetupCharts, OfTheSimpleMenuShowTheDeadBandInsideTheLimit) {
  for (const int setup : {0, 1}) {
    const AlarmBoxes boxes{.simpleMenu = true, .setup = setup, .deadBand = "20.0"};
    const Chart chart = alarmChart(boxes, {1, "C"});
    expectSound(chart);
    const double outside = setup == 0 ? 1 : -1;
    EXPECT_EQ(zoneAt(chart, outside).kind, ZoneKind::active);
    EXPECT_EQ(zoneAt(chart, -outside).kind, ZoneKind::deadBand);
    EXPECT_EQ(zoneAt(chart, -19 * outside).kind, ZoneKind::deadBand);
    EXPECT_EQ(zoneAt(chart, -21 * outside).kind, ZoneKind::quiet);
  }
  EXPECT_EQ(alarmChart({.simpleMenu = true, .deadBand = "0"}, {1, "C"}).zones.size(), 2U);
}

TEST(SetupCharts, OfLimitsThatPassEachOtherAreActiveEverywhere) {
  for (const char* low : {"200.0", "100.0"}) {
    const Chart chart = alarmChart({.on = true, .setup = 2, .high = "100.0", .low = low}, {1, "C"});
    ASSERT_EQ(chart.zones.size(), 1U);
    EXPECT_EQ(chart.zones[0].kind, ZoneKind::active);
  }
}

TEST(SetupCharts, OfADeviationCountFromTheSetPoint) {
  const AlarmBoxes boxes{.on = true, .control = 1, .setup = 3, .high = "020.0", .setPoint1 = "200.0"};
  const Chart chart = alarmChart(boxes, {1, "C"});
  ASSERT_EQ(chart.marks.size(), 3U);
  EXPECT_EQ(chart.marks[0].text, "Low 180.0 (-20.0)");
  EXPECT_EQ(chart.marks[1].text, "Setpoint 1: 200.0");
  EXPECT_EQ(chart.marks[2].text, "High 220.0 (+20.0)");
}

TEST(SetupCharts, OfRampAndSoakEndAtTheSumOfTheTimes) {
  std::mt19937 random(19);
  for (int round = 0; round < setups; ++round) {
    const int ramp = between(random, 0, 5999);
    const int soak = between(random, 0, 5999);
    const auto clock = [](int minutes) {
      return padLeft(std::to_string(minutes / 60), 2) + ":" + padLeft(std::to_string(minutes % 60), 2);
    };
    const bool soaks = between(random, 0, 1) == 1;
    const Chart chart = rampChart({true, soaks, clock(ramp), clock(soak), "-19.9"}, {1, "F"});
    expectSound(chart);
    const int end = ramp + (soaks ? soak : 0);
    ASSERT_EQ(chart.reason.empty(), end > 0);
    if (end == 0) continue;
    const auto& points = chart.lines[0].points;
    EXPECT_EQ(points.front(), (ChartPoint{0, 0}));
    EXPECT_EQ(points[1], (ChartPoint{static_cast<double>(ramp), 1}));
    EXPECT_EQ(points.back(), (ChartPoint{static_cast<double>(end), 1}));
    EXPECT_EQ(chart.marks.back().text, soaks ? "soak " + clock(soak) : "ramp " + clock(ramp));
  }
}

TEST(SetupCharts, SayWhatIsInTheWay) {
  const LineBoxes whole{"0", "0", "9999", "1000"};
  EXPECT_EQ(readingChart({"", "0", "9999", "1000"}, {}).reason,
            "Input counts of point 1 is not a number from 0 to 9999.");
  EXPECT_EQ(readingChart({"5", "0", "5", "1000"}, {}).reason,
            "Both inputs are the same: no line leads through both points.");
  EXPECT_EQ(analogChart({false, false, whole}, {}).reason, "The analog output is off.");
  EXPECT_EQ(analogChart({true, false, whole}, {}).reason, "Output of point 2 is not a number from 0 to 10.");
  EXPECT_EQ(alarmChart({.number = 2}, {}).reason, "Alarm 2 is off.");
  EXPECT_EQ(alarmChart({.on = true, .high = "x"}, {1, "C"}).reason,
            "The high setpoint is not a number from -199.9 to 999.9.");
  EXPECT_EQ(rampChart({}, {}).reason, "The ramp is off.");
  EXPECT_EQ(rampChart({true, false, "1:30", "", "0"}, {}).reason,
            "The ramp time is not hours and minutes, as 01:30.");
}

TEST(SetupCharts, AreSoundWhateverTheBoxesHold) {
  std::mt19937 random(20);
  const auto any = [&]() -> std::string {
    const int pick = between(random, 0, static_cast<int>(std::size(hostile)) + 5);
    return pick < static_cast<int>(std::size(hostile)) ? hostile[pick] : anyText(random);
  };
  const auto chance = [&] { return between(random, 0, 1) == 1; };
  for (int round = 0; round < 3 * setups; ++round) {
    const ReadingFormat format{between(random, 0, 3), chance() ? "C" : ""};
    expectSound(readingChart({any(), any(), any(), any()}, format));
    expectSound(analogChart({chance(), chance(), {any(), any(), any(), any()}}, format));
    AlarmBoxes alarm{.on = chance(), .simpleMenu = chance()};
    alarm.control = between(random, -1, 2);
    alarm.setup = between(random, -1, 4);
    alarm.high = any();
    alarm.low = any();
    alarm.deadBand = any();
    alarm.setPoint1 = any();
    if (chance()) alarm.color = between(random, -1, 3);
    expectSound(alarmChart(alarm, format));
    expectSound(rampChart({chance(), chance(), any(), any(), any()}, format));
  }
}

}  // namespace

}  // namespace torvane
