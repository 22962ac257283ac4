// SPDX-License-Identifier: MIT
// Real TCP connections: states, names and addresses, peers that close, refuse or never stop.
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <QNetworkProxy>
#include <QTcpServer>
#include <QTcpSocket>
#include <algorithm>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Memo.h"
#include "core/Model.h"
#include "network/NetworkChannel.h"
#include "platform/qt/QtHost.h"
#include "platform/qt/io/QtSocket.h"

namespace torvane {

namespace {

constexpr double patience = 10.0;  // seconds

// Files of this process that are sockets of TCP with this property.
std::vector<int> socketsWith(const std::function<bool(int)>& property) {
  std::vector<int> found;
  for (int file = 3; file < 1024; ++file) {
    int kind = 0;
    socklen_t size = sizeof kind;
    if (getsockopt(file, SOL_SOCKET, SO_TYPE, &kind, &size) == 0 && kind == SOCK_STREAM && property(file))
      found.push_back(file);
  }
  return found;
}

int option(int file, int level, int name) {
  int value = 0;
  socklen_t size = sizeof value;
  return getsockopt(file, level, name, &value, &size) == 0 ? value : -1;
}

bool leadsTo(int file, quint16 port) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  return getpeername(file, reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
         ntohs(address.sin_port) == port;
}

class RealSocket : public testing::Test {
 protected:
  RealSocket() {
    setMachine(&host);
    socket.onConnect = [this] { events.emplace_back("connect"); };
    socket.onError = [this] { events.emplace_back("error"); };
    socket.onDataArrival = [this](std::size_t) {
      events.emplace_back("data");
      received += socket.getData();
    };
    listen(QHostAddress::LocalHost);
  }
  ~RealSocket() override { setMachine(nullptr); }

  bool listen(const QHostAddress& address) {
    server.close();
    const bool listens = server.listen(address);
    socket.remoteHost = address.toString().toStdString();
    socket.remotePort = server.serverPort();
    return listens;
  }
  bool until(const std::function<bool()>& condition) {
    const double end = host.now() + patience;
    while (!condition() && host.now() < end) host.idle(end - host.now());
    return condition();
  }
  bool untilState(SocketState state) {
    return until([=, this] { return socket.state() == state; });
  }
  // The far end of a new connection.
  QTcpSocket* connected() {
    socket.connect();
    return accepted();
  }
  QTcpSocket* accepted() {
    EXPECT_TRUE(until([this] { return !events.empty() && server.hasPendingConnections(); }));
    return server.nextPendingConnection();
  }

  QtHost host;
  QTcpServer server;
  QtSocket socket;
  std::vector<std::string> events;
  std::string received;
};

// ---- states

TEST_F(RealSocket, GoesFromClosedOverConnectingToConnectedAndBack) {
  EXPECT_EQ(socket.state(), SocketState::closed);
  socket.connect();
  EXPECT_EQ(socket.state(), SocketState::connecting);
  EXPECT_TRUE(untilState(SocketState::connected));
  EXPECT_TRUE(until([this] { return !events.empty(); }));
  EXPECT_EQ(events, std::vector<std::string>{"connect"});
  socket.close();
  EXPECT_EQ(socket.state(), SocketState::closed);
}

TEST_F(RealSocket, RaisesNothingOutsideOfWaits) {
  socket.connect();
  EXPECT_TRUE(events.empty());
  QTcpSocket* const peer = accepted();
  events.clear();
  peer->write("R0726\r");
  peer->flush();
  socket.sendData("*R07\r");
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(received, "");
  EXPECT_TRUE(until([this] { return received == "R0726\r"; }));
  socket.close();
  socket.remotePort = -1;
  events.clear();
  socket.connect();
  EXPECT_TRUE(events.empty());
  EXPECT_TRUE(until([this] { return events == std::vector<std::string>{"error"}; }));
}

TEST_F(RealSocket, TellsNothingOfAConnectionThatWasClosedBeforeAnybodyWaited) {
  socket.connect();
  EXPECT_TRUE(until([this] { return socket.state() != SocketState::connecting || !events.empty(); }));
  socket.close();
  events.clear();
  host.yield();
  host.yield();
  EXPECT_TRUE(events.empty());
}

TEST_F(RealSocket, SendsInOneGoWithItsLowDelayOptionOn) {
  int lowDelay = 0;
  socket.onConnect = [&] {
    events.emplace_back("connect");
    const auto ours = socketsWith([this](int file) { return leadsTo(file, server.serverPort()); });
    for (const int file : ours) lowDelay += option(file, IPPROTO_TCP, TCP_NODELAY);
  };
  QTcpSocket* const peer = connected();
  EXPECT_EQ(lowDelay, 1);
  std::vector<QByteArray> arrivals;
  QObject::connect(peer, &QTcpSocket::readyRead, peer, [&] { arrivals.push_back(peer->readAll()); });
  socket.sendData("*11W01200064\r");
  EXPECT_TRUE(until([&] { return !arrivals.empty(); }));
  EXPECT_EQ(arrivals, std::vector<QByteArray>{"*11W01200064\r"});
}

TEST_F(RealSocket, SendsNothingWithoutAConnection) {
  socket.sendData("*R07\r");
  QTcpSocket* const peer = connected();
  socket.close();
  socket.sendData("*R07\r");
  EXPECT_TRUE(until([&] { return peer->state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_EQ(peer->readAll(), "");
}

TEST_F(RealSocket, ConnectsAgainAfterAnyEnd) {
  for (int round = 0; round < 5; ++round) {
    events.clear();
    QTcpSocket* const peer = connected();
    if (round % 2 == 0) {
      peer->abort();
      EXPECT_TRUE(until([this] { return socket.state() != SocketState::connected; }));
    }
    socket.close();
    EXPECT_EQ(socket.state(), SocketState::closed);
  }
}

// ---- where it leads

TEST_F(RealSocket, TakesNamesAndAddressesOfBothKinds) {
  socket.remoteHost = "localhost";
  EXPECT_NE(connected(), nullptr);
  socket.close();
  events.clear();
  // A machine without the newer addresses refuses to listen and then to connect.
  const bool newer = listen(QHostAddress::LocalHostIPv6);
  socket.remoteHost = "::1";
  socket.connect();
  EXPECT_TRUE(untilState(newer ? SocketState::connected : SocketState::error));
}

TEST_F(RealSocket, FindsAnOlderAddressBehindANameThatHasBoth) {
  socket.remoteHost = "localhost";
  socket.connect();
  EXPECT_TRUE(untilState(SocketState::connected));
}

TEST_F(RealSocket, TellsARefusalByItsState) {
  server.close();
  socket.connect();
  EXPECT_TRUE(untilState(SocketState::error));
  EXPECT_TRUE(until([this] { return events == std::vector<std::string>{"error"}; }));
  socket.sendData("*R07\r");
  socket.close();
  EXPECT_EQ(socket.state(), SocketState::closed);
}

TEST_F(RealSocket, LeadsNowhereWithoutAHostOrAPort) {
  const std::pair<const char*, int> targets[] = {
      {"", 1000}, {"127.0.0.1", -1}, {"127.0.0.1", 65536}, {"127.0.0.1", 1 << 30}, {"127.0.0.1", 0}};
  for (const auto& [name, port] : targets) {
    socket.remoteHost = name;
    socket.remotePort = port;
    socket.connect();
    EXPECT_TRUE(untilState(SocketState::error)) << name << " " << port;
  }
}

TEST_F(RealSocket, CanBeClosedWhileANameIsLookedUp) {
  socket.remoteHost = "no-such-bridge.invalid";
  socket.connect();
  EXPECT_NE(socket.state(), SocketState::connected);
  socket.close();
  EXPECT_EQ(socket.state(), SocketState::closed);
  host.yield();
  EXPECT_EQ(socket.state(), SocketState::closed);
}

TEST_F(RealSocket, HeedsNoProxy) {
  QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::HttpProxy, "127.0.0.1", 1));
  const QTcpSocket* const peer = connected();
  QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
  EXPECT_NE(peer, nullptr);
}

TEST_F(RealSocket, ListensOnNoPort) {
  connected();
  server.close();
  EXPECT_TRUE(socketsWith([](int file) { return option(file, SOL_SOCKET, SO_ACCEPTCONN) == 1; }).empty());
}

// ---- peers

TEST_F(RealSocket, KeepsWhatCameFromAPeerThatCloses) {
  QTcpSocket* const peer = connected();
  peer->write("R0726\r");
  peer->disconnectFromHost();
  EXPECT_TRUE(untilState(SocketState::peerIsClosing));
  EXPECT_EQ(received, "R0726\r");
  EXPECT_EQ(events.back(), "data") << "its end raises nothing";
}

TEST_F(RealSocket, KeepsWhatNobodyTookUntilItIsClosed) {
  socket.onDataArrival = [this](std::size_t bytes) { events.push_back(std::to_string(bytes)); };
  QTcpSocket* const peer = connected();
  peer->write("R07");
  EXPECT_TRUE(until([this] { return events.back() == "3"; }));
  peer->write("26\r");
  EXPECT_TRUE(until([this] { return events.size() == 3; }));
  EXPECT_EQ(socket.getData(), "R0726\r");
  EXPECT_EQ(socket.getData(), "");
}

// Writes as fast as the line takes it.
class Flood {
 public:
  Flood(QTcpSocket& peer, qint64 bytes) : peer_(peer), left_(bytes) {
    QObject::connect(&peer_, &QTcpSocket::bytesWritten, &peer_, [this] { pour(); });
    pour();
  }
  bool over() const { return left_ == 0 && peer_.bytesToWrite() == 0; }

 private:
  void pour() {
    const QByteArray part(1 << 16, 'U');
    while (left_ > 0 && peer_.bytesToWrite() < 4 * part.size()) {
      const qint64 size = std::min<qint64>(left_, part.size());
      left_ -= size;
      peer_.write(part.constData(), size);
    }
  }

  QTcpSocket& peer_;
  qint64 left_;
};

constexpr qint64 hundredMegabytes = 100'000'000;

TEST_F(RealSocket, KeepsAFewKilobytesOfAHundredMegabytesThatNobodyTakes) {
  std::size_t total = 0;
  socket.onDataArrival = [&](std::size_t bytes) {
    events.emplace_back("data");
    total += bytes;
    EXPECT_LE(bytes, Socket::mostKept);
  };
  const Flood flood(*connected(), hundredMegabytes);
  EXPECT_TRUE(until([&] { return total == hundredMegabytes; }));
  EXPECT_TRUE(flood.over());
  EXPECT_EQ(socket.getData().size(), Socket::mostKept);
}

// ---- the channel on a real connection

class RealChannel : public RealSocket {
 protected:
  RealChannel() : channel(socket) {
    Memo[rec::txtTCPIPAddress].text = "127.0.0.1";
    Memo[rec::txtTCPPort].text = std::to_string(server.serverPort());
    QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
      QTcpSocket* const peer = server.nextPendingConnection();
      ++connections;
      QObject::connect(peer, &QTcpSocket::readyRead, peer, [this, peer] { answer(*peer); });
    });
  }
  ~RealChannel() override {
    Memo.reset();
    resetModel();
  }

  NetworkChannel channel;
  int connections = 0;
  std::function<void(QTcpSocket&)> answer = [](QTcpSocket& peer) {
    peer.write(peer.readAll().mid(1, 3) + "26\r");
  };
};

TEST_F(RealChannel, CarriesCommandsOnOneConnection) {
  for (const char* reg : {"07", "08", "0A"}) {
    EXPECT_EQ(channel.NetworkReadSet(reg), std::string("R") + reg + "26");
  }
  EXPECT_EQ(connections, 1);
  EXPECT_EQ(socket.state(), SocketState::connected);
}

TEST_F(RealChannel, ConnectsAnewWhenThePeerHasClosed) {
  answer = [this](QTcpSocket& peer) {
    peer.write(peer.readAll().mid(1, 3) + "26\r");
    if (connections == 1) peer.disconnectFromHost();
  };
  EXPECT_EQ(channel.NetworkWritePort("*R07"), "R0726");
  EXPECT_TRUE(untilState(SocketState::peerIsClosing));
  EXPECT_EQ(channel.NetworkWritePort("*R08"), "R0826");
  EXPECT_EQ(connections, 2);
}

TEST_F(RealChannel, GivesUpAPeerThatIsSilentAfterThreeSecondsAsleep) {
  answer = [](QTcpSocket& peer) { peer.readAll(); };
  const double start = host.now();
  const std::clock_t processor = std::clock();
  EXPECT_EQ(channel.NetworkWritePort("*R07"), networkTimeoutMarker);
  EXPECT_NEAR(host.now() - start, 3.0, 0.5);
  EXPECT_LT(static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC, 0.3);
}

TEST_F(RealChannel, TakesAPeerThatNeverStopsForOneReplyAtATime) {
  std::unique_ptr<Flood> flood;
  answer = [&](QTcpSocket& peer) {
    peer.readAll();
    if (!flood) flood = std::make_unique<Flood>(peer, hundredMegabytes * 100);
  };
  const double start = host.now();
  for (int command = 0; command < 20; ++command) {
    const std::string reply = channel.NetworkReadSet("07");
    EXPECT_LE(reply.size(), Socket::mostKept);
    EXPECT_TRUE(reply.starts_with('U'));
  }
  EXPECT_LT(host.now() - start, patience);
  EXPECT_LE(channel.Text1.size(), 4096U);
  socket.close();
}

}  // namespace

}  // namespace torvane
