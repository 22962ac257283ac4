// SPDX-License-Identifier: MIT
// Sockets on this machine's own addresses.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "sim/Bridge.h"

namespace sim {

enum class Family { ipv4, ipv6 };

// A socket bound to a port of 127.0.0.1 or ::1, not listening: who asks is refused.
// Throws std::system_error.
int boundSocket(Family family, int port);
bool hasFamily(Family family);  // whether this machine has such an address
int portOf(int file);
void takeConnections(int file, int queueLength);

// A connection to a port here that stays as it is; -1 when there is none to be had.
int connectedSocket(Family family, int port);
// The next connection that waits, not blocking, with low delay; -1 when there is none.
int acceptedSocket(int file);

// Whether the far end is still there; what has come in, some kilobytes at most, is added to `bytes`.
bool readSome(int file, std::string& bytes);
// How many bytes the line took at once.
std::size_t writeSome(int file, std::string_view bytes);

void endSaying(int file);  // an orderly end of what is said; the other direction stays
void closeSocket(int file);
void closeAbruptly(int file);  // with a reset

}  // namespace sim
