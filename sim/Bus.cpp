// SPDX-License-Identifier: MIT
// The units on one line.
#include "sim/Bus.h"

#include <algorithm>
#include <iterator>

namespace sim {

namespace {

void add(std::vector<Chunk>& all, std::vector<Chunk> more) {
  std::move(more.begin(), more.end(), std::back_inserter(all));
  std::ranges::stable_sort(all, {}, &Chunk::at);
}

}  // namespace

std::vector<Chunk> Bus::receive(double now, std::string_view bytes,
                                const std::optional<LineSettings>& spoken) {
  std::vector<Chunk> all;
  for (Unit* const unit : units_) add(all, unit->receive(now, bytes, spoken.value_or(unit->setup().line)));
  return all;
}

std::vector<Chunk> Bus::unasked(double now) {
  std::vector<Chunk> all;
  for (Unit* const unit : units_) add(all, unit->unasked(now));
  return all;
}

bool Bus::unplugged() const { return std::ranges::any_of(units_, &Unit::unplugged); }

std::vector<LogEntry> Bus::takeLog() {
  std::vector<LogEntry> all = first().takeLog();
  for (std::size_t at = 1; at < units_.size(); ++at) {
    const std::vector<LogEntry> more = units_[at]->takeLog();
    std::ranges::copy_if(more, std::back_inserter(all),
                         [](const LogEntry& entry) { return entry.direction == '<'; });
  }
  std::ranges::stable_sort(all, {}, &LogEntry::time);
  return all;
}

}  // namespace sim
