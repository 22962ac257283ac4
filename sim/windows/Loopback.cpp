// SPDX-License-Identifier: MIT
// Sockets on this machine's own addresses, as Windows has them. Its handles fit into an int.
#include "sim/Loopback.h"

#include <algorithm>
#include <array>
#include <limits>
#include <system_error>

#include "sim/LoopbackAddress.h"

namespace sim {

namespace {

SOCKET handle(int file) { return static_cast<SOCKET>(file); }

void setFlag(int file, int level, int name) {
  const int on = 1;
  setsockopt(handle(file), level, name, reinterpret_cast<const char*>(&on), sizeof on);
}

void neverBlock(int file) {
  u_long on = 1;
  ioctlsocket(handle(file), static_cast<long>(FIONBIO), &on);
}

int opened(Family family) {
  const SOCKET found = socket(addressFamily(family), SOCK_STREAM, 0);
  return found == INVALID_SOCKET ? -1 : static_cast<int>(found);
}

// A port is never shared: what Windows calls reuse would let another program take part in it.
int bound(Family family, int port) {
  const int file = opened(family);
  if (file < 0) return -1;
  neverBlock(file);
  setFlag(file, SOL_SOCKET, SO_EXCLUSIVEADDRUSE);
  if (family == Family::ipv6) setFlag(file, IPPROTO_IPV6, IPV6_V6ONLY);
  Address address = loopback(family, port);
  if (bind(handle(file), address.get(), address.size) == 0) return file;
  closesocket(handle(file));
  return -1;
}

}  // namespace

int boundSocket(Family family, int port) {
  const int file = bound(family, port);
  if (file < 0) {
    throw std::system_error(std::make_error_code(std::errc::address_in_use),
                            "TCP port " + std::to_string(port));
  }
  return file;
}

bool hasFamily(Family family) {
  const int file = bound(family, 0);
  if (file >= 0) closeSocket(file);
  return file >= 0;
}

int portOf(int file) {
  Address address;
  if (getsockname(handle(file), address.get(), &address.size) != 0) return 0;
  return portIn(address);
}

void takeConnections(int file, int queueLength) { listen(handle(file), queueLength); }

int connectedSocket(Family family, int port) {
  const int file = opened(family);
  Address address = loopback(family, port);
  if (file < 0 || connect(handle(file), address.get(), address.size) == 0) return file;
  closesocket(handle(file));
  return -1;
}

int acceptedSocket(int file) {
  const SOCKET found = accept(handle(file), nullptr, nullptr);
  if (found == INVALID_SOCKET) return -1;
  const int link = static_cast<int>(found);
  neverBlock(link);
  setFlag(link, IPPROTO_TCP, TCP_NODELAY);
  return link;
}

bool readSome(int file, std::string& bytes) {
  std::array<char, 16384> buffer;
  const int size = recv(handle(file), buffer.data(), static_cast<int>(buffer.size()), 0);
  if (size > 0) bytes.append(buffer.data(), static_cast<std::size_t>(size));
  return size > 0 || (size < 0 && WSAGetLastError() == WSAEWOULDBLOCK);
}

std::size_t writeSome(int file, std::string_view bytes) {
  constexpr std::size_t most = std::numeric_limits<int>::max();
  const int size = send(handle(file), bytes.data(), static_cast<int>(std::min(bytes.size(), most)), 0);
  return size > 0 ? static_cast<std::size_t>(size) : 0;
}

void endSaying(int file) { shutdown(handle(file), SD_SEND); }

void closeSocket(int file) { closesocket(handle(file)); }

void closeAbruptly(int file) {
  const linger atOnce = {1, 0};
  setsockopt(handle(file), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&atOnce), sizeof atOnce);
  closesocket(handle(file));
}

}  // namespace sim
