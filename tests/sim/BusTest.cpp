// SPDX-License-Identifier: MIT
// Several units on one line.
#include "sim/Bus.h"

#include <gtest/gtest.h>

#include "TestPort.h"
#include "sim/Bridge.h"

namespace torvane {

namespace {

class Bus : public testing::Test {
 protected:
  std::string ask(const std::string& text) { return joined(bus.receive(1, text + '\r', {})); }

  sim::Unit first{{.addressed = true, .address = 1, .turnaround = 0}};
  sim::Unit second{{.model = sim::Model::larkspur, .addressed = true, .address = 2, .turnaround = 0}};
  sim::Bus bus{{&first, &second}};
};

TEST_F(Bus, EachAnswersToItsOwnAddressOnly) {
  EXPECT_EQ(ask("*01W0726"), "01W07\r");
  EXPECT_EQ(ask("*01R07"), "01R0726\r");
  EXPECT_NE(ask("*02R07"), "02R0726\r");
  EXPECT_EQ(ask("*03R07"), "");
  EXPECT_EQ(ask("*R07"), "");
}

TEST_F(Bus, FaultsAreThoseOfOneUnit) {
  first.faults.silentAfter = 0;
  EXPECT_EQ(ask("*01U01"), "");
  EXPECT_EQ(ask("*02U01"), "02U01\r");
}

TEST_F(Bus, CommandsToOthersUseNothingUp) {
  first.faults.silentAfter = 1;
  ask("*02U01");
  ask("*02U01");
  EXPECT_EQ(ask("*01U01"), "01U01\r");
  EXPECT_EQ(ask("*01U01"), "");
}

TEST_F(Bus, RepliesComeInTheOrderOfTime) {
  first.faults.late = 0.5;
  EXPECT_EQ(joined(bus.receive(1, "*01U01\r*02U01\r", {})), "02U01\r01U01\r");
}

TEST_F(Bus, WhoPullsThePlugPullsThatOfTheLine) {
  second.faults.hangupAt = 1;
  EXPECT_FALSE(bus.unplugged());
  ask("*02U01");
  EXPECT_TRUE(bus.unplugged());
}

TEST_F(Bus, LogHasEachCommandOnce) {
  ask("*02U01");
  const auto log = bus.takeLog();
  ASSERT_EQ(log.size(), 2U);
  EXPECT_EQ(log[0].text, "*02U01\r");
  EXPECT_EQ(log[1].text, "02U01\r");
  EXPECT_TRUE(bus.takeLog().empty());
}

TEST_F(Bus, StandsBehindABridge) {
  sim::Bridge bridge(bus);
  bridge.connect(0);
  EXPECT_EQ(bridge.receive(1, "*02U01\r").at(0).bytes, "02U01\r");
  EXPECT_TRUE(bridge.receive(2, "*03U01\r").empty());
}

}  // namespace

}  // namespace torvane
