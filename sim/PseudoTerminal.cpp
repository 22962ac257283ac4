// SPDX-License-Identifier: MIT
// The units of a line on a pseudo terminal, in the caller's thread or in one of its own.
#include "sim/PseudoTerminal.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace sim {

namespace {

// A line that nobody reads loses what is beyond.
constexpr std::size_t outboxCapacity = 1'000'000;

constexpr double noEnd = -1;

void makeLink(const std::string& link, const std::string& target) {
  if (link.empty()) return;
  if (std::filesystem::is_symlink(link)) std::filesystem::remove(link);
  std::filesystem::create_symlink(target, link);
}

// A link that somebody else has set anew in the meantime stays.
void dropLink(const std::string& link, const std::string& target) {
  std::error_code ignored;
  if (link.empty() || std::filesystem::read_symlink(link, ignored) != target) return;
  std::filesystem::remove(link, ignored);
}

double sooner(double one, double other) {
  if (one < 0) return other;
  return other < 0 ? one : std::min(one, other);
}

timespec duration(double seconds) {
  const double whole = std::floor(std::min(seconds, 1e6));
  return {static_cast<time_t>(whole), static_cast<long>((std::min(seconds, 1e6) - whole) * 1e9)};
}

}  // namespace

Server::Server(Bus bus, ServerOptions options) : bus_(std::move(bus)), options_(std::move(options)) {
  makeLink(options_.link, path());
}

Server::~Server() { unplug(); }

bool Server::poll(double timeout) {
  if (unplugged()) return false;
  wait(timeout);
  serve();
  return !unplugged();
}

void Server::run() {
  while (!stopping_ && poll(noEnd)) {
  }
}

void Server::start() {
  if (thread_.joinable()) return;
  stopping_ = false;
  thread_ = std::thread([this] { run(); });
}

void Server::stop() {
  requestStop();
  if (thread_.joinable()) thread_.join();
}

void Server::unplug() {
  stop();
  const std::scoped_lock lock(mutex_);
  hangUp();
}

bool Server::unplugged() const {
  const std::scoped_lock lock(mutex_);
  return !pty_.isOpen();
}

void Server::requestStop() {
  stopping_ = true;
  bell_.ring();
}

double Server::now() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

double Server::untilDue() {
  const std::scoped_lock lock(mutex_);
  queue(bus_.unasked(now()));
  return due_.empty() ? noEnd : std::max(0.0, due_.begin()->first - now());
}

void Server::wait(double timeout) {
  const short events = outbox_.empty() ? POLLIN : POLLIN | POLLOUT;
  std::array<pollfd, 3> sources{
      {{pty_.master(), events, 0}, {bell_.file(), POLLIN, 0}, {options_.otherFile, POLLIN, 0}}};
  const double limit = sooner(timeout, untilDue());
  const timespec length = duration(std::max(limit, 0.0));
  ppoll(sources.data(), sources.size(), limit < 0 ? nullptr : &length, nullptr);
  if (sources[1].revents != 0) bell_.clear();
  otherReady_ = sources[2].revents != 0;
}

void Server::serve() {
  const std::scoped_lock lock(mutex_);
  if (!pty_.isOpen()) return;
  if (std::exchange(otherReady_, false)) options_.onOther();
  hear();
  tell();
  if (bus_.unplugged()) return hangUp();
  deliver();
}

void Server::hear() {
  const std::string bytes = pty_.read();
  if (bytes.empty()) return;
  pty_.allowOthers();
  std::optional<LineSettings> spoken;
  if (options_.checkLine) spoken = pty_.spoken(bus_.first().setup().line);
  queue(bus_.receive(now(), bytes, spoken));
  if (!options_.onExchange) return;
  for (const Unit* const unit : bus_.units()) options_.onExchange(*unit);
}

void Server::tell() {
  if (!options_.onTraffic) return;
  for (const LogEntry& entry : bus_.takeLog()) options_.onTraffic(entry);
}

void Server::queue(std::vector<Chunk> chunks) {
  for (Chunk& chunk : chunks) due_.emplace(chunk.at, std::move(chunk.bytes));
}

void Server::deliver() {
  for (const double moment = now(); !due_.empty() && due_.begin()->first <= moment;) {
    outbox_ += due_.begin()->second;
    due_.erase(due_.begin());
  }
  outbox_.resize(std::min(outbox_.size(), outboxCapacity));
  for (std::size_t taken = 1; taken > 0 && !outbox_.empty();) {
    taken = pty_.write(outbox_);
    outbox_.erase(0, taken);
  }
}

void Server::hangUp() {
  if (!pty_.isOpen()) return;
  pty_.hangUp();
  dropLink(options_.link, path());
  due_.clear();
  outbox_.clear();
}

}  // namespace sim
