// SPDX-License-Identifier: MIT
// When the wizard's test of a bridge says what, by the bridge's own clock.
#include "tests/network/NetworkTestBench.h"

namespace torvane {

namespace {

// When a line or a connection ('+') reached the bridge, in seconds from the test's start.
class NetworkTestTimes : public NetworkTest {
 protected:
  void testFrom(double now) {
    start = now;
    bridge.takeLog();
    status.winSock1->close();
    test();
  }
  std::vector<double> timesOf(const std::string& line) {
    std::vector<double> times;
    for (const sim::LogEntry& each : bridge.log()) {
      const bool isIt = line == "+" ? each.direction == '+' : each.text == line + "\r";
      if (isIt) times.push_back(each.time - start);
    }
    return times;
  }

  double start = 0;
};

TEST_F(NetworkTestTimes, ListensUntilFiveSecondsAfterTheCallHoweverLateTheConnectionComes) {
  for (const double reachAfter : {0.001, 0.8, 1.9}) {
    bridge.faults.reachAfter = reachAfter;
    testFrom(host.clock);
    ASSERT_FALSE(timesOf("*U01").empty()) << reachAfter;
    EXPECT_NEAR(timesOf("*U01").front(), 5.0 + 0.5, 0.04) << reachAfter;
  }
}

TEST_F(NetworkTestTimes, RestsASecondBetweenTheComplaintAndTheNextConnection) {
  bridge.faults.refusals = {{"?50", "*U01", 1}};
  testFrom(host.clock);
  const std::vector<double> connections = timesOf("+");
  ASSERT_EQ(connections.size(), 2U);
  EXPECT_NEAR(connections.back() - timesOf("*U01").front(), 1.0, 0.04);
}

TEST_F(NetworkTestTimes, RestsASecondBeforeEachQuestionForTheVersion) {
  testFrom(host.clock);
  std::vector<double> questions = timesOf("*U03");
  ASSERT_EQ(questions.size(), 3U);
  questions.insert(questions.begin(), timesOf("*U01").front());
  for (std::size_t each = 1; each < questions.size(); ++each) {
    EXPECT_NEAR(questions[each] - questions[each - 1], 1.0, 0.04) << each;
  }
}

}  // namespace

}  // namespace torvane
