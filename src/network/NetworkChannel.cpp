// SPDX-License-Identifier: MIT
// The command channel through the bridge.
#include "network/NetworkChannel.h"

#include "core/Model.h"

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

std::string NetworkChannel::NetworkWritePort(std::string_view) { return ""; }
