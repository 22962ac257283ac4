// SPDX-License-Identifier: MIT
// The addresses of this machine's own ports, as its sockets take them.
#pragma once

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <netinet/in.h>
#include <sys/socket.h>
#endif

#include <cstdint>
#include <cstring>

#include "sim/Loopback.h"

namespace sim {

struct Address {
  sockaddr_storage storage = {};
  socklen_t size = sizeof(sockaddr_storage);
  sockaddr* get() { return reinterpret_cast<sockaddr*>(&storage); }
};

inline int addressFamily(Family family) { return family == Family::ipv4 ? AF_INET : AF_INET6; }

inline Address loopback(Family family, int port) {
  Address address;
  if (family == Family::ipv4) {
    sockaddr_in in = {};
    in.sin_family = AF_INET;
    in.sin_port = htons(static_cast<std::uint16_t>(port));
    in.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.size = sizeof in;
    std::memcpy(&address.storage, &in, sizeof in);
  } else {
    sockaddr_in6 in = {};
    in.sin6_family = AF_INET6;
    in.sin6_port = htons(static_cast<std::uint16_t>(port));
    in.sin6_addr = in6addr_loopback;
    address.size = sizeof in;
    std::memcpy(&address.storage, &in, sizeof in);
  }
  return address;
}

// Both kinds of address have the port at the same place.
inline int portIn(const Address& address) {
  return ntohs(reinterpret_cast<const sockaddr_in*>(&address.storage)->sin_port);
}

}  // namespace sim
