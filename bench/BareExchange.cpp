// SPDX-License-Identifier: MIT
// One exchange on an open file by system calls alone.
#include "BareExchange.h"

#include <poll.h>
#include <unistd.h>

#include <array>

namespace torvane {

namespace {

constexpr int patience = 2000;  // milliseconds

}  // namespace

std::string bareExchange(int file, std::string_view bytes) {
  std::string reply;
  if (write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) return reply;
  std::array<char, 256> part{};
  pollfd line{file, POLLIN, 0};
  while (!reply.ends_with('\r') && poll(&line, 1, patience) > 0) {
    const ssize_t size = read(file, part.data(), part.size());
    if (size <= 0) break;
    reply.append(part.data(), static_cast<std::size_t>(size));
  }
  return reply;
}

}  // namespace torvane
