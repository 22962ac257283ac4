// SPDX-License-Identifier: MIT
// A pseudo terminal whose far end answers every command at once, in a thread of its own.
#include "Responder.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/eventfd.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace torvane {

Responder::Responder(std::string reply) : reply_(std::move(reply)) {
  far_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (far_ < 0 || grantpt(far_) != 0 || unlockpt(far_) != 0) {
    throw std::system_error(errno, std::generic_category(), "pseudo terminal");
  }
  path_ = ptsname(far_);
  near_ = open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  termios settings{};
  tcgetattr(near_, &settings);
  cfmakeraw(&settings);
  tcsetattr(near_, TCSANOW, &settings);
  stop_ = eventfd(0, EFD_CLOEXEC);
  thread_ = std::thread([this] { answer(); });
}

Responder::~Responder() {
  eventfd_write(stop_, 1);
  thread_.join();
  for (const int file : {near_, far_, stop_}) close(file);
}

void Responder::answer() const {
  std::array<pollfd, 2> sources{{{far_, POLLIN, 0}, {stop_, POLLIN, 0}}};
  std::array<char, 256> command{};
  while (poll(sources.data(), sources.size(), -1) > 0 && sources[1].revents == 0) {
    const ssize_t size = read(far_, command.data(), command.size());
    if (size <= 0) return;
    if (command[static_cast<std::size_t>(size) - 1] != '\r') continue;
    if (write(far_, reply_.data(), reply_.size()) < 0) return;
  }
}

}  // namespace torvane
