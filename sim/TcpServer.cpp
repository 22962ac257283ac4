// SPDX-License-Identifier: MIT
// Bridges on real TCP ports of this machine, in the caller's thread or in one of its own.
#include "sim/TcpServer.h"

#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <limits>
#include <system_error>
#include <utility>

#include "sim/Loopback.h"

namespace sim {

namespace {

constexpr int queueLength = 16;     // connections that wait to be accepted
constexpr int attempts = 20;        // at a port that is free for both kinds of address
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

}  // namespace

TcpServer::TcpServer(TcpOptions options)
    : options_(std::move(options)),
      epoll_(checked(epoll_create1(EPOLL_CLOEXEC), "events")),
      timer_(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {
  if (timer_ < 0) close(epoll_);
  checked(timer_, "timer");
  watch(bell_.file(), EPOLLIN, false);
  watch(timer_, EPOLLIN, false);
}

TcpServer::~TcpServer() {
  stop();
  while (!links_.empty()) hangUp(links_.begin()->first, false);
  for (Door& door : doors_) closeDoor(door);
  close(timer_);
  close(epoll_);
}

int TcpServer::listen(int port, Bridge& bridge) {
  const std::scoped_lock lock(mutex_);
  const bool bothKinds = hasFamily(AF_INET6);
  for (int attempt = 1;; ++attempt) {
    const int first = boundSocket(AF_INET, port);
    const int found = portOf(first);
    Door four{AF_INET, found, &bridge, first};
    Door six{AF_INET6, found, &bridge};
    try {
      if (bothKinds) six.file = boundSocket(AF_INET6, found);
    } catch (const std::system_error&) {
      close(first);
      if (port != 0 || attempt == attempts) throw;
      continue;
    }
    for (Door* const door : {&four, &six}) {
      if (door->file >= 0) openDoor(doors_.emplace_back(*door));
    }
    bell_.ring();
    return found;
  }
}

// The door's file is bound and nothing else yet.
void TcpServer::openDoor(Door& door) {
  door.reach = door.bridge->faults.reach;
  if (door.reach == Reach::refuses) return;
  ::listen(door.file, door.reach == Reach::accepts ? queueLength : 0);
  if (door.reach == Reach::accepts) return watch(door.file, EPOLLIN, false);
  door.filler = connectedSocket(door.family, door.port);
}

void TcpServer::closeDoor(Door& door) {
  if (door.filler >= 0) closeAbruptly(std::exchange(door.filler, -1));
  close(std::exchange(door.file, -1));
}

void TcpServer::poll(double timeout) {
  {
    const std::scoped_lock lock(mutex_);
    settle();
  }
  std::array<epoll_event, 32> events{};
  const int count = epoll_wait(epoll_, events.data(), static_cast<int>(events.size()), milliseconds(timeout));
  std::vector<int> ready;
  ready.reserve(events.size());
  for (int at = 0; at < count; ++at) ready.push_back(events[static_cast<std::size_t>(at)].data.fd);
  const std::scoped_lock lock(mutex_);
  serve(ready);
  settle();
}

void TcpServer::run() {
  while (!stopping_) poll(-1);
}

int TcpServer::file() const { return epoll_; }

void TcpServer::start() {
  if (thread_.joinable()) return;
  stopping_ = false;
  thread_ = std::thread([this] { run(); });
}

void TcpServer::stop() {
  requestStop();
  if (thread_.joinable()) thread_.join();
}

void TcpServer::requestStop() {
  stopping_ = true;
  bell_.ring();
}

double TcpServer::now() const {
  if (options_.now) return options_.now();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

// A port that stops listening has to be bound anew.
void TcpServer::settle() {
  for (Door& door : doors_) {
    if (door.reach == door.bridge->faults.reach) continue;
    closeDoor(door);
    door.file = boundSocket(door.family, door.port);
    openDoor(door);
  }
  setTimer();
}

void TcpServer::setTimer() const {
  double next = std::numeric_limits<double>::infinity();
  for (const auto& [file, link] : links_) {
    if (!link.due.empty()) next = std::min(next, link.due.begin()->first);
  }
  itimerspec timing = {};
  if (!std::isinf(next)) timing.it_value = duration(next - now());
  timerfd_settime(timer_, 0, &timing, nullptr);
}

// Whoever hung up is heard before whoever comes in: it may be the same.
void TcpServer::serve(const std::vector<int>& ready) {
  for (const int file : ready) {
    if (file == bell_.file()) bell_.clear();
    if (links_.contains(file)) hear(file);
  }
  for (const Door& door : doors_) {
    if (std::ranges::find(ready, door.file) != ready.end()) welcome(door);
  }
  tell();
  std::vector<int> files;
  files.reserve(links_.size());
  for (const auto& [file, link] : links_) files.push_back(file);
  for (const int file : files) deliver(file, links_.at(file));
}

void TcpServer::welcome(const Door& door) {
  for (int file = acceptedSocket(door.file); file >= 0; file = acceptedSocket(door.file)) {
    queue(links_.emplace(file, Link{door.bridge}).first->second, door.bridge->connect(now()));
    watch(file, EPOLLIN, false);
  }
}

void TcpServer::hear(int file) {
  Link& link = links_.at(file);
  std::string bytes;
  if (!readSome(file, bytes)) return hangUp(file, false);
  if (link.ended || bytes.empty()) return;
  queue(link, link.bridge->receive(now(), bytes));
  if (!options_.onExchange) return;
  for (const Unit* const unit : link.bridge->bus().units()) options_.onExchange(*unit);
}

void TcpServer::queue(Link& link, std::vector<BridgeEvent> events) {
  for (BridgeEvent& event : events) link.due.emplace(event.at, std::move(event));
}

void TcpServer::deliver(int file, Link& link) {
  for (const double moment = now(); !link.due.empty() && link.due.begin()->first <= moment;) {
    const auto event = link.due.extract(link.due.begin());
    if (!happen(file, link, event.mapped())) return;
  }
  flush(file, link);
}

// False when the link has gone with it.
bool TcpServer::happen(int file, Link& link, const BridgeEvent& event) {
  switch (event.kind) {
    case BridgeEvent::accepted:
      return true;
    case BridgeEvent::data:
      flush(file, link);
      link.outbox += event.bytes;
      return true;
    case BridgeEvent::closed:
      link.ended = true;
      link.due.clear();
      return true;
    case BridgeEvent::refused:
    case BridgeEvent::reset:
      flush(file, link);
      hangUp(file, true);
      return false;
  }
  return false;
}

void TcpServer::flush(int file, Link& link) {
  for (std::size_t taken = 1; taken > 0 && link.sent < link.outbox.size();) {
    taken = writeSome(file, std::string_view(link.outbox).substr(link.sent));
    link.sent += taken;
  }
  const bool stuck = link.sent < link.outbox.size();
  if (stuck != std::exchange(link.stuck, stuck)) watch(file, stuck ? EPOLLIN | EPOLLOUT : EPOLLIN, true);
  if (stuck) return;
  link.outbox.clear();
  link.sent = 0;
  if (link.ended) endSaying(file);
}

void TcpServer::tell() {
  if (!options_.onTraffic) return;
  for (const Door& door : doors_) {
    for (const LogEntry& entry : door.bridge->takeLog()) options_.onTraffic(entry);
  }
}

void TcpServer::hangUp(int file, bool abrupt) {
  links_.erase(file);
  if (abrupt) {
    closeAbruptly(file);
  } else {
    close(file);
  }
}

void TcpServer::watch(int file, unsigned events, bool known) const {
  epoll_event event = {};
  event.events = events;
  event.data.fd = file;
  epoll_ctl(epoll_, known ? EPOLL_CTL_MOD : EPOLL_CTL_ADD, file, &event);
}

}  // namespace sim
