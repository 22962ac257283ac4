// SPDX-License-Identifier: MIT
// The two waits: where they end, what they do meanwhile, and what a clock that steps does to them.
#include "protocol/Waits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "tests/support/ScriptedPort.h"

namespace torvane {

namespace {

// A pass takes a quarter of a second, so that every time here is exact in binary.
class Waits : public ::testing::Test {
 protected:
  Waits() { host.yieldTime = 0.25; }

  double lasts(double start, const std::function<void()>& wait) {
    host.clock = start;
    wait();
    return host.clock - start;
  }
  void stepClockTo(double time) {
    host.expect([] { return true; }, [this, time] { host.clock = time; });
  }

  ScriptedHost host;
};

struct DelayCase {
  float seconds;
  double lasts;  // the first pass in which more than `seconds` are over
};

TEST_F(Waits, DelayEndsOnlyWhenMoreThanItsTimeIsOver) {
  const DelayCase cases[] = {{0.0F, 0.25}, {0.25F, 0.5}, {0.5F, 0.75}, {1.0F, 1.25}, {3.0F, 3.25}};
  for (const auto& [seconds, expected] : cases) {
    for (const double start : {0.0, 100.0, 36000.25, 36000.5, 36000.75, 86399.5}) {
      EXPECT_EQ(lasts(start, [&] { Delay(seconds); }), expected) << seconds << " at " << start;
    }
  }
}

TEST_F(Waits, DelayIsHardlyLongerThanItsTimeOnAQuickMachine) {
  host.yieldTime = 0.001;
  for (const float seconds : {0.0F, 0.1F, 0.5F, 1.0F}) {
    const double lasted = lasts(36000.2, [&] { Delay(seconds); });
    EXPECT_GT(lasted, seconds);
    EXPECT_LT(lasted, seconds + 0.003);
  }
}

TEST_F(Waits, DelayOfLessThanNothingIsOverAtOnce) {
  EXPECT_EQ(lasts(100, [] { Delay(-1.0F); }), 0);
  EXPECT_EQ(host.idles, 0);
}

TEST_F(Waits, DelayStartsAnewWhenTheClockStepsBehindItsStart) {
  stepClockTo(1.0);
  lasts(86399, [] { Delay(2.0F); });
  EXPECT_EQ(host.clock, 3.25);
}

TEST_F(Waits, DelayStartsAnewAtEachStepBackward) {
  stepClockTo(50);
  stepClockTo(10);
  lasts(100, [] { Delay(2.0F); });
  EXPECT_EQ(host.clock, 12.25);
}

TEST_F(Waits, DelayTakesAStepThatStaysBehindItsStartAsTime) {
  stepClockTo(100.5);
  lasts(100, [] { Delay(2.0F); });
  EXPECT_EQ(host.clock, 102.25);
}

TEST_F(Waits, DelayServesTheWindows) {
  bool served = false;
  host.expect([] { return true; }, [&] { served = true; });
  Delay(0.5F);
  EXPECT_TRUE(served);
}

struct PauseCase {
  double start;
  std::int16_t seconds;
  double lasts;
};

TEST_F(Waits, PauseCountsFromItsStartRoundedToAWholeSecond) {
  const PauseCase cases[] = {{100.0, 3, 3.0},   {100.25, 3, 2.75}, {100.5, 3, 2.5},   {100.75, 3, 3.25},
                             {101.0, 3, 3.0},   {101.25, 3, 2.75}, {101.5, 3, 3.5},   {101.75, 3, 3.25},
                             {36000.5, 1, 0.5}, {36001.5, 1, 1.5}, {100.0, 1, 1.0},   {100.25, 1, 0.75},
                             {100.75, 1, 1.25}, {100.0, 0, 0.25},  {100.25, 0, 0.25}, {100.5, 0, 0.25},
                             {100.75, 0, 0.25}, {101.5, 0, 0.5},   {0.5, 2, 1.5},     {86399.5, 2, 2.5},
                             {100.0, -1, 0.25}, {100.75, -5, 0.25}};
  for (const auto& [start, seconds, expected] : cases) {
    EXPECT_EQ(lasts(start, [&] { pause(seconds); }), expected) << seconds << " at " << start;
  }
}

TEST_F(Waits, PauseEndsBetweenHalfASecondBeforeAndAfterItsTimeForEveryFraction) {
  host.yieldTime = 0.001;
  for (int thousandth = 0; thousandth < 2000; ++thousandth) {
    const double start = 36000 + thousandth / 1000.0;
    const double lasted = lasts(start, [] { pause(3); });
    EXPECT_NEAR(start + lasted, std::nearbyint(start) + 3, 0.0011) << start;
    EXPECT_GE(lasted, 2.499);
    EXPECT_LE(lasted, 3.502);
  }
}

TEST_F(Waits, PauseEndsAsSoonAsItsTimeIsOverAndDelayOnePassLater) {
  EXPECT_EQ(lasts(100, [] { pause(1); }), 1.0);
  EXPECT_EQ(lasts(100, [] { Delay(1.0F); }), 1.25);
}

TEST_F(Waits, PauseOfNothingStillServesTheWindowsOnce) {
  bool served = false;
  host.expect([] { return true; }, [&] { served = true; });
  pause(0);
  EXPECT_TRUE(served);
}

TEST_F(Waits, PauseIsLengthenedByAClockThatStepsBack) {
  stepClockTo(90);
  lasts(100, [] { pause(1); });
  EXPECT_EQ(host.clock, 101);
}

TEST_F(Waits, ForAFlagEndsInThePassInWhichItIsSet) {
  std::int16_t flag = 0;
  host.expect([this] { return host.clock >= 100.5; }, [&] { flag = -1; });
  host.yieldTime = 0.25;
  bool came = false;
  EXPECT_EQ(lasts(100, [&] { came = waitFor(flag, 0.25) || waitFor(flag, 0.25); }), 0.5);
  EXPECT_TRUE(came);
}

TEST_F(Waits, ForAFlagEndsAtItsLimitAndNotAfterIt) {
  for (const double seconds : {0.25, 0.5, 2.0, 3.0}) {
    bool came = true;
    EXPECT_EQ(lasts(100.25, [&] { came = waitFor(0, seconds); }), seconds);
    EXPECT_FALSE(came);
    EXPECT_EQ(lasts(100.25, [&] { waitOut(seconds); }), seconds);
  }
}

TEST_F(Waits, ForAFlagStartsAnewWhenTheClockStepsBehindItsStart) {
  stepClockTo(1.0);
  lasts(86399, [] { waitOut(3.0); });
  EXPECT_EQ(host.clock, 4.0);
}

TEST_F(Waits, SleepRatherThanSpin) {
  Delay(3.0F);
  pause(3);
  EXPECT_LE(host.idles + host.yields, 5);
}

}  // namespace

}  // namespace torvane
