// SPDX-License-Identifier: MIT
// The command channel through the bridge.
#include "network/NetworkChannel.h"

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/RuntimeError.h"
#include "protocol/Waits.h"

namespace torvane {

namespace {

constexpr ChannelRules networkRules = {
    .readTries = 5,
    .firstReadTries = 4,
    .writeTries = 5,
    .loopFailsARead = false,
    .heedsWiring = false,
    .restsWithinSteps = true,
    .failedStepsBorne = 3,
    .networkLabels = true,
};

constexpr double connectLimit = 3.0;  // seconds
constexpr double bridgeReplyLimit = 3.0;
constexpr std::int32_t nowhere = -1;
constexpr std::size_t mostNoted = 4096;  // bytes; a whole read has about a quarter of it

}  // namespace

NetworkChannel::NetworkChannel(Socket& socket) : Channel(networkRules), socket_(socket) {
  socket_.onConnect = [this] { connected(); };
  socket_.onDataArrival = [this](std::size_t bytes) { arrived(bytes); };
}

void NetworkChannel::connected() {
  if (socket_.state() == SocketState::connected) socketConnected = True;
}

void NetworkChannel::arrived(std::size_t bytes) {
  socketData = True;
  if (bytes == 0) return;
  socketConnected = True;
  socketBuffer = socket_.getData();
}

void NetworkChannel::takeTarget() {
  NetHost = Memo[rec::txtTCPIPAddress].text;
  NetPort = nowhere;
  attempt([this] { NetPort = toInt32(Val(Memo[rec::txtTCPPort].text)); });
}

void NetworkChannel::connect() {
  socket_.remoteHost = NetHost;
  socket_.remotePort = NetPort;
  socketConnected = False;
  socket_.connect();
}

std::string NetworkChannel::NetworkWritePort(std::string_view command) {
  takeTarget();
  socketConnected = False;
  if (!reachesBridge()) return "";
  socketData = False;
  socket_.sendData(std::string(command) + "\r");
  if (!waitFor(socketData, bridgeReplyLimit)) return std::string(networkTimeoutMarker);
  if (socketBuffer.ends_with('\n')) socketBuffer.pop_back();
  if (socketBuffer.ends_with('\r')) socketBuffer.pop_back();
  return socketBuffer;
}

// A broken socket takes the command all the same: that it is broken shows as a missing reply.
bool NetworkChannel::reachesBridge() {
  switch (socket_.state()) {
    case SocketState::closed:
      return reconnect();
    case SocketState::open:
    case SocketState::connecting:
    case SocketState::peerIsClosing:
      socket_.close();
      return reconnect();
    case SocketState::error:
      note("Socket Error ");
      break;
    case SocketState::connected:
      break;
  }
  return true;
}

bool NetworkChannel::reconnect() {
  connect();
  return waitFor(socketConnected, connectLimit);
}

void NetworkChannel::query(std::string_view framedCommand, std::string& reply) {
  reply = NetworkWritePort(framedCommand);
  linkFault = reply.empty() ? "no connection to the bridge" : "";
}

// A bridge that talks without end must not fill the memory.
void NetworkChannel::note(std::string_view reply) {
  Text1 += reply;
  if (Text1.size() > mostNoted) Text1.erase(0, Text1.size() - mostNoted);
}

}  // namespace torvane
