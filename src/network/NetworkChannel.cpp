// SPDX-License-Identifier: MIT
// The command channel through the bridge.
#include "network/NetworkChannel.h"

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/Host.h"
#include "protocol/SerialChannel.h"
#include "protocol/Waits.h"

namespace {

constexpr double connectLimit = 3.0;  // seconds
constexpr double replyLimit = 3.0;
constexpr int readTries = 5;
constexpr int firstReadTries = 4;
constexpr int writeTries = 5;
constexpr std::int32_t nowhere = -1;
constexpr std::size_t mostNoted = 4096;  // bytes; a whole read has about a quarter of it

bool isRefused(std::string_view reply) { return contains(reply, "?") || contains(reply, "Time"); }

}  // namespace

NetworkChannel::NetworkChannel(Socket& socket) : socket_(socket) {
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
  if (!waitFor(socketData, replyLimit)) return std::string(networkTimeoutMarker);
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

std::string NetworkChannel::NetworkReadSet(std::string_view reg) {
  networkReadFailed = False;
  const std::string command = framed("R" + std::string(reg.substr(reg.size() < 2 ? 0 : reg.size() - 2)));
  for (int tries = 0; tries < readTries; ++tries) {
    std::string reply = NetworkWritePort(command);
    note(reply);
    host().yield();
    if (!reply.empty() && !isRefused(reply)) return reply;
  }
  networkReadFailed = True;
  return "Fail";
}

std::string NetworkChannel::NetworkWriteSet(std::string_view reg, const std::string& data) {
  if (registerMask == 0) return "Success";
  const std::string read = framed("R" + std::string(reg));
  std::string reply;
  for (int tries = 0; tries < firstReadTries; ++tries) {
    reply = NetworkWritePort(read);
    if (!isRefused(reply) && !contains(reply, "*")) break;
  }
  if (contains(reply, "?4") || contains(reply, "Time") || contains(reply, "*")) return "Fail";
  const std::string old = dataOf(reply);
  const std::string wanted = maskHex(data, registerMask);
  if (maskHex(old, registerMask) == wanted) return "Success";
  return writeAndVerify(reg, orHex(wanted, maskHex(old, ~registerMask)));
}

std::string NetworkChannel::writeAndVerify(std::string_view reg, const std::string& merged) {
  const std::string index(reg);
  const std::string write = framed("W" + index + merged);
  const std::string read = framed("R" + index);
  const std::string good = addressPart() + "R" + index + merged;
  for (int tries = 0; tries < writeTries; ++tries) {
    NetworkWritePort(write);
    const std::string reply = NetworkWritePort(read);
    note(reply);
    if (reply == good) return "Success";
    host().yield();
  }
  return "Fail";
}

// A bridge that talks without end must not fill the memory.
void NetworkChannel::note(std::string_view reply) {
  Text1 += reply;
  if (Text1.size() > mostNoted) Text1.erase(0, Text1.size() - mostNoted);
}
