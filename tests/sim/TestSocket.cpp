// SPDX-License-Identifier: MIT
// A program's end of a TCP connection, by plain means, for tests.
#include "TestSocket.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace torvane {

namespace {

constexpr int patienceToRead =
    60'000;  // milliseconds; a machine that also builds the package makes a hundred megabytes wait

}  // namespace

TestSocket::TestSocket(int port, const std::string& host, int patience) {
  addrinfo hints = {};
  hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* address = nullptr;
  if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &address) != 0) {
    fault_ = EINVAL;
    return;
  }
  file_ = socket(address->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  connect(file_, address->ai_addr, address->ai_addrlen);
  freeaddrinfo(address);
  socklen_t size = sizeof fault_;
  if (!waitFor(POLLOUT, patience)) {
    fault_ = ETIMEDOUT;
  } else {
    getsockopt(file_, SOL_SOCKET, SO_ERROR, &fault_, &size);
  }
}

TestSocket::~TestSocket() { ::close(file_); }

bool TestSocket::waitFor(short events, int patience) const {
  pollfd source{file_, events, 0};
  return ::poll(&source, 1, patience) > 0;
}

void TestSocket::send(const std::string& bytes) const {
  [[maybe_unused]] const ssize_t sent = ::send(file_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

std::string TestSocket::readTo(char last) {
  std::string text;
  char byte = 0;
  while (waitFor(POLLIN, patienceToRead) && recv(file_, &byte, 1, 0) == 1) {
    text += byte;
    if (byte == last) break;
  }
  return text;
}

std::string TestSocket::ask(const std::string& command) {
  send(command + '\r');
  return readTo('\r');
}

std::string TestSocket::readPortion() {
  std::array<char, 65536> buffer;
  if (!waitFor(POLLIN, patienceToRead)) return {};
  const ssize_t size = recv(file_, buffer.data(), buffer.size(), 0);
  if (size < 0) fault_ = errno;
  return size > 0 ? std::string(buffer.data(), static_cast<std::size_t>(size)) : std::string();
}

bool TestSocket::hasBytes() const { return waitFor(POLLIN, 0); }

bool TestSocket::isEnded() { return waitFor(POLLIN, patienceToRead) && readPortion().empty() && fault_ == 0; }

bool TestSocket::isReset() {
  return waitFor(POLLIN, patienceToRead) && readPortion().empty() && fault_ == ECONNRESET;
}

}  // namespace torvane
