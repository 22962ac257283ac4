// SPDX-License-Identifier: MIT
// The pace of the line.
#include "sim/LineTiming.h"

#include <gtest/gtest.h>

#include "TestPort.h"

namespace torvane {

namespace {

using sim::LineSettings;

TEST(LineSettings, ReadsItsOwnText) {
  for (const char* text : {"9600,o,7,1", "19200,n,8,2", "300,e,7,2"}) {
    const auto line = sim::parseLineSettings(text);
    ASSERT_TRUE(line) << text;
    EXPECT_EQ(sim::lineSettingsText(*line), text);
  }
  EXPECT_EQ(sim::parseLineSettings("9600,o,7,1"), LineSettings{});
}

TEST(LineSettings, RefusesOtherTexts) {
  for (const char* text : {"", "9600", "9600,o,7", "9600,x,7,1", "9600,o,9,1", "9600,o,7,3", "0,o,7,1",
                           "9600,oo,7,1", "9600,o,7,1,", "fast,o,7,1", "9600, o,7,1"}) {
    EXPECT_FALSE(sim::parseLineSettings(text)) << text;
  }
}

TEST(LineSettings, CountsStartDataParityAndStopBits) {
  EXPECT_EQ(sim::bitsPerCharacter({9600, 'o', 7, 1}), 10);
  EXPECT_EQ(sim::bitsPerCharacter({9600, 'n', 7, 1}), 9);
  EXPECT_EQ(sim::bitsPerCharacter({9600, 'e', 8, 2}), 12);
}

TEST(LineTiming, ReplyComesATurnaroundAfterTheCommand) {
  sim::Unit unit{{.turnaround = 0.25}};
  const auto chunks = unit.receive(5, "*R07\r");
  ASSERT_EQ(chunks.size(), 1U);
  EXPECT_DOUBLE_EQ(chunks[0].at, 5.25);
}

TEST(LineTiming, EveryByteTakesItsTimeAtALineRate) {
  sim::Unit unit{{.turnaround = 0.01, .lineRate = 1000}};
  const auto chunks = unit.receive(5, "*R07\r");  // 5 bytes of 10 bits there, 6 back
  ASSERT_EQ(chunks.size(), 6U);
  EXPECT_NEAR(chunks.front().at, 5 + 0.05 + 0.01 + 0.01, 1e-9);
  EXPECT_NEAR(chunks.back().at, 5 + 0.05 + 0.01 + 0.06, 1e-9);
  EXPECT_EQ(chunks.front().bytes, "R");
}

TEST(LineTiming, BytesOfACommandWaitForThoseBeforeThem) {
  sim::LineTiming timing(1000, {});
  EXPECT_NEAR(timing.heard(1), 1.01, 1e-9);
  EXPECT_NEAR(timing.heard(1), 1.02, 1e-9);
  EXPECT_NEAR(timing.heard(2), 2.01, 1e-9);
}

TEST(LineTiming, RepliesDoNotOverlap) {
  sim::Unit unit{{.turnaround = 0.001, .lineRate = 1000}};
  const auto chunks = unit.receive(0, "*R07\r*R07\r");
  for (std::size_t at = 1; at < chunks.size(); ++at) EXPECT_GT(chunks[at].at, chunks[at - 1].at);
  EXPECT_EQ(joined(chunks), "R0704\rR0704\r");
}

TEST(LineTiming, FrameOfTheUnitSetsThePace) {
  sim::Unit unit{{.line = {9600, 'n', 8, 2}, .turnaround = 0, .lineRate = 1100}};
  const auto chunks = unit.receive(0, "*R07\r");  // 11 bits a byte
  EXPECT_NEAR(chunks.back().at, 0.11, 1e-9);
}

}  // namespace

}  // namespace torvane
