// SPDX-License-Identifier: MIT
// The bridge in front of the unit: what whoever connects sees, and when.
#include "sim/Bridge.h"

#include <gtest/gtest.h>

namespace torvane {

namespace {

using sim::Bridge;
using sim::BridgeEvent;
using sim::Reach;
using sim::Unit;
using Events = std::vector<BridgeEvent>;

// "data", "closed" and so on, one a word.
std::string kinds(const Events& events) {
  constexpr const char* names[] = {"accepted", "refused", "data", "closed", "reset"};
  std::string text;
  for (const BridgeEvent& event : events) text += (text.empty() ? "" : " ") + std::string(names[event.kind]);
  return text;
}

// The packets, in brackets.
std::string packets(const Events& events) {
  std::string text;
  for (const BridgeEvent& event : events) {
    if (event.kind == BridgeEvent::data) text += '[' + event.bytes + ']';
  }
  return text;
}

class BridgeTest : public testing::Test {
 protected:
  Events ask(const std::string& command, double now = 0) { return bridge.receive(now, command + '\r'); }

  Unit unit{{.turnaround = 0.25}};
  Bridge bridge{unit};
};

TEST_F(BridgeTest, AcceptsInItsTime) {
  bridge.faults.reachAfter = 0.5;
  const Events events = bridge.connect(10);
  ASSERT_EQ(kinds(events), "accepted");
  EXPECT_DOUBLE_EQ(events[0].at, 10.5);
  EXPECT_EQ(bridge.connections(), 1U);
}

TEST_F(BridgeTest, RefusesInItsTime) {
  bridge.faults.reach = Reach::refuses;
  bridge.faults.reachAfter = 0.5;
  const Events events = bridge.connect(10);
  ASSERT_EQ(kinds(events), "refused");
  EXPECT_DOUBLE_EQ(events[0].at, 10.5);
}

TEST_F(BridgeTest, AnswersNobody) {
  bridge.faults.reach = Reach::never;
  EXPECT_TRUE(bridge.connect(10).empty());
  EXPECT_EQ(bridge.connections(), 1U);
}

TEST_F(BridgeTest, PassesLinesOnAndRepliesBack) {
  bridge.faults.late = 0.125;
  const Events events = ask("*R07", 10);
  ASSERT_EQ(packets(events), "[R0704\r]");
  EXPECT_DOUBLE_EQ(events[0].at, 10.375);
  EXPECT_EQ(unit.commands(), std::vector<std::string>{"*R07"});
}

TEST_F(BridgeTest, TakesALineInAnyPortions) {
  EXPECT_TRUE(bridge.receive(0, "*R").empty());
  EXPECT_TRUE(bridge.receive(1, "07").empty());
  EXPECT_EQ(packets(bridge.receive(2, "\r*R08\r*R")), "[R0704\r][R0842\r]");
}

TEST_F(BridgeTest, ForgetsAHalfLineWithItsConnection) {
  bridge.receive(0, "*R07");
  bridge.connect(1);
  EXPECT_TRUE(ask("").empty());
  EXPECT_TRUE(unit.replies().empty());
}

TEST_F(BridgeTest, LosesWhatIsBeyondALine) {
  bridge.receive(0, std::string(1'000'000, '*'));
  EXPECT_EQ(packets(ask("")), "[?43\r]");
  EXPECT_EQ(bridge.lines().at(0).size(), 256U);
}

TEST_F(BridgeTest, JoinsTheBytesOfASlowLineToOnePacket) {
  Unit slow({.turnaround = 0, .lineRate = 1200});
  Bridge front(slow);
  EXPECT_EQ(packets(front.receive(0, "*R07\r")), "[R0704\r]");
  front.faults.joinWithin = 0.001;
  EXPECT_EQ(packets(front.receive(1, "*R07\r")), "[R][0][7][0][4][\r]");
}

TEST_F(BridgeTest, JoinsWhatFollowsWithinItsTime) {
  unit.faults.trailing = "R0799\r";
  unit.faults.trailingAfter = 0.5;
  EXPECT_EQ(packets(ask("*R07")), "[R0704\r][R0799\r]");
  bridge.faults.joinWithin = 1;
  const Events events = ask("*R07", 10);
  EXPECT_EQ(packets(events), "[R0704\rR0799\r]");
  EXPECT_DOUBLE_EQ(events.at(0).at, 10.25 + 0.5 + bridge.faults.late);
}

TEST_F(BridgeTest, CutsPacketsIntoPieces) {
  bridge.faults.pieceSize = 4;
  bridge.faults.pieceGap = 0.5;
  const Events events = ask("*R01");
  ASSERT_EQ(packets(events), "[R012][0000][0\r]");
  EXPECT_DOUBLE_EQ(events[1].at - events[0].at, 0.5);
  EXPECT_DOUBLE_EQ(events[2].at - events[1].at, 0.5);
}

TEST_F(BridgeTest, PiecesOfTwoPacketsDoNotOvertake) {
  bridge.faults.pieceSize = 4;
  bridge.faults.pieceGap = 0.5;
  unit.faults.trailing = "U01\r";
  unit.faults.trailingAfter = 0.1;
  EXPECT_EQ(packets(ask("*R07")), "[R070][4\r][U01\r]");
}

TEST_F(BridgeTest, TerminalServerAnswersWithItsPromptAlone) {
  bridge.faults.prompt = sim::terminalServerPrompt;
  const std::string reply = packets(ask("*U01"));
  EXPECT_NE(reply.find("Terminal"), std::string::npos);
  EXPECT_TRUE(unit.log().empty());
  EXPECT_EQ(bridge.lines(), std::vector<std::string>{"*U01"});
  EXPECT_EQ(bridge.log().at(0).direction, '|');
}

TEST_F(BridgeTest, TalksUnasked) {
  bridge.faults.unasked = {"0023.5\r", 0.5, 3};
  const Events events = bridge.connect(10);
  ASSERT_EQ(kinds(events), "accepted data data data");
  EXPECT_DOUBLE_EQ(events[1].at, events[0].at + 0.5);
  EXPECT_DOUBLE_EQ(events[3].at, events[0].at + 1.5);
}

TEST_F(BridgeTest, PassesOnWhatTheUnitSaysUnasked) {
  unit.faults.stale = "R0799\r";
  EXPECT_EQ(packets(bridge.connect(0)), "[R0799\r]");
  EXPECT_EQ(packets(bridge.connect(1)), "");
}

TEST_F(BridgeTest, AcceptsAndIsSilent) {
  bridge.faults.silent = true;
  EXPECT_EQ(kinds(bridge.connect(0)), "accepted");
  EXPECT_TRUE(ask("*U01").empty());
  EXPECT_TRUE(unit.log().empty());
}

TEST_F(BridgeTest, ClosesAtOnceOrLater) {
  bridge.faults.closeAfter = 0;
  EXPECT_EQ(kinds(bridge.connect(0)), "accepted closed");
  bridge.faults.closeAfter = 2;
  bridge.faults.abrupt = true;
  bridge.faults.unasked = {"0023.5\r", 1, 1};
  const Events events = bridge.connect(10);
  ASSERT_EQ(kinds(events), "accepted data reset");
  EXPECT_DOUBLE_EQ(events[2].at, events[0].at + 2);
}

TEST_F(BridgeTest, DropsAtALineUnasked) {
  bridge.faults.dropAt = 2;
  EXPECT_EQ(kinds(ask("*R07")), "data");
  EXPECT_EQ(kinds(ask("*R08")), "closed");
  EXPECT_EQ(unit.count("R08"), 0U);
  EXPECT_EQ(kinds(bridge.connect(1)), "accepted");
  EXPECT_EQ(kinds(ask("*R08")), "data");
}

TEST_F(BridgeTest, DropsAfterSomeBytesOfAReply) {
  bridge.faults.dropAt = 1;
  bridge.faults.dropAfter = 3;
  const Events events = ask("*R07");
  ASSERT_EQ(kinds(events), "data closed");
  EXPECT_EQ(packets(events), "[R07]");
  EXPECT_GE(events[1].at, events[0].at);
  EXPECT_EQ(unit.count("R07"), 1U);
}

TEST_F(BridgeTest, DropsAfterAWholeReplyAndAfterSilence) {
  bridge.faults.dropAt = 1;
  bridge.faults.dropAfter = 100;
  EXPECT_EQ(packets(ask("*R07")), "[R0704\r]");
  bridge.faults.dropAt = 1;
  unit.faults.silentAfter = 0;
  EXPECT_EQ(kinds(ask("*R07", 5)), "closed");
}

TEST_F(BridgeTest, StaysAwayAfterADrop) {
  bridge.faults.dropAt = 1;
  bridge.faults.afterDrop = Reach::never;
  ask("*R07");
  EXPECT_TRUE(bridge.connect(1).empty());
}

TEST_F(BridgeTest, EchoesLinesAsAModemDoes) {
  bridge.faults.echoes = 1;
  EXPECT_EQ(packets(ask("*U01")), "[*U01\r]");
  EXPECT_EQ(packets(ask("*U01")), "[U01\r]");
  bridge.faults.echoes = sim::unlimited;
  for (int time = 0; time < 3; ++time) EXPECT_EQ(packets(ask("*U01")), "[*U01\r]");
  EXPECT_EQ(unit.count("U01"), 1U);
}

TEST_F(BridgeTest, RefusesThisManyLines) {
  bridge.faults.refusals = {{"?46", "*U", 2}};
  EXPECT_EQ(packets(ask("*U01")), "[?46\r]");
  EXPECT_EQ(packets(ask("*R07")), "[R0704\r]");
  EXPECT_EQ(packets(ask("*U01")), "[?46\r]");
  EXPECT_EQ(packets(ask("*U01")), "[U01\r]");
  bridge.faults.refusals = {{"", "*U", 1}};
  EXPECT_EQ(packets(ask("*U01")), "");
}

TEST_F(BridgeTest, WrongParityOfItsSerialSideIsTheUnitsParityError) {
  bridge.faults.line = sim::LineSettings{9600, 'e', 7, 1};
  EXPECT_EQ(packets(ask("*U01")), "[?50\r]");
  bridge.faults.line = sim::LineSettings{19200, 'o', 7, 1};
  EXPECT_EQ(packets(ask("*U01")), "");
}

TEST_F(BridgeTest, LogIsTakenOnce) {
  bridge.connect(0);
  ask("*U01");
  EXPECT_EQ(bridge.takeLog().size(), 2U);
  EXPECT_TRUE(bridge.log().empty());
}

}  // namespace

}  // namespace torvane
