// SPDX-License-Identifier: MIT
// Waits for many sockets at once.
#include "sim/Waiter.h"

#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <system_error>

namespace sim {

namespace {

constexpr double longest = 1000.0;  // seconds that the timer is set to at most

int checked(int file, const char* what) {
  if (file < 0) throw std::system_error(errno, std::generic_category(), what);
  return file;
}

int milliseconds(double seconds) {
  return seconds < 0 ? -1 : static_cast<int>(std::ceil(std::min(seconds, longest) * 1000));
}

// At least a nanosecond, since nothing at all would stop the timer.
timespec duration(double seconds) {
  const double limited = std::clamp(seconds, 1e-9, longest);
  const double whole = std::floor(limited);
  return {static_cast<time_t>(whole), static_cast<long>(std::ceil((limited - whole) * 999'999'999))};
}

void control(int epoll, int what, int file, unsigned events) {
  epoll_event event = {};
  event.events = events;
  event.data.fd = file;
  epoll_ctl(epoll, what, file, &event);
}

}  // namespace

struct Waiter::Watched {
  int epoll = checked(epoll_create1(EPOLL_CLOEXEC), "events");
  int timer = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);

  Watched() = default;
  ~Watched() {
    close(timer);
    close(epoll);
  }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;
};

Waiter::Waiter() : watched_(std::make_unique<Watched>()) {
  checked(watched_->timer, "timer");
  watch(bell_.file());
  watch(watched_->timer);
}

Waiter::~Waiter() = default;

int Waiter::file() const { return watched_->epoll; }

void Waiter::watch(int socket) { control(watched_->epoll, EPOLL_CTL_ADD, socket, EPOLLIN); }

void Waiter::watchForRoom(int socket, bool wanted) {
  control(watched_->epoll, EPOLL_CTL_MOD, socket, wanted ? EPOLLIN | EPOLLOUT : EPOLLIN);
}

void Waiter::wakeIn(double seconds) {
  itimerspec timing = {};
  if (!std::isinf(seconds)) timing.it_value = duration(seconds);
  timerfd_settime(watched_->timer, 0, &timing, nullptr);
}

std::vector<int> Waiter::wait(double timeout) {
  std::array<epoll_event, 32> events{};
  const int count =
      epoll_wait(watched_->epoll, events.data(), static_cast<int>(events.size()), milliseconds(timeout));
  std::vector<int> ready;
  ready.reserve(events.size());
  for (int at = 0; at < count; ++at) ready.push_back(events[static_cast<std::size_t>(at)].data.fd);
  return ready;
}

}  // namespace sim
