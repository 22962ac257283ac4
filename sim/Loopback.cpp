// SPDX-License-Identifier: MIT
// Sockets on this machine's own addresses.
#include "sim/Loopback.h"

#include <netinet/tcp.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "sim/LoopbackAddress.h"

namespace sim {

namespace {

void setFlag(int file, int level, int name) {
  const int on = 1;
  setsockopt(file, level, name, &on, sizeof on);
}

int bound(Family family, int port) {
  const int file = socket(addressFamily(family), SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (file < 0) return -1;
  setFlag(file, SOL_SOCKET, SO_REUSEADDR);
  if (family == Family::ipv6) setFlag(file, IPPROTO_IPV6, IPV6_V6ONLY);
  Address address = loopback(family, port);
  if (bind(file, address.get(), address.size) == 0) return file;
  const int fault = errno;
  close(file);
  errno = fault;
  return -1;
}

}  // namespace

int boundSocket(Family family, int port) {
  const int file = bound(family, port);
  if (file < 0) throw std::system_error(errno, std::generic_category(), "TCP port " + std::to_string(port));
  return file;
}

bool hasFamily(Family family) {
  const int file = bound(family, 0);
  if (file >= 0) close(file);
  return file >= 0;
}

int portOf(int file) {
  Address address;
  if (getsockname(file, address.get(), &address.size) != 0) return 0;
  return portIn(address);
}

void takeConnections(int file, int queueLength) { listen(file, queueLength); }

int connectedSocket(Family family, int port) {
  const int file = socket(addressFamily(family), SOCK_STREAM | SOCK_CLOEXEC, 0);
  Address address = loopback(family, port);
  if (file < 0 || connect(file, address.get(), address.size) == 0) return file;
  close(file);
  return -1;
}

int acceptedSocket(int file) {
  const int link = accept4(file, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (link >= 0) setFlag(link, IPPROTO_TCP, TCP_NODELAY);
  return link;
}

bool readSome(int file, std::string& bytes) {
  std::array<char, 16384> buffer;
  const ssize_t size = recv(file, buffer.data(), buffer.size(), 0);
  if (size > 0) bytes.append(buffer.data(), static_cast<std::size_t>(size));
  return size > 0 || (size < 0 && (errno == EAGAIN || errno == EINTR));
}

std::size_t writeSome(int file, std::string_view bytes) {
  const ssize_t size = send(file, bytes.data(), bytes.size(), MSG_NOSIGNAL);
  return size > 0 ? static_cast<std::size_t>(size) : 0;
}

void endSaying(int file) { shutdown(file, SHUT_WR); }

void closeSocket(int file) { close(file); }

void closeAbruptly(int file) {
  const linger atOnce = {1, 0};
  setsockopt(file, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
  close(file);
}

}  // namespace sim
