// SPDX-License-Identifier: MIT
// A bell that ends another thread's wait: a socket that hears what it says itself.
#include "sim/WakeUp.h"

#include <winsock2.h>

#include <array>
#include <system_error>

namespace sim {

namespace {

// Windows wants to be asked before the first socket.
void startSockets() {
  WSADATA data = {};
  static const int result = WSAStartup(MAKEWORD(2, 2), &data);
  if (result != 0) throw std::system_error(std::make_error_code(std::errc::network_down), "sockets");
}

}  // namespace

WakeUp::WakeUp() : file_(-1) {
  startSockets();
  const SOCKET bell = socket(AF_INET, SOCK_DGRAM, 0);
  sockaddr_in own = {};
  own.sin_family = AF_INET;
  own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  int size = sizeof own;
  auto* const address = reinterpret_cast<sockaddr*>(&own);
  u_long on = 1;
  if (bell == INVALID_SOCKET || bind(bell, address, size) != 0 || getsockname(bell, address, &size) != 0 ||
      connect(bell, address, size) != 0 || ioctlsocket(bell, static_cast<long>(FIONBIO), &on) != 0) {
    throw std::system_error(std::make_error_code(std::errc::network_down), "event");
  }
  file_ = static_cast<int>(bell);
}

WakeUp::~WakeUp() { closesocket(static_cast<SOCKET>(file_)); }

void WakeUp::ring() const {
  const char one = 1;
  send(static_cast<SOCKET>(file_), &one, 1, 0);
}

void WakeUp::clear() const {
  std::array<char, 64> rings;
  while (recv(static_cast<SOCKET>(file_), rings.data(), static_cast<int>(rings.size()), 0) > 0) {
  }
}

}  // namespace sim
