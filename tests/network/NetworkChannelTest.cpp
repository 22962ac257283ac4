// SPDX-License-Identifier: MIT
// The command channel through the bridge: the connection, one line out and one arrival in.
#include "network/NetworkChannel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/Bench.h"
#include "tests/support/ScriptedSocket.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

constexpr const char* connecting = "connect bridge.example:1000";

// The clock stands on a whole second, so that every limit is exact.
class ThroughTheBridge : public ::testing::Test {
 protected:
  ThroughTheBridge() {
    resetSharedState();
    Memo[rec::txtTCPIPAddress].text = "bridge.example";
    Memo[rec::txtTCPPort].text = "1000";
    host.clock = 36000;
  }
  ~ThroughTheBridge() override { resetSharedState(); }

  void connected() { socket.present = SocketState::connected; }
  std::string replyTo(const std::vector<Said>& said) {
    connected();
    socket.script = [&](const std::string&) { return said; };
    return channel.NetworkWritePort("*R07");
  }
  double took() const { return host.clock - 36000; }

  SocketHost host;
  ScriptedSocket& socket{host.socket};
  NetworkChannel channel{socket};
};

// ---- the connection

struct StateCase {
  SocketState state;
  Lines calls;
};

TEST_F(ThroughTheBridge, ConnectsAgainUnlessTheConnectionStandsOrIsBroken) {
  const StateCase cases[] = {
      {SocketState::closed, {connecting, "send"}},
      {SocketState::open, {"close", connecting, "send"}},
      {SocketState::connecting, {"close", connecting, "send"}},
      {SocketState::connected, {"send"}},
      {SocketState::peerIsClosing, {"close", connecting, "send"}},
      {SocketState::error, {"send"}},
  };
  for (const auto& [state, calls] : cases) {
    socket.calls.clear();
    socket.present = state;
    channel.NetworkWritePort("*R07");
    EXPECT_EQ(socket.calls, calls) << static_cast<int>(state);
  }
}

TEST_F(ThroughTheBridge, SendsAsSoonAsTheConnectionIsThere) {
  socket.connectsAfter = 1.5;
  socket.script = inTurn({"R0726\r"});
  EXPECT_EQ(channel.NetworkWritePort("*R07"), "R0726");
  EXPECT_NEAR(took(), 1.51, 1e-9);
}

TEST_F(ThroughTheBridge, WaitsExactlyThreeSecondsForTheConnection) {
  socket.connectsAfter = 3.0;
  socket.script = inTurn({"R0726\r"});
  EXPECT_EQ(channel.NetworkWritePort("*R07"), "R0726");
}

TEST_F(ThroughTheBridge, GivesAnEmptyReplyAndSendsNothingWithoutAConnection) {
  for (const double late : {3.001, 10.0, -1.0}) {
    host.clock = 36000;
    socket.present = SocketState::closed;
    socket.connectsAfter = late;
    EXPECT_EQ(channel.NetworkWritePort("*R07"), "") << late;
    EXPECT_EQ(took(), 3.0);
    EXPECT_TRUE(socket.sent.empty());
    socket.close();
  }
}

TEST_F(ThroughTheBridge, TakesDataForAConnection) {
  socket.connectsAfter = -1;
  host.expect([] { return true; },
              [this] {
                socket.present = SocketState::connected;
                socket.receive("hello");
              });
  socket.script = inTurn({"R0726\r"});
  EXPECT_EQ(channel.NetworkWritePort("*R07"), "R0726");
  EXPECT_EQ(channel.socketConnected, True);
}

TEST_F(ThroughTheBridge, BelievesNoConnectionThatDoesNotStand) {
  socket.onConnect();
  EXPECT_EQ(channel.socketConnected, False);
  connected();
  socket.onConnect();
  EXPECT_EQ(channel.socketConnected, True);
}

TEST_F(ThroughTheBridge, SendsIntoABrokenConnectionAllTheSame) {
  socket.present = SocketState::error;
  EXPECT_EQ(channel.NetworkWritePort("*R07"), "TimeOut\r");
  EXPECT_EQ(socket.sent, Lines{"*R07\r"});
  EXPECT_EQ(took(), 3.0);
  EXPECT_EQ(channel.Text1, "Socket Error ");
  EXPECT_EQ(channel.socketConnected, False);
}

TEST_F(ThroughTheBridge, TakesTheTargetFromTheWorkingImageAtEveryCommand) {
  connected();
  channel.NetworkWritePort("*R07");
  Memo[rec::txtTCPIPAddress].text = "::1";
  Memo[rec::txtTCPPort].text = "2000";
  channel.NetworkWritePort("*R07");
  EXPECT_EQ(channel.NetHost, "::1");
  EXPECT_EQ(channel.NetPort, 2000);
  EXPECT_EQ(socket.calls, (Lines{"send", "send"})) << "the connection that stands is kept";
  socket.present = SocketState::closed;
  channel.NetworkWritePort("*R07");
  EXPECT_EQ(socket.calls[2], "connect ::1:2000");
}

TEST_F(ThroughTheBridge, MakesANumberOfAnyPortText) {
  const std::pair<const char*, std::int32_t> texts[] = {{"1000", 1000},   {" 2000 ", 2000},    {"", 0},
                                                        {"web", 0},       {"80x", 80},         {"-5", -5},
                                                        {"70000", 70000}, {"99999999999", -1}, {"1e300", -1}};
  for (const auto& [text, port] : texts) {
    Memo[rec::txtTCPPort].text = text;
    channel.takeTarget();
    EXPECT_EQ(channel.NetPort, port) << text;
  }
}

// ---- one line out, one arrival in

TEST_F(ThroughTheBridge, SendsTheCommandAndOneCarriageReturnInOneGo) {
  EXPECT_EQ(replyTo({{"R0726\r"}}), "R0726");
  EXPECT_EQ(socket.sent, Lines{"*R07\r"});
}

TEST_F(ThroughTheBridge, TakesOneLineFeedAndThenOneCarriageReturnFromTheEnd) {
  const std::pair<std::string, std::string> ends[] = {
      {"R0726\r", "R0726"},
      {"R0726\n", "R0726"},
      {"R0726\r\n", "R0726"},
      {"R0726", "R0726"},
      {"R0726\n\r", "R0726\n"},
      {"R0726\r\r", "R0726\r"},
      {"R0726\n\n", "R0726\n"},
      {"R0726\r\r\n", "R0726\r"},
      {"R07\r26\r", "R07\r26"},
      {"\r", ""},
      {"\n", ""},
  };
  for (const auto& [bytes, reply] : ends)
    EXPECT_EQ(replyTo({{bytes}}), reply) << testing::PrintToString(bytes);
}

TEST_F(ThroughTheBridge, PassesAReplyWithAStarAsItIs) {
  EXPECT_EQ(replyTo({{"*R07\r"}}), "*R07");
  EXPECT_EQ(replyTo({{"R07*26\r"}}), "R07*26");
}

TEST_F(ThroughTheBridge, PassesEveryByteAsItIs) {
  for (int code = 0; code < 256; ++code) {
    const std::string noise(1, static_cast<char>(code));
    EXPECT_EQ(replyTo({{"R07" + noise + "26\r"}}), "R07" + noise + "26") << code;
  }
}

TEST_F(ThroughTheBridge, WaitsExactlyThreeSecondsForAReply) {
  EXPECT_EQ(replyTo({{"R0726\r", 3.0}}), "R0726");
  EXPECT_EQ(took(), 3.0);
  host.clock = 36000;
  EXPECT_EQ(replyTo({{"R0726\r", 3.001}}), networkTimeoutMarker);
  EXPECT_EQ(took(), 3.0);
}

TEST_F(ThroughTheBridge, ServesTheWindowsWhileItWaits) {
  bool served = false;
  host.expect([this] { return host.clock > 36000; }, [&] { served = true; });
  replyTo({{"R0726\r", 1.0}});
  EXPECT_TRUE(served);
}

TEST_F(ThroughTheBridge, SleepsRatherThanSpins) {
  replyTo({});
  EXPECT_EQ(host.idles, 1);
  replyTo({{"R0726\r", 1.0}});
  EXPECT_EQ(host.idles, 2);
}

TEST_F(ThroughTheBridge, TakesOneArrivalForOneReply) {
  EXPECT_EQ(replyTo({{"R07", 0.1}, {"26\r", 0.2}}), "R07");
}

TEST_F(ThroughTheBridge, TakesALaterPieceForTheNextReply) {
  replyTo({{"R07", 0.1}, {"26\r", 0.2}});
  socket.script = {};
  EXPECT_EQ(channel.NetworkWritePort("*R08"), "26");
}

TEST_F(ThroughTheBridge, TakesALateReplyForThatOfTheNextCommand) {
  EXPECT_EQ(replyTo({{"R0726\r", 3.5}}), networkTimeoutMarker);
  socket.script = {};
  EXPECT_EQ(channel.NetworkWritePort("*R08"), "R0726");
  EXPECT_EQ(took(), 3.5);
}

TEST_F(ThroughTheBridge, DoesNotTakeForAReplyWhatCameBetweenTwoCommands) {
  EXPECT_EQ(replyTo({{"R0726\r", 0.1}, {"R0799\r", 0.2}}), "R0726");
  host.idle(1);
  host.yield();
  EXPECT_EQ(channel.socketBuffer, "R0799\r") << "it stays until something newer comes";
  EXPECT_EQ(replyTo({}), networkTimeoutMarker);
  EXPECT_EQ(replyTo({{"R0826\r"}}), "R0826");
}

TEST_F(ThroughTheBridge, TakesAnArrivalOfNothingForAReplyAndKeepsTheBuffer) {
  replyTo({{"R0726\r"}});
  host.expect([] { return true; }, [this] { socket.onDataArrival(0); });
  EXPECT_EQ(replyTo({}), "R0726");
}

TEST_F(ThroughTheBridge, IsNotHeldByAClockThatStepsBackAtMidnight) {
  host.clock = 86399;
  host.expect([] { return true; }, [this] { host.clock = 0.5; });
  connected();
  EXPECT_EQ(channel.NetworkWritePort("*R07"), networkTimeoutMarker);
  EXPECT_EQ(host.clock, 3.5);
}

// ---- the log of replies

TEST_F(ThroughTheBridge, KeepsTheLatestRepliesInABoundedLog) {
  connected();
  std::string all;
  for (int number = 0; number < 1000; ++number) {
    const std::string reply = "R07" + std::to_string(number);
    socket.script = inTurn({reply + "\r"});
    channel.NetworkReadSet("07");
    all += reply;
    ASSERT_LE(channel.Text1.size(), 4096U);
    ASSERT_TRUE(all.ends_with(channel.Text1)) << number;
  }
  EXPECT_EQ(channel.Text1.size(), 4096U);
}

TEST_F(ThroughTheBridge, FillsNoMemoryWithAReplyOfManyBytes) {
  const std::string flood(65536, 'U');
  connected();
  socket.script = inTurn({flood});
  EXPECT_EQ(channel.NetworkReadSet("07"), flood);
  EXPECT_EQ(channel.Text1.size(), 4096U);
}

}  // namespace

}  // namespace torvane
