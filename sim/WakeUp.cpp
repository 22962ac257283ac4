// SPDX-License-Identifier: MIT
// A bell that ends another thread's wait.
#include "sim/WakeUp.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <system_error>

namespace sim {

WakeUp::WakeUp() : file_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (file_ < 0) throw std::system_error(errno, std::generic_category(), "event");
}

WakeUp::~WakeUp() { ::close(file_); }

void WakeUp::ring() const {
  const int before = errno;
  const std::uint64_t one = 1;
  // A bell that can't take another ring is ringing already.
  [[maybe_unused]] const ssize_t written = ::write(file_, &one, sizeof one);
  errno = before;
}

void WakeUp::clear() const {
  std::uint64_t rings = 0;
  [[maybe_unused]] const ssize_t size = ::read(file_, &rings, sizeof rings);
}

}  // namespace sim
