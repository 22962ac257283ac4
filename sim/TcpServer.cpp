// SPDX-License-Identifier: MIT
// Bridges on real TCP ports of this machine, in the caller's thread or in one of its own.
#include "sim/TcpServer.h"

#include <algorithm>
#include <limits>
#include <system_error>
#include <utility>

#include "sim/Loopback.h"

namespace sim {

namespace {

constexpr int queueLength = 16;  // connections that wait to be accepted
constexpr int attempts = 20;     // at a port that is free for both kinds of address

}  // namespace

TcpServer::TcpServer(TcpOptions options) : options_(std::move(options)) {}

TcpServer::~TcpServer() {
  stop();
  while (!links_.empty()) hangUp(links_.begin()->first, false);
  for (Door& door : doors_) closeDoor(door);
}

int TcpServer::listen(int port, Bridge& bridge) {
  const std::scoped_lock lock(mutex_);
  const bool bothKinds = hasFamily(Family::ipv6);
  for (int attempt = 1;; ++attempt) {
    const int first = boundSocket(Family::ipv4, port);
    const int found = portOf(first);
    Door four{Family::ipv4, found, &bridge, first};
    Door six{Family::ipv6, found, &bridge};
    try {
      if (bothKinds) six.file = boundSocket(Family::ipv6, found);
    } catch (const std::system_error&) {
      closeSocket(first);
      if (port != 0 || attempt == attempts) throw;
      continue;
    }
    for (Door* const door : {&four, &six}) {
      if (door->file >= 0) openDoor(doors_.emplace_back(*door));
    }
    waiter_.bell().ring();
    return found;
  }
}

// The door's file is bound and nothing else yet.
void TcpServer::openDoor(Door& door) {
  door.reach = door.bridge->faults.reach;
  if (door.reach == Reach::refuses) return;
  takeConnections(door.file, door.reach == Reach::accepts ? queueLength : 0);
  if (door.reach == Reach::accepts) return waiter_.watch(door.file);
  door.filler = connectedSocket(door.family, door.port);
}

void TcpServer::closeDoor(Door& door) {
  if (door.filler >= 0) closeAbruptly(std::exchange(door.filler, -1));
  closeSocket(std::exchange(door.file, -1));
}

void TcpServer::poll(double timeout) {
  {
    const std::scoped_lock lock(mutex_);
    settle();
  }
  const std::vector<int> ready = waiter_.wait(timeout);
  const std::scoped_lock lock(mutex_);
  serve(ready);
  settle();
}

void TcpServer::run() {
  while (!stopping_) poll(-1);
}

int TcpServer::file() const { return waiter_.file(); }

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
  waiter_.bell().ring();
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

void TcpServer::setTimer() {
  double next = std::numeric_limits<double>::infinity();
  for (const auto& [file, link] : links_) {
    if (!link.due.empty()) next = std::min(next, link.due.begin()->first);
  }
  waiter_.wakeIn(next - now());
}

// Whoever hung up is heard before whoever comes in: it may be the same.
void TcpServer::serve(const std::vector<int>& ready) {
  for (const int file : ready) {
    if (file == waiter_.bell().file()) waiter_.bell().clear();
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
    waiter_.watch(file);
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
  if (stuck != std::exchange(link.stuck, stuck)) waiter_.watchForRoom(file, stuck);
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
    closeSocket(file);
  }
}

}  // namespace sim
