// SPDX-License-Identifier: MIT
// A TCP connection by system calls alone.
#include "BareSocket.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>

namespace torvane {

namespace {

constexpr int patience = 2000;  // milliseconds

}  // namespace

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

std::string BareSocket::exchange(std::string_view bytes) const {
  std::string reply;
  if (write(file_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) return reply;
  std::array<char, 256> part{};
  pollfd line{file_, POLLIN, 0};
  while (!reply.ends_with('\r') && poll(&line, 1, patience) > 0) {
    const ssize_t size = read(file_, part.data(), part.size());
    if (size <= 0) break;
    reply.append(part.data(), static_cast<std::size_t>(size));
  }
  return reply;
}

}  // namespace torvane
