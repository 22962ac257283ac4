// SPDX-License-Identifier: MIT
// A TCP connection by system calls alone.
#include "BareSocket.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <system_error>

#include "BareExchange.h"

namespace torvane {

BareSocket::BareSocket(int port) : file_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const int on = 1;
  setsockopt(file_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  if (::connect(file_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    const int error = errno;
    close(file_);
    throw std::system_error(error, std::generic_category(), "connect");
  }
}

BareSocket::~BareSocket() { close(file_); }

std::string BareSocket::exchange(std::string_view bytes) const { return bareExchange(file_, bytes); }

}  // namespace torvane
