// SPDX-License-Identifier: MIT
// NetworkRegisters through the bridge: how often one is asked and changed, and what counts as done.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Memo.h"
#include "core/Model.h"
#include "network/NetworkChannel.h"
#include "tests/support/Bench.h"
#include "tests/support/ScriptedSocket.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

class NetworkRegisters : public ::testing::Test {
 protected:
  NetworkRegisters() {
    resetSharedState();
    socket.present = SocketState::connected;
    channel.registerMask = 0xFF;
    host.clock = 36000;
  }
  ~NetworkRegisters() override { resetSharedState(); }

  void onBus(std::int16_t mode, std::int16_t address) {
    Hardware.BusMode = mode;
    Hardware.BusAddress = address;
  }

  SocketHost host;
  ScriptedSocket& socket{host.socket};
  NetworkChannel channel{socket};
};

struct FrameCase {
  std::int16_t mode;
  std::int16_t address;
  std::string echo;
};

TEST_F(NetworkRegisters, ArePutOnTheLineWithTheAddressInAllOptionsBut0And2) {
  const FrameCase frames[] = {{0, 17, ""},   {2, 17, ""},    {1, 17, "11"}, {3, 17, "11"},
                              {4, 17, "11"}, {-1, 17, "11"}, {1, 5, "05"},  {4, 199, "C7"}};
  for (const auto& [mode, address, echo] : frames) {
    onBus(mode, address);
    socket.sent.clear();
    socket.script = inTurn({echo + "R0725\r", echo + "R0725\r", echo + "W07\r", echo + "R0726\r"});
    EXPECT_EQ(channel.NetworkReadSet("07"), echo + "R0725") << mode;
    EXPECT_EQ(channel.NetworkWriteSet("07", "26"), "Success") << mode;
    const std::string star = "*" + echo;
    EXPECT_EQ(socket.sent, (Lines{star + "R07\r", star + "R07\r", star + "W0726\r", star + "R07\r"})) << mode;
  }
}

struct Talk {
  const char* what;
  Lines replies;  // one for each command; an empty one is silence, as is what is missing
  std::string result;
  std::size_t commands;
};

void PrintTo(const Talk& talk, std::ostream* out) { *out << talk.what; }

class NetworkReading : public NetworkRegisters, public ::testing::WithParamInterface<Talk> {};

TEST_P(NetworkReading, AsksAtMostFiveTimes) {
  const auto& [what, replies, result, commands] = GetParam();
  socket.script = inTurn(replies);
  EXPECT_EQ(channel.NetworkReadSet("07"), result);
  EXPECT_EQ(channel.networkReadFailed, asFlag(result == "Fail"));
  EXPECT_EQ(socket.commands(), Lines(commands, "*R07"));
  EXPECT_EQ(host.yields, static_cast<int>(commands));
  EXPECT_LE(host.clock - 36000, 15.0);
}

INSTANTIATE_TEST_SUITE_P(
    Replies, NetworkReading,
    ::testing::Values(Talk{"good", {"R0726\r"}, "R0726", 1},
                      Talk{"anything without a mark of trouble", {"hello\r"}, "hello", 1},
                      Talk{"another register", {"R0826\r"}, "R0826", 1},
                      Talk{"looped back", {"*R07\r"}, "*R07", 1},
                      Talk{"a star anywhere", {"R07*26\r"}, "R07*26", 1},
                      Talk{"refused once", {"?43\r", "R0726\r"}, "R0726", 2},
                      Talk{"refused four times", {"?43\r", "?46\r", "?50\r", "?56\r", "R0726\r"}, "R0726", 5},
                      Talk{"refused five times", {"?", "?", "?", "?", "?", "R0726\r"}, "Fail", 5},
                      Talk{"a question mark anywhere", {"R07?26\r", "R0726\r"}, "R0726", 2},
                      Talk{"silent", {}, "Fail", 5},
                      Talk{"silent four times", {"", "", "", "", "R0726\r"}, "R0726", 5},
                      Talk{"the marker as a reply", {"TimeOut\r", "R0726\r"}, "R0726", 2},
                      Talk{"the serial line's marker", {"Timeout\r", "R0726\r"}, "R0726", 2},
                      Talk{"small letters are not the marker", {"time\r"}, "time", 1},
                      Talk{"empty lines", {"\r", "\n", "\r\n", "\r", "\r"}, "Fail", 5}));

TEST_F(NetworkRegisters, AreReadByTheTwoLastCharacters) {
  socket.script = inTurn({"R0A26\r", "R0A26\r", "R726\r"});
  channel.NetworkReadSet("000A");
  channel.NetworkReadSet("R0A");
  channel.NetworkReadSet("7");
  EXPECT_EQ(socket.commands(), (Lines{"*R0A", "*R0A", "*R7"}));
}

TEST_F(NetworkRegisters, FailOneByOne) {
  EXPECT_EQ(channel.NetworkReadSet("07"), "Fail");
  EXPECT_EQ(channel.networkReadFailed, True);
  socket.script = inTurn({"R0726\r"});
  EXPECT_EQ(channel.NetworkReadSet("07"), "R0726");
  EXPECT_EQ(channel.networkReadFailed, False);
}

TEST_F(NetworkRegisters, FailWhenNoConnectionComes) {
  socket.present = SocketState::closed;
  socket.connectsAfter = -1;
  EXPECT_EQ(channel.NetworkReadSet("07"), "Fail");
  EXPECT_EQ(host.clock - 36000, 15.0);
  EXPECT_TRUE(socket.sent.empty());
}

TEST_F(NetworkRegisters, LeaveEveryReplyOfAReadInTheLog) {
  socket.script = inTurn({"?43\r", "", "R0726\r"});
  channel.NetworkReadSet("07");
  EXPECT_EQ(channel.Text1, "?43TimeOut\rR0726");
}

// ---- changing a register

TEST_F(NetworkRegisters, AreSkippedWithoutAMask) {
  channel.registerMask = 0;
  socket.present = SocketState::closed;
  EXPECT_EQ(channel.NetworkWriteSet("07", "26"), "Success");
  EXPECT_TRUE(socket.calls.empty());
}

TEST_F(NetworkRegisters, AreNotWrittenWhenTheUnitHoldsTheValueUnderTheMask) {
  channel.registerMask = 0x0F;
  socket.script = inTurn({"R07A5\r"});
  EXPECT_EQ(channel.NetworkWriteSet("07", "F5"), "Success");
  EXPECT_EQ(socket.commands(), Lines{"*R07"});
}

TEST_F(NetworkRegisters, KeepTheBitsOutsideTheMask) {
  channel.registerMask = 0x0F;
  socket.script = inTurn({"R07A6\r", "W07\r", "R07A5\r"});
  EXPECT_EQ(channel.NetworkWriteSet("07", "F5"), "Success");
  EXPECT_EQ(socket.commands(), (Lines{"*R07", "*W07A5", "*R07"}));
}

class NetworkChanging : public NetworkRegisters, public ::testing::WithParamInterface<Talk> {};

TEST_P(NetworkChanging, AsksAtMostFourTimesAndWritesAtMostFive) {
  const auto& [what, replies, result, commands] = GetParam();
  socket.script = inTurn(replies);
  EXPECT_EQ(channel.NetworkWriteSet("07", "26"), result);
  EXPECT_EQ(socket.sent.size(), commands);
}

const std::string other = "R0700\r";
const std::string good = "R0726\r";

INSTANTIATE_TEST_SUITE_P(
    Replies, NetworkChanging,
    ::testing::Values(
        Talk{"good", {other, "W07\r", good}, "Success", 3}, Talk{"held already", {good}, "Success", 1},
        Talk{"refused three times", {"?43\r", "?43\r", "?43\r", good}, "Success", 4},
        Talk{"refused four times", {"?43\r", "?43\r", "?43\r", "?43\r", good}, "Fail", 4},
        Talk{"silent four times", {}, "Fail", 4},
        Talk{"looped back four times", {"*R07\r", "*R07\r", "*R07\r", "*R07\r", good}, "Fail", 4},
        Talk{"looped back three times", {"*R07\r", "*R07\r", "*R07\r", good}, "Success", 4},
        // "?5" is no reason to give up: it counts as what the unit holds.
        Talk{"a parity error four times", {"?50\r", "?50\r", "?50\r", "?50\r", "W07\r", good}, "Success", 6},
        Talk{"an empty first reply", {"\r", "W07\r", good}, "Success", 3},
        Talk{"written at the second time", {other, "W07\r", other, "W07\r", good}, "Success", 5},
        Talk{"written at the fifth time",
             {other, "W", other, "W", other, "W", other, "W", other, "W", good},
             "Success",
             11},
        Talk{"never written",
             {other, "W", other, "W", other, "W", other, "W", other, "W", other, "W", good},
             "Fail",
             11},
        Talk{"a refused write counts by what is read", {other, "?43\r", good}, "Success", 3},
        Talk{"a read-back that is looped back", {other, "W", "*R07\r", "W", good}, "Success", 5},
        Talk{"a read-back with more after it", {other, "W", "R07260\r", "W", good}, "Success", 5}));

TEST_F(NetworkRegisters, AreComparedWithTheAddressInFront) {
  onBus(1, 17);
  socket.script = inTurn({"11R0700\r", "11W07\r", "R0726\r", "11W07\r", "11R0726\r"});
  EXPECT_EQ(channel.NetworkWriteSet("07", "26"), "Success");
  EXPECT_EQ(socket.commands(), (Lines{"*11R07", "*11W0726", "*11R07", "*11W0726", "*11R07"}));
}

TEST_F(NetworkRegisters, LeaveEveryReadBackOfAWriteInTheLog) {
  socket.script = inTurn({other, "W07\r", other, "W07\r", good});
  channel.NetworkWriteSet("07", "26");
  EXPECT_EQ(channel.Text1, "R0700R0726");
}

}  // namespace

}  // namespace torvane
