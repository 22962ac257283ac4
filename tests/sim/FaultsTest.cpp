// SPDX-License-Identifier: MIT
// What can be wrong with a unit or its line.
#include "sim/Faults.h"

#include <gtest/gtest.h>

#include "TestPort.h"

namespace torvane {

namespace {

using sim::Unit;
using sim::unlimited;

class Faults : public testing::Test {
 protected:
  Unit unit{{.turnaround = 0}};
};

TEST_F(Faults, SilentFromTheStart) {
  unit.faults.silentAfter = 0;
  EXPECT_EQ(ask(unit, "*W0726"), "");
  EXPECT_EQ(unit.registerHex("07"), "04");
  EXPECT_EQ(unit.count("W07"), 1U);
}

TEST_F(Faults, SilentAfterSomeCommandsUntilLifted) {
  unit.faults.silentAfter = 2;
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
  EXPECT_EQ(ask(unit, "*R07"), "");
  EXPECT_EQ(ask(unit, "*R07"), "");
  unit.faults.silentAfter = unlimited;
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
}

TEST_F(Faults, LoopReturnsWhatItGot) {
  unit.faults.loopback = unlimited;
  EXPECT_EQ(ask(unit, "*W0726"), "*W0726\r");
  EXPECT_EQ(ask(unit, "*11R07"), "*11R07\r");
  EXPECT_EQ(unit.registerHex("07"), "04");
}

TEST_F(Faults, LoopForSomeCommandsThenFine) {
  unit.faults.loopback = 2;
  EXPECT_EQ(ask(unit, "*R07"), "*R07\r");
  EXPECT_EQ(ask(unit, "*R07"), "*R07\r");
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
}

TEST_F(Faults, RefusesEverything) {
  for (const char* code : {"?43", "?46", "?50", "?56"}) {
    unit.faults.refusals = {{code, "", unlimited}};
    EXPECT_EQ(ask(unit, "*R07"), std::string(code) + '\r');
    EXPECT_EQ(ask(unit, "*W0726"), std::string(code) + '\r');
  }
  EXPECT_EQ(unit.registerHex("07"), "04");
}

TEST_F(Faults, RefusesWhatBeginsSo) {
  unit.faults.refusals = {{"?46", "W07", unlimited}, {"?50", "R", unlimited}};
  EXPECT_EQ(ask(unit, "*W0726"), "?46\r");
  EXPECT_EQ(ask(unit, "*W0801"), "W08\r");
  EXPECT_EQ(ask(unit, "*R08"), "?50\r");
}

TEST_F(Faults, RefusesSomeTimes) {
  unit.faults.refusals = {{"?43", "R07", 2}};
  EXPECT_EQ(ask(unit, "*R07"), "?43\r");
  EXPECT_EQ(ask(unit, "*R07"), "?43\r");
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
}

TEST_F(Faults, RefusalWithoutCodeIsSilence) {
  unit.faults.refusals = {{"", "R07", 1}};
  EXPECT_EQ(ask(unit, "*R07"), "");
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
}

TEST_F(Faults, RefusalCarriesTheAddress) {
  Unit addressed{{.addressed = true, .address = 17}};
  addressed.faults.refusals = {{"?43", "", unlimited}};
  EXPECT_EQ(ask(addressed, "*11R07"), "11?43\r");
}

TEST_F(Faults, LiteralAnswerOfTheLongestBeginning) {
  unit.faults.answers = {{"R", "any"}, {"R07", "R07XY"}, {"^AE", "21"}};
  EXPECT_EQ(ask(unit, "*R07"), "R07XY\r");
  EXPECT_EQ(ask(unit, "*R08"), "any\r");
  EXPECT_EQ(ask(unit, "^AE"), "21\r");
  EXPECT_EQ(ask(unit, "*U03"), "U031.4\r");
}

TEST_F(Faults, LateReply) {
  unit.faults.late = 1.5;
  EXPECT_DOUBLE_EQ(unit.receive(10, "*R07\r").at(0).at, 11.5);
}

TEST_F(Faults, SlowOnlyAtCommandsThatBeginSo) {
  unit.faults.slow = {{"W", 0.9}, {"W07", 0.1}};
  EXPECT_DOUBLE_EQ(unit.receive(10, "*R07\r").at(0).at, 10);
  EXPECT_DOUBLE_EQ(unit.receive(20, "*W0801\r").at(0).at, 20.9);
  EXPECT_DOUBLE_EQ(unit.receive(30, "*W0726\r").at(0).at, 31);
  unit.faults.late = 1;
  EXPECT_DOUBLE_EQ(unit.receive(40, "*W0801\r").at(0).at, 41.9);
}

TEST_F(Faults, SlowUnitOnABusIsKnownByWhatFollowsItsAddress) {
  Unit addressed{{.addressed = true, .address = 17, .turnaround = 0}};
  addressed.faults.slow = {{"W", 0.9}};
  EXPECT_DOUBLE_EQ(addressed.receive(10, "*11R07\r").at(0).at, 10);
  EXPECT_DOUBLE_EQ(addressed.receive(20, "*11W0726\r").at(0).at, 20.9);
}

TEST_F(Faults, RepliesKeepTheOrderOfTheirCommands) {
  unit.faults.slow = {{"W", 0.9}};
  const auto chunks = unit.receive(10, "*W0726\r*R07\r");
  ASSERT_EQ(chunks.size(), 2U);
  EXPECT_EQ(chunks[1].bytes, "R0726\r");
  EXPECT_DOUBLE_EQ(chunks[1].at, 10.9);
}

TEST_F(Faults, BusyUnitBeginsWhenTheReplyBeforeIsThrough) {
  unit.faults.late = 0.5;
  EXPECT_DOUBLE_EQ(unit.receive(10, "*R07\r*R08\r").at(1).at, 10.5);
  unit.faults.busy = true;
  const auto chunks = unit.receive(20, "*R07\r*R08\r*R07\r");
  ASSERT_EQ(chunks.size(), 3U);
  EXPECT_DOUBLE_EQ(chunks[0].at, 20.5);
  EXPECT_DOUBLE_EQ(chunks[1].at, 21);
  EXPECT_DOUBLE_EQ(chunks[2].at, 21.5);
  EXPECT_DOUBLE_EQ(unit.receive(30, "*R07\r").at(0).at, 30.5);
}

TEST_F(Faults, ReplyByteByByte) {
  unit.faults.byteGap = 0.25;
  unit.faults.lineEnd = "\r\n";
  const auto chunks = unit.receive(10, "*R07\r");
  ASSERT_EQ(chunks.size(), 7U);
  for (std::size_t at = 0; at < chunks.size(); ++at) {
    EXPECT_EQ(chunks[at].bytes, std::string("R0704\r\n").substr(at, 1));
    EXPECT_DOUBLE_EQ(chunks[at].at, 10 + 0.25 * static_cast<double>(at));
  }
}

TEST_F(Faults, ReplyInPieces) {
  unit.faults.pieces = {{2, 0.3}, {1, 0.4}};
  const auto chunks = unit.receive(0, "*R07\r");
  ASSERT_EQ(chunks.size(), 3U);
  EXPECT_EQ(chunks[0].bytes, "R0");
  EXPECT_EQ(chunks[1].bytes, "7");
  EXPECT_EQ(chunks[2].bytes, "04\r");
  EXPECT_NEAR(chunks[1].at, 0.3, 1e-9);
  EXPECT_NEAR(chunks[2].at, 0.7, 1e-9);
}

TEST_F(Faults, PiecesLongerThanTheReplyLeaveItWhole) {
  unit.faults.pieces = {{6, 0.3}};
  EXPECT_EQ(unit.receive(0, "*R07\r").size(), 1U);
}

TEST_F(Faults, LineEnds) {
  for (const char* end : {"\r", "\n", "\r\n", ""}) {
    unit.faults.lineEnd = end;
    EXPECT_EQ(ask(unit, "*R07"), std::string("R0704") + end);
  }
}

TEST_F(Faults, NoiseOfEveryByteBeforeAndInside) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string noise(1, static_cast<char>(byte));
    unit.faults.noiseBefore = noise;
    unit.faults.noiseInside = noise;
    unit.faults.noiseAt = 3;
    EXPECT_EQ(ask(unit, "*R07"), std::string(noise).append("R07").append(noise).append("04\r")) << byte;
  }
  unit.faults.noiseAt = 100;
  unit.faults.noiseInside = "!";
  unit.faults.noiseBefore.clear();
  EXPECT_EQ(ask(unit, "*R07"), "R0704!\r");
}

TEST_F(Faults, EndlessReplyHasNoLineEnd) {
  unit.faults.endless = 100'000;
  const std::string reply = ask(unit, "*R07");
  EXPECT_EQ(reply.size(), 100'000U);
  EXPECT_EQ(reply.find_first_of("\r\n"), std::string::npos);
  EXPECT_TRUE(reply.starts_with("R0704R0704"));
}

TEST_F(Faults, StaleReplyComesUnaskedAndOnce) {
  unit.faults.stale = "R0799\r";
  EXPECT_EQ(joined(unit.unasked(0)), "R0799\r");
  EXPECT_EQ(joined(unit.unasked(0)), "");
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
}

TEST_F(Faults, StaleReplyStandsBeforeTheAnswer) {
  unit.faults.stale = "R0799\r";
  EXPECT_EQ(ask(unit, "*R07"), "R0799\rR0704\r");
}

TEST_F(Faults, TrailingReplyFollowsEveryReply) {
  unit.faults.trailing = "R0799\r";
  unit.faults.trailingAfter = 0.5;
  const auto chunks = unit.receive(1, "*R07\r");
  ASSERT_EQ(chunks.size(), 2U);
  EXPECT_EQ(chunks[1].bytes, "R0799\r");
  EXPECT_DOUBLE_EQ(chunks[1].at, 1.5);
}

TEST_F(Faults, TrailingReplyHoldsUpNoOther) {
  unit.faults.trailing = "R0799\r";
  unit.faults.trailingAfter = 0.5;
  EXPECT_EQ(ask(unit, "*R07\r*R08"), "R0704\rR0842\rR0799\rR0799\r");
}

TEST_F(Faults, StuckRegisterKeepsItsValue) {
  unit.faults.stuck = {{"07", 0}};
  EXPECT_EQ(ask(unit, "*W0726"), "W07\r");
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
  EXPECT_EQ(ask(unit, "*W0801"), "W08\r");
  EXPECT_EQ(ask(unit, "*R08"), "R0801\r");
}

TEST_F(Faults, StuckRegisterTurnsBitsOver) {
  unit.faults.stuck = {{"07", 0x01}, {"01", 0xFF00'0001}};
  ask(unit, "*W0726");
  EXPECT_EQ(unit.registerHex("07"), "27");
  ask(unit, "*W01200000");
  EXPECT_EQ(unit.registerHex("01"), "200001");
}

TEST_F(Faults, HangupAtACommand) {
  unit.faults.hangupAt = 2;
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
  EXPECT_FALSE(unit.unplugged());
  EXPECT_EQ(ask(unit, "*W0726"), "");
  EXPECT_TRUE(unit.unplugged());
  EXPECT_EQ(ask(unit, "*R07"), "");
  EXPECT_EQ(unit.registerHex("07"), "04");
  unit.powerOn();
  EXPECT_EQ(ask(unit, "*R07"), "R0704\r");
}

}  // namespace

}  // namespace torvane
