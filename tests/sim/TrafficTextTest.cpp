// SPDX-License-Identifier: MIT
// The traffic as a person reads it.
#include "sim/TrafficText.h"

#include <gtest/gtest.h>

namespace torvane {

namespace {

TEST(TrafficText, ShowsTimeDirectionAndControlCharacters) {
  EXPECT_EQ(sim::trafficLine({12.3456, '>', "*R07\r", "R07"}), "12.346 > *R07<CR>");
  EXPECT_EQ(sim::trafficLine({0, '<', "R0704\r\n", {}}), "0.000 < R0704<CR><LF>");
}

TEST(TrafficText, ShowsEveryOtherByteAsDigits) {
  EXPECT_EQ(sim::visibleText(std::string("\0\x1B\x7F\xFF~ ", 6)), "<00><1B><7F><FF>~ ");
}

TEST(TrafficText, CutsWhatIsEndless) {
  const std::string text = sim::visibleText(std::string(100'000, 'R'));
  EXPECT_EQ(text, std::string(200, 'R') + "... (100000 bytes)");
}

}  // namespace

}  // namespace torvane
