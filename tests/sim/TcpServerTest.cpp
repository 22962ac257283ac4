// SPDX-License-Identifier: MIT
// Bridges on real TCP ports.
#include "sim/TcpServer.h"

#include <gtest/gtest.h>

#include <sys/socket.h>

#include <cerrno>
#include <system_error>

#include "TestSocket.h"
#include "sim/Loopback.h"

namespace torvane {

namespace {

using sim::Bridge;
using sim::Reach;
using sim::TcpServer;
using sim::Unit;

class Tcp : public testing::Test {
 protected:
  // Faults first, then the port.
  int serve() {
    const int port = server.listen(0, bridge);
    server.start();
    return port;
  }

  Unit unit{{.turnaround = 0}};
  Bridge bridge{unit};
  TcpServer server;
};

TEST_F(Tcp, AnswersInAThreadOfItsOwn) {
  TestSocket socket(serve());
  ASSERT_TRUE(socket.isConnected());
  EXPECT_EQ(socket.ask("*R07"), "R0704\r");
  EXPECT_EQ(socket.ask("*W0726"), "W07\r");
  EXPECT_EQ(server.with([&] { return unit.registerHex("07"); }), "26");
}

TEST_F(Tcp, AnswersInTheCallersThread) {
  TestSocket socket(server.listen(0, bridge));
  socket.send("*R07\r");
  while (!socket.hasBytes()) server.poll(10);
  EXPECT_EQ(socket.readTo('\r'), "R0704\r");
}

TEST_F(Tcp, PollReturnsWhenItsTimeIsOver) {
  server.listen(0, bridge);
  server.poll(0);
  server.poll(0.001);
  EXPECT_TRUE(bridge.log().empty());
}

TEST_F(Tcp, StandsAtBothKindsOfAddress) {
  const int port = serve();
  EXPECT_EQ(TestSocket(port, "127.0.0.1").ask("*R07"), "R0704\r");
  if (sim::hasFamily(sim::Family::ipv6)) {
    EXPECT_EQ(TestSocket(port, "::1").ask("*R07"), "R0704\r");
  }
}

TEST_F(Tcp, TakesThePortThatIsAskedFor) {
  const int port = server.listen(0, bridge);
  TcpServer other;
  EXPECT_THROW(other.listen(port, bridge), std::system_error);
  EXPECT_GT(port, 0);
}

TEST_F(Tcp, ConnectsAnyNumberOfTimesAndTwiceAtOnce) {
  const int port = serve();
  for (int time = 0; time < 50; ++time) EXPECT_EQ(TestSocket(port).ask("*R07"), "R0704\r") << time;
  TestSocket one(port);
  TestSocket other(port);
  EXPECT_EQ(other.ask("*R07"), "R0704\r");
  EXPECT_EQ(one.ask("*R08"), "R0842\r");
  EXPECT_EQ(server.with([&] { return bridge.connections(); }), 52U);
}

TEST_F(Tcp, TerminalServerOnOnePortAndTheUnitOnTheOther) {
  Bridge terminalServer(unit);
  terminalServer.faults.prompt = sim::terminalServerPrompt;
  const int promptPort = server.listen(0, terminalServer);
  const int port = serve();
  TestSocket prompt(promptPort);
  prompt.send("*U01\r");
  EXPECT_NE(prompt.readTo('>').find("Terminal"), std::string::npos);
  EXPECT_EQ(TestSocket(port).ask("*U01"), "U01\r");
  EXPECT_EQ(server.with([&] { return unit.count("U01"); }), 1U);
  server.stop();  // before its second bridge goes
}

TEST_F(Tcp, RefusesAndAcceptsAsTold) {
  const int port = server.listen(0, bridge);
  for (const Reach reach : {Reach::refuses, Reach::accepts, Reach::never, Reach::refuses, Reach::accepts}) {
    bridge.faults.reach = reach;
    server.poll(0);
    const int expected = reach == Reach::refuses ? ECONNREFUSED : reach == Reach::never ? ETIMEDOUT : 0;
    EXPECT_EQ(TestSocket(port, "127.0.0.1", 100).fault(), expected);
  }
}

TEST_F(Tcp, AnswersNobody) {
  bridge.faults.reach = Reach::never;
  const TestSocket socket(serve(), "127.0.0.1", 200);
  EXPECT_EQ(socket.fault(), ETIMEDOUT);
}

TEST_F(Tcp, ClosesAtOnceInAnOrderlyWay) {
  bridge.faults.closeAfter = 0;
  TestSocket socket(serve());
  EXPECT_TRUE(socket.isEnded());
}

TEST_F(Tcp, ClosesWithAReset) {
  bridge.faults.closeAfter = 0;
  bridge.faults.abrupt = true;
  TestSocket socket(serve());
  EXPECT_TRUE(socket.isReset());
}

TEST_F(Tcp, DropsInTheMiddleOfAReplyAndAnswersAgain) {
  bridge.faults.dropAt = 2;
  bridge.faults.dropAfter = 3;
  const int port = serve();
  TestSocket socket(port);
  EXPECT_EQ(socket.ask("*R07"), "R0704\r");
  EXPECT_EQ(socket.ask("*R08"), "R08");
  EXPECT_TRUE(socket.isEnded());
  EXPECT_EQ(TestSocket(port).ask("*R08"), "R0842\r");
}

TEST_F(Tcp, StaysAwayAfterADrop) {
  bridge.faults.dropAt = 1;
  bridge.faults.afterDrop = Reach::refuses;
  const int port = server.listen(0, bridge);
  TestSocket socket(port);
  socket.send("*R07\r");
  while (!socket.hasBytes()) server.poll(10);
  EXPECT_TRUE(socket.isEnded());
  EXPECT_EQ(TestSocket(port).fault(), ECONNREFUSED);
}

TEST_F(Tcp, SaysPiecesApart) {
  double clock = 0;
  TcpServer timed({.now = [&] { return clock; }});
  bridge.faults.pieceSize = 4;
  bridge.faults.pieceGap = 0.5;
  TestSocket socket(timed.listen(0, bridge));
  socket.send("*R07\r");
  while (bridge.lines().empty()) timed.poll(10);
  EXPECT_FALSE(socket.hasBytes());
  clock = 0.1;
  timed.poll(0);
  EXPECT_EQ(socket.readPortion(), "R070");
  EXPECT_FALSE(socket.hasBytes());
  clock = 1;
  timed.poll(0);
  EXPECT_EQ(socket.readPortion(), "4\r");
}

TEST_F(Tcp, TalksUnasked) {
  bridge.faults.unasked = {"0023.5\r", 0.001, 3};
  TestSocket socket(serve());
  for (int time = 0; time < 3; ++time) EXPECT_EQ(socket.readTo('\r'), "0023.5\r");
}

TEST_F(Tcp, SaysAHundredMegabytesInOneReply) {
  constexpr std::size_t size = 100'000'000;
  unit.faults.endless = size;
  TestSocket socket(serve());
  socket.send("*R07\r");
  std::size_t heard = 0;
  for (std::string portion = socket.readPortion(); heard < size; portion = socket.readPortion()) {
    ASSERT_FALSE(portion.empty());
    heard += portion.size();
    if (heard == size) break;
  }
  EXPECT_EQ(heard, size);
}

TEST_F(Tcp, OutlivesAClientThatGoesInTheMiddle) {
  unit.faults.endless = 10'000'000;
  const int port = serve();
  { TestSocket(port).send("*R07\r"); }
  server.with([&] { unit.faults.endless = 0; });
  EXPECT_EQ(TestSocket(port).ask("*R08").back(), '\r');
}

TEST(TcpServer, TellsItsTrafficAndWhatTheUnitHeard) {
  Unit unit{{}};
  Bridge bridge(unit);
  std::string directions;
  std::size_t heard = 0;
  TcpServer server({.onTraffic = [&](const sim::LogEntry& entry) { directions += entry.direction; },
                    .onExchange = [&](const Unit& one) { heard = one.count("R"); }});
  TestSocket socket(server.listen(0, bridge));
  socket.send("*R07\r");
  while (!socket.hasBytes()) server.poll(10);
  EXPECT_EQ(directions, "+>");
  EXPECT_EQ(heard, 1U);
  EXPECT_TRUE(bridge.log().empty());
}

}  // namespace

}  // namespace torvane
