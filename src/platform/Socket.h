// SPDX-License-Identifier: MIT
// What the program asks of a TCP connection, in client mode. Nothing here blocks and nothing throws: an
// address that leads nowhere, a peer that closes, a send into a broken connection show up in the state and in
// events, which are raised inside the waits alone.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace torvane {

enum class SocketState {
  closed = 0,
  open = 1,
  connecting = 6,  // resolving the name included
  connected = 7,
  peerIsClosing = 8,  // what had arrived may still be taken
  error = 9,
};

class Socket {
 public:
  virtual ~Socket() = default;

  std::string remoteHost;  // a name or an address of either kind, as the user typed it
  int remotePort = 0;

  virtual SocketState state() const = 0;
  virtual void connect() = 0;  // what is open is closed first
  virtual void close() = 0;
  // One write to the network, with its low-delay option on.
  virtual void sendData(std::string_view bytes) = 0;
  // All that has arrived and was not taken yet, bounded by `mostKept`: what a peer sends beyond it is
  // dropped.
  virtual std::string getData() = 0;

  static constexpr std::size_t mostKept = 65536;  // bytes; no reply of a unit has more than a few dozen

  std::function<void()> onConnect;
  std::function<void(std::size_t bytes)> onDataArrival;
  std::function<void()> onError;
};

}  // namespace torvane
