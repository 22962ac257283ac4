// SPDX-License-Identifier: MIT
// Waits for many sockets at once, as Windows has it.
#include "sim/Waiter.h"

#include <winsock2.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <map>
#include <mutex>

namespace sim {

namespace {

constexpr double longest = 1000.0;  // seconds of one wait

double now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

struct Waiter::Watched {
  std::mutex mutex;
  std::map<int, bool> sockets;  // whether room is looked for as well
  double due = std::numeric_limits<double>::infinity();

  std::vector<WSAPOLLFD> asked() {
    const std::scoped_lock lock(mutex);
    std::vector<WSAPOLLFD> found;
    for (const auto& [socket, room] : sockets) {
      const short wanted = room ? POLLRDNORM | POLLWRNORM : POLLRDNORM;
      found.push_back({static_cast<SOCKET>(socket), wanted, 0});
    }
    return found;
  }
};

Waiter::Waiter() : watched_(std::make_unique<Watched>()) { watch(bell_.file()); }

Waiter::~Waiter() = default;

int Waiter::file() const { return -1; }

void Waiter::watch(int socket) { watchForRoom(socket, false); }

void Waiter::watchForRoom(int socket, bool wanted) {
  const std::scoped_lock lock(watched_->mutex);
  watched_->sockets[socket] = wanted;
}

void Waiter::wakeIn(double seconds) { watched_->due = now() + seconds; }

std::vector<int> Waiter::wait(double timeout) {
  const double limit = timeout < 0 ? longest : timeout;
  const double seconds = std::clamp(watched_->due - now(), 0.0, std::min(limit, longest));
  std::vector<WSAPOLLFD> asked = watched_->asked();
  WSAPoll(asked.data(), static_cast<ULONG>(asked.size()), static_cast<int>(std::ceil(seconds * 1000)));
  std::vector<int> ready;
  const std::scoped_lock lock(watched_->mutex);
  for (const WSAPOLLFD& one : asked) {
    const int socket = static_cast<int>(one.fd);
    if ((one.revents & POLLNVAL) != 0) {
      watched_->sockets.erase(socket);
    } else if (one.revents != 0) {
      ready.push_back(socket);
    }
  }
  return ready;
}

}  // namespace sim
