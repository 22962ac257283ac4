// SPDX-License-Identifier: MIT
// The virtual machine's sockets: what a program sees of a bridge, and when.
#include "tests/support/VirtualSocket.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/VirtualHost.h"

namespace torvane {

namespace {

constexpr const char* address = "192.0.2.254";

class VirtualSockets : public testing::Test {
 protected:
  VirtualSockets() {
    host.bridges[{address, 1000}] = &bridge;
    socket->onConnect = [this] { note("connect"); };
    socket->onDataArrival = [this](std::size_t size) {
      note("arrival " + std::to_string(size) + ' ' + socket->getData());
    };
    socket->onError = [this] { note("error"); };
  }

  void note(const std::string& event) { events.push_back(event); }
  void connect(const std::string& to = address, int port = 1000) {
    socket->remoteHost = to;
    socket->remotePort = port;
    socket->connect();
  }
  // Sleeps as the program does: anew after each event, until the time is over.
  void sleep(double seconds) {
    const double end = host.clock + seconds;
    while (host.clock < end) host.idle(end - host.clock);
  }
  // A connection that is there, with nothing noted.
  void beConnected() {
    connect();
    sleep(0.5);
    ASSERT_EQ(socket->state(), SocketState::connected);
    events.clear();
  }

  VirtualHost host;
  sim::Unit unit{{.turnaround = 0.25}};
  sim::Bridge bridge{unit};
  std::unique_ptr<Socket> socket = host.makeSocket();
  std::vector<std::string> events;
};

using Events = std::vector<std::string>;

TEST_F(VirtualSockets, ConnectsInsideAWaitAlone) {
  bridge.faults.reachAfter = 0.5;
  EXPECT_EQ(socket->state(), SocketState::closed);
  connect();
  EXPECT_EQ(socket->state(), SocketState::connecting);
  const double start = host.clock;
  host.idle(3);
  EXPECT_EQ(socket->state(), SocketState::connected);
  EXPECT_EQ(events, Events{"connect"});
  EXPECT_DOUBLE_EQ(host.clock, start + 0.5);
}

TEST_F(VirtualSockets, SleepIsNoLongerThanToldAndNothingComesEarly) {
  bridge.faults.reachAfter = 0.5;
  connect();
  const double start = host.clock;
  host.idle(0.25);
  EXPECT_DOUBLE_EQ(host.clock, start + 0.25);
  EXPECT_EQ(socket->state(), SocketState::connecting);
  host.yield();
  EXPECT_TRUE(events.empty());
}

TEST_F(VirtualSockets, YieldRaisesWhatIsDue) {
  bridge.faults.reachAfter = 0.0005;
  connect();
  host.yield();
  EXPECT_EQ(events, Events{"connect"});
}

TEST_F(VirtualSockets, UnknownHostNeverAnswers) {
  connect("192.0.2.1");
  sleep(100);
  EXPECT_EQ(socket->state(), SocketState::connecting);
  EXPECT_TRUE(events.empty());
}

TEST_F(VirtualSockets, KnownHostRefusesAtItsOtherPorts) {
  connect(address, 2000);
  sleep(1);
  EXPECT_EQ(socket->state(), SocketState::error);
  EXPECT_EQ(events, Events{"error"});
}

TEST_F(VirtualSockets, BridgeThatRefusesAndOneThatNeverAnswers) {
  bridge.faults.reach = sim::Reach::refuses;
  connect();
  sleep(1);
  EXPECT_EQ(socket->state(), SocketState::error);
  bridge.faults.reach = sim::Reach::never;
  connect();
  sleep(1);
  EXPECT_EQ(socket->state(), SocketState::connecting);
  EXPECT_EQ(events, Events{"error"});
}

TEST_F(VirtualSockets, AnswerArrivesInItsTime) {
  beConnected();
  const double start = host.clock;
  socket->sendData("*R07\r");
  EXPECT_TRUE(events.empty());
  host.idle(3);
  EXPECT_EQ(events, Events{"arrival 6 R0704\r"});
  EXPECT_NEAR(host.clock, start + 0.25, 0.01);
}

TEST_F(VirtualSockets, LaterPieceIsALaterArrival) {
  beConnected();
  bridge.faults.pieceSize = 4;
  socket->sendData("*R07\r");
  sleep(1);
  EXPECT_EQ(events, (Events{"arrival 4 R070", "arrival 2 4\r"}));
}

TEST_F(VirtualSockets, PiecesDueAtOneWaitAreOneArrival) {
  beConnected();
  bridge.faults.pieceSize = 4;
  socket->sendData("*R07\r");
  host.clock += 1;
  host.yield();
  EXPECT_EQ(events, Events{"arrival 6 R0704\r"});
}

TEST_F(VirtualSockets, WhatIsNotTakenIsKeptUpToItsBound) {
  std::size_t told = 0;
  socket->onDataArrival = [&](std::size_t size) { told += size; };
  unit.faults.endless = 10'000'000;
  connect();
  sleep(1);
  socket->sendData("*R07\r");
  sleep(1);
  EXPECT_EQ(told, 10'000'000U);
  EXPECT_EQ(socket->getData().size(), Socket::mostKept);
  EXPECT_EQ(socket->getData(), "");
}

TEST_F(VirtualSockets, PeerThatClosesRaisesNothing) {
  bridge.faults.closeAfter = 0.75;
  bridge.faults.unasked = {"0023.5\r", 0.5, 2};
  connect();
  sleep(2);
  EXPECT_EQ(socket->state(), SocketState::peerIsClosing);
  EXPECT_EQ(events, (Events{"connect", "arrival 7 0023.5\r"}));
}

TEST_F(VirtualSockets, WhatCameBeforeTheCloseCanStillBeTaken) {
  socket->onDataArrival = nullptr;
  beConnected();
  bridge.faults.dropAt = 1;
  bridge.faults.dropAfter = 3;
  socket->sendData("*R07\r");
  sleep(1);
  EXPECT_EQ(socket->state(), SocketState::peerIsClosing);
  EXPECT_EQ(socket->getData(), "R07");
}

TEST_F(VirtualSockets, ResetIsAnError) {
  beConnected();
  bridge.faults.dropAt = 1;
  bridge.faults.abrupt = true;
  socket->sendData("*R07\r");
  sleep(1);
  EXPECT_EQ(socket->state(), SocketState::error);
  EXPECT_EQ(events, Events{"error"});
}

TEST_F(VirtualSockets, SendOnAConnectionThatIsNotThereIsLost) {
  socket->sendData("*R07\r");
  bridge.faults.closeAfter = 0;
  connect();
  socket->sendData("*R07\r");
  sleep(1);
  socket->sendData("*R07\r");
  sleep(1);
  EXPECT_TRUE(bridge.lines().empty());
  EXPECT_EQ(events, Events{"connect"});
}

TEST_F(VirtualSockets, CloseForgetsWhatIsUnderway) {
  beConnected();
  socket->sendData("*R07\r");
  socket->close();
  EXPECT_EQ(socket->state(), SocketState::closed);
  sleep(1);
  EXPECT_TRUE(events.empty());
}

TEST_F(VirtualSockets, ConnectsAgainFromAnyState) {
  for (int time = 0; time < 3; ++time) {
    connect();
    sleep(1);
    EXPECT_EQ(socket->state(), SocketState::connected);
  }
  EXPECT_EQ(events, (Events{"connect", "connect", "connect"}));
  EXPECT_EQ(bridge.connections(), 3U);
}

TEST_F(VirtualSockets, EventMayCloseOrEndItsSocket) {
  socket->onDataArrival = [this](std::size_t) { socket->close(); };
  connect();
  sleep(1);
  socket->sendData("*R07\r*R08\r");
  sleep(1);
  EXPECT_EQ(socket->state(), SocketState::closed);
  socket->onConnect = [this] { socket.reset(); };
  connect();
  sleep(1);
  EXPECT_EQ(socket, nullptr);
}

TEST_F(VirtualSockets, SpeakInOrderOfTime) {
  sim::Bridge quick(unit);
  host.bridges[{"::1", 2000}] = &quick;
  bridge.faults.reachAfter = 0.5;
  const auto other = host.makeSocket();
  other->remoteHost = "::1";
  other->remotePort = 2000;
  other->onConnect = [this] { note("other"); };
  connect();
  other->connect();
  host.clock += 1;
  host.yield();
  EXPECT_EQ(events, (Events{"other", "connect"}));
}

TEST_F(VirtualSockets, SharesItsUnitWithTheSerialLine) {
  host.lines[1].unit = &unit;
  const auto port = host.makeSerialPort();
  port->commPort = 1;
  port->settings = "9600,o,7,1";
  port->open();
  beConnected();
  socket->sendData("*W0726\r");
  sleep(1);
  port->output("*R07\r");
  sleep(1);
  EXPECT_EQ(port->input(), "R0726\r");
  EXPECT_EQ(events, Events{"arrival 4 W07\r"});
}

TEST_F(VirtualSockets, WaitWithoutEndIsNoticed) {
  connect("192.0.2.1");
  EXPECT_THROW(while (true) host.idle(1), std::logic_error);
}

}  // namespace

}  // namespace torvane
